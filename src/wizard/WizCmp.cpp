// SupWiz: components. A "CMP" group is kept as its texts while the file is read;
// once the whole file is in, PagCmpPrp calculates their places and sizes in the
// script engine and creates every control, invisible. A component's index is its
// place in the file over all pages and the index of its control in the window's
// array of its kind, so the arrays have gaps.
#include <cmath>
#include <stdexcept>
#include "SupWiz.h"
#include "TxtGlb.h"
#include "WizTab.h"
#include "VbsSup.h"
#include "WizTnt.h"

namespace zw {

namespace {

void Poe(CtlObj& c, TxV prp, const Var& v) { c.PrpAtr(prp, v); }
void Poe(CtlObj& c, TxV prp, int32_t n) { c.PrpAtr(prp, Var(n)); }
void PoeB(CtlObj& c, TxV prp, bool b) { c.PrpAtr(prp, Var(b)); }

}  // namespace

// Calculates every component's place, size, colours, font and alignment, and
// creates its control.
void SupWiz::PagCmpPrp() {
  for (int i = 1; i <= mDef.CmpNum; i++) {
    tCmp& c = mDef.Cmp[size_t(i)];
    mLin = c.Lin;
    Tx px, py, dx, dy;
    int ach = 0;
    TxDiv2(c.Pos, u",", px, py, ach);
    TxDiv2(c.Dim, u",", dx, dy, ach);
    Var r[4] = {Var(Tx()), Var(Tx()), Var(Tx()), Var(Tx())};
    const Tx* e[4] = {&px, &py, &dx, &dy};
    int16_t ok = 0;
    for (int k = 0; k < 4; k++) VbsCri().ExeCalc(*e[k], r[k], ok);
    WizPosCnv(TxVar(r[0]) + u", " + TxVar(r[1]), c.PosX, c.PosY);
    WizDimCnv(TxVar(r[2]) + u", " + TxVar(r[3]), c.DimX, c.DimY);
    WizCorCnv(c.Cor, c.CorFg);
    WizCorCnv(c.Fun, c.CorBg);
    WizFonCnv(c.Fon, c.FonNom, c.FonTam, c.FonEst);
    WizAlnCnv(c.Aln, c.AlnVal);
    c.TxtAct = c.Txt;
    CmpVer(int16_t(i));
  }
}

// A colour text to a colour number; -1 for no colour (a plain number that is not
// one of the 16 palette colours, or a negative one).
void SupWiz::WizCorCnv(const Tx& tx, int32_t& cor) {
  long c = 0;
  Tx tip;
  CorTxCnv(tx, c, tip);
  cor = (tip == u"NC" || c < 0) ? -1 : int32_t(c);
}

// "name, size, style": size -1 unless it is a number; the style in capitals.
void SupWiz::WizFonCnv(const Tx& tx, Tx& nom, int16_t& tam, Tx& est) {
  Tx a, b, t, rst;
  int ach = 0;
  TxDiv2(tx, u",", a, rst, ach);
  TxDiv2(rst, u",", b, t, ach);
  nom = TxTrim(a);
  double d = 0;
  tam = -1;
  if (NuEhNum(b, &d)) {
    d = std::nearbyint(d);
    if (!(d >= INT16_MIN && d <= INT16_MAX)) throw std::overflow_error("Overflow");
    tam = int16_t(d);
  }
  est = TxMai(TxTrim(t));
}

// An alignment word to 0 left, 1 right, 2 centre.
void SupWiz::WizAlnCnv(const Tx& tx, int16_t& val) {
  Tx t = TxMai(TxTrim(tx));
  if (t == u"CENTRO" || t == u"|" || t == u"-") val = 2;
  else if (t == u"DIREITA" || t == u">") val = 1;
  else val = 0;
}

// The font of a component: all of it hangs on a name.
static void CmpVerFon(CtlObj& c, const tCmp& r) {
  if (r.FonNom.empty()) return;
  Poe(c, u"FontName", Var(r.FonNom));
  if (r.FonTam > 0) Poe(c, u"FontSize", Var(r.FonTam));
  if (r.FonEst.find(u"BOLD") != Tx::npos) PoeB(c, u"FontBold", true);
  if (r.FonEst.find(u"ITALIC") != Tx::npos) PoeB(c, u"FontItalic", true);
}

namespace {

using F = tCmpTip::F;

// The kinds of component, each with its control's course.
constexpr tCmpTip kCmpTip[] = {
    {u"LAB", F::Ctl, CtlArr::Lab, true, true, u"Caption", false, 0, true},
    {u"CKB", F::Ctl, CtlArr::Ckb, false, false, u"Caption", false, 1, true},
    {u"RTF", F::Ctl, CtlArr::Rtf, false, false, u"Text", true, 0, false},
    {u"OPC", F::Grp, CtlArr::Opc, false, false, u"", false, 0, false},
    {u"OPCTXT", F::Opc, CtlArr::Opc, false, false, u"", false, 0, false},
};

}  // namespace

// Looks the word up in kCmpTip, exactly.
const tCmpTip* CmpTipDe(TxV tip) {
  for (const tCmpTip& k : kCmpTip)
    if (k.Tip == tip) return &k;
  return nullptr;
}

// Creates the control of component i by its kind and gives it the record's
// properties, in the order the controls expect them (a label's width before its
// word wrap and auto size, its height after its caption). It stays invisible.
void SupWiz::CmpVer(int16_t i) {
  const tCmp& r = mDef.Cmp[size_t(i)];
  WizFrm* f = Frm();
  if (!f) throw std::runtime_error("the wizard has no window");
  const tCmpTip* k = CmpTipDe(r.Tip);
  if (!k) return;
  if (k->Frm == F::Ctl) {
    CtlObj* p = f->UBound(k->Arr) < i ? f->Load(k->Arr, i) : f->Ctl(k->Arr, i);
    if (!p) throw CtlErr(340, "control array element does not exist");
    CtlObj& c = *p;
    if (r.DimX > 0) {
      if (k->Aut) PoeB(c, u"AutoSize", false);
      Poe(c, u"Width", r.DimX);
      if (k->Aut) PoeB(c, u"WordWrap", true);
    }
    if (k->Aut) PoeB(c, u"AutoSize", true);
    CmpVerFon(c, r);
    if (k->Aln) Poe(c, u"Alignment", Var(r.AlnVal));
    const Tx& t = r.TxtAct;
    if (k->Fic && t.size() >= 2 && t.front() == u'[' && t.back() == u']') RtfFicLer(c, mDef.DirExp(t.substr(1, t.size() - 2)));
    else Poe(c, k->PrpTx, CmpTxLim(Var(t), r));
    Poe(c, u"Left", r.PosX);
    Poe(c, u"Top", r.PosY);
    if (r.DimY > 0) {
      if (k->Aut) PoeB(c, u"AutoSize", false);
      Poe(c, u"Height", r.DimY);
    }
    if (r.CorBg == -1) Poe(c, u"BackStyle", k->SemFun);
    else Poe(c, u"BackColor", r.CorBg);
    if (k->Fg) Poe(c, u"ForeColor", r.CorFg);
    PoeB(c, u"Visible", false);
  } else if (k->Frm == F::Grp) {
    CtlObj* c = f->Load(k->Arr, i);
    if (!c) throw CtlErr(340, "control array element does not exist");
    CmpPos(*c, r.PosX, r.PosY);
    CmpDim(*c, r.DimX, r.DimY);
    CmpCor(*c, Var(r.CorBg), Var(r.CorFg));
    PoeB(*c, u"BorderVisible", false);
    std::vector<Var> a{Var(Tx(u"N"))};
    c->Exe(u"CorTip", a);
    a.clear();
    c->Exe(u"RegIni", a);
    PoeB(*c, u"Visible", false);
    mOpcAct = c;
  } else {
    if (!mOpcAct) throw CtlErr(91, "Object variable not set");
    std::vector<Var> a{Var(r.Txt), Var(r.Adi)};
    mOpcAct->Exe(u"RegOpc", a);
    a = {Var(int32_t(300)), Var(int32_t(0)), Var(int32_t(0)), Var(Tx(u"+30"))};
    mOpcAct->Exe(u"RegAsp", a);
    a = {Var(int32_t(0)), Var(int32_t(0)), Var(int32_t(1))};
    mOpcAct->Exe(u"AjtPosY", a);
  }
}

// Loads a rich-text file into a box; a file that can't be read leaves it empty.
void SupWiz::RtfFicLer(CtlObj& ctl, const Tx& fic) {
  const Tx oque = u"RtfFicLer \"" + fic + u"\"";
  WizTnt(oque, [&] { ctl.PrpAtr(u"Text", Var(Tx())); });
  WizTnt(oque, [&] {
    std::vector<Var> a{Var(fic)};
    ctl.Exe(u"LoadFile", a);
  });
}

}  // namespace zw
