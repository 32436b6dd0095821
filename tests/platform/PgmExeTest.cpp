// The wizard's programs: Windows command-line words, reaching a real program with
// them, start errors, and the poll that does not wait.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include "Pgm.h"
#include "PrcExe.h"

using namespace zw;
namespace fs = std::filesystem;

namespace {

struct Pasta {
  fs::path p;
  Pasta() {
    char m[] = "/tmp/zw-pgm-XXXXXX";
    p = mkdtemp(m);
  }
  ~Pasta() { fs::remove_all(p); }
  // An executable shell script that writes its arguments, one a line, to "args".
  fs::path Eco(const std::string& rel) {
    fs::path f = p / rel;
    fs::create_directories(f.parent_path());
    std::ofstream(f) << "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" << (p / "args").string() << "'\n";
    chmod(f.c_str(), 0755);
    return f;
  }
  std::string Args() {
    std::ifstream in(p / "args");
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }
};

using V = std::vector<Tx>;

}  // namespace

TEST(Pgm, WindowsCommandLineWords) {
  struct {
    const char16_t* lin;
    V pal;
  } casos[] = {
      {u"  p\t a   b  ", V{u"p", u"a", u"b"}},
      {u"\"C:\\Program Files\\x.exe\" /s", V{u"C:\\Program Files\\x.exe", u"/s"}},
      {u"C:\\a\\b\\ x", V{u"C:\\a\\b\\", u"x"}},            // no escapes in the program name
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
  for (auto& c : casos) EXPECT_EQ(PgmPal(c.lin), c.pal) << TxUtf8(c.lin);
}

TEST(Pgm, TheProgramGetsTheWordsWrittenDown) {
  Pasta d;
  Tx eco = TxDeUtf8(d.Eco("dir com espaço/eco").string());
  EXPECT_EQ(PgmLanEsp(u"B", u"\"" + eco + u"\" \"a b\" c\\\"d \"\" e\\\\f", 1), u"NOR");
  EXPECT_EQ(d.Args(), "a b\nc\"d\n\ne\\\\f\n");
}

TEST(Pgm, StartErrorsAndThePoll) {
  int pid = 1;
  long err = 0;
  PgmLanExe(Var(int16_t(99)), u"zw-no-such-program arg", pid, err);
  EXPECT_EQ(pid, 0);
  EXPECT_EQ(err, 53 - 2147221504L);
  EXPECT_EQ(PgmLanEsp(u"B", u"zw-no-such-program", 1), u"-2147221451");
  // The poll answers "NOR" and the program goes on; a wait takes seconds with fractions.
  PgmLanExe(Var(), u"sleep 3", pid, err);
  ASSERT_EQ(err, 0);
  EXPECT_EQ(PgmEsp(u"n", pid), u"NOR");
  EXPECT_EQ(PgmEsp(u" b ", pid, Var(0.2)), u"TO");
  PrcTer(pid);
  EXPECT_EQ(PgmEsp(u"B", pid), u"NOR");
}
