// The registry stand-in over export files, and the folders and drives.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include "FicGlb.h"
#include "GlbReg.h"

using namespace zw;

namespace {
class Reg : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwregXXXXXX";
    dir_ = mkdtemp(t);
    fic_ = dir_ + "/r.reg";
    RegFicDef(TxAsc(fic_));
  }
  void TearDown() override {
    RegFicDef(u"");
    (void)!std::system(("rm -rf '" + dir_ + "'").c_str());
  }
  void Escreve(const std::string& b) { std::ofstream(fic_, std::ios::binary) << b; }
  // Text as a version 5 file: UTF-16LE with its mark.
  void Escreve16(const std::u16string& t) {
    std::string b = "\xFF\xFE";
    for (char16_t c : t) b += char(c & 0xFF), b += char(c >> 8);
    Escreve(b);
  }
  std::string dir_, fic_;
};
const Tx kNul(1, u'\0');
}  // namespace

TEST_F(Reg, Version4EightBitTextValues) {
  Escreve(
      "REGEDIT4\r\n\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zun\\Wiz]\r\n"
      "@=\"omissao\"\r\n"
      "\"Dir\"=\"C:\\\\Programas\\\\Zun \\\"x\\\"\"\r\n"
      "\"Num\"=dword:00000010\r\n"
      "\"Bin\"=hex:01,02,\\\r\n  03,04\r\n"
      "\"Pad\"=\"  lados  \"\r\n"
      "\"Acento\"=\"Informa\xe7\xe3o\"\r\n"
      "; comment\r\n"
      "[HKEY_LOCAL_MACHINE]\r\n"
      "\"Topo\"=\"raiz\"\r\n");
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u"Dir"), u"C:\\Programas\\Zun \"x\"" + kNul);
  EXPECT_EQ(RegVarLer(kHklm, u"software\\zun\\wiz", u"dir"), u"C:\\Programas\\Zun \"x\"" + kNul);
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u""), u"omissao" + kNul);
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u"Num"), u"");  // not text
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u"Bin"), u"");
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u"Pad"), u"lados  " + kNul);  // the 0 keeps the right
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u"Acento"), u"Informa\u00e7\u00e3o" + kNul);
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Zun\\Wiz", u"Falta"), u"");
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Outra", u"Dir"), u"");
  EXPECT_EQ(RegVarLer(kHkcu, u"SOFTWARE\\Zun\\Wiz", u"Dir"), u"");  // another root
  EXPECT_EQ(RegVarLer(kHklm, u"", u"Topo"), u"raiz" + kNul);          // the root key itself
  EXPECT_EQ(RegVarLer(12345, u"SOFTWARE\\Zun\\Wiz", u"Dir"), u"");
}

TEST_F(Reg, Version5Utf16AndDeletions) {
  Escreve16(
      u"Windows Registry Editor Version 5.00\r\n\r\n"
      u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\A]\r\n\"V\"=\"\u00e7\u20ac\"\r\n\"Gone\"=\"x\"\r\n\"Gone\"=-\r\n"
      u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\A\\B]\r\n\"W\"=\"w\"\r\n"
      u"[-HKEY_LOCAL_MACHINE\\SOFTWARE\\A\\B]\r\n"
      u"[HKLM\\SOFTWARE\\C]\r\n\"S\"=\"short root\"\r\n");
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\A", u"V"), u"\u00e7\u20ac" + kNul);
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\A", u"Gone"), u"");
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\A\\B", u"W"), u"");
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\C", u"S"), u"short root" + kNul);
}

TEST_F(Reg, LengthLimitAndHeaderlessFiles) {
  std::string v255(255, 'x'), v256(256, 'x');
  Escreve("REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"A\"=\"" + v255 + "\"\n\"B\"=\"" + v256 + "\"\n");
  EXPECT_EQ(RegVarLer(kHklm, u"K", u"A").size(), 256u);
  EXPECT_EQ(RegVarLer(kHklm, u"K", u"B"), u"");
  Escreve("[HKEY_LOCAL_MACHINE\\K]\n\"A\"=\"x\"\n");  // no header line: no registry file
  EXPECT_EQ(RegVarLer(kHklm, u"K", u"A"), u"");
}

TEST_F(Reg, WritesKeepOtherValuesAndReadBack) {
  Escreve("REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Z]\r\n\"N\"=dword:00000001\r\n\"T\"=\"old\"\r\n");
  EXPECT_TRUE(RegVarGra(kHklm, u"SOFTWARE\\Z", u"T", u"new \"q\" \\ end"));
  EXPECT_TRUE(RegVarGra(kHklm, u"SOFTWARE\\New\\Key", u"", u"def"));
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\Z", u"T"), u"new \"q\" \\ end" + kNul);
  EXPECT_EQ(RegVarLer(kHklm, u"SOFTWARE\\New\\Key", u""), u"def" + kNul);
  std::ifstream in(fic_, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  std::string b = s.str();
  ASSERT_GE(b.size(), 2u);
  EXPECT_EQ(b.substr(0, 2), "\xFF\xFE");  // written as the registry editor writes
  std::string ascii;
  for (size_t i = 2; i < b.size(); i += 2) ascii += b[i];
  EXPECT_NE(ascii.find("\"N\"=dword:00000001"), std::string::npos);
  EXPECT_EQ(ascii.find("old"), std::string::npos);
  EXPECT_FALSE(RegVarGra(777, u"X", u"Y", u"Z"));
  RegFicDef(u"/proc/zw-no-such/r.reg");
  EXPECT_FALSE(RegVarGra(kHklm, u"X", u"Y", u"Z"));
}

// A write replaces the file through the safe writer: the old file's mode stays, a
// new file and folder are never writable by others whatever the umask, and no
// fixed temporary name is written through.
TEST_F(Reg, WritesKeepTheModeAndFollowNoPlantedName) {
  Escreve("REGEDIT4\r\n");
  ASSERT_EQ(chmod(fic_.c_str(), 0600), 0);
  std::ofstream(dir_ + "/vitima", std::ios::binary) << "intacto";
  ASSERT_EQ(symlink((dir_ + "/vitima").c_str(), (fic_ + ".tmp").c_str()), 0);
  EXPECT_TRUE(RegVarGra(kHklm, u"K", u"V", u"v"));
  struct stat st;
  ASSERT_EQ(stat(fic_.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0600u);
  std::ifstream in(dir_ + "/vitima", std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "intacto");
  EXPECT_EQ(RegVarLer(kHklm, u"K", u"V"), u"v" + kNul);

  RegFicDef(TxAsc(dir_ + "/novo/r.reg"));
  mode_t velha = umask(0);
  bool ok = RegVarGra(kHklm, u"K", u"V", u"v");
  umask(velha);
  EXPECT_TRUE(ok);
  ASSERT_EQ(stat((dir_ + "/novo").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0755u);
  ASSERT_EQ(stat((dir_ + "/novo/r.reg").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0644u);
}

TEST(Sis, FoldersAndDrives) {
  setenv("TMPDIR", "/var/tmp/", 1);
  EXPECT_EQ(TmpDirCon(), u"/var/tmp");
  unsetenv("TMPDIR");
  EXPECT_EQ(TmpDirCon(), u"/tmp");

  Tx l, n;
  DrvTipCon(9, l, n);
  EXPECT_EQ(l, u"?");
  EXPECT_EQ(n, u"Desconhecido");
  FicDrvMap(u'E', u"/media/pen");
  FicDrvMap(u'N', u"/net/srv/sh");
  Tx lis;
  DrvLis(lis, u"");
  EXPECT_EQ(lis, u"C,E,N");
  DrvLis(lis, u"HD");
  EXPECT_EQ(lis, u"C,N");
  DrvLis(lis, u"A");
  EXPECT_EQ(lis, u"E");
  DrvLis(lis, u"CD");
  EXPECT_EQ(lis, u"");
  EXPECT_EQ(DrvTipCod(u'c'), 2);
  EXPECT_EQ(DrvTipCod(u'Z'), 0);
  FicDrvMap(u'E', u"");
  FicDrvMap(u'N', u"");
}

namespace {
// The registry pointed at a test folder with ZUNWIZ_REGISTRY: DIR/machine for the
// machine-wide files, DIR/user.reg for the user's.
class RegDir : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwregdXXXXXX";
    dir_ = mkdtemp(t);
    setenv("ZUNWIZ_REGISTRY", dir_.c_str(), 1);
  }
  void TearDown() override {
    unsetenv("ZUNWIZ_REGISTRY");
    (void)!std::system(("rm -rf '" + dir_ + "'").c_str());
  }
  std::string dir_;
};
const Tx kNul2(1, u'\0');
}  // namespace

// HKEY_CURRENT_USER goes to the user's file and reads over what the machine-wide
// files say of it; every other root goes to the machine-wide file and never sees
// the user's.
TEST_F(RegDir, UserAndMachineKeysLiveApart) {
  EXPECT_EQ(RegFicGra(kHkcu), dir_ + "/user.reg");
  EXPECT_EQ(RegFicGra(kHklm), dir_ + "/machine/zunwiz.reg");
  ASSERT_EQ(mkdir((dir_ + "/machine").c_str(), 0755), 0);
  std::ofstream(dir_ + "/machine/00-base.reg") << "REGEDIT4\n[HKEY_CURRENT_USER\\Software\\Zun]\n\"Tema\"=\"claro\"\n"
                                                  "\"Lingua\"=\"pt\"\n[HKEY_LOCAL_MACHINE\\Software\\Zun]\n\"Dir\"=\"/opt/zun\"\n";
  EXPECT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"Tema", u"escuro"));
  EXPECT_TRUE(RegVarGra(kHklm, u"Software\\Zun", u"Versao", u"2"));
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun", u"Tema"), u"escuro" + kNul2);  // the user's wins
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun", u"Lingua"), u"pt" + kNul2);    // the machine's default
  EXPECT_EQ(RegVarLer(kHklm, u"Software\\Zun", u"Versao"), u"2" + kNul2);
  EXPECT_EQ(RegVarLer(kHklm, u"Software\\Zun", u"Dir"), u"/opt/zun" + kNul2);
  EXPECT_EQ(RegVarLer(kHklm, u"Software\\Zun", u"Tema"), u"");
  // a key of another root written by hand into the user's file is not the machine's
  std::ofstream(dir_ + "/user.reg", std::ios::app) << "";
  EXPECT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"X", u"1"));
  struct stat st;
  ASSERT_EQ(stat((dir_ + "/user.reg").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);  // one user's settings are private
  ASSERT_EQ(stat((dir_ + "/machine/zunwiz.reg").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0644u);

  // Without ZUNWIZ_REGISTRY the user's file is under XDG_CONFIG_HOME.
  unsetenv("ZUNWIZ_REGISTRY");
  setenv("XDG_CONFIG_HOME", (dir_ + "/cfg").c_str(), 1);
  EXPECT_EQ(RegFicGra(kHkcu), dir_ + "/cfg/zunwiz/registry.reg");
  EXPECT_EQ(RegFicGra(kHklm), "/etc/zunwiz/registry/zunwiz.reg");
  unsetenv("XDG_CONFIG_HOME");
}

TEST_F(RegDir, DeletesValuesAndKeys) {
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"A", u"1"));
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"B", u"2"));
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun\\Sub", u"C", u"3"));
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zunx", u"D", u"4"));
  EXPECT_EQ(RegVarEli(kHkcu, u"software\\zun", u"a"), 1);
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun", u"A"), u"");
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun", u"B"), u"2" + kNul2);
  EXPECT_EQ(RegVarEli(kHkcu, u"Software\\Zun", u"A"), 0);  // gone already
  EXPECT_EQ(RegVarEli(kHkcu, u"Software\\Nada", u"A"), 0);
  EXPECT_EQ(RegChvEli(kHkcu, u"Software\\Zun"), 1);  // with its subkeys
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun", u"B"), u"");
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun\\Sub", u"C"), u"");
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zunx", u"D"), u"4" + kNul2);  // a key that only starts alike stays
  EXPECT_EQ(RegChvEli(kHkcu, u"Software\\Zun"), 0);
  EXPECT_EQ(RegChvEli(kHkcu, u""), 0);  // a root is never removed
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zunx", u"D"), u"4" + kNul2);
  // a value another machine-wide file gives is not the writable file's to remove
  std::ofstream(dir_ + "/machine/00-base.reg") << "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"V\"=\"x\"\n";
  EXPECT_EQ(RegVarEli(kHklm, u"K", u"V"), 0);
}

// A write that cannot be made says which file and why.
TEST_F(RegDir, AFailedWriteNamesTheFileAndTheReason) {
  std::ofstream(dir_ + "/machine") << "a file where the folder should be";
  Tx porque;
  EXPECT_FALSE(RegVarGra(kHklm, u"K", u"V", u"x", &porque));
  EXPECT_NE(porque.find(TxDeUtf8(dir_ + "/machine/zunwiz.reg: ")), Tx::npos) << TxUtf8(porque);
  porque.clear();
  EXPECT_EQ(RegChvEli(kHklm, u"K", &porque), 0);  // nothing to remove, nothing to tell
}
