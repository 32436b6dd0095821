// The data-safe copy of one entry: bytes through the kernel's copy calls into a
// temporary name beside the destination, then mode and times, and a rename into
// place. The copy belongs to the user who runs the program, as a file that program
// writes does: the source's owner and group are never given to it. Every name is
// taken relative to a folder held open, so the kernel walks one name per call, not
// the whole path; a mode call whose effect creation already made is left out.
// Nothing here ever opens a source for writing.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/sendfile.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <random>
#include "Ata.h"
#include "FicGlb.h"
#include "SupShf.h"
#include "SupShfInt.h"

namespace zw::shf {

namespace {
// A temporary name for the destination's folder that nobody can foresee: twelve
// characters drawn from the kernel's random source (about 71 bits), so that a user
// who may write in a shared destination folder cannot plant the name beforehand.
// It starts with a dot so that a file manager does not show it while it lives.
std::string NomTmp() {
  static const char abc[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  unsigned char b[12];
  ssize_t n;
  do n = getrandom(b, sizeof b, 0);
  while (n < 0 && errno == EINTR);
  if (n != ssize_t(sizeof b)) {  // no getrandom (an old kernel): the library's device
    std::random_device rd;
    for (auto& c : b) c = static_cast<unsigned char>(rd());
  }
  std::string r = ".zw~";
  for (unsigned char c : b) r += abc[c % 62];
  return r + ".tmp";
}

// Creates the temporary file in the folder fdd with the permission bits it will
// keep. The name must be new (never a link or a file that is there already): a
// name that is taken is drawn again.
int AbreTmp(int fdd, mode_t modo, std::string& tmp) {
  for (int i = 0; i < 100; i++) {
    tmp = NomTmp();
    int fd = openat(fdd, tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, modo);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

// The creation mask, as the kernel reports it for this process; -1 when it does
// not. (Reading it with umask() would change it for a moment under other threads.)
int Mascara() {
  FILE* f = std::fopen("/proc/self/status", "re");
  if (!f) return -1;
  char lin[256];
  int m = -1;
  while (std::fgets(lin, sizeof lin, f))
    if (std::sscanf(lin, "Umask: %o", &m) == 1) break;
  std::fclose(f);
  return m;
}

// Parts of at most this size go to the kernel at a time, so a cancel in the
// progress window is seen within one part of a large file.
constexpr size_t kParte = size_t(16) << 20;

// The bytes of fi to fo: copy_file_range (which lets the file system share or
// clone blocks), then sendfile, then read and write, each tried when the one
// before it cannot serve this pair of files; the run starts each file with the
// call that served the last one. A file is read to its end, or to the size it had
// when it was opened (no call is spent to find the end of a small file).
int CopDad(int fi, int fo, int64_t tam, const std::string& d, const Avanco& av, int& modoRun) {
  int modo = modoRun;
  int64_t feito = 0;
  static thread_local char buf[1 << 17];
  for (;;) {
    ssize_t n;
    if (modo == 0) {
      n = copy_file_range(fi, nullptr, fo, nullptr, kParte, 0);
    } else if (modo == 1) {
      n = sendfile(fo, fi, nullptr, kParte);
    } else {
      n = read(fi, buf, sizeof buf);
      if (n > 0) {
        for (ssize_t w = 0; w < n;) {
          ssize_t k = write(fo, buf + w, size_t(n - w));
          if (k < 0) {
            if (errno == EINTR) continue;
            return FicErrNat(errno, d);
          }
          w += k;
        }
      }
    }
    if (n < 0) {
      int e = errno;
      if (e == EINTR) continue;
      if (modo < 2 && feito == 0 &&
          (e == EXDEV || e == ENOSYS || e == EINVAL || e == EOPNOTSUPP || e == EBADF || e == EPERM)) {
        modoRun = ++modo;
        continue;
      }
      return e == EIO && modo == 2 ? kErrIO : FicErrNat(e, d);
    }
    if (n == 0) return 0;
    feito += n;
    if (av && !av(feito)) return -1;
    if (tam > 0 && feito >= tam) return 0;
  }
}

// The mode of the copy and the times of st on a new file of the folder p. The mode
// is only set when the file did not get it at its creation (made with it, less the
// creation mask, unless a default access list of the folder decided).
void Marca(int fd, const struct stat& st, const PstDes& p, const CopCtx& c) {
  mode_t m = c.Modo(st);
  if (p.acl || c.masc < 0 || (m & mode_t(c.masc)) != 0) fchmod(fd, m);
  struct timespec t[2] = {st.st_atim, st.st_mtim};
  futimens(fd, t);
}

// True when another open file holds this one for writing (the file layer's open
// for writing takes an exclusive lock).
bool Retido(const std::string& p) {
  int fd = open(p.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
  if (fd < 0) return false;
  bool r = flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  close(fd);
  return r;
}
}  // namespace

CopCtx::CopCtx() : masc(Mascara()) {}

mode_t CopCtx::Modo(const struct stat& st) const {
  mode_t m = st.st_mode & 0777 & ~(mode_t(masc < 0 ? 022 : masc) & 077);
  return S_ISDIR(st.st_mode) ? m | (st.st_mode & S_ISVTX) : m;
}

PstDes::~PstDes() {
  if (fd >= 0) close(fd);
}

void PstDes::Abre(const std::string& path) {
  int f = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  // A folder that may be written but not listed is still a place to copy into.
  if (f < 0 && errno == EACCES) f = open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  if (f < 0) {
    err = errno;
    return;
  }
  Toma(f);
}

void PstDes::Toma(int f) {
  fd = f;
  // With a default access list the mode of a new file is not the mask's; unknown
  // (the call is refused) counts as one.
  acl = fgetxattr(f, "system.posix_acl_default", nullptr, 0) >= 0 || (errno != ENODATA && errno != EOPNOTSUPP);
}

void PstDes::Herda(const PstDes& pai, int f) {
  fd = f;
  acl = pai.acl;
}

void Divide(const Tx& p, Tx& dir, Tx& nom) {
  size_t i = p.find_last_of(u"\\/");
  dir = i == Tx::npos ? Tx() : p.substr(0, i == 0 ? 1 : i);
  nom = i == Tx::npos ? p : p.substr(i + 1);
}

bool Curinga(const Tx& nom) { return nom.find_first_of(u"*?") != Tx::npos; }

std::string Pasta(const std::string& p) {
  size_t i = p.rfind('/');
  if (i == std::string::npos) return ".";
  return i == 0 ? "/" : p.substr(0, i);
}

std::string Nome(const std::string& p) {
  size_t i = p.rfind('/');
  return i == std::string::npos ? p : p.substr(i + 1);
}

std::string Canon(const std::string& p) {
  char buf[PATH_MAX];
  if (realpath(p.c_str(), buf)) return buf;
  std::string dir = Pasta(p), nom = Nome(p);
  if (dir == p || p.empty()) return p;
  std::string c = Canon(dir);
  if (nom.empty() || nom == ".") return c;
  if (nom == "..") return Pasta(c);
  return (c == "/" ? "" : c) + "/" + nom;
}

int CopFic(int fi, const struct stat& st, const PstDes& p, const std::string& nom, const std::string& d,
           const Avanco& av, CopCtx& c) {
  if (p.fd < 0) return FicErrNat(errno = p.err, d);
  std::string tmp;
  int fo = AbreTmp(p.fd, c.Modo(st), tmp);
  if (fo < 0) return FicErrNat(errno, d);
  int r = CopDad(fi, fo, st.st_size, d, av, c.modo);
  if (r == 0) Marca(fo, st, p, c);
  if (close(fo) != 0 && r == 0) r = FicErrNat(errno, d);
  AtaAnt a = r == 0 ? AtaAntes(p.fd, nom) : AtaAnt();  // what the rename takes the place of
  if (r == 0 && renameat(p.fd, tmp.c_str(), p.fd, nom.c_str()) != 0) r = errno == EISDIR ? kErrAces : FicErrNat(errno, d);
  if (r != 0) {
    int e = errno;  // the failure's cause, for callers that read it
    unlinkat(p.fd, tmp.c_str(), 0);
    if (!a.guardado.empty()) unlink(a.guardado.c_str());
    errno = e;
  } else {
    AtaEscrito(a, d);
  }
  return r;
}

int CopLnk(int fdo, const std::string& nomO, const std::string& o, const struct stat& st, const PstDes& p,
           const std::string& nom, const std::string& d) {
  std::string alvo(size_t(st.st_size > 0 ? st.st_size : PATH_MAX) + 1, '\0');
  ssize_t n = readlinkat(fdo, nomO.c_str(), alvo.data(), alvo.size());
  if (n < 0) return FicErrNat(errno, o);
  alvo.resize(size_t(n));
  if (p.fd < 0) return FicErrNat(p.err, d);
  std::string tmp;
  for (int i = 0;; i++) {
    tmp = NomTmp();
    if (symlinkat(alvo.c_str(), p.fd, tmp.c_str()) == 0) break;
    if (errno != EEXIST || i == 99) return FicErrNat(errno, d);
  }
  struct timespec t[2] = {st.st_atim, st.st_mtim};
  utimensat(p.fd, tmp.c_str(), t, AT_SYMLINK_NOFOLLOW);
  AtaAnt a = AtaAntes(p.fd, nom);
  if (renameat(p.fd, tmp.c_str(), p.fd, nom.c_str()) != 0) {
    int r = errno == EISDIR ? kErrAces : FicErrNat(errno, d);
    unlinkat(p.fd, tmp.c_str(), 0);
    if (!a.guardado.empty()) unlink(a.guardado.c_str());
    return r;
  }
  AtaEscrito(a, d);
  return 0;
}

}  // namespace zw::shf

namespace zw {

namespace {
// The one-file copy on Linux paths: 0 or the file layer's number, with eno the
// cause: the errno of the call that failed, or the one that stands for a refusal
// of the copy's own (EEXIST the same file, ENOTSUP a source that is no regular
// file, EISDIR a folder in the way, EACCES read-only, not the user's to write, or
// held by a writer).
int CopUm(const std::string& o, const std::string& d, int& eno) {
  // Without waiting for a writer when the source is a pipe (which is then refused).
  int fi = open(o.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fi < 0) {
    eno = errno;
    return FicErrNat(eno, o);
  }
  struct stat st, sd, ld;
  bool ha = stat(d.c_str(), &sd) == 0;
  int r = 0;
  if (fstat(fi, &st) != 0 || !S_ISREG(st.st_mode))
    r = kErrAces, eno = ENOTSUP;
  else if (ha && sd.st_dev == st.st_dev && sd.st_ino == st.st_ino)
    r = -1, eno = EEXIST;  // the same file under another name: nothing to do, and nothing to risk
  else if (lstat(d.c_str(), &ld) == 0 && S_ISDIR(ld.st_mode))
    r = kErrAces, eno = EISDIR;
  else if (ha && S_ISREG(sd.st_mode) && !(sd.st_mode & S_IWUSR))
    r = kErrAces, eno = EACCES;  // a read-only file is not replaced, as the file layer's copy does not
  else if (ha && S_ISREG(sd.st_mode) && faccessat(AT_FDCWD, d.c_str(), W_OK, AT_EACCESS) != 0)
    eno = errno, r = FicErrNat(eno, d);  // nor one this user may not write (another's, say)
  else if (ha && shf::Retido(d))
    r = kErrPerm, eno = EACCES;  // nor one that a writer holds
  else {
    shf::PstDes p;
    p.Abre(shf::Pasta(d));
    shf::CopCtx c;
    r = shf::CopFic(fi, st, p, shf::Nome(d), d, nullptr, c);
    eno = errno;
  }
  close(fi);
  return r;
}
}  // namespace

int ShfFicCop(const Tx& orig, const Tx& dest) {
  int e = 0;
  std::string o = FicNat(orig, &e);
  if (e) return e;
  std::string d = FicNat(dest, &e);
  if (e) return e;
  int eno = 0;
  return CopUm(o, d, eno);
}

int FicCopNat(const std::string& orig, const std::string& dest) {
  int eno = 0;
  if (CopUm(orig, dest, eno) == 0) return 0;
  errno = eno;
  return -1;
}

}  // namespace zw
