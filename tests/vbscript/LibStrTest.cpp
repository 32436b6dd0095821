// String, conversion and arithmetic built-ins, called by name.
#include "LibTest.h"
#include "MsgDlg.h"

using namespace libtest;
using vbs::Value;

TEST(LibStr, MidLeftRightBoundsAndNull) {
  EXPECT_EQ(Tx(Fn("Mid", {S(u"abcdef"), I(2), I(3)})), u"bcd");
  EXPECT_EQ(Tx(Fn("Mid", {S(u"abc"), I(5)})), u"");
  EXPECT_EQ(Tx(Fn("Mid", {S(u"abc"), I(2), I(99)})), u"bc");
  EXPECT_EQ(Err("Mid", {S(u"abc"), I(0)}), 5);
  EXPECT_EQ(Err("Mid", {S(u"abc"), I(1), I(-1)}), 5);
  EXPECT_TRUE(Fn("Mid", {Value::Null(), I(1)}).IsNull());
  EXPECT_EQ(Err("Left", {S(u"abc"), Value::Null()}), 94);
  EXPECT_EQ(Tx(Fn("Left", {S(u"abc"), I(9)})), u"abc");
  EXPECT_EQ(Tx(Fn("Right", {I(12345), I(2)})), u"45");
  EXPECT_EQ(Err("Right", {S(u"abc"), I(-1)}), 5);
  EXPECT_EQ(Tx(Fn("Len", {Value(1.5)})), u"3");
  EXPECT_TRUE(Fn("Len", {Value::Null()}).IsNull());
  EXPECT_EQ(Fn("Len", {Value()}).l, 0);
}

TEST(LibStr, InStrFormsAndCompareModes) {
  EXPECT_EQ(Fn("InStr", {S(u"abcabc"), S(u"c")}).l, 3);
  EXPECT_EQ(Fn("InStr", {I(4), S(u"abcabc"), S(u"c")}).l, 6);
  EXPECT_EQ(Fn("InStr", {I(1), S(u"ABC"), S(u"b"), I(1)}).l, 2);
  EXPECT_EQ(Fn("InStr", {I(1), S(u"ABC"), S(u"b"), I(0)}).l, 0);
  EXPECT_EQ(Fn("InStr", {S(u"abc"), S(u"")}).l, 1);
  EXPECT_EQ(Fn("InStr", {I(3), S(u"abc"), S(u"")}).l, 3);
  EXPECT_EQ(Fn("InStr", {I(4), S(u"abc"), S(u"")}).l, 0);
  EXPECT_EQ(Fn("InStr", {S(u""), S(u"")}).l, 0);
  EXPECT_EQ(Err("InStr", {I(0), S(u"abc"), S(u"a")}), 5);
  EXPECT_EQ(Err("InStr", {I(1), S(u"abc"), S(u"a"), I(7)}), 5);
  EXPECT_TRUE(Fn("InStr", {S(u"abc"), Value::Null()}).IsNull());
  EXPECT_EQ(Fn("InStrRev", {S(u"abcabc"), S(u"bc")}).l, 5);
  EXPECT_EQ(Fn("InStrRev", {S(u"abcabc"), S(u"bc"), I(4)}).l, 2);
  EXPECT_EQ(Fn("InStrRev", {S(u"ABCabc"), S(u"BC"), I(-1), I(1)}).l, 5);
  EXPECT_EQ(Fn("InStrRev", {S(u"abc"), S(u"")}).l, 3);
  EXPECT_EQ(Fn("InStrRev", {S(u"abc"), S(u"c"), I(9)}).l, 0);
  EXPECT_EQ(Err("InStrRev", {S(u"abc"), S(u"c"), I(0)}), 5);
  EXPECT_EQ(Fn("InStrB", {S(u"abc"), S(u"b")}).l, 3);
  // Text compare folds accented letters too.
  EXPECT_EQ(Fn("InStr", {I(1), S(u"AÇÃO"), S(u"ção"), I(1)}).l, 2);
}

TEST(LibStr, ReplaceStartCountAndCase) {
  EXPECT_EQ(Tx(Fn("Replace", {S(u"aXbXc"), S(u"X"), S(u"--")})), u"a--b--c");
  // The result begins at the start position.
  EXPECT_EQ(Tx(Fn("Replace", {S(u"aXbXc"), S(u"X"), S(u"-"), I(3)})), u"b-c");
  EXPECT_EQ(Tx(Fn("Replace", {S(u"aXbXc"), S(u"X"), S(u"-"), I(1), I(1)})), u"a-bXc");
  EXPECT_EQ(Tx(Fn("Replace", {S(u"axbXc"), S(u"X"), S(u"-"), I(1), I(-1), I(1)})), u"a-b-c");
  EXPECT_EQ(Tx(Fn("Replace", {S(u"abc"), S(u""), S(u"-")})), u"abc");
  EXPECT_EQ(Tx(Fn("Replace", {S(u"aaa"), S(u"a"), S(u"aa")})), u"aaaaaa");
  EXPECT_EQ(Err("Replace", {Value::Null(), S(u"a"), S(u"b")}), 94);
  EXPECT_EQ(Err("Replace", {S(u"abc"), S(u"a"), S(u"b"), I(0)}), 5);
}

TEST(LibStr, SplitJoinFilter) {
  Value a = Fn("Split", {S(u"a,b,,c"), S(u",")});
  ASSERT_TRUE(a.IsArr());
  EXPECT_EQ(a.a->v.size(), 4u);
  EXPECT_EQ(Tx(a.a->v[2]), u"");
  EXPECT_EQ(Fn("Split", {S(u"")}).a->v.size(), 0u);
  EXPECT_EQ(Fn("Split", {S(u"a b c"), S(u" "), I(2)}).a->v[1].Text(), u"b c");
  EXPECT_EQ(Fn("Split", {S(u"aXbxc"), S(u"x"), I(-1), I(1)}).a->v.size(), 3u);
  EXPECT_EQ(Fn("Split", {S(u"abc"), S(u"")}).a->v.size(), 1u);
  EXPECT_EQ(Tx(Fn("Join", {a, S(u"+")})), u"a+b++c");
  EXPECT_EQ(Tx(Fn("Join", {Fn("Array", {I(1), Value(true)})})), u"1 True");
  EXPECT_EQ(Err("Join", {S(u"x")}), 13);
  Value f = Fn("Filter", {Fn("Array", {S(u"ab"), S(u"cd"), S(u"AB")}), S(u"b")});
  EXPECT_EQ(f.a->v.size(), 1u);
  f = Fn("Filter", {Fn("Array", {S(u"ab"), S(u"cd"), S(u"AB")}), S(u"b"), Value(false), I(1)});
  EXPECT_EQ(Tx(f.a->v[0]), u"cd");
}

TEST(LibStr, CaseTrimSpaceStringReverse) {
  EXPECT_EQ(Tx(Fn("UCase", {S(u"ação ÿ")})), u"AÇÃO Ÿ");
  EXPECT_EQ(Tx(Fn("LCase", {S(u"ÉCOLE")})), u"école");
  EXPECT_EQ(Tx(Fn("Trim", {S(u"\t a \t")})), u"\t a \t");
  EXPECT_EQ(Tx(Fn("Trim", {S(u"  a b  ")})), u"a b");
  EXPECT_EQ(Tx(Fn("LTrim", {S(u"  a ")})), u"a ");
  EXPECT_EQ(Tx(Fn("Space", {I(3)})), u"   ");
  EXPECT_EQ(Err("Space", {I(-1)}), 5);
  EXPECT_EQ(Tx(Fn("String", {I(3), S(u"xy")})), u"xxx");
  EXPECT_EQ(Tx(Fn("String", {I(2), I(65 + 256)})), u"AA");
  EXPECT_EQ(Err("String", {I(2), S(u"")}), 5);
  EXPECT_TRUE(Fn("String", {Value::Null(), S(u"a")}).IsNull());
  EXPECT_EQ(Tx(Fn("StrReverse", {S(u"abc")})), u"cba");
  EXPECT_EQ(Fn("StrComp", {S(u"a"), S(u"B")}).i, 1);
  EXPECT_EQ(Fn("StrComp", {S(u"a"), S(u"B"), I(1)}).i, -1);
  EXPECT_EQ(Fn("StrComp", {S(u"abc"), S(u"ABC"), I(1)}).i, 0);
}

TEST(LibStr, EscapeRoundTrip) {
  Value e = Fn("Escape", {S(u"a b+/é€")});
  EXPECT_EQ(Tx(e), u"a%20b+/%E9%u20AC");
  EXPECT_EQ(Tx(Fn("Unescape", {e})), u"a b+/é€");
  EXPECT_EQ(Tx(Fn("Unescape", {S(u"%zz%4")})), u"%zz%4");
}

TEST(LibConv, CharactersAndBases) {
  EXPECT_EQ(Fn("Asc", {S(u"€")}).i, 128);
  EXPECT_EQ(Fn("AscW", {S(u"\uFFFF")}).i, -1);
  EXPECT_EQ(Err("Asc", {S(u"")}), 5);
  EXPECT_EQ(Err("Asc", {Value::Null()}), 94);
  EXPECT_EQ(Tx(Fn("Chr", {I(128)})), u"€");
  EXPECT_EQ(Err("Chr", {I(256)}), 5);
  EXPECT_EQ(Tx(Fn("ChrW", {I(-1)})), u"\uFFFF");
  EXPECT_EQ(Tx(Fn("Hex", {Value(int16_t(-1))})), u"FFFF");
  EXPECT_EQ(Tx(Fn("Hex", {I(-1)})), u"FFFFFFFF");
  EXPECT_EQ(Tx(Fn("Hex", {Value(2.5)})), u"2");
  EXPECT_EQ(Tx(Fn("Oct", {I(8)})), u"10");
  EXPECT_TRUE(Fn("Hex", {Value::Null()}).IsNull());
  EXPECT_EQ(Err("Hex", {Value(3e9)}), 6);
}

TEST(LibConv, IntFixKeepTheirKind) {
  EXPECT_EQ(Tx(Fn("Int", {Value(-2.5)})), u"-3");
  EXPECT_EQ(Tx(Fn("Fix", {Value(-2.5)})), u"-2");
  EXPECT_EQ(Fn("Int", {S(u"2.5")}).t, vbs::vtDouble);
  EXPECT_EQ(Fn("Int", {Value(true)}).t, vbs::vtInteger);
  EXPECT_EQ(Fn("Int", {Value::Cur(-15000)}).c, -20000);
  EXPECT_EQ(Fn("Fix", {Value::Cur(-15000)}).c, -10000);
  EXPECT_TRUE(Fn("Fix", {Value::Null()}).IsNull());
  EXPECT_EQ(Fn("CInt", {Value(2.5)}).i, 2);
  EXPECT_EQ(Fn("CInt", {Value(3.5)}).i, 4);
  EXPECT_EQ(Err("CInt", {Value(32768.0)}), 6);
  EXPECT_EQ(Err("CDbl", {S(u"abc")}), 13);
  EXPECT_EQ(Tx(Fn("CStr", {Value(0.00001)})), u"1E-05");
}

TEST(LibMath, RoundAbsSgnAndDomainErrors) {
  EXPECT_EQ(Fn("Round", {Value(2.5)}).d, 2);
  EXPECT_EQ(Fn("Round", {Value(3.5)}).d, 4);
  EXPECT_EQ(Fn("Round", {Value(-2.5)}).d, -2);
  EXPECT_DOUBLE_EQ(Fn("Round", {Value(0.125), I(2)}).d, 0.12);
  EXPECT_DOUBLE_EQ(Fn("Round", {Value(2.675), I(2)}).d, 2.68);
  EXPECT_EQ(Fn("Round", {Value::Cur(25000)}).c, 20000);
  EXPECT_EQ(Fn("Round", {Value(int16_t(7))}).t, vbs::vtInteger);
  EXPECT_EQ(Err("Round", {Value(1.5), I(-1)}), 5);
  EXPECT_TRUE(Fn("Round", {Value::Null()}).IsNull());
  EXPECT_EQ(Fn("Abs", {Value(int16_t(-32768))}).l, 32768);
  EXPECT_EQ(Fn("Abs", {Value()}).t, vbs::vtInteger);
  EXPECT_EQ(Fn("Sgn", {Value(-0.1)}).i, -1);
  EXPECT_EQ(Err("Sqr", {I(-1)}), 5);
  EXPECT_EQ(Err("Log", {I(0)}), 5);
  EXPECT_EQ(Err("Exp", {I(1000)}), 6);
}

TEST(LibMath, RndSequenceAndSeeds) {
  // Rnd(-1) always starts the same sequence; Rnd(0) repeats the last number.
  float a = Fn("Rnd", {I(-1)}).f;
  float b = Fn("Rnd", {}).f;
  EXPECT_NEAR(a, 0.224007, 1e-6);
  EXPECT_EQ(Fn("Rnd", {I(0)}).f, b);
  EXPECT_EQ(Fn("Rnd", {I(-1)}).f, a);
  Fn("Rnd", {I(-1)});
  Fn("Randomize", {I(5)});
  float c = Fn("Rnd", {}).f;
  Fn("Rnd", {I(-1)});
  Fn("Randomize", {I(5)});
  EXPECT_EQ(Fn("Rnd", {}).f, c);
  EXPECT_GE(c, 0);
  EXPECT_LT(c, 1);
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
