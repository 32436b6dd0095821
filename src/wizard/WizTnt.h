// WizTnt: one step of navigation, tried. The wizard's clicks pass over a step that
// fails and go on with the next, so that a click never brings the window down; a
// step is what a statement of the click's procedure does.
#pragma once
#include <exception>

namespace zw {

template <class F>
void WizTnt(F&& f) {
  try {
    f();
  } catch (const std::exception&) {
  }
}

}  // namespace zw
