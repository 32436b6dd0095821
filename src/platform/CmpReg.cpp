// Component registration: load the library, run its entry point on the one worker
// thread, wait at most 10000 ms.
#include "CmpReg.h"
#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <ctime>
#include <vector>
#include "Ata.h"
#include "FicGlb.h"
#include "GlbMsg.h"
#include "Trc.h"
#include "TxtGlb.h"

namespace zw {

namespace {

using EntPto = long (*)();

struct Tarefa {
  EntPto ent;
};

// The worker: runs the entry point and nothing else; what it answers is not read,
// what it throws goes to the trace.
void* Corre(void* p) {
  try {
    static_cast<Tarefa*>(p)->ent();
  } catch (...) {
    TrcFal(u"CmpReg", u"entry point", TrcPor());
  }
  return nullptr;
}

}  // namespace

namespace {
int gEsp = kCmpRegEsp;
}  // namespace

void CmpRegEspDef(int ms) { gEsp = ms > 0 ? ms : kCmpRegEsp; }

// Every answer but 4 and 5 is a failure the callers pass over; the trace says which.
int CmpRegLib(const Tx& fic, int acao) {
  if (fic.empty()) return 0;
  const char* nomEnt = acao == 1 ? "DllRegisterServer" : "DllUnregisterServer";
  const Tx oque = TxAsc(nomEnt) + u" \"" + fic + u"\"";
  int e = 0;
  std::string nat = FicNat(fic, &e);
  void* lib = e ? nullptr : dlopen(nat.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!lib) {
    const char* por = e ? nullptr : dlerror();
    TrcFal(u"CmpReg", oque, por ? TxDeUtf8(por) : u"the path can't be read, error " + TxAsc(std::to_string(e)));
    return 1;
  }
  void* ent = dlsym(lib, nomEnt);
  if (!ent) {
    TrcFal(u"CmpReg", oque, u"the library has no such entry point");
    dlclose(lib);
    return 2;
  }
  // The library stays loaded while the thread may still run it. The worker is
  // detached only when it has ended; the task lives on the heap for the same reason.
  auto* t = new Tarefa{reinterpret_cast<EntPto>(ent)};
  pthread_t th;
  if (pthread_create(&th, nullptr, Corre, t) != 0) {
    TrcFal(u"CmpReg", oque, u"no thread for the entry point");
    delete t;
    return 0;
  }
  timespec fim;
  clock_gettime(CLOCK_REALTIME, &fim);
  fim.tv_sec += gEsp / 1000;
  fim.tv_nsec += long(gEsp % 1000) * 1000000;
  if (fim.tv_nsec >= 1000000000) {
    fim.tv_sec += 1;
    fim.tv_nsec -= 1000000000;
  }
  int r;
  while ((r = pthread_timedjoin_np(th, nullptr, &fim)) == EINTR) {
  }
  if (r == 0) {
    delete t;
    dlclose(lib);
    // The component's own code ran in this process: for the record, a program run.
    AtaPgmFim(0, 0, (acao == 1 ? u"DllRegisterServer " : u"DllUnregisterServer ") + TxDeUtf8(AtaAbs(nat)));
    return acao == 1 ? 4 : 5;
  }
  // The component hangs: the wizard's thread gives up with the still-active code,
  // and with it the program.
  _exit(kCmpRegSai);
}

void CmpRegExe(const Tx& modo, const Tx& fic, int& ok) {
  ok = 0;
  Tx m = TxMaiTrm(modo);
  if (m == u"R") {
    ok = CmpRegLib(fic, 2) == 5 ? 1 : 0;
  } else if (m == u"I") {
    if (FicExi(fic) == 1) {
      ok = CmpRegLib(fic, 1) == 4 ? 1 : 0;
    } else {
      int r = 0;
      MsgExe(u"!CNF", u"Instalar Componente", u"O Componente |" + fic + u"| Não existe!", r);
    }
  }
}

void CmpRegDirExe(const Tx& modo, const Tx& ext, const Tx& dir) {
  Tx e = TxMaiTrm(ext), m = TxMaiTrm(modo);
  std::vector<Tx> tipos;
  if (e == u"DLL" || e == u"OCX") tipos = {e};
  else tipos = {u"DLL", u"OCX"};
  for (const Tx& tip : tipos) {
    std::vector<Tx> fics;
    for (const Tx& pad : tip == u"DLL" ? std::vector<Tx>{u"*.dll", u"*.so"} : std::vector<Tx>{u"*.ocx"}) {
      std::vector<Tx> noms;
      int n = 0, err = 0;
      DirLisAtr(u"F", 0, dir, pad, noms, nullptr, n, err);
      for (int i = 1; i <= n; ++i) fics.push_back(noms[size_t(i)]);
    }
    std::stable_sort(fics.begin(), fics.end(), [](const Tx& a, const Tx& b) { return TxMai(a) < TxMai(b); });
    for (const Tx& nom : fics) {
      Tx fic = FicJun(dir, nom);
      int ok = 0;
      if (m == u"I") {
        CmpRegExe(u"I", fic, ok);
      } else {
        CmpRegExe(u"R", fic, ok);
        if (m != u"R") CmpRegExe(u"I", fic, ok);
      }
    }
  }
}

}  // namespace zw
