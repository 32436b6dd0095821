// RegExp: the regular-expression matcher behind the RegExp object.
// Patterns follow the language's regular expressions (the JavaScript syntax of the
// time): classes, \d \w \s \b \B, greedy and lazy quantifiers, groups, (?:...),
// lookahead (?=...) (?!...), backreferences \1.., ^ and $ (line-wise with Multiline),
// case-blind matching. A pattern compiles to a small program that a backtracking
// machine runs with its own stack on the heap, so long texts cannot overflow the
// thread's stack; single-character repeats (\d+, .*, [a-z]{2,5}) backtrack without
// one stack entry per character.
#pragma once
#include <cstdint>
#include <vector>

#include "Tx.h"

namespace vbs {

using zw::Tx;
using zw::TxV;

class Rx {
 public:
  Rx();
  ~Rx();
  Rx(const Rx&) = delete;
  Rx& operator=(const Rx&) = delete;

  // Compiles a pattern; 0 on success, else the error number for the script:
  // 5017 syntax error, 5018 unexpected quantifier, 5019 expected ']', 5020 expected ')',
  // 5021 invalid range in a character set.
  int Compila(TxV pat, bool icase, bool multi);
  // How many capturing groups the pattern has.
  int Grupos() const;
  // Looks for the first match starting at `de` or later. On success `caps` holds
  // 2 * (Grupos() + 1) positions: start and end of the whole match, then of each
  // group, -1 for a group that took no part.
  // A search that backtracks without end (nested repeats over a long text that does
  // not match) gives up after kRxPassos choices and reports false with Esgotou() true.
  bool Acha(TxV s, size_t de, std::vector<int>& caps) const;
  bool Esgotou() const { return esgotou_; }
  static constexpr long long kRxPassos = 200000000;

  struct Prog;

 private:
  Prog* p_;
  mutable bool esgotou_ = false;
};

}  // namespace vbs
