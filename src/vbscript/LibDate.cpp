// LibDate: dates and times (DateAdd, DateDiff, DatePart, DateSerial, Weekday, Now...).
// Arithmetic works on the instant a date stands for, whole days plus the time of day
// read forwards, so that dates before 30 December 1899 add and subtract like the rest.
#include <cmath>

#include "Lib.h"

namespace vbs {

namespace {

// Seconds from day 0 at midnight to the instant of a date, rounded to the second.
int64_t Segs(double d) {
  double dias = std::trunc(d);
  return int64_t(dias) * 86400 + std::llround(std::fabs(d - dias) * 86400.0);
}

// The date of an instant in seconds.
double DeSegs(int64_t s) {
  int64_t dias = s >= 0 ? s / 86400 : -((-s + 86399) / 86400);
  return DtJun(double(dias), double(s - dias * 86400) / 86400.0);
}

int64_t DiaIdx(double d) {
  int64_t s = Segs(d);
  return s >= 0 ? s / 86400 : -((-s + 86399) / 86400);
}

DtPartes Partes(double d) {
  DtPartes p;
  if (!DtPartesDe(d, p)) Raise(5);
  return p;
}

// The date argument k: Null reported to the caller, text read as a date.
bool ArgDtNulo(Args a, int k, double& d) {
  if (a[k].IsNull()) return false;
  d = ToDate(a[k]);
  return true;
}

// The first-day-of-week argument: 0 is the locale's, 1-7 Sunday to Saturday.
int ArgPriDia(Args a, int k) {
  int32_t v = ArgLng(a, k, 1);
  if (v == 0) return LocAct().priDia;
  if (v < 1 || v > 7) Raise(5);
  return v;
}

// The first-week-of-year argument: 0 is the locale's, 1 the week of 1 January, 2 the
// first with four days, 3 the first full week.
int ArgPriSem(Args a, int k) {
  int32_t v = ArgLng(a, k, 1);
  if (v == 0) return LocAct().priDia == 2 ? 2 : 1;
  if (v < 1 || v > 3) Raise(5);
  return v;
}

enum Iv { ivAno, ivTri, ivMes, ivDiaAno, ivDia, ivSemDia, ivSem, ivHora, ivMin, ivSeg };

Iv ArgIv(Args a, int k) {
  Tx tmp;
  TxV t = ArgTx(a, k, tmp);
  static const char16_t* nomes[] = {u"yyyy", u"q", u"m", u"y", u"d", u"w", u"ww", u"h", u"n", u"s"};
  for (int i = 0; i < 10; i++)
    if (EqNoCase(t, nomes[i])) return Iv(i);
  Raise(5);
}

double Serial(int a, int m, int d) {
  double r;
  if (!DtSerialAbs(a, m, d, r)) Raise(5);
  return r;
}

// The first day of week 1 of a year.
int64_t InicioSem1(int ano, int fd, int fw) {
  int64_t j1 = int64_t(Serial(ano, 1, 1));
  int wd = DtSemana(double(j1), fd);
  if (fw == 1 || (fw == 2 && wd <= 4)) return j1 - (wd - 1);
  if (fw == 3 && wd == 1) return j1;
  return j1 + (8 - wd);
}

int SemAno(double d, int fd, int fw) {
  DtPartes p = Partes(d);
  int64_t dia = DiaIdx(d);
  int64_t ini = InicioSem1(p.ano, fd, fw);
  if (dia < ini) ini = InicioSem1(p.ano - 1, fd, fw);
  return int((dia - ini) / 7 + 1);
}

void FnDateAdd(Args a, Value& r) {
  Iv iv = ArgIv(a, 0);
  double n = RoundEven(ToDbl(a[1]));
  double d;
  if (!ArgDtNulo(a, 2, d)) {
    r = Value::Null();
    return;
  }
  double res;
  if (iv == ivAno || iv == ivTri || iv == ivMes) {
    DtPartes p = Partes(d);
    double meses = iv == ivAno ? n * 12 : iv == ivTri ? n * 3 : n;
    double m0 = p.ano * 12.0 + (p.mes - 1) + meses;
    if (m0 < 100 * 12 || m0 >= 10000 * 12) Raise(5);
    int ano = int(m0 / 12), mes = int(m0 - ano * 12.0) + 1;
    double ult = Serial(ano, mes + 1, 0);
    DtPartes u = Partes(ult);
    double dia = Serial(ano, mes, p.dia > u.dia ? u.dia : p.dia);
    res = DtJun(dia, DtHora(d));
  } else {
    double s = iv == ivSem ? n * 7 * 86400
               : (iv == ivDia || iv == ivDiaAno || iv == ivSemDia) ? n * 86400
               : iv == ivHora ? n * 3600
               : iv == ivMin ? n * 60
                              : n;
    double t = double(Segs(d)) + s;
    if (std::fabs(t) > 1e15) Raise(5);
    res = DeSegs(int64_t(t));
  }
  if (!DtValida(res)) Raise(5);
  r = Value::Date(res);
}

void FnDateDiff(Args a, Value& r) {
  Iv iv = ArgIv(a, 0);
  int fd = ArgPriDia(a, 3);
  ArgPriSem(a, 4);
  double d1 = 0, d2 = 0;
  bool n1 = !ArgDtNulo(a, 1, d1), n2 = !ArgDtNulo(a, 2, d2);
  if (n1 || n2) {
    r = Value::Null();
    return;
  }
  int64_t v = 0;
  auto fl = [](int64_t x, int64_t q) { return x >= 0 ? x / q : -((-x + q - 1) / q); };
  switch (iv) {
    case ivAno: v = Partes(d2).ano - Partes(d1).ano; break;
    case ivTri: {
      DtPartes p = Partes(d1), q = Partes(d2);
      v = (q.ano * 4 + (q.mes - 1) / 3) - (p.ano * 4 + (p.mes - 1) / 3);
      break;
    }
    case ivMes: {
      DtPartes p = Partes(d1), q = Partes(d2);
      v = (q.ano * 12 + q.mes) - (p.ano * 12 + p.mes);
      break;
    }
    case ivDiaAno: case ivDia: v = DiaIdx(d2) - DiaIdx(d1); break;
    case ivSemDia: v = (DiaIdx(d2) - DiaIdx(d1)) / 7; break;
    case ivSem: {
      // Counts the first days of the week between the two dates.
      auto ini = [fd](int64_t dia) { return dia - (DtSemana(double(dia), fd) - 1); };
      v = fl(ini(DiaIdx(d2)), 7) - fl(ini(DiaIdx(d1)), 7);
      break;
    }
    case ivHora: v = fl(Segs(d2), 3600) - fl(Segs(d1), 3600); break;
    case ivMin: v = fl(Segs(d2), 60) - fl(Segs(d1), 60); break;
    case ivSeg: v = Segs(d2) - Segs(d1); break;
  }
  if (v > INT32_MAX || v < INT32_MIN) Raise(6);
  r = Value(int32_t(v));
}

void FnDatePart(Args a, Value& r) {
  Iv iv = ArgIv(a, 0);
  int fd = ArgPriDia(a, 2);
  int fw = ArgPriSem(a, 3);
  double d;
  if (!ArgDtNulo(a, 1, d)) {
    r = Value::Null();
    return;
  }
  DtPartes p = Partes(d);
  int v = 0;
  switch (iv) {
    case ivAno: v = p.ano; break;
    case ivTri: v = (p.mes - 1) / 3 + 1; break;
    case ivMes: v = p.mes; break;
    case ivDiaAno: v = int(DiaIdx(d) - int64_t(Serial(p.ano, 1, 1))) + 1; break;
    case ivDia: v = p.dia; break;
    case ivSemDia: v = DtSemana(d, fd); break;
    case ivSem: v = SemAno(d, fd, fw); break;
    case ivHora: v = p.hora; break;
    case ivMin: v = p.min; break;
    case ivSeg: v = p.seg; break;
  }
  r = Value(int16_t(v));
}

void FnDateSerial(Args a, Value& r) {
  double d;
  if (!DtSerial(ToInt(a[0]), ToInt(a[1]), ToInt(a[2]), d)) Raise(5);
  r = Value::Date(d);
}

void FnTimeSerial(Args a, Value& r) {
  double d = TmSerial(ToInt(a[0]), ToInt(a[1]), ToInt(a[2]));
  if (!DtValida(d)) Raise(5);
  r = Value::Date(d);
}

void FnDateValue(Args a, Value& r) {
  double d;
  if (!ArgDtNulo(a, 0, d)) {
    r = Value::Null();
    return;
  }
  r = Value::Date(std::trunc(d));
}

void FnTimeValue(Args a, Value& r) {
  double d;
  if (!ArgDtNulo(a, 0, d)) {
    r = Value::Null();
    return;
  }
  r = Value::Date(DtHora(d));
}

// Day, Month, Year, Hour, Minute, Second: an Integer part, Null for Null.
template <int DtPartes::*campo>
void FnParte(Args a, Value& r) {
  double d;
  if (!ArgDtNulo(a, 0, d)) {
    r = Value::Null();
    return;
  }
  r = Value(int16_t(Partes(d).*campo));
}

void FnWeekday(Args a, Value& r) {
  int fd = ArgPriDia(a, 1);
  double d;
  if (!ArgDtNulo(a, 0, d)) {
    r = Value::Null();
    return;
  }
  r = Value(int16_t(DtSemana(d, fd)));
}

void FnWeekdayName(Args a, Value& r) {
  int32_t w = ToLng(a[0]);
  bool abr = a.Has(1) && ToBool(a[1]);
  int fd = ArgPriDia(a, 2);
  if (w < 1 || w > 7) Raise(5);
  int i = (w - 1 + fd - 1) % 7;
  const Locale& l = LocAct();
  r = Value(abr ? l.diaAbr[i] : l.dia[i]);
}

void FnMonthName(Args a, Value& r) {
  int32_t m = ToLng(a[0]);
  bool abr = a.Has(1) && ToBool(a[1]);
  if (m < 1 || m > 12) Raise(5);
  const Locale& l = LocAct();
  r = Value(abr ? l.mesAbr[m - 1] : l.mes[m - 1]);
}

void FnNow(Args, Value& r) { r = Value::Date(DtAgora()); }
void FnDate(Args, Value& r) { r = Value::Date(std::trunc(DtAgora())); }
void FnTime(Args, Value& r) { r = Value::Date(DtHora(DtAgora())); }
void FnTimer(Args, Value& r) { r = Value::Sng(float(DtTimer())); }

}  // namespace

void LibDateReg() {
  DefFns({
      {"DateAdd", 3, 3, FnDateAdd},
      {"DateDiff", 3, 5, FnDateDiff},
      {"DatePart", 2, 4, FnDatePart},
      {"DateSerial", 3, 3, FnDateSerial},
      {"TimeSerial", 3, 3, FnTimeSerial},
      {"DateValue", 1, 1, FnDateValue},
      {"TimeValue", 1, 1, FnTimeValue},
      {"Day", 1, 1, FnParte<&DtPartes::dia>},
      {"Month", 1, 1, FnParte<&DtPartes::mes>},
      {"Year", 1, 1, FnParte<&DtPartes::ano>},
      {"Hour", 1, 1, FnParte<&DtPartes::hora>},
      {"Minute", 1, 1, FnParte<&DtPartes::min>},
      {"Second", 1, 1, FnParte<&DtPartes::seg>},
      {"Weekday", 1, 2, FnWeekday},
      {"WeekdayName", 1, 3, FnWeekdayName},
      {"MonthName", 1, 2, FnMonthName},
      {"Now", 0, 0, FnNow},
      {"Date", 0, 0, FnDate},
      {"Time", 0, 0, FnTime},
      {"Timer", 0, 0, FnTimer},
  });
}

}  // namespace vbs
