// The install record: lines that survive any name, the record file taken only
// when it is the user's own, each writer's note with the size and hash of what it
// left.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include "Ata.h"
#include "FicGlb.h"
#include "FicGra.h"
#include "GlbReg.h"
#include "PrcExe.h"
#include "Sha.h"
#include "SupShf.h"
#include "TstTmp.h"
#include "TxtGlb.h"

using namespace zw;

namespace {

using tst::Le;
using tst::Escreve;

class Registo : public ::testing::Test {
 protected:
  void SetUp() override {
    d_ = tst::PastaTmp() + "/m";
    mkdir(d_.c_str(), 0755);
    rec_ = tst::FicTmp("rec.jsonl");
    guarda_ = tst::FicTmp("guarda");
    setenv("ZUNWIZ_REGISTRY", (d_ + "/registo").c_str(), 1);
    RegFicDef(u"");
  }
  void TearDown() override {
    AtaDef(nullptr);
    unsetenv("ZUNWIZ_REGISTRY");
  }
  // Starts recording; with guarda, copies are kept.
  void Grava(bool guarda = true) {
    std::string porque;
    ASSERT_EQ(ata_.Abre(rec_, guarda ? guarda_ : "", "/w/x.par", "teste", porque), 0) << porque;
    AtaDef(&ata_);
  }
  void Para(int st = 0) {
    ata_.Fim(st);
    AtaDef(nullptr);
  }
  std::vector<AtaObj> Linhas() {
    std::vector<AtaObj> r;
    std::istringstream in(Le(rec_));
    std::string l;
    while (std::getline(in, l)) {
      AtaObj o;
      EXPECT_TRUE(AtaObjLer(l, o)) << l;
      r.push_back(o);
    }
    return r;
  }
  std::vector<AtaObj> Ops(const std::string& op) {
    std::vector<AtaObj> r;
    for (auto& o : Linhas())
      if (o["op"].s == op) r.push_back(o);
    return r;
  }
  Tx P(const std::string& rel) { return TxDeUtf8(d_ + "/" + rel); }
  std::string N(const std::string& rel) { return d_ + "/" + rel; }
  void Gra(const std::string& rel, const std::string& b, char modo = 'O') {
    FicGra g;
    ASSERT_EQ(g.Abre(N(rel), modo), 0);
    ASSERT_EQ(g.Grava(b), 0);
    ASSERT_EQ(g.Fecha(), 0);
  }
  std::string d_, rec_, guarda_;
  Ata ata_;
};

}  // namespace

// A line is one JSON object on one line whatever the bytes: quotes, controls,
// bytes that are no UTF-8 (written \udcXX) and characters past the 16-bit plane
// all come back from the reader as they went in.
TEST(RegistoLin, AnyBytesComeBackAndBadLinesAreRefused) {
  for (std::string s : {std::string(), std::string("a\"b\\c/d"), std::string("t\tn\nr\r\x01\x7f"),
                        std::string("ação é"), std::string("\xF0\x9F\x98\x80"), std::string("\xff\xfe"),
                        std::string("a\xc3"), std::string("\xed\xa0\x80"), std::string("\xc0\xaf"),
                        std::string("z\0z", 3)}) {
    std::string l = AtaLin("x").Txt("p", s).Nu("n", -42).Nulo("z").Sim("b", true).Fim();
    ASSERT_EQ(l.back(), '\n');
    l.pop_back();
    EXPECT_EQ(l.find_first_of("\n\r"), std::string::npos);
    AtaObj o;
    ASSERT_TRUE(AtaObjLer(l, o)) << l;
    EXPECT_EQ(o["op"].s, "x");
    EXPECT_EQ(o["p"].s, s) << l;
    EXPECT_EQ(o["n"].n, -42);
    EXPECT_EQ(o["z"].tip, AtaVal::Nulo);
    EXPECT_TRUE(o["b"].b);
  }
  EXPECT_EQ(AtaJson("\xff" "a"), "\"\\udcffa\"");  // as Python's surrogateescape writes it
  AtaObj o;
  ASSERT_TRUE(AtaObjLer(R"({"a":"\ud83d\ude00\u00e9\/"})", o));
  EXPECT_EQ(o["a"].s, "\xF0\x9F\x98\x80\xC3\xA9/");
  for (const char* mau : {R"({"op":1)", R"({"op":"a"} x)", "[1]", R"({"a":1.5})", R"({"a":"\ud800"})",
                          "{\"a\":\"x\ny\"}", R"({"a":tru})", R"({a:1})", ""})
    EXPECT_FALSE(AtaObjLer(mau, o)) << mau;
}

// A new record is the user's alone; one that is there is appended to when it is a
// regular file, and a folder or a link in its place is refused and left alone.
TEST_F(Registo, TheRecordIsANewFileOrTheUsersOwn) {
  Grava();
  Para(3);
  Grava();
  Para(0);
  auto ls = Linhas();
  ASSERT_EQ(ls.size(), 4u);
  EXPECT_EQ(ls[0]["op"].s, "begin");
  EXPECT_EQ(ls[0]["version"].n, 1);
  EXPECT_EQ(ls[0]["wizard"].s, "/w/x.par");
  EXPECT_EQ(ls[0]["uid"].n, int64_t(geteuid()));
  EXPECT_EQ(ls[0]["keep"].s, guarda_);
  EXPECT_EQ(ls[0]["time"].s.size(), 20u);
  EXPECT_EQ(ls[1]["op"].s, "end");
  EXPECT_EQ(ls[1]["status"].n, 3);
  EXPECT_EQ(ls[2]["op"].s, "begin");
  struct stat st;
  ASSERT_EQ(stat(rec_.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  ASSERT_EQ(stat(guarda_.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0700u);

  std::string porque;
  Ata a;
  EXPECT_EQ(a.Abre(d_, "", "", "t", porque), kErrAces);
  EXPECT_EQ(porque, d_ + ": not a regular file");
  Escreve(N("alvo"), "x");
  ASSERT_EQ(symlink(N("alvo").c_str(), N("lnk").c_str()), 0);
  EXPECT_EQ(a.Abre(N("lnk"), "", "", "t", porque), kErrPerm);
  EXPECT_EQ(porque, N("lnk") + ": a symbolic link");
  EXPECT_EQ(Le(N("alvo")), "x");
  chmod(N("guarda").c_str(), 0755);
  mkdir(N("aberta").c_str(), 0777);
  chmod(N("aberta").c_str(), 0777);
  EXPECT_EQ(a.Abre(N("r2"), N("aberta"), "", "t", porque), kErrPerm);  // copies in a folder others write
}

// Each writer notes what it left: the safe writer's new, replaced and appended
// files with their size, hash and the copy of what was there; folders; renames;
// deletes; tree copies and deletes; registry values and keys, never the registry
// file's bytes; programs with their status.
TEST_F(Registo, EachWriterNotesWhatItLeft) {
  Grava();
  Gra("a.txt", "um");
  Gra("a.txt", "dois");
  Gra("a.txt", "+", 'A');
  ASSERT_EQ(DirCriMod(N("d/e"), 0755), 0);
  int r = 0;
  FicRen(P("a.txt"), P("d/b.txt"), r);
  ASSERT_EQ(r, 0);
  mkdir(N("org").c_str(), 0750);
  Escreve(N("org/c.txt"), "gama");
  SupShf s;
  s.SilentMode = true;
  s.ConfirmOperation = false;
  s.FxCopDfi(P("org"), P("cop"), r);
  ASSERT_EQ(r, 1);
  FicEli(P("d/b.txt"), r);
  ASSERT_EQ(r, 0);
  s.FxEli(P("cop"), r);
  ASSERT_EQ(r, 1);
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"Tema", u"claro"));
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"Tema", u"escuro"));
  ASSERT_EQ(RegVarEli(kHkcu, u"Software\\Zun", u"Tema"), 1);
  int cod = 0;
  EXPECT_EQ(PrcLanEsp(u"sh -c \"exit 3\"", -1, cod), u"NOR");
  Para();

  std::vector<std::string> ops;
  for (auto& o : Linhas()) ops.push_back(o["op"].s);
  std::vector<std::string> esperado = {
      "begin", "file-created", "file-replaced", "file-replaced", "folder-created", "folder-created", "moved",
      "folder-created", "file-created", "file-deleted", "file-deleted", "folder-deleted", "folder-created",
      "file-created", "key-created", "reg-set", "reg-set", "reg-deleted", "program-run", "program-ended", "end"};
  EXPECT_EQ(ops, esperado);
  auto c = Ops("file-created");
  EXPECT_EQ(c[0]["path"].s, N("a.txt"));
  EXPECT_EQ(c[0]["size"].n, 2);
  EXPECT_EQ(c[0]["sha256"].s, ShaHex("um"));
  EXPECT_EQ(c[1]["path"].s, N("cop/c.txt"));
  EXPECT_EQ(c[1]["sha256"].s, ShaHex("gama"));
  EXPECT_EQ(c[1]["mode"].s, "0644");
  EXPECT_TRUE(c[2]["registry"].b);
  EXPECT_EQ(c[2]["path"].s, N("registo/user.reg"));
  auto s2 = Ops("file-replaced");
  EXPECT_EQ(s2[0]["sha256"].s, ShaHex("dois"));
  EXPECT_EQ(Le(s2[0]["kept"].s), "um");
  EXPECT_EQ(s2[1]["sha256"].s, ShaHex("dois+"));
  EXPECT_EQ(s2[1]["size"].n, 5);
  EXPECT_EQ(Le(s2[1]["kept"].s), "dois");
  auto mv = Ops("moved");
  EXPECT_EQ(mv[0]["from"].s, N("a.txt"));
  EXPECT_EQ(mv[0]["to"].s, N("d/b.txt"));
  auto el = Ops("file-deleted");
  EXPECT_EQ(el[0]["path"].s, N("d/b.txt"));
  EXPECT_EQ(Le(el[0]["kept"].s), "dois+");
  EXPECT_EQ(el[1]["path"].s, N("cop/c.txt"));
  auto rs = Ops("reg-set");
  EXPECT_EQ(rs[0]["key"].s, "HKEY_CURRENT_USER\\Software\\Zun");
  EXPECT_EQ(rs[0]["previous"].tip, AtaVal::Nulo);
  EXPECT_EQ(rs[1]["previous"].s, "claro");
  EXPECT_EQ(rs[1]["file"].s, N("registo/user.reg"));
  EXPECT_EQ(Ops("reg-deleted")[0]["previous"].s, "escuro");
  EXPECT_EQ(Ops("program-run")[0]["command"].s, "sh -c \"exit 3\"");
  EXPECT_EQ(Ops("program-ended")[0]["status"].n, 3);
  EXPECT_EQ(Ops("program-ended")[0]["pid"].n, Ops("program-run")[0]["pid"].n);
}
