// Drawing of the windows' artwork: a deep blue and amber scheme on white. The
// frame of the background window is two brackets, upper left and lower right,
// whose edges fade out towards their open ends, since only the corner pieces
// follow the window's size.
#include "ZunWizArt.h"
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

namespace zw {

namespace {

const QColor kAzul(0x1f, 0x3a, 0x68);
const QColor kAzulCl(0x3d, 0x6f, 0xb6);
const QColor kAmbar(0xe8, 0x9a, 0x1c);

// A transparent pixmap of the size, with a painter ready on it.
QPixmap Vazia(QSize px) {
  QPixmap p(px);
  p.fill(Qt::transparent);
  return p;
}

// An edge of the frame: a band with a thin amber line on its inner side, fading
// from solid at the end next to its corner to nothing at the other end.
QPixmap Borda(QSize px, Qt::Orientation o, bool solidoNoInicio, bool interiorNoFim) {
  QPixmap pix = Vazia(px);
  QPainter g(&pix);
  g.setRenderHint(QPainter::Antialiasing);
  const bool hor = o == Qt::Horizontal;
  const double len = hor ? px.width() : px.height();
  const double esp = hor ? px.height() : px.width();
  QPointF a(0, 0), b = hor ? QPointF(len, 0) : QPointF(0, len);
  if (!solidoNoInicio) std::swap(a, b);
  QLinearGradient fade(a, b);
  QColor c0 = kAzul, c1 = kAzul;
  c1.setAlpha(0);
  fade.setColorAt(0, c0);
  fade.setColorAt(0.55, QColor(kAzul.red(), kAzul.green(), kAzul.blue(), 150));
  fade.setColorAt(1, c1);
  // The band covers the outer 60% of the thickness; the amber line sits beside it.
  const double band = esp * 0.6, linha = esp * 0.12, gap = esp * 0.1;
  const double b0 = interiorNoFim ? 0 : esp - band;
  const double l0 = interiorNoFim ? band + gap : esp - band - gap - linha;
  QRectF rb = hor ? QRectF(0, b0, len, band) : QRectF(b0, 0, band, len);
  QRectF rl = hor ? QRectF(0, l0, len, linha) : QRectF(l0, 0, linha, len);
  g.fillRect(rb, fade);
  QLinearGradient fadeL(a, b);
  QColor a1 = kAmbar;
  a1.setAlpha(0);
  fadeL.setColorAt(0, kAmbar);
  fadeL.setColorAt(1, a1);
  g.fillRect(rl, fadeL);
  return pix;
}

// A corner of the frame: the two bands meeting in a quarter circle, with the
// amber line following them, and a small amber stud in the corner.
QPixmap Canto(QSize px, bool superiorEsquerdo) {
  QPixmap pix = Vazia(px);
  QPainter g(&pix);
  g.setRenderHint(QPainter::Antialiasing);
  const double s = px.width();
  if (!superiorEsquerdo) {  // the lower right corner is the upper left one turned half round
    g.translate(s, px.height());
    g.rotate(180);
  }
  const double band = s * 0.6, gap = s * 0.1, linha = s * 0.12;
  QPainterPath p;
  p.moveTo(s, 0);
  p.lineTo(s * 0.5, 0);
  p.arcTo(QRectF(0, 0, s, s), 90, 90);
  p.lineTo(0, s);
  p.lineTo(band, s);
  p.lineTo(band, band);
  p.lineTo(s, band);
  p.closeSubpath();
  g.fillPath(p, kAzul);
  g.setPen(QPen(kAmbar, linha, Qt::SolidLine, Qt::FlatCap));
  const double r = band + gap + linha / 2;
  g.drawLine(QPointF(r, s), QPointF(r, r));
  g.drawLine(QPointF(r, r), QPointF(s, r));
  g.setPen(Qt::NoPen);
  g.setBrush(kAmbar);
  g.drawEllipse(QPointF(band * 0.55, band * 0.55), s * 0.09, s * 0.09);
  return pix;
}

// The maker's logo: the name in heavy letters with an amber wand and star.
QPixmap Logo(QSize px) {
  QPixmap pix = Vazia(px);
  QPainter g(&pix);
  g.setRenderHint(QPainter::Antialiasing);
  g.setRenderHint(QPainter::TextAntialiasing);
  const double h = px.height();
  // A star at the left, on the tip of a slanted wand.
  QPainterPath estrela;
  const QPointF c(h * 0.55, h * 0.42);
  for (int i = 0; i < 10; i++) {
    double ang = -M_PI / 2 + i * M_PI / 5, r = (i % 2 ? 0.16 : 0.36) * h;
    QPointF q(c.x() + r * std::cos(ang), c.y() + r * std::sin(ang));
    i ? estrela.lineTo(q) : estrela.moveTo(q);
  }
  estrela.closeSubpath();
  g.setPen(QPen(kAzul, h * 0.07, Qt::SolidLine, Qt::RoundCap));
  g.drawLine(QPointF(c.x() + h * 0.1, c.y() + h * 0.12), QPointF(c.x() + h * 0.55, h * 0.9));
  g.setPen(Qt::NoPen);
  g.setBrush(kAmbar);
  g.drawPath(estrela);
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setBold(true);
  f.setPixelSize(int(h * 0.62));
  g.setFont(f);
  QLinearGradient grad(0, 0, 0, h);
  grad.setColorAt(0, kAzulCl);
  grad.setColorAt(1, kAzul);
  QPainterPath txt;
  txt.addText(QPointF(h * 1.25, h * 0.72), f, QStringLiteral("ZunWiz"));
  g.fillPath(txt, grad);
  QFont f2 = f;
  f2.setBold(false);
  f2.setPixelSize(int(h * 0.22));
  g.setFont(f2);
  g.setPen(kAzul);
  const double x2 = h * 1.3 + txt.boundingRect().width() + h * 0.25;
  g.drawText(QPointF(x2, h * 0.45), QStringLiteral("assistente de instalação"));
  g.setPen(QPen(kAmbar, h * 0.035));
  g.drawLine(QPointF(x2, h * 0.58), QPointF(px.width() - h * 0.2, h * 0.58));
  return pix;
}

// The central emblem: rings, a wizard's hat and stars, in the window's colours.
QPixmap Emblema(QSize px) {
  QPixmap pix = Vazia(px);
  QPainter g(&pix);
  g.setRenderHint(QPainter::Antialiasing);
  const double w = px.width(), h = px.height(), r = std::min(w, h) * 0.46;
  const QPointF c(w / 2, h / 2);
  QRadialGradient fundo(c, r);
  fundo.setColorAt(0, QColor(0xee, 0xf3, 0xfa));
  fundo.setColorAt(1, QColor(0xd4, 0xe0, 0xf1));
  g.setPen(QPen(kAzul, r * 0.05));
  g.setBrush(fundo);
  g.drawEllipse(c, r, r);
  g.setPen(QPen(kAmbar, r * 0.02));
  g.setBrush(Qt::NoBrush);
  g.drawEllipse(c, r * 0.88, r * 0.88);
  // The hat: a curved cone on a brim.
  QPainterPath chapeu;
  chapeu.moveTo(c.x() - r * 0.42, c.y() + r * 0.38);
  chapeu.cubicTo(c.x() - r * 0.2, c.y() - r * 0.1, c.x() - r * 0.05, c.y() - r * 0.5, c.x() + r * 0.22,
                 c.y() - r * 0.66);
  chapeu.cubicTo(c.x() + r * 0.12, c.y() - r * 0.3, c.x() + r * 0.25, c.y() + r * 0.1, c.x() + r * 0.42,
                 c.y() + r * 0.38);
  chapeu.closeSubpath();
  QLinearGradient gc(c.x() - r * 0.4, c.y() - r * 0.6, c.x() + r * 0.4, c.y() + r * 0.4);
  gc.setColorAt(0, kAzulCl);
  gc.setColorAt(1, kAzul);
  g.setPen(Qt::NoPen);
  g.setBrush(gc);
  g.drawPath(chapeu);
  g.setBrush(kAzul);
  g.drawEllipse(QPointF(c.x(), c.y() + r * 0.42), r * 0.62, r * 0.12);
  g.setBrush(kAmbar);
  g.drawRect(QRectF(c.x() - r * 0.36, c.y() + r * 0.24, r * 0.72, r * 0.1));
  // Stars around the hat.
  auto estrela = [&](QPointF q, double s) {
    QPainterPath p;
    for (int i = 0; i < 10; i++) {
      double ang = -M_PI / 2 + i * M_PI / 5, rr = (i % 2 ? 0.4 : 1.0) * s;
      QPointF t(q.x() + rr * std::cos(ang), q.y() + rr * std::sin(ang));
      i ? p.lineTo(t) : p.moveTo(t);
    }
    p.closeSubpath();
    g.drawPath(p);
  };
  g.setBrush(kAmbar);
  estrela(QPointF(c.x() + r * 0.52, c.y() - r * 0.38), r * 0.13);
  estrela(QPointF(c.x() - r * 0.5, c.y() - r * 0.28), r * 0.09);
  estrela(QPointF(c.x() + r * 0.6, c.y() + r * 0.05), r * 0.07);
  return pix;
}

// The waiting artwork: "Aguarde" in light letters and a row of dots that grow
// in size and colour towards the right.
QPixmap Aguarde(QSize px) {
  QPixmap pix = Vazia(px);
  QPainter g(&pix);
  g.setRenderHint(QPainter::Antialiasing);
  const double w = px.width(), h = px.height();
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setItalic(true);
  f.setPixelSize(int(h * 0.42));
  g.setFont(f);
  g.setPen(kAzul);
  const QString tx = QStringLiteral("Aguarde, por favor");
  const double tw = g.fontMetrics().horizontalAdvance(tx);
  const int n = 7;
  const double passo = h * 0.42, x0 = w - n * passo - h * 0.2;
  g.drawText(QPointF(x0 - tw - h * 0.4, h * 0.64), tx);
  g.setPen(Qt::NoPen);
  for (int i = 0; i < n; i++) {
    double t = double(i) / (n - 1);
    QColor cor = QColor::fromRgbF(kAzulCl.redF() + (kAmbar.redF() - kAzulCl.redF()) * t,
                                  kAzulCl.greenF() + (kAmbar.greenF() - kAzulCl.greenF()) * t,
                                  kAzulCl.blueF() + (kAmbar.blueF() - kAzulCl.blueF()) * t);
    g.setBrush(cor);
    g.drawEllipse(QPointF(x0 + passo * (i + 0.5), h * 0.5), h * (0.06 + 0.07 * t), h * (0.06 + 0.07 * t));
  }
  g.setPen(QPen(QColor(kAzul.red(), kAzul.green(), kAzul.blue(), 60), 1));
  g.drawLine(QPointF(x0 - tw - h * 0.4, h * 0.86), QPointF(w - h * 0.2, h * 0.86));
  return pix;
}

// One icon size: the hat of the emblem on a rounded blue square.
QPixmap Icone(int s) {
  QPixmap pix = Vazia(QSize(s, s));
  QPainter g(&pix);
  g.setRenderHint(QPainter::Antialiasing);
  g.setPen(Qt::NoPen);
  g.setBrush(kAzul);
  g.drawRoundedRect(QRectF(0.5, 0.5, s - 1, s - 1), s * 0.2, s * 0.2);
  QPainterPath p;
  p.moveTo(s * 0.2, s * 0.78);
  p.lineTo(s * 0.56, s * 0.12);
  p.lineTo(s * 0.8, s * 0.78);
  p.closeSubpath();
  g.setBrush(QColor(0xee, 0xf3, 0xfa));
  g.drawPath(p);
  g.setBrush(kAmbar);
  g.drawRect(QRectF(s * 0.14, s * 0.74, s * 0.72, s * 0.12));
  return pix;
}

}  // namespace

QPixmap ArtImg(const QString& nome, QSize px) {
  if (nome == u"aguarde") return Aguarde(px);
  if (nome == u"Zun") return Logo(px);
  if (nome == u"TOR") return Emblema(px);
  if (nome == u"TopEsq") return Canto(px, true);
  if (nome == u"DirBx") return Canto(px, false);
  if (nome == u"Top") return Borda(px, Qt::Horizontal, true, true);
  if (nome == u"Bx") return Borda(px, Qt::Horizontal, false, false);
  if (nome == u"Esq") return Borda(px, Qt::Vertical, true, true);
  if (nome == u"Dir") return Borda(px, Qt::Vertical, false, false);
  return Vazia(px);
}

QIcon ArtIco() {
  QIcon ico;
  for (int s : {16, 32, 48}) ico.addPixmap(Icone(s));
  return ico;
}

}  // namespace zw
