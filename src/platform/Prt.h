// Prt: local printers that print to a file, over the CUPS scheduler.
// A port is the path of an output file; a printer is a CUPS queue whose device is
// "file://" + that path, made with an installed CUPS model (a driver name as
// `lpinfo -m` lists it, as "lsb/usr/cupsfilters/Generic-PDF_Printer-PDF.ppd", or
// the model's description, as "Generic PDF Printer"). Names are compared case-blind
// after trimming. A queue's name is the printer name with blanks and the characters
// CUPS refuses in names turned into "_"; the name as given becomes its description.
// The scheduler must accept file devices ("FileDevice Yes") and the user must be one
// it lets add printers; otherwise the add fails and says so only in its result.
#pragma once
#include <array>
#include <vector>
#include "Tx.h"

namespace zw {

// Port table, rows 1..n: column 0 empty, 1 the name (the path text of the file), 2
// the description, 3 the type number as text, 4 the monitor. Row 0 is unused.
using PrtPorTab = std::vector<std::array<Tx, 5>>;
// Printer table, rows 1..n: column 0 empty, 1 DeviceName (the queue's name), 2
// DriverName (its model), 3 Port. Row 0 is unused.
using PrtTab = std::vector<std::array<Tx, 4>>;

// Adds a printer: makes the port's folders, adds the port when it is missing, and
// the printer unless one of that name exists. "OK", "PR_VT_EXI" (the printer was
// there, nothing added), "PR_VT_KO" (the printer could not be added).
Tx FxPrtPdfIns(const Tx& prt, const Tx& por, const Tx& drv);

// The ports: the files that the scheduler's queues print to. Empty when it cannot be
// reached.
void PrtPorLis(PrtPorTab& tab, int& n);
void PrtPorExi(const Tx& nome, int& flag);
// Makes the port: the empty output file (a file that is there is kept). ok 1 or 0.
void PrtPorAdi(const Tx& nome, int& ok);
void PrtLis(PrtTab& tab, int& n);
void PrtExi(const Tx& nome, int& flag);
// Adds the queue, accepting jobs; attributes are the printer's flags (66: local and
// direct), which a file queue has anyway. ok 1 or 0.
void PrtAdi(const Tx& nome, const Tx& drv, const Tx& por, long atr, int& ok);
// Removes the queue of a printer name; ok 1 or 0 (zunwiz-undo takes back a printer
// that a recorded run added).
void PrtEli(const Tx& nome, int& ok);
// The text of a scheduler status number, or "Error (n) not defined.".
Tx PrtErrTx(long num);
// The status of the last printer call (0 when it went well).
long PrtErrUlt();

// The scheduler the printer calls speak to ("host:port" or a socket path); "" for the
// machine's own. Tests point it at a private scheduler.
void PrtSrvDef(const Tx& srv);
// The queue name a printer name becomes.
Tx PrtNomFila(const Tx& nome);

}  // namespace zw
