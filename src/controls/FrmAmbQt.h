// FrmAmbQt: the form layout's view of Qt windows (FrmAmb over CtlQt).
// A control's name is its widget's objectName; its container is its parent widget;
// a form is a widget that is a window of its own; the screen is the primary
// screen, in twips at the twips a pixel of every control (Twp.h), so the sizes the
// layout works out land on the same pixels the controls use.
//
// The layout reaches a container as a CtlObj. A widget that is itself a control
// (a label, a line, an option group...) is its own wrapper; a wrapper made apart
// from its widget (a button's CtlBtn, a form's CtlQt) is made known with Reg; any
// other container (a plain frame, the form when none was given) gets a wrapper
// made and kept here, until its widget is destroyed.
#pragma once
#include <QObject>
#include <memory>
#include <unordered_map>
#include "CtlQt.h"
#include "SupFrm.h"

namespace zw {

class FrmAmbQt : public FrmAmb {
 public:
  FrmAmbQt() = default;
  FrmAmbQt(const FrmAmbQt&) = delete;
  FrmAmbQt& operator=(const FrmAmbQt&) = delete;

  // Makes a wrapper known as its widget's control; it must outlive its use here or
  // its widget, whichever goes first.
  void Reg(CtlQt& c);
  // The control of a widget, as described above; null for no widget.
  CtlQt* Ctl(QWidget* w) const;

  Tx Nome(const CtlObj& ctl) const override;
  CtlObj* Contentor(const CtlObj& ctl) const override;
  bool EhFrm(const CtlObj& ob) const override;
  double EcrW() const override;
  double EcrH() const override;
  double PixX() const override { return TwpPix('X'); }
  double PixY() const override { return TwpPix('Y'); }

 private:
  void Segue(QWidget* w) const;  // forgets the widget's wrappers when it is destroyed
  mutable std::unordered_map<const QWidget*, CtlQt*> reg_;
  mutable std::unordered_map<const QWidget*, std::unique_ptr<CtlQt>> prp_;
  QObject ctx_;  // ends the watches when this goes
};

}  // namespace zw
