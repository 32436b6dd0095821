// Locale: the table of regional settings, the locale in force, numbers as text.
#include "Locale.h"
#include "TxtGlb.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vbs {

namespace {

const Locale kLoc[] = {
    {1033, u"en-us", u'.', u',', u',', 2, true, 1, u"$", 2, 0, 0, DtOrd::MDY, u'/', u':',
     u"M/d/yyyy", u"dddd, MMMM d, yyyy", u"h:mm:ss tt", u"HH:mm", u"AM", u"PM",
     {u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August",
      u"September", u"October", u"November", u"December"},
     {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov",
      u"Dec"},
     {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"},
     {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"},
     1},
    {2070, u"pt-pt", u',', u'\u00A0', u';', 2, true, 1, u"\u20AC", 2, 3, 8, DtOrd::DMY, u'/',
     u':', u"dd/MM/yyyy", u"dddd, d' de 'MMMM' de 'yyyy", u"HH:mm:ss", u"HH:mm", u"a.m.",
     u"p.m.",
     {u"janeiro", u"fevereiro", u"mar\u00E7o", u"abril", u"maio", u"junho", u"julho",
      u"agosto", u"setembro", u"outubro", u"novembro", u"dezembro"},
     {u"jan", u"fev", u"mar", u"abr", u"mai", u"jun", u"jul", u"ago", u"set", u"out", u"nov",
      u"dez"},
     {u"domingo", u"segunda-feira", u"ter\u00E7a-feira", u"quarta-feira", u"quinta-feira",
      u"sexta-feira", u"s\u00E1bado"},
     {u"dom", u"seg", u"ter", u"qua", u"qui", u"sex", u"s\u00E1b"},
     2},
    {1046, u"pt-br", u',', u'.', u';', 2, true, 1, u"R$", 2, 2, 9, DtOrd::DMY, u'/', u':',
     u"dd/MM/yyyy", u"dddd, d' de 'MMMM' de 'yyyy", u"HH:mm:ss", u"HH:mm", u"AM", u"PM",
     {u"janeiro", u"fevereiro", u"mar\u00E7o", u"abril", u"maio", u"junho", u"julho",
      u"agosto", u"setembro", u"outubro", u"novembro", u"dezembro"},
     {u"jan", u"fev", u"mar", u"abr", u"mai", u"jun", u"jul", u"ago", u"set", u"out", u"nov",
      u"dez"},
     {u"domingo", u"segunda-feira", u"ter\u00E7a-feira", u"quarta-feira", u"quinta-feira",
      u"sexta-feira", u"s\u00E1bado"},
     {u"dom", u"seg", u"ter", u"qua", u"qui", u"sex", u"s\u00E1b"},
     1},
    {2057, u"en-gb", u'.', u',', u',', 2, true, 1, u"\u00A3", 2, 0, 1, DtOrd::DMY, u'/', u':',
     u"dd/MM/yyyy", u"dd MMMM yyyy", u"HH:mm:ss", u"HH:mm", u"AM", u"PM",
     {u"January", u"February", u"March", u"April", u"May", u"June", u"July", u"August",
      u"September", u"October", u"November", u"December"},
     {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun", u"Jul", u"Aug", u"Sep", u"Oct", u"Nov",
      u"Dec"},
     {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"},
     {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"},
     2},
};

thread_local const Locale* gAct = &kLoc[0];

}  // namespace

const Locale& LocAct() { return *gAct; }
const Locale& LocEua() { return kLoc[0]; }

const Locale* LocPorId(int id) {
  for (const Locale& l : kLoc)
    if (l.id == id) return &l;
  return nullptr;
}

const Locale* LocPorNome(TxV nome) {
  for (const Locale& l : kLoc)
    if (TxCmpTx(nome, l.nome) == 0) return &l;
  // "pt_PT" as the environment spells it is accepted too.
  Tx n(nome);
  for (char16_t& c : n)
    if (c == u'_') c = u'-';
  if (n != nome) return LocPorNome(n);
  return nullptr;
}

bool LocDef(int id) {
  if (id == 0) id = LocSistema();
  const Locale* l = LocPorId(id);
  if (!l) return false;
  gAct = l;
  return true;
}

// Reads the first of LC_ALL, LC_NUMERIC, LANG that is set; "pt_PT.UTF-8" names pt-pt.
int LocSistema() {
  const char* e = nullptr;
  for (const char* v : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    e = std::getenv(v);
    if (e && *e) break;
  }
  if (!e) return 1033;
  std::string s(e);
  size_t p = s.find_first_of(".@");
  if (p != std::string::npos) s.resize(p);
  const Locale* l = LocPorNome(zw::TxAsc(s));
  return l ? l->id : 1033;
}

// ---- Letter case ----

// The letter case of the foundation's tables, with µ and ſ mapped as the
// script language maps them.
char16_t ChMai(char16_t c) { return zw::ChrMai(c, true); }
char16_t ChMin(char16_t c) { return zw::ChrMin(c); }
Tx TxMaiVb(TxV t) { return zw::TxMai(t, true); }
Tx TxMinVb(TxV t) { return zw::TxMin(t); }

int TxCmpTx(TxV a, TxV b) {
  size_t n = a.size() < b.size() ? a.size() : b.size();
  for (size_t i = 0; i < n; i++) {
    char16_t x = ChMai(a[i]), y = ChMai(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

// ---- Numbers as text ----

Tx NumTx(double d, int sig, const Locale& loc) {
  if (std::isnan(d)) return u"NaN";
  if (std::isinf(d)) return d < 0 ? u"-1.#INF" : u"1.#INF";
  if (d == 0) return u"0";
  // The significant digits and the decimal exponent, trailing zeros dropped.
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*e", sig - 1, d);
  bool neg = buf[0] == '-';
  const char* p = buf + (neg ? 1 : 0);
  std::string dig;
  for (; *p && *p != 'e'; p++)
    if (*p >= '0' && *p <= '9') dig += *p;
  int ex = std::atoi(p + 1);
  while (dig.size() > 1 && dig.back() == '0') dig.pop_back();
  Tx r;
  if (neg) r += u'-';
  // Exponent form for large and small numbers, and for a fraction whose digits
  // would run past sig places after the point (1/36 is 2.77777777777778E-02).
  if (ex >= sig || ex < -4 || (ex < -1 && int(dig.size()) - ex - 1 > sig)) {
    // Exponent form: d.dddE+xx with at least two exponent digits.
    r += char16_t(dig[0]);
    if (dig.size() > 1) {
      r += loc.dec;
      for (size_t i = 1; i < dig.size(); i++) r += char16_t(dig[i]);
    }
    char e[16];
    std::snprintf(e, sizeof e, "E%c%02d", ex < 0 ? '-' : '+', ex < 0 ? -ex : ex);
    r += zw::TxAsc(e);
    return r;
  }
  if (ex < 0) {
    r += u'0';
    r += loc.dec;
    for (int i = -1; i > ex; i--) r += u'0';
    for (char c : dig) r += char16_t(c);
    return r;
  }
  for (int i = 0; i <= ex; i++) r += i < int(dig.size()) ? char16_t(dig[i]) : u'0';
  if (int(dig.size()) > ex + 1) {
    r += loc.dec;
    for (size_t i = ex + 1; i < dig.size(); i++) r += char16_t(dig[i]);
  }
  return r;
}

Tx CurTx(int64_t c, const Locale& loc) {
  bool neg = c < 0;
  uint64_t u = neg ? uint64_t(0) - uint64_t(c) : uint64_t(c);
  std::string s = std::to_string(u / 10000);
  unsigned f = unsigned(u % 10000);
  Tx r;
  if (neg) r += u'-';
  r += zw::TxAsc(s);
  if (f) {
    char b[8];
    std::snprintf(b, sizeof b, "%04u", f);
    std::string fs(b);
    while (fs.back() == '0') fs.pop_back();
    r += loc.dec;
    r += zw::TxAsc(fs);
  }
  return r;
}

namespace {

bool EhBranco(char16_t c) { return c == u' ' || c == u'\t' || c == 0xA0; }

// "&H1F" and "&O17": the digits as an unsigned 32-bit value, read as signed.
bool TxNumBase(TxV t, double& d) {
  int base = (t[1] == u'H' || t[1] == u'h') ? 16 : (t[1] == u'O' || t[1] == u'o') ? 8 : 0;
  if (!base || t.size() < 3) return false;
  uint64_t v = 0;
  for (size_t i = 2; i < t.size(); i++) {
    char16_t c = t[i];
    int x = (c >= u'0' && c <= u'9')   ? c - u'0'
            : (c >= u'a' && c <= u'f') ? c - u'a' + 10
            : (c >= u'A' && c <= u'F') ? c - u'A' + 10
                                       : 99;
    if (x >= base) return false;
    v = v * base + x;
    if (v > 0xFFFFFFFFull) return false;
  }
  d = double(int32_t(uint32_t(v)));
  return true;
}

}  // namespace

bool TxNum(TxV t, double& d, const Locale& loc) {
  size_t a = 0, b = t.size();
  while (a < b && EhBranco(t[a])) a++;
  while (b > a && EhBranco(t[b - 1])) b--;
  t = t.substr(a, b - a);
  if (t.empty()) return false;
  if (t[0] == u'&') return t.size() > 1 && TxNumBase(t, d);
  TxV cur(loc.moeda);
  bool neg = false, paren = false, sinal = false;
  std::string s;  // the number rebuilt in C form for strtod
  size_t i = 0;
  auto pulaMoeda = [&]() {
    if (!cur.empty() && t.substr(i, cur.size()) == cur) {
      i += cur.size();
      while (i < t.size() && EhBranco(t[i])) i++;
    }
  };
  auto pulaSinal = [&]() {
    if (i < t.size() && !sinal && (t[i] == u'-' || t[i] == u'+')) {
      neg = t[i] == u'-';
      sinal = true;
      i++;
      while (i < t.size() && EhBranco(t[i])) i++;
    }
  };
  if (t[i] == u'(') {
    paren = true;
    i++;
  }
  pulaSinal();
  pulaMoeda();
  pulaSinal();
  bool digs = false, ponto = false;
  for (; i < t.size(); i++) {
    char16_t c = t[i];
    if (c >= u'0' && c <= u'9') {
      s += char(c);
      digs = true;
    } else if (c == loc.dec && !ponto) {
      s += '.';
      ponto = true;
    } else if (!ponto && digs && (c == loc.grp || (loc.grp == 0xA0 && c == u' '))) {
      // group separators may stand between digits of the whole part
    } else {
      break;
    }
  }
  if (!digs) return false;
  if (i < t.size() && (t[i] == u'e' || t[i] == u'E' || t[i] == u'd' || t[i] == u'D')) {
    size_t j = i + 1;
    std::string e = "e";
    if (j < t.size() && (t[j] == u'+' || t[j] == u'-')) e += char(t[j++]);
    size_t k = j;
    while (j < t.size() && t[j] >= u'0' && t[j] <= u'9') e += char(t[j++]);
    if (j == k) return false;
    s += e;
    i = j;
  }
  while (i < t.size() && EhBranco(t[i])) i++;
  pulaMoeda();
  if (i < t.size() && !sinal && (t[i] == u'-' || t[i] == u'+')) {
    neg = t[i] == u'-';
    sinal = true;
    i++;
  }
  if (paren) {
    if (i >= t.size() || t[i] != u')' || sinal) return false;
    i++;
    neg = true;
  }
  if (i != t.size()) return false;
  char* fim = nullptr;
  double v = std::strtod(s.c_str(), &fim);
  if (!fim || *fim) return false;
  if (std::isinf(v)) return false;
  d = neg ? -v : v;
  return true;
}

}  // namespace vbs
