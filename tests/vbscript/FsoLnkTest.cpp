// Text files of the FileSystemObject made or written where others may put links:
// a link planted in place of the file is never written through, nor a file made
// at its end.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "LibTest.h"

using namespace libtest;
using vbs::Value;

namespace {

// The error number a member raises (0 when none).
int Erro(const Value& o, const char* nome, std::vector<Value> args) {
  Value r;
  try {
    o.o->Invoke(o.o->Id(zw::TxAsc(nome)), vbs::Inv::Call, vbs::Args{args.data(), int(args.size())}, r);
  } catch (const vbs::Fault& f) {
    return f.num;
  }
  return 0;
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
  std::ifstream in(d + "/alvo");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "intacto");

  // A missing file for reading is still made, empty.
  EXPECT_EQ(Erro(f, "OpenTextFile", {P("novo.txt"), Value(int32_t(1)), Value(true)}), 0);
  EXPECT_EQ(access((d + "/aberta/novo.txt").c_str(), F_OK), 0);
  (void)!std::system(("rm -rf '" + d + "'").c_str());
}
