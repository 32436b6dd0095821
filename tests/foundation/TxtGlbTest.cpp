// Text and token functions: tokens, split modes, brackets, items, yes/no words,
// value conversions, replacement, quotes, codes and the command-line words.
#include <gtest/gtest.h>
#include "TxtGlb.h"

using namespace zw;

static std::string U(const Tx& t) { return TxUtf8(t); }

TEST(TxtCase, LocaleUppercaseCoversLatin1AndExtendedA) {
  EXPECT_EQ(U(TxMai(u"ação ÿ œ ž ı")), "AÇÃO Ÿ Œ Ž I");
  EXPECT_EQ(U(TxMin(u"AÇÃO Ÿ Œ Ž Ĺ")), "ação ÿ œ ž ĺ");
  EXPECT_EQ(U(TxMai(u"ß÷µ")), "ß÷µ");  // no single-character capital: unchanged
  EXPECT_EQ(U(TxMaiTrm(u"  não\t ")), "NÃO\t");  // trim takes blanks only
}

TEST(TxtTok, NextTokenRules) {
  Tx t = u"a||b", k;
  int f;
  TxTokSeg(t, u"|", k, f);
  EXPECT_EQ(k, u"a"); EXPECT_EQ(f, 1);
  TxTokSeg(t, u"|", k, f);
  EXPECT_EQ(k, u""); EXPECT_EQ(t, u"b");
  TxTokSeg(t, u"|", k, f);
  EXPECT_EQ(k, u"b"); EXPECT_EQ(f, 0); EXPECT_EQ(t, u"");

  t = u"ab::cd";  // a long separator is consumed whole by TxTokSeg...
  TxTokSeg(t, u"::", k, f);
  EXPECT_EQ(t, u"cd");
  t = u"ab::cd";  // ...but TxTokSeg1 and TxDiv1 resume one character after it
  TxTokSeg1(t, u"::", k);
  EXPECT_EQ(k, u"ab"); EXPECT_EQ(t, u":cd");
  Tx l, r;
  TxDiv1(u"ab::cd", u"::", l, r);
  EXPECT_EQ(r, u":cd");
  TxDiv2(u"abc", u",", l, r, f);
  EXPECT_EQ(l, u"abc"); EXPECT_EQ(r, u""); EXPECT_EQ(f, 0);

  t = u"xyz";  // empty separator: TxTokSeg finds it at 1 and keeps the text
  TxTokSeg(t, u"", k, f);
  EXPECT_EQ(k, u""); EXPECT_EQ(t, u"xyz"); EXPECT_EQ(f, 1);
  TxTokMul(t, u"", k);  // TxTokMul takes it as not found
  EXPECT_EQ(k, u"xyz"); EXPECT_EQ(t, u"");

  Var v{int16_t(5)};
  t = u" 12.5x,7";
  TxTokNu(t, u",", v);  // an integer destination keeps its kind
  EXPECT_EQ(v.Tipo(), Var::K::Int); EXPECT_EQ(v.Int(), 12);
  EXPECT_EQ(t, u"7");

  TxDivOrg(u"a=b=c", u"=", l, r);
  EXPECT_EQ(l, u"a"); EXPECT_EQ(r, u"b=c");
  TxTokMai(u" chave = Valor ", l, r, u"=");
  EXPECT_EQ(l, u"CHAVE"); EXPECT_EQ(r, u"Valor");
}

TEST(TxtTok, WholeSplitAndSeparatorChange) {
  TxArr a;
  int n;
  TxTokLis(u"", u",", a, n);
  EXPECT_EQ(n, 0);
  TxTokLis(u"a,,b", u",", a, n);
  ASSERT_EQ(n, 3);
  EXPECT_EQ(a[0], u""); EXPECT_EQ(a[1], u"a"); EXPECT_EQ(a[2], u""); EXPECT_EQ(a[3], u"b");
  TxTokLis(u",a", u",", a, n);
  EXPECT_EQ(n, 2); EXPECT_EQ(a[1], u"");
  TxTokLis(u"a,", u",", a, n);  // a trailing separator makes no empty token
  EXPECT_EQ(n, 1);
  EXPECT_EQ(a.size(), 2u);
  TxTokLis(u"abc", u"", a, n);  // never loops on an empty separator
  EXPECT_EQ(n, 1);

  Tx t = u"a||b";
  TxSepTro(t, u"|", u"\r\n");
  EXPECT_EQ(t, u"a\r\n\r\nb");
  t = u"a,b,";
  TxSepTro(t, u",", u";");
  EXPECT_EQ(t, u"a;b");

  int p;
  TxPosUlt(u"R", u"a\\b\\c", u"\\", p);
  EXPECT_EQ(p, 4);
  TxPosUlt(u"L", u"a\\b\\c", u"\\", p);
  EXPECT_EQ(p, 2);
  TxPosUlt(u"R", u"abc", u"\\", p);
  EXPECT_EQ(p, 0);
}

TEST(TxtTok, SplitModes) {
  auto div = [](const char16_t* modo, Tx tx) {
    Tx b;
    TxDivTip(modo, tx, u"\\", b);
    return std::make_pair(tx, b);
  };
  using P = std::pair<Tx, Tx>;
  EXPECT_EQ(div(u"PE", u"abc"), P(u"", u"abc"));
  EXPECT_EQ(div(u"PS", u"abc"), P(u"abc", u""));
  EXPECT_EQ(div(u"SE", u"abc"), P(u"abc", u""));
  EXPECT_EQ(div(u"", u"abc"), P(u"", u"abc"));
  EXPECT_EQ(div(u"PS", u"a\\b"), P(u"b", u"a"));
  EXPECT_EQ(div(u"PE", u"a\\b"), P(u"a", u"b"));
  EXPECT_EQ(div(u"RS", u"a\\b"), P(u"a", u"b"));
  EXPECT_EQ(div(u"XX", u"a\\b"), P(u"b", u"a"));
  EXPECT_EQ(div(u"pe", u"a\\b"), P(u"b", u"a"));  // codes are compared in capitals only
  EXPECT_EQ(div(u"PE MT", u" a \\ b "), P(u"A", u"B"));
  EXPECT_EQ(div(u"PE M", u" a \\b"), P(u" A ", u"B"));
}

TEST(TxtBrk, PairsWithoutNesting) {
  Tx a, d, p;
  int n;
  TxBrkCon(u"x(ab)y)", a, d, p, n, u"()");
  EXPECT_EQ(a, u"x"); EXPECT_EQ(d, u"ab"); EXPECT_EQ(p, u"y)"); EXPECT_EQ(n, 4);
  TxBrkCon(u"x(ab", a, d, p, n, u"()");
  EXPECT_EQ(a, u"x(ab"); EXPECT_EQ(d, u""); EXPECT_EQ(n, 0);
  TxBrkCon(u"x|a|", a, d, p, n, u"|");  // equal delimiters never pair
  EXPECT_EQ(n, 0);
  TxBrkCon2(u"<a>b", u"<>x", a, d, p);  // first and second character
  EXPECT_EQ(d, u"a"); EXPECT_EQ(p, u"b");
}

TEST(TxtBrk, BalancedPairTwoProbeScan) {
  int i = 1, f;
  TxBrkPar(u"[a[b]c]", i, f, u"[]");
  EXPECT_EQ(i, 1); EXPECT_EQ(f, 7);
  i = 1;
  TxBrkPar(u"[[[a]]]", i, f, u"[]");  // not a depth counter
  EXPECT_EQ(i, 1); EXPECT_EQ(f, 6);
  i = 1;
  TxBrkPar(u"x[a[b]", i, f, u"[]");  // the inner pair takes the only closer
  EXPECT_EQ(i, 0); EXPECT_EQ(f, 0);
  i = 3;
  TxBrkPar(u"[a][b]", i, f, u"[]");
  EXPECT_EQ(i, 4); EXPECT_EQ(f, 6);
  i = 1;
  TxBrkPar(u"ab\"cd\"e", i, f, u"");  // default pair: double quotes
  EXPECT_EQ(i, 3); EXPECT_EQ(f, 6);
  i = 1;
  TxBrkPar(u"abc", i, f, u"[]");
  EXPECT_EQ(i, 0); EXPECT_EQ(f, 0);
}

TEST(TxtItem, FindReadReplaceAndList) {
  Tx a, v, d;
  int f;
  OpcTxDiv(u"x[A=1]y[B=[c]]z", u"b", a, v, d, f);
  EXPECT_EQ(f, 1); EXPECT_EQ(a, u"x[A=1]y"); EXPECT_EQ(v, u"[c]"); EXPECT_EQ(d, u"z");
  OpcTxDiv(u"[b=1]", u"B", a, v, d, f);  // keys are stored in capitals
  EXPECT_EQ(f, 0); EXPECT_EQ(a, u"[b=1]");

  Var n{0.0}, t{Tx(u"x")};
  OpcTxCon(u"[N=12abc]", u"N", n, f);
  EXPECT_EQ(n.Dbl(), 12);
  OpcTxCon(u"[N=12abc]", u"M", t, f);  // absent: the destination gets ""
  EXPECT_EQ(f, 0); EXPECT_EQ(t.Txt(), u"");

  Tx s = u"[A=1]x[B=2]";
  OpcTxSub(s, u"a", u"9");
  EXPECT_EQ(s, u"x[B=2][A=9]");
  OpcTxSub(s, u"C", u"3");
  EXPECT_EQ(s, u"x[B=2][A=9][C=3]");
  OpcTxAct(s, u"B", Var(int16_t(7)));
  EXPECT_EQ(s, u"x[A=9][C=3][B=7]");

  std::vector<std::array<Tx, 2>> l;
  OpcTxLis(u"[ a =1][B=x=y][C=[d]]", l, f);
  ASSERT_EQ(f, 3);
  EXPECT_EQ(l[1][0], u"A"); EXPECT_EQ(l[1][1], u"1");
  EXPECT_EQ(l[2][0], u"B"); EXPECT_EQ(l[2][1], u"x=y");
  EXPECT_EQ(l[3][1], u"[d]");
  OpcTxLis(u"solto", l, f);  // no pair: the whole text is the inner text
  ASSERT_EQ(f, 1); EXPECT_EQ(l[1][0], u"SOLTO"); EXPECT_EQ(l[1][1], u"");
}

TEST(TxtItem, YesNoItem) {
  Tx s;
  Var v{Tx(u" sim ")};
  OpcTxUsa(u"A", u"K", s, v);
  EXPECT_EQ(s, u"[K=S]");
  Var r{Tx()};
  OpcTxUsa(u"L", u"K", s, r);
  EXPECT_EQ(r.Txt(), u"S");
  Var i{int16_t(9)};
  OpcTxUsa(u"L", u"K", s, i);
  EXPECT_EQ(i.Int(), 1);
  OpcTxUsa(u"L", u"Z", s, i);
  EXPECT_EQ(i.Int(), 0);
}

TEST(TxtSN, YesNoLogic) {
  auto sn = [](Var v, int neg = 0) {
    Var d{int16_t(0)};
    TxSN(v, d, neg);
    return int(d.Int());
  };
  EXPECT_EQ(sn(Var(u" sim ")), 1);
  EXPECT_EQ(sn(Var(u"Si")), 1);
  EXPECT_EQ(sn(Var(u"Sim.")), 0);
  EXPECT_EQ(sn(Var(u"1")), 1);
  EXPECT_EQ(sn(Var(u"2")), 2);  // a text keeps its number
  EXPECT_EQ(sn(Var(u"2"), 1), 1);
  EXPECT_EQ(sn(Var(u"S"), 1), 0);
  EXPECT_EQ(sn(Var(int16_t(2))), 0);  // a number is yes only when it is 1
  EXPECT_EQ(sn(Var(1.0)), 1);
  EXPECT_EQ(sn(Var(true)), 1);
  EXPECT_EQ(sn(Var()), 0);
  Var t{Tx(u"?")};
  TxSN(Var(u"nao"), t);
  EXPECT_EQ(U(t.Txt()), "Não");
  TxSN(Var(u"nao"), t, 1);
  EXPECT_EQ(t.Txt(), u"Sim");
}

TEST(TxtSN, TypedYesNo) {
  EXPECT_EQ(TxSNTip(Var(u"s"), u"SN").Txt(), u"S");
  EXPECT_EQ(U(TxSNTip(Var(u"x"), u" tx3 ").Txt()), "Não");
  EXPECT_EQ(TxSNTip(Var(u"s"), u"TF").Bool(), true);
  EXPECT_EQ(TxSNTip(Var(u"2"), u"").Int(), 2);
  Var y = TxSNTip(Var(u"s"), u"VOP:10,20"), n = TxSNTip(Var(u"n"), u"VOP:10,20");
  ASSERT_TRUE(y.Tipo() == Var::K::Dbl && n.Tipo() == Var::K::Dbl);
  EXPECT_EQ(y.Dbl(), 20); EXPECT_EQ(n.Dbl(), 10);
  EXPECT_EQ(TxSNTip(Var(u"s"), u"vop:Desligado, Ligado ").Txt(), u"Ligado");
  EXPECT_EQ(TxSNTip(Var(u"n"), u"vop:a,b").Txt(), u"a");
  // Past "VOP:z" in string order it is no longer a value pair: the integer answer.
  EXPECT_EQ(TxSNTip(Var(u"s"), u"VOP:~1,2").Tipo(), Var::K::Int);
}

TEST(TxtSN, TypedDisplay) {
  Var v{45000.75};
  TxFmtTip(u"DT", u"", v);
  EXPECT_EQ(v.Txt(), u"15/03/2023");
  v = Var(45000.75);
  TxFmtTip(u"DTH", u"", v);
  EXPECT_EQ(v.Txt(), u"15/03/2023 18:00:00");
  v = Var(2.0);
  TxFmtTip(u"DT:yyyy-mm-dd dddd", u"", v);
  EXPECT_EQ(v.Txt(), u"1900-01-01 segunda-feira");
  v = Var(1234.5);
  TxFmtTip(u"N", u"6.2", v);
  EXPECT_EQ(v.Txt(), u" 1,234.50");
  v = Var(u"s");
  TxFmtTip(u"SN", u"", v);
  EXPECT_EQ(v.Txt(), u"Sim");
  v = Var(u"s");
  TxFmtTip(u"X", u"", v);
  EXPECT_EQ(v.Txt(), u"s");
}

TEST(TxtVar, ConversionsAcrossKinds) {
  EXPECT_EQ(TxVar(Var(u" a ")), u" a ");
  EXPECT_EQ(TxVar(Var(int16_t(-7))), u"-7");
  EXPECT_EQ(TxVar(Var(0.5)), u".5");  // the decimal text of old, no leading zero
  EXPECT_EQ(TxVar(Var(1e15)), u"1E+15");
  EXPECT_EQ(TxVar(Var()), u"");
  EXPECT_EQ(TxVar(Var::Nulo()), u"");
  EXPECT_EQ(TxVarMai(Var(u" ab ")).Txt(), u"AB");

  Var i{int16_t(0)}, d, t{Tx()};
  NuVar(Var(u" 3.6kg"), i);  // an integer destination rounds
  EXPECT_EQ(i.Tipo(), Var::K::Int); EXPECT_EQ(i.Int(), 4);
  NuVar(Var(u"&HFF"), d);
  EXPECT_EQ(d.Dbl(), 255);
  EXPECT_EQ(NuDbl(Var(u"1 2 3")), 123);  // blanks inside are skipped
  EXPECT_EQ(NuDbl(Var(u"&O17")), 15);
  EXPECT_EQ(NuDbl(Var(u"&HFFFF")), -1);
  EXPECT_EQ(NuDbl(Var(u"-1.5e2x")), -150);
  EXPECT_EQ(NuDbl(Var(u"x1")), 0);

  VarAtr(Var(2.5), t);
  EXPECT_EQ(t.Txt(), u"2.5");
  VarAtr(Var(u"2.5"), i);
  EXPECT_EQ(i.Int(), 2);  // half to even
  VarAtr(Var(u"7"), t, u"N");  // the type letter clears first: now a number cell
  EXPECT_EQ(t.Tipo(), Var::K::Int);
  Var e;
  VarAtr(Var(u"7"), e, u"$");
  EXPECT_EQ(e.Txt(), u"7");

  Var c{Tx()};
  VarCnv(u"MT", Var(u" ab "), c);
  EXPECT_EQ(c.Txt(), u"AB");
  VarCnv(u"", Var(u" ab "), c);
  EXPECT_EQ(c.Txt(), u" ab ");
  Var n{0.0};
  VarCnv(u"MT", Var(u"4.5"), n);
  EXPECT_EQ(n.Dbl(), 4.5);

  Var z{Tx(u"x")};
  VarVaz(z);
  EXPECT_EQ(z.Txt(), u"");
  Var w{3.5};
  VarVaz(w);
  EXPECT_EQ(w.Num(), 0);
  Var k;
  VarVaz(k, u"Tx$");
  EXPECT_TRUE(k.EhTx());
  VarVaz(k = Var(), u"");
  EXPECT_EQ(k.Tipo(), Var::K::Int);
  EXPECT_EQ(VarTipCon(Var(u"a"), u""), u"N");
  EXPECT_EQ(VarTipCon(Var(1.0), u"$"), u"T");
  EXPECT_EQ(VarTipCon(Var(u"a"), u"X"), u"T");
  EXPECT_EQ(VarTipCon(Var(1.0), u"X"), u"N");

  double dd;
  int ok;
  NuTxNum(u"1e999", dd, ok);
  EXPECT_EQ(ok, 0); EXPECT_EQ(dd, 0);
  Var tv{Tx()};
  NuTxVar(u" 5x", tv, ok);
  EXPECT_EQ(tv.Txt(), u" 5x");
  Var nv{int32_t(1)};
  NuTxVar(u" 5x", nv, ok);
  EXPECT_EQ(nv.Lng(), 5); EXPECT_EQ(ok, 1);
}

TEST(TxtMsc, ReplacementAndCharacters) {
  Tx t = u"a";
  TxSubst(u"R", t, u"a", u"aa");  // the guard: nothing at all
  EXPECT_EQ(t, u"a");
  TxSubst(u"", t, u"a", u"aa");
  EXPECT_EQ(t, u"a");
  t = u"xaaax";
  TxSubst(u"", t, u"a", u"b");
  EXPECT_EQ(t, u"xbaax");
  TxSubst(u"R", t, u"a", u"b");
  EXPECT_EQ(t, u"xbbbx");
  t = u"aabb";
  TxSubst(u"R", t, u"ab", u"");  // repeats until none is left, new ones included
  EXPECT_EQ(t, u"");

  Tx r;
  TxChrTro(u"a\"b\"", u"\"", u"'x", r);
  EXPECT_EQ(r, u"a'b'");
  TxChrLimpa(0, u"-a-b-", u"-", r);
  EXPECT_EQ(r, u"ab");
  TxChrLimpa(1, u"-a-b-", u"-", r);
  EXPECT_EQ(r, u"a-b-");
  TxChrLimpa(2, u"-a-b-", u"-", r);
  EXPECT_EQ(r, u"-a-b");
  TxChrLimpa(3, u"-a-b-", u"-", r);
  EXPECT_EQ(r, u"a-b");
  TxChrLimpa(7, u"-a-", u"-", r);
  EXPECT_EQ(r, u"-a-");
  int i;
  TxChrLisPos(u"xyb", u"abc", i, r);
  EXPECT_EQ(i, 3); EXPECT_EQ(r, u"b");

  EXPECT_EQ(TxAlnExe(5, u"abc"), u"abc  ");
  EXPECT_EQ(TxAlnExe(2, u"abc"), u"ab");
  EXPECT_EQ(TxAlnExe(-5, u"abc"), u"  abc");
  EXPECT_EQ(TxAlnExe(-2, u"abc"), u"bc");
  t = u"abc   ";
  TxAlnRtrim(1, t);
  EXPECT_EQ(t, u"abc");
  EXPECT_EQ(TxRepPre(u"ab", 5, u"*-"), u"ab***");
  EXPECT_EQ(TxRepPre(u"abcdef", 3, u""), u"abc");
  TxAlnPad(Var(int16_t(42)), 5, u"0", r);
  EXPECT_EQ(r, u"00042");
  TxAlnPad(Var(int16_t(-42)), -4, u"*", r);  // the sign position is dropped
  EXPECT_EQ(r, u"42**");

  EXPECT_EQ(TxAspRem(u"\"abc\""), u"abc");
  EXPECT_EQ(TxAspRem(u"\"abc"), u"abc");
  EXPECT_EQ(TxAspPut(u"\"say \"hi\"\""), u"\"say 'hi'\"");
}

TEST(TxtMsc, CodesToCharacters) {
  Tx t = u"x chr$(13,10) y";
  TxBinChr(t);
  EXPECT_EQ(t, u"x \r\n y");
  t = u"abc bin$(";
  TxBinChr(t);
  EXPECT_EQ(t, u"abc ");
  Tx r;
  t = u"bin$(128)chr$(65)";
  TxBinChr(t, r);
  EXPECT_EQ(r, u"\u20AC" u"A");  // the ANSI code page: 128 is the euro sign
  EXPECT_EQ(t, u"bin$(128)chr$(65)");
  EXPECT_EQ(TxChrBin({Var(u"72, 105"), Var(int16_t(33)), Var(300.0), Var(-1.0)}), u"Hi!");
}

TEST(TxtMsc, JoiningAndLists) {
  Tx t;
  TxJunSep(t, u",", Var(u""));
  EXPECT_EQ(t, u"");
  TxJunSep(t, u",", Var(u"a"));
  TxJunSep(t, u",", Var(int16_t(2)));
  EXPECT_EQ(t, u"a,2");
  t = u"a";
  TxLinJun(t, u"");  // an empty line still counts
  TxLinJun(t, u"b");
  EXPECT_EQ(t, u"a\r\n\r\nb");
  t.clear();
  TxLinJun(t, u"c");
  EXPECT_EQ(t, u"c");
  t = u"a";
  TxLinAdi(t, u",", Var(u"b"));
  EXPECT_EQ(t, u"a,\r\nb");
  TxLinAdi(t, u"", Var(u"c"), u";");
  EXPECT_EQ(t, u"a,\r\nb;c");
  TxArr a;
  TxArrAdi(a, u"x");
  TxArrAdi(a, u"y");
  ASSERT_EQ(a.size(), 3u);
  EXPECT_EQ(a[0], u""); EXPECT_EQ(a[2], u"y");

  int f;
  TxLisPfx(u"*", u"qualquer", f);
  EXPECT_EQ(f, 1);
  TxLisPfx(u"ab,cd", u"cde", f);
  EXPECT_EQ(f, 1);
  TxLisPfx(u"ab,cd", u"c", f);
  EXPECT_EQ(f, 0);
  TxLisPfx(u"ab,,cd", u"x", f);  // the empty token matches all
  EXPECT_EQ(f, 1);
  TxLisCnd(u"1,2,3", Var(int16_t(2)), f);
  EXPECT_EQ(f, 1);
  TxLisCnd(u"1,2,3", Var(u"22"), f);
  EXPECT_EQ(f, 0);

  auto op = [](const char16_t* v, const char16_t* o, const char16_t* d) {
    int r;
    TxCndOp(Var(v), o, Var(d), r);
    return r;
  };
  EXPECT_EQ(op(u"b", u">", u"a"), 1);
  EXPECT_EQ(op(u"10", u">", u"9"), 0);  // compared as texts
  EXPECT_EQ(op(u"a", u"<>", u"A"), 1);
  EXPECT_EQ(op(u"c", u":", u"a:d"), 1);
  EXPECT_EQ(op(u"e", u":", u"a:d"), 0);
  EXPECT_EQ(op(u"", u":", u"a"), 0);
  EXPECT_EQ(op(u"bc", u"instr", u"abcd"), 1);
  EXPECT_EQ(op(u"a1.txt", u"like", u"?#.*"), 1);
  EXPECT_EQ(op(u"b", u"LIKE", u"[a-c]"), 1);
  EXPECT_EQ(op(u"b", u"LIKE", u"[!a-c]"), 0);
  EXPECT_EQ(op(u"abcabd", u"LIKE", u"*ab?"), 1);
  EXPECT_EQ(op(u"a", u"??", u"a"), 0);
}

TEST(TxtMsc, ProgramLineTokens) {
  Tx t = u"abc ,;def", k, d;
  BasLinTok(t, u" ,;", k, d);
  EXPECT_EQ(k, u"abc"); EXPECT_EQ(d, u" "); EXPECT_EQ(t, u",;def");
  BasLinTok(t, u" ,;", k, d);
  EXPECT_EQ(k, u""); EXPECT_EQ(d, u","); EXPECT_EQ(t, u";def");
  t = u"semfim";
  BasLinTok(t, u" ", k, d);
  EXPECT_EQ(k, u"semfim"); EXPECT_EQ(d, u""); EXPECT_EQ(t, u"");
  t = u"x = \"it's\" ' note";  // no quoting unless a quote character is given
  BasLinTok(t, u"'", k, d);
  EXPECT_EQ(k, u"x = \"it");
  t = u"x = \"it's\" ' note";
  BasLinTok(t, u"'", k, d, u"\"");
  EXPECT_EQ(k, u"x = \"it's\" ");
}

TEST(TxtLc, CommandLineWords) {
  LcArgPrp(u"zunwiz  -fp \"a b\"\tc");
  EXPECT_EQ(LcArgNum(), 4);
  EXPECT_EQ(LcArgLis()[0], u"zunwiz  -fp \"a b\"\tc");
  EXPECT_EQ(LcArgLis()[4], u"b\"\tc");
  EXPECT_EQ(LcArgPsq(u"M", u"-FP"), 2);
  EXPECT_EQ(LcArgPsq(u"", u"-FP"), 0);
  Var v{Tx()};
  LcArgVal(u"M", u"-FP", v, Var(u"def"));
  EXPECT_EQ(v.Txt(), u"\"a");
  LcArgPrp(u"prog -FP");  // a switch that ends the line gives the default
  LcArgVal(u"M", u"-FP", v, Var(u"def"));
  EXPECT_EQ(v.Txt(), u"def");
  LcArgVal(u"M", u"-X", v, Var(u"d2"));
  EXPECT_EQ(v.Txt(), u"d2");
  LcArgCon(0, v, Var(u"d3"));
  EXPECT_EQ(v.Txt(), u"d3");
  Var n{0.0};
  LcArgPrp(u"-N 42");
  LcArgVal(u"", u"-N", n);
  EXPECT_EQ(n.Dbl(), 42);
  LcArgPrp(u"");
  EXPECT_EQ(LcArgNum(), 0);
}

// Random texts over the characters the small languages care about: every function
// ends, and the results keep their invariants.
TEST(TxtRobust, RandomTextsKeepInvariants) {
  const Tx alfa = u"[]=ab\", |K";
  unsigned s = 12345;
  auto rnd = [&s](unsigned n) { s = s * 1103515245u + 12345u; return (s >> 16) % n; };
  for (int it = 0; it < 3000; it++) {
    Tx t;
    for (unsigned n = rnd(14); n > 0; n--) t.push_back(alfa[rnd(unsigned(alfa.size()))]);

    int i = 1, f;
    TxBrkPar(t, i, f, u"[]");
    if (i || f) {
      ASSERT_TRUE(i >= 1 && i < f && f <= int(t.size())) << TxUtf8(t);
      EXPECT_EQ(t[size_t(i - 1)], u'['); EXPECT_EQ(t[size_t(f - 1)], u']');
    } else {
      EXPECT_EQ(f, 0);
    }

    TxArr a;
    int n;
    TxTokLis(t, u"|", a, n);
    Tx j = t;
    TxSepTro(j, u"|", u"|");
    Tx e = t;
    if (!e.empty() && e.back() == u'|') e.pop_back();
    EXPECT_EQ(j, e) << TxUtf8(t);

    Tx r = t;
    TxSubst(u"R", r, u"ab", u"b");
    EXPECT_EQ(TxPos(r, u"ab"), 0);

    std::vector<std::array<Tx, 2>> l;
    OpcTxLis(t, l, n);
    EXPECT_EQ(int(l.size()), n + 1);
    Tx o = t;
    OpcTxSub(o, u"K", u"v");
    EXPECT_EQ(o.substr(o.size() - 5), u"[K=v]");
    NuVal(t);
    TxLike(t, t);
  }
}
