// The two windows: the background's pictures and how they follow the window's
// size, and the wizard window's buttons and modal run.
#include <gtest/gtest.h>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include "QtApp.h"
#include "SupWiz.h"
#include "ZunWizAsp.h"
#include "ZunWizFun.h"

using namespace zw;

namespace {
QRect Geo(const ZunWizFun& f, const char* nome) {
  return f.findChild<QLabel*>(QString::fromLatin1(nome))->geometry();
}
}  // namespace

TEST(ZunWizFun, NineImagesAtTheirPictureSizes) {
  QtApp();
  ZunWizFun f;
  EXPECT_EQ(f.windowTitle(), QStringLiteral("Wizzard"));
  EXPECT_EQ(f.palette().color(QPalette::Window), QColor(Qt::white));
  const struct { const char* nome; int w, h; } pics[] = {
      {"aguarde", 723, 71}, {"Zun", 723, 84}, {"TOR", 386, 297}, {"DirBx", 36, 36}, {"Bx", 500, 36},
      {"Dir", 36, 300},     {"TopEsq", 36, 36}, {"Top", 500, 36}, {"Esq", 36, 300}};
  for (const auto& p : pics) {
    auto* lb = f.findChild<QLabel*>(QString::fromLatin1(p.nome));
    ASSERT_NE(lb, nullptr) << p.nome;
    EXPECT_EQ(lb->pixmap().size(), QSize(p.w, p.h)) << p.nome;
    EXPECT_EQ(lb->size(), QSize(p.w, p.h)) << p.nome;
  }
}

// At 1280 by 800 pixels (19200 by 12000 twips), the lower right pieces sit at the
// corner, the emblem in the middle, the waiting artwork 720 twips in from the
// corner; the upper left pieces keep their design places. A window smaller than
// the design gives negative places, used as they are.
TEST(ZunWizFun, ResizeMovesTheLowerRightArtwork) {
  QtApp();
  ZunWizFun f;
  f.Activo = 1;  // the run is not started by this window
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

TEST(ZunWizAsp, FourButtonsAtTheirDesignPlaces) {
  QtApp();
  ZunWizAsp a;
  EXPECT_EQ(a.windowTitle(), QStringLiteral("Wizzard"));
  EXPECT_EQ(a.size(), QSize(554, 398));
  EXPECT_EQ(a.cmAnt->text(), QStringLiteral("< Anterior"));
  EXPECT_EQ(a.cmSeg->text(), QStringLiteral("Seguinte >"));
  EXPECT_EQ(a.cmCnf->text(), QStringLiteral("Confirmar"));
  EXPECT_EQ(a.cmCan->text(), QStringLiteral("Cancelar"));
  EXPECT_EQ(a.cmAnt->geometry(), QRect(173, 366, 85, 24));
  EXPECT_EQ(a.cmCan->geometry(), QRect(462, 366, 85, 24));
  const QList<QSize> tam = a.windowIcon().availableSizes();
  EXPECT_TRUE(tam.contains(QSize(16, 16)) && tam.contains(QSize(32, 32)) && tam.contains(QSize(48, 48)));
}

// WizExe shows the window modally and comes back only once it is closed; Escape
// does not close it, the close box does.
TEST(ZunWizAsp, WizExeReturnsWhenTheWindowCloses) {
  QtApp();
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
