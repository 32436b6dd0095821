// SupWiz: transitions - what the four buttons do, and the history of pages.
#include "SupWiz.h"

namespace zw {

void SupWiz::TraOpcPrp() {}
void SupWiz::TraCan() {}
void SupWiz::TraCnf() {}
void SupWiz::TraSeg() {}
void SupWiz::TraAnt() {}
void SupWiz::PagLstSeg(int16_t) {}
void SupWiz::PagLstAnt(int16_t& pag) { pag = -1; }

}  // namespace zw
