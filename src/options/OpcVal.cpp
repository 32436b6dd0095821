// Option values: the general and fixed option tables, the reserved keys, the
// command-line words, substitution of "[NAME]" in values, yes/no reading, tabular
// options, the table of option files and the special options of a zone head.
#include "FicGlb.h"
#include "GlbReg.h"
#include "OpcAux.h"
#include "PrcExe.h"
#include "TdaOpc.h"
#include "TxtGlb.h"


namespace zw {
using namespace opc;


// The folder of the running executable.
static Tx DirExe() {
  Tx p = PrcExeCam();
  size_t s = p.rfind(u'/');
  return s == Tx::npos ? Tx() : p.substr(0, s);
}

Tx TdaOpc::DirApp = DirExe();
Tx TdaOpc::LcLin;

// "A" makes the general table whole and empty; any other mode leaves it reduced,
// where a query is safe and a change is an error.
void TdaOpc::OpcIni(const Tx& mod) {
  IdxIni(opcGer);
  opcGerOk_ = mod == u"A";
}

void TdaOpc::OpcPrp(int16_t cnt) {
  ZonArr(u"IDE", cnt, opcGer);
  opcGerOk_ = true;
}

void TdaOpc::OpcAct(const Tx& chv, const Var& val) {
  if (!opcGerOk_) throw std::out_of_range("subscript out of range: option table not set up");
  Tx v;
  TxVarCnv(val, v);
  int ok = 0;
  IdxReg(opcGer, TxMaiTrm(chv), v, ok);
}

void TdaOpc::OpcFixAct(const Tx& chv, const Var& val) {
  Tx v;
  TxVarCnv(val, v);
  int ok = 0;
  IdxReg(opcFix, TxMaiTrm(chv), v, ok);
}

// The general query: reserved keys first, then the fixed options, then the
// general ones. Never fails: a missing key gives "" or 0.
void TdaOpc::OpcCon(const Tx& chv, Var& val) {
  Tx k = TxMaiTrm(chv), t;
  if (k == u"APP:PATH") {
    t = DirApp;
  } else if (k == u"WIN:DIR") {
    t = WinDirCon();
  } else if (k == u"WIN:SYS") {
    t = SysDirCon();
  } else if (k == u"WIN:TMP") {
    t = TmpDirCon();
  } else if (k >= Tx(u"LC:") && k <= Tx(u"LC:z")) {
    Var w{Tx()};
    int16_t exi = 0;
    LcCon(Var(Tx(u"-") + TxMaiTrm(TxMeio(k, TxPos(k, u":") + 1))), w, exi);
    t = w.Txt();
  } else {
    Var w{Tx()};
    int16_t exi = 0;
    OpcVop(chv, w, exi);
    t = w.Txt();
  }
  VarCnv(u"", Var(t), val);
}

void TdaOpc::OpcVop(const Tx& chv, Var& val, int16_t& exi) {
  OpcFixCon(chv, val, exi);
  if (exi != 1) opcUsa(chv, val, exi);
}

// Reads one table: the holder gets the text, found says whether the key is there.
static void TabCon(const IdxTab& tab, const Tx& chv, Var& val, int16_t& exi) {
  Tx v;
  int pos = 0;
  IdxCon(tab, TxMaiTrm(chv), v, pos);
  exi = pos > 0 ? 1 : 0;
  val = Var(v);
}

void TdaOpc::OpcFixCon(const Tx& chv, Var& val, int16_t& exi) { TabCon(opcFix, chv, val, exi); }
void TdaOpc::opcUsa(const Tx& chv, Var& val, int16_t& exi) { TabCon(opcGer, chv, val, exi); }

void TdaOpc::OpcSN(const Tx& chv, Var& sn) {
  Var t{Tx()};
  OpcCon(chv, t);
  TxSN(t, sn, 0);
}

// Replaces "[NAME]" by the option's value, up to 21 passes, so values may hold
// further variables. "[]" or a "[" without "]" ends the work; an unknown name
// becomes nothing.
void TdaOpc::OpcSbr(const Tx& txt, Tx& res) {
  Tx t = txt, a, n, d;
  TxBrkCon2(t, u"[]", a, n, d);
  for (int k = 0; !n.empty() && k <= 20; k++) {
    Var v{Tx()};
    OpcCon(n, v);
    t = a + v.Txt() + d;
    TxBrkCon2(t, u"[]", a, n, d);
  }
  res = std::move(t);
}

void TdaOpc::OpcSbr(Tx& txt) { OpcSbr(Tx(txt), txt); }

// A path option: its first variable is replaced outside the pass count, then the
// usual substitution runs.
void TdaOpc::OpcPath(const Tx& chv, Tx& txt) {
  Var v{Tx()};
  OpcCon(chv, v);
  Tx t = v.Txt(), a, n, d;
  TxBrkCon2(t, u"[]", a, n, d);
  if (!n.empty()) {
    Var w{Tx()};
    OpcCon(n, w);
    t = a + w.Txt() + d;
  }
  OpcSbr(t);
  txt = std::move(t);
}

// The zone's values by row, through a keyed table: a repeated name shortens the
// table and the copy then runs out of bounds.
void TdaOpc::OpcArr(int16_t cnt, std::vector<Tx>& arr) {
  IdxTab tab;
  ZonArr(u"IDE", cnt, tab);
  arr.assign(size_t(std::max<int16_t>(cnt, 0)) + 1, Tx());
  for (int16_t i = 1; i <= cnt; i++) {
    if (i > tab.Num()) throw std::out_of_range("subscript out of range: repeated option name");
    arr[i] = tab.Val(i);
  }
}

// The debug option "DBG"+key of the zone in hand; with mode 1, whether its value
// repeats the key ("S"/"N" for a text holder, 1/0 for a number one).
void TdaOpc::OpcDbg(const Tx& chv, Var& val, int16_t mod) {
  Tx k = TxMaiTrm(chv), tpp;
  int16_t exi = 0;
  if (mod == 1) {
    Var v{Tx()};
    MemCon(u"DBG" + k, v, exi, tpp);
    Var r = val;
    TxSN(Var(v.Txt() == k), r, 0);
    if (r.EhTx())
      val = Var(TxEsq(r.Txt(), 1));
    else
      val.Poe(r);
  } else {
    MemCon(u"DBG" + k, val, exi, tpp);
  }
}

void TdaOpc::LcIni(const Tx& fic) {
  LcPrpArg(lcLin_);
  LcPrpFpa(fic);
  LcRegVar();
}

// The command line cut at blanks into words: element 0 the whole line.
void TdaOpc::LcPrpArg(const Tx& lin) {
  LcArgPrp(lin);
  lcArg = LcArgLis();
  if (lcArg.empty()) lcArg.assign(1, lin);
  lcArg[0] = lin;
  LcArgC = P16(long(lcArg.size()) - 1);
  lcPrp_ = true;
}

// A number is a word number; a text is a switch, and gives the word after it:
// its word number plus one. A switch that is not on the line has number 0, and so
// gives the first word, as it always has.
void TdaOpc::LcCon(const Var& chv, Var& val, int16_t& exi) {
  if (!lcPrp_) throw std::out_of_range("subscript out of range: command line not read");
  long n = 0;
  if (chv.EhTx()) {
    int16_t p = 0;
    LcExi(chv.Txt(), p);
    n = long(p) + 1;
  } else {
    n = long(NuDbl(chv));
  }
  if (n >= 1 && n <= LcArgC) {
    exi = 1;
    VarAtr(Var(lcArg[n]), val);
  } else {
    exi = 0;
    VarVaz(val);
  }
}

void TdaOpc::LcExi(const Tx& sw, int16_t& pos) {
  pos = 0;
  Tx s = TxMai(sw);
  for (int16_t i = 1; i <= LcArgC; i++)
    if (TxMai(lcArg[i]) == s) {
      pos = i;
      return;
    }
}

// The parameter-file path: the word after "-FP" (a folder there is joined with
// the default file), or the default file in the program's folder.
void TdaOpc::LcPrpFpa(const Tx& fic) {
  Tx p;
  Var w{Tx()};
  int16_t exi = 0;
  LcCon(Var(Tx(u"-FP")), w, exi);
  if (exi != 1) {
    if (!fic.empty()) FicJun(DirApp, fic, p);
  } else {
    Tx tip;
    int atr = 0;
    FicTip(w.Txt(), tip, atr);
    if (tip == u"D" && !fic.empty())
      FicJun(w.Txt(), fic, p);
    else
      p = w.Txt();
  }
  int r = 0;
  FicExi(p, r);
  LcFpa = p;
}

// "KEY=value" words become general options; a word with nothing after its "="
// changes nothing.
void TdaOpc::LcRegVar() {
  for (int16_t i = 1; i <= LcArgC; i++) {
    Tx r = lcArg[i], k;
    int f = 0;
    TxTokSeg(r, u"=", k, f);
    if (f == 1 && !r.empty()) OpcAct(k, Var(r));
  }
}

// Marks the rows of the OPC zone whose bare name starts with one of the prefixes
// of the list ("*" marks all); gives the number marked.
int16_t TdaOpc::OpcTabPrp(const Tx& lis) {
  int16_t n = 0;
  Tx l = TxMaiTrm(lis);
  for (size_t i = 1; i < opcTabReg.size(); i++) {
    Tx tip, nom;
    ParTipVar(opcTabReg[i].var, tip, nom);
    int r = 0;
    TxLisPfx(l, nom, r);
    opcTabReg[i].vnu = r == 1 ? 1 : 0;
    if (r == 1) n++;
  }
  if (!opcTabReg.empty()) opcTabReg[0].vnu = 0;
  return n;
}

// The next marked row after the cursor. The cursor is kept in row 0 of memTab
// while it is read from row 0 of opcTabReg, so every call gives the first marked
// row: callers rely on seeing that one row.
void TdaOpc::OpcTabCon(Tx& txi, Tx& vtx, Tx& nom) {
  txi.clear();
  vtx.clear();
  nom.clear();
  if (opcTabReg.empty()) return;
  size_t i = size_t(opcTabReg[0].vnu) + 1;
  for (; i < opcTabReg.size(); i++) {
    if (opcTabReg[i].vnu == 1) {
      Tx tip;
      txi = opcTabReg[i].txi;
      vtx = opcTabReg[i].vtx;
      ParTipVar(opcTabReg[i].var, tip, nom);
      memTab.at(0).vnu = double(i);
      return;
    }
  }
}

// Reads the "TBO" zones of a file into tbOpcLst. Each row's name is
// "state:code,field=rest"; a row is taken with an empty filter, or when its state
// is "1" and the filter is "*" or a condition list its code satisfies.
void TdaOpc::tbOpcPrp(const Tx& fic, const Tx& flt, const Tx& lbl, int16_t& cnt) {
  cnt = 0;
  tbOpcLst.assign(1, TbOpcEnt());
  Tx ver, reg;
  ZonIni(fic, lbl);
  for (;;) {
    Tx ide, tip, des;
    int16_t n = 0;
    ZonSeg(ide, tip, n, des);
    if (ide.empty()) break;
    if (ide == u"DEF") {
      Var v{Tx()};
      OpcCon(u"VOP", v);
      reg = v.Txt();
    }
    if (ide != u"TBO") continue;
    for (int16_t i = 1; i <= n; i++) {
      Tx txp, txi, nom, vtx;
      int16_t exi = 0, ptx = 0;
      MemConTxp(Var(i), txp, exi);
      ParPrep(txp, txi, nom, vtx, ptx);
      if (tbOpcVer == 1) ver += txp;
      Tx a = nom, rst, sit, cod;
      int f = 0;
      TxTokSeg(a, u",", rst, f);  // rst: "state:code", a: "field=rest"
      Tx sc = rst;
      TxTokSeg(sc, u":", sit, f);
      cod = sc;
      int r = 0;
      bool tom = flt.empty() || (flt == u"*" && sit == u"1");
      if (!tom && sit == u"1") {
        TxLisCnd(flt, Var(cod), r);
        tom = r == 1;
      }
      if (tom) {
        tbOpcLst.push_back({txi, sit, cod, vtx});
        cnt = P16(long(cnt) + 1);
      }
    }
  }
  ZonFim();
  if (tbOpcVer == 1) {
    // The generated verification value: no generator is defined, so it is empty.
    vobUsa = 1;
    vobGer.clear();
    vobReg = reg;
    if (vobGer != vobReg) {
      tbOpcLst.assign(1, TbOpcEnt());
      cnt = 0;
    }
  } else {
    vobUsa = 0;
    vobGer.clear();
    vobReg.clear();
  }
}

// tbOpcLst as a table of rows 0..count by columns 0..9: state, label, code, value,
// "", substituted value, its folder and file name, "", "".
void TdaOpc::tbOpcPro(std::vector<std::array<Tx, 10>>& tab, int16_t& cnt, int16_t max) {
  long n = std::min<long>(long(tbOpcLst.size()) - 1, max);
  if (n < 0) n = 0;
  cnt = int16_t(n);
  tab.assign(size_t(n) + 1, {});
  for (long i = 1; i <= n; i++) {
    const TbOpcEnt& e = tbOpcLst[i];
    auto& r = tab[i];
    r[0] = e[1];
    r[1] = e[0];
    r[2] = e[2];
    r[3] = TxTrim(e[3]);
    OpcSbr(r[3], r[5]);
    FicDirNom(r[5], r[6], r[7]);
  }
}

// The option files of a folder: description (header line 5), file name, path.
void TdaOpc::FpaPsq(const Tx& dir, const Tx& msc, std::vector<std::array<Tx, 3>>& tab, int16_t& cnt) {
  std::vector<Tx> noms;
  int n = 0, err = 0;
  DirLis(u"F", dir, msc, noms, n, err);
  cnt = P16(n);
  tab.assign(size_t(n) + 1, {});
  for (int i = 1; i <= n; i++) {
    Tx p = FicJun(dir, noms[i]), des;
    tboPrp(p, u"");
    CabCon(u"V", 5, des);
    tboFim();
    tab[i] = {des, noms[i], p};
  }
}

void TdaOpc::OpcEspIni() {
  opcEsp.clear();
  opcCnvChr = 1;
}

// Moves the "[...]" tail of a zone description into opcEsp and applies "CnvChr".
void TdaOpc::OpcEspUsa(Tx& des, int16_t& exi) {
  int p = TxPos(des, u"[");
  exi = p ? 1 : 0;
  if (!p) return;
  opcEsp = u"[" + TxMeio(des, p + 1);
  des = TxTrim(TxEsq(des, p - 1));
  Var v{int16_t(opcCnvChr)};
  OpcEspCon(u"CnvChr", v);
  opcCnvChr = v.EhNum() ? int16_t(v.Num()) : int16_t(NuDbl(v));
}

// A "[KEY=value]" item of the special options, key and text in capitals; the
// holder keeps its kind and is left alone when the item is absent.
void TdaOpc::OpcEspCon(const Tx& chv, Var& val) {
  Tx a, v, d;
  int f = 0;
  OpcTxDiv(TxMai(opcEsp), TxMai(chv), a, v, d, f);
  if (f == 1) val.Poe(Var(v));
}

}  // namespace zw
