// DbgFx: errors, ending in a hurry, the hooks of every class's life, time stamps.
// Two hooks connect the core to the window system without the core knowing it:
// closing all forms (FrmFimTot) and letting queued interface events run (EvtPmp).
// The GUI program installs both; without them nothing is closed and no event runs.
#pragma once
#include <functional>
#include "Tx.h"

namespace zw {

// The description of an error number as the script language gives it ("File not
// found" for 53); "Unknown runtime error" for a number without one.
Tx ErrDsc(int num);
// Text and source of an error number: the text becomes "Erro : " + the number with
// its leading blank + " - " + the description ("Erro :  53 - File not found"); the
// sign of the number is ignored, and 0 leaves the text as it was.
void ErrDad(int num, Tx& tx, Tx& fonte);

// Closes all forms: the hook runs for pass 1 and pass 2 (closing a form may open
// another); with the end flag 1 the program then ends (exit status 0).
void FrmFimTot(int fim);
void FrmFimDef(std::function<void(int passo)> f);  // installed by the GUI program

// Lets queued interface events run (listings and waits call it between steps).
void EvtPmp();
void EvtPmpDef(std::function<void()> f);

// Life hooks of a class. DbgObjIni gives the instance stamp (DbgHorUni); the others
// are the places where a debug build would record objects, and do nothing.
void DbgObjIni(const Tx& cls, Tx& stamp, const Tx& res = Tx());
void DbgObjFim(const Tx& cls, const Tx& stamp, const Tx& res = Tx());
void DbgFxIni(const Tx& cls, const Tx& stamp, const Tx& res = Tx());
void DbgFxFim(const Tx& cls, const Tx& stamp, const Tx& res = Tx());

// The local time "hh:mm:ss.cc", cc the hundredths of the second.
void DbgHor(Tx& tx);
// A stamp no other call gives: the time, with " 1", " 2"... added while the time
// text repeats the last one given.
void DbgHorUni(Tx& tx);
// DbgHorUni's rule for a given time text.
Tx DbgHorUniDe(const Tx& hor);

}  // namespace zw
