// The registry's two places as root sees them: another user writes its own
// HKEY_CURRENT_USER and is refused the machine-wide file, with the file and the
// reason in the error; root writes /etc/zunwiz/registry.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <string>
#include "Caixa.h"
#include "GlbReg.h"
#include "TxtGlb.h"

using namespace zw;

namespace {
constexpr uid_t kNinguem = 65534;  // the user "nobody"
}  // namespace

TEST(RaizReg, ANormalUserWritesItsOwnKeysAndNotTheMachines) {
  ZW_NA_CAIXA();
  unsetenv("ZUNWIZ_REGISTRY");
  RegFicDef(u"");
  (void)!std::system("rm -rf /etc/zunwiz /tmp/zwninguem");
  ASSERT_TRUE(RegVarGra(kHklm, u"Software\\Zun", u"Dir", u"/opt/zun"));  // root: the machine's file
  ASSERT_EQ(mkdir("/tmp/zwninguem", 0700), 0);
  ASSERT_EQ(chown("/tmp/zwninguem", kNinguem, kNinguem), 0);
  int tubo[2];
  ASSERT_EQ(pipe(tubo), 0);
  pid_t p = fork();
  if (p == 0) {
    close(tubo[0]);
    if (setgid(kNinguem) != 0 || setuid(kNinguem) != 0) _exit(99);
    setenv("HOME", "/tmp/zwninguem", 1);
    unsetenv("XDG_CONFIG_HOME");
    int r = 0;
    if (!RegVarGra(kHkcu, u"Software\\Zun", u"Tema", u"escuro")) r |= 1;
    if (RegVarLer(kHkcu, u"Software\\Zun", u"Tema") != Tx(u"escuro") + u'\0') r |= 2;
    if (RegVarLer(kHklm, u"Software\\Zun", u"Dir") != Tx(u"/opt/zun") + u'\0') r |= 4;  // reads the machine's
    Tx porque;
    if (RegVarGra(kHklm, u"Software\\Zun", u"Dir", u"/tmp/mal", &porque)) r |= 8;
    if (RegChvEli(kHklm, u"Software\\Zun", &porque) != -1) r |= 16;
    std::string s = TxUtf8(porque);
    (void)!write(tubo[1], s.data(), s.size());
    _exit(r);
  }
  close(tubo[1]);
  char buf[512];
  ssize_t n = read(tubo[0], buf, sizeof buf);
  close(tubo[0]);
  int st = 0;
  waitpid(p, &st, 0);
  ASSERT_TRUE(WIFEXITED(st));
  EXPECT_EQ(WEXITSTATUS(st), 0);
  std::string porque(buf, n > 0 ? size_t(n) : 0);
  EXPECT_EQ(porque, "/etc/zunwiz/registry/zunwiz.reg: permission denied (machine-wide keys are written by root)");
  EXPECT_EQ(RegVarLer(kHklm, u"Software\\Zun", u"Dir"), Tx(u"/opt/zun") + u'\0');
  struct stat s;
  ASSERT_EQ(stat("/tmp/zwninguem/.config/zunwiz/registry.reg", &s), 0);
  EXPECT_EQ(s.st_uid, kNinguem);
  EXPECT_EQ(s.st_mode & 0777, 0600u);
  (void)!std::system("rm -rf /etc/zunwiz /tmp/zwninguem");
}
