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
#include <functional>
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
  // The searches between two calls of Zera share one budget of steps (each
  // instruction run, character scanned or choice taken back counts one): a search
  // that would run without end (nested repeats over a long text that does not
  // match, or a long fixed count tried at every position) gives up once it is
  // spent and reports false, with Esgotou() true until the next Zera.
  bool Acha(TxV s, size_t de, std::vector<int>& caps) const;
  bool Esgotou() const { return orc_.esgotou; }
  void Zera() const { orc_.gasto = 0; orc_.visto = 0; orc_.esgotou = false; }
  // The budget; kRxPassos unless set (tests set a small one).
  void Limite(long long passos) { orc_.limite = passos; }
  // Called every 2^16 steps of a search: the host's time-out may throw from it.
  void Vigia(std::function<void()> f) { orc_.vigia = std::move(f); }
  static constexpr long long kRxPassos = 200000000;

  struct Prog;
  // What the searches since the last Zera have spent.
  struct Orcamento {
    long long gasto = 0, visto = 0, limite = kRxPassos;
    bool esgotou = false;
    std::function<void()> vigia;
  };
  Orcamento& Orc() const { return orc_; }

 private:
  Prog* p_;
  mutable Orcamento orc_;
};

}  // namespace vbs
