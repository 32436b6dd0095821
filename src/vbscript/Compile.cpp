// Compile: parses a script text and turns it into instructions in one pass.
// Expressions are parsed into a small tree first, because the same chain
// (a.b(1).c) is read, assigned, called or passed by reference depending on what
// follows it. Names are left unresolved until the whole text is read, since a
// Dim or a procedure may come after its first use.
#include <cmath>
#include <deque>
#include "Builtins.h"
#include "Engine.h"
#include "Lexer.h"
#include "Locale.h"

namespace vbs {

int Class::Find(TxV name) const {
  auto it = byName.find(TxMaiVb(name));
  return it == byName.end() ? -1 : it->second;
}

namespace {

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

enum : int { opIs = 1000, opAnd, opOr, opXor, opEqv, opImp, opMod, opNot };

struct NameRef {
  Proc* proc;
  size_t ins;
  Tx name;
};

struct Loop {
  int kind;  // kDo, kFor
  std::vector<size_t> exits;
};

class Parser {
 public:
  Parser(Engine& e, TxV src, const Scope& sc) : E(e), sc_(sc) {
    T = Lex(src);
    U = std::make_unique<Unit>();
    U->main = std::make_unique<Proc>();
    U->main->kind = Proc::Global;
    P = U->main.get();
  }

  std::unique_ptr<Unit> Program() {
    SkipNl();
    while (Cur().k != tEof) {
      TopStatement();
      EndStmt();
    }
    Emit(oRet);
    Finish();
    return std::move(U);
  }

  std::unique_ptr<Unit> Expression() {
    P->result = Hidden(1);
    SkipNl();
    int from = Here();
    Ex* e = Expr();
    SkipNl();
    if (Cur().k != tEof) Fail(1025);
    Gen(e);
    Emit(oKeep, P->result);
    Mark(from, e->line, e->col);
    Emit(oRet);
    Finish();
    return std::move(U);
  }

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

  // ---------------------------------------------------------------- tokens
  const Tok& Cur() const { return T[p]; }
  const Tok& Peek(int n = 1) const { return T[std::min(p + n, T.size() - 1)]; }
  void Next() { if (p + 1 < T.size()) ++p; }
  [[noreturn]] void Fail(int num) { CompErr(num, Cur().line, Cur().col); }
  bool IsKw(Kw k) const { return Cur().k == tKw && Cur().kw == k; }
  bool IsOp(char16_t c) const { return Cur().k == tOp && Cur().op == c; }
  bool IsWord(const char16_t* w) const { return Cur().k == tId && EqNoCase(Cur().s, w); }
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
  void SkipNl() { while (Cur().k == tNl) Next(); }
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
  int Here() const { return int(P->code.size()); }
  size_t Emit(uint16_t op, int32_t a = 0, uint16_t b = 0, int32_t c = 0) {
    P->code.push_back(Ins{op, b, a, c});
    return P->code.size() - 1;
  }
  size_t EmitName(uint16_t op, const Tx& name, int32_t c = 0) {
    size_t at = Emit(op, int32_t(refs.size()), mName, c);
    refs.push_back(NameRef{P, at, name});
    return at;
  }
  int K(const Value& v) {
    P->k.push_back(v);
    return int(P->k.size() - 1);
  }
  void Patch(size_t at) { P->code[at].a = Here(); }
  int Hidden(int n) {
    int s = P->nslots;
    P->nslots += n;
    for (int i = 0; i < n; ++i) P->slotNames.push_back(Tx());
    return s;
  }
  void Mark(int from, int line, int col) {
    P->stmts.push_back(StmtPos{from, Here(), line, col});
  }

  Ex* New(Ex::K k) {
    arena.emplace_back();
    Ex* e = &arena.back();
    e->k = k;
    e->line = Cur().line;
    e->col = Cur().col;
    return e;
  }

  // ---------------------------------------------------------------- expressions
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

  Ex* Expr() {
    Nest guard(*this);
    return Binary(0);
  }

  // Binary levels, loosest first: Imp, Eqv, Xor, Or, And, (Not), comparisons, &, + -, Mod, \, * /
  int OpAt(int level) const {
    const Tok& t = Cur();
    switch (level) {
      case 0: return t.k == tKw && t.kw == kImp ? opImp : 0;
      case 1: return t.k == tKw && t.kw == kEqv ? opEqv : 0;
      case 2: return t.k == tKw && t.kw == kXor ? opXor : 0;
      case 3: return t.k == tKw && t.kw == kOr ? opOr : 0;
      case 4: return t.k == tKw && t.kw == kAnd ? opAnd : 0;
      case 6:
        if (t.k == tKw && t.kw == kIs) return opIs;
        if (t.k == tOp && (t.op == '=' || t.op == '<' || t.op == '>' || t.op == 'l' || t.op == 'g' || t.op == 'n')) return t.op;
        return 0;
      case 7: return t.k == tOp && t.op == '&' ? '&' : 0;
      case 8: return t.k == tOp && (t.op == '+' || t.op == '-') ? t.op : 0;
      case 9: return t.k == tKw && t.kw == kMod ? opMod : 0;
      case 10: return t.k == tOp && t.op == '\\' ? '\\' : 0;
      case 11: return t.k == tOp && (t.op == '*' || t.op == '/') ? t.op : 0;
    }
    return 0;
  }

  Ex* Binary(int level) {
    if (level == 5) {
      if (IsKw(kNot)) {
        Nest guard(*this);
        Ex* e = New(Ex::Un);
        Next();
        e->op = opNot;
        e->a = Binary(5);
        return e;
      }
      return Binary(6);
    }
    if (level == 12) return Unary();
    Ex* l = Binary(level + 1);
    for (int op; (op = OpAt(level)) != 0;) {
      Ex* e = New(Ex::Bin);
      Next();
      e->op = op;
      e->a = l;
      e->b = Binary(level + 1);
      l = e;
    }
    return l;
  }

  // Negation binds tighter than "^": -3 ^ 2 is 9, 2 ^ -1 is 0.5. A run of signs
  // is read in a loop, so that a long one costs no stack.
  Ex* Unary() { return Power(); }

  Ex* Signed() {
    int line = Cur().line, col = Cur().col;
    bool neg = false;
    while (IsOp('-') || IsOp('+')) {
      if (IsOp('-')) neg = !neg;
      Next();
    }
    Ex* x = Postfix();
    if (!neg) return x;
    Ex* e = New(Ex::Un);
    e->op = '-';
    e->a = x;
    e->line = line;
    e->col = col;
    return e;
  }

  Ex* Power() {
    Ex* l = Signed();
    while (IsOp('^')) {
      Ex* e = New(Ex::Bin);
      Next();
      e->op = '^';
      e->a = l;
      e->b = Signed();
      l = e;
    }
    return l;
  }

  void ArgList(std::vector<Ex*>& out) {
    // at "(": arguments, any of them may be left out
    Next();
    if (IsOp(')')) { Next(); return; }
    for (;;) {
      if (IsOp(',')) {
        out.push_back(New(Ex::Missing));
      } else if (IsOp(')')) {
        out.push_back(New(Ex::Missing));
      } else {
        out.push_back(Expr());
      }
      if (IsOp(',')) { Next(); continue; }
      WantOp(')', 1006);
      break;
    }
  }

  Ex* Primary() {
    const Tok& t = Cur();
    Ex* e;
    switch (t.k) {
      case tNum: case tDate:
        e = New(Ex::Lit); e->lit = t.v; Next(); return e;
      case tStr:
        e = New(Ex::Lit); e->lit = Value(t.s); Next(); return e;
      case tId:
        e = New(Ex::Name); e->name = t.s; Next(); return e;
      case tKw:
        switch (t.kw) {
          case kTrue: e = New(Ex::Lit); e->lit = Value(true); Next(); return e;
          case kFalse: e = New(Ex::Lit); e->lit = Value(false); Next(); return e;
          case kEmpty: e = New(Ex::Lit); Next(); return e;
          case kNull: e = New(Ex::Lit); e->lit = Value::Null(); Next(); return e;
          case kNothing: e = New(Ex::Lit); e->lit = Value::Nothing(); Next(); return e;
          case kMe:
            if (!P->cls && !sc_.cls) Fail(1037);
            e = New(Ex::Me); Next(); return e;
          case kNew:
            e = New(Ex::New); Next(); e->name = Ident(); return e;
          case kProperty:
            e = New(Ex::Name); e->name = t.s; Next(); return e;
          default: break;
        }
        break;
      case tOp:
        if (t.op == '(') {
          e = New(Ex::Paren);
          Next();
          e->a = Expr();
          WantOp(')', 1006);
          return e;
        }
        if (t.op == '.') {
          e = New(Ex::Mem);
          Next();
          e->name = MemberName();
          return e;
        }
        break;
      default: break;
    }
    Fail(1023);
  }

  // A chain of members and indexes (a.b(1).c) nests its code as deep as it is
  // long, so each link counts against the nesting guard.
  Ex* Postfix() {
    Ex* e = Primary();
    for (int links = 0;; ++links) {
      if (nest_ + links > kNest) CompErr(28, Cur().line, Cur().col);
      if (IsOp('.') && !Cur().space) {
        Ex* m = New(Ex::Mem);
        Next();
        m->a = e;
        m->name = MemberName();
        e = m;
      } else if (IsOp('(') && e->k != Ex::Lit && e->k != Ex::New) {
        int at = int(p);
        // (f)(x) calls f, as f(x) does, however many parentheses enclose the name
        Ex* in = e;
        while (in->k == Ex::Paren) in = in->a;
        if (in != e && in->k == Ex::Name && !in->call) e = in;
        if ((e->k == Ex::Name || e->k == Ex::Mem) && !e->call) {
          e->call = true;
          e->parenPos = at;
          ArgList(e->args);
        } else {
          Ex* x = New(Ex::Idx);
          x->a = e;
          x->call = true;
          x->parenPos = at;
          ArgList(x->args);
          e = x;
        }
      } else {
        return e;
      }
    }
  }

  // ---------------------------------------------------------------- expression code
  // How deep the value stack gets: sd_ values lie on it while the code being
  // generated runs, and the procedure's frame reserves its deepest point.
  int sd_ = 0;
  void Peak(int n) { P->maxStack = std::max(P->maxStack, sd_ + n); }
  // Code for values that stay on the stack one above the other (arguments, indexes).
  void GenAll(const std::vector<Ex*>& xs, bool asArgs) {
    for (Ex* x : xs) {
      if (asArgs) Arg(x);
      else Gen(x);
      ++sd_;
    }
    sd_ -= int(xs.size());
  }

  void Gen(Ex* e) {
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
        ++sd_;
        GenAll(e->args, true);
        --sd_;
        Emit(oMGet, K(Value(e->name)), 0, int32_t(e->args.size()));
        return;
      case Ex::Idx:
        Gen(e->a);
        ++sd_;
        GenAll(e->args, true);
        --sd_;
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

  static uint16_t BinOp(int op) {
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
  // its kind. 1 when the left side is a literal, 2 the right, 0 neither or both.
  static bool IsLit(const Ex* x) {
    while (x->k == Ex::Paren) x = x->a;
    if (x->k == Ex::Un && x->op == '-') x = x->a;
    return x->k == Ex::Lit && (x->lit.IsNum() || x->lit.t == vtString);
  }
  static int LitSide(const Ex* b) {
    if (b->op != '=' && b->op != 'n' && b->op != '<' && b->op != '>' && b->op != 'l' && b->op != 'g') return 0;
    bool l = IsLit(b->a), r = IsLit(b->b);
    return l == r ? 0 : l ? 1 : 2;
  }

  // The object a member is taken from: an expression, or the innermost With.
  // Outside any With the code compiles and fails when it runs.
  void Obj0(Ex* e) {
    if (e->a) Gen(e->a);
    else if (!withs.empty()) Emit(oLdL, withs.back());
    else Emit(oFail, 505);
  }

  // An argument: a plain variable goes by reference, anything else by value.
  void Arg(Ex* e) {
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

  bool Declared(const Tx& name) {
    if (P->kind != Proc::Global)
      for (auto& s : P->slotNames) if (EqNoCase(s, name)) return true;
    return gdecl.count(TxMaiVb(name)) || E.FindCell(name) >= 0;
  }

  // ---------------------------------------------------------------- statements
  void TopStatement() {
    const Tok& t = Cur();
    if (t.k == tKw) {
      switch (t.kw) {
        case kSub: case kFunction: ProcDecl(true, false); return;
        case kProperty:
          if (PropHead()) Fail(1048);
          break;
        case kClass: ClassDecl(); return;
        case kPublic: case kPrivate: {
          bool pub = t.kw == kPublic;
          Kw nk = Peek().k == tKw ? Peek().kw : kNone;
          if (nk == kSub || nk == kFunction) { Next(); ProcDecl(pub, false); return; }
          if (Peek().k == tId && EqNoCase(Peek().s, u"Default")) Fail(1048);
          if (nk == kConst) { Next(); ConstDecl(); return; }
          if (PropHead(1)) Fail(1048);
          Next();
          DimList();
          return;
        }
        case kOption: {
          Next();
          if (!IsWord(u"Explicit")) Fail(1002);
          Next();
          explicit_ = true;
          return;
        }
        default: break;
      }
    }
    Statement();
  }

  void Statement() {
    Nest guard(*this);
    const Tok& t = Cur();
    int from = Here(), line = t.line, col = t.col;
    if (t.k == tKw) {
      switch (t.kw) {
        case kDim: Next(); DimList(); return;
        case kConst: ConstDecl(); return;
        case kReDim: ReDim(); Mark(from, line, col); return;
        case kIf: IfStmt(); return;
        case kSelect: SelectStmt(); return;
        case kFor: ForStmt(); return;
        case kDo: DoStmt(); return;
        case kWhile: WhileStmt(); return;
        case kWith: WithStmt(); return;
        case kExit: ExitStmt(); Mark(from, line, col); return;
        case kOn: OnError(); Mark(from, line, col); return;
        case kSet: Next(); Assign(true); Mark(from, line, col); return;
        case kCall: CallStmt(); Mark(from, line, col); return;
        case kErase: {
          Next();
          for (;;) {
            EmitName(oErase, Ident());
            if (!IsOp(',')) break;
            Next();
          }
          Mark(from, line, col);
          return;
        }
        case kSub: case kFunction: case kClass: case kPublic: case kPrivate: case kOption:
          if (P->kind != Proc::Global || C) Fail(1024);
          TopStatement();
          return;
        case kMe: case kProperty: Assign(false); Mark(from, line, col); return;
        default: Fail(1024);
      }
    }
    if (t.k == tId) {
      if (EqNoCase(t.s, u"Let") && Peek().k == tId) { Next(); Assign(false); Mark(from, line, col); return; }
      if (EqNoCase(t.s, u"Stop") && (Peek().k == tNl || Peek().k == tEof)) { Next(); return; }
      Assign(false);
      Mark(from, line, col);
      return;
    }
    if (t.k == tOp && (t.op == '.' || t.op == '(')) { Assign(false); Mark(from, line, col); return; }
    Fail(1024);
  }

  // Assignment (Let or Set) or, without "=", a call statement.
  void Assign(bool set) {
    Ex* t = Postfix();
    if (IsOp('=')) {
      Next();
      Ex* v = Expr();
      Store(t, v, set);
      return;
    }
    if (set) Fail(1011);
    CallOf(t);
  }

  void CallOf(Ex* t) {
    if (!AtEnd()) {
      // arguments without parentheses; a list in parentheses that began them is
      // the first argument's own: "f (a) + 1, b"
      if (t->call && t->parenPos >= 0 && t->k != Ex::Idx) {
        p = size_t(t->parenPos);
        t->call = false;
        t->args.clear();
      }
      ArgsNoParen(t->args);
    } else if (t->call && t->k != Ex::Idx) {
      if (t->args.size() > 1) CompErr(1044, t->line, t->col);
      // f(x) as a statement: x is an expression in parentheses, passed by value
      if (t->args.size() == 1 && t->args[0]->k != Ex::Missing) {
        Ex* pe = New(Ex::Paren);
        pe->a = t->args[0];
        t->args[0] = pe;
      }
    }
    CallCode(t);
  }

  void ArgsNoParen(std::vector<Ex*>& out) {
    for (;;) {
      if (IsOp(',')) out.push_back(New(Ex::Missing));
      else out.push_back(Expr());
      if (!IsOp(',')) break;
      Next();
      if (AtEnd()) { out.push_back(New(Ex::Missing)); break; }
    }
  }

  void CallStmt() {
    Next();
    Ex* t = Postfix();
    if (!AtEnd()) Fail(1025);
    CallCode(t);
  }

  void CallCode(Ex* t) {
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
        ++sd_;
        GenAll(t->args, true);
        --sd_;
        Emit(oMCall, K(Value(t->name)), 0, int32_t(t->args.size()));
        Emit(oPop);
        return;
      case Ex::Idx:
        Gen(t->a);
        ++sd_;
        GenAll(t->args, true);
        --sd_;
        Emit(oCallV, 1, 0, int32_t(t->args.size()));
        Emit(oPop);
        return;
      default:
        CompErr(1024, t->line, t->col);
    }
  }

  // Stores: the target's object and indexes first, the value last, so that a
  // member or default property receives its arguments with the value at the end.
  void Store(Ex* t, Ex* v, bool set) {
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

  // ---------------------------------------------------------------- declarations
  int DeclLocal(const Tx& name) {
    for (size_t i = 0; i < P->slotNames.size(); ++i)
      if (EqNoCase(P->slotNames[i], name)) {
        if (int(i) == P->result) continue;
        return int(i);
      }
    P->slotNames.push_back(name);
    return P->nslots++;
  }

  void DimList() {
    for (;;) {
      int line = Cur().line, col = Cur().col;
      Tx name = Ident();
      std::vector<int32_t> ub;
      bool isArr = false;
      if (IsOp('(')) {
        isArr = true;
        Next();
        if (!IsOp(')')) {
          for (;;) {
            ub.push_back(ConstInt());
            if (!IsOp(',')) break;
            Next();
          }
        }
        WantOp(')', 1006);
      }
      DeclVar(name, isArr, ub, line, col);
      if (!IsOp(',')) break;
      Next();
    }
  }

  int32_t ConstInt() {
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

  void DeclVar(const Tx& name, bool isArr, const std::vector<int32_t>& ub, int line, int col) {
    if (C && P->kind == Proc::Global) {
      // a field of the class being read
      if (C->Find(name) >= 0) CompErr(1041, line, col);
      Member m;
      m.name = name;
      m.pub = fieldPub_;
      m.field = C->nfields++;
      m.isArr = isArr;
      m.ub = ub;
      C->byName[TxMaiVb(name)] = int(C->mems.size());
      C->mems.push_back(std::move(m));
      return;
    }
    if (P->kind == Proc::Global) {
      gdecl[TxMaiVb(name)] = 1;
      if (isArr && !ub.empty()) {
        // a script-level array with bounds is made when its Dim runs
        int from = Here();
        for (int32_t u : ub) Emit(oPushK, K(Value(u)));
        Peak(int(ub.size()));
        EmitName(oReDim, name, int32_t(ub.size()));
        Emit(oWord, 2);
        Mark(from, line, col);
      } else if (isArr) {
        Proc::ArrInit ai{mName, int32_t(refs.size()), ub};
        refs.push_back(NameRef{P, size_t(-1), name});
        P->arrays.push_back(ai);
      }
      return;
    }
    int s = DeclLocal(name);
    if (isArr) P->arrays.push_back(Proc::ArrInit{mLocal, s, ub});
  }
  bool fieldPub_ = true;

  const Value* FindConstVal(const Tx& name) {
    Tx up = TxMaiVb(name);
    auto it = consts[P].find(up);
    if (it != consts[P].end()) return &it->second;
    auto g = consts[U->main.get()].find(up);
    if (g != consts[U->main.get()].end()) return &g->second;
    return nullptr;
  }

  void ConstDecl() {
    Next();
    for (;;) {
      Tx name = Ident();
      WantOp('=', 1011);
      Ex* e = Expr();
      Value v = Fold(e);
      consts[P][TxMaiVb(name)] = v;
      if (P->kind == Proc::Global && !C) gdecl[TxMaiVb(name)] = 2;
      if (!IsOp(',')) break;
      Next();
    }
  }

  // The value of a constant expression: literals, other constants, and operators on them.
  Value Fold(Ex* e) {
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

  void ReDim() {
    Next();
    bool preserve = false;
    if (IsWord(u"Preserve")) { preserve = true; Next(); }
    for (;;) {
      Tx name = Ident();
      WantOp('(', 1005);
      int n = 0;
      for (;;) {
        Gen(Expr());
        ++n;
        if (!IsOp(',')) break;
        Next();
      }
      WantOp(')', 1006);
      // in a procedure ReDim declares a name only under Option Explicit; otherwise
      // an undeclared name is resolved as any other is when the statement runs:
      // the global of that name if one exists then, else the procedure's own
      if (P->kind != Proc::Global && !C && (explicit_ || E.explicit_)) DeclLocalIfNew(name);
      if (P->kind == Proc::Global && !P->cls) gdecl[TxMaiVb(name)] = 1;
      EmitName(oReDim, name, n);
      Emit(oWord, preserve ? 1 : 0);
      if (!IsOp(',')) break;
      Next();
    }
  }

  void DeclLocalIfNew(const Tx& name) {
    for (auto& s : P->slotNames) if (EqNoCase(s, name)) return;
    if (P->cls && P->cls->Find(name) >= 0) return;
    if (E.FindCell(name) >= 0 || gdecl.count(TxMaiVb(name))) return;
    DeclLocal(name);
  }

  // Sub, Function or Property; in a class when C is set.
  void ProcDecl(bool pub, bool dflt) {
    if (P->kind != Proc::Global) Fail(1024);
    Kw kind = Cur().kw;
    int line = Cur().line, col = Cur().col;
    Next();
    auto pr = std::make_unique<Proc>();
    Proc::Kind pk = kind == kSub ? Proc::Sub : Proc::Function;
    if (kind == kProperty) {
      if (IsWord(u"Get")) pk = Proc::PropGet;
      else if (IsWord(u"Let")) pk = Proc::PropLet;
      else if (IsKw(kSet)) pk = Proc::PropSet;
      else Fail(1049);
      Next();
    }
    pr->kind = pk;
    pr->pub = pub;
    pr->dflt = dflt;
    pr->name = Ident();
    pr->cls = C;
    if (IsOp('(')) {
      Next();
      if (!IsOp(')')) {
        for (;;) {
          bool byval = false;
          if (IsKw(kByVal)) { byval = true; Next(); }
          else if (IsKw(kByRef)) Next();
          Tx an = Ident();
          if (IsOp('(')) { Next(); WantOp(')', 1006); }
          for (auto& s : pr->slotNames) if (EqNoCase(s, an)) Fail(1041);
          pr->slotNames.push_back(an);
          pr->byval.push_back(byval);
          pr->anyByval = pr->anyByval || byval;
          ++pr->nargs;
          if (!IsOp(',')) break;
          Next();
        }
      }
      WantOp(')', 1006);
    }
    pr->nslots = pr->nargs;
    if (pk == Proc::Function || pk == Proc::PropGet) {
      pr->result = pr->nslots++;
      pr->slotNames.push_back(pr->name);
    }
    if ((pk == Proc::PropLet || pk == Proc::PropSet) && pr->nargs == 0) CompErr(1054, line, col);
    Proc* saved = P;
    P = pr.get();
    auto savedLoops = std::move(loops);
    loops.clear();
    SkipNl();  // a statement may follow the header on its line
    Kw endKw = kind;
    while (!AtEndOf(endKw)) {
      if (Cur().k == tEof) CompErr(kind == kSub ? 1016 : kind == kFunction ? 1015 : 1050, Cur().line, Cur().col);
      if (IsKw(kEnd) && Peek().k == tKw && (Peek().kw == kSub || Peek().kw == kFunction || Peek().kw == kProperty))
        Fail(kind == kSub ? 1016 : kind == kFunction ? 1015 : 1050);
      Statement();
      if (!AtEndOf(endKw)) EndStmt();  // "End Sub" may close the line of the last statement
    }
    Next();
    Next();
    Emit(oRet);
    P = saved;
    loops = std::move(savedLoops);
    Proc* raw = pr.get();
    U->procs.push_back(std::move(pr));
    if (C) {
      ClassMember(raw, line, col);
    } else {
      gdecl[TxMaiVb(raw->name)] = 3;
    }
  }

  void ClassMember(Proc* pr, int line, int col) {
    if (EqNoCase(pr->name, u"Class_Initialize") || EqNoCase(pr->name, u"Class_Terminate")) {
      if (pr->nargs) CompErr(1053, line, col);
      if (EqNoCase(pr->name, u"Class_Initialize")) C->init = pr;
      else C->term = pr;
    }
    int m = C->Find(pr->name);
    if (m < 0) {
      m = int(C->mems.size());
      Member mm;
      mm.name = pr->name;
      C->mems.push_back(mm);
      C->byName[TxMaiVb(pr->name)] = m;
    }
    Member& mb = C->mems[m];
    if (mb.field >= 0) CompErr(1041, line, col);
    mb.pub = mb.pub && pr->pub;
    Proc** slot = nullptr;
    switch (pr->kind) {
      case Proc::Sub: case Proc::Function: slot = &mb.call; break;
      case Proc::PropGet: slot = &mb.get; break;
      case Proc::PropLet: slot = &mb.let; break;
      case Proc::PropSet: slot = &mb.set; break;
      default: break;
    }
    if (*slot || ((pr->kind == Proc::Sub || pr->kind == Proc::Function) && (mb.get || mb.let || mb.set)) ||
        (pr->kind >= Proc::PropGet && mb.call))
      CompErr(1041, line, col);
    *slot = pr;
    if (pr->dflt) {
      if (C->dflt >= 0 && C->dflt != m) CompErr(1052, line, col);
      C->dflt = m;
    }
  }

  void ClassDecl() {
    if (C || P->kind != Proc::Global) Fail(1024);
    Next();
    auto cl = std::make_unique<Class>();
    cl->name = Ident();
    C = cl.get();
    EndStmt();
    while (!(IsKw(kEnd) && Peek().k == tKw && Peek().kw == kClass)) {
      if (Cur().k == tEof) Fail(1047);
      bool pub = true, dflt = false, seen = false;
      if (IsKw(kPublic) || IsKw(kPrivate)) {
        pub = IsKw(kPublic);
        seen = true;
        Next();
        if (IsWord(u"Default")) {
          if (!pub) Fail(1057);
          dflt = true;
          Next();
        }
      }
      if (IsKw(kSub) || IsKw(kFunction) || PropHead()) {
        if (dflt && IsKw(kProperty) && !(Peek().k == tId && EqNoCase(Peek().s, u"Get"))) Fail(1058);
        ProcDecl(pub, dflt);
      } else if (dflt) {
        Fail(1056);
      } else if (IsKw(kDim) || seen) {
        if (IsKw(kDim)) Next();
        fieldPub_ = pub;
        DimList();
        fieldPub_ = true;
      } else if (IsKw(kConst)) {
        ConstDecl();
      } else {
        Fail(1024);
      }
      if (!AtEndOf(kClass)) EndStmt();
    }
    Next();
    Next();
    gdecl[TxMaiVb(C->name)] = 4;
    U->classes.push_back(std::move(cl));
    C = nullptr;
  }

  // ---------------------------------------------------------------- control flow
  void IfStmt() {
    int from = Here(), line = Cur().line, col = Cur().col;
    Next();
    Gen(Expr());
    Want(kThen, 1017);
    size_t jf = Emit(oJf, -1);
    Mark(from, line, col);
    if (Cur().k != tNl || Cur().colon) {
      // single-line form: statements up to the line end, an Else part likewise
      bool saved = inSingleIf;
      inSingleIf = true;
      SingleLineBody();
      if (IsKw(kElse)) {
        size_t j = Emit(oJmp, -1);
        Patch(jf);
        Next();
        SingleLineBody();
        Patch(j);
      } else {
        Patch(jf);
      }
      if (IsKw(kEnd) && Peek().k == tKw && Peek().kw == kIf) { Next(); Next(); }
      inSingleIf = saved;
      return;
    }
    std::vector<size_t> ends;
    EndStmt();
    for (;;) {
      Block();
      if (IsKw(kElseIf)) {
        ends.push_back(Emit(oJmp, -1));
        Patch(jf);
        int f2 = Here(), l2 = Cur().line, c2 = Cur().col;
        Next();
        Gen(Expr());
        Want(kThen, 1017);
        jf = Emit(oJf, -1);
        Mark(f2, l2, c2);
        if (Cur().k == tNl) EndStmt();  // else a statement follows on the same line
        continue;
      }
      if (IsKw(kElse)) {
        ends.push_back(Emit(oJmp, -1));
        Patch(jf);
        jf = size_t(-1);
        Next();
        if (Cur().k == tNl) EndStmt();
        Block();
      }
      if (!(IsKw(kEnd) && Peek().k == tKw && Peek().kw == kIf)) Fail(1014);
      Next();
      Next();
      break;
    }
    if (jf != size_t(-1)) Patch(jf);
    for (size_t e : ends) Patch(e);
  }

  // The statements of a one-line If part, ":" between them; empty ones are allowed.
  void SingleLineBody() {
    for (;;) {
      if (Cur().k == tNl && Cur().colon) {
        Next();
        continue;
      }
      if (AtEnd()) break;
      Statement();
      if (!(Cur().k == tNl && Cur().colon)) break;
    }
  }

  // Statements up to a word that ends the block (End, Else, ElseIf, Loop, Next, Wend, Case).
  void Block() {
    for (;;) {
      SkipNl();
      const Tok& t = Cur();
      if (t.k == tEof) return;
      if (t.k == tKw && (t.kw == kEnd || t.kw == kElse || t.kw == kElseIf || t.kw == kLoop ||
                         t.kw == kNext || t.kw == kWend || t.kw == kCase))
        return;
      Statement();
      if (nextPending_) return;  // "Next i, j" closed this block's loop too
      EndStmt();
    }
  }

  // The end of a For body: "Next", "Next i", or the "j" of an inner "Next i, j".
  void ForNextWord() {
    if (nextPending_) {
      --nextPending_;
      return;
    }
    if (!IsKw(kNext)) Fail(1020);
    Next();
    if (Cur().k == tId) {
      Next();
      while (IsOp(',')) {
        Next();
        Ident();
        ++nextPending_;
      }
    }
  }
  int nextPending_ = 0;

  void SelectStmt() {
    int from = Here(), line = Cur().line, col = Cur().col;
    Next();
    Want(kCase, 1021);
    int h = Hidden(1);
    Gen(Expr());
    Emit(oStL, h);
    size_t head = P->stmts.size();
    Mark(from, line, col);
    EndStmt();
    std::vector<size_t> ends;
    bool sawElse = false;
    while (IsKw(kCase)) {
      if (sawElse) Fail(1022);
      int f2 = Here(), l2 = Cur().line, c2 = Cur().col;
      Next();
      if (IsKw(kElse)) {
        Next();
        sawElse = true;
        Block();
        continue;
      }
      std::vector<size_t> toBody;
      for (;;) {
        if (IsKw(kIs)) {
          Next();
          const Tok& o = Cur();
          if (o.k != tOp) Fail(1023);
          char16_t op = o.op;
          Next();
          Emit(oLdL, h);
          Ex* v = Expr();
          Gen(v);
          uint16_t lit = IsLit(v) ? 2 : 0;
          switch (op) {
            case '=': Emit(oEq, 0, lit); break;
            case 'n': Emit(oNe, 0, lit); break;
            case '<': Emit(oLt, 0, lit); break;
            case '>': Emit(oGt, 0, lit); break;
            case 'l': Emit(oLe, 0, lit); break;
            case 'g': Emit(oGe, 0, lit); break;
            default: Fail(1023);
          }
          toBody.push_back(Emit(oJt, -1));
        } else {
          Ex* a = Expr();
          if (IsKw(kTo)) {
            Next();
            Ex* b = Expr();
            Emit(oLdL, h);
            Gen(a);
            Emit(oGe, 0, IsLit(a) ? 2 : 0);
            size_t skip = Emit(oJf, -1);
            Emit(oLdL, h);
            Gen(b);
            Emit(oLe, 0, IsLit(b) ? 2 : 0);
            toBody.push_back(Emit(oJt, -1));
            Patch(skip);
          } else {
            Gen(a);
            Emit(oCaseEq, h, IsLit(a) ? 2 : 0);
            toBody.push_back(Emit(oJt, -1));
          }
        }
        if (!IsOp(',')) break;
        Next();
      }
      size_t skip = Emit(oJmp, -1);
      Mark(f2, l2, c2);
      for (size_t j : toBody) Patch(j);
      Block();  // the first statement may stand on the Case line
      ends.push_back(Emit(oJmp, -1));
      Patch(skip);
    }
    if (!(IsKw(kEnd) && Peek().k == tKw && Peek().kw == kSelect)) Fail(1022);
    Next();
    Next();
    for (size_t e : ends) Patch(e);
    // a test that failed under On Error Resume Next runs no Case
    P->stmts[head].to = Here();
    Emit(oPushE);
    Emit(oStL, h);
  }

  void ForStmt() {
    int from = Here(), line = Cur().line, col = Cur().col;
    Next();
    if (IsKw(kEach)) {
      Next();
      Tx var = Ident();
      Want(kIn, 1046);
      Gen(Expr());
      int h = Hidden(2);
      EmitName(oFePrep, var, h);
      ForBody(oFeNext, var, h, from, line, col);
      Emit(oPushE);
      Emit(oStL, h);
      return;
    }
    Tx var = Ident();
    WantOp('=', 1011);
    Gen(Expr());
    Want(kTo, 1013);
    ++sd_;
    Gen(Expr());
    ++sd_;
    if (IsWord(u"Step")) {
      Next();
      Gen(Expr());
    } else {
      Peak(1);
      Emit(oPushI, 1);
    }
    sd_ -= 2;
    int h = Hidden(2);
    EmitName(oForPrep, var, h);
    ForBody(oForNext, var, h, from, line, col);
  }

  // The body of a For or For Each after its preparing instruction: the jump past the
  // loop that the preparation takes when there is nothing to do, the statements, the
  // Next word and the stepping instruction, and the Exit For jumps patched to the end.
  void ForBody(uint16_t next, const Tx& var, int h, int from, int line, int col) {
    size_t jEnd = Emit(oWord, -1);
    size_t head = P->stmts.size();
    Mark(from, line, col);
    int body = Here();
    loops.push_back(Loop{kFor, {}});
    EndStmt();
    Block();
    int f2 = Here(), l2 = Cur().line, c2 = Cur().col;
    ForNextWord();
    EmitName(next, var, h);
    Emit(oWord, body);
    Mark(f2, l2, c2);
    Patch(jEnd);
    // a For Each whose collection failed under On Error Resume Next goes on
    // after the loop; a For whose bounds failed runs on into its Next, which
    // then fails as "For loop not initialized"
    if (next == oFeNext) P->stmts[head].to = Here();
    for (size_t e : loops.back().exits) Patch(e);
    loops.pop_back();
  }

  void DoStmt() {
    int from = Here(), line = Cur().line, col = Cur().col;
    Next();
    int top = Here();
    loops.push_back(Loop{kDo, {}});
    if (IsKw(kWhile) || IsKw(kUntil)) {
      bool until = IsKw(kUntil);
      Next();
      Gen(Expr());
      loops.back().exits.push_back(Emit(until ? oJt : oJf, -1));
      Mark(from, line, col);
    } else if (!AtEnd()) {
      Fail(1028);
    }
    EndStmt();
    Block();
    int f2 = Here(), l2 = Cur().line, c2 = Cur().col;
    if (!IsKw(kLoop)) Fail(1019);
    Next();
    if (IsKw(kWhile) || IsKw(kUntil)) {
      bool until = IsKw(kUntil);
      Next();
      Gen(Expr());
      Emit(until ? oJf : oJt, top);
      Mark(f2, l2, c2);
    } else {
      Emit(oJmp, top);
    }
    for (size_t e : loops.back().exits) Patch(e);
    loops.pop_back();
  }

  void WhileStmt() {
    int from = Here(), line = Cur().line, col = Cur().col;
    Next();
    int top = Here();
    Gen(Expr());
    size_t jf = Emit(oJf, -1);
    Mark(from, line, col);
    EndStmt();
    Block();
    if (!IsKw(kWend)) Fail(1018);
    Next();
    Emit(oJmp, top);
    Patch(jf);
  }

  void WithStmt() {
    int from = Here(), line = Cur().line, col = Cur().col;
    Next();
    int h = Hidden(1);
    Gen(Expr());
    Emit(oSet, h, mLocal);  // the object itself, not its default value
    Mark(from, line, col);
    withs.push_back(h);
    EndStmt();
    Block();
    if (!(IsKw(kEnd) && Peek().k == tKw && Peek().kw == kWith)) Fail(1029);
    Next();
    Next();
    withs.pop_back();
    Emit(oPushE);
    Emit(oStL, h);
  }

  void ExitStmt() {
    Next();
    const Tok& t = Cur();
    if (t.k != tKw) Fail(1039);
    Kw k = t.kw;
    Next();
    if (k == kDo || k == kFor) {
      for (auto it = loops.rbegin(); it != loops.rend(); ++it)
        if (it->kind == k) { it->exits.push_back(Emit(oJmp, -1)); return; }
      Fail(1039);
    }
    if ((k == kSub && P->kind == Proc::Sub) || (k == kFunction && P->kind == Proc::Function) ||
        (k == kProperty && P->kind >= Proc::PropGet)) {
      Emit(oRet);
      return;
    }
    Fail(1039);
  }

  void OnError() {
    Next();
    if (!IsWord(u"Error")) Fail(1002);
    Next();
    if (IsWord(u"Resume")) {
      Next();
      if (!IsKw(kNext)) Fail(1002);
      Next();
      Emit(oOnErr, 1);
      return;
    }
    if (IsWord(u"GoTo")) {
      Next();
      if (Cur().k != tNum || ToDbl(Cur().v) != 0) Fail(1002);
      Next();
      Emit(oOnErr, 0);
      return;
    }
    Fail(1002);
  }

  // ---------------------------------------------------------------- names
  struct Res {
    enum { Slot, Up, Member, Global, Const, Builtin, Dyn } k;
    int idx = 0;
    Value v;
  };

  static int SlotIn(const Proc* pr, const Tx& name, bool skipResult) {
    for (size_t i = 0; i < pr->slotNames.size(); ++i)
      if (!pr->slotNames[i].empty() && EqNoCase(pr->slotNames[i], name)) {
        if (skipResult && int(i) == pr->result) continue;
        return int(i);
      }
    return -1;
  }

  Res Resolve(Proc* pr, const Tx& name, bool isCall, bool isStore) {
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

  void Finish() {
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

  // Marks each local read followed by a small integer and an arithmetic or
  // comparison operator (i Mod 7, n - 1, n < 2), so that the machine does the three
  // in one step when the local holds an integer. The two instructions after it stay
  // in place for the other kinds; no jump lands inside an expression.
  static void Fuse(Proc& pr) {
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
};

}  // namespace

std::unique_ptr<Unit> Engine::Compile(TxV text, bool expr, const Scope& sc) {
  char top;
  if (depth == 0) stackTop = &top;  // a compile from the host begins a run
  Parser ps(*this, text, sc);
  auto u = expr ? ps.Expression() : ps.Program();
  auto src = std::make_shared<const Tx>(text);
  u->main->src = src;
  for (auto& pr : u->procs) pr->src = src;
  return u;
}

}  // namespace vbs
