// Form layout: control records, resize keys, line marks and position expressions,
// the form's size keys and its smallest size.
//
// Keys of a control (stored at registration, applied on resize; W and H are the
// room inside the container, the form's size less the frame allowance):
//   "PX"  W - Left        -> Left = W - stored     "PX%" Left / W -> Left = W * stored
//   "PY"  H - Top         -> Top = H - stored      "PY%" Top / H  -> Top = H * stored
//   "DX"  W - Width       -> Width = W - stored    "DX%" Width / W -> Width = W * stored
//   "DY"  H - Height      -> Height = H - stored   "DY%" Height / H -> Height = H * stored
//   "C"   Width, Height   -> centred; directly on a form W and H first lose 120 and 405
//                            for the border and the title bar
//   "MPX:e" Left = e    "MDX:e" Width = e - Left    "MPY:e" Top = e    "MDY:e" Height = e - Top
// where e is a position expression:
//   "PM=a|b|d"   (a + b) / 2 + d
//   "P%n=a|b|d"  (a + b) * n / 100 + d
//   "HEAD=a|d"   any other head: a + d
// and a, b are references "NAME:POINT" to a line mark's X1, Y1, X2, Y2 ("X" and
// "Y" stand for the first end), read as the mark stands now.
#include "SupFrm.h"
#include "DbgFx.h"
#include "Trc.h"
#include "TxtGlb.h"

namespace zw {

namespace {

// Reads a number property; a control that fails answers 0, and the trace says why.
double Num(const CtlObj& c, TxV nome) {
  try {
    return c.PrpCon(nome).Num();
  } catch (const CtlErr& e) {
    TrcFal(u"SupFrm", u"PrpCon " + Tx(nome), e);
    return 0;
  }
}

// Sets a property; a value the control refuses, or a control that has gone, is
// passed over, and the trace says why.
void Poe(CtlObj& c, TxV nome, const Var& v) {
  try {
    c.PrpAtr(nome, v);
  } catch (const CtlErr& e) {
    TrcFal(u"SupFrm", u"PrpAtr " + Tx(nome), e);
  }
}
void Poe(CtlObj& c, TxV nome, double v) { Poe(c, nome, Var(v)); }

// The keys of a list, trimmed and in capitals.
std::vector<Tx> Chaves(TxV lis) {
  std::vector<Tx> v;
  Tx tx = TxMai(lis), tok;
  int ach = 0;
  while (!tx.empty()) {
    TxTokSeg(tx, u",", tok, ach);
    tok = TxTrim(tok);
    if (!tok.empty()) v.push_back(tok);
  }
  return v;
}

// The key forms that carry an expression: "MPX" up to "MPX:z" and the like, compared
// as plain code units, the expression from the fifth character on.
bool Faixa(const Tx& k, TxV de) {
  Tx ate = Tx(de) + u":z";
  return k >= de && k <= ate;
}

}  // namespace

SupFrm::SupFrm(FrmAmb& amb) : amb_(amb) {
  DbgObjIni(trcNom_, trcSit_);
  FxIni();
}

SupFrm::~SupFrm() {
  FxFim();
  DbgObjFim(trcNom_, trcSit_);
}

void SupFrm::FxIni() {
  DbgFxIni(trcNom_, trcSit_);
  ctl_.assign(1, RegCtl{});
  mpo_.assign(1, RegMpo{});
  limW_ = limH_ = 0;
}

void SupFrm::FxFim() {
  DbgFxFim(trcNom_, trcSit_);
  ctl_.assign(1, RegCtl{});
  mpo_.assign(1, RegMpo{});
  frm_ = par_ = nullptr;
}

void SupFrm::RegFrmAjt(double dx, double dy) {
  ajtX_ = dx;
  ajtY_ = dy;
}

void SupFrm::RegFrm(CtlObj& frm) {
  frm_ = &frm;
  ctl_[0].ctl = &frm;
  ctl_[0].w = Num(frm, u"Width");
  ctl_[0].h = Num(frm, u"Height");
}

void SupFrm::RegFrmPar(CtlObj* par) { par_ = par; }

// The room inside a control's container: a form's size less the frame allowance,
// any other container's size.
void SupFrm::Dentro(CtlObj& ctl, double& w, double& h, bool& frm) const {
  CtlObj* c = amb_.Contentor(ctl);
  if (!c) c = frm_;
  w = h = 0;
  frm = false;
  if (!c) return;
  w = Num(*c, u"Width");
  h = Num(*c, u"Height");
  if (amb_.EhFrm(*c)) {
    frm = true;
    w -= ajtX_;
    h -= ajtY_;
  }
}

// Registration: the record starts as the control's geometry, and each key replaces
// the field it governs with what the resize needs. A share over a container with no
// room is skipped, so the field keeps the geometry. "C" takes the control's own
// width and height again, so "DX,C" centres by the width and not by the distance
// that "DX" stored (which the "DX" of the resize then reads as such).
void SupFrm::RegOb(CtlObj& ctl, TxV chv, TxV chv2) {
  if (amb_.Nome(ctl).empty()) return;
  RegCtl r{TxMai(chv), Num(ctl, u"Left"), Num(ctl, u"Top"), Num(ctl, u"Width"), Num(ctl, u"Height"),
           &ctl, Tx(chv2)};
  double W, H;
  bool frm;
  Dentro(ctl, W, H, frm);
  for (const Tx& k : Chaves(r.chv)) {
    if (k == u"PX") r.l = W - r.l;
    else if (k == u"PX%") { if (W != 0) r.l = r.l / W; }
    else if (k == u"PY") r.t = H - r.t;
    else if (k == u"PY%") { if (H != 0) r.t = r.t / H; }
    else if (k == u"DX") r.w = W - r.w;
    else if (k == u"DX%") { if (W != 0) r.w = r.w / W; }
    else if (k == u"DY") r.h = H - r.h;
    else if (k == u"DY%") { if (H != 0) r.h = r.h / H; }
    else if (k == u"C") {
      r.w = Num(ctl, u"Width");
      r.h = Num(ctl, u"Height");
    }
  }
  ctl_.push_back(std::move(r));
}

// Applies one record's keys in their order.
void SupFrm::AjtUm(RegCtl& r) {
  CtlObj& c = *r.ctl;
  double W, H;
  bool frm;
  Dentro(c, W, H, frm);
  for (const Tx& k : Chaves(r.chv)) {
    if (k == u"PX") Poe(c, u"Left", W - r.l);
    else if (k == u"PX%") Poe(c, u"Left", W * r.l);
    else if (k == u"PY") Poe(c, u"Top", H - r.t);
    else if (k == u"PY%") Poe(c, u"Top", H * r.t);
    else if (k == u"DX") Poe(c, u"Width", W - r.w);
    else if (k == u"DX%") Poe(c, u"Width", W * r.w);
    else if (k == u"DY") Poe(c, u"Height", H - r.h);
    else if (k == u"DY%") Poe(c, u"Height", H * r.h);
    else if (k == u"C") {
      double w = W, h = H;
      if (frm) {
        w -= 120;
        h -= 405;
      }
      Poe(c, u"Left", (w - r.w) / 2);
      Poe(c, u"Top", (h - r.h) / 2);
    } else if (Faixa(k, u"MPX")) Poe(c, u"Left", Pos(TxMeio(k, 5)));
    else if (Faixa(k, u"MDX")) Poe(c, u"Width", Pos(TxMeio(k, 5)) - Num(c, u"Left"));
    else if (Faixa(k, u"MPY")) Poe(c, u"Top", Pos(TxMeio(k, 5)));
    else if (Faixa(k, u"MDY")) Poe(c, u"Height", Pos(TxMeio(k, 5)) - Num(c, u"Top"));
  }
}

void SupFrm::AjtCtl(int desliga) {
  if (desliga == 1 && frm_) Poe(*frm_, u"Enabled", Var(false));
  for (size_t i = 1; i < ctl_.size(); ++i) AjtUm(ctl_[i]);
  if (desliga == 1 && frm_) Poe(*frm_, u"Enabled", Var(true));
}

// A line mark keeps its first end's distance or share, and the second end copies the
// first, so the mark stays straight across the form.
void SupFrm::MpoReg(CtlObj& lin, TxV chv, TxV chv2) {
  Tx nome = TxMai(TxTrim(amb_.Nome(lin)));
  if (nome.empty()) return;
  RegMpo r{nome, TxMai(chv), Num(lin, u"X1"), Num(lin, u"Y1"), Num(lin, u"X2"), Num(lin, u"Y2"), &lin,
           Tx(chv2)};
  double W, H;
  bool frm;
  Dentro(lin, W, H, frm);
  for (const Tx& k : Chaves(r.chv)) {
    if (k == u"PX") r.x2 = r.x1 = W - r.x1;
    else if (k == u"PX%") { if (W != 0) r.x1 = r.x1 / W; r.x2 = r.x1; }
    else if (k == u"PY") r.y2 = r.y1 = H - r.y1;
    else if (k == u"PY%") { if (H != 0) r.y1 = r.y1 / H; r.y2 = r.y1; }
  }
  mpo_.push_back(std::move(r));
}

void SupFrm::MpoAjtUm(RegMpo& r) {
  CtlObj& c = *r.ctl;
  double W, H;
  bool frm;
  Dentro(c, W, H, frm);
  auto x = [&](double v) { Poe(c, u"X1", v); Poe(c, u"X2", v); };
  auto y = [&](double v) { Poe(c, u"Y1", v); Poe(c, u"Y2", v); };
  for (const Tx& k : Chaves(r.chv)) {
    if (k == u"PX") x(W - r.x1);
    else if (k == u"PX%") x(W * r.x1);
    else if (k == u"PY") y(H - r.y1);
    else if (k == u"PY%") y(H * r.y1);
    else if (Faixa(k, u"MPX")) x(Pos(TxMeio(k, 5)));
    else if (Faixa(k, u"MPY")) y(Pos(TxMeio(k, 5)));
  }
}

void SupFrm::MpoAjt() {
  for (size_t i = 1; i < mpo_.size(); ++i) MpoAjtUm(mpo_[i]);
}

void SupFrm::MpoIdx(TxV nome, int& idx) {
  Tx n = TxMai(TxTrim(nome));
  idx = 0;
  for (size_t i = 1; i < mpo_.size(); ++i)
    if (mpo_[i].nome == n) {
      idx = int(i);
      return;
    }
}

void SupFrm::MpoPos(TxV ref, double& val) {
  val = 0;
  Tx nome, pto;
  TxDiv1(TxMai(ref), u":", nome, pto);
  int i = 0;
  MpoIdx(nome, i);
  if (!i) return;
  pto = TxTrim(pto);
  if (pto == u"X") pto = u"X1";
  if (pto == u"Y") pto = u"Y1";
  if (pto == u"X1" || pto == u"Y1" || pto == u"X2" || pto == u"Y2") val = Num(*mpo_[size_t(i)].ctl, pto);
}

double SupFrm::Pos(TxV exp) {
  double v = 0;
  MpoPosCalc(exp, v);
  return v;
}

void SupFrm::MpoPosCalc(TxV exp, double& val) {
  Tx cab, resto, a, b, d;
  TxDiv1(TxMai(exp), u"=", cab, resto);
  cab = TxTrim(cab);
  int ach = 0;
  TxTokSeg(resto, u"|", a, ach);
  double va = 0, vb = 0;
  MpoPos(a, va);
  if (cab == u"PM" || Faixa(cab, u"P%")) {
    TxTokSeg(resto, u"|", b, ach);
    MpoPos(b, vb);
    double f = cab == u"PM" ? 0.5 : NuVal(TxMeio(cab, 3)) / 100;
    val = (va + vb) * f + NuVal(resto);
  } else {
    val = va + NuVal(resto);
  }
}

void SupFrm::DimBase() {
  if (!frm_) return;
  Poe(*frm_, u"Width", ctl_[0].w);
  Poe(*frm_, u"Height", ctl_[0].h);
}

void SupFrm::DimMin(double w, double h) {
  if (!frm_) return;
  if (w < 0) {
    w = ctl_[0].w;
    h = ctl_[0].h;
  }
  if (Num(*frm_, u"Width") < w) Poe(*frm_, u"Width", w);
  if (Num(*frm_, u"Height") < h) Poe(*frm_, u"Height", h);
}

void SupFrm::DimLim() { DimMin(limW_, limH_); }

// Limit keys, each "KEY:NAME" with the name of a registered control; each raises the
// smallest outer size of the form (the frame allowance added) so that:
//   "F<" the control's right edge fits        (Left + Width)
//   "F>" its bottom edge fits                 (Top + Height)
//   "O<" its width fits                       (Width)
//   "O>" its height fits                      (Height)
//   "D<" it keeps as much room on its right as on its left   (2 * Left + Width)
//   "D>" it keeps as much room below as above                (2 * Top + Height)
//   "R<" both edges fit                       (Left + Width, Top + Height)
void SupFrm::DimLimPrp(TxV chv) {
  limW_ = limH_ = 0;
  for (const Tx& k : Chaves(chv)) {
    Tx tip, nome;
    TxDiv1(k, u":", tip, nome);
    tip = TxTrim(tip);
    nome = TxTrim(nome);
    const CtlObj* c = nullptr;
    for (size_t i = 1; i < ctl_.size() && !c; ++i)
      if (TxIgual(TxTrim(amb_.Nome(*ctl_[i].ctl)), nome)) c = ctl_[i].ctl;
    if (!c) continue;
    double l = Num(*c, u"Left"), t = Num(*c, u"Top"), w = Num(*c, u"Width"), h = Num(*c, u"Height");
    double mw = 0, mh = 0;
    if (tip == u"F<") mw = l + w;
    else if (tip == u"F>") mh = t + h;
    else if (tip == u"O<") mw = w;
    else if (tip == u"O>") mh = h;
    else if (tip == u"D<") mw = 2 * l + w;
    else if (tip == u"D>") mh = 2 * t + h;
    else if (tip == u"R<") {
      mw = l + w;
      mh = t + h;
    }
    if (mw > 0) limW_ = std::max(limW_, mw + ajtX_);
    if (mh > 0) limH_ = std::max(limH_, mh + ajtY_);
  }
}

void SupFrm::DimAjt(TxV chv) {
  if (!frm_) return;
  CtlObj& f = *frm_;
  const double SW = amb_.EcrW(), SH = amb_.EcrH(), TX = amb_.PixX(), TY = amb_.PixY();
  const double B = 28 * TY;
  auto tam = [&](double w, double h) {
    Poe(f, u"Width", w);
    Poe(f, u"Height", h);
  };
  auto ctr = [&](double sobe) {
    Poe(f, u"Left", (SW - Num(f, u"Width")) / 2);
    Poe(f, u"Top", (SH - Num(f, u"Height")) / 2 - sobe);
  };
  for (const Tx& k : Chaves(chv)) {
    if (k == u"NOR") Poe(f, u"WindowState", 0);
    else if (k == u"MIN") Poe(f, u"WindowState", 1);
    else if (k == u"MAX") Poe(f, u"WindowState", 2);
    else if (k == u"SCR") tam(SW, SH);
    else if (k == u"SCRT") tam(SW, SH - B);
    else if (k == u"MXA") tam(1.5 * SW, 1.5 * SH);
    else if (k == u"1024") tam(1024 * TX, 768 * TY);
    else if (k == u"1024T") tam(1024 * TX, 768 * TY - B);
    else if (k == u"800") tam(800 * TX, 600 * TY);
    else if (k == u"800T") tam(800 * TX, 600 * TY - B);
    else if (k == u"640") tam(640 * TX, 480 * TY);
    else if (k == u"640T") tam(640 * TX, 480 * TY - B);
    else if (k == u"C") ctr(0);
    else if (k == u"CT") ctr(B / 2);
    else if (k == u"BASE") DimBase();
    else if (par_ && k == u"PC") {
      Poe(f, u"Left", Num(*par_, u"Left") + (Num(*par_, u"Width") - Num(f, u"Width")) / 2);
      Poe(f, u"Top", Num(*par_, u"Top") + (Num(*par_, u"Height") - Num(f, u"Height")) / 2);
    } else if (par_ && (k == u"PA" || k == u"PP")) {
      Poe(f, u"Left", Num(*par_, u"Left"));
      Poe(f, u"Top", Num(*par_, u"Top"));
      if (k == u"PA") tam(Num(*par_, u"Width"), Num(*par_, u"Height"));
    }
  }
}

}  // namespace zw
