// The run without a person: the driver that ties the answers, the trace, the page
// lines, the dialog service and the shots to the program's own start-up and windows.
#include "ZunWizRun.h"
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <string>
#include <vector>
#include "CtlQt.h"
#include "FicLer.h"
#include "RunDlg.h"
#include "RunFot.h"
#include "RunPag.h"
#include "SupShfPrg.h"
#include "SupWiz.h"
#include "TxQt.h"
#include "VbsSup.h"
#include "ZunWizAsp.h"

namespace zw {

namespace {

// The run in force: its parts, and whether a step of the answers is due.
struct Run {
  long tmp = -1;  // the time limit of a script call, ms
  RunTrc trc;
  RunFot fot;
  RunPag pag{trc, fot};
  RunPer per{trc, pag};
  RunDlg dlg{per, trc, fot};
  bool passo = false;  // a step of the answers is due

  // One answer, once the window is up and idle: a click, the close box, a check
  // box or an option. The next is taken when this one has run its course.
  void Passo();
  // A check box's value or an option group's choice, as a click would set it.
  void CmpAtr(ZunWizAsp& a, const RunRsp& rsp);
  // The next step, once the events in wait have run, while the window is up.
  void Agenda();
};

Run* gRun = nullptr;

void Run::Passo() {
  passo = false;
  ZunWizAsp* asp = pag.Asp();
  if (!asp || !asp->isVisible()) return;
  per.Prompt("click");
  const RunRsp* r = per.Prox();
  if (!r) per.Desajuste(u"the answers ran out while the wizard is open", per.Lin() + 1);
  RunRsp rsp = *r;
  per.Toma();
  ZunWizAsp& a = *asp;
  switch (rsp.k) {
    case RunRsp::K::Ajuda:  // Prox answers it
      break;
    case RunRsp::K::Box:
    case RunRsp::K::Input:
      per.Desajuste(u"no box is open", rsp.lin);
    case RunRsp::K::Btn: {
      QPushButton* b = a.findChild<QPushButton*>(QsTx(rsp.nome), Qt::FindDirectChildrenOnly);
      if (b->isHidden()) per.Desajuste(rsp.nome + u" is hidden", rsp.lin);
      if (!b->isEnabledTo(&a)) per.Desajuste(rsp.nome + u" is disabled", rsp.lin);
      b->click();
      break;
    }
    case RunRsp::K::Close:
      a.close();
      break;
    case RunRsp::K::Check:
    case RunRsp::K::Option:
      CmpAtr(a, rsp);
      break;
  }
  Agenda();
}

void Run::CmpAtr(ZunWizAsp& a, const RunRsp& rsp) {
  const CtlArr arr = rsp.k == RunRsp::K::Check ? CtlArr::Ckb : CtlArr::Opc;
  // The component as the engine finds it by name: the first of that name.
  int16_t i = 0;
  if (a.Sup()) a.Sup()->CmpIdx(rsp.nome, i);
  CtlObj* c = i > 0 ? a.Ctl(arr, i) : nullptr;
  const char16_t* tipo = arr == CtlArr::Ckb ? u"check box" : u"option group";
  if (!c) per.Desajuste(u"no " + Tx(tipo) + u" component named " + rsp.nome, rsp.lin);
  // As a click would: a control that is hidden or disabled takes none.
  QWidget* w = a.CtlWid(arr, i);
  if (w->isHidden()) per.Desajuste(rsp.nome + u" is hidden", rsp.lin);
  if (!w->isEnabledTo(&a)) per.Desajuste(rsp.nome + u" is disabled", rsp.lin);
  bool ok = true;
  try {
    if (arr == CtlArr::Opc) {
      std::vector<Var> n{Var()};
      c->Exe(u"OpcNum", n);
      ok = rsp.num >= 1 && rsp.num <= PrpNum(n[0]);
    }
    if (ok) c->PrpAtr(arr == CtlArr::Ckb ? u"Value" : u"opcUsa", Var(int16_t(rsp.num)));
  } catch (const std::exception&) {
    ok = false;
  }
  if (!ok)
    per.Desajuste(rsp.nome + (arr == CtlArr::Opc ? u" has no option " : u" takes no value ") +
                      TxDeUtf8(std::to_string(rsp.num)),
                  rsp.lin);
}

void Run::Agenda() {
  ZunWizAsp* asp = pag.Asp();
  if (passo || !asp || !asp->isVisible()) return;
  passo = true;
  QTimer::singleShot(0, asp, [this] { Passo(); });
}

// Notes every widget that is shown, for the page lines (RunPag::Vis).
struct RunVis final : QObject {
  bool eventFilter(QObject* o, QEvent* e) override {
    if (e->type() == QEvent::ShowToParent && o->isWidgetType() && gRun) gRun->pag.Vis(static_cast<QWidget*>(o));
    return false;
  }
};

}  // namespace

void ZunWizRunIni(const RunOpc& opc) {
  static Run run;
  static RunVis vis;
  QCoreApplication::instance()->installEventFilter(&vis);
  run.tmp = opc.tmp;
  run.trc.Def(opc.trc);
  run.per.Def(*opc.rsp, opc.rspTerm);
  gRun = &run;
  run.fot.Def(opc.fotos);
  MsgDlgDef(&run.dlg);
  // Files refused and texts cut at their limits are lines of the trace.
  LimTrcDef([](const Tx& l) { gRun->trc.Lin(l); });
  // Copies, moves and deletes write their progress to the trace.
  static ShfPrgLin prg([](const Tx& l) { gRun->trc.Lin(l); });
  ShfPrgDef(&prg);
  // Every script error the wizard passes over: number, description, the option
  // file's line (0 when it is no program line) and the statement or call. The
  // assignment of "cmpFontName" fails by design (the font name goes in unquoted):
  // its line ends in " kept", so that an author does not chase it.
  VbsTrcSaiDef([](const VbsTrcReg& r) {
    bool kept = r.call.rfind(u"ExeCmd \"cmpFontName=", 0) == 0;
    gRun->trc.Lin(u"script " + TxAsc(std::to_string(r.num)) + u" " + RunAsp(r.des) + u" line " +
                  TxAsc(std::to_string(r.lin)) + u" " + RunAsp(r.call) + (kept ? u" kept" : u""));
  });
  AspGan& g = AspGanAct();
  g.PagEnt = [](ZunWizAsp& a, int idx, const Tx& ide) { gRun->pag.Ent(a, idx, ide); };
  g.Mostra = [](ZunWizAsp& a) {
    gRun->pag.AspDef(a);
    gRun->Agenda();
  };
  // The window has been unloaded after running: answers still waiting do not fit.
  g.Unload = [](ZunWizAsp&) {
    gRun->per.Sobra(u"the wizard ends");
    gRun->trc.Lin(u"end unload");
  };
  g.End = [] {
    gRun->trc.Lin(u"end exit");
    ZunWizFim(ZunWizSai(kSaiEnd, "zunwiz-run", [](const Tx& l) { gRun->trc.Lin(l); }));
  };
  // A script call past the time limit ends the run there: a wizard stuck in a loop
  // would otherwise hold the run for ever.
  VbsTmpDef(opc.tmp);
  VbsTmpSaiDef([](const VbsTrcReg& r) {
    gRun->trc.Lin(u"end timeout");
    std::string m = "a script call went past the time limit of " + std::to_string(gRun->tmp / 1000) +
                    " s: " + TxUtf8(r.call);
    if (r.lin > 0) m += ", option file line " + std::to_string(r.lin);
    RunSai(kSaiTmp, m);
  });
}

int ZunWizRunFim(int st, const TntErr& err) {
  if (gRun) gRun->per.Sobra(u"the run ends");
  return ZunWizSai(
      st, "zunwiz-run",
      [](const Tx& l) {
        if (gRun) gRun->trc.Lin(l);
      },
      err);
}

}  // namespace zw
