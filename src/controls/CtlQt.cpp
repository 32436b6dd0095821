// The properties every control has: geometry, visibility, state, font and colours.
#include "CtlQt.h"
#include <QWidget>
#include <cmath>
#include "FonTab.h"
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

// The system colours of the classic desktop by their index (0x800000nn).
QColor CorQt(long cor) {
  if (cor >= 0 && cor <= 0xFFFFFF) return QColor(int(cor & 0xFF), int((cor >> 8) & 0xFF), int((cor >> 16) & 0xFF));
  static const unsigned sis[] = {
      0xC8D0D4, 0x3A6EA5, 0x0A246A, 0x808080, 0xD4D0C8, 0xFFFFFF, 0x000000, 0x000000,  // 0-7
      0x000000, 0xFFFFFF, 0xD4D0C8, 0xD4D0C8, 0x808080, 0x0A246A, 0xFFFFFF, 0xD4D0C8,  // 8-15
      0x808080, 0x808080, 0x000000, 0xD4D0C8, 0xFFFFFF, 0x404040, 0xD4D0C8, 0x000000,  // 16-23
      0xFFFFE1};                                                                      // 24
  unsigned long u = static_cast<unsigned long>(cor) & 0xFFFFFFFFul;
  if ((u & 0xFFFFFF00ul) == 0x80000000ul && (u & 0xFF) < std::size(sis)) {
    unsigned rgb = sis[u & 0xFF];  // written 0xRRGGBB
    return QColor(int(rgb >> 16), int((rgb >> 8) & 0xFF), int(rgb & 0xFF));
  }
  return QColor(0, 0, 0);
}

QFont FonQt(const QString& nome, double pt, bool bold, bool italic) {
  QFont f(FonFam(nome));
  f.setPixelSize(std::max(1, int(std::lround(pt * kFonDpi / 72.0))));
  FonPsEst(nome, bold, italic);
  f.setBold(bold);
  f.setItalic(italic);
  f.setStyleStrategy(QFont::PreferAntialias);
  return f;
}

bool PrpIgual(TxV a, TxV b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char16_t x = a[i], y = b[i];
    if (x >= u'a' && x <= u'z') x = char16_t(x - 32);
    if (y >= u'a' && y <= u'z') y = char16_t(y - 32);
    if (x != y) return false;
  }
  return true;
}

double PrpNum(const Var& v) {
  if (v.EhTx()) {
    double d = 0;
    if (!NuEhNum(v.Txt(), &d)) throw CtlErr(13, "type mismatch");
    return d;
  }
  if (v.EhObj() || v.EhNulo()) throw CtlErr(13, "type mismatch");
  return v.Num();
}

bool PrpBool(const Var& v) {
  if (v.EhTx()) {
    Tx t = TxMaiTrm(v.Txt());
    if (t == u"TRUE" || t == u"VERDADEIRO") return true;
    if (t == u"FALSE" || t == u"FALSO") return false;
  }
  return PrpNum(v) != 0;
}

void CtlQt::FonPoe(const QString& nome, double pt, bool bold, bool italic) {
  fonNom_ = nome;
  fonTam_ = pt;
  fonNeg_ = bold;
  fonIta_ = italic;
  w_->setFont(FonQt(nome, pt, bold, italic));
  FonAct();
}

long PrpCor(const Var& v) {
  double d = PrpNum(v);
  if (!(d >= -2147483648.0 && d <= 4294967295.0)) throw CtlErr(380, "invalid property value");
  long long n = std::llround(d);
  return long(int32_t(uint32_t(n & 0xFFFFFFFFll)));
}

namespace {

[[noreturn]] void SemPrp() { throw CtlErr(438, "object doesn't support this property or method"); }

// The state of a window: 0 normal, 1 minimised, 2 maximised (full screen counts as
// maximised).
int16_t EstJan(const QWidget* w) {
  Qt::WindowStates e = w->windowState();
  if (e & Qt::WindowMinimized) return 1;
  if (e & (Qt::WindowMaximized | Qt::WindowFullScreen)) return 2;
  return 0;
}

// Sets the state as the window's flags, so a hidden window takes it when shown and a
// shown one takes it at once. The value is rounded to a whole number first.
void EstJanPoe(QWidget* w, double v) {
  if (!(v > -0.5 && v < 2.5)) throw CtlErr(380, "invalid property value");
  long n = std::lround(v);
  Qt::WindowStates e = w->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen);
  if (n == 1) e |= Qt::WindowMinimized;
  else if (n == 2) e |= Qt::WindowMaximized;
  w->setWindowState(e);
}

}  // namespace

// A window's Left and Top are its frame's corner, where move() puts it; a child's
// are its place in the parent.
Var CtlQt::PrpCon(TxV nome) const {
  if (!viv_) SemPrp();
  Var v;
  if (PrpTipCon(nome, v)) return v;
  QRect g = w_->geometry();
  if (w_->isWindow()) g.moveTopLeft(w_->pos());
  if (PrpIgual(nome, u"Left")) return Var(PxTwp(g.x()));
  if (PrpIgual(nome, u"Top")) return Var(PxTwp(g.y(), 'Y'));
  if (PrpIgual(nome, u"Width")) return Var(PxTwp(g.width()));
  if (PrpIgual(nome, u"Height")) return Var(PxTwp(g.height(), 'Y'));
  if (PrpIgual(nome, u"Visible")) return Var(!w_->isHidden());
  if (PrpIgual(nome, u"Enabled")) return Var(w_->isEnabled());
  if (PrpIgual(nome, u"FontName")) return Var(TxQs(fonNom_));
  if (PrpIgual(nome, u"FontSize")) return Var(fonTam_);
  if (PrpIgual(nome, u"FontBold")) return Var(fonNeg_);
  if (PrpIgual(nome, u"FontItalic") && TemIta()) return Var(fonIta_);
  if (PrpIgual(nome, u"BackColor")) return Var(int32_t(corFun_));
  if (PrpIgual(nome, u"ForeColor")) return Var(int32_t(corTx_));
  if (PrpIgual(nome, u"WindowState") && w_->isWindow()) return Var(EstJan(w_));
  SemPrp();
}

void CtlQt::PrpAtr(TxV nome, const Var& val) {
  if (!viv_) SemPrp();
  if (PrpTipAtr(nome, val)) return;
  QRect g = w_->geometry();
  if (w_->isWindow()) g.moveTopLeft(w_->pos());
  if (PrpIgual(nome, u"Left")) {
    w_->move(TwpPx(PrpNum(val)), g.y());
  } else if (PrpIgual(nome, u"Top")) {
    w_->move(g.x(), TwpPx(PrpNum(val), 'Y'));
  } else if (PrpIgual(nome, u"Width") || PrpIgual(nome, u"Height")) {
    double d = PrpNum(val);
    if (d < 0) throw CtlErr(380, "invalid property value");
    if (PrpIgual(nome, u"Width")) w_->resize(TwpPx(d), g.height());
    else w_->resize(g.width(), TwpPx(d, 'Y'));
  } else if (PrpIgual(nome, u"Visible")) {
    w_->setVisible(PrpBool(val));
  } else if (PrpIgual(nome, u"Enabled")) {
    w_->setEnabled(PrpBool(val));
  } else if (PrpIgual(nome, u"FontName")) {
    FonPoe(QsTx(TxVar(val)), fonTam_, fonNeg_, fonIta_);
  } else if (PrpIgual(nome, u"FontSize")) {
    double d = PrpNum(val);
    if (d <= 0 || d > 2048) throw CtlErr(380, "invalid property value");
    FonPoe(fonNom_, d, fonNeg_, fonIta_);
  } else if (PrpIgual(nome, u"FontBold")) {
    FonPoe(fonNom_, fonTam_, PrpBool(val), fonIta_);
  } else if (PrpIgual(nome, u"FontItalic") && TemIta()) {
    FonPoe(fonNom_, fonTam_, fonNeg_, PrpBool(val));
  } else if (PrpIgual(nome, u"BackColor")) {
    corFun_ = PrpCor(val);
    CorAct();
  } else if (PrpIgual(nome, u"ForeColor")) {
    corTx_ = PrpCor(val);
    CorAct();
  } else if (PrpIgual(nome, u"WindowState") && w_->isWindow()) {
    EstJanPoe(w_, PrpNum(val));
  } else {
    SemPrp();
  }
}

Var CtlQt::Exe(TxV nome, std::vector<Var>& args) {
  if (!viv_) SemPrp();
  Var res;
  if (ExeTip(nome, args, res)) return res;
  if (PrpIgual(nome, u"Refresh")) {
    w_->update();
    return res;
  }
  if (PrpIgual(nome, u"ZOrder")) {
    if (!args.empty() && PrpNum(args[0]) != 0) w_->lower();
    else w_->raise();
    return res;
  }
  SemPrp();
}

}  // namespace zw
