// SupWiz: the wizard engine.
// The start-up creates one engine and, for each attempt, hands it the wizard
// window (RegFrm), builds the wizard from the option file (WizIni) and runs it
// (WizExe). A failure in reading or building throws; the start-up's attempt
// catches it and tries again.
#pragma once
#include "Var.h"
#include "WizFrm.h"

namespace zw {

class SupWiz {
 public:
  SupWiz();
  ~SupWiz();
  SupWiz(const SupWiz&) = delete;
  SupWiz& operator=(const SupWiz&) = delete;

  void FxIni();
  void FxFim();
  void RegFrm(const Var& frm);  // the wizard window of this attempt
  void WizIni(const Tx& fpa);   // reads the option file and builds the wizard
  void WizExe();                // runs the wizard on the window; returns when it has closed

  // The four buttons of the window.
  void TraAnt();
  void TraSeg();
  void TraCnf();
  void TraCan();
  // Runs the script functions of a list (as "FxIni"); errors are passed over.
  void VbsExe(const Tx& lista);

  WizFrm* Frm() const { return WizFrmDe(mFrm); }

 private:
  Var mFrm;
};

}  // namespace zw
