// ZunWizRun: a run of the wizard with no person in front of it. The program's own
// start-up, engine and windows run as they are; answers read from a file or from
// standard input take the place of clicks and of the answers to boxes, and a
// trace tells, one line per event, what the wizard showed and asked: the pages
// entered with their controls, the boxes and input boxes with their answers, and
// how the run ended. This is zunwiz-run's engine, kept here beside the start-up
// that it hooks into.
#pragma once
#include <cstdio>
#include <istream>
#include <optional>
#include "Tx.h"
#include "ZunWizMain.h"

namespace zw {

class ZunWizAsp;

// One answer line.
struct RunRsp {
  enum class K { Btn, Close, Box, Input, Check, Option, Ajuda };  // Ajuda: "help" or "?" at a terminal
  K k = K::Btn;
  int lin = 0;     // its line number in the answers
  Tx nome;         // the button ("cmAnt"...) or the component named
  int num = 0;     // BOX result word, CHECK value, OPTION number
  Tx tx;           // INPUT: the text
  bool can = false;  // INPUT alone: Cancel
};

// Reads one line of answers. Gives false for a blank line or a "#" comment; a line
// that is no answer fills erro and gives true.
bool RunRspLer(const Tx& linha, RunRsp& r, Tx& erro);

// The answers, read as they are needed; one answer can be looked at before it is
// taken, as a box with several buttons does.
class RunFon {
 public:
  explicit RunFon(std::istream& in) : mIn(in) {}
  const RunRsp* Prox();  // the next answer, null at the end
  void Toma() { mProx.reset(); }
  int Lin() const { return mLin; }  // number of the last line read
  const Tx& Erro() const { return mErro; }  // why the answer in view is not one

 private:
  std::istream& mIn;
  std::optional<RunRsp> mProx;
  Tx mErro;
  int mLin = 0;
  bool mFim = false;
};

// A text in the trace's quotes: inner quotes doubled, line breaks written "|" and
// tabs "»".
Tx RunAsp(TxV t);

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
// At the end of the start-up: answers left over do not fit. Gives the exit status.
int ZunWizRunFim(int st);


}  // namespace zw
