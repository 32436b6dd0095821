// ZunWizRes: the script's own verdict on the run. A wizard that catches a failure
// and rolls back, or that the user leaves, ends as a finished one does: the window
// is unloaded. So that a packager can tell these ends apart, the program names a
// file of its own in the environment variable ZUNWIZ_RESULTADO, where a script (or
// a program the script starts) may write one word and a message: "CONCLUIDO",
// "FALHOU", "CANCELADO" or "RECUSADO". Option files that never read the variable
// never give a verdict, and their ends keep their status (docs/authoring.md).
#pragma once
#include <string>
#include "Tx.h"

namespace zw {

// The name of the environment variable that holds the verdict file's path.
constexpr const char* kResVar = "ZUNWIZ_RESULTADO";

// A verdict: its word as written (in capitals), the message and the exit status.
struct ResVer {
  Tx pal;
  Tx msg;
  int st = 0;
};

// Makes the verdict file, empty, in the temporary folder and names it in
// ZUNWIZ_RESULTADO for the scripts and the programs they start, in place of one
// made before. False when no file could be made; the variable is then left out.
bool ResIni();
// Reads a verdict from the text of the file: the first word of the first line,
// and the rest of that line and the lines after it as the message, trimmed.
// UTF-16 with its mark, UTF-8 or Windows-1252. False when the text holds none.
bool ResTxLer(const std::string& bytes, ResVer& r);
// Reads the verdict file once and removes it; false when the script gave none.
bool ResLer(ResVer& r);
// Removes the verdict file unread, for a run that ends before its verdict counts.
void ResFim();
// The exit status of a verdict word: 0 "CONCLUIDO", kSaiFal "FALHOU", kSaiCan
// "CANCELADO", kSaiRec "RECUSADO"; a word of no verdict counts as "FALHOU",
// since the script meant to say that something went wrong.
int ResSt(const Tx& pal);

}  // namespace zw
