// SupWiz: components - their records, their derived fields and their controls.
#include "SupWiz.h"

namespace zw {

void SupWiz::CmpOpcPrp() {}
void SupWiz::PagCmpPrp() {}
void SupWiz::CmpVer(int16_t) {}

}  // namespace zw
