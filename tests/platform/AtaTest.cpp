// The install record and its undo: lines that survive any name, the record file
// taken only when it is the user's own, each writer's note with the size and hash
// of what it left, and the undo that finds the folder and the registry as they
// were, keeps what changed since, and goes as far as a killed run's record goes.
#include <gtest/gtest.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include "Ata.h"
#include "AtaDfz.h"
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

// Every entry below a folder: kind, mode, size and content hash (a link's target),
// the registry files by their keys and values in any order.
std::map<std::string, std::string> Retrato(const std::string& raiz, const std::string& rel = "") {
  std::map<std::string, std::string> r;
  std::string d = raiz + rel;
  DIR* h = opendir(d.c_str());
  if (!h) return r;
  std::vector<std::string> ns;
  while (dirent* de = readdir(h))
    if (std::string(de->d_name) != "." && std::string(de->d_name) != "..") ns.push_back(de->d_name);
  closedir(h);
  for (auto& n : ns) {
    std::string q = rel + "/" + n, p = raiz + q;
    struct stat st;
    lstat(p.c_str(), &st);
    char m[16];
    std::snprintf(m, sizeof m, "%04o", unsigned(st.st_mode & 07777));
    if (S_ISDIR(st.st_mode)) {
      r[q] = std::string("d ") + m;
      auto sub = Retrato(raiz, q);
      r.insert(sub.begin(), sub.end());
    } else if (S_ISLNK(st.st_mode)) {
      char b[256] = {};
      r[q] = std::string("l ") + std::string(b, size_t(readlink(p.c_str(), b, sizeof b)));
    } else if (q.size() > 4 && q.substr(q.size() - 4) == ".reg") {
      // A registry file as its keys, each with its values, in any order: a key or
      // a value made again lands at the end.
      std::string by = Le(p);
      Tx t;
      for (size_t i = 2; i + 1 < by.size(); i += 2) t += char16_t(uint8_t(by[i]) | uint8_t(by[i + 1]) << 8);
      std::vector<Tx> blocos;
      for (size_t i = 0; i < t.size();) {
        size_t j = t.find(u"\r\n\r\n", i);
        if (j == Tx::npos) j = t.size();
        std::vector<Tx> ls;
        Tx b = t.substr(i, j - i) + u"\r\n";
        for (size_t k = 0; k < b.size();) {
          size_t e = b.find(u"\r\n", k);
          if (e > k) ls.push_back(b.substr(k, e - k));
          k = e + 2;
        }
        std::sort(ls.begin() + (ls.empty() ? 0 : 1), ls.end());
        Tx bloco;
        for (auto& x : ls) bloco += x + u";";
        blocos.push_back(bloco);
        i = j + 4;
      }
      std::sort(blocos.begin(), blocos.end());
      Tx tudo;
      for (auto& b : blocos) tudo += b + u"|";
      r[q] = std::string("r ") + m + " " + TxUtf8(tudo);
    } else {
      r[q] = std::string("f ") + m + " " + ShaHex(Le(p));
    }
  }
  return r;
}

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
  int Desfaz(bool seco, std::vector<std::string>* ditas = nullptr) {
    std::string porque;
    int r = AtaDfz(rec_, seco, [&](const std::string& l) { if (ditas) ditas->push_back(l); }, porque);
    if (r == 2) ADD_FAILURE() << porque;
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

bool Diz(const std::vector<std::string>& ditas, const std::string& l) {
  return std::find(ditas.begin(), ditas.end(), l) != ditas.end();
}

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

// The whole round: a folder with files, a tree, a log and registry values of both
// kinds; a recorded run that makes, replaces, appends, deletes, moves and copies,
// and sets, removes and deletes registry values and keys. A dry run says it all
// and changes nothing; the undo then finds everything as it was, modes included,
// and a second undo has nothing left to do.
TEST_F(Registo, UndoPutsEverythingBackAsItWas) {
  Escreve(N("velho.txt"), "antes");
  chmod(N("velho.txt").c_str(), 0640);
  Escreve(N("apagar.txt"), "fica");
  chmod(N("apagar.txt").c_str(), 0600);
  mkdir(N("arv").c_str(), 0750);
  Escreve(N("arv/x"), "xis");
  ASSERT_EQ(symlink("x", N("arv/lx").c_str()), 0);
  ASSERT_EQ(DirCriMod(N("registo"), 0755), 0);
  Escreve(N("registo/user.reg"),
          "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Zun]\r\n\"Modo\"=dword:00000001\r\n\"Nome\"=\"zun\"\r\n"
          "\r\n[HKEY_CURRENT_USER\\Software\\Zun\\Velha]\r\n\"A\"=\"1\"\r\n");
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"Outro", u"o"));  // written once as the writer writes it
  auto antes = Retrato(d_);

  Grava();
  ASSERT_EQ(DirCriMod(N("novo/sub"), 0755), 0);
  Gra("novo/sub/f.txt", "efe");
  Gra("velho.txt", "depois");
  Gra("log.txt", "1\n", 'A');
  Gra("log.txt", "2\n", 'A');
  int r = 0;
  FicEli(P("apagar.txt"), r);
  ASSERT_EQ(r, 0);
  FicRen(P("arv"), P("arv2"), r);
  ASSERT_EQ(r, 0);
  SupShf s;
  s.SilentMode = true;
  s.ConfirmOperation = false;
  s.FxCopDfi(P("arv2"), P("novo/copia"), r);
  ASSERT_EQ(r, 1);
  s.FxEli(P("novo/copia/lx"), r);
  ASSERT_EQ(r, 1);
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun", u"Modo", u"texto"));  // over a dword
  ASSERT_TRUE(RegVarGra(kHkcu, u"Software\\Zun\\Nova", u"", u"padrao"));
  ASSERT_EQ(RegVarEli(kHkcu, u"Software\\Zun", u"Nome"), 1);
  ASSERT_EQ(RegChvEli(kHkcu, u"Software\\Zun\\Velha"), 1);
  Para();
  ASSERT_NE(Retrato(d_), antes);

  std::vector<std::string> seco, feito;
  EXPECT_EQ(Desfaz(true, &seco), 0);
  EXPECT_NE(Retrato(d_), antes);  // the dry run changed nothing
  EXPECT_TRUE(Diz(seco, "would restore file " + N("velho.txt") + " from " + Ops("file-replaced")[0]["kept"].s));
  EXPECT_EQ(Desfaz(false, &feito), 0);
  EXPECT_EQ(Retrato(d_), antes);
  ASSERT_EQ(seco.size(), feito.size());
  for (size_t i = 0; i < seco.size(); i++) EXPECT_EQ(seco[i].substr(0, 6), "would ") << seco[i];
  EXPECT_TRUE(Diz(feito, "removed file " + N("log.txt")));
  EXPECT_TRUE(Diz(feito, "moved " + N("arv2") + " back to " + N("arv")));
  EXPECT_TRUE(Diz(feito, "set registry value HKEY_CURRENT_USER\\Software\\Zun\\Modo back"));
  EXPECT_TRUE(Diz(feito, "removed registry key HKEY_CURRENT_USER\\Software\\Zun\\Nova"));
  EXPECT_EQ(RegVarLer(kHkcu, u"Software\\Zun\\Velha", u"A"), Tx(u"1") + u'\0');
  std::vector<std::string> outra;
  EXPECT_EQ(Desfaz(false, &outra), 0);
  EXPECT_TRUE(outra.empty()) << outra[0];
  EXPECT_EQ(Retrato(d_), antes);
}

// A file the user changed after the install is kept and said, and so is the folder
// that still holds it; everything else goes, and the status says not all did.
TEST_F(Registo, AFileChangedSinceIsKeptAndSaid) {
  Grava();
  ASSERT_EQ(DirCriMod(N("app"), 0755), 0);
  Gra("app/conf", "a=1");
  Gra("app/bin", "exe");
  Para();
  Escreve(N("app/conf"), "a=2");
  std::vector<std::string> ditas;
  EXPECT_EQ(Desfaz(false, &ditas), 1);
  EXPECT_EQ(ditas, (std::vector<std::string>{"removed file " + N("app/bin"),
                                             "kept file " + N("app/conf") + ": changed since the install",
                                             "kept folder " + N("app") + ": not empty"}));
  EXPECT_EQ(Le(N("app/conf")), "a=2");
}

// A run killed half-way leaves whole lines and no end; the last line cut short
// (a disk that filled) is passed over, and the undo goes as far as the record. A
// line that is no record's in the middle, a file that is not a record, one that
// others may write, or none at all, are refused with 2.
TEST_F(Registo, AKilledRunIsUndoneAsFarAsItGoesAndABadRecordIsRefused) {
  Grava();
  ASSERT_EQ(DirCriMod(N("p"), 0755), 0);
  Gra("p/f", "efe");
  AtaDef(nullptr);  // no end line: the run was killed
  Gra("p/g", "not recorded");
  std::ofstream(rec_, std::ios::app) << "{\"op\":\"file-created\",\"path\":\"" << N("p/g");
  std::vector<std::string> ditas;
  EXPECT_EQ(Desfaz(false, &ditas), 1);  // g stays, so p stays
  EXPECT_EQ(ditas.front(), "removed file " + N("p/f"));
  EXPECT_EQ(Le(N("p/g")), "not recorded");

  std::string porque;
  auto nada = [](const std::string&) {};
  Escreve(rec_, "{\"op\":\"begin\"}\nlixo\n{\"op\":\"end\",\"status\":0}\n");
  EXPECT_EQ(AtaDfz(rec_, false, nada, porque), 2);
  EXPECT_EQ(porque, rec_ + ": line 2 is not a record's line");
  Escreve(rec_, "{\"op\":\"end\",\"status\":0}\n");
  EXPECT_EQ(AtaDfz(rec_, false, nada, porque), 2);
  Escreve(rec_, "{\"op\":\"begin\"}\n");
  chmod(rec_.c_str(), 0666);
  EXPECT_EQ(AtaDfz(rec_, false, nada, porque), 2);
  EXPECT_EQ(porque, rec_ + ": not a file of the running user's or root's alone");
  EXPECT_EQ(AtaDfz(N("nenhum"), false, nada, porque), 2);
}

// Without kept copies a replaced file cannot come back, and says so; a file the
// run made and then appended to (a log) needs none, since it goes away whole.
TEST_F(Registo, WithoutACopyOnlyWhatTheRunMadeComesBack) {
  Escreve(N("conf"), "original");
  Grava(false);
  Gra("conf", "novo");
  Gra("log", "1", 'A');
  Gra("log", "2", 'A');
  Para();
  EXPECT_EQ(Ops("file-replaced")[0]["kept"].tip, AtaVal::Nulo);
  std::vector<std::string> ditas;
  EXPECT_EQ(Desfaz(false, &ditas), 1);
  EXPECT_EQ(ditas, (std::vector<std::string>{"removed file " + N("log"),
                                             "not undone: file " + N("conf") + " was replaced without a kept copy"}));
  EXPECT_EQ(Le(N("conf")), "novo");
}
