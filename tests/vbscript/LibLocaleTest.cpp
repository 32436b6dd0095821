// Locale table, numbers as CStr writes them and as CDbl reads them, letter case.
#include <gtest/gtest.h>

#include "Locale.h"
#include "TxtGlb.h"

using namespace vbs;

namespace {
const Locale& Pt() { return *LocPorId(2070); }
double Ler(const char16_t* s, const Locale& l = LocEua()) {
  double d = -999;
  return TxNum(s, d, l) ? d : -999;
}
}  // namespace

TEST(LibLocale, TableAndNames) {
  EXPECT_EQ(LocAct().id, 1033);
  ASSERT_NE(LocPorNome(u"PT-pt"), nullptr);
  EXPECT_EQ(LocPorNome(u"pt_PT")->id, 2070);
  EXPECT_EQ(LocPorNome(u"xx-yy"), nullptr);
  EXPECT_EQ(LocPorId(1), nullptr);
  EXPECT_FALSE(LocDef(12345));
  EXPECT_EQ(LocAct().id, 1033);
  EXPECT_TRUE(LocDef(2070));
  EXPECT_EQ(LocAct().id, 2070);
  EXPECT_TRUE(LocDef(1033));
}

TEST(LibLocale, NumbersAsCStrWritesThem) {
  EXPECT_EQ(NumTx(1.5), u"1.5");
  EXPECT_EQ(NumTx(1.5, 15, Pt()), u"1,5");
  EXPECT_EQ(NumTx(-0.0), u"0");
  EXPECT_EQ(NumTx(-1.5e-7), u"-1.5E-07");
  EXPECT_EQ(NumTx(1234567890123456.0), u"1.23456789012346E+15");
  EXPECT_EQ(NumTx(1e300 * 10), u"1E+301");
  EXPECT_EQ(NumTx(0.1 + 0.2), u"0.3");
  EXPECT_EQ(NumTx(1.0 / 3, 7), u"0.3333333");
  EXPECT_EQ(NumTx(1e7, 7), u"1E+07");
  EXPECT_EQ(NumTx(100), u"100");
  EXPECT_EQ(CurTx(15000), u"1.5");
  EXPECT_EQ(CurTx(-1), u"-0.0001");
  EXPECT_EQ(CurTx(INT64_MIN), u"-922337203685477.5808");
  EXPECT_EQ(CurTx(10000, Pt()), u"1");
}

TEST(LibLocale, NumbersAsCDblReadsThem) {
  EXPECT_EQ(Ler(u" 12 "), 12);
  EXPECT_EQ(Ler(u"1,5"), 15);  // a group separator in en-US
  EXPECT_EQ(Ler(u"1 234,5", Pt()), 1234.5);
  EXPECT_EQ(Ler(u"1.5", Pt()), -999);
  EXPECT_EQ(Ler(u"-1.5e3"), -1500);
  EXPECT_EQ(Ler(u"+.5"), 0.5);
  EXPECT_EQ(Ler(u"1,5 \u20AC", Pt()), 1.5);
  EXPECT_EQ(Ler(u"(5)"), -5);
  EXPECT_EQ(Ler(u"5-"), -5);
  EXPECT_EQ(Ler(u"&HFFFFFFFF"), -1);
  EXPECT_EQ(Ler(u"&O17"), 15);
  EXPECT_EQ(Ler(u"&H"), -999);
  EXPECT_EQ(Ler(u"&H1G"), -999);
  EXPECT_EQ(Ler(u""), -999);
  EXPECT_EQ(Ler(u" "), -999);
  EXPECT_EQ(Ler(u"."), -999);
  EXPECT_EQ(Ler(u"1e"), -999);
  EXPECT_EQ(Ler(u"1e999"), -999);
  EXPECT_EQ(Ler(u"12a"), -999);
  EXPECT_EQ(Ler(u",5"), -999);
  EXPECT_EQ(Ler(u"--5"), -999);
}

TEST(LibLocale, CaseOverTheWholeRange) {
  EXPECT_EQ(TxMaiVb(u"a\u00e7\u00e3o \u00ff \u0101 \u03b1 \u0430"), u"A\u00c7\u00c3O \u0178 \u0100 \u0391 \u0410");
  EXPECT_EQ(TxMinVb(u"\u00c9\u0178\u0100\u0139\u0410\u0401"), u"\u00e9\u00ff\u0101\u013a\u0430\u0451");
  EXPECT_EQ(ChMai(u'\u00f7'), u'\u00f7');
  EXPECT_EQ(ChMin(u'\u00d7'), u'\u00d7');
  EXPECT_EQ(TxCmpTx(u"abc", u"ABD"), -1);
  EXPECT_EQ(TxCmpTx(u"A\u00c7", u"a\u00e7"), 0);
  EXPECT_EQ(TxCmpTx(u"ab", u"a"), 1);
  // µ and the long s have capitals outside their block: the language maps them,
  // the foundation's plain uppercase (the option files') keeps them
  EXPECT_EQ(TxMaiVb(u"\u00b5\u017f"), u"\u039cS");
  EXPECT_EQ(zw::TxMai(u"\u00b5\u017f"), u"\u00b5\u017f");
  EXPECT_EQ(TxCmpTx(u"\u017f", u"s"), 0);
}
