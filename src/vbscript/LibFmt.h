// LibFmt: numbers as FormatNumber, FormatCurrency and FormatPercent write them.
#pragma once
#include "Locale.h"

namespace vbs {

// How a number is written: decimals, a leading zero before the separator, parentheses
// for negatives, digit groups. Each may be left to the locale with -2 (or -1 for dig).
struct FmtOpc {
  int dig = -1;
  int zeroEsq = -2;
  int paren = -2;
  int grupo = -2;
};

// The number with `dig` decimals, halves rounded away from zero on its decimal form.
Tx FmtNum(double x, const FmtOpc& o, const Locale& loc = LocAct());
Tx FmtMoeda(double x, const FmtOpc& o, const Locale& loc = LocAct());
Tx FmtPct(double x, const FmtOpc& o, const Locale& loc = LocAct());

}  // namespace vbs
