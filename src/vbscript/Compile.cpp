// Compile: the compiler's entry points. A text compiles as a program (statements,
// procedures, classes) or as one expression (Eval); the parser, the code
// generator, the folding of constants and the resolution of names are in the
// files Parser.h lists.
#include "Parser.h"

namespace vbs {

// The member of a class by name, case-blind; -1 when it has none.
int Class::Find(TxV name) const {
  auto it = byName.find(TxMaiVb(name));
  return it == byName.end() ? -1 : it->second;
}

namespace cmp {

// Cuts the text into tokens and opens the unit with its global code as the current procedure.
Parser::Parser(Engine& e, TxV src, const Scope& sc) : E(e), sc_(sc) {
  T = Lex(src);
  U = std::make_unique<Unit>();
  U->main = std::make_unique<Proc>();
  U->main->kind = Proc::Global;
  P = U->main.get();
}

// program = { NL } { top-statement NL } Eof
// The whole text; its names are resolved only at the end, when every declaration is known.
std::unique_ptr<Unit> Parser::Program() {
  SkipNl();
  while (Cur().k != tEof) {
    TopStatement();
    EndStmt();
  }
  Emit(oRet);
  Finish();
  return std::move(U);
}

// expression-text = { NL } expr { NL } Eof
// A text for Eval: its value is kept in a hidden result slot the caller reads.
std::unique_ptr<Unit> Parser::Expression() {
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

}  // namespace cmp

// Compiles a text into a unit that remembers its source, for the lines of errors.
std::unique_ptr<Unit> Engine::Compile(TxV text, bool expr, const Scope& sc) {
  char top;
  if (depth == 0) stackTop = &top;  // a compile from the host begins a run
  cmp::Parser ps(*this, text, sc);
  auto u = expr ? ps.Expression() : ps.Program();
  auto src = std::make_shared<const Tx>(text);
  u->main->src = src;
  for (auto& pr : u->procs) pr->src = src;
  return u;
}

}  // namespace vbs
