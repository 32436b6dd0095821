// Pgm: the wizard's programs: start a command line, open a document with the
// desktop's program for it, and wait for a started program by a wait kind.
// Command lines are cut into the program and its arguments by the rules Windows
// programs use (PrcPal), so that an option file's command means the same here; the
// program then starts through the platform's one program runner (PrcExe). A window
// style is kept for the callers' sake: Linux programs place their own windows.
#pragma once
#include <vector>
#include "Tx.h"
#include "Var.h"

namespace zw {

// Starts a command line. A style missing or outside 0..6 becomes 6. err is 0 when
// the program started, else the error number less 2147221504 (0x7FFC0000).
void PgmLanExe(const Var& estilo, const Tx& cmd, int& pid, long& err);
// Starts with style 1; ok 1 only when it started.
void PgmLan(const Tx& cmd, int& ok);
// Opens a document as the shell does: a program (an executable file, or a name
// found in PATH) starts, any other file or folder goes to the desktop's opener; ok 1
// when it started or the opener took it (see PrcAbr), 0 when nothing opened it.
void PgmAbr(const Tx& doc, int& ok);
// Waits for a started program. Kind "B" blocks until it ends or the time-out (in
// seconds; missing means no limit): "NOR" ended, "TO" still running (it goes on),
// "ERR" not a program of ours, "PAR" the wait hook stopped the wait and the program
// was ended (PrcEsp). Any other kind is the poll: window events run, a
// pause of 100 ms, "NOR", and the program goes on (the poll never learns its state).
Tx PgmEsp(const Tx& tip, int pid, const Var& to = Var::Falta());
// Starts and waits: PgmEsp's word, or the error number as text when it did not start.
Tx PgmLanEsp(const Tx& tip, const Tx& cmd, int estilo, const Var& to = Var::Falta());

}  // namespace zw
