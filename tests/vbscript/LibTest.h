// Calls built-ins of the function library by name, for the library's C++ tests.
#pragma once
#include <gtest/gtest.h>

#include <vector>

#include "Builtins.h"

namespace libtest {

using vbs::Value;

// Calls a built-in with the given arguments; the error number it raised lands in `err`.
inline Value Fn(const char* nome, std::vector<Value> args, int* err = nullptr) {
  vbs::LibReg();
  if (err) *err = 0;
  const vbs::FnDef* f = vbs::FindFn(zw::TxAsc(nome));
  EXPECT_NE(f, nullptr) << nome;
  Value r;
  if (!f) return r;
  try {
    f->fn(vbs::Args{args.data(), int(args.size())}, r);
  } catch (const vbs::Fault& e) {
    if (err) *err = e.num;
    else ADD_FAILURE() << nome << " raised " << e.num;
  }
  return r;
}

// The error a call raises (0 when none).
inline int Err(const char* nome, std::vector<Value> args) {
  int e;
  Fn(nome, std::move(args), &e);
  return e;
}

// The result as text (CStr), or "<Null>"/"<Empty>".
inline std::u16string Tx(const Value& v) {
  if (v.IsNull()) return u"<Null>";
  if (v.IsEmpty()) return u"<Empty>";
  return vbs::ToTx(v);
}

// The error number an object's member raises when called (0 when none); r gets
// what it gives.
inline int ErrM(const Value& o, const char* nome, std::vector<Value> args, Value* r = nullptr) {
  Value v;
  try {
    o.o->Invoke(o.o->Id(zw::TxAsc(nome)), vbs::Inv::Call, vbs::Args{args.data(), int(args.size())}, v);
  } catch (const vbs::Fault& f) {
    return f.num;
  }
  if (r) *r = v;
  return 0;
}

inline Value S(const char16_t* s) { return Value(s); }
inline Value I(int n) { return Value(int32_t(n)); }

}  // namespace libtest
