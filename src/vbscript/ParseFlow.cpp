// ParseFlow: the compound statements (If, Select Case, the loops, With) and the
// jumps out of them (Exit, On Error). Forward jumps are emitted with no target
// and patched when the target is reached.
#include "Parser.h"

namespace vbs::cmp {

// block = { NL | statement NL }
// Statements up to a word that ends the block (End, Else, ElseIf, Loop, Next, Wend, Case).
void Parser::Block() {
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

// line-body = [ statement ] { ":" [ statement ] }
// The statements of a one-line If part, ":" between them; empty ones are allowed.
void Parser::SingleLineBody() {
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

// if = "If" expr "Then" ( line-body [ "Else" line-body ] | NL block { "ElseIf" expr "Then" block } [ "Else" block ] "End" "If" )
// The one-line form when anything but a line end follows Then.
void Parser::IfStmt() {
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

// select = "Select" "Case" expr NL { "Case" ( "Else" | test { "," test } ) block } "End" "Select"
// Each test is "Is" comparison expr, or expr [ "To" expr ]. The tested value is kept in a hidden slot, emptied after End Select.
void Parser::SelectStmt() {
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

// for = "For" ( "Each" name "In" expr | name "=" expr "To" expr [ "Step" expr ] ) for-body
// The bounds and the step are computed once, into hidden slots.
void Parser::ForStmt() {
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

// for-body = NL block next-word
// The body of a For or For Each after its preparing instruction: the jump past the
// loop that the preparation takes when there is nothing to do, the statements, the
// Next word and the stepping instruction, and the Exit For jumps patched to the end.
void Parser::ForBody(uint16_t next, const Tx& var, int h, int from, int line, int col) {
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

// next-word = "Next" [ name { "," name } ]
// The end of a For body: "Next", "Next i", or the "j" of an inner "Next i, j".
void Parser::ForNextWord() {
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

// do = "Do" [ ( "While" | "Until" ) expr ] NL block "Loop" [ ( "While" | "Until" ) expr ]
// A test at the top leaves through the loop's exits; one at the bottom jumps back.
void Parser::DoStmt() {
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

// while = "While" expr NL block "Wend"
void Parser::WhileStmt() {
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

// with = "With" expr NL block "End" "With"
// The object is kept in a hidden slot that "." members read, emptied at End With
// so that the object is released there.
void Parser::WithStmt() {
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

// exit = "Exit" ( "Do" | "For" | "Sub" | "Function" | "Property" )
// Exit Do and Exit For jump past the innermost loop of their kind (patched at its end);
// the others return, when the procedure is of that kind.
void Parser::ExitStmt() {
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

// on-error = "On" "Error" ( "Resume" "Next" | "GoTo" "0" )
void Parser::OnError() {
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

}  // namespace vbs::cmp
