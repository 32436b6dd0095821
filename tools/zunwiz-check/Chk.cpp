// The checks of zunwiz-check. The engine's own reader (WizDef.h) reads the file into
// the wizard's definition, with the file line of everything it keeps; at the
// moments a run would, the checker loads the program and runs the calculation after
// every group in a script host of its own, which keeps the program from the machine
// and the person (ChkEfe) and stops every call after kTmp milliseconds, so that
// checking a wizard never changes the machine and always ends. The findings are
// drawn from each group as it is read and from the whole definition at the end.
#include "Chk.h"
#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <unordered_set>
#include "ChkEfe.h"
#include "FicGlb.h"
#include "FicLer.h"
#include "Lexer.h"
#include "ScriptControl.h"
#include "SupWiz.h"
#include "SupWizVbs.h"
#include "TdaOpc.h"
#include "Twp.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizDef.h"

namespace zw::chk {

namespace {

// The operation names of "Wiz", from the library's own table.
#define ZW_CHK_NOME(n) u"" #n,
const char16_t* const kOps[] = {ZW_WIZ_OPS(ZW_CHK_NOME)};
#undef ZW_CHK_NOME

// The time each call of the script engine may take: a run would hang where a
// statement takes longer.
constexpr long kTmp = 2000;

const char16_t* const kPrpAlt[] = {u"POS", u"DIM", u"FON", u"COR", u"ALN", u"SIT", u"TXT", u"CHK"};
const char16_t* const kPalSit[] = {u"INV", u"VER", u"ACT", u"DES"};

Tx Aspa(const Tx& t) { return u"\"" + t + u"\""; }
// Whether a kind, trimmed and in capitals, is an option group's.
bool CmpTipGrp(const Tx& tip) {
  const tCmpTip* k = CmpTipDe(TxMaiTrm(tip));
  return k && k->Frm == tCmpTip::F::Grp;
}
Tx Num(long n) { return TxAsc(std::to_string(n)); }

template <size_t N>
bool Em(const Tx& t, const char16_t* const (&lis)[N]) {
  return std::find_if(std::begin(lis), std::end(lis), [&](const char16_t* s) { return t == s; }) !=
         std::end(lis);
}

// A value of the file with the line it stands on (0 when absent).
struct Val {
  Tx tx;
  int32_t lin = 0;
};

// What the calculation does with one variable, point or zone line.
struct ZpoChk {
  int grp = 0;                // the group that holds it, counted from 1
  std::vector<Tx> nom, stm;   // variables and the statements that assign them
  std::vector<Tx> pri;        // values after its own group's calculation
  std::vector<int16_t> ok;    // whether each statement took, at the latest pass (none before one)
  std::vector<Tx> err;        // and the engine's word when it did not
  std::vector<char> pre;      // stopped by the time-out once: not run again
  std::vector<char> lim;      // grew past the host's longest text once: found already
};

// A call of CmpVarCon or CmpVarAlt in the program, with the arguments written as
// texts in the call (empty where an argument is an expression).
struct CmpCha {
  Tx op, nom, pal, val;
  bool nomLit = false, palLit = false, valLit = false;
  int32_t lin = 0;
};

// The tokens of one program line, by the engine's own lexer. A line it refuses is
// taken up to the fault: the program's compile error tells the rest.
std::vector<vbs::Tok> Toks(const Tx& l) {
  try {
    return vbs::Lex(l);
  } catch (const vbs::Fault& f) {
    try {
      return vbs::Lex(l.substr(0, size_t(std::max(f.col, 0))));
    } catch (const vbs::Fault&) {
      return {};
    }
  }
}

bool EhOp(const vbs::Tok& t, char16_t op) { return t.k == vbs::tOp && t.op == op; }

// One argument of a call: its text when it is a single literal.
struct Arg {
  Tx val;
  bool lit = false;
};

// The arguments of a call whose list begins at token k, with or without the
// parentheses: up to the closing parenthesis or the statement's end.
std::vector<Arg> Args(const std::vector<vbs::Tok>& t, size_t k) {
  if (k < t.size() && EhOp(t[k], u'(')) k++;
  std::vector<Arg> r;
  auto adi = [&](size_t a, size_t b) {
    bool lit = b == a + 1 && t[a].k == vbs::tStr;
    r.push_back(Arg{lit ? t[a].s : Tx(), lit});
  };
  int prof = 0;
  size_t ini = k, j = k;
  for (; j < t.size() && t[j].k != vbs::tNl && t[j].k != vbs::tEof; j++) {
    if (EhOp(t[j], u'(')) prof++;
    if (EhOp(t[j], u')') && prof-- == 0) break;
    if (prof == 0 && EhOp(t[j], u',')) {
      adi(ini, j);
      ini = j + 1;
    }
  }
  if (!r.empty() || j > ini) adi(ini, j);
  return r;
}

class Chk : private WizLerFx {
 public:
  Chk(const Tx& fic, const std::vector<Tx>& pal) : fic_(fic), pal_(pal) {}
  std::vector<Achado> Exe();

 private:
  // The reading's calls (WizLerFx).
  void TraPos(tTra& t) override { tra_ = t; }  // the transition in hand, kept or dropped
  void Pgm(const tWizPgm& p) override;
  void Grp(const tWizGrp& g) override;
  void Calc() override;

  void Ach(int32_t lin, bool erro, const Tx& msg) { ach_.push_back({lin, erro, msg}); }
  void Cab();
  void Def();
  void Zpo(int g);
  void Fim();
  void Img(const Val& v, const Tx& onde);
  void Fx(const Val& v, const Tx& quem, int args, bool fun);
  void PgmWiz(const Tx& lin, int32_t num);
  void Ini();
  bool Tmp(int32_t lin, const Tx& quem);
  void Sit(const Tx& lis, int32_t lin, const Tx& quem);
  void FimCha();
  void FimZon();
  bool Puro();
  std::vector<Tx> Vals();

  Tx fic_;
  std::vector<Tx> pal_;
  tWizDef def_;
  tTra tra_;
  std::shared_ptr<vbs::ScriptControl> sc_ = std::make_shared<vbs::ScriptControl>();
  std::shared_ptr<EfeReg> efe_ = std::make_shared<EfeReg>();
  VbsSup h_;
  std::vector<ZpoChk> zc_{1};  // beside each record of def_.Zpo
  std::vector<CmpCha> cha_;
  int ver_ = 0;          // changes to what a pass runs: records, program, window size
  int verPas_ = -1;      // ver_ at the last pass run
  int verPuro_ = -1;     // ver_ at which puro_ was judged
  bool puro_ = false;    // every statement only combines values of the calculation's own names
  bool fixo_ = false;    // the last pass run left every one of those names as it found them
  std::vector<Tx> vals_;  // their values after the last pass run
  int32_t pgmLin_ = 0;  // head of the program group in force; 0 for none
  bool pgmOk_ = false;
  std::vector<Achado> ach_;
};

// A fresh engine, with the checker's time limit on every call.
void Chk::Ini() {
  h_.VbsIni();
  sc_->Timeout(kTmp);
}

// After a call of the engine: whether the time limit stopped it, and then the
// finding on line lin, for what quem names ("the calculation of X"...).
bool Chk::Tmp(int32_t lin, const Tx& quem) {
  if (sc_->Error().Number != vbs::kErrTimeout) return false;
  Ach(lin, true, quem + u" does not end within " + Num(kTmp / 1000) + u" s: a run would hang here");
  return true;
}

// The "DEF" group: the pictures, and the window's size words.
// The five header lines that begin every option file are never read as options: a
// group head among them (a file written without its header) loses that group. A file
// shorter than five lines repeats its last line there, told once.
void Chk::Cab() {
  for (size_t i = 1; i < def_.Cab.size(); i++) {
    const Tx& l = def_.Cab[i];
    if (i > 1 && l == def_.Cab[i - 1]) continue;
    Tx tpp, var;
    TdaOpc::ParTpp(l, tpp, var);
    if (tpp == u"#")
      Ach(int32_t(i), true, u"the group head " + Aspa(l) + u" is one of the five header lines every option file begins with, which are never read: the group is lost");
  }
}

void Chk::Def() {
  ver_++;
  Img(Val{def_.ImgFun, def_.LinImgFun}, u"\"ImgFun\"");
  Img(Val{def_.ImgIco, def_.LinImgIco}, u"\"ImgIco\"");
  if (def_.DimX.EhTx())
    Ach(def_.LinDimX, true, u"\"DimX\" is \"AUTO\": the first calculation divides a text and the wizard fails to start");
  if (def_.DimY.EhTx())
    Ach(def_.LinDimY, true, u"\"DimY\" is \"AUTO\": the first calculation divides a text and the wizard fails to start");
}

// A picture that the window would load: one that is not there is passed over.
void Chk::Img(const Val& v, const Tx& onde) {
  int exi = v.tx.empty() ? 1 : FicExi(v.tx);
  if (exi == 1) return;
  if (exi != 0 && exi != -kErrDirNao) {
    Ach(v.lin, false, u"picture " + Aspa(v.tx) + u" of " + onde + u" cannot be read (" +
                          TxDeUtf8(FicLerPorque(-exi)) + u"): the window keeps the picture it has");
    return;
  }
  Tx why = v.tx.find(u'[') != Tx::npos ? u" (a page's \"Img\" takes no \"[...]\" words)" : Tx();
  Ach(v.lin, false, u"picture " + Aspa(v.tx) + u" of " + onde + u" does not exist: the window keeps the picture it has" + why);
}

// The lines of "VAR", "PON" and "ZON" that group g added: their statements, as the
// calculation makes them.
void Chk::Zpo(int g) {
  ver_++;
  for (size_t i = zc_.size(); i <= size_t(def_.ZpoNum); i++) {
    const tZpo& z = def_.Zpo[i];
    ZpoChk c;
    c.grp = g;
    ZpoCmd(z, c.nom, c.stm);
    c.pre.assign(c.stm.size(), 0);
    c.lim.assign(c.stm.size(), 0);
    zc_.push_back(std::move(c));
    // Options are put in only where the reader substitutes: a "[...]" here goes to
    // the script engine as written.
    const Tx& vtx = z.Val;
    if (size_t a = vtx.find(u'['), b = vtx.find(u']', a == Tx::npos ? 0 : a); a != Tx::npos && b != Tx::npos)
      Ach(z.Lin, false, Aspa(vtx.substr(a, b - a + 1)) + u" in a row of \"" +
                            Tx(z.Tip == u"V" ? u"VAR" : z.Tip == u"P" ? u"PON" : u"ZON") +
                            u"\" is not replaced by the option: the value goes to the script engine as written");
  }
}

// A "VBS" group: the program replaces any earlier one, as in the engine; a compile
// error is reported on the file line of the program line it names.
void Chk::Pgm(const tWizPgm& p) {
  const tWizGrp& g = def_.Grp.back();
  const int32_t lin = g.Lin;
  ver_++;
  if (g.Tip != u"TX" && g.Tip != u"ZTX") {
    Ach(lin, true, u"a \"VBS\" group must have the kind TX or ZTX: this one keeps no lines, and its program is empty");
    Ini();
    pgmLin_ = lin;
    pgmOk_ = false;  // the procedures it names are missing for that one reason
    return;
  }
  if (pgmLin_ != 0)
    Ach(lin, false, u"this program replaces the one of line " + Num(pgmLin_) + u", with every script variable");
  pgmLin_ = lin;
  // The file line of each program line: the host drops comments and empty lines.
  std::vector<int32_t> map;
  Tx tx;
  for (size_t i = 1; i < p.Lin.size(); i++) {
    size_t n = tx.size();
    h_.PgmTxJun(1, tx, p.Lin[i]);
    if (tx.size() != n || (map.empty() && !tx.empty())) {
      map.push_back(i < p.Num.size() ? p.Num[i] : lin);
      PgmWiz(p.Lin[i], map.back());
    }
  }
  Ini();
  efe_->Pgm(tx, map);
  efe_->Lin(lin);
  int16_t ok = 0;
  h_.PgmRegArr(1, p.Lin, ok);
  pgmOk_ = ok == 1;
  if (!pgmOk_) {
    const vbs::ScriptError& e = sc_->Error();
    bool comp = e.Source.find(u"compilation") != Tx::npos;
    int32_t at = e.Line >= 1 && size_t(e.Line) <= map.size() ? map[size_t(e.Line - 1)] : lin;
    if (!Tmp(at, u"running the program's global statements"))
      Ach(at, true, (comp ? u"compile error " : u"run-time error ") + Num(e.Number) + u": " + e.Description +
                        (comp ? Tx(u": the program is not loaded") : Tx(u" in the program's global statements")));
  }
  const tWizDir& d = def_.Dir;
  for (const auto& [n, v] : {std::pair<const char16_t*, Tx>{u"WizFpa", d.Fpa}, {u"LtrCd", d.LtrCd}, {u"DrvCd", d.DrvCd},
                             {u"DirPgm", d.DirPgm}, {u"DirBas", Tx()}})
    h_.ExeCmd(Tx(n) + u"=" + TxAspPut(v), ok);
}

// Calls of "Wiz" on one program line: operations the library lacks, and property
// words of CmpVarAlt that change nothing. Texts and comments are passed over.
void Chk::PgmWiz(const Tx& l, int32_t num) {
  const std::vector<vbs::Tok> t = Toks(l);
  for (size_t i = 0; i < t.size(); i++) {
    if (t[i].k != vbs::tId || (i > 0 && EhOp(t[i - 1], u'.'))) continue;  // a member's name is another's
    const Tx& w = t[i].s;
    if (vbs::EqNoCase(w, u"cmpFontName"))
      Ach(num, false, u"\"cmpFontName\" is of no use: CmpVarCon assigns it the font name unquoted, which the script "
                      u"engine refuses or takes for a variable that is empty");
    if (!vbs::EqNoCase(w, u"Wiz") || i + 2 >= t.size() || !EhOp(t[i + 1], u'.') ||
        (t[i + 2].k != vbs::tId && t[i + 2].k != vbs::tKw))
      continue;
    const Tx& op = t[i + 2].s;
    const size_t k = i + 3;
    i = k - 1;
    bool tem = std::any_of(std::begin(kOps), std::end(kOps), [&](const char16_t* s) { return vbs::EqNoCase(op, s); });
    if (!tem) {
      Ach(num, true, u"\"Wiz\" has no operation " + Aspa(op) + u": the call fails and the script goes on without it");
      continue;
    }
    bool alt = vbs::EqNoCase(op, u"CmpVarAlt");
    if (!alt && !vbs::EqNoCase(op, u"CmpVarCon")) continue;
    // Names and words written as texts in the call; the names are judged once the
    // components are all read.
    std::vector<Arg> arg = Args(t, k);
    CmpCha ch;
    ch.op = alt ? u"CmpVarAlt" : u"CmpVarCon";
    ch.lin = num;
    if (arg.size() > 0) ch.nom = arg[0].val, ch.nomLit = arg[0].lit;
    if (arg.size() > 1) ch.pal = arg[1].val, ch.palLit = arg[1].lit;
    if (arg.size() > 2) ch.val = arg[2].val, ch.valLit = arg[2].lit;
    cha_.push_back(ch);
    if (!alt || !ch.palLit) continue;
    const Tx& pal = ch.pal;
    if (pal == u"COR")
      Ach(num, false, u"CmpVarAlt with \"COR\" has no effect: it answers 0 and the control keeps its colours");
    else if (pal == u"ALN")
      Ach(num, false, u"CmpVarAlt with \"ALN\" sets \"Align\", which the controls do not have: it answers 0 and changes nothing");
    else if (!Em(pal, kPrpAlt) && Em(TxMaiTrm(pal), kPrpAlt))
      Ach(num, false, u"the property word " + Aspa(pal) + u" of CmpVarAlt must be written in capitals: the call does nothing");
    else if (!Em(pal, kPrpAlt))
      Ach(num, false, Aspa(pal) + u" is not a property word of CmpVarAlt (POS, DIM, FON, COR, ALN, SIT, TXT, CHK): the call does nothing");
    else if (pal == u"SIT" && ch.valLit)
      Sit(ch.val, num, u"CmpVarAlt");
  }
}

// A situation list: words cut at ",", trimmed and in capitals; the words other
// than the four are skipped.
void Chk::Sit(const Tx& lis, int32_t lin, const Tx& quem) {
  Tx r = lis;
  while (!TxTrim(r).empty()) {
    Tx a, b;
    TxDiv1(r, u",", a, b);
    Tx w = TxMaiTrm(a);
    if (!w.empty() && !Em(w, kPalSit))
      Ach(lin, false, u"situation word " + Aspa(TxTrim(a)) + u" of " + quem +
                          u" is not INV, VER, ACT or DES: it is skipped");
    if (b == r) break;
    r = b;
  }
}

// One group, as the engine took it into the definition.
void Chk::Grp(const tWizGrp& g) {
  const Tx& ide = g.Ide;
  const int32_t lin = g.Lin;
  if (ide == u"DEF") {
    Def();
  } else if (ide == u"VAR" || ide == u"PON" || ide == u"ZON") {
    Zpo(int(def_.Grp.size()));
  } else if (ide == u"PAG") {
    const tPag& p = def_.Pag[size_t(def_.PagNum)];
    Img(Val{p.Img, p.LinImg}, u"the page");
  } else if (ide == u"TRA") {
    const tTra& t = tra_;
    Tx w = TxMaiTrm(t.Ide);
    Tx k = TxMaiTrm(t.TraTip);
    const int slot = TraSlot(w);
    if (def_.PagNum == 0)
      Ach(lin, true, u"\"TRA\" before the first \"PAG\": it belongs to no page and is lost");
    if (slot == 0) {
      Ach(t.LinIde, true, u"transition word " + Aspa(t.Ide) + u" is not ANT, SEG, CNF or CAN: the group is dropped");
      return;
    }
    const Tx pal(TraPal(slot));
    if (t.Ide != pal && t.Pos.empty())
      Ach(t.LinIde, false, u"transition word " + Aspa(t.Ide) + u" with an empty \"POS\": the point \"AUT_TraPos" +
                               pal.substr(0, 1) + TxMin(pal.substr(1)) +
                               u"\" is looked up only for the word in capitals, so the button stands at 0, 0");
    if (!k.empty() && TraCol(k) == 3)
      Ach(t.LinTip, false, u"unknown transition kind " + Aspa(t.TraTip) + u": the button does what it does by default");
    if (TraCol(k) == 2 && slot != 4)
      Ach(t.LinTip, false, u"the kind \"FIM\" means something only on \"CAN\": this button does what it does by default");
    Sit(t.Sit, t.LinSit, u"the button " + pal);
  } else if (ide == u"CMP") {
    const tCmp& c = def_.Cmp[size_t(def_.CmpNum)];
    Sit(c.Sit, c.LinSit, u"the component " + Aspa(c.Ide));
    if (def_.PagNum == 0)
      Ach(lin, true, u"\"CMP\" before the first \"PAG\": its control belongs to no page and is never shown");
  } else if (ide != u"VBS") {
    Ach(lin, false, u"group " + Aspa(ide) + u" is not one the wizard reads: it is skipped");
  }
}

// The calculation after group g: "xMax", "yMax", then every line in file order. The
// values each line has after its own group are kept, to compare with the last pass.
void Chk::Calc() {
  const int g = int(def_.Grp.size());
  int16_t ok = 0;
  if (def_.DimX.EhTx() || def_.DimY.EhTx()) return;  // "AUTO": the engine fails here (found already)
  // A pass of the same statements over the values the last one left, which it did
  // not change, changes nothing again when the statements call nothing: it is not
  // run, so that checking costs the groups plus the passes that can differ.
  if (ver_ == verPas_ && fixo_ && Puro()) return;
  efe_->Lin(def_.Grp.back().Lin);
  // The checker has no screen: its twips are those of 96 dots an inch (Twp.h).
  h_.ExeCmd(u"xMax=" + TxVar(Var(NuDbl(def_.DimX) / TwpPix('X'))), ok);
  h_.ExeCmd(u"yMax=" + TxVar(Var(NuDbl(def_.DimY) / TwpPix('Y'))), ok);
  for (size_t i = 1; i < zc_.size(); i++) {
    ZpoChk& z = zc_[i];
    const int32_t zl = def_.Zpo[i].Lin;
    efe_->Lin(zl);
    z.ok.assign(z.stm.size(), 0);
    z.err.assign(z.stm.size(), Tx());
    for (size_t k = 0; k < z.stm.size(); k++) {
      if (z.pre[k]) continue;  // it would only hang again
      h_.ExeCmd(z.stm[k], z.ok[k]);
      if (z.ok[k] != 1) z.err[k] = sc_->Error().Description;
      if (z.ok[k] != 1 && sc_->Error().Number == 14 && !z.lim[k]) {
        z.lim[k] = 1;
        Ach(zl, true, u"the calculation of " + z.nom[k] + u" after group " + Num(g) +
                          u" makes a text too long (Out of string space): the run empties " + z.nom[k] +
                          u" there and goes on");
      }
      if (z.ok[k] != 1 && Tmp(zl, u"the calculation of " + z.nom[k])) z.pre[k] = 1;
    }
    if (z.grp != g) continue;
    z.pri.clear();
    for (const Tx& nm : z.nom) {
      Var r;
      int16_t k = 0;
      h_.ExeCalc(nm, r, k);
      z.pri.push_back(TxVar(r));
    }
  }
  if (Puro()) {
    std::vector<Tx> v = Vals();
    fixo_ = verPas_ == ver_ && v == vals_;
    vals_ = std::move(v);
  }
  verPas_ = ver_;
}

// Whether every statement of the calculation reads nothing but numbers, texts,
// operators and the calculation's own names (none of them a procedure of the
// program): then a pass depends on those names alone and has no other effect.
bool Chk::Puro() {
  if (verPuro_ == ver_) return puro_;
  verPuro_ = ver_;
  puro_ = false;
  std::unordered_set<Tx> nom{u"XMAX", u"YMAX"};
  for (size_t i = 1; i < zc_.size(); i++)
    for (const Tx& n : zc_[i].nom) nom.insert(TxMai(n));
  static const vbs::Kw kOpe[] = {vbs::kAnd, vbs::kOr, vbs::kNot, vbs::kMod, vbs::kXor, vbs::kEqv, vbs::kImp,
                                 vbs::kTrue, vbs::kFalse, vbs::kEmpty, vbs::kNull};
  for (size_t i = 1; i < zc_.size(); i++)
    for (const Tx& stm : zc_[i].stm) {
      std::vector<vbs::Tok> t;
      try {
        t = vbs::Lex(stm);
      } catch (const vbs::Fault&) {
        return false;
      }
      for (const vbs::Tok& k : t) {
        bool ok = k.k == vbs::tNum || k.k == vbs::tStr || k.k == vbs::tDate || k.k == vbs::tNl || k.k == vbs::tEof ||
                  (k.k == vbs::tOp && k.op != u'.') ||
                  (k.k == vbs::tKw && std::find(std::begin(kOpe), std::end(kOpe), k.kw) != std::end(kOpe)) ||
                  (k.k == vbs::tId && nom.count(TxMai(k.s)) && !sc_->Procedure(k.s));
        if (!ok) return false;
      }
    }
  return puro_ = true;
}

// The values of the calculation's names, with their kinds.
std::vector<Tx> Chk::Vals() {
  std::vector<Tx> v;
  for (size_t i = 1; i < zc_.size(); i++)
    for (const Tx& n : zc_[i].nom) {
      Var r;
      h_.ExeCalcRes(n, r);
      v.push_back(TxAsc(std::to_string(int(r.Tipo()))) + u":" + TxVar(r));
    }
  return v;
}

// A procedure named by the file, and the arguments the wizard calls it with.
void Chk::Fx(const Val& v, const Tx& quem, int args, bool fun) {
  if (v.tx.empty() || !pgmOk_) return;
  const vbs::ProcInfo* p = sc_->Procedure(TxTrim(v.tx));
  if (!p) {
    Ach(v.lin, true, quem + u" names no procedure " + Aspa(v.tx) + u" of the program: the call does nothing");
    return;
  }
  if (p->NumArgs != args)
    Ach(v.lin, true, quem + u" calls " + Aspa(p->Name) + u" with " + Num(args) + u" argument" + (args == 1 ? u"" : u"s") +
                         u", and it takes " + Num(p->NumArgs) + u": the call fails");
  else if (fun && !p->HasReturnValue)
    Ach(v.lin, true, quem + u" takes the next page from the value of " + Aspa(p->Name) + u", which is a Sub: the wizard ends at once");
}

// The calls of CmpVarCon and CmpVarAlt whose component name is a text: a name no
// component has, and "CHK" on an option group.
void Chk::FimCha() {
  for (const CmpCha& c : cha_) {
    if (!c.nomLit || TraBtnSlot(c.nom)) continue;
    int16_t i = WizTabPsq(def_.CmpIdx, c.nom);
    if (i == 0) {
      Ach(c.lin, false, c.op + u" names no component " + Aspa(c.nom) +
                            (c.op == u"CmpVarCon" ? Tx(u": it answers 0 and \"cmpIde\" becomes \"\"")
                                                  : Tx(u": it answers 0 and changes nothing")));
      continue;
    }
    if (c.op == u"CmpVarAlt" && c.palLit && c.pal == u"CHK" && CmpTipGrp(def_.Cmp[size_t(i)].Tip))
      Ach(c.lin, false, u"CmpVarAlt with \"CHK\" on the option group " + Aspa(c.nom) +
                            u" changes nothing: an option group has no \"Value\", and the call answers 0");
  }
}

// Groups whose "##" is missing. The reader ends a group only at a line that begins
// with "##" ("ZTX": that trims to "##"), so such a group runs on through the heads
// of the groups after it, to the next group's "##" or to the end of the file, and
// those groups are read as its lines.
void Chk::FimZon() {
  std::string byt;
  if (def_.Grp.empty() || FicLer(fic_, byt)) return;
  std::vector<std::string> lin(1);  // lines from 1
  for (size_t i = 0; i <= byt.size();) {
    size_t f = byt.find_first_of("\r\n", i);
    if (f == std::string::npos) f = byt.size();
    lin.push_back(byt.substr(i, f - i));
    if (f >= byt.size()) break;
    i = f + (byt[f] == '\r' && f + 1 < byt.size() && byt[f + 1] == '\n' ? 2 : 1);
  }
  for (const tWizGrp& g : def_.Grp) {
    const Tx &ide = g.Ide, &tip = g.Tip;
    const int32_t h = g.Lin;
    std::vector<int32_t> cab;
    int32_t fim = 0;
    for (size_t n = size_t(h) + 1; n < lin.size() && !fim; n++) {
      const std::string& l = lin[n];
      size_t a = l.find_first_not_of(" \t"), b = l.find_last_not_of(" \t");
      std::string t = a == std::string::npos ? std::string() : l.substr(a, b - a + 1);
      if (tip == u"ZTX" ? t == "##" : l.rfind("##", 0) == 0)
        fim = int32_t(n);
      else if (l.rfind("#", 0) == 0)
        cab.push_back(int32_t(n));
    }
    if (cab.empty() && fim) continue;
    if (cab.empty()) {
      Ach(h, false, u"group " + Aspa(ide) + u" has no closing \"##\": it runs to the end of the file");
      continue;
    }
    Tx msg = u"group " + Aspa(ide) + u" has no \"##\" before the group head of line " + Num(cab[0]) + u": it runs on to " +
             (fim ? u"line " + Num(fim) : Tx(u"the end of the file")) + u", and the group" +
             (cab.size() == 1 ? Tx(u" there is") : Tx(u"s there are")) + u" read as its lines";
    Ach(h, false, msg);
  }
}

// What can be judged once the whole file is read.
void Chk::Fim() {
  int16_t ok = 0;
  // The last calculation: statements it refuses, values right only after a later group.
  for (size_t i = 1; i < zc_.size(); i++) {
    const ZpoChk& z = zc_[i];
    const int32_t zl = def_.Zpo[i].Lin;
    efe_->Lin(zl);
    for (size_t k = 0; k < z.ok.size(); k++) {
      if (z.pre[k] || (z.lim[k] && z.ok[k] != 1)) continue;  // found when it hung or grew
      if (z.ok[k] != 1) {
        Ach(zl, true, u"the script engine refuses " + Aspa(z.stm[k]) + u" (" + z.err[k] + u"): " + z.nom[k] +
                          u" stays as it was");
        continue;
      }
      Var r;
      int16_t e = 0;
      h_.ExeCalc(z.nom[k], r, e);
      if (k < z.pri.size() && z.pri[k] != TxVar(r))
        Ach(zl, false, z.nom[k] + u" is right only after a later group's calculation: " + Aspa(z.pri[k]) +
                           u" after its own group, " + Aspa(TxVar(r)) + u" at the end");
    }
  }
  if (def_.PagNum == 0) Ach(1, true, u"no \"PAG\" group: the wizard ends before its window shows");
  for (int i = 1; i <= def_.PagNum; i++) {
    const tPag& p = def_.Pag[size_t(i)];
    int16_t j = WizTabPsq(def_.PagIdx, p.Ide);  // the first page of that identifier, as the engine finds pages
    if (j != i)
      Ach(p.LinIde, false, u"page identifier " + Aspa(p.Ide) + u" is also the page of line " +
                               Num(def_.Pag[size_t(j)].Lin) + u": transitions to it find that one");
    Fx(Val{p.FxPagEnt, p.LinEnt}, u"\"FxPagEnt\"", 0, false);
    Fx(Val{p.FxPagSai, p.LinSai}, u"\"FxPagSai\"", 0, false);
    for (int s = 1; s <= 4; s++) {
      const tTra& t = p.Tra[s];
      if (t.Ide.empty()) continue;
      const int col = TraCol(TxMaiTrm(t.TraTip));
      if (col == 0) {
        if (WizTabPsq(def_.PagIdx, t.TraPag) == 0)
          Ach(t.LinPag ? t.LinPag : t.Lin, true, u"\"TRAPAG\" names no page " + Aspa(t.TraPag) +
                                                     u": this button ends the wizard at once");
      } else if (col == 1) {
        if (t.TraFx.empty())
          Ach(t.Lin, true, u"the kind \"FX\" with no \"TRAFX\": the button calls nothing");
        else
          Fx(Val{t.TraFx, t.LinFx}, u"\"TRAFX\" of " + Tx(TraPal(s)), s <= 2 ? 1 : 0, s == 2);
      }
      bool dflt = col >= 2;
      if (s == 2 && dflt && i == def_.PagNum)
        Ach(t.Lin, true, u"the last page's \"SEG\" goes on to the next page, which does not exist: the wizard ends at once, without \"FxFim\"");
      if (s == 1 && dflt && col != 2 && i == 1)
        Ach(t.Lin, false, u"\"ANT\" on the first page goes back past the first visit: the wizard ends at once, without \"FxFim\"");
    }
  }
  FimCha();
  // Components: their kinds, their files, their expressions at the last calculation.
  bool opc = false;
  for (int i = 1; i <= def_.CmpNum; i++) {
    const tCmp& c = def_.Cmp[size_t(i)];
    const Tx& t = c.Tip;
    const tCmpTip* tip = CmpTipDe(t);
    if (tip && tip->Frm == tCmpTip::F::Grp) opc = true;
    if (tip && tip->Frm == tCmpTip::F::Opc && !opc)
      Ach(c.LinTip, true, u"\"OPCTXT\" before any \"OPC\": no option group holds it, and the wizard fails to start");
    if (!tip) {
      if (CmpTipDe(TxMaiTrm(t)))
        Ach(c.LinTip, true, u"component type " + Aspa(t) + u" must be written in capitals: no control is made");
      else
        Ach(c.LinTip ? c.LinTip : c.Lin, true, u"unknown component type " + Aspa(t) + u": no control is made");
    }
    const Tx& x = c.Txt;
    if (tip && tip->Fic && x.size() >= 2 && x.front() == u'[' && x.back() == u']') {
      Tx f = def_.DirExp(x.substr(1, x.size() - 2));
      std::string byt;
      int e = FicLer(f, byt, kRtfLerMax);
      if (e == kErrFicNao || e == kErrDirNao)
        Ach(c.LinTxt, true, u"rich-text file " + Aspa(f) + u" does not exist: the box stays empty");
      else if (e)
        Ach(c.LinTxt, true, u"rich-text file " + Aspa(f) + u" cannot be read (" +
                                TxDeUtf8(FicLerPorque(e, kRtfLerMax)) + u"): the box stays empty");
    }
    if (tip && tip->Frm == tCmpTip::F::Opc) continue;  // an option's place and size have no effect
    for (const Val& v : {Val{c.Pos, c.LinPos}, Val{c.Dim, c.LinDim}}) {
      Tx a, b;
      TxDiv1(v.tx, u",", a, b);
      efe_->Lin(v.lin);
      for (const Tx& e : {a, b}) {
        if (TxTrim(e).empty()) continue;
        Var r;
        h_.ExeCalc(e, r, ok);
        if (ok != 1 && Tmp(v.lin, u"the expression " + Aspa(TxTrim(e)))) continue;
        if (ok != 1)
          Ach(v.lin, true, u"the script engine refuses the expression " + Aspa(TxTrim(e)) + u" (" +
                               sc_->Error().Description + u"): that coordinate is not set");
      }
    }
  }
}

std::vector<Achado> Chk::Exe() {
  std::filesystem::path p = std::filesystem::absolute(std::filesystem::path(TxUtf8(fic_)));
  fic_ = TxDeUtf8(p.string());
  Tx lc;
  for (const Tx& w : pal_) lc += (lc.empty() ? Tx() : Tx(u" ")) + w;
  def_.Dir = WizDirDe(fic_, lc);
  sc_->Policy(EfePol(efe_));
  h_.VbsSupPrp(Var(), sc_);
  int16_t ok = 0;
  h_.RegObPrp(u"N", u"Wiz", VbsObVar(EfeWiz(efe_)), ok);
  Ini();
  WizLer ler(def_, *this);
  ler.Ler(fic_);
  Cab();
  FimZon();
  Fim();
  for (const EfeReg::Efe& e : efe_->Lis()) Ach(e.lin, e.erro, e.msg);
  std::stable_sort(ach_.begin(), ach_.end(), [](const Achado& a, const Achado& b) { return a.lin < b.lin; });
  return ach_;
}

}  // namespace

std::vector<Achado> ChkFic(const Tx& fic, const std::vector<Tx>& pal) {
  Chk c(fic, pal);
  return c.Exe();
}

}  // namespace zw::chk
