// The table of objects that scripts see, and what a reset of the engine keeps.
#include "Host.h"

using namespace zw;

namespace {

// A host object with one member, "Val", that answers 7.
struct Sete : vbs::Obj {
  int Id(vbs::TxV n) override { return vbs::NameIx(n, {"Val"}); }
  void Invoke(int, vbs::Inv, vbs::Args, vbs::Value& r) override { r = vbs::Value(int16_t(7)); }
};

Var NovoSete() { return VbsObVar(new Sete); }

}  // namespace

using Table = Host;

TEST_F(Table, ANameRegisteredTwiceKeepsTwoRecordsAndTheFirstObject) {
  int16_t ok = -1;
  h.RegObPrp(u"N", u"S", NovoSete(), ok);
  EXPECT_EQ(ok, 1);
  h.RegObPrp(u"N", u"S", VbsObVar(new Sete), ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(Num(), 4);
  EXPECT_EQ(Ev(u"S.Val").Num(), 7);
  h.VbsIni();  // the first is added again, the second fails silently
  EXPECT_EQ(Ev(u"S.Val").Num(), 7);
  EXPECT_EQ(Num(), 4);
}

TEST_F(Table, AResetKeepsObjectsAndLosesCodeAndVariables) {
  ASSERT_EQ(Pgm({u"Dim v", u"v = 5", u"Function F()", u"F = 1", u"End Function"}), 1);
  int16_t ok = -1;
  h.RegOb(u"S", NovoSete(), ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(Ev(u"v").Num(), 5);
  h.VbsIni();
  Tx k;
  h.PgmFxTip(u"F", k);
  EXPECT_EQ(k, u"?");
  EXPECT_TRUE(Ev(u"v").EhVazio());
  EXPECT_EQ(Ev(u"S.Val").Num(), 7);
  EXPECT_EQ(TxVar(Ev(u"TypeName(Fxp)")), u"VbsSup");
  // Every call now fails through its flag only.
  EXPECT_EQ(Fx({Var(u"F")}).Num(), 0);
}

TEST_F(Table, FixRepGoesBackToTheLastFixPrpOrEmptiesTheTable) {
  int32_t n = -1;
  h.RegObFixRep(n);  // no FixPrp yet: fixed count 0 removes every object, Fxp too
  EXPECT_EQ(n + Num(), 0);
  EXPECT_EQ(TxVar(Ev(u"IsObject(Fxp)")), u"False");
  int16_t ok = 0;
  h.RegObPrp(u"N", u"Fxp", h.FxpOb(), ok);
  h.RegObFixPrp(n);
  EXPECT_EQ(n, 1);
  h.RegObPrp(u"ROB", u"S", NovoSete(), ok);
  h.RegObFixRep(n);
  EXPECT_EQ(n * 10 + Num(), 11);
  EXPECT_TRUE(Ev(u"S").EhVazio());
  EXPECT_EQ(TxVar(Ev(u"TypeName(Fxp)")), u"VbsSup");
}

TEST_F(Table, LibPastTheEndGrowsTheTableWithEmptyRecords) {
  h.RegObLib(6);
  EXPECT_EQ(Num(), 5);
  EXPECT_EQ(TxVar(Ev(u"TypeName(FxPre)")), u"VbsSup");
  h.RegObLib(2);
  EXPECT_EQ(Num(), 1);
  EXPECT_TRUE(Ev(u"Fxp").EhVazio());
}

TEST_F(Table, KindDllCreatesByProgramIdentifier) {
  int16_t ok = -1;
  h.RegObPrp(u" dll ", u"Dic", Var(u"Scripting.Dictionary"), ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(Num(), 3);
  h.ExeCmd(u"Dic.Add \"k\", 1", ok);
  EXPECT_EQ(Ev(u"Dic.Count").Num(), 1);
  // RegOb takes a text for a program identifier; one that can't be created adds nothing.
  h.RegOb(u"Nada", Var(u"No.Such.Thing"), ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(Num(), 3);
}

TEST_F(Table, FxFimEmptiesTheTableAndLetsGoOfTheEngine) {
  h.FxFim();
  EXPECT_EQ(Num(), 0);
  EXPECT_EQ(Fx({Var(u"F")}).Num(), 0);
}

namespace {

// A window carrying its script control, as the wizard's window does.
struct Janela : VarObj, VbsFrm {
  std::shared_ptr<vbs::ScriptControl> sc = std::make_shared<vbs::ScriptControl>();
  std::shared_ptr<vbs::ScriptControl> scVbs() override { return sc; }
  intptr_t hwnd() override { return 42; }
};

}  // namespace

TEST(TableFrm, TheWindowGivesTheControlAndIsTheCallbackObject) {
  auto j = std::make_shared<Janela>();
  VbsSup h;
  h.VbsRegFS(Var(std::shared_ptr<VarObj>(j)));
  EXPECT_EQ(j->sc->SitehWnd(), 42);
  int32_t n = 0;
  h.RegObNum(n);
  EXPECT_EQ(n, 2);
  std::vector<Var> a{Var(), Var(u"x")};
  Var r = Var(u"old");
  h.FxPgm(a, r);  // the window has no cbkVbsFx: the result is empty
  EXPECT_TRUE(r.EhVazio());
}

TEST(TableEnd, AnEngineThatOutlivesItsHostGetsAnErrorFromFxp) {
  auto sc = std::make_shared<vbs::ScriptControl>();
  { VbsSup h; h.VbsSupPrp(Var(), sc); }
  EXPECT_FALSE(sc->ExecuteStatement(u"Fxp.FxIni"));
  EXPECT_EQ(sc->Error().Number, 5);
}
