// The check box: caption, Value and its colours.
#include "ZunCkb.h"
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

ZunCkb::ZunCkb(QWidget* pai) : QCheckBox(pai), CtlQt(this) {
  FonPoe(fonNom_, fonTam_, fonNeg_, fonIta_);
  CorAct();
}

int ZunCkb::Value() const {
  switch (checkState()) {
    case Qt::Checked: return 1;
    case Qt::PartiallyChecked: return 2;
    default: return 0;
  }
}

void ZunCkb::Value(int v) {
  if (v < 0 || v > 2) throw CtlErr(380, "invalid property value");
  if (v == 2) setTristate(true);
  setCheckState(v == 1 ? Qt::Checked : v == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
}

void ZunCkb::BackStyle(int b) {
  if (b < 0 || b > 1) throw CtlErr(380, "invalid property value");
  backStyle_ = b;
  CorAct();
}

// The text in the fore colour; the back colour only when opaque.
void ZunCkb::CorAct() {
  QPalette p = palette();
  p.setColor(QPalette::WindowText, CorQt(corTx_));
  p.setColor(QPalette::ButtonText, CorQt(corTx_));
  p.setColor(QPalette::Window, CorQt(corFun_));
  setPalette(p);
  setBackgroundRole(QPalette::Window);
  setAutoFillBackground(backStyle_ == 0);
  update();
}

bool ZunCkb::PrpTipCon(TxV nome, Var& v) const {
  if (PrpIgual(nome, u"Caption")) v = Var(TxQs(text()));
  else if (PrpIgual(nome, u"Value")) v = Var(int16_t(Value()));
  else if (PrpIgual(nome, u"BackStyle")) v = Var(int16_t(backStyle_));
  else return false;
  return true;
}

bool ZunCkb::PrpTipAtr(TxV nome, const Var& v) {
  if (PrpIgual(nome, u"Caption")) setText(QsTx(TxVar(v)));
  else if (PrpIgual(nome, u"Value")) Value(v.Tipo() == Var::K::Bool ? (v.Bool() ? 1 : 0) : int(PrpNum(v)));
  else if (PrpIgual(nome, u"BackStyle")) BackStyle(int(PrpNum(v)));
  else return false;
  return true;
}

}  // namespace zw
