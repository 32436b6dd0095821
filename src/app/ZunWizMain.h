// ZunWizMain: the start-up sequence. From the first activation of the background
// window to the end of the run: the option file's path, the attempts to build and
// run the wizard, the component installer between failed attempts, and the close.
#pragma once
#include <functional>
#include "Var.h"

namespace zw {

// Exit status of a run that ends because the option file is missing.
constexpr int kSaiFpa = 2;

// Sets up the process before the first window: the folder of the executable, the
// command line (words joined by blanks), the Qt dialog service and the hook that
// closes every window. Needs the QApplication.
void ZunWizPrp(const Tx& dirExe, const Tx& linCmd);
// Loads and shows the background window, whose first activation runs WizMain, and
// runs the event loop until the run ends. Gives the exit status.
int ZunWizCic();

void WizMain();
void WizRegRaiz();
void FunMostra();
void WizFpaPrp();
void WizFpaCon(Tx& fpa, int16_t& exi);
void WizLtrCon(const Tx& dir, Tx& ltr, Tx& drv);
void WizExeTnt(Var& slot, int16_t& st);
void CmpInsVer(int16_t& resp);
void CmpInsExe(int16_t& st);
void WizFrmFim(Var& slot);
void FunFim();

// The steps of the attempt loop; WizMain uses the ones above, a test its own.
struct WizTntFx {
  std::function<void(Var&, int16_t&)> Tnt = WizExeTnt;
  std::function<void(int16_t&)> InsVer = CmpInsVer;
  std::function<void(int16_t&)> InsExe = CmpInsExe;
};
// Runs attempts until one ends the wizard normally (status 1) or the user declines
// the installer (-1). The first failure runs the installer without asking; each
// later one asks first. Gives the final status; the slot keeps the last window.
int16_t WizTntCic(Var& slot, const WizTntFx& fx = WizTntFx());

}  // namespace zw
