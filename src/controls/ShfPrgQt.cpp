// The Qt progress dialog of copy, move and delete runs.
#include "ShfPrgQt.h"
#include <QApplication>
#include <algorithm>
#include <QProgressDialog>
#include "TxQt.h"

namespace zw {

ShfPrgQt::ShfPrgQt() = default;
ShfPrgQt::~ShfPrgQt() = default;

// The dialog counts bytes when the run knows them (a large file then moves the bar
// within itself), entries otherwise; it shows itself only when a run lasts.
void ShfPrgQt::Ini(const Tx& titulo, int op, int64_t itens, int64_t bytes) {
  totItens_ = itens;
  totBytes_ = bytes;
  int64_t tot = bytes > 0 ? bytes : itens;
  escala_ = 0;
  while ((tot >> escala_) > 0x3FFFFFFF) escala_++;
  const char16_t* acao = op == kShfEli ? u"A eliminar..." : op == kShfMov ? u"A mover..." : u"A copiar...";
  dlg_ = std::make_unique<QProgressDialog>(QsTx(acao), QStringLiteral("Cancelar"), 0, int(tot >> escala_),
                                           QApplication::activeWindow());
  dlg_->setWindowTitle(QsTx(titulo));
  dlg_->setWindowModality(Qt::ApplicationModal);
  dlg_->setAutoClose(false);
  dlg_->setAutoReset(false);
  dlg_->setMinimumDuration(500);
  dlg_->setValue(0);
  relogio_.invalidate();
}

// The window is brought up to date at most every 40 ms, so that a tree of many small
// files is not slowed down by drawing.
bool ShfPrgQt::Passo(const Tx& orig, const Tx& dest, int64_t itens, int64_t bytes) {
  if (!dlg_) return true;
  if (dlg_->wasCanceled()) return false;
  if (relogio_.isValid() && relogio_.elapsed() < 40) return true;
  relogio_.start();
  dlg_->setLabelText(QsTx(dest.empty() ? orig : orig + u"\n" + dest));
  int64_t v = totBytes_ > 0 ? bytes : itens;
  dlg_->setValue(int(std::min(v, totBytes_ > 0 ? totBytes_ : totItens_) >> escala_));
  QApplication::processEvents();
  return !dlg_->wasCanceled();
}

void ShfPrgQt::Fim(bool) { dlg_.reset(); }

}  // namespace zw
