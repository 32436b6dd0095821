// Reading: line types, the split of variable lines, continuation, character
// conversion, zone heads and the three kinds of body.
#include "OpcTst.h"

using namespace zw;
using namespace zw::tst;

TEST(OpcLer, LineTypeByFirstCharactersAndEqualsPosition) {
  auto tp = [](const Tx& l) {
    Tx t, v;
    TdaOpc::ParTpp(l, t, v);
    return t;
  };
  EXPECT_EQ(tp(u"[A]=1"), u"=");
  EXPECT_EQ(tp(u"A=1"), u"?");
  EXPECT_EQ(tp(u"AB=1"), u"?");
  EXPECT_EQ(tp(u"ABC=1"), u"=");
  EXPECT_EQ(tp(u""), u"");
  EXPECT_EQ(tp(u"'[A]=1"), u"'");
  EXPECT_EQ(tp(u"#X"), u"#");
  EXPECT_EQ(tp(u"##"), u"##");
  EXPECT_EQ(tp(u"  #X:TX"), u"?");
  EXPECT_EQ(tp(u"$[A]=1"), u"$");
  EXPECT_EQ(tp(u"$$[A]=1"), u"$$");
  Tx t, v;
  TdaOpc::ParTpp(u"Titulo=Texto [a]", t, v);
  EXPECT_EQ(v, u"A");
  TdaOpc::ParTpp(u"lab [ f:dir ]=x", t, v);
  EXPECT_EQ(v, u"F:DIR");
  TdaOpc::ParTpp(u"#[A]=1", t, v);
  EXPECT_EQ(v, u"");
}

TEST(OpcLer, VariableLineSplit) {
  Tx l, n, v;
  int16_t p = 0;
  TdaOpc::ParPrep(u"x=y [A=B]=1", l, n, v, p);
  EXPECT_EQ(l, u"x=y");
  EXPECT_EQ(n, u"A=B");
  EXPECT_EQ(v, u"1");
  EXPECT_EQ(p, 11);
  TdaOpc::ParPrep(u"  Titulo  [Nome] lixo= valor ' x ", l, n, v, p);
  EXPECT_EQ(l, u"Titulo");
  EXPECT_EQ(n, u"Nome");
  EXPECT_EQ(v, u" valor ' x ");
  TdaOpc::ParPrep(u"Titulo [A]=x [b]", l, n, v, p);
  EXPECT_EQ(v, u"x [b]");
  TdaOpc::ParPrep(u"AB=1", l, n, v, p);  // the split accepts what the type test does not
  EXPECT_EQ(l, u"AB");
  EXPECT_EQ(v, u"1");
  EXPECT_EQ(p, 4);
  TdaOpc::ParPrep(u"A=1", l, n, v, p);
  EXPECT_EQ(p, 0);
  EXPECT_EQ(v, u"");
  TdaOpc::ParPrep(u"'[A]=1", l, n, v, p);
  EXPECT_EQ(p, 0);
  EXPECT_EQ(n, u"");
  Tx tip, nom;
  TdaOpc::ParTipVar(u"F:DIRPGM", tip, nom);
  EXPECT_EQ(tip, u"F");
  EXPECT_EQ(nom, u"DIRPGM");
  TdaOpc::ParTipVar(u"GRP.A", tip, nom);
  EXPECT_EQ(tip, u"");
  EXPECT_EQ(nom, u"GRP.A");
}

TEST(OpcLer, ContinuationAndCut) {
  Tx f = TmpPar("cont.par", {u"#X", u"[A]=um +", u"  + dois", u"[B]=x + ", u"+ y", u"[C]=abcdef+", u"+xy<-",
                             u"[D]=a+", u"+ b +  ", u"c", u"[E]=fim+"});
  TdaOpc o;
  o.ZonIni(f, u"");
  Zon z = Seg(o);
  EXPECT_EQ(z.n, 3);  // C became "[Cxy<-" (no variable), E was cut off by the end
  EXPECT_EQ(Mem(o, u"A"), u"um  dois");
  EXPECT_EQ(Mem(o, u"B"), u"x + ");  // trailing blanks defeat continuation
  EXPECT_EQ(o.memTab[3].var, u"D");
  EXPECT_EQ(Mem(o, u"D"), u"a b c");  // a leading "+" line is tested trimmed
  int16_t e = 9;
  Mem(o, u"E", &e);
  EXPECT_EQ(e, 0);
  EXPECT_EQ(Seg(o).ide, u"");
  o.ZonFim();

  // The "<-" cut, seen as a plain line.
  Tx g = TmpPar("cut.par", {u"#T:TX", u"[A]=abcdef+", u"+xy<-", u"<-", u"##"});
  o.ZonIni(g, u"");
  z = Seg(o);
  ASSERT_EQ(z.n, 2);
  EXPECT_EQ(o.regLin[1], u"[Axy<-");
  EXPECT_EQ(o.regLin[2], u"<-");  // on a line of its own it changes nothing
  o.ZonFim();
}

TEST(OpcLer, CharacterConversionAndItsSwitch) {
  TdaOpc o;
  o.ZonIni(TxDeUtf8(Dat("exemplo.par")), u"");
  Zon z = Seg(o);
  EXPECT_EQ(Mem(o, u"MsgFim"), u"Linha 1\r\nLinha 2");
  Seg(o);
  z = Seg(o);  // VBS: TX with [CnvChr=0]
  EXPECT_EQ(z.tip, u"TX");
  EXPECT_EQ(o.opcCnvChr, 0);
  ASSERT_EQ(z.n, 5);
  EXPECT_EQ(o.regLin[2], u"  MsgBox \"chr$(65)\"   & \"x\"");
  z = Seg(o);  // LIT: ZTX keeps it literal
  EXPECT_EQ(o.regLin[1], u"  linha chr$(65) +");
  z = Seg(o);  // conv: TX, conversion back on
  EXPECT_EQ(o.opcCnvChr, 1);
  ASSERT_EQ(z.n, 2);
  EXPECT_EQ(o.regLin[1], u"ACHR$(66)CD");
  EXPECT_EQ(o.regLin[2], u"HI");  // no ")": the rest is the list; 300 gives nothing
  o.ZonFim();

  for (const char16_t* h : {u"#X - d [CnvChr=N]", u"#X - d [cnvchr=S]", u"#X - d [CnvChr=0]"}) {
    Tx f = TmpPar("cnv.par", {h, u"[A]=chr$(65)", u"##"});
    TdaOpc p;
    p.ZonIni(f, u"");
    Seg(p);
    EXPECT_EQ(Mem(p, u"A"), u"chr$(65)") << TxUtf8(h);
    p.ZonFim();
  }
}

TEST(OpcLer, ZoneHeads) {
  Tx f = TmpPar("cab.par", {u"texto solto", u"#def:ide qualquer - Descrição  [CnvChr=1][Out=2] ", u"##",
                            u"  #X:TX", u"#Y", u"##", u"#Z:ZTX sem traço", u"##", u"#W:Foo - d", u"##"});
  TdaOpc o;
  o.ZonIni(f, u"");
  Zon z = Seg(o);
  EXPECT_EQ(z.ide, u"DEF");
  EXPECT_EQ(z.tip, u"IDE");
  EXPECT_EQ(z.des, u"Descrição");
  EXPECT_EQ(o.opcEsp, u"[CnvChr=1][Out=2]");
  EXPECT_EQ(o.opcCnvChr, 1);
  z = Seg(o);  // the line with leading blanks is no head
  EXPECT_EQ(z.ide, u"Y");
  EXPECT_EQ(z.tip, u"IDE");
  z = Seg(o);
  EXPECT_EQ(z.ide, u"Z");
  EXPECT_EQ(z.tip, u"ZTX");
  EXPECT_EQ(z.des, u"");
  z = Seg(o);
  EXPECT_EQ(z.tip, u"IDE");
  z = Seg(o);
  EXPECT_EQ(z.ide, u"");
  EXPECT_EQ(z.tip, u"IDE");
  EXPECT_EQ(z.n, 0);
  EXPECT_EQ(z.des, u"");
  o.ZonFim();

  Tx i, t, d;
  TdaOpc::ZonIde(u"#X:ZTX - d [CnvChr=0]", i, t, d);
  EXPECT_EQ(t, u"IDE");
  EXPECT_EQ(d, u"d [CnvChr=0]");
}

TEST(OpcLer, BodiesAndTheirEnds) {
  TdaOpc o;
  o.ZonIni(TxDeUtf8(Dat("exemplo.par")), u"");
  EXPECT_EQ(o.ficTip, u"PAR");
  EXPECT_EQ(o.cabLin[5], u"'Descricao  : Exemplo");
  Zon z = Seg(o);
  EXPECT_EQ(z.ide, u"DEF");
  EXPECT_EQ(z.n, 8);
  int16_t e = 0;
  Mem(o, u"Perdida", &e);  // before the first head: skipped
  EXPECT_EQ(e, 0);
  z = Seg(o);
  EXPECT_EQ(z.ide, u"VAR");
  EXPECT_EQ(z.des, u"Variaveis");
  EXPECT_EQ(z.n, 7);  // comment, "A=1", "$" line and the nameless line are not rows
  z = Seg(o);
  ASSERT_EQ(z.n, 5);  // TX: empty line dropped, comment and "#" line kept
  EXPECT_EQ(o.regLin[3], u"'comentario mantido");
  EXPECT_EQ(o.regLin[4], u"#nao e zona");
  Tx txp;
  o.MemConTxp(Var(int16_t(5)), txp, e);
  EXPECT_EQ(txp, u"End Sub");
  EXPECT_TRUE(o.MemIdxVazio());
  z = Seg(o);
  ASSERT_EQ(z.n, 3);  // ZTX: empty line kept, ends at "  ##  "
  EXPECT_EQ(o.regLin[2], u"");
  EXPECT_EQ(o.regLin[3], u"#dentro");
  o.ZonFim();

  // "  ##" does not end an IDE or TX body; a missing "##" swallows later heads.
  Tx f = TmpPar("fim.par", {u"#A:TX", u"  ##", u"   ", u"", u"##", u"#B", u"[X]=1", u"  ##", u"#C", u"[Y]=2"});
  o.ZonIni(f, u"");
  z = Seg(o);
  ASSERT_EQ(z.n, 2);
  EXPECT_EQ(o.regLin[1], u"  ##");
  EXPECT_EQ(o.regLin[2], u"   ");
  z = Seg(o);
  EXPECT_EQ(z.n, 2);
  EXPECT_EQ(Mem(o, u"Y"), u"2");
  EXPECT_EQ(Seg(o).ide, u"");
  o.ZonFim();

  Tx v = TmpPar("vaz.par", {u"#X:TX", u"", u"##", u"#Y", u"##"});
  o.ZonIni(v, u"");
  EXPECT_EQ(Seg(o).n, 0);
  EXPECT_EQ(Seg(o).n, 0);
  o.ZonFim();
  Tx s = TmpPar("sem.par", {u"nada", u"[A]=1"});
  EXPECT_EQ(o.ZonIniExi(s, u""), u"");
  o.ZonFim();
}

TEST(OpcLer, EncodingsOfTheFile) {
  for (const char* n : {"utf8.par", "w1252.par", "bom.par"}) {
    TdaOpc o;
    o.ZonIni(TxDeUtf8(Dat(n)), u"");
    Seg(o);
    EXPECT_EQ(Mem(o, u"Nome"), u"Instalação") << n;
    EXPECT_EQ(o.cabLin[1], u"'Nome : U") << n;
    o.ZonFim();
  }
}

// Every logical line knows the file line where it began (header lines count), so that
// an author's tools can point at a group, a row or a program line.
TEST(OpcLer, LineNumbersOfHeadsRowsAndBodies) {
  TdaOpc o;
  Tx f = TmpPar("lin.par", {u"", u"#DEF", u"[A]=1 +", u"+ 2", u"[B]=3", u"##", u"#P:TX",
                            u"Sub X", u"", u"End Sub", u"##", u"#Q:ZTX", u"a", u"", u"b", u"##"});
  o.ZonIni(f, u"");
  Seg(o);
  EXPECT_EQ(o.zonLin, 7);
  ASSERT_EQ(o.memTab.size(), 3u);
  EXPECT_EQ(o.memTab[1].lin, 8);   // a continued row: the line where it began
  EXPECT_EQ(o.memTab[2].lin, 10);
  Seg(o);
  EXPECT_EQ(o.zonLin, 12);
  EXPECT_EQ(o.regLinNum, (std::vector<int32_t>{0, 13, 15}));  // the empty line is dropped
  Seg(o);
  EXPECT_EQ(o.zonLin, 17);
  EXPECT_EQ(o.regLinNum, (std::vector<int32_t>{0, 18, 19, 20}));
  EXPECT_EQ(Seg(o).ide, u"");
  o.ZonFim();
}
