// SupWiz: pages. All components of all pages live on the one window from the
// start; entering a page shows its components and gives the four buttons their
// captions, places and states, leaving it hides them.
#include <stdexcept>
#include "GlbMsg.h"
#include "SupWiz.h"
#include "TxtGlb.h"
#include "WizTab.h"
#include "WizTnt.h"

namespace zw {

// The page's picture (a page without one keeps the window's) and its four buttons:
// a slot without a transition hides its button; the others get caption, situation
// ("VER" when the page gives none, which leaves the enabled state alone) and place.
void SupWiz::PagPrp(int16_t& pag) {
  tPag& p = mDef.Pag[size_t(pag)];
  if (!p.Img.empty()) ImgFun(p.Img);
  for (int slot = 1; slot <= 4; slot++) {
    const tTra& t = p.Tra[slot];
    CtlObj* b = Btn(slot);
    if (t.Ide.empty()) {
      CmpSit(b, u"INV");
      continue;
    }
    if (b) b->PrpAtr(u"Caption", Var(t.Des));
    CmpSit(b, t.Sit.empty() ? Tx(u"VER") : t.Sit);
    if (b) CmpPos(*b, t.PosX, t.PosY);
  }
}

// Enters a page: records the visit, runs its "FxPagEnt", sets picture and buttons,
// then gives each component the situation of its record, which overrides what the
// script set. A page that does not exist ends the process at once and silently.
// A failure leaves the page as far as it got.
void SupWiz::PagVer(int16_t& pag) {
  if (pag < 1 || pag > mDef.PagNum) {
    if (WizFrm* f = Frm()) f->End();
    throw std::runtime_error("page out of range with no window to end");
  }
  WizTnt(u"PagVer " + TxAsc(std::to_string(pag)), [&] {
    PagLstSeg(pag);
    tPag& p = mDef.Pag[size_t(pag)];
    if (!p.FxPagEnt.empty()) {
      Lis l{Var(p.FxPagEnt)};
      Var r;
      VbsExe(l, r);
    }
    PagPrp(pag);
    for (int i = mDef.Pag[size_t(pag)].CmpIni; i <= mDef.Pag[size_t(pag)].CmpFim; i++) {
      const Tx& sit = mDef.Cmp[size_t(i)].Sit;
      CmpSit(CmpOb(int16_t(i)), sit.empty() ? Tx(u"VER") : sit);
    }
  });
  if (WizFrm* f = Frm()) f->PagEnt(pag, pag >= 1 && pag <= mDef.PagNum ? mDef.Pag[size_t(pag)].Ide : Tx());
}

// Leaves a page: its "FxPagSai" (whose answer cannot refuse), then its components
// hidden. Only a page past the end is refused, with a box, and the process ends.
void SupWiz::PagEsc(int16_t& pag) {
  if (pag > mDef.PagNum) {
    int res = 0;
    MsgExe(u"", u"", u"Página pretendida não existe", res);
    if (WizFrm* f = Frm()) f->End();
    throw std::runtime_error("page out of range with no window to end");
  }
  if (pag < 0) throw std::out_of_range("Subscript out of range");
  if (!mDef.Pag[size_t(pag)].FxPagSai.empty()) {
    Lis l{mDef.Pag[size_t(pag)].FxPagSai};
    Var r;
    VbsExe(l, r);
  }
  const tPag& q = mDef.Pag[size_t(pag)];
  for (int i = q.CmpIni; i <= q.CmpFim; i++) CmpSit(CmpOb(int16_t(i)), u"INV");
}

// The window's icon; a file that can't be loaded is ignored.
void SupWiz::MnuIco(const Tx& fic) {
  if (fic.empty()) return;
  WizTnt(u"MnuIco \"" + fic + u"\"", [&] {
    if (WizFrm* f = Frm()) f->Icon(fic);
  });
}

// The window's picture; a file that can't be loaded is ignored.
void SupWiz::ImgFun(const Tx& fic) {
  if (fic.empty()) return;
  WizTnt(u"ImgFun \"" + fic + u"\"", [&] {
    if (WizFrm* f = Frm()) f->Picture(fic);
  });
}

// The first page of that identifier, case-blind; when none, -1, the page number
// that stands for no page (as PagLstAnt answers with an empty history), which
// PagVer takes as leaving the wizard.
void SupWiz::PagIdx(const Tx& ide, int16_t& idx) const {
  idx = WizTabPsq(mDef.PagIdx, ide);
  if (idx == 0) idx = -1;
}

}  // namespace zw
