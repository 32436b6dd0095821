// SupWiz: transitions, the wizard's state machine. Each page has up to four, one
// per button; the kind of a transition says where its button goes:
//
//   button   "PAG"        "FX"                                "FIM"        other or empty
//   Ant      to TraPag    TraFx(page) gives a page number     history      history
//   Seg      to TraPag    TraFx(page) gives a page identifier next page    next page
//   Cnf      to TraPag    TraFx(), stay                       nothing      nothing
//   Can      to TraPag    TraFx(), stay                       close        cancel question
//
// Going back takes a number from the function and going forward an identifier:
// option files rely on both. Every click passes over a failing step.
#include <cmath>
#include <stdexcept>
#include "GlbMsg.h"
#include "SupWiz.h"
#include "TxtGlb.h"
#include "Twp.h"
#include "WizTnt.h"

namespace zw {

// A transition's place in twips, before it takes its slot. Without "POS" the
// button stands at the point "AUT_TraPos" + the button word, calculated now.
void SupWiz::TraPos(tTra& t) {
  if (t.Pos.empty()) {
    // The word as the file writes it: "ant" finds no point.
    Tx pon = t.Ide == u"ANT" ? u"AUT_TraPosAnt" : t.Ide == u"SEG" ? u"AUT_TraPosSeg"
           : t.Ide == u"CNF" ? u"AUT_TraPosCnf" : t.Ide == u"CAN" ? u"AUT_TraPosCan" : u"";
    Tx val;
    int16_t idx = -1;
    ZpoIdx(pon, idx);
    if (idx >= 0) val = mDef.Zpo[size_t(idx)].Val;
    Tx esq, dir;
    int ach = 0;
    TxDiv2(val, u",", esq, dir, ach);
    Var r1{Tx()}, r2{Tx()};
    int16_t ok = 0;
    VbsCri().ExeCalc(esq, r1, ok);
    VbsCri().ExeCalc(dir, r2, ok);
    t.Pos = TxVar(r1) + u", " + TxVar(r2);
  }
  WizPosCnv(t.Pos, t.PosX, t.PosY);
}

// A number of pixels of an axis in twips, rounded as the script language rounds.
static void TwpCnv(const Tx& tx, char eixo, int32_t& dst) {
  double d = 0;
  if (!NuEhNum(tx, &d)) return;
  double v = std::nearbyint(PxTwp(d, eixo));
  if (!(v >= INT32_MIN && v <= INT32_MAX)) throw std::overflow_error("Overflow");
  dst = int32_t(v);
}

// "x, y" in pixels to twips; a part that is no number leaves its target as it was.
void SupWiz::WizPosCnv(const Tx& tx, int32_t& x, int32_t& y) const {
  Tx a, b;
  int ach = 0;
  TxDiv2(tx, u",", a, b, ach);
  TwpCnv(a, 'X', x);
  TwpCnv(b, 'Y', y);
}

// "w, h" in pixels to twips; -1 for a part that is no number.
void SupWiz::WizDimCnv(const Tx& tx, int32_t& w, int32_t& h) const {
  w = h = -1;
  WizPosCnv(TxTrim(tx), w, h);
}

// The transition of a slot of the current page, with its kind in capitals.
static const tTra& TraDe(const std::vector<tPag>& pag, int16_t act, int slot, Tx& tip) {
  const tTra& t = pag.at(size_t(act)).Tra[slot];
  tip = TxMai(TxTrim(t.TraTip));
  return t;
}

// "Seguinte >": to the page named by the transition or by its function, or the next.
void SupWiz::TraSeg() {
  int16_t ant = mPagAct;
  WizTnt([&] {
    Tx tip;
    const tTra& t = TraDe(mDef.Pag, mPagAct, 2, tip);
    if (tip == u"PAG") {
      PagIdx(t.TraPag, mPagAct);
    } else if (tip == u"FX") {
      Lst l{Var(t.TraFx), Var(mPagAct)};
      Var res;
      VbsFx(l, res);
      PagIdx(TxVar(res), mPagAct);
    } else {
      if (mPagAct == INT16_MAX) throw std::overflow_error("Overflow");
      mPagAct++;
    }
  });
  WizTnt([&] { PagEsc(ant); });
  WizTnt([&] { PagVer(mPagAct); });
}

// "< Anterior": to the page named by the transition, the page number its function
// gives, or back in the history.
void SupWiz::TraAnt() {
  int16_t ant = mPagAct;
  WizTnt([&] {
    Tx tip;
    const tTra& t = TraDe(mDef.Pag, mPagAct, 1, tip);
    if (tip == u"PAG") {
      PagIdx(t.TraPag, mPagAct);
    } else if (tip == u"FX") {
      Lst l{Var(t.TraFx), Var(mPagAct)};
      Var res;
      VbsExe(l, res);
      double d = 0;
      if (res.EhTx() ? !NuEhNum(res.Txt(), &d) : !(res.EhNum() || res.Tipo() == Var::K::Bool || res.EhVazio()))
        throw std::invalid_argument("Type mismatch");
      if (!res.EhTx()) d = NuDbl(res);
      d = std::nearbyint(d);
      if (!(d >= INT16_MIN && d <= INT16_MAX)) throw std::overflow_error("Overflow");
      mPagAct = int16_t(d);
    } else {
      int16_t p = -1;
      PagLstAnt(p);
      mPagAct = p;
    }
  });
  WizTnt([&] { PagEsc(ant); });
  WizTnt([&] { PagVer(mPagAct); });
}

// The kinds that "Confirmar" and "Cancelar" share: "PAG" goes to the page,
// "FX" runs the function and stays. False for any other kind.
bool SupWiz::TraPagFx(const tTra& t, const Tx& tip, int16_t ant) {
  if (tip == u"PAG") {
    WizTnt([&] { PagIdx(t.TraPag, mPagAct); });
    WizTnt([&] { PagEsc(ant); });
    WizTnt([&] { PagVer(mPagAct); });
    return true;
  }
  if (tip == u"FX") {
    WizTnt([&] {
      Lst l{Var(t.TraFx)};
      Var res;
      VbsExe(l, res);
    });
    return true;
  }
  return false;
}

// "Confirmar": to a page, or runs its function and stays; otherwise nothing.
void SupWiz::TraCnf() {
  Tx tip;
  const tTra* t = nullptr;
  WizTnt([&] { t = &TraDe(mDef.Pag, mPagAct, 3, tip); });
  if (t) TraPagFx(*t, tip, mPagAct);
}

// "Cancelar": to a page, runs its function and stays, closes ("FIM"), or by
// default asks the cancel question - except on the last page, which closes at once.
void SupWiz::TraCan() {
  Tx tip;
  const tTra* t = nullptr;
  WizTnt([&] { t = &TraDe(mDef.Pag, mPagAct, 4, tip); });
  if (!t || TraPagFx(*t, tip, mPagAct)) return;
  int res = 1;
  if (tip != u"FIM" && mPagAct < mDef.PagNum) {
    res = 0;
    WizTnt([&] { MsgExe(u"? SN 2 _B", u"Terminar", mDef.MsgCan, res); });
  }
  if (res == 1)
    WizTnt([&] {
      if (WizFrm* f = Frm()) f->Unload();
    });
}

// Records a visit on top of the history; the page already on top is not repeated.
void SupWiz::PagLstSeg(int16_t pag) {
  if (mPagLst.empty()) mPagLst.assign(1, 0);
  if (mPagLst.back() != pag) mPagLst.push_back(pag);
}

// The page before the top of the history, popped together with the top (entering
// it pushes it again); -1 and no change when the history holds one visit or none.
void SupWiz::PagLstAnt(int16_t& pag) {
  pag = -1;
  size_t top = mPagLst.empty() ? 0 : mPagLst.size() - 1;
  if (top > 1) {
    pag = mPagLst[top - 1];
    mPagLst.resize(top - 1);
  }
}

}  // namespace zw
