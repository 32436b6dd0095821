// Starting programs and waiting for them.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include "Pgm.h"
#include "PrcExe.h"

using namespace zw;

using V = std::vector<Tx>;

TEST(Prc, WordsOfACommandLineByTheWindowsRules) {
  struct {
    const char16_t* lin;
    V pal;
  } casos[] = {
      {u"  p\t a   b  ", V{u"p", u"a", u"b"}},
      {u"\"C:\\Program Files\\x.exe\" /s", V{u"C:\\Program Files\\x.exe", u"/s"}},
      {u"C:\\a\\b\\ x", V{u"C:\\a\\b\\", u"x"}},            // no escapes in the program name
      {u"C:\\\"Program Files\"\\x.exe /s", V{u"C:\\Program Files\\x.exe", u"/s"}},
      {u"\"a b\"c\" d\"e f", V{u"a bc de", u"f"}},  // the name ends at a blank outside quotes
      {u"  a  b\"c d\" \"\" e", V{u"a", u"bc d", u"", u"e"}},
      {u"p \"a b\" c\"d e\"f", V{u"p", u"a b", u"cd ef"}},
      {u"p a\\\\b \\x", V{u"p", u"a\\\\b", u"\\x"}},         // backslashes before no quote stay
      {u"p a\\\"b", V{u"p", u"a\"b"}},                        // 1 backslash: a literal quote
      {u"p a\\\\\"b c\"", V{u"p", u"a\\b c"}},                // 2: one backslash, the quote groups
      {u"p a\\\\\\\"b", V{u"p", u"a\\\"b"}},                  // 3: one backslash and a quote
      {u"p \"C:\\dir\\\\\" x", V{u"p", u"C:\\dir\\", u"x"}},  // a folder quoted with its last "\"
      {u"p \"a\"\"b\" \"\"", V{u"p", u"a\"b", u""}},          // "" inside quotes; an empty word
      {u"p \"open end", V{u"p", u"open end"}},
      {u"   ", V{}},
  };
  for (auto& c : casos) EXPECT_EQ(PrcPal(c.lin), c.pal) << TxUtf8(c.lin);
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

namespace {
int gGanN = 0;       // calls of the wait hook
int gGanPara = 0;    // the call that answers stop (0: never)
bool Gan() { return ++gGanN != gGanPara; }
// The hook in force for one test, and its count from 0.
struct ComGan {
  explicit ComGan(int para) {
    gGanN = 0;
    gGanPara = para;
    PrcEspGanDef(Gan);
  }
  ~ComGan() { PrcEspGanDef(nullptr); }
};
double Seg(std::chrono::steady_clock::time_point t0) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}
}  // namespace

// A stop from the wait hook ends the wait at once: the program gets SIGTERM, or
// SIGKILL when it ignores that, and is collected, so nothing runs behind it.
TEST(Prc, WaitHookStopEndsTheProgram) {
  ComGan g(3);
  int pid = 0, cod = 0;
  ASSERT_EQ(PrcLan(u"sleep", {u"30"}, pid), 0);
  auto t0 = std::chrono::steady_clock::now();
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"PAR");
  EXPECT_LT(Seg(t0), 1.5);
  EXPECT_EQ(gGanN, 3);  // about every 100 ms until it said stop
  EXPECT_EQ(cod, 128 + SIGTERM);
  EXPECT_EQ(kill(pid, 0), -1);  // neither running nor a zombie
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"ERR");

  gGanN = 0;
  gGanPara = 5;
  ASSERT_EQ(PrcLan(u"/bin/sh", {u"-c", u"trap '' TERM; exec sleep 30"}, pid), 0);
  EXPECT_EQ(PrcEsp(pid, 0, cod), u"TO");  // a look: the hook is not asked
  EXPECT_EQ(gGanN, 0);
  t0 = std::chrono::steady_clock::now();
  EXPECT_EQ(PrcEsp(pid, 60000, cod), u"PAR");  // a limited wait is stopped too
  EXPECT_EQ(cod, 128 + SIGKILL);
  EXPECT_GE(Seg(t0), 0.5);  // the grace after SIGTERM
  EXPECT_LT(Seg(t0), 2.0);
  EXPECT_EQ(kill(pid, 0), -1);
}

// A hook that lets the wait go on changes nothing: the program's code, and a
// limited wait's "TO" at its own limit with the program left running.
TEST(Prc, WaitHookThatGoesOnKeepsTheWait) {
  ComGan g(0);
  int pid = 0, cod = 0;
  EXPECT_EQ(PrcLanEsp(u"/bin/sh -c \"sleep 0.3; exit 4\"", -1, cod), u"NOR");
  EXPECT_EQ(cod, 4);
  EXPECT_GE(gGanN, 2);
  ASSERT_EQ(PrcLan(u"sleep", {u"5"}, pid), 0);
  auto t0 = std::chrono::steady_clock::now();
  EXPECT_EQ(PrcEsp(pid, 300, cod), u"TO");
  EXPECT_LT(Seg(t0), 1.0);
  EXPECT_EQ(kill(pid, 0), 0);
  kill(pid, SIGKILL);
  EXPECT_EQ(PrcEsp(pid, -1, cod), u"NOR");
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

// The opener's answer decides: a fake xdg-open first in PATH takes the document (0),
// finds no program for it (3), or stays running like a program opened in the
// foreground; with no xdg-open in PATH nothing opens anything.
TEST(Prc, OpeningADocumentTakesTheOpenersAnswer) {
  char t[] = "/tmp/zwabrXXXXXX";
  std::string d = mkdtemp(t), doc = d + "/nota.txt";
  std::ofstream(doc) << "x";
  mkdir((d + "/bin").c_str(), 0755);
  auto Opener = [&](const std::string& corpo) {
    std::ofstream(d + "/bin/xdg-open") << "#!/bin/sh\nprintf '%s' \"$1\" > '" << d << "/arg'\n" << corpo << "\n";
    chmod((d + "/bin/xdg-open").c_str(), 0755);
  };
  auto Arg = [&] {
    std::ifstream in(d + "/arg");
    return std::string(std::istreambuf_iterator<char>(in), {});
  };
  const char* velho = std::getenv("PATH");
  std::string path0 = velho ? velho : "";
  setenv("PATH", (d + "/bin:" + path0).c_str(), 1);

  Opener("exit 0");
  EXPECT_EQ(PrcAbr(TxDeUtf8(doc)), 0);
  EXPECT_EQ(Arg(), doc);
  EXPECT_EQ(PrcAbr(TxDeUtf8(d + "/falta.txt")), 53);  // no such file: the opener is not asked
  Opener("exit 3");
  std::remove((d + "/arg").c_str());
  Tx win = u"C:" + TxAsc(doc);
  std::replace(win.begin(), win.end(), u'/', u'\\');
  EXPECT_EQ(PrcAbr(win), 75);
  EXPECT_EQ(Arg(), doc);  // a Windows path reaches it as the Linux one
  int ok = 1;
  PgmAbr(TxDeUtf8(doc), ok);
  EXPECT_EQ(ok, 0);
  Opener("sleep 3; echo x > '" + d + "/fim'");
  EXPECT_EQ(PrcAbr(TxDeUtf8(doc)), 0);
  EXPECT_FALSE(std::ifstream(d + "/fim").good());  // answered while it still ran
  setenv("PATH", (d + "/vazio").c_str(), 1);
  EXPECT_EQ(PrcAbr(TxDeUtf8(doc)), 75);

  setenv("PATH", path0.c_str(), 1);
  (void)!std::system(("rm -rf '" + d + "'").c_str());
}

TEST(Prc, ExecutablePath) {
  Tx p = PrcExeCam();
  ASSERT_FALSE(p.empty());
  EXPECT_EQ(p.substr(p.rfind(u'/') + 1), u"test_platform");
}
