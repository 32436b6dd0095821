// Copy, move and delete runs of SupShf: what lands where, what is refused before
// anything is written, clashes, the trash, and the data safety of a copy that
// fails or is cancelled.
#include <gtest/gtest.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <cstdio>
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

// A copy's mode is the source's less the group and world bits of the creation
// mask; set-user and set-group bits are never copied, a folder's sticky bit is; the
// owner's bits are the source's whatever the mask, so the read-only attribute is
// kept. A folder that is there already is merged into and keeps its own mode; a
// file in the way of a folder stops the run with 75.
TEST_F(Shf, TreeModesFollowTheMaskAndMerges) {
  mkdir(N("org").c_str(), 0755);
  mkdir(N("org/g").c_str(), 0755);
  chmod(N("org/g").c_str(), 02777);
  mkdir(N("org/t").c_str(), 0755);
  chmod(N("org/t").c_str(), 01777);
  const std::pair<const char*, mode_t> modos[] = {{"org/a", 0644}, {"org/b", 0600}, {"org/g/c", 04755}, {"org/g/d", 0664},
                                                  {"org/e", 0777}, {"org/f", 0666}, {"org/r", 0444}, {"org/t/s", 02755}};
  for (auto& [n, m] : modos) {
    Escreve(N(n), n);
    chmod(N(n).c_str(), m);
  }
  for (auto [masc, dest] : {std::pair<mode_t, std::string>{022, "m022"}, {077, "m077"}, {0, "m000"}}) {
    mode_t velha = umask(masc);
    SupShf s;
    int r = 0;
    s.FxCopDfi(P("org"), P(dest), r);
    int r1 = ShfFicCop(P("org/e"), P(dest + "/e1"));
    int r2 = 0;
    FicCop(P("org/g/c"), P(dest + "/c2"), r2);
    umask(velha);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(r1, 0);
    EXPECT_EQ(r2, 0);
    mode_t tira = masc & 077;
    struct stat st;
    for (auto& [n, m] : modos) {
      std::string c = dest + std::string(n).substr(3);
      ASSERT_EQ(stat(N(c).c_str(), &st), 0) << c;
      EXPECT_EQ(st.st_mode & 07777, m & 0777 & ~tira) << c << " with mask " << std::oct << masc;
      EXPECT_EQ(Le(N(c)), n);
    }
    stat(N(dest + "/e1").c_str(), &st);
    EXPECT_EQ(st.st_mode & 07777, 0777 & ~tira) << "one-file copy, mask " << std::oct << masc;
    stat(N(dest + "/c2").c_str(), &st);
    EXPECT_EQ(st.st_mode & 07777, 0755 & ~tira) << "file layer's copy, mask " << std::oct << masc;
    stat(N(dest + "/g").c_str(), &st);
    EXPECT_EQ(st.st_mode & 07777, 0777 & ~tira) << "mask " << std::oct << masc;
    stat(N(dest + "/t").c_str(), &st);
    EXPECT_EQ(st.st_mode & 07777, 01000 | (0777 & ~tira)) << "mask " << std::oct << masc;
  }
  // A mask that takes the owner's own bits takes none of them from a copy: a
  // writable source gives no read-only file.
  mode_t velha = umask(0277);
  int r3 = ShfFicCop(P("org/a"), P("m022/a277"));
  umask(velha);
  EXPECT_EQ(r3, 0);
  struct stat st;
  stat(N("m022/a277").c_str(), &st);
  EXPECT_EQ(st.st_mode & 07777, 0600u);
  Escreve(N("m022/novo"), "fica");  // merged into: what was there stays, the rest replaced
  Escreve(N("m022/a"), "velho");
  chmod(N("m022/g").c_str(), 0700);
  SupShf s;
  int r = 0;
  s.FxCopDfi(P("org"), P("m022"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("m022/novo")), "fica");
  EXPECT_EQ(Le(N("m022/a")), "org/a");
  stat(N("m022/g").c_str(), &st);
  EXPECT_EQ(st.st_mode & 07777, 0700u);  // the folder that was there keeps its mode
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

namespace {

// An AF_UNIX socket bound at path p (left open for the test's life).
int Socket(const std::string& p) {
  int fd = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un a{};
  a.sun_family = AF_UNIX;
  std::snprintf(a.sun_path, sizeof a.sun_path, "%s", p.c_str());
  EXPECT_EQ(bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a), 0) << p;
  return fd;
}

std::string Alvo(const std::string& p) {
  char b[256] = {};
  return readlink(p.c_str(), b, sizeof b - 1) > 0 ? b : "";
}

// Records the progress lines, and the temporary names that stand in the
// destination folder while a large file is written.
struct Tmps : ShfPrgLin {
  std::vector<Tx> lin;
  std::string dir;
  std::vector<std::string> noms;
  Tmps() : ShfPrgLin([this](const Tx& l) { lin.push_back(l); }) {}
  bool Passo(const Tx& o, const Tx& d, int64_t i, int64_t b) override {
    if (DIR* h = opendir(dir.c_str())) {
      while (dirent* de = readdir(h))
        if (std::string(de->d_name).rfind(".zw~", 0) == 0 && (noms.empty() || noms.back() != de->d_name))
          noms.push_back(de->d_name);
      closedir(h);
    }
    return ShfPrgLin::Passo(o, d, i, b);
  }
};

}  // namespace

// A folder copy takes every entry, at the top and below: names that are not valid
// UTF-8 (a file, a folder with its contents) as the same bytes, and links whose
// target is missing or that loop as links.
TEST_F(Shf, FolderCopyTakesEveryNameAndLink) {
  const std::string ff = "f\xff\xfe.bin", dd = "d\xe9";
  mkdir(N("org").c_str(), 0755);
  for (std::string base : {"org", "org/sub"}) {
    mkdir(N(base).c_str(), 0755);
    Escreve(N(base + "/" + ff), "ff " + base);
    mkdir(N(base + "/" + dd).c_str(), 0755);
    Escreve(N(base + "/" + dd + "/x\x80.txt"), "x " + base);
    (void)!symlink("falta", N(base + "/pendente").c_str());
    (void)!symlink("laco", N(base + "/laco").c_str());
  }
  SupShf s;
  int r = 0;
  s.FxCopDfi(P("org"), P("dest"), r);
  EXPECT_EQ(r, 1);
  for (std::string base : {"dest", "dest/sub"}) {
    std::string o = "org" + base.substr(4);
    EXPECT_EQ(Le(N(base + "/" + ff)), "ff " + o) << base;
    EXPECT_EQ(Le(N(base + "/" + dd + "/x\x80.txt")), "x " + o) << base;
    EXPECT_EQ(Alvo(N(base + "/pendente")), "falta") << base;
    EXPECT_EQ(Alvo(N(base + "/laco")), "laco") << base;
  }
  // The same through a wildcard of the run.
  s.AspExe(0, 0);
  s.FxCop(P("org/*"), P("dest2"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(Le(N("dest2/" + ff)), "ff org");
  EXPECT_EQ(Alvo(N("dest2/laco")), "laco");
}

// Pipes and sockets, at the top and below, are left out and told as "SHF SKP";
// the copy goes on to its end (the files after them in name order land) and
// answers 0 with 75, never 1 and never half-way.
TEST_F(Shf, SpecialFilesAreSkippedToldAndAnswered) {
  mkdir(N("org").c_str(), 0755);
  mkdir(N("org/sub").c_str(), 0755);
  ASSERT_EQ(mkfifo(N("org/a-fifo").c_str(), 0644), 0);
  ASSERT_EQ(mkfifo(N("org/sub/a-fifo").c_str(), 0644), 0);
  int s1 = Socket(N("org/b-sock")), s2 = Socket(N("org/sub/b-sock"));
  Escreve(N("org/z.txt"), "fim");
  Escreve(N("org/sub/z.txt"), "fim sub");
  Tmps p;
  ShfPrgDef(&p);
  SupShf s;
  int r = 1;
  s.FxCopDfi(P("org"), P("dest"), r);
  close(s1);
  close(s2);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s.ErrNum(), kErrAces);
  EXPECT_EQ(Le(N("dest/z.txt")), "fim");
  EXPECT_EQ(Le(N("dest/sub/z.txt")), "fim sub");
  EXPECT_FALSE(Existe(N("dest/a-fifo")));
  EXPECT_FALSE(Existe(N("dest/sub/b-sock")));
  std::vector<Tx> saltos;
  for (auto& l : p.lin)
    if (l.rfind(u"SHF SKP ", 0) == 0) saltos.push_back(l);
  std::vector<Tx> esperados{u"SHF SKP " + FicDeNat(N("org/a-fifo")) + u" (pipe)",
                            u"SHF SKP " + FicDeNat(N("org/b-sock")) + u" (socket)",
                            u"SHF SKP " + FicDeNat(N("org/sub/a-fifo")) + u" (pipe)",
                            u"SHF SKP " + FicDeNat(N("org/sub/b-sock")) + u" (socket)"};
  EXPECT_EQ(saltos, esperados);
  EXPECT_EQ(p.lin.back(), u"SHF FIM 0");
  // A silent run tells them too.
  p.lin.clear();
  s.AspExe(0, 0);
  s.FxCop(P("org/sub/*.*"), P("dest3"), r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(p.lin.size(), 2u);
  EXPECT_EQ(ShfFicCop(P("org/a-fifo"), P("dest/x")), kErrAces);  // the one-file copy does not wait on a pipe
}

// The temporary names of a copy come from the kernel's random source: a user who
// plants names in the destination folder (links to a file of theirs choosing) can
// neither make the copy fail nor have it write through a link; two copies never
// use the same name and no name carries the process's id.
TEST_F(Shf, TemporaryNamesCannotBePlanted) {
  mkdir(N("org").c_str(), 0755);
  Escreve(N("org/a.txt"), "alfa");
  (void)!symlink("a.txt", N("org/l").c_str());
  mkdir(N("dest").c_str(), 0777);
  std::string pid = std::to_string(getpid());
  for (int i = 1; i <= 20000; i++)
    (void)!symlink(N("vitima").c_str(), N("dest/.zw~" + pid + "~" + std::to_string(i) + ".tmp").c_str());
  SupShf s;
  int r = 0;
  s.FxCopDfi(P("org"), P("dest"), r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(ShfFicCop(P("org/a.txt"), P("dest/b.txt")), 0);
  EXPECT_FALSE(Existe(N("vitima")));
  EXPECT_EQ(Le(N("dest/a.txt")), "alfa");
  EXPECT_EQ(Alvo(N("dest/l")), "a.txt");

  Escreve(N("grande.bin"), std::string(17 << 20, 'g'));
  Tmps p;
  p.dir = N("vazia");
  mkdir(p.dir.c_str(), 0755);
  ShfPrgDef(&p);
  s.AspExe(1, 0);
  s.FxCop(P("grande.bin"), P("vazia/g1.bin"), r);
  s.FxCop(P("grande.bin"), P("vazia/g2.bin"), r);
  ASSERT_EQ(p.noms.size(), 2u);
  EXPECT_NE(p.noms[0], p.noms[1]);
  for (auto& n : p.noms) {
    EXPECT_EQ(n.find(pid), std::string::npos) << n;
    EXPECT_EQ(n.size(), std::string(".zw~").size() + 12 + std::string(".tmp").size()) << n;
  }
}

// A wildcard delete never acts on the top of a drive, nor on a home folder, and a
// tree delete or move never takes one away: 70, a "SHF NEG" line, nothing gone.
// Below them, and for a file named alone, deletes work as before.
TEST_F(Shf, DeletesStopAtDriveRootsAndHomes) {
  mkdir(N("q").c_str(), 0755);
  mkdir(N("q/sub").c_str(), 0755);
  Escreve(N("q/a.txt"), "a");
  Escreve(N("q/sub/b.txt"), "b");
  FicDrvMap(u'Q', P("q"));
  std::vector<Tx> lin;
  ShfPrgLin p([&](const Tx& l) { lin.push_back(l); });
  ShfPrgDef(&p);
  int r = 0;
  for (const char16_t* pad : {u"Q:\\*.*", u"Q:\\sub\\..\\*.*", u"q:/a.*"}) {
    FicEli(pad, r);
    EXPECT_EQ(r, kErrPerm) << TxUtf8(pad);
  }
  EXPECT_EQ(lin.front(), u"SHF NEG Q:\\*.* (root)");
  SupShf s;
  s.AspExe(0, 0);
  s.FxEli(u"Q:\\", r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(s.ErrNum(), kErrPerm);
  s.FxLpzDir(u"Q:", r);
  EXPECT_EQ(s.ErrNum(), kErrPerm);
  s.FxMov(u"Q:\\", P("movida"), r);
  EXPECT_EQ(s.ErrNum(), kErrPerm);
  EXPECT_EQ(Le(N("q/a.txt")), "a");
  EXPECT_EQ(Le(N("q/sub/b.txt")), "b");

  const char* velho = std::getenv("HOME");
  std::string guardado = velho ? velho : "";
  setenv("HOME", N("q/sub").c_str(), 1);
  FicEli(u"Q:\\sub\\*.txt", r);
  int rCasa = r;
  s.FxLpzDir(u"Q:\\sub", r);
  int eCasa = s.ErrNum();
  if (velho) setenv("HOME", guardado.c_str(), 1); else unsetenv("HOME");
  EXPECT_EQ(rCasa, kErrPerm);
  EXPECT_EQ(eCasa, kErrPerm);
  EXPECT_EQ(lin.back(), u"SHF NEG Q:\\sub\\*.* (home folder)");
  EXPECT_EQ(Le(N("q/sub/b.txt")), "b");

  FicEli(u"Q:\\sub\\*.txt", r);  // a folder like any other again
  EXPECT_EQ(r, 0);
  EXPECT_FALSE(Existe(N("q/sub/b.txt")));
  FicEli(u"Q:\\a.txt", r);  // one file named alone, at the top
  EXPECT_EQ(r, 0);
  s.FxEli(u"Q:\\sub", r);
  EXPECT_EQ(r, 1);
  FicDrvMap(u'Q', u"");
  // The system's folders, where nothing matches: refused before the listing.
  for (const char16_t* pad : {u"C:\\*.zwnada", u"\\*.zwnada", u"/*.zwnada", u"C:\\usr\\*.zwnada", u"/etc/../etc/*.zwnada"}) {
    FicEli(pad, r);
    EXPECT_EQ(r, kErrPerm) << TxUtf8(pad);
  }
  EXPECT_EQ(FicDirSis("/usr/local/lib/zwnada"), u"");
  EXPECT_EQ(FicDirSis("/usr/local/lib"), u"system folder");
}

// The tree delete holds each folder it walks: a folder swapped for a link while
// its entries go is never walked through (the entries of the held folder go, the
// link's target keeps its own, and the link stands in the way of the last rmdir);
// a link on the way that others could have planted is refused before anything
// goes; a step can stop it, and a folder is no file without arvore.
TEST_F(Shf, TreeDeleteHoldsItsFoldersAgainstSwappedLinks) {
  mkdir(N("guarda").c_str(), 0755);
  Escreve(N("guarda/f"), "guardado");
  mkdir(N("t").c_str(), 0755);
  mkdir(N("t/in").c_str(), 0755);
  Escreve(N("t/in/f"), "apagar");
  std::vector<std::string> vistos;
  int r = ArvEliNat(N("t"), true, [&](const std::string& c) {
    vistos.push_back(c);
    if (c == N("t/in/f")) {  // the folder "in" is swapped while it is held
      EXPECT_EQ(rename(N("t/in").c_str(), N("t/velha").c_str()), 0);
      EXPECT_EQ(symlink(N("guarda").c_str(), N("t/in").c_str()), 0);
    }
    return true;
  });
  EXPECT_EQ(r, -1);
  EXPECT_EQ(errno, ENOTDIR);
  EXPECT_EQ(Le(N("guarda/f")), "guardado");
  EXPECT_FALSE(Existe(N("t/velha/f")));
  EXPECT_EQ(vistos, (std::vector<std::string>{N("t/in"), N("t/in/f")}));
  // Removed again from the start, the link goes as a link.
  EXPECT_EQ(ArvEliNat(N("t")), 0);
  EXPECT_FALSE(Existe(N("t")));
  EXPECT_EQ(Le(N("guarda/f")), "guardado");

  mkdir(N("aberta").c_str(), 0777);
  chmod(N("aberta").c_str(), 0777);
  (void)!symlink(N("guarda").c_str(), N("aberta/via").c_str());
  errno = 0;
  EXPECT_EQ(ArvEliNat(N("aberta/via/f")), -1);
  EXPECT_EQ(errno, EACCES);
  EXPECT_EQ(Le(N("guarda/f")), "guardado");

  Arvore("c");
  EXPECT_EQ(ArvEliNat(N("c"), true, [](const std::string&) { return false; }), -1);
  EXPECT_EQ(errno, ECANCELED);
  EXPECT_EQ(ArvEliNat(N("c/sub"), false), -1);
  EXPECT_EQ(errno, EISDIR);
  EXPECT_TRUE(Existe(N("c/sub/c.txt")));
}
