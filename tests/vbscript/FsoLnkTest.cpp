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

// The error number a member raises (0 when none); r gets what it gives.
int Erro(const Value& o, const char* nome, std::vector<Value> args, Value* r = nullptr) {
  Value v;
  try {
    o.o->Invoke(o.o->Id(zw::TxAsc(nome)), vbs::Inv::Call, vbs::Args{args.data(), int(args.size())}, v);
  } catch (const vbs::Fault& f) {
    return f.num;
  }
  if (r) *r = v;
  return 0;
}

std::string Le(const std::string& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

TEST(FsoLnk, PlantedLinksAreNotWrittenThrough) {
  vbs::LibReg();
  Value f(vbs::NewObj(u"Scripting.FileSystemObject"));
  char t[] = "/tmp/zwfsoXXXXXX";
  std::string d = mkdtemp(t);
  std::ofstream(d + "/alvo") << "intacto";
  ASSERT_EQ(mkdir((d + "/aberta").c_str(), 0700), 0);
  ASSERT_EQ(chmod((d + "/aberta").c_str(), 0777), 0);  // anyone may put names there
  ASSERT_EQ(symlink((d + "/nada").c_str(), (d + "/aberta/pendente.txt").c_str()), 0);
  ASSERT_EQ(symlink((d + "/alvo").c_str(), (d + "/aberta/l.txt").c_str()), 0);
  auto P = [&](const char* n) { return Value(zw::TxAsc(d + "/aberta/" + n)); };

  // For reading, made when missing: the dangling link is not followed to make a file.
  EXPECT_NE(Erro(f, "OpenTextFile", {P("pendente.txt"), Value(int32_t(1)), Value(true)}), 0);
  EXPECT_NE(access((d + "/nada").c_str(), F_OK), 0);
  EXPECT_EQ(Erro(f, "OpenTextFile", {P("l.txt"), Value(int32_t(2)), Value(true)}), 70);
  EXPECT_EQ(Erro(f, "OpenTextFile", {P("l.txt"), Value(int32_t(8))}), 70);
  EXPECT_EQ(Erro(f, "CreateTextFile", {P("l.txt"), Value(true)}), 70);
  EXPECT_EQ(Le(d + "/alvo"), "intacto");

  // A missing file for reading is still made, empty.
  EXPECT_EQ(Erro(f, "OpenTextFile", {P("novo.txt"), Value(int32_t(1)), Value(true)}), 0);
  EXPECT_EQ(access((d + "/aberta/novo.txt").c_str(), F_OK), 0);
  (void)!std::system(("rm -rf '" + d + "'").c_str());
}

// A copy onto a link planted where others may write replaces the link and leaves
// its target alone; a copy onto a file that a text stream holds for writing is
// refused, the file as it was.
TEST(FsoLnk, ACopyReplacesAPlantedLinkAndSparesAHeldFile) {
  vbs::LibReg();
  Value f(vbs::NewObj(u"Scripting.FileSystemObject"));
  char t[] = "/tmp/zwfsoXXXXXX";
  std::string d = mkdtemp(t);
  std::ofstream(d + "/alvo") << "intacto";
  std::ofstream(d + "/fonte") << "novo";
  ASSERT_EQ(mkdir((d + "/aberta").c_str(), 0700), 0);
  ASSERT_EQ(chmod((d + "/aberta").c_str(), 0777), 0);
  ASSERT_EQ(symlink((d + "/alvo").c_str(), (d + "/aberta/l.txt").c_str()), 0);
  auto P = [&](const char* n) { return Value(zw::TxAsc(d + "/" + n)); };

  EXPECT_EQ(Erro(f, "CopyFile", {P("fonte"), P("aberta/l.txt"), Value(true)}), 0);
  EXPECT_EQ(Le(d + "/alvo"), "intacto");
  struct stat st;
  ASSERT_EQ(lstat((d + "/aberta/l.txt").c_str(), &st), 0);
  EXPECT_TRUE(S_ISREG(st.st_mode));
  EXPECT_EQ(Le(d + "/aberta/l.txt"), "novo");

  Value w;
  ASSERT_EQ(Erro(f, "CreateTextFile", {P("h.txt")}, &w), 0);
  EXPECT_EQ(Erro(w, "Write", {Value(u"aberto")}), 0);
  EXPECT_EQ(Erro(f, "CopyFile", {P("fonte"), P("h.txt")}), 70);
  EXPECT_EQ(Erro(w, "Close", {}), 0);
  EXPECT_EQ(Le(d + "/h.txt"), "aberto");
  (void)!std::system(("rm -rf '" + d + "'").c_str());
}
