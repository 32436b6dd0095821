// Gen: the code of an expression tree, of a call statement and of a store, and
// the fusion of common instruction triples once a text has compiled.
#include "Parser.h"

namespace vbs::cmp {

// Code that leaves the value of e on the stack.
void Parser::Gen(Ex* e) {
  // chains inside the arguments of chains nest deeper than any one guard sees
  if (E.StackLow()) CompErr(28, e->line, e->col);
  Peak(1);
  switch (e->k) {
    case Ex::Lit:
      if (e->lit.t == vtInteger) Emit(oPushI, e->lit.i);
      else if (e->lit.t == vtEmpty) Emit(oPushE);
      else Emit(oPushK, K(e->lit));
      return;
    case Ex::Missing:
      Emit(oPushK, K(Value::Missing()));
      return;
    case Ex::Name:
      if (e->call || !e->args.empty()) {
        if (EqNoCase(e->name, u"Eval") && !Declared(e->name) && e->args.size() == 1) {
          Gen(e->args[0]);
          Emit(oExec, 2);
          return;
        }
        GenAll(e->args, true);
        EmitName(oCall, e->name, int32_t(e->args.size()));
      } else {
        EmitName(oLd, e->name);
      }
      return;
    case Ex::Mem:
      Obj0(e);
      GenArgsOver(e->args);
      Emit(oMGet, K(Value(e->name)), 0, int32_t(e->args.size()));
      return;
    case Ex::Idx:
      Gen(e->a);
      GenArgsOver(e->args);
      Emit(oCallV, 0, 0, int32_t(e->args.size()));
      return;
    case Ex::Me:
      Emit(oMe);
      return;
    case Ex::New:
      Emit(oNew, K(Value(e->name)));
      return;
    case Ex::Paren:
      Gen(e->a);
      return;
    case Ex::Un:
      if (e->op == '-' && e->a->k == Ex::Lit && e->a->lit.IsNum()) {
        Value v = Neg(e->a->lit);
        if (v.t == vtInteger) Emit(oPushI, v.i);
        else Emit(oPushK, K(v));
        return;
      }
      Gen(e->a);
      Emit(e->op == '-' ? oNeg : oNot);
      return;
    case Ex::Bin: {
      // a chain a + b + c ... nests to the left as deep as it is long: walk
      // its left spine in a loop, so that only the right operands recurse
      std::vector<Ex*> spine;
      Ex* l = e;
      while (l->k == Ex::Bin) {
        spine.push_back(l);
        l = l->a;
      }
      Gen(l);
      for (size_t k = spine.size(); k-- > 0;) {
        Ex* b = spine[k];
        ++sd_;
        Gen(b->b);
        --sd_;
        Emit(BinOp(b->op), 0, uint16_t(LitSide(b)));
      }
      return;
    }
  }
}

// Code for values that stay on the stack one above the other (arguments, indexes).
void Parser::GenAll(const std::vector<Ex*>& xs, bool asArgs) {
  for (Ex* x : xs) {
    if (asArgs) Arg(x);
    else Gen(x);
    ++sd_;
  }
  sd_ -= int(xs.size());
}

// The arguments of a call whose object or procedure value lies on the stack below
// them: the stack's depth counts that value while they are made.
void Parser::GenArgsOver(const std::vector<Ex*>& xs) {
  ++sd_;
  GenAll(xs, true);
  --sd_;
}

// The instruction of a binary operator.
uint16_t Parser::BinOp(int op) {
  switch (op) {
    case '+': return oAdd;
    case '-': return oSub;
    case '*': return oMul;
    case '/': return oDiv;
    case '\\': return oIDiv;
    case '^': return oPow;
    case '&': return oCat;
    case '=': return oEq;
    case 'n': return oNe;
    case '<': return oLt;
    case '>': return oGt;
    case 'l': return oLe;
    case 'g': return oGe;
    case opIs: return oIs;
    case opMod: return oMod;
    case opAnd: return oAnd;
    case opOr: return oOr;
    case opXor: return oXor;
    case opEqv: return oEqv;
    case opImp: return oImp;
  }
  return oNop;
}

// A literal in a comparison is "hard-typed": the other side is converted to
// its kind. Whether x is a literal number or text, through parentheses and a sign.
bool Parser::IsLit(const Ex* x) {
  while (x->k == Ex::Paren) x = x->a;
  if (x->k == Ex::Un && x->op == '-') x = x->a;
  return x->k == Ex::Lit && (x->lit.IsNum() || x->lit.t == vtString);
}

// Which side of a comparison is such a literal, for the instruction's b: 1 the left,
// 2 the right, 0 neither or both (or no comparison).
int Parser::LitSide(const Ex* b) {
  if (b->op != '=' && b->op != 'n' && b->op != '<' && b->op != '>' && b->op != 'l' && b->op != 'g') return 0;
  bool l = IsLit(b->a), r = IsLit(b->b);
  return l == r ? 0 : l ? 1 : 2;
}

// The object a member is taken from: an expression, or the innermost With.
// Outside any With the code compiles and fails when it runs.
void Parser::Obj0(Ex* e) {
  if (e->a) Gen(e->a);
  else if (!withs.empty()) Emit(oLdL, withs.back());
  else Emit(oFail, 505);
}

// An argument: a plain variable goes by reference, anything else by value.
void Parser::Arg(Ex* e) {
  if (e->k == Ex::Name && !e->call && e->args.empty()) {
    Peak(1);
    EmitName(oRef, e->name);
  } else if (e->k == Ex::Name && !e->args.empty() && !(EqNoCase(e->name, u"Eval") && !Declared(e->name))) {
    Peak(1);
    GenAll(e->args, true);
    EmitName(oRefIx, e->name, int32_t(e->args.size()));
  } else {
    Gen(e);
  }
}

// A call statement on its target: a procedure, a member or a default member, its
// result dropped. Execute and ExecuteGlobal, unless the script declares those names, run text.
void Parser::CallCode(Ex* t) {
  switch (t->k) {
    case Ex::Name: {
      if (!Declared(t->name)) {
        bool ex = EqNoCase(t->name, u"Execute"), exg = EqNoCase(t->name, u"ExecuteGlobal");
        if ((ex || exg) && t->args.size() == 1) {
          Gen(t->args[0]);
          Emit(oExec, exg ? 1 : 0);
          return;
        }
      }
      Peak(1);
      GenAll(t->args, true);
      EmitName(oCall, t->name, int32_t(t->args.size()));
      Emit(oPop);
      return;
    }
    case Ex::Mem:
      Peak(1);
      Obj0(t);
      GenArgsOver(t->args);
      Emit(oMCall, K(Value(t->name)), 0, int32_t(t->args.size()));
      Emit(oPop);
      return;
    case Ex::Idx:
      Gen(t->a);
      GenArgsOver(t->args);
      Emit(oCallV, 1, 0, int32_t(t->args.size()));
      Emit(oPop);
      return;
    default:
      CompErr(1024, t->line, t->col);
  }
}

// Stores: the target's object and indexes first, the value last, so that a
// member or default property receives its arguments with the value at the end.
void Parser::Store(Ex* t, Ex* v, bool set) {
  switch (t->k) {
    case Ex::Name:
      if (t->args.empty() && !t->call) {
        // x = x & y appends in place
        if (!set && v->k == Ex::Bin && v->op == '&' && v->a->k == Ex::Name && !v->a->call &&
            v->a->args.empty() && EqNoCase(v->a->name, t->name)) {
          Gen(v->b);
          EmitName(oAppend, t->name);
          return;
        }
        Gen(v);
        EmitName(set ? oSet : oSt, t->name);
        return;
      }
      GenAll(t->args, false);
      sd_ += int(t->args.size());
      Gen(v);
      sd_ -= int(t->args.size());
      EmitName(set ? oSetIx : oStIx, t->name, int32_t(t->args.size()));
      return;
    case Ex::Mem:
      Peak(1);
      Obj0(t);
      ++sd_;
      GenAll(t->args, true);
      sd_ += int(t->args.size());
      Gen(v);
      sd_ -= 1 + int(t->args.size());
      Emit(set ? oMSet : oMLet, K(Value(t->name)), 0, int32_t(t->args.size()));
      return;
    case Ex::Idx:
      // f(1)(2) = v: the default member of what f(1) gives
      Gen(t->a);
      ++sd_;
      GenAll(t->args, true);
      sd_ += int(t->args.size());
      Gen(v);
      sd_ -= 1 + int(t->args.size());
      Emit(set ? oMSet : oMLet, K(Value(Tx())), 0, int32_t(t->args.size()));
      return;
    default:
      CompErr(1024, t->line, t->col);
  }
}

// Marks each local read followed by a small integer and an arithmetic or
// comparison operator (i Mod 7, n - 1, n < 2), so that the machine does the three
// in one step when the local holds an integer. The two instructions after it stay
// in place for the other kinds; no jump lands inside an expression.
void Parser::Fuse(Proc& pr) {
  std::vector<Ins>& c = pr.code;
  for (size_t k = 0; k + 2 < c.size(); ++k) {
    if (c[k].op != oLdL || c[k + 1].op != oPushI) continue;
    switch (c[k + 2].op) {
      case oAdd: c[k].op = oLdLAddI; break;
      case oSub: c[k].op = oLdLSubI; break;
      case oMul: c[k].op = oLdLMulI; break;
      case oMod: c[k].op = oLdLModI; break;
      case oEq: case oNe: case oLt: case oGt: case oLe: case oGe: c[k].op = oLdLCmpI; break;
      default: break;
    }
  }
}

}  // namespace vbs::cmp
