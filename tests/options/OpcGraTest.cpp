// Writing: the round trip of a held file, editing values and the header, zones of
// a held file, model zones, and the line forms of stream writing.
#include <sys/resource.h>
#include <filesystem>
#include <stdexcept>
#include "FicGlb.h"
#include "OpcTst.h"

using namespace zw;
using namespace zw::tst;
namespace fs = std::filesystem;

namespace {

// A copy of a data file in the test's temporary folder, to be edited.
Tx Cop(const char* nom) {
  std::string p = FicTmp(nom);
  fs::copy_file(Dat(nom), p, fs::copy_options::overwrite_existing);
  return TxDeUtf8(p);
}

std::string Crlf(std::initializer_list<const char*> lin) {
  std::string s;
  for (auto l : lin) s += std::string(l) + "\r\n";
  return s;
}

}  // namespace

TEST(OpcGra, RoundTripIsByteIdenticalInEachEncoding) {
  for (const char* n : {"edicao.par", "exemplo.par", "utf8.par", "bom.par", "w1252.par"}) {
    Tx f = Cop(n), out = f + u".out";
    TdaOpc o;
    int32_t nli = 0;
    o.RegPrp(f, nli);
    EXPECT_GT(nli, 5);
    o.RegExe(out, 0);
    EXPECT_EQ(Le(TxUtf8(out)), Le(Dat(n))) << n;
    EXPECT_TRUE(o.regLin.empty());
  }
}

TEST(OpcGra, ChangingAndAddingVariables) {
  Tx f = Cop("edicao.par");
  TdaOpc o;
  int32_t nli = 0;
  o.RegPrp(f, nli);
  ASSERT_EQ(nli, 40);
  Var v{Tx()};
  int16_t e = 0;
  o.RegCon(u"titwiz", v, e);
  EXPECT_EQ(v.Txt(), u"Olá  ");
  Var n{0.0};
  o.RegCon(u"Z", n, e);
  EXPECT_EQ(n.Num(), 1);

  o.RegVarAlt(u"Longo", Var(Tx(u"novo")), 2);  // the "+" lines that continued it are emptied
  o.RegVarAlt(u"dir", Var(Tx(u"d:\\y")), 2);    // "[F:Dir]" is found as "DIR"
  Tx l;
  o.RegConIdx(19, l);
  EXPECT_EQ(l, u"Longo [Longo]=novo");
  o.RegConIdx(20, l);
  EXPECT_EQ(l, u"");
  o.RegConIdx(21, l);
  EXPECT_EQ(l, u"");
  o.RegConIdx(22, l);
  EXPECT_EQ(l, u"Pasta [F:Dir]=d:\\y");
  EXPECT_THROW(o.RegVarAlt(u"U", Var(Tx(u"x")), 2), std::out_of_range);  // the last line

  o.RegVarEli(u"Z");
  o.RegCon(u"Z", v, e);
  EXPECT_EQ(v.Txt(), u"");
  EXPECT_EQ(e, 1);

  // A new key enters every zone: each "##" gives way and moves one line down.
  o.RegVarAlt(u"Novo", Var(int16_t(7)), 2);
  ASSERT_EQ(o.regLin.size(), 42u);
  o.RegConIdx(24, l);
  EXPECT_EQ(l, u"??? [Novo]=7");
  o.RegConIdx(25, l);
  EXPECT_EQ(l, u"##");
  o.RegConIdx(39, l);
  EXPECT_EQ(l, u"##");
  o.RegConIdx(41, l);
  EXPECT_EQ(l, u"");
  o.RegVarAlt(u"Fim", Var(Tx(u"f")), 1);
  o.RegVarAlt(u"Nada", Var(Tx(u"f")), 3);
  EXPECT_EQ(o.regLin[42], u"??? [Fim]=f");
  EXPECT_EQ(o.regLin[43], u"");

  o.RegCabAct(u"ver", Var(Tx(u"+")));
  o.RegCabAct(u"INF", Var(Tx(u"Nova")));
  o.RegCabAct(u"XYZ", Var(Tx(u"x")));
  o.RegCabAct(u"INF", Var(Tx()));
  EXPECT_EQ(o.regLin[4], u"'Versao     : 1.10");
  EXPECT_EQ(o.regLin[5], u"'Descricao  : Nova");
  o.RegExe(u"", 1);

  // Read back: the deleted line is gone and the new variable is in the zones.
  TdaOpc r;
  r.ZonIni(f, u"");
  Zon z = Seg(r);
  EXPECT_EQ(z.ide, u"DEF");
  EXPECT_EQ(Mem(r, u"Novo"), u"7");
  EXPECT_EQ(Mem(r, u"Longo"), u"novo");
  EXPECT_EQ(Mem(r, u"TitWiz"), u"Olá  ");
  Seg(r);
  z = Seg(r);
  EXPECT_EQ(z.ide, u"FIM");
  EXPECT_EQ(z.n, 1);  // "[Z]=1" was deleted, "Novo" came in
  r.ZonFim();
  std::string b = Le(TxUtf8(f));
  EXPECT_EQ(b.find("\xAB\xBB"), std::string::npos);
  EXPECT_NE(b.find("Ol\xE1  \r\n"), std::string::npos);  // still Windows-1252
}

TEST(OpcGra, ZonesOfAHeldFileAndModelZones) {
  Tx f = Cop("edicao.par");
  TdaOpc o;
  int32_t nli = 0, pri = 0, cnt = 0;
  o.RegPrp(f, nli);
  o.RegZonPsq(u"def", pri, cnt);
  EXPECT_EQ(pri, 15);
  EXPECT_EQ(cnt, 10);
  EXPECT_EQ(o.vzoPsqDes, u"Definicoes base");
  EXPECT_EQ(o.vzoPsqVdi, u"#DEF:IDE - Definicoes base");
  o.RegZonPsq(u"", pri, cnt);
  EXPECT_EQ(pri, 1);
  EXPECT_EQ(cnt, 12);
  std::vector<Tx> lin;
  o.RegZonCtx(u"DEF", lin, cnt);
  ASSERT_EQ(cnt, 6);
  EXPECT_EQ(lin[1], u"Titulo   [TitWiz]=Olá  ");
  std::vector<Tx> ides;
  int16_t ni = 0;
  o.RegZonIdz(ides, ni);
  ASSERT_EQ(ni, 3);
  EXPECT_EQ(ides[2], u"FOO_MAT");

  Tx ide;
  int32_t k = -1;
  o.RegZonCon(ide, lin, k);
  EXPECT_EQ(ide, u"");
  EXPECT_EQ(k, 14);  // the text before the first zone's separator
  o.RegZonCon(ide, lin, k);
  EXPECT_EQ(ide, u"DEF");
  EXPECT_EQ(k, 10);
  o.RegZonCon(ide, lin, k);
  EXPECT_EQ(ide, u"FOO_MAT");

  o.RegZonMatPrp(u"FOO");
  o.RegZonMatAct(u"val", Var(Tx(u"2")), 1);
  Tx out = f + u".mat";
  o.RegFicPrp(out);
  o.RegZonMatReg(u"Nome");
  o.RegZonCop(u"FIM");
  o.RegFim();
  std::string sep = "'" + std::string(79, '=');
  EXPECT_EQ(Le(TxUtf8(out)), Crlf({sep.c_str(), "#FOO:IDE - MAT:TX - Modelo Nome", sep.c_str(), "Item [Val]=2",
                                      "##", "", "", sep.c_str(), "#FIM - Fim", sep.c_str(), "[Z]=1", "##", "", ""}));
}

TEST(OpcGra, StreamWritingLineForms) {
  FicSepDef(u"/");
  Tx f = FicTmpTx("novo.par");
  TdaOpc o;
  o.tboFic(f);
  o.CabPrp(u"", Var(0.0), u"", u" Desc ");
  o.CabCri(0);
  o.RegGrpCabVer();
  o.RegGrpVer(u"", u"", u"", 1);
  o.RegGrpCabDef();
  o.RegGrpOpc(u"TitWiz", u"Titulo", Var(Tx(u"X")), 20);
  o.RegGrpOpa(u"A", u"Longo rotulo aqui", Var(int16_t(5)), 10);
  o.RegGrpOpc(u"B", u"Corte", Var(Tx(u"y")), 6);
  o.RegGrpFim();
  o.RegSep(u"x");
  o.RegFim();
  FicSepDef(u"");
  std::string eq = "'" + std::string(79, '='), ver = "'- Versao : 1.0   1899/12/30 " + std::string(51, '-');
  EXPECT_EQ(Le(TxUtf8(f)),
            Crlf({"'Nome       : novo.par", "'Tipo       : PAR", "'Data       : 1899/12/30",
                  "'Versao     : 1.0", "'Descricao  : Desc", "", eq.c_str(), "'#VER - Historia de modificacoes",
                  eq.c_str(), "", ver.c_str(), "Versao base", "", "", eq.c_str(), "#DEF:IDE - Definicoes base",
                  eq.c_str(), "Titulo      [TitWiz]=X", "'Longo rotulo aqui [A]=5", "Corte [B]=y", "##", "", "", ""}));

  // What the writer emits, the reader takes.
  TdaOpc r;
  r.ZonIni(f, u"");
  EXPECT_EQ(r.ficTip, u"PAR");
  Zon z = Seg(r);
  EXPECT_EQ(z.ide, u"DEF");
  EXPECT_EQ(z.n, 2);
  EXPECT_EQ(Mem(r, u"TitWiz"), u"X");
  r.ZonFim();
  Tx t;
  r.CabCon(u"V", 5, t);
  EXPECT_EQ(t, u"Desc");
  TdaOpc::CabOpcDt(Var(Tx(u" 2002/05/31 ")), t);
  EXPECT_EQ(t, u"2002/05/31");
  t = u"antes";
  TdaOpc::CabOpcDt(Var(int16_t(3)), t);
  EXPECT_EQ(t, u"antes");
}

TEST(OpcGra, UntouchedLinesKeepTheirBytesAndAFailedWriteChangesNothing) {
  // UTF-8 with a mark, whose other lines hold bytes that are not UTF-8.
  std::string cab = "\xef\xbb\xbf'Nome : T\r\n'Tipo : par\r\n'Data :\r\n'Versao :\r\n'Descricao :\r\n";
  std::string antes = cab + "#DEF:IDE - D\r\nA [A]=\xe7\xe3o\r\nB [B]=x\xff\r\nC [C]=\xc3\xa7\r\n##\r\n";
  Tx f = TmpBytes("bytes.par", antes);
  TdaOpc o;
  int32_t n = 0;
  o.RegPrp(f, n);
  o.RegVarAlt(u"B", Var(Tx(u"\u00e7")), 2);
  EXPECT_EQ(o.RegExe(f, 1), 0);
  std::string depois = cab + "#DEF:IDE - D\r\nA [A]=\xe7\xe3o\r\nB [B]=\xc3\xa7\r\nC [C]=\xc3\xa7\r\n##\r\n";
  EXPECT_EQ(Le(TxUtf8(f)), depois);

  // Under a file-size limit smaller than the file: the error comes back, the
  // file stays as it was.
  o.RegPrp(f, n);
  o.RegVarAlt(u"B", Var(Tx(500, u'x')), 2);
  rlimit velho;
  getrlimit(RLIMIT_FSIZE, &velho);
  rlimit lim = velho;
  lim.rlim_cur = 200;
  setrlimit(RLIMIT_FSIZE, &lim);
  int e = o.RegExe(f, 1);
  setrlimit(RLIMIT_FSIZE, &velho);
  EXPECT_EQ(e, kErrDisco);
  EXPECT_EQ(Le(TxUtf8(f)), depois);
}
