// Starting programs and waiting for them.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include "PrcExe.h"

using namespace zw;

TEST(Prc, WordsOfACommandLine) {
  EXPECT_EQ(PrcPal(u"  a  b\"c d\" \"\" e"), (std::vector<Tx>{u"a", u"bc d", u"", u"e"}));
  EXPECT_TRUE(PrcPal(u"   ").empty());
}

TEST(Prc, WaitGivesExitCodeAndTimeOut) {
  int cod = -1;
  EXPECT_EQ(PrcLanEsp(u"/bin/sh -c \"exit 7\"", -1, cod), u"NOR");
  EXPECT_EQ(cod, 7);
  EXPECT_EQ(PrcLanEsp(u"true", -1, cod), u"NOR");  // looked up in PATH
  EXPECT_EQ(cod, 0);
  int pid = 0;
  ASSERT_EQ(PrcLan(u"sleep", {u"5"}, pid), 0);
  EXPECT_EQ(PrcEsp(pid, 300, cod), u"TO");
  EXPECT_EQ(kill(pid, 0), 0);  // a time-out leaves it running
  kill(pid, SIGKILL);
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"NOR");
  EXPECT_EQ(cod, 128 + SIGKILL);
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"ERR");  // already collected
}

TEST(Prc, MissingProgramsFail) {
  int cod = 0, pid = 1;
  EXPECT_EQ(PrcLan(u"/nonexistent/dir/InsCmp.exe", {}, pid), 76);
  EXPECT_EQ(pid, 0);
  EXPECT_EQ(PrcLanEsp(u"/tmp/zw-no-such-program", -1, cod), u"ERR");
  EXPECT_EQ(cod, 53);
  EXPECT_EQ(PrcLanEsp(u"zw-no-such-program-in-path", -1, cod), u"ERR");
  EXPECT_EQ(cod, 53);
  EXPECT_EQ(PrcLanEsp(u"", -1, cod), u"ERR");
  EXPECT_EQ(PrcLan(u"/etc/hostname", {}, pid), 70);  // not runnable
  EXPECT_EQ(PrcAbr(u"/tmp/zw-no-such-doc"), 53);
}

TEST(Prc, ExeSuffixFallsBackAndForgottenChildrenAreCollected) {
  char t[] = "/tmp/zwprcXXXXXX";
  std::string d = mkdtemp(t);
  std::ofstream(d + "/InsCmp") << "#!/bin/sh\nexit 3\n";
  chmod((d + "/InsCmp").c_str(), 0755);
  int cod = 0;
  EXPECT_EQ(PrcLanEsp(TxAsc(d) + u"\\InsCmp.exe", -1, cod), u"NOR");
  EXPECT_EQ(cod, 3);
  int pid = 0;
  ASSERT_EQ(PrcLan(u"true", {}, pid), 0);
  usleep(200000);
  int p2 = 0;
  ASSERT_EQ(PrcLan(u"true", {}, p2), 0);  // collects the first one
  EXPECT_EQ(kill(pid, 0), -1);           // no zombie left
  EXPECT_EQ(PrcEsp(pid, 0, cod), u"NOR");  // its code was kept
  EXPECT_EQ(PrcEsp(p2, -1, cod), u"NOR");
  (void)!std::system(("rm -rf '" + d + "'").c_str());
}

TEST(Prc, PipesCarryTheStreamsAndTerminateEnds) {
  PrcTub t;
  int pid = 0, cod = 0;
  ASSERT_EQ(PrcLan(u"/bin/sh", {u"-c", u"read a; echo \"o:$a\"; echo e >&2"}, pid, t), 0);
  ASSERT_GE(t.in, 0);
  ASSERT_EQ(write(t.in, "xy\n", 3), 3);
  close(t.in);
  auto Tudo = [](int fd) {
    std::string s;
    char b[64];
    for (ssize_t n; (n = read(fd, b, sizeof b)) > 0;) s.append(b, size_t(n));
    close(fd);
    return s;
  };
  EXPECT_EQ(Tudo(t.out), "o:xy\n");
  EXPECT_EQ(Tudo(t.err), "e\n");
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"NOR");

  PrcTub nada;
  EXPECT_EQ(PrcLan(u"zw-no-such-program-in-path", {}, pid, nada), 53);
  EXPECT_EQ(nada.in, -1);  // a failed start leaves no pipe behind

  ASSERT_EQ(PrcLan(u"sleep", {u"5"}, pid), 0);
  EXPECT_TRUE(PrcTer(pid));
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"NOR");
  EXPECT_EQ(cod, 128 + SIGTERM);
  EXPECT_FALSE(PrcTer(pid));  // no longer a child
}

TEST(Prc, ExecutablePath) {
  Tx p = PrcExeCam();
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p.substr(p.rfind(u'/') + 1), u"test_platform");
}
