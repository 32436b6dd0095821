// LibStr: the string functions (Len, Mid, InStr, Replace, Split, Join...).
// Positions are 1-based in scripts and 0-based here. Functions that document a Null
// result give Null for a Null text; the others raise 94 through the conversions.
#include <algorithm>

#include "Lib.h"

namespace vbs {

int ArgCmp(Args a, int k) {
  if (!a.Has(k)) return 0;
  int32_t c = ToLng(a[k]);
  if (c < 0 || c > 1) Raise(5);
  return c;
}

TxV CortaEsq(TxV t) {
  size_t i = 0;
  while (i < t.size() && t[i] == u' ') i++;
  return t.substr(i);
}

TxV CortaDir(TxV t) {
  size_t n = t.size();
  while (n > 0 && t[n - 1] == u' ') n--;
  return t.substr(0, n);
}

size_t TxAcha(TxV a, TxV b, size_t de, bool texto) {
  if (de > a.size()) return TxV::npos;
  if (b.empty()) return de;
  if (!texto) return a.find(b, de);
  char16_t b0 = ChMai(b[0]);
  for (size_t i = de; i + b.size() <= a.size(); i++) {
    if (ChMai(a[i]) != b0) continue;
    size_t j = 1;
    while (j < b.size() && ChMai(a[i + j]) == ChMai(b[j])) j++;
    if (j == b.size()) return i;
  }
  return TxV::npos;
}

size_t TxAchaTras(TxV a, TxV b, size_t ate, bool texto) {
  if (b.size() > a.size()) return TxV::npos;
  size_t i = std::min(ate, a.size() - b.size());
  if (!texto) return a.rfind(b, i);
  for (;; i--) {
    size_t j = 0;
    while (j < b.size() && ChMai(a[i + j]) == ChMai(b[j])) j++;
    if (j == b.size()) return i;
    if (i == 0) break;
  }
  return TxV::npos;
}

namespace {

// How much work Replace, Split, Join and Filter do between two charges to the time-out.
constexpr size_t kParte = 1 << 16;

// A count or length argument: Null raises 94, negative raises 5.
int32_t ArgTam(Args a, int k) {
  int32_t n = ToLng(a[k]);
  if (n < 0) Raise(5);
  return n;
}

void FnLen(Args a, Value& r) {
  const Value& v = a[0];
  if (v.IsNull()) r = Value::Null();
  else if (v.IsStr()) r = Value(int32_t(v.s->len));
  else r = Value(int32_t(ToTx(v).size()));
}

void FnLenB(Args a, Value& r) {
  FnLen(a, r);
  if (!r.IsNull()) r.l *= 2;
}

// Left, Right and Mid (what 0, 1, 2), of characters or, in the B forms, of bytes:
// a text of n units is 2n bytes, so byte counts and positions halve to whole
// units. A Null position or length fails (94) before anything else is looked
// at; a Null text gives Null once the numbers have been checked.
void Corta(Args a, Value& r, int what, bool bytes) {
  for (int k = 1; k < a.n; ++k)
    if (a[k].IsNull()) Raise(94);
  int32_t p = 1, n = -1;
  if (what == 2) {
    p = ToLng(a[1]);
    if (p < 1) Raise(5);
    if (a.Has(2)) n = ArgTam(a, 2);
  } else {
    n = ArgTam(a, 1);
  }
  if (a[0].IsNull()) {
    r = Value::Null();
    return;
  }
  Tx tmp;
  TxV t = ArgTx(a, 0, tmp);
  size_t m = n < 0 ? TxV::npos : bytes ? size_t(n) / 2 : size_t(n);
  size_t u = bytes ? size_t(p - 1) / 2 : size_t(p - 1);
  switch (what) {
    case 0: r = Value(t.substr(0, m)); break;
    case 1: r = Value(m >= t.size() ? t : t.substr(t.size() - m)); break;
    default: r = Value(u >= t.size() ? TxV() : t.substr(u, m)); break;
  }
}
void FnLeft(Args a, Value& r) { Corta(a, r, 0, false); }
void FnRight(Args a, Value& r) { Corta(a, r, 1, false); }
void FnMid(Args a, Value& r) { Corta(a, r, 2, false); }
void FnLeftB(Args a, Value& r) { Corta(a, r, 0, true); }
void FnRightB(Args a, Value& r) { Corta(a, r, 1, true); }
void FnMidB(Args a, Value& r) { Corta(a, r, 2, true); }

void Caixa(Args a, Value& r, bool mai) {
  const Value& v = a[0];
  if (v.IsNull()) {
    r = Value::Null();
    return;
  }
  Tx tmp;
  TxV t = ArgTx(a, 0, tmp);
  Str* s = Str::New(t);
  char16_t* p = s->p();
  for (uint32_t i = 0; i < s->len; i++) p[i] = mai ? ChMai(p[i]) : ChMin(p[i]);
  r = Value::Take(s);
}

void FnUCase(Args a, Value& r) { Caixa(a, r, true); }
void FnLCase(Args a, Value& r) { Caixa(a, r, false); }

void Corta(Args a, Value& r, bool esq, bool dir) {
  if (a[0].IsNull()) {
    r = Value::Null();
    return;
  }
  Tx tmp;
  TxV t = ArgTx(a, 0, tmp);
  if (esq) t = CortaEsq(t);
  if (dir) t = CortaDir(t);
  r = Value(t);
}

void FnLTrim(Args a, Value& r) { Corta(a, r, true, false); }
void FnRTrim(Args a, Value& r) { Corta(a, r, false, true); }
void FnTrim(Args a, Value& r) { Corta(a, r, true, true); }

// A text of n copies of c, filled in parts that are each charged to the time-out.
void Enche(Value& r, int32_t n, char16_t c) {
  Value v = Value::Take(Str::New(TxV(), uint32_t(n)));
  Str* s = v.s;
  for (int32_t i = 0; i < n;) {
    int32_t k = std::min(n - i, int32_t(1) << 20);
    Work(size_t(k));
    std::fill_n(s->p() + i, k, c);
    i += k;
  }
  s->len = uint32_t(n);
  s->p()[n] = 0;
  r = std::move(v);
}

void FnSpace(Args a, Value& r) { Enche(r, ArgTam(a, 0), u' '); }

void FnString(Args a, Value& r) {
  if (a[0].IsNull() || a[1].IsNull()) {
    r = Value::Null();
    return;
  }
  int32_t n = ArgTam(a, 0);
  char16_t c;
  const Value& v = a[1];
  if (v.IsStr()) {
    if (v.s->len == 0) Raise(5);
    c = v.Sv()[0];
  } else {
    int32_t k = ToLng(v);
    c = zw::ChrDe1252(uint8_t(((k % 256) + 256) % 256));
  }
  Enche(r, n, c);
}

void FnStrReverse(Args a, Value& r) {
  Tx tmp;
  TxV t = ArgTx(a, 0, tmp);
  Tx s(t.rbegin(), t.rend());
  r = Value(TxV(s));
}

// InStr([start,] text, sought[, compare]): the start is there when 3 or 4 arguments are.
void InStrCom(Args a, Value& r, bool bytes) {
  int k = 0;
  int32_t de = 1;
  if (a.size() >= 3) {
    de = ToLng(a[0]);
    if (de < 1) Raise(5);
    k = 1;
  }
  int cmp = ArgCmp(a, k + 2);
  if (a[k].IsNull() || a[k + 1].IsNull()) {
    r = Value::Null();
    return;
  }
  Tx t1, t2;
  TxV s = ArgTx(a, k, t1), b = ArgTx(a, k + 1, t2);
  size_t ini = bytes ? size_t(de - 1) / 2 : size_t(de - 1);
  if (ini >= s.size()) {
    r = Value(int32_t(0));
    return;
  }
  Work(s.size() - ini);
  size_t p = TxAcha(s, b, ini, cmp == 1);
  int32_t res = p == TxV::npos ? 0 : int32_t(p) + 1;
  if (bytes && res) res = res * 2 - 1;
  r = Value(res);
}

void FnInStr(Args a, Value& r) { InStrCom(a, r, false); }
void FnInStrB(Args a, Value& r) { InStrCom(a, r, true); }

void FnInStrRev(Args a, Value& r) {
  for (int k = 2; k < a.n; ++k)
    if (a[k].IsNull()) Raise(94);  // before the start is checked
  int32_t de = ArgLng(a, 2, -1);
  if (de == 0 || de < -1) Raise(5);
  int cmp = ArgCmp(a, 3);
  if (a[0].IsNull() || a[1].IsNull()) {
    r = Value::Null();
    return;
  }
  Tx t1, t2;
  TxV s = ArgTx(a, 0, t1), b = ArgTx(a, 1, t2);
  if (de == -1) de = int32_t(s.size());
  if (b.empty()) {
    r = Value(size_t(de) > s.size() ? int32_t(0) : de);
    return;
  }
  if (size_t(de) > s.size() || b.size() > size_t(de)) {
    r = Value(int32_t(0));
    return;
  }
  Work(size_t(de));
  size_t p = TxAchaTras(s.substr(0, size_t(de)), b, size_t(de) - b.size(), cmp == 1);
  r = Value(p == TxV::npos ? int32_t(0) : int32_t(p) + 1);
}

void FnStrComp(Args a, Value& r) {
  int cmp = ArgCmp(a, 2);
  if (a[0].IsNull() || a[1].IsNull()) {
    r = Value::Null();
    return;
  }
  Tx t1, t2;
  TxV x = ArgTx(a, 0, t1), y = ArgTx(a, 1, t2);
  int c = cmp ? TxCmpTx(x, y) : x.compare(y);
  r = Value(int16_t(c < 0 ? -1 : c > 0 ? 1 : 0));
}

// Replace(text, find, with[, start[, count[, compare]]]): the result starts at `start`.
void FnReplace(Args a, Value& r) {
  Tx t0, t1, t2;
  TxV s = ArgTx(a, 0, t0), f = ArgTx(a, 1, t1), w = ArgTx(a, 2, t2);
  int32_t de = ArgLng(a, 3, 1);
  int32_t n = ArgLng(a, 4, -1);
  int cmp = ArgCmp(a, 5);
  if (de < 1 || n < -1) Raise(5);
  if (size_t(de) > s.size()) {
    r = Value(TxV());
    return;
  }
  s = s.substr(size_t(de) - 1);
  if (f.empty() || n == 0) {
    r = Value(s);
    return;
  }
  Tx o;
  o.reserve(s.size());
  size_t i = 0, feito = 0;  // the part of the work not yet charged ends at o.size()
  while (n != 0) {
    size_t p = TxAcha(s, f, i, cmp == 1);
    if (p == TxV::npos) break;
    o.append(s.data() + i, p - i);
    o.append(w);
    i = p + f.size();
    if (n > 0) n--;
    if (o.size() - feito >= kParte) {
      Work(o.size() - feito);
      feito = o.size();
    }
  }
  o.append(s.substr(i));
  Work(o.size() - feito);
  r = Value(TxV(o));
}

// A one-dimensional array of the given texts.
Value ArrTx(std::vector<Tx>& v) {
  Work(v.size());
  Arr* a = Arr::New({int32_t(v.size()) - 1});
  for (size_t i = 0; i < v.size(); i++) a->v[i] = Value(TxV(v[i]));
  return Value(a);
}

void FnSplit(Args a, Value& r) {
  Tx t0, t1;
  TxV s = ArgTx(a, 0, t0);
  TxV d = a.Has(1) ? ArgTx(a, 1, t1) : TxV(u" ");
  int32_t n = ArgLng(a, 2, -1);
  int cmp = ArgCmp(a, 3);
  if (n < -1) Raise(5);
  std::vector<Tx> v;
  if (!s.empty() && n != 0) {
    if (d.empty()) {
      v.emplace_back(s);
    } else {
      size_t i = 0, feito = 0;
      while (n < 0 || int32_t(v.size()) < n - 1) {
        size_t p = TxAcha(s, d, i, cmp == 1);
        if (p == TxV::npos) break;
        v.emplace_back(s.substr(i, p - i));
        i = p + d.size();
        if (i - feito >= kParte) {
          Work(i - feito);
          feito = i;
        }
      }
      Work(s.size() - feito);
      v.emplace_back(s.substr(i));
    }
  }
  r = ArrTx(v);
}

// The one-dimensional array an argument holds; 13 otherwise (94 for Null).
Arr* ArgArr1(Args a, int k) {
  const Value& v = a[k];
  if (v.IsNull()) Raise(94);
  if (!v.IsArr()) Raise(13);
  if (v.a->dims.size() != 1) Raise(5);
  return v.a;
}

void FnJoin(Args a, Value& r) {
  Arr* l = ArgArr1(a, 0);
  Tx t1;
  TxV d = a.Has(1) ? ArgTx(a, 1, t1) : TxV(u" ");
  Tx o;
  size_t feito = 0;
  for (size_t i = 0; i < l->v.size(); i++) {
    if (i) o.append(d);
    const Value& e = l->v[i];
    if (e.IsStr()) o.append(e.Sv());
    else o.append(ToTx(e));
    if (o.size() + i - feito >= kParte) {
      Work(o.size() + i - feito);
      feito = o.size() + i;
    }
  }
  r = Value(TxV(o));
}

void FnFilter(Args a, Value& r) {
  Arr* l = ArgArr1(a, 0);
  Tx t1;
  TxV f = ArgTx(a, 1, t1);
  bool inc = a.Has(2) ? ToBool(a[2]) : true;
  int cmp = ArgCmp(a, 3);
  std::vector<Tx> v;
  size_t feito = 0;
  for (const Value& e : l->v) {
    Tx s = ToTx(e);
    feito += s.size() + 1;
    if (feito >= kParte) {
      Work(feito);
      feito = 0;
    }
    if ((TxAcha(s, f, 0, cmp == 1) != TxV::npos) == inc) v.push_back(std::move(s));
  }
  r = ArrTx(v);
}

// Escape keeps letters, digits and @*_+-./ and writes the rest as %XX or %uXXXX.
void FnEscape(Args a, Value& r) {
  if (a[0].IsNull()) {
    r = Value::Null();
    return;
  }
  static const char* hx = "0123456789ABCDEF";
  Tx tmp;
  TxV s = ArgTx(a, 0, tmp);
  Tx o;
  o.reserve(s.size());
  for (char16_t c : s) {
    bool fica = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') ||
                (c < 128 && std::char_traits<char>::find("@*_+-./", 7, char(c)));
    if (fica) {
      o += c;
    } else if (c < 256) {
      o += u'%';
      o += char16_t(hx[c >> 4]);
      o += char16_t(hx[c & 15]);
    } else {
      o += u"%u";
      for (int k = 12; k >= 0; k -= 4) o += char16_t(hx[(c >> k) & 15]);
    }
  }
  r = Value(TxV(o));
}

int Hx(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

// Unescape reads %XX and %uXXXX back; a % not followed by hex digits stays as it is.
void FnUnescape(Args a, Value& r) {
  if (a[0].IsNull()) {
    r = Value::Null();
    return;
  }
  Tx tmp;
  TxV s = ArgTx(a, 0, tmp);
  Tx o;
  o.reserve(s.size());
  for (size_t i = 0; i < s.size(); i++) {
    if (s[i] == u'%') {
      if (i + 5 < s.size() && s[i + 1] == u'u') {
        int v = 0, k = 2;
        for (; k < 6 && Hx(s[i + k]) >= 0; k++) v = v * 16 + Hx(s[i + k]);
        if (k == 6) {
          o += char16_t(v);
          i += 5;
          continue;
        }
      }
      if (i + 2 < s.size() && Hx(s[i + 1]) >= 0 && Hx(s[i + 2]) >= 0) {
        o += char16_t(Hx(s[i + 1]) * 16 + Hx(s[i + 2]));
        i += 2;
        continue;
      }
    }
    o += s[i];
  }
  r = Value(TxV(o));
}

}  // namespace

void LibStrReg() {
  DefFns({
      {"Len", 1, 1, FnLen},           {"LenB", 1, 1, FnLenB},
      {"Left", 2, 2, FnLeft},         {"LeftB", 2, 2, FnLeftB},
      {"Right", 2, 2, FnRight},       {"RightB", 2, 2, FnRightB},
      {"Mid", 2, 3, FnMid},           {"MidB", 2, 3, FnMidB},
      {"UCase", 1, 1, FnUCase},       {"LCase", 1, 1, FnLCase},
      {"LTrim", 1, 1, FnLTrim},       {"RTrim", 1, 1, FnRTrim},
      {"Trim", 1, 1, FnTrim},         {"Space", 1, 1, FnSpace},
      {"String", 2, 2, FnString},     {"StrReverse", 1, 1, FnStrReverse},
      {"InStr", 2, 4, FnInStr},       {"InStrB", 2, 4, FnInStrB},
      {"InStrRev", 2, 4, FnInStrRev}, {"StrComp", 2, 3, FnStrComp},
      {"Replace", 3, 6, FnReplace},   {"Split", 1, 4, FnSplit},
      {"Join", 1, 2, FnJoin},         {"Filter", 2, 4, FnFilter},
      {"Escape", 1, 1, FnEscape},     {"Unescape", 1, 1, FnUnescape},
  });
}

}  // namespace vbs
