// Copies and deletes run as root, inside the throwaway copy of the machine
// (tests/support/caixa.sh): copies from a folder that another user owns belong to
// root with the source's mode less the creation mask, and deletes of many entries
// stop at the root, the folders of the system and the homes, with files planted in
// / and /etc to prove it.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include "Caixa.h"
#include "FicGlb.h"
#include "SupShf.h"
#include "SupShfPrg.h"

using namespace zw;

namespace {

constexpr uid_t kUsr = 1234;  // a user who owns the source; no account needed

void Escreve(const std::string& p, const std::string& b) { std::ofstream(p, std::ios::binary) << b; }
std::string Le(const std::string& p) {
  std::ifstream f(p, std::ios::binary);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}
bool Existe(const std::string& p) {
  struct stat st;
  return lstat(p.c_str(), &st) == 0;
}

// The source of an installation, all of it owned by the user kUsr: files of every
// usual mode, one set-user and one set-group program, a world-writable folder and a
// link.
const std::pair<const char*, mode_t> kModos[] = {{"a", 0644}, {"p", 0755}, {"w", 0666}, {"x", 0777},
                                                 {"s", 04755}, {"g", 02755}, {"sub/f", 0664}};

std::string Fonte() {
  char t[] = "/tmp/zwraizXXXXXX";
  std::string d = mkdtemp(t);
  std::string o = d + "/org";
  mkdir(o.c_str(), 0777);
  mkdir((o + "/sub").c_str(), 0777);
  for (auto& [n, m] : kModos) {
    Escreve(o + "/" + n, n);
    chmod((o + "/" + n).c_str(), m);
    EXPECT_EQ(chown((o + "/" + n).c_str(), kUsr, kUsr), 0);
  }
  (void)!symlink("a", (o + "/lnk").c_str());
  (void)!lchown((o + "/lnk").c_str(), kUsr, kUsr);
  chmod(o.c_str(), 0777);
  chmod((o + "/sub").c_str(), 0777);
  (void)!chown(o.c_str(), kUsr, kUsr);
  (void)!chown((o + "/sub").c_str(), kUsr, kUsr);
  return d;
}

}  // namespace

// Under the masks 022, 077 and 0, a folder copy, the one-file copy and the file
// layer's copy give files of root's, with the source's mode less the mask, never a
// set-user or set-group bit; a file of the user's that stood at the destination is
// replaced by one of root's.
TEST(RaizShf, CopiesBelongToRootWithTheMaskedMode) {
  ZW_NA_CAIXA();
  std::string d = Fonte(), o = d + "/org";
  for (mode_t masc : {mode_t(022), mode_t(077), mode_t(0)}) {
    std::string dest = d + "/m" + std::to_string(masc);
    mkdir(dest.c_str(), 0755);
    Escreve(dest + "/a", "do utilizador");
    chmod((dest + "/a").c_str(), 0666);
    (void)!chown((dest + "/a").c_str(), kUsr, kUsr);
    Escreve(dest + "/um", "do utilizador");
    (void)!chown((dest + "/um").c_str(), kUsr, kUsr);
    mode_t velha = umask(masc);
    SupShf s;
    int r = 0;
    s.FxCopDfi(TxDeUtf8(o), TxDeUtf8(dest), r);
    int r1 = ShfFicCop(TxDeUtf8(o + "/x"), TxDeUtf8(dest + "/um"));
    int r2 = 0;
    FicCop(TxDeUtf8(o + "/s"), TxDeUtf8(dest + "/dois"), r2);
    umask(velha);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(r1, 0);
    EXPECT_EQ(r2, 0);
    struct stat st;
    for (auto& [n, m] : kModos) {
      std::string c = dest + "/" + n;
      ASSERT_EQ(lstat(c.c_str(), &st), 0) << c;
      EXPECT_EQ(st.st_uid, 0u) << c;
      EXPECT_EQ(st.st_gid, getegid()) << c;
      EXPECT_EQ(st.st_mode & 07777, m & 0777 & ~masc) << c << " mask " << std::oct << masc;
      EXPECT_EQ(Le(c), n);
    }
    lstat((dest + "/sub").c_str(), &st);
    EXPECT_EQ(st.st_uid, 0u);
    EXPECT_EQ(st.st_mode & 07777, 0777 & ~masc) << "mask " << std::oct << masc;
    lstat((dest + "/lnk").c_str(), &st);
    EXPECT_TRUE(S_ISLNK(st.st_mode));
    EXPECT_EQ(st.st_uid, 0u);
    lstat((dest + "/um").c_str(), &st);
    EXPECT_EQ(st.st_uid, 0u);
    EXPECT_EQ(st.st_mode & 07777, 0777 & ~masc);
    lstat((dest + "/dois").c_str(), &st);
    EXPECT_EQ(st.st_uid, 0u);
    EXPECT_EQ(st.st_mode & 07777, 0755 & ~masc);  // the set-user bit is gone
  }
  (void)!std::system(("rm -rf '" + d + "'").c_str());
}

// Files planted in / and /etc survive a wildcard delete of the root in its three
// spellings, of a pattern there, and of a folder of the system; each refusal is
// 70 with one "SHF NEG" line that names the same place. The shell's tree deletes
// and moves refuse the root, /usr, /etc, /opt and the link /lib alike.
TEST(RaizShf, DeletesStopAtTheRootAndTheSystem) {
  ZW_NA_CAIXA();
  const std::string plantados[] = {"/zwcaixa-a.txt", "/zwcaixa-b.tmp", "/etc/zwcaixa.conf"};
  for (auto& p : plantados) Escreve(p, "plantado");
  (void)!symlink("/zwcaixa-a.txt", "/zwcaixa-lnk");
  std::vector<Tx> lin;
  ShfPrgLin prg([&](const Tx& l) { lin.push_back(l); });
  ShfPrgDef(&prg);
  for (const char16_t* pad : {u"C:\\*.*", u"\\*.*", u"/*.*"}) {
    int r = 0;
    FicEli(pad, r);
    EXPECT_EQ(r, kErrPerm) << TxUtf8(pad);
  }
  ASSERT_EQ(lin.size(), 3u);
  for (auto& l : lin) EXPECT_EQ(l, u"SHF NEG C:\\*.* (root)");
  int r = 0;
  FicEli(u"C:\\*.tmp", r);
  EXPECT_EQ(r, kErrPerm);
  FicEli(u"C:\\etc\\*.conf", r);
  EXPECT_EQ(r, kErrPerm);
  EXPECT_EQ(lin.back(), u"SHF NEG C:\\etc\\*.conf (system folder)");
  // The box shares /dev, /proc and /sys with the machine: no delete here may walk
  // down from the root should it be let through, so the root of the shell's run is
  // asked for its files only (the plain root is the mapped drive's test, Shf).
  SupShf s;
  s.AspExe(0, 0);
  for (const char16_t* p : {u"C:\\usr", u"/etc/", u"C:\\lib", u"\\opt", u"C:\\root"}) {
    s.FxEli(p, r);
    EXPECT_EQ(s.ErrNum(), kErrPerm) << TxUtf8(p);
  }
  s.FxLpzDir(u"C:\\etc", r);
  EXPECT_EQ(s.ErrNum(), kErrPerm);
  s.FxMov(u"C:\\usr", u"C:\\tmp\\usr", r);
  EXPECT_EQ(s.ErrNum(), kErrPerm);
  s.IncludeDirectories = false;
  s.FxEli(u"C:\\*.*", r);
  EXPECT_EQ(s.ErrNum(), kErrPerm);
  s.IncludeDirectories = true;
  EXPECT_EQ(FicDirSis("/", false), u"root");
  ShfPrgDef(nullptr);
  for (auto& p : plantados) EXPECT_EQ(Le(p), "plantado") << p;
  EXPECT_TRUE(Existe("/zwcaixa-lnk"));
  EXPECT_TRUE(Existe("/usr/bin/sh"));
  EXPECT_TRUE(Existe("/lib"));
  // A file named alone is the installer's to delete, at the top too; so is a link
  // elsewhere that leads to a folder of the system.
  FicEli(u"C:\\zwcaixa-a.txt", r);
  EXPECT_EQ(r, 0);
  (void)!symlink("/usr", "/tmp/zwcaixa-usr");
  s.FxEli(u"C:\\tmp\\zwcaixa-usr", r);
  EXPECT_EQ(r, 1);
  EXPECT_TRUE(Existe("/usr/bin/sh"));
}

// A rename takes no folder of the system away: 70 with an "SHF NEG" line, the
// folder where it was; a folder of the installer's is renamed as before.
TEST(RaizShf, RenamesLeaveTheSystemsFolders) {
  ZW_NA_CAIXA();
  std::vector<Tx> lin;
  ShfPrgLin prg([&](const Tx& l) { lin.push_back(l); });
  ShfPrgDef(&prg);
  // Made here, so that the box's file system could rename it (a folder of the
  // machine's own layer is another device to it); the link /lib may be renamed too.
  mkdir("/libx32", 0755);
  int r = 0;
  FicRen(u"C:\\libx32", u"C:\\zwlibx32", r);
  EXPECT_EQ(r, kErrPerm);
  FicRen(u"/lib", u"/zwlib", r);
  EXPECT_EQ(r, kErrPerm);
  ShfPrgDef(nullptr);
  ASSERT_EQ(lin.size(), 2u);
  EXPECT_EQ(lin[0], u"SHF NEG C:\\libx32 (system folder)");
  EXPECT_TRUE(Existe("/libx32"));
  EXPECT_TRUE(Existe("/lib"));
  EXPECT_FALSE(Existe("/zwlibx32"));
  EXPECT_FALSE(Existe("/zwlib"));
  mkdir("/usr/local/lib/zwren", 0755);
  FicRen(u"C:\\usr\\local\\lib\\zwren", u"C:\\usr\\local\\lib\\zwren2", r);
  EXPECT_EQ(r, 0);
  EXPECT_TRUE(Existe("/usr/local/lib/zwren2"));
  rmdir("/usr/local/lib/zwren2");
}
