// File and volume information.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include "FicInf.h"

using namespace zw;

namespace {
struct Inf : ::testing::Test {
  std::string d;
  void SetUp() override {
    char t[] = "/tmp/zwinfXXXXXX";
    d = mkdtemp(t);
  }
  void TearDown() override { (void)!std::system(("rm -rf '" + d + "'").c_str()); }
};
}  // namespace

TEST_F(Inf, KindsOfEntryAndLinks) {
  std::string f = d + "/f", l = d + "/l", x = d + "/x", p = d + "/p";
  std::ofstream(f) << "12345";
  chmod(f.c_str(), 0640);
  ASSERT_EQ(symlink("f", l.c_str()), 0);
  ASSERT_EQ(symlink("missing", x.c_str()), 0);
  ASSERT_EQ(mkfifo(p.c_str(), 0600), 0);

  FicInf a, b;
  ASSERT_TRUE(FicInfLer(f, a));
  EXPECT_EQ(a.tipo, kFicReg);
  EXPECT_EQ(a.tam, 5);
  EXPECT_EQ(a.modo, 0640u);
  EXPECT_FALSE(a.lig);
  ASSERT_TRUE(FicInfLer(l, b));  // a link is described by its target
  EXPECT_TRUE(b.lig);
  EXPECT_EQ(b.tipo, kFicReg);
  EXPECT_EQ(std::make_pair(a.dev, a.ino), std::make_pair(b.dev, b.ino));

  EXPECT_EQ(FicInfTip(d), kFicDir);
  EXPECT_EQ(FicInfTip(p), kFicOut);
  EXPECT_EQ(FicInfTip(x), kFicNada);  // dangling link
  EXPECT_TRUE(FicInfHa(x));           // but the name is taken
  EXPECT_FALSE(FicInfHa(d + "/none"));
  EXPECT_FALSE(FicInfLer(d + "/none", a));
  EXPECT_EQ(a.err, ENOENT);
}

TEST_F(Inf, Volume) {
  VolInf v;
  ASSERT_TRUE(VolInfLer(d, v));
  EXPECT_GT(v.total, 0);
  EXPECT_LE(v.disp, v.livre);
  EXPECT_LE(v.livre, v.total);
  EXPECT_NE(v.tipoFs, 0u);
  EXPECT_FALSE(VolInfLer(d + "/none", v));
}
