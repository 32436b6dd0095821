// The run of SupShf: the source list made into pairs of entries, the checks that
// come before anything is written, and the copy, move or delete of each pair with
// progress, questions on clashes and the trash.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>
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

// Every level of a folder, from the top. 0 or an error number.
int CriaPastas(const std::string& p) {
  struct stat st;
  if (stat(p.c_str(), &st) == 0) return S_ISDIR(st.st_mode) ? 0 : kErrAces;
  std::string pai = Pasta(p);
  if (pai != p) {
    int r = CriaPastas(pai);
    if (r) return r;
  }
  if (mkdir(p.c_str(), 0777) == 0 || errno == EEXIST) return 0;
  return FicErrNat(errno, p);
}

class Run {
 public:
  Run(SupShf& s, int op, const std::vector<Tx>& org, const std::vector<Tx>& des)
      : s_(s), op_(op), org_(org), des_(des), prg_(s.SilentMode ? nullptr : ShfPrgAct()) {}

  // 1 done, 0 not; err and aborted for the class.
  int Vai(int& err, bool& abortado) {
    err = Prepara();
    if (err == 0 && prg_) Conta();
    if (err == 0) {
      if (prg_) prg_->Ini(s_.CustomText, op_, totItens_, totBytes_);
      for (auto& [o, d] : pares_) {
        err = op_ == kShfEli ? Eli(o) : op_ == kShfMov ? Mov(o, d) : Cop(o, d);
        if (err) break;
      }
      if (prg_) prg_->Fim(err == 0);
    }
    abortado = err == -1;
    if (abortado) err = 0;
    return err == 0 && !abortado ? 1 : 0;
  }

 private:
  // The pairs of source and destination entries, and every check that must pass
  // before anything is written: sources that exist, no folder into itself, no file
  // onto itself, the destination folder of several sources made.
  int Prepara() {
    bool varios = org_.size() > 1, multiDes = des_.size() > 1 && op_ != kShfEli;
    std::vector<std::string> fontes;
    for (const Tx& o : org_) {
      Tx dir, nom;
      Divide(o, dir, nom);
      int e = 0;
      if (Curinga(nom)) {
        varios = true;
        std::vector<Tx> noms;
        int n = 0;
        DirLisAtr(s_.IncludeDirectories ? u"FD" : u"F", 2, dir, nom, noms, nullptr, n, e);
        if (e) return e;
        std::string nd = FicNat(dir.empty() ? Tx(u".") : dir, &e);
        for (int i = 1; i <= n; i++) fontes.push_back(Junta(nd, TxUtf8(noms[size_t(i)])));
        continue;
      }
      std::string n = FicNat(o, &e);
      if (e) return e;
      struct stat st;
      if (lstat(n.c_str(), &st) != 0) return FicErrNat(errno, n);
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

  // The name of a copy when the destination file exists: replaced, asked about, or
  // a new name. 0 go on (d may have changed), 1 skip this entry, -1 cancel, or an
  // error number.
  int Colisao(std::string& d, bool pastaOrg) {
    // A file that is replaced without a question needs no look: the rename into
    // place replaces it, and refuses a folder in its way.
    if (!pastaOrg && !s_.RenameOnCollision && !s_.ConfirmOperation) return 0;
    struct stat sd;
    if (lstat(d.c_str(), &sd) != 0) return 0;
    bool pastaDes = S_ISDIR(sd.st_mode);
    if (pastaOrg && pastaDes) return 0;  // folders merge
    if (pastaOrg != pastaDes) return kErrAces;
    if (s_.RenameOnCollision) {
      std::string dir = Pasta(d), nom = Nome(d);
      for (int i = 1;; i++) {
        std::string c = Junta(dir, (i == 1 ? std::string("Cópia de ") : "Cópia (" + std::to_string(i) + ") de ") + nom);
        if (lstat(c.c_str(), &sd) != 0) {
          d = c;
          return 0;
        }
      }
    }
    int r = Pergunta(s_.ConfirmOperation, u"Confirmar substituição de ficheiro",
                     u"O ficheiro já existe:|" + FicDeNat(d) + u"||Substituir?");
    return r == 1 ? 0 : r == 0 ? 1 : -1;
  }

  // Copies an entry and all below it. 0, -1 cancelled, or an error number.
  int Cop(const std::string& o, std::string d) {
    struct stat st;
    if (lstat(o.c_str(), &st) != 0) return FicErrNat(errno, o);
    int c = Colisao(d, S_ISDIR(st.st_mode));
    if (c) return c == 1 ? 0 : c;
    itens_++;
    if (!Passo(o, d, 0)) return -1;
    if (S_ISDIR(st.st_mode)) {
      struct stat sd;
      bool nova = lstat(d.c_str(), &sd) != 0;
      if (nova && mkdir(d.c_str(), 0700) != 0) return FicErrNat(errno, d);
      for (auto& n : Lista(o)) {
        int r = Cop(Junta(o, n), Junta(d, n));
        if (r) return r;
      }
      if (nova && geteuid() == 0) (void)!lchown(d.c_str(), st.st_uid, st.st_gid);
      chmod(d.c_str(), st.st_mode & 07777);
      struct timespec t[2] = {st.st_atim, st.st_mtim};
      utimensat(AT_FDCWD, d.c_str(), t, 0);
      return 0;
    }
    if (S_ISLNK(st.st_mode)) return shf::CopLnk(o, st, d);
    if (!S_ISREG(st.st_mode)) return kErrAces;  // devices, pipes and sockets are not copied
    int fi = open(o.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fi < 0) return FicErrNat(errno, o);
    int r = shf::CopFicFd(fi, st, d, prg_ ? shf::Avanco([&](int64_t b) { return Passo(o, d, b); }) : nullptr);
    close(fi);
    if (r == 0) bytesFeitos_ += st.st_size;
    return r;
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
      return rmdir(o.c_str()) == 0 ? 0 : FicErrNat(errno, o);
    }
    itens_++;
    if (!Passo(o, d, 0)) return -1;
    if (rename(o.c_str(), d.c_str()) == 0) return 0;
    if (errno != EXDEV) return FicErrNat(errno, d);
    itens_--;
    int r = Cop(o, d);
    return r ? r : Apaga(o);
  }

  // Deletes an entry, to the trash with AllowUndo.
  int Eli(const std::string& o) {
    itens_++;
    if (!Passo(o, std::string(), 0)) return -1;
    return s_.AllowUndo ? shf::Lixo(o) : Apaga(o);
  }

  // Removes an entry and all below it for good.
  int Apaga(const std::string& o) {
    struct stat st;
    if (lstat(o.c_str(), &st) != 0) return FicErrNat(errno, o);
    if (S_ISDIR(st.st_mode)) {
      for (auto& n : Lista(o)) {
        std::string f = Junta(o, n);
        itens_++;
        if (!Passo(f, std::string(), 0)) return -1;
        int r = Apaga(f);
        if (r) return r;
      }
      return rmdir(o.c_str()) == 0 ? 0 : FicErrNat(errno, o);
    }
    return unlink(o.c_str()) == 0 ? 0 : FicErrNat(errno, o);
  }

  SupShf& s_;
  int op_;
  const std::vector<Tx>& org_;
  const std::vector<Tx>& des_;
  ShfPrg* prg_;
  std::vector<std::pair<std::string, std::string>> pares_;
  std::string criar_;
  int64_t totItens_ = 0, totBytes_ = 0, itens_ = 0, bytesFeitos_ = 0;
};

}  // namespace

int SupShf::Exe(int op) {
  err_ = 0;
  abortado_ = false;
  if (org_.empty()) throw ShfErr(kShfErrSemOrg, u"No source files specified file operation");
  Run r(*this, op, org_, des_);
  return r.Vai(err_, abortado_);
}

}  // namespace zw
