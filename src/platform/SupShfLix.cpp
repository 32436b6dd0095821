// The desktop's trash, as freedesktop.org's Trash standard lays it out: an
// entry goes to "files" of a trash folder under a free name, with a record of where
// it came from and when in "info/<name>.trashinfo". The trash is the user's own
// ($XDG_DATA_HOME/Trash) when the entry lies on the same file system, else the
// one at the top of the entry's file system (.Trash/<uid> when the administrator
// made .Trash, else .Trash-<uid>). File managers list and restore what lands there.
#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include "Ata.h"
#include "FicGlb.h"
#include "SupShfInt.h"

namespace zw::shf {

namespace {
bool Pasta0700(const std::string& p) {
  if (AtaDirCri(p, 0700) == 0) return true;
  struct stat st;
  return errno == EEXIST && lstat(p.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

// Makes a trash folder with its two subfolders; false when it can't.
bool Prepara(const std::string& t) {
  return Pasta0700(t) && Pasta0700(t + "/files") && Pasta0700(t + "/info");
}

// The path as a URL path: bytes outside the unreserved set and "/" in %XX form.
std::string Url(const std::string& p) {
  std::string r;
  char b[4];
  for (unsigned char c : p) {
    if (isalnum(c) || c == '/' || c == '-' || c == '_' || c == '.' || c == '~') {
      r += char(c);
    } else {
      std::snprintf(b, sizeof b, "%%%02X", c);
      r += b;
    }
  }
  return r;
}

// The mount point of the file system that holds p (p absolute).
std::string Topo(const std::string& p, dev_t dev) {
  std::string t = p;
  for (;;) {
    std::string pai = Pasta(t);
    struct stat st;
    if (pai == t || stat(pai.c_str(), &st) != 0 || st.st_dev != dev) return t;
    t = pai;
  }
}

// Puts the entry into trash folder t; rel is the path written in its record.
int Poe(const std::string& path, const std::string& t, const std::string& rel) {
  std::string nom = Nome(path), livre;
  int fd = -1;
  for (int i = 1; i < 10000 && fd < 0; i++) {
    livre = i == 1 ? nom : nom + "." + std::to_string(i);
    fd = open((t + "/info/" + livre + ".trashinfo").c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0 && errno != EEXIST) return FicErrNat(errno, t);
  }
  if (fd < 0) return kErrFicExi;
  std::string info = t + "/info/" + livre + ".trashinfo";
  char data[32];
  time_t agora = time(nullptr);
  struct tm tm;
  localtime_r(&agora, &tm);
  strftime(data, sizeof data, "%Y-%m-%dT%H:%M:%S", &tm);
  std::string reg = "[Trash Info]\nPath=" + Url(rel) + "\nDeletionDate=" + data + "\n";
  bool ok = write(fd, reg.data(), reg.size()) == ssize_t(reg.size());
  ok = close(fd) == 0 && ok;
  if (!ok) {
    unlink(info.c_str());
    return kErrDisco;
  }
  if (rename(path.c_str(), (t + "/files/" + livre).c_str()) != 0) {
    int r = FicErrNat(errno, path);
    unlink(info.c_str());
    return r;
  }
  // For the record: the entry moved, with the note of where it came from made.
  AtaEscrito(AtaAnt(), info);
  AtaMovNota(path, t + "/files/" + livre);
  return 0;
}
}  // namespace

int Lixo(const std::string& path) {
  std::string abs = Canon(Pasta(path));
  abs = (abs == "/" ? "" : abs) + "/" + Nome(path);
  struct stat st, sh;
  if (lstat(abs.c_str(), &st) != 0) return FicErrNat(errno, abs);
  const char* xdg = std::getenv("XDG_DATA_HOME");
  const char* home = std::getenv("HOME");
  std::string dados = xdg && *xdg ? xdg : std::string(home && *home ? home : "/root") + "/.local/share";
  if (stat(dados.c_str(), &sh) != 0) {
    AtaDirCri(dados, 0700);
    stat(dados.c_str(), &sh);
  }
  if (sh.st_dev == st.st_dev) {
    std::string t = dados + "/Trash";
    if (!Prepara(t)) return kErrPerm;
    return Poe(abs, t, abs);
  }
  std::string topo = Topo(abs, st.st_dev), uid = std::to_string(getuid());
  std::string base = topo == "/" ? "" : topo;
  std::string rel = abs.substr(base.size() + 1);
  struct stat sa;
  std::string adm = base + "/.Trash";
  if (lstat(adm.c_str(), &sa) == 0 && S_ISDIR(sa.st_mode) && (sa.st_mode & S_ISVTX)) {
    std::string t = adm + "/" + uid;
    if (Prepara(t) && Poe(abs, t, rel) == 0) return 0;
  }
  std::string t = base + "/.Trash-" + uid;
  if (!Prepara(t)) return kErrPerm;
  return Poe(abs, t, rel);
}

}  // namespace zw::shf
