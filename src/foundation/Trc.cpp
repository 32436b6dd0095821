// Trc: the switch of the diagnostic trace and its line writer.
#include "Trc.h"
#include <atomic>
#include <cstdio>
#include "TxtGlb.h"
#include "Var.h"

namespace zw {

namespace {
std::atomic<bool> trcOn{false};
}

void TrcDef(bool on) { trcOn = on; }
bool TrcAct() { return trcOn; }

// The last "DBGVBS=" word wins, as a later word on a command line does.
void TrcLc() {
  const TxArr& w = LcArgLis();
  for (size_t i = 1; i < w.size(); i++) {
    Tx k, v;
    TxDiv1(w[i], u"=", k, v);
    if (TxMaiTrm(k) != u"DBGVBS") continue;
    Var sn = Var(int16_t(0));
    TxSN(Var(v), sn, 0);
    TrcDef(sn.EhNum() && sn.Num() == 1);
  }
}

// Written and flushed at once, so the line stands before whatever fails next.
void TrcLin(TxV lin) {
  if (!trcOn) return;
  std::string s = TxUtf8(lin);
  s += '\n';
  std::fwrite(s.data(), 1, s.size(), stderr);
  std::fflush(stderr);
}

void TrcFal(TxV quem, TxV oque, TxV porque) {
  if (!trcOn) return;
  Tx l(quem);
  l += u": ";
  l += oque;
  l += u": ";
  l += porque;
  TrcLin(l);
}

void TrcFal(TxV quem, TxV oque, const std::exception& e) {
  if (trcOn) TrcFal(quem, oque, TxDeUtf8(e.what()));
}

Tx TrcPor() {
  try {
    throw;
  } catch (const std::exception& e) {
    return TxDeUtf8(e.what());
  } catch (...) {
    return u"an unknown failure";
  }
}

}  // namespace zw
