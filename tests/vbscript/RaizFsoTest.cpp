// The FileSystemObject's deletes as root, inside the throwaway copy of the machine
// (tests/support/caixa.sh): a tree whose inner folder is swapped for a link to a
// folder of root's elsewhere, before the delete or while it runs, is never deleted
// through the link, nor is a path through a link that another user planted; the
// folders of the system are refused with 70 and stay.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include "Caixa.h"
#include "LibTest.h"

using namespace libtest;
using vbs::Value;

namespace {

constexpr uid_t kUsr = 1234;               // another user; no account needed
const std::string kGuarda = "/zwfso-guarda";  // root's folder, elsewhere
constexpr int kNum = 20;                   // its files f0..f19

bool Existe(const std::string& p) {
  struct stat st;
  return lstat(p.c_str(), &st) == 0;
}
// The files f0..f19 in the folder p.
void Enche(const std::string& p) {
  mkdir(p.c_str(), 0755);
  for (int i = 0; i < kNum; i++) std::ofstream(p + "/f" + std::to_string(i)) << "guardado";
}
int Restam() {
  int n = 0;
  for (int i = 0; i < kNum; i++) n += Existe(kGuarda + "/f" + std::to_string(i));
  return n;
}
Value T(const std::string& p) { return Value(zw::TxDeUtf8(p)); }
Value Fso() {
  vbs::LibReg();
  return Value(vbs::NewObj(u"Scripting.FileSystemObject"));
}

}  // namespace

TEST(RaizFso, DeleteFolderNeverGoesThroughASwappedLink) {
  ZW_NA_CAIXA();
  Value f = Fso();
  Enche(kGuarda);
  char tmpl[] = "/tmp/zwfsoXXXXXX";
  std::string d = mkdtemp(tmpl);

  // Swapped before the delete: the inner folder is a link, and goes as one.
  mkdir((d + "/a").c_str(), 0755);
  ASSERT_EQ(symlink(kGuarda.c_str(), (d + "/a/in").c_str()), 0);
  EXPECT_EQ(ErrM(f, "DeleteFolder", {T(d + "/a")}), 0);
  EXPECT_FALSE(Existe(d + "/a"));
  EXPECT_EQ(Restam(), kNum);

  // Planted on the way by another user, in a folder that user may change: the
  // path is not followed.
  Enche(kGuarda + "/sub");
  mkdir((d + "/u").c_str(), 0777);
  ASSERT_EQ(chown((d + "/u").c_str(), kUsr, kUsr), 0);
  ASSERT_EQ(symlink(kGuarda.c_str(), (d + "/u/via").c_str()), 0);
  ASSERT_EQ(lchown((d + "/u/via").c_str(), kUsr, kUsr), 0);
  EXPECT_EQ(ErrM(f, "DeleteFolder", {T(d + "/u/via/sub"), Value(true)}), 70);
  EXPECT_EQ(ErrM(f, "DeleteFile", {T(d + "/u/via/f*"), Value(true)}), 70);
  EXPECT_TRUE(Existe(kGuarda + "/sub/f0"));
  EXPECT_EQ(Restam(), kNum);

  // Swapped while the delete runs: a second thread exchanges the inner folder and
  // a link to root's folder as fast as it can. The delete may fail part way (names
  // move under it); root's folder never loses a file.
  Enche(kGuarda);
  for (int i = 0; i < 40; i++) {
    std::string t = d + "/t" + std::to_string(i);
    mkdir(t.c_str(), 0755);
    Enche(t + "/in");
    ASSERT_EQ(symlink(kGuarda.c_str(), (t + "/zz").c_str()), 0);
    std::atomic<bool> fim{false};
    std::string a = t + "/in", b = t + "/zz";
    std::thread troca([&] {
      while (!fim) renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE);
    });
    ErrM(f, "DeleteFolder", {T(t), Value(true)});
    fim = true;
    troca.join();
    ASSERT_EQ(Restam(), kNum) << "round " << i;
  }
  (void)!std::system(("rm -rf '" + d + "' " + kGuarda).c_str());
}

// DeleteFolder, Folder.Delete, a wildcard DeleteFile and MoveFolder refuse the
// folders of the system with 70 and change nothing; a folder below one of them is
// the installer's.
TEST(RaizFso, SystemFoldersAreRefusedWith70) {
  ZW_NA_CAIXA();
  Value f = Fso();
  std::ofstream("/etc/zwfso.conf") << "plantado";
  EXPECT_EQ(ErrM(f, "DeleteFolder", {S(u"/etc")}), 70);
  EXPECT_EQ(ErrM(f, "DeleteFolder", {S(u"C:\\etc\\"), Value(true)}), 70);
  EXPECT_EQ(ErrM(f, "DeleteFolder", {S(u"C:\\opt\\*"), Value(true)}), 70);
  EXPECT_EQ(ErrM(f, "DeleteFile", {S(u"/etc/*.conf"), Value(true)}), 70);
  EXPECT_EQ(ErrM(f, "MoveFolder", {S(u"/etc"), S(u"/tmp/zwetc")}), 70);
  Value g;
  ASSERT_EQ(ErrM(f, "GetFolder", {S(u"/opt")}, &g), 0);
  EXPECT_EQ(ErrM(g, "Delete", {Value(true)}), 70);
  EXPECT_TRUE(Existe("/etc/zwfso.conf"));
  EXPECT_TRUE(Existe("/etc/passwd"));
  EXPECT_TRUE(Existe("/usr/bin"));
  EXPECT_TRUE(Existe("/opt"));
  EXPECT_FALSE(Existe("/tmp/zwetc"));

  ASSERT_EQ(ErrM(f, "CreateFolder", {S(u"/usr/local/lib/zwfso")}), 0);
  EXPECT_EQ(ErrM(f, "DeleteFolder", {S(u"/usr/local/lib/zwfso")}), 0);
  EXPECT_FALSE(Existe("/usr/local/lib/zwfso"));
  remove("/etc/zwfso.conf");
}
