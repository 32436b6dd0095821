// PrcExe: starting programs and waiting for them.
// A program starts with posix_spawn and its own arguments; no shell sees them. The
// start gives a process id, and a wait gives a status word: "NOR" the program has
// ended (its exit code comes with it: the exit status, or 128 + the signal that
// ended it), "TO" it still runs when the time is up (nothing stops it), "ERR" the
// id is not one of this program's children. A program that cannot start is a
// failure result with a file-layer error number (53 not found, 70 not runnable),
// never a crash. Programs started and never waited for are collected at later
// starts, so none lingers as a zombie. This is the one place of the system that
// starts processes: the script engine's WScript.Shell, the file layer's document
// opener and the wizard's program operations all come here.
#pragma once
#include <vector>
#include "Tx.h"

namespace zw {

// The pipes of a program started with its standard streams redirected: in is the
// writing end of its input, out and err the reading ends of its output and error.
// They belong to the caller, who closes them; -1 where there is none.
struct PrcTub {
  int in = -1, out = -1, err = -1;
};

// Starts prog (a path, or a name looked up in PATH) with its arguments. A path
// ending in ".exe" that does not exist runs the same path without it, so that
// "InsCmp.exe" finds "InsCmp". 0 and the id, or the error number.
int PrcLan(const Tx& prog, const std::vector<Tx>& args, int& pid);
// The same with the program's input, output and error on three new pipes, whose
// ends this process keeps go to tub (untouched when the start fails).
int PrcLan(const Tx& prog, const std::vector<Tx>& args, int& pid, PrcTub& tub);
// The same from a command line, cut into words by PrcPal.
int PrcLan(const Tx& linha, int& pid);
// The words of a command line by the rules Windows programs use, so that a command
// means the same here as there; every command line of the system is cut by it.
// Blanks and tabs separate words. The program name runs to the first blank outside
// quotes: every quote in it opens or closes a quoted part and is dropped, and
// nothing escapes ("C:\Program Files"\x.exe and "C:\Program Files\x.exe" are the
// same name). Each argument after it runs to a blank outside quotes; quotes group
// and are dropped, 2n backslashes before a quote give n and the quote groups, 2n + 1
// give n and a literal quote, other backslashes stay, and "" inside quotes is a
// literal quote.
std::vector<Tx> PrcPal(const Tx& linha);
// Waits up to ms milliseconds (-1 without limit, 0 only looks), blocking. While a
// wait hook is set (PrcEspGanDef), a wait that is more than a look calls it about
// every 100 ms; when it answers false the wait ends with "PAR": the program is sent
// SIGTERM, SIGKILL half a second later if it still runs, and is collected (cod is
// its code, 128 + the signal).
Tx PrcEsp(int pid, int ms, int& cod);
// The wait hook: what must go on while a program is waited for (a script call's
// windows and time limit). The script host sets it while a call runs and takes it
// off after; null (the default) leaves a wait blocked in the system.
using PrcEspGan = bool (*)();
void PrcEspGanDef(PrcEspGan f);
// Starts and waits: the status word, and in cod the exit code, or for "ERR" the
// error number of a start that failed.
Tx PrcLanEsp(const Tx& linha, int ms, int& cod);
// Asks a started program to end (SIGTERM); a later wait collects it. False when
// pid is none of this program's children still running.
bool PrcTer(int pid);
// Opens a document or a folder with the desktop's program for it (xdg-open),
// waiting at most 1.5 s for the opener's answer. 0 when the opener took it (it
// ended with 0, or still runs), 53 when there is no such file, 75 when nothing
// opened it (no xdg-open in PATH, or it ended with another status).
int PrcAbr(const Tx& doc);
// The Linux path of the running program's executable file, "" when the system does
// not say.
Tx PrcExeCam();

}  // namespace zw
