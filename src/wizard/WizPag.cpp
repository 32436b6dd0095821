// SupWiz: pages - entering and leaving, the window's picture and buttons.
#include "SupWiz.h"

namespace zw {

void SupWiz::PagOpcPrp() {}
void SupWiz::PagPrp(int16_t&) {}
// Enters a page; one that does not exist ends the process at once.
void SupWiz::PagVer(int16_t& pag) {
  if (pag < 1 || pag > mPagNum) {
    if (WizFrm* f = Frm()) f->End();
    return;
  }
}
void SupWiz::PagEsc(int16_t&) {}
void SupWiz::MnuIco(const Tx&) {}
void SupWiz::ImgFun(const Tx&) {}
void SupWiz::PagAdd(int16_t& idx) { idx = 0; }
void SupWiz::PagIdx(const Tx&, int16_t& idx) const { idx = -1; }

}  // namespace zw
