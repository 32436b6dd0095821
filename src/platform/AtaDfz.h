// AtaDfz: undo (desfazer) of an install record (Ata.h), as zunwiz-undo does it.
// The record's changes are taken back last first: a created file is removed while
// its content still has the recorded hash (one changed since is kept and said), a
// created folder while it is empty, a replaced or deleted file is put back from its
// kept copy, a move is moved back, registry values are set back or removed and
// keys made by the run removed when empty, printers added are removed. Programs
// run cannot be undone: they are said. A record without its end line (a run that
// was killed) is undone as far as it goes. docs/record.md tells each change.
//
// Nothing is done through a link that someone else could have planted: every path
// is walked from "/" one name at a time (DirPaiAbr, FicGra.h), a symbolic link on
// the way followed only when it belongs to the running user or root and lies in a
// folder that only they can change (the safe writer's rule), the last name never
// followed, and the change made relative to the folder held open. Files put back are made new
// beside their name and renamed into place.
#pragma once
#include <functional>
#include <string>
#include "Ata.h"

namespace zw {

// Undoes the record nat. seco (--dry-run) changes nothing and says what would be
// done. Each step is one line to diz: what was done ("removed file /p"), what
// would be ("would remove file /p"), what is kept ("kept file /p: changed since
// the install") or cannot be undone ("not undone: program ..."). 0 every change
// undone, 1 something kept or not undoable, 2 the record cannot be read (porque
// says why): missing, unreadable, not a regular file of the running user's or
// root's that only they may write, or a line that is not a record's.
int AtaDfz(const std::string& nat, bool seco, const std::function<void(const std::string&)>& diz,
           std::string& porque);

}  // namespace zw
