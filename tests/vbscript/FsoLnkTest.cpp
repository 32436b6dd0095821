// Text files and copies of the FileSystemObject made or written where others may
// put links: a link planted in place of the file is never written through, nor a
// file made at its end.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "LibTest.h"

using namespace libtest;
using vbs::Value;

namespace {

std::string Le(const std::string& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// A folder of the test's with "alvo" (content "intacto") and "aberta", where
// anyone may put names, holding the link "l.txt" to "alvo"; removed at the end.
class FsoLnk : public ::testing::Test {
 protected:
  void SetUp() override {
    vbs::LibReg();
    f = Value(vbs::NewObj(u"Scripting.FileSystemObject"));
    char t[] = "/tmp/zwfsoXXXXXX";
    d = mkdtemp(t);
    std::ofstream(d + "/alvo") << "intacto";
    ASSERT_EQ(mkdir((d + "/aberta").c_str(), 0700), 0);
    ASSERT_EQ(chmod((d + "/aberta").c_str(), 0777), 0);
    ASSERT_EQ(symlink((d + "/alvo").c_str(), (d + "/aberta/l.txt").c_str()), 0);
  }
  void TearDown() override { (void)!std::system(("rm -rf '" + d + "'").c_str()); }
  Value P(const char* n) const { return Value(zw::TxAsc(d + "/" + n)); }
  Value f;
  std::string d;
};

}  // namespace

TEST_F(FsoLnk, PlantedLinksAreNotWrittenThrough) {
  ASSERT_EQ(symlink((d + "/nada").c_str(), (d + "/aberta/pendente.txt").c_str()), 0);

  // For reading, made when missing: the dangling link is not followed to make a file.
  EXPECT_NE(ErrM(f, "OpenTextFile", {P("aberta/pendente.txt"), Value(int32_t(1)), Value(true)}), 0);
  EXPECT_NE(access((d + "/nada").c_str(), F_OK), 0);
  EXPECT_EQ(ErrM(f, "OpenTextFile", {P("aberta/l.txt"), Value(int32_t(2)), Value(true)}), 70);
  EXPECT_EQ(ErrM(f, "OpenTextFile", {P("aberta/l.txt"), Value(int32_t(8))}), 70);
  EXPECT_EQ(ErrM(f, "CreateTextFile", {P("aberta/l.txt"), Value(true)}), 70);
  EXPECT_EQ(Le(d + "/alvo"), "intacto");

  // A missing file for reading is still made, empty.
  EXPECT_EQ(ErrM(f, "OpenTextFile", {P("aberta/novo.txt"), Value(int32_t(1)), Value(true)}), 0);
  EXPECT_EQ(access((d + "/aberta/novo.txt").c_str(), F_OK), 0);
}

// A copy onto a link planted where others may write replaces the link and leaves
// its target alone; a copy onto a file that a text stream holds for writing is
// refused, the file as it was.
TEST_F(FsoLnk, ACopyReplacesAPlantedLinkAndSparesAHeldFile) {
  std::ofstream(d + "/fonte") << "novo";
  EXPECT_EQ(ErrM(f, "CopyFile", {P("fonte"), P("aberta/l.txt"), Value(true)}), 0);
  EXPECT_EQ(Le(d + "/alvo"), "intacto");
  struct stat st;
  ASSERT_EQ(lstat((d + "/aberta/l.txt").c_str(), &st), 0);
  EXPECT_TRUE(S_ISREG(st.st_mode));
  EXPECT_EQ(Le(d + "/aberta/l.txt"), "novo");

  Value w;
  ASSERT_EQ(ErrM(f, "CreateTextFile", {P("h.txt")}, &w), 0);
  EXPECT_EQ(ErrM(w, "Write", {Value(u"aberto")}), 0);
  EXPECT_EQ(ErrM(f, "CopyFile", {P("fonte"), P("h.txt")}), 70);
  EXPECT_EQ(ErrM(w, "Close", {}), 0);
  EXPECT_EQ(Le(d + "/h.txt"), "aberto");
}
