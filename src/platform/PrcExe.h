// PrcExe: starting programs and waiting for them.
// A program starts with posix_spawn and its own arguments; no shell sees them. The
// start gives a process id, and a wait gives a status word: "NOR" the program has
// ended (its exit code comes with it: the exit status, or 128 + the signal that
// ended it), "TO" it still runs when the time is up (nothing stops it), "ERR" the
// id is not one of this program's children. A program that cannot start is a
// failure result with a file-layer error number (53 not found, 70 not runnable),
// never a crash. Programs started and never waited for are collected at later
// starts, so none lingers as a zombie.
#pragma once
#include <vector>
#include "Tx.h"

namespace zw {

// Starts prog (a path, or a name looked up in PATH) with its arguments. A path
// ending in ".exe" that does not exist runs the same path without it, so that
// "InsCmp.exe" finds "InsCmp". 0 and the id, or the error number.
int PrcLan(const Tx& prog, const std::vector<Tx>& args, int& pid);
// The same from a command line: words at blanks, "..." keeps blanks in a word.
int PrcLan(const Tx& linha, int& pid);
// The words of a command line, as PrcLan cuts them.
std::vector<Tx> PrcPal(const Tx& linha);
// Waits up to ms milliseconds (-1 without limit, 0 only looks), blocking.
Tx PrcEsp(int pid, int ms, int& cod);
// Starts and waits: the status word, and in cod the exit code, or for "ERR" the
// error number of a start that failed.
Tx PrcLanEsp(const Tx& linha, int ms, int& cod);
// Opens a document or a folder with the desktop's program for it and goes on
// (xdg-open). 0, or 53 when there is no such file.
int PrcAbr(const Tx& doc);

}  // namespace zw
