// The operations of "Wiz" that a wizard case can't set up: registry reads over a
// stand-in file, a file held by a writer, read-only files met as root, drives of
// other kinds. The rest run as wizard cases (tests/wizlib).
#include <gtest/gtest.h>
#include <sys/file.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include "FicGlb.h"
#include "GlbReg.h"
#include "SupWizVbs.h"
#include "TstTmp.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizTst.h"

namespace zw {
namespace {

struct WizLib : tst::WizHost {
  SupWizVbs lib;
  std::string d = tst::PastaTmp();

  void SetUp() override {
    Liga(lib.Ob());
    ASSERT_EQ(Cmd(u"D = \"" + TxDeUtf8(d) + u"\""), 1);
  }
  void TearDown() override {
    Cmd(u"Wiz.FxRegGrpPrp \"\"");
    RegFicDef(u"");
  }
  void Escreve(const std::string& rel, const std::string& b) { tst::Escreve(d + "/" + rel, b); }
  std::string Le(const std::string& rel) { return tst::Le(d + "/" + rel); }
};

TEST_F(WizLib, RegistryValuesLoseEveryBlank) {
  Escreve("r.reg", "REGEDIT4\r\n\r\n"
                   "[HKEY_LOCAL_MACHINE]\r\n\"Topo\"=\"na raiz\"\r\n"
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Zun]\r\n"
                   "\"Dir\"=\"C:\\\\Program Files\\\\Zun \"\r\n"
                   "\"Num\"=dword:00000001\r\n");
  RegFicDef(TxDeUtf8(d + "/r.reg"));
  EXPECT_EQ(Ev(u"Wiz.FxRegVarCon(\"Topo\")"), u"naraiz");  // before any group: the root key
  Cmd(u"Wiz.FxRegGrpPrp \"SOFTWARE\\Zun\"");
  EXPECT_EQ(Ev(u"Wiz.FxRegVarCon(\"Dir\")"), u"C:\\ProgramFiles\\Zun");
  EXPECT_EQ(Ev(u"Len(Wiz.FxRegVarCon(\"Dir\"))"), u"19");  // no character of code 0 left
  EXPECT_EQ(Ev(u"Wiz.FxRegVarCon(\"Num\") & Wiz.FxRegVarCon(\"Falta\")"), u"");
}

// A file that a writer holds is neither deleted nor replaced by a copy: 70,
// permission denied, and its bytes stay.
TEST_F(WizLib, DeleteOfAHeldFile) {
  Escreve("a.txt", "alfa");
  Escreve("b.txt", "beta");
  int fd = open((d + "/a.txt").c_str(), O_RDONLY);
  flock(fd, LOCK_EX);
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/a.txt\")"), u"70");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/b.txt\", D & \"/a.txt\")"), u"70");
  EXPECT_EQ(Le("a.txt"), "alfa");
  close(fd);
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/b.txt\", D & \"/a.txt\")"), u"0");
  EXPECT_EQ(Le("a.txt"), "beta");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/a.txt\")"), u"0");
}

// A read-only file (the owner's write bit off) is not replaced by FxFicCop nor
// deleted by FxFicEli, for root too: 75, and it stays as it was. FxDirCop asks
// nothing and replaces it like any other file.
TEST_F(WizLib, ReadOnlyFiles) {
  Escreve("ro.txt", "velho");
  Escreve("novo.txt", "novo");
  chmod((d + "/ro.txt").c_str(), 0444);
  mkdir((d + "/org").c_str(), 0755);
  Escreve("org/ro.txt", "da pasta");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/novo.txt\", D & \"/ro.txt\")"), u"75");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/ro.txt\")"), u"75");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/r*.txt\")"), u"75");
  EXPECT_EQ(Le("ro.txt"), "velho");
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", D)"), u"1");
  EXPECT_EQ(Le("ro.txt"), "da pasta");
  // With the attribute reset the refused copy still clears the destination's
  // attributes, so the delete after it goes.
  chmod((d + "/ro.txt").c_str(), 0444);
  Cmd(u"Wiz.OpcRegAltAttr 1");
  EXPECT_EQ(Ev(u"Wiz.FxFicCop(D & \"/novo.txt\", D & \"/ro.txt\")"), u"75");
  EXPECT_EQ(Le("ro.txt"), "da pasta");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(D & \"/ro.txt\")"), u"0");
  Cmd(u"Wiz.OpcRegAltAttr 0");
}

// FxDirCop copies every name, one that is not valid UTF-8 too, and links whose
// target is missing; a pipe in the folder is left out, the rest is copied, and the
// answer is 0 so that the script never takes it for a whole copy.
TEST_F(WizLib, FolderCopyIsWholeOrSaysSo) {
  mkdir((d + "/org").c_str(), 0755);
  Escreve("org/n\xe3o.txt", "latin-1");
  (void)!symlink("falta", (d + "/org/pendente").c_str());
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", D & \"/um\")"), u"1");
  EXPECT_EQ(Le("um/n\xe3o.txt"), "latin-1");
  struct stat st;
  EXPECT_EQ(lstat((d + "/um/pendente").c_str(), &st), 0);
  ASSERT_EQ(mkfifo((d + "/org/fifo").c_str(), 0644), 0);
  Escreve("org/z.txt", "depois");
  EXPECT_EQ(Ev(u"Wiz.FxDirCop(D & \"/org\", D & \"/dois\")"), u"0");
  EXPECT_EQ(Le("dois/z.txt"), "depois");
  EXPECT_EQ(Le("dois/n\xe3o.txt"), "latin-1");
}

TEST_F(WizLib, DriveKinds) {
  EXPECT_EQ(Ev(u"Wiz.FxDrvUsa(\"\")"), u"C");  // any kind: the first drive
  EXPECT_EQ(Ev(u"Wiz.FxDrvUsa(\"cd\")"), u"");
  FicDrvMap(u'M', TxDeUtf8(d));
  FicDrvMap(u'A', u"/media/zwpen");
  Tx rem = Ev(u"Wiz.FxDrvUsa(\"a\")"), hd = Ev(u"Wiz.FxDrvUsa(\"HD\")");
  FicDrvMap(u'M', u"");
  FicDrvMap(u'A', u"");
  EXPECT_EQ(rem, u"A");
  EXPECT_EQ(hd, u"C");
}

}  // namespace
}  // namespace zw
