// Calls from the wizard into the script: Arg1..Arg9, "FxRes", the run flag, and the
// silent ways a call fails.
#include "Host.h"

using namespace zw;

using Call = Host;

TEST_F(Call, TextsCrossQuotedWithInnerQuotesTurnedToApostrophes) {
  ASSERT_EQ(Pgm({u"Function Eco(x)", u"  Eco = x & \"|\" & Arg1", u"End Function"}), 1);
  Tx k;
  // The parameter gets the value itself; Arg1 and the result cross through quoting.
  EXPECT_EQ(TxVar(Fx({Var(u"Eco"), Var(u"a\"b")}, &k)), u"a'b|a'b");
  EXPECT_EQ(k, u"F");
  // Enclosing quotes are dropped on the way into Arg1, not into x; on the way back the
  // result's leading quote is dropped and the inner one becomes an apostrophe.
  EXPECT_EQ(TxVar(Fx({Var(u"Eco"), Var(u"\"q\"")})), u"q'|q");
  // A number crosses as a number and comes back as one.
  ASSERT_EQ(Pgm({u"Function Half(x)", u"Half = x / 2", u"End Function"}), 1);
  Var r = Fx({Var(u"Half"), Var(int16_t(5))});
  EXPECT_TRUE(r.EhNum());
  EXPECT_DOUBLE_EQ(r.Num(), 2.5);
}

TEST_F(Call, AnEmptyArgumentLeavesArg1AloneButReachesTheParameter) {
  ASSERT_EQ(Pgm({u"Function Ver(x)", u"  Ver = TypeName(x) & \"/\" & Arg1", u"End Function"}), 1);
  EXPECT_EQ(TxVar(Fx({Var(u"Ver"), Var(u"old")})), u"String/old");
  EXPECT_EQ(TxVar(Fx({Var(u"Ver"), Var()})), u"Empty/old");
  // An empty text is a text: it is quoted and assigned.
  EXPECT_EQ(TxVar(Fx({Var(u"Ver"), Var(u"")})), u"String/");
}

TEST_F(Call, ArgumentsPastNineAreAllDroppedAndTenParametersNeverRun) {
  ASSERT_EQ(Pgm({u"Dim ran", u"Function Two(a, b)", u"  Two = TypeName(a) & \",\" & Arg1", u"End Function",
                 u"Function Ten(a, b, c, d, e, f, g, h, i, j)", u"  ran = 1", u"  Ten = \"ten\"",
                 u"End Function", u"Function Nine(a, b, c, d, e, f, g, h, i)", u"  Nine = Arg9 & i",
                 u"End Function"}),
            1);
  const Var nine(u"Nine"), two(u"Two");
  std::vector<Var> l{nine};
  l.reserve(12);
  for (int16_t i = 1; i <= 9; i++) l.emplace_back(i);
  EXPECT_EQ(TxVar(Fx(l)), u"99");
  // Ten arguments: none is assigned or passed; Arg1 keeps the last call's 1.
  l[0] = two;
  l.emplace_back(int16_t(10));
  EXPECT_EQ(TxVar(Fx(l)), u"Empty,1");
  // Ten parameters: never run, flag 1, and "FxRes" is the former result.
  EXPECT_EQ(TxVar(Fx({Var(u"Ten"), Var(u"x")})), u"Empty,1");
  EXPECT_EQ(h.RunFlag(), 1);
  EXPECT_TRUE(Ev(u"ran").EhVazio());
}

TEST_F(Call, ExtraArgumentsAreCutButStillAssigned) {
  ASSERT_EQ(Pgm({u"Function One(a)", u"One = a & Arg2 & Arg3", u"End Function"}), 1);
  EXPECT_EQ(TxVar(Fx({Var(u"One"), Var(u"x"), Var(u"y"), Var(u"z")})), u"xyz");
}

TEST_F(Call, ProceduresAnswerTheirRunFlag) {
  ASSERT_EQ(Pgm({u"Dim seen", u"Sub Ok(x)", u"seen = x", u"End Sub", u"Sub Bad()", u"seen = 1 / 0",
                 u"End Sub", u"Function F()", u"F = \"f\"", u"End Function"}),
            1);
  Tx k;
  Var r = Fx({Var(u"Ok"), Var(u"v")}, &k);
  EXPECT_EQ(k + TxVar(r) + TxVar(Ev(u"seen")), u"P1v");
  EXPECT_EQ(Fx({Var(u"Bad")}).Num(), 0);
  r = Fx({Var(u"Nobody")}, &k);
  EXPECT_EQ(k + TxVar(r), u"?0");
  int16_t ok1 = -1, ok2 = -1;
  h.PgmCmd(u"Ok", ok1);
  h.PgmCmd(u"Bad", ok2);
  EXPECT_EQ(ok1 * 10 + ok2, 10);
}

TEST_F(Call, AFailedFunctionLeavesTheOldFxRes) {
  ASSERT_EQ(Pgm({u"Function A()", u"A = \"first\"", u"End Function", u"Function Boom()", u"Boom = 1 / 0",
                 u"End Function", u"Function Nada()", u"End Function"}),
            1);
  EXPECT_EQ(TxVar(Fx({Var(u"A")})), u"first");
  EXPECT_EQ(TxVar(Fx({Var(u"Boom")})), u"first");
  EXPECT_EQ(h.RunFlag(), 0);
  // A function that returns nothing makes "FxRes=", which the engine refuses.
  EXPECT_EQ(TxVar(Fx({Var(u"Nada")})), u"first");
  EXPECT_EQ(h.RunFlag(), 1);
}

TEST_F(Call, ByRefChangesDoNotLeakBack) {
  ASSERT_EQ(Pgm({u"Sub Chg(x)", u"x = \"changed\"", u"End Sub"}), 1);
  std::vector<Var> l{Var(u"Chg"), Var(u"orig")};
  Tx k;
  Var r;
  h.SupVbsFx(l, k, r);
  EXPECT_EQ(TxVar(l[1]) + TxVar(Ev(u"Arg1")), u"origorig");
}

TEST_F(Call, ExpressionsKeepTheirResultOnFailureAndTypeItOnSuccess) {
  int16_t ok = -1;
  Var r = Var(u"keep");
  h.ExeCalc(u"1 +", r, ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(TxVar(r), u"keep");
  h.ExeCalc(u"1 + 2", r, ok);  // a text destination stays text
  EXPECT_EQ(r.Txt(), u"3");
  r = Var(int16_t(0));
  h.ExeCalc(u"\"2.5\"", r, ok);  // anything else becomes a double
  EXPECT_EQ(r.Tipo(), Var::K::Dbl);
  h.ExeCalcRa(u"3 > 2", r, ok);  // typed by the value: a boolean is a number
  EXPECT_EQ(r.Num(), -1);
  EXPECT_EQ(Ev(u"1 / 0").Txt(), u"");
}

TEST_F(Call, VbsErrGivesNumberDescriptionAndLocation) {
  int32_t n = -1;
  Tx d, loc = u"x";
  h.VbsErr(n, d, loc);
  EXPECT_EQ(d + TxVar(Var(n)) + loc, u"Sem erro0");
  EXPECT_EQ(Pgm({u"x = 1", u"y = (2 +"}), 0);
  h.VbsErr(n, d, loc);
  EXPECT_NE(n, 0);
  EXPECT_EQ(loc.substr(0, 11), u"LIN:2  COL:");
  EXPECT_EQ(loc.substr(loc.size() - 14), u"  COD:y = (2 +");
}

TEST(TipVL, KindOfAnExpression) {
  VbsSup h;
  auto tip = [&](const Tx& t) {
    Tx k, r;
    h.TipVL(t, k, r);
    return k == r ? k : u"differ";
  };
  EXPECT_EQ(tip(u"Left$(a, 2)"), u"A");
  EXPECT_EQ(tip(u"Left(a, 2)") + tip(u"\"abc\"") + tip(u"  nome$  ") + tip(u"a + 1"), u"NAAN");
  // The "$" before "(" is looked for in the untrimmed text: a leading blank shifts it.
  EXPECT_EQ(tip(u" Mid$(a, 2)"), u"N");
  EXPECT_EQ(tip(u"(1)"), u"N");
}

// A statement list runs as its statements would one by one, also after the engine's
// code or the engine itself changed under the list's compiled code.
TEST_F(Call, AStatementListPassesOverRefusalsAndFollowsNewCode) {
  const std::vector<Tx> lst{u"a=1", u"b=", u"c=a+1", u"d=1/0", u"e=Foo()", u"f=c*2 : g=3", u"h=Nada(1)"};
  int16_t ok = 0;
  h.ExeCmdLst(lst, ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(TxVar(Ev(u"a & c & f & g & \"|\" & IsEmpty(b) & IsEmpty(d) & IsEmpty(e)")), u"1243|TrueTrueTrue");
  ASSERT_EQ(Pgm({u"Function Foo()", u"  Foo = c + 10", u"End Function"}), 1);
  h.ExeCmdLst(lst, ok);
  EXPECT_EQ(TxVar(Ev(u"a & e")), u"112");
  int16_t k = 0;
  h.ExeCmd(u"Function Nada(x) : Nada = x + 40 : End Function", k);  // new code, same engine
  h.ExeCmd(u"c = 5", k);
  h.ExeCmdLst(lst, ok);
  EXPECT_EQ(TxVar(Ev(u"c & \"|\" & h")), u"2|41");
  h.VbsIni();  // a new engine: no code, no variables
  h.ExeCmdLst(lst, ok);
  EXPECT_EQ(TxVar(Ev(u"c & \"|\" & IsEmpty(e) & IsEmpty(h)")), u"2|TrueTrue");
  // Errors of the list are not left behind for the next call to find.
  int32_t num = -1;
  Tx des, loc;
  h.VbsErr(num, des, loc);
  EXPECT_EQ(num, 0);
}
