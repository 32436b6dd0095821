// One QApplication for the whole test program, made on first use. Without a
// platform named by the environment, the windows stay off screen.
#pragma once
#include <QApplication>
#include <cstdlib>

namespace zw::tst {

inline void QtApp() {
  static int argc = 1;
  static char nome[] = "zunwiz-test";
  static char* argv[] = {nome, nullptr};
  if (QApplication::instance()) return;
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  new QApplication(argc, argv);
}

}  // namespace zw::tst
