// The background window.
#include "ZunWizFun.h"
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <cmath>
#include <cstring>
#include "Twp.h"
#include "TxQt.h"
#include "ZunWizArt.h"
#include "ZunWizGlb.h"
#include "ZunWizPmp.h"

namespace zw {

// Design client size of the window, in twips.
constexpr int kDesW = 9615, kDesH = 7185;

ZunWizFun::ZunWizFun()
    : mImg{{{"aguarde", 723, 71, -1830, 5460, 10845, 1065},
            {"Zun", 723, 84, 720, 720, 10845, 1260},
            {"TOR", 386, 297, 1875, 1785, 5790, 4455},
            {"DirBx", 36, 36, 9075, 6645, 540, 540},
            {"Bx", 500, 36, 1575, 6645, 7500, 540},
            {"Dir", 36, 300, 9090, 2160, 540, 4500},
            {"TopEsq", 36, 36, 0, 0, 540, 540},
            {"Top", 500, 36, 540, 0, 7500, 540},
            {"Esq", 36, 300, 0, 540, 540, 4500}}} {
  setObjectName(QStringLiteral("ZunWizFun"));
  setWindowTitle(QStringLiteral("Wizzard"));
  QPalette pal = palette();
  pal.setColor(QPalette::Window, Qt::white);
  setPalette(pal);
  setAutoFillBackground(true);
  resize(TwpPx(kDesW), TwpPx(kDesH, 'Y'));
  for (Img& i : mImg) {
    i.lb = new QLabel(this);
    i.lb->setObjectName(QString::fromLatin1(i.nome));
    i.lb->setPixmap(ArtImg(i.lb->objectName(), QSize(i.picW, i.picH)));
    ImgPos(i, i.left, i.top);
  }
}

ZunWizFun::Img& ZunWizFun::ImgRef(const char* nome) {
  for (Img& i : mImg)
    if (!std::strcmp(i.nome, nome)) return i;
  return mImg[0];
}

const ZunWizFun::Img& ZunWizFun::ImgCon(const char* nome) const {
  return const_cast<ZunWizFun*>(this)->ImgRef(nome);
}

void ZunWizFun::ImgPos(Img& i, int left, int top) {
  i.left = left;
  i.top = top;
  i.lb->setGeometry(TwpPx(left), TwpPx(top, 'Y'), TwpPx(i.width), TwpPx(i.height, 'Y'));
}

// Maximised and raised before it is first shown. Where no window manager
// maximises it (a bare X server), it is also given the whole screen's size.
void ZunWizFun::FormLoad() {
  Carga = 1;
  if (QScreen* s = QGuiApplication::primaryScreen()) setGeometry(s->availableGeometry());
  setWindowState(windowState() | Qt::WindowMaximized);
  FrmEleva(this);
  Carga = 0;
}

// All in twips, W and H the inner size: the corner piece, the right and bottom
// edges follow the lower right corner, the emblem stays centred, and the waiting
// artwork keeps the logo's margins from the right and bottom.
void ZunWizFun::FormResize() {
  const int W = int(std::lround(PxTwp(width()))), H = int(std::lround(PxTwp(height(), 'Y')));
  Img& dirBx = ImgRef("DirBx");
  Img& dir = ImgRef("Dir");
  Img& bx = ImgRef("Bx");
  Img& tor = ImgRef("TOR");
  Img& ag = ImgRef("aguarde");
  const Img& zun = ImgRef("Zun");
  ImgPos(dirBx, W - dirBx.width, H - dirBx.height);
  ImgPos(dir, W - dir.width, H - dirBx.height - dir.height);
  ImgPos(bx, W - dirBx.width - bx.width, H - bx.height);
  ImgPos(tor, W / 2 - tor.width / 2, H / 2 - tor.height / 2);
  ImgPos(ag, W - ag.width - zun.left, H - ag.height - zun.top);
}

void ZunWizFun::FrmPrep(const Tx& pal, int16_t& st) {
  (void)st;
  if (pal == u"INI") {
  } else if (pal == u"FIM") {
  }
}

void ZunWizFun::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  FormResize();
}

// Before the wizard window shows, the background is the window a person sees while
// the start's scripts run: its close box then asks, as the wizard window's does,
// and the wizard is unloaded once the start has ended (ZunWizPmp.h).
void ZunWizFun::closeEvent(QCloseEvent* e) {
  if (!PmpFec()) {
    e->ignore();
    return;
  }
  QWidget::closeEvent(e);
}

}  // namespace zw
