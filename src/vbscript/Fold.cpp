// Fold: the values of constant expressions, computed at compile time: a Const's
// value and the bounds of a fixed array.
#include "Parser.h"

namespace vbs::cmp {

// A constant of the current procedure, else of the text's top level; null when none.
const Value* Parser::FindConstVal(const Tx& name) {
  Tx up = TxMaiVb(name);
  auto it = consts[P].find(up);
  if (it != consts[P].end()) return &it->second;
  auto g = consts[U->main.get()].find(up);
  if (g != consts[U->main.get()].end()) return &g->second;
  return nullptr;
}

// The value of a constant expression: literals, other constants, and operators on them.
Value Parser::Fold(Ex* e) {
  switch (e->k) {
    case Ex::Lit: return e->lit;
    case Ex::Paren: return Fold(e->a);
    case Ex::Name: {
      if (e->call) break;
      const Value* c = FindConstVal(e->name);
      if (c) return *c;
      if (const Value* b = FindConst(e->name)) return *b;
      break;
    }
    case Ex::Un:
      return e->op == '-' ? Neg(Fold(e->a)) : NotOp(Fold(e->a));
    case Ex::Bin: {
      Value a = Fold(e->a), b = Fold(e->b);
      try {
        switch (e->op) {
          case '&': return Concat(a, b);
          case '+': return Arith(oAdd, a, b);
          case '-': return Arith(oSub, a, b);
          case '*': return Arith(oMul, a, b);
          case '/': return Arith(oDiv, a, b);
          case opOr: return Logic(oOr, a, b);
          case opAnd: return Logic(oAnd, a, b);
        }
      } catch (Fault&) {
      }
      break;
    }
    default: break;
  }
  CompErr(1045, e->line, e->col);
}

// bound = [ "-" ] ( number | constant-name )
// An array bound of a Dim, rounded; out of a Long's range it becomes a bound that the
// array's making refuses.
int32_t Parser::ConstInt() {
  bool neg = false;
  if (IsOp('-')) { neg = true; Next(); }
  Value v;
  if (Cur().k == tNum) v = Cur().v;
  else if (Cur().k == tId) {
    const Value* c = FindConstVal(Cur().s);
    if (!c) Fail(1026);
    v = *c;
  } else {
    Fail(1026);
  }
  Next();
  double d = std::nearbyint(ToDbl(v));
  if (neg) d = -d;
  // out of a Long's range: a bound that the array's making refuses (6 above, 9 below)
  if (!(d <= INT32_MAX)) return INT32_MAX;
  if (!(d >= -2)) return -2;
  return int32_t(d);
}

}  // namespace vbs::cmp
