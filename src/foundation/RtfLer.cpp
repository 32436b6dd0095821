// The rich-text reader: one pass over the bytes with a stack of group states.
#include "RtfLer.h"
#include <map>
#include "RtfCp.h"

namespace zw {

namespace {

// Where the text of a group goes.
enum class Dst { Tx, Fon, Cor, Nada };

// The state a group saves and its closing brace gives back.
struct Est {
  RtfCar car;
  int fon = -1;   // font number; -1 the default font
  int uc = 1;     // characters that stand in for each \uN
  Dst dst = Dst::Tx;
  RtfPar par;     // the paragraph layout (runs unused)
};

struct Fonte {
  Tx nome;
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
  void ParFim();
  int Cp() const;
  long Cor(long n) const;

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
};

// A whole number held in the 32-bit range.
long Prende(long long n) {
  if (n > 2147483647LL) return 2147483647L;
  if (n < -2147483647LL) return -2147483647L;
  return long(n);
}

bool EhHex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
int Hex(char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; }

// The code page of a font's character set; 0 the document's own.
int CpDeCs(int cs) {
  switch (cs) {
    case 77: return 10000;
    case 161: return 1253;
    case 162: return 1254;
    case 186: return 1257;
    case 204: return 1251;
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
        if (antes == Dst::Fon && e_.dst == Dst::Fon) fonDef_ = -1;
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
  if (!atual_.runs.empty()) ParFim();
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
    case '\r': case '\n': ParFim(); break;
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
  if (p == "colortbl") { e_.dst = Dst::Cor; return; }
  if (DstOculto(p)) { e_.dst = Dst::Nada; return; }
  if (e_.dst == Dst::Nada) return;
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
  if (p == "par" || p == "sect" || p == "page" || p == "row") ParFim();
  else if (p == "line") Chr(u'\n');
  else if (p == "tab" || p == "cell" || p == "nestcell") Chr(u'\t');
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
  else if (p == "plain") { c = RtfCar(); e_.fon = -1; }
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
  } else if (p == "ql") e_.par.aln = 0;
  else if (p == "qr") e_.par.aln = 1;
  else if (p == "qc") e_.par.aln = 2;
  else if (p == "qj") e_.par.aln = 3;
  else if (p == "li" || p == "lin") e_.par.esq = int(n);
  else if (p == "ri" || p == "rin") e_.par.dir = int(n);
  else if (p == "fi") e_.par.pri = int(n);
  else if (p == "sb") e_.par.antes = int(n);
  else if (p == "sa") e_.par.depois = int(n);
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
    if (b == ';') {
      cores_.push_back(r_ < 0 && g_ < 0 && bl_ < 0 ? -1 : std::max(r_, 0) + 256L * std::max(g_, 0) + 65536L * std::max(bl_, 0));
      r_ = g_ = bl_ = -1;
    }
    return;
  }
  if (e_.dst == Dst::Fon && b == ';') {
    if (fonDef_ >= 0) {
      Tx& nome = fontes_[fonDef_].nome;
      while (!nome.empty() && nome.back() == u' ') nome.pop_back();
    }
    fonDef_ = -1;
    return;
  }
  Chr(RtfCpChr(Cp(), b));
}

void Leitor::Chr(char16_t c) {
  if (e_.dst == Dst::Fon) {
    if (fonDef_ >= 0) {
      Tx& nome = fontes_[fonDef_].nome;
      if (!(nome.empty() && c == u' ') && nome.size() < 256) nome += c;
    }
    return;
  }
  if (e_.dst != Dst::Tx) return;
  if (c < 0x20 && c != u'\t' && c != u'\n') return;
  if (atual_.runs.empty() || !(atual_.runs.back().car == e_.car)) atual_.runs.push_back(RtfRun{Tx(), e_.car});
  atual_.runs.back().tx += c;
}

// The paragraph ends with the layout in force at its mark.
void Leitor::ParFim() {
  if (e_.dst != Dst::Tx) return;
  RtfPar p = e_.par;
  p.runs = std::move(atual_.runs);
  doc_.pars.push_back(std::move(p));
  atual_ = RtfPar();
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
    if (p) r += u"\r\n";
    for (const RtfRun& run : doc.pars[p].runs)
      for (char16_t c : run.tx) {
        if (c == u'\n') r += u"\r\n";
        else r += c;
      }
  }
  return r;
}

}  // namespace zw
