// SupFrm: keeps a resizable form's controls in place and gives the form its size.
// A form registers its controls once, at its design size, each with a short comma
// list of keys that says what the control does when the form resizes ("PX" keeps
// its distance to the right edge, "DX%" keeps its share of the width, "C" centres
// it, "MPX:PM=A:X|B:X|0" puts it halfway between two movable line marks...). AjtCtl
// applies the lists on each resize; DimAjt sizes and places the form itself.
//
// The class has no window toolkit: controls and forms are CtlObj, reached by the
// property names "Left", "Top", "Width", "Height" (twips), "X1", "Y1", "X2", "Y2"
// (line marks), "WindowState" (0 normal, 1 minimised, 2 maximised) and "Enabled";
// what a property cannot say (a control's name and container, the screen) comes
// from the window side through FrmAmb. Errors of a control are passed over: a
// control that fails is skipped and there are no messages.
#pragma once
#include <vector>
#include "CtlObj.h"

namespace zw {

// What the layout needs from the window toolkit beyond the controls' properties.
struct FrmAmb {
  virtual ~FrmAmb() = default;
  // The control's name ("" for one that has none, which is then not registered).
  virtual Tx Nome(const CtlObj& ctl) const = 0;
  // The control's container: the form, or a frame or panel it lies in.
  virtual CtlObj* Contentor(const CtlObj& ctl) const = 0;
  // Whether the object is a form (its inner size is its size less the frame allowance).
  virtual bool EhFrm(const CtlObj& ob) const = 0;
  // The screen's width and height in twips, and the twips of a pixel on each axis.
  virtual double EcrW() const = 0;
  virtual double EcrH() const = 0;
  virtual double PixX() const = 0;
  virtual double PixY() const = 0;
};

class SupFrm {
 public:
  // One registered control: its keys, four stored values (their meaning depends on
  // the keys: the geometry itself, a distance to an edge or a share), the control.
  struct RegCtl {
    Tx chv;
    double l = 0, t = 0, w = 0, h = 0;
    CtlObj* ctl = nullptr;
    Tx chv2;
  };
  // One movable line mark: its name in capitals, its keys, its two ends as stored.
  struct RegMpo {
    Tx nome;
    Tx chv;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    CtlObj* ctl = nullptr;
    Tx chv2;
  };

  explicit SupFrm(FrmAmb& amb);
  ~SupFrm();
  SupFrm(const SupFrm&) = delete;
  SupFrm& operator=(const SupFrm&) = delete;

  void FxIni();  // empties the records
  void FxFim();  // lets go of the form, its parent and all records

  // The frame allowance taken off a form's outer size to get the room inside it.
  void RegFrmAjt(double dx, double dy);
  // Keeps the form; record 0 gets its design width and height.
  void RegFrm(CtlObj& frm);
  // The parent form for the size keys "PC", "PA" and "PP".
  void RegFrmPar(CtlObj* par);
  // Adds a control with its key list (uppercased) and a second key text kept as it is.
  void RegOb(CtlObj& ctl, TxV chv, TxV chv2 = {});
  // Applies every control's keys, in order of registration; with desliga 1 the form
  // is disabled during the work.
  void AjtCtl(int desliga = 0);

  // Adds a line mark; its name is how position expressions reach it.
  void MpoReg(CtlObj& lin, TxV chv, TxV chv2 = {});
  // Applies the marks' keys "PX", "PX%", "PY", "PY%", "MPX:", "MPY:" to both ends.
  void MpoAjt();
  // The value of a position expression "HEAD=a|b|offset" (see SupFrm.cpp).
  void MpoPosCalc(TxV exp, double& val);
  // The value of a reference "NAME:POINT"; 0 for an unknown name or point.
  void MpoPos(TxV ref, double& val);
  // The index (1..n) of the mark with this name, or 0.
  void MpoIdx(TxV nome, int& idx);

  // Gives the form its design size back.
  void DimBase();
  // Raises the form's width and height to w and h where they are below; a negative
  // w takes the design size instead.
  void DimMin(double w, double h);
  // Raises the form to the smallest size that DimLimPrp worked out.
  void DimLim();
  // Works out the smallest size from limit keys (see SupFrm.cpp).
  void DimLimPrp(TxV chv);
  // Applies the form's size keys from left to right.
  void DimAjt(TxV chv);

  const std::vector<RegCtl>& Ctls() const { return ctl_; }  // element 0 is the form
  const std::vector<RegMpo>& Mpos() const { return mpo_; }  // element 0 unused
  double LimW() const { return limW_; }
  double LimH() const { return limH_; }

 private:
  void Dentro(CtlObj& ctl, double& w, double& h, bool& frm) const;
  void AjtUm(RegCtl& r);
  void MpoAjtUm(RegMpo& r);
  double Pos(TxV exp);

  Tx trcNom_ = u"SupFrm";  // the class's name and instance stamp for its life hooks
  Tx trcSit_;
  FrmAmb& amb_;
  CtlObj* frm_ = nullptr;
  CtlObj* par_ = nullptr;
  double ajtX_ = 0, ajtY_ = 0;
  double limW_ = 0, limH_ = 0;
  std::vector<RegCtl> ctl_;
  std::vector<RegMpo> mpo_;
};

}  // namespace zw
