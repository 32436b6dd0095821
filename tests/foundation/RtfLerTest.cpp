// The rich-text reader on files as word processors write them, and on broken input.
// The plain text of each file is checked against the recording beside it by the
// rich-text box's corpus test; here the formatting, and the text where it is exact.
#include <gtest/gtest.h>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include "RtfLer.h"

using namespace zw;

namespace {

std::string Fic(const char* nome) {
  std::ifstream f(std::string(ZW_TEST_DATA) + "/rtf/" + nome, std::ios::binary);
  std::ostringstream s;
  s << f.rdbuf();
  EXPECT_FALSE(s.str().empty()) << nome;
  return s.str();
}

RtfDoc Le(std::string_view b) {
  RtfDoc d;
  EXPECT_TRUE(RtfLer(b, d));
  return d;
}

// The text of paragraph p.
Tx ParTx(const RtfDoc& d, size_t p) {
  Tx r;
  if (p < d.pars.size())
    for (const RtfRun& run : d.pars[p].runs) r += run.tx;
  return r;
}

// The run of paragraph p that is the text s, else the first that holds it.
const RtfRun* RunDe(const RtfDoc& d, size_t p, TxV s) {
  if (p >= d.pars.size()) return nullptr;
  for (const RtfRun& r : d.pars[p].runs)
    if (r.tx == s) return &r;
  for (const RtfRun& r : d.pars[p].runs)
    if (r.tx.find(s) != Tx::npos) return &r;
  return nullptr;
}

long Rgb(int r, int g, int b) { return r + 256L * g + 65536L * b; }

}  // namespace

TEST(RtfLer, WordPadFile) {
  RtfDoc d = Le(Fic("wordpad.rtf"));
  ASSERT_EQ(d.pars.size(), 5u);
  EXPECT_EQ(d.pars[0].aln, 2);
  const RtfRun* t = RunDe(d, 0, u"Contrato");
  ASSERT_TRUE(t);
  EXPECT_TRUE(t->car.neg);
  EXPECT_EQ(t->car.tam, 14);
  EXPECT_EQ(t->car.fon, u"Calibri");
  EXPECT_EQ(d.pars[1].aln, 3);
  EXPECT_EQ(d.pars[1].depois, 200);
  // Bullets come as text, the list's own definition is skipped.
  EXPECT_EQ(ParTx(d, 2), u"·\tO programa não pode ser copiado.");
  EXPECT_EQ(d.pars[2].esq, 720);
  EXPECT_EQ(d.pars[2].pri, -360);
  EXPECT_TRUE(RunDe(d, 2, u"não")->car.ita);
  EXPECT_FALSE(RunDe(d, 2, u"pode")->car.ita);
  const RtfRun* a = RunDe(d, 3, u"Aviso");
  ASSERT_TRUE(a);
  EXPECT_TRUE(a->car.sub);
  EXPECT_EQ(a->car.cor, Rgb(255, 0, 0));
  EXPECT_TRUE(RunDe(d, 3, u"sem garantia")->car.tac);
  EXPECT_EQ(RunDe(d, 3, u": ")->car.cor, -1) << "colour 0 of the table is the automatic one";
  EXPECT_EQ(d.pars[3].esq, 720) << "the paragraph keeps the layout until \\pard";
  EXPECT_EQ(d.pars[4].aln, 1);
  EXPECT_EQ(RunDe(d, 4, u"Lisboa")->car.cor, Rgb(0, 77, 187));
}

TEST(RtfLer, LibreOfficeFile) {
  RtfDoc d = Le(Fic("writer.rtf"));
  ASSERT_EQ(d.pars.size(), 4u);
  EXPECT_EQ(d.fonPad, u"Liberation Serif");
  EXPECT_EQ(ParTx(d, 0), u"Instalação do Programa") << "\\uN with its byte fallback skipped";
  EXPECT_EQ(d.pars[0].aln, 2);
  EXPECT_EQ(RunDe(d, 0, u"Instala")->car.fon, u"Liberation Sans");
  EXPECT_TRUE(RunDe(d, 0, u"Instala")->car.neg);
  EXPECT_TRUE(RunDe(d, 1, u"LibreOffice")->car.ita);
  EXPECT_EQ(d.pars[2].esq, 567);
  EXPECT_EQ(d.pars[2].dir, 567);
  EXPECT_EQ(RunDe(d, 2, u"Recuado")->car.cor, Rgb(0, 0, 128));
  EXPECT_EQ(RunDe(d, 3, u"sobre")->car.pos, 1);
  EXPECT_EQ(RunDe(d, 3, u"sob")->car.pos, -1);
  EXPECT_EQ(RunDe(d, 3, u"grande")->car.tam, 16);
  EXPECT_EQ(RunDe(d, 3, u" e ")->car.pos, 0);
}

TEST(RtfLer, WordFileSkipsHeadersFieldCodesAndThemes) {
  RtfDoc d = Le(Fic("word.rtf"));
  Tx t = RtfTx(d);
  EXPECT_EQ(t, u"Acordo de Licença\r\nConsulte a página do fabricante para mais informações.\r\n·\tPrimeiro ponto");
  EXPECT_EQ(RunDe(d, 0, u"Acordo")->car.fon, u"Tahoma");
  EXPECT_EQ(RunDe(d, 0, u"Acordo")->car.tam, 16);
  const RtfRun* l = RunDe(d, 1, u"do fabricante");
  ASSERT_TRUE(l);
  EXPECT_TRUE(l->car.sub);
  EXPECT_EQ(l->car.cor, Rgb(0, 0, 255));
  EXPECT_EQ(d.pars[2].esq, 720);
}

TEST(RtfLer, TextEditFile) {
  RtfDoc d = Le(Fic("textedit.rtf"));
  ASSERT_EQ(d.pars.size(), 5u);
  EXPECT_EQ(RunDe(d, 0, u"Leia")->car.fon, u"Helvetica-Bold") << "a font table without inner groups";
  EXPECT_EQ(d.pars[0].aln, 2);
  EXPECT_EQ(ParTx(d, 2), u"");
  EXPECT_EQ(ParTx(d, 3), u"Atenção: o instalador precisa de ≈\u00a0100 MB livres.") << "\\uc0 skips nothing";
  EXPECT_EQ(RunDe(d, 3, u"Atenção")->car.cor, Rgb(163, 21, 21));
  EXPECT_EQ(RunDe(d, 4, u"Programas")->car.fon, u"Menlo-Regular");
}

TEST(RtfLer, PandocFile) {
  RtfDoc d = Le(Fic("pandoc.rtf"));
  ASSERT_EQ(d.pars.size(), 5u);
  EXPECT_EQ(RunDe(d, 0, u"Licen")->car.tam, 18);
  EXPECT_TRUE(RunDe(d, 1, u"conversor")->car.neg);
  EXPECT_FALSE(RunDe(d, 1, u" de texto")->car.neg) << "a group gives its formatting back";
  EXPECT_EQ(ParTx(d, 2), u"•\tPrimeiro ponto");
  EXPECT_EQ(d.pars[2].pri, -360);
  EXPECT_EQ(RunDe(d, 3, u"código")->car.fon, u"Courier");
  EXPECT_EQ(ParTx(d, 4), u"Carácter fora do plano básico: \U0001F600.") << "negative \\uN make a surrogate pair";
}

TEST(RtfLer, RichEditOneFileOfThePlatformBox) {
  RtfDoc d = Le(Fic("richedit1.rtf"));
  EXPECT_EQ(d.fonPad, u"MS Sans Serif");
  EXPECT_EQ(d.pars[3].esq, 360);
  EXPECT_EQ(d.pars[5].esq, 0);
  const RtfRun* f = RunDe(d, 5, u"Fim");
  EXPECT_TRUE(f->car.ita);
  EXPECT_EQ(f->car.cor, Rgb(128, 0, 0));
  EXPECT_EQ(f->car.fon, u"Times New Roman");
}

TEST(RtfLer, CodePagesOfTheDocumentAndOfFonts) {
  // DOS page 850, Macintosh, and a Central European font inside a Windows file.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\pca a\\'87\\'c6o}")), u"ação");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\mac Ol\\'87 \\'8b}")), u"Olá ã");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg1250{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset238 Arial CE;}}\\f1 \\'e8\\f0 \\'e8}")), u"čč");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset238 Arial CE;}}\\f1 \\'e8\\f0 \\'e8}")), u"čè");
  // Character set 0 is Western whatever the document's page: WordPad on a Baltic
  // system writes a Czech licence's "í" in a \fcharset0 font, TextEdit a Japanese
  // file's quotes.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg1257{\\fonttbl{\\f0\\fcharset238 Verdana CE;}{\\f3\\fcharset186 Verdana;}"
                     "{\\f4\\fcharset0 Verdana;}}\\f0 \\'e8\\f4 \\'ed\\f3 \\'f0}")), u"číš");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg932{\\fonttbl\\f0\\fswiss\\fcharset0 Helvetica;}\\f0 \\'93\\uc0\\u12362 \\'94}")), u"\u201cお\u201d");
  // Bytes written as they are, in the page of the file.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi Instala\xe7\xe3o}")), u"Instalação");
  // \ucN: the number of stand-in characters; \'hh counts as one, groups end the skip.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\uc2\\u8364\\'80\\'80x\\uc1\\u8364?y{\\u8364}z}")), u"€x€y€z");
}

// WordPad names a font of another character set "Courier New Baltic" and gives its
// true name in {\*\fname}; that name is the one drawn with, in its own code page.
TEST(RtfLer, FontTrueNameOverTheTaggedOne) {
  RtfDoc d = Le("{\\rtf1\\ansi\\ansicpg1257{\\fonttbl{\\f1\\fmodern\\fcharset186{\\*\\fname Courier New;}Courier New Baltic;}"
                "{\\f2\\fcharset128{\\*\\fname \\'82\\'6c\\'82\\'72 \\'96\\'be\\'92\\'a9;}MS Mincho Tag;}{\\f3 Verdana;}}"
                "\\f1 a\\f2 b\\f3 c}");
  ASSERT_NE(RunDe(d, 0, u"a"), nullptr);
  EXPECT_EQ(RunDe(d, 0, u"a")->car.fon, u"Courier New");
  EXPECT_EQ(RunDe(d, 0, u"b")->car.fon, u"ＭＳ 明朝");
  EXPECT_EQ(RunDe(d, 0, u"c")->car.fon, u"Verdana");
  EXPECT_EQ(RtfTx(d), u"abc");
}

TEST(RtfLer, SymbolsBreaksAndBinaryData) {
  RtfDoc d = Le("{\\rtf1 a\\~b\\_c\\-d\\{\\}\\\\e\\line f\\tab g\\\nh{\\*\\unknown skipped{\\b nested}}i\\bin2 {}j}");
  EXPECT_EQ(RtfTx(d), u"a\u00a0b\u2011cd{}\\e\r\nf\tg\r\nhij");
  EXPECT_EQ(d.pars.size(), 2u);
  // Text after the document's closing brace is not read.
  EXPECT_EQ(RtfTx(Le("{\\rtf1 fim}lixo")), u"fim");
}

TEST(RtfLer, NotRichTextIsRefused) {
  RtfDoc d;
  d.pars.resize(3);
  EXPECT_FALSE(RtfLer("Texto simples", d));
  EXPECT_TRUE(d.pars.empty());
  EXPECT_FALSE(RtfLer("", d));
  EXPECT_TRUE(RtfLer("  \r\n{\\rtf1 x}", d));
}

TEST(RtfLer, TruncatedFilesGiveWhatWasRead) {
  std::string b = Fic("word.rtf");
  for (size_t n = 5; n < b.size(); n += 7) {
    RtfDoc d;
    ASSERT_TRUE(RtfLer(b.substr(0, n), d));
    Tx t = RtfTx(d);
    if (n > b.find("informa")) {
      EXPECT_NE(t.find(u"Acordo de Licença"), Tx::npos) << n;
    }
  }
  // Cut inside a control word, a \'hh and a \uN.
  EXPECT_EQ(RtfTx(Le("{\\rtf1 ab\\'e")), u"ab");
  EXPECT_EQ(RtfTx(Le("{\\rtf1 ab\\")), u"ab");
  EXPECT_EQ(RtfTx(Le("{\\rtf1 ab\\u82")), u"abR");
}

TEST(RtfLer, GarbageNeverHangsOrCrashes) {
  std::mt19937 rnd(7);
  const std::string pecas[] = {"{", "}", "\\", "\\'", "\\u", "-", "9", "\\*", "\\bin", "\\par", "a", "\xff", "\\fonttbl", ";", "\\f", " "};
  for (int k = 0; k < 300; ++k) {
    std::string b = "{\\rtf1";
    int n = int(rnd() % 200);
    for (int i = 0; i < n; ++i) b += pecas[rnd() % std::size(pecas)];
    RtfDoc d;
    ASSERT_TRUE(RtfLer(b, d));
  }
  // Very deep groups, huge numbers and a binary length past the end.
  std::string fundo = "{\\rtf1 " + std::string(200000, '{') + "x" + std::string(200000, '}') + "y";
  EXPECT_EQ(RtfTx(Le(fundo)), u"xy");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\fs99999999999999999999 a\\u99999999999999b\\bin99999999999 c}")).substr(0, 1), u"a");
  RtfDoc d = Le("{\\rtf1\\fs99999999999 a}");
  EXPECT_GT(d.pars.at(0).runs.at(0).car.tam, 0);
}

// Japanese, Chinese and Korean text written as lead and trail bytes, by the
// document's page or by the character set of the font in use.
TEST(RtfLer, DoubleBytePages) {
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg932 \\'93\\'fa\\'96\\'7b\\'8c\\'ea \\'b1\\'b2}")), u"日本語 ｱｲ") << "Shift-JIS with half-width kana";
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg936 \\'d6\\'d0\\'ce\\'c4}")), u"中文");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg950 \\'a4\\'a4\\'a4\\'e5}")), u"中文");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg949 \\'c7\\'d1\\'b1\\'db}")), u"한글");
  // A trail byte that is a backslash, a brace or a letter, and bytes written as they are.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg932 \\'95\\'5c\\'95\\\\\\'82\\'a0\x82\xa0}")), u"表表ああ");
  // WordPad: a Western document whose font is Japanese; the font's name in its own set.
  RtfDoc d = Le("{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil\\fcharset128 \\'82\\'6c\\'82\\'72 \\'96\\'be\\'92\\'a9;}}"
                "\\f0 caf\\'e9 \\f1\\'93\\'fa\\'96\\'7b\\f0\\'e9}");
  EXPECT_EQ(RtfTx(d), u"café 日本é");
  EXPECT_EQ(RunDe(d, 0, u"日本")->car.fon, u"ＭＳ 明朝");
  // A \uN with its two-byte stand-in (\uc2), and a lead byte cut off by the end of a paragraph.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg936\\uc2\\u20013\\'d6\\'d0x\\'d6\\par y}")), u"中x\r\ny");
  // Single-byte pages the converter carries: Thai and Hebrew.
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi\\ansicpg874 \\'a1}")), u"ก");
  EXPECT_EQ(RtfTx(Le("{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset177 Arial;}}\\f0 \\'f9}")), u"ש");
}

// Hidden text (\v) is not shown; \v0, the group's end and \plain bring text back.
TEST(RtfLer, HiddenTextIsLeftOut) {
  EXPECT_EQ(RtfTx(Le("{\\rtf1 Aceito{\\v  nada de} os termos\\v  oculto\\v0 .\\v x\\plain  sim}")), u"Aceito os termos. sim");
}

// Line spacing, paragraph spacing, contextual spacing, tab stops and the paragraph
// mark's format as paragraphs carry them; \pard clears them.
TEST(RtfLer, ParagraphSpacingTabsAndMark) {
  RtfDoc d = Le("{\\rtf1\\pard\\s2\\sa200\\sl276\\slmult1\\contextualspace\\tqr\\tx5000\\tx6000\\tqdec\\tx7000\\fs20 a\\par"
                "\\fs40\\par\\pard\\sl-300\\slmult0 b\\par}");
  ASSERT_EQ(d.pars.size(), 3u);
  EXPECT_EQ(d.pars[0].lin, 276);
  EXPECT_TRUE(d.pars[0].linMul);
  EXPECT_TRUE(d.pars[0].ctx);
  EXPECT_EQ(d.pars[0].est, 2);
  EXPECT_EQ(d.pars[0].depois, 200);
  EXPECT_EQ(d.pars[0].tabs, (std::vector<RtfTab>{{5000, 1}, {6000, 0}, {7000, 3}}));
  EXPECT_EQ(d.pars[0].car.tam, 10);
  EXPECT_TRUE(d.pars[1].runs.empty());
  EXPECT_EQ(d.pars[1].car.tam, 20) << "an empty paragraph's own size";
  EXPECT_EQ(d.pars[2].lin, -300);
  EXPECT_FALSE(d.pars[2].linMul);
  EXPECT_TRUE(d.pars[2].tabs.empty());
  EXPECT_FALSE(d.pars[2].ctx);
}

// Word's East Asian paragraphs ask for room between their ideographs and Latin
// letters (\aspalpha) or digits (\aspnum); a new paragraph asks for none.
TEST(RtfLer, SpaceBetweenAsianAndLatinText) {
  RtfDoc d = Le("{\\rtf1\\pard\\aspalpha\\aspnum a\\par\\pard\\aspalpha b\\par\\pard c\\par}");
  ASSERT_EQ(d.pars.size(), 3u);
  EXPECT_TRUE(d.pars[0].espLat && d.pars[0].espNum);
  EXPECT_TRUE(d.pars[1].espLat);
  EXPECT_FALSE(d.pars[1].espNum);
  EXPECT_FALSE(d.pars[2].espLat || d.pars[2].espNum);
}

// Table rows as Word and LibreOffice write them: cells with their right edges,
// shading, borders and padding; text in cells, several paragraphs in one cell.
TEST(RtfLer, TableRows) {
  RtfDoc d = Le(
      "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}"
      "\\trowd\\trgaph108\\trleft-108\\trbrdrt\\brdrs\\brdrw10\\trbrdrv\\brdrs\\brdrw10 \\trpaddl108\\trpaddr108\\trpaddfl3\\trpaddfr3"
      "\\clcbpat1\\clbrdrl\\brdrs\\brdrw20\\brdrcf2\\cellx3000\\clbrdrt\\brdrdb\\cellx6000"
      "\\pard\\intbl um\\cell dois\\par tres\\cell\\row"
      "\\trowd\\trgaph100\\cellx4000\\pard\\intbl\\b quatro\\cell\\row\\pard fim\\par}");
  EXPECT_EQ(RtfTx(d), u"um\tdois\r\ntres\r\nquatro\r\nfim");
  ASSERT_EQ(d.tbls.size(), 2u);
  const RtfTblLin& l = d.tbls[0];
  EXPECT_EQ(l.esq, -108);
  ASSERT_EQ(l.cels.size(), 2u);
  EXPECT_EQ(l.cels[0].dirX, 3000);
  EXPECT_EQ(l.cels[0].fun, Rgb(255, 0, 0));
  EXPECT_EQ(l.cels[0].bor[0].lar, 20);
  EXPECT_EQ(l.cels[0].bor[0].cor, Rgb(0, 0, 255));
  EXPECT_EQ(l.cels[0].bor[1].lar, 10) << "the row's top border where the cell has none";
  EXPECT_EQ(l.cels[0].bor[2].lar, 10) << "the row's inside border between cells";
  EXPECT_EQ(l.cels[1].bor[1].lar, 15) << "a style without a width: one pixel";
  EXPECT_EQ(l.cels[1].fun, -1);
  EXPECT_EQ(l.pad[0], 108);
  EXPECT_EQ(l.pad[1], 0);
  EXPECT_EQ(d.tbls[1].pad[0], 100) << "without \\trpadd, half the gap between cells";
  ASSERT_EQ(d.pars.size(), 5u);
  EXPECT_EQ(d.pars[1].tbl, 0);
  EXPECT_EQ(d.pars[1].cel, 1);
  EXPECT_EQ(d.pars[2].cel, 1);
  EXPECT_EQ(d.pars[3].tbl, 1);
  EXPECT_EQ(d.pars[3].cel, 0);
  EXPECT_EQ(d.pars[4].tbl, -1);
}

// Fonts and formats past the file's limits take the plain format, and the
// document tells so; a file declaring thousands of fonts reads in one pass.
TEST(RtfLer, FontAndFormatLimits) {
  std::string b = "{\\rtf1{\\fonttbl";
  for (int k = 0; k < 14000; ++k) b += "{\\f" + std::to_string(k) + "\\fnil Fonte" + std::to_string(k) + ";}";
  b += "}";
  for (int k = 0; k < 14000; ++k) b += "\\f" + std::to_string(k) + " x";
  b += "}";
  RtfDoc d = Le(b);
  EXPECT_TRUE(d.lim & kRtfLimFon);
  std::set<Tx> fontes;
  size_t letras = 0;
  for (const RtfRun& r : d.pars.at(0).runs) {
    fontes.insert(r.car.fon);
    letras += r.tx.size();
  }
  EXPECT_EQ(fontes.size(), size_t(kRtfFonMax) + 1) << "the fonts within the limit and the default";
  EXPECT_EQ(letras, 14000u) << "no text is lost";
  std::string c = "{\\rtf1";
  for (int k = 0; k < 3000; ++k) c += "\\fs" + std::to_string(10 + k) + " y";
  RtfDoc e = Le(c + "}");
  EXPECT_TRUE(e.lim & kRtfLimCar);
  EXPECT_FALSE(e.lim & kRtfLimFon);
  std::set<double> tams;
  for (const RtfRun& r : e.pars.at(0).runs) tams.insert(r.car.tam);
  EXPECT_LE(tams.size(), size_t(kRtfCarMax) + 1);
  EXPECT_EQ(Le("{\\rtf1 nada}").lim, 0);
}
