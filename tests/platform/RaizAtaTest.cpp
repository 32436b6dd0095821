// Undo as root on a folder that another user may write: links that user plants on
// the way or at a name are never followed, files come back with their owner and
// mode, and a record that user could have written is refused.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <functional>
#include "Ata.h"
#include "AtaDfz.h"
#include "Caixa.h"
#include "FicGlb.h"
#include "FicGra.h"
#include "TstTmp.h"

using namespace zw;

namespace {
constexpr uid_t kNinguem = 65534;  // the user "nobody"

using tst::Le;

// Runs f as nobody in a child; true when it returned true.
bool ComoNinguem(const std::function<bool()>& f) {
  pid_t p = fork();
  if (p == 0) {
    if (setgid(kNinguem) != 0 || setuid(kNinguem) != 0) _exit(99);
    _exit(f() ? 0 : 1);
  }
  int st = 0;
  waitpid(p, &st, 0);
  return WIFEXITED(st) && WEXITSTATUS(st) == 0;
}

class RaizAta : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!tst::NaCaixa()) return;
    (void)!std::system("rm -rf /tmp/zwata /etc/zw-alvo /root/zwata.rec /root/zwata.k");
    mkdir("/tmp/zwata", 0777);
    chmod("/tmp/zwata", 0777);  // anyone may write here, and it is not sticky
  }
  void Grava(const std::function<void()>& f) {
    Ata a;
    std::string porque;
    ASSERT_EQ(a.Abre(rec_, "/root/zwata.k", "/w.par", "teste", porque), 0) << porque;
    AtaDef(&a);
    f();
    AtaDef(nullptr);
    a.Fim(0);
  }
  int Desfaz(std::vector<std::string>& ditas) {
    std::string porque;
    return AtaDfz(rec_, false, [&](const std::string& l) { ditas.push_back(l); }, porque);
  }
  static void Gra(const std::string& p, const std::string& b) {
    FicGra g;
    ASSERT_EQ(g.Abre(p, 'O'), 0);
    ASSERT_EQ(g.Grava(b), 0);
    ASSERT_EQ(g.Fecha(), 0);
  }
  std::string rec_ = "/root/zwata.rec";
};
}  // namespace

// The install made /tmp/zwata/d/zw-alvo; nobody swaps d for a link to /etc where a
// file of the same content lies. The undo does not walk the link: the file in
// /etc stays, and the line is kept and said.
TEST_F(RaizAta, UndoFollowsNoLinkPlantedOnTheWay) {
  ZW_NA_CAIXA();
  Grava([] {
    ASSERT_EQ(DirCriMod("/tmp/zwata/d", 0755), 0);
    Gra("/tmp/zwata/d/zw-alvo", "segredo");
  });
  Gra("/etc/zw-alvo", "segredo");
  ASSERT_TRUE(ComoNinguem([] {
    return rename("/tmp/zwata/d", "/tmp/zwata/d0") == 0 && symlink("/etc", "/tmp/zwata/d") == 0;
  }));
  std::vector<std::string> ditas;
  EXPECT_EQ(Desfaz(ditas), 1);
  EXPECT_EQ(ditas, (std::vector<std::string>{"kept /tmp/zwata/d/zw-alvo: a link on its way is not to be trusted",
                                             "kept /tmp/zwata/d: no longer a folder"}));
  EXPECT_EQ(Le("/etc/zw-alvo"), "segredo");
  struct stat st;
  EXPECT_EQ(lstat("/tmp/zwata/d", &st), 0);
}

// A deleted file of nobody's comes back as nobody's with its mode; while nobody
// keeps a link planted at its name, the undo writes nothing through it.
TEST_F(RaizAta, APutBackFileKeepsItsOwnerAndNeverGoesThroughAPlantedName) {
  ZW_NA_CAIXA();
  Gra("/tmp/zwata/f", "dele");
  ASSERT_EQ(chown("/tmp/zwata/f", kNinguem, kNinguem), 0);
  ASSERT_EQ(chmod("/tmp/zwata/f", 0640), 0);
  Grava([] {
    int r = 0;
    FicEli(u"/tmp/zwata/f", r);
    ASSERT_EQ(r, 0);
  });
  Gra("/etc/zw-alvo", "de root");
  ASSERT_TRUE(ComoNinguem([] { return symlink("/etc/zw-alvo", "/tmp/zwata/f") == 0; }));
  std::vector<std::string> ditas;
  EXPECT_EQ(Desfaz(ditas), 1);
  EXPECT_EQ(ditas, (std::vector<std::string>{"kept /tmp/zwata/f: something else is there again"}));
  EXPECT_EQ(Le("/etc/zw-alvo"), "de root");
  ASSERT_EQ(unlink("/tmp/zwata/f"), 0);
  ditas.clear();
  EXPECT_EQ(Desfaz(ditas), 0);
  struct stat st;
  ASSERT_EQ(lstat("/tmp/zwata/f", &st), 0);
  EXPECT_TRUE(S_ISREG(st.st_mode));
  EXPECT_EQ(st.st_uid, kNinguem);
  EXPECT_EQ(st.st_gid, kNinguem);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
  EXPECT_EQ(Le("/tmp/zwata/f"), "dele");
}

// A record another user may have written would have root remove or put back files
// of their choosing: refused, as root's record is in that user's place; and a run
// never appends to a record file of another user's.
TEST_F(RaizAta, ARecordOfAnotherUserIsRefused) {
  ZW_NA_CAIXA();
  Grava([] {});
  ASSERT_EQ(chown(rec_.c_str(), kNinguem, kNinguem), 0);
  std::string porque;
  EXPECT_EQ(AtaDfz(rec_, true, [](const std::string&) {}, porque), 2);
  EXPECT_EQ(porque, rec_ + ": not a file of the running user's or root's alone");
  Ata a;
  EXPECT_EQ(a.Abre(rec_, "", "/w.par", "teste", porque), kErrPerm);
  EXPECT_EQ(porque, rec_ + ": not the user's own file");
}
