// The form layout over a real Qt form: controls found by name and container, the
// resize keys and a line mark landing on the widgets' pixels, the form's size keys
// against the screen, and the window state.
#include <gtest/gtest.h>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <memory>
#include "CtlBtn.h"
#include "CtlTst.h"
#include "FrmAmbQt.h"
#include "ZunLab.h"
#include "ZunLin.h"
#include "ZunRtf.h"

using namespace zw;
using namespace zw::tst;

namespace {

template <class T>
T* Poe(QWidget* pai, const char* nome, int x, int y, int w, int h) {
  auto* c = new T(pai);
  c->setObjectName(QString::fromLatin1(nome));
  c->setGeometry(x, y, w, h);
  return c;
}

}  // namespace

// A form of 400 x 300 pixels (6000 x 4500 twips, no frame allowance: Qt's size is
// the room inside) grows to 600 x 420 (9000 x 6300).
TEST(FrmAmbQt, ResizeKeysAndLineMarksMoveTheWidgets) {
  std::unique_ptr<QWidget> frm(Janela(Qt::white, 400, 300));
  frm->setObjectName(QStringLiteral("frmTeste"));
  auto* btn = Poe<QPushButton>(frm.get(), "cmOk", 300, 260, 85, 24);
  auto* rtf = Poe<ZunRtf>(frm.get(), "rtfTexto", 10, 10, 250, 200);
  auto* tit = Poe<ZunLab>(frm.get(), "laTit", 0, 0, 100, 21);
  auto* pai = Poe<QWidget>(frm.get(), "frPainel", 10, 220, 200, 61);  // no control of its own
  auto* sub = Poe<ZunLab>(pai, "laSub", 0, 0, 100, 21);
  auto* lin = new ZunLin(frm.get());
  lin->setObjectName(QStringLiteral("linMarca"));
  auto* mar = Poe<ZunLab>(frm.get(), "laMarca", 0, 0, 40, 15);
  auto* sem = Poe<ZunLab>(frm.get(), "", 5, 5, 10, 10);

  FrmAmbQt amb;
  CtlBtn cb(btn);
  amb.Reg(cb);
  CtlQt& f = *amb.Ctl(frm.get());
  lin->PrpAtr(u"X1", Var(3000.0));
  lin->PrpAtr(u"X2", Var(3000.0));
  lin->PrpAtr(u"Y2", Var(1500.0));
  EXPECT_EQ(lin->P2(), QPoint(200, 100));
  EXPECT_EQ(ErrNum([&] { lin->PrpCon(u"Left"); }), 438);  // a line has no place of its own
  EXPECT_EQ(ErrNum([&] { lin->PrpAtr(u"BorderWidth", Var(0.0)); }), 380);

  EXPECT_EQ(amb.Nome(cb), u"cmOk");
  EXPECT_EQ(amb.Contentor(f), nullptr);
  EXPECT_EQ(amb.Contentor(*tit), &f);
  EXPECT_TRUE(amb.EhFrm(f));
  EXPECT_FALSE(amb.EhFrm(*amb.Contentor(*sub)));
  EXPECT_EQ(amb.Contentor(*sub), amb.Ctl(pai));

  SupFrm sf(amb);
  sf.RegFrmAjt(0, 0);
  sf.RegFrm(f);
  sf.RegOb(cb, u"PX,PY");
  sf.RegOb(*rtf, u"DX,DY");
  sf.RegOb(*tit, u"C");
  sf.RegOb(*amb.Ctl(pai), u"DX");
  sf.RegOb(*sub, u"C");
  sf.RegOb(*mar, u"MPX:PX=LINMARCA:X|150,MPY:PM=LINMARCA:Y1|LINMARCA:Y2|0");
  sf.RegOb(*sem, u"PX");
  sf.MpoReg(*lin, u"PX%");
  EXPECT_EQ(sf.Ctls().size(), 7u);  // the one without a name is left out

  frm->resize(600, 420);
  sf.MpoAjt();
  sf.AjtCtl(1);
  EXPECT_EQ(btn->pos(), QPoint(500, 380));                // kept at the right and bottom edges
  EXPECT_EQ(rtf->size(), QSize(450, 320));                // grew with the form
  EXPECT_EQ(tit->pos(), QPoint(246, 186));                // centred less the border and title bar
  EXPECT_EQ(pai->width(), 400);
  EXPECT_EQ(sub->pos(), QPoint(150, 20));                 // centred in the panel, no allowance
  EXPECT_EQ(lin->P1(), QPoint(300, 0));                   // half the width, both ends
  EXPECT_EQ(lin->P2(), QPoint(300, 100));
  EXPECT_EQ(mar->pos(), QPoint(310, 50));                 // placed by the mark as it now stands
  EXPECT_EQ(sem->pos(), QPoint(5, 5));
  EXPECT_TRUE(frm->isEnabled());
  EXPECT_EQ(Pixel(frm.get(), 300, 60), QColor(Qt::black));  // the line is drawn where it is
  EXPECT_NE(Pixel(frm.get(), 303, 60), QColor(Qt::black));

  // A button that has gone answers nothing and does not stop the others; a
  // wrapper kept here for a container goes with its widget.
  delete btn;
  EXPECT_EQ(ErrNum([&] { cb.PrpCon(u"Left"); }), 438);
  frm->resize(660, 420);
  sf.AjtCtl();
  EXPECT_EQ(rtf->width(), 510);
  QWidget* vazio = new QWidget(frm.get());
  CtlQt* cv = amb.Ctl(vazio);
  EXPECT_EQ(amb.Ctl(vazio), cv);
  delete vazio;
  QWidget* outro = new QWidget(frm.get());
  CtlQt* co = amb.Ctl(outro);
  EXPECT_EQ(co->Wid(), outro);  // never a wrapper left from a widget at the same address
}

// The form's size keys in the screen's twips, and the window state by name.
TEST(FrmAmbQt, SizeKeysUseTheScreenAndWindowStateRoundTrips) {
  std::unique_ptr<QWidget> frm(Janela(Qt::white, 300, 200));
  frm->setObjectName(QStringLiteral("frmTeste"));
  auto* lab = Poe<ZunLab>(frm.get(), "laTit", 0, 0, 50, 15);
  FrmAmbQt amb;
  CtlQt f(frm.get());
  amb.Reg(f);
  EXPECT_EQ(amb.Ctl(frm.get()), &f);
  const QSize ecr = QGuiApplication::primaryScreen()->geometry().size();
  EXPECT_EQ(amb.EcrW(), ecr.width() * 15.0);
  EXPECT_EQ(amb.EcrH(), ecr.height() * 15.0);

  SupFrm sf(amb);
  sf.RegFrm(f);
  sf.DimAjt(u"640,c");
  EXPECT_EQ(frm->size(), QSize(640, 480));
  EXPECT_EQ(frm->pos(), QPoint((ecr.width() - 640) / 2, (ecr.height() - 480) / 2));
  EXPECT_EQ(Num(f, u"Left"), (ecr.width() - 640) / 2 * 15.0);
  sf.DimBase();
  EXPECT_EQ(frm->size(), QSize(300, 200));

  EXPECT_EQ(Num(f, u"WindowState"), 0);
  sf.DimAjt(u"MAX");
  EXPECT_TRUE(frm->windowState() & Qt::WindowMaximized);
  EXPECT_EQ(Num(f, u"WindowState"), 2);
  frm->show();
  f.PrpAtr(u"WindowState", Var(int16_t(1)));
  EXPECT_EQ(frm->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized), Qt::WindowMinimized);
  EXPECT_EQ(Num(f, u"WindowState"), 1);
  sf.DimAjt(u"NOR");
  EXPECT_EQ(frm->windowState() & (Qt::WindowMinimized | Qt::WindowMaximized), Qt::WindowNoState);
  EXPECT_EQ(Num(f, u"WindowState"), 0);
  EXPECT_EQ(ErrNum([&] { f.PrpAtr(u"WindowState", Var(3.0)); }), 380);
  EXPECT_EQ(ErrNum([&] { lab->PrpCon(u"WindowState"); }), 438);  // only a window has one
}
