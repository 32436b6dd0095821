// Engine: the state of one script engine and the machine that runs its code.
#pragma once
#include <algorithm>
#include <chrono>
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>
#include "Code.h"
#include "ScriptControl.h"

namespace vbs {

class Engine;

// A cell of the global table.
struct Cell {
  enum Kind : uint8_t { Undecl, Var, Const, Proc, Object, Member };
  Value v;
  Tx name;
  Kind kind = Undecl;
  vbs::Proc* proc = nullptr;
  int obj = -1;  // Member: the cell of the object added with addMembers
};

// An instance of a script class.
class Inst : public Obj {
 public:
  Inst(Engine* e, Class* c);
  Engine* eng;
  std::shared_ptr<bool> alive;  // false once the engine is gone: no Class_Terminate then
  Class* cls;
  std::vector<Value> f;  // fields
  bool terminated = false;
  Tx TypeName() override { return cls->name; }
  int Id(TxV name) override;
  void Invoke(int id, Inv k, Args a, Value& r) override;
  void Last() override;
  // Runs member m as a read, a call or an assignment (value last in a).
  void Member(int m, Inv k, Args a, Value& r);
};

// What a compiled text refers to outside itself, and the scope it compiles in.
struct Scope {
  const Proc* up = nullptr;  // Execute or Eval inside a procedure: its frame's names
  Class* cls = nullptr;      // ... and the class that procedure belongs to
};

// The last error, as the Err object shows it.
struct ErrState {
  int32_t num = 0;
  Tx desc, src;
  Tx helpFile;
  int32_t helpCtx = 0;
  int32_t line = 0, col = 0;
};

class Engine {
 public:
  Engine();
  ~Engine();

  // ---- global table
  std::deque<Cell> cells;
  std::vector<Cell*> cp;               // the same cells, for quick indexing
  std::unordered_map<Tx, int> byName;  // upper-cased name to cell
  int CellOf(TxV name);                // finds or makes a cell
  int FindCell(TxV name) const;        // -1 when none
  std::unordered_map<Tx, Class*> classes;
  std::vector<std::unique_ptr<Unit>> units;
  // code dropped by Reset, kept while objects made by it may still be held outside
  std::vector<std::unique_ptr<Unit>> retired;
  std::shared_ptr<bool> alive = std::make_shared<bool>(true);
  std::vector<Proc*> procOrder;        // global procedures, declaration order
  bool explicit_ = false;              // Option Explicit seen
  std::vector<std::pair<Tx, bool>> objNames;  // objects added with their addMembers flag

  // ---- compiling (Compile.cpp)
  // Compiles a text as statements, or as one expression when expr is true.
  std::unique_ptr<Unit> Compile(TxV text, bool expr, const Scope& sc);
  // Makes a compiled text's declarations live (procedures, classes, constants, variables).
  void Install(Unit& u);

  // ---- running (Vm.cpp)
  std::unique_ptr<Value[]> stk;
  Value* sp = nullptr;
  Value* stkEnd = nullptr;
  int depth = 0;
  // the native stack: where the outermost run began, and the most that calls,
  // Execute and the parser's nesting may take below it before failing with 28
  char* stackTop = nullptr;
  static constexpr long kNativeStack = 4L << 20;
  bool StackLow() const {
    char here;
    return stackTop && stackTop - &here > kNativeStack;
  }
  // arrays locked while one of their elements is passed by reference: the
  // stack slot holding the reference, and the array
  std::vector<std::pair<Value*, Arr*>> elemLocks;
  ErrState err;
  Ref<Obj> errObj;
  // The procedures running, innermost first, each with the instruction that last
  // called out of it (a built-in, an object's member): what Where() reads.
  struct Frm {
    const Proc* p;
    const Ins* at;
    Frm* up;
    const Ins* cur;  // the instruction running, for the handlers of Exec
  };
  Frm* frm = nullptr;
  std::shared_ptr<HostPolicy> policy;
  // The line where the time-out stopped the run, in the text of the innermost
  // procedure it stopped, which sets it as the stop unwinds through it.
  int32_t haltLine = 0;
  // The host's time-out. Loop steps and calls count one tick each, built-ins
  // that did large work count what they did (Charge); when the ticks of a
  // quantum are spent TickSlow reads the clock. The quantum adapts so that the
  // clock is read about every kReadNs whatever a step costs: it doubles after a
  // quick quantum (up to kMaxQuantum) and shrinks after a slow one.
  long timeoutMs = -1;
  std::chrono::steady_clock::time_point deadline, lastRead;
  // The host's pulse (ScriptControl::Pulse), read with the clock: it makes a
  // call timed even without a time-out.
  std::function<bool()> pulse;
  std::chrono::milliseconds pulseEvery{100};
  std::chrono::steady_clock::time_point nextPulse;
  bool timed = false;
  // the time-out stopped this run: every later step stops too. A time-out
  // inside Class_Terminate cannot leave it (the release that ran it may be in a
  // destructor), so the assignments and returns that release values look at it
  bool halted = false;
  int tick = 0;
  int quantum = 0;
  static constexpr int kMaxQuantum = 4096;
  static constexpr long kReadNs = 1000000;

  void RunMain(Proc& p, Value* up = nullptr, Inst* me = nullptr, Value* result = nullptr);
  // Calls a procedure with the arguments as given (by reference where they are refs).
  void CallProc(const Proc& p, Inst* me, Args a, Value& r);
  // Calls the procedure whose arguments lie on the stack (argc of them); leaves its result there.
  void CallStk(const Proc& p, Inst* me, int argc);
  void CallIn(const Proc& p, Inst* me, int argc);
  void Exec(const Proc& p, Value* bp, Inst* me, Value* up);
  void Steps(const Proc& p, Value* bp, Inst* me, Value* up, const Ins* ip, Frm& fr, bool& onErr);
  Value NewInst(TxV cls);
  void Terminate(Inst* o);
  void Tick() { if (timed && --tick <= 0) TickSlow(); }
  // Counts n characters or elements of work, one tick per 32.
  void Charge(size_t n) {
    if (timed && (tick -= int(std::min<size_t>(n >> 5, size_t(1) << 24))) <= 0) TickSlow();
  }
  void TickSlow();
  // Reads the clock and the host's pulse as TickSlow does between steps, without
  // stopping: false, with the run halted, when the time-out has passed or the pulse
  // says stop. A built-in that waits long (for a program's end) calls it while it
  // waits, so that the wait ends and the run stops at its next step.
  bool Poll();
  bool Poll(std::chrono::steady_clock::time_point& now);  // now: the clock as last read
  void Reset();
  void StartClock();
  // Execute, ExecuteGlobal and Eval from running code: kind 0, 1, 2.
  void ExecText(const Value& text, int kind, const Proc& p, Value* bp, Inst* me, Value& r);
};

// The engine whose code runs on this thread (for built-ins such as Eval and GetRef).
Engine* CurEngine();
// Makes an engine the current one for a scope.
struct UseEngine {
  Engine* saved;
  explicit UseEngine(Engine* e);
  ~UseEngine();
};
// A timeout: stops the script whatever handlers it has.
struct Abort {};

// Empties a value; scalars without a call.
inline void Clear(Value& v) {
  if (v.t >= vtString) v = Value();
  else v.t = vtEmpty;
}

// Assigns by Let: objects give their default value, arrays are copied.
void LetTo(Value& dst, Value&& src);
void SetTo(Value& dst, Value&& src);

// Operators (Ops.cpp).
Value Arith(int op, const Value& x, const Value& y);
Value Neg(const Value& x);
Value NotOp(const Value& x);
Value Logic(int op, const Value& x, const Value& y);
Value Concat(const Value& x, const Value& y);
// <0, 0, >0, or 2 when either side is Null. lit is 1 or 2 when the left or the
// right side is a literal of the program, which the other side is converted to.
int Cmp(const Value& x, const Value& y, int lit = 0);
bool IsSame(const Value& x, const Value& y);
Arr* CloneArr(const Arr* a);

}  // namespace vbs
