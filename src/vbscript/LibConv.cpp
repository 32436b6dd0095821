// LibConv: the conversion functions (CInt, CStr, Asc, Chr, Hex, Int...).
#include <cmath>

#include "Lib.h"

namespace vbs {

namespace {

// The first character of a text argument; 5 when the text is empty.
char16_t PriCh(Args a) {
  Tx tmp;
  TxV t = ArgTx(a, 0, tmp);
  if (t.empty()) Raise(5);
  return t[0];
}

void FnAsc(Args a, Value& r) {
  int b = zw::Chr1252(PriCh(a));
  r = Value(int16_t(b < 0 ? '?' : b));
}

void FnAscB(Args a, Value& r) { r = Value(int16_t(PriCh(a) & 0xFF)); }

void FnAscW(Args a, Value& r) { r = Value(int16_t(PriCh(a))); }

void FnChr(Args a, Value& r) {
  int32_t n = ToLng(a[0]);
  if (n < 0 || n > 255) Raise(5);
  r = Value(TxV(Tx(1, zw::ChrDe1252(uint8_t(n)))));
}

// Strings hold 16-bit units, so a single byte is kept as one unit of that value.
void FnChrB(Args a, Value& r) {
  int32_t n = ToLng(a[0]);
  if (n < 0 || n > 255) Raise(5);
  r = Value(TxV(Tx(1, char16_t(n))));
}

void FnChrW(Args a, Value& r) {
  int32_t n = ToLng(a[0]);
  if (n < -32768 || n > 65535) Raise(5);
  r = Value(TxV(Tx(1, char16_t(n & 0xFFFF))));
}

void FnCBool(Args a, Value& r) { r = Value(ToBool(a[0])); }
// True is all bits set: as a Byte, 255.
void FnCByte(Args a, Value& r) {
  if (a[0].t == vtBoolean) r = Value::Byte(a[0].i ? 255 : 0);
  else r = Value::Byte(ToByte(a[0]));
}
void FnCCur(Args a, Value& r) { r = Value::Cur(ToCur(a[0])); }
void FnCDate(Args a, Value& r) { r = Value::Date(ToDate(a[0])); }
void FnCDbl(Args a, Value& r) { r = Value(ToDbl(a[0])); }
void FnCInt(Args a, Value& r) { r = Value(ToInt(a[0])); }
void FnCLng(Args a, Value& r) { r = Value(ToLng(a[0])); }
void FnCSng(Args a, Value& r) { r = Value::Sng(ToSng(a[0])); }
void FnCStr(Args a, Value& r) { r = Value(ToTx(a[0])); }

// Hex and Oct: the value as a whole number of its own width, so that an Integer -1 is
// "FFFF" and a Long -1 is "FFFFFFFF". Null gives Null, Empty "0".
void EmBase(Args a, Value& r, int bits) {
  const Value& v = a[0];
  if (v.IsNull()) {
    r = Value::Null();
    return;
  }
  uint32_t u;
  if (v.t == vtInteger || v.t == vtBoolean) u = uint16_t(v.i);
  else if (v.t == vtByte) u = v.b;
  else if (v.t == vtEmpty) u = 0;
  else u = uint32_t(ToLng(v));
  Tx s;
  do {
    unsigned d = u & ((1u << bits) - 1);
    s.insert(s.begin(), char16_t(d < 10 ? u'0' + d : u'A' + d - 10));
    u >>= bits;
  } while (u);
  r = Value(TxV(s));
}

void FnHex(Args a, Value& r) { EmBase(a, r, 4); }
void FnOct(Args a, Value& r) { EmBase(a, r, 3); }

// Int and Fix keep the kind of their argument (text becomes Double, Boolean Integer).
void Inteiro(Args a, Value& r, bool chao) {
  const Value& v0 = a[0];
  if (v0.IsNull()) {
    r = Value::Null();
    return;
  }
  Value v = ToNum(v0);
  auto f = [chao](double d) { return chao ? std::floor(d) : std::trunc(d); };
  switch (v.t) {
    case vtBoolean: r = Value(int16_t(v.i)); break;
    case vtSingle: r = Value::Sng(float(f(v.f))); break;
    case vtDouble: r = Value(f(v.d)); break;
    case vtDate: r = Value::Date(f(v.d)); break;
    case vtCurrency: {
      int64_t q = v.c / 10000, m = v.c % 10000;
      if (chao && m < 0) q--;
      r = Value::Cur(q * 10000);
      break;
    }
    default: r = v; break;
  }
}

void FnInt(Args a, Value& r) { Inteiro(a, r, true); }
void FnFix(Args a, Value& r) { Inteiro(a, r, false); }

}  // namespace

void LibConvReg() {
  DefFns({
      {"Asc", 1, 1, FnAsc},     {"AscB", 1, 1, FnAscB},   {"AscW", 1, 1, FnAscW},
      {"Chr", 1, 1, FnChr},     {"ChrB", 1, 1, FnChrB},   {"ChrW", 1, 1, FnChrW},
      {"CBool", 1, 1, FnCBool, kFnConv}, {"CByte", 1, 1, FnCByte, kFnConv}, {"CCur", 1, 1, FnCCur, kFnConv},
      {"CDate", 1, 1, FnCDate, kFnConv}, {"CDbl", 1, 1, FnCDbl, kFnConv},   {"CInt", 1, 1, FnCInt, kFnConv},
      {"CLng", 1, 1, FnCLng, kFnConv},   {"CSng", 1, 1, FnCSng, kFnConv},   {"CStr", 1, 1, FnCStr, kFnConv},
      {"Hex", 1, 1, FnHex},     {"Oct", 1, 1, FnOct},     {"Int", 1, 1, FnInt},
      {"Fix", 1, 1, FnFix},
  });
}

}  // namespace vbs
