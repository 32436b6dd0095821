// ZunCkb: the check box of the wizard window (the ckWiz array).
// Value 0 is clear, 1 checked, 2 greyed; the user's click changes it. As in the
// three-dimensional check box of the original window, BackStyle 1 is the
// transparent one and 0 paints the back colour.
#pragma once
#include <QCheckBox>
#include "CtlQt.h"

namespace zw {

class ZunCkb : public QCheckBox, public CtlQt {
 public:
  explicit ZunCkb(QWidget* pai = nullptr);

  int Value() const;
  void Value(int v);
  int BackStyle() const { return backStyle_; }
  void BackStyle(int b);

 protected:
  bool PrpTipCon(TxV nome, Var& v) const override;
  bool PrpTipAtr(TxV nome, const Var& v) override;
  void CorAct() override;

 private:
  int backStyle_ = 0;
};

}  // namespace zw
