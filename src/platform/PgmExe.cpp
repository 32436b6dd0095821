// Programs of the wizard: start, open, wait.
#include <sys/stat.h>
#include <unistd.h>
#include <chrono>
#include <thread>
#include "DbgFx.h"
#include "FicGlb.h"
#include "Pgm.h"
#include "PrcExe.h"
#include "TxtGlb.h"

namespace zw {

namespace {
constexpr long kErrBase = 2147221504;  // 0x7FFC0000, taken off a start's error number
}  // namespace

void PgmLanExe(const Var& estilo, const Tx& cmd, int& pid, long& err) {
  long e = estilo.EhNum() ? long(estilo.Num()) : -1;
  if (e < 0 || e > 6) e = 6;  // the style of the window: nothing on Linux acts on it
  pid = 0;
  std::vector<Tx> w = PrcPal(cmd);
  int r = kErrFicNao;
  if (!w.empty()) {
    Tx prog = w[0];
    w.erase(w.begin());
    r = PrcLan(prog, w, pid);
  }
  err = r ? long(r) - kErrBase : 0;
}

void PgmLan(const Tx& cmd, int& ok) {
  int pid = 0;
  long err = 0;
  PgmLanExe(Var(int16_t(1)), cmd, pid, err);
  ok = err == 0 ? 1 : 0;
}

// The shell runs a program that it is given and opens any other file with the
// program for it; so does this: an executable file, or a name that is no file here
// (a program looked up in PATH), starts; the rest goes to the desktop's opener.
void PgmAbr(const Tx& doc, int& ok) {
  std::string n = FicNat(doc);
  struct stat st;
  bool ha = !n.empty() && stat(n.c_str(), &st) == 0;
  int pid = 0;
  if ((!ha || (S_ISREG(st.st_mode) && access(n.c_str(), X_OK) == 0)) && PrcLan(doc, {}, pid) == 0) {
    ok = 1;
    return;
  }
  ok = PrcAbr(doc) == 0 ? 1 : 0;
}

// The blocking wait gives the runner's word; the poll pauses once and answers "NOR".
Tx PgmEsp(const Tx& tip, int pid, const Var& to) {
  if (TxMaiTrm(tip) == u"B") {
    int ms = to.EhFalta() || to.EhVazio() ? -1 : int(NuDbl(to) * 1000);
    int cod = 0;
    return PrcEsp(pid, ms, cod);
  }
  EvtPmp();
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  return u"NOR";
}

Tx PgmLanEsp(const Tx& tip, const Tx& cmd, int estilo, const Var& to) {
  int pid = 0;
  long err = 0;
  PgmLanExe(Var(int32_t(estilo)), cmd, pid, err);
  if (!pid) return NuCStr(double(err));
  return PgmEsp(tip, pid, to);
}

}  // namespace zw
