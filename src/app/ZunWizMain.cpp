// The start-up sequence.
#include "ZunWizMain.h"
#include <QApplication>
#include <stdlib.h>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include "Ata.h"
#include "DbgFx.h"
#include "FicGlb.h"
#include "GlbMsg.h"
#include "MsgDlgQt.h"
#include "Pgm.h"
#include "ShfPrgQt.h"
#include "Trc.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "ZunWizAsp.h"
#include "ZunWizFun.h"
#include "ZunWizGlb.h"
#include "ZunWizPmp.h"
#include "ZunWizRes.h"
#include "ZunWizRun.h"

namespace zw {

namespace {
MsgDlgQt gDlgQt;
ShfPrgQt gPrgQt;
Ata gAta;        // the install record, open when the run is recorded
const char* gAtaPrg = "zunwiz";

// Closes every top-level window of the program; each pass closes what the one
// before it left open or opened anew.
void FrmFimQt(int) {
  PmpFecPrg prg;  // the program's own: done even while a script runs
  for (QWidget* w : QApplication::topLevelWidgets())
    if (w->isVisible()) w->close();
}
}  // namespace

int ZunWizAtaIni(const tZunWizPrc& prc, const char* fic, const char* guarda, const char* prog) {
  gAtaPrg = prog;
  Tx fpa;
  int16_t exi = 0;
  WizFpaCon(prc, fpa, exi);
  std::string porque;
  if (int e = gAta.Abre(fic, guarda ? guarda : "", AtaAbs(FicNat(fpa)), prog, porque)) {
    (void)e;
    std::fprintf(stderr, "%s: cannot write the record %s\n", prog, porque.c_str());
    return kSaiTrc;
  }
  // The verdict file is the program's own: a script that writes it changes nothing.
  if (const char* res = std::getenv(kResVar)) gAta.ProprioAdi(res);
  gAta.falha = [](const std::string& pq) {
    std::fprintf(stderr, "%s: cannot write the record: %s\n", gAtaPrg, pq.c_str());
    ResFim();
    std::fflush(nullptr);
    std::_Exit(kSaiTrc);
  };
  AtaDef(&gAta);
  // Every exit() of the process, the return from main too, writes the end line
  // with its status; the ends at once go through ZunWizFim.
  on_exit([](int st, void*) { gAta.Fim(st); }, nullptr);
  return 0;
}

void ZunWizFim(int st) {
  gAta.Fim(st);
  std::fflush(nullptr);
  std::_Exit(st);
}

Tx ZunWizLin(int argc, char** argv, int de) {
  Tx lin;
  for (int k = de; k < argc; k++) {
    if (k > de) lin += u' ';
    lin += TxDeUtf8(argv[k]);
  }
  return lin;
}

void ZunWizPrp(tZunWizPrc& prc, const Tx& dirExe, const Tx& linCmd) {
  prc.DirExe = dirExe;
  prc.Dir.LinCmd = linCmd;
  EcrDpiLer();
  MsgDlgDef(&gDlgQt);
  ShfPrgDef(&gPrgQt);
  FrmFimDef(FrmFimQt);
  EvtPmpDef([] { QApplication::processEvents(); });
  ResIni();
}

// The background window is loaded and shown, and paints before anything else
// runs; once it is on screen its topmost mark is taken away, and the whole run
// happens in WizMain. No event loop of the program's own: the windows' events run
// in the wizard window's modal loop, the boxes' and the start-up's pumps.
int ZunWizCic(tZunWizPrc& prc) {
  ZunWizFun fun;
  prc.Fun = &fun;
  fun.FormLoad();
  fun.show();
  QApplication::processEvents();
  FrmElevaFim(&fun);
  WizMain(prc);
  fun.close();
  prc.Fun = nullptr;
  return prc.Sai;
}

int ZunWizSai(int st, const char* prog, const std::function<void(const Tx&)>& trc, const TntErr& err) {
  auto diz = [prog](const Tx& m) { std::fprintf(stderr, "%s: %s\n", prog, TxUtf8(m).c_str()); };
  if (st == kSaiCri) {
    ResFim();
    const Tx lin = TxAsc(std::to_string(err.lin));
    if (trc) trc(u"end build " + RunAsp(err.des) + u" line " + lin);
    diz(u"the wizard could not be built: " + err.des + u" (option file line " + lin + u")");
    return st;
  }
  ResVer r;
  if ((st == 0 || st == kSaiEnd) && ResLer(r)) {
    if (trc) trc(u"result " + r.pal + u" " + RunAsp(r.msg));
    if (r.st) diz(u"the script's verdict: " + r.pal + (r.msg.empty() ? Tx() : u": " + r.msg));
    return r.st;
  }
  ResFim();
  return st;
}

void WizMain(tZunWizPrc& prc) {
  WizRegRaiz(prc);
  FunMostra(prc);
  WizFpaPrp(prc);
  Var slot;
  WizTntFx fx;
  fx.Tnt = [&prc](Var& v, int16_t& st) { WizExeTnt(prc, v, st); };
  fx.InsExe = [&prc](int16_t& st) { CmpInsExe(prc, st); };
  // Declining the installer after failed attempts leaves a wizard never built.
  if (WizTntCic(slot, fx) == -1) prc.Sai = kSaiCri;
  WizFrmFim(slot);
  FunFim(prc);
  prc.Sup.reset();
}

int16_t WizTntCic(Var& slot, const WizTntFx& fx) {
  int16_t st = 0;
  for (int n = 1;; n++) {
    fx.Tnt(slot, st);
    if (st == 1) break;
    if (n == 1) {
      st = 1;
    } else {
      int16_t resp = 0;
      fx.InsVer(resp);
      st = resp == 1 ? 1 : -1;
    }
    if (st == -1) break;
    fx.InsExe(st);
    st = 0;
  }
  return st;
}

void WizRegRaiz(tZunWizPrc& prc) { prc.RegRaiz = Var(int32_t(0x80000002)); }

// Shows the background window before the long work and lets it paint.
void FunMostra(const tZunWizPrc& prc) {
  if (prc.Fun) prc.Fun->show();
  EvtPmp();
}

// Finds the option file; without it there is nothing to run: a box, and the end.
void WizFpaPrp(tZunWizPrc& prc) {
  FicSepDef(u"");
  Tx fpa;
  int16_t exi = 0;
  WizFpaCon(prc, fpa, exi);
  if (exi != 1) {
    MsgErr(u"Wizzard", u"Não foi encontrado o ficheiro de opções.||Ficheiro: " + fpa, 0);
    ResFim();
    ZunWizFim(kSaiFpa);
  }
  prc.Dir = WizDirDe(fpa, prc.Dir.LinCmd);
}

// The option file: the word after "-FP" on the command line, taken as it stands,
// or "ZunWiz.par" beside the executable.
void WizFpaCon(const tZunWizPrc& prc, Tx& fpa, int16_t& exi) {
  LcArgPrp(prc.Dir.LinCmd);
  Var v{Tx()};
  LcArgVal(u"M", u"-FP", v);
  fpa = v.EhTx() ? v.Txt() : Tx();
  if (fpa.empty()) fpa = FicJun(prc.DirExe, u"ZunWiz.par");
  exi = int16_t(FicExi(fpa));
}

// One attempt: a new wizard window, the engine bound to it, the option file
// read and the wizard run. Whatever fails ends the attempt without a word to the
// user, status 0; the failure and the option file line where the build stood are
// kept, for the run's end to tell when no attempt succeeds, and each failure goes
// to the diagnostic trace (DBGVBS=1), since a later attempt's replaces it.
void WizExeTnt(tZunWizPrc& prc, Var& slot, int16_t& st) {
  st = 1;
  const int num = ++prc.TntNum;
  auto guarda = [&prc, num](const Tx& des) {
    prc.Err.des = des;
    prc.Err.lin = prc.Sup ? prc.Sup->LinAct() : 0;
    TrcFal(u"ZunWiz", u"attempt " + TxAsc(std::to_string(num)),
           des + u" (option file line " + TxAsc(std::to_string(prc.Err.lin)) + u")");
  };
  try {
    auto asp = std::make_shared<ZunWizAsp>();
    slot = Var(std::shared_ptr<VarObj>(asp));
    asp->FormLoad();
    Tx fpa = prc.Dir.Fpa;
    if (!prc.Sup) {
      prc.Sup = std::make_unique<SupWiz>();
      // The command line's "KEY=value" words override the file's options.
      prc.Sup->RegDir(prc.Dir);
    }
    SupWiz* sup = prc.Sup.get();
    sup->RegFrm(slot);
    sup->WizIni(fpa);
    sup->WizExe();
  } catch (...) {
    st = 0;
    slot = Var();
    guarda(TrcPor());
  }
}

void CmpInsVer(int16_t& resp) {
  int r = 0;
  MsgCnf(u"ZunWiz", u"Ocorreu um erro a iniciar o programa||Provavelmente falta instalar componentes|Instalar ?",
         r);
  resp = r == 1 ? 1 : -1;
}

// Runs the component installer beside the executable ("InsCmp.exe", found as
// "InsCmp" on Linux) as a script's FxShell with mode -1 does: window events, the
// start and a wait without limit, window events. Status 1 when it ran to its end.
void CmpInsExe(const tZunWizPrc& prc, int16_t& st) {
  Tx pgm = prc.DirExe + u"\\" + u"InsCmp.exe";
  EvtPmp();
  st = PgmLanEsp(u"B", u"\"" + pgm + u"\"", 1) == u"NOR" ? 1 : 0;
  EvtPmp();
}

void WizFrmFim(Var& slot) {
  if (auto* asp = dynamic_cast<ZunWizAsp*>(WizFrmDe(slot))) asp->close();
  slot = Var();
}

void FunFim(const tZunWizPrc& prc) {
  if (prc.Fun) prc.Fun->close();
}

}  // namespace zw
