// A script that does not answer: while a script call runs, the wizard window takes
// its close box and "Cancelar" and holds every other click off; a close or
// "Cancelar" past the wait asks whether to stop the script, a stopped call fails
// as a script error the wizard passes over, and a kept close unloads the window
// once the transition has ended.
#include <gtest/gtest.h>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include "MsgGrv.h"
#include "QtApp.h"
#include "SupWiz.h"
#include "TstTmp.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "ZunWizAsp.h"
#include "ZunWizPmp.h"

using namespace zw;

namespace {

// Two pages. "Seguinte >" goes to page 2, whose entry runs for [Seg] seconds (its
// loop ends early only if stopped), or with pid a file name waits for a program
// that writes its id there and runs 30 s, and then writes "acabou" in the label
// LaFim; "FxFim" shows a box, so that a test sees it ran.
std::string Par(int seg, const std::string& pid) {
  const std::string ciclo = pid.empty()
                                ? "  Dim t\n"
                                  "  t = Timer\n"
                                  "  Do While Timer - t < Seg And Timer >= t\n"
                                  "  Loop\n"
                                : "  Dim r\n"
                                  "  r = Wiz.FxShell(\"/bin/sh -c \"\"echo $$ > " + pid +
                                      " && exec sleep 30\"\"\", -1)\n";
  return "'Nome       : ciclo\n'Tipo       : PAR\n'Data       : 2026-11-25\n'Versao     : 1.0\n"
         "'Descricao  : Uma entrada de pagina que nao responde\n"
         "#DEF - Definicoes\n[TitWiz]=Ciclo\n[DimX]=400\n[DimY]=300\n##\n"
         "#VAR - Variaveis\n[Seg]=" + std::to_string(seg) + "\n##\n"
         "#VBS:ZTX - Programa\n"
         "Sub Espera\n" + ciclo +
         "  Wiz.CmpVarAlt \"LaFim\", \"TXT\", \"acabou\"\n"
         "End Sub\n"
         "Sub FxFim\n"
         "  MsgBox \"fim\"\n"
         "End Sub\n"
         "##\n"
         "#PAG - Um\n[IDE]=UM\n##\n"
         "#TRA - s\n[IDE]=SEG\n[DES]=Seguinte >\n##\n"
         "#PAG - Dois\n[IDE]=DOIS\n[FxPagEnt]=Espera\n##\n"
         "#TRA - c\n[IDE]=CAN\n[DES]=Cancelar\n[TRATIP]=FIM\n##\n"
         "#CMP - 1\n[Tip]=LAB\n[Ide]=LaFim\n[Pos]=10, 10\n[Txt]=antes\n##\n";
}

// One run of that wizard on a real window, boxes recorded. The test's `passo` is
// called every 20 ms from the time "Seguinte >" has been clicked, in the loop's
// pump while page 2's entry runs and in the window's own loop after it.
struct Ciclo {
  bool qt = (tst::QtApp(), true);  // before the window
  tst::MsgGrv g;
  std::vector<VbsTrcReg> erros;  // script errors passed over
  int tmp = 0;                   // calls the time limit stopped
  int unloads = 0;
  std::vector<int> pags;         // pages entered
  std::shared_ptr<ZunWizAsp> asp = std::make_shared<ZunWizAsp>();
  SupWiz sup;
  double seg = 0;  // how long the run took, in seconds

  explicit Ciclo(int s, const std::string& pid = "") {
    std::ofstream(tst::FicTmp("ciclo.par")) << Par(s, pid);
    PmpEspDef(300);
    VbsTrcSaiDef([this](const VbsTrcReg& r) { erros.push_back(r); });
    VbsTmpSaiDef([this](const VbsTrcReg&) { tmp++; });
    AspGanAct().Unload = [this](ZunWizAsp&) { unloads++; };
    AspGanAct().PagEnt = [this](ZunWizAsp&, int i, const Tx&) { pags.push_back(i); };
  }
  ~Ciclo() {
    PmpEspDef(5000);
    VbsTrcSaiDef(nullptr);
    VbsTmpSaiDef(nullptr);
    AspGanAct() = AspGan();
  }

  void Corre(const std::function<void()>& passo) {
    asp->FormLoad();
    sup.RegFrm(Var(std::shared_ptr<VarObj>(asp)));
    sup.WizIni(tst::FicTmpTx("ciclo.par"));
    QTimer t;
    t.setInterval(20);
    QObject::connect(&t, &QTimer::timeout, passo);
    QTimer::singleShot(0, [&] {
      t.start();
      asp->cmSeg->click();
    });
    const auto t0 = std::chrono::steady_clock::now();
    sup.WizExe();
    seg = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  }

  Tx LaFim() { return TxVar(asp->Ctl(CtlArr::Lab, 1)->PrpCon(u"Caption")); }
};

// The entry's loop has run for a moment: its pump is what calls the test now.
bool NoCiclo() { return VbsExeAct() && VbsExeMs() > 50; }

// The test's step that closes the window once, from inside the loop.
std::function<void()> FechaNoCiclo(Ciclo& c, bool& fechou) {
  return [&c, &fechou] {
    if (!fechou && NoCiclo()) {
      fechou = true;
      QCoreApplication::postEvent(c.asp.get(), new QCloseEvent);
    }
  };
}

}  // namespace

// What a "Sim" to the question leaves, whatever the call was doing: the close asked
// once, the call stopped well before its end as a stop (not a time-out), the rest of
// the stopped procedure not run, and the window unloaded once.
void ParadoPorSim(Ciclo& c, bool fechou) {
  EXPECT_TRUE(fechou);
  EXPECT_LT(c.seg, 6.0) << "the call was not stopped";
  ASSERT_EQ(c.g.cx.size(), 2u);
  EXPECT_EQ(c.g.cx[0].tx, kPmpPrg);
  EXPECT_EQ(c.g.cx[1].tx, u"fim");
  ASSERT_EQ(c.erros.size(), 1u);
  EXPECT_EQ(c.erros[0].des, kVbsTerDes);
  EXPECT_EQ(c.tmp, 0);
  EXPECT_EQ(c.LaFim(), u"antes");
  EXPECT_EQ(c.unloads, 1);
}

// A close during a page entry that loops for 10 s: past the wait it asks, "Sim"
// stops the loop at once; the stopped call is a script error passed over (not a
// time-out), the page's entry goes on after it, and the kept close then unloads
// the window: "FxFim" runs once.
TEST(WindowPmp, CloseAsksAndStopsTheLoopThenClosesTheWizard) {
  Ciclo c(10);
  c.g.resps = {kAnsYes};
  bool fechou = false;
  c.Corre(FechaNoCiclo(c, fechou));
  ASSERT_NO_FATAL_FAILURE(ParadoPorSim(c, fechou));
  EXPECT_EQ(c.g.cx[0].estilo, kMsgYesNo | kMsgQuestion | kMsgDefault2);
  EXPECT_EQ(c.g.cx[0].tit, u"Wizzard");
  EXPECT_EQ(c.erros[0].num, kVbsErrTmp);
  EXPECT_NE(c.erros[0].call.find(u"Espera"), Tx::npos) << TxUtf8(c.erros[0].call);
  EXPECT_EQ(c.pags, (std::vector<int>{1, 2}));
  EXPECT_FALSE(c.asp->isVisible());
}

// The entry waits for a program that runs 30 s: the wait runs the pump as a loop
// does, so the close asks past the wait, and "Sim" ends the wait and the program
// (nothing is left running) and stops the call as it stops a loop.
TEST(WindowPmp, CloseStopsAWaitForAProgramAndEndsIt) {
  const std::string pid = tst::FicTmp("ciclo.pid");
  std::remove(pid.c_str());
  Ciclo c(0, pid);
  c.g.resps = {kAnsYes};
  bool fechou = false;
  c.Corre(FechaNoCiclo(c, fechou));
  ASSERT_NO_FATAL_FAILURE(ParadoPorSim(c, fechou));
  const int n = std::atoi(tst::Le(pid).c_str());
  ASSERT_GT(n, 0);
  EXPECT_EQ(kill(n, 0), -1) << "the program still runs";
}

// "Não" lets the script run to its end; the close asked meanwhile is not lost: the
// window is unloaded once the transition has ended.
TEST(WindowPmp, CloseAnsweredNoWaitsForTheScriptAndThenCloses) {
  Ciclo c(2);
  c.g.resps = {kAnsNo};
  bool fechou = false;
  c.Corre(FechaNoCiclo(c, fechou));
  ASSERT_EQ(c.g.cx.size(), 2u);
  EXPECT_EQ(c.g.cx[0].tx, kPmpPrg);
  EXPECT_EQ(c.g.cx[1].tx, u"fim");
  EXPECT_TRUE(c.erros.empty());
  EXPECT_EQ(c.LaFim(), u"acabou");
  EXPECT_EQ(c.pags, (std::vector<int>{1, 2}));
  EXPECT_EQ(c.unloads, 1);
}

// While the loop runs, a person's click on "Seguinte >" reaches nothing and a click
// made by the program runs no second transition; "Cancelar" asks, and after the stop
// the wizard stays open on page 2 until it is closed.
TEST(WindowPmp, OtherClicksAreHeldOffAndCancelOnlyStops) {
  Ciclo c(10);
  c.g.resps = {kAnsYes};
  int cliques = 0;
  QObject::connect(c.asp->cmSeg, &QPushButton::clicked, [&] { cliques++; });
  bool feito = false, abertaDepois = false;
  c.Corre([&] {
    if (!feito && NoCiclo()) {
      feito = true;
      const QPointF p(5, 5);
      QMouseEvent prime(QEvent::MouseButtonPress, p, c.asp->cmSeg->mapToGlobal(p), Qt::LeftButton,
                        Qt::LeftButton, Qt::NoModifier);
      QMouseEvent solta(QEvent::MouseButtonRelease, p, c.asp->cmSeg->mapToGlobal(p), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
      QApplication::sendEvent(c.asp->cmSeg, &prime);
      QApplication::sendEvent(c.asp->cmSeg, &solta);
      c.asp->cmSeg->click();
      c.asp->cmCan->click();
    } else if (feito && !VbsExeAct() && c.asp->isVisible()) {
      abertaDepois = true;
      c.asp->close();
    }
  });
  EXPECT_LT(c.seg, 6.0);
  EXPECT_EQ(cliques, 2);  // the first click, and the program's own; not the mouse's
  EXPECT_EQ(c.pags, (std::vector<int>{1, 2}));
  ASSERT_EQ(c.erros.size(), 1u);
  EXPECT_EQ(c.erros[0].des, kVbsTerDes);
  EXPECT_TRUE(abertaDepois);
  ASSERT_EQ(c.g.cx.size(), 2u);
  EXPECT_EQ(c.g.cx[0].tx, kPmpPrg);
  EXPECT_EQ(c.unloads, 1);
}
