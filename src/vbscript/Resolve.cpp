// Resolve: once the whole text is read, each name an instruction refers to becomes
// a slot, a member, a global cell, a constant or a built-in, and the instruction
// is rewritten for that addressing mode.
#include "Parser.h"

namespace vbs::cmp {

// Whether the script declares a name (a local, a global of this text or of the engine),
// so that Eval, Execute and ExecuteGlobal written as calls then mean the script's own.
bool Parser::Declared(const Tx& name) {
  if (P->kind != Proc::Global)
    for (auto& s : P->slotNames) if (EqNoCase(s, name)) return true;
  return gdecl.count(TxMaiVb(name)) || E.FindCell(name) >= 0;
}

// The slot of a named local of pr, or -1; skipResult passes over a Function's result
// slot, since a call of the function's own name is a recursion.
int Parser::SlotIn(const Proc* pr, const Tx& name, bool skipResult) {
  for (size_t i = 0; i < pr->slotNames.size(); ++i)
    if (!pr->slotNames[i].empty() && EqNoCase(pr->slotNames[i], name)) {
      if (skipResult && int(i) == pr->result) continue;
      return int(i);
    }
  return -1;
}

// What a name means in pr, innermost first: local, a slot of the frame that ran Execute,
// class member, constant of the procedure or of the text, global, member of an added
// object, built-in constant or function; else a global (at the top level or under
// Option Explicit) or a name decided each time it runs.
Parser::Res Parser::Resolve(Proc* pr, const Tx& name, bool isCall, bool isStore) {
  Res r;
  if (pr->kind != Proc::Global) {
    int s = SlotIn(pr, name, isCall);
    if (s >= 0) { r.k = Res::Slot; r.idx = s; return r; }
  }
  Class* cl = pr->cls ? pr->cls : sc_.cls;
  if (sc_.up) {
    int s = SlotIn(sc_.up, name, isCall);
    if (s >= 0) { r.k = Res::Up; r.idx = s; return r; }
  }
  if (cl) {
    int m = cl->Find(name);
    if (m >= 0) { r.k = Res::Member; r.idx = m; return r; }
  }
  Tx up = TxMaiVb(name);
  auto lc = consts[pr].find(up);
  if (lc != consts[pr].end()) { r.k = Res::Const; r.v = lc->second; return r; }
  auto gc = consts[U->main.get()].find(up);
  if (gc != consts[U->main.get()].end()) { r.k = Res::Const; r.v = gc->second; return r; }
  int cell = E.FindCell(name);
  if ((cell >= 0 && E.cells[cell].kind != Cell::Undecl) || gdecl.count(up)) {
    r.k = Res::Global;
    r.idx = E.CellOf(name);
    return r;
  }
  // a member of an object added with addMembers
  for (auto& [objName, members] : E.objNames) {
    if (!members) continue;
    int oc = E.FindCell(objName);
    if (oc < 0 || E.cells[size_t(oc)].v.t != vtObject || !E.cells[size_t(oc)].v.o) continue;
    if (E.cells[size_t(oc)].v.o->Id(name) < 0) continue;
    r.k = Res::Global;
    r.idx = E.CellOf(name);
    E.cells[size_t(r.idx)].kind = Cell::Member;
    E.cells[size_t(r.idx)].obj = oc;
    return r;
  }
  if (!isStore) {
    if (const Value* c = FindConst(name)) { r.k = Res::Const; r.v = *c; return r; }
    if (const FnDef* f = FindFn(name)) {
      r.k = Res::Builtin;
      pr->fns.push_back(f);
      r.idx = int(pr->fns.size() - 1);
      return r;
    }
  }
  if (pr->kind == Proc::Global || explicit_ || E.explicit_) {
    r.k = Res::Global;
    r.idx = E.CellOf(name);
    return r;
  }
  // undeclared in a procedure: decided each time it runs, by whether a global of
  // that name exists then. Every reference shares one entry, and its fallback
  // slot has no name, so that no later reference mistakes it for a declared local.
  r.k = Res::Dyn;
  int dc = E.CellOf(name);
  for (size_t i = 0; i < pr->dyn.size(); ++i)
    if (pr->dyn[i].first == dc) {
      r.idx = int(i);
      return r;
    }
  int slot = int(pr->nslots++);
  pr->slotNames.push_back(Tx());
  pr->dyn.emplace_back(dc, slot);
  r.idx = int(pr->dyn.size() - 1);
  return r;
}

// Rewrites each named instruction for what its name turned out to be (a local load
// becomes oLdL, a constant a push, a built-in oCallB), gives global arrays their cells,
// lists the text's declarations for Install and fuses instruction triples.
void Parser::Finish() {
  for (auto& ref : refs) {
    Proc* pr = ref.proc;
    if (ref.ins == size_t(-1)) continue;
    Ins& in = pr->code[ref.ins];
    bool isCall = (in.op == oCall || in.op == oRefIx) && in.c > 0;
    bool isStore = in.op == oSt || in.op == oSet || in.op == oStIx || in.op == oSetIx ||
                   in.op == oReDim || in.op == oForPrep || in.op == oFePrep || in.op == oAppend;
    Res r = Resolve(pr, ref.name, isCall, isStore);
    switch (r.k) {
      case Res::Slot:
        in.b = mLocal;
        in.a = r.idx;
        if (in.op == oLd) in.op = oLdL;
        else if (in.op == oSt) in.op = oStL;
        break;
      case Res::Up: in.b = mUp; in.a = r.idx; break;
      case Res::Dyn: in.b = mDyn; in.a = r.idx; break;
      case Res::Member: in.b = mMember; in.a = r.idx; break;
      case Res::Global:
        in.b = mGlobal;
        in.a = r.idx;
        if (in.op == oLd) in.op = oLdG;
        else if (in.op == oSt) in.op = oStG;
        break;
      case Res::Const:
        if (in.op == oLd || in.op == oRef) {
          in.op = oPushK;
          in.a = int32_t(pr->k.size());
          pr->k.push_back(r.v);
          in.b = 0;
        } else if ((in.op == oCall || in.op == oRefIx) && in.c == 0) {
          in.op = oPushK;
          in.a = int32_t(pr->k.size());
          pr->k.push_back(r.v);
          in.b = 0;
        } else {
          CompErr(1041, 0, 0);
        }
        break;
      case Res::Builtin: {
        // the statement form of a call is the one followed by oPop
        bool stmt = in.op == oCall && ref.ins + 1 < pr->code.size() && pr->code[ref.ins + 1].op == oPop;
        uint8_t use = pr->fns[size_t(r.idx)]->use;
        if (in.op == oLd || in.op == oRef) in.c = 0;
        in.op = oCallB;
        in.a = r.idx;
        in.b = 0;
        // a conversion as a statement runs as a call would, so that its own
        // errors come first, and fails with 458 only once it has succeeded
        if (use == kFnConv && stmt) in.b = 1;
        if (use == kFnSub && !stmt) {
          in.op = oFail;
          in.a = 13;
        }
        break;
      }
    }
  }
  // global arrays declared with bounds
  for (auto& ai : U->main->arrays) {
    if (ai.mode != mName) continue;
    const NameRef& ref = refs[size_t(ai.idx)];
    ai.mode = mGlobal;
    ai.idx = E.CellOf(ref.name);
  }
  // globals this text declares, and its constants, for Install
  for (auto& [up, kind] : gdecl) {
    (void)kind;
    U->decls.push_back(up);
  }
  for (auto& [up, v] : consts[U->main.get()]) U->consts.emplace_back(up, v);
  U->explicit_ = explicit_;
  Fuse(*U->main);
  for (auto& pr : U->procs) Fuse(*pr);
}

}  // namespace vbs::cmp
