// Copy, move and delete runs of SupShf: what lands where, what is refused before
// anything is written, clashes, the trash, and the data safety of a copy that
// fails or is cancelled.
#include <gtest/gtest.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include "FicGlb.h"
#include "MsgDlg.h"
#include "MsgGrv.h"
#include "SupShf.h"
#include "SupShfPrg.h"
#include "TstTmp.h"

using namespace zw;

namespace {

std::string Le(const std::string& p) {
  std::ifstream f(p, std::ios::binary);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}
void Escreve(const std::string& p, const std::string& b) { std::ofstream(p, std::ios::binary) << b; }
bool Existe(const std::string& p) {
  struct stat st;
  return lstat(p.c_str(), &st) == 0;
}
// Names in a folder that a copy uses while it writes.
int Temporarios(const std::string& dir) {
  int n = 0;
  if (DIR* h = opendir(dir.c_str())) {
    while (dirent* de = readdir(h)) n += std::string(de->d_name).rfind(".zw~", 0) == 0;
    closedir(h);
  }
  return n;
}

// Answers every box with a fixed answer and counts the boxes.
// Records the run's steps and cancels at a given step (0: never).
struct Prg : ShfPrg {
  int passos = 0, cancela = 0, ini = 0, fim = 0;
  Tx titulo;
  int64_t itens = 0;
  void Ini(const Tx& t, int, int64_t i, int64_t) override { ini++, titulo = t, itens = i; }
  bool Passo(const Tx&, const Tx&, int64_t, int64_t) override { return ++passos != cancela; }
  void Fim(bool) override { fim++; }
};

class Shf : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwshfXXXXXX";
    d_ = mkdtemp(t);
    caixas_.resp = kAnsYes;
  }
  void TearDown() override {
    ShfPrgDef(nullptr);
    (void)!std::system(("chmod -R u+w '" + d_ + "'; rm -rf '" + d_ + "'").c_str());
  }
  Tx P(const std::string& rel) { return TxDeUtf8(d_ + "/" + rel); }
  std::string N(const std::string& rel) { return d_ + "/" + rel; }
  // A small tree: a.txt, b.dat, sub/c.txt, sub/lnk -> c.txt, .oculto
  void Arvore(const std::string& rel) {
    mkdir(N(rel).c_str(), 0755);
    mkdir(N(rel + "/sub").c_str(), 0750);
    Escreve(N(rel + "/a.txt"), "alfa");
    Escreve(N(rel + "/b.dat"), "beta");
    Escreve(N(rel + "/sub/c.txt"), "gama");
    Escreve(N(rel + "/.oculto"), "x");
    (void)!symlink("c.txt", N(rel + "/sub/lnk").c_str());
    chmod(N(rel + "/a.txt").c_str(), 0741);
    struct timespec t[2] = {{1000000000, 0}, {1000000000, 0}};
    utimensat(AT_FDCWD, N(rel + "/sub/c.txt").c_str(), t, 0);
  }
  std::string d_;
  tst::MsgGrv caixas_;
};

TEST_F(Shf, FolderCopyMakesEveryLevelAndKeepsLinksModesTimes) {
  Arvore("org");
  SupShf s;
  int r = 0;
  s.FxCopDfi(P("org"), P("x\\y\\z"), r);  // "\" separates too
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("x/y/z/a.txt")), "alfa");  // contents land in z, not in z/org
  EXPECT_EQ(Le(N("x/y/z/sub/c.txt")), "gama");
  EXPECT_EQ(Le(N("x/y/z/.oculto")), "x");
  struct stat st;
  ASSERT_EQ(lstat(N("x/y/z/sub/lnk").c_str(), &st), 0);
  EXPECT_TRUE(S_ISLNK(st.st_mode));
  char buf[64] = {};
  EXPECT_EQ(readlink(N("x/y/z/sub/lnk").c_str(), buf, sizeof buf - 1), 5);
  EXPECT_STREQ(buf, "c.txt");
  stat(N("x/y/z/a.txt").c_str(), &st);
  EXPECT_EQ(st.st_mode & 07777, 0741u);
  stat(N("x/y/z/sub").c_str(), &st);
  EXPECT_EQ(st.st_mode & 07777, 0750u);
  stat(N("x/y/z/sub/c.txt").c_str(), &st);
  EXPECT_EQ(st.st_mtim.tv_sec, 1000000000);
  EXPECT_EQ(Temporarios(N("x/y/z")) + Temporarios(N("x/y/z/sub")), 0);
  EXPECT_EQ(int(caixas_.cx.size()), 0);  // FxCopDfi asks nothing
}

TEST_F(Shf, FolderIntoItselfIsRefusedBeforeAnythingIsWritten) {
  Arvore("org");
  SupShf s;
  int r = 1;
  s.FxCopDfi(P("org"), P("org/sub/novo/fundo"), r);
  EXPECT_EQ(r, 0);
  EXPECT_FALSE(Existe(N("org/sub/novo")));
  r = 1;
  s.FxCopDfi(P("org"), P("org"), r);
  EXPECT_EQ(r, 0);
  s.AspExe(0, 0);
  r = 1;
  s.FxCop(P("org"), P("org/sub"), r);  // the run itself refuses it too
  EXPECT_EQ(r, 0);
  EXPECT_FALSE(Existe(N("org/sub/org")));
  // A name that only starts like the source is another folder.
  mkdir(N("org2").c_str(), 0755);
  s.FxCopDfi(P("org"), P("org2"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("org2/a.txt")), "alfa");
}

TEST_F(Shf, FilesAndWildcards) {
  Arvore("org");
  SupShf s;
  s.AspExe(0, 0);
  int r = 0;
  s.FxCopDfi(P("org/a.txt"), P("n1/n2/copia.txt"), r);  // a file to a new name, folders made
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("n1/n2/copia.txt")), "alfa");
  s.FxCopDfi(P("org/*.txt"), P("w/dest"), r);  // a wildcard makes the destination a folder
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("w/dest/a.txt")), "alfa");
  EXPECT_FALSE(Existe(N("w/dest/b.dat")));
  s.FxCopDfi(P("org/b.dat"), P("v/*.*"), r);  // a wildcard destination names its folder
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("v/b.dat")), "beta");
  s.FxCop(P("org/falta.txt"), P("w"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s.ErrNum(), kErrFicNao);
  // A file onto itself, through another name of its folder, touches nothing.
  s.FxCop(P("org/a.txt"), P("org/sub/../a.txt"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(Le(N("org/a.txt")), "alfa");
  s.FxCopDfi(P("org/nada"), P("w"), r);  // neither file nor folder
  EXPECT_EQ(r, 0);
  s.FxRen(r);
  EXPECT_EQ(r, 0);
  s.OrgIni();
  try {
    s.Exe(kShfCop);
    FAIL() << "an empty source list must raise";
  } catch (const ShfErr& e) {
    EXPECT_EQ(e.num, int32_t(0x800403E8u));
    EXPECT_EQ(e.des, u"No source files specified file operation");
  }
}

TEST_F(Shf, ClashesReplaceAskOrRename) {
  Arvore("org");
  mkdir(N("d").c_str(), 0755);
  Escreve(N("d/a.txt"), "velho");
  SupShf s;
  int r = 0;
  caixas_.resp = kAnsNo;  // asked, and told no: kept, and the run goes on
  s.FxCop(P("org/a.txt"), P("d"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(int(caixas_.cx.size()), 1);
  EXPECT_EQ(Le(N("d/a.txt")), "velho");
  caixas_.resp = kAnsCancel;
  s.FxCop(P("org/a.txt"), P("d"), r);
  EXPECT_EQ(r, 0);
  EXPECT_TRUE(s.Abortado());
  s.RenameOnCollision = true;
  s.FxCop(P("org/a.txt"), P("d"), r);
  s.FxCop(P("org/a.txt"), P("d"), r);
  EXPECT_EQ(Le(N("d/Cópia de a.txt")), "alfa");
  EXPECT_EQ(Le(N("d/Cópia (2) de a.txt")), "alfa");
  EXPECT_EQ(Le(N("d/a.txt")), "velho");
  s.RenameOnCollision = false;
  s.AspExe(1, 0);  // nothing asked: replaced
  int n = int(caixas_.cx.size());
  s.FxCop(P("org/a.txt"), P("d"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(int(caixas_.cx.size()), n);
  EXPECT_EQ(Le(N("d/a.txt")), "alfa");
  // A folder in the way of a file is never replaced, asked or not.
  mkdir(N("d/b.dat").c_str(), 0755);
  s.FxCop(P("org/b.dat"), P("d"), r);
  EXPECT_EQ(r, 0);
  struct stat st;
  EXPECT_TRUE(stat(N("d/b.dat").c_str(), &st) == 0 && S_ISDIR(st.st_mode));
  EXPECT_EQ(Temporarios(N("d")), 0);
}

TEST_F(Shf, MoveAndDelete) {
  Arvore("org");
  SupShf s;
  s.AspExe(0, 0);
  int r = 0;
  s.FxMov(P("org/sub"), P("movida"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("movida/c.txt")), "gama");
  EXPECT_FALSE(Existe(N("org/sub")));
  s.FxLpzDir(P("org"), r);  // the folder stays, empty, with its hidden file gone too
  EXPECT_EQ(r, 1);
  EXPECT_TRUE(Existe(N("org")));
  EXPECT_FALSE(Existe(N("org/a.txt")));
  EXPECT_FALSE(Existe(N("org/.oculto")));
  s.FxLpzDir(P("org"), r);  // nothing to match: nothing to do
  EXPECT_EQ(r, 1);
  s.FxEli(P("movida"), r);
  EXPECT_EQ(r, 1);
  EXPECT_FALSE(Existe(N("movida")));
  s.FxEli(P("movida"), r);
  EXPECT_EQ(r, 0);
}

TEST_F(Shf, AllowUndoMovesToTheTrash) {
  const char* velho = std::getenv("XDG_DATA_HOME");
  std::string guardado = velho ? velho : "";
  setenv("XDG_DATA_HOME", N("dados").c_str(), 1);
  mkdir(N("dados").c_str(), 0700);
  Escreve(N("lixo.txt"), "um");
  SupShf s;
  s.AspExe(0, 0);
  s.UsaRcBin(1);
  int r = 0;
  s.FxEli(P("lixo.txt"), r);
  Escreve(N("lixo.txt"), "dois");
  s.FxEli(P("lixo.txt"), r);
  if (velho) setenv("XDG_DATA_HOME", guardado.c_str(), 1); else unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(r, 1);
  EXPECT_FALSE(Existe(N("lixo.txt")));
  EXPECT_EQ(Le(N("dados/Trash/files/lixo.txt")), "um");
  EXPECT_EQ(Le(N("dados/Trash/files/lixo.txt.2")), "dois");
  std::string info = Le(N("dados/Trash/info/lixo.txt.trashinfo"));
  EXPECT_EQ(info.rfind("[Trash Info]\nPath=" + d_ + "/lixo.txt\nDeletionDate=", 0), 0u) << info;
}

TEST_F(Shf, ProgressStepsCancelAndSilence) {
  std::string grande(18 << 20, 'g');  // two parts of the kernel copy
  Escreve(N("grande.bin"), grande);
  Escreve(N("dest.bin"), "anterior");
  Prg p;
  ShfPrgDef(&p);
  SupShf s;
  s.AspExe(1, 0);
  s.AspIde(u"A copiar");
  p.cancela = 3;  // the entry, the first part, then cancel within the file
  int r = 1;
  s.FxCop(P("grande.bin"), P("dest.bin"), r);
  EXPECT_EQ(r, 0);
  EXPECT_TRUE(s.Abortado());
  EXPECT_EQ(p.titulo, u"A copiar");
  EXPECT_EQ(p.ini, 1);
  EXPECT_EQ(p.fim, 1);
  EXPECT_EQ(Le(N("dest.bin")), "anterior");
  EXPECT_EQ(Temporarios(d_), 0);
  EXPECT_EQ(Le(N("grande.bin")), grande);
  p = Prg();
  s.FxCop(P("grande.bin"), P("dest.bin"), r);
  EXPECT_EQ(r, 1);
  EXPECT_FALSE(s.Abortado());
  EXPECT_GE(p.passos, 3);
  EXPECT_EQ(Le(N("dest.bin")), grande);
  p = Prg();
  s.AspExe(0, 0);  // silent: the service is never called
  s.FxCop(P("grande.bin"), P("dest2.bin"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(p.ini + p.passos + p.fim, 0);
}

TEST_F(Shf, ProgressLinesForATrace) {
  Arvore("org");
  std::vector<Tx> lin;
  ShfPrgLin p([&](const Tx& l) { lin.push_back(l); });
  ShfPrgDef(&p);
  SupShf s;
  s.AspExe(1, 0);
  s.AspIde(u"Programa");
  int r = 0;
  s.FxCopDfi(P("org/sub"), P("d"), r);
  s.FxEli(P("d/c.txt"), r);
  std::vector<Tx> esperadas{u"SHF INI COP Programa",
                            u"SHF COP " + FicDeNat(N("org/sub/c.txt")) + u" > " + FicDeNat(N("d/c.txt")),
                            u"SHF COP " + FicDeNat(N("org/sub/lnk")) + u" > " + FicDeNat(N("d/lnk")),
                            u"SHF FIM 1", u"SHF INI ELI Programa", u"SHF ELI " + FicDeNat(N("d/c.txt")),
                            u"SHF FIM 1"};
  EXPECT_EQ(lin, esperadas);
}

// Modes are the source's whatever the process's creation mask, including the
// bits a mask never gives (set-user and set-group); a folder merges into one that
// is there, and a file in the way of a folder stops the run with 75.
TEST_F(Shf, TreeModesUnderAnyMaskAndMerges) {
  mkdir(N("org").c_str(), 0755);
  mkdir(N("org/g").c_str(), 0755);
  chmod(N("org/g").c_str(), 02775);
  const std::pair<const char*, mode_t> modos[] = {{"org/a", 0644}, {"org/b", 0600}, {"org/g/c", 04755}, {"org/g/d", 0664}};
  for (auto& [n, m] : modos) {
    Escreve(N(n), n);
    chmod(N(n).c_str(), m);
  }
  for (auto [masc, dest] : {std::pair<mode_t, std::string>{022, "m022"}, {077, "m077"}, {0, "m000"}}) {
    mode_t velha = umask(masc);
    SupShf s;
    int r = 0;
    s.FxCopDfi(P("org"), P(dest), r);
    umask(velha);
    EXPECT_EQ(r, 1);
    struct stat st;
    for (auto& [n, m] : modos) {
      std::string c = dest + std::string(n).substr(3);
      ASSERT_EQ(stat(N(c).c_str(), &st), 0) << c;
      EXPECT_EQ(st.st_mode & 07777, m) << c << " with mask " << masc;
      EXPECT_EQ(Le(N(c)), n);
    }
    stat(N(dest + "/g").c_str(), &st);
    EXPECT_EQ(st.st_mode & 07777, 02775u) << "mask " << masc;
  }
  Escreve(N("m022/novo"), "fica");  // merged into: what was there stays, the rest replaced
  Escreve(N("m022/a"), "velho");
  SupShf s;
  int r = 0;
  s.FxCopDfi(P("org"), P("m022"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("m022/novo")), "fica");
  EXPECT_EQ(Le(N("m022/a")), "org/a");
  (void)!std::system(("rm -rf '" + N("m022/g") + "'").c_str());
  Escreve(N("m022/g"), "no caminho");
  s.FxCopDfi(P("org"), P("m022"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s.ErrNum(), kErrAces);
  EXPECT_EQ(Le(N("m022/g")), "no caminho");
  EXPECT_EQ(Temporarios(N("m022")), 0);
}

// A read-only file (the owner's write bit off) is kept by the one-file copies of
// the file layer, for root too (75), and replaced by the run when it asks nothing;
// a run that asks asks about it as about any file.
TEST_F(Shf, ReadOnlyTargets) {
  Escreve(N("fonte.txt"), "novo");
  Escreve(N("ro.txt"), "velho");
  chmod(N("ro.txt").c_str(), 0444);
  EXPECT_EQ(ShfFicCop(P("fonte.txt"), P("ro.txt")), kErrAces);
  int r = 0;
  FicCop(P("fonte.txt"), P("ro.txt"), r);
  EXPECT_EQ(r, kErrAces);
  FicEli(P("ro.txt"), r);
  EXPECT_EQ(r, kErrAces);
  EXPECT_EQ(Le(N("ro.txt")), "velho");
  EXPECT_EQ(Temporarios(d_), 0);
  SupShf s;
  caixas_.resp = kAnsNo;
  s.FxCop(P("fonte.txt"), P("ro.txt"), r);
  EXPECT_EQ(int(caixas_.cx.size()), 1);
  EXPECT_EQ(Le(N("ro.txt")), "velho");
  s.AspExe(0, 0);
  s.FxCop(P("fonte.txt"), P("ro.txt"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("ro.txt")), "novo");
}

// A copy onto a file system without room for it: the earlier destination file stays
// byte-identical and no temporary file remains, by the run and by the one-file copy.
TEST_F(Shf, FullDiskLeavesTheEarlierFileWhole) {
  tst::Tmpfs cheio(256 << 10);
  if (cheio.pasta.empty()) GTEST_SKIP() << cheio.porque;
  std::string antes(100 << 10, 'a'), fonte(1 << 20, 'f'), alvo = cheio.pasta + "/alvo.bin";
  Escreve(alvo, antes);
  Escreve(N("fonte.bin"), fonte);
  SupShf s;
  s.AspExe(0, 0);
  int r = 1;
  s.FxCop(P("fonte.bin"), TxDeUtf8(alvo), r);
  int err = s.ErrNum();
  int r2 = ShfFicCop(P("fonte.bin"), TxDeUtf8(alvo));
  std::string depois = Le(alvo);
  int tmp = Temporarios(cheio.pasta);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(err, kErrDisco);
  EXPECT_EQ(r2, kErrDisco);
  EXPECT_EQ(depois, antes);
  EXPECT_EQ(tmp, 0);
  EXPECT_EQ(Le(N("fonte.bin")), fonte);
}

}  // namespace
