// The rich-text box lays licences out as word processors do: line and paragraph
// spacing, tab stops, empty paragraphs, tables and character shading, measured on
// the box's own document layout and on its picture.
#include <gtest/gtest.h>
#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextLayout>
#include <QTextTable>
#include <memory>
#include "CtlFab.h"
#include "CtlTst.h"
#include "RtfLer.h"
#include "ZunRtf.h"

using namespace zw;
using namespace zw::tst;

namespace {

// A box 400 pixels wide, shown on a window, with the document of the bytes.
struct Caixa {
  std::unique_ptr<QWidget> jan;
  ZunRtf* rt;
  explicit Caixa(std::string_view rtf, QColor fundo = QColor(10, 20, 30)) : jan(Janela(fundo, 420, 320)) {
    rt = RtfCri(jan.get());
    rt->setGeometry(0, 0, 400, 300);
    rt->show();
    RtfDoc d;
    EXPECT_TRUE(RtfLer(rtf, d));
    rt->DocPoe(d);
    rt->document()->setTextWidth(380);
  }
  QTextBlock Bloco(int n) const {
    QTextBlock b = rt->document()->begin();
    for (int k = 0; k < n && b.isValid(); ++k) b = b.next();
    return b;
  }
  // The top of line l of block n, in document pixels.
  double Topo(int n, int l = 0) const {
    QTextBlock b = Bloco(n);
    return rt->document()->documentLayout()->blockBoundingRect(b).y() + b.layout()->lineAt(l).y();
  }
  double Alt(int n, int l = 0) const { return Bloco(n).layout()->lineAt(l).height(); }
  // Where character c of block n starts, in pixels from the block's left edge.
  double X(int n, int c) const {
    QTextBlock b = Bloco(n);
    QTextLine ln = b.layout()->lineForTextPosition(c);
    return b.layout()->position().x() + ln.cursorToX(c);
  }
};

const char* kCab = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}{\\colortbl;\\red255\\green255\\blue255;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}";

std::string Doc(const std::string& corpo) { return kCab + corpo + "}"; }

}  // namespace

// Word's 1.08 and WordPad's 1.15 multiples widen the line pitch by that much;
// exact spacing gives the height asked, at least spacing never less.
TEST(ZunRtfLayout, LineSpacingMultiplesExactAndAtLeast) {
  std::string tres = "\\fs22 um\\line dois\\line tres\\par";
  Caixa um(Doc("\\pard" + tres));
  double passo = um.Topo(0, 1) - um.Topo(0, 0);
  ASSERT_GT(passo, 10);
  Caixa wp(Doc("\\pard\\sl276\\slmult1" + tres));
  EXPECT_NEAR((wp.Topo(0, 2) - wp.Topo(0, 0)) / 2, passo * 1.15, 0.6);
  Caixa wd(Doc("\\pard\\sl259\\slmult1" + tres));
  EXPECT_NEAR((wd.Topo(0, 2) - wd.Topo(0, 0)) / 2, passo * 259 / 240, 0.6);
  Caixa ex(Doc("\\pard\\sl-480\\slmult0" + tres));
  EXPECT_NEAR(ex.Topo(0, 1) - ex.Topo(0, 0), 32, 0.5);
  Caixa ap(Doc("\\pard\\sl-120\\slmult0" + tres));
  EXPECT_NEAR(ap.Topo(0, 1) - ap.Topo(0, 0), 8, 0.5) << "exact spacing may be tighter than the font";
  Caixa mn(Doc("\\pard\\sl480\\slmult0" + tres));
  EXPECT_NEAR(mn.Topo(0, 1) - mn.Topo(0, 0), 32, 0.5);
  Caixa mn2(Doc("\\pard\\sl60\\slmult0" + tres));
  EXPECT_NEAR(mn2.Topo(0, 1) - mn2.Topo(0, 0), passo, 0.5) << "at least spacing under the font's line keeps the line";
}

// The space after one paragraph and the space before the next add up; Word's
// contextual spacing leaves it out between paragraphs of one style.
TEST(ZunRtfLayout, SpaceAfterAndBeforeAddUp) {
  Caixa c(Doc("\\pard\\sa300 um\\par\\pard\\sb150 dois\\par\\pard tres\\par"));
  double linha = c.Alt(0);
  EXPECT_NEAR(c.Topo(1) - c.Topo(0), linha + 30, 0.5);
  EXPECT_NEAR(c.Topo(2) - c.Topo(1), linha, 0.5);
  Caixa ctx(Doc("\\pard\\s1\\sa300\\contextualspace um\\par dois\\par\\pard\\s0 tres\\par"));
  EXPECT_NEAR(ctx.Topo(1) - ctx.Topo(0), linha, 0.5);
  EXPECT_NEAR(ctx.Topo(2) - ctx.Topo(1), linha + 20, 0.5);
}

// Tab stops from the left margin, of each kind; a hanging first line tabs to the
// left indent, so a list's item text begins there, not at the bullet.
TEST(ZunRtfLayout, TabStopsOfEachKind) {
  Caixa c(Doc("\\pard\\tx1440\\tx2880 a\\tab b\\tab c\\par"
              "\\pard\\tqr\\tx4320 a\\tab fim\\par"
              "\\pard\\tqc\\tx4320 a\\tab meio\\par"
              "\\pard\\tqdec\\tx4320 a\\tab 12.5\\par"
              "\\pard\\li720\\fi-360\\tx720 \\bullet\\tab item\\par"
              "\\pard\\li1440\\fi-1440\\tx360\\tx1440 1.\\tab x\\tab y\\par"));
  double m = c.X(0, 0);
  EXPECT_NEAR(c.X(0, 2) - m, 96, 1);
  EXPECT_NEAR(c.X(0, 4) - m, 192, 1);
  EXPECT_NEAR(c.X(1, 5) - m, 288, 1) << "right tab: the text ends at the stop";
  double meio = (c.X(2, 2) + c.X(2, 6)) / 2 - m;
  EXPECT_NEAR(meio, 288, 1.5) << "centre tab";
  EXPECT_NEAR(c.X(3, 4) - m, 288, 1) << "decimal tab: the point at the stop";
  EXPECT_NEAR(c.X(4, 0) - m, 24, 1);
  EXPECT_NEAR(c.X(4, 2) - m, 48, 1) << "the item text at the left indent";
  EXPECT_NEAR(c.X(5, 3) - m, 24, 1);
  EXPECT_NEAR(c.X(5, 5) - m, 96, 1);
}

// Word and LibreOffice put a quarter of the font's size between ideographs and
// Latin letters or digits in paragraphs that ask for it; the text keeps no blank.
TEST(ZunRtfLayout, RoomBetweenAsianAndLatinText) {
  Caixa c("{\\rtf1\\ansi\\ansicpg932{\\fonttbl{\\f0\\fcharset128 MS Mincho;}}\\f0\\fs24"
          "\\pard\\aspalpha\\aspnum \\'97\\'98Word\\'97\\'98{\\b 12}\\'8c\\'8e\\par"
          "\\pard \\'97\\'98Word\\'97\\'98{\\b 12}\\'8c\\'8e\\par"
          "\\pard\\aspalpha \\'97\\'98Word\\'97\\'98{\\b 12}\\'8c\\'8e\\par}");
  double m = c.X(1, 0);
  EXPECT_NEAR(c.X(0, 1) - c.X(1, 1), 4, 0.6) << "before the word";
  EXPECT_NEAR(c.X(0, 5) - c.X(1, 5), 8, 0.6) << "after it";
  EXPECT_NEAR(c.X(0, 8) - c.X(1, 8), 16, 0.6) << "around the digits, in another run";
  EXPECT_NEAR(c.X(2, 8) - c.X(1, 8), 8, 0.6) << "letters only";
  EXPECT_NEAR(c.X(0, 0), m, 0.1);
  EXPECT_EQ(c.Bloco(0).text(), c.Bloco(1).text());
  EXPECT_EQ(c.rt->Text(), Tx(u"利Word利12月\r\n利Word利12月\r\n利Word利12月"));
}

// An empty paragraph is as high as its own mark's font, not the text above it.
TEST(ZunRtfLayout, EmptyParagraphTakesItsOwnSize) {
  Caixa c(Doc("\\pard\\fs72 Grande\\par\\fs16\\par\\fs16 pequeno\\par"));
  EXPECT_GT(c.Alt(0), 40);
  EXPECT_NEAR(c.Alt(1), c.Alt(2), 0.5);
  EXPECT_NEAR(c.Topo(2) - c.Topo(1), c.Alt(2), 0.5);
}

// Table rows keep their text, one Qt table cell per cell, and draw the cells'
// shading, borders and padding.
TEST(ZunRtfLayout, TablesKeepShadingBordersAndPadding) {
  std::string lin =
      "\\trowd\\trgaph108\\trleft0\\trpaddl300\\trpaddt150\\trpaddfl3\\trpaddft3"
      "\\clcbpat2\\clbrdrt\\brdrs\\brdrw30\\brdrcf3\\clbrdrl\\brdrs\\brdrw30\\brdrcf3\\clbrdrb\\brdrs\\brdrw30\\brdrcf3\\clbrdrr\\brdrs\\brdrw30\\brdrcf3\\cellx2400"
      "\\clbrdrt\\brdrnone\\cellx4800";
  Caixa c(Doc("\\pard antes\\par" + lin + "\\pard\\intbl um\\cell dois\\par mais\\cell\\row" + lin +
              "\\pard\\intbl tres\\cell quatro\\cell\\row\\pard depois\\par"));
  EXPECT_EQ(c.rt->Text(), u"antes\r\num\tdois\r\nmais\r\ntres\tquatro\r\ndepois");
  QTextTable* t = nullptr;
  for (QTextFrame* f : c.rt->document()->rootFrame()->childFrames())
    if ((t = qobject_cast<QTextTable*>(f))) break;
  ASSERT_TRUE(t);
  EXPECT_EQ(t->rows(), 2);
  EXPECT_EQ(t->columns(), 2);
  QTextTableCellFormat cf = t->cellAt(0, 0).format().toTableCellFormat();
  EXPECT_EQ(cf.background().color(), QColor(255, 0, 0));
  EXPECT_EQ(cf.leftPadding(), 20);
  EXPECT_EQ(cf.topPadding(), 10);
  EXPECT_EQ(cf.rightPadding(), 7.2);
  EXPECT_EQ(cf.leftBorder(), 2);
  EXPECT_EQ(cf.leftBorderBrush().color(), QColor(0, 0, 255));
  EXPECT_EQ(t->cellAt(0, 1).format().toTableCellFormat().topBorder(), 0);
  // On the picture: the text starts past a blue border 2 pixels wide and 20 of
  // red padding; the second cell, unshaded, shows the box's white back.
  c.rt->PrpAtr(u"BackColor", Var(int32_t(0xFFFFFF)));
  QImage im = c.jan->grab().toImage();
  QTextBlock um = t->cellAt(0, 0).firstCursorPosition().block();
  EXPECT_EQ(um.text(), QStringLiteral("um"));
  QRectF r = c.rt->document()->documentLayout()->blockBoundingRect(um);
  QPoint o = c.rt->viewport()->mapTo(c.jan.get(), QPoint(int(r.x()), int(r.y())));
  EXPECT_EQ(im.pixelColor(o.x() - 21, o.y() + 3), QColor(0, 0, 255));
  EXPECT_EQ(im.pixelColor(o.x() - 22, o.y() + 3), QColor(0, 0, 255));
  EXPECT_EQ(im.pixelColor(o.x() - 23, o.y() + 3), QColor(255, 255, 255));
  EXPECT_EQ(im.pixelColor(o.x() - 19, o.y() + 3), QColor(255, 0, 0));
  EXPECT_EQ(im.pixelColor(o.x() - 1, o.y() - 5), QColor(255, 0, 0)) << "top padding shaded";
  EXPECT_EQ(im.pixelColor(o.x() + 170, o.y() + 3), QColor(255, 255, 255));
}

// Rows of different cells share one table; a cell spans the columns between its edges.
TEST(ZunRtfLayout, RowsOfDifferentCellsKeepTheirWidths) {
  Caixa c(Doc("\\trowd\\cellx1500\\cellx3000\\pard\\intbl a\\cell b\\cell\\row"
              "\\trowd\\cellx3000\\pard\\intbl largo\\cell\\row"));
  QTextTable* t = nullptr;
  for (QTextFrame* f : c.rt->document()->rootFrame()->childFrames())
    if ((t = qobject_cast<QTextTable*>(f))) break;
  ASSERT_TRUE(t);
  EXPECT_EQ(t->columns(), 2);
  EXPECT_EQ(t->cellAt(1, 0).columnSpan(), 2);
  EXPECT_EQ(c.rt->Text(), u"a\tb\r\nlargo") << "a table at the start adds no line to the text";
  EXPECT_NEAR(c.Topo(1), c.Topo(0), 1) << "nor to the picture";
}

// White shading of characters paints only where the box is opaque; over a
// transparent box the window shows through, whichever is set first.
TEST(ZunRtfLayout, CharacterShadingOnlyOnAnOpaqueBox) {
  Caixa c(Doc("\\pard\\fs48{\\highlight1\\cb1\\chcbpat1 MMMMMMMM}\\par"), QColor(10, 20, 30));
  QPoint o = c.rt->viewport()->mapTo(c.jan.get(), QPoint(0, 0));
  QPoint p(o.x() + int(c.X(0, 4)) + 1, o.y() + int(c.Topo(0)) + 2);
  c.rt->PrpAtr(u"BackColor", Var(int32_t(0x00FFFF)));
  EXPECT_EQ(c.jan->grab().toImage().pixelColor(p), QColor(255, 255, 255)) << "opaque: the shading shows";
  c.rt->PrpAtr(u"BackStyle", Var(int16_t(0)));
  EXPECT_EQ(c.jan->grab().toImage().pixelColor(p), QColor(10, 20, 30)) << "transparent: the window shows";
  c.rt->PrpAtr(u"BackStyle", Var(int16_t(1)));
  EXPECT_EQ(c.jan->grab().toImage().pixelColor(p), QColor(255, 255, 255));
  // Loaded into a box already transparent.
  c.rt->PrpAtr(u"BackStyle", Var(int16_t(0)));
  RtfDoc d;
  RtfLer(Doc("\\pard\\fs48{\\highlight1 MMMMMMMM}\\par"), d);
  c.rt->DocPoe(d);
  EXPECT_EQ(c.jan->grab().toImage().pixelColor(p), QColor(10, 20, 30));
}
