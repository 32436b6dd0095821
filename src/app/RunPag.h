// RunPag: where zunwiz-run's wizard stands: the window that runs and the page in
// view, written to the trace as a page line and one line per control in view when
// the engine enters a page.
#pragma once
#include <QPointer>
#include <map>
#include "Tx.h"
#include "ZunWizAsp.h"

namespace zw {

class RunFot;
class RunTrc;

class RunPag {
 public:
  RunPag(RunTrc& trc, RunFot& fot) : mTrc(trc), mFot(fot) {}
  // A page has been entered: the page line, then one line per control whose own
  // Visible is set, buttons first, then components by index; and its shot.
  void Ent(ZunWizAsp& a, int idx, const Tx& ide);
  // A widget has been shown: the next page line looks at it.
  void Vis(QWidget* w) { mVis[w] = w; }
  // The window that runs, once it is up; null before.
  void AspDef(ZunWizAsp& a) { mAsp = &a; }
  ZunWizAsp* Asp() const { return mAsp; }
  // The page in view, 0 before the first, and its name in the trace ("page 2 LIC").
  int Idx() const { return mIdx; }
  Tx Nome() const;

 private:
  void CtlLin(ZunWizAsp& a, QWidget* w, const Tx& nome, const QString& tx, const Var* val);
  void CmpLin(ZunWizAsp& a, CtlArr arr, int i);

  RunTrc& mTrc;
  RunFot& mFot;
  QPointer<ZunWizAsp> mAsp;
  int mIdx = 0;
  Tx mIde;
  // The controls shown since the last page line, and those in view at it: a page
  // line looks at these, not at every control of every page of the window.
  std::map<QWidget*, QPointer<QWidget>> mVis;
};

}  // namespace zw
