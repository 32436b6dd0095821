// Reading whole files by the system's one rule (FicLer.h), and the notes of what
// was refused or cut.
#include "FicLer.h"
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>

namespace zw {

namespace {
std::function<void(const Tx&)> gLimTrc;
}  // namespace

// Opens without waiting (a pipe with no writer would hold a blocking open), looks
// at what was opened, and reads only a regular file of at most max bytes.
int FicLerNat(const std::string& nat, std::string& b, long long max, bool ler) {
  b.clear();
  if (nat.empty()) return kErrNumFic;
  int fd = open(nat.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (fd < 0) return errno == ENXIO ? kErrAces : FicErrNat(errno, nat);
  struct stat st;
  int e = fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) ? kErrAces : st.st_size > max ? kErrIO : 0;
  if (!e && flock(fd, LOCK_SH | LOCK_NB) != 0) e = kErrPerm;  // a writer holds it
  if (!e && ler) {
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    b.reserve(size_t(st.st_size));
    char buf[65536];
    for (;;) {
      ssize_t r = read(fd, buf, sizeof buf);
      if (r == 0) break;
      if (r < 0) {
        if (errno == EINTR) continue;
        e = kErrIO;
        break;
      }
      b.append(buf, size_t(r));
      if (b.size() > size_t(max)) {  // a file that grows while it is read
        e = kErrIO;
        break;
      }
    }
  }
  close(fd);
  if (e) std::string().swap(b);
  return e;
}

// The path text made Linux's, then read by the same rule.
int FicLer(const Tx& path, std::string& b, long long max) {
  int e = 0;
  std::string n = FicNat(path, &e);
  if (e) {
    b.clear();
    return e;
  }
  return FicLerNat(n, b, max);
}

bool FicNulo(const std::string& nat) {
  struct stat st;
  return stat(nat.c_str(), &st) == 0 && S_ISCHR(st.st_mode) && major(st.st_rdev) == 1 && minor(st.st_rdev) == 3;
}

// The reason in words; a limit is given in MiB, or in bytes below one MiB.
std::string FicLerPorque(int err, long long max) {
  switch (err) {
    case kErrFicNao: case kErrDirNao: return "file not found";
    case kErrPerm: return "permission denied, or held by a writer";
    case kErrAces: return "not a regular file";
    case kErrIO:
      return "larger than " + (max >= (1LL << 20) && max % (1LL << 20) == 0 ? std::to_string(max >> 20) + " MiB"
                                                                             : std::to_string(max) + " bytes") +
             ", or an input/output error";
    case kErrDrv: return "device unavailable";
    case kErrFicMui: return "too many files open";
    default: return "file error " + std::to_string(err);
  }
}

void LimTrcDef(std::function<void(const Tx&)> f) { gLimTrc = std::move(f); }

// To the sink in force, or to stderr as "zunwiz: NOTE".
void LimTrc(const Tx& nota) {
  if (gLimTrc) {
    gLimTrc(nota);
    return;
  }
  std::string s = "zunwiz: " + TxUtf8(nota) + "\n";
  std::fwrite(s.data(), 1, s.size(), stderr);
  std::fflush(stderr);
}

}  // namespace zw
