// Value: the variant of the VBScript engine.
// Sixteen bytes: a kind tag (VarType numbers, as scripts see them) and a union
// holding integers, floating point, currency (a 64-bit integer scaled by 10000),
// a date (days since 30 December 1899 as a double), or a pointer to a
// reference-counted string, array or object. Copies are cheap: scalars are bit
// copies, the rest bump a reference count.
#pragma once
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>
#include "Tx.h"

namespace vbs {

using zw::Tx;
using zw::TxV;

// VarType numbers.
enum Vt : uint16_t {
  vtEmpty = 0, vtNull = 1, vtInteger = 2, vtLong = 3, vtSingle = 4, vtDouble = 5,
  vtCurrency = 6, vtDate = 7, vtString = 8, vtObject = 9, vtError = 10, vtBoolean = 11,
  vtVariant = 12, vtByte = 17, vtArray = 0x2000,
  vtRef = 0x4000,  // engine-internal: a by-reference argument pointing at the caller's value
};

// ---------------------------------------------------------------- errors
// A run-time error on its way to the nearest handler (On Error Resume Next,
// the host interface, or the script host's top level).
struct Fault {
  int32_t num;
  Tx desc;
  Tx src;
  int32_t line = 0;  // where the script was when it was raised (0 until the engine knows)
  int32_t col = 0;
  Tx helpFile{};        // what Err shows after it: empty and 0 but for Err.Raise
  int32_t helpCtx = 0;
};
[[noreturn]] void Raise(int32_t num);                       // with the engine's own description
[[noreturn]] void Raise(int32_t num, Tx desc, Tx src = {});  // with a description of the caller's
Tx ErrDesc(int32_t num);  // the engine's description of an error number ("" when it has none)

// ---------------------------------------------------------------- strings
// A reference-counted string of 16-bit units with spare capacity, so that a
// string held by one reference grows in place (s = s & x is amortised linear).
// The longest string (units); Str::New raises 14 "Out of string space" past it.
constexpr uint32_t kStrMax = 0x3FFFFFF0u;
struct Str {
  uint32_t rc;
  uint32_t len;
  uint32_t cap;
  char16_t* p() { return reinterpret_cast<char16_t*>(this + 1); }
  const char16_t* p() const { return reinterpret_cast<const char16_t*>(this + 1); }
  TxV v() const { return TxV(p(), len); }
  static Str* New(TxV t, uint32_t cap = 0);  // rc 1
  static Str* Empty();                        // a shared empty string, rc bumped
  void Release() { if (--rc == 0) Free(); }
  void Free();
};

// ---------------------------------------------------------------- objects
class Value;
struct Args;

class Obj;
struct Arr;
// Disposes of an object (o) or an array (a) whose last reference went. Releases
// that set off one another (a list of instances, arrays inside arrays) nest only
// so deep: past that they wait in a list that the outermost release works
// through, so a chain of any length is released without exhausting the stack.
void Gone(Obj* o, Arr* a) noexcept;
// How many Class_Terminate calls enclose the code now running, counting those of
// releases that waited in that list: lets a Class_Terminate that makes and drops
// objects of its own class stop instead of running without end.
int& TermNest();

// How a member is reached: called as a method, read, assigned with Let, assigned with Set.
enum class Inv : uint8_t { Call, Get, Let, Set };

// A reference-counted object with late-bound members: host objects, script class
// instances, procedure references. A host object derives from Obj and overrides
// Id (name to member id, case-blind, -1 when unknown) and Invoke (run a member).
// Id 0 is the default member: Invoke(0, ...) is what `obj(args)`, `obj = x` and
// the value of a bare object in an expression reach.
class Obj {
 public:
  uint32_t rc_ = 0;
  virtual ~Obj() = default;
  void AddRef() { ++rc_; }
  void Release() { if (--rc_ == 0) Gone(this, nullptr); }
  // Runs when the last reference goes; deletes by default (script classes run Class_Terminate first).
  virtual void Last() { delete this; }

  virtual Tx TypeName() { return u"Object"; }
  virtual int Id(TxV name) { (void)name; return -1; }
  // Runs a member. For Let and Set the assigned value is the last argument.
  // Arguments are by reference: a[i] is the caller's variable when it passed one.
  virtual void Invoke(int id, Inv k, Args a, Value& r);
  // For Each: fills the items in order; false when the object is not a collection.
  virtual bool Items(std::vector<Value>& out) { (void)out; return false; }
};

// The position (1-based) of name in a member list, case-blind, or -1.
// Lets a host object write: int Id(TxV n) override { return NameIx(n, {"Echo", "Quit"}); }
int NameIx(TxV name, std::initializer_list<const char*> names);
bool EqNoCase(TxV a, TxV b);   // case-blind comparison of names (ASCII and Latin-1 letters)

// An owning pointer to an Obj (or one of its kinds).
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(T* p) : p_(p) { if (p_) p_->AddRef(); }
  Ref(const Ref& o) : p_(o.p_) { if (p_) p_->AddRef(); }
  Ref(Ref&& o) noexcept : p_(o.p_) { o.p_ = nullptr; }
  template <class U>
  Ref(const Ref<U>& o) : p_(o.get()) { if (p_) p_->AddRef(); }
  ~Ref() { if (p_) p_->Release(); }
  Ref& operator=(Ref o) { std::swap(p_, o.p_); return *this; }
  T* get() const { return p_; }
  T* operator->() const { return p_; }
  T& operator*() const { return *p_; }
  explicit operator bool() const { return p_ != nullptr; }

 private:
  T* p_ = nullptr;
};
template <class T, class... A>
Ref<T> Make(A&&... a) { return Ref<T>(new T(std::forward<A>(a)...)); }

// ---------------------------------------------------------------- arrays
// A reference-counted array of variants, of one or more dimensions, stored with
// the first index varying fastest. `fixed` marks arrays declared with bounds
// (Dim a(3)), which ReDim refuses; `locks` counts running For Each loops and
// by-reference element arguments, during which the array may not be resized.
struct Arr {
  struct Dim { int32_t lo, n; };
  uint32_t rc = 0;
  uint16_t locks = 0;
  bool fixed = false;
  std::vector<Dim> dims;
  std::vector<Value> v;
  void AddRef() { ++rc; }
  void Release();
  static Arr* New(std::initializer_list<int32_t> ubounds);  // lower bounds 0, rc 0
  // An array with n dimensions of upper bounds ub (lower bounds 0, rc 0); raises
  // 9, 6 or 7 for a bound below -1, a count that overflows, or too many elements.
  static Arr* Make(const int32_t* ub, size_t n);
  // The most elements one array may hold (16 bytes each).
  static constexpr uint64_t kMaxElems = uint64_t(1) << 25;
  // The element at the given indexes; raises 9 when one is out of range or the count is wrong.
  Value& At(const Value* idx, int n);
};

// ---------------------------------------------------------------- the variant
class Value {
 public:
  uint16_t t = vtEmpty;
  uint16_t x_ = 0;
  uint32_t y_ = 0;
  union {
    int16_t i;   // Integer, Boolean (-1 or 0)
    int32_t l;   // Long, Error (its code)
    float f;     // Single
    double d;    // Double, Date
    int64_t c;   // Currency, times 10000
    uint8_t b;   // Byte
    Str* s;
    Obj* o;      // Object (null for Nothing)
    Arr* a;      // arrays: t is vtArray | vtVariant
    Value* r;    // vtRef
  };

  Value() : c(0) {}
  Value(const Value& v) : t(v.t), c(v.c) { Hold(); }
  Value(Value&& v) noexcept : t(v.t), c(v.c) { v.t = vtEmpty; }
  ~Value() { if (t >= vtString) Drop(); }
  Value& operator=(const Value& v) {
    if (this != &v) { Value k(v); Swap(k); }
    return *this;
  }
  Value& operator=(Value&& v) noexcept {
    if (this != &v) { Value k(std::move(v)); Swap(k); }
    return *this;
  }
  void Swap(Value& v) noexcept { std::swap(t, v.t); std::swap(c, v.c); }

  // Construction.
  Value(int16_t n) : t(vtInteger), c(0) { i = n; }
  Value(int32_t n) : t(vtLong), c(0) { l = n; }
  Value(double n) : t(vtDouble) { d = n; }
  Value(bool v) : t(vtBoolean), c(0) { i = v ? -1 : 0; }
  Value(TxV s) : t(vtString) { this->s = Str::New(s); }
  Value(const Tx& s) : Value(TxV(s)) {}
  Value(const char16_t* s) : Value(TxV(s)) {}
  Value(Obj* p) : t(vtObject) { o = p; if (p) p->AddRef(); }
  template <class T>
  Value(const Ref<T>& p) : Value(static_cast<Obj*>(p.get())) {}
  Value(Arr* p) : t(vtArray | vtVariant) { a = p; p->AddRef(); }
  // In-place writes of the small kinds that store the whole 8-byte payload at
  // once: a copy of a value reads all 8 bytes, and reading them just after a
  // narrower store to the same place stalls the processor until that store is done.
  void SetInt(int16_t n) { t = vtInteger; c = int64_t(uint16_t(n)); }
  void SetLng(int32_t n) { t = vtLong; c = int64_t(uint32_t(n)); }
  void SetBool(bool v) { t = vtBoolean; c = v ? 0xFFFF : 0; }
  static Value Int(int16_t n) { return Value(n); }
  static Value Lng(int32_t n) { return Value(n); }
  static Value Dbl(double n) { return Value(n); }
  static Value Bool(bool b) { return Value(b); }
  static Value Sng(float n) { Value v; v.t = vtSingle; v.f = n; return v; }
  static Value Cur(int64_t n) { Value v; v.t = vtCurrency; v.c = n; return v; }
  static Value Date(double n) { Value v; v.t = vtDate; v.d = n; return v; }
  static Value Byte(uint8_t n) { Value v; v.t = vtByte; v.b = n; return v; }
  static Value Null() { Value v; v.t = vtNull; return v; }
  static Value Nothing() { Value v; v.t = vtObject; v.o = nullptr; return v; }
  static Value Err(int32_t code) { Value v; v.t = vtError; v.l = code; return v; }
  static Value Missing() { return Err(int32_t(0x80020004)); }  // an optional argument left out
  static Value Take(Str* s) { Value v; v.t = vtString; v.s = s; return v; }  // adopts one reference
  static Value RefTo(Value* p) { Value v; v.t = vtRef; v.r = p; return v; }

  // Inspection.
  Vt Type() const { return Vt(t); }
  bool IsEmpty() const { return t == vtEmpty; }
  bool IsNull() const { return t == vtNull; }
  bool IsStr() const { return t == vtString; }
  bool IsObj() const { return t == vtObject; }
  bool IsArr() const { return (t & vtArray) != 0; }
  bool IsNum() const {
    return (t >= vtInteger && t <= vtDate) || t == vtBoolean || t == vtByte;
  }
  bool IsMissing() const { return t == vtError && l == int32_t(0x80020004); }
  TxV Sv() const { return s->v(); }  // the text of a String; the caller has checked
  Tx Text() const { return Tx(s->v()); }

  // The value behind a by-reference argument (itself otherwise).
  Value& Deref() { return t == vtRef ? *r : *this; }
  const Value& Deref() const { return t == vtRef ? *r : *this; }

 private:
  void Hold() {
    if (t == vtString) ++s->rc;
    else if (t == vtObject) { if (o) o->AddRef(); }
    else if (t & vtArray) a->AddRef();
  }
  void Drop();
};
static_assert(sizeof(Value) == 16, "a variant is 16 bytes");

// Arguments of a built-in or of a host object's member: the caller's variables
// when passed by reference, so writing a[i] writes back into the script.
struct Args {
  Value* v = nullptr;
  int n = 0;
  int size() const { return n; }
  Value& operator[](int k) const { return v[k].Deref(); }
  // True when argument k was given (not past the end, not left out as in f(a, , c)).
  bool Has(int k) const { return k < n && !v[k].Deref().IsMissing(); }
};

// ---------------------------------------------------------------- conversions
// Each raises the error VBScript gives: 13 "Type mismatch" for text that is no
// number, 94 "Invalid use of Null", 6 "Overflow" out of range. An object is
// read through its default member first.
Value Prim(const Value& v);            // an object's default value; others as they are
double ToDbl(const Value& v);          // CDbl
float ToSng(const Value& v);           // CSng
int16_t ToInt(const Value& v);         // CInt: banker's rounding
int32_t ToLng(const Value& v);         // CLng: banker's rounding
uint8_t ToByte(const Value& v);        // CByte
int64_t ToCur(const Value& v);         // CCur: times 10000, rounded to four decimals
double ToDate(const Value& v);         // CDate: numbers as serials, text parsed as a date
bool ToBool(const Value& v);           // CBool: "True"/"False" texts and numbers
Tx ToTx(const Value& v);               // CStr (Empty is "", Null raises 94)
Value ToNum(const Value& v);           // a number of its own kind; text becomes Double, Empty Integer 0, Boolean stays
int32_t ToIdx(const Value& v);         // an index or count: like CLng

double RoundEven(double x);            // rounds halves to even
// Texts of numbers and dates under the locale: NumTx, CurTx and TxNum in Locale.h,
// DtTx and TxDt in DateTime.h.

Tx TypeName(const Value& v);           // TypeName
int VarType(const Value& v);           // VarType

}  // namespace vbs
