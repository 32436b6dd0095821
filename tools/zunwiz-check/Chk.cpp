// The checks of zunwiz-check. One walk of the file with the option reader collects
// what the engine would keep (zones and points, pages, transitions, components, the
// program) with the file line of each; the same walk runs the engine's calculation
// after every group in a script host of its own, which keeps the program from the
// machine and the person (ChkEfe) and stops every call after kTmp milliseconds, so
// that checking a wizard never changes the machine and always ends. The findings
// are then drawn from what was collected.
#include "Chk.h"
#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <tuple>
#include <unordered_map>
#include "ChkEfe.h"
#include "FicGlb.h"
#include "FicLer.h"
#include "ScriptControl.h"
#include "SupWizVbs.h"
#include "TdaOpc.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw::chk {

namespace {

// The operation names of "Wiz", from the library's own table.
#define ZW_CHK_NOME(n) u"" #n,
const char16_t* const kOps[] = {ZW_WIZ_OPS(ZW_CHK_NOME)};
#undef ZW_CHK_NOME

// The time each call of the script engine may take: a run would hang where a
// statement takes longer.
constexpr long kTmp = 2000;

const char16_t* const kPalBot[] = {u"", u"ANT", u"SEG", u"CNF", u"CAN"};
const char16_t* const kTipCmp[] = {u"LAB", u"CKB", u"RTF", u"OPC", u"OPCTXT"};
const char16_t* const kPrpAlt[] = {u"POS", u"DIM", u"FON", u"COR", u"ALN", u"SIT", u"TXT", u"CHK"};
const char16_t* const kPalSit[] = {u"INV", u"VER", u"ACT", u"DES"};
// The window's buttons, which CmpVarCon and CmpVarAlt reach by these exact names.
const char16_t* const kBotWiz[] = {u"cmAnt", u"cmSeg", u"cmCnf", u"cmCan"};
constexpr double kTwp = 15;  // twips per pixel where no screen is asked

Tx Aspa(const Tx& t) { return u"\"" + t + u"\""; }
Tx Num(long n) { return TxAsc(std::to_string(n)); }

template <size_t N>
bool Em(const Tx& t, const char16_t* const (&lis)[N]) {
  return std::find_if(std::begin(lis), std::end(lis), [&](const char16_t* s) { return t == s; }) !=
         std::end(lis);
}

// A value of a group's row with the line it stands on.
struct Val {
  Tx tx;
  int32_t lin = 0;
};

struct Zpo {
  Tx tip, ide, val;
  int32_t lin = 0;
  int grp = 0;                // the group that holds it, counted from 1
  std::vector<Tx> nom, stm;   // variables and the statements that assign them
  std::vector<Tx> pri;        // values after its own group's calculation
  std::vector<int16_t> ok;    // whether each statement took, at the latest pass
  std::vector<Tx> err;        // and the engine's word when it did not
  std::vector<char> pre;      // stopped by the time-out once: not run again
  std::vector<char> lim;      // grew past the host's longest text once: found already
};

struct Tra {
  bool tem = false;
  Val ide, pos, sit, tip, pag, fx;
  int32_t lin = 0;
};

struct Pag {
  Val ide, img, ent, sai;
  int32_t lin = 0;
  std::array<Tra, 5> tra;
};

struct Cmp {
  Val tip, ide, pos, dim, txt, sit;
  int32_t lin = 0;
};

// A call of CmpVarCon or CmpVarAlt in the program, with the arguments written as
// texts in the call (empty where an argument is an expression).
struct CmpCha {
  Tx op, nom, pal, val;
  bool nomLit = false, palLit = false, valLit = false;
  int32_t lin = 0;
};

// One argument of a call as written, and its text when it is a single literal.
struct Arg {
  Tx tx, val;
  bool lit = false;
};

// The arguments of a call whose list begins at l[k], with or without the
// parentheses: up to the closing parenthesis, a comment, a ":" or the line's end.
std::vector<Arg> Args(const Tx& l, size_t k) {
  size_t n = l.size();
  while (k < n && (l[k] == u' ' || l[k] == u'\t')) k++;
  bool par = k < n && l[k] == u'(';
  if (par) k++;
  std::vector<Arg> r;
  int prof = 0;
  size_t ini = k, j = k;
  for (; j < n; j++) {
    char16_t d = l[j];
    if (d == u'"') {
      for (j++; j < n; j++)
        if (l[j] == u'"' && j + 1 < n && l[j + 1] == u'"') j++;
        else if (l[j] == u'"') break;
      continue;
    }
    if (d == u'(') prof++;
    if (d == u')' && prof == 0) break;
    if (d == u')') prof--;
    if (prof == 0 && (d == u'\'' || d == u':')) break;
    if (prof == 0 && d == u',') {
      r.push_back(Arg{l.substr(ini, j - ini), Tx(), false});
      ini = j + 1;
    }
  }
  Tx ult = l.substr(ini, std::min(j, n) - ini);
  if (!r.empty() || !TxTrim(ult).empty()) r.push_back(Arg{ult, Tx(), false});
  for (Arg& a : r) {
    Tx t = TxTrim(a.tx);
    if (t.size() < 2 || t.front() != u'"' || t.back() != u'"') continue;
    Tx v;
    bool ok = true;
    for (size_t i = 1; i + 1 < t.size() && ok; i++) {
      if (t[i] != u'"') v += t[i];
      else if (i + 2 < t.size() && t[i + 1] == u'"') v += t[i++];
      else ok = false;
    }
    if (ok) a.lit = true, a.val = v;
  }
  return r;
}

class Chk {
 public:
  Chk(const Tx& fic, const std::vector<Tx>& pal) : fic_(fic), pal_(pal) {}
  std::vector<Achado> Exe();

 private:
  void Ach(int32_t lin, bool erro, const Tx& msg) { ach_.push_back({lin, erro, msg}); }
  Val Row(const Tx& chv);
  Tx DirCon(const Tx& pal) const;
  Tx DirExp(const Tx& tx) const;
  void Grp(const Tx& ide, const Tx& tip, int16_t n, int g);
  void Def();
  void Zon(const Tx& tip, int16_t n, int g);
  void Pgm(const Tx& tip, int32_t lin);
  void Calc(int g);
  void Fim();
  void Img(const Val& v, const Tx& onde);
  void Fx(const Val& v, const Tx& quem, int args, bool fun);
  void PgmWiz(const Tx& lin, int32_t num);
  void Ini();
  bool Tmp(int32_t lin, const Tx& quem);
  void Sit(const Tx& lis, int32_t lin, const Tx& quem);
  void FimCha();
  void FimZon();

  Tx fic_;
  std::vector<Tx> pal_;
  TdaOpc o_;
  std::shared_ptr<vbs::ScriptControl> sc_ = std::make_shared<vbs::ScriptControl>();
  std::shared_ptr<EfeReg> efe_ = std::make_shared<EfeReg>();
  VbsSup h_;
  Tx dirPgm_, imgFun_;
  Var dimX_, dimY_;
  std::vector<Zpo> zpo_;
  std::vector<Pag> pag_;
  std::vector<Cmp> cmp_;
  std::vector<CmpCha> cha_;
  std::vector<std::tuple<Tx, Tx, int32_t>> zon_;  // each group's identifier, kind and head line
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

// The value and line of a key of the current group; the first row of the key wins,
// as in the reader's index ("F:" type marks and "Q." qualifiers are dropped).
Val Chk::Row(const Tx& chv) {
  Val v;
  Var x = Var(Tx());
  int16_t exi = 0;
  Tx tpp;
  o_.MemCon(chv, x, exi, tpp);
  if (exi != 1) return v;
  v.tx = TxVar(x);
  Tx k = TxMaiTrm(chv);
  for (size_t i = 1; i < o_.memTab.size(); i++) {
    Tx n = o_.memTab[i].var;
    if (size_t c = n.find(u':'); c != Tx::npos) n = n.substr(c + 1);
    if (size_t p = n.find(u'.'); p != Tx::npos) n = n.substr(p + 1);
    if (TxTrim(n) == k) {
      v.lin = o_.memTab[i].lin;
      break;
    }
  }
  if (v.lin == 0) v.lin = o_.zonLin;
  return v;
}

// The folder words of the wizard's paths; the words nothing assigns give "".
Tx Chk::DirCon(const Tx& pal) const {
  Tx p = TxMaiTrm(pal);
  if (p == u"DIRPGM") return dirPgm_;
  if (p == u"IMGFUN") return imgFun_;
  return Tx();
}

// A path whose first "[...]" is a folder word.
Tx Chk::DirExp(const Tx& tx) const {
  size_t a = tx.find(u'['), b = tx.find(u']', a == Tx::npos ? 0 : a);
  if (a == Tx::npos || b == Tx::npos) return tx;
  return tx.substr(0, a) + DirCon(tx.substr(a + 1, b - a - 1)) + tx.substr(b + 1);
}

// The "DEF" group: the window's size words, pictures, and the debug folder.
void Chk::Def() {
  Var v = Var(Tx());
  o_.OpcCon(u"DbgModo", v);
  if (!TxVar(v).empty()) {
    Var d = Var(Tx());
    o_.OpcCon(u"DbgDirPgm", d);
    dirPgm_ = TxVar(d);
  }
  Val f = Row(u"ImgFun");
  f.tx = DirExp(f.tx);
  imgFun_ = f.tx;
  Img(f, u"\"ImgFun\"");
  Val i = Row(u"ImgIco");
  i.tx = DirExp(i.tx);
  Img(i, u"\"ImgIco\"");
  for (const char16_t* k : {u"DimX", u"DimY"}) {
    Val d = Row(k);
    Tx t = TxMaiTrm(d.tx);
    Var& dst = k[3] == u'X' ? dimX_ : dimY_;
    if (t == u"AUTO") {
      Ach(d.lin, true, Aspa(k) + u" is \"AUTO\": the first calculation divides a text and the wizard fails to start");
      dst = Var(Tx(u"AUTO"));
    } else {
      double n = 0;
      int ok = 0;
      NuTxNum(t, n, ok);
      dst = Var(n * kTwp);
    }
  }
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

// Lines of "VAR", "PON" and "ZON": their statements, as the calculation makes them.
void Chk::Zon(const Tx& tip, int16_t n, int g) {
  for (int16_t i = 1; i <= n; i++) {
    Tx txp, txi, var, vtx;
    int16_t exi = 0, ptx = 0;
    o_.MemConTxp(Var(i), txp, exi);
    TdaOpc::ParPrep(txp, txi, var, vtx, ptx);
    Zpo z;
    z.tip = tip;
    z.ide = var;
    z.val = vtx;
    z.lin = size_t(i) < o_.memTab.size() ? o_.memTab[size_t(i)].lin : o_.zonLin;
    z.grp = g;
    // Options are put in only where the reader substitutes: a "[...]" here goes to
    // the script engine as written.
    if (size_t a = vtx.find(u'['), b = vtx.find(u']', a == Tx::npos ? 0 : a); a != Tx::npos && b != Tx::npos)
      Ach(z.lin, false, Aspa(vtx.substr(a, b - a + 1)) + u" in a row of \"" +
                            Tx(tip == u"V" ? u"VAR" : tip == u"P" ? u"PON" : u"ZON") +
                            u"\" is not replaced by the option: the value goes to the script engine as written");
    std::vector<Tx> pc;
    Tx r = vtx;
    for (int k = 0; k < 4; k++) {
      Tx a, b;
      TxDiv1(r, u",", a, b);
      pc.push_back(a);
      r = b;
    }
    if (tip == u"Z") {
      const char16_t* suf[] = {u"_X1", u"_Y1", u"_X2", u"_Y2"};
      for (int k = 0; k < 4; k++) z.nom.push_back(var + suf[k]), z.stm.push_back(var + suf[k] + u"=" + pc[size_t(k)]);
    } else if (tip == u"P") {
      z.nom = {var + u"_X", var + u"_Y"};
      z.stm = {var + u"_X=" + pc[0], var + u"_Y=" + pc[1]};
    } else {
      z.nom = {var};
      z.stm = {var + u"=" + vtx};
    }
    zpo_.push_back(std::move(z));
  }
}

// A "VBS" group: the program replaces any earlier one, as in the engine; a compile
// error is reported on the file line of the program line it names.
void Chk::Pgm(const Tx& tip, int32_t lin) {
  if (tip != u"TX" && tip != u"ZTX") {
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
  for (size_t i = 1; i < o_.regLin.size(); i++) {
    size_t n = tx.size();
    h_.PgmTxJun(1, tx, o_.regLin[i]);
    if (tx.size() != n || (map.empty() && !tx.empty())) {
      map.push_back(i < o_.regLinNum.size() ? o_.regLinNum[i] : lin);
      PgmWiz(o_.regLin[i], map.back());
    }
  }
  Ini();
  efe_->Pgm(tx, map);
  efe_->Lin(lin);
  int16_t ok = 0;
  h_.PgmRegArr(1, o_.regLin, ok);
  pgmOk_ = ok == 1;
  if (!pgmOk_) {
    const vbs::ScriptError& e = sc_->Error();
    bool comp = e.Source.find(u"compilation") != Tx::npos;
    int32_t at = e.Line >= 1 && size_t(e.Line) <= map.size() ? map[size_t(e.Line - 1)] : lin;
    if (!Tmp(at, u"running the program's global statements"))
      Ach(at, true, (comp ? u"compile error " : u"run-time error ") + Num(e.Number) + u": " + e.Description +
                        (comp ? Tx(u": the program is not loaded") : Tx(u" in the program's global statements")));
  }
  for (const char16_t* n : {u"WizFpa", u"LtrCd", u"DrvCd", u"DirPgm", u"DirBas"}) {
    Tx v = Tx(n) == u"WizFpa" ? fic_ : Tx(n) == u"DirPgm" ? dirPgm_ : Tx();
    h_.ExeCmd(Tx(n) + u"=" + TxAspPut(v), ok);
  }
}

// Calls of "Wiz" on one program line: operations the library lacks, and property
// words of CmpVarAlt that change nothing. Texts and comments are passed over.
void Chk::PgmWiz(const Tx& l, int32_t num) {
  size_t i = 0, n = l.size();
  auto idc = [](char16_t c) { return c == u'_' || (c >= u'0' && c <= u'9') || ((c | 0x20) >= u'a' && (c | 0x20) <= u'z'); };
  auto esp = [&](size_t& k) { while (k < n && (l[k] == u' ' || l[k] == u'\t')) k++; };
  while (i < n) {
    char16_t c = l[i];
    if (c == u'"') {
      for (i++; i < n; i++)
        if (l[i] == u'"' && !(i + 1 < n && l[i + 1] == u'"')) break;
        else if (l[i] == u'"') i++;
      i++;
      continue;
    }
    if (c == u'\'') return;
    if (!idc(c) || (i > 0 && (idc(l[i - 1]) || l[i - 1] == u'.'))) {
      i++;
      continue;
    }
    size_t a = i;
    while (i < n && idc(l[i])) i++;
    Tx w = l.substr(a, i - a);
    if (vbs::EqNoCase(w, u"Rem")) return;
    if (vbs::EqNoCase(w, u"cmpFontName"))
      Ach(num, false, u"\"cmpFontName\" is of no use: CmpVarCon assigns it the font name unquoted, which the script "
                      u"engine refuses or takes for a variable that is empty");
    if (!vbs::EqNoCase(w, u"Wiz")) continue;
    size_t k = i;
    esp(k);
    if (k >= n || l[k] != u'.') continue;
    k++;
    esp(k);
    size_t b = k;
    while (k < n && idc(l[k])) k++;
    Tx op = l.substr(b, k - b);
    i = k;
    if (op.empty()) continue;
    bool tem = std::any_of(std::begin(kOps), std::end(kOps), [&](const char16_t* s) { return vbs::EqNoCase(op, s); });
    if (!tem) {
      Ach(num, true, u"\"Wiz\" has no operation " + Aspa(op) + u": the call fails and the script goes on without it");
      continue;
    }
    bool alt = vbs::EqNoCase(op, u"CmpVarAlt");
    if (!alt && !vbs::EqNoCase(op, u"CmpVarCon")) continue;
    // Names and words written as texts in the call; the names are judged once the
    // components are all read.
    std::vector<Arg> arg = Args(l, k);
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

// One group, as the engine takes it.
void Chk::Grp(const Tx& ide, const Tx& tip, int16_t n, int g) {
  int32_t lin = o_.zonLin;
  if (ide == u"DEF") {
    Def();
  } else if (ide == u"VAR" || ide == u"PON" || ide == u"ZON") {
    Zon(ide == u"VAR" ? u"V" : ide == u"PON" ? u"P" : u"Z", n, g);
  } else if (ide == u"PAG") {
    Pag p;
    p.lin = lin;
    p.ide = Row(u"IDE");
    p.img = Row(u"Img");
    p.ent = Row(u"FxPagEnt");
    p.sai = Row(u"FxPagSai");
    Img(p.img, u"the page");
    pag_.push_back(p);
  } else if (ide == u"TRA") {
    Tra t;
    t.tem = true;
    t.lin = lin;
    t.ide = Row(u"IDE");
    t.pos = Row(u"POS");
    t.sit = Row(u"SIT");
    t.tip = Row(u"TRATIP");
    t.pag = Row(u"TRAPAG");
    t.fx = Row(u"TRAFX");
    Tx w = TxMaiTrm(t.ide.tx);
    Tx k = TxMaiTrm(t.tip.tx);
    int slot = 0;
    for (int s = 1; s <= 4; s++)
      if (w == kPalBot[s]) slot = s;
    if (pag_.empty())
      Ach(lin, true, u"\"TRA\" before the first \"PAG\": it belongs to no page and is lost");
    if (slot == 0) {
      Ach(t.ide.lin, true, u"transition word " + Aspa(t.ide.tx) + u" is not ANT, SEG, CNF or CAN: the group is dropped");
      return;
    }
    if (t.ide.tx != kPalBot[slot] && t.pos.tx.empty())
      Ach(t.ide.lin, false, u"transition word " + Aspa(t.ide.tx) + u" with an empty \"POS\": the point \"AUT_TraPos" +
                                Tx(kPalBot[slot]).substr(0, 1) + TxMin(Tx(kPalBot[slot]).substr(1)) +
                                u"\" is looked up only for the word in capitals, so the button stands at 0, 0");
    if (!k.empty() && k != u"PAG" && k != u"FX" && k != u"FIM")
      Ach(t.tip.lin, false, u"unknown transition kind " + Aspa(t.tip.tx) + u": the button does what it does by default");
    if (k == u"FIM" && slot != 4)
      Ach(t.tip.lin, false, u"the kind \"FIM\" means something only on \"CAN\": this button does what it does by default");
    Sit(t.sit.tx, t.sit.lin, u"the button " + Tx(kPalBot[slot]));
    if (!pag_.empty()) pag_.back().tra[size_t(slot)] = t;
  } else if (ide == u"CMP") {
    Cmp c;
    c.lin = lin;
    c.tip = Row(u"Tip");
    c.ide = Row(u"Ide");
    c.pos = Row(u"Pos");
    c.dim = Row(u"Dim");
    c.txt = Row(u"Txt");
    c.sit = Row(u"Sit");
    Sit(c.sit.tx, c.sit.lin, u"the component " + Aspa(c.ide.tx));
    if (pag_.empty())
      Ach(lin, true, u"\"CMP\" before the first \"PAG\": its control belongs to no page and is never shown");
    cmp_.push_back(c);
  } else if (ide == u"VBS") {
    Pgm(tip, lin);
  } else {
    Ach(lin, false, u"group " + Aspa(ide) + u" is not one the wizard reads: it is skipped");
  }
}

// The calculation after group g: "xMax", "yMax", then every line in file order. The
// values each line has after its own group are kept, to compare with the last pass.
void Chk::Calc(int g) {
  int16_t ok = 0;
  if (dimX_.EhTx() || dimY_.EhTx()) return;  // "AUTO": the engine fails here (found already)
  efe_->Lin(o_.zonLin);
  h_.ExeCmd(u"xMax=" + TxVar(Var(dimX_.Num() / kTwp)), ok);
  h_.ExeCmd(u"yMax=" + TxVar(Var(dimY_.Num() / kTwp)), ok);
  for (Zpo& z : zpo_) {
    z.ok.assign(z.stm.size(), 0);
    z.err.assign(z.stm.size(), Tx());
    z.pre.resize(z.stm.size(), 0);
    z.lim.resize(z.stm.size(), 0);
    efe_->Lin(z.lin);
    for (size_t k = 0; k < z.stm.size(); k++) {
      if (z.pre[k]) continue;  // it would only hang again
      h_.ExeCmd(z.stm[k], z.ok[k]);
      if (z.ok[k] != 1) z.err[k] = sc_->Error().Description;
      if (z.ok[k] != 1 && sc_->Error().Number == 14 && !z.lim[k]) {
        z.lim[k] = 1;
        Ach(z.lin, true, u"the calculation of " + z.nom[k] + u" after group " + Num(g) +
                             u" makes a text too long (Out of string space): the run empties " + z.nom[k] +
                             u" there and goes on");
      }
      if (z.ok[k] != 1 && Tmp(z.lin, u"the calculation of " + z.nom[k])) z.pre[k] = 1;
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
    if (!c.nomLit || Em(c.nom, kBotWiz)) continue;
    Tx k = TxMaiTrm(c.nom);
    auto it = std::find_if(cmp_.begin(), cmp_.end(), [&](const Cmp& m) { return TxMaiTrm(m.ide.tx) == k; });
    if (it == cmp_.end()) {
      Ach(c.lin, false, c.op + u" names no component " + Aspa(c.nom) +
                            (c.op == u"CmpVarCon" ? Tx(u": it answers 0 and \"cmpIde\" becomes \"\"")
                                                  : Tx(u": it answers 0 and changes nothing")));
      continue;
    }
    if (c.op == u"CmpVarAlt" && c.palLit && c.pal == u"CHK" && TxMaiTrm(it->tip.tx) == u"OPC")
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
  if (zon_.empty() || FicLer(fic_, byt)) return;
  std::vector<std::string> lin(1);  // lines from 1
  for (size_t i = 0; i <= byt.size();) {
    size_t f = byt.find_first_of("\r\n", i);
    if (f == std::string::npos) f = byt.size();
    lin.push_back(byt.substr(i, f - i));
    if (f >= byt.size()) break;
    i = f + (byt[f] == '\r' && f + 1 < byt.size() && byt[f + 1] == '\n' ? 2 : 1);
  }
  for (const auto& [ide, tip, h] : zon_) {
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
  for (const Zpo& z : zpo_) {
    efe_->Lin(z.lin);
    for (size_t k = 0; k < z.ok.size(); k++) {
      if (z.pre[k] || (z.lim[k] && z.ok[k] != 1)) continue;  // found when it hung or grew
      if (z.ok[k] != 1) {
        Ach(z.lin, true, u"the script engine refuses " + Aspa(z.stm[k]) + u" (" + z.err[k] + u"): " + z.nom[k] +
                             u" stays as it was");
        continue;
      }
      Var r;
      int16_t e = 0;
      h_.ExeCalc(z.nom[k], r, e);
      if (k < z.pri.size() && z.pri[k] != TxVar(r))
        Ach(z.lin, false, z.nom[k] + u" is right only after a later group's calculation: " + Aspa(z.pri[k]) +
                              u" after its own group, " + Aspa(TxVar(r)) + u" at the end");
    }
  }
  if (pag_.empty()) Ach(1, true, u"no \"PAG\" group: the wizard ends before its window shows");
  // The first page of each identifier, as the engine finds pages.
  std::unordered_map<Tx, size_t> pagIdx;
  for (size_t i = 0; i < pag_.size(); i++) pagIdx.try_emplace(TxMaiTrm(pag_[i].ide.tx), i);
  for (size_t i = 0; i < pag_.size(); i++) {
    const Pag& p = pag_[i];
    size_t j = pagIdx.at(TxMaiTrm(p.ide.tx));
    if (j != i)
      Ach(p.ide.lin, false, u"page identifier " + Aspa(p.ide.tx) + u" is also the page of line " + Num(pag_[j].lin) +
                                u": transitions to it find that one");
    Fx(p.ent, u"\"FxPagEnt\"", 0, false);
    Fx(p.sai, u"\"FxPagSai\"", 0, false);
    for (int s = 1; s <= 4; s++) {
      const Tra& t = p.tra[size_t(s)];
      if (!t.tem) continue;
      Tx k = TxMaiTrm(t.tip.tx);
      if (k == u"PAG") {
        if (!pagIdx.count(TxMaiTrm(t.pag.tx)))
          Ach(t.pag.lin ? t.pag.lin : t.lin, true, u"\"TRAPAG\" names no page " + Aspa(t.pag.tx) +
                                                       u": this button ends the wizard at once");
      } else if (k == u"FX") {
        if (t.fx.tx.empty())
          Ach(t.lin, true, u"the kind \"FX\" with no \"TRAFX\": the button calls nothing");
        else
          Fx(t.fx, u"\"TRAFX\" of " + Tx(kPalBot[s]), s <= 2 ? 1 : 0, s == 2);
      }
      bool dflt = k != u"PAG" && k != u"FX";
      if (s == 2 && dflt && i + 1 == pag_.size())
        Ach(t.lin, true, u"the last page's \"SEG\" goes on to the next page, which does not exist: the wizard ends at once, without \"FxFim\"");
      if (s == 1 && dflt && k != u"FIM" && i == 0)
        Ach(t.lin, false, u"\"ANT\" on the first page goes back past the first visit: the wizard ends at once, without \"FxFim\"");
    }
  }
  FimCha();
  // Components: their kinds, their files, their expressions at the last calculation.
  bool opc = false;
  for (const Cmp& c : cmp_) {
    const Tx& t = c.tip.tx;
    if (t == u"OPC") opc = true;
    if (t == u"OPCTXT" && !opc)
      Ach(c.tip.lin, true, u"\"OPCTXT\" before any \"OPC\": no option group holds it, and the wizard fails to start");
    if (!Em(t, kTipCmp)) {
      if (Em(TxMaiTrm(t), kTipCmp))
        Ach(c.tip.lin, true, u"component type " + Aspa(t) + u" must be written in capitals: no control is made");
      else
        Ach(c.tip.lin ? c.tip.lin : c.lin, true, u"unknown component type " + Aspa(t) + u": no control is made");
    }
    const Tx& x = c.txt.tx;
    if (t == u"RTF" && x.size() >= 2 && x.front() == u'[' && x.back() == u']') {
      Tx f = DirExp(x.substr(1, x.size() - 2));
      std::string byt;
      int e = FicLer(f, byt, kRtfLerMax);
      if (e == kErrFicNao || e == kErrDirNao)
        Ach(c.txt.lin, true, u"rich-text file " + Aspa(f) + u" does not exist: the box stays empty");
      else if (e)
        Ach(c.txt.lin, true, u"rich-text file " + Aspa(f) + u" cannot be read (" +
                                 TxDeUtf8(FicLerPorque(e, kRtfLerMax)) + u"): the box stays empty");
    }
    if (t == u"OPCTXT") continue;  // its place and size have no effect
    for (const Val* v : {&c.pos, &c.dim}) {
      Tx a, b;
      TxDiv1(v->tx, u",", a, b);
      efe_->Lin(v->lin);
      for (const Tx& e : {a, b}) {
        if (TxTrim(e).empty()) continue;
        Var r;
        h_.ExeCalc(e, r, ok);
        if (ok != 1 && Tmp(v->lin, u"the expression " + Aspa(TxTrim(e)))) continue;
        if (ok != 1)
          Ach(v->lin, true, u"the script engine refuses the expression " + Aspa(TxTrim(e)) + u" (" +
                                sc_->Error().Description + u"): that coordinate is not set");
      }
    }
  }
}

std::vector<Achado> Chk::Exe() {
  std::filesystem::path p = std::filesystem::absolute(std::filesystem::path(TxUtf8(fic_)));
  fic_ = TxDeUtf8(p.string());
  dirPgm_ = TxDeUtf8(p.parent_path().string());
  Tx lc;
  for (const Tx& w : pal_) lc += (lc.empty() ? Tx() : Tx(u" ")) + w;
  o_.LcLinDef(lc);
  sc_->Policy(EfePol(efe_));
  h_.VbsSupPrp(Var(), sc_);
  int16_t ok = 0;
  h_.RegObPrp(u"N", u"Wiz", VbsObVar(EfeWiz(efe_)), ok);
  Ini();
  o_.ZonIni(fic_, u"");
  int g = 0;
  for (;;) {
    Tx ide, tip, des;
    int16_t n = 0;
    o_.ZonSeg(ide, tip, n, des);
    if (ide.empty()) break;
    zon_.emplace_back(ide, tip, o_.zonLin);
    Grp(ide, tip, n, ++g);
    Calc(g);
  }
  o_.ZonFim();
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
