// The host as scripts see it ("Fxp", "FxPre"), and the diagnostic trace.
#include "Host.h"
#include "TxtGlb.h"

using namespace zw;

using Fxp = Host;

TEST_F(Fxp, AScriptCallsTheHostWithOutArguments) {
  ASSERT_EQ(Pgm({u"Function T1()", u"Dim v, ok, r, k, x", u"Fxp.VarReg \"N$\", 5", u"v = 0",
                 u"Fxp.VarCon \"N$\", v", u"r = \"\"", u"FxPre.ExeCalc \"2 + 3\", r, ok",
                 u"Fxp.SupVbsFx Array(\"Dobro\", 4), k, x",
                 u"T1 = TypeName(v) & v & \"|\" & TypeName(r) & r & ok & \"|\" & k & x", u"End Function",
                 u"Function Dobro(n)", u"Dobro = n * 2", u"End Function"}),
            1);
  EXPECT_EQ(TxVar(Fx({Var(u"T1")})), u"String5|String51|F8");
}

TEST_F(Fxp, ListsAndErrorsReachTheScript) {
  ASSERT_EQ(Pgm({u"Function T2()", u"Dim a, n, ok, d, l, e", u"Fxp.ConFxReg a, n",
                 u"Fxp.ExeCmd \"y = (\", ok", u"Fxp.VbsErr e, d, l",
                 u"T2 = n & a(1) & a(2) & \"|\" & ok & (e <> 0) & Left(l, 6)", u"End Function",
                 u"Sub Outra()", u"End Sub"}),
            1);
  EXPECT_EQ(TxVar(Fx({Var(u"T2")})), u"2T2Outra|0TrueLIN:1 ");
}

TEST_F(Fxp, OperationsThatResetTheEngineRaiseInsteadOfRunning) {
  ASSERT_EQ(Pgm({u"Function T3()", u"On Error Resume Next", u"Fxp.VbsIni", u"T3 = Err.Number",
                 u"Err.Clear", u"Fxp.Nenhum", u"T3 = T3 & \",\" & Err.Number", u"End Function"}),
            1);
  EXPECT_EQ(TxVar(Fx({Var(u"T3")})), u"5,438");
  Tx k;
  h.PgmFxTip(u"T3", k);  // the code is still there
  EXPECT_EQ(k, u"F");
}

TEST(Trace, OffByDefaultOnFromTheCommandLineAndChangesNothing) {
  EXPECT_FALSE(TrcAct());
  auto sc = std::make_shared<vbs::ScriptControl>();
  VbsSup h;
  h.VbsSupPrp(Var(), sc);
  std::vector<Tx> pgm{Tx(), u"Function F(x)", u"F = 10 / x", u"End Function"};
  int16_t ok = 0;
  h.PgmRegArr(1, pgm, ok);
  auto corre = [&](Tx& out) {
    ::testing::internal::CaptureStderr();
    Tx k;
    Var r1, r2;
    h.SupVbsFx({Var(u"F"), Var(int16_t(2))}, k, r1);
    h.SupVbsFx({Var(u"F"), Var(int16_t(0))}, k, r2);
    int16_t ok1 = 0;
    h.ExeCmd(u"z = (", ok1);
    out = TxDeUtf8(::testing::internal::GetCapturedStderr());
    return TxVar(r1) + u"," + TxVar(r2) + u"," + TxVar(Var(ok1)) + u"," + TxVar(Var(h.RunFlag()));
  };
  Tx err;
  Tx semTrc = corre(err);
  EXPECT_EQ(err, u"");
  LcArgPrp(u"zunwiz -FP a.par dbgvbs=Sim");
  TrcLc();
  EXPECT_TRUE(TrcAct());
  EXPECT_EQ(corre(err), semTrc);
  EXPECT_EQ(semTrc, u"5,5,0,0");
  // The failed run: its call, the engine's number and description; the refused statement
  // with its location.
  EXPECT_NE(err.find(u"VbsSup: Run \"F\" with 1 argument(s): erro 11 "), Tx::npos) << TxUtf8(err);
  EXPECT_NE(err.find(u"VbsSup: ExeCmd \"z = (\": erro "), Tx::npos) << TxUtf8(err);
  EXPECT_NE(err.find(u"[LIN:1  COL:"), Tx::npos) << TxUtf8(err);
  LcArgPrp(u"zunwiz DBGVBS=0");
  TrcLc();
  EXPECT_FALSE(TrcAct());
}
