// VbsSup: the diagnostic trace. The host swallows every script error (the wizard
// never shows one); with the trace on, each swallowed failure is also written to
// stderr, one line each, so that an author can see why a page function did nothing.
// The trace only writes: flags, results and script state are the same either way.
#include <chrono>
#include "Engine.h"
#include "PrcExe.h"
#include "Trc.h"
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

namespace {
std::function<void(const VbsTrcReg&)> trcSai;
long tmpMs = -1;
std::function<void(const VbsTrcReg&)> tmpSai;
std::function<bool()> pmpFx;
long pmpMs = 100;
// The calls into the engines: how deep they stand, the outermost one's number and
// start, and whether the pump has stopped it.
int exeNiv = 0;
uint64_t exeNum = 0;
std::chrono::steady_clock::time_point exeIni;
bool exeTer = false;
}  // namespace

void VbsTrcSaiDef(std::function<void(const VbsTrcReg&)> f) { trcSai = std::move(f); }
void VbsTmpDef(long ms) { tmpMs = ms < 0 ? -1 : ms; }
long VbsTmpAct() { return tmpMs; }
void VbsTmpSaiDef(std::function<void(const VbsTrcReg&)> f) { tmpSai = std::move(f); }
void VbsPmpDef(std::function<bool()> f, long ms) {
  pmpFx = std::move(f);
  pmpMs = ms > 0 ? ms : 100;
}
bool VbsExeAct() { return exeNiv > 0; }
long VbsExeMs() {
  if (exeNiv == 0) return 0;
  return long(std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - exeIni).count());
}
uint64_t VbsExeNum() { return exeNum; }

namespace {
// The wait for a program inside a call (PrcEspGanDef): the engine that runs reads
// its clock and its pulse as between two steps, so the window still answers; false
// when the time limit has passed or the pump stops the call, which the engine then
// stops at its next step.
bool EspGan() {
  vbs::Engine* e = vbs::CurEngine();
  return !e || e->Poll();
}
}  // namespace

// An outermost call starts the clock, forgets an earlier stop and gives the waits
// for programs their hook, which its end takes back.
void VbsSup::ExeIni() {
  if (exeNiv++ > 0) return;
  exeNum++;
  exeIni = std::chrono::steady_clock::now();
  exeTer = false;
  PrcEspGanDef(EspGan);
}

// A call that the pump stopped ends with the time limit's error; its description
// says it was stopped, which is how Trc tells the two apart.
void VbsSup::ExeFim(vbs::ScriptControl* sc) {
  if (exeNiv > 0 && --exeNiv == 0) PrcEspGanDef(nullptr);
  if (exeTer && sc && sc->Error().Number == kVbsErrTmp) sc->Error().Description = kVbsTerDes;
}

// The pump in force, as every engine calls it; a false answer marks the stop.
bool VbsSup::PmpExe() {
  if (!pmpFx) return true;
  const bool seg = pmpFx();
  if (!seg) exeTer = true;
  return seg;
}

// Gives the engine the pump when one is in force; an engine without it runs as it
// always has, and a pump set on the control by someone else stays.
void VbsSup::PmpPrp() {
  if (sc_ && pmpFx) sc_->Pulse([] { return PmpExe(); }, pmpMs);
}

// "VbsSup: <call>: erro <number> <description> [<location>]", and the same failure
// to the other sink. A failure on line 1 of a statement the host was given is the
// statement's own; any other line is a line of the program, found in the file. The
// other sink takes the script engine's errors only, and not the calculation of an
// empty text, which is how an option leaves a value unset.
void VbsSup::Trc(const Tx& call, const Tx* stm) {
  bool vazio = stm && TxTrim(*stm).empty();
  // A call past the time limit, not one that the pump stopped.
  const bool tmp = sc_ && sc_->Error().Number == kVbsErrTmp && sc_->Error().Description != kVbsTerDes;
  if (!TrcAct() && !trcSai && !(tmp && tmpSai)) return;
  if (!sc_) {
    TrcMsg(call, u"no script control");
    return;
  }
  int32_t num = 0;
  Tx des, loc;
  VbsErr(num, des, loc);
  const vbs::ScriptError& e = sc_->Error();
  bool prop = call.rfind(u"Exe", 0) == 0 && e.Line <= 1;  // the statement's own line
  int32_t lin = !prop && e.Line >= 1 && size_t(e.Line) < pgmLin_.size() ? pgmLin_[size_t(e.Line)] : 0;
  if (TrcAct()) {
    Tx l = u"VbsSup: " + call + u": erro " + TxAsc(std::to_string(num)) + u" " + des;
    if (!loc.empty()) l += u" [" + loc + u"]";
    if (lin > 0) l += u" (option file line " + TxAsc(std::to_string(lin)) + u")";
    TrcLin(l);
  }
  if (trcSai && !vazio) trcSai(VbsTrcReg{num, des, lin, call});
  if (tmp && tmpSai) tmpSai(VbsTrcReg{num, des, lin, call});
}

// A script error that the engine raised outside the control's own calls (a statement
// compiled on its own): written as Trc writes one, with no program line.
void VbsSup::TrcErr(const Tx& call, int32_t num, const Tx& des) {
  if (TrcAct()) TrcLin(u"VbsSup: " + call + u": erro " + TxAsc(std::to_string(num)) + u" " + des);
  if (trcSai) trcSai(VbsTrcReg{num, des, 0, call});
}

void VbsSup::TrcMsg(const Tx& call, const Tx& why) {
  TrcFal(u"VbsSup", call, why);
}

}  // namespace zw
