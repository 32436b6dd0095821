// Value services: keyed table, colours, number masks and formatting, versions,
// position blocks, comb sorts and the object hooks.
#include <gtest/gtest.h>
#include <algorithm>
#include <random>
#include "GlbVar.h"

using namespace zw;

TEST(Idx, StoreReadOverwriteAndVisibleForm) {
  IdxTab t;
  Tx v;
  int p, ok;
  IdxIni(t);
  IdxReg(t, u"AB", u"1", ok);
  IdxReg(t, u"ABC", u"2", ok);
  IdxReg(t, u"AB", u"3", ok);  // same key: count kept, value overwritten
  EXPECT_EQ(ok, 1);
  ASSERT_EQ(t.Arr().size(), 4u);
  EXPECT_EQ(t.Arr()[1], u" 2");
  EXPECT_EQ(t.Arr()[2], u"3");
  EXPECT_EQ(t.Arr()[3], u"2");
  const Tx blk = Tx(u"\x01\u0000\x01\u0000" u"AB\u0000", 7) + Tx(u"\x01\u0000\x02\u0000" u"ABC\u0000", 8);
  EXPECT_EQ(t.Arr()[0], blk);
  IdxCon(t, u"ABC", v, p);
  EXPECT_EQ(v, u"2"); EXPECT_EQ(p, 2);
  IdxCon(t, u"abc", v, p);  // keys are exact
  EXPECT_EQ(v, u""); EXPECT_EQ(p, 0);
  IdxCon(t, u"B", v, p);
  EXPECT_EQ(p, 0);
  int tip;
  IdxChvPsq(t.Arr()[0], u"ABC", tip, p);  // the plain block search agrees
  EXPECT_EQ(tip, 1); EXPECT_EQ(p, 2);
  IdxChvPsq(t.Arr()[0], u"A", tip, p);
  EXPECT_EQ(p, 0);
  TxArr k;
  int n;
  IdxChvLis(t, k, n);
  ASSERT_EQ(n, 2);
  EXPECT_EQ(k[1], u"AB"); EXPECT_EQ(k[2], u"ABC");
  IdxIni(t);  // starts again empty
  IdxCon(t, u"AB", v, p);
  EXPECT_EQ(p, 0);
  IdxChvLis(t, k, n);
  EXPECT_EQ(n, 0);
}

TEST(Idx, PositionCoding) {
  Tx c;
  ASSERT_TRUE(IdxPosCod(256, c));
  EXPECT_EQ(c, Tx(u"\x01\u0000", 2));
  EXPECT_EQ(IdxPosDec(c), 256);
  ASSERT_TRUE(IdxPosCod(128, c));  // the ANSI character of code 128 is the euro sign
  EXPECT_EQ(c[1], u'\u20AC');
  EXPECT_EQ(IdxPosDec(c), 128);
  for (int p : {1, 255, 257, 0x1D8D, 31999, 32000}) {
    ASSERT_TRUE(IdxPosCod(p, c));
    EXPECT_EQ(IdxPosDec(c), p);
  }
  EXPECT_FALSE(IdxPosCod(0, c));
  EXPECT_FALSE(IdxPosCod(32001, c));
  Tx b;
  int ok;
  IdxChvAdi(b, u"K", 1, 40000, ok);
  EXPECT_EQ(ok, 0); EXPECT_EQ(b, u"");
}

// How fast lookups are is measured in bench/, not here.
TEST(Idx, FullTableAndLookups) {
  IdxTab t;
  IdxIni(t);
  int ok = 0, p;
  for (int i = 1; i <= kIdxMax; i++) IdxReg(t, u"K" + TxAsc(std::to_string(i)), TxAsc(std::to_string(i)), ok);
  EXPECT_EQ(ok, 1);
  IdxRegExe(t, u"MAIS", u"x", p);  // full: nothing changes
  EXPECT_EQ(p, 0);
  EXPECT_EQ(t.Arr().size(), size_t(kIdxMax) + 2);
  IdxRegExe(t, u"K5", u"cinco", p);  // a known key still takes its new value
  EXPECT_EQ(p, 5);
  Tx v;
  for (int i = 1; i <= kIdxMax; i += 997) {
    IdxCon(t, u"K" + TxAsc(std::to_string(i)), v, p);
    ASSERT_EQ(p, i);
  }
  IdxCon(t, u"K31999", v, p);
  EXPECT_EQ(v, u"31999");
  int tip;
  IdxChvPsq(t.Arr()[0], u"K31999", tip, p);
  EXPECT_EQ(p, 31999);
}

TEST(Cor, ColourTexts) {
  auto cnv = [](const char16_t* tx, long ini = -5) {
    long c = ini;
    Tx k = u"?";
    CorTxCnv(tx, c, k);
    return std::make_pair(c, k);
  };
  using P = std::pair<long, Tx>;
  EXPECT_EQ(cnv(u"255,0,0"), P(255, u"RGB"));
  EXPECT_EQ(cnv(u"0,128,300"), P(128 * 256 + 255 * 65536, u"RGB"));
  EXPECT_EQ(cnv(u"0"), P(0, u"NC"));
  EXPECT_EQ(cnv(u"15"), P(0xFFFFFF, u"QB"));
  EXPECT_EQ(cnv(u"4"), P(0x000080, u"QB"));  // dark red
  EXPECT_EQ(cnv(u"16"), P(16, u"NC"));
  EXPECT_EQ(cnv(u"HFF"), P(255, u"H"));
  EXPECT_EQ(cnv(u"hFFFF"), P(65535, u"H"));
  EXPECT_EQ(cnv(u"W12"), P(12, u""));
  EXPECT_EQ(cnv(u"-12"), P(-12, u""));
  EXPECT_EQ(cnv(u"1e999"), P(-5, u"?"));  // unreadable: the colour stays

  long c = 0;
  int ok;
  CorValCon(Var(int16_t(12)), c, ok);
  EXPECT_EQ(c, 0x0000FF); EXPECT_EQ(ok, 1);
  CorValCon(Var(int16_t(0)), c, ok);
  EXPECT_EQ(c, 0);
  CorValCon(Var(int32_t(70000)), c, ok);
  EXPECT_EQ(c, 70000);
  EXPECT_EQ(CorVal(Var(u"0,255,0")).Lng(), 0xFF00);

  Tx m;
  CorTxMem(255, m);
  EXPECT_EQ(m, u"255,000,000");
  CorTxMem(0x0A1400, m);
  EXPECT_EQ(m, u"000,020,010");
  Tx f, t;
  CorParSep(u"W1+W2", f, t);
  EXPECT_EQ(f, u"W1"); EXPECT_EQ(t, u"W2");
}

namespace {
struct CtlTeste : CtlCor {
  long fun = -1, frn = -1;
  bool temText = true, temCaption = false;
  bool PoeCorFun(long c) override { fun = c; return true; }
  bool PoeCorTx(long c) override { frn = c; return true; }
  bool Prop(CtlProp p, Var& v) const override {
    if (p == CtlProp::Text && temText) { v = Var(u"texto"); return true; }
    if (p == CtlProp::Caption && temCaption) { v = Var(u"rótulo"); return true; }
    return false;
  }
};
}  // namespace

TEST(Cor, ControlColoursAndValue) {
  CtlTeste c;
  CtlCorFun(c, Var(u"-"));  // "-": leave the control as it is
  EXPECT_EQ(c.fun, -1);
  CtlCorFun(c, Var(u"255,0,0"));
  EXPECT_EQ(c.fun, 255);
  CtlCorTx(c, Var(int32_t(7)));  // a number as it stands, not the palette
  EXPECT_EQ(c.frn, 7);
  EXPECT_EQ(CtlCorApl(c, Var(u"1"), Var(u"2")), 1);
  EXPECT_EQ(c.fun, CorQB(1)); EXPECT_EQ(c.frn, CorQB(2));

  CorPalLpz();
  c.fun = c.frn = -1;
  EXPECT_EQ(CtlCorApl(c, Var(u"AVISO")), 0);  // no palette table: nothing changes
  EXPECT_EQ(c.fun, -1);
  CorPalAdi(u"aviso", u"14+4");
  EXPECT_EQ(CtlCorApl(c, Var(u"Aviso")), 1);
  EXPECT_EQ(c.fun, CorQB(14)); EXPECT_EQ(c.frn, CorQB(4));
  EXPECT_EQ(CtlCorApl(c, Var(u"OUTRO")), 1);  // unknown name: back colour 0
  EXPECT_EQ(c.fun, 0);
  CorPalLpz();

  Var v{int16_t(3)};
  CtlValCon(c, v);
  EXPECT_EQ(v.Txt(), u"texto");
  c.temCaption = true;
  CtlValCon(c, v);  // the last property that answers stands
  EXPECT_EQ(TxUtf8(v.Txt()), "rótulo");
}

TEST(Nu, FormatCodeMasks) {
  EXPECT_EQ(NuFmtMsc(u"6.2"), u"##,##0.00");
  EXPECT_EQ(NuFmtMsc(u"-6.2"), u"#####0.00");
  EXPECT_EQ(NuFmtMsc(u"3.0"), u"##0");
  EXPECT_EQ(NuFmtMsc(u"4.1"), u"###0.0");  // a leading comma becomes "#"
  EXPECT_EQ(NuFmtMsc(u"8"), u"####,##0");
  EXPECT_EQ(NuFmtMsc(u"10.0"), u"##,###,##0");
  int i, d, w;
  bool g;
  NuFmtDec(u"-6.2", i, d, g, w);
  EXPECT_EQ(i, 6); EXPECT_EQ(d, 2); EXPECT_FALSE(g); EXPECT_EQ(w, 9);
  NuFmtDec(u"5", i, d, g, w);
  EXPECT_EQ(w, 5);
}

TEST(Nu, Formatting) {
  EXPECT_EQ(NuTx(u"6.2", Var(1234.567)), u" 1,234.57");
  EXPECT_EQ(NuTx(u"-6.2", Var(1234.567)), u"  1234.57");
  EXPECT_EQ(NuTx(u"6.2", Var(-0.5)), u"    -0.50");
  EXPECT_EQ(NuTx(u"3.0", Var(123456.0)), u"456");  // digits past the mask cut on the left
  EXPECT_EQ(NuTx(u"6.2", Var(2.345), Var(u"T")), u"2.35");  // half away from zero
  EXPECT_EQ(NuTx(u"3.0", Var(7.0), Var(int16_t(-5))), u"    7");
  EXPECT_EQ(NuTx(u"#,##0.0", Var(u"9876.54")), u"9,876.5");  // a literal mask
  EXPECT_EQ(NuTxExe(u"0.00", Var(1.0)), u"1.00");
  EXPECT_EQ(NuTx(u"6.2", Var(0.0)), u"     0.00");

  Tx t;
  NuTxPad(Var(int16_t(7)), 3, u"0", t);
  EXPECT_EQ(t, u"007");
  NuTxPad(Var(int16_t(-7)), 3, u"0", t);
  EXPECT_EQ(t, u" -7");
  NuTxPad(Var(int32_t(12345)), 3, u"0", t);
  EXPECT_EQ(t, u"345");

  EXPECT_EQ(NuTxVal(u"1,5"), 1);  // no separators set: plain "." text
  NuSepDef(u",.", u".,");
  EXPECT_EQ(NuTxVal(u"1.234,5"), 1234.5);
  EXPECT_EQ(NuTxLoc(u"1,234.5"), u"1.234,5");
  NuSepDef(u"", u"");
  EXPECT_EQ(NuTxLoc(u"1,234.5"), u"1,234.5");
}

TEST(Nu, VersionsAndBlocks) {
  Var r{Tx()};
  NuVerInc(u"+", Var(u"1.9"), r);
  EXPECT_EQ(r.Txt(), u"1.10");
  NuVerInc(u"*.+,2.3", Var(u"1.9"), r);
  EXPECT_EQ(r.Txt(), u"01.010");
  NuVerInc(u"+.0", Var(u"1.9"), r);
  EXPECT_EQ(r.Txt(), u"2.0");
  NuVerInc(u"x", Var(u" 1.9 "), r);
  EXPECT_EQ(r.Txt(), u"1.9");
  long a, b;
  NuVerDiv(u"3", a, b);
  EXPECT_EQ(a, 3); EXPECT_EQ(b, 0);

  long k, i, f, o;
  NuIntDiv(25, 10, k, i, f, o);
  EXPECT_EQ(k, 2); EXPECT_EQ(i, 20); EXPECT_EQ(f, 29); EXPECT_EQ(o, 5);
  NuIntDiv1(25, 10, k, i, f, o);
  EXPECT_EQ(k, 3); EXPECT_EQ(i, 21); EXPECT_EQ(f, 30); EXPECT_EQ(o, 5);
  NuIntDiv1(10, 10, k, i, f, o);
  EXPECT_EQ(k, 1); EXPECT_EQ(o, 10);
}

TEST(Sort, GapRuleAndOrder) {
  EXPECT_EQ(SortGap(12), 11);  // 9 becomes 11
  EXPECT_EQ(SortGap(14), 11);  // 10 becomes 11
  EXPECT_EQ(SortGap(11), 8);
  EXPECT_EQ(SortGap(2), 1);
  EXPECT_EQ(SortGap(1), 1);

  std::mt19937 g(7);
  for (int n : {0, 1, 2, 9, 12, 13, 50}) {
    TxArr a(1);
    for (int i = 0; i < n; i++) a.push_back(TxAsc(std::to_string(g() % 40)));
    TxArr e = a;
    std::sort(e.begin() + 1, e.end());
    SortTx(a, n);
    EXPECT_EQ(a, e) << n;
  }
  TxArr c = {u"3", u"b", u"a", u"c", u"z"};
  SortTx(c, -1);  // the count from element 0
  EXPECT_EQ(c, (TxArr{u"3", u"a", u"b", u"c", u"z"}));

  std::vector<Var> v = {Var(), Var(u"b"), Var(int16_t(10)), Var(u"A"), Var(2.5), Var(u"a")};
  std::vector<int> idx;
  SortIdx(u"", v, idx);
  EXPECT_EQ(idx, (std::vector<int>{0, 4, 2, 3, 5, 1}));  // numbers first, texts binary
  EXPECT_EQ(v[1].Txt(), u"b");  // untouched
  SortVar(u"CI", v);
  EXPECT_EQ(TxVar(v[1]), u"10");
  EXPECT_EQ(TxMai(TxVar(v[4])), u"A");
  EXPECT_EQ(v[5].Txt(), u"b");
  std::vector<Var> w = {Var(), Var(u"b"), Var(u"a")};
  SortVar(u"", w, 1);  // count 1: nothing to compare
  EXPECT_EQ(w[1].Txt(), u"b");

  EXPECT_EQ(NuArrMax({Var(u"3"), Var(7.5), Var(int16_t(-2))}), 7.5);
  EXPECT_EQ(NuArrMin({Var(u"3"), Var(7.5), Var(int16_t(-2))}), -2);
  std::vector<Var> x;
  EXPECT_EQ(ArrAdi(x, Var(u"a")), 0);
  EXPECT_EQ(ArrAdi(x, Var(u"b")), 1);
  ArrNorm(Var(u"só"), x);
  EXPECT_EQ(x.size(), 1u);
}

namespace {
struct ObTeste : VarObj {
  std::vector<Tx>* log;
  explicit ObTeste(std::vector<Tx>* l) : log(l) {}
  bool Chama(const Tx& nome, std::vector<Var>&, Var&) override {
    log->push_back(nome);
    return nome == u"FxIni";
  }
};
}  // namespace

TEST(Ob, StartAndEndByName) {
  std::vector<Tx> log;
  std::shared_ptr<VarObj> ob = std::make_shared<ObTeste>(&log);
  Var r;
  ObFxIni(ob, r);
  EXPECT_EQ(r.Int(), 1);
  ObFxFim(ob, r);  // a failing FxFim is ignored; the object is released
  EXPECT_EQ(log, (std::vector<Tx>{u"FxIni", u"FxFim"}));
  EXPECT_EQ(ob, nullptr);
  ObFxFim(ob, r);  // nothing to end
  EXPECT_EQ(r.Int(), 1);
}
