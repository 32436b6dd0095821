// The wizard's programs: a command line reaching a real program as the words
// written down, start errors, and the poll that does not wait.
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

}  // namespace

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
