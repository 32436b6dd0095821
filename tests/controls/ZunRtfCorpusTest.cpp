// Every file of the rich-text corpus (tests/foundation/data/rtf and its corpus
// folder, sources in its README) drawn by the box: its text is the one recorded
// beside it (LibreOffice's plain-text export, checked by hand), and a few facts of
// its formatting hold.
#include <gtest/gtest.h>
#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTextBlock>
#include <memory>
#include "CtlFab.h"
#include "CtlTst.h"
#include "FonTab.h"
#include "TxQt.h"
#include "ZunRtf.h"

using namespace zw;
using namespace zw::tst;

namespace {

QString Pasta() { return QDir::cleanPath(QString::fromUtf8(ZW_TEST_DATA) + QStringLiteral("/../../foundation/data/rtf")); }

// The text as compared: line ends as LF, no byte-order mark, blanks and tabs
// inside a line as one space and none at its ends, no blank lines at the end.
// LibreOffice writes a list's label afresh ("    \u2022 ") where the file's own
// label is a bullet of the Symbol font and a tab ("\u00b7\t"): the bullets compare
// equal. A Wingdings byte B7 (a WordPad list's mark) LibreOffice writes as the
// private-use U+F0B7, the box as the page's middle dot: the same mark.
QString Normal(QString s) {
  s.remove(QChar(0xFEFF));
  s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  s.replace(QChar::LineSeparator, QChar(u'\n'));
  s.replace(QChar(0x00B7), QChar(0x2022));
  s.replace(QChar(0xF0B7), QChar(0x2022));
  QStringList lin = s.split(u'\n');
  for (QString& l : lin) l = l.simplified();
  s = lin.join(u'\n');
  while (s.endsWith(u'\n')) s.chop(1);
  return s;
}

// A box of the usual licence page's size with the file loaded.
std::unique_ptr<QWidget> Carrega(const QString& fic, ZunRtf*& rt) {
  std::unique_ptr<QWidget> jan(Janela(Qt::white, 500, 400));
  rt = RtfCri(jan.get());
  rt->setGeometry(0, 0, 480, 380);
  std::vector<Var> a{Var(TxQs(fic))};
  rt->Exe(u"LoadFile", a);
  return jan;
}

}  // namespace

TEST(ZunRtfCorpus, EveryFileGivesItsRecordedText) {
  QStringList fics;
  for (const QString& sub : {QString(), QStringLiteral("/corpus")}) {
    QDir d(Pasta() + sub);
    for (const QString& n : d.entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name)) fics << d.filePath(n);
  }
  ASSERT_GE(fics.size(), 21);
  for (const QString& f : fics) {
    QString ref = f;
    ref.replace(QRegularExpression(QStringLiteral("\\.rtf$")), QStringLiteral(".txt"));
    QFile r(ref);
    ASSERT_TRUE(r.open(QIODevice::ReadOnly)) << ref.toStdString();
    ZunRtf* rt = nullptr;
    auto jan = Carrega(f, rt);
    rt->document()->setTextWidth(460);
    EXPECT_EQ(Normal(QsTx(rt->Text())).toStdString(), Normal(QString::fromUtf8(r.readAll())).toStdString()) << f.toStdString();
    EXPECT_GT(rt->document()->documentLayout()->documentSize().height(), 20) << f.toStdString();
  }
}

// TextEdit's list: the bullet at the first-line indent, the item at the left indent.
TEST(ZunRtfCorpus, TextEditListBulletsAndItems) {
  ZunRtf* rt = nullptr;
  auto jan = Carrega(Pasta() + QStringLiteral("/corpus/osxinst-license.rtf"), rt);
  rt->document()->setTextWidth(460);
  QTextBlock b = rt->document()->begin();
  while (b.isValid() && !b.text().contains(QStringLiteral("Redistributions of source"))) b = b.next();
  ASSERT_TRUE(b.isValid());
  QTextLine l = b.layout()->lineAt(0);
  int item = int(b.text().indexOf(QStringLiteral("Redistributions")));
  double x0 = b.layout()->position().x();
  EXPECT_NEAR(x0 + l.cursorToX(item) - rt->document()->documentMargin(), 540 / 15.0, 1.5) << "the item text at \\li540";
  EXPECT_LT(x0 + l.cursorToX(int(b.text().indexOf(QChar(0x2022)))), 540 / 15.0 - 5);
}

// LibreOffice's export of a plain-text licence: 10-point Liberation Mono.
TEST(ZunRtfCorpus, LibreOfficeFileFontAndSpacing) {
  ZunRtf* rt = nullptr;
  auto jan = Carrega(Pasta() + QStringLiteral("/corpus/libreoffice-bsd.rtf"), rt);
  QTextBlock b = rt->document()->begin();
  while (b.isValid() && b.text().isEmpty()) b = b.next();
  ASSERT_TRUE(b.isValid());
  QFont f = b.begin().fragment().charFormat().font();
  EXPECT_EQ(f.pixelSize(), 13);
  EXPECT_EQ(f.family(), FonFam(QStringLiteral("Liberation Mono")));
}

// Not a check: draws every corpus file in a box 600 pixels wide, as tall as its
// text, into ZW_RTF_SHOTS/<name>.png for comparison by eye with LibreOffice's
// rendering at 96 dpi (docs/rtf-corpus.md). Run with
// --gtest_also_run_disabled_tests and ZW_RTF_SHOTS set.
TEST(ZunRtfCorpus, DISABLED_DrawEveryFileForComparison) {
  const QString pasta = qEnvironmentVariable("ZW_RTF_SHOTS");
  if (pasta.isEmpty()) GTEST_SKIP() << "ZW_RTF_SHOTS not set";
  QDir d(Pasta() + QStringLiteral("/corpus"));
  for (const QString& n : d.entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name)) {
    ZunRtf* rt = nullptr;
    auto jan = Carrega(d.filePath(n), rt);
    rt->document()->setTextWidth(600);
    const int alt = int(rt->document()->documentLayout()->documentSize().height()) + 4;
    rt->setGeometry(0, 0, 600, alt);
    jan->resize(600, alt);
    QImage img(600, alt, QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter p(&img);
    rt->render(&p);
    p.end();
    QString png = n;
    png.replace(QRegularExpression(QStringLiteral("\\.rtf$")), QStringLiteral(".png"));
    EXPECT_TRUE(img.save(pasta + u'/' + png)) << png.toStdString();
  }
}
