// Trc: the diagnostic trace of failures that the system passes over. Where a failure
// is not the caller's to see (a wizard step that fails and is skipped, a script error
// the host swallows, a start-up attempt that falls back to the next), the code that
// drops it hands it here; with the trace on, each becomes one line on stderr, so that
// an author can see why something did nothing. Off by default; the command-line word
// "DBGVBS=1" turns it on. The trace only writes: results are the same either way.
#pragma once
#include <exception>
#include "Tx.h"

namespace zw {

// On or off for the whole process, and which.
void TrcDef(bool on);
bool TrcAct();
// Reads the command-line word list (LcArgPrp): a word "DBGVBS=value", key in any
// case, turns the trace on when the value is a yes word ("1", "S", "Sim") and off
// otherwise; without the word the trace stays as it is.
void TrcLc();
// One line, UTF-8, on stderr, while the trace is on.
void TrcLin(TxV lin);
// A failure passed over: "quem: oque: porque" (who passed it over, what failed, why).
void TrcFal(TxV quem, TxV oque, TxV porque);
// The same with a caught exception's text as the reason.
void TrcFal(TxV quem, TxV oque, const std::exception& e);
// Inside a catch: the reason of the exception being handled, its text for a
// std::exception, else "an unknown failure".
Tx TrcPor();

}  // namespace zw
