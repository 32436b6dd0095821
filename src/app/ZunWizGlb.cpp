// The program's variables and the shared window procedures.
#include "ZunWizGlb.h"
#include <QGuiApplication>
#include <QWidget>
#include <cmath>

namespace zw {

Tx DirExe;
Tx LinCmd;
std::unique_ptr<SupWiz> gSup;
ZunWizFun* gFun = nullptr;

int TwpPx(int twp) { return int(std::lround(double(twp) / kTwpPx)); }
int PxTwp(int px) { return px * kTwpPx; }

// True where a program may make its window topmost (X11, Windows).
static bool TopoPode() {
  const QString p = QGuiApplication::platformName();
  return p == u"xcb" || p == u"windows";
}

void FrmEleva(QWidget* w) {
  if (!w->isVisible()) {
    if (TopoPode()) w->setWindowFlag(Qt::WindowStaysOnTopHint, true);
    return;
  }
  w->raise();
  w->activateWindow();
}

// Changing the flag re-creates the native window, which hides it: it is shown again.
void FrmElevaFim(QWidget* w) {
  if (w->windowFlags() & Qt::WindowStaysOnTopHint) {
    w->setWindowFlag(Qt::WindowStaysOnTopHint, false);
    w->show();
  }
  w->raise();
  w->activateWindow();
}

}  // namespace zw
