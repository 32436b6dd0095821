// Host: a script host bound to a fresh engine, with a program loaded line by line.
#pragma once
#include <gtest/gtest.h>
#include <memory>
#include <vector>
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw {

struct Host : ::testing::Test {
  std::shared_ptr<vbs::ScriptControl> sc = std::make_shared<vbs::ScriptControl>();
  VbsSup h;

  void SetUp() override { h.VbsSupPrp(Var(), sc); }

  // Loads the lines as the wizard loads a "VBS" segment (comments stripped).
  int16_t Pgm(std::initializer_list<const char16_t*> lines) {
    std::vector<Tx> l{Tx()};
    for (auto* s : lines) l.push_back(s);
    int16_t ok = -1;
    h.PgmRegArr(1, l, ok);
    return ok;
  }
  // SupVbsFx with a list made of the name and the arguments.
  Var Fx(std::vector<Var> list, Tx* kind = nullptr) {
    Tx k;
    Var r;
    h.SupVbsFx(list, k, r);
    if (kind) *kind = k;
    return r;
  }
  // The value of an expression, or "" when it fails.
  Var Ev(const Tx& e) {
    Var r;
    h.ExeCalcRes(e, r);
    return r;
  }
  int32_t Num() {
    int32_t n = 0;
    h.RegObNum(n);
    return n;
  }
};

}  // namespace zw
