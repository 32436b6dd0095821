// WizDef: the reading of a wizard's option file into its definition, group by group
// in file order; the keys a group is asked for and the order they are asked in are
// those a run has always used.
#include "WizDef.h"
#include <memory>
#include "FicGlb.h"
#include "FicLer.h"
#include "TdaOpc.h"
#include "Twp.h"
#include "TxtGlb.h"

namespace zw {

tWizDir WizDirDe(const Tx& fpa, const Tx& linCmd) {
  Tx dir, nom;
  FicDirNom(fpa, dir, nom);
  const size_t s = fpa.find_last_of(u"\\/");
  if (s != Tx::npos) dir = fpa.substr(0, s);
  tWizDir d{fpa, Tx(), Tx(), dir, linCmd};
  WizLtrCon(dir, d.LtrCd, d.DrvCd);
  return d;
}

void WizLtrCon(const Tx& dir, Tx& ltr, Tx& drv) {
  std::vector<Tx> par;
  FicPar(dir, par);
  ltr = par[1];
  if (ltr.size() > 1) {
    std::vector<Tx> pecas;
    int n = 0;
    FicDirLis(dir, pecas, n);
    if (n > 2) ltr = pecas[1] + u"\\" + pecas[2];
  }
  drv = ltr.starts_with(u"\\\\") ? ltr : ltr + u":";
}

// The bracket words of paths. "DIRBAS", "DIRPAR" and "DIRWIZ" name folders that
// nothing sets, so they give "".
Tx tWizDef::DirCon(const Tx& pal) const {
  Tx p = TxMai(TxTrim(pal));
  if (p == u"DIRPGM") return Dir.DirPgm;
  if (p == u"LTRCD") return Dir.LtrCd;
  if (p == u"DRVCD") return Dir.DrvCd;
  if (p == u"IMGFUN") return ImgFun;
  return Tx();
}

Tx tWizDef::DirExp(const Tx& tx) const {
  Tx esq, pal, dir;
  int len = 0;
  TxBrkCon(tx, esq, pal, dir, len, u"[]");
  if (len == 0) return tx;
  return esq + DirCon(pal) + dir;
}

// The groups in file order; after each one, once the next head is read, the caller
// calculates. The option reader lives only while the file is read: no option can
// be read afterwards.
void WizLer::Ler(const Tx& fpa) {
  auto tda = std::make_unique<TdaOpc>();
  tda->LcLinDef(def_.Dir.LinCmd);
  tda_ = tda.get();
  struct Solta {
    TdaOpc*& p;
    ~Solta() { p = nullptr; }
  } solta{tda_};
  tWizGrp g;
  tda_->ZonIni(fpa, u"");
  def_.Cab = tda_->cabLin;
  tda_->ZonSeg(g.Ide, g.Tip, g.Num, g.Des);
  while (!g.Ide.empty()) {
    g.Lin = tda_->zonLin;
    fx_.Lin(g.Lin);
    def_.Grp.push_back(g);
    if (g.Ide == u"DEF") {
      Def();
    } else if (g.Ide == u"VAR" || g.Ide == u"PON" || g.Ide == u"ZON") {
      Zpo(g.Ide == u"VAR" ? u"V" : g.Ide == u"PON" ? u"P" : u"Z", g.Num);
    } else if (g.Ide == u"PAG") {
      Pag();
    } else if (g.Ide == u"TRA") {
      Tra();
    } else if (g.Ide == u"CMP") {
      Cmp();
    } else if (g.Ide == u"VBS") {
      tWizPgm p;
      tda_->ZonArr(u"TX", g.Num, p.Lin);
      p.Num = tda_->regLinNum;
      def_.Pgm = std::move(p);
      fx_.Pgm(def_.Pgm);
    }
    fx_.Grp(def_.Grp.back());
    tda_->ZonSeg(g.Ide, g.Tip, g.Num, g.Des);
    fx_.Calc();
  }
  tda_->ZonFim();
}

Tx WizLer::Chv(const Tx& chv, int32_t* lin) const {
  Var v{Tx()};
  int16_t exi = 0;
  Tx tpp;
  tda_->MemCon(chv, v, exi, tpp);
  if (lin) {
    int32_t row = -1;
    tda_->MemIdxUsa(Var(chv), row);
    *lin = row > 0 && size_t(row) < tda_->memTab.size() ? tda_->memTab[size_t(row)].lin : 0;
  }
  return TxVar(v);
}

// A length of the group in hand in pixels, as twips of its axis 'X' or 'Y' (the
// number itself for another axis word); "AUTO" stays a text. Gives the key's text,
// trimmed and in capitals.
Tx WizLer::Twp(char eixo, const Tx& chv, Var& val) const {
  Tx t = TxMai(TxTrim(Chv(chv)));
  if (t == u"AUTO") {
    val = Var(Tx(u"AUTO"));
    return t;
  }
  double n = NuVal(t);
  val = Var(eixo == 'X' || eixo == 'Y' ? PxTwp(n, eixo) : n);
  return t;
}

// The "DEF" group. The keys of the older window layout (TamFix, ZonX, BasPy, BasSy,
// BotDx, BotPx, BotDy, BotSy, BotFon, BotFg) and the four TraPos keys are accepted
// and never read: the points and zones of the file say the layout now, and reading
// a key changes nothing, so leaving them unread is the same.
void WizLer::Def() {
  auto opc = [this](const Tx& chv) {
    Var v{Tx()};
    tda_->OpcCon(chv, v);
    return TxVar(v);
  };
  def_.DbgModo = opc(u"DbgModo");
  if (!def_.DbgModo.empty()) {
    def_.Dir.LtrCd = opc(u"DbgLtrCd");
    def_.Dir.DirPgm = opc(u"DbgDirPgm");
    def_.Dir.DrvCd = def_.Dir.LtrCd + u":";
  }
  def_.TitWiz = opc(u"TitWiz");
  def_.ImgFun = def_.DirExp(Chv(u"ImgFun", &def_.LinImgFun));
  def_.ImgIco = def_.DirExp(Chv(u"ImgIco", &def_.LinImgIco));
  Twp('X', u"DimX", def_.DimX);
  Twp('Y', u"DimY", def_.DimY);
  Chv(u"DimX", &def_.LinDimX);
  Chv(u"DimY", &def_.LinDimY);
  if (!def_.LinDimX) def_.LinDimX = tda_->zonLin;
  if (!def_.LinDimY) def_.LinDimY = tda_->zonLin;
  def_.MsgCan = opc(u"MsgCan");
}

// The lines of a "VAR", "PON" or "ZON" group, kind "V", "P" or "Z".
void WizLer::Zpo(const Tx& tip, int16_t n) {
  for (int16_t i = 1; i <= n; i++) {
    Tx txp;
    int16_t exi = 0;
    tda_->MemConTxp(Var(i), txp, exi);
    Tx txi, var, vtx;
    int16_t ptx = 0;
    TdaOpc::ParPrep(txp, txi, var, vtx, ptx);
    int32_t lin = size_t(i) < tda_->memTab.size() ? tda_->memTab[size_t(i)].lin : tda_->zonLin;
    WizTabAdi(def_.Zpo, def_.ZpoNum, tZpo{var, txi, TxMai(TxTrim(tip)), vtx, Tx(), lin}, def_.ZpoIdx);
  }
}

// A page with five empty transitions; its components are the "CMP" groups that
// follow it.
void WizLer::Pag() {
  tPag p;
  p.Ide = Chv(u"IDE", &p.LinIde);
  p.Des = Chv(u"DES");
  p.Img = Chv(u"Img", &p.LinImg);
  p.FxPagEnt = Chv(u"FxPagEnt", &p.LinEnt);
  p.FxPagSai = Chv(u"FxPagSai", &p.LinSai);
  p.CmpIni = int16_t(def_.CmpNum + 1);
  p.Lin = tda_->zonLin;
  WizTabAdi(def_.Pag, def_.PagNum, p, def_.PagIdx);
}

namespace {
// The buttons in slot order (row 0 unused): their word in the file and their name
// on the window.
constexpr TxV kTraPal[5] = {u"", u"ANT", u"SEG", u"CNF", u"CAN"};
constexpr TxV kTraBtn[5] = {u"", u"cmAnt", u"cmSeg", u"cmCnf", u"cmCan"};
// The transition kinds in column order.
constexpr TxV kTraTip[3] = {u"PAG", u"FX", u"FIM"};
}  // namespace

// The buttons' words in slot order, compared exactly.
int TraSlot(TxV pal) {
  for (int s = 1; s <= 4; s++)
    if (pal == kTraPal[s]) return s;
  return 0;
}

TxV TraPal(int slot) { return slot >= 1 && slot <= 4 ? kTraPal[slot] : TxV(); }
TxV TraBtnNom(int slot) { return slot >= 1 && slot <= 4 ? kTraBtn[slot] : TxV(); }

int TraBtnSlot(TxV nome) {
  for (int s = 1; s <= 4; s++)
    if (nome == kTraBtn[s]) return s;
  return 0;
}

int TraCol(TxV tip) {
  for (int c = 0; c < 3; c++)
    if (tip == kTraTip[c]) return c;
  return 3;
}

// A transition, in its slot of the last page; a later group of the same button
// replaces it, a word other than the four is read and dropped. The caller places
// it first.
void WizLer::Tra() {
  tTra t;
  t.Lin = tda_->zonLin;
  t.Ide = Chv(u"IDE", &t.LinIde);
  t.Des = Chv(u"DES");
  t.Pos = Chv(u"POS");
  t.Sit = Chv(u"SIT", &t.LinSit);
  t.TraTip = Chv(u"TRATIP", &t.LinTip);
  t.TraPag = Chv(u"TRAPAG", &t.LinPag);
  t.TraFx = Chv(u"TRAFX", &t.LinFx);
  fx_.TraPos(t);
  int slot = TraSlot(TxMai(TxTrim(t.Ide)));
  if (slot) def_.Pag[size_t(def_.PagNum)].Tra[slot] = t;
}

// A component: eleven keys in their order, the text after a bracket substitution
// and cut at kCmpTxMax; it joins the last page.
void WizLer::Cmp() {
  tCmp c;
  c.Tip = Chv(u"Tip", &c.LinTip);
  c.Ide = Chv(u"Ide");
  c.Pos = Chv(u"Pos", &c.LinPos);
  c.Dim = Chv(u"Dim", &c.LinDim);
  c.Fun = Chv(u"Fun");
  c.Cor = Chv(u"Cor");
  c.Fon = Chv(u"Fon");
  c.Aln = Chv(u"Aln");
  // A text that is only "[word]", or begins with it, becomes the option of that
  // word when it has a value; what stood right of the brackets is then lost.
  c.Txt = Chv(u"Txt", &c.LinTxt);
  Tx esq, pal, dir;
  int len = 0;
  TxBrkCon(c.Txt, esq, pal, dir, len, u"[]");
  if (len != 0 && !pal.empty() && esq.empty()) {
    Var v{Tx()};
    tda_->OpcCon(pal, v);
    if (!TxVar(v).empty()) c.Txt = TxVar(v);
  }
  c.Adi = Chv(u"Adi");
  c.Sit = Chv(u"Sit", &c.LinSit);
  c.Lin = tda_->zonLin;
  // Cut now, so that the tables never hold a text longer than a control takes.
  if (c.Txt.size() > kCmpTxMax) c.Txt = TxVar(CmpTxLim(Var(c.Txt), c));
  WizTabAdi(def_.Cmp, def_.CmpNum, c, def_.CmpIdx);
  tPag& p = def_.Pag[size_t(def_.PagNum)];
  if (p.CmpNum == 0) p.CmpFim = p.CmpIni;
  else p.CmpFim++;
  p.CmpNum++;
}

Var CmpTxLim(const Var& v, const tCmp& c) {
  if (!v.EhTx() || v.Txt().size() <= kCmpTxMax) return v;
  size_t n = kCmpTxMax;
  if (v.Txt()[n - 1] >= 0xD800 && v.Txt()[n - 1] <= 0xDBFF) n--;
  LimTrc(u"cut text of component \"" + c.Ide + u"\" (line " + TxAsc(std::to_string(c.Lin)) + u") at " +
         TxAsc(std::to_string(kCmpTxMax)) + u" characters");
  return Var(v.Txt().substr(0, n));
}

void ZpoCmd(const tZpo& z, std::vector<Tx>& nom, std::vector<Tx>& stm) {
  auto atr = [&](const Tx& n, const Tx& v) {
    nom.push_back(n);
    stm.push_back(n + u"=" + v);
  };
  if (z.Tip == u"Z" || z.Tip == u"P") {
    Tx pec[4], rst = z.Val;
    int k4 = z.Tip == u"Z" ? 4 : 2;
    for (int k = 0; k < k4; k++) {
      int p = TxPos(rst, u",");
      if (p == 0) {
        pec[k] = rst;
        rst.clear();
      } else {
        pec[k] = TxEsq(rst, p - 1);
        rst = TxMeio(rst, p + 1);
      }
    }
    if (k4 == 4) {
      atr(z.Ide + u"_X1", pec[0]);
      atr(z.Ide + u"_Y1", pec[1]);
      atr(z.Ide + u"_X2", pec[2]);
      atr(z.Ide + u"_Y2", pec[3]);
    } else {
      atr(z.Ide + u"_X", pec[0]);
      atr(z.Ide + u"_Y", pec[1]);
    }
  } else {
    atr(z.Ide, z.Val);
  }
}

}  // namespace zw
