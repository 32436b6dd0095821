// The option-group control: options, their layout by measured text, the title,
// the colour modes and the selection event.
#include "ZunOpc.h"
#include <QApplication>
#include <QButtonGroup>
#include <QPainter>
#include <QRadioButton>
#include <cmath>
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

namespace {

// The colour number of a Qt colour.
long CorNum(const QColor& c) { return long(c.red()) + 256L * c.green() + 65536L * c.blue(); }

// A colour the group's parts can take: a colour number or a system colour. Any
// other (-1 for a colour the option file left out) is error 380, and the page's
// colour step passes it over, so the group keeps its own colours.
long CorOle(const Var& v) {
  long c = PrpCor(v);
  unsigned long u = static_cast<unsigned long>(c) & 0xFFFFFFFFul;
  if (u > 0xFFFFFF && (u & 0xFFFFFF00ul) != 0x80000000ul) throw CtlErr(380, "invalid property value");
  return c;
}

// Argument k of a method call; a call with too few is error 450.
const Var& Arg(const std::vector<Var>& a, size_t k) {
  if (k >= a.size()) throw CtlErr(450, "wrong number of arguments");
  return a[k];
}

}  // namespace

ZunOpc::ZunOpc(QWidget* pai) : QWidget(pai), CtlQt(this) {
  corTx_ = 0;  // the group's fore colour starts black
  grp_ = new QButtonGroup(this);
  grp_->setExclusive(true);
  fonOpc_ = FonQt(fonNom_, fonTam_, false, false);
  fonCap_ = fonOpc_;
  setFont(fonOpc_);
  QRadioButton* o0 = OpcCri(0);
  o0->setText(QStringLiteral("Opção"));
  o0->setChecked(true);
  RegDim();
}

ZunOpc::~ZunOpc() = default;

// A new element of the options with the look of element 0, hidden, as a loaded
// element of a control array starts.
QRadioButton* ZunOpc::OpcCri(int i) {
  auto* b = new QRadioButton(this);
  b->setFont(fonOpc_);
  b->setVisible(false);
  if (!opc_.empty()) b->setGeometry(opc_[0]->geometry());
  grp_->addButton(b, i);
  connect(b, &QRadioButton::clicked, this, [this, i] {
    if (atualiza_ != 1) OpcSelDsp(i);
  });
  opc_.push_back(b);
  tag_.emplace_back();
  OpcCorAct(i);
  return b;
}

QRadioButton* ZunOpc::Opc(int i) const {
  return i >= 0 && i < int(opc_.size()) ? opc_[size_t(i)] : nullptr;
}

const Tx& ZunOpc::Tag(int i) const {
  static const Tx vazio;
  return i >= 0 && i < int(tag_.size()) ? tag_[size_t(i)] : vazio;
}

// ---- Properties

void ZunOpc::Caption(const Tx& c) {
  cap_ = c;
  RegDim();
  OpcRefr();
}

void ZunOpc::Font(const QFont& f) {
  fonOpc_ = f;
  for (QRadioButton* b : opc_) b->setFont(f);
  RegDim();
  OpcRefr();
}

void ZunOpc::CapFont(const QFont& f) {
  fonCap_ = f;
  RegDim();
  OpcRefr();
}

// The frame, the measurer and the control itself take the back colour, and the
// options with them.
void ZunOpc::BackColor(long cor) {
  corFun_ = frFun_ = dimFun_ = cor;
  CorAct();
}

void ZunOpc::ForeColor(long cor) {
  corTx_ = dimTx_ = cor;
  CorAct();
}

void ZunOpc::CorAct() {
  for (int i = 0; i <= OpcNum(); ++i) OpcCorAct(i);
  update();
}

void ZunOpc::CapColor(long cor) {
  capCor_ = frTx_ = cor;
  update();
}

void ZunOpc::BorderVisible(bool b) {
  bordaFlag_ = b ? 1 : 0;
  RegDim();
  OpcRefr();
}

Tx ZunOpc::TitAli() const { return ali_ == 1 ? u">" : ali_ == 2 ? u"|" : u"<"; }

void ZunOpc::TitAli(TxV pal) {
  Tx t = TxMaiTrm(pal);
  if (t.empty()) return;
  switch (t[0]) {
    case u'<': case u'7': ali_ = 0; break;
    case u'>': case u'9': ali_ = 1; break;
    case u'|': case u'8': ali_ = 2; break;
    default: return;
  }
  update();
}

// The first option whose value is on, element 0 included; -1 when none is.
int ZunOpc::opcUsa() const {
  for (size_t i = 0; i < opc_.size(); ++i)
    if (opc_[i]->isChecked()) return int(i);
  return -1;
}

// Turning an option on is a click on it: the event follows, outside an update.
void ZunOpc::opcUsa(int i) {
  QRadioButton* b = Opc(i);
  if (!b || b->isChecked()) return;
  b->setChecked(true);
  if (atualiza_ != 1) OpcSelDsp(i);
}

// ---- Operations

void ZunOpc::CorTip(TxV pal) {
  Tx t = TxMaiTrm(pal);
  size_t h = t.find(u'-');
  if (h != Tx::npos) t = TxTrim(TxV(t).substr(0, h));
  QWidget* ctn = parentWidget();
  QWidget* pai = ctn ? ctn->window() : nullptr;
  if (t == u"IP") {
    // The window draws its picture behind its children: showing it through the
    // control's own back is the copy of the parent's picture under it. The
    // options keep their back colour.
    modo_ = t;
    img_ = imgCop_ = true;
    update();
    return;
  }
  if (t == u"C" && ctn) {
    frFun_ = CorNum(ctn->palette().color(QPalette::Window));
    frTx_ = CorNum(ctn->palette().color(QPalette::WindowText));
  } else if (t == u"P" && pai) {
    frFun_ = CorNum(pai->palette().color(QPalette::Window));
    frTx_ = CorNum(pai->palette().color(QPalette::WindowText));
  }
  // "I" shows again the picture an earlier "IP" took; any other word hides it.
  modo_ = t;
  img_ = t == u"I" && imgCop_;
  CorAct();
  OpcRefr();
}

void ZunOpc::RegIni() {
  atualiza_ = 1;
  while (opc_.size() > 1) {
    QRadioButton* b = opc_.back();
    grp_->removeButton(b);
    opc_.pop_back();
    tag_.pop_back();
    delete b;
  }
  opc_[0]->setChecked(true);
  atualiza_ = 0;
}

void ZunOpc::RegOpc(const Tx& tx, const Tx& adi) {
  atualiza_ = 1;
  int n = OpcNum() + 1;
  QRadioButton* b = OpcCri(n);
  b->setText(QsTx(tx));
  tag_[size_t(n)] = adi;
  b->raise();
  opc_[0]->setChecked(true);
  atualiza_ = 0;
}

void ZunOpc::ConOpc(int i, Tx& tx, Tx& adi) const {
  QRadioButton* b = Opc(i);
  if (!b) return;
  tx = TxQs(b->text());
  adi = tag_[size_t(i)];
}

void ZunOpc::RegOpcPos(int i, double x, double y) { OpcPosAct(i, x, y); }

void ZunOpc::RegAsp(double x, double y, const Var& passoX, const Var& passoY) {
  if (QRadioButton* b0 = Opc(0)) b0->move(TwpPx(x), b0->y());
  double w, h;
  TxDim(false, Tx(), w, h);
  double sx = passoX.EhTx() ? w + NuVal(passoX.Txt()) : PrpNum(passoX);
  double sy = passoY.EhTx() ? h + NuVal(passoY.Txt()) : PrpNum(passoY);
  double px = x, py = y;
  for (int i = 1; i <= OpcNum(); ++i) {
    OpcPosAct(i, px, py);
    px += sx;
    py += sy;
  }
}

void ZunOpc::AjtPosY(double margTop, double margBot, int centro) {
  double altTit, util;
  TitDim(altTit, util);
  double w, h;
  TxDim(false, Tx(), w, h);
  double topo = margTop + altTit;
  double livre = util - margBot - topo - h;
  int n = OpcNum();
  if (n == 0) return;  // the division fails and there is no option to place
  double passo = livre / n;
  double y = centro == 1 ? passo / 2 + topo - h / 2 : topo;
  for (int i = 1; i <= n; ++i) {
    QRadioButton* b = opc_[size_t(i)];
    b->move(b->x(), TwpPx(y, 'Y'));
    b->setVisible(true);
    y += passo;
  }
}

// ---- Layout

void ZunOpc::OpcPosAct(int i, double x, double y) {
  QRadioButton* b = Opc(i);
  if (!b) return;
  double w, h;
  TxDim(false, Tx(), w, h);
  b->setGeometry(TwpPx(x), TwpPx(y, 'Y'), b->width(), std::max(TwpPx(h, 'Y'), 13));
  b->setVisible(true);
  OpcCorAct(i);
  OpcLarAjt(i);
}

void ZunOpc::OpcLarAjt(int i) {
  QRadioButton* b = Opc(i);
  if (!b) return;
  double larg = PxTwp(width()) - PxTwp(b->x()) - 60;
  b->resize(std::max(0, TwpPx(larg)), b->height());
}

// An option in the measurer's colours. It paints its own back in every colour
// mode: with the parent's picture behind, the picture shows around the options,
// not through them.
void ZunOpc::OpcCorAct(int i) {
  QRadioButton* b = Opc(i);
  if (!b) return;
  QPalette p = b->palette();
  p.setColor(QPalette::Window, CorQt(dimFun_));
  p.setColor(QPalette::WindowText, CorQt(dimTx_));
  p.setColor(QPalette::ButtonText, CorQt(dimTx_));
  b->setPalette(p);
  b->setBackgroundRole(QPalette::Window);
  b->setAutoFillBackground(true);
}

void ZunOpc::OpcRefr() {
  for (QRadioButton* b : opc_) b->update();
  update();
}

bool ZunOpc::TitTem() const { return !cap_.empty() && bordaFlag_ != 0; }

void ZunOpc::TitDim(double& alt, double& util) const {
  util = PxTwp(height(), 'Y') - 30;
  alt = 0;
  if (TitTem()) {
    double w;
    TxDim(true, cap_, w, alt);
  }
}

void ZunOpc::TxDim(bool titulo, const Tx& tx, double& larg, double& alt) const {
  QFontMetrics fm(titulo ? fonCap_ : fonOpc_);
  QString s = tx.empty() ? QStringLiteral("AÃÇ") : QsTx(tx);
  larg = PxTwp(fm.horizontalAdvance(s));
  alt = PxTwp(fm.height(), 'Y');
}

// The frame fills the control; each option reaches to 60 twips short of its right.
void ZunOpc::RegDim() {
  for (int i = 1; i <= OpcNum(); ++i) OpcLarAjt(i);
  update();
}

void ZunOpc::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  RegDim();
}

// The back (none with the parent's picture behind), then the frame's etched
// border with the title cut into its top line.
void ZunOpc::paintEvent(QPaintEvent*) {
  QPainter p(this);
  bool quadro = bordaFlag_ != 0;
  if (!img_) p.fillRect(rect(), CorQt(quadro ? frFun_ : corFun_));
  if (!quadro) return;
  QFontMetrics fm(fonCap_);
  bool tit = TitTem();
  int th = tit ? fm.height() : 0;
  QString t = QsTx(cap_);
  int tw = tit ? fm.horizontalAdvance(t) + 4 : 0;
  int x = ali_ == 1 ? width() - 8 - tw : ali_ == 2 ? (width() - tw) / 2 : 8;
  // Etched border: a dark line with a light one inside, the top line broken by the title.
  int y0 = th / 2, r = width() - 1, b = height() - 1;
  auto linhas = [&](int d, QColor c) {
    p.setPen(c);
    p.drawLine(d, y0 + d, d, b - 1 + d);
    p.drawLine(d, b - 1 + d, r - 1 + d, b - 1 + d);
    p.drawLine(r - 1 + d, y0 + d, r - 1 + d, b - 1 + d);
    if (!tit) {
      p.drawLine(d, y0 + d, r - 1 + d, y0 + d);
    } else {
      p.drawLine(d, y0 + d, x - 1, y0 + d);
      p.drawLine(x + tw, y0 + d, r - 1 + d, y0 + d);
    }
  };
  linhas(0, QColor(128, 128, 128));
  linhas(1, QColor(255, 255, 255));
  if (!tit) return;
  p.setFont(fonCap_);
  p.setPen(CorQt(frTx_));
  p.drawText(QRect(x, 0, tw, th), Qt::AlignCenter | Qt::TextShowMnemonic, t);
}

void ZunOpc::OpcSelDsp(int i) {
  QCoreApplication::processEvents();
  emit OpcSel(i);
}

// ---- By name

bool ZunOpc::PrpTipCon(TxV nome, Var& v) const {
  if (PrpIgual(nome, u"Caption")) v = Var(cap_);
  else if (PrpIgual(nome, u"BorderVisible")) v = Var(bordaFlag_ != 0);
  else if (PrpIgual(nome, u"CapColor")) v = Var(int32_t(capCor_));
  else if (PrpIgual(nome, u"TitAli")) v = Var(TitAli());
  else if (PrpIgual(nome, u"opcUsa")) v = Var(int16_t(opcUsa()));
  else if (PrpIgual(nome, u"FontBold")) v = Var(fontBold_);
  else if (PrpIgual(nome, u"FontName")) v = Var(fontName_);
  else if (PrpIgual(nome, u"FontSize")) v = Var(int16_t(fontSize_));
  else return false;
  return true;
}

bool ZunOpc::PrpTipAtr(TxV nome, const Var& v) {
  if (PrpIgual(nome, u"Caption")) Caption(TxVar(v));
  else if (PrpIgual(nome, u"BorderVisible")) BorderVisible(PrpBool(v));
  else if (PrpIgual(nome, u"CapColor")) CapColor(CorOle(v));
  else if (PrpIgual(nome, u"BackColor")) BackColor(CorOle(v));
  else if (PrpIgual(nome, u"ForeColor")) ForeColor(CorOle(v));
  else if (PrpIgual(nome, u"TitAli")) TitAli(TxVar(v));
  else if (PrpIgual(nome, u"opcUsa")) opcUsa(int(PrpNum(v)));
  else if (PrpIgual(nome, u"FontBold")) fontBold_ = PrpBool(v);
  else if (PrpIgual(nome, u"FontName")) fontName_ = TxVar(v);
  else if (PrpIgual(nome, u"FontSize")) fontSize_ = int(PrpNum(v));
  else return false;
  return true;
}

bool ZunOpc::ExeTip(TxV nome, std::vector<Var>& a, Var& res) {
  (void)res;
  if (PrpIgual(nome, u"CorTip")) {
    CorTip(TxVar(Arg(a, 0)));
  } else if (PrpIgual(nome, u"RegIni")) {
    RegIni();
  } else if (PrpIgual(nome, u"RegOpc")) {
    RegOpc(TxVar(Arg(a, 0)), TxVar(Arg(a, 1)));
  } else if (PrpIgual(nome, u"ConOpc")) {
    int i = int(PrpNum(Arg(a, 0)));
    Tx tx = TxVar(Arg(a, 1)), adi = TxVar(Arg(a, 2));
    if (!Opc(i)) return true;
    ConOpc(i, tx, adi);
    a[1] = Var(tx);
    a[2] = Var(adi);
  } else if (PrpIgual(nome, u"RegOpcPos")) {
    RegOpcPos(int(PrpNum(Arg(a, 0))), PrpNum(Arg(a, 1)), PrpNum(Arg(a, 2)));
  } else if (PrpIgual(nome, u"RegAsp")) {
    RegAsp(PrpNum(Arg(a, 0)), PrpNum(Arg(a, 1)), Arg(a, 2), Arg(a, 3));
  } else if (PrpIgual(nome, u"AjtPosY")) {
    AjtPosY(PrpNum(Arg(a, 0)), PrpNum(Arg(a, 1)), int(PrpNum(Arg(a, 2))));
  } else if (PrpIgual(nome, u"OpcNum")) {
    Arg(a, 0);
    a[0] = Var(int16_t(OpcNum()));
  } else {
    return false;
  }
  return true;
}

}  // namespace zw
