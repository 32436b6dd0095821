// Zone memory and its index, option tables and reserved keys, the command line,
// substitution, yes/no, nested files, tabular options and the zone copies.
#include <stdexcept>
#include "FicGlb.h"
#include "OpcTst.h"

using namespace zw;
using namespace zw::tst;

namespace {
// Puts the executable's folder and the command line back as the test found them.
struct GuardaApp {
  Tx dir = TdaOpc::DirApp, lin = TdaOpc::LcLin;
  ~GuardaApp() { TdaOpc::DirApp = dir, TdaOpc::LcLin = lin; }
};
}  // namespace

TEST(OpcMem, RowsAndKeyIndex) {
  TdaOpc o;
  o.ZonIni(TxDeUtf8(Dat("exemplo.par")), u"");
  Seg(o);
  Zon z = Seg(o);  // VAR
  ASSERT_EQ(z.n, 7);
  ASSERT_EQ(o.memTab.size(), 8u);  // the DEF zone's rows are gone
  EXPECT_EQ(Mem(o, u" a "), u"1");  // first key wins, keys are case-blind and trimmed
  EXPECT_EQ(o.memTab[2].vtx, u"2");
  int16_t e = 0;
  EXPECT_EQ(Mem(o, u"chave"), u"qualificada");
  Mem(o, u"GRP.CHAVE", &e);
  EXPECT_EQ(e, 0);
  EXPECT_EQ(Mem(o, u"f:dir"), u"c:\\x");
  Mem(o, u"Dir", &e);
  EXPECT_EQ(e, 0);
  EXPECT_EQ(Mem(o, u"Vazio", &e), u"");
  EXPECT_EQ(e, 1);
  EXPECT_EQ(Mem(o, u"Brancos"), u" 5 ");

  Var n{0.0};
  Tx tpp, var;
  o.MemCon(u"Num", n, e, tpp);
  EXPECT_EQ(n.Num(), 12);
  EXPECT_EQ(tpp, u"=");
  Var i16{int16_t(7)};
  o.MemCon(u"Brancos", i16, e, tpp);
  EXPECT_TRUE(i16.Tipo() == Var::K::Int);
  EXPECT_EQ(i16.Int(), 5);
  o.MemCon(u"nada", i16, e, tpp);  // a missing key clears the holder by its kind
  EXPECT_EQ(e, 0);
  EXPECT_EQ(i16.Int(), 0);

  Var t{Tx(u"x")};
  o.MemConIdx(0, var, t, tpp, e);  // row 0 exists and is empty
  EXPECT_EQ(e, 1);
  EXPECT_EQ(t.Txt(), u"");
  o.MemConIdx(8, var, t, tpp, e);
  EXPECT_EQ(e, 0);
  Tx lab, nom;
  o.MemCmp(Var(Tx(u"chave")), lab, nom, t, e);
  EXPECT_EQ(nom, u"GRP.Chave");  // the name as written
  o.MemConVop(Var(int16_t(4)), t, nom);
  EXPECT_EQ(nom, u"F:Dir");
  EXPECT_EQ(t.Txt(), u"c:\\x");

  // After the last zone no key is found.
  Seg(o);
  Seg(o);
  Seg(o);
  EXPECT_EQ(Seg(o).ide, u"");
  Mem(o, u"a", &e);
  EXPECT_EQ(e, 0);
  o.ZonFim();

  o.MemLpz();
  o.MemOpcReg(u"Extra", Var(int16_t(3)));
  EXPECT_EQ(Mem(o, u"EXTRA"), u"3");
  o.MemOpcPrp(u"Lab [Q]=chr$(65)", 1);
  EXPECT_EQ(o.parAct.vtx, u"A");
  EXPECT_EQ(o.parAct.var, u"Q");
}

TEST(OpcMem, IndexHolds32000PositionsAndCountsOverflow) {
  std::string b = "h\r\nh\r\nh\r\nh\r\nh\r\n#BIG\r\n";
  for (int i = 1; i <= 32001; i++) b += "[K" + std::to_string(i) + "]=" + std::to_string(i) + "\r\n";
  b += "[K1]=dup\r\n##\r\n";
  TdaOpc o;
  o.ZonIni(TmpBytes("big.par", b), u"");
  Zon z = Seg(o);
  EXPECT_EQ(z.n, 32002);
  EXPECT_EQ(Mem(o, u"k32000"), u"32000");
  int16_t e = 0;
  Mem(o, u"K32001", &e);
  EXPECT_EQ(e, 0);  // beyond the index, reachable by number only
  Tx txp;
  o.MemConTxp(Var(int16_t(32001)), txp, e);
  EXPECT_EQ(txp, u"[K32001]=32001");
  EXPECT_EQ(Mem(o, u"K1"), u"1");
  o.ZonFim();

  std::string c = "h\r\nh\r\nh\r\nh\r\nh\r\n#BIG\r\n";
  for (int i = 1; i <= 32768; i++) c += "[K]=1\r\n";
  o.ZonIni(TmpBytes("huge.par", c), u"");
  Tx ide, tip, des;
  int16_t n = 0;
  EXPECT_THROW(o.ZonSeg(ide, tip, n, des), std::overflow_error);
  o.ZonFim();
}

TEST(OpcVal, OptionTablesReservedKeysAndCommandLine) {
  GuardaApp guarda;
  TdaOpc::DirApp = u"/opt/zw";
  TdaOpc::LcLin = u"X=1 -fp /a/b.par Vazia= -l Dois TitWiz=Cmd";
  FicSepDef(u"/");  // the test files have Linux paths
  TdaOpc o;
  Tx f = TxDeUtf8(Dat("exemplo.par"));
  o.ZonIni(f, u"");
  while (!Seg(o).ide.empty()) {
  }
  o.ZonFim();
  EXPECT_EQ(Con(o, u"titwiz"), u"Cmd");
  EXPECT_EQ(Con(o, u"X"), u"1");            // the command line beats the DEF zone
  EXPECT_EQ(Con(o, u"ParFic"), u"exemplo.par");  // fixed options come first
  EXPECT_EQ(Con(o, u"APP:PATH"), u"/opt/zw");
  EXPECT_EQ(Con(o, u"[LC:FP]"), u"");
  EXPECT_EQ(Con(o, u"lc:fp"), u"/a/b.par");
  EXPECT_EQ(Con(o, u"LC:L"), u"Dois");
  EXPECT_EQ(Con(o, u"LC:Nada"), u"X=1");  // an absent switch gives the first word
  EXPECT_EQ(Con(o, u"Vazia"), u"");
  EXPECT_EQ(o.LcFpa, u"/a/b.par");
  EXPECT_EQ(o.LcArgC, 7);
  Var w{Tx()};
  int16_t e = 0;
  o.LcCon(Var(Tx(u"TITWIZ=CMD")), w, e);  // the last word: nothing after it
  EXPECT_EQ(e, 0);
  o.LcCon(Var(int16_t(2)), w, e);
  EXPECT_EQ(w.Txt(), u"-fp");
  Var n{0.0};
  o.OpcCon(u"Versao", n);
  EXPECT_EQ(n.Num(), 2.1);

  // A later OpcPrp loses the command-line value.
  Tx g = TmpPar("def2.par", {u"#DEF", u"[X]=2", u"[ParFic]=p", u"##"});
  o.ZonIni(g, u"");
  Seg(o);
  o.ZonFim();
  EXPECT_EQ(Con(o, u"X"), u"1");
  o.OpcPrp(0);
  EXPECT_EQ(Con(o, u"X"), u"");
  EXPECT_EQ(Con(o, u"ParFic"), u"def2.par");
  TdaOpc::LcLin.clear();
  FicSepDef(u"");

  TdaOpc p;
  EXPECT_THROW(p.OpcAct(u"A", Var(Tx(u"1"))), std::out_of_range);  // reduced table
  Var v{Tx()};
  EXPECT_THROW(p.OpcCon(u"LC:X", v), std::out_of_range);  // no command line read yet
  p.OpcIni(u"A");
  p.OpcAct(u"a", Var(int16_t(5)));
  p.OpcAct(u"A", Var(Tx(u"6")));
  EXPECT_EQ(Con(p, u"a"), u"6");  // the last assignment wins in a table
}

TEST(OpcVal, SubstitutionPassesAndYesNo) {
  GuardaApp guarda;
  TdaOpc::DirApp = u"/opt/zw";
  TdaOpc o;
  o.OpcIni(u"A");
  o.OpcAct(u"A", Var(Tx(u"x[A]")));
  o.OpcAct(u"B", Var(Tx(u"[C]")));
  o.OpcAct(u"C", Var(Tx(u"fim")));
  o.OpcAct(u"P", Var(Tx(u"[APP:PATH]\\Pgm")));
  Tx t = u"[A]";
  o.OpcSbr(t);
  EXPECT_EQ(t, Tx(21, u'x') + u"[A]");  // a value that refers to itself stops after 21 passes
  t = u"<[ b ]>[nada]|";
  o.OpcSbr(t);
  EXPECT_EQ(t, u"<fim>|");
  t = u"[]abc[A]";
  o.OpcSbr(t);
  EXPECT_EQ(t, u"[]abc[A]");
  Tx r;
  o.OpcSbr(u"[C[x", r);
  EXPECT_EQ(r, u"[C[x");
  o.OpcPath(u"P", t);
  EXPECT_EQ(t, u"/opt/zw\\Pgm");

  for (const char16_t* s : {u"S", u" sim ", u"Si", u"1"}) {
    o.OpcAct(u"Y", Var(Tx(s)));
    Var sn{Tx()};
    o.OpcSN(u"Y", sn);
    EXPECT_EQ(sn.Txt(), u"Sim") << TxUtf8(s);
  }
  for (const char16_t* s : {u"N", u"Sim.", u"2", u"não"}) {
    o.OpcAct(u"Y", Var(Tx(s)));
    Var sn{Tx()};
    o.OpcSN(u"Y", sn);
    EXPECT_EQ(sn.Txt(), u"Não") << TxUtf8(s);
  }
  Var sn{int16_t(9)};
  o.OpcSN(u"ausente", sn);
  EXPECT_EQ(sn.Int(), 0);
}

TEST(OpcZon, NestedFilesContinueTheOuterWalk) {
  Tx in = TmpPar("in.par", {u"#I", u"[I]=interior", u"##"});
  Tx out = TmpPar("out.par", {u"#A", u"[A]=1", u"##", u"#B", u"[B]=2", u"##"});
  FicSepDef(u"/");
  TdaOpc o;
  o.ZonIni(out, u"");
  EXPECT_EQ(Seg(o).ide, u"A");
  o.ZonIni(in, u"");
  EXPECT_EQ(Seg(o).ide, u"I");
  EXPECT_EQ(Mem(o, u"I"), u"interior");
  o.ZonFim();
  EXPECT_EQ(Seg(o).ide, u"B");
  EXPECT_EQ(Mem(o, u"B"), u"2");
  EXPECT_EQ(o.ficTbo, in);
  EXPECT_EQ(Con(o, u"ParFic"), u"in.par");
  FicSepDef(u"");
  o.ZonFim();
  int16_t top = 0;
  o.FicPilFim(top);
  EXPECT_EQ(top, -1);
}

TEST(OpcZon, ZoneCopiesTabularOptionsAndGroups) {
  GuardaApp guarda;
  TdaOpc::DirApp = u"/p";
  Tx f = TmpPar("opc.par", {u"#DEF", u"[D]=d", u"##", u"#OPC", u"Um [F:AB]=[APP:PATH]", u"Dois [CD]=[D]",
                            u"Tres [ABX]=3", u"Um outra vez [AB]=4", u"##", u"#TBO",
                            u"Lab1 [1:X,c=r]=v1", u"Lab2 [0:Y,c=r]=v2", u"Lab3 [1:Z]=v3", u"##"});
  TdaOpc o;
  o.ZonIni(f, u"");
  Seg(o);
  Zon z = Seg(o);
  ASSERT_EQ(z.n, 4);
  EXPECT_EQ(o.opcTabReg[1].vtx, u"/p");  // "F:" values substituted once
  EXPECT_EQ(o.opcTabReg[2].vtx, u"[D]");
  EXPECT_EQ(o.OpcTabPrp(u"ab,x"), 3);  // bare names AB, ABX and AB; not CD
  Tx l, v, n;
  o.OpcTabCon(l, v, n);
  EXPECT_EQ(n, u"AB");
  o.OpcTabCon(l, v, n);  // the cursor never moves on
  EXPECT_EQ(l, u"Um");
  EXPECT_EQ(o.OpcTabPrp(u"*"), 4);

  IdxTab tab;
  o.ZonArr(u"IDE", z.n, tab);
  EXPECT_EQ(tab.Num(), 4);
  std::vector<std::array<Tx, 3>> mul;
  o.ZonArr(u"MUL", z.n, mul);
  EXPECT_EQ(mul[2][0], u"Dois");
  EXPECT_EQ(mul[2][1], u"CD");
  std::vector<Tx> arr;
  o.ZonArr(u"FIC", z.n, arr);
  EXPECT_EQ(arr[2], u"d");
  EXPECT_EQ(o.memTab[2].vtx, u"[D]");
  EXPECT_THROW(o.ZonArr(u"MUL", 9, mul), std::out_of_range);

  GrpDir g;
  TdaOpc::GrpDirIni(g);
  o.GrpDirCon(g, 2);
  int16_t gn = 0;
  TdaOpc::GrpDirNum(g, gn);
  EXPECT_EQ(gn, 2);
  EXPECT_EQ(g[0][1], u"F:AB");
  EXPECT_EQ(g[1][2], u"d");
  EXPECT_EQ(g[2][2], u"Dois");
  EXPECT_EQ(Con(o, u"cd"), u"d");
  o.ZonFim();

  // A repeated name shortens the keyed table: OpcArr runs out of bounds.
  Tx r = TmpPar("rep.par", {u"#R", u"[A]=1", u"[A]=2", u"##"});
  o.ZonIni(r, u"");
  Seg(o);
  std::vector<Tx> a;
  EXPECT_THROW(o.OpcArr(2, a), std::out_of_range);
  o.ZonArr(u"IDE", 2, tab);
  Tx val;
  int pos = 0;
  IdxCon(tab, u"A", val, pos);
  EXPECT_EQ(val, u"2");        // a table keeps the last value
  EXPECT_EQ(Mem(o, u"A"), u"1");  // the zone finds the first
  o.ZonFim();

  int16_t c = 0;
  o.tbOpcPrp(f, u"", u"", c);
  EXPECT_EQ(c, 3);
  o.tbOpcPrp(f, u"*", u"", c);
  ASSERT_EQ(c, 2);
  EXPECT_EQ(o.tbOpcLst[2][0], u"Lab3");
  EXPECT_EQ(o.tbOpcLst[1][1], u"1");
  EXPECT_EQ(o.tbOpcLst[1][2], u"X");
  EXPECT_EQ(o.tbOpcLst[1][3], u"v1");
  o.tbOpcPrp(f, u"Z", u"", c);
  EXPECT_EQ(c, 1);
  std::vector<std::array<Tx, 10>> pro;
  o.tbOpcPro(pro, c, 5);
  EXPECT_EQ(pro[1][1], u"Lab3");
  EXPECT_EQ(pro[1][0], u"1");
}

TEST(OpcVal, DebugSwitchesSpecialOptionsAndForwardReading) {
  Tx f = TmpPar("dbg.par", {u"#Z - d [CnvChr=1][Nivel=3]", u"[DbgLog]=LOG", u"[DbgX]=nao", u"[P]=[Q]\\x",
                            u"[S]=sim", u"##", u"#W", u"lixo", u"[V]=12", u"##"});
  TdaOpc o;
  o.ZonIni(f, u"");
  Seg(o);
  Var t{Tx()}, n{int16_t(0)};
  o.OpcDbg(u"log", t, 1);  // "on" means the value repeats the name
  EXPECT_EQ(t.Txt(), u"S");
  o.OpcDbg(u"X", n, 1);
  EXPECT_EQ(n.Int(), 0);
  o.OpcDbg(u"X", t, 0);
  EXPECT_EQ(t.Txt(), u"nao");
  Var e{int16_t(0)}, a{Tx(u"antes")};
  o.OpcEspCon(u"nivel", e);
  EXPECT_EQ(e.Int(), 3);
  o.OpcEspCon(u"falta", a);  // an absent item leaves the holder alone
  EXPECT_EQ(a.Txt(), u"antes");
  Var sn{Tx()};
  o.MemSN(u"S", sn);
  EXPECT_EQ(sn.Txt(), u"Sim");
  o.OpcIni(u"A");
  o.OpcAct(u"Q", Var(Tx(u"/q")));
  Tx p, tpp;
  int16_t ex = 0;
  o.MemPath(u"P", p, ex, tpp);
  EXPECT_EQ(p, u"/q\\x");
  Var v{0.0};
  Tx nom;
  o.LerPar(v, nom);  // reads on, over the zone end and the next head
  EXPECT_EQ(nom, u"V");
  EXPECT_EQ(v.Num(), 12);
  o.LerPar(v, nom);
  EXPECT_EQ(nom, u"");
  o.ZonFim();
}
