// ZunWizGlb: the process-wide variables of the program and the procedures that
// both windows share. The variables that the engine reads too (WizFpa, LtrCd,
// DrvCd, DirPgm, ...) are those of WizGlb.h, included here.
#pragma once
#include <memory>
#include "SupWiz.h"
#include "WizGlb.h"

class QWidget;

namespace zw {

class ZunWizFun;

extern Tx DirExe;                 // folder of the executable
extern Tx LinCmd;                 // the command line, words joined by blanks
extern std::unique_ptr<SupWiz> gSup;  // the one engine, created on first use
extern ZunWizFun* gFun;           // the background window

// Screen twips per pixel; the design positions of the windows are in twips.
constexpr int kTwpPx = 15;
int TwpPx(int twp);  // twips to pixels, rounded
int PxTwp(int px);   // pixels to twips

// Brings a window to the top of the ordinary windows. A window not yet shown is
// marked topmost, where the window system lets a program do so, and FrmElevaFim
// takes the mark away once it is on screen: it ends on top without staying there.
void FrmEleva(QWidget* w);
void FrmElevaFim(QWidget* w);

}  // namespace zw
