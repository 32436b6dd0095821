// LibArr: Array, the bounds of arrays, and the inspection functions (IsNumeric...).
#include "Lib.h"

namespace vbs {

void ArgsAoValor(Value& r, Args a) {
  if (a.size() == 0) return;
  Value v = std::move(r);
  r = Value();
  if (v.IsArr()) {
    std::vector<Value> idx(a.v, a.v + a.n);
    for (Value& x : idx) x = Value(x.Deref());
    r = v.a->At(idx.data(), int(idx.size()));
  } else if (v.IsObj()) {
    if (!v.o) Raise(91);
    v.o->Invoke(0, Inv::Get, a, r);
  } else {
    Raise(450);
  }
}

namespace {

void FnArray(Args a, Value& r) {
  Arr* l = Arr::New({int32_t(a.size()) - 1});
  for (int i = 0; i < a.size(); i++) l->v[i] = a[i];
  r = Value(l);
}

// LBound/UBound(array[, dimension]): 13 for a non-array, 9 for a bad dimension.
void Limite(Args a, Value& r, bool sup) {
  const Value& v = a[0];
  if (!v.IsArr()) Raise(13);
  int32_t d = ArgLng(a, 1, 1);
  if (d < 1 || size_t(d) > v.a->dims.size()) Raise(9);
  const Arr::Dim& x = v.a->dims[d - 1];
  r = Value(int32_t(sup ? x.lo + x.n - 1 : x.lo));
}

void FnLBound(Args a, Value& r) { Limite(a, r, false); }
void FnUBound(Args a, Value& r) { Limite(a, r, true); }

void FnIsArray(Args a, Value& r) { r = Value(a[0].IsArr()); }
void FnIsEmpty(Args a, Value& r) { r = Value(a[0].IsEmpty()); }
void FnIsNull(Args a, Value& r) { r = Value(a[0].IsNull()); }
void FnIsObject(Args a, Value& r) { r = Value(a[0].IsObj()); }

// A Date is a date; a text is when it reads as one; nothing else is.
void FnIsDate(Args a, Value& r) {
  const Value& v = a[0];
  double d;
  if (v.t == vtDate) r = Value(true);
  else if (v.IsStr()) r = Value(TxDt(v.Sv(), d));
  else r = Value(false);
}

// Numbers, Booleans and Empty are numeric, a text when it reads as a number; dates,
// Null, arrays and objects without a numeric default value are not.
void FnIsNumeric(Args a, Value& r) {
  const Value& v = a[0];
  bool res = false;
  double d;
  if (v.t == vtDate || v.IsNull() || v.IsArr()) res = false;
  else if (v.IsStr()) res = TxNum(v.Sv(), d);
  else if (v.IsEmpty() || v.IsNum()) res = true;
  else if (v.IsObj() && v.o) {
    try {
      Value p = Prim(v);
      res = p.IsNum() && p.t != vtDate;
      if (p.IsStr()) res = TxNum(p.Sv(), d);
    } catch (const Fault&) {
      res = false;
    }
  }
  r = Value(res);
}

void FnTypeName(Args a, Value& r) { r = Value(TypeName(a[0])); }
void FnVarType(Args a, Value& r) { r = Value(int16_t(VarType(a[0]))); }

}  // namespace

void LibArrReg() {
  DefFns({
      {"Array", 0, -1, FnArray},       {"LBound", 1, 2, FnLBound},
      {"UBound", 1, 2, FnUBound},      {"IsArray", 1, 1, FnIsArray},
      {"IsEmpty", 1, 1, FnIsEmpty},    {"IsNull", 1, 1, FnIsNull},
      {"IsObject", 1, 1, FnIsObject},  {"IsDate", 1, 1, FnIsDate},
      {"IsNumeric", 1, 1, FnIsNumeric}, {"TypeName", 1, 1, FnTypeName},
      {"VarType", 1, 1, FnVarType},
  });
}

}  // namespace vbs
