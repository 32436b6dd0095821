// SupWiz: life of the engine, the start of an attempt and the reading of the
// option file into the engine's definition (WizDef.h).
#include "SupWiz.h"
#include <stdexcept>
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "DbgFx.h"

namespace zw {

SupWiz::SupWiz() {
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
  WizLer ler(mDef, *this);
  ler.Ler(fpa);
  WizFrm* f = Frm();
  if (!f) throw std::runtime_error("the wizard has no window");
  f->Caption(mDef.TitWiz);
  ImgFun(mDef.ImgFun);
  MnuIco(mDef.ImgIco);
  mLin = mDef.LinDimX;
  if (!(mDef.DimX.EhTx() && mDef.DimX.Txt() == u"AUTO")) f->Width(NuDbl(mDef.DimX));
  mLin = mDef.LinDimY;
  if (!(mDef.DimY.EhTx() && mDef.DimY.Txt() == u"AUTO")) f->Height(NuDbl(mDef.DimY));
  PagCmpPrp();
  mPagLst.assign(1, 0);
  mPagAct = 1;
  mLin = mDef.PagNum >= 1 ? mDef.Pag[1].Lin : 0;
  PagVer(mPagAct);
}

// Hands the engine to the window, which runs "FxIni" and shows itself modally.
void SupWiz::WizExe() {
  mLin = 0;
  if (WizFrm* f = Frm()) f->WizExe(*this);
}

// A "VBS" group: its program replaces the one in the host, and the folder words
// become script variables.
void SupWiz::Pgm(const tWizPgm& p) {
  VbsPgmReg(p.Lin, &p.Num);
  VbsVarTx(u"WizFpa", Var(mDef.Dir.Fpa));
  VbsVarTx(u"LtrCd", Var(mDef.Dir.LtrCd));
  VbsVarTx(u"DrvCd", Var(mDef.Dir.DrvCd));
  VbsVarTx(u"DirPgm", Var(mDef.Dir.DirPgm));
  VbsVarTx(u"DirBas", Var(Tx()));  // a folder that nothing sets
}

}  // namespace zw
