// ZunWizGlb: the process-wide variables of the program and the procedures that
// both windows share. They are facts of the process, found once at start-up; the
// engine gets its copy of where the option file is (SupWiz::RegDir).
#pragma once
#include <memory>
#include "SupWiz.h"
#include "Twp.h"

class QWidget;

namespace zw {

class ZunWizFun;

extern Tx DirExe;                 // folder of the executable
extern Var RegRaiz;               // default root of registry reads: 0x80000002 (HKEY_LOCAL_MACHINE)
extern Tx WizFpa;                 // full path of the option file
extern Tx LtrCd;                  // drive letter, or share root, of the option file's folder
extern Tx DrvCd;                  // LtrCd followed by ":", or the share root as it stands
extern Tx DirPgm;                 // folder of the option file
extern Tx LinCmd;                 // the command line, words joined by blanks
extern std::unique_ptr<SupWiz> gSup;  // the one engine, created on first use
extern ZunWizFun* gFun;           // the background window

// Reads the primary screen's dots per inch into the rule of twips and pixels
// (Twp.h), once, before the first window: every twip of the run is converted at them.
void EcrDpiLer();

// Brings a window to the top of the ordinary windows. A window not yet shown is
// marked topmost, where the window system lets a program do so, and FrmElevaFim
// takes the mark away once it is on screen: it ends on top without staying there.
void FrmEleva(QWidget* w);
void FrmElevaFim(QWidget* w);

}  // namespace zw
