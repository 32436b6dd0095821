// Parse: expressions and the simple statements (assignments, calls, Dim and the
// other words a statement begins with). Each statement's code is emitted as it is read.
#include "Parser.h"

namespace vbs::cmp {

// expr = binary(0)
// An expression; each nesting counts against the guard, so that deep text fails with 28.
Ex* Parser::Expr() {
  Nest guard(*this);
  return Binary(0);
}

// The operator of binary level `level` at the current token, 0 when none there.
// Binary levels, loosest first: Imp, Eqv, Xor, Or, And, (Not), comparisons, &, + -, Mod, \, * /
int Parser::OpAt(int level) const {
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

// binary(n) = binary(n+1) { op(n) binary(n+1) }
// One level of binary operators, left to right. Level 5 is Not instead (binary(5) =
// "Not" binary(5) | binary(6)), between And and the comparisons; level 12 is unary.
Ex* Parser::Binary(int level) {
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

// unary = power
// Negation binds tighter than "^": -3 ^ 2 is 9, 2 ^ -1 is 0.5. A run of signs
// is read in a loop, so that a long one costs no stack.
Ex* Parser::Unary() { return Power(); }

// signed = { "-" | "+" } postfix
// A run of signs around one operand; an even number of "-" cancels.
Ex* Parser::Signed() {
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

// power = signed { "^" signed }
// "^" binds tighter than the other operators and groups to the left: 2 ^ 3 ^ 2 is 64.
Ex* Parser::Power() {
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

// arg-list = "(" [ [ expr ] { "," [ expr ] } ] ")"
// The arguments of a call or index; one left out is Missing.
void Parser::ArgList(std::vector<Ex*>& out) {
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

// primary = literal | name | "Me" | "New" name | "(" expr ")" | "." member
// The smallest expression: a number, date or text, True, False, Empty, Null or Nothing,
// a name, and so on; a leading "." is a member of the innermost With.
Ex* Parser::Primary() {
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

// postfix = primary { "." member | arg-list }
// A chain of members and indexes (a.b(1).c) nests its code as deep as it is
// long, so each link counts against the nesting guard.
Ex* Parser::Postfix() {
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

// top-statement = [ "Public" | "Private" ] ( sub | function | const | dim-list ) | class | "Option" "Explicit" | statement
// What may stand only at the top of a text (procedures, classes, Public and Private,
// Option Explicit); anything else is a statement.
void Parser::TopStatement() {
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

// statement = "Dim" dim-list | const | redim | if | select | for | do | while | with | exit | on-error | call | other
// Other statements are "Set" assign, "Erase" name { "," name }, [ "Let" ] assign and "Stop".
// One statement inside any block; the code of a simple one is marked with its line,
// for the line of an error and for Resume Next.
void Parser::Statement() {
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

// assign = postfix ( "=" expr | call-of )
// Assignment (Let or Set) or, without "=", a call statement.
void Parser::Assign(bool set) {
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

// call-of = [ args-no-paren ]
// A call statement after its target. "f (a) + 1, b" reads the list in parentheses as
// the start of the first argument, and f(x) alone passes x by value.
void Parser::CallOf(Ex* t) {
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

// args-no-paren = [ expr ] { "," [ expr ] }
// The arguments of a call statement written without parentheses; one left out is Missing.
void Parser::ArgsNoParen(std::vector<Ex*>& out) {
  for (;;) {
    if (IsOp(',')) out.push_back(New(Ex::Missing));
    else out.push_back(Expr());
    if (!IsOp(',')) break;
    Next();
    if (AtEnd()) { out.push_back(New(Ex::Missing)); break; }
  }
}

// call = "Call" postfix
// The target carries its arguments in parentheses; nothing may follow it.
void Parser::CallStmt() {
  Next();
  Ex* t = Postfix();
  if (!AtEnd()) Fail(1025);
  CallCode(t);
}

}  // namespace vbs::cmp
