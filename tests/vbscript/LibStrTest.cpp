// Built-ins called by name: the edges the scripts under lib/ leave out, and the boxes.
#include "DateTime.h"
#include "LibTest.h"
#include "MsgDlg.h"

using namespace libtest;
using vbs::Value;

namespace {
Value Dt(int a, int m, int d, int h = 0) {
  double x;
  vbs::DtSerial(a, m, d, x);
  return Value::Date(vbs::DtJun(x, vbs::TmSerial(h, 0, 0)));
}
}  // namespace

// The cases the scripts under lib/ do not reach: the rest of each function's
// rules is checked there against its expected output.
TEST(LibStr, EdgesTheScriptsMiss) {
  EXPECT_EQ(Tx(Fn("Mid", {S(u"abc"), I(2), I(99)})), u"bc");
  EXPECT_EQ(Fn("InStr", {S(u""), S(u"")}).l, 0);
  EXPECT_EQ(Fn("InStr", {I(1), S(u"AÇÃO"), S(u"ção"), I(1)}).l, 2);  // text compare folds accents
  EXPECT_EQ(Tx(Fn("Replace", {S(u"aaa"), S(u"a"), S(u"aa")})), u"aaaaaa");      // no second pass
  EXPECT_EQ(Fn("Int", {Value::Cur(-15000)}).c, -20000);
  EXPECT_EQ(Fn("Fix", {Value::Cur(-15000)}).c, -10000);
  EXPECT_DOUBLE_EQ(Fn("Round", {Value(2.675), I(2)}).d, 2.68);  // decimal, not binary, halves
  EXPECT_EQ(Fn("Round", {Value::Cur(25000)}).c, 20000);
}

TEST(LibDateFn, NullPassesThroughDateSums) {
  EXPECT_TRUE(Fn("DateAdd", {S(u"d"), I(1), Value::Null()}).IsNull());
  EXPECT_TRUE(Fn("DateDiff", {S(u"d"), Value::Null(), Dt(2020, 1, 1)}).IsNull());
  EXPECT_EQ(Tx(Fn("DateAdd", {S(u"q"), I(-1), Dt(2020, 1, 15, 6)})), u"10/15/2019 6:00:00 AM");  // the time stays
}

TEST(LibMath, RndSequenceAndSeeds) {
  // Rnd(-1) always starts the same sequence; Rnd(0) repeats the last number;
  // Randomize with a seed after Rnd(-1) repeats its sequence.
  float a = Fn("Rnd", {I(-1)}).f;
  float b = Fn("Rnd", {}).f;
  EXPECT_NEAR(a, 0.224007, 1e-6);
  EXPECT_EQ(Fn("Rnd", {I(0)}).f, b);
  Fn("Rnd", {I(-1)});
  Fn("Randomize", {I(5)});
  float c = Fn("Rnd", {}).f;
  Fn("Rnd", {I(-1)});
  Fn("Randomize", {I(5)});
  EXPECT_EQ(Fn("Rnd", {}).f, c);
}

namespace {
// Records what a box would show and answers as told.
struct DlgTeste : zw::MsgDlg {
  int estilo = -1;
  std::u16string titulo, texto, omissao;
  bool aceita = true;
  int Caixa(int e, const zw::Tx& t, const zw::Tx& x) override {
    estilo = e;
    titulo = t;
    texto = x;
    return zw::kAnsNo;
  }
  void Bip() override {}
  bool Entrada(const zw::Tx& t, const zw::Tx& p, const zw::Tx& o, zw::Tx& r) override {
    titulo = t;
    texto = p;
    omissao = o;
    r = u"typed";
    return aceita;
  }
};
}  // namespace

TEST(LibMisc, BoxesGoThroughTheDialogService) {
  DlgTeste d;
  zw::MsgDlgDef(&d);
  Value r = Fn("MsgBox", {S(u"Continuar?"), I(4 + 32), S(u"Instalar")});
  EXPECT_EQ(r.i, zw::kAnsNo);
  EXPECT_EQ(d.estilo, 36);
  EXPECT_EQ(d.titulo, u"Instalar");
  EXPECT_EQ(d.texto, u"Continuar?");
  Fn("MsgBox", {Value(1.5)});
  EXPECT_EQ(d.titulo, u"VBScript");
  EXPECT_EQ(d.texto, u"1.5");
  EXPECT_EQ(Tx(Fn("InputBox", {S(u"Nome"), S(u"T"), S(u"x")})), u"typed");
  EXPECT_EQ(d.omissao, u"x");
  d.aceita = false;
  EXPECT_TRUE(Fn("InputBox", {S(u"Nome")}).IsEmpty());
  zw::MsgDlgDef(nullptr);
}
