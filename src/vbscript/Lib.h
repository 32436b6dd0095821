// Lib: what the files of the function library share: their registration entry points
// and the small helpers that read arguments the way the built-ins read them.
#pragma once
#include "Builtins.h"
#include "DateTime.h"
#include "Locale.h"

namespace vbs {

// Each library file registers its functions, constants or program identifiers here;
// LibReg calls them all.
void LibConvReg();
void LibStrReg();
void LibMathReg();
void LibDateReg();
void LibFmtReg();
void LibArrReg();
void LibMiscReg();
void RegExpReg();
void DictReg();
void FsoReg();
void ShellReg();
void AdoReg();

// True when argument k was given and is Null.
inline bool ArgNulo(Args a, int k) { return a.Has(k) && a[k].IsNull(); }

// The text of an argument: a view of the string itself when it is one (no copy), the
// CStr of anything else kept in `tmp`. Null raises 94.
inline TxV ArgTx(Args a, int k, Tx& tmp) {
  const Value& v = a[k];
  if (v.IsStr()) return v.Sv();
  tmp = ToTx(v);
  return tmp;
}

// A whole-number argument with a default for a left-out one.
inline int32_t ArgLng(Args a, int k, int32_t omissao) { return a.Has(k) ? ToLng(a[k]) : omissao; }

// The comparison mode argument: 0 binary, 1 text; anything else raises 5.
int ArgCmp(Args a, int k);

// A Date argument: numbers as serials, text read as a date (13 when it is none).
inline double ArgDt(Args a, int k) { return ToDate(a[k]); }

// A property read with arguments, as obj.Items(0) or obj.SubMatches(1): the
// arguments go to the default member of what the property gives (an object's Item,
// an array's element). Without arguments the value stays as it is.
void ArgsAoValor(Value& r, Args a);

// Stores a text result.
inline void RetTx(Value& r, TxV t) { r = Value(t); }

// The text with blanks (U+0020 only) cut from the left, the right or both.
TxV CortaEsq(TxV t);
TxV CortaDir(TxV t);

// A read-only list of values with Count, Item (the default member) and For Each:
// the Matches and SubMatches of RegExp, the Files, Folders and Drives of the file
// system. Item takes a position from 0 or, when the list keeps a name per value,
// a name (case-blind); a name that is not there raises `erroNome`. A list with
// more members (Folders' Add) derives and answers them in IdMais and Mais, with
// ids from 3.
class Colecao : public Obj {
 public:
  explicit Colecao(const char16_t* tipo, int erroNome = 5) : tipo_(tipo), erroNome_(erroNome) {}
  std::vector<Value> v;
  std::vector<Tx> nomes;  // empty, or one per value
  Tx TypeName() override { return tipo_; }
  int Id(TxV n) override;
  void Invoke(int id, Inv k, Args a, Value& r) override;
  bool Items(std::vector<Value>& out) override {
    out = v;
    return true;
  }

 protected:
  virtual int IdMais(TxV) { return -1; }
  virtual void Mais(int, Args, Value&) { Raise(438); }

 private:
  const char16_t* tipo_;
  int erroNome_;
};

// Finds b in a from position `de` (0-based), binary or case-blind; npos when absent.
size_t TxAcha(TxV a, TxV b, size_t de, bool texto);
// Finds b in a backwards, starting no later than `ate` (0-based start of the match).
size_t TxAchaTras(TxV a, TxV b, size_t ate, bool texto);

}  // namespace vbs
