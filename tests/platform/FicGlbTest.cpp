// Paths as text, paths on the disk, and files on file numbers.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include "FicGlb.h"
#include "MsgDlg.h"
#include "MsgGrv.h"

using namespace zw;

namespace {

struct SepGuard {  // every test leaves the separator as it found it
  ~SepGuard() { FicSepDef(u""); }
};

// A fresh folder under /tmp, removed with its contents at the end.
class FicDsk : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwficXXXXXX";
    raiz_ = mkdtemp(t);
    r_ = TxAsc(raiz_);
  }
  void TearDown() override {
    FicFecTot();
    std::string c = "rm -rf '" + raiz_ + "'";
    (void)!std::system(c.c_str());
  }
  void Escreve(const std::string& nome, const std::string& bytes) {
    std::ofstream(raiz_ + "/" + nome, std::ios::binary) << bytes;
  }
  std::string Le(const std::string& nome) {
    std::ifstream f(raiz_ + "/" + nome, std::ios::binary);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
  }
  Tx P(const char* rel) { return r_ + u"\\" + TxAsc(rel); }  // built as a wizard builds paths
  std::string raiz_;
  Tx r_;
};

}  // namespace

TEST(FicTx, JunKeepsOneSeparatorAndDriveRoots) {
  SepGuard g;
  EXPECT_EQ(FicJun(u"C:\\", u"\\x"), u"C:\\x");
  EXPECT_EQ(FicJun(u"", u"\\x"), u"\\x");
  EXPECT_EQ(FicJun(u"C:", u""), u"C:\\");
  EXPECT_EQ(FicJun(u"a\\", u""), u"a");
  EXPECT_EQ(FicJun(u"a\\", u"\\b\\"), u"a\\b");
  EXPECT_EQ(FicJun(u"", u"\\"), u"\\");  // a lone separator is not cut
  EXPECT_EQ(FicJunLst({u"C:", u"Prog", u"x.par"}), u"C:\\Prog\\x.par");
  FicSepDef(u"/");
  EXPECT_EQ(FicJun(u"/usr/", u"/bin"), u"/usr/bin");
  EXPECT_EQ(FicJun(u"a\\", u"b"), u"a\\/b");  // only the setting counts as a separator
  FicSepDef(u"");
  EXPECT_EQ(FicSep(), u"\\");
}

TEST(FicTx, DirNomCutsAtLastSeparatorOrBracket) {
  SepGuard g;
  Tx d, n;
  FicDirNom(u"  C:\\a\\b  ", d, n);
  EXPECT_EQ(d, u"C:\\a");
  EXPECT_EQ(n, u"b");
  FicDirNom(u"[X]b", d, n);
  EXPECT_EQ(d, u"[X]");
  EXPECT_EQ(n, u"b");
  FicDirNom(u"\\b", d, n);
  EXPECT_EQ(d, u"");
  EXPECT_EQ(n, u"b");
  FicDirNom(u"[X]a\\b", d, n);  // the later of the two wins
  EXPECT_EQ(d, u"[X]a");
  FicDirNom(u"/a/b", d, n);  // "/" is no separator while the setting is "\"
  EXPECT_EQ(n, u"/a/b");
}

TEST(FicTx, DrivesAndShares) {
  Tx a, b;
  FicDrvDir(u"C:\\a\\b", a, b);
  EXPECT_EQ(a, u"C");
  EXPECT_EQ(b, u"\\a\\b");
  FicDrvDir(u"\\\\srv\\sh\\x", a, b);
  EXPECT_EQ(a, u"\\\\srv");
  EXPECT_EQ(b, u"sh\\x");
  FicDrvDir(u"\\\\srv", a, b);
  EXPECT_EQ(a, u"\\\\");
  EXPECT_EQ(b, u"srv");
  FicDrvDir(u"rel\\x", a, b);
  EXPECT_EQ(a, u"");
  EXPECT_EQ(b, u"rel\\x");

  EXPECT_EQ(FicDrvUnc(u"\\\\srv\\sh\\x\\y", a, b), 0);
  EXPECT_EQ(a, u"\\\\srv\\sh");
  EXPECT_EQ(b, u"x\\y");
  EXPECT_EQ(FicDrvUnc(u"\\\\srv", a, b), 0);
  EXPECT_EQ(a, u"");
  EXPECT_EQ(b, u"\\srv");
  EXPECT_EQ(FicDrvUnc(u"\\\\srv\\sh", a, b), 5);  // the root has no end
  EXPECT_EQ(FicDrvUnc(u"D:\\x", a, b), 0);
  EXPECT_EQ(a, u"D");
  EXPECT_EQ(b, u"\\x");
}

TEST(FicTx, Extensions) {
  int p = -1;
  FicExtPos(u".cfg", p);
  EXPECT_EQ(p, 0);
  FicExtPos(u"a.b.txt", p);
  EXPECT_EQ(p, 4);
  Tx n, e;
  FicNomExtSep(u".cfg", n, e, 0);
  EXPECT_EQ(n, u".cfg");
  EXPECT_EQ(e, u"");
  FicNomExtSep(u"prog arg", n, e, 1);
  EXPECT_EQ(n, u"prog");
  EXPECT_EQ(e, u"arg");
  FicNomExtSep(u"prog arg", n, e, 0);
  EXPECT_EQ(n, u"prog arg");
  FicNomExt(u" x.TXT ", n, e);
  EXPECT_EQ(n, u"x");
  EXPECT_EQ(e, u"TXT");
  FicNomExt(u"my file.txt", n, e);  // a dot beats the blank
  EXPECT_EQ(n, u"my file");
  Tx r;
  FicExtTro(u"dir\\a.par", u"bak", r, 0);
  EXPECT_EQ(r, u"dir\\a.bak");
  FicExtTro(u"noext", u"lck", r, 0);
  EXPECT_EQ(r, u"noext.lck");
}

TEST(FicTx, ParAndDirLis) {
  SepGuard g;
  std::vector<Tx> p;
  FicPar(u"C:\\Prog\\Wiz\\setup.par", p);
  ASSERT_EQ(p.size(), 6u);
  EXPECT_EQ(p[0], u"C:\\Prog\\Wiz\\setup.par");
  EXPECT_EQ(p[1], u"C");
  EXPECT_EQ(p[2], u"\\Prog\\Wiz");
  EXPECT_EQ(p[3], u"setup.par");
  EXPECT_EQ(p[4], u"setup");
  EXPECT_EQ(p[5], u"par");
  FicPar(u"\\\\srv\\sh\\d\\my file", p);
  EXPECT_EQ(p[1], u"\\\\srv");
  EXPECT_EQ(p[2], u"sh\\d");
  EXPECT_EQ(p[4], u"my file");
  EXPECT_EQ(p[5], u"");

  std::vector<Tx> t;
  int n = 0;
  FicDirLis(u"\\\\srv\\sh\\x", t, n);
  ASSERT_EQ(n, 3);
  EXPECT_EQ(t[0], u"");
  EXPECT_EQ(t[1], u"\\\\srv");
  EXPECT_EQ(t[2], u"sh");
  EXPECT_EQ(t[3], u"x");
  FicDirLis(u"C:\\a\\", t, n);
  ASSERT_EQ(n, 2);
  EXPECT_EQ(t[1], u"C:");
  FicDirLis(u"", t, n);
  EXPECT_EQ(n, 0);
}

TEST(FicTx, NatMapsDrivesAndShares) {
  int e = 0;
  EXPECT_EQ(FicNat(u"C:\\a\\b.txt", &e), "/a/b.txt");
  EXPECT_EQ(e, 0);
  EXPECT_EQ(FicNat(u"c:"), "/");
  EXPECT_EQ(FicNat(u"\\\\srv\\sh\\x"), "/net/srv/sh/x");
  EXPECT_EQ(FicNat(u"/tmp\\a/b"), "/tmp/a/b");
  EXPECT_EQ(FicNat(u"Q:\\x", &e), "");
  EXPECT_EQ(e, 68);
  FicDrvMap(u'q', u"/mnt/q");
  EXPECT_EQ(FicNat(u"Q:\\x", &e), "/mnt/q/x");
  EXPECT_EQ(e, 0);
  FicDrvMap(u'Q', u"");
}

TEST(FicTx, DeNatGivesDrivesBack) {
  EXPECT_EQ(FicDeNat("/home/u/wiz/ZunWiz.par"), u"C:\\home\\u\\wiz\\ZunWiz.par");
  EXPECT_EQ(FicDeNat("/"), u"C:\\");
  EXPECT_EQ(FicDeNat("/tmp/"), u"C:\\tmp");
  EXPECT_EQ(FicDeNat("/net/srv/sh/x"), u"\\\\srv\\sh\\x");
  EXPECT_EQ(FicDeNat("rel/a"), u"rel\\a");
  FicDrvMap(u'D', u"/media/dvd/");
  EXPECT_EQ(FicDeNat("/media/dvd/setup/x.par"), u"D:\\setup\\x.par");
  EXPECT_EQ(FicDeNat("/media/dvdx"), u"C:\\media\\dvdx");  // not below D's folder
  EXPECT_EQ(FicNat(FicDeNat("/media/dvd/setup/x.par")), "/media/dvd/setup/x.par");
  FicDrvMap(u'D', u"");
}

TEST_F(FicDsk, ExiAndTypes) {
  Escreve("f.txt", "x");
  EXPECT_EQ(FicExi(P("f.txt")), 1);
  EXPECT_EQ(FicExi(P("nada.txt")), 0);
  EXPECT_EQ(FicExi(P("nodir\\x.txt")), -76);
  EXPECT_LT(FicExi(r_), 0);  // a folder is no file
  EXPECT_EQ(FicNumLiv(), 1);  // FicExi closes what it opened
  int a = 0;
  Tx t;
  FicTipCon(r_, a, t);
  EXPECT_EQ(t, u"D");
  EXPECT_EQ(a & 16, 16);
  FicTip(P("f.txt"), t, a);
  EXPECT_EQ(t, u"F");
  EXPECT_EQ(a & 16, 0);
  FicTipCon(P("nada"), a, t);
  EXPECT_EQ(t, u"?");
  EXPECT_EQ(a, -1);
  EXPECT_EQ(DirExi(r_), 1);
  EXPECT_EQ(DirExi(P("f.txt")), 0);
}

TEST_F(FicDsk, EliCopRen) {
  Escreve("a.txt", "abc");
  chmod((raiz_ + "/a.txt").c_str(), 0755);
  int r = 9;
  FicCop(r_ + u"\\A.TXT", r_ + u"\\a.txt", r);
  EXPECT_EQ(r, -1);
  FicCop(P("a.txt"), P("b.txt"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(Le("b.txt"), "abc");
  struct stat st;
  ASSERT_EQ(stat((raiz_ + "/b.txt").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0755u);
  FicCop(P("none"), P("c.txt"), r);
  EXPECT_EQ(r, 53);
  FicCop(P("a.txt"), P("nodir\\c.txt"), r);
  EXPECT_EQ(r, 76);

  FicRen(P("b.txt"), P("a.txt"), r);
  EXPECT_EQ(r, 58);  // never over an existing file
  FicRen(P("b.txt"), P("c.txt"), r);
  EXPECT_EQ(r, 0);
  FicRen(P("b.txt"), P("d.txt"), r);
  EXPECT_EQ(r, 53);

  FicEli(P("c.txt"), r);
  EXPECT_EQ(r, 0);
  FicEli(P("c.txt"), r);
  EXPECT_EQ(r, 53);
  FicEli(r_, r);
  EXPECT_EQ(r, 53);  // folders are not deleted here
  Escreve("x1.tmp", "");
  Escreve("x2.TMP", "");
  FicEli(P("*.tmp"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(FicExi(P("x2.TMP")), 0);
  FicEli(P("*.tmp"), r);
  EXPECT_EQ(r, 53);
}

TEST_F(FicDsk, DirCriLevels) {
  int r = -1;
  DirCriTot(P("a\\b\\c"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(DirExi(P("a\\b\\c")), 1);
  DirCriTot(P("a\\b\\c"), r);
  EXPECT_NE(r, 0);  // the last level exists: its own error
  DirCri(P("a"), r);
  EXPECT_EQ(r, 75);
  DirCri(P("x\\y"), r);
  EXPECT_EQ(r, 76);
  DirCriFic(P("a\\b\\c\\f.txt"), r);
  EXPECT_EQ(r, 0);
  DirCriFic(P("n\\m\\f.txt"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(DirExi(P("n\\m")), 1);
  EXPECT_EQ(DirExi(P("n\\m\\f.txt")), 0);
  FicCriVaz(P("e\\f\\vazio.txt"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le("e/f/vazio.txt"), "");
  Escreve("cheio.txt", "keep");
  FicCriVaz(P("cheio.txt"), r);
  EXPECT_EQ(Le("cheio.txt"), "keep");  // never truncates
}

TEST_F(FicDsk, DirLisTypesPatternsOrder) {
  Escreve("b.DLL", "");
  Escreve("a.dll", "");
  Escreve("c.ocx", "");
  Escreve(".hid.dll", "");
  mkdir((raiz_ + "/sub.dll").c_str(), 0777);
  std::vector<Tx> nm;
  std::vector<int> at;
  int n = 0, e = 0;
  DirLis(u"F", r_, u"*.dll", nm, n, e);
  ASSERT_EQ(n, 3);
  EXPECT_EQ(nm[1], u".hid.dll");
  EXPECT_EQ(nm[2], u"a.dll");
  EXPECT_EQ(nm[3], u"b.DLL");
  DirLisAtr(u"F", 0, r_, u"*.dll", nm, &at, n, e);  // without bit 2 the hidden file goes
  EXPECT_EQ(n, 2);
  DirLis(u"D", r_, u"*.*", nm, n, e);
  ASSERT_EQ(n, 1);
  EXPECT_EQ(nm[1], u"sub.dll");
  DirLisAtr(u"FD", 7, r_, u"", nm, &at, n, e);
  EXPECT_EQ(n, 5);
  ASSERT_EQ(at.size(), 6u);
  EXPECT_EQ(at[5] & 16, 16);  // "sub.dll" sorts last
  DirLis(u"F", r_, u"?.ocx", nm, n, e);
  EXPECT_EQ(n, 1);
  DirLis(u"F", P("nodir"), u"*.*", nm, n, e);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(e, 76);
}

TEST_F(FicDsk, LinesAndEncodings) {
  Escreve("l.txt", "um\r\ndois\nt\xeas\rquatro\r\n\r\nfim");
  int e = 0, num = FicNumLiv();
  FicAbr(num, P("l.txt"), u"I", u"", u"", e);
  ASSERT_EQ(e, 0);
  EXPECT_EQ(FicCod(num), Cod::W1252);
  std::vector<Tx> lin;
  Tx l;
  while (!FicEof(num)) {
    FicLinLer(num, l, e);
    lin.push_back(l);
  }
  EXPECT_EQ(e, 0);
  ASSERT_EQ(lin.size(), 6u);
  EXPECT_EQ(lin[2], u"t\u00eas");
  EXPECT_EQ(lin[4], u"");
  EXPECT_EQ(lin[5], u"fim");
  FicLinLer(num, l, e);
  EXPECT_EQ(e, 62);
  EXPECT_EQ(l, u"");
  EXPECT_EQ(FicFec(num), 0);
  EXPECT_EQ(FicFec(num), 52);

  Escreve("u.txt", "\xef\xbb\xbf" "a\xc3\xa7\r\n");
  e = 0;
  FicAbr(1, P("u.txt"), u"I", u"", u"", e);
  EXPECT_EQ(FicCod(1), Cod::Utf8Bom);
  FicLinLer(1, l, e);
  EXPECT_EQ(l, u"a\u00e7");
  EXPECT_TRUE(FicEof(1));
  FicFec(1);

  e = 0;
  FicAbr(2, P("o.txt"), u"O", u"", u"", e);
  ASSERT_EQ(e, 0);
  EXPECT_EQ(FicLinGra(2, u"a\u00e7"), 0);
  FicFec(2);
  EXPECT_EQ(Le("o.txt"), "a\xe7\r\n");
  FicAbr(2, P("o.txt"), u"A", u"", u"", e);
  FicLinGra(2, u"b");
  FicFec(2);
  EXPECT_EQ(Le("o.txt"), "a\xe7\r\nb\r\n");
  FicAbr(2, P("o.txt"), u"O", u"", u"", e);  // output starts the file anew
  FicCodDef(2, Cod::Utf8Bom);
  FicTxGra(2, u"\u00e7");
  FicTxGra(2, u"\u00e7");
  FicFec(2);
  EXPECT_EQ(Le("o.txt"), "\xef\xbb\xbf\xc3\xa7\xc3\xa7");
}

TEST_F(FicDsk, AbrNumbersAndPolicies) {
  Escreve("f.txt", "x");
  int r = 0;
  FicAbrNum(3, P("f.txt"), u"I", r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(FicNom(3), P("f.txt"));
  FicAbrNum(3, P("f.txt"), u"I", r);
  EXPECT_EQ(r, -55);
  FicAbrNum(0, P("f.txt"), u"I", r);
  EXPECT_EQ(r, -52);
  FicAbrNum(512, P("f.txt"), u"I", r);
  EXPECT_EQ(r, -52);
  FicAbrNum(4, P("none"), u"I", r);
  EXPECT_EQ(r, -53);
  FicAbrNum(4, P("none"), u"B", r);  // an unknown mode reads
  EXPECT_EQ(r, -53);
  Tx l;
  int e = 0;
  FicAbrNum(4, P("w.txt"), u"O", r);
  FicLinLer(4, l, e);
  EXPECT_EQ(e, 54);  // no reading from an output file
  EXPECT_EQ(FicLinGra(3, u"x"), 54);
  EXPECT_EQ(FicLinGra(9, u"x"), 52);

  FicAbrNum(6, P("w.txt"), u"A", r);
  EXPECT_EQ(r, -70);  // held by the writer on number 4
  EXPECT_EQ(FicExi(P("w.txt")), -70);
  FicEli(P("w.txt"), r);
  EXPECT_EQ(r, 70);
  FicCop(P("f.txt"), P("w.txt"), r);
  EXPECT_EQ(r, 70);
  FicFec(4);
  EXPECT_EQ(FicExi(P("w.txt")), 1);

  tst::MsgGrv g;
  e = 0;
  FicAbr(5, P("none.par"), u"I", u"", u"leitura", e);
  EXPECT_EQ(e, 53);
  EXPECT_TRUE(g.cx.empty());  // policy 0 is silent
  e = 2;
  FicAbr(5, P("none.par"), u"I", u"", u"leitura", e);
  EXPECT_EQ(e, 53);
  ASSERT_EQ(g.cx.size(), 1u);
  EXPECT_EQ(g.Ult().estilo, 16);
  EXPECT_EQ(g.Ult().tit, u"Erro a abrir ficheiro");
  EXPECT_EQ(g.Ult().tx, u"Erro : 53   File not found\r\nFicheiro :" + P("none.par") + u"   (leitura)");
  e = 2;
  FicAbr(5, P("f.txt"), u"I", u"", u"", e);
  EXPECT_EQ(e, 2);  // success leaves the caller's word
}

TEST_F(FicDsk, AbrPolicyOneEndsTheProgram) {
  Tx p = P("none.par");
  EXPECT_EXIT(
      {
        int e = 1;
        FicAbr(1, p, u"I", u"", u"", e);
        std::_Exit(3);
      },
      ::testing::ExitedWithCode(0), "");
}
