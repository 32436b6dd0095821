// WizFrm: the wizard window as the engine sees it.
// The engine has no window toolkit of its own: the program's window class derives
// from this interface, and the start-up hands it to SupWiz::RegFrm inside a
// zw::Var, as the window slot of an attempt holds it.
//
// Controls are reached as the original window's controls were: by kind and index
// in a control array (the index of a component is the index of its control), and
// their properties and methods by name (CtlObj). Geometry is in twips.
//
// The window carries no script control: the engine makes its own and binds its
// script host to it and to the window (SupWiz::VbsPrp).
#pragma once
#include <memory>
#include "CtlObj.h"

namespace zw {

class SupWiz;

// The control arrays of the wizard window that components fill.
enum class CtlArr { Lab, Ckb, Rtf, Opc };  // laWiz, ckWiz, rtfWiz, ZunOpc

struct WizFrm : VarObj {
  // Runs the wizard on this window: keeps the engine, runs the script's "FxIni",
  // shows the window modally and returns once it has been unloaded.
  virtual void WizExe(SupWiz& eng) = 0;

  // The window itself: caption, picture and icon files (a file that cannot be
  // loaded is ignored), and the outer size in twips.
  virtual void Caption(const Tx& tx) = 0;
  virtual void Picture(const Tx& fic) = 0;
  virtual void Icon(const Tx& fic) = 0;
  virtual void Width(double twp) = 0;
  virtual void Height(double twp) = 0;

  // The four buttons by their exact names "cmAnt", "cmSeg", "cmCnf", "cmCan"; null
  // for any other name.
  virtual CtlObj* Btn(TxV nome) = 0;
  // Element i of a control array, or null when it is not loaded.
  virtual CtlObj* Ctl(CtlArr arr, int i) = 0;
  // Highest loaded index of an array (0 when only the design element is there).
  virtual int UBound(CtlArr arr) const = 0;
  // Loads element i of an array, invisible; throws CtlErr(360) if it is loaded already.
  virtual CtlObj* Load(CtlArr arr, int i) = 0;

  // Unloads the window (runs its unload, which runs the script's "FxFim").
  virtual void Unload() = 0;
  // Ends the process at once and silently, as going past the last page does.
  [[noreturn]] virtual void End() = 0;
  // Told when page idx (its identifier ide) has been entered; the window itself has
  // nothing to do with it, an unattended run traces it.
  virtual void PagEnt(int idx, const Tx& ide) { (void)idx; (void)ide; }
};

// The window that a dynamic value holds, or null when it holds none.
inline WizFrm* WizFrmDe(const Var& v) {
  return v.EhObj() ? dynamic_cast<WizFrm*>(v.Obj().get()) : nullptr;
}

}  // namespace zw
