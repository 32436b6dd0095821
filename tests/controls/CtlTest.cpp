// The label, check box, rich-text box and button by name, and the font table.
#include <gtest/gtest.h>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPushButton>
#include <QTextBlock>
#include <memory>
#include "CtlFab.h"
#include "CtlTst.h"
#include "FicLer.h"
#include "FonTab.h"
#include "TstTmp.h"
#include "TxQt.h"

using namespace zw;
using namespace zw::tst;

namespace {

// Writes a file in the test's own temporary folder; its path as a text.
Tx Grava(const char* nome, const std::string& bytes) {
  Escreve(FicTmp(nome), bytes);
  return FicTmpTx(nome);
}

}  // namespace

// The label steps of a page: a width makes it wrap and grow downwards, no width lets
// it grow sideways, and a height fixes it.
TEST(ZunLab, AutoSizeGrowsDownWithWidthAndSidewaysWithout) {
  std::unique_ptr<QWidget> jan(Janela(Qt::white));
  ZunLab* la = LabCri(jan.get());
  la->PrpAtr(u"AutoSize", Var(false));
  la->PrpAtr(u"Width", Var(1500.0));
  la->PrpAtr(u"WordWrap", Var(true));
  la->PrpAtr(u"AutoSize", Var(true));
  la->PrpAtr(u"Caption", Var(Tx(u"Curto")));
  double uma = Num(*la, u"Height");
  EXPECT_EQ(Num(*la, u"Width"), 1500);
  la->PrpAtr(u"Caption", Var(Tx(u"Um texto bastante comprido que não cabe numa só linha de cem pixéis")));
  EXPECT_EQ(Num(*la, u"Width"), 1500);
  EXPECT_GE(Num(*la, u"Height"), 3 * uma);
  la->PrpAtr(u"Caption", Var(Tx(u"Curto")));
  EXPECT_EQ(Num(*la, u"Height"), uma);
  // A height given afterwards is kept whatever the text.
  la->PrpAtr(u"AutoSize", Var(false));
  la->PrpAtr(u"Height", Var(2000.0));
  la->PrpAtr(u"Caption", Var(Tx(u"x")));
  EXPECT_EQ(Num(*la, u"Height"), 2000 - 2000 % 15 + (2000 % 15 >= 8 ? 15 : 0));

  ZunLab* lb = LabCri(jan.get());
  lb->PrpAtr(u"AutoSize", Var(true));
  lb->PrpAtr(u"Caption", Var(Tx(u"Olá")));
  double w1 = Num(*lb, u"Width");
  lb->PrpAtr(u"Caption", Var(Tx(u"Olá, mundo inteiro")));
  EXPECT_GT(Num(*lb, u"Width"), 2 * w1);
  EXPECT_EQ(Num(*lb, u"Height"), uma);
  lb->PrpAtr(u"Caption", Var(Tx(u"duas\r\nlinhas")));
  EXPECT_EQ(Num(*lb, u"Height"), 2 * uma);
  // A bigger font makes a taller line.
  lb->PrpAtr(u"FontSize", Var(int16_t(16)));
  EXPECT_GT(Num(*lb, u"Height"), 3 * uma);
}

TEST(ZunLab, TransparentShowsTheWindowOpaqueItsColour) {
  std::unique_ptr<QWidget> jan(Janela(QColor(10, 20, 30)));
  ZunLab* la = LabCri(jan.get());
  la->PrpAtr(u"Left", Var(150.0));
  la->PrpAtr(u"Top", Var(150.0));
  la->PrpAtr(u"Caption", Var(Tx(u".")));
  la->PrpAtr(u"BackColor", Var(int32_t(0x0000FF)));
  la->PrpAtr(u"Visible", Var(true));
  EXPECT_EQ(Pixel(jan.get(), 50, 20), QColor(255, 0, 0));
  la->PrpAtr(u"BackStyle", Var(int16_t(0)));
  EXPECT_EQ(Pixel(jan.get(), 50, 20), QColor(10, 20, 30));
  // A system colour number: the button face.
  la->PrpAtr(u"BackStyle", Var(int16_t(1)));
  la->PrpAtr(u"BackColor", Var(int32_t(0x8000000F)));
  EXPECT_EQ(Pixel(jan.get(), 50, 20), CorQt(0x8000000F));
  EXPECT_EQ(la->PrpCon(u"BackColor").Num(), double(int32_t(0x8000000F)));
}

TEST(ZunLab, PropertiesByNameAndTheirErrors) {
  std::unique_ptr<QWidget> jan(Janela(Qt::white));
  ZunLab* la = LabCri(jan.get());
  la->PrpAtr(u"left", Var(Tx(u"100")));
  EXPECT_EQ(Num(*la, u"Left"), 105) << "twips land on whole pixels";
  EXPECT_EQ(Num(*la, u"Width"), 1305);
  EXPECT_FALSE(la->PrpCon(u"Visible").Bool()) << "made hidden, as a loaded element";
  EXPECT_EQ(ErrNum([&] { la->PrpAtr(u"Align", Var(int16_t(1))); }), 438);
  EXPECT_EQ(ErrNum([&] { la->PrpAtr(u"Alignment", Var(int16_t(3))); }), 380);
  EXPECT_EQ(ErrNum([&] { la->PrpAtr(u"Left", Var(Tx(u"abc"))); }), 13);
  EXPECT_EQ(ErrNum([&] { la->PrpCon(u"Value"); }), 438);
  la->PrpAtr(u"FontName", Var(Tx(u"Arial")));
  la->PrpAtr(u"FontSize", Var(12.0));
  la->PrpAtr(u"FontBold", Var(true));
  la->PrpAtr(u"FontItalic", Var(true));
  EXPECT_EQ(la->PrpCon(u"FontName").Txt(), u"Arial");
  EXPECT_EQ(la->font().family(), FonFam(QStringLiteral("Arial")));
  EXPECT_EQ(la->font().pixelSize(), 16);
  EXPECT_TRUE(la->font().bold() && la->font().italic());
  la->PrpAtr(u"Enabled", Var(false));
  EXPECT_FALSE(la->isEnabled());
  std::vector<Var> a;
  EXPECT_EQ(ErrNum([&] { la->Exe(u"LoadFile", a); }), 438);
}

TEST(ZunCkb, ValueByNameAndByClick) {
  std::unique_ptr<QWidget> jan(Janela(QColor(10, 20, 30)));
  ZunCkb* ck = CkbCri(jan.get());
  EXPECT_EQ(ck->PrpCon(u"Value").Num(), 0);
  ck->PrpAtr(u"Value", Var(Tx(u"1")));
  EXPECT_TRUE(ck->isChecked());
  ck->click();
  EXPECT_EQ(ck->PrpCon(u"Value").Num(), 0);
  EXPECT_EQ(ErrNum([&] { ck->PrpAtr(u"Value", Var(int16_t(5))); }), 380);
  // BackStyle 1 is the transparent one in this control.
  ck->setGeometry(0, 0, 100, 20);
  ck->show();
  ck->PrpAtr(u"BackColor", Var(int32_t(0x00FF00)));
  ck->PrpAtr(u"BackStyle", Var(int16_t(0)));
  EXPECT_EQ(Pixel(jan.get(), 98, 18), QColor(0, 255, 0));
  ck->PrpAtr(u"BackStyle", Var(int16_t(1)));
  EXPECT_EQ(Pixel(jan.get(), 98, 18), QColor(10, 20, 30));
}

TEST(ZunRtf, LoadFileTextAndErrors) {
  std::unique_ptr<QWidget> jan(Janela(QColor(10, 20, 30)));
  ZunRtf* rt = RtfCri(jan.get());
  EXPECT_TRUE(rt->isReadOnly());
  Tx fic = Grava("leiame.rtf", "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\qc\\b Licen\\'e7a\\b0\\par\\pard Texto \\i it\\'e1lico\\par}");
  // Folders separated by "\" reach the file too.
  Tx win = fic;
  for (char16_t& c : win)
    if (c == u'/') c = u'\\';
  std::vector<Var> a{Var(win)};
  rt->Exe(u"LoadFile", a);
  EXPECT_EQ(rt->PrpCon(u"Text").Txt(), u"Licença\r\nTexto itálico");
  QTextBlock b0 = rt->document()->firstBlock();
  EXPECT_EQ(b0.blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
  EXPECT_TRUE(b0.begin().fragment().charFormat().font().bold());
  EXPECT_EQ(b0.begin().fragment().charFormat().font().family(), FonFam(QStringLiteral("Arial")));
  QTextBlock b1 = b0.next();
  EXPECT_FALSE(b1.begin().fragment().charFormat().font().bold());
  bool italico = false;
  for (auto it = b1.begin(); !it.atEnd(); ++it)
    if (it.fragment().text().contains(QStringLiteral("itálico"))) italico = it.fragment().charFormat().fontItalic();
  EXPECT_TRUE(italico);
  // A missing file and a file that is no rich text raise; the box keeps its text.
  std::vector<Var> m{Var(Tx(u"/nao/existe.rtf"))};
  EXPECT_EQ(ErrNum([&] { rt->Exe(u"LoadFile", m); }), 53);
  std::vector<Var> t{Var(Grava("leiame.txt", "texto simples"))};
  EXPECT_EQ(ErrNum([&] { rt->Exe(u"LoadFile", t); }), 321);
  EXPECT_EQ(rt->Text(), u"Licença\r\nTexto itálico");
  // Notepad's "Unicode" (UTF-16 with its mark): rich text is read as rich text, any
  // other text shown as it stands, and the trace says which it was.
  std::vector<Tx> notas;
  LimTrcDef([&](const Tx& n) { notas.push_back(n); });
  auto utf16 = [](std::u16string_view t, bool be) {
    std::string b = be ? "\xFE\xFF" : "\xFF\xFE";
    for (char16_t c : t) {
      char hi = char(c >> 8), lo = char(c & 0xFF);
      b += be ? std::string{hi, lo} : std::string{lo, hi};
    }
    return b;
  };
  std::vector<Var> u{Var(Grava("u16.rtf", utf16(u"{\\rtf1\\ansi\\uc0 \\b Licença \u4e2d\\b0\\par}", false)))};
  rt->Exe(u"LoadFile", u);
  EXPECT_EQ(rt->Text(), u"Licença \u4e2d");
  EXPECT_TRUE(rt->document()->firstBlock().begin().fragment().charFormat().font().bold());
  std::vector<Var> p{Var(Grava("u16.txt", utf16(u"Só texto\r\nlinha 2", true)))};
  rt->Exe(u"LoadFile", p);
  EXPECT_EQ(rt->Text(), u"Só texto\r\nlinha 2");
  LimTrcDef(nullptr);
  ASSERT_EQ(notas.size(), 2u);
  EXPECT_NE(notas[0].find(u"read as UTF-16"), Tx::npos);
  EXPECT_NE(notas[1].find(u"shown as plain text"), Tx::npos);
  // Text replaces everything with plain text.
  rt->PrpAtr(u"Text", Var(Tx(u"um\r\ndois")));
  EXPECT_EQ(rt->Text(), u"um\r\ndois");
  EXPECT_FALSE(rt->document()->firstBlock().begin().fragment().charFormat().font().bold());
  EXPECT_EQ(ErrNum([&] { rt->PrpAtr(u"Caption", Var(Tx(u"x"))); }), 438);
}

TEST(ZunRtf, TransparentBackShowsTheWindow) {
  std::unique_ptr<QWidget> jan(Janela(QColor(10, 20, 30)));
  ZunRtf* rt = RtfCri(jan.get());
  rt->setGeometry(0, 0, 200, 100);
  rt->show();
  rt->PrpAtr(u"BackColor", Var(int32_t(0x00FFFF)));
  EXPECT_EQ(Pixel(jan.get(), 100, 80), QColor(255, 255, 0));
  rt->PrpAtr(u"BackStyle", Var(int16_t(0)));
  EXPECT_EQ(Pixel(jan.get(), 100, 80), QColor(10, 20, 30));
}

TEST(CtlBtn, CaptionStateAndGeometryByName) {
  std::unique_ptr<QWidget> jan(Janela(Qt::white));
  auto* b = new QPushButton(QStringLiteral("Seguinte >"), jan.get());
  auto c = BtnCri(b);
  EXPECT_EQ(c->PrpCon(u"Caption").Txt(), u"Seguinte >");
  c->PrpAtr(u"Caption", Var(Tx(u"&Fim")));
  EXPECT_EQ(b->text(), QStringLiteral("&Fim"));
  c->PrpAtr(u"Enabled", Var(false));
  EXPECT_FALSE(b->isEnabled());
  c->PrpAtr(u"Visible", Var(false));
  EXPECT_TRUE(b->isHidden());
  c->PrpAtr(u"Width", Var(1275.0));
  EXPECT_EQ(b->width(), 85);
}

// Word names a font once per character set ("Courier New Cyr", "Verdana CE") and
// Windows draws each with the font itself; East Asian files name their fonts in
// their own scripts, and "@" marks the vertical-writing face of the same font.
TEST(FonTab, CharacterSetTagsAndEastAsianNames) {
  QtApp();
  EXPECT_EQ(FonFam(QStringLiteral("Times New Roman CE")), FonFam(QStringLiteral("Times New Roman")));
  EXPECT_EQ(FonFam(QStringLiteral("Arial (Hebrew)")), FonFam(QStringLiteral("Arial")));
  EXPECT_EQ(FonFam(QStringLiteral("SimSun Western")), FonFam(QStringLiteral("SimSun")));
  EXPECT_EQ(FonFam(QStringLiteral("Fonte Inventada Greek")), QStringLiteral("Fonte Inventada"));
  const char* pares[][2] = {{"MS Mincho", "ＭＳ 明朝"}, {"MS Gothic", "ＭＳ ゴシック"}, {"MS PGothic", "ＭＳ Ｐゴシック"},
                            {"SimSun", "宋体"}, {"SimHei", "黑体"}, {"PMingLiU", "新細明體"}, {"Gulim", "굴림"},
                            {"Batang", "바탕"}, {"MS Mincho", "@ＭＳ 明朝"}};
  for (auto& p : pares) {
    QString fam = FonFam(QString::fromUtf8(p[0]));
    EXPECT_EQ(FonFam(QString::fromUtf8(p[1])), fam) << p[1];
    if (!QFontDatabase::families(QFontDatabase::Japanese).isEmpty()) {
      EXPECT_TRUE(QFontDatabase::hasFamily(fam)) << p[0] << " -> " << fam.toStdString();
    }
  }
  EXPECT_NE(FonFam(QStringLiteral("MS Mincho")), FonFam(QStringLiteral("MS Gothic"))) << "serif and sans stay apart";
}

// TextEdit names its fonts by their PostScript names: the family part goes through
// the table, and the style part makes the face bold or italic.
TEST(FonTab, PostScriptNames) {
  QtApp();
  const char* pares[][2] = {{"Helvetica-Bold", "Helvetica"}, {"Times-Roman", "Times"}, {"Courier-BoldOblique", "Courier"},
                            {"ArialMT", "Arial"}, {"Arial-BoldItalicMT", "Arial"}, {"TimesNewRomanPSMT", "Times New Roman"},
                            {"CourierNewPS-BoldMT", "Courier New"}};
  for (auto& p : pares) EXPECT_EQ(FonFam(QString::fromLatin1(p[0])), FonFam(QString::fromLatin1(p[1]))) << p[0];
  EXPECT_EQ(FonFam(QStringLiteral("Fonte-Inventada")), QStringLiteral("Fonte-Inventada"));
  QFont n = FonQt(QStringLiteral("Helvetica-Bold"), 12, false, false);
  EXPECT_TRUE(n.bold());
  EXPECT_FALSE(n.italic());
  QFont i = FonQt(QStringLiteral("Times-Italic"), 12, false, false);
  EXPECT_TRUE(i.italic());
  EXPECT_FALSE(FonQt(QStringLiteral("Helvetica"), 12, false, false).bold());
}

// The Windows names map to installed fonts drawn at the same widths: design
// advances of Arial, Times New Roman and Courier New, in units of 2048 an em.
TEST(FonTab, WindowsNamesMapToInstalledFontsOfTheSameWidths) {
  QtApp();
  for (const char* n : {"Arial", "Times New Roman", "Courier New", "Tahoma", "Verdana", "MS Sans Serif", "Segoe UI", "Calibri"}) {
    QString fam = FonFam(QString::fromLatin1(n));
    EXPECT_TRUE(QFontDatabase::hasFamily(fam)) << n << " -> " << fam.toStdString();
  }
  EXPECT_EQ(FonFam(QStringLiteral("arial")), FonFam(QStringLiteral("Arial")));
  EXPECT_EQ(FonFam(QStringLiteral("Fonte Inventada")), QStringLiteral("Fonte Inventada"));
  auto adv = [](const char* nome, const char* s) {
    QFont f = FonQt(QString::fromLatin1(nome), 1536, false, false);  // 2048 pixels an em
    f.setHintingPreference(QFont::PreferNoHinting);
    return QFontMetricsF(f).horizontalAdvance(QString::fromLatin1(s));
  };
  EXPECT_NEAR(adv("Arial", "a"), 1139, 2);
  EXPECT_NEAR(adv("Arial", "W"), 1933, 2);
  EXPECT_NEAR(adv("Arial", "i"), 455, 2);
  EXPECT_NEAR(adv("Times New Roman", "a"), 909, 2);
  EXPECT_NEAR(adv("Times New Roman", "W"), 1933, 2);
  EXPECT_NEAR(adv("Courier New", "iW"), 2 * 1229, 2);
}
