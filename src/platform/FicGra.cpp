// Safe writing: a temporary file renamed over the original, in-place rewriting
// with the old bytes kept for hard links, appends cut back on failure.
#include "FicGra.h"
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdlib>
#include "FicGlb.h"

namespace zw {

namespace {

// A write past a file-size limit (ulimit -f) must be an error to report, not a
// signal that ends the program with a temporary file left behind.
void SemSinalTam() {
  static bool feito = false;
  if (!feito) signal(SIGXFSZ, SIG_IGN), feito = true;
}

int ErrGra(int e) {
  if (e == ENOSPC || e == EDQUOT || e == EFBIG) return kErrDisco;
  return kErrIO;
}

std::string Pasta(const std::string& p) {
  size_t i = p.rfind('/');
  return i == std::string::npos ? "." : i == 0 ? "/" : p.substr(0, i);
}

// The file a path stands for: symbolic links followed, a relative target taken
// from the link's folder. A loop of links ends after 40 steps, as the system's own.
std::string Alvo(std::string p) {
  for (int i = 0; i < 40; i++) {
    struct stat l;
    if (lstat(p.c_str(), &l) != 0 || !S_ISLNK(l.st_mode)) return p;
    std::string t(size_t(l.st_size > 0 ? l.st_size : 4096) + 1, '\0');
    ssize_t n = readlink(p.c_str(), t.data(), t.size());
    if (n <= 0) return p;
    t.resize(size_t(n));
    p = t[0] == '/' ? t : Pasta(p) + "/" + t;
  }
  return p;
}

int GravaTudo(int fd, std::string_view b, off_t pos = -1) {
  for (size_t w = 0; w < b.size();) {
    ssize_t k = pos < 0 ? write(fd, b.data() + w, b.size() - w) : pwrite(fd, b.data() + w, b.size() - w, pos + off_t(w));
    if (k < 0) {
      if (errno == EINTR) continue;
      return ErrGra(errno);
    }
    w += size_t(k);
  }
  return 0;
}

// Makes what was renamed into a folder survive a crash of the machine.
void SincPasta(const std::string& p) {
  int d = open(Pasta(p).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (d >= 0) fsync(d), close(d);
}

}  // namespace

FicGra::~FicGra() {
  if (hold_ >= 0) Desiste();
}

int FicGra::Abre(const std::string& nat, char modo) {
  if (hold_ >= 0) return kErrFicAbe;
  SemSinalTam();
  Limpa();
  modo_ = modo;
  alvo_ = Alvo(nat);
  struct stat st;
  for (int tentativa = 0; hold_ < 0 && tentativa < 2; tentativa++) {
    if (stat(alvo_.c_str(), &st) == 0) {
      if (!S_ISREG(st.st_mode)) return kErrAces;
      hold_ = open(alvo_.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY);
      if (hold_ < 0 && errno == EACCES) hold_ = open(alvo_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
      if (hold_ < 0) return FicErrNat(errno, alvo_);
    } else {
      hold_ = open(alvo_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (hold_ < 0 && errno == EEXIST) continue;  // made meanwhile: open what is there
      if (hold_ < 0) return errno == EISDIR ? kErrAces : FicErrNat(errno, alvo_);
      novo_ = true;
    }
  }
  if (hold_ < 0) return kErrAces;
  auto Falha = [&](int e) {
    close(hold_);
    if (novo_) unlink(alvo_.c_str());
    Limpa();
    return e;
  };
  if (flock(hold_, LOCK_EX | LOCK_NB) != 0) return Falha(kErrPerm);
  if (fstat(hold_, &st) != 0 || !S_ISREG(st.st_mode)) return Falha(kErrAces);
  tam0_ = int64_t(st.st_size);
  if (modo == 'A') {
    lseek(hold_, 0, SEEK_END);
    return 0;
  }
  if (st.st_nlink > 1) {
    memoria_ = true;
    return 0;
  }
  size_t b = alvo_.rfind('/');
  std::string nome = b == std::string::npos ? alvo_ : alvo_.substr(b + 1);
  tmpNom_ = Pasta(alvo_) + "/." + nome + ".zw-XXXXXX";
  tmp_ = mkostemp(tmpNom_.data(), O_CLOEXEC);
  if (tmp_ < 0) {
    // A folder where no new name may be made: the file is rewritten in place.
    tmpNom_.clear();
    memoria_ = true;
    return 0;
  }
  // Owner and group first: a change of owner may clear the mode's special bits.
  if (!novo_ && fchown(tmp_, st.st_uid, st.st_gid) != 0) {
    // kept as created where the process may not give the file away
  }
  fchmod(tmp_, st.st_mode & 07777);
  return 0;
}

int FicGra::Grava(std::string_view b) {
  if (hold_ < 0) return kErrNumFic;
  if (erro_) return erro_;
  if (memoria_) {
    buf_.append(b);
    return 0;
  }
  int e = GravaTudo(modo_ == 'A' ? hold_ : tmp_, b);
  if (e) {
    erro_ = e;
    if (modo_ == 'A' && ftruncate(hold_, off_t(tam0_)) != 0) {
      // the length could not be put back; the error still goes to the caller
    }
  }
  return e;
}

void FicGra::Desiste() { Acaba(true); }

void FicGra::Limpa() {
  modo_ = 0;
  hold_ = tmp_ = -1;
  novo_ = memoria_ = false;
  erro_ = 0;
  tam0_ = 0;
  alvo_.clear(), tmpNom_.clear(), buf_.clear();
}

int FicGra::Fecha() { return Acaba(false); }

// The end of a write: the new content put in place, or everything taken back.
int FicGra::Acaba(bool desiste) {
  if (hold_ < 0) return kErrNumFic;
  int e = desiste ? kErrIO : erro_;
  if (modo_ == 'A') {
    if (e) (void)!ftruncate(hold_, off_t(tam0_));
  } else if (memoria_) {
    // The old bytes are read first, so that a rewrite that fails can put them back.
    std::string velho;
    if (!e) {
      velho.resize(size_t(tam0_));
      ssize_t n = tam0_ ? pread(hold_, velho.data(), velho.size(), 0) : 0;
      if (n != ssize_t(tam0_)) e = n < 0 && errno == EBADF ? kErrPerm : kErrIO;
    }
    if (!e) {
      e = GravaTudo(hold_, buf_, 0);
      if (!e && ftruncate(hold_, off_t(buf_.size())) != 0) e = ErrGra(errno);
      if (!e && fsync(hold_) != 0) e = ErrGra(errno);
      if (e) {
        GravaTudo(hold_, velho, 0);
        (void)!ftruncate(hold_, off_t(tam0_));
      }
    }
  } else {
    if (!e && fsync(tmp_) != 0) e = ErrGra(errno);
    if (close(tmp_) != 0 && !e) e = ErrGra(errno);
    tmp_ = -1;
    if (!e && rename(tmpNom_.c_str(), alvo_.c_str()) != 0) e = FicErrNat(errno, alvo_);
    if (e) unlink(tmpNom_.c_str());
    else SincPasta(alvo_);
  }
  if (e && novo_) unlink(alvo_.c_str());
  if (close(hold_) != 0 && !e && modo_ == 'A') e = ErrGra(errno);
  Limpa();
  return desiste ? 0 : e;
}

}  // namespace zw
