// Paths on the disk: the Linux path of a path text, types and attributes,
// existence, deleting, copying, renaming, creating folders and listing them.
// Every failure comes back as a file-layer error number, never as an exception.
#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <map>
#include "Ata.h"
#include "DbgFx.h"
#include "FicGlb.h"
#include "PrcExe.h"
#include "SupShf.h"
#include "SupShfInt.h"
#include "SupShfPrg.h"
#include "TxtGlb.h"

namespace zw {

namespace {
std::map<char16_t, Tx>& Drives() {
  static std::map<char16_t, Tx> m{{u'C', u"/"}};
  return m;
}
bool EhSep(char16_t c) { return c == u'\\' || c == u'/'; }

// True when another open file holds this one for writing (see FicAbr).
bool Preso(int fd) {
  if (flock(fd, LOCK_SH | LOCK_NB) != 0) return errno == EWOULDBLOCK;
  flock(fd, LOCK_UN);
  return false;
}

// A regular file with the read-only attribute, the owner's write permission off
// (the mapping of attributes is in SupFsys.h).
bool SoLeitura(const struct stat& st) { return S_ISREG(st.st_mode) && !(st.st_mode & S_IWUSR); }

// Folder and name of a path text at its last "\" or "/".
void DivDsk(const Tx& p, Tx& dir, Tx& nom) {
  size_t i = p.find_last_of(u"\\/");
  if (i == Tx::npos) {
    dir.clear();
    nom = p;
  } else {
    dir = i == 0 ? p.substr(0, 1) : p.substr(0, i);
    nom = p.substr(i + 1);
  }
}

// Windows wildcards, case-blind: "*" any run, "?" one character; "*.*" also matches
// names without a dot, as the file layer's own listing does.
bool Casa(const Tx& pad, size_t i, const Tx& nom, size_t j) {
  while (i < pad.size()) {
    char16_t c = pad[i];
    if (c == u'*') {
      if (pad.compare(i, Tx::npos, u"*.*") == 0) return true;
      for (size_t k = j; k <= nom.size(); k++)
        if (Casa(pad, i + 1, nom, k)) return true;
      return false;
    }
    if (j >= nom.size()) return pad.compare(i, Tx::npos, u".*") == 0 || pad.compare(i, Tx::npos, u".") == 0;
    if (c != u'?' && ChrMai(c) != ChrMai(nom[j])) return false;
    i++, j++;
  }
  return j == nom.size();
}
}  // namespace

void FicDrvMap(char16_t letra, const Tx& dir) {
  letra = ChrMai(letra);
  if (dir.empty())
    Drives().erase(letra);
  else
    Drives()[letra] = dir;
}

std::vector<std::pair<char16_t, Tx>> FicDrvTab() { return {Drives().begin(), Drives().end()}; }

// "X:\a\b" becomes the letter's folder + "/a/b"; "\\srv\share\x" becomes
// "/net/srv/share/x", where the automounter puts the shares of other machines.
std::string FicNat(const Tx& path, int* err) {
  if (err) *err = 0;
  Tx p = path, raiz;
  if (p.size() >= 2 && p[1] == u':' && p[0] < 128 && std::isalpha(int(p[0]))) {
    auto it = Drives().find(ChrMai(p[0]));
    if (it == Drives().end()) {
      if (err) *err = kErrDrv;
      return std::string();
    }
    raiz = it->second;
    p.erase(0, 2);
    while (!p.empty() && EhSep(p[0])) p.erase(0, 1);
    if (!raiz.empty() && !EhSep(raiz.back())) raiz += u'/';
  } else if (p.size() >= 2 && EhSep(p[0]) && EhSep(p[1]) && p.size() > 2 && !EhSep(p[2])) {
    raiz = u"/net/";
    p.erase(0, 2);
  }
  p = raiz + p;
  for (auto& c : p)
    if (c == u'\\') c = u'/';
  return TxUtf8(p);
}

Tx FicDeNat(const std::string& nat) {
  Tx p = TxDeUtf8(nat), r;
  auto sob = [&](const Tx& dir) {  // p is dir or lies below it
    Tx d = dir;
    while (d.size() > 1 && d.back() == u'/') d.pop_back();
    if (d == u"/") return true;
    return p.rfind(d, 0) == 0 && (p.size() == d.size() || p[d.size()] == u'/');
  };
  if (!p.empty() && p[0] == u'/') {
    if (p.rfind(u"/net/", 0) == 0 && p.size() > 5) {
      r = u"\\\\" + p.substr(5);
    } else {
      char16_t letra = 0;
      size_t len = 0;
      for (auto& [l, d] : Drives())
        if (sob(d) && (letra == 0 || d.size() > len)) letra = l, len = d.size();
      if (letra) {
        Tx d = Drives()[letra];
        while (d.size() > 1 && d.back() == u'/') d.pop_back();
        Tx resto = d == u"/" ? p : p.substr(d.size());
        while (!resto.empty() && resto[0] == u'/') resto.erase(0, 1);
        r = Tx(1, letra) + u":\\" + resto;
      } else {
        r = p;
      }
    }
  } else {
    r = p;
  }
  for (auto& c : r)
    if (c == u'/') c = u'\\';
  while (r.size() > 3 && r.back() == u'\\') r.pop_back();
  return r;
}

int FicErrNat(int e, const std::string& nat) {
  switch (e) {
    case ENOENT: {
      std::string d = nat;
      while (d.size() > 1 && d.back() == '/') d.pop_back();
      size_t i = d.rfind('/');
      d = i == std::string::npos ? "." : i == 0 ? "/" : d.substr(0, i);
      struct stat st;
      int sv = errno;  // the look below leaves errno as the caller had it
      bool pasta = stat(d.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
      errno = sv;
      return pasta ? kErrFicNao : kErrDirNao;
    }
    case ENOTDIR: return kErrDirNao;
    case EACCES: case EPERM: case EBUSY: case ETXTBSY: return kErrPerm;
    case EEXIST: return kErrFicExi;
    case ENOSPC: case EDQUOT: return kErrDisco;
    case EMFILE: case ENFILE: return kErrFicMui;
    case EIO: return kErrIO;
    case EXDEV: return kErrDrvRen;
    default: return kErrAces;
  }
}

// Attribute word as the file layer has it: 16 folder, 1 read-only (no write
// permission for this user), 2 hidden (a name that starts with ".").
void FicTipCon(const Tx& path, int& atr, Tx& tip) {
  int e = 0;
  std::string n = FicNat(path, &e);
  struct stat st;
  if (e || n.empty() || stat(n.c_str(), &st) != 0) {
    atr = -1;
    tip = u"?";
    return;
  }
  int a = 0;
  if (S_ISDIR(st.st_mode)) a |= 16;
  if (access(n.c_str(), W_OK) != 0) a |= 1;
  Tx d, nom;
  DivDsk(path, d, nom);
  if (!nom.empty() && nom[0] == u'.' && nom != u"." && nom != u"..") a |= 2;
  atr = a;
  tip = (a & 16) ? u"D" : u"F";
}

void FicTip(const Tx& path, Tx& tip, int& atr) { FicTipCon(path, atr, tip); }

// Deletes files only; "*" and "?" in the name delete every file that matches, and
// no match at all is 53, as for a single missing file. A folder is not a file: 53.
// A wildcard acts on every file of its folder at once, so it is refused (70, and a
// "SHF NEG" line to the progress service) in a folder that FicDirSis protects,
// however the path spells it ("C:\*.*", "\*.*" and "/*.*" are all the root).
void FicEli(const Tx& path, int& res) {
  Tx dir, nom;
  DivDsk(path, dir, nom);
  if (nom.find_first_of(u"*?") != Tx::npos) {
    int e = 0;
    std::string nd = FicNat(dir.empty() ? Tx(u".") : dir, &e);
    if (e) {
      res = e;
      return;
    }
    if (FicDirNeg(nd, true, nom)) {
      res = kErrPerm;
      return;
    }
    std::vector<Tx> noms;
    int n = 0, err = 0;
    DirLisAtr(u"F", 7, dir, nom, noms, nullptr, n, err);
    if (err) {
      res = err;
      return;
    }
    if (n == 0) {
      res = kErrFicNao;
      return;
    }
    res = 0;
    for (int i = 1; i <= n; i++) {
      int r = 0;
      FicEli(dir.empty() ? noms[i] : dir + u"/" + noms[i], r);
      if (r && !res) res = r;
    }
    return;
  }
  int e = 0;
  std::string n = FicNat(path, &e);
  if (e) {
    res = e;
    return;
  }
  struct stat st;
  bool ha = lstat(n.c_str(), &st) == 0;
  if (ha && S_ISDIR(st.st_mode)) {
    res = kErrFicNao;
    return;
  }
  if (ha && SoLeitura(st)) {  // read-only (SupFsys.h): kept, for root too
    res = kErrAces;
    return;
  }
  int fd = open(n.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW);
  bool preso = fd >= 0 && Preso(fd);
  if (fd >= 0) close(fd);
  if (preso) {
    res = kErrPerm;
    return;
  }
  res = AtaFicEli(n) == 0 ? 0 : FicErrNat(errno, n);
}

// The one-file copy of the shell's file operation: the copy is this process's
// user's, with the mode and read-only rules of every copy, and a name planted at the
// destination (a link) is replaced, never written through. The paths are compared
// in capitals first: the same path twice is -1 and nothing moves.
void FicCop(const Tx& orig, const Tx& dest, int& res) {
  res = TxMai(orig) == TxMai(dest) ? -1 : ShfFicCop(orig, dest);
}

// Renames a file or a folder; an existing target is 58 (never overwritten).
void FicRen(const Tx& velho, const Tx& novo, int& res) {
  int e = 0;
  std::string o = FicNat(velho, &e);
  if (e) { res = e; return; }
  std::string d = FicNat(novo, &e);
  if (e) { res = e; return; }
  struct stat st;
  if (lstat(o.c_str(), &st) != 0) {
    res = FicErrNat(errno, o);
    return;
  }
  if (FicDirNeg(o, false)) {
    res = kErrPerm;
    return;
  }
  if (lstat(d.c_str(), &st) == 0) {
    res = kErrFicExi;
    return;
  }
  res = AtaRen(o, d) == 0 ? 0 : FicErrNat(errno, d);
}

// One folder; one that exists already is 75, as the file layer reports it.
void DirCri(const Tx& path, int& res) {
  int e = 0;
  std::string n = FicNat(path, &e);
  if (e) { res = e; return; }
  if (n.empty()) { res = kErrDirNao; return; }
  if (AtaDirCri(n, 0777) == 0) {
    res = 0;
    return;
  }
  res = errno == EEXIST ? kErrAces : FicErrNat(errno, n);
}

// Every level from the top, each the previous one joined with the next piece. A
// failing level does not stop the walk (an existing one fails and passes), and the
// result is the last level's alone. "/" cuts as "\" does; a path that starts at the
// root starts its levels there.
void DirCriTot(const Tx& path, int& res) {
  Tx w = path;
  for (auto& c : w)
    if (c == u'/') c = u'\\';
  bool unc = w.rfind(u"\\\\", 0) == 0;
  if (unc) w.replace(0, 2, u"||");
  std::vector<Tx> p;
  int n = 0;
  TxTokLis(w, u"\\", p, n);
  if (unc && n >= 1) p[1].replace(0, 2, u"\\\\");
  Tx nivel;
  int i = 1;
  if (n >= 1 && p[1].empty()) {
    nivel = FicSep();
    i = 2;
  }
  res = kErrDirNao;
  for (; i <= n; i++) {
    nivel = FicJun(nivel, p[i]);
    DirCri(nivel, res);
  }
}

// The folder of a file path: 0 at once when it exists, else DirCriTot's result.
void DirCriFic(const Tx& path, int& res) {
  Tx dir, nom;
  DivDsk(path, dir, nom);
  if (DirExi(dir) == 1) {
    res = 0;
    return;
  }
  DirCriTot(dir, res);
}

void DirExi(const Tx& path, int& flag) {
  int atr = 0;
  Tx tip;
  FicTipCon(path, atr, tip);
  flag = tip == u"D" ? 1 : 0;
}

int DirExi(const Tx& path) {
  int f = 0;
  DirExi(path, f);
  return f;
}

// Lists folder + pattern, in the order of the names in capitals (the order a
// Windows disk gives). Folders come only with "D" in the types (bit 16), hidden
// names only with bit 2; an entry is kept when its type letter is in the types.
void DirLisAtr(const Tx& tipos, int atr, const Tx& dir, const Tx& padrao, std::vector<Tx>& noms,
               std::vector<int>* atrs, int& n, int& err) {
  noms.assign(1, Tx());
  if (atrs) atrs->assign(1, 0);
  n = 0;
  err = 0;
  if (tipos.find(u'D') != Tx::npos) atr |= 16;
  Tx todo = FicJun(dir, padrao), d, pad;
  DivDsk(todo, d, pad);
  if (padrao.empty()) {
    d = dir;
    pad = u"*";
  }
  int e = 0;
  std::string nd = FicNat(d.empty() ? Tx(u".") : d, &e);
  if (e) {
    err = e;
    return;
  }
  DIR* h = opendir(nd.c_str());
  if (!h) {
    err = FicErrNat(errno, nd);
    if (err == kErrFicNao) err = kErrDirNao;
    return;
  }
  std::vector<Tx> achados;
  errno = 0;
  while (dirent* de = readdir(h)) {
    Tx nom = TxDeUtf8(de->d_name);
    if (nom != u"." && nom != u".." && Casa(pad, 0, nom, 0)) achados.push_back(nom);
    errno = 0;
  }
  if (errno) err = FicErrNat(errno, nd);
  closedir(h);
  std::sort(achados.begin(), achados.end(), [](const Tx& a, const Tx& b) { return TxMai(a) < TxMai(b); });
  for (const Tx& nom : achados) {
    EvtPmp();
    int a = 0;
    Tx tip;
    FicTipCon(d.empty() ? nom : d + u"/" + nom, a, tip);
    if (a > 0 && (a & 16) && !(atr & 16)) continue;
    if (a > 0 && (a & 2) && !(atr & 2)) continue;
    if (tipos.find(tip) == Tx::npos) continue;
    noms.push_back(nom);
    if (atrs) atrs->push_back(a);
    n++;
  }
}

void DirLis(const Tx& tipos, const Tx& dir, const Tx& padrao, std::vector<Tx>& noms, int& n, int& err) {
  DirLisAtr(tipos, 7, dir, padrao, noms, nullptr, n, err);
}

bool FicPadCasa(const Tx& padrao, const Tx& nom) { return Casa(padrao, 0, nom, 0); }

// The folders are compared as the kernel resolves them, so "/lib" finds "/usr/lib"
// where one is a link to the other, and "/tmp/.." is the root; with segue false the
// last name of nat is not resolved, so a link elsewhere that leads to /usr is not
// /usr, while the link /lib itself still counts. The system's list is
// the top folders of the file-system layout, the standard folders of /usr, and the
// folders the library gives scripts as the Windows and system folders (/etc,
// /usr/local/lib); a folder below them (/usr/local/lib/zun) is the installer's.
Tx FicDirSis(const std::string& nat, bool segue) {
  std::string c = shf::Canon(nat.empty() ? std::string(".") : nat);
  if (!segue) {
    std::string p = nat;
    while (p.size() > 1 && p.back() == '/') p.pop_back();
    std::string nom = shf::Nome(p);
    if (!nom.empty() && nom != "." && nom != "..") {
      std::string pai = shf::Canon(shf::Pasta(p));
      c = (pai == "/" ? "" : pai) + "/" + nom;
    }
  }
  if (c == "/") return u"root";
  for (auto& [l, d] : Drives())
    if (TxUtf8(d) == c || shf::Canon(TxUtf8(d)) == c) return u"root";
  static const char* const sis[] = {
      "/bin", "/boot", "/dev", "/etc", "/home", "/lib", "/lib32", "/lib64", "/libx32", "/media", "/mnt",
      "/opt", "/proc", "/root", "/run", "/sbin", "/srv", "/sys", "/usr", "/var", "/usr/bin", "/usr/include",
      "/usr/lib", "/usr/lib32", "/usr/lib64", "/usr/libexec", "/usr/libx32", "/usr/local", "/usr/sbin",
      "/usr/share", "/usr/src", "/usr/local/bin", "/usr/local/lib", "/usr/local/sbin", "/usr/local/share",
      "/var/cache", "/var/lib", "/var/log", "/var/spool"};
  for (const char* d : sis)
    if (c == d || shf::Canon(d) == c) return u"system folder";
  const char* home = std::getenv("HOME");
  if (home && *home && (c == home || shf::Canon(home) == c)) return u"home folder";
  bool casa = false;
  setpwent();
  while (passwd* pw = getpwent())
    if (pw->pw_dir && pw->pw_dir[0] == '/' && (c == pw->pw_dir || shf::Canon(pw->pw_dir) == c)) {
      casa = true;
      break;
    }
  endpwent();
  return casa ? u"home folder" : Tx();
}

bool FicDirNeg(const std::string& nat, bool segue, const Tx& pad) {
  Tx porque = FicDirSis(nat, segue);
  if (porque.empty()) return false;
  Tx t = FicDeNat(segue ? shf::Canon(nat) : nat);
  if (ShfPrg* p = ShfPrgAct()) p->Nota(u"NEG", pad.empty() ? t : FicJun(t, pad), porque);
  return true;
}

// Makes sure a file exists: creates its folder and an empty file when it is
// missing. 1 when the file is there afterwards, 0 otherwise.
void FicCriVaz(const Tx& path, int& res) {
  res = 1;
  if (FicExi(path) == 1) return;
  Tx dir, nom;
  DivDsk(path, dir, nom);
  int r = 0;
  if (!dir.empty()) DirCriTot(dir, r);
  int num = FicNumLiv();
  if (num) {
    FicAbrBin(num, path, r);
    if (r == 1) FicFec(num);
  }
  if (FicExi(path) != 1) res = 0;
}

// Opens a text file in the desktop's editor for text and goes on without waiting
// (see PrcAbr). Errors are ignored; the window style has no meaning there.
void FicVerShl(const Tx& path, int estilo) {
  (void)estilo;
  PrcAbr(path);
}

void FicVerNot(const Tx& path, int estilo) { FicVerShl(path, estilo); }

}  // namespace zw
