// Lexer: script text to tokens.
// Keywords and names are case-blind; `'` and Rem start comments; `_` at the end
// of a line continues it; `:` separates statements like a line end.
#pragma once
#include <vector>
#include "Value.h"

namespace vbs {

enum Tk : uint8_t { tEof, tNl, tId, tKw, tNum, tStr, tDate, tOp };

// Reserved words.
enum Kw : uint8_t {
  kNone, kAnd, kByRef, kByVal, kCall, kCase, kClass, kConst, kDim, kDo, kEach, kElse, kElseIf,
  kEmpty, kEnd, kEqv, kErase, kExit, kFalse, kFor, kFunction, kIf, kImp, kIn, kIs, kLoop,
  kMe, kMod, kNew, kNext, kNot, kNothing, kNull, kOn, kOption, kOr, kPrivate, kProperty,
  kPublic, kReDim, kSelect, kSet, kSub, kThen, kTo, kTrue, kUntil, kWend, kWhile, kWith, kXor,
};

struct Tok {
  Tk k = tEof;
  Kw kw = kNone;
  char16_t op = 0;   // + - * / \ ^ & = < > ( ) , . and 'l' <=, 'g' >=, 'n' <>
  bool colon = false;  // a tNl that was ':'
  bool space = false;  // white space before the token
  Tx s;              // name or string text
  Value v;           // number or date
  int line = 1;      // 1-based
  int col = 0;       // 0-based
};

// Compile errors carry their number and place.
[[noreturn]] void CompErr(int num, int line, int col);

// Cuts a whole text into tokens, ending with tNl and tEof.
std::vector<Tok> Lex(TxV src);

}  // namespace vbs
