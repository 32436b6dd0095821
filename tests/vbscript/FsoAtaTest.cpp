// What the install record sees of the FileSystemObject: each change noted once,
// by the platform routine that makes it, with the path as the kernel names it.
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "Ata.h"
#include "LibTest.h"
#include "TstTmp.h"

using namespace libtest;
using vbs::Value;

namespace {

Value M(const Value& o, const char* nome, std::vector<Value> args = {}) {
  Value r;
  try {
    o.o->Invoke(o.o->Id(zw::TxAsc(nome)), vbs::Inv::Call, vbs::Args{args.data(), int(args.size())}, r);
  } catch (const vbs::Fault& f) {
    ADD_FAILURE() << nome << " raised " << f.num;
  }
  return r;
}

}  // namespace

TEST(FsoAta, EachChangeIsNotedOnceWithItsPath) {
  std::string d = zw::tst::FicTmp("fso");
  std::string rec = zw::tst::FicTmp("rec.jsonl"), guarda = zw::tst::FicTmp("guarda");
  zw::Ata ata;
  std::string porque;
  ASSERT_EQ(ata.Abre(rec, guarda, "/w/x.par", "teste", porque), 0) << porque;
  zw::AtaDef(&ata);
  vbs::LibReg();
  Value f(vbs::NewObj(u"Scripting.FileSystemObject"));
  auto P = [&](const char* n) { return Value(zw::TxAsc(d + "\\" + n)); };
  M(f, "CreateFolder", {Value(zw::TxAsc(d))});
  Value t = M(f, "CreateTextFile", {P("a.txt")});
  M(t, "Write", {S(u"alfa")});
  M(t, "Close");
  M(f, "CopyFile", {P("a.txt"), P("b.txt")});
  M(f, "CopyFile", {P("a.txt"), P("b.txt"), Value(true)});
  M(f, "MoveFile", {P("b.txt"), P("c.txt")});
  M(M(f, "OpenTextFile", {P("e.txt"), I(1), Value(true)}), "Close");
  M(f, "CopyFolder", {Value(zw::TxAsc(d)), P("..\\fso2")});
  M(f, "DeleteFile", {P("c.txt")});
  M(f, "DeleteFolder", {Value(zw::TxAsc(d))});
  ata.Fim(0);
  zw::AtaDef(nullptr);

  std::vector<zw::AtaObj> ls;
  std::istringstream in(zw::tst::Le(rec));
  for (std::string l; std::getline(in, l);) {
    zw::AtaObj o;
    ASSERT_TRUE(zw::AtaObjLer(l, o)) << l;
    ls.push_back(o);
  }
  std::vector<std::string> ops, caminhos;
  for (auto& o : ls) {
    ops.push_back(o["op"].s);
    caminhos.push_back(o.count("path") ? o["path"].s : o.count("to") ? o["from"].s + ">" + o["to"].s : "");
  }
  std::string d2 = zw::tst::FicTmp("fso2");
  std::vector<std::string> esperado = {"begin", "folder-created", "file-created", "file-created", "file-replaced",
                                       "moved", "file-created", "folder-created", "file-created", "file-created",
                                       "file-created", "file-deleted", "file-deleted", "file-deleted",
                                       "folder-deleted", "end"};
  EXPECT_EQ(ops, esperado);
  std::vector<std::string> cam = {"", d, d + "/a.txt", d + "/b.txt", d + "/b.txt", d + "/b.txt>" + d + "/c.txt",
                                  d + "/e.txt", d2, d2 + "/a.txt", d2 + "/c.txt", d2 + "/e.txt", d + "/c.txt",
                                  d + "/a.txt", d + "/e.txt", d, ""};
  if (caminhos.size() == cam.size()) std::sort(caminhos.begin() + 8, caminhos.begin() + 11);  // a folder's order
  EXPECT_EQ(caminhos, cam);
  // The replaced copy keeps what it replaced; sizes and hashes are the new content's.
  ASSERT_EQ(ls.size(), esperado.size());
  EXPECT_EQ(zw::tst::Le(ls[4]["kept"].s), "alfa");
  EXPECT_EQ(ls[4]["size"].n, 4);
  EXPECT_EQ(ls[6]["size"].n, 0);
}
