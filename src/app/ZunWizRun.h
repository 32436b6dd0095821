// ZunWizRun: a run of the wizard with no person in front of it. The program's own
// start-up, engine and windows run as they are; answers read from a file or from
// standard input take the place of clicks and of the answers to boxes, and a
// trace tells, one line per event, what the wizard showed and asked: the pages
// entered with their controls, the boxes and input boxes with their answers, and
// how the run ended. This is zunwiz-run's engine, kept here beside the start-up
// that it hooks into. Its parts: the answers (RunRsp.h), the trace (RunTrc.h), the
// page in view (RunPag.h), the dialog service (RunDlg.h) and the shots (RunFot.h);
// this unit drives the window with them.
#pragma once
#include <cstdio>
#include <istream>
#include "RunRsp.h"
#include "RunTrc.h"
#include "Tx.h"
#include "ZunWizMain.h"

namespace zw {

// Settings of a run.
struct RunOpc {
  std::istream* rsp = nullptr;  // the answers
  bool rspTerm = false;         // answers typed at a terminal: prompts, no look past the end
  std::FILE* trc = nullptr;     // the trace
  Tx fotos;                     // folder of the screenshots, "" for none
  long tmp = -1;                // the longest a script call may take, ms; -1 no limit
};

// Puts the run in force: the dialog service that answers from the answers and
// traces, and the window hooks that drive and trace the wizard. Call after the
// program's own set-up (ZunWizPrp) and before its event loop.
void ZunWizRunIni(const RunOpc& opc);
// At the end of the start-up: answers left over do not fit. Gives the exit status,
// with err as the reason when the wizard was never built (kSaiCri).
int ZunWizRunFim(int st, const TntErr& err = {});


}  // namespace zw
