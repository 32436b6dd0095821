// The log class: registers, lock files, header blocks and the error record.
#include "SupLogReg.h"

namespace zw {

SupLogReg::SupLogReg() {}
SupLogReg::~SupLogReg() {}
int SupLogReg::MsgGrpReg(const Tx&, const Tx&, const Tx&) { return 0; }

}  // namespace zw
