// "Wiz": files, folders, drives and the system's identity. The operations that
// change something share one frame: an empty argument means nothing is tried (-1);
// otherwise the worker runs and its answer is the result; then the debug box and the
// log get their texts. No operation here stops a script: errors come back as the
// file layer's error numbers (53 file not found, 70 permission denied, 76 path not
// found...).
#include <functional>
#include "ApiDec.h"
#include "FicGlb.h"
#include "GlbReg.h"
#include "SupFsys.h"
#include "SupShf.h"
#include "SupWizVbs.h"
#include "Trc.h"
#include "TxtGlb.h"

namespace zw {

namespace {
Tx T(const SupWizVbs::Lis& a, size_t k) { return TxVar(SupWizVbs::Arg(a, k)); }

// Steps 1 and 2 of the frame: -1 when an argument is empty, else the worker's answer.
// A failure inside the worker is passed over, as every step of the frame is; the
// result then stays at 1, and the failure goes to the trace under oque.
int16_t Quadro(const Tx& oque, std::initializer_list<Tx> args, const std::function<int16_t()>& obreiro) {
  for (const Tx& t : args)
    if (t.empty()) return -1;
  try {
    return obreiro();
  } catch (...) {
    TrcFal(u"SupWizVbs", oque, TrcPor());
    return 1;
  }
}
}  // namespace

// A folder's contents into the destination, all levels made, progress shown and
// nothing asked; 1 done, 0 failed or the source is not a folder.
void SupWizVbs::FxDirCop(Lis& a, Var& res) {
  Tx o = T(a, 0), d = T(a, 1);
  const Tx oque = u"FxDirCop " + o + u" para " + d;
  bool correu = false;
  int16_t r = Quadro(oque, {o, d}, [&]() -> int16_t {
    correu = true;
    int atr = 0;
    Tx tip;
    FicTip(o, tip, atr);
    if (tip != u"D") return 0;
    SupShf s;
    s.AspExe(1, 0);
    int ans = 0;
    s.FxCopDfi(o, d, ans);
    return int16_t(ans);
  });
  if (correu && mAtrRst == 1) {
    try {
      Fsys().ProFsysAtrb(d, u"+N", u"*.*");
    } catch (...) {
      TrcFal(u"SupWizVbs", oque, u"attributes not reset: " + TrcPor());
    }
  }
  res = Var(r);
  DbgVer(oque, res);
  FxLogReg(u"COP DIR: " + o + u" para " + d, res);
}

// A file copy: 0 done, -1 the same name (in capitals) or an empty argument, else the
// error number. With the attribute reset on, the destination's attributes are
// cleared whatever the copy answered.
void SupWizVbs::FxFicCop(Lis& a, Var& res) {
  Tx o = T(a, 0), d = T(a, 1);
  const Tx oque = u"FxFicCop " + o + u" para " + d;
  int16_t r = Quadro(oque, {o, d}, [&]() -> int16_t {
    if (TxMai(o) == TxMai(d)) return -1;
    return int16_t(ShfFicCop(o, d));
  });
  // Names equal in capitals are one file to the library, though Linux may hold
  // only the source's spelling of it.
  if (mAtrRst == 1) FsysAtrPoe(TxMai(o) == TxMai(d) ? o : d, 0);
  res = Var(r);
  DbgVer(oque, res);
  FxLogReg(u"COP FIC: " + o + u" para " + d, res);
}

void SupWizVbs::FxFicRen(Lis& a, Var& res) {
  Tx o = T(a, 0), n = T(a, 1);
  const Tx oque = u"FxFicRen " + o + u" para " + n;
  res = Var(Quadro(oque, {o, n}, [&] {
    int r = 0;
    FicRen(o, n, r);
    return int16_t(r);
  }));
  DbgVer(oque, res);
  FxLogReg(u"REN: " + o + u" para " + n, res);
}

// Deletes a file, or every file that a name with "*" or "?" matches.
void SupWizVbs::FxFicEli(Lis& a, Var& res) {
  Tx p = T(a, 0);
  const Tx oque = u"FxFicEli " + p;
  res = Var(Quadro(oque, {p}, [&] {
    int r = 0;
    FicEli(p, r);
    return int16_t(r);
  }));
  DbgVer(oque, res);
  FxLogReg(u"ELI: " + p, res);
}

// "F" file, "D" folder, "?" neither; an empty path is asked about as it is.
void SupWizVbs::FxFicTip(Lis& a, Var& res) {
  Tx p = T(a, 0), tip;
  int atr = 0;
  FicTip(p, tip, atr);
  res = Var(tip);
  DbgVer(u"FxFicTip " + p, res);
}

// The pieces joined left to right with one separator between them.
void SupWizVbs::FxFicLoc(Lis& a, Var& res) {
  Tx r;
  for (const Var& v : a) r = FicJun(r, TxVar(v));
  res = Var(r);
  DbgVer(u"FxFicLoc", res);
}

// The first drive of a kind: "A" removable, "F" fixed, "R" remote, "CD", "RAM",
// "HD" fixed or remote, anything else any drive; empty when there is none.
void SupWizVbs::FxDrvUsa(Lis& a, Var& res) {
  Tx k = TxVar(TxVarMai(Arg(a, 0))), lis;
  DrvLis(lis, k);
  res = Var(TxEsq(lis, 1));
  DbgVer(u"FxDrvUsa " + k, res);
}

// The system's name and code, both as text, into the two arguments.
void SupWizVbs::SopIdeCon(Lis& a, Var&) {
  Tx nome, cod;
  SopIde(nome, cod);
  Poe(a, 0, Var(nome));
  Poe(a, 1, Var(cod));
}

}  // namespace zw
