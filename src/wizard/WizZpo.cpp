// SupWiz: variables, points and zones, kept as the file's texts and assigned as
// script expressions.
#include "SupWiz.h"

namespace zw {

void SupWiz::ZpoOpcPrp(const Tx&, int16_t) {}
void SupWiz::ZpoCalc() {}
void SupWiz::ZpoAdd(int16_t& idx) { idx = 0; }
void SupWiz::ZpoIdx(const Tx&, int16_t& idx) const { idx = -1; }

}  // namespace zw
