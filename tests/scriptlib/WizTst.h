// What the tests of "Wiz" share: a script host with the library under the name
// "Wiz", and the two ways a test talks to it (a statement, an expression's text).
#pragma once
#include <gtest/gtest.h>
#include <memory>
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw::tst {

struct WizHost : ::testing::Test {
  std::shared_ptr<vbs::ScriptControl> sc = std::make_shared<vbs::ScriptControl>();
  VbsSup h;

  // Gives the library's object to the scripts as "Wiz".
  void Liga(const Var& ob) {
    h.VbsSupPrp(Var(), sc);
    int16_t ok = 0;
    h.RegObPrp(u"N", u"Wiz", ob, ok);
    ASSERT_EQ(ok, 1);
  }
  // The text of an expression's value.
  Tx Ev(const Tx& e) {
    Var r;
    h.ExeCalcRes(e, r);
    return TxVar(r);
  }
  // Runs a statement: 1 when it ran without error.
  int16_t Cmd(const Tx& c) {
    int16_t ok = 0;
    h.ExeCmd(c, ok);
    return ok;
  }
  // The number of the script's last error.
  int32_t Erro() {
    int32_t num = 0;
    Tx des, loc;
    h.VbsErr(num, des, loc);
    return num;
  }
};

}  // namespace zw::tst
