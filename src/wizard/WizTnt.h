// WizTnt: one step of navigation, tried. The wizard's clicks pass over a step that
// fails and go on with the next, so that a click never brings the window down; a
// step is what a statement of the click's procedure does. The failure passed over
// goes to the diagnostic trace as "SupWiz: <step>: <reason>" (Trc.h), where step is
// a short label of what was tried ("PagEsc 3", "TraFx \"FxSeg\""); the label is
// read only on a failure, so the caller may still change it while the step runs.
#pragma once
#include <exception>
#include "Trc.h"
#include "Tx.h"

namespace zw {

template <class F>
void WizTnt(const Tx& oque, F&& f) {
  try {
    f();
  } catch (const std::exception& e) {
    TrcFal(u"SupWiz", oque, e);
  }
}

}  // namespace zw
