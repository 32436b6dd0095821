// zunwiz-run's page lines: the page entered and the controls in view on it.
#include "RunPag.h"
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>
#include "CtlQt.h"
#include "ZunWizCtl.h"
#include "RunFot.h"
#include "RunTrc.h"
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

namespace {
// The array and index of a component's control of the window, from the name the
// window gives it ("laWiz(3)"); false for any other widget.
bool CtlIdx(ZunWizAsp& a, QWidget* w, int& i, CtlArr& arr) {
  const QString n = w->objectName();
  for (CtlArr k : {CtlArr::Lab, CtlArr::Ckb, CtlArr::Rtf, CtlArr::Opc}) {
    const QLatin1String pre(ZunWizAsp::ArrNome(k));
    if (!n.startsWith(pre) || n.size() < pre.size() + 3 || n[pre.size()] != u'(' || !n.endsWith(u')')) continue;
    bool ok = false;
    i = n.mid(pre.size() + 1, n.size() - pre.size() - 2).toInt(&ok);
    arr = k;
    return ok && i > 0 && a.CtlWid(k, i) == w;
  }
  return false;
}
}  // namespace

Tx RunPag::Nome() const {
  Tx r = u"page " + TxDeUtf8(std::to_string(mIdx));
  if (!mIde.empty()) r += u" " + mIde;
  return r;
}

void RunPag::Ent(ZunWizAsp& a, int idx, const Tx& ide) {
  // Without shots nobody sees the offscreen window: it is not painted, since a
  // paint passes over every control of every page, and a wizard of many pages
  // would pay that at each page change.
  if (!mFot.Liga() && a.updatesEnabled()) a.setUpdatesEnabled(false);
  mAsp = &a;
  mIdx = idx;
  mIde = ide;
  mTrc.Lin(Nome());
  for (QPushButton* b : {a.cmAnt, a.cmSeg, a.cmCnf, a.cmCan})
    if (!b->isHidden()) CtlLin(a, b, TxQs(b->objectName()), b->text(), nullptr);
  std::vector<std::pair<int, CtlArr>> cmp;
  for (auto it = mVis.begin(); it != mVis.end();) {
    QWidget* w = it->second;
    int i = 0;
    CtlArr arr = CtlArr::Lab;
    if (w && !w->isHidden() && CtlIdx(a, w, i, arr)) {
      cmp.emplace_back(i, arr);
      ++it;
    } else {
      it = mVis.erase(it);
    }
  }
  std::sort(cmp.begin(), cmp.end());
  for (auto [i, arr] : cmp) CmpLin(a, arr, i);
  if (mFot.Liga()) mFot.Gra(a.grab(), ide.empty() ? TxDeUtf8(std::to_string(idx)) : ide);
}

// One control's line: name, place and size, on or off, its text and its value.
void RunPag::CtlLin(ZunWizAsp& a, QWidget* w, const Tx& nome, const QString& tx, const Var* val) {
  const QRect g = w->geometry();
  char geo[64];
  std::snprintf(geo, sizeof geo, " %d,%d %dx%d %s ", g.x(), g.y(), g.width(), g.height(),
                w->isEnabledTo(&a) ? "on" : "off");
  Tx lin = u"ctl " + nome + TxDeUtf8(geo) + RunAsp(TxQs(tx));
  if (val) lin += u" value=" + TxVar(*val);
  mTrc.Lin(lin);
}

// A component's line, its text and value read through the control as a script
// would: a rich-text box's first 60 characters, an option group's options joined.
void RunPag::CmpLin(ZunWizAsp& a, CtlArr arr, int i) {
  QWidget* w = a.CtlWid(arr, i);
  CtlObj* c = CtlDe(w);
  const Tx nome = TxDeUtf8(ZunWizAsp::ArrNome(arr)) + u"(" + TxDeUtf8(std::to_string(i)) + u")";
  Tx tx;
  Var val;
  try {
    switch (arr) {
      case CtlArr::Lab: tx = TxVar(c->PrpCon(u"Caption")); break;
      case CtlArr::Ckb:
        tx = TxVar(c->PrpCon(u"Caption"));
        val = Var(int32_t(PrpNum(c->PrpCon(u"Value"))));
        break;
      case CtlArr::Rtf: tx = TxVar(c->PrpCon(u"Text")).substr(0, 60); break;
      case CtlArr::Opc: {
        std::vector<Var> n{Var()};
        c->Exe(u"OpcNum", n);
        for (int k = 1; k <= int(PrpNum(n[0])); k++) {
          std::vector<Var> o{Var(int16_t(k)), Var(Tx()), Var(Tx())};
          c->Exe(u"ConOpc", o);
          if (k > 1) tx += u"|";
          tx += TxVar(o[1]);
        }
        val = Var(int32_t(PrpNum(c->PrpCon(u"opcUsa"))));
        break;
      }
    }
  } catch (const CtlErr&) {
  }
  CtlLin(a, w, nome, QsTx(tx), val.EhVazio() ? nullptr : &val);
}

}  // namespace zw
