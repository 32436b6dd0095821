// Yes/no words, typed yes/no results, typed display and the value conversions
// that carry a value across kinds into a destination that keeps its own kind.
#include <cmath>
#include "GlbVar.h"
#include "TxtGlb.h"

namespace zw {

static const char16_t kSim[] = u"Sim";
static const char16_t kNao[] = u"N\u00E3o";

// Yes/no: 1 for the words "S", "SI", "SIM" (any case, blanks around), for true and
// for the number 1; a text keeps its leading number otherwise, so "2" stays 2.
// With neg = 1 the answer turns: 1 when it was not 1. A text destination gets
// "Sim" or "Não", any other the integer.
void TxSN(const Var& val, Var& dst, int neg) {
  Var ni{int16_t(0)};
  NuVar(val, ni);
  int n = ni.Int();
  if (val.EhTx()) {
    Tx t = TxMaiTrm(val.Txt());
    if (t == u"S" || t == u"SI" || t == u"SIM") n = 1;
  } else if (val.Tipo() == Var::K::Bool) {
    n = val.Bool() ? 1 : 0;
  } else {
    n = val.Num() == 1 ? 1 : 0;
  }
  if (neg == 1) n = n != 1 ? 1 : 0;
  if (dst.EhTx()) dst = Var(n == 1 ? kSim : kNao);
  else dst.Poe(Var(int16_t(n)));
}

// Yes/no in the form a type word asks for: "SN" a letter, "TX3" the word, "TF" a
// boolean, "VOP:no,yes" one of two values of the author's, anything else the integer.
Var TxSNTip(const Var& val, TxV tip) {
  Var w{Tx()}, ni{int16_t(0)};
  TxSN(val, w);
  TxSN(val, ni);
  int n = ni.Int();
  Tx t = TxMaiTrm(tip);
  if (t == u"SN") return Var(TxEsq(w.Txt(), 1));
  if (t == u"TX3") return w;
  if (t >= u"VOP:" && t <= u"VOP:z") {
    Tx a, r, no, yes;
    TxDiv1(tip, u":", a, r);
    TxDiv1(r, u",", no, yes);
    Tx p = TxTrim(n == 1 ? yes : no);
    double d;
    if (NuEhNum(p, &d)) return Var(d);
    return Var(p);
  }
  if (t == u"TF") return Var(n == 1);
  return Var(int16_t(n));
}

// The date pattern of a "DT" type word: "DT" alone the day, "DTH" day and time,
// "DTHM" day, hours and minutes, "DT:" followed by a pattern of its own.
static Tx DtPadrao(TxV tip) {
  Tx t = TxMaiTrm(tip);
  if (t.size() > 2 && t[2] == u':') return Tx(TxTrim(tip).substr(3));
  if (t == u"DTH") return u"dd/mm/yyyy hh:nn:ss";
  if (t == u"DTHM") return u"dd/mm/yyyy hh:nn";
  return u"dd/mm/yyyy";
}

// Display form of a value by its type word: dates by "DT...", numbers by "N..."
// with a format code, yes/no by "SN"; other words leave the value alone.
void TxFmtTip(TxV tip, TxV fmt, Var& val) {
  Tx t = TxMaiTrm(tip);
  if (t >= u"DT" && t <= u"DTz") {
    double d;
    if (val.EhNum()) d = val.Num();
    else if (!(val.EhTx() && NuEhNum(val.Txt(), &d))) return;
    val = Var(DtFmt(d, DtPadrao(tip)));
  } else if (t >= u"N" && t <= u"Nz") {
    val = Var(NuTx(fmt, val));
  } else if (t == u"SN") {
    Var w{Tx()};
    TxSN(val, w);
    val = w;
  }
}

// Civil date of a day count from 1970-01-01 (Howard Hinnant's days_from_civil inverse).
static void DtCivil(long z, long& y, int& m, int& d) {
  z += 719468;
  long era = (z >= 0 ? z : z - 146096) / 146097;
  long doe = z - era * 146097;
  long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  y = yoe + era * 400;
  long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  long mp = (5 * doy + 2) / 153;
  d = int(doy - (153 * mp + 2) / 5 + 1);
  m = int(mp < 10 ? mp + 3 : mp - 9);
  if (m <= 2) y++;
}

static Tx DtNum(long v, int w) {
  Tx s = TxAsc(std::to_string(v));
  while (int(s.size()) < w) s.insert(s.begin(), u'0');
  return s;
}

Tx DtFmt(double serial, TxV fmt) {
  static const char16_t* const kMes[] = {u"janeiro", u"fevereiro", u"mar\u00E7o", u"abril",
                                         u"maio", u"junho", u"julho", u"agosto", u"setembro",
                                         u"outubro", u"novembro", u"dezembro"};
  static const char16_t* const kDia[] = {u"domingo", u"segunda-feira", u"ter\u00E7a-feira",
                                         u"quarta-feira", u"quinta-feira", u"sexta-feira",
                                         u"s\u00E1bado"};
  if (!std::isfinite(serial) || std::fabs(serial) > 3e6) return Tx();
  // The fraction is the time of day whatever the sign of the day, as in the date serial.
  double dia = std::trunc(serial);
  long seg = std::lround(std::fabs(serial - dia) * 86400.0);
  if (seg >= 86400) { seg -= 86400; dia += serial < 0 ? -1 : 1; }
  long y;
  int m, d;
  DtCivil(long(dia) - 25569, y, m, d);
  int sem = int(((long(dia) - 1) % 7 + 7) % 7);  // day 0 (30 Dec 1899) was a Saturday
  Tx r;
  size_t i = 0;
  while (i < fmt.size()) {
    char16_t c = ChrMin(fmt[i]);
    size_t k = i;
    while (k < fmt.size() && ChrMin(fmt[k]) == c) k++;
    size_t n = k - i;
    switch (c) {
      case u'd':
        if (n == 1) r += DtNum(d, 1);
        else if (n == 2) r += DtNum(d, 2);
        else if (n == 3) r += TxEsq(kDia[sem], 3);
        else r += kDia[sem];
        break;
      case u'm':
        if (n <= 2) r += DtNum(m, int(n));
        else if (n == 3) r += TxEsq(kMes[m - 1], 3);
        else r += kMes[m - 1];
        break;
      case u'y':
        if (n <= 2) r += DtNum(((y % 100) + 100) % 100, 2);
        else r += DtNum(y, 4);
        break;
      case u'h': r += DtNum(seg / 3600, int(n > 2 ? 2 : n)); break;
      case u'n': r += DtNum(seg / 60 % 60, int(n > 2 ? 2 : n)); break;
      case u's': r += DtNum(seg % 60, int(n > 2 ? 2 : n)); break;
      default: r += fmt.substr(i, n); break;
    }
    i = k;
  }
  return r;
}

// Text of a value: a text as it stands, a number as its decimal text trimmed,
// a boolean as "True"/"False"; empty, null and objects as "".
void TxVarCnv(const Var& v, Tx& t) {
  switch (v.Tipo()) {
    case Var::K::Tx: t = v.Txt(); break;
    case Var::K::Int:
    case Var::K::Lng:
    case Var::K::Dbl: t = TxTrim(NuStr(v.Num())); break;
    case Var::K::Bool: t = v.Bool() ? u"True" : u"False"; break;
    default: t.clear(); break;
  }
}

Tx TxVar(const Var& v) {
  Tx t;
  TxVarCnv(v, t);
  return t;
}

Tx TxMaiTrm(TxV t) { return TxMai(TxTrim(t)); }

Var TxVarMai(const Var& v) { return Var(TxMaiTrm(TxVar(v))); }

// Number of a value: a text by its leading number, anything else copied.
void NuVar(const Var& v, Var& dst) {
  if (!v.EhTx()) {
    dst.Poe(v);
    return;
  }
  int ok;
  double d = NuVal(v.Txt(), ok);
  if (ok) dst.Poe(Var(d));
  else dst.Poe(Var(int16_t(0)));
}

double NuDbl(const Var& v) { return v.EhTx() ? NuVal(v.Txt()) : v.Num(); }

// Assignment across kinds: a text destination gets text, any other a number.
void VarAtr(const Var& src, Var& dst) {
  if (dst.EhTx()) dst = Var(TxVar(src));
  else dst.Poe(Var(NuDbl(src)));
}

void VarAtr(const Var& src, Var& dst, TxV tip) {
  Var s = src;  // src may be dst itself
  VarVaz(dst, tip);
  VarAtr(s, dst);
}

// Assignment with options: "M" uppercases and "T" trims a text destination's text;
// a number destination reads a text with the number separators in force.
void VarCnv(TxV opc, const Var& src, Var& dst) {
  if (dst.EhTx()) {
    Tx t = src.EhTx() ? src.Txt() : TxTrim(TxVar(src));
    Tx o = TxMai(opc);
    if (TxPos(o, u"M")) t = TxMai(t);
    if (TxPos(o, u"T")) t = TxTrim(t);
    dst = Var(std::move(t));
  } else {
    dst.Poe(Var(src.EhTx() ? NuTxVal(src.Txt()) : NuDbl(src)));
  }
}

void VarVaz(Var& dst) {
  if (dst.EhTx()) dst = Var(Tx());
  else dst.Poe(Var(int16_t(0)));
}

// Clears by a type word, which also sets the cell's kind: its last character "$" or
// "T" makes an empty text, anything else the integer 0.
void VarVaz(Var& dst, TxV tip) {
  char16_t c = tip.empty() ? 0 : ChrMai(tip.back());
  if (c == u'$' || c == u'T') dst = Var(Tx());
  else dst = Var(int16_t(0));
}

Tx VarTipCon(const Var& v, TxV tip) {
  Tx t = TxMaiTrm(tip);
  if (t.empty()) return u"N";
  if (t == u"T" || t == u"$") return u"T";
  return v.EhTx() ? u"T" : u"N";
}

void NuTxNum(TxV t, double& d, int& ok) {
  d = NuVal(t, ok);
  if (!ok) d = 0;
}

void NuTxVar(TxV t, Var& dst, int& ok) {
  if (dst.EhTx()) {
    dst = Var(t);
    ok = 1;
    return;
  }
  double d = NuVal(t, ok);
  if (ok) dst.Poe(Var(d));
  else VarVaz(dst);
}

}  // namespace zw
