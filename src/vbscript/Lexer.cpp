// Lexer: script text to tokens.
#include "Lexer.h"
#include <cmath>
#include <unordered_map>
#include "DateTime.h"
#include "Locale.h"

namespace vbs {

void CompErr(int num, int line, int col) {
  Fault f{num, ErrDesc(num), u"Microsoft VBScript compilation error"};
  f.line = line;
  f.col = col;
  throw f;
}

namespace {

const std::unordered_map<Tx, Kw>& Words() {
  static const std::unordered_map<Tx, Kw> w = {
      {u"AND", kAnd}, {u"BYREF", kByRef}, {u"BYVAL", kByVal}, {u"CALL", kCall},
      {u"CASE", kCase}, {u"CLASS", kClass}, {u"CONST", kConst}, {u"DIM", kDim}, {u"DO", kDo},
      {u"EACH", kEach}, {u"ELSE", kElse}, {u"ELSEIF", kElseIf}, {u"EMPTY", kEmpty},
      {u"END", kEnd}, {u"EQV", kEqv}, {u"ERASE", kErase}, {u"EXIT", kExit},
      {u"FALSE", kFalse}, {u"FOR", kFor}, {u"FUNCTION", kFunction}, {u"IF", kIf},
      {u"IMP", kImp}, {u"IN", kIn}, {u"IS", kIs}, {u"LOOP", kLoop}, {u"ME", kMe},
      {u"MOD", kMod}, {u"NEW", kNew}, {u"NEXT", kNext}, {u"NOT", kNot},
      {u"NOTHING", kNothing}, {u"NULL", kNull}, {u"ON", kOn}, {u"OPTION", kOption},
      {u"OR", kOr}, {u"PRIVATE", kPrivate}, {u"PROPERTY", kProperty}, {u"PUBLIC", kPublic},
      {u"REDIM", kReDim}, {u"SELECT", kSelect}, {u"SET", kSet}, {u"SUB", kSub},
      {u"THEN", kThen}, {u"TO", kTo}, {u"TRUE", kTrue}, {u"UNTIL", kUntil},
      {u"WEND", kWend}, {u"WHILE", kWhile}, {u"WITH", kWith}, {u"XOR", kXor},
  };
  return w;
}

bool IsAlpha(char16_t c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7);
}
bool IsDigit(char16_t c) { return c >= '0' && c <= '9'; }
bool IsSpace(char16_t c) { return c == ' ' || c == '\t' || c == 0xA0 || c == 0xFEFF; }

// The kind VBScript gives an integer literal.
Value IntLit(double d) {
  if (d <= 32767) return Value(int16_t(d));
  if (d <= 2147483647.0) return Value(int32_t(d));
  return Value(d);
}

}  // namespace

std::vector<Tok> Lex(TxV src) {
  std::vector<Tok> out;
  size_t i = 0, n = src.size();
  int line = 1;
  size_t lineStart = 0;
  bool space = false;
  auto push = [&](Tok t, size_t at) {
    t.line = line;
    t.col = int(at - lineStart);
    t.space = space;
    space = false;
    out.push_back(std::move(t));
  };
  auto newline = [&](size_t at, bool colon) {
    if (!out.empty() && out.back().k == tNl && !colon && !out.back().colon) {
      // collapse blank lines
    }
    Tok t;
    t.k = tNl;
    t.colon = colon;
    push(std::move(t), at);
  };
  while (i < n) {
    char16_t c = src[i];
    if (IsSpace(c)) { ++i; space = true; continue; }
    if (c == '\r' || c == '\n') {
      newline(i, false);
      if (c == '\r' && i + 1 < n && src[i + 1] == '\n') ++i;
      ++i;
      ++line;
      lineStart = i;
      continue;
    }
    if (c == '\'') {
      while (i < n && src[i] != '\r' && src[i] != '\n') ++i;
      continue;
    }
    if (c == ':') { newline(i, true); ++i; continue; }
    if (c == '_') {
      // line continuation: "_" then blanks up to the line end
      size_t j = i + 1;
      while (j < n && IsSpace(src[j])) ++j;
      if (j >= n || src[j] == '\r' || src[j] == '\n') {
        if (j < n && src[j] == '\r' && j + 1 < n && src[j + 1] == '\n') ++j;
        i = j + 1;
        ++line;
        lineStart = i;
        space = true;
        continue;
      }
      CompErr(1032, line, int(i - lineStart));
    }
    size_t at = i;
    if (c == '"') {
      Tx s;
      ++i;
      for (;;) {
        if (i >= n || src[i] == '\r' || src[i] == '\n') CompErr(1033, line, int(at - lineStart));
        if (src[i] == '"') {
          if (i + 1 < n && src[i + 1] == '"') { s += u'"'; i += 2; continue; }
          ++i;
          break;
        }
        s += src[i++];
      }
      Tok t;
      t.k = tStr;
      t.s = std::move(s);
      push(std::move(t), at);
      continue;
    }
    if (c == '#') {
      size_t j = i + 1;
      while (j < n && src[j] != '#' && src[j] != '\r' && src[j] != '\n') ++j;
      if (j >= n || src[j] != '#') CompErr(1032, line, int(at - lineStart));
      double d;
      if (!TxDt(src.substr(i + 1, j - i - 1), d, LocEua())) CompErr(1032, line, int(at - lineStart));
      Tok t;
      t.k = tDate;
      t.v = Value::Date(d);
      i = j + 1;
      push(std::move(t), at);
      continue;
    }
    if (IsDigit(c) || (c == '.' && i + 1 < n && IsDigit(src[i + 1]) &&
                       (out.empty() || out.back().space || space ||
                        !(out.back().k == tId || out.back().k == tNum ||
                          (out.back().k == tOp && out.back().op == ')'))))) {
      size_t j = i;
      bool isInt = true;
      while (j < n && IsDigit(src[j])) ++j;
      if (j < n && src[j] == '.') {
        isInt = false;
        ++j;
        while (j < n && IsDigit(src[j])) ++j;
      }
      if (j < n && (src[j] == 'e' || src[j] == 'E')) {
        size_t k = j + 1;
        if (k < n && (src[k] == '+' || src[k] == '-')) ++k;
        if (k < n && IsDigit(src[k])) {
          isInt = false;
          j = k;
          while (j < n && IsDigit(src[j])) ++j;
        }
      }
      std::string a(src.begin() + i, src.begin() + j);
      double d = std::strtod(a.c_str(), nullptr);
      if (!std::isfinite(d)) CompErr(1031, line, int(at - lineStart));
      Tok t;
      t.k = tNum;
      t.v = isInt ? IntLit(d) : Value(d);
      if (j < n && src[j] == '#' ) ++j;  // a type mark of Double is accepted
      i = j;
      if (i < n && (IsAlpha(src[i]) || IsDigit(src[i]))) CompErr(1025, line, int(i - lineStart));
      push(std::move(t), at);
      continue;
    }
    if (c == '&' && i + 1 < n && (src[i + 1] == 'h' || src[i + 1] == 'H' || src[i + 1] == 'o' || src[i + 1] == 'O' || IsDigit(src[i + 1]))) {
      bool hex = src[i + 1] == 'h' || src[i + 1] == 'H';
      size_t j = i + ((hex || src[i + 1] == 'o' || src[i + 1] == 'O') ? 2 : 1);
      uint64_t v = 0;
      size_t digits = 0;
      for (; j < n; ++j, ++digits) {
        char16_t d = src[j];
        int x;
        if (IsDigit(d)) x = d - '0';
        else if (hex && d >= 'a' && d <= 'f') x = d - 'a' + 10;
        else if (hex && d >= 'A' && d <= 'F') x = d - 'A' + 10;
        else break;
        if (!hex && x > 7) break;
        v = v * (hex ? 16 : 8) + uint64_t(x);
        if (v > 0xFFFFFFFFull) CompErr(1031, line, int(at - lineStart));
      }
      if (digits == 0) CompErr(1031, line, int(at - lineStart));
      bool lng = false;
      if (j < n && src[j] == '&') { lng = true; ++j; }
      Tok t;
      t.k = tNum;
      // without "&" the digits fill an Integer when they fit 16 bits (&hFFFF is -1);
      // with it the value is kept, in the smallest kind that holds it
      if (lng ? v <= 0x7FFF : v <= 0xFFFF) t.v = Value(int16_t(uint16_t(v)));
      else t.v = Value(int32_t(uint32_t(v)));
      i = j;
      push(std::move(t), at);
      continue;
    }
    if (IsAlpha(c) || c == '[') {
      Tx s;
      if (c == '[') {
        size_t j = i + 1;
        while (j < n && src[j] != ']' && src[j] != '\r' && src[j] != '\n') ++j;
        if (j >= n || src[j] != ']') CompErr(1007, line, int(at - lineStart));
        s.assign(src.substr(i + 1, j - i - 1));
        i = j + 1;
        Tok t;
        t.k = tId;
        t.s = std::move(s);
        push(std::move(t), at);
        continue;
      }
      size_t j = i;
      while (j < n && (IsAlpha(src[j]) || IsDigit(src[j]) || src[j] == '_')) ++j;
      s.assign(src.substr(i, j - i));
      i = j;
      Tok t;
      // after a dot a word is always a member name
      bool member = !out.empty() && out.back().k == tOp && out.back().op == '.' && !space;
      Tx up = TxMaiVb(s);
      if (!member && up == u"REM") {
        while (i < n && src[i] != '\r' && src[i] != '\n') ++i;
        continue;
      }
      auto it = member ? Words().end() : Words().find(up);
      if (it != Words().end()) {
        t.k = tKw;
        t.kw = it->second;
      } else {
        t.k = tId;
      }
      t.s = std::move(s);
      push(std::move(t), at);
      continue;
    }
    Tok t;
    t.k = tOp;
    switch (c) {
      case '<':
        if (i + 1 < n && src[i + 1] == '=') { t.op = 'l'; ++i; }
        else if (i + 1 < n && src[i + 1] == '>') { t.op = 'n'; ++i; }
        else t.op = '<';
        break;
      case '>':
        if (i + 1 < n && src[i + 1] == '=') { t.op = 'g'; ++i; }
        else if (i + 1 < n && src[i + 1] == '<') { t.op = 'n'; ++i; }
        else t.op = '>';
        break;
      case '=':
        if (i + 1 < n && src[i + 1] == '<') { t.op = 'l'; ++i; }
        else if (i + 1 < n && src[i + 1] == '>') { t.op = 'g'; ++i; }
        else t.op = '=';
        break;
      case '+': case '-': case '*': case '/': case '\\': case '^': case '&':
      case '(': case ')': case ',': case '.':
        t.op = c;
        break;
      default:
        CompErr(1032, line, int(i - lineStart));
    }
    ++i;
    push(std::move(t), at);
  }
  Tok nl;
  nl.k = tNl;
  push(std::move(nl), n);
  Tok e;
  e.k = tEof;
  push(std::move(e), n);
  return out;
}

}  // namespace vbs
