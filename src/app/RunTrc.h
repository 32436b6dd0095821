// RunTrc: zunwiz-run's trace, one line per event, and the way a run ends at once
// with a message on stderr.
#pragma once
#include <cstdio>
#include <string>
#include "Tx.h"

namespace zw {

// A text in the trace's quotes: inner quotes doubled, line breaks written "|" and
// tabs "»".
Tx RunAsp(TxV t);

// Ends the process at once with status st, "zunwiz-run: porque" on stderr; the
// script's verdict file is closed first, as any end of the program does.
[[noreturn]] void RunSai(int st, const std::string& porque);

// The file the trace goes to; with none, lines are dropped.
class RunTrc {
 public:
  void Def(std::FILE* f) { mFic = f; }
  // One line, flushed. A trace that cannot be written ends the run: what it was for is lost.
  void Lin(const Tx& lin);

 private:
  std::FILE* mFic = nullptr;
};

}  // namespace zw
