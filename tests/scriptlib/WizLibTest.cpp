// The operations of "Wiz" called from script code: results, conversions, in and
// out arguments, the debug box, registry reads and the file operations' numbers.
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <fcntl.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <memory>
#include "FicGlb.h"
#include "GlbReg.h"
#include "MsgDlg.h"
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw {
namespace {

// Records every box and answers with a set answer.
struct Caixas : MsgDlg {
  std::vector<Tx> vistas;
  int resp = kAnsOk;
  int Caixa(int, const Tx& t, const Tx& x) override {
    vistas.push_back(t + u"|" + x);
    return resp;
  }
  void Bip() override {}
  bool Entrada(const Tx&, const Tx&, const Tx&, Tx&) override { return false; }
};

struct WizLib : ::testing::Test {
  std::shared_ptr<vbs::ScriptControl> sc = std::make_shared<vbs::ScriptControl>();
  VbsSup h;
  SupWizVbs lib;
  Caixas cx;
  std::string d;

  void SetUp() override {
    char t[] = "/tmp/zwwizlibXXXXXX";
    d = mkdtemp(t);
    MsgDlgDef(&cx);
    h.VbsSupPrp(Var(), sc);
    int16_t ok = 0;
    h.RegObPrp(u"N", u"Wiz", lib.Ob(), ok);
    ASSERT_EQ(ok, 1);
    ASSERT_EQ(Cmd(u"D = \"" + TxDeUtf8(d) + u"\""), 1);
  }
  void TearDown() override {
    Cmd(u"Wiz.FxRegGrpPrp \"\"");
    RegFicDef(u"");
    MsgDlgDef(nullptr);
    (void)!std::system(("chmod -R u+w '" + d + "'; rm -rf '" + d + "'").c_str());
  }
  Tx Ev(const Tx& e) {
    Var r;
    h.ExeCalcRes(e, r);
    return TxVar(r);
  }
  int16_t Cmd(const Tx& c) {
    int16_t ok = 0;
    h.ExeCmd(c, ok);
    return ok;
  }
  void Escreve(const std::string& rel, const std::string& b) { std::ofstream(d + "/" + rel, std::ios::binary) << b; }
  std::string Le(const std::string& rel) {
    std::ifstream f(d + "/" + rel, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(f), {});
  }
  bool Existe(const std::string& rel) { return access((d + "/" + rel).c_str(), F_OK) == 0; }
  bool Escrita(const std::string& rel) {
    struct stat st;
    return stat((d + "/" + rel).c_str(), &st) == 0 && (st.st_mode & S_IWUSR);
  }
};

TEST_F(WizLib, TextsAndNumbers) {
  EXPECT_EQ(Ev(u"Wiz.TxNum(42, 5, \"0\")"), u"00042");
  EXPECT_EQ(Ev(u"Wiz.TxNum(-5, 4, \"0\")"), u"  -5");  // negatives fill with blanks
  EXPECT_EQ(Ev(u"Wiz.TxNum(123456, 3, \"0\")"), u"456");  // cut from the left
  EXPECT_EQ(Ev(u"Wiz.TxNum(\"12abc\", \"4x\", \"*\")"), u"**12");  // texts read as far as a number goes
  EXPECT_EQ(Ev(u"Wiz.TxCnv(12.5) & \"|\" & TypeName(Wiz.NuCnv(7))"), u"12.5|String");
  EXPECT_EQ(Ev(u"Wiz.NuCnv(7)"), u"");
  EXPECT_EQ(Ev(u"Wiz.TxOpc(\"[A=1][NOME=Zé]\", \"nome\")"), u"Zé");  // key in small letters
  EXPECT_EQ(Ev(u"Wiz.TxOpc(\"[A=1]\", \"B\")"), u"");
  EXPECT_EQ(Ev(u"TypeName(Wiz.TxOpcNum(\"[N=3.5kg]\", \"n\")) & Wiz.TxOpcNum(\"[N=3.5kg]\", \"n\")"), u"Double3.5");
  // TxSep writes back the rest and the token; the separator may be longer than one.
  ASSERT_EQ(Cmd(u"t = \"um::dois::tres\" : Wiz.TxSep t, \"::\", k"), 1);
  EXPECT_EQ(Ev(u"k & \"|\" & t"), u"um|dois::tres");
  ASSERT_EQ(Cmd(u"t = \"sem\" : Wiz.TxSep t, \";\", k"), 1);
  EXPECT_EQ(Ev(u"k & \"|\" & t & \"|\" & Len(t)"), u"sem||0");
  ASSERT_EQ(Cmd(u"t = \"\" : k = \"x\" : Wiz.TxSep t, \";\", k"), 1);
  EXPECT_EQ(Ev(u"\"[\" & k & \"][\" & t & \"]\""), u"[][]");
  ASSERT_EQ(Cmd(u"t = \"2.5;7\" : Wiz.NuTxSep t, \";\", n"), 1);
  EXPECT_EQ(Ev(u"TypeName(n) & n & \"|\" & t"), u"Double2.5|7");
  EXPECT_EQ(Cmd(u"Wiz.MsgSba \"x\", 3"), 1);
  EXPECT_TRUE(cx.vistas.empty());
}

TEST_F(WizLib, BoxesAndTheDebugBox) {
  cx.resp = kAnsNo;
  EXPECT_EQ(Ev(u"Wiz.MsgTip(\"? SNC\", \"T\", \"a|b\")"), u"0");
  cx.resp = kAnsCancel;
  EXPECT_EQ(Ev(u"Wiz.MsgTip(\"? SNC\", \"T\", \"a\")"), u"-1");
  cx.resp = kAnsYes;
  EXPECT_EQ(Ev(u"Wiz.MsgTip(\"? SN\", \"T\", \"a\")"), u"1");
  Cmd(u"Wiz.MsgVer \"Titulo\", \"linha\"");
  ASSERT_EQ(cx.vistas.size(), 4u);
  EXPECT_EQ(cx.vistas[0], u"T|a\r\nb");
  EXPECT_EQ(cx.vistas[3], u"Titulo|linha");
  cx.vistas.clear();
  Cmd(u"Wiz.DbgMsgVer \"nada\", 1");  // debug mode starts off
  Cmd(u"Wiz.DbgMsgSit 2 : Wiz.FxFicTip D");  // only 1 turns it on
  EXPECT_TRUE(cx.vistas.empty());
  Cmd(u"Wiz.DbgMsgSit \"1\" : Wiz.DbgMsgVer \"sem\" : Wiz.DbgMsgVer \"com\", 5 : x = Wiz.FxFicTip(D)");
  Cmd(u"x = Wiz.FxFicCop(\"\", D) : x = Wiz.FxFicLoc(\"a\", \"b\")");
  ASSERT_EQ(cx.vistas.size(), 5u);
  EXPECT_EQ(cx.vistas[0], u"|sem");
  EXPECT_EQ(cx.vistas[1], u"|com (Resultado=5)");
  EXPECT_EQ(cx.vistas[2], u"|FxFicTip " + TxDeUtf8(d) + u" (Resultado=D)");
  EXPECT_EQ(cx.vistas[3], u"|FxFicCop  para " + TxDeUtf8(d) + u" (Resultado=-1)");
  EXPECT_EQ(cx.vistas[4], u"|FxFicLoc (Resultado=a\\b)");
}

TEST_F(WizLib, RegistryValuesLoseEveryBlank) {
  std::ofstream(d + "/r.reg", std::ios::binary) << "REGEDIT4\r\n\r\n"
                                                   "[HKEY_LOCAL_MACHINE]\r\n\"Topo\"=\"na raiz\"\r\n"
                                                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zun]\r\n"
                                                   "\"Dir\"=\"C:\\\\Program Files\\\\Zun \"\r\n"
                                                   "\"Num\"=dword:00000001\r\n";
  RegFicDef(TxDeUtf8(d + "/r.reg"));
  EXPECT_EQ(Ev(u"Wiz.FxRegVarCon(\"Topo\")"), u"naraiz");  // before any group: the root key
  Cmd(u"Wiz.FxRegGrpPrp \"SOFTWARE\\Zun\"");
  EXPECT_EQ(Ev(u"Wiz.FxRegVarCon(\"Dir\")"), u"C:\\ProgramFiles\\Zun");
  EXPECT_EQ(Ev(u"Len(Wiz.FxRegVarCon(\"Dir\"))"), u"19");  // no character of code 0 left
  EXPECT_EQ(Ev(u"Wiz.FxRegVarCon(\"Num\") & Wiz.FxRegVarCon(\"Falta\")"), u"");
}

TEST_F(WizLib, FileCopiesRenamesDeletes) {
  Escreve("a.txt", "alfa");
  chmod((d + "/a.txt").c_str(), 0444);
  // Onto itself in other capitals: -1 and untouched, but the reset still clears it.
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/a.txt\", D & \"/A.TXT\")"), u"-1");
  EXPECT_FALSE(Escrita("a.txt"));
  Cmd(u"Wiz.OpcRegAltAttr 1");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/a.txt\", D & \"/A.TXT\")"), u"-1");
  EXPECT_TRUE(Escrita("a.txt"));
  EXPECT_EQ(Le("a.txt"), "alfa");
  Cmd(u"Wiz.OpcRegAltAttr 0");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"\\a.txt\", D & \"\\b.txt\")"), u"0");
  EXPECT_EQ(Le("b.txt"), "alfa");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/falta.txt\", D & \"/c.txt\")"), u"53");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/a.txt\", D & \"/nao/c.txt\")"), u"76");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/a.txt\", \"\")"), u"-1");
  EXPECT_EQ(Ev(u"Wiz.FxFicRen(D & \"/b.txt\", D & \"/a.txt\")"), u"58");  // never overwrites
  EXPECT_EQ(Ev(u"Wiz.FxFicRen(D & \"/b.txt\", D & \"/c.log\")"), u"0");
  EXPECT_EQ(Ev(u"Wiz.FxFicRen(D & \"/b.txt\", D & \"/d.log\")"), u"53");
  Escreve("e.log", "e");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/*.LOG\")"), u"0");  // a wildcard deletes every match
  EXPECT_FALSE(Existe("c.log") || Existe("e.log"));
  EXPECT_TRUE(Existe("a.txt"));
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/*.log\")"), u"53");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"\")"), u"-1");
  int fd = open((d + "/a.txt").c_str(), O_RDONLY);
  flock(fd, LOCK_EX);  // held by a writer: refused
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/a.txt\")"), u"70");
  close(fd);
  EXPECT_EQ(Ev(u"Wiz.FxFicTip(D) & Wiz.FxFicTip(D & \"/a.txt\") & Wiz.FxFicTip(\"\") & Wiz.FxFicTip(D & \"/x\")"),
            u"DF??");
  EXPECT_EQ(Ev(u"Wiz.FxFicLoc(\"C:\", \"pasta\\\", \"\\f.txt\")"), u"C:\\pasta\\f.txt");
}

TEST_F(WizLib, FolderCopies) {
  mkdir((d + "/org").c_str(), 0755);
  mkdir((d + "/org/sub").c_str(), 0555);
  Escreve("org/a.txt", "alfa");
  Escreve("org/sub/b.txt", "beta");  // written as root, or before the folder lost its write bit
  chmod((d + "/org/a.txt").c_str(), 0444);
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org/a.txt\", D & \"/x\")"), u"0");  // a file is not a folder
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", \"\")"), u"-1");
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", D & \"/org/sub/dentro\")"), u"0");
  EXPECT_FALSE(Existe("org/sub/dentro"));
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", D & \"/n1/n2\")"), u"1");
  EXPECT_EQ(Le("n1/n2/a.txt"), "alfa");
  EXPECT_EQ(Le("n1/n2/sub/b.txt"), "beta");
  EXPECT_FALSE(Escrita("n1/n2/a.txt"));  // attributes kept
  Cmd(u"Wiz.OpcRegAltAttr 1");
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", D & \"/n3\")"), u"1");
  EXPECT_TRUE(Escrita("n3/a.txt"));  // ...or reset below the destination
  EXPECT_TRUE(Escrita("n3/sub"));
  EXPECT_FALSE(Escrita("org/a.txt"));  // the source keeps them
}

TEST_F(WizLib, DrivesAndIdentity) {
  EXPECT_EQ(Ev(u"Wiz.FxDrvUsa(\"\")"), u"C");  // any kind: the first drive
  EXPECT_EQ(Ev(u"Wiz.FxDrvUsa(\"cd\")"), u"");
  FicDrvMap(u'M', TxDeUtf8(d));
  FicDrvMap(u'A', u"/media/zwpen");
  Tx rem = Ev(u"Wiz.FxDrvUsa(\"a\")"), hd = Ev(u"Wiz.FxDrvUsa(\"HD\")");
  FicDrvMap(u'M', u"");
  FicDrvMap(u'A', u"");
  EXPECT_EQ(rem, u"A");
  EXPECT_EQ(hd, u"C");
  ASSERT_EQ(Cmd(u"Wiz.SopIdeCon n, c"), 1);
  EXPECT_EQ(Ev(u"n & \"|\" & c"), u"Windows NT|WNT");
}

}  // namespace
}  // namespace zw
