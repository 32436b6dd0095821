// SupWiz: life of the engine, the start of an attempt and the reading of the
// option file, group by group in file order.
#include "SupWiz.h"
#include <stdexcept>
#include "SupWizVbs.h"
#include "TdaOpc.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizGlb.h"
#include "DbgFx.h"

namespace zw {

SupWiz::SupWiz() : mZpo(1), mPag(1), mCmp(1) {
  DbgObjIni(mTrcNom, mTrcSit);
  mWizVbs = std::make_unique<SupWizVbs>(this);
  FxIni();
}

SupWiz::~SupWiz() {
  FxFim();
  DbgObjFim(mTrcNom, mTrcSit);
}

void SupWiz::FxIni() {
  DbgFxIni(mTrcNom, mTrcSit, u"#I");
  DbgFxIni(mTrcNom, mTrcSit, u"#F");
}

// Lets go of the option group being filled, the script host, the window and the
// reader; the tables stay.
void SupWiz::FxFim() {
  DbgFxFim(mTrcNom, mTrcSit, u"#I");
  mOpcAct = nullptr;
  VbsFim();
  mFrm = Var();
  mTda = nullptr;
  DbgFxFim(mTrcNom, mTrcSit, u"#F");
}

// Keeps the window of this attempt and starts the script host on it, with "Wiz".
// The option group of an earlier attempt went with its window.
void SupWiz::RegFrm(const Var& frm) {
  mFrm = frm;
  mOpcAct = nullptr;
  VbsPrp();
}

// One more object for the scripts, under its name in capitals.
void SupWiz::RegSup(const Tx& nome, const Var& ob) { VbsObReg(TxMai(TxTrim(nome)), ob); }

// Reads the file and builds the wizard: window caption, picture, icon and size,
// every component's control, and the first page entered before the window shows.
void SupWiz::WizIni(const Tx& fpa) {
  WizOpcLer(fpa);
  WizFrm* f = Frm();
  if (!f) throw std::runtime_error("the wizard has no window");
  f->Caption(TitWiz);
  ImgFun(zw::ImgFun);
  MnuIco(ImgIco);
  mLin = mLinDimX;
  if (!(DimX.EhTx() && DimX.Txt() == u"AUTO")) f->Width(NuDbl(DimX));
  mLin = mLinDimY;
  if (!(DimY.EhTx() && DimY.Txt() == u"AUTO")) f->Height(NuDbl(DimY));
  PagCmpPrp();
  mPagLst.assign(1, 0);
  mPagAct = 1;
  mLin = mPagNum >= 1 ? mPag[1].Lin : 0;
  PagVer(mPagAct);
}

// Hands the engine to the window, which runs "FxIni" and shows itself modally.
void SupWiz::WizExe() {
  mLin = 0;
  if (WizFrm* f = Frm()) f->WizExe(*this);
}

// The groups of the file in its order; after each one every variable, point and
// zone is calculated again, so that a line may use a name that a later group
// defines. The reader is gone at the end: no option can be read afterwards.
void SupWiz::WizOpcLer(const Tx& fpa) {
  auto tda = std::make_unique<TdaOpc>();
  mTda = tda.get();
  struct Solta {
    TdaOpc*& p;
    ~Solta() { p = nullptr; }
  } solta{mTda};
  Tx grp, tip, des;
  int16_t num = 0;
  mTda->ZonIni(fpa, u"");
  mTda->ZonSeg(grp, tip, num, des);
  while (!grp.empty()) {
    mLin = mTda->zonLin;
    if (grp == u"DEF") {
      WizDefLer();
    } else if (grp == u"VAR" || grp == u"PON" || grp == u"ZON") {
      Tx k = grp == u"VAR" ? u"V" : grp == u"PON" ? u"P" : u"Z";
      for (int16_t i = 1; i <= num; i++) ZpoOpcPrp(k, i);
    } else if (grp == u"PAG") {
      PagOpcPrp();
    } else if (grp == u"TRA") {
      TraOpcPrp();
    } else if (grp == u"CMP") {
      CmpOpcPrp();
    } else if (grp == u"VBS") {
      std::vector<Tx> lin;
      mTda->ZonArr(u"TX", num, lin);
      VbsPgmReg(lin, &mTda->regLinNum);
      VbsVarTx(u"WizFpa", Var(WizFpa));
      VbsVarTx(u"LtrCd", Var(LtrCd));
      VbsVarTx(u"DrvCd", Var(DrvCd));
      VbsVarTx(u"DirPgm", Var(DirPgm));
      VbsVarTx(u"DirBas", Var(DirBas));
    }
    mTda->ZonSeg(grp, tip, num, des);
    ZpoCalc();
  }
  mTda->ZonFim();
}

// The "DEF" group. The keys that nothing uses any more are read and normalised all
// the same, so that a file that has them reads as it always did.
void SupWiz::WizDefLer() {
  auto opc = [this](const Tx& chv) {
    Var v{Tx()};
    mTda->OpcCon(chv, v);
    return TxVar(v);
  };
  DbgModo = opc(u"DbgModo");
  if (!DbgModo.empty()) {
    LtrCd = opc(u"DbgLtrCd");
    DirPgm = opc(u"DbgDirPgm");
    DrvCd = LtrCd + u":";
  }
  TitWiz = opc(u"TitWiz");
  WizOpcDir(u"ImgFun", zw::ImgFun);
  WizOpcDir(u"ImgIco", ImgIco);
  Tx tamFix;
  WizOpcDir(u"TamFix", tamFix);
  tamFix = TxMai(tamFix) == u"N" ? u"N" : u"S";
  WizOpcTwp('X', u"DimX", DimX);
  WizOpcTwp('Y', u"DimY", DimY);
  mLinDimX = MemLin(u"DimX");
  mLinDimY = MemLin(u"DimY");
  Var zonX, basPy, basSy, botDx, botPx, botDy, botSy;
  WizOpcTwp('X', u"ZonX", zonX);
  if (zonX.EhTx() && zonX.Txt() == u"AUTO") zonX = DimX;
  WizOpcTwp('Y', u"BasPy", basPy);
  WizOpcTwp('Y', u"BasSy", basSy);
  WizOpcTwp('X', u"BotDx", botDx);
  WizOpcTwp('X', u"BotPx", botPx);
  WizOpcTwp('Y', u"BotDy", botDy);
  WizOpcTwp('Y', u"BotSy", botSy);
  if (botSy.EhTx() || NuDbl(botSy) < 15) botSy = Var(15.0);
  Tx botFon, botFg;
  WizOpcTx(u"BotFon", botFon);
  WizOpcTx(u"BotFg", botFg);
  TraPosAnt = opc(u"TraPosAnt");
  TraPosSeg = opc(u"TraPosSeg");
  TraPosCnf = opc(u"TraPosCnf");
  TraPosCan = opc(u"TraPosCan");
  MsgCan = opc(u"MsgCan");
}

Tx SupWiz::MemTx(const Tx& chv) {
  Var v{Tx()};
  int16_t exi = 0;
  Tx tpp;
  mTda->MemCon(chv, v, exi, tpp);
  return TxVar(v);
}

int32_t SupWiz::MemLin(const Tx& chv) {
  int32_t row = -1;
  mTda->MemIdxUsa(Var(chv), row);
  if (row > 0 && size_t(row) < mTda->memTab.size()) return mTda->memTab[size_t(row)].lin;
  return mTda->zonLin;
}

// A key of the current group, trimmed and in capitals.
void SupWiz::WizOpcTx(const Tx& chv, Tx& val) { val = TxMai(TxTrim(MemTx(chv))); }

// A key of the current group whose first bracket word names a folder or a path.
void SupWiz::WizOpcDir(const Tx& chv, Tx& val) { val = WizDirExp(MemTx(chv)); }

// The first "[word]" of a text replaced by the folder or value it names.
Tx SupWiz::WizDirExp(const Tx& tx) {
  Tx esq, pal, dir;
  int len = 0;
  TxBrkCon(tx, esq, pal, dir, len, u"[]");
  if (len == 0) return tx;
  Tx v;
  WizDirCon(pal, v);
  return esq + v + dir;
}

// The value of a bracket word of a path; an unknown word is nothing.
void SupWiz::WizDirCon(const Tx& pal, Tx& val) {
  Tx p = TxMai(TxTrim(pal));
  if (p == u"DIRBAS" || p == u"DIRPAR") val = DirBas;
  else if (p == u"DIRWIZ") val = DirWiz;
  else if (p == u"DIRPGM") val = DirPgm;
  else if (p == u"LTRCD") val = LtrCd;
  else if (p == u"DRVCD") val = DrvCd;
  else if (p == u"IMGFUN") val = zw::ImgFun;
  else val.clear();
}

// A length of the current group in pixels, as twips of the axis; "AUTO" stays a text.
void SupWiz::WizOpcTwp(char eixo, const Tx& chv, Var& val) {
  double tx = TwpPix('X'), ty = TwpPix('Y');
  Tx t;
  WizOpcTx(chv, t);
  if (t == u"AUTO") {
    val = Var(Tx(u"AUTO"));
    return;
  }
  double n = NuVal(t);
  val = Var(eixo == 'X' ? n * tx : eixo == 'Y' ? n * ty : n);
}

// The screen's twips per pixel, from the window; 15 before there is one.
double SupWiz::TwpPix(char eixo) const {
  WizFrm* f = Frm();
  double t = f ? f->TwpPix(eixo) : 15.0;
  return t > 0 ? t : 15.0;
}

}  // namespace zw
