// VbsSup: the diagnostic trace. The host swallows every script error (the wizard
// never shows one); with the trace on, each swallowed failure is also written to
// stderr, one line each, so that an author can see why a page function did nothing.
// The trace only writes: flags, results and script state are the same either way.
#include <atomic>
#include <cstdio>
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

namespace {
std::atomic<bool> trcOn{false};
std::function<void(const VbsTrcReg&)> trcSai;
long tmpMs = -1;
std::function<void(const VbsTrcReg&)> tmpSai;

void TrcLin(const Tx& lin) {
  std::string s = TxUtf8(lin);
  s += '\n';
  std::fwrite(s.data(), 1, s.size(), stderr);
  std::fflush(stderr);
}
}  // namespace

void VbsTrcDef(bool on) { trcOn = on; }
void VbsTrcSaiDef(std::function<void(const VbsTrcReg&)> f) { trcSai = std::move(f); }
bool VbsTrcAct() { return trcOn; }
void VbsTmpDef(long ms) { tmpMs = ms < 0 ? -1 : ms; }
long VbsTmpAct() { return tmpMs; }
void VbsTmpSaiDef(std::function<void(const VbsTrcReg&)> f) { tmpSai = std::move(f); }

// Looks for the word "DBGVBS=value" (the key in any case) in the command line.
void VbsTrcLc() {
  const TxArr& w = LcArgLis();
  for (size_t i = 1; i < w.size(); i++) {
    Tx k, v;
    TxDiv1(w[i], u"=", k, v);
    if (TxMaiTrm(k) != u"DBGVBS") continue;
    Var sn = Var(int16_t(0));
    TxSN(Var(v), sn, 0);
    VbsTrcDef(sn.EhNum() && sn.Num() == 1);
  }
}

// "VbsSup: <call>: erro <number> <description> [<location>]", and the same failure
// to the other sink. A failure on line 1 of a statement the host was given is the
// statement's own; any other line is a line of the program, found in the file. The
// other sink takes the script engine's errors only, and not the calculation of an
// empty text, which is how an option leaves a value unset.
void VbsSup::Trc(const Tx& call, const Tx* stm) {
  bool vazio = stm && TxTrim(*stm).empty();
  const bool tmp = sc_ && sc_->Error().Number == kVbsErrTmp;
  if (!trcOn && !trcSai && !(tmp && tmpSai)) return;
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
  if (trcOn) {
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
  if (trcOn) TrcLin(u"VbsSup: " + call + u": erro " + TxAsc(std::to_string(num)) + u" " + des);
  if (trcSai) trcSai(VbsTrcReg{num, des, 0, call});
}

void VbsSup::TrcMsg(const Tx& call, const Tx& why) {
  if (trcOn) TrcLin(u"VbsSup: " + call + u": " + why);
}

}  // namespace zw
