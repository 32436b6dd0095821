// The data-safe copy of one entry: bytes through the kernel's copy calls into a
// temporary name beside the destination, then mode, owner, times, and a rename
// into place. Nothing here ever opens a source for writing.
#include <fcntl.h>
#include <sys/sendfile.h>
#include <unistd.h>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include "FicGlb.h"
#include "SupShf.h"
#include "SupShfInt.h"

namespace zw::shf {

namespace {
// A name that no other copy uses, in the destination's folder. It starts with a dot
// so that a file manager does not show it while it lives.
std::string NomTmp(const std::string& d) {
  static std::atomic<unsigned> seq{0};
  static const std::string pid = std::to_string(getpid());
  std::string dir = Pasta(d);
  return (dir == "/" ? "" : dir) + "/.zw~" + pid + "~" + std::to_string(++seq) + ".tmp";
}

// Creates the temporary file for d: a new name is tried when one is taken (by a
// process that was forked from this one, say).
int AbreTmp(const std::string& d, std::string& tmp) {
  for (int i = 0; i < 100; i++) {
    tmp = NomTmp(d);
    int fd = open(tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

bool Raiz() {
  static const bool r = geteuid() == 0;
  return r;
}

// Parts of at most this size go to the kernel at a time, so a cancel in the
// progress window is seen within one part of a large file.
constexpr size_t kParte = size_t(16) << 20;

// The bytes of fi to fo: copy_file_range (which lets the file system share or
// clone blocks), then sendfile, then read and write, each tried when the one
// before it cannot serve this pair of files. A file is read to its end, or to the
// size it had when it was opened (no call is spent to find the end of a small file).
int CopDad(int fi, int fo, int64_t tam, const std::string& d, const Avanco& av) {
  int modo = 0;
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
        modo++;
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

// Mode, owner (when the process may give files away) and times of st on fd.
void Marca(int fd, const struct stat& st) {
  if (Raiz()) (void)!fchown(fd, st.st_uid, st.st_gid);
  fchmod(fd, st.st_mode & 07777);
  struct timespec t[2] = {st.st_atim, st.st_mtim};
  futimens(fd, t);
}
}  // namespace

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

int CopFicFd(int fi, const struct stat& st, const std::string& d, const Avanco& av) {
  std::string tmp;
  int fo = AbreTmp(d, tmp);
  if (fo < 0) return FicErrNat(errno, tmp);
  int r = CopDad(fi, fo, st.st_size, d, av);
  if (r == 0) Marca(fo, st);
  if (close(fo) != 0 && r == 0) r = FicErrNat(errno, d);
  if (r == 0 && rename(tmp.c_str(), d.c_str()) != 0) r = errno == EISDIR ? kErrAces : FicErrNat(errno, d);
  if (r != 0) unlink(tmp.c_str());
  return r;
}

int CopLnk(const std::string& o, const struct stat& st, const std::string& d) {
  std::string alvo(size_t(st.st_size > 0 ? st.st_size : PATH_MAX) + 1, '\0');
  ssize_t n = readlink(o.c_str(), alvo.data(), alvo.size());
  if (n < 0) return FicErrNat(errno, o);
  alvo.resize(size_t(n));
  std::string tmp = NomTmp(d);
  if (symlink(alvo.c_str(), tmp.c_str()) != 0) return FicErrNat(errno, tmp);
  if (Raiz()) (void)!lchown(tmp.c_str(), st.st_uid, st.st_gid);
  struct timespec t[2] = {st.st_atim, st.st_mtim};
  utimensat(AT_FDCWD, tmp.c_str(), t, AT_SYMLINK_NOFOLLOW);
  if (rename(tmp.c_str(), d.c_str()) != 0) {
    int r = errno == EISDIR ? kErrAces : FicErrNat(errno, d);
    unlink(tmp.c_str());
    return r;
  }
  return 0;
}

}  // namespace zw::shf

namespace zw {

int ShfFicCop(const Tx& orig, const Tx& dest) {
  int e = 0;
  std::string o = FicNat(orig, &e);
  if (e) return e;
  std::string d = FicNat(dest, &e);
  if (e) return e;
  int fi = open(o.c_str(), O_RDONLY | O_CLOEXEC);
  if (fi < 0) return FicErrNat(errno, o);
  struct stat st, sd;
  int r = 0;
  if (fstat(fi, &st) != 0 || !S_ISREG(st.st_mode))
    r = kErrAces;
  else if (stat(d.c_str(), &sd) == 0 && sd.st_dev == st.st_dev && sd.st_ino == st.st_ino)
    r = -1;  // the same file under another name: nothing to do, and nothing to risk
  else if (lstat(d.c_str(), &sd) == 0 && S_ISDIR(sd.st_mode))
    r = kErrAces;
  else
    r = shf::CopFicFd(fi, st, d, nullptr);
  close(fi);
  return r;
}

}  // namespace zw
