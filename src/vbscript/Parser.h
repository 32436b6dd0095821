// Parser: the compiler's one state, shared by the files that make it up. A text
// is read in one pass: each statement's routine parses it and emits its code at
// once; expressions are parsed into a small tree first (Ex), because the same
// chain (a.b(1).c) is read, assigned, called or passed by reference depending on
// what follows it. Names are left unresolved until the whole text is read, since
// a Dim or a procedure may come after its first use.
//
//   Compile.cpp    entry points: a program, an expression
//   Parse.cpp      expressions and simple statements
//   ParseDecl.cpp  Dim, Const, ReDim, procedures, classes
//   ParseFlow.cpp  If, Select, loops, With, Exit, On Error
//   Gen.cpp        code of expression trees, calls and stores; the fused instructions
//   Fold.cpp       constant values: Const expressions, array bounds
//   Resolve.cpp    names to slots, members, globals, constants or built-ins
//
// Grammar lines on the parsing routines use { } for repetition, [ ] for an
// option, | for a choice and quotes for literal tokens; NL is a line end or ":".
#pragma once
#include <cmath>
#include <deque>
#include "Builtins.h"
#include "Engine.h"
#include "Lexer.h"
#include "Locale.h"

namespace vbs::cmp {

// A node of an expression tree.
struct Ex {
  enum K { Lit, Name, Mem, Idx, Me, New, Un, Bin, Paren, Missing } k;
  int op = 0;  // operator: the token's character or keyword
  Value lit;
  Tx name;
  Ex* a = nullptr;
  Ex* b = nullptr;
  std::vector<Ex*> args;
  bool call = false;  // written with an argument list in parentheses
  int parenPos = -1;  // token index of that list's "("
  int line = 0, col = 0;
};

// Operators written as keywords, beside those written as one character.
enum : int { opIs = 1000, opAnd, opOr, opXor, opEqv, opImp, opMod, opNot };

// An instruction whose name operand waits for resolution (ins -1: a global array's bounds).
struct NameRef {
  Proc* proc;
  size_t ins;
  Tx name;
};

// An open Do or For loop and the jumps of its Exit statements.
struct Loop {
  int kind;  // kDo, kFor
  std::vector<size_t> exits;
};

class Parser {
 public:
  Parser(Engine& e, TxV src, const Scope& sc);
  std::unique_ptr<Unit> Program();
  std::unique_ptr<Unit> Expression();

 private:
  Engine& E;
  Scope sc_;
  std::vector<Tok> T;
  size_t p = 0;
  std::unique_ptr<Unit> U;
  Proc* P = nullptr;
  Class* C = nullptr;
  std::vector<NameRef> refs;
  std::unordered_map<Proc*, std::unordered_map<Tx, Value>> consts;  // per procedure; main: globals
  std::vector<Loop> loops;
  std::vector<int> withs;
  std::deque<Ex> arena;
  std::unordered_map<Tx, int> gdecl;  // globals this text declares
  bool explicit_ = false;
  bool inSingleIf = false;
  bool fieldPub_ = true;  // a class's Dim list declares public fields
  int nextPending_ = 0;   // names of a "Next i, j" not yet matched to their loops

  // ---------------------------------------------------------------- tokens
  // The current token, and the one n ahead (the last, Eof, past the end).
  const Tok& Cur() const { return T[p]; }
  const Tok& Peek(int n = 1) const { return T[std::min(p + n, T.size() - 1)]; }
  // Moves to the next token; Eof stays put, so reading past it is harmless.
  void Next() { if (p + 1 < T.size()) ++p; }
  // A compile error at the current token.
  [[noreturn]] void Fail(int num) { CompErr(num, Cur().line, Cur().col); }
  // Whether the current token is keyword k, operator c, or the unreserved word w.
  bool IsKw(Kw k) const { return Cur().k == tKw && Cur().kw == k; }
  bool IsOp(char16_t c) const { return Cur().k == tOp && Cur().op == c; }
  bool IsWord(const char16_t* w) const { return Cur().k == tId && EqNoCase(Cur().s, w); }
  // Takes keyword k or operator c, failing with err when something else stands there.
  void Want(Kw k, int err) { if (!IsKw(k)) Fail(err); Next(); }
  void WantOp(char16_t c, int err) { if (!IsOp(c)) Fail(err); Next(); }
  // The end of a statement: a line end or ":", an Else of a one-line If, or an
  // End, which may close a block on the line of its last statement.
  bool AtEnd() const {
    return Cur().k == tNl || Cur().k == tEof ||
           (Cur().k == tKw && (Cur().kw == kEnd || (inSingleIf && Cur().kw == kElse)));
  }
  // "End <kw>" at the current token.
  bool AtEndOf(Kw k) const { return IsKw(kEnd) && Peek().k == tKw && Peek().kw == k; }
  // "Property Get/Let/Set": a property's header rather than a name.
  bool PropHead(int at = 0) const {
    const Tok& t = Peek(at);
    const Tok& n = Peek(at + 1);
    return t.k == tKw && t.kw == kProperty &&
           ((n.k == tId && (EqNoCase(n.s, u"Get") || EqNoCase(n.s, u"Let"))) || (n.k == tKw && n.kw == kSet));
  }
  // Skips empty statements.
  void SkipNl() { while (Cur().k == tNl) Next(); }
  // A statement's end: Eof, or one or more NL; anything else is error 1025.
  void EndStmt() {
    if (Cur().k == tEof) return;
    if (Cur().k != tNl) Fail(1025);
    SkipNl();
  }
  // A name; "Property" is reserved only in a property's header.
  Tx Ident() {
    if (Cur().k != tId && !IsKw(kProperty)) Fail(1010);
    Tx s = Cur().s;
    Next();
    return s;
  }
  // A member name after ".": any word, reserved or not.
  Tx MemberName() {
    if (Cur().k != tId && Cur().k != tKw) Fail(1010);
    Tx s = Cur().s;
    Next();
    return s;
  }

  // ---------------------------------------------------------------- emitting
  // The index the next instruction of the current procedure gets.
  int Here() const { return int(P->code.size()); }
  // Appends an instruction; returns its index, for a later Patch.
  size_t Emit(uint16_t op, int32_t a = 0, uint16_t b = 0, int32_t c = 0) {
    P->code.push_back(Ins{op, b, a, c});
    return P->code.size() - 1;
  }
  // Appends an instruction on a name and records it for resolution at the end of the text.
  size_t EmitName(uint16_t op, const Tx& name, int32_t c = 0) {
    size_t at = Emit(op, int32_t(refs.size()), mName, c);
    refs.push_back(NameRef{P, at, name});
    return at;
  }
  // Adds a value to the procedure's constant pool; returns its index.
  int K(const Value& v) {
    P->k.push_back(v);
    return int(P->k.size() - 1);
  }
  // Points the jump at `at` to the next instruction.
  void Patch(size_t at) { P->code[at].a = Here(); }
  // Reserves n unnamed slots of the frame (a Select's value, a loop's limit); returns the first.
  int Hidden(int n) {
    int s = P->nslots;
    P->nslots += n;
    for (int i = 0; i < n; ++i) P->slotNames.push_back(Tx());
    return s;
  }
  // Records that instructions [from, Here()) are the statement at line, col.
  void Mark(int from, int line, int col) {
    P->stmts.push_back(StmtPos{from, Here(), line, col});
  }
  // A tree node of kind k at the current token; the arena keeps it until the text is compiled.
  Ex* New(Ex::K k) {
    arena.emplace_back();
    Ex* e = &arena.back();
    e->k = k;
    e->line = Cur().line;
    e->col = Cur().col;
    return e;
  }

  // ---------------------------------------------------------------- expressions (Parse.cpp)
  // Nesting guard: a text nested deeper than this fails instead of exhausting the stack.
  static constexpr int kNest = 400;
  int nest_ = 0;
  struct Nest {
    Parser& ps;
    explicit Nest(Parser& p) : ps(p) {
      if (++ps.nest_ > kNest || ps.E.StackLow()) CompErr(28, ps.Cur().line, ps.Cur().col);
    }
    ~Nest() { --ps.nest_; }
  };
  Ex* Expr();
  int OpAt(int level) const;
  Ex* Binary(int level);
  Ex* Unary();
  Ex* Signed();
  Ex* Power();
  void ArgList(std::vector<Ex*>& out);
  Ex* Primary();
  Ex* Postfix();

  // ---------------------------------------------------------------- statements (Parse.cpp)
  void TopStatement();
  void Statement();
  void Assign(bool set);
  void CallOf(Ex* t);
  void ArgsNoParen(std::vector<Ex*>& out);
  void CallStmt();

  // ---------------------------------------------------------------- declarations (ParseDecl.cpp)
  void DimList();
  void DeclVar(const Tx& name, bool isArr, const std::vector<int32_t>& ub, int line, int col);
  int DeclLocal(const Tx& name);
  void DeclLocalIfNew(const Tx& name);
  void ConstDecl();
  void ReDim();
  void ProcDecl(bool pub, bool dflt);
  void ClassMember(Proc* pr, int line, int col);
  void ClassDecl();

  // ---------------------------------------------------------------- control flow (ParseFlow.cpp)
  void Block();
  void SingleLineBody();
  void IfStmt();
  void SelectStmt();
  void ForStmt();
  void ForBody(uint16_t next, const Tx& var, int h, int from, int line, int col);
  void ForNextWord();
  void DoStmt();
  void WhileStmt();
  void WithStmt();
  void ExitStmt();
  void OnError();

  // ---------------------------------------------------------------- code (Gen.cpp)
  // How deep the value stack gets: sd_ values lie on it while the code being
  // generated runs, and the procedure's frame reserves its deepest point.
  int sd_ = 0;
  // Notes that n more values lie on the stack at this point of the code.
  void Peak(int n) { P->maxStack = std::max(P->maxStack, sd_ + n); }
  void Gen(Ex* e);
  void GenAll(const std::vector<Ex*>& xs, bool asArgs);
  void GenArgsOver(const std::vector<Ex*>& xs);
  static uint16_t BinOp(int op);
  static bool IsLit(const Ex* x);
  static int LitSide(const Ex* b);
  void Obj0(Ex* e);
  void Arg(Ex* e);
  void CallCode(Ex* t);
  void Store(Ex* t, Ex* v, bool set);
  static void Fuse(Proc& pr);

  // ---------------------------------------------------------------- constants (Fold.cpp)
  const Value* FindConstVal(const Tx& name);
  Value Fold(Ex* e);
  int32_t ConstInt();

  // ---------------------------------------------------------------- names (Resolve.cpp)
  // What a name turned out to be, with its slot, member, cell, value or built-in.
  struct Res {
    enum { Slot, Up, Member, Global, Const, Builtin, Dyn } k;
    int idx = 0;
    Value v;
  };
  bool Declared(const Tx& name);
  static int SlotIn(const Proc* pr, const Tx& name, bool skipResult);
  Res Resolve(Proc* pr, const Tx& name, bool isCall, bool isStore);
  void Finish();
};

}  // namespace vbs::cmp
