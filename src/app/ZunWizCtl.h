// ZunWizCtl: where the wizard window's control arrays get their controls. Each
// array has a factory that makes one control of its kind, a widget that is also a
// CtlObj; the window asks the factory in force and never looks at the class, so a
// test or another set of widgets can put its own in place with CtlFabDef.
#pragma once
#include <QWidget>
#include "WizFrm.h"

namespace zw {

// Makes one control of an array, a child of the window, hidden.
using CtlFab = QWidget* (*)(QWidget* pai);

// The factory of an array in force, and its replacement (null puts back the
// controls' own: ZunLab, ZunCkb, ZunRtf, ZunOpc).
CtlFab CtlFabCon(CtlArr arr);
void CtlFabDef(CtlArr arr, CtlFab fab);

// The control of a widget made by a factory (null when it is not one).
inline CtlObj* CtlDe(QWidget* w) { return dynamic_cast<CtlObj*>(w); }

}  // namespace zw
