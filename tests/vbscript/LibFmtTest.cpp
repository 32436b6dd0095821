// Formats and date built-ins under en-US and pt-PT.
#include <cmath>

#include "DateTime.h"
#include "LibFmt.h"
#include "LibTest.h"

using namespace libtest;
using vbs::Value;

namespace {
Value Dt(int a, int m, int d, int h = 0, int n = 0, int s = 0) {
  double x;
  vbs::DtSerial(a, m, d, x);
  return Value::Date(vbs::DtJun(x, vbs::TmSerial(h, n, s)));
}
}  // namespace

TEST(LibFmt, FormatNumberRoundingAndOptions) {
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(1234567.891)})), u"1,234,567.89");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(2.5), I(0)})), u"3");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(0.125), I(2)})), u"0.13");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(-0.5), I(2), I(0)})), u"-.50");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(-1234.5), I(1), I(-1), I(-1), I(0)})), u"(1234.5)");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(-0.001), I(2)})), u"0.00");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(999.999), I(2)})), u"1,000.00");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(1e20), I(0)})), u"100,000,000,000,000,000,000");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value()})), u"0.00");
  EXPECT_EQ(Tx(Fn("FormatPercent", {Value(-0.256)})), u"-25.60%");
  EXPECT_EQ(Err("FormatNumber", {S(u"x")}), 13);
  EXPECT_EQ(Err("FormatNumber", {Value::Null()}), 13);  // Null is a type mismatch to the Format functions
}

TEST(LibFmt, CurrencyPatternsOfTheLocale) {
  EXPECT_EQ(Tx(Fn("FormatCurrency", {Value(-1234.5)})), u"($1,234.50)");
  EXPECT_EQ(Tx(Fn("FormatCurrency", {Value(-1), I(2), I(-1), I(0)})), u"-$1.00");
  ComLocale pt(2070);
  EXPECT_EQ(Tx(Fn("FormatCurrency", {Value(1234.5)})), u"1\u00A0234,50 €");
  EXPECT_EQ(Tx(Fn("FormatCurrency", {Value(-1234.5)})), u"-1\u00A0234,50 €");
  EXPECT_EQ(Tx(Fn("FormatCurrency", {Value(-1), I(0), I(-1), I(-1)})), u"(1 €)");
  EXPECT_EQ(Tx(Fn("FormatNumber", {Value(0.5)})), u"0,50");
}

TEST(LibFmt, LocaleSwitchingAndTexts) {
  EXPECT_EQ(Fn("GetLocale", {}).l, 1033);
  EXPECT_EQ(Fn("SetLocale", {S(u"pt-PT")}).l, 1033);
  EXPECT_EQ(Tx(Fn("CStr", {Value(1.5)})), u"1,5");
  EXPECT_EQ(Fn("CDbl", {S(u"1,5")}).d, 1.5);
  EXPECT_EQ(Tx(Fn("MonthName", {I(3)})), u"março");
  EXPECT_EQ(Tx(Fn("WeekdayName", {I(1), Value(true)})), u"dom");
  EXPECT_EQ(Tx(Fn("FormatDateTime", {Dt(2020, 1, 2), I(1)})), u"quinta-feira, 2 de janeiro de 2020");
  EXPECT_EQ(Fn("SetLocale", {I(1033)}).l, 2070);
  EXPECT_EQ(Fn("CDbl", {S(u"1,5")}).d, 15);
  EXPECT_EQ(Err("SetLocale", {I(12345)}), 5);
  EXPECT_EQ(Err("SetLocale", {S(u"xx-yy")}), 5);
  EXPECT_EQ(Fn("GetLocale", {}).l, 1033);
  EXPECT_EQ(Tx(Fn("FormatDateTime", {Dt(2020, 1, 2, 15, 4, 5), I(4)})), u"15:04");
  EXPECT_EQ(Tx(Fn("FormatDateTime", {Dt(2020, 1, 2, 15, 4, 5), I(3)})), u"3:04:05 PM");
  EXPECT_EQ(Err("FormatDateTime", {Dt(2020, 1, 2), I(5)}), 5);
}

TEST(LibDateFn, DateAddClampsAndCarries) {
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"m"), I(1), Dt(1995, 1, 31)})), u"2/28/1995");
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"yyyy"), I(1), Dt(2020, 2, 29)})), u"2/28/2021");
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"q"), I(-1), Dt(2020, 1, 15, 6)})), u"10/15/2019 6:00:00 AM");
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"h"), I(-7), Dt(1899, 12, 30, 6)})), u"12/29/1899 11:00:00 PM");
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"n"), I(90), Dt(2020, 1, 1, 23)})), u"1/2/2020 12:30:00 AM");
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"ww"), I(2), Dt(2020, 1, 1)})), u"1/15/2020");
  EXPECT_EQ(Err("DateAdd", {S(u"x"), I(1), Dt(2020, 1, 1)}), 5);
  EXPECT_EQ(Err("DateAdd", {S(u"yyyy"), I(9000), Dt(2020, 1, 1)}), 5);
  EXPECT_TRUE(Fn("DateAdd", {S(u"d"), I(1), Value::Null()}).IsNull());
}

TEST(LibDateFn, DateDiffCountsBoundaries) {
  EXPECT_EQ(Fn("DateDiff", {S(u"yyyy"), Dt(2019, 12, 31), Dt(2020, 1, 1)}).l, 1);
  EXPECT_EQ(Fn("DateDiff", {S(u"d"), Dt(2020, 1, 1, 23), Dt(2020, 1, 2, 1)}).l, 1);
  EXPECT_EQ(Fn("DateDiff", {S(u"h"), Dt(2020, 1, 1, 0, 59), Dt(2020, 1, 1, 1, 0)}).l, 1);
  EXPECT_EQ(Fn("DateDiff", {S(u"m"), Dt(2020, 3, 1), Dt(2020, 1, 31)}).l, -2);
  // 1 January 2020 is a Wednesday: two Sundays follow before the 13th, one Monday.
  EXPECT_EQ(Fn("DateDiff", {S(u"ww"), Dt(2020, 1, 1), Dt(2020, 1, 13)}).l, 2);
  EXPECT_EQ(Fn("DateDiff", {S(u"ww"), Dt(2020, 1, 1), Dt(2020, 1, 12), I(2)}).l, 1);
  EXPECT_EQ(Fn("DateDiff", {S(u"w"), Dt(2020, 1, 1), Dt(2020, 1, 14)}).l, 1);
  EXPECT_EQ(Fn("DateDiff", {S(u"s"), Dt(1899, 12, 29, 23), Dt(1899, 12, 30, 1)}).l, 7200);
  EXPECT_TRUE(Fn("DateDiff", {S(u"d"), Value::Null(), Dt(2020, 1, 1)}).IsNull());
}

TEST(LibDateFn, DatePartWeeksAndWeekdays) {
  EXPECT_EQ(Fn("DatePart", {S(u"ww"), Dt(2020, 12, 31)}).i, 53);
  EXPECT_EQ(Fn("DatePart", {S(u"ww"), Dt(2021, 1, 3), I(2), I(2)}).i, 53);  // still 2020's
  EXPECT_EQ(Fn("DatePart", {S(u"ww"), Dt(2021, 1, 4), I(2), I(2)}).i, 1);
  EXPECT_EQ(Fn("DatePart", {S(u"ww"), Dt(2021, 1, 9), I(1), I(3)}).i, 1);
  EXPECT_EQ(Fn("DatePart", {S(u"y"), Dt(2020, 12, 31)}).i, 366);
  EXPECT_EQ(Fn("DatePart", {S(u"q"), Dt(2020, 8, 1)}).i, 3);
  EXPECT_EQ(Fn("DatePart", {S(u"w"), Dt(2020, 1, 1), I(2)}).i, 3);
  EXPECT_EQ(Fn("Weekday", {Dt(2020, 1, 1)}).i, 4);
  EXPECT_EQ(Err("Weekday", {Dt(2020, 1, 1), I(8)}), 5);
  EXPECT_EQ(Tx(Fn("WeekdayName", {I(1), Value(false), I(2)})), u"Monday");
  EXPECT_EQ(Err("MonthName", {I(13)}), 5);
}

TEST(LibDateFn, SerialsValuesAndParts) {
  EXPECT_EQ(Tx(Fn("DateSerial", {I(2020), I(13), I(1)})), u"1/1/2021");
  EXPECT_EQ(Tx(Fn("TimeSerial", {I(25), I(0), I(0)})), u"12/31/1899 1:00:00 AM");
  EXPECT_EQ(Err("DateSerial", {I(10000), I(1), I(1)}), 5);
  EXPECT_EQ(Err("DateSerial", {Value::Null(), I(1), I(1)}), 94);
  EXPECT_EQ(Tx(Fn("DateValue", {S(u"Jan 5, 2020 3:00 PM")})), u"1/5/2020");
  EXPECT_EQ(Tx(Fn("TimeValue", {S(u"Jan 5, 2020 3:00 PM")})), u"3:00:00 PM");
  EXPECT_EQ(Err("DateValue", {S(u"soon")}), 13);
  EXPECT_EQ(Fn("Year", {S(u"2020-02-29")}).i, 2020);
  EXPECT_EQ(Fn("Hour", {Value(0.75)}).i, 18);
  EXPECT_TRUE(Fn("Month", {Value::Null()}).IsNull());
  EXPECT_TRUE(Fn("IsDate", {S(u"2/29/2020")}).i);
  EXPECT_FALSE(Fn("IsDate", {S(u"2/30/2020")}).i);
  EXPECT_FALSE(Fn("IsDate", {I(1)}).i);
  EXPECT_EQ(Fn("Now", {}).t, vbs::vtDate);
  EXPECT_EQ(Fn("Date", {}).d, std::trunc(Fn("Now", {}).d));
}

TEST(LibArr, BoundsAndInspection) {
  Value a = Fn("Array", {I(1), S(u"x")});
  EXPECT_EQ(Fn("UBound", {a}).l, 1);
  EXPECT_EQ(Fn("LBound", {a}).l, 0);
  EXPECT_EQ(Err("UBound", {a, I(2)}), 9);
  EXPECT_EQ(Err("UBound", {I(1)}), 13);
  EXPECT_EQ(Fn("UBound", {Fn("Array", {})}).l, -1);
  EXPECT_TRUE(Fn("IsNumeric", {S(u" &H1F ")}).i);
  EXPECT_TRUE(Fn("IsNumeric", {Value()}).i);
  EXPECT_FALSE(Fn("IsNumeric", {S(u"")}).i);
  EXPECT_FALSE(Fn("IsNumeric", {Dt(2020, 1, 1)}).i);
  EXPECT_FALSE(Fn("IsNumeric", {Value::Null()}).i);
  EXPECT_TRUE(Fn("IsObject", {Value::Nothing()}).i);
  EXPECT_EQ(Tx(Fn("TypeName", {a})), u"Variant()");
  EXPECT_EQ(Fn("VarType", {a}).i, 8204);
  EXPECT_EQ(Fn("RGB", {I(1), I(2), I(300)}).l, 1 + 2 * 256 + 255 * 65536);
  EXPECT_EQ(Err("RGB", {I(-1), I(0), I(0)}), 5);
}
