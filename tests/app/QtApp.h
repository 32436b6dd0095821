// One QApplication for the whole test program, made on first use.
#pragma once
#include <QApplication>

inline void QtApp() {
  static int argc = 1;
  static char nome[] = "test_app";
  static char* argv[] = {nome, nullptr};
  if (!QApplication::instance()) new QApplication(argc, argv);
}
