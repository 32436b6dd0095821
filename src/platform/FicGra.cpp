// Safe writing: a temporary file renamed over the original, in-place rewriting
// with the old bytes kept for hard links, appends cut back on failure.
#include "FicGra.h"
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <vector>
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

// Random letters and digits for a temporary name. The system's random source
// first; should it fail, the clock and the process id mixed, which still varies.
std::string Sorteio(size_t n) {
  static const char kAlf[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  unsigned char b[64];
  if (n > sizeof b) n = sizeof b;
  if (getrandom(b, n, GRND_NONBLOCK) != ssize_t(n)) {
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    uint64_t x = uint64_t(t.tv_nsec) ^ uint64_t(t.tv_sec) << 30 ^ uint64_t(getpid()) << 17;
    for (size_t i = 0; i < n; i++) x = x * 6364136223846793005ull + 1442695040888963407ull, b[i] = uint8_t(x >> 33);
  }
  std::string r(n, 'x');
  for (size_t i = 0; i < n; i++) r[i] = kAlf[b[i] % (sizeof kAlf - 1)];
  return r;
}

// The names of a path, without empty ones and ".".
std::vector<std::string> Partes(const std::string& p) {
  std::vector<std::string> r;
  for (size_t i = 0; i <= p.size();) {
    size_t j = p.find('/', i);
    if (j == std::string::npos) j = p.size();
    std::string c = p.substr(i, j - i);
    if (!c.empty() && c != ".") r.push_back(c);
    i = j + 1;
  }
  return r;
}

// The path of the name c in the folder held open as d, for the install record:
// the folder as the kernel names it, else c alone.
std::string CamFd(int d, const std::string& c) {
  char b[4096];
  ssize_t n = readlink(("/proc/self/fd/" + std::to_string(d)).c_str(), b, sizeof b - 1);
  if (n <= 0) return c;
  std::string s(b, size_t(n));
  return (s == "/" ? "" : s) + "/" + c;
}

}  // namespace

int DirPaiAbr(const std::string& p, std::string& nome, const DirPaiOpc& o) {
  std::vector<std::string> ps = Partes(p);
  if (p.empty() || p[0] != '/' || ps.empty() || ps.back() == "..") {
    errno = EINVAL;
    return -1;
  }
  nome = ps.back();
  ps.pop_back();
  std::deque<std::string> fila(ps.begin(), ps.end());
  int d = open("/", O_PATH | O_DIRECTORY | O_CLOEXEC);
  std::vector<int> pilha;  // the folders above, for ".."
  auto Larga = [&](int e) {
    if (d >= 0) close(d);
    for (int x : pilha) close(x);
    errno = e;
    return -1;
  };
  auto Aceita = [&](bool ultimo) {
    struct stat sd;
    return !o.ver || (fstat(d, &sd) == 0 && o.ver(sd, ultimo));
  };
  int saltos = 0;
  while (!fila.empty() && d >= 0) {
    if (!Aceita(false)) return Larga(EACCES);
    std::string c = fila.front();
    fila.pop_front();
    if (c == "..") {
      if (!pilha.empty()) close(d), d = pilha.back(), pilha.pop_back();
      continue;
    }
    struct stat st, pd;
    if (fstatat(d, c.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) {
      if (errno != ENOENT || !o.criar) return Larga(errno);
      if (mkdirat(d, c.c_str(), o.criar) == 0) AtaPstCri(CamFd(d, c));
      else if (errno != EEXIST) return Larga(errno);
      if (fstatat(d, c.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) return Larga(errno);
    }
    if (S_ISLNK(st.st_mode)) {
      if (++saltos > 40 || (st.st_uid != geteuid() && st.st_uid != 0) || fstat(d, &pd) != 0 || !DirCnf(pd))
        return Larga(ELOOP);
      std::string t(size_t(st.st_size > 0 ? st.st_size : 4096) + 1, '\0');
      ssize_t n = readlinkat(d, c.c_str(), t.data(), t.size());
      if (n <= 0) return Larga(ELOOP);
      t.resize(size_t(n));
      std::vector<std::string> q = Partes(t);
      fila.insert(fila.begin(), q.begin(), q.end());
      if (t[0] == '/') {
        close(d);
        for (int x : pilha) close(x);
        pilha.clear();
        d = open("/", O_PATH | O_DIRECTORY | O_CLOEXEC);
      }
      continue;
    }
    if (!S_ISDIR(st.st_mode)) return Larga(ENOTDIR);
    int s = openat(d, c.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (s < 0) return Larga(errno);
    pilha.push_back(d);
    d = s;
  }
  if (d < 0) return Larga(errno);
  if (!Aceita(true)) return Larga(EACCES);
  for (int x : pilha) close(x);
  return d;
}

int FicCriNov(const std::string& nat, int flags, mode_t modo) {
  return open(nat.c_str(), flags | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY, modo);
}

int FicCriAta(const std::string& nat, int flags, mode_t modo) {
  int fd = FicCriNov(nat, flags, modo);
  if (fd >= 0) AtaEscrito(AtaAnt(), nat, fd);
  return fd;
}

int FicTmpCri(const std::string& nat, std::string& nome) {
  size_t b = nat.rfind('/');
  std::string base = Pasta(nat) + "/." + (b == std::string::npos ? nat : nat.substr(b + 1)) + ".zw-";
  for (int i = 0; i < 100; i++) {
    nome = base + Sorteio(12);
    int fd = FicCriNov(nome, O_RDWR, 0600);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  errno = EEXIST;
  return -1;
}

bool DirCnf(const struct stat& d) {
  uid_t eu = geteuid();
  if (d.st_uid != eu && d.st_uid != 0) return false;
  return !(d.st_mode & (S_IWGRP | S_IWOTH)) || (d.st_mode & S_ISVTX);
}

bool FicLnkCnf(const std::string& nat, const struct stat& l) {
  if (l.st_uid != geteuid() && l.st_uid != 0) return false;
  struct stat d;
  return stat(Pasta(nat).c_str(), &d) == 0 && DirCnf(d);
}

// Links are taken one at a time, so that each is judged where it stands; a loop
// of links ends after 40 steps, as the system's own.
int FicAlvo(const std::string& nat, std::string& alvo) {
  std::string p = nat;
  for (int i = 0; i < 40; i++) {
    struct stat l;
    if (lstat(p.c_str(), &l) != 0 || !S_ISLNK(l.st_mode)) {
      alvo = p;
      return 0;
    }
    if (!FicLnkCnf(p, l)) return kErrPerm;
    std::string t(size_t(l.st_size > 0 ? l.st_size : 4096) + 1, '\0');
    ssize_t n = readlink(p.c_str(), t.data(), t.size());
    if (n <= 0) {
      alvo = p;
      return 0;
    }
    t.resize(size_t(n));
    p = t[0] == '/' ? t : Pasta(p) + "/" + t;
  }
  return kErrAces;
}

// Each missing level from the top down, so that every folder made gets the mode.
int DirCriMod(const std::string& nat, mode_t modo) {
  if (nat.empty()) return kErrDirNao;
  struct stat st;
  if (stat(nat.c_str(), &st) == 0) return S_ISDIR(st.st_mode) ? 0 : kErrAces;
  std::string p = nat;
  while (p.size() > 1 && p.back() == '/') p.pop_back();
  std::string pai = Pasta(p);
  if (pai != p && pai != "." && pai != "/") {
    if (int e = DirCriMod(pai, modo)) return e;
  }
  if (AtaDirCri(p, modo) != 0 && errno != EEXIST) return FicErrNat(errno, p);
  return stat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode) ? 0 : kErrAces;
}

int DirPrv(const std::string& nat, mode_t modo) {
  std::string pai = Pasta(nat);
  if (int e = DirCriMod(pai, modo)) return e;
  if (AtaDirCri(nat, modo) != 0 && errno != EEXIST) return FicErrNat(errno, nat);
  struct stat st;
  if (lstat(nat.c_str(), &st) != 0) return FicErrNat(errno, nat);
  if (!S_ISDIR(st.st_mode) || st.st_uid != geteuid() || (st.st_mode & (S_IWGRP | S_IWOTH))) return kErrPerm;
  return 0;
}

FicGra::~FicGra() {
  if (hold_ >= 0) Desiste();
}

// With a record, the original's mode and owner are kept for its line, and an
// append keeps its copy now, before the first byte is written to it.
int FicGra::Abre(const std::string& nat, char modo, mode_t novo) {
  int e = AbreInt(nat, modo, novo);
  ant_ = AtaAnt();
  struct stat st;
  if (e || !ata || !AtaLig() || novo_ || fstat(hold_, &st) != 0) return e;
  ant_.ha = ant_.reg = true;
  ant_.modo = st.st_mode;
  ant_.uid = st.st_uid;
  ant_.gid = st.st_gid;
  if (modo_ == 'A') Guarda();
  return 0;
}

// The kept copy of the original's content, when the record keeps copies.
void FicGra::Guarda() {
  Ata* r = AtaAct();
  if (r && ant_.ha && r->Guarda()) ant_.guardado = r->Guarda(hold_, tam0_, alvo_);
}

int FicGra::AbreInt(const std::string& nat, char modo, mode_t novo) {
  if (hold_ >= 0) return kErrFicAbe;
  SemSinalTam();
  Limpa();
  modo_ = modo;
  if (int e = FicAlvo(nat, alvo_)) {
    Limpa();
    return e;
  }
  // The target is opened without following a link: one put there after the look
  // above is refused rather than written through.
  struct stat st;
  for (int tentativa = 0; hold_ < 0 && tentativa < 2; tentativa++) {
    if (lstat(alvo_.c_str(), &st) == 0) {
      if (S_ISLNK(st.st_mode)) return kErrPerm;
      if (!S_ISREG(st.st_mode)) return kErrAces;
      hold_ = open(alvo_.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW);
      if (hold_ < 0 && errno == EACCES) hold_ = open(alvo_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW);
      if (hold_ < 0) return errno == ELOOP ? kErrPerm : FicErrNat(errno, alvo_);
    } else {
      hold_ = FicCriNov(alvo_, O_RDWR, novo);
      if (hold_ < 0 && errno == EEXIST) continue;  // made meanwhile: look again
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
  // Other names of the file count only where no one else could have made them:
  // a sticky folder does not do, since a second name carries the file's owner, not
  // the one who made it.
  bool ligado = false;
  if (st.st_nlink > 1) {
    struct stat d;
    ligado = stat(Pasta(alvo_).c_str(), &d) == 0 && DirCnf(d) && !(d.st_mode & (S_IWGRP | S_IWOTH));
    if (!ligado && modo == 'A') return Falha(kErrPerm);
  }
  if (modo == 'A') {
    lseek(hold_, 0, SEEK_END);
    return 0;
  }
  if (ligado) {
    memoria_ = true;
    return 0;
  }
  tmp_ = FicTmpCri(alvo_, tmpNom_);
  if (tmp_ < 0) {
    tmpNom_.clear();
    // A folder where no new name may be made: the file is rewritten in place, but
    // never one whose other names may not be the owner's.
    if (st.st_nlink > 1) return Falha(kErrPerm);
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
  ant_ = AtaAnt();
}

int FicGra::Fecha() { return Acaba(false); }

// The end of a write: the new content put in place, or everything taken back.
int FicGra::Acaba(bool desiste) {
  if (hold_ < 0) return kErrNumFic;
  int e = desiste ? kErrIO : erro_;
  bool nota = ata && AtaLig();
  if (nota && !e && modo_ != 'A') Guarda();
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
  if (nota && e) {
    if (!ant_.guardado.empty()) unlink(ant_.guardado.c_str());
  } else if (nota) {
    AtaEscrito(ant_, alvo_, modo_ == 'O' && !memoria_ ? -1 : hold_, ata);
  }
  if (close(hold_) != 0 && !e && modo_ == 'A') e = ErrGra(errno);
  Limpa();
  return desiste ? 0 : e;
}

}  // namespace zw
