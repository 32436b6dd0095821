// DateTime: serial dates, their parts, their text, and reading dates from text.
#include "DateTime.h"

#include <sys/time.h>

#include <cmath>
#include <ctime>
#include <vector>

namespace vbs {

namespace {

constexpr long kEpoca = 693593;  // DtDiasAbs(1899, 12, 30)

long DivChao(long a, long b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

// Year, month and day of a count of days from 1 January 1 (day 0), proleptic Gregorian.
void CivilDe(long n, int& a, int& m, int& d) {
  // Shift to an era calendar that starts on 1 March 0 so that leap days fall last.
  long z = n + 306;  // days from 1 March 0 to 1 January 1 are 306
  long era = DivChao(z, 146097);
  long doe = z - era * 146097;
  long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  long y = yoe + era * 400;
  long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  long mp = (5 * doy + 2) / 153;
  d = int(doy - (153 * mp + 2) / 5 + 1);
  m = int(mp < 10 ? mp + 3 : mp - 9);
  a = int(y + (m <= 2));
}

bool Bissexto(int a) { return (a % 4 == 0 && a % 100 != 0) || a % 400 == 0; }

int DiasMes(int a, int m) {
  static const int k[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && Bissexto(a) ? 29 : k[m - 1];
}

}  // namespace

long DtDiasAbs(int ano, int mes, int dia) {
  long y = long(ano) - (mes <= 2);
  long era = DivChao(y, 400);
  long yoe = y - era * 400;
  long mp = (mes + 9) % 12;
  long doy = (153 * mp + 2) / 5 + dia - 1;
  long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 306;
}

bool DtValida(double d) { return d >= kDtMin && d < kDtMax + 1 && !std::isnan(d); }

double DtJun(double dias, double t) { return dias < 0 ? dias - t : dias + t; }

bool DtPartesDe(double d, DtPartes& p) {
  if (!DtValida(d)) return false;
  double dias = std::trunc(d);
  long long s = std::llround(std::fabs(d - dias) * 86400.0);
  long n = long(dias);
  if (s >= 86400) {
    s -= 86400;
    n += 1;
  }
  CivilDe(n + kEpoca, p.ano, p.mes, p.dia);
  p.hora = int(s / 3600);
  p.min = int(s / 60 % 60);
  p.seg = int(s % 60);
  p.semana = int(((n % 7) + 7 + 6) % 7) + 1;
  return true;
}

bool DtSerialAbs(int ano, int mes, int dia, double& d) {
  long m0 = long(mes) - 1;
  long a = long(ano) + DivChao(m0, 12);
  long m = m0 - DivChao(m0, 12) * 12 + 1;
  if (a < 0 || a > 10000) return false;
  double v = double(DtDiasAbs(int(a), int(m), 1) - kEpoca) + double(dia) - 1;
  if (v < kDtMin || v > kDtMax) return false;
  d = v;
  return true;
}

bool DtSerial(int ano, int mes, int dia, double& d) {
  if (ano >= 0 && ano <= 29) ano += 2000;
  else if (ano >= 30 && ano <= 99) ano += 1900;
  return DtSerialAbs(ano, mes, dia, d);
}

double TmSerial(double hora, double min, double seg) {
  double s = hora * 3600 + min * 60 + seg;
  double dias = std::floor(s / 86400);
  return DtJun(dias, (s - dias * 86400) / 86400);
}

double DtDia(double d) { return std::trunc(d); }

double DtHora(double d) {
  double s = std::round(std::fabs(d - std::trunc(d)) * 86400.0);
  if (s >= 86400) s = 0;
  return s / 86400;
}

int DtSemana(double d, int priDia) {
  DtPartes p;
  if (!DtPartesDe(d, p)) return 0;
  if (priDia < 1 || priDia > 7) priDia = kDom;
  return (p.semana - priDia + 7) % 7 + 1;
}

// ---- Text ----

namespace {

void Num(Tx& r, int v, int largura) {
  Tx s = zw::TxAsc(std::to_string(v));
  for (int i = int(s.size()); i < largura; i++) r += u'0';
  r += s;
}

}  // namespace

Tx DtFmtVb(double d, TxV pic, const Locale& loc) {
  DtPartes p;
  if (!DtPartesDe(d, p)) return Tx();
  Tx r;
  size_t i = 0;
  while (i < pic.size()) {
    char16_t c = pic[i];
    if (c == u'\'') {
      // Quoted text; two quotes stand for one, inside or outside.
      if (i + 1 < pic.size() && pic[i + 1] == u'\'') {
        r += u'\'';
        i += 2;
        continue;
      }
      i++;
      while (i < pic.size()) {
        if (pic[i] == u'\'') {
          if (i + 1 < pic.size() && pic[i + 1] == u'\'') {
            r += u'\'';
            i += 2;
            continue;
          }
          i++;
          break;
        }
        r += pic[i++];
      }
      continue;
    }
    size_t n = 1;
    while (i + n < pic.size() && pic[i + n] == c) n++;
    int h12 = p.hora % 12 == 0 ? 12 : p.hora % 12;
    switch (c) {
      case u'd':
        if (n == 1 || n == 2) Num(r, p.dia, int(n));
        else if (n == 3) r += loc.diaAbr[p.semana - 1];
        else r += loc.dia[p.semana - 1];
        break;
      case u'M':
        if (n == 1 || n == 2) Num(r, p.mes, int(n));
        else if (n == 3) r += loc.mesAbr[p.mes - 1];
        else r += loc.mes[p.mes - 1];
        break;
      case u'y':
        if (n == 1) Num(r, p.ano % 100, 1);
        else if (n == 2) Num(r, p.ano % 100, 2);
        else Num(r, p.ano, 4);
        break;
      case u'h': Num(r, h12, n > 1 ? 2 : 1); break;
      case u'H': Num(r, p.hora, n > 1 ? 2 : 1); break;
      case u'm': Num(r, p.min, n > 1 ? 2 : 1); break;
      case u's': Num(r, p.seg, n > 1 ? 2 : 1); break;
      case u't': {
        Tx s = p.hora < 12 ? loc.am : loc.pm;
        r += n == 1 ? s.substr(0, 1) : s;
        break;
      }
      default: r.append(n, c); break;
    }
    i += n;
  }
  return r;
}

Tx DtTx(double d, const Locale& loc) {
  DtPartes p;
  if (!DtPartesDe(d, p)) return Tx();
  bool temHora = p.hora || p.min || p.seg;
  bool temDia = !(p.ano == 1899 && p.mes == 12 && p.dia == 30);
  if (temDia && !temHora) return DtFmtVb(d, loc.dtCurta, loc);
  if (!temDia) return DtFmtVb(d, loc.hrLonga, loc);
  return DtFmtVb(d, loc.dtCurta, loc) + u' ' + DtFmtVb(d, loc.hrLonga, loc);
}

// ---- Reading dates ----

namespace {

enum class TkK { Num, Pal, Sep };
struct Tk {
  TkK k;
  Tx t;       // the word, or the separator character
  int v = 0;  // the value of a number
  int dig = 0;
  bool usado = false;
};

bool Letra(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7);
}

bool Igual(TxV a, TxV b) { return TxCmpTx(a, b) == 0; }

// The month (1-12) a word names in the locale or in English, 0 if none.
int MesDe(TxV w, const Locale& loc) {
  for (const Locale* l : {&loc, &LocEua()})
    for (int i = 0; i < 12; i++)
      if (Igual(w, l->mes[i]) || Igual(w, l->mesAbr[i])) return i + 1;
  return 0;
}

bool EhDiaSemana(TxV w, const Locale& loc) {
  for (const Locale* l : {&loc, &LocEua()})
    for (int i = 0; i < 7; i++)
      if (Igual(w, l->dia[i]) || Igual(w, l->diaAbr[i])) return true;
  return false;
}

// 1 for a morning mark, 2 for an afternoon one, 0 otherwise.
int AmPm(TxV w, const Locale& loc) {
  if (Igual(w, u"AM") || Igual(w, u"A") || (*loc.am && Igual(w, loc.am))) return 1;
  if (Igual(w, u"PM") || Igual(w, u"P") || (*loc.pm && Igual(w, loc.pm))) return 2;
  return 0;
}

bool Tokens(TxV t, const Locale& loc, std::vector<Tk>& tk) {
  size_t i = 0;
  while (i < t.size()) {
    char16_t c = t[i];
    if (c >= u'0' && c <= u'9') {
      Tk k{TkK::Num, Tx()};
      while (i < t.size() && t[i] >= u'0' && t[i] <= u'9') {
        if (k.dig < 9) k.v = k.v * 10 + (t[i] - u'0');
        else return false;
        k.dig++;
        i++;
      }
      tk.push_back(k);
    } else if (Letra(c)) {
      // The locale's marks may hold dots ("a.m."): try them whole first.
      bool feito = false;
      for (const char16_t* m : {loc.am, loc.pm}) {
        TxV mv(m);
        if (!mv.empty() && i + mv.size() <= t.size() && Igual(t.substr(i, mv.size()), mv)) {
          tk.push_back({TkK::Pal, Tx(mv)});
          i += mv.size();
          feito = true;
          break;
        }
      }
      if (feito) continue;
      Tk k{TkK::Pal, Tx()};
      while (i < t.size() && Letra(t[i])) k.t += t[i++];
      tk.push_back(k);
    } else if (c == u' ' || c == u'\t' || c == 0xA0) {
      i++;
      if (!tk.empty() && tk.back().k == TkK::Sep) continue;
      tk.push_back({TkK::Sep, Tx(1, u' ')});
    } else if (c == u'/' || c == u'-' || c == u'.' || c == u',' || c == u':') {
      // A separator next to a blank counts as itself.
      if (!tk.empty() && tk.back().k == TkK::Sep && tk.back().t == u" ") tk.back().t = Tx(1, c);
      else tk.push_back({TkK::Sep, Tx(1, c)});
      i++;
      while (i < t.size() && (t[i] == u' ' || t[i] == u'\t')) i++;
    } else {
      return false;
    }
  }
  return true;
}

// Finds and takes the time of the tokens: h:m[:s] or h with a mark. -1 when the time
// is malformed, 0 when there is none, 1 when found.
int LerHora(std::vector<Tk>& tk, const Locale& loc, double& t) {
  for (size_t i = 0; i < tk.size(); i++) {
    if (tk[i].k != TkK::Num) continue;
    int hms[3] = {tk[i].v, 0, 0};
    size_t j = i + 1, n = 1;
    while (n < 3 && j + 1 < tk.size() && tk[j].k == TkK::Sep && tk[j].t == u":" &&
           tk[j + 1].k == TkK::Num) {
      hms[n++] = tk[j + 1].v;
      j += 2;
    }
    if (j < tk.size() && tk[j].k == TkK::Sep && tk[j].t == u":") return -1;
    // An optional mark after a blank or straight after the digits.
    size_t m = j;
    if (m < tk.size() && tk[m].k == TkK::Sep && tk[m].t == u" ") m++;
    int ap = (m < tk.size() && tk[m].k == TkK::Pal) ? AmPm(tk[m].t, loc) : 0;
    if (n == 1 && !ap) continue;
    if (ap) {
      if (hms[0] > 12) return -1;
      if (hms[0] == 12) hms[0] = 0;
      if (ap == 2) hms[0] += 12;
    }
    if (hms[0] > 23 || hms[1] > 59 || hms[2] > 59) return -1;
    for (size_t k = i; k < (ap ? m + 1 : j); k++) tk[k].usado = true;
    t = (hms[0] * 3600 + hms[1] * 60 + hms[2]) / 86400.0;
    return 1;
  }
  return 0;
}

int AnoAtual() {
  DtPartes p;
  DtPartesDe(DtAgora(), p);
  return p.ano;
}

int Ano2(const Tk& k) {
  if (k.dig <= 2) return k.v < 30 ? 2000 + k.v : 1900 + k.v;
  return k.v;
}

bool EhAno(const Tk& k) { return k.dig > 2 || k.v > 31; }

bool Compoe(int a, int m, int d, double& r) {
  if (a < 100 || a > 9999 || m < 1 || m > 12 || d < 1 || d > DiasMes(a, m)) return false;
  r = double(DtDiasAbs(a, m, d) - kEpoca);
  return true;
}

// The day, month and year of the numbers and month name left after the time.
bool LerData(const std::vector<const Tk*>& nu, int mes, const Locale& loc, double& r) {
  if (mes) {
    if (nu.size() == 1) {
      if (EhAno(*nu[0])) return Compoe(Ano2(*nu[0]), mes, 1, r);
      return Compoe(AnoAtual(), mes, nu[0]->v, r);
    }
    if (nu.size() == 2) {
      if (EhAno(*nu[0])) return Compoe(Ano2(*nu[0]), mes, nu[1]->v, r);
      return Compoe(Ano2(*nu[1]), mes, nu[0]->v, r);
    }
    return false;
  }
  if (nu.size() == 3) {
    if (EhAno(*nu[0]) || loc.ord == DtOrd::YMD) {
      int a = Ano2(*nu[0]);
      return Compoe(a, nu[1]->v, nu[2]->v, r) || Compoe(a, nu[2]->v, nu[1]->v, r);
    }
    int a = Ano2(*nu[2]);
    int m = nu[0]->v, d = nu[1]->v;
    if (loc.ord == DtOrd::DMY) std::swap(m, d);
    return Compoe(a, m, d, r) || Compoe(a, d, m, r);
  }
  if (nu.size() == 2) {
    if (EhAno(*nu[0])) return Compoe(Ano2(*nu[0]), nu[1]->v, 1, r);
    if (EhAno(*nu[1])) return Compoe(Ano2(*nu[1]), nu[0]->v, 1, r);
    int m = nu[0]->v, d = nu[1]->v;
    if (loc.ord == DtOrd::DMY) std::swap(m, d);
    int a = AnoAtual();
    return Compoe(a, m, d, r) || Compoe(a, d, m, r);
  }
  return false;
}

}  // namespace

bool TxDt(TxV t, double& d, const Locale& loc) {
  std::vector<Tk> tk;
  if (!Tokens(t, loc, tk)) return false;
  double hora = 0;
  int h = LerHora(tk, loc, hora);
  if (h < 0) return false;
  std::vector<const Tk*> nu;
  int mes = 0;
  for (const Tk& k : tk) {
    if (k.usado) continue;
    if (k.k == TkK::Num) {
      nu.push_back(&k);
    } else if (k.k == TkK::Pal) {
      int m = MesDe(k.t, loc);
      if (m && !mes) mes = m;
      else if (!EhDiaSemana(k.t, loc)) return false;
    } else if (k.t == u":") {
      return false;
    }
  }
  if (nu.empty() && !mes) {
    if (h == 0) return false;
    d = hora;
    return true;
  }
  double dia;
  if (!LerData(nu, mes, loc, dia)) return false;
  d = DtJun(dia, hora);
  return true;
}

double DtAgora() {
  struct timeval tv;
  gettimeofday(&tv, nullptr);
  time_t s = tv.tv_sec;
  struct tm tm;
  localtime_r(&s, &tm);
  double d = double(DtDiasAbs(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday) - kEpoca);
  return d + (tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec) / 86400.0;
}

double DtTimer() {
  struct timeval tv;
  gettimeofday(&tv, nullptr);
  time_t s = tv.tv_sec;
  struct tm tm;
  localtime_r(&s, &tm);
  return tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec + tv.tv_usec / 1e6;
}

}  // namespace vbs
