// The label: caption, alignment, the AutoSize and WordWrap rules, transparency.
#include "ZunLab.h"
#include <QPainter>
#include <climits>
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

ZunLab::ZunLab(QWidget* pai) : QWidget(pai), CtlQt(this) {
  FonPoe(fonNom_, fonTam_, fonNeg_, fonIta_);
}

void ZunLab::Caption(const QString& c) {
  cap_ = c;
  Ajusta();
  update();
}

void ZunLab::Alignment(int a) {
  if (a < 0 || a > 2) throw CtlErr(380, "invalid property value");
  aln_ = a;
  update();
}

void ZunLab::AutoSize(bool b) {
  autoSize_ = b;
  Ajusta();
}

void ZunLab::WordWrap(bool b) {
  wordWrap_ = b;
  Ajusta();
}

void ZunLab::BackStyle(int b) {
  if (b < 0 || b > 1) throw CtlErr(380, "invalid property value");
  backStyle_ = b;
  update();
}

// "&" marks the access key, "&&" is an ampersand; text always wraps at words.
int ZunLab::Flags() const {
  int a = aln_ == 1 ? Qt::AlignRight : aln_ == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
  return a | Qt::AlignTop | Qt::TextWordWrap | Qt::TextShowMnemonic;
}

QString ZunLab::TxDesenho() const {
  QString s = cap_;
  s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  s.replace(QChar(u'\r'), QChar(u'\n'));
  return s;
}

// With AutoSize the label fits its text: with WordWrap the width stays and the
// height follows the wrapped lines; without it, the widest line gives the width.
void ZunLab::Ajusta() {
  if (!autoSize_ || ajustando_) return;
  ajustando_ = true;
  QFontMetrics fm(font());
  QString s = TxDesenho();
  int linha = fm.height();
  if (wordWrap_) {
    QRect r = fm.boundingRect(QRect(0, 0, std::max(1, width()), INT_MAX / 4), Flags(), s);
    resize(width(), s.isEmpty() ? linha : std::max(linha, r.height()));
  } else {
    QRect r = fm.boundingRect(QRect(0, 0, INT_MAX / 4, INT_MAX / 4), Flags() & ~Qt::TextWordWrap, s);
    resize(s.isEmpty() ? 0 : r.width(), s.isEmpty() ? linha : std::max(linha, r.height()));
  }
  ajustando_ = false;
}

void ZunLab::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  if (wordWrap_) Ajusta();
}

void ZunLab::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (backStyle_ == 1) p.fillRect(rect(), CorQt(corFun_));
  p.setPen(CorQt(corTx_));
  p.setFont(font());
  p.drawText(rect(), Flags(), TxDesenho());
}

bool ZunLab::PrpTipCon(TxV nome, Var& v) const {
  if (PrpIgual(nome, u"Caption")) v = Var(TxQs(cap_));
  else if (PrpIgual(nome, u"Alignment")) v = Var(int16_t(aln_));
  else if (PrpIgual(nome, u"AutoSize")) v = Var(autoSize_);
  else if (PrpIgual(nome, u"WordWrap")) v = Var(wordWrap_);
  else if (PrpIgual(nome, u"BackStyle")) v = Var(int16_t(backStyle_));
  else return false;
  return true;
}

bool ZunLab::PrpTipAtr(TxV nome, const Var& v) {
  if (PrpIgual(nome, u"Caption")) Caption(QsTx(TxVar(v)));
  else if (PrpIgual(nome, u"Alignment")) Alignment(int(PrpNum(v)));
  else if (PrpIgual(nome, u"AutoSize")) AutoSize(PrpBool(v));
  else if (PrpIgual(nome, u"WordWrap")) WordWrap(PrpBool(v));
  else if (PrpIgual(nome, u"BackStyle")) BackStyle(int(PrpNum(v)));
  else return false;
  return true;
}

}  // namespace zw
