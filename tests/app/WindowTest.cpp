// The two windows: the background's pictures and how they follow the window's
// size, and the wizard window's buttons and modal run.
#include <gtest/gtest.h>
#include <QDir>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include "QtApp.h"
#include "SupWiz.h"
#include "TxQt.h"
#include "Twp.h"
#include "TxtGlb.h"
#include "ZunWizAsp.h"
#include "ZunWizFun.h"

using namespace zw;

namespace {
QRect Geo(const ZunWizFun& f, const char* nome) {
  return f.findChild<QLabel*>(QString::fromLatin1(nome))->geometry();
}
}  // namespace

// At 1280 by 800 pixels (19200 by 12000 twips), the lower right pieces sit at the
// corner, the emblem in the middle, the waiting artwork 720 twips in from the
// corner; the upper left pieces keep their design places. A window smaller than
// the design gives negative places, used as they are.
TEST(ZunWizFun, ResizeMovesTheLowerRightArtwork) {
  tst::QtApp();
  ZunWizFun f;
  f.show();
  f.resize(1280, 800);
  QApplication::processEvents();
  ASSERT_EQ(f.size(), QSize(1280, 800));
  EXPECT_EQ(Geo(f, "DirBx").topLeft(), QPoint(1244, 764));
  EXPECT_EQ(Geo(f, "Dir").topLeft(), QPoint(1244, 464));
  EXPECT_EQ(Geo(f, "Bx").topLeft(), QPoint(744, 764));
  EXPECT_EQ(Geo(f, "TOR").topLeft(), QPoint(447, 252));
  EXPECT_EQ(Geo(f, "aguarde").topLeft(), QPoint(509, 681));
  EXPECT_EQ(Geo(f, "Zun").topLeft(), QPoint(48, 48));
  EXPECT_EQ(Geo(f, "TopEsq").topLeft(), QPoint(0, 0));
  EXPECT_EQ(Geo(f, "Top").topLeft(), QPoint(36, 0));
  EXPECT_EQ(Geo(f, "Esq").topLeft(), QPoint(0, 36));
  f.resize(400, 300);
  QApplication::processEvents();
  EXPECT_EQ(Geo(f, "aguarde").topLeft(), QPoint(-371, 181));
  EXPECT_EQ(Geo(f, "Dir").topLeft(), QPoint(364, -36));
  EXPECT_EQ(Geo(f, "TOR").topLeft(), QPoint(7, 2));
  f.close();
}

// WizExe shows the window modally and comes back only once it is closed; Escape
// does not close it, the close box does.
TEST(ZunWizAsp, WizExeReturnsWhenTheWindowCloses) {
  tst::QtApp();
  auto a = std::make_shared<ZunWizAsp>();
  SupWiz sup;
  bool viuModal = false, abertaAposEsc = false;
  QTimer::singleShot(0, [&] {
    viuModal = QApplication::activeModalWidget() == a.get();
    QKeyEvent k(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(a.get(), &k);
    abertaAposEsc = a->isVisible();
    a->close();
  });
  a->FormLoad();
  a->WizExe(sup);
  EXPECT_TRUE(viuModal);
  EXPECT_TRUE(abertaAposEsc);
  EXPECT_FALSE(a->isVisible());
}

// The control arrays: element 0 is there from the start and cannot be loaded
// again; elements load hidden, with gaps, named as the window has them; an
// element loaded twice is error 360.
TEST(ZunWizAsp, ControlArraysLoadElementsByIndex) {
  tst::QtApp();
  ZunWizAsp a;
  for (CtlArr arr : {CtlArr::Lab, CtlArr::Ckb, CtlArr::Rtf, CtlArr::Opc}) {
    EXPECT_EQ(a.UBound(arr), 0);
    ASSERT_NE(a.Ctl(arr, 0), nullptr);
    EXPECT_EQ(a.Ctl(arr, 1), nullptr);
  }
  CtlObj* ck = a.Load(CtlArr::Ckb, 7);
  ASSERT_NE(ck, nullptr);
  EXPECT_EQ(a.Ctl(CtlArr::Ckb, 7), ck);
  EXPECT_EQ(a.UBound(CtlArr::Ckb), 7);
  EXPECT_EQ(a.UBound(CtlArr::Lab), 0);
  EXPECT_EQ(a.Ctl(CtlArr::Ckb, 3), nullptr);
  EXPECT_TRUE(a.CtlWid(CtlArr::Ckb, 7)->isHidden());
  EXPECT_EQ(a.CtlWid(CtlArr::Ckb, 7)->objectName(), QStringLiteral("ckWiz(7)"));
  EXPECT_EQ(ck->PrpCon(u"Visible").Num(), 0);
  try {
    a.Load(CtlArr::Ckb, 7);
    ADD_FAILURE() << "loaded twice";
  } catch (const CtlErr& e) {
    EXPECT_EQ(e.num, 360);
  }
  EXPECT_THROW(a.Load(CtlArr::Lab, 0), CtlErr);
  // Geometry goes in twips and lands on the screen's pixels.
  ck->PrpAtr(u"Left", Var(int32_t(1500)));
  ck->PrpAtr(u"Width", Var(int32_t(3000)));
  EXPECT_EQ(a.CtlWid(CtlArr::Ckb, 7)->x(), int(1500 / TwpPix('X') + 0.5));
  EXPECT_EQ(a.CtlWid(CtlArr::Ckb, 7)->width(), int(3000 / TwpPix('X') + 0.5));
  // The buttons by their exact names only.
  ASSERT_NE(a.Btn(u"cmSeg"), nullptr);
  EXPECT_EQ(TxVar(a.Btn(u"cmSeg")->PrpCon(u"Caption")), u"Seguinte >");
  a.Btn(u"cmCan")->PrpAtr(u"Visible", Var(false));
  EXPECT_TRUE(a.cmCan->isHidden());
  EXPECT_EQ(a.Btn(u"cmseg"), nullptr);
  EXPECT_EQ(a.Btn(u"laWiz"), nullptr);
}

// Pictures and icons come from bitmap, icon and PNG files; "\" separates folders
// too; a file that cannot be loaded leaves the window as it was.
TEST(ZunWizAsp, PictureAndIconFromFilesOrIgnored) {
  tst::QtApp();
  const QString dir = QDir::temp().filePath(QStringLiteral("zw-asp-%1").arg(QCoreApplication::applicationPid()));
  QDir().mkpath(dir + QStringLiteral("/img"));
  QImage im(40, 30, QImage::Format_RGB32);
  im.fill(Qt::red);
  ASSERT_TRUE(im.save(dir + QStringLiteral("/img/fundo.bmp")));
  QImage ic(32, 32, QImage::Format_ARGB32);
  ic.fill(Qt::blue);
  ASSERT_TRUE(ic.save(dir + QStringLiteral("/img/a.ico")));
  ASSERT_TRUE(ic.save(dir + QStringLiteral("/img/a.png")));
  std::FILE* f = std::fopen((dir + QStringLiteral("/img/mau.bmp")).toLocal8Bit().constData(), "w");
  std::fputs("not a picture", f);
  std::fclose(f);

  ZunWizAsp a;
  auto* pic = a.findChild<QLabel*>(QStringLiteral("Picture"));
  ASSERT_NE(pic, nullptr);
  a.Picture(TxQs(dir) + u"\\img\\fundo.bmp");
  EXPECT_EQ(pic->pixmap().size(), QSize(40, 30));
  EXPECT_FALSE(pic->isHidden());
  a.Picture(TxQs(dir) + u"/img/mau.bmp");
  a.Picture(TxQs(dir) + u"/img/nada.bmp");
  EXPECT_EQ(pic->pixmap().size(), QSize(40, 30));

  const qint64 antes = a.windowIcon().cacheKey();
  a.Icon(TxQs(dir) + u"/img/mau.bmp");
  EXPECT_EQ(a.windowIcon().cacheKey(), antes);
  a.Icon(TxQs(dir) + u"/img/a.ico");
  EXPECT_NE(a.windowIcon().cacheKey(), antes);
  EXPECT_EQ(a.windowIcon().pixmap(32).toImage().pixelColor(5, 5), QColor(Qt::blue));
  const qint64 ico = a.windowIcon().cacheKey();
  a.Icon(TxQs(dir) + u"/img/a.png");
  EXPECT_NE(a.windowIcon().cacheKey(), ico);
  QDir(dir).removeRecursively();
}

// The unload that follows a run tells the run's hook once, after "FxFim"; a
// window that never ran tells nothing.
TEST(ZunWizAsp, CloseBoxUnloadsARunningWindowOnce) {
  tst::QtApp();
  int unloads = 0;
  AspGanAct().Unload = [&](ZunWizAsp&) { unloads++; };
  {
    ZunWizAsp nunca;
    nunca.show();
    nunca.close();
  }
  EXPECT_EQ(unloads, 0);
  auto a = std::make_shared<ZunWizAsp>();
  SupWiz sup;
  QTimer::singleShot(0, [&] {
    a->close();
    a->close();
  });
  a->WizExe(sup);
  EXPECT_EQ(unloads, 1);
  AspGanAct() = AspGan();
}
