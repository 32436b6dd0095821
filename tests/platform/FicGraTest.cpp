// Writing files so that a failure loses nothing, and reading only what can be read.
#include <gtest/gtest.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include "FicGlb.h"
#include "FicGra.h"

using namespace zw;

namespace {

// A file-size limit for this process (ulimit -f), put back at the end.
struct LimTam {
  rlimit velho{};
  explicit LimTam(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &velho);
    rlimit r = velho;
    r.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &r);
  }
  ~LimTam() { setrlimit(RLIMIT_FSIZE, &velho); }
};

class Gra : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwgraXXXXXX";
    d_ = mkdtemp(t);
  }
  void TearDown() override {
    FicFecTot();
    (void)!std::system(("rm -rf '" + d_ + "'").c_str());
  }
  std::string P(const std::string& n) { return d_ + "/" + n; }
  void Escreve(const std::string& n, const std::string& b) { std::ofstream(P(n), std::ios::binary) << b; }
  std::string Le(const std::string& n) {
    std::ifstream f(P(n), std::ios::binary);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
  }
  // The names in the folder, so that a temporary file left behind shows.
  std::vector<std::string> Nomes() {
    std::vector<std::string> v;
    DIR* d = opendir(d_.c_str());
    while (dirent* e = readdir(d))
      if (e->d_name[0] != '.' || (std::string(e->d_name) != "." && std::string(e->d_name) != ".."))
        v.push_back(e->d_name);
    closedir(d);
    std::sort(v.begin(), v.end());
    return v;
  }
  std::string d_;
};

}  // namespace

TEST_F(Gra, ReplaceKeepsModeOwnerLinksAndLeavesNoTemporary) {
  Escreve("f", "velho");
  chmod(P("f").c_str(), 0604);
  bool root = geteuid() == 0;
  if (root) {
    ASSERT_EQ(chown(P("f").c_str(), 1234, 5678), 0);
  }
  ASSERT_EQ(symlink("f", P("l").c_str()), 0);
  ASSERT_EQ(link(P("f").c_str(), P("h").c_str()), 0);

  FicGra g;
  ASSERT_EQ(g.Abre(P("l"), 'O'), 0);  // through the link, to f (which has a hard link too)
  EXPECT_EQ(g.Grava("novo"), 0);
  EXPECT_EQ(g.Fecha(), 0);
  struct stat l, f, h;
  ASSERT_EQ(lstat(P("l").c_str(), &l), 0);
  EXPECT_TRUE(S_ISLNK(l.st_mode));
  ASSERT_EQ(stat(P("f").c_str(), &f), 0);
  ASSERT_EQ(stat(P("h").c_str(), &h), 0);
  EXPECT_EQ(f.st_ino, h.st_ino);
  EXPECT_EQ(Le("h"), "novo");
  EXPECT_EQ(f.st_mode & 07777, 0604u);

  unlink(P("h").c_str());  // a single name: replaced by a renamed temporary file
  ASSERT_EQ(g.Abre(P("f"), 'O'), 0);
  EXPECT_EQ(g.Grava("terceiro"), 0);
  EXPECT_EQ(g.Fecha(), 0);
  ASSERT_EQ(stat(P("f").c_str(), &f), 0);
  EXPECT_EQ(Le("f"), "terceiro");
  EXPECT_EQ(f.st_mode & 07777, 0604u);
  if (root) {
    EXPECT_EQ(std::make_pair(f.st_uid, f.st_gid), std::make_pair(uid_t(1234), gid_t(5678)));
  }
  EXPECT_EQ(Nomes(), (std::vector<std::string>{"f", "l"}));

  ASSERT_EQ(g.Abre(P("novo"), 'O'), 0);  // a new file exists, held, from the open
  FicGra outro;
  EXPECT_EQ(outro.Abre(P("novo"), 'A'), kErrPerm);
  g.Desiste();  // and is gone again when the write is given up
  EXPECT_EQ(Nomes(), (std::vector<std::string>{"f", "l"}));
}

TEST_F(Gra, FailedWritesLeaveTheFileAsItWas) {
  std::string velho(3000, 'v');
  Escreve("f", velho);
  Escreve("a", velho);
  Escreve("h", velho);
  ASSERT_EQ(link(P("h").c_str(), P("h2").c_str()), 0);
  std::string grande(8192, 'n');
  {
    LimTam lim(4096);
    FicGra g;
    ASSERT_EQ(g.Abre(P("f"), 'O'), 0);
    EXPECT_EQ(g.Grava(grande), kErrDisco);
    EXPECT_EQ(g.Grava("x"), kErrDisco);  // every later write fails alike
    EXPECT_EQ(g.Fecha(), kErrDisco);

    ASSERT_EQ(g.Abre(P("a"), 'A'), 0);
    EXPECT_EQ(g.Grava(grande), kErrDisco);
    EXPECT_EQ(g.Fecha(), kErrDisco);

    ASSERT_EQ(g.Abre(P("h"), 'O'), 0);  // in place, for the hard link
    EXPECT_EQ(g.Grava(grande), 0);        // held in memory until the close
    EXPECT_EQ(g.Fecha(), kErrDisco);

    ASSERT_EQ(g.Abre(P("novo"), 'O'), 0);
    g.Grava(grande);
    EXPECT_EQ(g.Fecha(), kErrDisco);
  }
  EXPECT_EQ(Le("f"), velho);
  EXPECT_EQ(Le("a"), velho);
  EXPECT_EQ(Le("h2"), velho);
  EXPECT_EQ(Nomes(), (std::vector<std::string>{"a", "f", "h", "h2"}));
}

TEST_F(Gra, OnlyRegularFilesAreWrittenOrRead) {
  ASSERT_EQ(mkfifo(P("p").c_str(), 0600), 0);
  FicGra g;
  EXPECT_EQ(g.Abre(P("p"), 'O'), kErrAces);
  EXPECT_EQ(g.Abre(d_, 'O'), kErrAces);
  EXPECT_EQ(g.Abre(P("p"), 'A'), kErrAces);
  int r = 0;
  FicAbrNum(1, TxAsc(P("p")), u"I", r);  // no writer: the open must not wait for one
  EXPECT_EQ(r, -kErrAces);
  EXPECT_EQ(FicExi(TxAsc(P("p"))), -kErrAces);
  FicAbrNum(1, TxAsc(P("p")), u"O", r);
  EXPECT_EQ(r, -kErrAces);

  // A file larger than anything an option file reaches is refused unread.
  int fd = open(P("grande").c_str(), O_CREAT | O_WRONLY, 0644);
  ASSERT_EQ(ftruncate(fd, kFicLerMax + 1), 0);
  close(fd);
  FicAbrNum(1, TxAsc(P("grande")), u"I", r);
  EXPECT_EQ(r, -kErrIO);

  if (geteuid() != 0) GTEST_SKIP() << "device nodes need root: the mknod case is not run";
  ASSERT_EQ(mknod(P("nulo").c_str(), S_IFCHR | 0666, makedev(1, 3)), 0);  // a copy of /dev/null
  EXPECT_EQ(g.Abre(P("nulo"), 'O'), kErrAces);
  struct stat st;
  ASSERT_EQ(lstat(P("nulo").c_str(), &st), 0);
  EXPECT_TRUE(S_ISCHR(st.st_mode));
  EXPECT_EQ(FicExi(TxAsc(P("nulo"))), -kErrAces);
}

TEST_F(Gra, LineBytesAsRead) {
  Escreve("u", "\xef\xbb\xbf" "a\xff\r\nb\xc3\xa7\nc");
  int e = 0;
  Tx l;
  FicAbr(1, TxAsc(P("u")), u"I", u"", u"", e);
  ASSERT_EQ(e, 0);
  FicLinLer(1, l, e);
  EXPECT_EQ(FicLinByt(1), "a\xff");  // the invalid byte, as it was
  FicLinLer(1, l, e);
  EXPECT_EQ(l, u"b\u00e7");
  EXPECT_EQ(FicLinByt(1), "b\xc3\xa7");
  FicLinLer(1, l, e);
  EXPECT_EQ(FicLinByt(1), "c");
  FicFec(1);
  FicAbr(1, TxAsc(P("o")), u"O", u"", u"", e);
  FicCodDef(1, Cod::Utf8Bom);
  EXPECT_EQ(FicBytGra(1, "a\xff\r\n"), 0);
  EXPECT_EQ(FicLinGra(1, u"\u00e7"), 0);
  EXPECT_EQ(FicFec(1), 0);
  EXPECT_EQ(Le("o"), "\xef\xbb\xbf" "a\xff\r\n\xc3\xa7\r\n");
}

// A folder that others may write: a link or a second name found there may have
// been put there by anyone, and no write goes through it.
TEST_F(Gra, LinksWhereOthersMayWriteAreNotWrittenThrough) {
  Escreve("alvo", "intacto");
  ASSERT_EQ(mkdir(P("aberta").c_str(), 0700), 0);
  ASSERT_EQ(chmod(P("aberta").c_str(), 0777), 0);  // not sticky: anyone may swap names
  ASSERT_EQ(symlink(P("alvo").c_str(), P("aberta/l").c_str()), 0);
  ASSERT_EQ(symlink(P("aberta/nada").c_str(), P("aberta/pendente").c_str()), 0);
  FicGra g;
  EXPECT_EQ(g.Abre(P("aberta/l"), 'O'), kErrPerm);
  EXPECT_EQ(g.Abre(P("aberta/l"), 'A'), kErrPerm);
  EXPECT_EQ(g.Abre(P("aberta/pendente"), 'O'), kErrPerm);
  int r = 0;
  FicAbrBin(1, TxAsc(P("aberta/l")), r);
  EXPECT_EQ(r, -kErrPerm);
  FicAbrBin(1, TxAsc(P("aberta/pendente")), r);
  EXPECT_EQ(r, -kErrPerm);
  FicAbrNum(1, TxAsc(P("aberta/l")), u"O", r);
  EXPECT_EQ(r, -kErrPerm);
  EXPECT_EQ(Le("alvo"), "intacto");
  EXPECT_NE(access(P("aberta/nada").c_str(), F_OK), 0);  // no file made at a link's end

  // A second name of the file there: a replacement takes that name alone, an
  // append is refused.
  ASSERT_EQ(link(P("alvo").c_str(), P("aberta/h").c_str()), 0);
  ASSERT_EQ(g.Abre(P("aberta/h"), 'O'), 0);
  EXPECT_EQ(g.Grava("novo"), 0);
  EXPECT_EQ(g.Fecha(), 0);
  EXPECT_EQ(Le("aberta/h"), "novo");
  EXPECT_EQ(Le("alvo"), "intacto");
  ASSERT_EQ(unlink(P("aberta/h").c_str()), 0);
  ASSERT_EQ(link(P("alvo").c_str(), P("aberta/h").c_str()), 0);
  EXPECT_EQ(g.Abre(P("aberta/h"), 'A'), kErrPerm);
  EXPECT_EQ(Le("alvo"), "intacto");

  // The same link in a sticky folder of the user's own is the user's to keep.
  ASSERT_EQ(chmod(P("aberta").c_str(), 01777), 0);
  ASSERT_EQ(g.Abre(P("aberta/l"), 'A'), 0);
  EXPECT_EQ(g.Grava("+"), 0);
  EXPECT_EQ(g.Fecha(), 0);
  EXPECT_EQ(Le("alvo"), "intacto+");
}

TEST_F(Gra, NewFilesAndTemporaryNames) {
  // A new file is new: a name taken, by a link too, is refused and not followed.
  ASSERT_EQ(symlink(P("fim").c_str(), P("l").c_str()), 0);
  EXPECT_EQ(FicCriNov(P("l"), O_WRONLY), -1);
  EXPECT_EQ(errno, EEXIST);
  EXPECT_NE(access(P("fim").c_str(), F_OK), 0);
  mode_t velha = umask(0);
  int fd = FicCriNov(P("n"), O_WRONLY, 0640);
  umask(velha);
  ASSERT_GE(fd, 0);
  close(fd);
  struct stat st;
  ASSERT_EQ(stat(P("n").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);

  // Temporary names: hidden, in the target's folder, owner-only, never the same.
  std::string a, b;
  int fa = FicTmpCri(P("alvo.txt"), a), fb = FicTmpCri(P("alvo.txt"), b);
  ASSERT_GE(fa, 0);
  ASSERT_GE(fb, 0);
  close(fa), close(fb);
  EXPECT_NE(a, b);
  EXPECT_EQ(a.rfind(P(".alvo.txt.zw-"), 0), 0u) << a;
  EXPECT_EQ(a.size(), P(".alvo.txt.zw-").size() + 12);
  ASSERT_EQ(stat(a.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0600u);
}

TEST_F(Gra, PrivateFolders) {
  mode_t velha = umask(0);
  EXPECT_EQ(DirPrv(P("a/b")), 0);
  EXPECT_EQ(DirCriMod(P("c/d"), 0750), 0);
  umask(velha);
  struct stat st;
  ASSERT_EQ(stat(P("a/b").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0700u);
  ASSERT_EQ(stat(P("c").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0750u);
  ASSERT_EQ(symlink(P("a/b").c_str(), P("l").c_str()), 0);
  EXPECT_EQ(DirPrv(P("l")), kErrPerm);  // a link, even to the user's own folder
  ASSERT_EQ(chmod(P("a/b").c_str(), 0770), 0);
  EXPECT_EQ(DirPrv(P("a/b")), kErrPerm);  // others may write in it
  Escreve("f", "");
  EXPECT_EQ(DirPrv(P("f")), kErrPerm);
}

// The walk from the root (undo's and the printer port's): the last name's folder
// held, links on the way followed where they may be, ".." back through the folders
// held, each folder shown to the caller's rule, missing folders made when asked.
TEST_F(Gra, TheWalkFromTheRootHoldsTheLastNamesFolder) {
  ASSERT_EQ(mkdir(P("a").c_str(), 0755), 0);
  ASSERT_EQ(mkdir(P("a/b").c_str(), 0755), 0);
  Escreve("a/b/f", "x");
  Escreve("a/g", "y");
  ASSERT_EQ(symlink("a/b", P("lb").c_str()), 0);
  ASSERT_EQ(symlink("b/..", P("a/lc").c_str()), 0);
  auto Tem = [&](const std::string& p, const char* nomeEsperado) {
    std::string nome;
    int d = DirPaiAbr(p, nome);
    if (d < 0) return false;
    struct stat st;
    bool ok = nome == nomeEsperado && fstatat(d, nome.c_str(), &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(st.st_mode);
    close(d);
    return ok;
  };
  EXPECT_TRUE(Tem(P("lb/f"), "f"));
  EXPECT_TRUE(Tem(P("a/lc/g"), "g"));
  EXPECT_TRUE(Tem(P("a/b/../b/./f"), "f"));
  std::string nome;
  auto Erro = [&](const std::string& p, const DirPaiOpc& o = {}) {
    int d = DirPaiAbr(p, nome, o);
    if (d >= 0) close(d);
    return d >= 0 ? 0 : errno;
  };
  EXPECT_EQ(Erro(P("a/b/f/x")), ENOTDIR);
  EXPECT_EQ(Erro(P("nada/x")), ENOENT);
  EXPECT_EQ(Erro("a/b"), EINVAL);
  EXPECT_EQ(Erro(P("a/..")), EINVAL);
  // A link in a folder that others may change is not followed.
  ASSERT_EQ(mkdir(P("aberta").c_str(), 0700), 0);
  ASSERT_EQ(chmod(P("aberta").c_str(), 0777), 0);
  ASSERT_EQ(symlink(P("a").c_str(), P("aberta/l").c_str()), 0);
  EXPECT_EQ(Erro(P("aberta/l/g")), ELOOP);
  // The caller's rule sees every folder held, the last one once and last.
  std::vector<bool> vistos;
  DirPaiOpc o;
  o.ver = [&](const struct stat& d, bool ultimo) {
    vistos.push_back(ultimo);
    return S_ISDIR(d.st_mode) && !ultimo;
  };
  EXPECT_EQ(Erro(P("a/b/f"), o), EACCES);
  ASSERT_FALSE(vistos.empty());
  EXPECT_EQ(std::count(vistos.begin(), vistos.end(), true), 1);
  EXPECT_TRUE(vistos.back());
  // Missing folders made on the way, with the mode asked for.
  DirPaiOpc cria;
  cria.criar = 0750;
  mode_t velha = umask(022);
  EXPECT_EQ(Erro(P("n1/n2/f"), cria), 0);
  umask(velha);
  struct stat st;
  ASSERT_EQ(stat(P("n1/n2").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0750u);
  EXPECT_EQ(nome, "f");
}
