// WizEng: what the script library needs of the wizard engine.
// The library sits below the engine, so it cannot call SupWiz itself: the engine
// implements this interface and hands itself to SupWizVbs when it makes the library.
// "Wiz.CmpVarCon" and "Wiz.CmpVarAlt" only forward to it.
#pragma once
#include "Var.h"

namespace zw {

struct WizEng {
  virtual ~WizEng() = default;
  // Publishes the values of the control of a component as script variables
  // ("cmpIde", "cmpFontName", "opcSel", "opcSelAdi"); res 1, or 0 on failure.
  virtual void CmpVarCon(const Var& nome, Var& res) = 0;
  // Changes one property of a control, by the property word ("POS", "DIM", "FON",
  // "COR", "ALN", "SIT", "TXT", "CHK"); res 1, or 0 when there is no such control or
  // the change fails.
  virtual void CmpVarAlt(const Var& nome, const Var& prp, const Var& val, Var& res) = 0;
};

}  // namespace zw
