// The option group: selection rules, layout by measured text, title, colour modes.
#include <gtest/gtest.h>
#include <QFontMetrics>
#include <QRadioButton>
#include <QTimer>
#include <cmath>
#include <memory>
#include "CtlFab.h"
#include "CtlTst.h"

using namespace zw;
using namespace zw::tst;

namespace {

// A group on a window, with the events it raises recorded.
struct Grupo {
  std::unique_ptr<QWidget> jan{Janela(QColor(200, 0, 0))};
  ZunOpc* opc = OpcCri(jan.get());
  std::vector<int> ev;
  Grupo() { QObject::connect(opc, &ZunOpc::OpcSel, [this](int i) { ev.push_back(i); }); }
  void Opcoes(int n) {
    for (int i = 1; i <= n; ++i) opc->RegOpc(u"Opção " + Tx(1, char16_t(u'0' + i)), u"adi" + Tx(1, char16_t(u'0' + i)));
  }
  double Top(int i) const { return PxTwp(opc->Opc(i)->y()); }
  double Left(int i) const { return PxTwp(opc->Opc(i)->x()); }
  double AltTx() const {
    double w, h;
    opc->TxDim(false, Tx(), w, h);
    return h;
  }
};

}  // namespace

TEST(ZunOpc, SelectionRulesAndEvents) {
  Grupo g;
  EXPECT_EQ(g.opc->OpcNum(), 0);
  EXPECT_EQ(g.opc->opcUsa(), 0);
  EXPECT_TRUE(g.opc->Opc(0)->isHidden());
  g.Opcoes(3);
  EXPECT_EQ(g.opc->OpcNum(), 3);
  EXPECT_EQ(g.opc->opcUsa(), 0) << "a new list has no selection";
  g.opc->opcUsa(2);
  EXPECT_EQ(g.opc->opcUsa(), 2);
  g.opc->opcUsa(9);  // no such option: nothing
  g.opc->opcUsa(-1);
  EXPECT_EQ(g.opc->opcUsa(), 2);
  EXPECT_EQ(g.ev, std::vector<int>({2}));
  // A new option clears the selection, and creating raises nothing.
  g.opc->RegOpc(u"Quarta", u"");
  EXPECT_EQ(g.opc->opcUsa(), 0);
  EXPECT_EQ(g.ev.size(), 1u);
  // A click on a shown option raises its event, after the events already posted
  // have run (the option's own painting comes first).
  g.opc->RegAsp(300, 0, 0, u"+30");
  bool posto = false, vistoAntes = false;
  QTimer::singleShot(0, g.opc, [&] { posto = true; });
  auto lig = QObject::connect(g.opc, &ZunOpc::OpcSel, [&](int) { vistoAntes = posto; });
  g.opc->Opc(3)->click();
  QObject::disconnect(lig);
  EXPECT_TRUE(vistoAntes) << "the posted event runs before OpcSel";
  EXPECT_EQ(g.opc->opcUsa(), 3);
  EXPECT_EQ(g.ev, std::vector<int>({2, 3}));
  // Clearing removes all and raises nothing; element 0 stays, hidden.
  g.opc->RegIni();
  EXPECT_EQ(g.opc->OpcNum(), 0);
  EXPECT_EQ(g.opc->opcUsa(), 0);
  EXPECT_TRUE(g.opc->Opc(0)->isHidden());
  EXPECT_EQ(g.ev.size(), 2u);
}

TEST(ZunOpc, ReadsOptionsByNameAndPassesMissingOnesOver) {
  Grupo g;
  g.Opcoes(2);
  std::vector<Var> a{Var(int16_t(2)), Var(Tx(u"x")), Var(Tx(u"y"))};
  g.opc->Exe(u"ConOpc", a);
  EXPECT_EQ(a[1].Txt(), u"Opção 2");
  EXPECT_EQ(a[2].Txt(), u"adi2");
  std::vector<Var> b{Var(int16_t(7)), Var(Tx(u"x")), Var(Tx(u"y"))};
  g.opc->Exe(u"ConOpc", b);
  EXPECT_EQ(b[1].Txt(), u"x") << "outputs stay as they were";
  std::vector<Var> n{Var()};
  g.opc->Exe(u"OpcNum", n);
  EXPECT_EQ(n[0].Num(), 2);
  // The font by name is only stored; the options keep the font they measure with.
  QFont antes = g.opc->Opc(1)->font();
  g.opc->PrpAtr(u"FontName", Var(Tx(u"Courier New")));
  g.opc->PrpAtr(u"FontSize", Var(int16_t(20)));
  EXPECT_EQ(g.opc->PrpCon(u"FontName").Txt(), u"Courier New");
  EXPECT_EQ(g.opc->Opc(1)->font(), antes);
  EXPECT_EQ(ErrNum([&] { g.opc->PrpAtr(u"FontItalic", Var(true)); }), 438);
  // A colour left out of the option file (-1) is refused and passed over by the
  // page's colour step: the group keeps its colours.
  CtlCorApl(*g.opc, Var(int32_t(-1)), Var(int32_t(-1)));
  EXPECT_EQ(g.opc->PrpCon(u"BackColor").Num(), double(int32_t(0x8000000F)));
  EXPECT_EQ(g.opc->PrpCon(u"ForeColor").Num(), 0);
  CtlCorApl(*g.opc, Var(int32_t(0x00FF00)), Var(int32_t(0x8000000F)));
  EXPECT_EQ(g.opc->PrpCon(u"BackColor").Num(), 0x00FF00);
  std::vector<Var> nada;
  EXPECT_EQ(ErrNum([&] { g.opc->Exe(u"Nada", nada); }), 438);
  EXPECT_EQ(ErrNum([&] { g.opc->Exe(u"RegOpc", nada); }), 450);
}

TEST(ZunOpc, RegAspStepsInTwipsAndTextSteps) {
  Grupo g;
  g.opc->resize(TwpPx(3000), TwpPx(2000));
  g.Opcoes(3);
  g.opc->RegAsp(150, 60, 450, 300);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(g.Left(i), PxTwp(TwpPx(150 + 450 * (i - 1))));
    EXPECT_EQ(g.Top(i), PxTwp(TwpPx(60 + 300 * (i - 1))));
    EXPECT_FALSE(g.opc->Opc(i)->isHidden());
    // Each reaches to 60 twips short of the control's right side.
    EXPECT_NEAR(PxTwp(g.opc->Opc(i)->width()), 3000 - g.Left(i) - 60, 15);
  }
  // "+30": one line of text and 30 twips; a number as text is still a text step.
  double h = g.AltTx();
  ASSERT_GT(h, 100);
  g.opc->RegAsp(300, 0, 0, Var(Tx(u"+30")));
  EXPECT_EQ(g.Top(2), PxTwp(TwpPx(h + 30)));
  EXPECT_EQ(g.Top(3), PxTwp(TwpPx(2 * (h + 30))));
  EXPECT_EQ(g.Left(3), PxTwp(TwpPx(300)));
  g.opc->RegAsp(300, 0, 0, Var(Tx(u"0")));
  EXPECT_EQ(g.Top(2), PxTwp(TwpPx(h)));
  // Across, a text step is the width of the sample "AÃÇ" in the options' font.
  double w = PxTwp(QFontMetrics(g.opc->Opc(0)->font()).horizontalAdvance(QStringLiteral("AÃÇ")));
  g.opc->RegAsp(150, 60, Var(Tx(u"+45")), 0);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(g.Left(i), PxTwp(TwpPx(150 + (w + 45) * (i - 1))));
    EXPECT_EQ(g.Top(i), PxTwp(TwpPx(60)));
  }
}

TEST(ZunOpc, AjtPosYSharesTheHeightUnderTheTitle) {
  Grupo g;
  g.opc->resize(TwpPx(3000), TwpPx(1530));
  double h = g.AltTx(), util = 1530 - 30;
  // One option, centred, no title: the middle of the free height.
  g.Opcoes(1);
  g.opc->AjtPosY(0, 0, 1);
  double passo = util - h;
  EXPECT_EQ(g.Top(1), PxTwp(TwpPx(passo / 2 - h / 2)));
  EXPECT_FALSE(g.opc->Opc(1)->isHidden());
  // Three options from the top margin, not centred.
  g.Opcoes(2);
  g.opc->AjtPosY(90, 60, 0);
  passo = (util - 60 - 90 - h) / 3;
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(g.Top(i), PxTwp(TwpPx(90 + passo * (i - 1))));
  // Seven options centred: the step keeps its fraction, which adds up down the list.
  g.Opcoes(4);
  g.opc->AjtPosY(22, 6, 1);
  passo = (util - 6 - 22 - h) / 7;
  ASSERT_NE(passo, std::floor(passo));
  for (int i = 1; i <= 7; ++i)
    EXPECT_EQ(g.Top(i), PxTwp(TwpPx(passo / 2 + 22 - h / 2 + passo * (i - 1)))) << "option " << i;
  // A title takes its height only with the border on.
  g.opc->Caption(u"Escolha");
  double tw, th;
  g.opc->TxDim(true, u"Escolha", tw, th);
  g.opc->AjtPosY(0, 0, 0);
  EXPECT_EQ(g.Top(1), PxTwp(TwpPx(th)));
  g.opc->BorderVisible(false);
  g.opc->AjtPosY(0, 0, 0);
  EXPECT_EQ(g.Top(1), 0);
  // No options: nothing to place, nothing fails.
  g.opc->RegIni();
  g.opc->AjtPosY(0, 0, 1);
  EXPECT_EQ(g.opc->OpcNum(), 0);
}

TEST(ZunOpc, TitAliTakesSymbolsAndKeypadDigits) {
  Grupo g;
  EXPECT_EQ(g.opc->TitAli(), u"<");
  const std::pair<const char16_t*, const char16_t*> casos[] = {
      {u"9", u">"}, {u"  |centro", u"|"}, {u"7", u"<"}, {u"8", u"|"}, {u">", u">"}, {u"x", u">"}, {u"", u">"}};
  for (auto [pal, esp] : casos) {
    g.opc->PrpAtr(u"TitAli", Var(Tx(pal)));
    EXPECT_EQ(g.opc->PrpCon(u"TitAli").Txt(), esp) << "after " << TxUtf8(pal);
  }
}

TEST(ZunOpc, ColourModesShowOwnParentOrPictureBehind) {
  Grupo g;  // the window is red
  g.opc->setGeometry(10, 10, 200, 100);
  g.opc->show();
  g.Opcoes(1);
  g.opc->RegAsp(300, 0, 0, u"+30");
  g.opc->BorderVisible(false);
  g.opc->BackColor(0x00FF00);  // green
  g.opc->CorTip(u"N");
  EXPECT_EQ(Pixel(g.jan.get(), 100, 100), QColor(0, 255, 0));
  g.opc->CorTip(u"I");  // no picture taken yet: the colours stay
  EXPECT_EQ(Pixel(g.jan.get(), 100, 100), QColor(0, 255, 0));
  // The parent's picture behind: the window shows through the control; the
  // options keep their back colour.
  g.opc->CorTip(u" ip ");
  EXPECT_EQ(g.opc->ModoCor(), u"IP");
  EXPECT_EQ(Pixel(g.jan.get(), 100, 100), QColor(200, 0, 0));
  int oy = g.opc->Opc(1)->y() + 10 + 1;
  EXPECT_EQ(Pixel(g.jan.get(), 200, oy), QColor(0, 255, 0));
  g.opc->BackColor(0x00FF00);  // colours set again in this mode change neither
  EXPECT_EQ(Pixel(g.jan.get(), 100, 100), QColor(200, 0, 0));
  EXPECT_EQ(Pixel(g.jan.get(), 200, oy), QColor(0, 255, 0));
  g.opc->CorTip(u"N");
  g.opc->CorTip(u"I");  // the picture taken before shows again
  EXPECT_EQ(Pixel(g.jan.get(), 100, 100), QColor(200, 0, 0));
  // The parent's colours go to the frame; the part after "-" is not read.
  g.opc->BorderVisible(true);
  g.opc->CorTip(u"P-qualquer");
  EXPECT_EQ(g.opc->ModoCor(), u"P");
  EXPECT_EQ(Pixel(g.jan.get(), 100, 60), QColor(200, 0, 0));
  g.opc->CorTip(u"N");
  EXPECT_EQ(Pixel(g.jan.get(), 100, 60), QColor(200, 0, 0)) << "N leaves the colours";
  g.opc->BackColor(0xFF0000);  // blue
  EXPECT_EQ(Pixel(g.jan.get(), 100, 60), QColor(0, 0, 255));
  EXPECT_EQ(Pixel(g.jan.get(), 160, oy), QColor(0, 0, 255)) << "the options follow the back colour";
}

TEST(ZunOpc, ColourModesTellContainerFromParent) {
  std::unique_ptr<QWidget> jan{Janela(QColor(200, 0, 0))};  // the parent is red
  QWidget* ctn = Janela(QColor(0, 0, 200), 300, 200);       // the container is blue
  ctn->setParent(jan.get());
  ctn->move(50, 50);
  ZunOpc* opc = OpcCri(ctn);
  opc->setGeometry(20, 20, 200, 100);
  opc->BackColor(0x00FF00);
  opc->show();
  ctn->show();
  EXPECT_EQ(Pixel(jan.get(), 170, 140), QColor(0, 255, 0));
  opc->CorTip(u"C");
  EXPECT_EQ(Pixel(jan.get(), 170, 140), QColor(0, 0, 200));
  opc->CorTip(u"P");
  EXPECT_EQ(Pixel(jan.get(), 170, 140), QColor(200, 0, 0));
  opc->CorTip(u"c-x");
  EXPECT_EQ(Pixel(jan.get(), 170, 140), QColor(0, 0, 200));
}
