// ZunWizMain: the start-up sequence, as main calls it: the background window
// loaded, shown and painted, the option file's path, the attempts to build and run
// the wizard, the component installer between failed attempts, and the close.
#pragma once
#include <functional>
#include <memory>
#include "SupWiz.h"
#include "Var.h"
#include "WizDef.h"  // WizLtrCon, the folder words of a path

namespace zw {

class ZunWizFun;

// Exit statuses of zunwiz and zunwiz-run, one meaning each (docs/startup.md). 0 is
// a normal end of the wizard; 1 a command line the tool does not take.
constexpr int kSaiFpa = 2;  // the option file is missing or unreadable
constexpr int kSaiRsp = 3;  // the answers do not fit the wizard (zunwiz-run)
constexpr int kSaiEnd = 4;  // the process ended at once ("End")
constexpr int kSaiCri = 5;  // the wizard could not be built: every attempt failed
constexpr int kSaiTmp = 6;  // a script call went past its time limit (zunwiz-run)
constexpr int kSaiTrc = 7;  // the trace, the shots or the install record could not be written
constexpr int kSaiFal = 8;  // the script's verdict: the install failed
constexpr int kSaiCan = 9;  // the script's verdict: cancelled
constexpr int kSaiRec = 10; // the script's verdict: the licence was refused

// Why an attempt to build the wizard failed: the failure's text and the option
// file line where the build stood (0 when not known).
struct TntErr {
  Tx des;
  int32_t lin = 0;
};

// The start-up's value: what the process finds at its start and what the start-up
// makes. main owns it and hands it to each step that needs it.
struct tZunWizPrc {
  Tx DirExe;     // folder of the executable
  tWizDir Dir;   // the command line, and the option file's path and folder words once found
  Var RegRaiz;   // default root of registry reads: 0x80000002 (HKEY_LOCAL_MACHINE)
  std::unique_ptr<SupWiz> Sup;  // the one engine: made by the first attempt, released by WizMain
  ZunWizFun* Fun = nullptr;     // the background window, while the start-up runs
  int Sai = 0;    // what the start-up reached: 0, or kSaiCri
  int TntNum = 0; // attempts made so far
  TntErr Err;     // the last attempt's failure
};

// Sets up the process before the first window: the folder of the executable, the
// command line (words joined by blanks), the screen's dots per inch for twips and
// pixels (Twp.h), the Qt dialog service and the hook that closes every window.
// Needs the QApplication.
void ZunWizPrp(tZunWizPrc& prc, const Tx& dirExe, const Tx& linCmd);
// The wizard's command line from the program's words argv[de..argc-1], joined by
// blanks: the start-up splits it again at blanks, and quotes have no meaning there.
Tx ZunWizLin(int argc, char** argv, int de);
// The start-up in order: loads and shows the background window and lets it paint,
// takes its topmost mark away, runs WizMain and closes the background. Gives 0, or
// kSaiCri when the wizard was never built (the reason in prc.Err); ZunWizSai turns
// it into the exit status.
int ZunWizCic(tZunWizPrc& prc);
// The exit status of a run that ended with st: the script's verdict, when it gave
// one, stands for a normal end (0) and for an end at once (kSaiEnd). What the
// status means beyond 0 is said on standard error under the program's name prog,
// with err as the reason of kSaiCri, and trc, when given, gets the trace's closing
// line: "end build ..." or "result WORD ...".
int ZunWizSai(int st, const char* prog, const std::function<void(const Tx&)>& trc = {}, const TntErr& err = {});

// The install record of the run (--record FILE, --keep-replaced DIR): opened for
// the option file of the command line, after ZunWizPrp, and ended with the run's
// exit status by ZunWizFim or by the process's exit. prog names the tool in the
// record and in messages. 0, or kSaiTrc with the reason said on standard error. A
// line that cannot be written later ends the run with kSaiTrc.
int ZunWizAtaIni(const tZunWizPrc& prc, const char* fic, const char* guarda, const char* prog);
// Ends the process with st at once, the record's end line written first.
[[noreturn]] void ZunWizFim(int st);

void WizMain(tZunWizPrc& prc);
void WizRegRaiz(tZunWizPrc& prc);
void FunMostra(const tZunWizPrc& prc);
void WizFpaPrp(tZunWizPrc& prc);
void WizFpaCon(const tZunWizPrc& prc, Tx& fpa, int16_t& exi);
void WizExeTnt(tZunWizPrc& prc, Var& slot, int16_t& st);
void CmpInsVer(int16_t& resp);
void CmpInsExe(const tZunWizPrc& prc, int16_t& st);
void WizFrmFim(Var& slot);
void FunFim(const tZunWizPrc& prc);

// The steps of the attempt loop; WizMain gives the ones above, a test its own.
struct WizTntFx {
  std::function<void(Var&, int16_t&)> Tnt;
  std::function<void(int16_t&)> InsVer = CmpInsVer;
  std::function<void(int16_t&)> InsExe;
};
// Runs attempts until one ends the wizard normally (status 1) or the user declines
// the installer (-1). The first failure runs the installer without asking; each
// later one asks first. Gives the final status; the slot keeps the last window.
int16_t WizTntCic(Var& slot, const WizTntFx& fx);

}  // namespace zw
