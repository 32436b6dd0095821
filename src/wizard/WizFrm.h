// WizFrm: the wizard window as the engine sees it.
// The engine has no window toolkit of its own: the program's window class derives
// from this interface, and the start-up hands it to SupWiz::RegFrm inside a
// zw::Var, as the window slot of an attempt holds it.
#pragma once
#include "Var.h"

namespace zw {

class SupWiz;

struct WizFrm : VarObj {
  // Runs the wizard on this window: keeps the engine, runs the script's "FxIni",
  // shows the window modally and returns once it has been unloaded.
  virtual void WizExe(SupWiz& eng) = 0;
};

// The window that a dynamic value holds, or null when it holds none.
inline WizFrm* WizFrmDe(const Var& v) {
  return v.EhObj() ? dynamic_cast<WizFrm*>(v.Obj().get()) : nullptr;
}

}  // namespace zw
