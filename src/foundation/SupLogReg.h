// SupLogReg: log files and message registers, for the programs that use the
// foundation library (the wizard creates none). A register is a text file with a
// lock file beside it; the three standard ones hold starts, errors and accesses.
#pragma once
#include <vector>
#include "Tx.h"

namespace zw {

class SupLogReg {
 public:
  SupLogReg();
  ~SupLogReg();
  // Writes one message of a group: a header block and the item text's lines.
  int MsgGrpReg(const Tx& pgm, const Tx& item, const Tx& grp);
};

}  // namespace zw
