// Undo of an install record: the record read and checked, then each change taken
// back from the last, on the file system through folders held open, on the
// registry files through their model, on the printer scheduler.
#include "AtaDfz.h"
#include <dirent.h>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <vector>
#include "FicGlb.h"
#include "FicGra.h"
#include "FicLer.h"
#include "GlbReg.h"
#include "Prt.h"
#include "Sha.h"
#include "TxtGlb.h"

namespace zw {

namespace {

// --- paths walked from the root (DirPaiAbr, FicGra.h) ---

// A descriptor closed at the end of its scope.
struct Fd {
  int f = -1;
  Fd() = default;
  explicit Fd(int x) : f(x) {}
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  ~Fd() {
    if (f >= 0) close(f);
  }
};

// What a name holds now.
struct Est {
  bool ha = false, pasta = false, lnk = false;
  std::string sha;  // a file's content hash, a link's target's
  int err = 0;      // the walk failed (a link refused): nothing may be done there
};

bool Resumo(int fd, std::string& sha) {
  Sha256 s;
  char buf[1 << 16];
  for (;;) {
    ssize_t n = read(fd, buf, sizeof buf);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) break;
    s.Adi(std::string_view(buf, size_t(n)));
  }
  sha = s.Hex();
  return true;
}

Est Olha(const std::string& p) {
  Est e;
  std::string nome;
  Fd d(DirPaiAbr(p, nome));
  if (d.f < 0) {
    if (errno != ENOENT && errno != ENOTDIR) e.err = errno;
    return e;
  }
  struct stat st;
  if (fstatat(d.f, nome.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) return e;
  e.ha = true;
  e.pasta = S_ISDIR(st.st_mode);
  e.lnk = S_ISLNK(st.st_mode);
  if (e.lnk) {
    std::string t(size_t(st.st_size > 0 ? st.st_size : 4096) + 1, '\0');
    ssize_t n = readlinkat(d.f, nome.c_str(), t.data(), t.size());
    e.sha = ShaHex(t.substr(0, size_t(n > 0 ? n : 0)));
  } else if (S_ISREG(st.st_mode)) {
    Fd f(openat(d.f, nome.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (f.f >= 0) Resumo(f.f, e.sha);
  }
  return e;
}

std::string Sorteio() {
  static const char kAlf[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  unsigned char b[12];
  if (getrandom(b, sizeof b, 0) != ssize_t(sizeof b))
    for (size_t i = 0; i < sizeof b; i++) b[i] = static_cast<unsigned char>(std::rand());
  std::string r;
  for (unsigned char c : b) r += kAlf[c % 62];
  return r;
}

// A kept copy opened for reading: a regular file of the running user's or root's
// that no one else may write, reached by the safe walk. -1 with errno (EPERM when
// it is not to be trusted).
int GuardaAbr(const std::string& k) {
  std::string nome;
  Fd d(DirPaiAbr(k, nome));
  if (d.f < 0) return -1;
  int f = openat(d.f, nome.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  struct stat st;
  if (f >= 0 && (fstat(f, &st) != 0 || !S_ISREG(st.st_mode) || (st.st_uid != geteuid() && st.st_uid != 0) ||
                 (st.st_mode & (S_IWGRP | S_IWOTH)))) {
    close(f);
    errno = EPERM;
    return -1;
  }
  return f;
}

// Puts the kept copy k back at p: a new file beside it, with the mode and (for
// root) the owner given, renamed into place; over what is there when sobre, else
// only where the name is free. 0 or errno.
int Repoe(const std::string& p, const std::string& k, long long modo, long long uid, long long gid, bool sobre) {
  Fd fi(GuardaAbr(k));
  if (fi.f < 0) return errno;
  std::string nome;
  Fd d(DirPaiAbr(p, nome));
  if (d.f < 0) return errno;
  std::string tmp;
  int fo = -1;
  for (int i = 0; fo < 0 && i < 100; i++) {
    tmp = "." + nome.substr(0, 200) + ".zw-" + Sorteio();
    fo = openat(d.f, tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fo < 0 && errno != EEXIST) return errno;
  }
  if (fo < 0) return EEXIST;
  int e = 0;
  char buf[1 << 16];
  for (;;) {
    ssize_t n = read(fi.f, buf, sizeof buf);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      if (n < 0) e = errno;
      break;
    }
    for (ssize_t w = 0; !e && w < n;) {
      ssize_t x = write(fo, buf + w, size_t(n - w));
      if (x < 0 && errno != EINTR) e = errno;
      if (x > 0) w += x;
    }
    if (e) break;
  }
  // The owner before the mode: a change of owner clears the set-id bits.
  if (!e && uid >= 0 && geteuid() == 0 && fchown(fo, uid_t(uid), gid_t(gid)) != 0) e = errno;
  if (!e && modo >= 0 && fchmod(fo, mode_t(modo) & 07777) != 0) e = errno;
  if (!e && fsync(fo) != 0) e = errno;
  if (close(fo) != 0 && !e) e = errno;
  if (!e) {
    if (sobre) {
      if (renameat(d.f, tmp.c_str(), d.f, nome.c_str()) != 0) e = errno;
    } else if (renameat2(d.f, tmp.c_str(), d.f, nome.c_str(), RENAME_NOREPLACE) != 0) {
      e = errno;
      // A file system without the flag: a second name, which never replaces either.
      if (e == EINVAL && linkat(d.f, tmp.c_str(), d.f, nome.c_str(), 0) == 0) e = 0;
    }
  }
  unlinkat(d.f, tmp.c_str(), 0);
  return e;
}

long long Octal(const AtaVal& v) {
  if (v.tip != AtaVal::Txt || v.s.empty()) return -1;
  char* fim = nullptr;
  long long m = std::strtoll(v.s.c_str(), &fim, 8);
  return *fim ? -1 : m;
}

struct Linha {
  AtaObj o;
  const std::string& S(const char* k) const {
    static const std::string nada;
    auto it = o.find(k);
    return it != o.end() && it->second.tip == AtaVal::Txt ? it->second.s : nada;
  }
  bool Tem(const char* k) const {
    auto it = o.find(k);
    return it != o.end() && it->second.tip == AtaVal::Txt;
  }
  bool B(const char* k) const {
    auto it = o.find(k);
    return it != o.end() && it->second.tip == AtaVal::Sim && it->second.b;
  }
  long long N(const char* k, long long def = -1) const {
    auto it = o.find(k);
    return it != o.end() && it->second.tip == AtaVal::Nu ? it->second.n : def;
  }
  const AtaVal& V(const char* k) const {
    static const AtaVal nulo;
    auto it = o.find(k);
    return it != o.end() ? it->second : nulo;
  }
};

// The undo of one record.
class Dfz {
 public:
  Dfz(std::vector<Linha>& ls, bool seco, const std::function<void(const std::string&)>& diz)
      : ls_(ls), seco_(seco), diz_(diz) {}

  int Vai() {
    for (const Linha& l : ls_)
      if (l.S("op") == "program-ended") fins_[l.N("pid")] = l.N("status");
    for (size_t i = ls_.size(); i-- > 0;) Um(i);
    return falhas_ ? 1 : 0;
  }

 private:
  std::vector<Linha>& ls_;
  bool seco_;
  const std::function<void(const std::string&)>& diz_;
  int falhas_ = 0;
  std::map<long long, long long> fins_;     // program id -> status
  std::map<std::string, Est> virt_;         // --dry-run: names as the steps before left them
  std::map<std::string, std::string> esp_;  // the hash a file must have for its earlier line
  std::set<std::string> largados_;          // files kept: their earlier lines are passed over
  std::map<std::string, RegFic> reg_;

  // A step done, or that would be done.
  void Feito(const char* seco, const char* feito, const std::string& resto) {
    diz_(std::string(seco_ ? seco : feito) + " " + resto);
  }
  // A change that stays: said, and the undo is not whole.
  void Fica(const std::string& m) {
    diz_(m);
    falhas_++;
  }

  Est Ver(const std::string& p) {
    auto it = virt_.find(p);
    return seco_ && it != virt_.end() ? it->second : Olha(p);
  }
  void Poe(const std::string& p, const Est& e) {
    if (seco_) virt_[p] = e;
  }
  // Whether a change of the name p may go on: its folder reached and no link
  // refused on the way.
  bool Alcanca(const Est& e, const std::string& p) {
    if (!e.err) return true;
    Fica("kept " + p + ": " + (e.err == ELOOP ? "a link on its way is not to be trusted" : std::strerror(e.err)));
    return false;
  }

  // Removes the name p (a folder with pasta). 0 or errno.
  int Tira(const std::string& p, bool pasta) {
    if (seco_) {
      Poe(p, Est());
      return 0;
    }
    std::string nome;
    Fd d(DirPaiAbr(p, nome));
    if (d.f < 0) return errno;
    return unlinkat(d.f, nome.c_str(), pasta ? AT_REMOVEDIR : 0) == 0 ? 0 : errno;
  }

  // True when the folder p holds nothing (as the steps before left it).
  bool Vazia(const std::string& p) {
    std::string nome;
    Fd d(DirPaiAbr(p, nome));
    if (d.f < 0) return false;
    int f = openat(d.f, nome.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR* h = f < 0 ? nullptr : fdopendir(f);
    if (!h) {
      if (f >= 0) close(f);
      return false;
    }
    bool vazia = true;
    while (dirent* de = readdir(h)) {
      std::string n = de->d_name;
      if (n == "." || n == "..") continue;
      auto it = virt_.find(p + "/" + n);
      if (seco_ && it != virt_.end() && !it->second.ha) continue;
      vazia = false;
    }
    closedir(h);
    if (seco_)
      for (auto& [q, e] : virt_)
        if (e.ha && q.size() > p.size() && q.compare(0, p.size(), p) == 0 && q[p.size()] == '/' &&
            q.find('/', p.size() + 1) == std::string::npos)
          vazia = false;
    return vazia;
  }

  // True when a line before i made the file p, so that the content it had in
  // between need not come back: the file goes away with that line's undo.
  bool CriadoAntes(const std::string& p, size_t i) const {
    for (size_t k = 0; k < i; k++) {
      const std::string& op = ls_[k].S("op");
      if (ls_[k].S("path") != p) continue;
      if (op == "file-created" || (op == "launcher-written" && ls_[k].B("created"))) return true;
    }
    return false;
  }

  // True when the folder that should hold p is missing because a line before i
  // made it (or one above it): the undo took it away already, with what it held.
  bool PastaSeFoi(const std::string& p, size_t i) {
    std::string pai = p.substr(0, p.rfind('/'));
    if (pai.empty() || Ver(pai).ha) return false;
    for (size_t k = 0; k < i; k++) {
      const std::string& q = ls_[k].S("path");
      if (ls_[k].S("op") == "folder-created" && (pai == q || pai.rfind(q + "/", 0) == 0)) return true;
    }
    return false;
  }

  std::string HashGuarda(const std::string& k) {
    Fd f(GuardaAbr(k));
    std::string sha;
    if (f.f >= 0) Resumo(f.f, sha);
    return sha;
  }

  RegFic& Reg(const std::string& f) {
    auto it = reg_.find(f);
    if (it == reg_.end()) {
      it = reg_.emplace(f, RegFic()).first;
      it->second.Ler(f);
    }
    return it->second;
  }
  // Writes a registry file back after a change; false (said) when it cannot be.
  bool RegGra(const std::string& f) {
    if (seco_) return true;
    if (int e = Reg(f).Gra()) {
      Fica("not undone: the registry file " + f + " cannot be written (error " + std::to_string(e) + ")");
      reg_.erase(f);
      return false;
    }
    return true;
  }

  void Um(size_t i) {
    const Linha& l = ls_[i];
    const std::string& op = l.S("op");
    if (op == "begin" || op == "end" || op == "program-ended") return;
    if (op == "file-created" && l.B("registry")) return RegFicCri(l);
    if (op == "file-created" || (op == "launcher-written" && l.B("created"))) return FicCri(l);
    if (op == "file-replaced" || op == "launcher-written") return FicSub(l, i);
    if ((op == "file-deleted" || op == "folder-deleted") && PastaSeFoi(l.S("path"), i)) return;
    if (op == "file-deleted") return FicEli(l);
    if (op == "folder-created") return PstCri(l);
    if (op == "folder-deleted") return PstEli(l);
    if (op == "moved") return Mov(l);
    if (op == "reg-set" || op == "reg-deleted") return RegVal(l, op == "reg-set");
    if (op == "key-created" || op == "key-deleted") return RegChv(l, op == "key-created");
    if (op == "printer-added") return Prt(l);
    if (op == "program-run") {
      long long st = l.N("status", fins_.count(l.N("pid")) ? fins_[l.N("pid")] : -1);
      return Fica("not undone: program " + l.S("command") +
                  (st >= 0 ? " (status " + std::to_string(st) + ")" : std::string(" (status unknown)")));
    }
    Fica("not undone: a change this undo does not know (" + op + ")");
  }

  void FicCri(const Linha& l) {
    const std::string& p = l.S("path");
    if (largados_.count(p)) return;
    Est e = Ver(p);
    if (!Alcanca(e, p)) return;
    std::string esp = esp_.count(p) ? esp_[p] : l.S("sha256");
    esp_.erase(p);
    if (!e.ha) return;  // gone already
    if (e.pasta || e.sha != esp || e.lnk != l.Tem("link")) {
      largados_.insert(p);
      return Fica("kept file " + p + ": changed since the install");
    }
    if (int r = Tira(p, false)) return Fica("kept file " + p + ": " + std::strerror(r));
    Feito("would remove", "removed", "file " + p);
  }

  void FicSub(const Linha& l, size_t i) {
    const std::string& p = l.S("path");
    if (largados_.count(p)) return;
    Est e = Ver(p);
    if (!Alcanca(e, p)) return;
    std::string esp = esp_.count(p) ? esp_[p] : l.S("sha256");
    const std::string& k = l.S("kept");
    std::string hk = k.empty() ? std::string() : HashGuarda(k);
    if ((e.ha && !hk.empty() && e.sha == hk) || (!e.ha && CriadoAntes(p, i))) {  // put back, or gone, already
      esp_.erase(p);
      return;
    }
    if (e.ha && (e.pasta || e.sha != esp)) {
      largados_.insert(p);
      return Fica("kept file " + p + ": changed since the install");
    }
    if (!k.empty() && hk.empty()) {
      largados_.insert(p);
      return Fica("not undone: file " + p + ": its kept copy " + k + " cannot be read");
    }
    if (k.empty()) {
      if (CriadoAntes(p, i)) {
        esp_[p] = esp;  // the content stands for the earlier one until the file goes
        return;
      }
      largados_.insert(p);
      return Fica("not undone: file " + p + " was replaced without a kept copy");
    }
    int r = seco_ ? 0 : Repoe(p, k, Octal(l.V("old_mode")), l.N("old_uid"), l.N("old_gid"), true);
    if (r) {
      largados_.insert(p);
      return Fica("not undone: file " + p + ": " + std::strerror(r));
    }
    Poe(p, Est{true, false, false, hk});
    esp_.erase(p);
    Feito("would restore", "restored", "file " + p + " from " + k);
  }

  void FicEli(const Linha& l) {
    const std::string& p = l.S("path");
    const std::string& k = l.S("kept");
    Est e = Ver(p);
    if (!Alcanca(e, p)) return;
    esp_.erase(p);
    largados_.erase(p);
    if (l.Tem("link")) {
      std::string alvo = l.S("link");
      if (e.ha && e.lnk && e.sha == ShaHex(alvo)) return;
      if (e.ha) return Fica("kept " + p + ": something else is there again");
      if (!seco_) {
        std::string nome;
        Fd d(DirPaiAbr(p, nome));
        if (d.f < 0 || symlinkat(alvo.c_str(), d.f, nome.c_str()) != 0)
          return Fica("not undone: link " + p + ": " + std::strerror(errno));
        if (geteuid() == 0 && l.N("uid") >= 0) fchownat(d.f, nome.c_str(), uid_t(l.N("uid")), gid_t(l.N("gid")), AT_SYMLINK_NOFOLLOW);
      }
      Poe(p, Est{true, false, true, ShaHex(alvo)});
      return Feito("would restore", "restored", "link " + p);
    }
    std::string hk = k.empty() ? std::string() : HashGuarda(k);
    if (e.ha && !hk.empty() && !e.pasta && e.sha == hk) return;  // put back already
    if (e.ha) return Fica("kept " + p + ": something else is there again");
    if (k.empty()) return Fica("not undone: file " + p + " was deleted without a kept copy");
    if (hk.empty()) return Fica("not undone: file " + p + ": its kept copy " + k + " cannot be read");
    int r = seco_ ? 0 : Repoe(p, k, Octal(l.V("mode")), l.N("uid"), l.N("gid"), false);
    if (r) return Fica("not undone: file " + p + ": " + std::strerror(r));
    Poe(p, Est{true, false, false, hk});
    Feito("would restore", "restored", "file " + p + " from " + k);
  }

  void PstCri(const Linha& l) {
    const std::string& p = l.S("path");
    Est e = Ver(p);
    if (!Alcanca(e, p) || !e.ha) return;
    if (!e.pasta) return Fica("kept " + p + ": no longer a folder");
    if (!Vazia(p)) return Fica("kept folder " + p + ": not empty");
    if (int r = Tira(p, true)) return Fica("kept folder " + p + ": " + std::strerror(r));
    Feito("would remove", "removed", "folder " + p);
  }

  void PstEli(const Linha& l) {
    const std::string& p = l.S("path");
    Est e = Ver(p);
    if (!Alcanca(e, p)) return;
    if (e.ha && e.pasta) return;
    if (e.ha) return Fica("kept " + p + ": something else is there again");
    if (!seco_) {
      std::string nome;
      Fd d(DirPaiAbr(p, nome));
      long long m = Octal(l.V("mode"));
      if (d.f < 0 || mkdirat(d.f, nome.c_str(), 0700) != 0)
        return Fica("not undone: folder " + p + ": " + std::strerror(errno));
      if (geteuid() == 0 && l.N("uid") >= 0) fchownat(d.f, nome.c_str(), uid_t(l.N("uid")), gid_t(l.N("gid")), AT_SYMLINK_NOFOLLOW);
      fchmodat(d.f, nome.c_str(), m >= 0 ? mode_t(m) & 07777 : 0755, 0);
    }
    Poe(p, Est{true, true, false, ""});
    Feito("would make", "made", "folder " + p + " again");
  }

  void Mov(const Linha& l) {
    const std::string &de = l.S("from"), &para = l.S("to");
    Est a = Ver(de), b = Ver(para);
    if (!Alcanca(a, de) || !Alcanca(b, para)) return;
    if (a.ha && !b.ha) return;  // back already
    if (!b.ha) return Fica("not undone: " + para + " is gone, so it cannot go back to " + de);
    if (a.ha) return Fica("not undone: " + de + " is taken, so " + para + " cannot go back there");
    if (!seco_) {
      std::string na, nb;
      Fd da(DirPaiAbr(de, na)), db(DirPaiAbr(para, nb));
      if (da.f < 0 || db.f < 0 || renameat2(db.f, nb.c_str(), da.f, na.c_str(), RENAME_NOREPLACE) != 0)
        return Fica("not undone: " + para + " back to " + de + ": " + std::strerror(errno));
    }
    Poe(de, b);
    Poe(para, Est());
    if (esp_.count(para)) esp_[de] = esp_[para], esp_.erase(para);
    Feito("would move", "moved", para + " back to " + de);
  }

  void RegFicCri(const Linha& l) {
    const std::string& p = l.S("path");
    Est e = Ver(p);
    if (!Alcanca(e, p) || !e.ha) return;
    if (!Reg(p).Vazio()) return Fica("kept registry file " + p + ": it holds keys not of this install");
    if (int r = Tira(p, false)) return Fica("kept registry file " + p + ": " + std::strerror(r));
    reg_.erase(p);
    Feito("would remove", "removed", "registry file " + p);
  }

  static std::string Nome(const Linha& l) { return l.S("key") + "\\" + (l.S("name").empty() ? "@" : l.S("name")); }

  void RegVal(const Linha& l, bool posto) {
    const std::string& f = l.S("file");
    RegFic& r = Reg(f);
    Tx k = TxDeUtf8(l.S("key")), n = TxDeUtf8(l.S("name"));
    Tx v;
    bool bruto = false, ha = r.Val(k, n, v, bruto);
    const AtaVal& ant = l.V("previous");
    Tx vAnt = TxDeUtf8(ant.s);
    bool temAnt = ant.tip == AtaVal::Txt, antBruto = l.B("raw");
    if (temAnt ? ha && v == vAnt && bruto == antBruto : !ha) return;  // as before already
    bool comoFicou = posto ? ha && !bruto && v == TxDeUtf8(l.S("value")) : !ha;
    if (!comoFicou) return Fica("kept registry value " + Nome(l) + ": changed since the install");
    if (temAnt) r.ValPoe(k, n, vAnt, antBruto);
    else r.ValTira(k, n);
    if (!RegGra(f)) return;
    if (!temAnt) Feito("would remove", "removed", "registry value " + Nome(l));
    else Feito("would set", "set", "registry value " + Nome(l) + " back");
  }

  void RegChv(const Linha& l, bool criada) {
    const std::string& f = l.S("file");
    RegFic& r = Reg(f);
    Tx k = TxDeUtf8(l.S("key"));
    if (criada) {
      if (!r.Chv(k)) return;
      if (!r.ChvVazia(k)) return Fica("kept registry key " + l.S("key") + ": not empty");
      r.ChvTira(k);
      if (RegGra(f)) Feito("would remove", "removed", "registry key " + l.S("key"));
      return;
    }
    if (r.Chv(k)) return;
    r.ChvPoe(k);
    if (RegGra(f)) Feito("would make", "made", "registry key " + l.S("key") + " again");
  }

  void Prt(const Linha& l) {
    Tx n = TxDeUtf8(l.S("name"));
    int ha = 0, ok = 1;
    PrtExi(n, ha);
    if (!ha) return;
    if (!seco_) PrtEli(n, ok);
    if (!ok) return Fica("not undone: printer " + l.S("name") + ": " + TxUtf8(PrtErrTx(PrtErrUlt())));
    Feito("would remove", "removed", "printer " + l.S("name"));
  }
};

}  // namespace

// The record is trusted only as the running user's or root's, and writable by no
// one else: a record that another user could write would have this undo remove or
// put back files of their choosing.
int AtaDfz(const std::string& nat, bool seco, const std::function<void(const std::string&)>& diz,
           std::string& porque) {
  std::string alvo;
  if (FicAlvo(nat, alvo) != 0) {
    porque = nat + ": a link that is not to be trusted";
    return 2;
  }
  struct stat st;
  if (lstat(alvo.c_str(), &st) == 0 && S_ISREG(st.st_mode) &&
      ((st.st_uid != geteuid() && st.st_uid != 0) || (st.st_mode & (S_IWGRP | S_IWOTH)))) {
    porque = nat + ": not a file of the running user's or root's alone";
    return 2;
  }
  std::string b;
  if (int e = FicLerNat(alvo, b, 1LL << 30)) {
    porque = nat + ": " + FicLerPorque(e, 1LL << 30);
    return 2;
  }
  std::vector<Linha> ls;
  size_t i = 0, n = 0;
  while (i < b.size()) {
    size_t j = b.find('\n', i);
    bool ultima = j == std::string::npos;
    std::string lin = b.substr(i, ultima ? std::string::npos : j - i);
    i = ultima ? b.size() : j + 1;
    n++;
    if (lin.find_first_not_of(" \t\r") == std::string::npos) continue;
    Linha l;
    if (!AtaObjLer(lin, l.o) || !l.Tem("op")) {
      if (ultima) break;  // a last line cut short: the run ended while writing it
      porque = nat + ": line " + std::to_string(n) + " is not a record's line";
      return 2;
    }
    ls.push_back(std::move(l));
  }
  if (ls.empty() || ls[0].S("op") != "begin") {
    porque = nat + ": not an install record (no begin line)";
    return 2;
  }
  return Dfz(ls, seco, diz).Vai();
}

}  // namespace zw
