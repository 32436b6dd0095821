// "Wiz" run as root inside the throwaway copy of the machine (tests/support/
// caixa.sh): what a wizard's script installs from a folder that a user owns belongs
// to root, and its wildcard deletes never reach the files planted at the top of the
// tree, however the script spells the root.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <memory>
#include "Caixa.h"
#include "SupShfPrg.h"
#include "SupWizVbs.h"
#include "TstTmp.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizTst.h"

namespace zw {
namespace {

struct RaizWiz : tst::WizHost {
  SupWizVbs lib;
  std::string d = tst::PastaTmp();
  std::vector<Tx> lin;
  ShfPrgLin prg{[this](const Tx& l) { lin.push_back(l); }};

  void SetUp() override {
    Liga(lib.Ob());
    ASSERT_EQ(Cmd(u"D = \"" + TxDeUtf8(d) + u"\""), 1);
    ShfPrgDef(&prg);
  }
  void TearDown() override { ShfPrgDef(nullptr); }
  struct stat Est(const std::string& p) {
    struct stat st {};
    lstat(p.c_str(), &st);
    return st;
  }
};

// FxDirCop and FxFicCop from a folder of user 1234's with a world-writable program
// and a set-user one: under the mask 022 the copies are root's, 0755, and no
// copy keeps the set-user bit.
TEST_F(RaizWiz, CopiesFromAUsersFolderBelongToRoot) {
  ZW_NA_CAIXA();
  std::string o = d + "/org";
  mkdir(o.c_str(), 0777);
  tst::Escreve(o + "/prog", "#!/bin/sh\n");
  tst::Escreve(o + "/suid", "x");
  chmod((o + "/prog").c_str(), 0777);
  chmod((o + "/suid").c_str(), 04755);
  for (const char* n : {"/prog", "/suid", ""}) ASSERT_EQ(chown((o + n).c_str(), 1234, 1234), 0);
  mode_t velha = umask(022);
  Tx r1 = Ev(u"Wiz.FxDirCop(D & \"\\org\", D & \"\\inst\\bin\")");
  Tx r2 = Ev(u"Wiz.FxFicCop(D & \"\\org\\prog\", D & \"\\inst\\prog2\")");
  Tx r3 = Ev(u"Wiz.FxFicCop(D & \"\\org\\suid\", D & \"\\inst\\suid2\")");
  umask(velha);
  EXPECT_EQ(r1, u"1");
  EXPECT_EQ(r2, u"0");
  EXPECT_EQ(r3, u"0");
  for (const char* n : {"/inst/bin/prog", "/inst/bin/suid", "/inst/prog2", "/inst/suid2"}) {
    struct stat st = Est(d + n);
    EXPECT_EQ(st.st_uid, 0u) << n;
    EXPECT_EQ(st.st_gid, 0u) << n;
    EXPECT_EQ(st.st_mode & 07777, 0755u) << n;
  }
}

// Files planted in / stay through FxFicEli of "C:\*.*", "\*.*" and "/*.*" (70 each,
// one trace line each naming the same place) and of a pattern in /etc; a file named
// alone at the top is still deleted.
TEST_F(RaizWiz, WildcardDeletesNeverReachTheRoot) {
  ZW_NA_CAIXA();
  const std::string plantados[] = {"/zwcaixa-1.txt", "/zwcaixa-2.dat", "/etc/zwcaixa.conf"};
  for (auto& p : plantados) tst::Escreve(p, "plantado");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"C:\\*.*\")"), u"70");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"\\*.*\")"), u"70");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"/*.*\")"), u"70");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"C:\\zwcaixa-?.*\")"), u"70");
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"C:\\etc\\*.conf\")"), u"70");
  for (auto& p : plantados) EXPECT_EQ(Est(p).st_size, 8) << p;
  std::vector<Tx> esperadas(3, u"SHF NEG C:\\*.* (root)");
  esperadas.push_back(u"SHF NEG C:\\zwcaixa-?.* (root)");
  esperadas.push_back(u"SHF NEG C:\\etc\\*.conf (system folder)");
  EXPECT_EQ(lin, esperadas);
  EXPECT_EQ(Ev(u"Wiz.FxFicEli(\"C:\\zwcaixa-1.txt\")"), u"0");
}

}  // namespace
}  // namespace zw
