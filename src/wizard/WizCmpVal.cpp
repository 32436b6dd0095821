// SupWiz: the components as scripts see them - finding a control by name,
// situations, and the two calls of "Wiz": CmpVarCon publishes a control's values
// as script variables, CmpVarAlt changes one of its properties by a word.
#include <stdexcept>
#include "FicLer.h"
#include "SupWiz.h"
#include "Trc.h"
#include "TxtGlb.h"
#include "WizTab.h"
#include "WizTnt.h"

namespace zw {

// The index of the first component of that name, case-blind; 0 (the unused
// element) when there is none.
void SupWiz::CmpIdx(const Tx& ide, int16_t& idx) const {
  idx = WizTabPsq(mDef.CmpIdx, ide);
}

// The control of a name: the buttons by their exact names, else the control of the
// component of that name, by its kind; none for an "OPCTXT" or an unknown kind.
void SupWiz::CmpObIdx(const Tx& nome, CtlObj*& ctl, bool& ach) {
  ctl = nullptr;
  ach = false;
  WizFrm* f = Frm();
  if (TraBtnSlot(nome)) {
    ctl = f ? f->Btn(nome) : nullptr;
    ach = ctl != nullptr;
    return;
  }
  int16_t i = 0;
  CmpIdx(nome, i);
  ach = i > 0;
  ctl = CmpOb(i);
}

// The control of component i: the element i of the array of its kind. None for an
// "OPCTXT", an unknown kind or an index outside the table. Pages reach their
// components this way, so that components without a name, or sharing one, each
// act on their own control.
CtlObj* SupWiz::CmpOb(int16_t i) {
  WizFrm* f = Frm();
  if (!f || i < 1 || i > mDef.CmpNum) return nullptr;
  const tCmpTip* k = CmpTipDe(TxMai(TxTrim(mDef.Cmp[size_t(i)].Tip)));
  return k && k->Frm != tCmpTip::F::Opc ? f->Ctl(k->Arr, i) : nullptr;
}

// A control by name; a value that is not a text is no name, and gives none here
// (the engine hands controls themselves to the other CmpSit).
void SupWiz::CmpObCon(const Var& nome, CtlObj*& ctl) {
  ctl = nullptr;
  if (!nome.EhTx()) return;
  bool ach = false;
  CmpObIdx(nome.Txt(), ctl, ach);
}

// The button of a transition slot, 1 "cmAnt" to 4 "cmCan".
CtlObj* SupWiz::Btn(int slot) {
  WizFrm* f = Frm();
  return f && slot >= 1 && slot <= 4 ? f->Btn(TraBtnNom(slot)) : nullptr;
}

void SupWiz::CmpSit(const Var& ctlNome, const Tx& lst) {
  CtlObj* c = nullptr;
  CmpObCon(ctlNome, c);
  CmpSit(c, lst);
}

// Applies a situation list, "VER,DES" and the like, word by word in its order:
// "INV"/"VER" hide/show, "ACT"/"DES" enable/disable; other words are skipped, and
// what the list leaves out stays as it was.
void SupWiz::CmpSit(CtlObj* ctl, const Tx& lst) {
  if (!ctl || lst.empty()) return;
  Tx rst = lst, pal;
  int ach = 0;
  while (!rst.empty()) {
    TxTokSeg(rst, u",", pal, ach);
    Tx p = TxMai(TxTrim(pal));
    if (p == u"INV") ctl->PrpAtr(u"Visible", Var(false));
    else if (p == u"VER") ctl->PrpAtr(u"Visible", Var(true));
    else if (p == u"ACT") ctl->PrpAtr(u"Enabled", Var(true));
    else if (p == u"DES") ctl->PrpAtr(u"Enabled", Var(false));
  }
}

void SupWiz::CmpPos(CtlObj& ctl, int32_t x, int32_t y) {
  ctl.PrpAtr(u"Left", Var(x));
  ctl.PrpAtr(u"Top", Var(y));
}

// Only a size over 0 is set.
void SupWiz::CmpDim(CtlObj& ctl, int32_t w, int32_t h) {
  if (w > 0) ctl.PrpAtr(u"Width", Var(w));
  if (h > 0) ctl.PrpAtr(u"Height", Var(h));
}

void SupWiz::CmpFon(CtlObj& ctl, const Tx& nom, int16_t tam, const Tx& est) {
  ctl.PrpAtr(u"FontName", Var(nom));
  ctl.PrpAtr(u"FontSize", Var(tam));
  if (est.find(u"BOLD") != Tx::npos) ctl.PrpAtr(u"FontBold", Var(true));
  if (est.find(u"ITALIC") != Tx::npos) ctl.PrpAtr(u"FontItalic", Var(true));
}

// Colours by the foundation's rule: with one colour, a name of the palette, which
// nothing fills here, so the call fails and the control keeps its colours.
void SupWiz::CmpCor(CtlObj& ctl, const Var& cor, const Var& cor2) {
  if (CtlCorApl(ctl, cor, cor2) == 0) throw std::runtime_error("no colour palette");
}

// The component index and the control of a name that a script gives.
CtlObj* SupWiz::CmpVarOb(const Var& nome, int16_t& idx) {
  Tx n = TxVar(nome);
  CmpIdx(n, idx);
  CtlObj* c = nullptr;
  bool ach = false;
  CmpObIdx(n, c, ach);
  return c;
}

// Publishes the control's values: "cmpIde", "cmpFontName" (as an expression, which
// makes it of no use, but it is assigned all the same), and for an option group
// "opcSel" and "opcSelAdi", for a check box "opcSel". res 1, or 0 on any failure.
void SupWiz::CmpVarCon(const Var& nome, Var& res) {
  res = Var(int16_t(0));
  try {
    int16_t i = 0;
    CtlObj* c = CmpVarOb(nome, i);
    VbsVarTx(u"cmpIde", Var(mDef.Cmp[size_t(i)].Ide));
    const tCmpTip* k = CmpTipDe(TxMai(TxTrim(mDef.Cmp[size_t(i)].Tip)));
    if (!c) throw CtlErr(91, "Object variable not set");
    VbsVarAtr(u"cmpFontName", c->PrpCon(u"FontName"), 0);
    if (k && k->Frm == tCmpTip::F::Grp) {
      Var sel = c->PrpCon(u"opcUsa");
      std::vector<Var> a{sel, Var(Tx()), Var(Tx())};
      c->Exe(u"ConOpc", a);
      VbsVarTx(u"opcSel", sel);
      VbsVarTx(u"opcSelAdi", a[2]);
    } else if (k && k->Arr == CtlArr::Ckb) {
      VbsVarTx(u"opcSel", c->PrpCon(u"Value"));
    }
    res = Var(int16_t(1));
  } catch (const std::exception& e) {
    res = Var(int16_t(0));
    TrcFal(u"SupWiz", u"CmpVarCon \"" + TxVar(nome) + u"\"", e);
  }
}

// Changes one property of a control by a word, compared exactly (capitals only):
// "POS", "DIM", "FON", "COR", "ALN", "SIT", "TXT", "CHK"; another word changes
// nothing and still answers 1. No such control, or a failure, answers 0.
void SupWiz::CmpVarAlt(const Var& nome, const Var& prp, const Var& val, Var& res) {
  res = Var(int16_t(0));
  auto oque = [&] { return u"CmpVarAlt \"" + TxVar(nome) + u"\" " + TxVar(prp); };
  try {
    int16_t i = 0;
    CtlObj* c = CmpVarOb(nome, i);
    if (!c) {
      TrcFal(u"SupWiz", oque(), u"no such control");
      return;
    }
    Tx p = TxVar(prp), v = TxVar(val);
    if (p == u"POS") {
      int32_t x = 0, y = 0;
      WizPosCnv(v, x, y);
      CmpPos(*c, x, y);
    } else if (p == u"DIM") {
      int32_t w = 0, h = 0;
      WizDimCnv(v, w, h);
      CmpDim(*c, w, h);
    } else if (p == u"FON") {
      Tx fn, fe;
      int16_t ft = -1;
      WizFonCnv(v, fn, ft, fe);
      CmpFon(*c, fn, ft, fe);
    } else if (p == u"COR") {
      int32_t cor = -1;
      WizCorCnv(v, cor);
      CmpCor(*c, Var(cor));
    } else if (p == u"ALN") {
      int16_t a = 0;
      WizAlnCnv(v, a);
      c->PrpAtr(u"Align", Var(a));
    } else if (p == u"SIT") {
      CmpSit(c, v);
    } else if (p == u"TXT") {
      c->PrpAtr(u"Caption", CmpTxLim(val, mDef.Cmp[size_t(i)]));
    } else if (p == u"CHK") {
      c->PrpAtr(u"Value", val);
    }
    res = Var(int16_t(1));
  } catch (const std::exception& e) {
    res = Var(int16_t(0));
    TrcFal(u"SupWiz", oque(), e);
  }
}

}  // namespace zw
