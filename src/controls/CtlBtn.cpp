// The command button by name.
#include "CtlBtn.h"
#include <QPushButton>
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

CtlBtn::CtlBtn(QPushButton* b) : CtlQt(b) { FonPoe(fonNom_, fonTam_, fonNeg_, fonIta_); }

QPushButton* CtlBtn::Btn() const { return static_cast<QPushButton*>(w_); }

bool CtlBtn::PrpTipCon(TxV nome, Var& v) const {
  if (!PrpIgual(nome, u"Caption")) return false;
  v = Var(TxQs(Btn()->text()));
  return true;
}

bool CtlBtn::PrpTipAtr(TxV nome, const Var& v) {
  if (!PrpIgual(nome, u"Caption")) return false;
  Btn()->setText(QsTx(TxVar(v)));
  return true;
}

}  // namespace zw
