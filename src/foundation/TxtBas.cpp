// Basic text helpers: case mapping, trimming, 1-based search and cuts, and the
// number readers and writers that every conversion of values builds on.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include "TxtGlb.h"

namespace zw {

// Uppercase of one character. Latin-1 and Latin Extended-A follow the Windows
// mapping (so "ÿ" becomes "Ÿ" and "ı" becomes "I"); basic Greek and Cyrillic too.
// With `todas`, the two letters whose capital lies outside their own block are
// mapped as well: "µ" to Greek capital mu and the long "ſ" to "S". The script
// engine asks for that, because the script language's UCase and its case-blind
// comparisons map them so; the option-file functions keep them as they are.
char16_t ChrMai(char16_t c, bool todas) {
  if (c < 0x80) return (c >= 'a' && c <= 'z') ? char16_t(c - 32) : c;
  if (c < 0x100) {
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return char16_t(c - 32);
    if (c == 0xFF) return 0x178;
    if (c == 0xB5 && todas) return 0x39C;
    return c;
  }
  if (c < 0x180) {
    if (c == 0x131) return u'I';
    if (c == 0x17F && todas) return u'S';
    if (c == 0x130 || c == 0x138 || c == 0x149 || c == 0x178 || c == 0x17F) return c;
    bool parUp = (c < 0x138 || (c >= 0x14A && c < 0x178)) ? (c % 2 == 0) : (c % 2 == 1);
    return parUp ? c : char16_t(c - 1);
  }
  if (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) return char16_t(c - 32);
  if (c == 0x3C2) return 0x3A3;
  if (c >= 0x430 && c <= 0x44F) return char16_t(c - 32);
  if (c >= 0x450 && c <= 0x45F) return char16_t(c - 80);
  return c;
}

// Lowercase of one character, the inverse of ChrMai.
char16_t ChrMin(char16_t c) {
  if (c < 0x80) return (c >= 'A' && c <= 'Z') ? char16_t(c + 32) : c;
  if (c < 0x100) {
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return char16_t(c + 32);
    return c;
  }
  if (c < 0x180) {
    if (c == 0x130) return u'i';
    if (c == 0x178) return 0xFF;
    if (c == 0x131 || c == 0x138 || c == 0x149 || c == 0x17F) return c;
    bool parUp = (c < 0x138 || (c >= 0x14A && c < 0x178)) ? (c % 2 == 0) : (c % 2 == 1);
    return parUp ? char16_t(c + 1) : c;
  }
  if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return char16_t(c + 32);
  if (c >= 0x410 && c <= 0x42F) return char16_t(c + 32);
  if (c >= 0x400 && c <= 0x40F) return char16_t(c + 80);
  return c;
}

Tx TxMai(TxV t, bool todas) {
  Tx r(t);
  for (auto& c : r) c = ChrMai(c, todas);
  return r;
}

Tx TxMin(TxV t) {
  Tx r(t);
  for (auto& c : r) c = ChrMin(c);
  return r;
}

Tx TxTrimE(TxV t) {
  size_t i = 0;
  while (i < t.size() && t[i] == u' ') i++;
  return Tx(t.substr(i));
}

Tx TxTrimD(TxV t) {
  size_t n = t.size();
  while (n > 0 && t[n - 1] == u' ') n--;
  return Tx(t.substr(0, n));
}

Tx TxTrim(TxV t) {
  size_t i = 0, n = t.size();
  while (i < n && t[i] == u' ') i++;
  while (n > i && t[n - 1] == u' ') n--;
  return Tx(t.substr(i, n - i));
}

// 1-based search as the script language's InStr: an empty s is found at ini,
// and nothing is found in an empty text or from a start past its end.
int TxPos(TxV t, TxV s, int ini) {
  if (ini < 1) ini = 1;
  if (size_t(ini) > t.size()) return 0;
  size_t p = t.find(s, size_t(ini - 1));
  return p == TxV::npos ? 0 : int(p + 1);
}

Tx TxEsq(TxV t, long n) {
  if (n <= 0) return Tx();
  return Tx(t.substr(0, size_t(n)));
}

Tx TxDir(TxV t, long n) {
  if (n <= 0) return Tx();
  if (size_t(n) >= t.size()) return Tx(t);
  return Tx(t.substr(t.size() - size_t(n)));
}

Tx TxMeio(TxV t, long ini, long n) {
  if (ini < 1) ini = 1;
  if (size_t(ini) > t.size()) return Tx();
  return n < 0 ? Tx(t.substr(size_t(ini - 1))) : Tx(t.substr(size_t(ini - 1), size_t(n)));
}

Tx TxRep(long n, char16_t c) { return n > 0 ? Tx(size_t(n), c) : Tx(); }

bool TxIgual(TxV a, TxV b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); i++)
    if (ChrMai(a[i]) != ChrMai(b[i])) return false;
  return true;
}

// Reads digits of a base from s at i into an unsigned value; false on overflow.
static bool NuLeBase(const std::u16string& s, size_t& i, int base, unsigned long long& v) {
  v = 0;
  for (; i < s.size(); i++) {
    char16_t c = s[i];
    int d;
    if (c >= '0' && c <= '9') d = c - '0';
    else if (base == 16 && c >= 'a' && c <= 'f') d = c - 'a' + 10;
    else if (base == 16 && c >= 'A' && c <= 'F') d = c - 'A' + 10;
    else break;
    if (d >= base) break;
    v = v * base + d;
    if (v > 0xFFFFFFFFull) return false;
  }
  return true;
}

// A hex or octal value as the script language types it: 16-bit when it fits in
// 16 bits, else 32-bit, both signed.
static double NuDeBase(unsigned long long v) {
  if (v <= 0xFFFF) return double(int16_t(uint16_t(v)));
  return double(int32_t(uint32_t(v)));
}

double NuVal(TxV t, int& ok) {
  ok = 1;
  std::u16string s;  // the text without the blanks, tabs and line feeds it may hold
  s.reserve(t.size());
  for (char16_t c : t)
    if (c != u' ' && c != u'\t' && c != u'\n') s.push_back(c);
  size_t i = 0;
  if (s.size() >= 2 && s[0] == u'&') {
    char16_t b = ChrMai(s[1]);
    if (b == u'H' || b == u'O') {
      i = 2;
      unsigned long long v;
      if (!NuLeBase(s, i, b == u'H' ? 16 : 8, v)) { ok = 0; return 0; }
      return NuDeBase(v);
    }
  }
  std::string a;  // ASCII copy of the number's characters, for strtod
  if (i < s.size() && (s[i] == u'+' || s[i] == u'-')) a.push_back(char(s[i++]));
  bool dig = false;
  while (i < s.size() && s[i] >= '0' && s[i] <= '9') { a.push_back(char(s[i++])); dig = true; }
  if (i < s.size() && s[i] == u'.') {
    a.push_back('.');
    i++;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') { a.push_back(char(s[i++])); dig = true; }
  }
  if (!dig) return 0;
  if (i < s.size() && (s[i] == u'e' || s[i] == u'E' || s[i] == u'd' || s[i] == u'D')) {
    size_t j = i + 1;
    std::string e = "e";
    if (j < s.size() && (s[j] == u'+' || s[j] == u'-')) e.push_back(char(s[j++]));
    size_t k = j;
    while (j < s.size() && s[j] >= '0' && s[j] <= '9') e.push_back(char(s[j++]));
    if (j > k) a += e;
  }
  double d = std::strtod(a.c_str(), nullptr);
  if (!std::isfinite(d)) { ok = 0; return 0; }
  return d;
}

double NuVal(TxV t) {
  int ok;
  return NuVal(t, ok);
}

// Whether the whole text is one number, as the script language's IsNumeric tells it
// for plain texts: optional blanks, sign, digits with one ".", exponent, or &H/&O.
bool NuEhNum(TxV t, double* d) {
  Tx s = TxTrim(t);
  if (s.empty()) return false;
  size_t i = 0;
  bool ok = true;
  if (s.size() >= 2 && s[0] == u'&' && (ChrMai(s[1]) == u'H' || ChrMai(s[1]) == u'O')) {
    i = 2;
    unsigned long long v;
    ok = NuLeBase(s, i, ChrMai(s[1]) == u'H' ? 16 : 8, v) && i > 2 && i == s.size();
    if (ok && d) *d = NuDeBase(v);
    return ok;
  }
  if (s[i] == u'+' || s[i] == u'-') i++;
  size_t nd = 0;
  while (i < s.size() && s[i] >= '0' && s[i] <= '9') { i++; nd++; }
  if (i < s.size() && s[i] == u'.') {
    i++;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') { i++; nd++; }
  }
  if (nd == 0) return false;
  if (i < s.size() && (s[i] == u'e' || s[i] == u'E' || s[i] == u'd' || s[i] == u'D')) {
    i++;
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-')) i++;
    size_t k = i;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') i++;
    if (i == k) return false;
  }
  if (i != s.size()) return false;
  int okv;
  double v = NuVal(s, okv);
  if (!okv) return false;
  if (d) *d = v;
  return true;
}

// Fifteen significant digits, exponent form outside 1E-5..1E+15, as CStr writes.
long NuLng(double d) {
  if (!(d == d)) return 0;
  if (d >= 2147483647.0) return 2147483647L;
  if (d <= -2147483648.0) return -2147483647L - 1;
  return long(d);
}

Tx NuCStr(double d) {
  if (d == 0) return u"0";
  if (std::isnan(d)) return u"NaN";
  if (std::isinf(d)) return d > 0 ? Tx(u"Infinity") : Tx(u"-Infinity");
  char b[40];
  std::snprintf(b, sizeof b, "%.15G", d);
  return TxAsc(b);
}

// The older text form: a blank where a non-negative number's sign would stand,
// and no "0" before the decimal point.
Tx NuStr(double d) {
  Tx s = NuCStr(d);
  if (s.size() >= 2 && s[0] == u'0' && s[1] == u'.') s.erase(0, 1);
  else if (s.size() >= 3 && s[0] == u'-' && s[1] == u'0' && s[2] == u'.') s.erase(1, 1);
  if (s[0] != u'-') s.insert(s.begin(), u' ');
  return s;
}

}  // namespace zw
