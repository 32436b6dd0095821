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

void TrcLin(const Tx& lin) {
  std::string s = TxUtf8(lin);
  s += '\n';
  std::fwrite(s.data(), 1, s.size(), stderr);
  std::fflush(stderr);
}
}  // namespace

void VbsTrcDef(bool on) { trcOn = on; }
bool VbsTrcAct() { return trcOn; }

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

// "VbsSup: <call>: erro <number> <description> [<location>]"
void VbsSup::Trc(const Tx& call) {
  if (!trcOn) return;
  if (!sc_) {
    TrcLin(u"VbsSup: " + call + u": no script control");
    return;
  }
  int32_t num = 0;
  Tx des, loc;
  VbsErr(num, des, loc);
  Tx l = u"VbsSup: " + call + u": erro " + TxAsc(std::to_string(num)) + u" " + des;
  if (!loc.empty()) l += u" [" + loc + u"]";
  TrcLin(l);
}

void VbsSup::TrcMsg(const Tx& call, const Tx& why) {
  if (trcOn) TrcLin(u"VbsSup: " + call + u": " + why);
}

}  // namespace zw
