// DateTime: dates as the engine keeps them.
// A date is a double: whole days since 30 December 1899 (day 0) and, in the fraction,
// the time of day. Before day 0 the whole part counts backwards while the fraction still
// counts forwards, so -1.25 is 29 December 1899 at 06:00. Valid dates run from
// 1 January 100 to 31 December 9999. Times are kept to the second: parts are taken after
// rounding the fraction to the nearest second.
#pragma once
#include "Locale.h"

namespace vbs {

inline constexpr double kDtMin = -657434.0;   // 1 January 100
inline constexpr double kDtMax = 2958465.0;   // 31 December 9999, whole day
// Weekday numbers as Weekday gives them.
enum : int { kDom = 1, kSeg, kTer, kQua, kQui, kSex, kSab };

// The calendar parts of a date.
struct DtPartes {
  int ano = 1899, mes = 12, dia = 30;  // year, month 1-12, day 1-31
  int hora = 0, min = 0, seg = 0;      // 0-23, 0-59, 0-59
  int semana = kSab;                   // weekday, 1 = Sunday .. 7 = Saturday
};

// True when a double lies in the range of dates.
bool DtValida(double d);
// The parts of a date; false when it is out of range.
bool DtPartesDe(double d, DtPartes& p);
// The date of a year, month and day, as DateSerial takes them: months and days beyond their
// range roll into the next or previous year or month (month 13 is January of the next
// year, day 0 the last of the month before); years 0-29 are 2000-2029 and 30-99 are
// 1930-1999. False when the result is out of range.
bool DtSerial(int ano, int mes, int dia, double& d);
// DtSerial without the two-digit year rule (DateAdd and the parts use it).
bool DtSerialAbs(int ano, int mes, int dia, double& d);
// The time of hours, minutes and seconds as TimeSerial takes them: each may overflow or be
// negative and carries into the larger unit (25:00:00 is 1 day 01:00); the result is
// between -1 and 1 day for ordinary arguments.
double TmSerial(double hora, double min, double seg);
// Joins a whole day number and a time of day (0 <= t < 1) as a date: for days before
// day 0 the time is subtracted, so that the fraction still reads forwards.
double DtJun(double dias, double t);
// The whole-day part and the time of day of a date (time rounded to the second).
double DtDia(double d);
double DtHora(double d);
// Days from 1 January 1 (proleptic Gregorian) and back, for week and span arithmetic.
long DtDiasAbs(int ano, int mes, int dia);
// The weekday of a date counted from the first day given (1-7, kDom when 0 is passed).
int DtSemana(double d, int priDia = kDom);

// ---- Text ----

// The text CStr gives a date: the short date alone when the time is 0, the long time
// alone when the day is 0 (30 December 1899), else both with one blank between.
Tx DtTx(double d, const Locale& loc = LocAct());
// Renders a date through a picture of the Windows kind: d dd ddd dddd, M MM MMM MMMM,
// y yy yyyy, h hh H HH, m mm, s ss, t tt, 'quoted text'; other characters as they are.
Tx DtFmtVb(double d, TxV pic, const Locale& loc = LocAct());
// Reads a date and/or time as CDate, IsDate and DateValue read it: numbers in the
// locale's order with "/", "-", "." or blanks between, a month name or abbreviation of
// the locale or of English anywhere, a four-digit year first for year-month-day; a
// day-month order that cannot be a date tries the other; a time with ":" and an optional
// AM/PM (or A/P). A date with no year is in the current year. False when the text is
// not a date. The result keeps only what the text holds: a time alone gives day 0.
bool TxDt(TxV t, double& d, const Locale& loc = LocAct());

// The current local date and time as a date, and seconds since midnight (Timer).
double DtAgora();
double DtTimer();

}  // namespace vbs
