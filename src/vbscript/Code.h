// Code: the compiled form of a script: instructions, procedures and classes.
// Each text given to the engine is compiled once. Names are resolved when the
// whole text has been read: a procedure's parameters and Dims become slots of
// its frame, a class's fields become slots of the instance, everything else a
// cell of the global table (or a built-in, or a constant folded in place).
#pragma once
#include <memory>
#include <unordered_map>
#include <vector>
#include "Value.h"

namespace vbs {

// The instruction set, one X(name) per opcode: the enum and the machine's dispatch
// table are both generated from this list, so they cannot fall out of step.
#define VBS_OPS(X) \
  /* stack */ \
  X(oPushK) X(oPushI) X(oPushE) X(oPop) X(oMe) \
  /* variables by addressing mode (b holds the mode: see Md) */ \
  X(oLd) X(oSt) X(oSet) X(oRef) \
  X(oLdL) X(oStL)   /* locals, the common case */ \
  /* oLdL that leads oPushI and an operator: the three in one step when the local is an integer */ \
  X(oLdLAddI) X(oLdLSubI) X(oLdLMulI) X(oLdLModI) X(oLdLCmpI) \
  X(oLdG) X(oStG)   /* globals */ \
  X(oKeep)          /* stores the top in local a as it is (an expression's result) */ \
  X(oRefIx)         /* name(i...) as an argument: an element of an array by reference, else as oCall */ \
  X(oCall)          /* name with argc arguments (c): procedure call, array element or default member */ \
  X(oCallB)         /* built-in a with argc (c) */ \
  X(oCallV)         /* value on the stack under argc arguments: element or default member */ \
  X(oStIx)          /* value, then argc indexes: x(i) = value (mode b, name a, argc c) */ \
  X(oSetIx) \
  X(oMGet) X(oMCall) X(oMLet) X(oMSet)  /* member a (constant pool name) of an object, argc c */ \
  X(oNew)           /* a: class name (constant pool) */ \
  /* operators; a comparison's b tells which side is a literal (1 left, 2 right) */ \
  X(oAdd) X(oSub) X(oMul) X(oDiv) X(oIDiv) X(oMod) X(oPow) X(oNeg) X(oNot) \
  X(oAnd) X(oOr) X(oXor) X(oEqv) X(oImp) X(oCat) \
  X(oEq) X(oNe) X(oLt) X(oGt) X(oLe) X(oGe) X(oIs) \
  X(oAppend)        /* x = x & value, in place when x holds the only reference (mode b, name a) */ \
  /* control */ \
  X(oJmp) X(oJf) X(oJt) \
  X(oForPrep) X(oForNext)  /* var (mode b, a); c = hidden slot of limit (step at c + 1); next: jump target in a */ \
  X(oFePrep) X(oFeNext)    /* var (mode b, a); c = hidden slots of items and position; jump target follows */ \
  X(oCaseEq)        /* compares a hidden slot (a) with the top, pushes the result; b as for comparisons */ \
  X(oRet) \
  X(oOnErr)         /* a: 1 Resume Next, 0 GoTo 0 */ \
  X(oErase) X(oReDim)  /* mode b, name a, c = dims; ReDim: a following oWord holds Preserve in a */ \
  X(oExec)          /* a: 0 Execute, 1 ExecuteGlobal; text on the stack */ \
  X(oFail)          /* raises run-time error a (code that compiles but cannot run) */ \
  X(oWord)          /* an operand word of the instruction before */ \
  X(oNop)

enum Op : uint16_t {
#define VBS_OP_ENUM(n) n,
  VBS_OPS(VBS_OP_ENUM)
#undef VBS_OP_ENUM
  kNumOps
};

// Addressing modes of a name.
enum Md : uint16_t {
  mLocal,   // slot of the frame
  mGlobal,  // cell of the global table
  mMember,  // member of the instance (Me) the procedure runs on
  mUp,      // slot of the frame that ran Execute or Eval
  mDyn,     // undeclared in a procedure: entry a of its dyn table (a global if one exists, else a slot)
  mName,    // not yet resolved: index in the unit's name table (compile time only)
};

struct Ins {
  uint16_t op;
  uint16_t b;
  int32_t a;
  int32_t c;
};

// Where each statement's code lies, for error lines and Resume Next.
struct StmtPos {
  int32_t from, to;  // instructions [from, to)
  int32_t line, col;
};

struct Class;

struct Proc {
  enum Kind : uint8_t { Global, Sub, Function, PropGet, PropLet, PropSet };
  Tx name;
  Kind kind = Global;
  bool pub = true;
  bool dflt = false;
  int nargs = 0;
  std::vector<bool> byval;
  bool anyByval = false;
  int nslots = 0;      // arguments, result, locals, hidden slots
  int result = -1;     // slot of the result (Function, Property Get)
  int maxStack = 0;    // the most values its expressions hold on the stack at once
  std::vector<Tx> slotNames;
  struct ArrInit { uint16_t mode; int32_t idx; std::vector<int32_t> ub; };
  std::vector<ArrInit> arrays;  // fixed arrays made on entry
  std::vector<Ins> code;
  std::vector<Value> k;         // constants
  std::vector<const struct FnDef*> fns;  // built-ins it calls
  std::vector<std::pair<int32_t, int32_t>> dyn;  // undeclared names: global cell and own slot
  std::vector<StmtPos> stmts;
  Class* cls = nullptr;
  std::shared_ptr<const Tx> src;  // the text it came from, for error lines
  int lineBase = 0;
};

struct Member {
  Tx name;
  bool pub = true;
  int field = -1;              // slot of a field
  std::vector<int32_t> ub;     // bounds of a fixed-array field
  bool isArr = false;
  Proc* call = nullptr;        // Sub or Function
  Proc* get = nullptr;
  Proc* let = nullptr;
  Proc* set = nullptr;
};

struct Class {
  Tx name;
  std::vector<Member> mems;
  std::unordered_map<Tx, int> byName;  // upper-cased name to member index
  int nfields = 0;
  int dflt = -1;  // member index of the default, or -1
  Proc* init = nullptr;
  Proc* term = nullptr;
  int Find(TxV name) const;
};

// One compiled text: its global code, procedures and classes.
struct Unit {
  std::unique_ptr<Proc> main;
  std::vector<std::unique_ptr<Proc>> procs;
  std::vector<std::unique_ptr<Class>> classes;
  std::vector<Tx> decls;                       // upper-cased globals it declares
  std::vector<std::pair<Tx, Value>> consts;    // its global constants
  bool explicit_ = false;                      // Option Explicit
};

}  // namespace vbs
