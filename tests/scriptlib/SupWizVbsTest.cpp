// "Wiz" as the scripts reach it: the table finds operations case-blind, arguments
// cross by reference without losing their kind, and the two component operations
// reach the engine behind the library.
#include <gtest/gtest.h>
#include <memory>
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizTst.h"

namespace zw {
namespace {

// An engine that records what reaches it and answers what it is told.
struct EngTst : WizEng {
  std::vector<Tx> log;
  Var ans = Var(int16_t(1));
  void CmpVarCon(const Var& nome, Var& res) override {
    log.push_back(u"Con " + TxVar(nome));
    res = ans;
  }
  void CmpVarAlt(const Var& nome, const Var& prp, const Var& val, Var& res) override {
    log.push_back(u"Alt " + TxVar(nome) + u"|" + TxVar(prp) + u"|" + (val.EhFalta() ? Tx(u"<falta>") : TxVar(val)));
    res = ans;
  }
};

struct WizVbsTest : tst::WizHost {
  EngTst eng;
  std::unique_ptr<SupWizVbs> lib = std::make_unique<SupWizVbs>(&eng);

  void SetUp() override {
    Liga(lib->Ob());
  }
};

TEST_F(WizVbsTest, ComponentOperationsReachTheEngineByAnyCase) {
  EXPECT_EQ(Ev(u"Wiz.CmpVarAlt(\"LaTit\", \"TXT\", \"Novo\")"), u"1");
  EXPECT_EQ(Cmd(u"wiz.cmpvaralt \"X\", \"SIT\""), 1);
  eng.ans = Var(int16_t(0));
  EXPECT_EQ(Ev(u"WIZ.CMPVARCON(\"ckA\")"), u"0");
  ASSERT_EQ(eng.log.size(), 3u);
  EXPECT_EQ(eng.log[0], u"Alt LaTit|TXT|Novo");
  EXPECT_EQ(eng.log[1], u"Alt X|SIT|<falta>");  // a value left out arrives missing
  EXPECT_EQ(eng.log[2], u"Con ckA");
}

TEST_F(WizVbsTest, InArgumentsKeepTheirKindInTheScript) {
  // A date crosses as its text; it must not come back into the variable as one.
  ASSERT_EQ(Cmd(u"d = DateSerial(2020, 1, 2) : n = 5"), 1);
  ASSERT_EQ(Cmd(u"r = Wiz.CmpVarCon(d) : r = Wiz.CmpVarAlt(n, n, n)"), 1);
  EXPECT_EQ(Ev(u"TypeName(d) & TypeName(n)"), u"DateInteger");
}

TEST_F(WizVbsTest, UnknownMembersAndAnEndedLibraryAreScriptErrors) {
  EXPECT_EQ(Cmd(u"Wiz.Nada 1"), 0);
  EXPECT_EQ(Erro(), 438);
  lib.reset();  // the engine may still hold the object
  EXPECT_EQ(Cmd(u"x = Wiz.CmpVarCon(\"a\")"), 0);
  EXPECT_TRUE(eng.log.empty());
}

// Positions of the token and item operations are 16-bit: a separator or an item
// found past position 32767 ends the statement with an overflow (6), and the
// variables keep what they held; up to 32767, and with nothing found, they work.
TEST_F(WizVbsTest, SeparatorsAndItemsPast32767AreOverflows) {
  ASSERT_EQ(Cmd(u"t = String(40000, \"x\") & \";\" : k = \"antes\" : n = \"antes\""), 1);
  EXPECT_EQ(Cmd(u"Wiz.TxSep t, \";\", k"), 0);
  EXPECT_EQ(Erro(), 6);
  EXPECT_EQ(Cmd(u"Wiz.NuTxSep t, \";\", n"), 0);
  EXPECT_EQ(Erro(), 6);
  EXPECT_EQ(Ev(u"Len(t) & k & n"), u"40001antesantes");
  EXPECT_EQ(Cmd(u"r = \"antes\""), 1);
  EXPECT_EQ(Cmd(u"r = Wiz.TxOpc(String(40000, \"x\") & \"[A=1]\", \"A\")"), 0);
  EXPECT_EQ(Erro(), 6);
  EXPECT_EQ(Cmd(u"r = Wiz.TxOpcNum(String(40000, \"x\") & \"[A=1]\", \"a\")"), 0);
  EXPECT_EQ(Erro(), 6);
  // an item that begins in range but closes past it
  EXPECT_EQ(Cmd(u"r = Wiz.TxOpc(String(30000, \"x\") & \"[A=\" & String(5000, \"v\") & \"]\", \"A\")"), 0);
  EXPECT_EQ(Erro(), 6);
  EXPECT_EQ(Ev(u"r"), u"antes");

  // the last position that fits, and long texts where nothing is found
  ASSERT_EQ(Cmd(u"t = String(32766, \"x\") & \";2\" : Wiz.TxSep t, \";\", k"), 1);
  EXPECT_EQ(Ev(u"Len(k) & \"|\" & t"), u"32766|2");
  ASSERT_EQ(Cmd(u"t = String(32766, \"x\") & \";2\" : Wiz.NuTxSep t, \";\", n"), 1);
  EXPECT_EQ(Ev(u"n & \"|\" & t"), u"0|2");
  EXPECT_EQ(Cmd(u"t = String(32767, \"x\") & \";\" : Wiz.TxSep t, \";\", k"), 0);
  EXPECT_EQ(Erro(), 6);
  ASSERT_EQ(Cmd(u"t = String(40000, \"x\") : Wiz.TxSep t, \";\", k"), 1);
  EXPECT_EQ(Ev(u"Len(k) & \"|\" & Len(t)"), u"40000|0");
  EXPECT_EQ(Ev(u"Wiz.TxOpc(String(32762, \"x\") & \"[A=1]\", \"A\")"), u"1");  // closes at 32767
  EXPECT_EQ(Ev(u"Len(Wiz.TxOpc(String(40000, \"x\"), \"A\"))"), u"0");
}

TEST(WizVbsTab, EveryNameFindsItsOwnOperation) {
  auto nomes = SupWizVbs::OpNomes();
  ASSERT_FALSE(nomes.empty());
  for (size_t i = 0; i < nomes.size(); i++)
    for (size_t j = i + 1; j < nomes.size(); j++) EXPECT_FALSE(TxIgual(nomes[i], nomes[j])) << i << " " << j;
  for (auto& n : nomes) EXPECT_NE(SupWizVbs::OpDe(TxMin(n)), nullptr);
  EXPECT_EQ(SupWizVbs::OpDe(u"Nada"), nullptr);
  // Without an engine the component operations answer 0.
  SupWizVbs sozinho;
  SupWizVbs::Lis a{Var(Tx(u"LaTit"))};
  Var r;
  ASSERT_TRUE(sozinho.Exe(u"CmpVarCon", a, r));
  EXPECT_EQ(NuDbl(r), 0);
}

}  // namespace
}  // namespace zw
