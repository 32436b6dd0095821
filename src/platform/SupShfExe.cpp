// The run of SupShf: the source list made into pairs of entries, the checks that
// come before anything is written, and the copy, move or delete of each pair with
// progress, questions on clashes and the trash. Names are the kernel's bytes from
// the listing to the copy: a name that is not valid UTF-8 is copied as it is.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>
#include <algorithm>
#include <climits>
#include <cerrno>
#include <utility>
#include <vector>
#include "Ata.h"
#include "FicGra.h"
#include "FicGlb.h"
#include "GlbMsg.h"
#include "SupShf.h"
#include "SupShfInt.h"
#include "SupShfPrg.h"
#include "TxtGlb.h"

namespace zw {

namespace {

using shf::Canon;
using shf::Curinga;
using shf::Divide;
using shf::Nome;
using shf::Pasta;

std::string Junta(const std::string& dir, const std::string& nom) {
  return dir.empty() || dir.back() == '/' ? dir + nom : dir + "/" + nom;
}

// Appends a name to a path in place.
void Poe(std::string& p, const std::string& nom) {
  if (p.empty() || p.back() != '/') p += '/';
  p += nom;
}

// The path without the "/" at its end ("/" stays).
std::string SemBarra(std::string p) {
  while (p.size() > 1 && p.back() == '/') p.pop_back();
  return p;
}

// A file descriptor closed at the end of its scope, unless let go.
struct Fd {
  int f;
  explicit Fd(int fd) : f(fd) {}
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  ~Fd() {
    if (f >= 0) close(f);
  }
  int Solta() {
    int r = f;
    f = -1;
    return r;
  }
};

// A destination folder opened by name in its folder, not through a link; one that
// may be written but not listed is opened for reaching names only.
int AbreDir(int pai, const std::string& nom) {
  int f = openat(pai, nom.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (f < 0 && errno == EACCES) f = openat(pai, nom.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  return f;
}

// The entries of an open folder with their kinds as the listing gives them
// (DT_UNKNOWN where the file system does not say), in name order: the same order on
// every file system, for traces.
std::vector<std::pair<std::string, unsigned char>> ListaTip(DIR* h) {
  std::vector<std::pair<std::string, unsigned char>> r;
  while (dirent* de = readdir(h)) {
    const char* n = de->d_name;
    if (n[0] == '.' && (n[1] == 0 || (n[1] == '.' && n[2] == 0))) continue;
    r.emplace_back(n, de->d_type);
  }
  std::sort(r.begin(), r.end());
  return r;
}

// The entries of the Linux folder nd whose names match the wildcard pad (folders
// only with pasta), as paths, in the order of their names in capitals. The names
// stay bytes: one that is not valid UTF-8 is matched by its text (bad bytes read as
// U+FFFD) but kept as it is. 0 or an error number.
int ListaPad(const std::string& nd, const Tx& pad, bool pasta, std::vector<std::string>& r) {
  DIR* h = opendir(nd.c_str());
  if (!h) {
    int e = FicErrNat(errno, nd);
    return e == kErrFicNao ? kErrDirNao : e;
  }
  std::vector<std::pair<Tx, std::string>> achados;
  errno = 0;
  while (dirent* de = readdir(h)) {
    const char* n = de->d_name;
    if (n[0] == '.' && (n[1] == 0 || (n[1] == '.' && n[2] == 0))) continue;
    Tx t = TxDeUtf8(n);
    if (FicPadCasa(pad, t)) achados.emplace_back(TxMai(t), n);
    errno = 0;
  }
  int e = errno ? FicErrNat(errno, nd) : 0;
  closedir(h);
  if (e) return e;
  std::sort(achados.begin(), achados.end());
  for (auto& [m, n] : achados) {
    std::string p = Junta(nd, n);
    struct stat st;
    if (!pasta && stat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) continue;
    r.push_back(std::move(p));
  }
  return 0;
}

// The kind of a special file, for the trace: what a copy leaves out.
Tx Especial(mode_t m) {
  return S_ISFIFO(m) ? u"pipe" : S_ISSOCK(m) ? u"socket" : S_ISCHR(m) || S_ISBLK(m) ? u"device" : u"special file";
}

// Tells the progress service in force of what a run did not do (see ShfPrg::Nota).
void Nota(const Tx& palavra, const std::string& nat, const Tx& porque) {
  if (ShfPrg* p = ShfPrgAct()) p->Nota(palavra, FicDeNat(nat), porque);
}

// Every level of a folder, from the top. 0 or an error number.
int CriaPastas(const std::string& p) {
  struct stat st;
  if (stat(p.c_str(), &st) == 0) return S_ISDIR(st.st_mode) ? 0 : kErrAces;
  std::string pai = Pasta(p);
  if (pai != p) {
    int r = CriaPastas(pai);
    if (r) return r;
  }
  if (AtaDirCri(p, 0777) == 0 || errno == EEXIST) return 0;
  return FicErrNat(errno, p);
}

// Removes the entry nom of the held folder pai (cam its path) and, with arvore,
// all below it; see ArvEliNat. A folder that turns into something else between the
// look and the open is looked at once more and removed as what it has become.
int EliEnt(int pai, const std::string& nom, const std::string& cam, bool arvore,
           const std::function<bool(const std::string&)>& passo) {
  for (int vez = 0; vez < 2; vez++) {
    struct stat st;
    if (fstatat(pai, nom.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) return -1;
    if (!S_ISDIR(st.st_mode) || !arvore) return AtaEliEm(pai, nom, cam, false);
    int fd = openat(pai, nom.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0 && (errno == ELOOP || errno == ENOTDIR)) continue;
    DIR* h = fd < 0 ? nullptr : fdopendir(fd);
    if (!h) {
      int e = errno;
      if (fd >= 0) close(fd);
      errno = e;
      return -1;
    }
    auto nomes = ListaTip(h);
    int r = 0;
    for (auto& [n, t] : nomes) {
      std::string c = Junta(cam, n);
      if (passo && !passo(c)) {
        errno = ECANCELED;
        r = -1;
      } else {
        r = EliEnt(dirfd(h), n, c, true, passo);
      }
      if (r) break;
    }
    int e = errno;
    closedir(h);
    errno = e;
    return r ? r : AtaEliEm(pai, nom, cam, true);
  }
  errno = ELOOP;
  return -1;
}

class Run {
 public:
  Run(SupShf& s, int op, const std::vector<Tx>& org, const std::vector<Tx>& des)
      : s_(s), op_(op), org_(org), des_(des), prg_(s.SilentMode ? nullptr : ShfPrgAct()) {}

  // 1 done, 0 not; err and aborted for the class. A copy that left special files
  // out goes on to its end and answers 0 with 75, so a script never takes it for a
  // whole copy; each entry left out was told to the progress service.
  int Vai(int& err, bool& abortado) {
    err = Prepara();
    if (err == 0 && prg_) Conta();
    if (err == 0) {
      if (prg_) prg_->Ini(s_.CustomText, op_, totItens_, totBytes_);
      for (auto& [o, d] : pares_) {
        err = op_ == kShfEli ? Eli(o) : op_ == kShfMov ? Mov(o, d) : Cop(o, d);
        if (err) break;
      }
      if (err == 0 && saltados_ > 0) err = kErrAces;
      if (prg_) prg_->Fim(err == 0);
    }
    abortado = err == -1;
    if (abortado) err = 0;
    return err == 0 && !abortado ? 1 : 0;
  }

 private:
  // The pairs of source and destination entries, and every check that must pass
  // before anything is written: sources that exist, no folder into itself, no file
  // onto itself, no delete or move that would take away the top of a drive, a
  // folder of the system or a home folder (70, told as "SHF NEG"), the destination
  // folder of several sources made.
  int Prepara() {
    bool varios = org_.size() > 1, multiDes = des_.size() > 1 && op_ != kShfEli;
    bool tira = op_ == kShfEli || op_ == kShfMov;  // the sources go away
    std::vector<std::string> fontes;
    for (const Tx& o : org_) {
      Tx dir, nom;
      Divide(o, dir, nom);
      int e = 0;
      if (Curinga(nom)) {
        varios = true;
        std::string nd = FicNat(dir.empty() ? Tx(u".") : dir, &e);
        if (e) return e;
        if (tira && FicDirNeg(nd, true, nom)) return kErrPerm;
        e = ListaPad(nd, nom, s_.IncludeDirectories, fontes);
        if (e) return e;
        continue;
      }
      std::string n = FicNat(o, &e);
      if (e) return e;
      struct stat st;
      if (lstat(n.c_str(), &st) != 0) return FicErrNat(errno, n);
      // The entry itself, not where a link leads (the link /lib counts).
      if (tira && FicDirNeg(n, false)) return kErrPerm;
      fontes.push_back(n);
    }
    if (op_ == kShfEli) {
      for (auto& f : fontes) pares_.push_back({f, std::string()});
      return 0;
    }
    if (des_.empty()) return kErrDirNao;
    if (multiDes) {
      for (size_t i = 0; i < fontes.size(); i++) {
        int e = 0;
        std::string d = FicNat(i < des_.size() ? des_[i] : des_.back(), &e);
        if (e) return e;
        pares_.push_back({fontes[i], d});
      }
    } else {
      int e = 0;
      std::string d = FicNat(des_[0], &e);
      if (e) return e;
      struct stat st;
      bool pasta = stat(d.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
      if (varios && !pasta && !fontes.empty()) {
        int r = Pergunta(s_.ConfirmMakeDir, u"Confirmar criação de pasta",
                         u"A pasta não existe:|" + FicDeNat(d) + u"||Criar a pasta?");
        if (r != 1) return r == 0 ? kErrDirNao : -1;
        pasta = true;
        criar_ = d;
      }
      for (auto& f : fontes) pares_.push_back({f, pasta ? Junta(d, Nome(f)) : d});
    }
    for (auto& [o, d] : pares_) {
      struct stat so, sd;
      if (lstat(o.c_str(), &so) != 0) return FicErrNat(errno, o);
      if (S_ISDIR(so.st_mode)) {
        std::string co = Canon(o), cd = Canon(d);
        if (cd == co || cd.rfind(co + "/", 0) == 0) return kErrAces;
      } else if (lstat(d.c_str(), &sd) == 0 && sd.st_dev == so.st_dev && sd.st_ino == so.st_ino) {
        return kErrAces;
      }
    }
    if (!criar_.empty()) return CriaPastas(criar_);
    return 0;
  }

  // A yes, no or cancel question when the property asks for it; 1 otherwise.
  int Pergunta(bool perguntar, const Tx& tit, const Tx& msg) {
    if (!perguntar) return 1;
    int r = 0;
    MsgExe(u"? SNC", tit, msg, r);
    return r;
  }

  // Entries and bytes below the sources, for the progress window.
  void Conta() {
    for (auto& pr : pares_) Soma(pr.first);
  }
  void Soma(const std::string& p) {
    struct stat st;
    if (lstat(p.c_str(), &st) != 0) return;
    totItens_++;
    if (S_ISREG(st.st_mode)) totBytes_ += st.st_size;
    if (!S_ISDIR(st.st_mode)) return;
    for (auto& n : Lista(p)) Soma(Junta(p, n));
  }

  static std::vector<std::string> Lista(const std::string& p) {
    std::vector<std::string> r;
    if (DIR* h = opendir(p.c_str())) {
      while (dirent* de = readdir(h)) {
        std::string n = de->d_name;
        if (n != "." && n != "..") r.push_back(std::move(n));
      }
      closedir(h);
    }
    std::sort(r.begin(), r.end());  // the same order on every file system, for traces
    return r;
  }

  // One step on the progress window; false when the user cancelled.
  bool Passo(const std::string& o, const std::string& d, int64_t bytes) {
    if (!prg_) return true;
    return prg_->Passo(FicDeNat(o), d.empty() ? Tx() : FicDeNat(d), itens_, bytesFeitos_ + bytes);
  }

  // The name of a copy when the destination entry nom of the folder p (d its
  // path) exists: replaced, asked about, or a new name. 0 go on (nom and d may have
  // changed), 1 skip this entry, -1 cancel, or an error number.
  int Colisao(const shf::PstDes& p, std::string& nom, std::string& d, bool pastaOrg) {
    // A file that is replaced without a question needs no look: the rename into
    // place replaces it, and refuses a folder in its way.
    if (!pastaOrg && !s_.RenameOnCollision && !s_.ConfirmOperation) return 0;
    struct stat sd;
    if (p.fd < 0 || fstatat(p.fd, nom.c_str(), &sd, AT_SYMLINK_NOFOLLOW) != 0) return 0;
    bool pastaDes = S_ISDIR(sd.st_mode);
    if (pastaOrg && pastaDes) return 0;  // folders merge
    if (pastaOrg != pastaDes) return kErrAces;
    if (s_.RenameOnCollision) {
      for (int i = 1;; i++) {
        std::string c = (i == 1 ? std::string("Cópia de ") : "Cópia (" + std::to_string(i) + ") de ") + nom;
        if (fstatat(p.fd, c.c_str(), &sd, AT_SYMLINK_NOFOLLOW) != 0) {
          d.resize(d.size() - nom.size());
          d += c;
          nom = c;
          return 0;
        }
      }
    }
    int r = Pergunta(s_.ConfirmOperation, u"Confirmar substituição de ficheiro",
                     u"O ficheiro já existe:|" + FicDeNat(d) + u"||Substituir?");
    return r == 1 ? 0 : r == 0 ? 1 : -1;
  }

  // The same for a destination given by its path.
  int Colisao(std::string& d, bool pastaOrg) {
    if (!pastaOrg && !s_.RenameOnCollision && !s_.ConfirmOperation) return 0;
    d = SemBarra(d);
    shf::PstDes p;
    p.Abre(Pasta(d));
    std::string nom = Nome(d);
    return Colisao(p, nom, d, pastaOrg);
  }

  // Copies an entry and all below it. 0, -1 cancelled, or an error number. The
  // folders that hold the source and the destination are opened once; below them
  // every entry is reached by its name from its folder, held open.
  int Cop(const std::string& o, const std::string& d) {
    std::string po = SemBarra(o), pd = SemBarra(d);
    int fdo = open(Pasta(po).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (fdo < 0) return FicErrNat(errno, po);
    shf::PstDes p;
    p.Abre(Pasta(pd));
    int r = CopEnt(fdo, Nome(po), p, Nome(pd), po, pd, DT_UNKNOWN);
    close(fdo);
    return r;
  }

  // Copies the entry nomO of the folder fdo (po its path) to the name nomD in the
  // destination folder p (pd its path), and all below it. tipo is the kind that the
  // listing gave (DT_UNKNOWN when none): a file or folder is opened at once and its
  // status read from the open file, one walk of its name for both. po and pd grow
  // while the entries below are copied and come back as they were.
  int CopEnt(int fdo, const std::string& nomO, const shf::PstDes& p, std::string nomD, std::string& po,
             std::string& pd, unsigned char tipo) {
    struct stat st;
    int fi = -1;
    if (tipo == DT_REG || tipo == DT_DIR) {
      fi = openat(fdo, nomO.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
      if (fi >= 0 && fstat(fi, &st) != 0) {
        close(fi);
        fi = -1;
      }
    }
    if (fi < 0 && fstatat(fdo, nomO.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) return FicErrNat(errno, po);
    Fd guarda(fi);
    if (!S_ISDIR(st.st_mode) && !S_ISLNK(st.st_mode) && !S_ISREG(st.st_mode)) {
      saltados_++;  // pipes, sockets and devices are not copied: told, and the run goes on
      Nota(u"SKP", po, Especial(st.st_mode));
      return 0;
    }
    bool pasta = S_ISDIR(st.st_mode);
    int c = Colisao(p, nomD, pd, pasta);
    if (c) return c == 1 ? 0 : c;
    itens_++;
    if (!Passo(po, pd, 0)) return -1;
    if (p.fd < 0) return FicErrNat(p.err, pd);
    if (pasta) return CopPst(fdo, nomO, guarda.Solta(), st, p, nomD, po, pd);
    if (S_ISLNK(st.st_mode)) return shf::CopLnk(fdo, nomO, po, st, p, nomD, pd);
    if (guarda.f < 0) {  // not opened above: opened now, and looked at again
      guarda.f = openat(fdo, nomO.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
      if (guarda.f < 0) return FicErrNat(errno, po);
      if (fstat(guarda.f, &st) != 0 || !S_ISREG(st.st_mode)) return kErrAces;
    }
    int r = shf::CopFic(guarda.f, st, p, nomD, pd, prg_ ? shf::Avanco([&](int64_t b) { return Passo(po, pd, b); }) : nullptr,
                        ctx_);
    if (r == 0) bytesFeitos_ += st.st_size;
    return r;
  }

  // A folder's copy: the folder made (or merged into one that is there), every
  // entry below copied in name order, then the mode of a copy and the source's
  // times on a folder that was made. A folder that was there keeps its owner, mode
  // and times, as a system folder merged into must. fi is the source folder when
  // already open, else -1.
  int CopPst(int fdo, const std::string& nomO, int fi, const struct stat& st, const shf::PstDes& p,
             const std::string& nom, std::string& po, std::string& pd) {
    if (fi < 0) fi = openat(fdo, nomO.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR* h = fi < 0 ? nullptr : fdopendir(fi);
    if (!h) {
      int e = errno;
      if (fi >= 0) close(fi);
      return FicErrNat(e, po);
    }
    auto nomes = ListaTip(h);
    bool nova = mkdirat(p.fd, nom.c_str(), 0700) == 0;
    if (nova) AtaPstCri(pd);
    int fdd = nova || errno == EEXIST ? AbreDir(p.fd, nom) : -1;
    if (fdd < 0) {
      int e = errno;
      closedir(h);
      return e == ENOTDIR || e == ELOOP ? kErrAces : FicErrNat(e, pd);
    }
    shf::PstDes q;
    if (nova)
      q.Herda(p, fdd);
    else
      q.Toma(fdd);
    size_t lo = po.size(), ld = pd.size();
    int r = 0;
    for (auto& [n, t] : nomes) {
      Poe(po, n);
      Poe(pd, n);
      r = CopEnt(dirfd(h), n, q, n, po, pd, t);
      po.resize(lo);
      pd.resize(ld);
      if (r) break;
    }
    closedir(h);
    if (r || !nova) return r;
    // Through the folder held open; by name only where it could not be opened for
    // reading (an open for names alone takes neither call).
    struct timespec t[2] = {st.st_atim, st.st_mtim};
    if (fchmod(fdd, ctx_.Modo(st)) != 0) fchmodat(p.fd, nom.c_str(), ctx_.Modo(st), 0);
    if (futimens(fdd, t) != 0) utimensat(p.fd, nom.c_str(), t, AT_SYMLINK_NOFOLLOW);
    return 0;
  }

  // Moves an entry: a rename where the file system allows it, else a copy and then
  // the delete of the source, which only happens when the whole copy was done.
  int Mov(const std::string& o, std::string d) {
    struct stat st, sd;
    if (lstat(o.c_str(), &st) != 0) return FicErrNat(errno, o);
    int c = Colisao(d, S_ISDIR(st.st_mode));
    if (c) return c == 1 ? 0 : c;
    if (S_ISDIR(st.st_mode) && lstat(d.c_str(), &sd) == 0) {  // into an existing folder: entry by entry
      for (auto& n : Lista(o)) {
        int r = Mov(Junta(o, n), Junta(d, n));
        if (r) return r;
      }
      return AtaDirEli(o) == 0 ? 0 : FicErrNat(errno, o);
    }
    itens_++;
    if (!Passo(o, d, 0)) return -1;
    if (AtaRen(o, d) == 0) return 0;
    if (errno != EXDEV) return FicErrNat(errno, d);
    itens_--;
    int64_t antes = saltados_;
    int r = Cop(o, d);
    if (r || saltados_ > antes) return r;  // what the copy left out stays, with its source
    return Apaga(o);
  }

  // Deletes an entry, to the trash with AllowUndo.
  int Eli(const std::string& o) {
    itens_++;
    if (!Passo(o, std::string(), 0)) return -1;
    return s_.AllowUndo ? shf::Lixo(o) : Apaga(o);
  }

  // Removes an entry and all below it for good, each entry below a step.
  int Apaga(const std::string& o) {
    int r = ArvEliNat(o, true, [this](const std::string& f) {
      itens_++;
      return Passo(f, std::string(), 0);
    });
    if (r == 0) return 0;
    return errno == ECANCELED ? -1 : FicErrNat(errno, o);
  }

  SupShf& s_;
  int op_;
  const std::vector<Tx>& org_;
  const std::vector<Tx>& des_;
  ShfPrg* prg_;
  std::vector<std::pair<std::string, std::string>> pares_;
  std::string criar_;
  shf::CopCtx ctx_;
  int64_t totItens_ = 0, totBytes_ = 0, itens_ = 0, bytesFeitos_ = 0, saltados_ = 0;
};

}  // namespace

int ArvEliNat(const std::string& nat, bool arvore, const std::function<bool(const std::string&)>& passo) {
  std::string p = SemBarra(nat);
  if (p.empty() || p[0] != '/') {
    char cwd[PATH_MAX];
    if (!getcwd(cwd, sizeof cwd)) return -1;
    p = Junta(cwd, p.empty() ? std::string(".") : p);
  }
  std::string nom = Nome(p);
  if (nom == "." || nom == "..") p = Canon(p);
  if (FicDirNeg(p, false)) {
    errno = EACCES;
    return -1;
  }
  int pai = DirPaiAbr(p, nom);
  if (pai < 0) {
    if (errno == ELOOP) errno = EACCES;  // a link on the way that may not be followed
    return -1;
  }
  int r = EliEnt(pai, nom, p, arvore, passo);
  int e = errno;
  close(pai);
  errno = e;
  return r;
}

int SupShf::Exe(int op) {
  err_ = 0;
  abortado_ = false;
  if (org_.empty()) throw ShfErr(kShfErrSemOrg, u"No source files specified file operation");
  Run r(*this, op, org_, des_);
  return r.Vai(err_, abortado_);
}

}  // namespace zw
