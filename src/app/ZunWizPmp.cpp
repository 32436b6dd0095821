// The windows while a script runs: the pump, the question and the kept close.
#include "ZunWizPmp.h"
#include <QApplication>
#include <QPushButton>
#include <QEvent>
#include <QWidget>
#include "MsgDlg.h"
#include "VbsSup.h"
#include "ZunWizAsp.h"
#include "ZunWizFun.h"

namespace zw {

namespace {

long gEsp = 5000;        // the wait before the question, ms
bool gDentro = false;    // the pump is at work (events, the question)
bool gPed = false;       // a close or "Cancelar" waits for the question
uint64_t gPedNum = 0;    // the call it was asked in
bool gFec = false;       // a close is kept for when the wizard is idle
int gFecPrg = 0;         // closes by the program itself in hand

// The input a person gives a window with the mouse, the keyboard or a touch.
bool EntTip(QEvent::Type t) {
  switch (t) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
      return true;
    default:
      return false;
  }
}

// Drops a person's input to the wizard window and the background window while a
// script call runs; the wizard window's "Cancelar" alone takes it. Dropped, not
// kept for later: a click on a busy window does nothing, as a person expects of a
// button that did not move.
class PmpFil : public QObject {
 public:
  bool eventFilter(QObject* o, QEvent* e) override {
    if (!EntTip(e->type()) || !o->isWidgetType() || !PmpExeAct()) return false;
    QWidget* w = static_cast<QWidget*>(o);
    QWidget* top = w->window();
    if (auto* asp = dynamic_cast<ZunWizAsp*>(top)) return w != static_cast<QWidget*>(asp->cmCan);
    return dynamic_cast<ZunWizFun*>(top) != nullptr;
  }
};

// The pump, about every 100 ms of a script call: the windows' events, then the
// question when a close or "Cancelar" waits and the call is past the wait. A call
// started inside the pump (which nothing should start) waits for the outer one.
bool Pmp() {
  if (gDentro) return true;
  gDentro = true;
  QApplication::processEvents(QEventLoop::AllEvents);
  bool seg = true;
  if (gPed && gPedNum != VbsExeNum()) gPed = false;
  if (gPed && VbsExeMs() >= gEsp) {
    gPed = false;
    seg = MsgDlgAct().Caixa(kMsgYesNo | kMsgQuestion | kMsgDefault2, u"Wizzard", kPmpPrg) != kAnsYes;
  }
  gDentro = false;
  return seg;
}

// A close or "Cancelar" during a call: the question waits for the call's wait.
void PmpPed() {
  gPed = true;
  gPedNum = VbsExeNum();
}

}  // namespace

void PmpIni() {
  static bool feito = false;
  if (feito) return;
  feito = true;
  VbsPmpDef(Pmp, 100);
  if (qApp) qApp->installEventFilter(new PmpFil);
}

bool PmpExeAct() { return gDentro || VbsExeAct(); }

bool PmpFec() {
  if (gFecPrg > 0 || !PmpExeAct()) return true;
  gFec = true;
  if (VbsExeAct()) PmpPed();
  return false;
}

void PmpCan() {
  if (VbsExeAct()) PmpPed();
}

bool PmpFecTom() {
  const bool f = gFec;
  gFec = false;
  return f;
}

void PmpEspDef(long ms) { gEsp = ms < 0 ? 0 : ms; }

PmpFecPrg::PmpFecPrg() { gFecPrg++; }
PmpFecPrg::~PmpFecPrg() { gFecPrg--; }

}  // namespace zw
