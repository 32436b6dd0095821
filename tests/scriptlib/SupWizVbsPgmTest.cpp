// "Wiz" operations on programs, components and printers as a script calls them,
// against real programs and real shared libraries.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>
#include "DbgFx.h"
#include "SupWizVbs.h"
#include "TstTmp.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizTst.h"

namespace zw {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

struct WizPgmTest : tst::WizHost {
  std::unique_ptr<SupWizVbs> lib = std::make_unique<SupWizVbs>();
  fs::path dir = tst::PastaTmp();
  int eventos = 0;

  void SetUp() override {
    Liga(lib->Ob());
    EvtPmpDef([this] { ++eventos; });
    setenv("ZW_CMP_MARCA", (dir / "marca").c_str(), 1);
  }
  void TearDown() override {
    EvtPmpDef(nullptr);
    unsetenv("ZW_CMP_MARCA");
  }
  // A script text literal of a path.
  static Tx Lit(const fs::path& p) { return u"\"" + TxDeUtf8(p.string()) + u"\""; }
  // An executable shell script with the given body.
  fs::path Sh(const std::string& rel, const std::string& corpo) {
    fs::path f = dir / rel;
    fs::create_directories(f.parent_path());
    std::ofstream(f) << "#!/bin/sh\n" << corpo << "\n";
    chmod(f.c_str(), 0755);
    return f;
  }
  std::string Le(const std::string& rel) { return tst::Le(dir / rel); }
};

TEST_F(WizPgmTest, ShellWaitsByMode) {
  fs::path fim = Sh("fim", "exit 3"), tarde = Sh("tarde", "sleep 1.5; echo x > '" + (dir / "feito").string() + "'");
  Tx falta = Lit(dir / "falta");
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + Lit(fim) + u", -1)"), u"1");  // any exit code is a normal end
  EXPECT_GE(eventos, 2);                                          // events before and after
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + falta + u", -1)"), u"0");
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + falta + u", 5)"), u"0");
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + Lit(fim) + u", 5)"), u"1");

  // "TO": the wait lasts the second asked for and ends before the program does, which
  // goes on; outcomes only, so a loaded machine cannot make this fail.
  auto t0 = Clock::now();
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + Lit(tarde) + u", 1)"), u"0");
  EXPECT_GE(Clock::now() - t0, std::chrono::milliseconds(900));
  EXPECT_FALSE(fs::exists(dir / "feito"));
  for (int i = 0; i < 200 && !fs::exists(dir / "feito"); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_TRUE(fs::exists(dir / "feito"));  // the program went on after the time-out

  // The poll does not wait for the program: it answers while the program still runs.
  fs::path lento = Sh("lento", "sleep 2; { echo x > '" + (dir / "lento.fim").string() + "'; } 2>/dev/null");
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + Lit(lento) + u", -2)"), u"1");
  EXPECT_FALSE(fs::exists(dir / "lento.fim"));

  // 0 and below -2 open the command: a program runs, a missing file fails.
  fs::path marca = Sh("marca.sh", "echo x > '" + (dir / "aberto").string() + "'");
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + Lit(marca) + u", 0)"), u"1");
  EXPECT_EQ(Ev(u"Wiz.FxShell(" + Lit(dir / "falta.txt") + u", -3)"), u"0");
}

TEST_F(WizPgmTest, ProgramExeCutsAtTheFirstBlank) {
  fs::path eco = Sh("com espaço/eco", "printf '%s\\n' \"$@\" > '" + (dir / "args").string() + "'");
  EXPECT_EQ(Ev(u"Wiz.FxPgmExe(\"\")"), u"-1");
  EXPECT_EQ(Ev(u"Wiz.FxPgmExe(" + Lit(eco) + u")"), u"0");  // unquoted: "…/com" and arguments
  EXPECT_EQ(Ev(u"Wiz.FxPgmExe(\"\"\"" + TxDeUtf8(eco.string()) + u"\"\" \"\"a b\"\" c\")"), u"1");
  for (int i = 0; i < 40 && Le("args").empty(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(Le("args"), "a b\nc\n");
  fs::path so = Sh("so", "echo x > '" + (dir / "so").string() + "'");
  EXPECT_EQ(Ev(u"Wiz.FxPgmExe(" + Lit(so) + u")"), u"1");  // a lone program opens by running
}

TEST_F(WizPgmTest, ProgramFolderParts) {
  Tx p = Ev(u"Wiz.FxPgm(\"\")"), dir = Ev(u"Wiz.FxPgm(\" dir \")"), nom = Ev(u"Wiz.FxPgm(\"Nom\")");
  EXPECT_EQ(nom, u"tests");  // the folder the test program lies in
  EXPECT_EQ(dir + u"\\" + nom, p);
  Tx drv = Ev(u"Wiz.FxPgm(\"DRV\")");
  EXPECT_FALSE(drv.empty());
  EXPECT_EQ(p.rfind(drv, 0), 0u);
}

TEST_F(WizPgmTest, ComponentModesKeepTheirMapping) {
  fs::copy_file(fs::path(ZW_CMP_DIR) / "cmp_marca.so", dir / "b.dll");
  Tx b = Lit(dir / "b.dll"), d = Lit(dir);
  EXPECT_EQ(Ev(u"Wiz.FxCmpRegFic(\"r\", " + b + u")"), u"0");  // "R" does nothing for one file
  EXPECT_EQ(Ev(u"Wiz.FxCmpRegFic(\"E\", " + b + u")"), u"1");
  EXPECT_EQ(Ev(u"Wiz.FxCmpRegFic(\"I\", " + b + u")"), u"-1");
  EXPECT_EQ(Ev(u"Wiz.FxCmpRegDir(\"R\", " + d + u", \"\")"), u"1");
  EXPECT_EQ(Ev(u"Wiz.FxCmpRegDir(\" e \", " + d + u", \"dll\")"), u"1");
  EXPECT_EQ(Ev(u"Wiz.FxCmpRegDir(\"X\", " + d + u", \"\")"), u"-1");
  EXPECT_EQ(Le("marca"), "R b.dll\nR b.dll\nI b.dll\nR b.dll\n");
}

}  // namespace
}  // namespace zw
