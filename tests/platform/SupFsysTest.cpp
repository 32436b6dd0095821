// The walk of SupFsys: attributes over a tree, the counters, both orders with a
// callback, the file search, and network names.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include "FicGlb.h"
#include "SupFsys.h"

using namespace zw;

namespace {

// Records the calls it gets; throws on the name "erro" to show that a failing
// callback does not stop the walk.
struct Cbk : VarObj {
  std::vector<Tx> vistos;
  bool Chama(const Tx& nome, std::vector<Var>& a, Var&) override {
    vistos.push_back(nome + u":" + a[0].Txt() + u":" + a[2].Txt() + u":" + TxAsc(std::to_string(a[1].Lng())));
    if (a[0].Txt() == u"erro") throw 1;
    return true;
  }
};

class Fsys : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwfsysXXXXXX";
    d_ = mkdtemp(t);
    // r/a.txt r/b.log r/.f r/s1/c.txt r/s1/s2/d.txt r/.oculta/e.txt
    for (auto p : {"r", "r/s1", "r/s1/s2", "r/.oculta"}) mkdir((d_ + "/" + p).c_str(), 0755);
    for (auto p : {"r/a.txt", "r/b.log", "r/.f", "r/s1/c.txt", "r/s1/s2/d.txt", "r/.oculta/e.txt"})
      std::ofstream(d_ + "/" + p) << "x";
  }
  void TearDown() override { (void)!std::system(("chmod -R u+w '" + d_ + "'; rm -rf '" + d_ + "'").c_str()); }
  Tx P(const std::string& rel) { return TxDeUtf8(d_ + "/" + rel); }
  bool Escrita(const std::string& rel) {
    struct stat st;
    stat((d_ + "/" + rel).c_str(), &st);
    return st.st_mode & S_IWUSR;
  }
  std::string d_;
};

TEST_F(Fsys, AttributesBelowTheRootButNotOnIt) {
  SupFsys f;
  f.ProFsysAtrb(P("r"), u"+R +A", u"*.*");
  EXPECT_TRUE(Escrita("r"));
  EXPECT_FALSE(Escrita("r/a.txt"));
  EXPECT_FALSE(Escrita("r/.f"));  // a dotted file is a file like any other
  EXPECT_FALSE(Escrita("r/s1"));
  EXPECT_FALSE(Escrita("r/s1/s2/d.txt"));
  EXPECT_TRUE(Escrita("r/.oculta/e.txt"));  // a dotted folder is skipped
  EXPECT_EQ(FsysAtrCon(P("r/a.txt")), 1);
  EXPECT_EQ(FsysAtrCon(P("r/.f")), 1 | 2);
  EXPECT_EQ(FsysAtrCon(P("r/s1")), 16 | 1);
  EXPECT_EQ(f.FicVis(), 5);
  EXPECT_EQ(f.FicFei(), 5);
  EXPECT_EQ(f.DirVis(), 2);
  EXPECT_EQ(f.DirFei(), 2);
  f.ProFsysAtrb(P("r"), u"+N", u"*.*");
  EXPECT_TRUE(Escrita("r/a.txt"));
  EXPECT_TRUE(Escrita("r/s1/s2/d.txt"));
  EXPECT_EQ(FsysAtrCon(P("r/falta")), -1);
  // A pattern that matches nothing: the folders are still visited and acted on.
  f.ProFsysAtrb(P("r"), u"+R", u"*.nada");
  EXPECT_EQ(f.FicVis(), 0);
  EXPECT_EQ(f.DirFei(), 2);
  EXPECT_FALSE(Escrita("r/s1/s2"));
  EXPECT_TRUE(Escrita("r/a.txt"));
}

TEST_F(Fsys, OrdersAndCallbacks) {
  SupFsys f;
  auto c = std::make_shared<Cbk>();
  f.RegCbk(u"t", Var(std::shared_ptr<VarObj>(c)));
  f.ProFsysRp(u"CBK", u"DFR", P("r/s1"), u"*.*");
  std::vector<Tx> pais{u"cbkFsysFicPro:c.txt:F:1", u"cbkFsysFicPro:s2:D:2", u"cbkFsysFicPro:d.txt:F:3"};
  EXPECT_EQ(c->vistos, pais);
  c->vistos.clear();
  f.ProFsysRa(u"CBK", u"DFR", P("r/s1"), u"*.*");
  std::vector<Tx> filhos{u"cbkFsysFicPro:d.txt:F:1", u"cbkFsysFicPro:s2:D:2", u"cbkFsysFicPro:c.txt:F:3"};
  EXPECT_EQ(c->vistos, filhos);
  c->vistos.clear();
  f.proFsys(u"CBK REC<", u"DFR", P("r/s1"), u"*.*");  // the word in the command sets the order
  EXPECT_EQ(c->vistos, filhos);
  c->vistos.clear();
  f.ProFsysCbk(u"sel", P("r"), u"*.txt");  // files only, counted as selected
  ASSERT_EQ(c->vistos.size(), 3u);
  EXPECT_EQ(c->vistos[0], u"cbkFsysFicSel:a.txt:F:1");
  EXPECT_EQ(f.Sel(), 3);
  c->vistos.clear();
  f.ProFsysCbk(u"*", P("r"), u"*.log");
  EXPECT_EQ(c->vistos.size(), 3u);  // b.log and the two folders
  f.FxFim();  // drops the object
  c->vistos.clear();
  f.ProFsysCbk(u"*", P("r"), u"*.*");
  EXPECT_TRUE(c->vistos.empty());
  EXPECT_EQ(f.TotVis(), 7);
}

TEST_F(Fsys, SearchStopsAddingAtItsLimit) {
  SupFsys f;
  std::vector<Tx> lis;
  int32_t n = 0;
  f.PsqFic(u"[MAX=2]", P("r"), u"*.txt", lis, n);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(lis[1], FicJun(P("r"), u"a.txt"));
  EXPECT_EQ(f.FicVis(), 3);  // the walk went on
  f.PsqFic(u"[MP=F]", P("r"), u"", lis, n);  // not into subfolders
  EXPECT_EQ(n, 3);
}

TEST_F(Fsys, NetworkNames) {
  SupFsys f;
  int flag = 0;
  f.UncOk(u"\\\\srv\\p", flag);
  EXPECT_EQ(flag, 1);
  f.UncOk(u"C:\\x", flag);
  EXPECT_EQ(flag, 0);
  FicDrvMap(u'N', u"/net/srv/dados");
  Tx c;
  f.UncCnv(u"n:\\pasta\\f.txt", c, flag);
  EXPECT_EQ(c, u"\\\\srv\\dados\\pasta\\f.txt");
  EXPECT_EQ(flag, 1);
  FicDrvMap(u'N', u"");
  f.UncCnv(P("r"), c, flag);  // a local folder stays as it is
  EXPECT_EQ(c, P("r"));
  EXPECT_EQ(flag, 0);
  f.UncCnv(u"1:\\x", c, flag);
  EXPECT_EQ(c, u"1:\\x");
  EXPECT_EQ(flag, 0);
  f.UncCnv(u"\\\\srv\\p\\", c, flag);
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(c, u"\\\\srv\\p");
  int existe = 1;
  f.UncExi(u"\\\\zwnaoha\\p\\x", existe, flag);
  EXPECT_EQ(existe, 0);
  EXPECT_EQ(flag, 1);
  f.pSepNull(Tx(u"ab\0cd", 5), c);
  EXPECT_EQ(c, u"ab");
}

}  // namespace
