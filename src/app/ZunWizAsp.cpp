// The wizard window.
#include "ZunWizAsp.h"
#include <QKeyEvent>
#include <QPushButton>
#include <cstdlib>
#include "SupWiz.h"
#include "TxQt.h"
#include "ZunWizArt.h"
#include "ZunWizGlb.h"

namespace zw {

// Design client size, in twips.
constexpr int kDesW = 8310, kDesH = 5970;

ZunWizAsp::ZunWizAsp() {
  setObjectName(QStringLiteral("ZunWizAsp"));
  setWindowTitle(QStringLiteral("Wizzard"));
  setWindowIcon(ArtIco());
  resize(TwpPx(kDesW), TwpPx(kDesH));
  // A button at its design place (twips) that hands its click to the engine.
  auto botao = [this](const char* nome, const char* cap, int left, void (SupWiz::*tra)()) {
    auto* b = new QPushButton(QString::fromUtf8(cap), this);
    b->setObjectName(QString::fromLatin1(nome));
    b->setAutoDefault(false);
    b->setGeometry(TwpPx(left), TwpPx(5490), TwpPx(1275), TwpPx(360));
    connect(b, &QPushButton::clicked, this, [this, tra] {
      if (SupWiz* sup = mSup) (sup->*tra)();
    });
    return b;
  };
  cmAnt = botao("cmAnt", "< Anterior", 2595, &SupWiz::TraAnt);
  cmSeg = botao("cmSeg", "Seguinte >", 4050, &SupWiz::TraSeg);
  cmCnf = botao("cmCnf", "Confirmar", 5490, &SupWiz::TraCnf);
  cmCan = botao("cmCan", "Cancelar", 6930, &SupWiz::TraCan);
}

ZunWizAsp::~ZunWizAsp() = default;

void ZunWizAsp::FormLoad() {
  Carga = 1;
  FrmEleva(this);
  Carga = 0;
}

// Runs the script's "FxIni" and shows the window modally; returns once it is unloaded.
void ZunWizAsp::WizExe(SupWiz& eng) {
  mSup = &eng;
  mSup->VbsExe(u"FxIni");
  exec();
  mSup = nullptr;
}

void ZunWizAsp::Caption(const Tx& tx) { setWindowTitle(QsTx(tx)); }
void ZunWizAsp::Width(double twp) { resize(TwpPx(int(twp)), height()); }
void ZunWizAsp::Height(double twp) { resize(width(), TwpPx(int(twp))); }
void ZunWizAsp::End() { std::_Exit(0); }

void ZunWizAsp::FrmPrep(const Tx& pal, int16_t& st) {
  (void)st;
  if (pal == u"INI") {
  } else if (pal == u"FIM") {
  }
}

// The unload runs the script's "FxFim". It never refuses, so the close box ends
// the wizard without a question.
void ZunWizAsp::FormUnload() {
  if (SupWiz* sup = mSup) sup->VbsExe(u"FxFim");
  mSup = nullptr;
}

void ZunWizAsp::done(int r) {
  if (isVisible()) FormUnload();
  QDialog::done(r);
}

void ZunWizAsp::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() == QEvent::ActivationChange && isActiveWindow()) raise();
}

// Escape is a key like any other here: only the buttons and the close box end the wizard.
void ZunWizAsp::keyPressEvent(QKeyEvent* e) {
  if (e->key() == Qt::Key_Escape) {
    e->ignore();
    return;
  }
  QDialog::keyPressEvent(e);
}

}  // namespace zw
