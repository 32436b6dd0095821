// VbsSup: program text. Lines become one block of code that the engine compiles at
// once; with the strip flag 1 comments, indentation and blank lines never reach it.
#include "FicGlb.h"
#include "FicLer.h"
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

namespace {

// The line up to its first apostrophe outside a double-quoted string: a "'" inside
// a string literal is part of the literal and doesn't start a comment.
Tx LinSemCom(const Tx& lin) {
  Tx rest = lin, tok, del;
  BasLinTok(rest, u"'", tok, del, u"\"");
  return tok;
}

// Adds one line to a program text; gives false when the line was dropped.
bool LinJun(int16_t strip, Tx& tx, const Tx& line) {
  Tx l = line;
  if (strip == 1) {
    l = TxTrim(LinSemCom(l));
    if (l.empty()) return false;
  }
  TxLinJun(tx, l);
  return true;
}

}  // namespace

void VbsSup::PgmTxJun(int16_t strip, Tx& tx, const Tx& line) { LinJun(strip, tx, line); }

// Reads a text file into one program text, line by line as PgmTxJun does. The keep
// mark of the last line is the flag left behind, so a last line dropped as empty
// gives 0; a file that can't be read gives 0 and what was read so far.
void VbsSup::PgmLer(const Tx& fic, int16_t strip, Tx& tx, int16_t& ok) {
  ok = 1;
  tx.clear();
  int num = FicNumLiv(), res = 0;
  if (num > 0) FicAbrNum(num, fic, u"I", res);
  else res = -kErrFicMui;
  if (res != 1) {
    ok = 0;
    TrcMsg(u"PgmLer \"" + fic + u"\"", u"the file can't be opened (" + TxDeUtf8(FicLerPorque(-res)) + u")");
    return;
  }
  while (!FicEof(num)) {
    Tx lin;
    int err = 0;
    FicLinLer(num, lin, err);
    if (err != 0) {
      ok = 0;
      TrcMsg(u"PgmLer \"" + fic + u"\"", u"the file can't be read");
      break;
    }
    ok = LinJun(strip, tx, lin) ? 1 : 0;
  }
  FicFec(num);
}

// Joins the lines 1..n and hands the whole text to the engine in one piece.
// The file line of each kept line is remembered for the trace.
void VbsSup::PgmRegArr(int16_t strip, const std::vector<Tx>& lines, int16_t& ok,
                       const std::vector<int32_t>* num) {
  Tx tx;
  pgmLin_.assign(1, 0);
  for (size_t i = 1; i < lines.size(); i++)
    if (LinJun(strip, tx, lines[i])) pgmLin_.push_back(num && i < num->size() ? (*num)[i] : 0);
  PgmRegExe(tx, ok);
}

// Compiles the text: one syntax error and none of it is added.
void VbsSup::PgmRegExe(const Tx& tx, int16_t& ok) {
  ok = 1;
  if (!EngAddCode(tx)) {
    ok = 0;
    Trc(u"AddCode (" + TxAsc(std::to_string(tx.size())) + u" characters)");
  }
}

// Names of the engine's procedures from index 1, in the engine's order.
void VbsSup::ConFxReg(std::vector<Tx>& names, int32_t& n) {
  std::vector<Tx> all;
  bool ok = EngProcs(all);
  names.assign(1, Tx());
  for (auto& s : all) names.push_back(s);
  n = int32_t(all.size());
  if (!ok) Trc(u"ConFxReg");
}

void VbsSup::ConFxRegTx(Tx& tx, int32_t& n) {
  std::vector<Tx> names;
  ConFxReg(names, n);
  tx.clear();
  for (size_t i = 1; i < names.size(); i++) TxJunSep(tx, u",", Var(names[i]));
}

// "F" for a function, "P" for a procedure without result, "?" when the engine
// doesn't know the name. The name goes to the engine as given.
void VbsSup::PgmFxTip(const Tx& name, Tx& kind) {
  int32_t na = 0;
  bool ret = false;
  if (!EngProc(name, na, ret)) {
    kind = u"?";
    return;
  }
  kind = ret ? u"F" : u"P";
}

}  // namespace zw
