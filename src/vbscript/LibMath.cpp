// LibMath: Abs, Sgn, Round, the transcendental functions and the random numbers.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Lib.h"

namespace vbs {

namespace {

// A Double argument whose result must be finite: 6 when it overflows.
void RetDbl(Value& r, double d) {
  if (std::isinf(d)) Raise(6);
  if (std::isnan(d)) Raise(5);
  r = Value(d);
}

void FnAbs(Args a, Value& r) {
  if (a[0].IsNull()) {
    r = a[0];  // Null stays Null
    return;
  }
  Value v = ToNum(a[0]);
  switch (v.t) {
    case vtInteger:
      if (v.i == -32768) r = Value(int32_t(32768));
      else r = Value(int16_t(v.i < 0 ? -v.i : v.i));
      break;
    case vtBoolean: r = Value(int16_t(v.i < 0 ? -v.i : v.i)); break;  // True gives Integer 1
    case vtLong:
      if (v.l == INT32_MIN) r = Value(2147483648.0);
      else r = Value(int32_t(v.l < 0 ? -v.l : v.l));
      break;
    case vtSingle: r = Value::Sng(std::fabs(v.f)); break;
    case vtDouble: r = Value(std::fabs(v.d)); break;
    case vtDate: r = Value::Date(std::fabs(v.d)); break;
    case vtCurrency: r = Value::Cur(v.c < 0 ? -v.c : v.c); break;
    default: r = v; break;
  }
}

void FnSgn(Args a, Value& r) {
  double d = ToDbl(a[0]);
  r = Value(int16_t(d > 0 ? 1 : d < 0 ? -1 : 0));
}

void FnAtn(Args a, Value& r) { RetDbl(r, std::atan(ToDbl(a[0]))); }
void FnCos(Args a, Value& r) { RetDbl(r, std::cos(ToDbl(a[0]))); }
void FnSin(Args a, Value& r) { RetDbl(r, std::sin(ToDbl(a[0]))); }
void FnTan(Args a, Value& r) { RetDbl(r, std::tan(ToDbl(a[0]))); }
void FnExp(Args a, Value& r) { RetDbl(r, std::exp(ToDbl(a[0]))); }

void FnLog(Args a, Value& r) {
  double d = ToDbl(a[0]);
  if (!(d > 0)) Raise(5);
  RetDbl(r, std::log(d));
}

void FnSqr(Args a, Value& r) {
  double d = ToDbl(a[0]);
  if (d < 0) Raise(5);
  RetDbl(r, std::sqrt(d));
}

// Rounds halves to even at `n` decimals, working on the decimal text of the number so
// that 0.125 is a half as the script writes it.
double ArredPar(double x, int n) {
  if (!std::isfinite(x) || n > 15) return x;
  double e = std::pow(10.0, n);
  double y = x * e;
  double f = std::floor(y);
  double resto = y - f;
  // Decide ties on the 15-digit form to forget binary noise (2.675 is a tie).
  char t[64];
  std::snprintf(t, sizeof t, "%.15g", resto);
  double rr = std::atof(t);
  double q;
  if (!std::isfinite(y)) return x;
  if (rr > 0.5) q = f + 1;
  else if (rr < 0.5) q = f;
  else q = std::fmod(f, 2) == 0 ? f : f + 1;
  return q / e;
}

void FnRound(Args a, Value& r) {
  int32_t n = ArgLng(a, 1, 0);
  if (n < 0) Raise(5);
  if (a[0].IsNull() || a[0].t == vtBoolean) {
    r = a[0];  // Null stays Null, a Boolean stays Boolean
    return;
  }
  Value v = ToNum(a[0]);
  switch (v.t) {
    case vtSingle: r = Value::Sng(float(ArredPar(v.f, n))); break;
    case vtDouble: r = Value(ArredPar(v.d, n)); break;
    case vtDate: r = Value::Date(ArredPar(v.d, n)); break;
    case vtCurrency:
      if (n < 4) {
        int64_t m = 1;
        for (int k = n; k < 4; k++) m *= 10;
        int64_t q = v.c / m, rest = v.c % m;
        if (rest < 0) {
          rest = -rest;
          if (rest * 2 > m || (rest * 2 == m && (q & 1))) q--;
        } else if (rest * 2 > m || (rest * 2 == m && (q & 1))) {
          q++;
        }
        r = Value::Cur(q * m);
      } else {
        r = v;
      }
      break;
    case vtBoolean: r = Value(int16_t(v.i)); break;
    default: r = v; break;
  }
}

// Rnd is the 24-bit linear congruential generator of the language, seeded with 327680.
thread_local uint32_t gSemente = 0x50000;

void Passo() { gSemente = (gSemente * 0x43FD43FDu + 0xC39EC3u) & 0xFFFFFFu; }

void FnRnd(Args a, Value& r) {
  if (a.Has(0)) {
    float x = ToSng(a[0]);
    if (x < 0) {
      // A negative argument sets the seed from its bits: the same sequence each time.
      uint32_t b;
      std::memcpy(&b, &x, 4);
      gSemente = ((b & 0xFFFFFFu) + (b >> 24)) & 0xFFFFFFu;
      Passo();
    } else if (x > 0) {
      Passo();
    }
  } else {
    Passo();
  }
  r = Value::Sng(float(gSemente) / 16777216.0f);
}

// Randomize mixes a number (the timer when none is given) into the middle bytes of
// the seed, keeping its lowest byte.
void FnRandomize(Args a, Value&) {
  double x = a.Has(0) ? ToDbl(a[0]) : DtTimer();
  uint64_t b;
  std::memcpy(&b, &x, 8);
  uint32_t h = uint32_t(b >> 32);
  h = ((h & 0xFFFF) ^ (h >> 16)) << 8;
  gSemente = (gSemente & 0xFF0000FFu) | (h & 0x00FFFF00u);
}

}  // namespace

void LibMathReg() {
  DefFns({
      {"Abs", 1, 1, FnAbs},     {"Sgn", 1, 1, FnSgn},     {"Atn", 1, 1, FnAtn},
      {"Cos", 1, 1, FnCos},     {"Sin", 1, 1, FnSin},     {"Tan", 1, 1, FnTan},
      {"Exp", 1, 1, FnExp},     {"Log", 1, 1, FnLog},     {"Sqr", 1, 1, FnSqr},
      {"Round", 1, 2, FnRound}, {"Rnd", 0, 1, FnRnd},     {"Randomize", 0, 1, FnRandomize, kFnSub},
  });
}

}  // namespace vbs
