// Program text: lines joined for the engine, comments stripped, procedures listed.
#include <cstdio>
#include <fstream>
#include "Host.h"

using namespace zw;

using Program = Host;

TEST_F(Program, StrippingDropsCommentsIndentationAndBlankLinesOutsideQuotes) {
  Tx t;
  h.PgmTxJun(1, t, u"   x = 1   ' set x");
  h.PgmTxJun(1, t, u"      ");
  h.PgmTxJun(1, t, u"' only a comment");
  h.PgmTxJun(1, t, u"  s = \"it's\" ' here");
  h.PgmTxJun(1, t, u"s = \"a\" & \"b'\" & c 'x");
  EXPECT_EQ(t, u"x = 1\r\ns = \"it's\"\r\ns = \"a\" & \"b'\" & c");
  Tx u;
  h.PgmTxJun(0, u, u"  x ' c");
  h.PgmTxJun(0, u, u"");
  h.PgmTxJun(0, u, u"y");
  EXPECT_EQ(u, u"  x ' c\r\n\r\ny");
}

TEST_F(Program, OneSyntaxErrorLosesTheWholeProgram) {
  EXPECT_EQ(Pgm({u"Function A()", u"A = 1", u"End Function", u"Sub B(", u"End Sub"}), 0);
  int32_t n = -1;
  Tx names;
  h.ConFxRegTx(names, n);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(names, u"");
}

TEST_F(Program, ProceduresInTheirOrderAndTheirKinds) {
  ASSERT_EQ(Pgm({u"Sub Zeta(a)", u"End Sub", u"Function Alfa()  ' a function", u"End Function",
                 u"Sub Meio()", u"End Sub"}),
            1);
  std::vector<Tx> l;
  int32_t n = 0;
  h.ConFxReg(l, n);
  ASSERT_EQ(n, 3);
  ASSERT_EQ(l.size(), 4u);
  EXPECT_EQ(l[1], u"Zeta");
  EXPECT_EQ(l[3], u"Meio");
  Tx t;
  h.ConFxRegTx(t, n);
  EXPECT_EQ(t, u"Zeta,Alfa,Meio");
  Tx k;
  h.PgmFxTip(u"Alfa", k);
  EXPECT_EQ(k, u"F");
  h.PgmFxTip(u"zeta", k);
  EXPECT_EQ(k, u"P");
  h.PgmFxTip(u"Ninguem", k);
  EXPECT_EQ(k, u"?");
}

TEST_F(Program, ReadingAFileAndItsLastLineFlag) {
  std::string p = ::testing::TempDir() + "pgmler.vbs";
  {
    std::ofstream f(p, std::ios::binary);
    f << "Function Ola()\r\n  Ola = \"ol\xE1\" ' greeting\r\nEnd Function\r\n' the end\r\n";
  }
  Tx t;
  int16_t ok = -1;
  h.PgmLer(TxDeUtf8(p), 1, t, ok);
  EXPECT_EQ(ok, 0);  // the last line was a comment and was dropped
  EXPECT_EQ(t, u"Function Ola()\r\nOla = \"ol\u00E1\"\r\nEnd Function");
  h.PgmRegExe(t, ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(TxVar(Fx({Var(u"Ola")})), u"ol\u00E1");
  h.PgmLer(TxDeUtf8(p), 0, t, ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(t.substr(t.size() - 9), u"' the end");
  std::remove(p.c_str());
  h.PgmLer(TxDeUtf8(p), 1, t, ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(t, u"");
}
