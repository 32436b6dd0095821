// "Wiz": texts, numbers, message boxes, the debug box and registry reads.
// Arguments are converted as the library's table says: texts with TxVarCnv,
// numbers with NuVar (a text read as far as it forms a number).
#include <cmath>
#include "GlbMsg.h"
#include "GlbReg.h"
#include "GlbVar.h"
#include "SupFsys.h"
#include "SupWizVbs.h"
#include "TxtGlb.h"

namespace zw {

namespace {
// The registry group of FxRegGrpPrp, shared by the whole program.
Tx gRegGrp;

Tx T(const SupWizVbs::Lis& a, size_t k) { return TxVar(SupWizVbs::Arg(a, k)); }
// A flag argument as a 16-bit integer, rounded half to even as the script language
// rounds to an integer.
int16_t I(const SupWizVbs::Lis& a, size_t k) {
  double d = std::nearbyint(NuDbl(SupWizVbs::Arg(a, k)));
  return int16_t(std::fmax(-32768, std::fmin(32767, d)));
}
}  // namespace

SupFsys& SupWizVbs::Fsys() {
  if (!mFsys) {
    mFsys = std::make_shared<SupFsys>();
    mFsys->FxIni();
  }
  return *mFsys;
}

// The debug box of an operation: only with the debug mode at 1; a given result
// follows the text as " (Resultado=...)".
void SupWizVbs::DbgVer(const Tx& tx, const Var& res) {
  if (mDbg != 1) return;
  Tx t = tx;
  if (!res.EhFalta()) t += u" (Resultado=" + TxVar(res) + u")";
  int r = 0;
  MsgExe(u"", u"", t, r);
}

// Where a log of what scripts did would be written; the texts are built on every
// call and dropped here.
void SupWizVbs::FxLogReg(const Tx& tx, const Var& res) { (void)tx, (void)res; }

void SupWizVbs::OpcRegAltAttr(Lis& a, Var&) { mAtrRst = I(a, 0); }

void SupWizVbs::DbgMsgSit(Lis& a, Var&) { mDbg = I(a, 0); }

void SupWizVbs::DbgMsgVer(Lis& a, Var&) { DbgVer(T(a, 0), Arg(a, 1)); }

void SupWizVbs::TxCnv(Lis& a, Var& res) { res = Var(T(a, 0)); }

// The number as text, left-filled to the width with the fill's first character and
// cut to the width from the left; a negative number is filled with blanks.
void SupWizVbs::TxNum(Lis& a, Var& res) {
  Var v;
  NuVar(Arg(a, 0), v);
  Tx t;
  NuTxPad(v, NuLng(std::nearbyint(NuDbl(Arg(a, 1)))), T(a, 2), t);  // the width rounds as CInt does
  res = Var(t);
}

// The part before the first separator into the token, the rest back into the text;
// without a separator the token takes all and the text is left empty.
void SupWizVbs::TxSep(Lis& a, Var&) {
  Tx t = T(a, 0), tok;
  int ach = 0;
  TxTokSeg(t, T(a, 1), tok, ach);
  Poe(a, 0, Var(t));
  Poe(a, 2, Var(tok));
}

void SupWizVbs::NuTxSep(Lis& a, Var&) {
  Tx t = T(a, 0);
  Var n = Var(0.0);
  TxTokNu(t, T(a, 1), n);
  Poe(a, 0, Var(t));
  Poe(a, 2, n);
}

// The value of the item "[KEY=value]"; the key is looked for in capitals.
void SupWizVbs::TxOpc(Lis& a, Var& res) {
  Var v = Var(Tx());
  int ach = 0;
  OpcTxCon(T(a, 0), TxMai(T(a, 1)), v, ach);
  res = v;
}

void SupWizVbs::TxOpcNum(Lis& a, Var& res) {
  TxOpc(a, res);
  res = Var(NuVal(TxVar(res)));
}

// Converts the value to a number and drops it: always the empty text.
void SupWizVbs::NuCnv(Lis& a, Var& res) {
  Var v;
  NuVar(Arg(a, 0), v);
  res = Var(Tx());
}

void SupWizVbs::MsgVer(Lis& a, Var&) {
  int r = 0;
  MsgExe(u"", T(a, 0), T(a, 1), r);
}

// 1 OK or Yes, 0 No, -1 Cancel.
void SupWizVbs::MsgTip(Lis& a, Var& res) {
  int r = 0;
  MsgExe(T(a, 0), T(a, 1), T(a, 2), r);
  res = Var(int16_t(r));
}

void SupWizVbs::MsgSba(Lis& a, Var&) {
  Var n;
  NuVar(Arg(a, 0), n);
  (void)T(a, 1);
}

void SupWizVbs::FxRegGrpPrp(Lis& a, Var&) { gRegGrp = T(a, 0); }

// A text value of the current group under HKEY_LOCAL_MACHINE, with every blank and
// every character of code 0 taken out wherever they stand.
void SupWizVbs::FxRegVarCon(Lis& a, Var& res) {
  Tx t;
  TxChrLimpa(0, RegVarLer(kHklm, gRegGrp, T(a, 0)), Tx(u" \0", 2), t);
  res = Var(t);
}

}  // namespace zw
