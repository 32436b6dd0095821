// LibFmt: FormatNumber, FormatCurrency, FormatPercent and FormatDateTime.
#include "LibFmt.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "Lib.h"

namespace vbs {

namespace {

// The digits of |x| rounded to `dig` decimals: whole part and fraction as ASCII.
// Rounding works on the 15 significant digits the number shows, halves away from zero.
void Digitos(double x, int dig, std::string& ip, std::string& fp) {
  char b[64];
  std::snprintf(b, sizeof b, "%.14e", std::fabs(x));
  std::string m;
  const char* p = b;
  for (; *p && *p != 'e'; p++)
    if (*p != '.') m += *p;
  int ex = std::atoi(p + 1);
  // The digits as a whole number of `dig` decimals: mantissa digit k has weight ex-k.
  int corte = ex + 1 + dig;  // how many mantissa digits are kept
  std::string d;
  if (corte <= 0) {
    d.assign(1, (corte == 0 && m[0] >= '5') ? '1' : '0');
  } else {
    if (corte < int(m.size())) {
      d = m.substr(0, corte);
      if (m[corte] >= '5') {
        int k = int(d.size()) - 1;
        while (k >= 0 && d[k] == '9') d[k--] = '0';
        if (k < 0) d.insert(d.begin(), '1');
        else d[k]++;
      }
    } else {
      d = m + std::string(corte - m.size(), '0');
    }
  }
  if (int(d.size()) <= dig) d.insert(0, dig + 1 - d.size(), '0');
  ip = d.substr(0, d.size() - dig);
  fp = d.substr(d.size() - dig);
  size_t z = ip.find_first_not_of('0');
  ip = z == std::string::npos ? "0" : ip.substr(z);
}

// The unsigned body: groups, separator, decimals. `nulo` tells whether all digits are 0.
Tx Corpo(double x, int dig, bool zero, bool grupo, const Locale& loc, bool& nulo) {
  std::string ip, fp;
  Digitos(x, dig, ip, fp);
  nulo = ip == "0" && fp.find_first_not_of('0') == std::string::npos;
  Tx r;
  if (ip != "0" || zero || dig == 0) {
    for (size_t i = 0; i < ip.size(); i++) {
      if (grupo && i && (ip.size() - i) % 3 == 0) r += loc.grp;
      r += char16_t(ip[i]);
    }
  }
  if (dig > 0) {
    r += loc.dec;
    for (char c : fp) r += char16_t(c);
  }
  return r;
}

int Dig(const FmtOpc& o, int omissao) {
  if (o.dig < -1 || o.dig > 255) Raise(5);
  return o.dig == -1 ? omissao : o.dig;
}

bool Tri(int v, bool omissao) { return v == -2 ? omissao : v != 0; }

// A negative currency through the locale's pattern.
Tx MoedaNeg(int pad, TxV n, TxV s) {
  Tx r;
  auto cat = [&r](std::initializer_list<TxV> ps) {
    for (TxV p : ps) r += p;
  };
  switch (pad) {
    case 0: cat({u"(", s, n, u")"}); break;
    case 1: cat({u"-", s, n}); break;
    case 2: cat({s, u"-", n}); break;
    case 3: cat({s, n, u"-"}); break;
    case 4: cat({u"(", n, s, u")"}); break;
    case 5: cat({u"-", n, s}); break;
    case 6: cat({n, u"-", s}); break;
    case 7: cat({n, s, u"-"}); break;
    case 8: cat({u"-", n, u" ", s}); break;
    case 9: cat({u"-", s, u" ", n}); break;
    case 10: cat({n, u" ", s, u"-"}); break;
    case 11: cat({s, u" ", n, u"-"}); break;
    case 12: cat({s, u" -", n}); break;
    case 13: cat({n, u"- ", s}); break;
    case 14: cat({u"(", s, u" ", n, u")"}); break;
    default: cat({u"(", n, u" ", s, u")"}); break;
  }
  return r;
}

Tx MoedaPos(int pad, TxV n, TxV s) {
  switch (pad) {
    case 0: return Tx(s) + Tx(n);
    case 1: return Tx(n) + Tx(s);
    case 2: return Tx(s) + u' ' + Tx(n);
    default: return Tx(n) + u' ' + Tx(s);
  }
}

}  // namespace

Tx FmtNum(double x, const FmtOpc& o, const Locale& loc) {
  bool nulo;
  Tx c = Corpo(x, Dig(o, loc.digitos), Tri(o.zeroEsq, loc.zeroEsq), Tri(o.grupo, true), loc, nulo);
  if (!(x < 0) || nulo) return c;
  if (Tri(o.paren, loc.negNum == 0)) return u"(" + c + u")";
  switch (loc.negNum) {
    case 2: return u"- " + c;
    case 3: return c + u"-";
    case 4: return c + u" -";
    default: return u"-" + c;
  }
}

Tx FmtPct(double x, const FmtOpc& o, const Locale& loc) {
  bool nulo;
  Tx c = Corpo(x * 100, Dig(o, loc.digitos), Tri(o.zeroEsq, loc.zeroEsq), Tri(o.grupo, true),
               loc, nulo) + u'%';
  if (!(x < 0) || nulo) return c;
  if (Tri(o.paren, loc.negNum == 0)) return u"(" + c + u")";
  return u"-" + c;
}

Tx FmtMoeda(double x, const FmtOpc& o, const Locale& loc) {
  bool nulo;
  Tx c = Corpo(x, Dig(o, loc.moedaDig), Tri(o.zeroEsq, loc.zeroEsq), Tri(o.grupo, true), loc, nulo);
  if (!(x < 0) || nulo) return MoedaPos(loc.moedaPos, c, loc.moeda);
  int pad = loc.moedaNeg;
  bool comParen = pad == 0 || pad == 4 || pad == 14 || pad == 15;
  if (o.paren != -2 && (o.paren != 0) != comParen) {
    if (o.paren != 0) {
      Tx r(1, u'(');
      r += MoedaPos(loc.moedaPos, c, loc.moeda);
      r += u')';
      return r;
    }
    pad = pad == 0 ? 1 : pad == 4 ? 5 : pad == 14 ? 9 : 8;
  }
  return MoedaNeg(pad, c, loc.moeda);
}

namespace {

// The arguments after the number: decimals, leading zero, parentheses, groups.
FmtOpc Opcoes(Args a) {
  FmtOpc o;
  o.dig = ArgLng(a, 1, -1);
  o.zeroEsq = ArgLng(a, 2, -2);
  o.paren = ArgLng(a, 3, -2);
  o.grupo = ArgLng(a, 4, -2);
  return o;
}

// The Format functions take no Null: it is a type mismatch there, not 94.
const Value& NaoNulo(Args a) {
  if (a[0].IsNull()) Raise(13);
  return a[0];
}
void FnFormatNumber(Args a, Value& r) { r = Value(FmtNum(ToDbl(NaoNulo(a)), Opcoes(a))); }
void FnFormatCurrency(Args a, Value& r) { r = Value(FmtMoeda(ToDbl(NaoNulo(a)), Opcoes(a))); }
void FnFormatPercent(Args a, Value& r) { r = Value(FmtPct(ToDbl(NaoNulo(a)), Opcoes(a))); }

void FnFormatDateTime(Args a, Value& r) {
  NaoNulo(a);
  int32_t f = ArgLng(a, 1, 0);
  if (f < 0 || f > 4) Raise(5);
  double d = ToDate(a[0]);
  const Locale& l = LocAct();
  switch (f) {
    case 0: r = Value(DtTx(d, l)); break;
    case 1: r = Value(DtFmtVb(d, l.dtLonga, l)); break;
    case 2: r = Value(DtFmtVb(d, l.dtCurta, l)); break;
    case 3: r = Value(DtFmtVb(d, l.hrLonga, l)); break;
    default: r = Value(DtFmtVb(d, l.hrCurta, l)); break;
  }
}

}  // namespace

void LibFmtReg() {
  DefFns({
      {"FormatNumber", 1, 5, FnFormatNumber},
      {"FormatCurrency", 1, 5, FnFormatCurrency},
      {"FormatPercent", 1, 5, FnFormatPercent},
      {"FormatDateTime", 1, 2, FnFormatDateTime},
  });
}

}  // namespace vbs
