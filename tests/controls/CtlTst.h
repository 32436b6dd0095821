// Helpers of the control tests: one off-screen QApplication, calls by name and
// the colour of a pixel as the window would show it.
#pragma once
#include <QApplication>
#include <QImage>
#include <QWidget>
#include <cstdlib>
#include "CtlObj.h"

namespace zw::tst {

inline void QtApp() {
  static int argc = 1;
  static char nome[] = "test_controls";
  static char* argv[] = {nome, nullptr};
  if (QApplication::instance()) return;
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  new QApplication(argc, argv);
}

// A window with a plain back colour, as a picture behind the controls would be.
inline QWidget* Janela(QColor fundo, int w = 400, int h = 300) {
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
