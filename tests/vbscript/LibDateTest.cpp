// Dates: serials, overflowing parts, text under a locale, reading dates from text
// (the cases lib/dates.vbs and lib/format.vbs do not already run).
#include <gtest/gtest.h>

#include "DateTime.h"

using namespace vbs;

namespace {

double Ser(int a, int m, int d) {
  double r = -1e9;
  EXPECT_TRUE(DtSerial(a, m, d, r));
  return r;
}

Tx Str(double d, int loc = 1033) { return DtTx(d, *LocPorId(loc)); }

double Ler(const char* s, int loc = 1033) {
  double d = -1e9;
  if (!TxDt(zw::TxAsc(s), d, *LocPorId(loc))) return -1e9;
  return d;
}

}  // namespace

TEST(LibDate, SerialEpochAndRange) {
  EXPECT_EQ(Ser(1899, 12, 30), 0);
  EXPECT_EQ(Ser(1900, 1, 1), 2);
  EXPECT_EQ(Ser(2000, 1, 1), 36526);
  EXPECT_EQ(Ser(1899, 12, 29), -1);
  double d;
  EXPECT_TRUE(DtSerial(100, 1, 1, d));
  EXPECT_EQ(d, kDtMin);
  EXPECT_TRUE(DtSerial(9999, 12, 31, d));
  EXPECT_EQ(d, kDtMax);
  EXPECT_FALSE(DtSerial(10000, 1, 1, d));
  EXPECT_FALSE(DtSerialAbs(99, 12, 31, d));
}

TEST(LibDate, SerialOverflowAndTwoDigitYears) {
  EXPECT_EQ(Ser(2020, 0, 1), Ser(2019, 12, 1));
  EXPECT_EQ(Ser(2020, -11, 1), Ser(2019, 1, 1));
  EXPECT_EQ(Ser(2020, 1, 367), Ser(2021, 1, 1));
  EXPECT_EQ(Ser(30, 1, 1), Ser(1930, 1, 1));
  EXPECT_EQ(Ser(99, 13, 1), Ser(2000, 1, 1));
}

TEST(LibDate, TimeSerialCarriesAndNegativeTimes) {
  // An hour before midnight is day -1 at 23:00, the fraction still read forwards.
  EXPECT_DOUBLE_EQ(TmSerial(-1, 0, 0), -1 - 23 / 24.0);
  EXPECT_DOUBLE_EQ(TmSerial(0, -90, 0), -1.9375);
  DtPartes p;
  ASSERT_TRUE(DtPartesDe(TmSerial(-1, 0, 0), p));
  EXPECT_EQ(p.dia, 29);
  EXPECT_EQ(p.hora, 23);
}

TEST(LibDate, PartsRoundToTheSecondAndWeekdays) {
  DtPartes p;
  ASSERT_TRUE(DtPartesDe(-1.25, p));
  EXPECT_EQ(p.ano * 10000 + p.mes * 100 + p.dia, 18991229);
  EXPECT_EQ(p.hora, 6);
  EXPECT_EQ(p.semana, kSex);
  ASSERT_TRUE(DtPartesDe(Ser(2020, 1, 1) + 0.9999999, p));
  EXPECT_EQ(p.dia, 2);
  EXPECT_EQ(p.hora, 0);
  EXPECT_EQ(DtSemana(0), kSab);
  EXPECT_EQ(DtSemana(Ser(2024, 2, 29)), kQui);
  EXPECT_EQ(DtSemana(Ser(2024, 2, 29), kSeg), 4);
  EXPECT_FALSE(DtPartesDe(kDtMax + 1, p));
}

TEST(LibDate, TextAsCStrGivesIt) {
  double d = Ser(2020, 1, 2) + TmSerial(15, 4, 5);
  EXPECT_EQ(Str(0.25, 2070), u"06:00:00");
  EXPECT_EQ(DtFmtVb(d, u"ddd MMM yy h t ''x''", LocEua()), u"Thu Jan 20 3 P 'x'");
}

TEST(LibDate, ReadingDatesInLocaleOrder) {
  EXPECT_EQ(Ler("1.2.20", 2070), Ser(2020, 2, 1));
  EXPECT_EQ(Ler("1/2020"), Ser(2020, 1, 1));
  EXPECT_EQ(Ler("31/31/2020"), -1e9);
  EXPECT_EQ(Ler(""), -1e9);
  EXPECT_EQ(Ler("1/2/3/4"), -1e9);
}

TEST(LibDate, ReadingMonthNamesAndTimes) {
  EXPECT_EQ(Ler("January 2020"), Ser(2020, 1, 1));
  EXPECT_EQ(Ler("5 de mar\xc3\xa7o de 2020", 2070), -1e9);  // "de" is no date word
  EXPECT_DOUBLE_EQ(Ler("2020-01-05 3:04 pm"), Ser(2020, 1, 5) + TmSerial(15, 4, 0));
  EXPECT_DOUBLE_EQ(Ler("15:00", 2070), 0.625);
  EXPECT_EQ(Ler("10:70"), -1e9);
  EXPECT_EQ(Ler("13:00 PM"), -1e9);
  EXPECT_EQ(Ler("1:2:3:4"), -1e9);
}

TEST(LibDate, AbsoluteDaysMatchTheEpoch) {
  EXPECT_EQ(DtDiasAbs(1, 1, 1), 0);
  EXPECT_EQ(DtDiasAbs(1899, 12, 30), 693593);
}
