// SupWiz: the script host as the wizard drives it - its start on the window with
// "Wiz", the program of the "VBS" group, assignments, and calls of the script's
// functions. Refusals of the script engine are swallowed here, as everywhere.
#include "SupWiz.h"
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw {

// The host, made on first use.
VbsSup& SupWiz::VbsCri() {
  if (!mVbs) mVbs = std::make_unique<VbsSup>();
  return *mVbs;
}

// Starts the host clean on a new script control of the engine's own, bound to the
// window, and registers "Wiz"; a second attempt's RegFrm starts it again the same
// way, on a control of its own as its window is.
void SupWiz::VbsPrp() {
  VbsSup& h = VbsCri();
  h.FxFim();
  h.VbsIni();
  h.FxIni();
  mSc = std::make_shared<vbs::ScriptControl>();
  h.VbsRegSup(mFrm, mSc);
  int16_t ok = 0;
  h.RegObPrp(u"N", u"Wiz", mWizVbs->Ob(), ok);
  h.VbsIni();
}

// Ends the host and lets go of it and of the script control.
void SupWiz::VbsFim() {
  if (!mVbs) return;
  mVbs->FxFim();
  mVbs.reset();
  mSc.reset();
}

void SupWiz::VbsObReg(const Tx& nome, const Var& ob) {
  int16_t ok = 0;
  VbsCri().RegObPrp(u"N", nome, ob, ok);
  VbsCri().VbsIni();
}

// The program of a "VBS" group replaces any earlier one, with all script variables.
// num gives the option file's line of each line, for the trace of script errors.
void SupWiz::VbsPgmReg(const std::vector<Tx>& lin, const std::vector<int32_t>* num) {
  VbsSup& h = VbsCri();
  h.VbsIni();
  int16_t ok = 0;
  h.PgmRegArr(1, lin, ok, num);
}

// One assignment "name=value": the value goes as an expression (flag 0) or as a
// text literal (flag 1). A statement the engine refuses assigns nothing.
void SupWiz::VbsVarAtr(const Tx& nome, const Var& val, int flag) {
  Tx v = TxVar(val);
  if (flag == 1) v = TxAspPut(v);
  int16_t ok = 0;
  VbsCri().ExeCmd(nome + u"=" + v, ok);
}

void SupWiz::VbsVarTx(const Tx& nome, const Var& val) { VbsVarAtr(nome, val, 1); }

// Runs a script function: element 0 of the list is its name, the rest its
// arguments. res is the function's value, or the run flag of a procedure.
void SupWiz::VbsExe(Lis& lst, Var& res) {
  Tx tip;
  VbsCri().SupVbsFx(lst, tip, res);
}

void SupWiz::VbsFx(Lis& lst, Var& res) { VbsExe(lst, res); }

void SupWiz::VbsExe(const Tx& nome) {
  Lis l{Var(nome)};
  Var r;
  VbsExe(l, r);
}

// The value of an expression: text when the expression ends in "$" or "T", else a number.
void SupWiz::VbsVar(const Tx& expr, Var& res) {
  Var v{Tx()};
  int16_t ok = 0;
  VbsCri().ExeCalc(expr, v, ok);
  VarAtr(v, res, expr);
}

}  // namespace zw
