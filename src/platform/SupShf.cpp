// SupShf's properties and the operations that prepare the lists for a run.
#include "SupShf.h"
#include "DbgFx.h"
#include "FicGlb.h"
#include "SupShfInt.h"
#include "SupShfPrg.h"

namespace zw {

SupShf::SupShf() { DbgObjIni(cls, stamp); }
SupShf::~SupShf() { DbgObjFim(cls, stamp); }

void SupShf::AspExe(int show, int ask) {
  SilentMode = show != 1;
  ConfirmOperation = ask == 1;
  ConfirmMakeDir = ask == 1;
}

void SupShf::FxCop(const Tx& orig, const Tx& dest, int& res) {
  OrgIni();
  OrgJun(orig);
  DesIni();
  DesJun(dest);
  res = Exe(kShfCop);
}

void SupShf::FxMov(const Tx& orig, const Tx& dest, int& res) {
  OrgIni();
  OrgJun(orig);
  DesIni();
  DesJun(dest);
  res = Exe(kShfMov);
}

void SupShf::FxEli(const Tx& path, int& res) {
  OrgIni();
  DesIni();
  OrgJun(path);
  res = Exe(kShfEli);
}

void SupShf::FxLpzDir(const Tx& dir, int& res) { FxEli(FicJun(dir, u"*.*"), res); }

using shf::Curinga;
using shf::Divide;

void SupShf::FxCopDfi(const Tx& orig, const Tx& dest, int& res) {
  res = 0;
  int atr = 0, r = 0;
  Tx tip, dir, nom;
  FicTip(orig, tip, atr);
  Divide(orig, dir, nom);
  Tx base, ext;
  FicNomExt(nom, base, ext);
  if (tip == u"?" && base == u"*") tip = u"F";
  if (tip == u"F") {
    Tx ddir, dnom;
    Divide(dest, ddir, dnom);
    if (!Curinga(dnom)) {
      DirCriFic(dest, r);
      FxCop(orig, dest, res);
    } else {
      DirCriTot(ddir, r);
      FxCop(orig, ddir, res);
    }
  } else if (tip == u"D") {
    // A folder is never copied into itself: refused before any level is made.
    std::string co = shf::Canon(FicNat(orig)), cd = shf::Canon(FicNat(dest));
    if (cd == co || cd.rfind(co + "/", 0) == 0) {
      err_ = kErrAces;
      return;
    }
    DirCriTot(dest, r);
    FxCopArv(orig, dest, 1, res);
  }
}

void SupShf::FxCopArv(const Tx& orig, const Tx& dest, int flag, int& res) {
  if (flag == 1) AspExe(1, 0);
  Tx dir, nom;
  Divide(orig, dir, nom);
  FxCop(Curinga(nom) ? orig : FicJun(orig, u"*.*"), dest, res);
}

}  // namespace zw
