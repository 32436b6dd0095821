// Var: the dynamic value of the core.
// A cell that holds nothing (empty), a missing optional argument, null, a 16-bit
// or 32-bit integer, a double, a boolean, a text or an object. Many functions look
// at what an out argument holds now and answer with a text or a number accordingly;
// a destination keeps its own kind when a value is stored into it with Var::Poe.
#pragma once
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>
#include "Tx.h"

namespace zw {

class Var;

// Base of the objects a Var can hold (windows, engines, script objects).
struct VarObj {
  virtual ~VarObj() = default;
  // Calls a method of the object by name (as "FxIni" or "FxFim" of a script object);
  // false when the object has no such method or the call failed. Objects that can be
  // called by name override it; the others answer false.
  virtual bool Chama(const Tx& nome, std::vector<Var>& args, Var& res) {
    (void)nome; (void)args; (void)res;
    return false;
  }
};

struct VarFalta {};  // a missing optional argument
struct VarNulo {};   // null

class Var {
 public:
  enum class K : uint8_t { Vazio, Falta, Nulo, Int, Lng, Dbl, Bool, Tx, Obj };

  Var() = default;
  Var(int16_t n) : v_(n) {}
  Var(int32_t n) : v_(n) {}
  Var(double n) : v_(n) {}
  Var(bool b) : v_(b) {}
  Var(const Tx& t) : v_(t) {}
  Var(Tx&& t) : v_(std::move(t)) {}
  Var(const char16_t* t) : v_(Tx(t)) {}
  // Any other pointer would turn into a Boolean without a word ("abc" is true):
  // a narrow literal or a pointer is refused at compile time.
  template <class T>
  Var(const T*) = delete;
  Var(TxV t) : v_(Tx(t)) {}
  Var(std::shared_ptr<VarObj> o) : v_(std::move(o)) {}
  static Var Falta() { Var v; v.v_ = VarFalta{}; return v; }
  static Var Nulo() { Var v; v.v_ = VarNulo{}; return v; }

  K Tipo() const { return K(v_.index()); }
  bool EhVazio() const { return Tipo() == K::Vazio; }
  bool EhFalta() const { return Tipo() == K::Falta; }
  bool EhNulo() const { return Tipo() == K::Nulo; }
  bool EhTx() const { return Tipo() == K::Tx; }
  bool EhNum() const { K k = Tipo(); return k == K::Int || k == K::Lng || k == K::Dbl; }
  bool EhObj() const { return Tipo() == K::Obj; }

  // Raw access; the caller has checked the kind.
  int16_t Int() const { return std::get<int16_t>(v_); }
  int32_t Lng() const { return std::get<int32_t>(v_); }
  double Dbl() const { return std::get<double>(v_); }
  bool Bool() const { return std::get<bool>(v_); }
  const Tx& Txt() const { return std::get<Tx>(v_); }
  const std::shared_ptr<VarObj>& Obj() const { return std::get<std::shared_ptr<VarObj>>(v_); }

  // The number a numeric or boolean cell holds (true is -1, as the script language has it); 0 otherwise.
  double Num() const;

  // Stores v and keeps this cell's kind: a number into an integer cell is rounded to an
  // integer (and held at the type's limits), anything into a text cell becomes its text,
  // a text into a number cell is read as its leading number. A cell that is empty,
  // missing, null or an object takes v as it stands.
  void Poe(const Var& v);

 private:
  std::variant<std::monostate, VarFalta, VarNulo, int16_t, int32_t, double, bool, Tx,
               std::shared_ptr<VarObj>>
      v_;
};

}  // namespace zw
