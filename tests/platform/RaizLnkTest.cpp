// Root's writes in folders that other users share: links and second names planted
// by another user are not written through, replaced files keep mode and owner, and
// what root creates for itself is never open to others whatever the umask. These
// run as root in the throwaway copy of the machine (ctest -R caixa_platform).
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include "Caixa.h"
#include "FicGlb.h"
#include "FicGra.h"
#include "GlbReg.h"
#include "Prt.h"
#include "SupLogReg.h"
#include "TxtGlb.h"

using namespace zw;

namespace {

constexpr uid_t kNinguem = 65534;  // the user "nobody"

// Runs f in a child process as another user; its exit status (0 ok).
int ComoOutro(uid_t uid, const std::function<int()>& f) {
  pid_t p = fork();
  if (p == 0) {
    if (setgid(uid) != 0 || setuid(uid) != 0) _exit(99);
    _exit(f());
  }
  int st = 0;
  waitpid(p, &st, 0);
  return WIFEXITED(st) ? WEXITSTATUS(st) : 98;
}

// A symbolic link made by the user uid, as another user would plant it.
void Planta(const std::string& alvo, const std::string& nome, uid_t uid = kNinguem) {
  ASSERT_EQ(ComoOutro(uid, [&] { return symlink(alvo.c_str(), nome.c_str()) == 0 ? 0 : 1; }), 0) << nome;
}

std::string Le(const std::string& f) {
  std::ifstream in(f, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void Pasta(const std::string& d, mode_t modo, uid_t uid = 0) {
  (void)!std::system(("rm -rf '" + d + "'").c_str());
  ASSERT_EQ(mkdir(d.c_str(), 0700), 0) << d;
  ASSERT_EQ(chown(d.c_str(), uid, uid), 0);
  ASSERT_EQ(chmod(d.c_str(), modo), 0);
}

struct Umask {
  mode_t velha;
  explicit Umask(mode_t m) : velha(umask(m)) {}
  ~Umask() { umask(velha); }
};

mode_t Modo(const std::string& f) {
  struct stat st{};
  lstat(f.c_str(), &st);
  return st.st_mode & 07777;
}
uid_t Dono(const std::string& f) {
  struct stat st{};
  lstat(f.c_str(), &st);
  return st.st_uid;
}

}  // namespace

// A link another user planted, in a sticky folder as /tmp is and in one anyone
// may write: every way of writing a file refuses it, and the file it names stays.
TEST(RaizGra, LinksPlantedByAnotherUserAreRefused) {
  ZW_NA_CAIXA();
  std::ofstream("/etc/zwvitima") << "intacto";
  for (auto [d, modo] : {std::pair<std::string, mode_t>{"/tmp/zwst", 01777}, {"/tmp/zwab", 0777}}) {
    SCOPED_TRACE(d);
    Pasta(d, modo);
    Planta("/etc/zwvitima", d + "/l");
    Planta("/etc/zwnova", d + "/pendente");
    FicGra g;
    EXPECT_EQ(g.Abre(d + "/l", 'O'), kErrPerm);
    EXPECT_EQ(g.Abre(d + "/l", 'A'), kErrPerm);
    EXPECT_EQ(g.Abre(d + "/pendente", 'O'), kErrPerm);
    int r = 0;
    FicAbrBin(1, TxAsc(d + "/pendente"), r);
    EXPECT_EQ(r, -kErrPerm);
    FicAbrNum(1, TxAsc(d + "/l"), u"A", r);
    EXPECT_EQ(r, -kErrPerm);
    RegFicDef(TxAsc(d + "/l"));
    EXPECT_FALSE(RegVarGra(kHklm, u"K", u"V", u"v"));
    RegFicDef(TxAsc(d + "/r.reg"));  // the old fixed temporary name, planted
    Planta("/etc/zwvitima", d + "/r.reg.tmp");
    EXPECT_TRUE(RegVarGra(kHklm, u"K", u"V", u"v"));
    RegFicDef(u"");
    EXPECT_EQ(Le("/etc/zwvitima"), "intacto");
    EXPECT_NE(access("/etc/zwnova", F_OK), 0);
  }
  // Root's own link in the sticky folder is root's to keep, and is followed.
  ASSERT_EQ(symlink("/etc/zwvitima", "/tmp/zwst/minha"), 0);
  FicGra g;
  ASSERT_EQ(g.Abre("/tmp/zwst/minha", 'A'), 0);
  EXPECT_EQ(g.Grava("+"), 0);
  EXPECT_EQ(g.Fecha(), 0);
  EXPECT_EQ(Le("/etc/zwvitima"), "intacto+");
  // A link of another user's in root's own folder is refused as well.
  Pasta("/tmp/zwraiz", 0755);
  ASSERT_EQ(symlink("/etc/zwvitima", "/tmp/zwraiz/l"), 0);
  ASSERT_EQ(lchown("/tmp/zwraiz/l", kNinguem, kNinguem), 0);
  EXPECT_EQ(g.Abre("/tmp/zwraiz/l", 'O'), kErrPerm);
}

// A second name of a system file in a shared folder (which a user can make where
// the kernel does not stop it): a replacement takes that name alone and an append
// is refused, so the system file keeps its bytes.
TEST(RaizGra, SecondNamesInSharedFoldersAreNotRewrittenInPlace) {
  ZW_NA_CAIXA();
  Pasta("/tmp/zwsis", 0700);  // root's file, on the same file system as the shared folder
  std::ofstream("/tmp/zwsis/vitima") << "intacto";
  Pasta("/tmp/zwst", 01777);
  ASSERT_EQ(link("/tmp/zwsis/vitima", "/tmp/zwst/h"), 0);
  FicGra g;
  EXPECT_EQ(g.Abre("/tmp/zwst/h", 'A'), kErrPerm);
  ASSERT_EQ(g.Abre("/tmp/zwst/h", 'O'), 0);
  EXPECT_EQ(g.Grava("novo"), 0);
  EXPECT_EQ(g.Fecha(), 0);
  EXPECT_EQ(Le("/tmp/zwsis/vitima"), "intacto");
  EXPECT_EQ(Le("/tmp/zwst/h"), "novo");
}

// Under umask 0 a replaced file keeps its mode and owner, and what the registry
// makes for itself is still closed to others.
TEST(RaizGra, ModeAndOwnerKeptUnderUmaskZero) {
  ZW_NA_CAIXA();
  Umask u(0);
  Pasta("/tmp/zwd", 0755);
  std::ofstream("/tmp/zwd/r.reg") << "REGEDIT4\r\n";
  ASSERT_EQ(chown("/tmp/zwd/r.reg", kNinguem, kNinguem), 0);
  ASSERT_EQ(chmod("/tmp/zwd/r.reg", 0600), 0);
  RegFicDef(u"/tmp/zwd/r.reg");
  EXPECT_TRUE(RegVarGra(kHklm, u"K", u"V", u"v"));
  EXPECT_EQ(Modo("/tmp/zwd/r.reg"), 0600u);
  EXPECT_EQ(Dono("/tmp/zwd/r.reg"), kNinguem);

  RegFicDef(u"");
  (void)!std::system("rm -rf /etc/zunwiz");
  EXPECT_TRUE(RegVarGra(kHklm, u"K", u"V", u"v"));
  EXPECT_EQ(Modo("/etc/zunwiz"), 0755u);
  EXPECT_EQ(Modo("/etc/zunwiz/registry"), 0755u);
  EXPECT_EQ(Modo("/etc/zunwiz/registry/zunwiz.reg"), 0644u);
}

// The register folders: root's own is made for root alone; a user whose state
// folder cannot be made does not take a /tmp folder of the foreseeable name that
// someone else put there, but a new one of its own.
TEST(RaizLog, DefaultFoldersAreTheUsersAlone) {
  ZW_NA_CAIXA();
  Umask u(0);
  (void)!std::system("rm -rf /var/log/zunwiz");
  EXPECT_EQ(LogDirPad(), u"/var/log/zunwiz");
  EXPECT_EQ(Modo("/var/log/zunwiz"), 0700u);
  SupLogReg log;
  log.FxIni();
  EXPECT_EQ(log.RegIniMsg(u"x"), 1);
  EXPECT_EQ(Modo("/var/log/zunwiz/LogIni.txt") & 0022, 0u);
  log.FxFim();

  std::string t = "/tmp/zunwiz-" + std::to_string(kNinguem);
  (void)!std::system(("rm -rf " + t + "*").c_str());
  Planta("/etc", t, 1234);
  int p[2];
  ASSERT_EQ(pipe(p), 0);
  int st = ComoOutro(kNinguem, [&] {
    std::string d = TxUtf8(LogDirPad());
    return write(p[1], d.data(), d.size()) == ssize_t(d.size()) ? 0 : 1;
  });
  close(p[1]);
  char b[512] = {};
  ssize_t n = read(p[0], b, sizeof b - 1);
  close(p[0]);
  ASSERT_EQ(st, 0);
  std::string d(b, size_t(n > 0 ? n : 0));
  EXPECT_NE(d, t);
  EXPECT_EQ(Dono(d), kNinguem) << d;
  EXPECT_EQ(Modo(d) & 0077, 0u) << d;
}

// As root a printer's port must lie in root's folders, where no one else may change
// a name, and must be no link: the file the scheduler writes into as root is then
// the one the wizard named.
TEST(RaizPrt, RootsPortsLieInRootsFolders) {
  ZW_NA_CAIXA();
  Umask u(0);
  int ok = -1;
  auto Porta = [&](const std::string& f) {
    PrtPorAdi(TxAsc(f), ok);
    return ok;
  };
  // The demo's old folder, made first by another user: as a program, and as a
  // folder whose PDF is a link to a system file.
  (void)!std::system("rm -rf /tmp/ZunWizPDF /etc/nologin");
  ASSERT_EQ(ComoOutro(kNinguem, [] { return mkdir("/tmp/ZunWizPDF", 0755); }), 0);
  Planta("/etc/nologin", "/tmp/ZunWizPDF/demo.pdf");
  PrtSrvDef(u"/tmp/zw-nenhum.sock");
  EXPECT_EQ(FxPrtPdfIns(u"ZunWiz PDF", u"C:\\tmp\\ZunWizPDF\\demo.pdf", u"Generic PDF Printer"), u"PR_VT_KO");
  EXPECT_NE(access("/etc/nologin", F_OK), 0);

  Pasta("/tmp/zwprt", 0755);
  Pasta("/tmp/zwprt/r", 0755);
  Pasta("/tmp/zwprt/u", 0755, kNinguem);
  EXPECT_EQ(Porta("/tmp/zwprt/u/a.pdf"), 0);  // a folder of another user's
  EXPECT_EQ(Porta("/tmp/x.pdf"), 0);          // a folder every user may write
  EXPECT_EQ(Porta("/tmp/zwprt/r/a.pdf"), 1);
  EXPECT_EQ(Dono("/tmp/zwprt/r/a.pdf"), 0u);
  EXPECT_EQ(Modo("/tmp/zwprt/r/a.pdf"), 0644u);
  EXPECT_EQ(Porta("/tmp/zwprt/r/a.pdf"), 1);  // root's file that is there is kept
  std::ofstream("/tmp/zwprt/r/alheio.pdf") << "";
  ASSERT_EQ(chown("/tmp/zwprt/r/alheio.pdf", kNinguem, kNinguem), 0);
  EXPECT_EQ(Porta("/tmp/zwprt/r/alheio.pdf"), 0);
  ASSERT_EQ(symlink("a.pdf", "/tmp/zwprt/r/l.pdf"), 0);
  EXPECT_EQ(Porta("/tmp/zwprt/r/l.pdf"), 0);  // the port itself is never a link
  // A folder link on the way counts where root made it, not where another user did.
  ASSERT_EQ(symlink("r", "/tmp/zwprt/lr"), 0);
  EXPECT_EQ(Porta("/tmp/zwprt/lr/b.pdf"), 1);
  ASSERT_EQ(symlink("r", "/tmp/zwprt/lu"), 0);
  ASSERT_EQ(lchown("/tmp/zwprt/lu", kNinguem, kNinguem), 0);
  EXPECT_EQ(Porta("/tmp/zwprt/lu/c.pdf"), 0);
  EXPECT_NE(access("/tmp/zwprt/r/c.pdf", F_OK), 0);

  // Missing folders are made root's and closed to others, whatever the umask.
  EXPECT_EQ(FxPrtPdfIns(u"P", u"/tmp/zwprt/novo/sub/p.pdf", u"x"), u"PR_VT_KO");  // no scheduler
  EXPECT_EQ(Modo("/tmp/zwprt/novo"), 0755u);
  EXPECT_EQ(Modo("/tmp/zwprt/novo/sub"), 0755u);
  EXPECT_EQ(Modo("/tmp/zwprt/novo/sub/p.pdf"), 0644u);
  PrtSrvDef(u"");
}
