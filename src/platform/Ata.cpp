// The install record: its lines, the file they go to, the kept copies, and the
// notes and system calls that the platform's writers use.
#include "Ata.h"
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <tuple>
#include <vector>
#include "FicGlb.h"
#include "FicGra.h"
#include "Sha.h"
#include "SupShfInt.h"
#include "TxtGlb.h"

namespace zw {

namespace {
Ata* gAta = nullptr;

// The length of the UTF-8 sequence at b[i], or 0 when none starts there (a stray
// byte, an overlong form, a surrogate, past U+10FFFF).
size_t SeqUtf8(std::string_view b, size_t i) {
  auto c = [&](size_t k) { return static_cast<unsigned char>(b[k]); };
  unsigned char x = c(i);
  size_t n = x < 0x80 ? 1 : (x >> 5) == 6 ? 2 : (x >> 4) == 14 ? 3 : (x >> 3) == 30 ? 4 : 0;
  if (n == 0 || i + n > b.size()) return 0;
  for (size_t k = 1; k < n; k++)
    if ((c(i + k) & 0xC0) != 0x80) return 0;
  if (n == 2 && x < 0xC2) return 0;
  if (n == 3) {
    unsigned v = (x & 15u) << 12 | (c(i + 1) & 63u) << 6 | (c(i + 2) & 63u);
    if (v < 0x800 || (v >= 0xD800 && v <= 0xDFFF)) return 0;
  }
  if (n == 4) {
    unsigned v = (x & 7u) << 18 | (c(i + 1) & 63u) << 12 | (c(i + 2) & 63u) << 6 | (c(i + 3) & 63u);
    if (v < 0x10000 || v > 0x10FFFF) return 0;
  }
  return n;
}

// The size and SHA-256 of what fd holds, read from its start. False when it cannot
// be read (opened for writing only).
bool Resumo(int fd, int64_t& tam, std::string& sha) {
  Sha256 s;
  static thread_local char buf[1 << 16];
  tam = 0;
  for (;;) {
    ssize_t n = pread(fd, buf, sizeof buf, off_t(tam));
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) break;
    s.Adi(std::string_view(buf, size_t(n)));
    tam += n;
  }
  sha = s.Hex();
  return true;
}

// The reader of a line: one object of plain members.
struct Leitor {
  const std::string& t;
  size_t i = 0;

  void Branco() {
    while (i < t.size() && (t[i] == ' ' || t[i] == '\t' || t[i] == '\r' || t[i] == '\n')) i++;
  }
  bool Hex4(unsigned& v) {
    if (i + 4 > t.size()) return false;
    v = 0;
    for (int k = 0; k < 4; k++) {
      char c = t[i++];
      int d = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
      if (d < 0) return false;
      v = v << 4 | unsigned(d);
    }
    return true;
  }
  static void Utf8(unsigned v, std::string& o) {
    if (v < 0x80) {
      o += char(v);
    } else if (v < 0x800) {
      o += char(0xC0 | v >> 6), o += char(0x80 | (v & 63));
    } else if (v < 0x10000) {
      o += char(0xE0 | v >> 12), o += char(0x80 | (v >> 6 & 63)), o += char(0x80 | (v & 63));
    } else {
      o += char(0xF0 | v >> 18), o += char(0x80 | (v >> 12 & 63)), o += char(0x80 | (v >> 6 & 63));
      o += char(0x80 | (v & 63));
    }
  }
  bool Txt(std::string& o) {
    if (i >= t.size() || t[i] != '"') return false;
    for (i++; i < t.size();) {
      unsigned char c = static_cast<unsigned char>(t[i++]);
      if (c == '"') return true;
      if (c < 0x20) return false;
      if (c != '\\') {
        o += char(c);
        continue;
      }
      if (i >= t.size()) return false;
      char e = t[i++];
      switch (e) {
        case '"': case '\\': case '/': o += e; break;
        case 'b': o += '\b'; break;
        case 'f': o += '\f'; break;
        case 'n': o += '\n'; break;
        case 'r': o += '\r'; break;
        case 't': o += '\t'; break;
        case 'u': {
          unsigned v = 0, w = 0;
          if (!Hex4(v)) return false;
          if (v >= 0xD800 && v <= 0xDBFF) {  // a pair: the low half must follow
            if (i + 2 > t.size() || t[i] != '\\' || t[i + 1] != 'u') return false;
            i += 2;
            if (!Hex4(w) || w < 0xDC00 || w > 0xDFFF) return false;
            Utf8(0x10000 + ((v - 0xD800) << 10) + (w - 0xDC00), o);
          } else if (v >= 0xDC80 && v <= 0xDCFF) {
            o += char(v & 0xFF);  // a byte that was no UTF-8 (AtaJson)
          } else if (v >= 0xDC00 && v <= 0xDFFF) {
            return false;
          } else {
            Utf8(v, o);
          }
          break;
        }
        default: return false;
      }
    }
    return false;
  }
  bool Val(AtaVal& v) {
    if (i >= t.size()) return false;
    if (t[i] == '"') {
      v.tip = AtaVal::Txt;
      return Txt(v.s);
    }
    for (auto [pal, tip, b] : {std::tuple{"null", AtaVal::Nulo, false}, {"true", AtaVal::Sim, true},
                               {"false", AtaVal::Sim, false}}) {
      size_t n = std::strlen(pal);
      if (t.compare(i, n, pal) == 0) {
        i += n;
        v.tip = tip;
        v.b = b;
        return true;
      }
    }
    size_t k = i;
    if (t[k] == '-') k++;
    size_t d = k;
    while (k < t.size() && t[k] >= '0' && t[k] <= '9') k++;
    if (k == d || k - d > 18) return false;  // whole numbers that fit, nothing else
    v.tip = AtaVal::Nu;
    v.n = std::stoll(t.substr(i, k - i));
    i = k;
    return true;
  }
};

std::string Base(const std::string& p) {
  std::string q = p;
  while (q.size() > 1 && q.back() == '/') q.pop_back();
  return shf::Nome(q);
}
}  // namespace

std::string AtaJson(std::string_view b) {
  static const char kHex[] = "0123456789abcdef";
  std::string r = "\"";
  for (size_t i = 0; i < b.size();) {
    unsigned char c = static_cast<unsigned char>(b[i]);
    size_t n = SeqUtf8(b, i);
    if (n == 0) {
      r += "\\udc";
      r += kHex[c >> 4];
      r += kHex[c & 15];
      i++;
      continue;
    }
    if (n > 1) {
      r.append(b.substr(i, n));
    } else if (c == '"' || c == '\\') {
      r += '\\';
      r += char(c);
    } else if (c < 0x20 || c == 0x7F) {
      r += "\\u00";
      r += kHex[c >> 4];
      r += kHex[c & 15];
    } else {
      r += char(c);
    }
    i += n;
  }
  return r + "\"";
}

bool AtaObjLer(const std::string& lin, AtaObj& o) {
  o.clear();
  Leitor r{lin};
  r.Branco();
  if (r.i >= lin.size() || lin[r.i] != '{') return false;
  r.i++;
  r.Branco();
  if (r.i < lin.size() && lin[r.i] == '}') {
    r.i++;
  } else {
    for (;;) {
      std::string k;
      r.Branco();
      if (!r.Txt(k)) return false;
      r.Branco();
      if (r.i >= lin.size() || lin[r.i] != ':') return false;
      r.i++;
      r.Branco();
      AtaVal v;
      if (!r.Val(v)) return false;
      o[k] = v;
      r.Branco();
      if (r.i < lin.size() && lin[r.i] == ',') {
        r.i++;
        continue;
      }
      if (r.i < lin.size() && lin[r.i] == '}') {
        r.i++;
        break;
      }
      return false;
    }
  }
  r.Branco();
  return r.i == lin.size();
}

AtaLin::AtaLin(const char* op) : s_(std::string("{\"op\":\"") + op + "\"") {}

AtaLin& AtaLin::Txt(const char* k, std::string_view b) {
  s_ += std::string(",\"") + k + "\":" + AtaJson(b);
  return *this;
}
AtaLin& AtaLin::Txt(const char* k, const Tx& t) { return Txt(k, TxUtf8(t)); }
AtaLin& AtaLin::Nu(const char* k, int64_t n) {
  s_ += std::string(",\"") + k + "\":" + std::to_string(n);
  return *this;
}
AtaLin& AtaLin::Nulo(const char* k) {
  s_ += std::string(",\"") + k + "\":null";
  return *this;
}
AtaLin& AtaLin::Sim(const char* k, bool b) {
  s_ += std::string(",\"") + k + "\":" + (b ? "true" : "false");
  return *this;
}
AtaLin& AtaLin::Modo(mode_t m) {
  char b[16];
  std::snprintf(b, sizeof b, "%04o", unsigned(m & 07777));
  return Txt("mode", std::string_view(b));
}

Ata::~Ata() {
  if (fd_ >= 0) close(fd_);
}

int Ata::Abre(const std::string& nat, const std::string& guarda, const std::string& wizard, const char* tool,
              std::string& porque) {
  auto Falha = [&](int e, const std::string& f, const std::string& pq) {
    porque = f + ": " + pq;
    if (fd_ >= 0) close(fd_), fd_ = -1;
    return e;
  };
  int fd = FicCriNov(nat, O_WRONLY | O_APPEND, 0600);
  if (fd < 0 && errno == EEXIST) {
    // A record that is there already: only a regular file of the user's own, so
    // that no one can have a run write into a file of theirs or through a link.
    fd = open(nat.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0 && (errno == ELOOP || errno == EEXIST)) return Falha(kErrPerm, nat, "a symbolic link");
    if (fd < 0 && (errno == EISDIR || errno == ENXIO)) return Falha(kErrAces, nat, "not a regular file");
    if (fd >= 0) {
      fd_ = fd;
      struct stat st;
      if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) return Falha(kErrAces, nat, "not a regular file");
      if (st.st_uid != geteuid()) return Falha(kErrPerm, nat, "not the user's own file");
      fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    }
  }
  if (fd < 0) return Falha(FicErrNat(errno, nat), nat, std::strerror(errno));
  fd_ = fd;
  if (!guarda.empty()) {
    if (int e = DirPrv(guarda, 0700))
      return Falha(e, guarda, e == kErrPerm ? "not a folder of the user's alone" : "cannot be made");
    guarda_ = AtaAbs(guarda);
  }
  char t[32];
  time_t agora = time(nullptr);
  struct tm tm;
  gmtime_r(&agora, &tm);
  strftime(t, sizeof t, "%Y-%m-%dT%H:%M:%SZ", &tm);
  AtaLin l("begin");
  l.Nu("version", 1).Txt("wizard", wizard).Txt("time", std::string_view(t)).Nu("uid", int64_t(geteuid()));
  l.Txt("tool", std::string_view(tool));
  if (!guarda_.empty()) l.Txt("keep", guarda_);
  Gra(l);
  if (err_) return Falha(err_, nat, "cannot be written");
  return 0;
}

// One write of the whole line; a short one is cut back, so the record never holds
// half a line.
void Ata::Gra(const AtaLin& l) {
  std::string porque;
  {
    std::lock_guard<std::mutex> g(mx_);
    if (fd_ < 0 || err_) return;
    std::string s = l.Fim();
    struct stat st;
    off_t antes = fstat(fd_, &st) == 0 ? st.st_size : -1;
    ssize_t n;
    do n = write(fd_, s.data(), s.size());
    while (n < 0 && errno == EINTR);
    if (n == ssize_t(s.size())) return;
    porque = n < 0 ? std::strerror(errno) : "a short write";
    err_ = n < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG) ? kErrDisco : kErrIO;
    if (n > 0 && antes >= 0) (void)!ftruncate(fd_, antes);
  }
  if (falha) falha(porque);
}

void Ata::Fim(int st) {
  if (fd_ < 0) return;
  Gra(AtaLin("end").Nu("status", st));
  std::lock_guard<std::mutex> g(mx_);
  close(fd_);
  fd_ = -1;
}

std::string Ata::Guarda(int fd, int64_t tam, const std::string& nat) {
  if (guarda_.empty() || fd < 0) return std::string();
  std::string nome;
  int fo = -1;
  {
    std::lock_guard<std::mutex> g(mx_);
    for (int i = 0; fo < 0 && i < 1000; i++) {
      nome = guarda_ + "/" + std::to_string(++seq_) + "-" + Base(nat);
      fo = FicCriNov(nome, O_WRONLY, 0600);
      if (fo < 0 && errno != EEXIST) return std::string();
    }
  }
  if (fo < 0) return std::string();
  static thread_local char buf[1 << 16];
  bool ok = true;
  for (int64_t pos = 0; ok && (tam < 0 || pos < tam);) {
    size_t quer = tam < 0 ? sizeof buf : size_t(std::min<int64_t>(int64_t(sizeof buf), tam - pos));
    ssize_t n = pread(fd, buf, quer, off_t(pos));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      ok = n == 0;
      break;
    }
    for (ssize_t w = 0; ok && w < n;) {
      ssize_t k = write(fo, buf + w, size_t(n - w));
      if (k < 0 && errno == EINTR) continue;
      if (k < 0) ok = false;
      else w += k;
    }
    pos += n;
  }
  ok = close(fo) == 0 && ok;
  if (!ok) {
    unlink(nome.c_str());
    return std::string();
  }
  return nome;
}

void AtaDef(Ata* a) { gAta = a; }
Ata* AtaAct() { return gAta; }

std::string AtaAbs(const std::string& nat) {
  std::string p = nat;
  while (p.size() > 1 && p.back() == '/') p.pop_back();
  if (p.empty()) return p;
  std::string nom = shf::Nome(p);
  if (nom == "." || nom == ".." || p == "/") return shf::Canon(p);
  std::string c = shf::Canon(shf::Pasta(p));
  return (c == "/" ? "" : c) + "/" + nom;
}

AtaAnt AtaAntes(int dirfd, const std::string& nome) {
  AtaAnt a;
  Ata* r = AtaAct();
  struct stat st;
  if (!r || fstatat(dirfd, nome.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) return a;
  a.ha = true;
  a.modo = st.st_mode;
  a.uid = st.st_uid;
  a.gid = st.st_gid;
  a.reg = S_ISREG(st.st_mode);
  if (S_ISLNK(st.st_mode)) {
    std::string t(size_t(st.st_size > 0 ? st.st_size : 4096) + 1, '\0');
    ssize_t n = readlinkat(dirfd, nome.c_str(), t.data(), t.size());
    if (n >= 0) a.lnk = t.substr(0, size_t(n));
  }
  if (a.reg && r->Guarda()) {
    int fd = openat(dirfd, nome.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd >= 0) {
      a.guardado = r->Guarda(fd, -1, nome);
      close(fd);
    }
  }
  return a;
}

void AtaEscrito(const AtaAnt& a, const std::string& nat, int fd, char tipo) {
  Ata* r = AtaAct();
  if (!r) return;
  std::string p = AtaAbs(nat);
  if (r->Proprio(p)) return;
  struct stat st;
  int64_t tam = -1;
  std::string sha, lnk;
  if (lstat(p.c_str(), &st) == 0 && S_ISLNK(st.st_mode)) {
    std::string t(size_t(st.st_size > 0 ? st.st_size : 4096) + 1, '\0');
    ssize_t n = readlink(p.c_str(), t.data(), t.size());
    lnk = t.substr(0, size_t(n > 0 ? n : 0));
    tam = int64_t(lnk.size());
    sha = ShaHex(lnk);
  } else {
    bool ok = fd >= 0 && fstat(fd, &st) == 0 && Resumo(fd, tam, sha);
    if (!ok) {
      int f = open(p.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
      ok = f >= 0 && fstat(f, &st) == 0 && S_ISREG(st.st_mode) && Resumo(f, tam, sha);
      if (f >= 0) close(f);
    }
    if (!ok) return;  // gone again, or not a file: nothing to note
  }
  const char* op = tipo == 'L' ? "launcher-written" : a.ha ? "file-replaced" : "file-created";
  AtaLin l(op);
  l.Txt("path", p).Nu("size", tam).Txt("sha256", sha).Modo(st.st_mode);
  if (!lnk.empty()) l.Txt("link", lnk);
  if (tipo == 'L') l.Sim("created", !a.ha);
  if (tipo == 'R') l.Sim("registry", true);
  if (a.ha) {
    if (a.guardado.empty()) l.Nulo("kept");
    else l.Txt("kept", a.guardado);
    char m[16];
    std::snprintf(m, sizeof m, "%04o", unsigned(a.modo & 07777));
    l.Txt("old_mode", std::string_view(m)).Nu("old_uid", a.uid).Nu("old_gid", a.gid);
  }
  r->Gra(l);
}

void AtaPstCri(const std::string& nat) {
  if (Ata* r = AtaAct()) r->Gra(AtaLin("folder-created").Txt("path", AtaAbs(nat)));
}

void AtaEliNota(const AtaAnt& a, const std::string& nat) {
  Ata* r = AtaAct();
  std::string p = r ? AtaAbs(nat) : std::string();
  if (!r || !a.ha || r->Proprio(p)) return;
  bool pasta = S_ISDIR(a.modo);
  AtaLin l(pasta ? "folder-deleted" : "file-deleted");
  l.Txt("path", p);
  if (!pasta) {
    if (a.guardado.empty()) l.Nulo("kept");
    else l.Txt("kept", a.guardado);
  }
  l.Modo(a.modo).Nu("uid", a.uid).Nu("gid", a.gid);
  if (!a.lnk.empty()) l.Txt("link", a.lnk);
  r->Gra(l);
}

void AtaMovNota(const std::string& de, const std::string& para) {
  Ata* r = AtaAct();
  if (!r) return;
  std::string o = AtaAbs(de), d = AtaAbs(para);
  if (!r->Proprio(o) && !r->Proprio(d)) r->Gra(AtaLin("moved").Txt("from", o).Txt("to", d));
}

void AtaPrt(const Tx& nome) {
  if (Ata* r = AtaAct()) r->Gra(AtaLin("printer-added").Txt("name", nome));
}

void AtaPgm(const Tx& cmd, int pid) {
  if (Ata* r = AtaAct()) r->Gra(AtaLin("program-run").Txt("command", cmd).Nulo("status").Nu("pid", pid));
}

void AtaPgmFim(int pid, int st, const Tx& cmd) {
  Ata* r = AtaAct();
  if (!r) return;
  if (pid == 0) r->Gra(AtaLin("program-run").Txt("command", cmd).Nu("status", st));
  else r->Gra(AtaLin("program-ended").Nu("pid", pid).Nu("status", st));
}

int AtaDirCri(const std::string& nat, mode_t modo) {
  int r = mkdir(nat.c_str(), modo);
  if (r == 0) AtaPstCri(nat);
  return r;
}

// unlinkat of the name nome of the folder dirfd (nat the path the note gives), a
// folder with pasta; a kept copy is dropped again when the call fails.
int AtaEliEm(int dirfd, const std::string& nome, const std::string& nat, bool pasta) {
  int fl = pasta ? AT_REMOVEDIR : 0;
  if (!AtaLig()) return unlinkat(dirfd, nome.c_str(), fl);
  AtaAnt a = AtaAntes(dirfd, nome);
  int r = unlinkat(dirfd, nome.c_str(), fl);
  int e = errno;
  if (r == 0) AtaEliNota(a, nat);
  else if (!a.guardado.empty()) unlink(a.guardado.c_str());
  errno = e;
  return r;
}

namespace {
// unlink or rmdir. The name is made absolute before the change: a relative name,
// or a folder that goes away with it, is still named as it was.
int Tira(const std::string& nat, bool pasta) {
  if (!AtaLig()) return AtaEliEm(AT_FDCWD, nat, nat, pasta);
  std::string p = AtaAbs(nat);
  return AtaEliEm(AT_FDCWD, p, p, pasta);
}
}  // namespace

int AtaFicEli(const std::string& nat) { return Tira(nat, false); }
int AtaDirEli(const std::string& nat) { return Tira(nat, true); }

// A name that the rename takes over is a file deleted first, with its kept copy.
int AtaRen(const std::string& de, const std::string& para) {
  if (!AtaLig()) return rename(de.c_str(), para.c_str());
  std::string o = AtaAbs(de), d = AtaAbs(para);
  AtaAnt a = AtaAntes(AT_FDCWD, d);
  int r = rename(o.c_str(), d.c_str());
  int e = errno;
  if (r == 0) {
    AtaEliNota(a, d);
    AtaMovNota(o, d);
  } else if (!a.guardado.empty()) {
    unlink(a.guardado.c_str());
  }
  errno = e;
  return r;
}

}  // namespace zw
