// CtlBtn: a command button of the window seen as a control by name.
// The window makes its own QPushButton; this wraps it so that the engine and the
// scripts reach "Caption", "Visible", "Enabled", the font and the geometry as on
// the other controls. "&" in a caption marks the access key.
#pragma once
#include "CtlQt.h"

class QPushButton;

namespace zw {

class CtlBtn : public CtlQt {
 public:
  explicit CtlBtn(QPushButton* b);
  QPushButton* Btn() const;

 protected:
  bool PrpTipCon(TxV nome, Var& v) const override;
  bool PrpTipAtr(TxV nome, const Var& v) override;
};

}  // namespace zw
