// ZunWizPmp: the windows while a script runs. A script call (a page's entry or
// exit, a transition's function, "FxIni", "FxFim", a calculation) runs on the
// windows' own thread, so without help they would neither paint nor close until it
// ends. The script host's pump (VbsPmpDef) comes here about every 100 ms of a call:
// the windows paint, and their close boxes and "Cancelar" are taken, while every
// other click and key on them is dropped, so that no second transition starts
// inside the first. A close or "Cancelar" asks, once the call has run past the wait
// (5 s), whether to stop the script; a stopped call fails as any script error does,
// and the wizard goes on as after one. A close is also kept and carried out once
// the wizard is idle again (docs/startup.md, "A script that does not answer").
#pragma once
#include "Tx.h"

namespace zw {

// The question a close or "Cancelar" asks of a call that runs past the wait.
inline constexpr char16_t kPmpPrg[] = u"O programa do assistente não responde. Parar o programa?";

// Puts the pump in force for the script hosts started from now on, and the filter
// that drops input to the windows while a call runs; once per process.
void PmpIni();
// True while the windows take no click: a script call runs, or the pump is at work.
bool PmpExeAct();
// A close of one of the wizard's windows: false when it must wait because a script
// call runs (the close is then kept and asks the question when the call is past the
// wait), true when it goes on now. A close by the program itself (PmpFecPrg) never
// waits.
bool PmpFec();
// "Cancelar" clicked while a script call runs: asks the question once the call is
// past the wait, and is nothing more.
void PmpCan();
// The close kept during a script call, taken: true once, then false until another.
bool PmpFecTom();
// The wait before the question, in milliseconds (5000); tests shorten it.
void PmpEspDef(long ms);

// While it lives, a close is the program's own (the engine's unload, the close of
// every window), not a person's: it goes on at once.
struct PmpFecPrg {
  PmpFecPrg();
  ~PmpFecPrg();
  PmpFecPrg(const PmpFecPrg&) = delete;
  PmpFecPrg& operator=(const PmpFecPrg&) = delete;
};

}  // namespace zw
