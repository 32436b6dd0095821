// The form layout's view of Qt windows: names, containers, forms and the screen.
#include "FrmAmbQt.h"
#include <QGuiApplication>
#include <QScreen>
#include "TxQt.h"

namespace zw {

namespace {

// The widget of a control; null for a control that is not a Qt one or has gone.
QWidget* WidDe(const CtlObj& c) {
  auto* q = dynamic_cast<const CtlQt*>(&c);
  return q ? q->Wid() : nullptr;
}

QSize TamEcr() {
  const QScreen* e = QGuiApplication::primaryScreen();
  return e ? e->geometry().size() : QSize(0, 0);
}

}  // namespace

void FrmAmbQt::Segue(QWidget* w) const {
  if (reg_.count(w) || prp_.count(w)) return;
  QObject::connect(w, &QObject::destroyed, &ctx_, [this, w] {
    reg_.erase(w);
    prp_.erase(w);
  });
}

void FrmAmbQt::Reg(CtlQt& c) {
  QWidget* w = c.Wid();
  if (!w) return;
  Segue(w);
  reg_[w] = &c;
  prp_.erase(w);
}

CtlQt* FrmAmbQt::Ctl(QWidget* w) const {
  if (!w) return nullptr;
  if (auto it = reg_.find(w); it != reg_.end()) return it->second;
  if (auto* c = dynamic_cast<CtlQt*>(w)) return c;
  if (auto it = prp_.find(w); it != prp_.end()) return it->second.get();
  Segue(w);
  return (prp_[w] = std::make_unique<CtlQt>(w)).get();
}

Tx FrmAmbQt::Nome(const CtlObj& ctl) const {
  QWidget* w = WidDe(ctl);
  return w ? TxQs(w->objectName()) : Tx();
}

// A window has no container; the layout then takes the form it was given.
CtlObj* FrmAmbQt::Contentor(const CtlObj& ctl) const {
  QWidget* w = WidDe(ctl);
  if (!w || w->isWindow()) return nullptr;
  return Ctl(w->parentWidget());
}

bool FrmAmbQt::EhFrm(const CtlObj& ob) const {
  QWidget* w = WidDe(ob);
  return w && w->isWindow();
}

double FrmAmbQt::EcrW() const { return PxTwp(TamEcr().width()); }
double FrmAmbQt::EcrH() const { return PxTwp(TamEcr().height(), 'Y'); }

}  // namespace zw
