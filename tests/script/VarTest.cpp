// Script variables by name, function arguments by prefix, and the document and
// callback objects.
#include "Host.h"

using namespace zw;

namespace {

// A callback object: cbkVbsFx changes element 1 of its array and answers its upper bound.
struct Cbk : vbs::Obj {
  int Id(vbs::TxV n) override { return vbs::NameIx(n, {"cbkVbsFx"}); }
  void Invoke(int, vbs::Inv, vbs::Args a, vbs::Value& r) override {
    vbs::Arr* arr = a[0].a;
    arr->v[1] = vbs::Value(u"mudou");
    r = vbs::Value(int32_t(arr->v.size()) - 1);
  }
};

}  // namespace

using Vars = Host;

TEST_F(Vars, DollarNamesHoldTextOthersANumberWhenTheTextIsOne) {
  h.VarReg(u"N$", Var(int16_t(5)));
  Var v = Var(0.0);
  h.VarCon(u"N$", v);
  ASSERT_TRUE(v.EhTx());
  EXPECT_EQ(v.Txt(), u"5");
  h.VarReg(u"M", Var(u"5"));
  EXPECT_EQ(TxVar(Ev(u"TypeName(M)")), u"Integer");
  h.VarCon(u"M", v);
  EXPECT_TRUE(v.EhNum());
  EXPECT_EQ(v.Num(), 5);
  // A text under a name without "$" is stored as text, and read back as its number, 0.
  h.VarReg(u"X", Var(u"abc"));
  EXPECT_EQ(TxVar(Ev(u"X")), u"abc");
  h.VarCon(u"X", v);
  EXPECT_TRUE(v.EhNum());
  EXPECT_EQ(v.Num(), 0);
  // An unknown variable reads as "" or 0.
  h.VarCon(u"Nunca$", v);
  EXPECT_EQ(TxVar(v), u"");
  h.VarCon(u"Nunca", v);
  EXPECT_EQ(v.Num(), 0);
}

TEST_F(Vars, ATextStartingWithAQuoteKeepsItsQuotesOrIsRefused) {
  h.VarReg(u"Q$", Var(u"\"abc\""));
  EXPECT_EQ(TxVar(Ev(u"Q")), u"\"abc\"");
  h.VarReg(u"R$", Var(u"\"abc"));
  EXPECT_TRUE(Ev(u"R").EhVazio());
  h.VarReg(u"S$", Var(u"x\"y"));  // inner quotes become apostrophes
  EXPECT_EQ(TxVar(Ev(u"S")), u"x'y");
}

TEST_F(Vars, FunctionArgumentsByPrefix) {
  h.FxArgReg(u"fx", u"lit", Var(u"\"valor\""));
  h.FxArgReg(u"fx", u"ref", Var(u"outra"));
  h.FxArgReg(u"fx", u"nada", Var(u"ninguem"));
  int16_t ok = 0;
  h.ExeCmd(u"outra = \"dela\"", ok);
  EXPECT_EQ(TxVar(Ev(u"FX_LIT")), u"\"valor\"");
  Var v = Var(Tx());
  h.FxArgCon(u"fx", u"lit", v);
  EXPECT_EQ(TxVar(v), u"valor");
  h.FxArgCon(u"Fx", u"Ref", v);
  EXPECT_EQ(TxVar(v), u"dela");
  h.FxArgCon(u"fx", u"nada", v);
  EXPECT_EQ(TxVar(v), u"");
  Tx t = u" 12 , abc ,x", tipo;
  h.FxArgSep(t, v, tipo);
  EXPECT_EQ(TxVar(v) + tipo, u"12N");
  h.FxArgSepReg(u"fx", t, u"b", v);
  EXPECT_EQ(TxVar(v) + u"|" + t + u"|" + TxVar(Ev(u"FX_B")), u"abc|x|abc");
}

TEST_F(Vars, DocumentCallsStartEmptyAndAskTheDocumentObject) {
  Var r;
  h.DocConOpc(u"N", u"k", r);
  EXPECT_EQ(r.Tipo(), Var::K::Int);
  h.DocConEsp(u"A", u"k", r);
  EXPECT_EQ(TxVar(r), u"");
  ASSERT_EQ(Pgm({u"Class Doc", u"Public last", u"Sub DocVarCon(n, r)",
                 u"If n = \"DocEsp\" Then r = \"[COR=azul][TAM=3]\" Else r = \"opc:\" & n", u"End Sub",
                 u"Sub DocExpCalc(n, r, k)", u"r = n & k", u"End Sub", u"Sub PrExeFx(t)", u"last = t",
                 u"End Sub", u"End Class", u"Set d = New Doc"}),
            1);
  Var doc = Ev(u"d");
  ASSERT_TRUE(doc.EhObj());
  h.RegObDoc(doc);
  h.DocConOpc(u"A", u"k", r);
  EXPECT_EQ(TxVar(r), u"opc:k");
  h.DocConVar(u"A", u"e", r);
  EXPECT_EQ(TxVar(r), u"e1");
  h.DocConOpcEsp(u"A", u"tam", r);
  EXPECT_EQ(TxVar(r), u"3");
  h.SqlCalc(u"N", u"q", r);  // the document has no SqlCalc: the start value stays
  EXPECT_EQ(r.Tipo(), Var::K::Int);
  h.PrWin({Var(u"\"a\""), Var(int16_t(2)), Var(u"b")});
  EXPECT_EQ(TxVar(Ev(u"d.last")), u"a,2,b");
  std::vector<Var> a{Var(), Var(u"x"), Var(u"y")};
  h.FxPgm(a, r);  // the callback object is the (empty) window
  EXPECT_TRUE(r.EhVazio());
  h.VbsSupPrp(Var(), sc, VbsObVar(new Cbk));
  h.FxPgm(a, r);
  EXPECT_EQ(r.Num(), 2);
  EXPECT_EQ(TxVar(a[1]), u"mudou");
}
