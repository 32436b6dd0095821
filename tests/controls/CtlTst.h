// Helpers of the control tests: calls by name and the colour of a pixel as the
// window would show it (the off-screen QApplication is tests/support's QtApp).
#pragma once
#include <QApplication>
#include <QImage>
#include <QWidget>
#include <cstdlib>
#include "CtlObj.h"
#include "QtApp.h"

namespace zw::tst {

// A window with a plain back colour, as a picture behind the controls would be
// (the application made first when there is none yet).
inline QWidget* Janela(QColor fundo, int w = 400, int h = 300) {
  QtApp();
  auto* j = new QWidget;
  QPalette p = j->palette();
  p.setColor(QPalette::Window, fundo);
  j->setPalette(p);
  j->setAutoFillBackground(true);
  j->resize(w, h);
  return j;
}

// The colour of the window's pixel (x, y) with all its children drawn.
inline QColor Pixel(QWidget* janela, int x, int y) { return janela->grab().toImage().pixelColor(x, y); }

// The error number a call raises, 0 when it raises none.
template <class F>
int ErrNum(F f) {
  try {
    f();
  } catch (const CtlErr& e) {
    return e.num;
  }
  return 0;
}

inline double Num(const CtlObj& c, const char16_t* nome) { return c.PrpCon(nome).Num(); }

}  // namespace zw::tst
