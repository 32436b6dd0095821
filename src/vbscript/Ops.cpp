// Ops: the operators on variants, with VBScript's rules for the kind of each
// result: the wider operand decides (Byte, Integer, Long, Single, Double,
// Currency, Date), Single with Long gives Double, integer results that overflow
// widen (Byte to Integer to Long to Double), Null spreads, texts become Double.
#include <cmath>
#include "Builtins.h"
#include "Code.h"
#include "Engine.h"
#include "Locale.h"

namespace vbs {

namespace {

// Width of a numeric kind; Empty and Boolean count as Integer. Currency with a
// Single or Double gives Double.
int Rank(uint16_t t) {
  switch (t) {
    case vtByte: return 1;
    case vtEmpty: case vtBoolean: case vtInteger: return 2;
    case vtLong: return 3;
    case vtSingle: return 4;
    case vtDouble: case vtString: return 5;
    case vtCurrency: return 6;
    case vtDate: return 7;
  }
  return 5;
}

int64_t AsI64(const Value& v) {
  switch (v.t) {
    case vtByte: return v.b;
    case vtEmpty: return 0;
    case vtBoolean: case vtInteger: return v.i;
    case vtLong: return v.l;
  }
  return 0;
}

// Operand of arithmetic: objects give their default value, text a Double.
Value Operand(const Value& v0) {
  const Value& v = v0.Deref();
  if (v.t == vtObject) return Operand(Prim(v));
  if (v.t == vtString) return Value(ToDbl(v));
  if (v.t == vtEmpty || v.t == vtNull || v.IsNum()) return v;
  Raise(13);
}

// An integer result in the narrowest kind from `rank` up that holds it.
Value FitInt(int64_t r, int rank) {
  if (rank <= 1 && r >= 0 && r <= 255) return Value::Byte(uint8_t(r));
  if (rank <= 2 && r >= -32768 && r <= 32767) return Value(int16_t(r));
  if (r >= INT32_MIN && r <= INT32_MAX) return Value(int32_t(r));
  return Value(double(r));
}

Value CurOf(__int128 c) {
  if (c > INT64_MAX || c < INT64_MIN) Raise(6);
  return Value::Cur(int64_t(c));
}

double CheckD(double d) {
  if (!std::isfinite(d)) Raise(6);
  return d;
}

}  // namespace

Value Arith(int op, const Value& x0, const Value& y0) {
  const Value& xr = x0.Deref();
  const Value& yr = y0.Deref();
  if (op == oAdd && (xr.t == vtString || yr.t == vtString)) {
    // + joins texts; a text with Empty stays text
    if (xr.t == vtString && yr.t == vtString) return Concat(xr, yr);
    if (xr.t == vtString && yr.t == vtEmpty) return xr;
    if (yr.t == vtString && xr.t == vtEmpty) return yr;
  }
  Value x = Operand(xr), y = Operand(yr);
  if (x.t == vtNull || y.t == vtNull) return Value::Null();
  int rx = Rank(x.t), ry = Rank(y.t);
  int r = std::max(rx, ry);
  if (r == 4 && std::min(rx, ry) == 3) r = 5;  // Single with Long
  switch (op) {
    case oPow: {
      double a = ToDbl(x), b = ToDbl(y);
      double p = std::pow(a, b);
      if (std::isnan(p) && !std::isnan(a) && !std::isnan(b)) Raise(5);
      return Value(CheckD(p));
    }
    case oDiv: {
      double a = ToDbl(x), b = ToDbl(y);
      if (b == 0) Raise(a == 0 ? 6 : 11);
      double q = a / b;
      if (r <= 4 && (rx == 4 || ry == 4)) return Value::Sng(float(CheckD(q)));
      return Value(CheckD(q));
    }
    case oIDiv: case oMod: {
      int rk = std::max(rx <= 2 ? rx : 3, ry <= 2 ? ry : 3);
      int64_t a = (rx <= 3) ? AsI64(x) : ToLng(x);
      int64_t b = (ry <= 3) ? AsI64(y) : ToLng(y);
      if (b == 0) Raise(11);
      return FitInt(op == oIDiv ? a / b : a % b, rk);
    }
    default: break;
  }
  if (r <= 3) {
    int64_t a = AsI64(x), b = AsI64(y), v;
    switch (op) {
      case oAdd: v = a + b; break;
      case oSub: v = a - b; break;
      default: v = a * b; break;
    }
    return FitInt(v, r);
  }
  if (r == 6 && (rx == 4 || rx == 5 || ry == 4 || ry == 5)) r = 5;  // Currency with Single or Double
  if (r == 6) {
    __int128 a = ToCur(x), b = ToCur(y);
    switch (op) {
      case oAdd: return CurOf(a + b);
      case oSub: return CurOf(a - b);
      default: {
        // product of two fixed-point values, rounded half to even
        __int128 p = a * b;
        __int128 q = p / 10000, rem = p % 10000;
        if (rem < 0) { rem = -rem; }
        if (rem > 5000 || (rem == 5000 && (q & 1))) q += (p < 0 ? -1 : 1);
        return CurOf(q);
      }
    }
  }
  double a = ToDbl(x), b = ToDbl(y), v;
  switch (op) {
    case oAdd: v = a + b; break;
    case oSub: v = a - b; break;
    default: v = a * b; break;
  }
  if (r == 4) {
    if (std::isfinite(v) && std::fabs(v) <= 3.402823466e38) return Value::Sng(float(v));
    return Value(CheckD(v));
  }
  if (r == 7 && op != oMul && !(op == oSub && x.t == vtDate && y.t == vtDate)) return Value::Date(CheckD(v));
  return Value(CheckD(v));
}

Value Neg(const Value& x0) {
  Value x = Operand(x0);
  switch (x.t) {
    case vtNull: return x;
    case vtEmpty: return Value(int16_t(0));
    case vtBoolean: case vtInteger: case vtByte: return FitInt(-AsI64(x), 2);
    case vtLong: return FitInt(-int64_t(x.l), 3);
    case vtSingle: return Value::Sng(-x.f);
    case vtCurrency: return CurOf(-__int128(x.c));
    case vtDate: return Value::Date(-x.d);
    default: return Value(-ToDbl(x));
  }
}

Value NotOp(const Value& x0) {
  Value x = Operand(x0);
  switch (x.t) {
    case vtNull: return x;
    case vtEmpty: return Value(int16_t(-1));
    case vtBoolean: return Value(x.i == 0);
    case vtByte: return Value::Byte(uint8_t(~x.b));
    case vtInteger: return Value(int16_t(~x.i));
    case vtLong: return Value(int32_t(~x.l));
    default: return Value(int32_t(~ToLng(x)));
  }
}

Value Logic(int op, const Value& x0, const Value& y0) {
  Value x = Operand(x0), y = Operand(y0);
  bool xn = x.t == vtNull, yn = y.t == vtNull;
  if (xn || yn) {
    const Value& o = xn ? y : x;
    if (xn && yn) return Value::Null();
    bool oZero = ToDbl(o) == 0;
    switch (op) {
      case oAnd: return oZero ? (o.t == vtBoolean ? Value(false) : FitInt(0, Rank(o.t) <= 3 ? Rank(o.t) : 3)) : Value::Null();
      case oOr: return (o.t == vtBoolean && !oZero) ? Value(true) : Value::Null();
      case oImp:
        if (xn) return (o.t == vtBoolean && !oZero) ? Value(true) : Value::Null();
        return oZero ? Value(true) : Value::Null();
      default: return Value::Null();
    }
  }
  if (x.t == vtBoolean && y.t == vtBoolean) {
    bool a = x.i != 0, b = y.i != 0, v;
    switch (op) {
      case oAnd: v = a && b; break;
      case oOr: v = a || b; break;
      case oXor: v = a != b; break;
      case oEqv: v = a == b; break;
      default: v = !a || b; break;
    }
    return Value(v);
  }
  int rx = Rank(x.t), ry = Rank(y.t);
  int rk = std::max(rx <= 3 ? rx : 3, ry <= 3 ? ry : 3);
  int32_t a = rx <= 3 ? int32_t(AsI64(x)) : ToLng(x);
  int32_t b = ry <= 3 ? int32_t(AsI64(y)) : ToLng(y);
  int32_t v;
  switch (op) {
    case oAnd: v = a & b; break;
    case oOr: v = a | b; break;
    case oXor: v = a ^ b; break;
    case oEqv: v = ~(a ^ b); break;
    default: v = ~a | b; break;
  }
  if (rk == 1) return Value::Byte(uint8_t(v));
  if (rk == 2) return Value(int16_t(v));
  return Value(v);
}

Value Concat(const Value& x0, const Value& y0) {
  const Value& x = x0.Deref();
  const Value& y = y0.Deref();
  if (x.t == vtNull && y.t == vtNull) return Value::Null();
  // texts are read in place; other kinds are converted
  Tx ta, tb;
  TxV a = x.t == vtString ? x.Sv() : x.t == vtNull ? TxV() : TxV(ta = ToTx(x));
  TxV b = y.t == vtString ? y.Sv() : y.t == vtNull ? TxV() : TxV(tb = ToTx(y));
  size_t n = a.size() + b.size();
  if (n >= 4096) Work(n);
  if (n > kStrMax) Raise(14);
  // a long result gets room to grow, so that the rest of a chain (s & a & b)
  // appends to it in place
  size_t cap = n < 64 ? n : std::min<size_t>(n + n / 2, kStrMax);
  Str* s = Str::New(a, uint32_t(cap));
  if (!b.empty()) std::memcpy(s->p() + s->len, b.data(), b.size() * sizeof(char16_t));
  s->len += uint32_t(b.size());
  s->p()[s->len] = 0;
  return Value::Take(s);
}

static int CmpTx(TxV a, TxV b) {
  int c = a.compare(b);
  return c < 0 ? -1 : c > 0 ? 1 : 0;
}

int Cmp(const Value& x0, const Value& y0, int lit) {
  const Value* px = &x0.Deref();
  const Value* py = &y0.Deref();
  Value hx, hy;
  if (px->t == vtObject) { hx = Prim(*px); px = &hx; }
  if (py->t == vtObject) { hy = Prim(*py); py = &hy; }
  const Value& x = *px;
  const Value& y = *py;
  if (x.t == vtNull || y.t == vtNull) return 2;
  if ((x.t & vtArray) || (y.t & vtArray) || x.t == vtError || y.t == vtError) Raise(13);
  bool xs = x.t == vtString, ys = y.t == vtString;
  if (xs && ys) return CmpTx(x.Sv(), y.Sv());
  if (lit && xs != ys && x.t != vtEmpty && y.t != vtEmpty) {
    // a literal is hard-typed: text against a number compares as numbers when
    // the text reads as one (s = 10 is True for s = "10")
    double d;
    if (TxNum(xs ? x.Sv() : y.Sv(), d)) {
      double a = xs ? d : ToDbl(x), b = xs ? ToDbl(y) : d;
      return a < b ? -1 : a > b ? 1 : 0;
    }
  }
  if (xs && y.t == vtEmpty) return CmpTx(x.Sv(), TxV());
  if (ys && x.t == vtEmpty) return CmpTx(TxV(), y.Sv());
  if (xs) return 1;   // a number is less than a text
  if (ys) return -1;
  if (x.t == vtCurrency && y.t == vtCurrency) return x.c < y.c ? -1 : x.c > y.c ? 1 : 0;
  if (Rank(x.t) <= 3 && Rank(y.t) <= 3) {
    int64_t a = AsI64(x), b = AsI64(y);
    return a < b ? -1 : a > b ? 1 : 0;
  }
  // a Single against a Double compares at the Single's precision
  if ((x.t == vtSingle && y.t == vtDouble) || (x.t == vtDouble && y.t == vtSingle)) {
    float a = float(ToDbl(x)), b = float(ToDbl(y));
    return a < b ? -1 : a > b ? 1 : 0;
  }
  double a = ToDbl(x), b = ToDbl(y);
  return a < b ? -1 : a > b ? 1 : 0;
}

bool IsSame(const Value& x0, const Value& y0) {
  const Value& x = x0.Deref();
  const Value& y = y0.Deref();
  if (x.t != vtObject || y.t != vtObject) Raise(424);
  return x.o == y.o;
}

// A copy of an array, arrays inside it copied too. The walk keeps its own list
// of copies still to look into, so arrays nested to any depth cost no stack.
Arr* CloneArr(const Arr* a) {
  Arr* top = new Arr;
  try {
    top->dims = a->dims;
    top->v = a->v;
    std::vector<Arr*> todo{top};
    while (!todo.empty()) {
      Arr* n = todo.back();
      todo.pop_back();
      Work(n->v.size());
      for (Value& e : n->v) {
        if (!(e.t & vtArray)) continue;
        Arr* c = new Arr;
        Value hold(c);
        c->dims = e.a->dims;
        c->v = e.a->v;
        e = std::move(hold);
        todo.push_back(c);
      }
    }
  } catch (...) {
    Value drop(top);
    throw;
  }
  return top;
}

}  // namespace vbs
