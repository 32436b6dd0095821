// SupWiz: transitions, the wizard's state machine. Each page has up to four, one
// per button; the kind of a transition says where its button goes. kTraBtn holds
// the whole machine, one row per button and one column per kind, and TraExe is
// the one routine that reads it for a click.
//
// Going back takes a number from the function and going forward an identifier:
// option files rely on both. Every click passes over a failing step.
#include <algorithm>
#include <cmath>
#include <stdexcept>
#include "GlbMsg.h"
#include "SupWiz.h"
#include "TxtGlb.h"
#include "Twp.h"
#include "VbsSup.h"
#include "WizTnt.h"

namespace zw {

namespace {

// A button: the point that places it when its transition has no "POS", and its
// action for each kind of transition, by the column TraCol gives.
struct tTraBtn {
  const char16_t* Pon;
  TraAco Aco[4];
};

// The wizard's state machine, one row per button in slot order (row 0 unused);
// the columns are the kinds "PAG", "FX", "FIM", and any other or none.
constexpr tTraBtn kTraBtn[5] = {
    {u"", {TraAco::Nad, TraAco::Nad, TraAco::Nad, TraAco::Nad}},
    {u"AUT_TraPosAnt", {TraAco::Pag, TraAco::FxNum, TraAco::His, TraAco::His}},  // < Anterior
    {u"AUT_TraPosSeg", {TraAco::Pag, TraAco::FxIde, TraAco::Prx, TraAco::Prx}},  // Seguinte >
    {u"AUT_TraPosCnf", {TraAco::Pag, TraAco::Fx, TraAco::Nad, TraAco::Nad}},     // Confirmar
    {u"AUT_TraPosCan", {TraAco::Pag, TraAco::Fx, TraAco::Fec, TraAco::Prg}},     // Cancelar
};

// Whether an action changes page, so that the click leaves the old one and
// enters the new.
bool TraMuda(TraAco a) {
  return a == TraAco::Pag || a == TraAco::FxIde || a == TraAco::FxNum || a == TraAco::Prx || a == TraAco::His;
}

}  // namespace

// A transition's place in twips, before it takes its slot. Without "POS" the
// button stands at the point "AUT_TraPos" + the button word, calculated now.
void SupWiz::TraPos(tTra& t) {
  if (t.Pos.empty()) {
    // The word as the file writes it: "ant" finds no point.
    const int s = TraSlot(t.Ide);
    Tx pon = s ? Tx(kTraBtn[s].Pon) : Tx();
    Tx val;
    int16_t idx = 0;
    ZpoIdx(pon, idx);
    if (idx > 0) val = mDef.Zpo[size_t(idx)].Val;
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

// A click on the button of a slot: the current page's transition in that slot
// gives the kind, the button's row the action. Choosing the page is one step;
// leaving the old page and entering the chosen one are two more, which run even
// when the choice failed. Where the current page is outside the table, only a
// button that changes page whatever its kind ("ANT", "SEG") still takes those two.
void SupWiz::TraExe(int slot) {
  const tTraBtn& b = kTraBtn[slot];
  int16_t ant = mPagAct;
  bool muda = std::all_of(std::begin(b.Aco), std::end(b.Aco), TraMuda);
  Tx oque = u"TraExe " + TxAsc(std::to_string(slot)) + u" page " + TxAsc(std::to_string(ant));
  WizTnt(oque, [&] {
    const tTra& t = mDef.Pag.at(size_t(mPagAct)).Tra[slot];
    const TraAco a = b.Aco[TraCol(TxMai(TxTrim(t.TraTip)))];
    muda = TraMuda(a);
    if (a == TraAco::FxIde || a == TraAco::FxNum || a == TraAco::Fx) oque = u"TraFx \"" + t.TraFx + u"\"";
    if (a == TraAco::Pag) oque = u"TraPag \"" + t.TraPag + u"\"";
    TraPas(a, t);
  });
  if (!muda) return;
  WizTnt(u"PagEsc " + TxAsc(std::to_string(ant)), [&] { PagEsc(ant); });
  WizTnt(u"PagVer " + TxAsc(std::to_string(mPagAct)), [&] { PagVer(mPagAct); });
}

// The page number a function of "< Anterior" answers: a number, or a text that
// reads as one, rounded to 16 bits.
static int16_t TraNum(const Var& res) {
  double d = 0;
  if (res.EhTx() ? !NuEhNum(res.Txt(), &d) : !(res.EhNum() || res.Tipo() == Var::K::Bool || res.EhVazio()))
    throw std::invalid_argument("Type mismatch");
  if (!res.EhTx()) d = NuDbl(res);
  d = std::nearbyint(d);
  if (!(d >= INT16_MIN && d <= INT16_MAX)) throw std::overflow_error("Overflow");
  return int16_t(d);
}

// One action of the table on the transition t of the current page: where the
// button goes changes mPagAct; the others run a function or close the window.
void SupWiz::TraPas(TraAco a, const tTra& t) {
  switch (a) {
    case TraAco::Pag:
      PagIdx(t.TraPag, mPagAct);
      break;
    case TraAco::FxIde: {
      Lis l{Var(t.TraFx), Var(mPagAct)};
      Var res;
      VbsFx(l, res);
      PagIdx(TxVar(res), mPagAct);
      break;
    }
    case TraAco::FxNum: {
      Lis l{Var(t.TraFx), Var(mPagAct)};
      Var res;
      VbsExe(l, res);
      mPagAct = TraNum(res);
      break;
    }
    case TraAco::Fx: {
      Lis l{Var(t.TraFx)};
      Var res;
      VbsExe(l, res);
      break;
    }
    case TraAco::Prx:
      if (mPagAct == INT16_MAX) throw std::overflow_error("Overflow");
      mPagAct++;
      break;
    case TraAco::His: {
      int16_t p = -1;
      PagLstAnt(p);
      mPagAct = p;
      break;
    }
    case TraAco::Nad:
      break;
    case TraAco::Prg:
      if (mPagAct < mDef.PagNum) {
        int res = 0;
        WizTnt(u"MsgExe \"Terminar\"", [&] { MsgExe(u"? SN 2 _B", u"Terminar", mDef.MsgCan, res); });
        if (res != 1) break;
      }
      [[fallthrough]];
    case TraAco::Fec:
      WizTnt(u"Unload", [&] {
        if (WizFrm* f = Frm()) f->Unload();
      });
      break;
  }
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
