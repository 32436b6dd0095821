// ZunWizCtl: the controls of the wizard window's arrays and its buttons, and the
// factory that makes them. Each control is a Qt widget that is also a CtlObj, so
// the engine reaches it by property and method names and the window places it as
// any widget. The window asks the factory for a control of a kind and never looks
// at its class: another set of widgets is put in force with CtlFabDef.
#pragma once
#include <QWidget>
#include "WizFrm.h"

class QPushButton;

namespace zw {

// Makes one control of an array, a child of the window, hidden.
using CtlFab = QWidget* (*)(QWidget* pai);

// The factory of an array in force, and its replacement (null puts back the
// window's own plain control of that kind).
CtlFab CtlFabCon(CtlArr arr);
void CtlFabDef(CtlArr arr, CtlFab fab);

// The window's own plain controls: label, check box, read-only rich-text box and
// option group, each a widget that is a CtlObj.
QWidget* CtlLabCri(QWidget* pai);
QWidget* CtlCkbCri(QWidget* pai);
QWidget* CtlRtfCri(QWidget* pai);
QWidget* CtlOpcCri(QWidget* pai);

// A navigation button: a push button with the properties of a control.
QPushButton* CtlBtnCri(QWidget* pai, const QString& cap);

// The control of a widget made by a factory (null when it is not one).
inline CtlObj* CtlDe(QWidget* w) { return dynamic_cast<CtlObj*>(w); }

// The number a property value holds: a text is read as its leading number.
double CtlNum(const Var& v);

}  // namespace zw
