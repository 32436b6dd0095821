// Component registration against real shared libraries: one that marks a file, one
// without entry points, one that hangs, and files that are not libraries.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include "CmpReg.h"
#include "MsgDlg.h"
#include "MsgGrv.h"

using namespace zw;
namespace fs = std::filesystem;

namespace {

class CmpRegTest : public ::testing::Test {
 protected:
  fs::path dir;
  tst::MsgGrv dlg;
  void SetUp() override {
    char m[] = "/tmp/zw-cmp-XXXXXX";
    dir = mkdtemp(m);
    setenv("ZW_CMP_MARCA", (dir / "marca").c_str(), 1);
  }
  void TearDown() override {
    unsetenv("ZW_CMP_MARCA");
    CmpRegEspDef(0);
    fs::remove_all(dir);
  }
  static fs::path Mod(const char* v) { return fs::path(ZW_CMP_DIR) / (std::string("cmp_") + v + ".so"); }
  Tx Copia(const char* v, const std::string& nome) {
    fs::copy_file(Mod(v), dir / nome);
    return TxDeUtf8((dir / nome).string());
  }
  std::string Marca() {
    std::ifstream in(dir / "marca");
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }
};

}  // namespace

TEST_F(CmpRegTest, AnswersOfTheEntryPointCall) {
  Tx ok = Copia("marca", "ok.so"), vazio = Copia("vazio", "vazio.dll");
  std::ofstream(dir / "texto.dll") << "not a library";
  EXPECT_EQ(CmpRegLib(u"", 1), 0);
  EXPECT_EQ(CmpRegLib(TxDeUtf8((dir / "texto.dll").string()), 1), 1);
  EXPECT_EQ(CmpRegLib(TxDeUtf8((dir / "nada.dll").string()), 1), 1);
  EXPECT_EQ(CmpRegLib(vazio, 1), 2);
  EXPECT_EQ(CmpRegLib(vazio, 2), 2);
  EXPECT_EQ(CmpRegLib(ok, 1), 4);
  EXPECT_EQ(CmpRegLib(ok, 2), 5);  // the entry point's failure is not read
  EXPECT_EQ(Marca(), "I ok.so\nR ok.so\n");
}

TEST_F(CmpRegTest, OneFileByModeAndTheBoxForAMissingOne) {
  Tx ok = Copia("marca", "ok.dll");
  int r = -1;
  CmpRegExe(u"i", ok, r);
  EXPECT_EQ(r, 1);
  CmpRegExe(u"R", ok, r);
  EXPECT_EQ(r, 1);
  CmpRegExe(u"A", ok, r);  // a mode this worker does not know does nothing
  EXPECT_EQ(r, 0);
  EXPECT_EQ(Marca(), "I ok.dll\nR ok.dll\n");
  Tx falta = TxDeUtf8((dir / "falta.ocx").string());
  CmpRegExe(u"I", falta, r);
  EXPECT_EQ(r, 0);
  ASSERT_EQ(dlg.cx.size(), 1u);
  EXPECT_EQ(dlg.cx[0].tit, u"Instalar Componente");
  EXPECT_EQ(dlg.cx[0].tx, u"O Componente \r\n" + falta + u"\r\n Não existe!");
  CmpRegExe(u"R", falta, r);  // unregistering a missing file shows nothing
  EXPECT_EQ(r, 0);
  EXPECT_EQ(dlg.cx.size(), 1u);
}

TEST_F(CmpRegTest, AFolderGoesByKindThenName) {
  for (const char* n : {"b.dll", "a.so", "C.DLL", "x.ocx", "W.OCX"}) Copia("marca", n);
  std::ofstream(dir / "n.txt") << "";
  Tx d = TxDeUtf8(dir.string());
  CmpRegDirExe(u"A", u"", d);
  EXPECT_EQ(Marca(),
            "R a.so\nI a.so\nR b.dll\nI b.dll\nR C.DLL\nI C.DLL\n"
            "R W.OCX\nI W.OCX\nR x.ocx\nI x.ocx\n");
  fs::remove(dir / "marca");
  CmpRegDirExe(u"i", u" ocx ", d);
  CmpRegDirExe(u"R", u"dll", d);
  EXPECT_EQ(Marca(), "I W.OCX\nI x.ocx\nR a.so\nR b.dll\nR C.DLL\n");
}

TEST_F(CmpRegTest, AComponentThatHangsEndsTheProgram) {
  EXPECT_EQ(kCmpRegEsp, 10000);
  Tx trava = Copia("trava", "trava.dll");
  CmpRegEspDef(300);  // the same wait, shortened for the test
  pid_t pid = fork();
  ASSERT_GE(pid, 0);
  if (pid == 0) {
    CmpRegLib(trava, 1);
    _exit(99);  // not reached: the wait ends the program
  }
  int st = 0;
  ASSERT_EQ(waitpid(pid, &st, 0), pid);
  ASSERT_TRUE(WIFEXITED(st));
  EXPECT_EQ(WEXITSTATUS(st), kCmpRegSai);
  EXPECT_EQ(kCmpRegSai, 3);
}
