// Vm: the machine that runs compiled code.
// One value stack per engine; a procedure's frame is a slice of it (arguments,
// result, locals, hidden loop slots) with its expression stack above. Calls
// between script procedures recurse in C++, so an error unwinds as a C++
// exception to the nearest frame that runs under On Error Resume Next, which
// abandons the failing statement and goes on with the next one.
#include <algorithm>
#include <iterator>
#include <cmath>
#include "Builtins.h"
#include "Engine.h"
#include "Locale.h"

namespace vbs {

namespace {
constexpr size_t kStack = 1 << 16;
constexpr int kMaxDepth = 2000;
// room kept above a frame's own need, for what built-ins and statements push
constexpr int kSlack = 64;
thread_local Engine* tlEngine = nullptr;


// The number Err.Raise raises for the one it is given: 0 and numbers past 16
// bits are not errors (5); the language's own and the system's out-of-memory
// codes in their long form stand for the short numbers.
int32_t RaiseNum(int32_t n) {
  uint32_t u = uint32_t(n);
  if ((u & 0xFFFF0000u) == 0x800A0000u) return int32_t(u & 0xFFFF);
  if (u == 0x8007000Eu) return 7;
  if (n == 0 || n > 0xFFFF) return 5;
  return n;
}

// The Err object of an engine.
class ErrObj : public Obj {
 public:
  explicit ErrObj(Engine* e) : e_(e) {}
  Tx TypeName() override { return u"ErrObject"; }
  int Id(TxV n) override {
    return NameIx(n, {"Number", "Description", "Source", "HelpFile", "HelpContext", "Raise", "Clear"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    ErrState& s = e_->err;
    if (id == 0) id = 1;
    bool put = k == Inv::Let;
    switch (id) {
      case 1:
        if (put) s.num = ToLng(a[a.n - 1]); else r = Value(s.num);
        return;
      case 2:
        if (put) s.desc = ToTx(a[a.n - 1]); else r = Value(s.desc);
        return;
      case 3:
        if (put) s.src = ToTx(a[a.n - 1]); else r = Value(s.src);
        return;
      case 4:
        if (put) s.helpFile = ToTx(a[a.n - 1]); else r = Value(s.helpFile);
        return;
      case 5:
        if (put) s.helpCtx = ToLng(a[a.n - 1]); else r = Value(s.helpCtx);
        return;
      case 6: {
        // Raise number, source, description, helpfile, helpcontext: what is left
        // out keeps what the last error left, and the defaults apply only to a
        // cleared Err
        if (a.n < 1 || a.n > 5) Raise(450);
        int32_t num = RaiseNum(ToLng(a[0]));
        Tx src = a.Has(1) ? ToTx(a[1]) : !s.src.empty() ? s.src : Tx(u"Microsoft VBScript runtime error");
        Tx desc;
        if (a.Has(2)) desc = ToTx(a[2]);
        else if (!s.desc.empty() && s.num != 0) desc = s.desc;
        else {
          desc = ErrDesc(num);
          if (desc.empty()) desc = u"Unknown runtime error";
        }
        Fault f{num, desc, src};
        f.helpFile = a.Has(3) ? ToTx(a[3]) : s.helpFile;
        f.helpCtx = a.Has(4) ? ToLng(a[4]) : s.helpCtx;
        throw f;
      }
      case 7: s = ErrState(); return;
    }
    Raise(438);
  }

 private:
  Engine* e_;
};

// What GetRef gives: a procedure called through the object's default member.
class ProcRef : public Obj {
 public:
  ProcRef(Engine* e, const Proc* p) : e_(e), p_(p) {}
  Tx TypeName() override { return u"Object"; }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (id != 0 || k == Inv::Let || k == Inv::Set) Raise(438);
    e_->CallProc(*p_, nullptr, a, r);
  }

 private:
  Engine* e_;
  const Proc* p_;
};

inline void PushV(Engine& E, Value&& v) { *E.sp++ = std::move(v); }

}  // namespace

Engine* CurEngine() { return tlEngine; }

UseEngine::UseEngine(Engine* e) : saved(tlEngine) { tlEngine = e; }
UseEngine::~UseEngine() { tlEngine = saved; }

void RegEngineFns();

// The built-in tables are filled once, before the first engine compiles anything.
static void RegAll() {
  static bool done = [] {
#ifdef VBS_LIB
    LibReg();
#endif
    RegEngineFns();
    return true;
  }();
  (void)done;
}

// ---------------------------------------------------------------- engine state
Engine::Engine() {
  RegAll();
  stk = std::make_unique<Value[]>(kStack);
  sp = stk.get();
  stkEnd = sp + kStack;
  Reset();
}

Engine::~Engine() {
  Engine* saved = tlEngine;
  tlEngine = this;
  for (auto& c : cells) c.v = Value();
  for (Value* v = stk.get(); v < sp; ++v) *v = Value();
  cells.clear();
  *alive = false;
  tlEngine = saved;
}

void Engine::Reset() {
  Engine* saved = tlEngine;
  tlEngine = this;
  // values first, while the code their Class_Terminate runs still exists
  for (auto& c : cells) c.v = Value();
  cells.clear();
  cp.clear();
  byName.clear();
  classes.clear();
  procOrder.clear();
  for (auto& u : units) retired.push_back(std::move(u));
  units.clear();
  objNames.clear();
  explicit_ = false;
  err = ErrState();
  errObj = Ref<Obj>(new ErrObj(this));
  int c = CellOf(u"Err");
  cells[c].kind = Cell::Object;
  cells[c].v = Value(errObj);
  tlEngine = saved;
}

int Engine::FindCell(TxV name) const {
  auto it = byName.find(TxMaiVb(name));
  return it == byName.end() ? -1 : it->second;
}

int Engine::CellOf(TxV name) {
  Tx up = TxMaiVb(name);
  auto it = byName.find(up);
  if (it != byName.end()) return it->second;
  cells.emplace_back();
  cells.back().name = Tx(name);
  cp.push_back(&cells.back());
  int i = int(cells.size() - 1);
  byName.emplace(std::move(up), i);
  return i;
}

void Engine::Install(Unit& u) {
  if (u.explicit_) explicit_ = true;
  for (const Tx& d : u.decls) {
    Cell& c = cells[CellOf(d)];
    if (c.kind == Cell::Undecl) c.kind = Cell::Var;
  }
  for (auto& [name, v] : u.consts) {
    Cell& c = cells[CellOf(name)];
    c.kind = Cell::Const;
    c.v = v;
  }
  for (auto& pr : u.procs) {
    if (pr->cls) continue;
    Cell& c = cells[CellOf(pr->name)];
    c.kind = Cell::Proc;
    c.proc = pr.get();
    c.v = Value();
    bool found = false;
    for (auto& q : procOrder)
      if (EqNoCase(q->name, pr->name)) { q = pr.get(); found = true; }
    if (!found) procOrder.push_back(pr.get());
  }
  for (auto& cl : u.classes) classes[TxMaiVb(cl->name)] = cl.get();
}

void Engine::StartClock() {
  timed = timeoutMs >= 0 || bool(pulse);
  halted = false;
  haltLine = 0;
  lastRead = std::chrono::steady_clock::now();
  deadline = timeoutMs >= 0 ? lastRead + std::chrono::milliseconds(timeoutMs)
                            : std::chrono::steady_clock::time_point::max();
  nextPulse = lastRead + pulseEvery;
  quantum = tick = 64;
}

bool Engine::Poll(std::chrono::steady_clock::time_point& now) {
  now = std::chrono::steady_clock::now();
  if (halted || now > deadline) {
    // stopped for good: Class_Terminate code run while the stop unwinds, or a
    // time-out that one swallowed, stops at its first step
    halted = true;
    tick = 0;
    return false;
  }
  if (pulse && now >= nextPulse) {
    bool seguir = pulse();
    now = std::chrono::steady_clock::now();
    nextPulse = now + pulseEvery;
    if (!seguir) {
      halted = true;
      tick = 0;
      return false;
    }
  }
  return true;
}

bool Engine::Poll() {
  std::chrono::steady_clock::time_point now;
  return Poll(now);
}

void Engine::TickSlow() {
  std::chrono::steady_clock::time_point now;
  if (!Poll(now)) throw Abort{};
  long long ns = std::chrono::duration_cast<std::chrono::nanoseconds>(now - lastRead).count();
  lastRead = now;
  if (ns < kReadNs) quantum = std::min(quantum * 2, kMaxQuantum);
  else quantum = int(std::max<long long>(1, quantum * kReadNs / ns));
  tick = quantum;
}

void Work(size_t n) {
  if (tlEngine) tlEngine->Charge(n);
}

// ---------------------------------------------------------------- values
void LetTo(Value& dst, Value&& src) {
  if (src.t == vtRef) {
    Value k = *src.r;
    src = std::move(k);
  }
  if (src.t == vtObject) src = Prim(src);
  if ((src.t & vtArray) && src.a->rc > 1) src = Value(CloneArr(src.a));
  dst = std::move(src);
}

void SetTo(Value& dst, Value&& src) {
  if (src.t == vtRef) {
    Value k = *src.r;
    src = std::move(k);
  }
  if (src.t != vtObject) Raise(424);
  dst = std::move(src);
}

void Index(Value& v0, Args a, Inv k, Value& r) {
  Value& v = v0.Deref();
  if (v.t & vtArray) {
    r = v.a->At(a.v, a.n);
    return;
  }
  if (v.t == vtObject) {
    if (!v.o) Raise(91);
    Ref<Obj> hold(v.o);
    hold->Invoke(0, k, a, r);
    return;
  }
  if (a.n == 0) {
    r = v;
    return;
  }
  Raise(13);
}

// Stores into an element of an array, or through an object's default member.
// a holds the indexes and, last, the value.
static void StoreIx(Value& t0, Args a, bool set) {
  Value& t = t0.Deref();
  Value val = a[a.n - 1];
  if (t.t & vtArray) {
    Value& e = t.a->At(a.v, a.n - 1);
    if (set) SetTo(e, std::move(val));
    else LetTo(e, std::move(val));
    return;
  }
  if (t.t == vtObject) {
    if (!t.o) Raise(91);
    Ref<Obj> hold(t.o);
    Value r;
    hold->Invoke(0, set ? Inv::Set : Inv::Let, a, r);
    return;
  }
  Raise(13);
}

// ---------------------------------------------------------------- script classes
Inst::Inst(Engine* e, Class* c) : eng(e), alive(e->alive), cls(c) {
  f.resize(size_t(c->nfields));
  for (const vbs::Member& m : c->mems) {
    if (m.field < 0 || !m.isArr) continue;
    Arr* a = m.ub.empty() ? new Arr : Arr::Make(m.ub.data(), m.ub.size());
    a->fixed = !m.ub.empty();
    f[size_t(m.field)] = Value(a);
  }
}

// From outside the class only its public members are reachable.
int Inst::Id(TxV name) {
  int m = cls->Find(name);
  return m < 0 || !cls->mems[size_t(m)].pub ? -1 : m + 1;
}

void Inst::Invoke(int id, Inv k, Args a, Value& r) {
  int m = id - 1;
  if (id == 0) {
    if (cls->dflt < 0) Raise(438);
    m = cls->dflt;
  }
  if (m < 0 || m >= int(cls->mems.size())) Raise(438);
  Member(m, k, a, r);
}

void Inst::Member(int m, Inv k, Args a, Value& r) {
  vbs::Member& mb = cls->mems[size_t(m)];
  Ref<Obj> hold(this);
  if (mb.field >= 0) {
    Value& fv = f[size_t(mb.field)];
    switch (k) {
      case Inv::Get: case Inv::Call:
        if (a.n == 0) r = fv;
        else Index(fv, a, Inv::Get, r);
        return;
      case Inv::Let: case Inv::Set:
        if (a.n == 1) {
          Value v = a[0];
          if (k == Inv::Set) SetTo(fv, std::move(v));
          else LetTo(fv, std::move(v));
        } else {
          StoreIx(fv, a, k == Inv::Set);
        }
        return;
    }
  }
  const Proc* p = nullptr;
  switch (k) {
    case Inv::Get: case Inv::Call: p = mb.call ? mb.call : mb.get; break;
    case Inv::Let: p = mb.let; break;
    case Inv::Set: p = mb.set; break;
  }
  if (!p) Raise(k == Inv::Let || k == Inv::Set ? 450 : 438);
  eng->CallProc(*p, this, a, r);
}

// Class_Terminate runs once, when the last reference goes. An error in it goes
// nowhere; a time-out stops the script at its next step (TickSlow has marked the
// engine halted). Terminate calls count as calls against the depth limit, with
// those of releases put off (TermNest), so a Class_Terminate that makes and drops
// an object of its own class stops after kMaxDepth rounds, as deep recursion does.
void Inst::Last() {
  if (!terminated && *alive && cls->term) {
    terminated = true;
    rc_ = 1;
    Engine* saved = tlEngine;
    tlEngine = eng;
    int& tn = TermNest();
    ++tn;
    ++eng->depth;
    try {
      if (tn + eng->depth >= kMaxDepth) Raise(28);
      Value r;
      eng->CallProc(*cls->term, this, Args{}, r);
    } catch (...) {
    }
    --eng->depth;
    --tn;
    tlEngine = saved;
    if (--rc_ > 0) return;
  }
  delete this;
}

Value Engine::NewInst(TxV name) {
  // RegExp is the one class the language itself provides to New, and a script's
  // own class of that name does not hide it
  if (EqNoCase(name, u"RegExp")) return Value(NewObj(u"VBScript.RegExp"));
  auto it = classes.find(TxMaiVb(name));
  if (it == classes.end()) Raise(506);
  Ref<Inst> o(new Inst(this, it->second));
  if (it->second->init) {
    Value r;
    CallProc(*it->second->init, o.get(), Args{}, r);
  }
  return Value(o);
}

// ---------------------------------------------------------------- calls
static void MakeArrays(Engine& E, const Proc& p, Value* bp) {
  for (const auto& ai : p.arrays) {
    Arr* a = ai.ub.empty() ? new Arr : Arr::Make(ai.ub.data(), ai.ub.size());
    a->fixed = !ai.ub.empty();
    Value& dst = ai.mode == mLocal ? bp[ai.idx] : E.cells[size_t(ai.idx)].v;
    dst = Value(a);
    E.Charge(a->v.size());
  }
}

static void UnlockTo(Engine& E, Value* base);

// Empties the stack down to base. Scalars are emptied through a local pointer and
// sp is stored once; before a release, which may run a Class_Terminate that uses
// the stack, sp is brought down to just above the value released.
static inline void PopTo(Engine& E, Value* base) {
  Value* p = E.sp;
  while (p > base) {
    --p;
    if (p->t >= vtString) {
      E.sp = p + 1;
      *p = Value();
    } else {
      p->t = vtEmpty;
    }
  }
  E.sp = p;
  if (!E.elemLocks.empty()) UnlockTo(E, base);
}

static void UnlockTo(Engine& E, Value* base) {
  while (!E.elemLocks.empty() && E.elemLocks.back().first >= base) {
    Arr* a = E.elemLocks.back().second;
    E.elemLocks.pop_back();
    --a->locks;
    a->Release();
  }
}

void Engine::CallStk(const Proc& p, Inst* me, int argc) { CallIn(p, me, argc); }

// CallStk's work, built into the instruction that calls a procedure by name, so
// that a call between script procedures nests one C++ frame (the callee's loop).
[[gnu::always_inline]] inline void Engine::CallIn(const Proc& p, Inst* me, int argc) {
  if (argc != p.nargs) Raise(450);
  Value* bp = sp - argc;
  Tick();
  if (depth >= kMaxDepth || bp + p.nslots + p.maxStack + kSlack > stkEnd || StackLow()) Raise(28);
  // a ByVal parameter, and an argument passed as a value (an expression, a
  // name in its own parentheses), gets its own copy of an array
  for (int k = 0; k < argc; ++k) {
    Value& a = bp[k];
    if (a.t == vtRef) {
      if (!p.anyByval || !p.byval[size_t(k)]) continue;
      Value c = *a.r;
      a = std::move(c);
    }
    if ((a.t & vtArray) && a.a->rc > 1) a = Value(CloneArr(a.a));
  }
  sp = bp + p.nslots;
  ++depth;
  try {
    if (!p.arrays.empty()) MakeArrays(*this, p, bp);
    Exec(p, bp, me, nullptr);
  } catch (...) {
    --depth;
    PopTo(*this, bp);
    throw;
  }
  --depth;
  Value r;
  if (p.result >= 0) r.Swap(bp[p.result]);
  // the frame's scalars are emptied here in one pass; anything else goes through
  // PopTo, which releases it with sp above it
  Value* q = sp;
  while (q > bp && q[-1].t < vtString) (--q)->t = vtEmpty;
  sp = q;
  if (q > bp || !elemLocks.empty()) PopTo(*this, bp);
  bp->Swap(r);
  sp = bp + 1;
  if (halted) throw Abort{};  // a time-out in the Class_Terminate of a local
}

void Engine::CallProc(const Proc& p, Inst* me, Args a, Value& r) {
  char top;
  if (depth == 0) stackTop = &top;  // a call from the host begins a run
  Value* base = sp;
  if (sp + a.n + kSlack > stkEnd) Raise(28);
  for (int k = 0; k < a.n; ++k) *sp++ = a.v[k];
  try {
    CallStk(p, me, a.n);
  } catch (...) {
    PopTo(*this, base);
    throw;
  }
  r = std::move(sp[-1]);
  PopTo(*this, base);
}

void CallObj(Obj* o, Args a, Value& r) {
  if (!o) Raise(91);
  Ref<Obj> hold(o);
  o->Invoke(0, Inv::Call, a, r);
}

void Engine::RunMain(Proc& p, Value* up, Inst* me, Value* result) {
  char top;
  if (depth == 0) stackTop = &top;  // a run from the host begins here
  Engine* saved = tlEngine;
  tlEngine = this;
  Value* bp = sp;
  if (bp + p.nslots + p.maxStack + kSlack > stkEnd) Raise(28);
  sp = bp + p.nslots;
  try {
    if (!p.arrays.empty()) MakeArrays(*this, p, bp);
    Exec(p, bp, me, up);
  } catch (...) {
    PopTo(*this, bp);
    tlEngine = saved;
    throw;
  }
  if (result && p.result >= 0) *result = std::move(bp[p.result]);
  PopTo(*this, bp);
  tlEngine = saved;
}

void Engine::ExecText(const Value& text, int kind, const Proc& p, Value* bp, Inst* me, Value& r) {
  Tx src = ToTx(text);
  Scope sc;
  bool local = kind != 1 && (p.kind != Proc::Global || p.cls);
  if (local) {
    sc.up = &p;
    sc.cls = p.cls;
  }
  // Execute and Eval that run themselves nest as calls do, under the same limit
  if (depth >= kMaxDepth || StackLow()) Raise(28);
  ++depth;
  struct Down {
    int& d;
    ~Down() { --d; }
  } down{depth};
  Charge(src.size());
  try {
    auto u = Compile(src, kind == 2, sc);
    Unit* raw = u.get();
    Install(*raw);
    units.push_back(std::move(u));
    Value res;
    RunMain(*raw->main, local ? bp : nullptr, me, kind == 2 ? &res : nullptr);
    r = std::move(res);
    if (kind == 2 && raw->procs.empty() && raw->classes.empty() && units.back().get() == raw)
      units.pop_back();  // an expression leaves nothing behind
  } catch (Fault& f) {
    f.line = 0;
    f.col = 0;
    throw;
  }
}

// ---------------------------------------------------------------- the loop
static const StmtPos* FindStmt(const Proc& p, int pc) {
  const StmtPos* best = nullptr;
  size_t lo = 0, hi = p.stmts.size();
  while (lo < hi) {
    size_t mid = (lo + hi) / 2;
    if (p.stmts[mid].from <= pc) { best = &p.stmts[mid]; lo = mid + 1; }
    else hi = mid;
  }
  return best;
}

Site Where() {
  Site s;
  Engine* e = tlEngine;
  if (!e || !e->frm || !e->frm->at) return s;
  const Proc& p = *e->frm->p;
  if (const StmtPos* st = FindStmt(p, int(e->frm->at - p.code.data()) - 1)) s.Line = st->line;
  s.Text = p.src;
  return s;
}

static inline bool Truth(const Value& v0) {
  const Value& v = v0.Deref();
  if (v.t == vtBoolean) return v.i != 0;
  if (v.t == vtNull) return false;
  return ToBool(v);
}

static inline int64_t IntOf(const Value& v) { return v.t == vtLong ? v.l : v.i; }
static inline bool IsIntK(const Value& v) { return v.t == vtInteger || v.t == vtLong; }


// The instruction loop of one procedure, from ip until its oRet. It has no
// handler of its own, so that the compiler can keep ip and the stack top in
// registers (a variable that a handler reads lives in memory); fr.cur tells
// Exec's handlers which instruction an error came from.
void Engine::Steps(const Proc& p, Value* bp, Inst* me, Value* up, const Ins* ip, Frm& fr, bool& onErr) {
  const Ins* const code = p.code.data();
  const Value* const K = p.k.data();
  Engine& E = *this;
#define AT fr.at = ip

  // the variable an instruction names
  auto var = [this, &p, bp, up, me](const Ins& I, bool store) -> Value& {
    switch (I.b) {
      case mLocal: return bp[I.a].Deref();
      case mUp: return up[I.a].Deref();
      case mDyn: {
        // a name no declaration reaches: the global of that name once one exists,
        // else a variable of this procedure
        const auto& d = p.dyn[size_t(I.a)];
        Cell& c = *cp[size_t(d.first)];
        if (c.kind == Cell::Var || c.kind == Cell::Object) return c.v;
        if (c.kind == Cell::Const) {
          if (store) Raise(501);
          return c.v;
        }
        return bp[d.second].Deref();
      }
      case mMember: {
        const vbs::Member& m = me->cls->mems[size_t(I.a)];
        if (m.field < 0) Raise(store ? 501 : 13);
        return me->f[size_t(m.field)];
      }
      default: {
        Cell& c = *cp[size_t(I.a)];
        if (c.kind != Cell::Var) {
          if (c.kind == Cell::Undecl) {
            if (explicit_) Raise(500);
            c.kind = Cell::Var;
          } else if (store && c.kind != Cell::Object) {
            Raise(501);
          }
        }
        return c.v;
      }
    }
  };
  // names that are members rather than variables: a class's properties and
  // methods, and the members of objects added with addMembers
  auto isProp = [this, me](const Ins& I) {
    return (I.b == mMember && me->cls->mems[size_t(I.a)].field < 0) ||
           (I.b == mGlobal && cp[size_t(I.a)]->kind == Cell::Member);
  };
  auto prop = [this, me](const Ins& I, Inv k, Args a, Value& r) {
    if (I.b == mMember) {
      me->Member(I.a, k, a, r);
      return;
    }
    Cell& c = *cp[size_t(I.a)];
    Value& ov = cp[size_t(c.obj)]->v;
    if (ov.t != vtObject || !ov.o) Raise(424);
    Ref<Obj> o(ov.o);
    int id = o->Id(c.name);
    if (id < 0) Raise(438);
    o->Invoke(id, k, a, r);
  };
  // the global cell a name reaches: mGlobal always, mDyn once the global exists
  auto cellOf = [this, &p](const Ins& I) -> Cell* {
    if (I.b == mGlobal) return cp[size_t(I.a)];
    if (I.b == mDyn) {
      Cell* c = cp[size_t(p.dyn[size_t(I.a)].first)];
      return c->kind == Cell::Undecl ? nullptr : c;
    }
    return nullptr;
  };
  auto isProcCell = [cellOf](const Ins& I) {
    Cell* c = cellOf(I);
    return c && c->kind == Cell::Proc;
  };

      for (;;) {
        // threaded dispatch: each instruction jumps straight to the next one's code
        static const void* const kDisp[] = {
#define VBS_OP_LABEL(n) &&L_##n,
          VBS_OPS(VBS_OP_LABEL)
#undef VBS_OP_LABEL
        };
        static_assert(std::size(kDisp) == kNumOps, "one dispatch entry per opcode");
        // NEXT leaves the instruction's scope (running its destructors) for the
        // common dispatch; FAST jumps on directly and is used only where no local
        // with a destructor is alive.
        // The quick paths of the commonest instructions keep the stack top in rs, a
        // local the compiler holds in a register, and store it back to sp as they
        // leave, so that one such instruction need not wait for the last one's store
        // to sp before it can find its operands; each instruction begins with
        // rs == sp, and the common dispatch reloads rs after the others.
#define NEXT goto dispatch
#define FAST do { I = ip++; fr.cur = I; goto *kDisp[I->op]; } while (0)
        const Ins* I;
        Value* rs = sp;
      dispatch:
        rs = sp;
        I = ip++;
        fr.cur = I;
        if (I->op >= std::size(kDisp)) goto L_default;
        goto *kDisp[I->op];
        {
          L_oPushK: *sp++ = K[I->a]; NEXT;
          L_oPushI: rs->SetInt(int16_t(I->a)); sp = ++rs; FAST;
          L_oPushE: ++sp; NEXT;
          L_oPop: Clear(sp[-1]); --sp; NEXT;
          L_oMe: *sp++ = Value(static_cast<Obj*>(me)); NEXT;
          L_oLdL: {
            const Value& v = bp[I->a].Deref();
            if (v.t < vtString) { rs->t = v.t; rs->c = v.c; sp = ++rs; FAST; }
            *sp++ = v;
            NEXT;
          }
          // a local op a small integer: the next two instructions hold the integer
          // and the operator, which run themselves for any local but an integer
#define VBS_LDLI(EXPR, COND)                                                    \
  {                                                                             \
    const Value& x = bp[I->a].Deref();                                          \
    int32_t k = ip->a;                                                          \
    if (IsIntK(x) && (COND)) {                                                  \
      int64_t a = IntOf(x);                                                     \
      int64_t v = (EXPR);                                                       \
      if (x.t != vtLong && v >= -32768 && v <= 32767) rs->SetInt(int16_t(v));  \
      else if (v >= INT32_MIN && v <= INT32_MAX) rs->SetLng(int32_t(v));        \
      else { rs->t = vtDouble; rs->d = double(v); }                             \
      sp = ++rs;                                                                \
      ip += 2;                                                                  \
      FAST;                                                                     \
    }                                                                           \
    goto ldli_plain;                                                            \
  }
          L_oLdLAddI: VBS_LDLI(a + k, true)
          L_oLdLSubI: VBS_LDLI(a - k, true)
          L_oLdLMulI: VBS_LDLI(a * k, true)
          L_oLdLModI: VBS_LDLI(k == -1 ? 0 : int32_t(a) % k, k != 0)  // a 32-bit division is quicker
#undef VBS_LDLI
          L_oLdLCmpI: {
            // a comparison followed by oJf also jumps here
            const Value& x = bp[I->a].Deref();
            if (IsIntK(x)) {
              int64_t a = IntOf(x);
              int32_t k = ip->a;
              bool b;
              switch (ip[1].op) {
                case oEq: b = a == k; break;
                case oNe: b = a != k; break;
                case oLt: b = a < k; break;
                case oGt: b = a > k; break;
                case oLe: b = a <= k; break;
                default: b = a >= k; break;
              }
              if (ip[2].op == oJf) {
                const Ins* J = ip + 2;
                ip += 3;
                if (!b) {
                  if (J->a <= ip - code) Tick();
                  ip = code + J->a;
                }
                FAST;
              }
              rs->SetBool(b);
              sp = ++rs;
              ip += 2;
              FAST;
            }
          }
          ldli_plain: {
            // any other kind: a plain oLdL, and the two instructions after it run
            const Value& x = bp[I->a].Deref();
            if (x.t < vtString) { rs->t = x.t; rs->c = x.c; sp = ++rs; FAST; }
            *sp++ = x;
            NEXT;
          }
          L_oStL: {
            Value& d = bp[I->a].Deref();
            Value& s = rs[-1];
            if (s.t < vtString && d.t < vtString) { d.t = s.t; d.c = s.c; s.t = vtEmpty; sp = --rs; FAST; }
            Value v = std::move(s);
            --sp;
            LetTo(d, std::move(v));
            if (halted) throw Abort{};
            NEXT;
          }
          L_oLdG: {
            Cell& c = *cp[size_t(I->a)];
            if (c.kind == Cell::Var) {
              const Value& v = c.v;
              if (v.t < vtString) { rs->t = v.t; rs->c = v.c; sp = ++rs; FAST; }
              *sp++ = v;
              NEXT;
            }
            if (c.kind == Cell::Proc) { CallStk(*c.proc, nullptr, 0); NEXT; }
            if (c.kind == Cell::Member) {
              Value r;
              prop(*I, Inv::Get, Args{}, r);
              PushV(E, std::move(r));
              NEXT;
            }
            *sp++ = var(*I, false);
            NEXT;
          }
          L_oStG: {
            Cell& c = *cp[size_t(I->a)];
            Value& s = rs[-1];
            if (c.kind == Cell::Var && s.t < vtString && c.v.t < vtString) {
              c.v.t = s.t; c.v.c = s.c; s.t = vtEmpty; sp = --rs;
              FAST;
            }
            if (c.kind == Cell::Member) {
              Value r;
              prop(*I, Inv::Let, Args{sp - 1, 1}, r);
              PopTo(E, sp - 1);
              NEXT;
            }
            Value v = std::move(s);
            --sp;
            LetTo(var(*I, true), std::move(v));
            if (halted) throw Abort{};
            NEXT;
          }
          L_oKeep: {
            Value v = std::move(sp[-1]);
            --sp;
            bp[I->a] = std::move(v);
            NEXT;
          }
          L_oLd:
            if (isProcCell(*I)) { CallStk(*cellOf(*I)->proc, nullptr, 0); NEXT; }
            if (isProp(*I)) {
              Value r;
              prop(*I, Inv::Get, Args{}, r);
              PushV(E, std::move(r));
              NEXT;
            }
            *sp++ = var(*I, false);
            NEXT;
          L_oSt: L_oSet: {
            if (isProp(*I)) {
              Value r;
              prop(*I, I->op == oSet ? Inv::Set : Inv::Let, Args{sp - 1, 1}, r);
              PopTo(E, sp - 1);
              NEXT;
            }
            Value v = std::move(sp[-1]);
            --sp;
            Value& d = var(*I, true);
            if (I->op == oSet) SetTo(d, std::move(v));
            else LetTo(d, std::move(v));
            if (halted) throw Abort{};
            NEXT;
          }
          L_oRef:
            if (isProcCell(*I)) { CallStk(*cellOf(*I)->proc, nullptr, 0); NEXT; }
            if (isProp(*I)) {
              Value r;
              prop(*I, Inv::Get, Args{}, r);
              PushV(E, std::move(r));
              NEXT;
            }
            *sp++ = Value::RefTo(&var(*I, false));
            NEXT;
          L_oRefIx: {
            int n = I->c;
            if (!isProcCell(*I) && !isProp(*I)) {
              Value& v = var(*I, false);
              if (v.t & vtArray) {
                Arr* a = v.a;
                Value* e = &a->At(sp - n, n);
                PopTo(E, sp - n);
                *sp++ = Value::RefTo(e);
                a->AddRef();
                ++a->locks;
                elemLocks.emplace_back(sp - 1, a);
                NEXT;
              }
            }
          }
            // on to L_oCall
          L_oCall: {
            int n = I->c;
            AT;
            if (isProcCell(*I)) { CallIn(*cellOf(*I)->proc, nullptr, n); NEXT; }
            Value r;
            if (isProp(*I)) {
              prop(*I, Inv::Call, Args{sp - n, n}, r);
            } else {
              Value& v = var(*I, false);
              if (n == 0 && v.t != vtObject) r = v;
              else Index(v, Args{sp - n, n}, Inv::Get, r);
            }
            PopTo(E, sp - n);
            PushV(E, std::move(r));
            NEXT;
          }
          L_oCallB: {
            const FnDef* f = p.fns[size_t(I->a)];
            AT;
            int n = I->c;
            if (n < f->min || (f->max >= 0 && n > f->max)) Raise(450);
            Value r;
            f->fn(Args{sp - n, n}, r);
            if (I->b) Raise(458);
            PopTo(E, sp - n);
            PushV(E, std::move(r));
            NEXT;
          }
          L_oCallV: {
            int n = I->c;
            AT;
            Value r;
            Index(sp[-n - 1], Args{sp - n, n}, I->a ? Inv::Call : Inv::Get, r);
            PopTo(E, sp - n - 1);
            PushV(E, std::move(r));
            NEXT;
          }
          L_oStIx: L_oSetIx: {
            int n = I->c + 1;
            bool set = I->op == oSetIx;
            if (isProp(*I)) {
              Value r;
              prop(*I, set ? Inv::Set : Inv::Let, Args{sp - n, n}, r);
            } else {
              StoreIx(var(*I, false), Args{sp - n, n}, set);
            }
            PopTo(E, sp - n);
            NEXT;
          }
          L_oMGet: L_oMCall: L_oMLet: L_oMSet: {
            int n = I->c + ((I->op == oMLet || I->op == oMSet) ? 1 : 0);
            AT;
            Value& ov = sp[-n - 1].Deref();
            if ((ov.t & vtArray) && (I->op == oMLet || I->op == oMSet) && K[I->a].s->len == 0) {
              // f(1)(2) = v where f(1) is an array
              StoreIx(ov, Args{sp - n, n}, I->op == oMSet);
              PopTo(E, sp - n - 1);
              NEXT;
            }
            if (ov.t != vtObject) Raise(424);
            if (!ov.o) Raise(I->op == oMCall ? 424 : 91);  // a method call on Nothing
            Ref<Obj> o(ov.o);
            const Value& nm = K[I->a];
            int id;
            if (nm.s->len == 0) id = 0;
            else if (o.get() == me) {
              int m = me->cls->Find(nm.Sv());  // Me reaches private members too
              id = m < 0 ? -1 : m + 1;
            } else {
              id = o->Id(nm.Sv());
            }
            if (id < 0) Raise(438);
            Inv k = I->op == oMGet ? Inv::Get : I->op == oMCall ? Inv::Call : I->op == oMLet ? Inv::Let : Inv::Set;
            if (k == Inv::Set) {
              Value& v = sp[-1];
              if (v.Deref().t != vtObject) Raise(424);
            }
            Value r;
            o->Invoke(id, k, Args{sp - n, n}, r);
            if (halted) throw Abort{};  // a member that waited saw the time-out (Poll)
            PopTo(E, sp - n - 1);
            if (k == Inv::Get || k == Inv::Call) PushV(E, std::move(r));
            NEXT;
          }
          L_oNew: PushV(E, NewInst(K[I->a].Sv())); NEXT;

          L_oAdd: L_oSub: L_oMul: {
            Value& x = rs[-2];
            Value& y = rs[-1];
            if (IsIntK(x) && IsIntK(y)) {
              int64_t a = IntOf(x), b = IntOf(y), v;
              v = I->op == oAdd ? a + b : I->op == oSub ? a - b : a * b;
              bool wide = x.t == vtLong || y.t == vtLong;
              if (!wide && v >= -32768 && v <= 32767) x.SetInt(int16_t(v));
              else if (v >= INT32_MIN && v <= INT32_MAX) x.SetLng(int32_t(v));
              else { x.t = vtDouble; x.d = double(v); }
              y.t = vtEmpty;
              sp = --rs;
              FAST;
            }
            if (x.t == vtDouble && y.t == vtDouble) {
              double v = I->op == oAdd ? x.d + y.d : I->op == oSub ? x.d - y.d : x.d * y.d;
              if (!std::isfinite(v)) Raise(6);
              x.d = v;
              y.t = vtEmpty;
              sp = --rs;
              FAST;
            }
            Value r = Arith(I->op, x, y);
            x = std::move(r);
            sp[-1] = Value();
            --sp;
            NEXT;
          }
          L_oMod: {
            Value& x = rs[-2];
            Value& y = rs[-1];
            if (IsIntK(x) && IsIntK(y)) {
              int32_t b = int32_t(IntOf(y));
              if (b == 0) Raise(11);
              int32_t v = b == -1 ? 0 : int32_t(IntOf(x)) % b;
              bool wide = x.t == vtLong || y.t == vtLong;
              if (wide) x.SetLng(v); else x.SetInt(int16_t(v));
              y.t = vtEmpty;
              sp = --rs;
              FAST;
            }
            Value r = Arith(I->op, x, y);
            x = std::move(r);
            sp[-1] = Value();
            --sp;
            NEXT;
          }
          L_oDiv: L_oIDiv: L_oPow: {
            Value r = Arith(I->op, sp[-2], sp[-1]);
            sp[-2] = std::move(r);
            sp[-1] = Value();
            --sp;
            NEXT;
          }
          L_oNeg: { Value r = Neg(sp[-1]); sp[-1] = std::move(r); NEXT; }
          L_oNot: { Value r = NotOp(sp[-1]); sp[-1] = std::move(r); NEXT; }
          L_oAnd: L_oOr: L_oXor: L_oEqv: L_oImp: {
            Value r = Logic(I->op, sp[-2], sp[-1]);
            sp[-2] = std::move(r);
            sp[-1] = Value();
            --sp;
            NEXT;
          }
          L_oCat: {
            Value& x = sp[-2];
            Value& y = sp[-1];
            if (x.t == vtString && x.s->rc == 1 && y.t != vtNull && y.t != vtObject) {
              // a temporary on the left grows in place: s & a & b ... copies s once
              Tx tmp;
              TxV add;
              if (y.t == vtString) add = y.Sv();
              else { tmp = ToTx(y); add = tmp; }
              uint32_t need = x.s->len + uint32_t(add.size());
              if (need > x.s->cap) {
                Charge(need);
                Str* n = Str::New(x.Sv(), std::max<uint32_t>(need, std::min<uint32_t>(x.s->cap * 2, kStrMax)));
                x.s->Release();
                x.s = n;
              }
              if (!add.empty()) std::memcpy(x.s->p() + x.s->len, add.data(), add.size() * sizeof(char16_t));
              x.s->len = need;
              x.s->p()[need] = 0;
            } else {
              Value r = Concat(x, y);
              x = std::move(r);
            }
            sp[-1] = Value();
            --sp;
            NEXT;
          }
          L_oEq: L_oNe: L_oLt: L_oGt: L_oLe: L_oGe: {
            Value& x = rs[-2];
            Value& y = rs[-1];
            int c;
            if (IsIntK(x) && IsIntK(y)) {
              int64_t a = IntOf(x), b = IntOf(y);
              bool v;
              switch (I->op) {
                case oEq: v = a == b; break;
                case oNe: v = a != b; break;
                case oLt: v = a < b; break;
                case oGt: v = a > b; break;
                case oLe: v = a <= b; break;
                default: v = a >= b; break;
              }
              x.SetBool(v);
              y.t = vtEmpty;
              sp = --rs;
              FAST;
            }
            c = Cmp(x, y, I->b);
            Value r;
            if (c == 2) {
              r = Value::Null();
            } else {
              bool v = false;
              switch (I->op) {
                case oEq: v = c == 0; break;
                case oNe: v = c != 0; break;
                case oLt: v = c < 0; break;
                case oGt: v = c > 0; break;
                case oLe: v = c <= 0; break;
                default: v = c >= 0; break;
              }
              r = Value(v);
            }
            if (x.t >= vtString) x = std::move(r);
            else { x.t = r.t; x.c = r.c; }
            Clear(sp[-1]);
            --sp;
            NEXT;
          }
          L_oIs: {
            bool v = IsSame(sp[-2], sp[-1]);
            sp[-2] = Value(v);
            sp[-1] = Value();
            --sp;
            NEXT;
          }
          L_oAppend: {
            if (isProp(*I)) {
              Value cur;
              prop(*I, Inv::Get, Args{}, cur);
              Value r = Concat(cur, sp[-1]);
              sp[-1] = std::move(r);
              prop(*I, Inv::Let, Args{sp - 1, 1}, cur);
              PopTo(E, sp - 1);
              NEXT;
            }
            Value& d = var(*I, true);
            Value& y = sp[-1];
            if (d.t == vtString && d.s->rc == 1 && (y.t == vtString || (y.t != vtNull && y.t != vtObject))) {
              Tx tmp;
              TxV add;
              if (y.t == vtString) add = y.Sv();
              else { tmp = ToTx(y); add = tmp; }
              uint32_t need = d.s->len + uint32_t(add.size());
              if (need > d.s->cap) {
                Charge(need);
                Str* n = Str::New(d.Sv(), std::max<uint32_t>({need, std::min<uint32_t>(d.s->cap * 2, kStrMax), 16u}));
                d.s->Release();
                d.s = n;
              }
              std::memcpy(d.s->p() + d.s->len, add.data(), add.size() * sizeof(char16_t));
              d.s->len = need;
              d.s->p()[need] = 0;
            } else {
              Value r = Concat(d, y);
              if (r.t == vtString && r.s->cap < r.s->len + 16) {
                Str* n = Str::New(r.Sv(), r.s->len * 2 + 16);
                r = Value::Take(n);
              }
              Value& d2 = var(*I, true);
              d2 = std::move(r);
            }
            sp[-1] = Value();
            --sp;
            NEXT;
          }

          L_oJmp:
            if (I->a <= ip - code) Tick();
            ip = code + I->a;
            FAST;
          L_oJf: {
            if (rs[-1].t == vtBoolean) {
              sp = --rs;
              bool t = rs->i != 0;
              rs->t = vtEmpty;
              if (!t) {
                if (I->a <= ip - code) Tick();
                ip = code + I->a;
              }
              FAST;
            }
            bool t = Truth(sp[-1]);
            Clear(sp[-1]);
            --sp;
            if (!t) {
              if (I->a <= ip - code) Tick();
              ip = code + I->a;
            }
            NEXT;
          }
          L_oJt: {
            bool t = Truth(sp[-1]);
            Clear(sp[-1]);
            --sp;
            if (t) {
              if (I->a <= ip - code) Tick();
              ip = code + I->a;
            }
            NEXT;
          }
          L_oForPrep: {
            const Ins& W = *ip++;
            // until the bounds are known the loop is not initialized (see oForNext)
            Clear(bp[I->c]);
            Clear(bp[I->c + 1]);
            Value step = ToNum(sp[-1]), lim = ToNum(sp[-2]), start = ToNum(sp[-3]);
            PopTo(E, sp - 3);
            if (step.t == vtNull || lim.t == vtNull || start.t == vtNull) Raise(94);
            bp[I->c] = lim;
            bp[I->c + 1] = step;
            Value& v = var(*I, true);
            v = start;
            int c = Cmp(start, lim);
            bool up2 = Cmp(step, Value(int16_t(0))) >= 0;
            if (up2 ? c > 0 : c < 0) ip = code + W.a;
            NEXT;
          }
          L_oForNext: {
            const Ins& W = *ip++;
            Tick();
            Value& v = I->b == mLocal ? bp[I->a].Deref() : var(*I, true);
            const Value& lim = bp[I->c];
            const Value& step = bp[I->c + 1];
            if (IsIntK(v) && IsIntK(step) && IsIntK(lim)) {
              int64_t n = IntOf(v) + IntOf(step);
              int64_t l = IntOf(lim);
              bool wide = v.t == vtLong || step.t == vtLong;
              if (!wide && n >= -32768 && n <= 32767) v.SetInt(int16_t(n));
              else if (n >= INT32_MIN && n <= INT32_MAX) v.SetLng(int32_t(n));
              else { v.t = vtDouble; v.d = double(n); }
              if (IntOf(step) >= 0 ? n <= l : n >= l) ip = code + W.a;
              FAST;
            }
            if (step.t == vtEmpty) Raise(92);  // its For failed before the loop began
            Value n = Arith(oAdd, v, step);
            v = n;
            int c = Cmp(n, lim);
            bool up2 = Cmp(step, Value(int16_t(0))) >= 0;
            if (up2 ? c <= 0 : c >= 0) ip = code + W.a;
            NEXT;
          }
          L_oFePrep: {
            const Ins& W = *ip++;
            Value coll = sp[-1].Deref();
            PopTo(E, sp - 1);
            if (coll.t & vtArray) {
              bp[I->c] = coll;
            } else if (coll.t == vtObject) {
              if (!coll.o) Raise(91);
              std::vector<Value> items;
              if (!coll.o->Items(items)) Raise(451);
              Charge(items.size());
              Arr* a = new Arr;
              a->dims.push_back({0, int32_t(items.size())});
              a->v = std::move(items);
              bp[I->c] = Value(a);
            } else {
              Raise(451);
            }
            Arr* a = bp[I->c].a;
            if (a->v.empty()) { bp[I->c] = Value(); ip = code + W.a; NEXT; }
            bp[I->c + 1] = Value(int32_t(1));
            var(*I, true) = a->v[0];
            NEXT;
          }
          L_oFeNext: {
            const Ins& W = *ip++;
            Tick();
            if (!(bp[I->c].t & vtArray)) Raise(92);
            Arr* a = bp[I->c].a;
            int32_t& pos = bp[I->c + 1].l;
            if (size_t(pos) < a->v.size()) {
              Value e = a->v[size_t(pos++)];
              var(*I, true) = std::move(e);
              ip = code + W.a;
            }
            NEXT;
          }
          L_oCaseEq: {
            int c = Cmp(bp[I->a], sp[-1], I->b);
            sp[-1] = Value(c == 0);
            NEXT;
          }
          L_oRet: return;
          L_oOnErr:
            onErr = I->a != 0;
            err = ErrState();
            NEXT;
          L_oErase: {
            Value& v = var(*I, true);
            if (!(v.t & vtArray)) Raise(13);
            if (v.a->locks) Raise(10);
            if (v.a->fixed) {
              for (Value& e : v.a->v) e = Value();
            } else {
              Arr* a = new Arr;
              v = Value(a);
            }
            NEXT;
          }
          L_oReDim: {
            const Ins& W = *ip++;
            int n = I->c;
            {
              // a fixed array refuses before its new bounds are even looked at
              Value& v = var(*I, true);
              if ((v.t & vtArray) && ((v.a->fixed && W.a != 2) || v.a->locks)) Raise(10);
            }
            std::vector<int32_t> ub(static_cast<size_t>(n));
            for (int k = 0; k < n; ++k) ub[size_t(k)] = ToLng(sp[-n + k]);
            PopTo(E, sp - n);
            Value hold(Arr::Make(ub.data(), ub.size()));
            Arr* a = hold.a;
            Charge(a->v.size());
            a->fixed = W.a == 2;  // a Dim with bounds, run where it stands
            Value& v = var(*I, true);
            if (W.a == 1 && (v.t & vtArray) && !v.a->dims.empty()) {
              Arr* o = v.a;
              if (o->dims.size() != a->dims.size()) Raise(9);
              for (size_t d = 0; d + 1 < a->dims.size(); ++d)
                if (o->dims[d].n != a->dims[d].n) Raise(9);
              size_t inner = 1;
              for (size_t d = 0; d + 1 < a->dims.size(); ++d) inner *= size_t(a->dims[d].n);
              size_t keep = inner * size_t(std::min(o->dims.back().n, a->dims.back().n));
              for (size_t k = 0; k < keep; ++k) a->v[k] = std::move(o->v[k]);
            }
            v = std::move(hold);
            NEXT;
          }
          L_oExec: {
            Value r;
            Value text = sp[-1];
            PopTo(E, sp - 1);
            ExecText(text, I->a, p, bp, me, r);
            if (I->a == 2) PushV(E, std::move(r));
            NEXT;
          }
          L_oFail: Raise(I->a);
          L_oWord: L_oNop: NEXT;
          L_default: Raise(51);
                }
#undef NEXT
#undef FAST
#undef AT
      }
}

// Runs a procedure whose frame is ready (bp: its slots). A handler here puts an
// error on the statement that raised it and, under On Error Resume Next, goes on
// after that statement. Built into its two callers, so that a call between
// procedures costs one C++ frame less.
[[gnu::always_inline]] inline void Engine::Exec(const Proc& p, Value* bp, Inst* me, Value* up) {
  const Ins* const code = p.code.data();
  const Ins* ip = code;
  bool onErr = false;
  Value* const base = bp + p.nslots;
  Engine& E = *this;
  // this procedure on the chain Where() reads; `at` is set where code calls out
  Frm fr{&p, nullptr, frm, code};
  frm = &fr;
  struct Pop {
    Engine& e;
    Frm* up;
    ~Pop() { e.frm = up; }
  } pop{E, fr.up};
  for (;;) {
    try {
      Steps(p, bp, me, up, ip, fr, onErr);
      return;
    } catch (Fault& f) {
      int pc = int(fr.cur - code);
      const StmtPos* st = FindStmt(p, pc);
      if (f.line == 0 && st) {
        f.line = st->line;
        f.col = st->col;
      }
      if (!onErr) throw;
      err.num = f.num;
      err.desc = f.desc;
      err.src = f.src.empty() ? Tx(u"Microsoft VBScript runtime error") : f.src;
      err.helpFile = std::move(f.helpFile);
      err.helpCtx = f.helpCtx;
      PopTo(E, base);
      ip = st && pc < st->to ? code + st->to : fr.cur + 1;
    } catch (std::exception&) {
      // a C++ failure inside a statement (memory, most of all) is error 7 there
      if (!onErr) throw Fault{7, ErrDesc(7), {}};
      err = ErrState();
      err.num = 7;
      err.desc = ErrDesc(7);
      err.src = u"Microsoft VBScript runtime error";
      PopTo(E, base);
      const StmtPos* st = FindStmt(p, int(fr.cur - code));
      ip = st ? code + st->to : fr.cur + 1;
    } catch (Abort&) {
      // the time-out: the innermost procedure it passes through tells where it struck
      if (!haltLine) {
        const StmtPos* st = FindStmt(p, int(fr.cur - code));
        haltLine = st ? st->line : 0;
      }
      throw;
    }
  }
}

// ---------------------------------------------------------------- built-ins of the engine
namespace {
void FnEval(Args a, Value& r) {
  Engine* e = CurEngine();
  Proc dummy;
  e->ExecText(a[0], 2, dummy, nullptr, nullptr, r);
}
void FnGetRef(Args a, Value& r) {
  Engine* e = CurEngine();
  int c = e->FindCell(ToTx(a[0]));
  if (c < 0 || e->cells[size_t(c)].kind != Cell::Proc) Raise(5);
  r = Value(Ref<Obj>(new ProcRef(e, e->cells[size_t(c)].proc)));
}
void FnCreateObject(Args a, Value& r) { r = Value(NewObj(ToTx(a[0]))); }
void FnScriptEngine(Args, Value& r) { r = Value(u"VBScript"); }
void FnMajor(Args, Value& r) { r = Value(int32_t(5)); }
void FnMinor(Args, Value& r) { r = Value(int32_t(8)); }
void FnBuild(Args, Value& r) { r = Value(int32_t(16384)); }
}  // namespace

void RegEngineFns() {
  DefFns({
      {"Eval", 1, 1, FnEval},
      {"GetRef", 1, 1, FnGetRef},
      {"CreateObject", 1, 2, FnCreateObject},
      {"ScriptEngine", 0, 0, FnScriptEngine},
      {"ScriptEngineMajorVersion", 0, 0, FnMajor},
      {"ScriptEngineMinorVersion", 0, 0, FnMinor},
      {"ScriptEngineBuildVersion", 0, 0, FnBuild},
  });
}

}  // namespace vbs
