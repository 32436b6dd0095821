// ShfPrgQt: the progress window of the file operations in the Qt program. A run
// shows a progress dialog titled with the operation's CustomText, a line naming the
// entry in hand, and a Cancel button; Cancel makes the run stop and answer 0.
// Installed by the zunwiz program at start with zw::ShfPrgDef.
#pragma once
#include <QElapsedTimer>
#include <memory>
#include "SupShfPrg.h"

class QProgressDialog;

namespace zw {

class ShfPrgQt : public ShfPrg {
 public:
  ShfPrgQt();
  ~ShfPrgQt() override;
  void Ini(const Tx& titulo, int op, int64_t itens, int64_t bytes) override;
  bool Passo(const Tx& orig, const Tx& dest, int64_t itens, int64_t bytes) override;
  void Fim(bool ok) override;
  // The dialog of the run in hand, null between runs.
  QProgressDialog* Dlg() const { return dlg_.get(); }

 private:
  std::unique_ptr<QProgressDialog> dlg_;
  int64_t totItens_ = 0, totBytes_ = 0;
  int escala_ = 0;
  QElapsedTimer relogio_;  // since the window was last brought up to date  // bits the counts are shifted right by to fit the dialog's int range
};

}  // namespace zw
