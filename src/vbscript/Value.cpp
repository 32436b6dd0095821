// Value: strings, arrays, the variant's copy and release, and conversions.
#include "Value.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include "DateTime.h"
#include "Locale.h"

namespace vbs {

// ---------------------------------------------------------------- strings
Str* Str::New(TxV t, uint32_t cap) {
  if (cap < t.size()) cap = uint32_t(t.size());
  if (cap > kStrMax) Raise(14);
  Str* s = static_cast<Str*>(std::malloc(sizeof(Str) + (size_t(cap) + 1) * sizeof(char16_t)));
  if (!s) Raise(7);
  s->rc = 1;
  s->len = uint32_t(t.size());
  s->cap = cap;
  if (!t.empty()) std::memcpy(s->p(), t.data(), t.size() * sizeof(char16_t));
  s->p()[s->len] = 0;
  return s;
}

Str* Str::Empty() {
  static Str* e = [] { Str* s = New(TxV()); s->rc = 1u << 30; return s; }();
  ++e->rc;
  return e;
}

void Str::Free() { std::free(this); }

// ---------------------------------------------------------------- objects
void Obj::Invoke(int, Inv, Args, Value&) { Raise(438); }

static inline char16_t Fold(char16_t c) {
  if (c < 128) return (c >= 'a' && c <= 'z') ? char16_t(c - 32) : c;
  return ChMai(c);
}

bool EqNoCase(TxV a, TxV b) {
  if (a.size() != b.size()) return false;
  for (size_t k = 0; k < a.size(); ++k)
    if (a[k] != b[k] && Fold(a[k]) != Fold(b[k])) return false;
  return true;
}

int NameIx(TxV name, std::initializer_list<const char*> names) {
  int k = 1;
  for (const char* n : names) {
    size_t len = std::strlen(n);
    if (len == name.size()) {
      size_t j = 0;
      while (j < len && Fold(char16_t(n[j])) == Fold(name[j])) ++j;
      if (j == len) return k;
    }
    ++k;
  }
  return -1;
}

// ---------------------------------------------------------------- release
namespace {
// Releases nested deeper than this wait in tlLate (see Gone).
constexpr int kRelNest = 64;
struct Late {
  Obj* o;
  Arr* a;
  int term;  // TermNest() where the release happened
};
thread_local int tlRelNest = 0;
thread_local int tlTermNest = 0;
thread_local std::vector<Late> tlLate;

void Dispose(Obj* o, Arr* a) {
  if (o) o->Last();
  else delete a;
}
}  // namespace

int& TermNest() { return tlTermNest; }

void Gone(Obj* o, Arr* a) noexcept {
  if (tlRelNest >= kRelNest) {
    tlLate.push_back(Late{o, a, tlTermNest});
    return;
  }
  ++tlRelNest;
  Dispose(o, a);
  if (tlRelNest == 1) {
    // the outermost release: what waited is disposed of one by one, each as if
    // released where it was found (nesting again up to the limit); the entries
    // one disposal adds are reversed so that they go in the order they were met
    while (!tlLate.empty()) {
      Late l = tlLate.back();
      tlLate.pop_back();
      size_t mark = tlLate.size();
      int saved = tlTermNest;
      tlTermNest = l.term;
      Dispose(l.o, l.a);
      tlTermNest = saved;
      std::reverse(tlLate.begin() + std::ptrdiff_t(mark), tlLate.end());
    }
  }
  --tlRelNest;
}

// ---------------------------------------------------------------- arrays
void Arr::Release() {
  if (--rc == 0) Gone(nullptr, this);
}

Arr* Arr::New(std::initializer_list<int32_t> ub) { return Make(ub.begin(), ub.size()); }

// Every array with bounds is made here, so that each declaration checks them
// alike: a bound below -1 is "Subscript out of range", one whose count does
// not fit a Long is an overflow, and a total beyond kMaxElems is refused as
// "Out of memory" before anything is allocated.
Arr* Arr::Make(const int32_t* ub, size_t n) {
  uint64_t total = n ? 1 : 0;
  for (size_t k = 0; k < n; ++k) {
    if (ub[k] < -1) Raise(9);
    if (ub[k] == INT32_MAX) Raise(6);
    total *= uint64_t(ub[k] + 1);
    if (total > kMaxElems) Raise(7);
  }
  Arr* a = new Arr;
  for (size_t k = 0; k < n; ++k) a->dims.push_back({0, ub[k] + 1});
  a->v.resize(size_t(total));
  return a;
}

Value& Arr::At(const Value* idx, int n) {
  if (size_t(n) != dims.size()) Raise(9);
  size_t off = 0, mul = 1;
  for (int k = 0; k < n; ++k) {
    int32_t i = ToIdx(idx[k]) - dims[k].lo;
    if (i < 0 || i >= dims[k].n) Raise(9);
    off += size_t(i) * mul;
    mul *= size_t(dims[k].n);
  }
  return v[off];
}

// ---------------------------------------------------------------- the variant
void Value::Drop() {
  if (t == vtString) s->Release();
  else if (t == vtObject) { if (o) o->Release(); }
  else if (t & vtArray) a->Release();
  t = vtEmpty;
}

// ---------------------------------------------------------------- conversions
Value Prim(const Value& v0) {
  const Value& v = v0.Deref();
  if (v.t != vtObject) return v;
  Value cur = v;
  for (int depth = 0; cur.t == vtObject; ++depth) {
    if (!cur.o) Raise(91);
    if (depth > 16) Raise(438);
    Value r;
    cur.o->Invoke(0, Inv::Get, Args{}, r);
    cur = std::move(r);
  }
  return cur;
}

double RoundEven(double x) { return std::nearbyint(x); }

double ToDbl(const Value& v0) {
  const Value& v = v0.Deref();
  switch (v.t) {
    case vtEmpty: return 0;
    case vtNull: Raise(94);
    case vtInteger: case vtBoolean: return v.i;
    case vtLong: return v.l;
    case vtSingle: return v.f;
    case vtDouble: case vtDate: return v.d;
    case vtCurrency: return double(v.c) / 10000.0;
    case vtByte: return v.b;
    case vtString: {
      double d;
      if (!TxNum(v.Sv(), d)) Raise(13);
      return d;
    }
    case vtObject: return ToDbl(Prim(v));
    default: Raise(13);
  }
}

float ToSng(const Value& v) {
  double d = ToDbl(v);
  if (std::isfinite(d) && std::fabs(d) > 3.402823466e38) Raise(6);
  return float(d);
}

static int64_t ToWhole(const Value& v0, double lo, double hi) {
  const Value& v = v0.Deref();
  switch (v.t) {
    case vtInteger: case vtBoolean: if (v.i < lo || v.i > hi) Raise(6); return v.i;
    case vtLong: if (v.l < lo || v.l > hi) Raise(6); return v.l;
    case vtByte: if (v.b > hi) Raise(6); return v.b;
    default: break;
  }
  double d = RoundEven(ToDbl(v));
  if (!(d >= lo && d <= hi)) Raise(6);
  return int64_t(d);
}

int16_t ToInt(const Value& v) { return int16_t(ToWhole(v, -32768.0, 32767.0)); }
int32_t ToLng(const Value& v) { return int32_t(ToWhole(v, -2147483648.0, 2147483647.0)); }
uint8_t ToByte(const Value& v) { return uint8_t(ToWhole(v, 0, 255)); }
int32_t ToIdx(const Value& v) { return ToLng(v); }

int64_t ToCur(const Value& v0) {
  const Value& v = v0.Deref();
  if (v.t == vtCurrency) return v.c;
  double d = RoundEven(ToDbl(v) * 10000.0);
  if (!(d >= -9.2233720368547758e18 && d < 9.2233720368547758e18)) Raise(6);
  return int64_t(d);
}

double ToDate(const Value& v0) {
  const Value& v = v0.Deref();
  double d;
  if (v.t == vtString) {
    if (TxDt(v.Sv(), d)) return d;
    if (!TxNum(v.Sv(), d)) Raise(13);
  } else if (v.t == vtObject) {
    return ToDate(Prim(v));
  } else {
    d = ToDbl(v);
  }
  if (!DtValida(d)) Raise(6);
  return d;
}

bool ToBool(const Value& v0) {
  const Value& v = v0.Deref();
  switch (v.t) {
    case vtEmpty: return false;
    case vtBoolean: case vtInteger: return v.i != 0;
    case vtLong: return v.l != 0;
    case vtByte: return v.b != 0;
    case vtString: {
      // "#TRUE#" and "#FALSE#" are how Boolean values are written to files
      if (EqNoCase(v.Sv(), u"True") || EqNoCase(v.Sv(), u"#TRUE#")) return true;
      if (EqNoCase(v.Sv(), u"False") || EqNoCase(v.Sv(), u"#FALSE#")) return false;
      double d;
      if (!TxNum(v.Sv(), d)) Raise(13);
      return d != 0;
    }
    case vtObject: return ToBool(Prim(v));
    case vtNull: Raise(94);
    default:
      if (v.IsNum()) return ToDbl(v) != 0;
      Raise(13);
  }
}

static Tx IntTx(int64_t n) {
  std::string s = std::to_string(n);
  return Tx(s.begin(), s.end());
}

Tx ToTx(const Value& v0) {
  const Value& v = v0.Deref();
  switch (v.t) {
    case vtEmpty: return Tx();
    case vtNull: Raise(94);
    case vtBoolean: return v.i ? u"True" : u"False";
    case vtInteger: return IntTx(v.i);
    case vtLong: return IntTx(v.l);
    case vtByte: return IntTx(v.b);
    case vtSingle: return NumTx(v.f, 7);
    case vtDouble: return NumTx(v.d);
    case vtCurrency: return CurTx(v.c);
    case vtDate: return DtTx(v.d);
    case vtString: return v.Text();
    case vtObject: return ToTx(Prim(v));
    default: Raise(13);
  }
}

Value ToNum(const Value& v0) {
  const Value& v = v0.Deref();
  switch (v.t) {
    case vtEmpty: return Value(int16_t(0));
    case vtNull: return v;
    case vtString: return Value(ToDbl(v));
    case vtObject: return ToNum(Prim(v));
    default:
      if (v.IsNum()) return v;
      Raise(13);
  }
}

Tx TypeName(const Value& v0) {
  const Value& v = v0.Deref();
  if (v.t & vtArray) return u"Variant()";
  switch (v.t) {
    case vtEmpty: return u"Empty";
    case vtNull: return u"Null";
    case vtInteger: return u"Integer";
    case vtLong: return u"Long";
    case vtSingle: return u"Single";
    case vtDouble: return u"Double";
    case vtCurrency: return u"Currency";
    case vtDate: return u"Date";
    case vtString: return u"String";
    case vtObject: return v.o ? v.o->TypeName() : Tx(u"Nothing");
    case vtError: return u"Error";
    case vtBoolean: return u"Boolean";
    case vtByte: return u"Byte";
    default: return u"Unknown";
  }
}

int VarType(const Value& v0) {
  const Value& v = v0.Deref();
  if (v.t & vtArray) return vtArray | vtVariant;
  return v.t;
}

}  // namespace vbs
