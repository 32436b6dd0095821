// Programs: start with posix_spawn, wait with waitpid, collect the forgotten ones.
#include "PrcExe.h"
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <chrono>
#include <climits>
#include <map>
#include <string>
#include <thread>
#include "Ata.h"
#include "FicGlb.h"
#include "FicInf.h"
#include "TxtGlb.h"

extern char** environ;

namespace zw {

namespace {
std::map<int, int> gVivos;  // children started and not yet waited for: id -> -1
std::map<int, int> gFins;   // children collected early: id -> exit code
PrcEspGan gGan = nullptr;   // the wait hook
constexpr auto kGanMs = std::chrono::milliseconds(100);  // between two calls of the hook
constexpr auto kTerMs = std::chrono::milliseconds(500);  // from SIGTERM to SIGKILL

int Codigo(int st) { return WIFEXITED(st) ? WEXITSTATUS(st) : WIFSIGNALED(st) ? 128 + WTERMSIG(st) : 0; }

// Collects the children that ended meanwhile, keeping their codes for a later wait.
void Colhe() {
  for (auto it = gVivos.begin(); it != gVivos.end();) {
    int st = 0;
    pid_t r = waitpid(it->first, &st, WNOHANG);
    if (r == it->first) {
      gFins[it->first] = Codigo(st);
      AtaPgmFim(r, Codigo(st));
      it = gVivos.erase(it);
    } else if (r < 0 && errno == ECHILD) {
      it = gVivos.erase(it);
    } else {
      ++it;
    }
  }
}

bool Existe(const std::string& p) { return FicInfTip(p) != kFicNada; }

bool Branco(char16_t c) { return c == u' ' || c == u'\t'; }

// Closes the descriptors of a pipe pair that are open.
void Fecha(int (&p)[2]) {
  for (int& f : p)
    if (f >= 0) close(f), f = -1;
}

// A command line of the words, for the install record: a word with a blank, a tab
// or a quote, or an empty one, in quotes, its quotes escaped (PrcPal's rules).
Tx Linha(const Tx& prog, const std::vector<Tx>& args) {
  Tx r = prog.empty() || prog.find_first_of(u" \t") != Tx::npos ? u'"' + prog + u'"' : prog;
  for (const Tx& w : args) {
    r += u' ';
    if (!w.empty() && w.find_first_of(u" \t\"") == Tx::npos) {
      r += w;
      continue;
    }
    r += u'"';
    size_t barras = 0;
    for (char16_t c : w) {
      if (c == u'\\') {
        barras++;
      } else {
        if (c == u'"') r.append(barras + 1, u'\\');
        barras = 0;
      }
      r += c;
    }
    r.append(barras, u'\\');
    r += u'"';
  }
  return r;
}

// The start itself: with tub, the child's streams go to three new pipes whose
// other ends come back in tub. The pipes are made close-on-exec, so a later child
// does not inherit this one's ends and keep its input open.
int Lanca(const Tx& prog, const std::vector<Tx>& args, int& pid, PrcTub* tub) {
  pid = 0;
  Colhe();
  if (prog.empty()) return kErrFicNao;
  bool caminho = prog.find_first_of(u"\\/") != Tx::npos || (prog.size() >= 2 && prog[1] == u':');
  std::string p;
  if (caminho) {
    int e = 0;
    p = FicNat(prog, &e);
    if (e) return e;
    if (!Existe(p) && p.size() > 4 && TxMai(TxDeUtf8(p.substr(p.size() - 4))) == u".EXE" &&
        Existe(p.substr(0, p.size() - 4)))
      p.resize(p.size() - 4);
  } else {
    p = TxUtf8(prog);
  }
  std::vector<std::string> a{p};
  for (const Tx& x : args) a.push_back(TxUtf8(x));
  std::vector<char*> argv;
  for (auto& s : a) argv.push_back(s.data());
  argv.push_back(nullptr);
  int pi[2] = {-1, -1}, po[2] = {-1, -1}, pe[2] = {-1, -1};
  posix_spawn_file_actions_t fa;
  posix_spawn_file_actions_init(&fa);
  if (tub) {
    if (pipe2(pi, O_CLOEXEC) || pipe2(po, O_CLOEXEC) || pipe2(pe, O_CLOEXEC)) {
      Fecha(pi), Fecha(po), Fecha(pe);
      posix_spawn_file_actions_destroy(&fa);
      return kErrFicMui;
    }
    posix_spawn_file_actions_adddup2(&fa, pi[0], 0);
    posix_spawn_file_actions_adddup2(&fa, po[1], 1);
    posix_spawn_file_actions_adddup2(&fa, pe[1], 2);
  }
  pid_t id = 0;
  int r = caminho ? posix_spawn(&id, p.c_str(), &fa, nullptr, argv.data(), environ)
                  : posix_spawnp(&id, p.c_str(), &fa, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&fa);
  if (tub) {
    // The child's ends are the child's now.
    close(pi[0]), close(po[1]), close(pe[1]);
    if (r != 0) {
      close(pi[1]), close(po[0]), close(pe[0]);
    } else {
      tub->in = pi[1];
      tub->out = po[0];
      tub->err = pe[0];
    }
  }
  if (r != 0) {
    if (r == ENOENT) return caminho ? FicErrNat(r, p) : kErrFicNao;
    if (r == EACCES || r == EPERM || r == ENOEXEC) return kErrPerm;
    return kErrAces;
  }
  pid = int(id);
  gVivos[pid] = -1;
  if (AtaLig()) AtaPgm(Linha(prog, args), pid);
  return 0;
}
}  // namespace

// One pass over the line: the program name first, with its plainer rule, then the
// arguments, each with the backslash counting of the Windows runtime.
std::vector<Tx> PrcPal(const Tx& linha) {
  std::vector<Tx> v;
  size_t i = 0, n = linha.size();
  while (i < n && Branco(linha[i])) ++i;
  if (i >= n) return v;
  // The program name: quotes group and nothing escapes.
  Tx w;
  bool aspa = false;
  for (; i < n && (aspa || !Branco(linha[i])); ++i) {
    if (linha[i] == u'"') aspa = !aspa;
    else w += linha[i];
  }
  v.push_back(w);
  // The arguments.
  for (;;) {
    while (i < n && Branco(linha[i])) ++i;
    if (i >= n) break;
    w.clear();
    aspa = false;
    while (i < n && (aspa || !Branco(linha[i]))) {
      char16_t c = linha[i];
      if (c == u'\\') {
        size_t k = 0;
        while (i < n && linha[i] == u'\\') ++k, ++i;
        if (i < n && linha[i] == u'"') {
          w.append(k / 2, u'\\');
          if (k % 2) {
            w += u'"';
            ++i;
          }
        } else {
          w.append(k, u'\\');
        }
      } else if (c == u'"') {
        if (aspa && i + 1 < n && linha[i + 1] == u'"') {
          w += u'"';
          i += 2;
        } else {
          aspa = !aspa;
          ++i;
        }
      } else {
        w += c;
        ++i;
      }
    }
    v.push_back(w);
  }
  return v;
}

int PrcLan(const Tx& prog, const std::vector<Tx>& args, int& pid) { return Lanca(prog, args, pid, nullptr); }

int PrcLan(const Tx& prog, const std::vector<Tx>& args, int& pid, PrcTub& tub) {
  return Lanca(prog, args, pid, &tub);
}

int PrcLan(const Tx& linha, int& pid) {
  std::vector<Tx> w = PrcPal(linha);
  if (w.empty()) {
    pid = 0;
    return kErrFicNao;
  }
  Tx prog = w[0];
  w.erase(w.begin());
  return PrcLan(prog, w, pid);
}

void PrcEspGanDef(PrcEspGan f) { gGan = f; }

namespace {
// A waited child collected with status st: no longer running, its end in the
// record; its code.
int Recolhe(int pid, int st) {
  gVivos.erase(pid);
  AtaPgmFim(pid, Codigo(st));
  return Codigo(st);
}

// Ends a child whose wait the hook stopped: SIGTERM, then SIGKILL when the grace is
// over, and collects it as any wait does; its code, or -1 when it is no child.
int Encerra(int pid) {
  kill(pid_t(pid), SIGTERM);
  auto fim = std::chrono::steady_clock::now() + kTerMs;
  bool morto = false;
  for (;;) {
    int st = 0;
    pid_t r = waitpid(pid_t(pid), &st, morto ? 0 : WNOHANG);
    if (r == pid) return Recolhe(pid, st);
    if (r < 0 && errno != EINTR) {
      gVivos.erase(pid);
      return -1;
    }
    if (r == 0 && std::chrono::steady_clock::now() >= fim) {
      kill(pid_t(pid), SIGKILL);
      morto = true;
    } else if (r == 0) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
}
}  // namespace

// With the hook, a wait without limit polls as a limited one does, so that the
// hook runs between two looks.
Tx PrcEsp(int pid, int ms, int& cod) {
  cod = 0;
  if (auto f = gFins.find(pid); f != gFins.end()) {
    cod = f->second;
    gFins.erase(f);
    return u"NOR";
  }
  if (!gVivos.count(pid)) return u"ERR";
  const PrcEspGan gan = ms != 0 ? gGan : nullptr;
  auto fim = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms < 0 ? 0 : ms);
  auto proGan = std::chrono::steady_clock::now() + kGanMs;
  for (;;) {
    int st = 0;
    pid_t r = waitpid(pid_t(pid), &st, ms < 0 && !gan ? 0 : WNOHANG);
    if (r == pid) {
      cod = Recolhe(pid, st);
      return u"NOR";
    }
    if (r < 0 && errno != EINTR) {
      gVivos.erase(pid);
      return u"ERR";
    }
    if (r == 0) {
      auto ago = std::chrono::steady_clock::now();
      if (ms >= 0 && ago >= fim) return u"TO";
      if (gan && ago >= proGan) {
        if (!gan()) {
          int c = Encerra(pid);
          if (c < 0) return u"ERR";
          cod = c;
          return u"PAR";
        }
        proGan = std::chrono::steady_clock::now() + kGanMs;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
}

Tx PrcLanEsp(const Tx& linha, int ms, int& cod) {
  int pid = 0;
  int e = PrcLan(linha, pid);
  if (e) {
    cod = e;
    return u"ERR";
  }
  return PrcEsp(pid, ms, cod);
}

bool PrcTer(int pid) {
  Colhe();
  return gVivos.count(pid) && kill(pid_t(pid), SIGTERM) == 0;
}

// The opener is xdg-open, run through a shell only to send its messages to
// /dev/null (exec leaves the opener itself as the child). It ends at once when it
// finds no program for the document (non-zero) or hands the document to the
// desktop (0); on a desktop it cannot name it runs the program itself and stays,
// so one still running after kAbrMs has taken the document. It is collected later
// like any program never waited for.
int PrcAbr(const Tx& doc) {
  constexpr int kAbrMs = 1500;
  std::string n = FicNat(doc);
  if (n.empty() || !Existe(n)) return kErrFicNao;
  int pid = 0, cod = 0;
  if (PrcLan(u"/bin/sh", {u"-c", u"exec xdg-open \"$1\" >/dev/null 2>&1", u"sh", TxDeUtf8(n)}, pid))
    return kErrAces;
  Tx st = PrcEsp(pid, kAbrMs, cod);
  return st == u"TO" || (st == u"NOR" && cod == 0) ? 0 : kErrAces;
}

// Linux names the executable of a process by the link /proc/self/exe.
Tx PrcExeCam() {
  char b[PATH_MAX];
  ssize_t n = readlink("/proc/self/exe", b, sizeof b - 1);
  return n > 0 ? TxDeUtf8(std::string_view(b, size_t(n))) : Tx();
}

}  // namespace zw
