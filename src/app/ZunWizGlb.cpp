// The shared window procedures.
#include "ZunWizGlb.h"
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include "Twp.h"

namespace zw {

void EcrDpiLer() {
  if (const QScreen* ecr = QGuiApplication::primaryScreen())
    TwpDpiDef(ecr->logicalDotsPerInchX(), ecr->logicalDotsPerInchY());
}

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
