// ZunLin: a line of a form, drawn between two points of its parent, (X1, Y1) and
// (X2, Y2) in twips. Forms use lines as movable marks: the form layout moves their
// ends when the form resizes and places other controls by them. The widget spans
// the two ends and lets the mouse through to what lies below it. By name: "X1",
// "Y1", "X2", "Y2", "BorderColor" (a colour number), "BorderWidth" (pixels),
// "Visible", "Enabled", "ZOrder"; a line has no place or size of its own, so
// "Left", "Top", "Width", "Height", the font and the back and fore colours are
// error 438, as on the line control forms were made with.
#pragma once
#include <QWidget>
#include "CtlQt.h"

namespace zw {

class ZunLin : public QWidget, public CtlQt {
 public:
  explicit ZunLin(QWidget* pai = nullptr);

  // The ends in the parent's pixels.
  QPoint P1() const { return p1_; }
  QPoint P2() const { return p2_; }
  void Pontos(QPoint p1, QPoint p2);

 protected:
  bool PrpTipCon(TxV nome, Var& v) const override;
  bool PrpTipAtr(TxV nome, const Var& v) override;
  void paintEvent(QPaintEvent* e) override;

 private:
  void Ajusta();  // puts the widget over the two ends, with room for the pen
  QPoint p1_, p2_;
  int esp_ = 1;
  long corLin_ = 0x80000008;  // window text
};

}  // namespace zw
