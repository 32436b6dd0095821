// The rich-text reader: one pass over the bytes with a stack of group states.
#include "RtfLer.h"
#include <functional>
#include <map>
#include <unordered_set>
#include "RtfCp.h"

namespace zw {

namespace {

// Where the text of a group goes (FonNom: a font's true name, {\*\fname}).
enum class Dst { Tx, Fon, FonNom, Cor, Nada };

// The state a group saves and its closing brace gives back.
struct Est {
  RtfCar car;
  int fon = -1;   // font number; -1 the default font
  int uc = 1;     // characters that stand in for each \uN
  Dst dst = Dst::Tx;
  bool ocu = false;  // hidden text (\v)
  bool tbl = false;  // the paragraph lies in a table (\intbl)
  int tabTip = 0;    // the kind of the next tab stop (\tqr, \tqc, \tqdec)
  RtfPar par;        // the paragraph layout (runs unused)
};

// A hash of a character format, for the count of distinct formats.
struct CarHash {
  size_t operator()(const RtfCar& c) const {
    size_t h = std::hash<Tx>()(c.fon);
    auto mis = [&h](size_t v) { h ^= v + 0x9e3779b97f4a7c15ULL + (h << 6) + (h >> 2); };
    mis(size_t(c.neg) | size_t(c.ita) << 1 | size_t(c.sub) << 2 | size_t(c.tac) << 3);
    mis(size_t(c.pos + 1));
    mis(std::hash<double>()(c.tam));
    mis(size_t(c.cor));
    mis(size_t(c.fun));
    return h;
  }
};

struct Fonte {
  Tx nome;
  Tx nomeVer;   // the true name, when the entry gives one
  int cs = -1;  // \fcharset, -1 unset
};

constexpr size_t kPilhaMax = 512;  // deeper groups share the state of this depth
constexpr int kPalMax = 32;        // letters of a control word that count

class Leitor {
 public:
  Leitor(std::string_view b, RtfDoc& d) : b_(b), doc_(d) {}
  void Le();

 private:
  void Palavra();
  void Comando(const std::string& pal, bool temNum, long num);
  void Simbolo(char c);
  void Byte(unsigned char c);
  void Chr(char16_t c);
  void FonFim();
  void ParFim(bool tbl = false, bool celFim = false);
  void LinFim();
  void BorDef(const std::string& p, bool temNum, long n);
  int Cp() const;
  long Cor(long n) const;
  RtfCar CarLim(const RtfCar& c);

  std::string_view b_;
  size_t i_ = 0;
  RtfDoc& doc_;
  std::vector<Est> pilha_;
  size_t extra_ = 0;  // groups opened past kPilhaMax
  Est e_;
  RtfPar atual_;
  int cpDoc_ = 1252;
  int deff_ = 0;
  int pulo_ = 0;  // characters still to drop after a \uN
  std::map<int, Fonte> fontes_;
  int fonDef_ = -1;  // the font entry being read in the table
  std::vector<long> cores_;
  int r_ = -1, g_ = -1, bl_ = -1;  // the colour entry being read
  RtfCpCnv cnv_;
  int lid_ = -1, lidCp_ = 0;       // the lead byte of a two-byte character, and its page
  std::unordered_set<Tx> fonUsa_;  // the fonts the text has used
  std::unordered_set<RtfCar, CarHash> carUsa_;  // the formats the text has used
  // The table row being defined and the cells read of the one being filled.
  RtfTblLin lin_;
  RtfTblCel cel_;
  int gaph_ = 0, padV_[4] = {0, 0, 0, 0}, padF_[4] = {0, 0, 0, 0};
  RtfBor linBor_[6];   // the row's borders: left, top, right, bottom, inside across, inside down
  RtfBor* bor_ = nullptr;  // the border that \brdr... words describe now
  int celAtu_ = 0;         // the cell that text goes to
  RtfCar carLido_, carLim_;  // the last format met and what the limits made of it
  std::vector<size_t> linPars_;  // the paragraphs of the row being filled
};

// A whole number held in the 32-bit range.
long Prende(long long n) {
  if (n > 2147483647LL) return 2147483647L;
  if (n < -2147483647LL) return -2147483647L;
  return long(n);
}

bool EhHex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
int Hex(char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; }

// The code page of a font's character set; 0 the document's own. Set 0 is Western
// whatever page the document names: word processors write a Western run's bytes in
// such a font inside Baltic, Cyrillic or Japanese documents.
int CpDeCs(int cs) {
  switch (cs) {
    case 0: return 1252;
    case 77: return 10000;
    case 128: return 932;
    case 129: return 949;
    case 130: return 1361;
    case 134: return 936;
    case 136: return 950;
    case 161: return 1253;
    case 162: return 1254;
    case 163: return 1258;
    case 177: return 1255;
    case 178: return 1256;
    case 186: return 1257;
    case 204: return 1251;
    case 222: return 874;
    case 238: return 1250;
    case 254: return 437;
    case 255: return 850;
  }
  return 0;
}

void Leitor::Le() {
  int prof = 0;
  while (i_ < b_.size()) {
    char c = b_[i_++];
    if (c == '{') {
      pulo_ = 0;
      ++prof;
      if (pilha_.size() < kPilhaMax) pilha_.push_back(e_);
      else ++extra_;
    } else if (c == '}') {
      pulo_ = 0;
      if (extra_) {
        --extra_;
      } else if (!pilha_.empty()) {
        Dst antes = e_.dst;
        e_ = std::move(pilha_.back());
        pilha_.pop_back();
        if (antes == Dst::Fon && e_.dst == Dst::Fon) FonFim();
      }
      if (--prof <= 0) break;  // the document's own group has closed
    } else if (c == '\\') {
      Palavra();
    } else if (c == '\r' || c == '\n' || c == '\0') {
      // line ends of the file are not text
    } else {
      Byte(static_cast<unsigned char>(c));
    }
  }
  if (!atual_.runs.empty()) ParFim(e_.tbl);
  auto f = fontes_.find(deff_);
  if (f != fontes_.end()) doc_.fonPad = f->second.nome;
}

// After a backslash: a control word with its number, or a control symbol.
void Leitor::Palavra() {
  if (i_ >= b_.size()) return;
  char c = b_[i_];
  if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'))) {
    ++i_;
    Simbolo(c);
    return;
  }
  std::string pal;
  while (i_ < b_.size() && ((b_[i_] >= 'a' && b_[i_] <= 'z') || (b_[i_] >= 'A' && b_[i_] <= 'Z'))) {
    if (pal.size() < kPalMax) pal += b_[i_];
    ++i_;
  }
  bool neg = false, temNum = false;
  long long n = 0;
  if (i_ < b_.size() && b_[i_] == '-' && i_ + 1 < b_.size() && b_[i_ + 1] >= '0' && b_[i_ + 1] <= '9') {
    neg = true;
    ++i_;
  }
  while (i_ < b_.size() && b_[i_] >= '0' && b_[i_] <= '9') {
    temNum = true;
    if (n < 100000000000LL) n = n * 10 + (b_[i_] - '0');
    ++i_;
  }
  if (i_ < b_.size() && b_[i_] == ' ') ++i_;  // the blank that ends a word is part of it
  Comando(pal, temNum, Prende(neg ? -n : n));
}

void Leitor::Simbolo(char c) {
  switch (c) {
    case '\\': case '{': case '}': Byte(static_cast<unsigned char>(c)); break;
    case '~': Chr(0x00A0); break;
    case '_': Chr(0x2011); break;
    case '\r': case '\n': ParFim(e_.tbl); break;
    case '*': e_.dst = Dst::Nada; break;  // an optional destination this reader does not know
    case '\'': {
      if (i_ + 1 < b_.size() && EhHex(b_[i_]) && EhHex(b_[i_ + 1])) {
        unsigned char v = static_cast<unsigned char>(Hex(b_[i_]) * 16 + Hex(b_[i_ + 1]));
        i_ += 2;
        Byte(v);
      } else {
        while (i_ < b_.size() && EhHex(b_[i_])) ++i_;
      }
      break;
    }
    default: break;  // \- \| \: and the like leave nothing
  }
}

// The destinations whose text is not shown.
bool DstOculto(const std::string& p) {
  static const char* const nomes[] = {
      "stylesheet", "info", "pict", "objdata", "fldinst", "header", "headerl",
      "headerr", "headerf", "footer", "footerl", "footerr", "footerf", "footnote", "annotation",
      "atnid", "atnauthor", "xe", "tc", "txe", "rxe", "listtable", "listoverridetable",
      "revtbl", "rsidtbl", "generator", "filetbl", "themedata", "colorschememapping",
      "latentstyles", "datastore", "xmlnstbl", "pn", "nonshppict", "bkmkstart", "bkmkend",
      "template", "userprops", "docvar", "mmathPr", "private", "pgdsctbl", "expandedcolortbl",
      "listtables", "shpinst", "sp", "sn", "sv", "picprop", "blipuid", "do", "title",
      "author", "operator", "creatim", "revtim", "printim", "buptim", "company", "falt",
      "panose", "fontemb", "fontfile"};
  for (const char* n : nomes)
    if (p == n) return true;
  return false;
}

void Leitor::Comando(const std::string& p, bool temNum, long n) {
  if (p == "bin") {  // binary data: n bytes that are not rich text
    if (n > 0) i_ += std::min<size_t>(size_t(n), b_.size() - i_);
    return;
  }
  if (p == "fonttbl") { e_.dst = Dst::Fon; return; }
  if (p == "fname" && fonDef_ >= 0) { e_.dst = Dst::FonNom; return; }
  if (p == "colortbl") { e_.dst = Dst::Cor; return; }
  if (DstOculto(p)) { e_.dst = Dst::Nada; return; }
  if (e_.dst == Dst::Nada) return;
  if (e_.dst == Dst::FonNom && p != "u" && p != "uc") return;
  if (e_.dst == Dst::Fon) {  // the font table: numbers, character sets and names
    if (p == "f") {
      fonDef_ = int(n);
      fontes_[fonDef_];
      return;
    }
    if (p == "fcharset" && fonDef_ >= 0) fontes_[fonDef_].cs = int(n);
    if (p != "u" && p != "uc") return;
  }
  if (e_.dst == Dst::Cor) {
    int v = int(std::max(0L, std::min(255L, n)));
    if (p == "red") r_ = v;
    else if (p == "green") g_ = v;
    else if (p == "blue") bl_ = v;
    return;
  }
  RtfCar& c = e_.car;
  bool on = !temNum || n != 0;
  // Text
  if (p == "par" || p == "sect" || p == "page" || p == "nestrow") ParFim(e_.tbl);
  else if (p == "cell") ParFim(true, true);
  else if (p == "row") LinFim();
  else if (p == "line") Chr(u'\n');
  else if (p == "tab" || p == "nestcell") Chr(u'\t');
  else if (p == "emdash") Chr(0x2014);
  else if (p == "endash") Chr(0x2013);
  else if (p == "emspace") Chr(0x2003);
  else if (p == "enspace") Chr(0x2002);
  else if (p == "bullet") Chr(0x2022);
  else if (p == "lquote") Chr(0x2018);
  else if (p == "rquote") Chr(0x2019);
  else if (p == "ldblquote") Chr(0x201C);
  else if (p == "rdblquote") Chr(0x201D);
  else if (p == "u") {
    lid_ = -1;
    long v = n < 0 ? n + 65536 : n;
    Chr(char16_t(v & 0xFFFF));
    pulo_ = e_.uc;
  } else if (p == "uc") e_.uc = int(std::max(0L, std::min(16L, n)));
  // Document
  else if (p == "ansicpg") cpDoc_ = RtfCpTem(int(n)) ? int(n) : 1252;
  else if (p == "mac") cpDoc_ = 10000;
  else if (p == "pc") cpDoc_ = 437;
  else if (p == "pca") cpDoc_ = 850;
  else if (p == "deff") deff_ = int(n);
  // Characters
  else if (p == "plain") { c = RtfCar(); e_.fon = -1; e_.ocu = false; }
  else if (p == "v") e_.ocu = on;
  else if (p == "b") c.neg = on;
  else if (p == "i") c.ita = on;
  else if (p == "ulnone") c.sub = false;
  else if (p.size() >= 2 && p[0] == 'u' && p[1] == 'l' && p != "ulc") c.sub = on;
  else if (p == "strike" || p == "striked") c.tac = on;
  else if (p == "super") c.pos = 1;
  else if (p == "sub") c.pos = -1;
  else if (p == "nosupersub") c.pos = 0;
  else if (p == "fs") c.tam = temNum && n > 0 ? std::min(n, 3276L) / 2.0 : 12;
  else if (p == "f") {
    e_.fon = int(n);
    auto f = fontes_.find(e_.fon);
    c.fon = f != fontes_.end() ? f->second.nome : Tx();
  } else if (p == "cf") c.cor = Cor(n);
  else if (p == "highlight" || p == "cb" || p == "chcbpat") c.fun = n == 0 ? -1 : Cor(n);
  // Paragraphs
  else if (p == "pard") {
    RtfPar vazio;
    e_.par = vazio;
    e_.tbl = false;
    e_.tabTip = 0;
  } else if (p == "ql") e_.par.aln = 0;
  else if (p == "qr") e_.par.aln = 1;
  else if (p == "qc") e_.par.aln = 2;
  else if (p == "qj") e_.par.aln = 3;
  else if (p == "li" || p == "lin") e_.par.esq = int(n);
  else if (p == "ri" || p == "rin") e_.par.dir = int(n);
  else if (p == "fi") e_.par.pri = int(n);
  else if (p == "sb") e_.par.antes = int(n);
  else if (p == "sa") e_.par.depois = int(n);
  else if (p == "sl") e_.par.lin = int(std::max(-31680L, std::min(31680L, n)));
  else if (p == "aspalpha") e_.par.espLat = on;
  else if (p == "aspnum") e_.par.espNum = on;
  else if (p == "slmult") e_.par.linMul = on;
  else if (p == "contextualspace") e_.par.ctx = true;
  else if (p == "s") e_.par.est = int(n);
  else if (p == "tqr") e_.tabTip = 1;
  else if (p == "tqc") e_.tabTip = 2;
  else if (p == "tqdec") e_.tabTip = 3;
  else if (p == "tx" || p == "tb") {  // a tab stop; a bar tab (\tb) only draws a bar, not kept
    if (p == "tx" && e_.par.tabs.size() < 64) e_.par.tabs.push_back(RtfTab{int(n), e_.tabTip});
    e_.tabTip = 0;
  }
  // Tables
  else if (p == "intbl") e_.tbl = true;
  else if (p == "itap") e_.tbl = n > 0;
  else if (p == "trowd") {
    lin_ = RtfTblLin();
    cel_ = RtfTblCel();
    gaph_ = 0;
    for (int k = 0; k < 4; ++k) padV_[k] = padF_[k] = 0;
    for (RtfBor& b : linBor_) b = RtfBor();
    bor_ = nullptr;
  } else if (p == "trleft") lin_.esq = int(n);
  else if (p == "trgaph") gaph_ = int(std::max(0L, n));
  else if (p == "trpaddl") padV_[0] = int(std::max(0L, n));
  else if (p == "trpaddt") padV_[1] = int(std::max(0L, n));
  else if (p == "trpaddr") padV_[2] = int(std::max(0L, n));
  else if (p == "trpaddb") padV_[3] = int(std::max(0L, n));
  else if (p == "trpaddfl") padF_[0] = int(n);
  else if (p == "trpaddft") padF_[1] = int(n);
  else if (p == "trpaddfr") padF_[2] = int(n);
  else if (p == "trpaddfb") padF_[3] = int(n);
  else if (p == "clcbpat" || p == "clcbpatraw") cel_.fun = Cor(n);
  else if (p == "cellx") {
    cel_.dirX = int(n);
    if (lin_.cels.size() < 256) lin_.cels.push_back(cel_);
    cel_ = RtfTblCel();
    bor_ = nullptr;
  } else if (p.size() > 4 && (p.compare(0, 4, "brdr") == 0 || p.compare(0, 6, "clbrdr") == 0 || p.compare(0, 6, "trbrdr") == 0 || p == "box"))
    BorDef(p, temNum, n);
}

// The border words of tables: which border the next words describe (\clbrdrt,
// \trbrdrl...), and its line: a style word draws it, \brdrw gives its width,
// \brdrcf its colour, \brdrnone takes it away. Paragraph borders are not drawn.
void Leitor::BorDef(const std::string& p, bool temNum, long n) {
  static const char* const cel[] = {"clbrdrl", "clbrdrt", "clbrdrr", "clbrdrb"};
  static const char* const lin[] = {"trbrdrl", "trbrdrt", "trbrdrr", "trbrdrb", "trbrdrh", "trbrdrv"};
  for (int k = 0; k < 4; ++k)
    if (p == cel[k]) { bor_ = &cel_.bor[k]; return; }
  for (int k = 0; k < 6; ++k)
    if (p == lin[k]) { bor_ = &linBor_[k]; return; }
  if (p == "brdrt" || p == "brdrb" || p == "brdrl" || p == "brdrr" || p == "brdrbtw" || p == "brdrbar" || p == "box") {
    bor_ = nullptr;  // a paragraph's border
    return;
  }
  if (!bor_) return;
  if (p == "brdrw") { if (temNum && n > 0) bor_->lar = int(std::min(n, 1440L)); }
  else if (p == "brdrcf") bor_->cor = Cor(n);
  else if (p == "brdrnone" || p == "brdrtbl" || p == "brdrnil") bor_->lar = 0;
  else if (p != "brdrsp" && p != "brdrframe" && bor_->lar == 0) bor_->lar = 15;  // a style: a line one pixel wide until \brdrw
}

// The end of a table row: its paragraphs take the row as it was defined, the
// row's own borders filling the sides its cells leave bare, and the padding of
// \trpadd... (in twips where \trpaddf... says 3) or else half the gap between
// cells (\trgaph) at the sides.
void Leitor::LinFim() {
  if (e_.dst != Dst::Tx) return;
  if (!atual_.runs.empty()) ParFim(true, true);
  if (linPars_.empty()) return;
  RtfTblLin l = lin_;
  for (size_t k = 0; k < l.cels.size(); ++k) {
    RtfBor* b = l.cels[k].bor;
    if (!b[0].lar) b[0] = k == 0 ? linBor_[0] : linBor_[5];
    if (!b[2].lar) b[2] = k + 1 == l.cels.size() ? linBor_[2] : linBor_[5];
    if (!b[1].lar) b[1] = linBor_[1];
    if (!b[3].lar) b[3] = linBor_[3];
  }
  for (int k = 0; k < 4; ++k) l.pad[k] = padF_[k] == 3 ? padV_[k] : (k % 2 == 0 ? gaph_ : 0);
  int idx = int(doc_.tbls.size());
  doc_.tbls.push_back(std::move(l));
  for (size_t i : linPars_) doc_.pars[i].tbl = idx;
  linPars_.clear();
  celAtu_ = 0;
}

// The code page of the bytes now: the font's character set, else the document's.
int Leitor::Cp() const {
  int fon = e_.fon >= 0 ? e_.fon : deff_;
  auto f = fontes_.find(fon);
  if (f != fontes_.end()) {
    int cp = CpDeCs(f->second.cs);
    if (cp) return cp;
  }
  return cpDoc_;
}

long Leitor::Cor(long n) const { return n >= 0 && size_t(n) < cores_.size() ? cores_[size_t(n)] : -1; }

// A byte of text in the page in force, dropped while a \uN has characters to skip.
void Leitor::Byte(unsigned char b) {
  if (pulo_ > 0) {
    --pulo_;
    return;
  }
  if (e_.dst == Dst::Cor) {
    if (b == ';' && cores_.size() >= size_t(kRtfCorMax)) doc_.lim |= kRtfLimCor;
    else if (b == ';') {
      cores_.push_back(r_ < 0 && g_ < 0 && bl_ < 0 ? -1 : std::max(r_, 0) + 256L * std::max(g_, 0) + 65536L * std::max(bl_, 0));
      r_ = g_ = bl_ = -1;
    }
    return;
  }
  if (e_.dst == Dst::FonNom && b == ';') return;
  if (e_.dst == Dst::Fon && b == ';') {
    FonFim();
    return;
  }
  int cp = Cp();
  if ((e_.dst == Dst::Fon || e_.dst == Dst::FonNom) && fonDef_ >= 0) {  // a font's name is written in its own character set
    int cpf = CpDeCs(fontes_[fonDef_].cs);
    if (cpf) cp = cpf;
  }
  if (lid_ >= 0) {  // the second byte of a two-byte character
    unsigned char d[2] = {static_cast<unsigned char>(lid_), b};
    lid_ = -1;
    for (char16_t c : cnv_.Cnv(lidCp_, d, 2)) Chr(c);
    return;
  }
  if (RtfCpCnvTem(cp)) {
    if (RtfCpLid(cp, b)) {
      lid_ = b;
      lidCp_ = cp;
      return;
    }
    for (char16_t c : cnv_.Cnv(cp, &b, 1)) Chr(c);
    return;
  }
  Chr(RtfCpChr(cp, b));
}

// The end of a font entry: its name without trailing blanks, the true one if given.
void Leitor::FonFim() {
  if (fonDef_ >= 0) {
    Fonte& f = fontes_[fonDef_];
    while (!f.nomeVer.empty() && f.nomeVer.back() == u' ') f.nomeVer.pop_back();
    if (!f.nomeVer.empty()) f.nome = f.nomeVer;
    while (!f.nome.empty() && f.nome.back() == u' ') f.nome.pop_back();
  }
  fonDef_ = -1;
}

void Leitor::Chr(char16_t c) {
  if (e_.dst == Dst::Fon || e_.dst == Dst::FonNom) {
    if (fonDef_ >= 0) {
      Tx& nome = e_.dst == Dst::Fon ? fontes_[fonDef_].nome : fontes_[fonDef_].nomeVer;
      if (!(nome.empty() && c == u' ') && nome.size() < 256) nome += c;
    }
    return;
  }
  if (e_.dst != Dst::Tx || e_.ocu) return;
  if (c < 0x20 && c != u'\t' && c != u'\n') return;
  if (!(e_.car == carLido_)) {
    carLido_ = e_.car;
    carLim_ = CarLim(e_.car);
  }
  if (atual_.runs.empty() || !(atual_.runs.back().car == carLim_)) atual_.runs.push_back(RtfRun{Tx(), carLim_});
  atual_.runs.back().tx += c;
}

// A format within the file's limits: a font past kRtfFonMax distinct ones becomes
// the default font, a format past kRtfCarMax distinct ones the plain format.
RtfCar Leitor::CarLim(const RtfCar& c) {
  RtfCar r = c;
  if (!r.fon.empty() && !fonUsa_.count(r.fon)) {
    if (fonUsa_.size() < size_t(kRtfFonMax)) fonUsa_.insert(r.fon);
    else {
      r.fon.clear();
      doc_.lim |= kRtfLimFon;
    }
  }
  if (!carUsa_.count(r)) {
    if (carUsa_.size() < size_t(kRtfCarMax)) carUsa_.insert(r);
    else {
      r = RtfCar();
      doc_.lim |= kRtfLimCar;
    }
  }
  return r;
}

// The paragraph ends with the layout in force at its mark, and with the mark's
// character format, which gives an empty paragraph its height. In a table (cel),
// it belongs to the cell being filled; \cell (celFim) moves on to the next cell.
void Leitor::ParFim(bool tbl, bool celFim) {
  if (e_.dst != Dst::Tx) return;
  lid_ = -1;
  RtfPar p = e_.par;
  p.runs = std::move(atual_.runs);
  p.car = CarLim(e_.car);
  if (tbl || celFim) {
    p.cel = celAtu_;
    linPars_.push_back(doc_.pars.size());
  }
  doc_.pars.push_back(std::move(p));
  atual_ = RtfPar();
  if (celFim) ++celAtu_;
}

}  // namespace

bool RtfLer(std::string_view bytes, RtfDoc& doc) {
  doc = RtfDoc();
  size_t k = 0;
  while (k < bytes.size() && (bytes[k] == ' ' || bytes[k] == '\t' || bytes[k] == '\r' || bytes[k] == '\n')) ++k;
  if (bytes.substr(k, 5) != "{\\rtf") return false;
  Leitor(bytes.substr(k), doc).Le();
  return true;
}

Tx RtfTx(const RtfDoc& doc) {
  Tx r;
  for (size_t p = 0; p < doc.pars.size(); ++p) {
    const RtfPar& a = doc.pars[p];
    if (p && a.tbl >= 0 && a.tbl == doc.pars[p - 1].tbl && a.cel != doc.pars[p - 1].cel) r += u'\t';
    else if (p) r += u"\r\n";
    for (const RtfRun& run : doc.pars[p].runs)
      for (char16_t c : run.tx) {
        if (c == u'\n') r += u"\r\n";
        else r += c;
      }
  }
  return r;
}

}  // namespace zw
