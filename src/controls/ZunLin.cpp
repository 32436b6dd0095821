// The line: its two ends in twips, its colour and width, and its drawing.
#include "ZunLin.h"
#include <QPainter>

namespace zw {

namespace {

// The names a line lacks although every other control has them.
bool SemNoLin(TxV nome) {
  for (const char16_t* n : {u"Left", u"Top", u"Width", u"Height", u"FontName", u"FontSize", u"FontBold",
                            u"FontItalic", u"BackColor", u"ForeColor"})
    if (PrpIgual(nome, n)) return true;
  return false;
}

// Which end and axis a name "X1".."Y2" gives: the end's coordinate, or null.
int* Coord(QPoint& p1, QPoint& p2, TxV nome) {
  if (PrpIgual(nome, u"X1")) return &p1.rx();
  if (PrpIgual(nome, u"Y1")) return &p1.ry();
  if (PrpIgual(nome, u"X2")) return &p2.rx();
  if (PrpIgual(nome, u"Y2")) return &p2.ry();
  return nullptr;
}

// The axis of such a name: 'Y' for "Y1" and "Y2", 'X' for the others.
char Eixo(TxV nome) { return nome[0] == u'Y' || nome[0] == u'y' ? 'Y' : 'X'; }

}  // namespace

ZunLin::ZunLin(QWidget* pai) : QWidget(pai), CtlQt(this) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  Ajusta();
}

void ZunLin::Pontos(QPoint p1, QPoint p2) {
  p1_ = p1;
  p2_ = p2;
  Ajusta();
}

// Half the pen's width around the ends, so a thick line is not cut at the edges.
void ZunLin::Ajusta() {
  int m = (esp_ + 1) / 2;
  setGeometry(QRect(p1_, p2_).normalized().adjusted(-m, -m, m, m));
  update();
}

bool ZunLin::PrpTipCon(TxV nome, Var& v) const {
  QPoint a = p1_, b = p2_;
  if (const int* c = Coord(a, b, nome)) {
    v = Var(PxTwp(*c, Eixo(nome)));
    return true;
  }
  if (PrpIgual(nome, u"BorderColor")) {
    v = Var(int32_t(corLin_));
    return true;
  }
  if (PrpIgual(nome, u"BorderWidth")) {
    v = Var(int16_t(esp_));
    return true;
  }
  if (SemNoLin(nome)) throw CtlErr(438, "object doesn't support this property or method");
  return false;
}

bool ZunLin::PrpTipAtr(TxV nome, const Var& v) {
  if (int* c = Coord(p1_, p2_, nome)) {
    double d = PrpNum(v);
    if (!(d > -1e9 && d < 1e9)) throw CtlErr(380, "invalid property value");
    *c = TwpPx(d, Eixo(nome));
    Ajusta();
    return true;
  }
  if (PrpIgual(nome, u"BorderColor")) {
    corLin_ = PrpCor(v);
    update();
    return true;
  }
  if (PrpIgual(nome, u"BorderWidth")) {
    double d = PrpNum(v);
    if (!(d >= 1 && d <= 8192)) throw CtlErr(380, "invalid property value");
    esp_ = int(d);
    Ajusta();
    return true;
  }
  if (SemNoLin(nome)) throw CtlErr(438, "object doesn't support this property or method");
  return false;
}

void ZunLin::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setPen(QPen(CorQt(corLin_), esp_, Qt::SolidLine, esp_ > 1 ? Qt::RoundCap : Qt::SquareCap));
  p.drawLine(p1_ - pos(), p2_ - pos());
}

}  // namespace zw
