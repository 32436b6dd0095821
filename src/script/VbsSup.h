// VbsSup: the script host. The one class through which the wizard touches script
// code: it starts the engine, keeps the table of objects that scripts see, loads the
// program text, runs statements, expressions and procedures with arguments, and reads
// and writes script variables. Arguments cross as the script variables Arg1..Arg9 and
// results as "FxRes"; failures are swallowed and show only as a flag of 0, an old
// result or an empty text. The host also registers itself in the engine as "FxPre"
// and "Fxp", so a script can call each of its public operations by name.
//
// A diagnostic trace, off by default, writes every swallowed engine error to stderr
// (see TrcDef in Trc.h and docs/script-host.md); it changes nothing else.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>
#include "ScriptControl.h"
#include "Trc.h"
#include "Tx.h"
#include "Value.h"
#include "Var.h"

namespace vbs {
struct Unit;
}

namespace zw {

class VbsFxp;

// The engine's values in the host's terms and back, the one crossing between the
// two: objects and arrays ride in a Var as a VbsVal, a date becomes its text,
// currency and single become double, byte becomes a 16-bit integer.
struct VbsVal : VarObj {
  vbs::Value v;
  explicit VbsVal(vbs::Value x) : v(std::move(x)) {}
};
Var VarDeVbs(const vbs::Value& v);
vbs::Value VbsDeVar(const Var& v);
// An engine object (such as the library "Wiz") as a Var, ready for RegObPrp.
Var VbsObVar(vbs::Obj* o);

// A window that carries a script control ("scVbs"). VbsRegFS reads the control
// from it; hwnd is the parent of what the engine shows (VbsRegSup takes it from a
// window of this kind, and none from any other). The window's class derives from
// this beside its VarObj base, and is handed to the host in a Var.
struct VbsFrm {
  virtual ~VbsFrm() = default;
  virtual std::shared_ptr<vbs::ScriptControl> scVbs() = 0;
  virtual intptr_t hwnd() { return 0; }
};

// One swallowed script error: the engine's error number and description, the option file's line
// where the failing program line stands (0 when it is not a program line, or the
// program's lines are not known), and the statement or call that failed.
struct VbsTrcReg {
  int32_t num = 0;
  Tx des;
  int32_t lin = 0;
  Tx call;
};
// Where else each swallowed failure goes, besides stderr while the trace is on: an
// unattended run writes it to its own trace. Null removes it.
void VbsTrcSaiDef(std::function<void(const VbsTrcReg&)> f);

// The error number of a call that the time limit stopped.
constexpr int32_t kVbsErrTmp = -2147467260;
// The longest one call into the script engine may run, in milliseconds, for every
// host started or reset after it is set; -1 (the default) is no limit, as the
// wizard has always had. A call that runs past it is stopped and fails as any
// script error does; it is then also handed to the function of VbsTmpSaiDef, for a
// run that must end there rather than pass over it.
void VbsTmpDef(long ms);
long VbsTmpAct();
void VbsTmpSaiDef(std::function<void(const VbsTrcReg&)> f);
// The pump of a program with a window, for the calls into the engine of every host
// started or reset after it is set (null removes it): f is called about every ms
// milliseconds while a call runs, so that the window paints and takes its close box.
// f must not call into a script engine. When it answers false the call stops as the
// time limit stops one, with the same error number, and fails with the description
// kVbsTerDes; no limit was passed, so the time limit's hook is not told.
void VbsPmpDef(std::function<bool()> f, long ms);
inline constexpr char16_t kVbsTerDes[] = u"Script stopped: the user stopped the script";
// Whether a call into a script engine runs now, on any host; how many milliseconds
// the outermost one has run (0 when none runs); and its number, which grows by one
// with each outermost call, so that what was asked during one call is not taken for
// the next.
bool VbsExeAct();
long VbsExeMs();
uint64_t VbsExeNum();

class VbsSup {
 public:
  using Arr = std::vector<Var>;

  VbsSup();
  ~VbsSup();
  VbsSup(const VbsSup&) = delete;
  VbsSup& operator=(const VbsSup&) = delete;

  // Start and end.
  void FxIni();
  void FxFim();
  void VbsRegFS(const Var& frm);
  void VbsRegSup(const Var& frm, std::shared_ptr<vbs::ScriptControl> sc, const Var& cbk = Var::Falta());
  void VbsSupPrp(const Var& frm, std::shared_ptr<vbs::ScriptControl> sc, const Var& cbk = Var::Falta());
  void VbsIni();

  // Object table. Indexes start at 1.
  void RegObNum(int32_t& n);
  void RegObLib(int32_t first);
  void RegObFixPrp(int32_t& n);
  void RegObFixRep(int32_t& n);
  void RobCo(Var& v);
  void RegOb(const Tx& name, const Var& ob, int16_t& ok);
  void RegObDoc(const Var& ob);
  void RegObPrp(const Tx& kind, const Tx& name, const Var& ob, int16_t& ok);

  // Program text. Line arrays run from 1; element 0 is not used.
  void PgmLer(const Tx& fic, int16_t strip, Tx& tx, int16_t& ok);
  // With num, the option file's line of each of lines (element 0 unused): failures
  // inside the program are then traced with the file's line.
  void PgmRegArr(int16_t strip, const std::vector<Tx>& lines, int16_t& ok,
                 const std::vector<int32_t>* num = nullptr);
  void PgmRegExe(const Tx& tx, int16_t& ok);
  void PgmTxJun(int16_t strip, Tx& tx, const Tx& line);
  void ConFxReg(std::vector<Tx>& names, int32_t& n);
  void ConFxRegTx(Tx& tx, int32_t& n);
  void PgmFxTip(const Tx& name, Tx& kind);

  // Calculation and calls. PgmFxExe's arguments run from 0; SupVbsFx's list holds the
  // procedure's name in element 0 and its arguments from 1.
  void ExeCmd(const Tx& cmd, int16_t& ok);
  // Runs statements one after another with the effect of ExeCmd on each in turn (a
  // refused statement assigns nothing and the next one runs), for callers that run
  // the same list many times: the list is compiled once and its code kept until the
  // list, the engine or the engine's code changes. ok is 0 when there is no engine.
  void ExeCmdLst(const std::vector<Tx>& cmds, int16_t& ok);
  void ExeCalc(const Tx& expr, Var& res, int16_t& ok);
  void ExeCalcRa(const Tx& expr, Var& res, int16_t& ok);
  void ExeCalcRes(const Tx& expr, Var& res);
  void PgmCmd(const Tx& name, int16_t& ok);
  void PgmFxExe(const Tx& name, const Arr& args, Var& res);
  void SupVbsFx(const Arr& list, Tx& kind, Var& res);
  void VbsErr(int32_t& num, Tx& des, Tx& loc);
  void TipVL(const Tx& tx, Tx& kind, Tx& res);

  // Variables and documents. A name ending in "$" is a text variable.
  void VarIdeAjt(const Tx& name, Tx& id, Tx& type);
  void VarReg(const Tx& name, const Var& val);
  void VarCon(const Tx& name, Var& val);
  void VarTipCnv(const Tx& type, const Var& val, Var& dst);
  void FxArgReg(const Tx& fx, const Tx& arg, const Var& val);
  void FxArgCon(const Tx& fx, const Tx& arg, Var& val);
  void FxArgSep(Tx& tx, Var& val, Tx& type);
  void FxArgSepReg(const Tx& fx, Tx& tx, const Tx& arg, Var& val);
  void FxPgm(Arr& args, Var& res);
  void FxDiv(Arr& args);
  void FxDoc(const Arr& args);
  void DocConEsp(const Tx& type, const Tx& name, Var& res);
  void DocConVar(const Tx& type, const Tx& name, Var& res);
  void DocConOpc(const Tx& type, const Tx& name, Var& res);
  void DocConOpcEsp(const Tx& type, const Tx& name, Var& res);
  void SqlCalc(const Tx& type, const Tx& name, Var& res);
  void PrWin(const Arr& args);

  // The object scripts see as "Fxp" and "FxPre" (an engine object in a Var).
  const Var& FxpOb() const { return fxpOb_; }
  // The last run flag: 1 or 0, the result of the last procedure run.
  int16_t RunFlag() const { return runOk_; }

 private:
  struct Rob {
    Tx kind, name;
    Var ob;
  };

  void RegObFim();
  void RegObExeTot();
  void RegObExe(int32_t i, int16_t& ok);
  void PgmFxRun(const Tx& name, int32_t n, int16_t& ok);
  void RegSup(const Var& frm, std::shared_ptr<vbs::ScriptControl> sc, const Var& cbk, bool hwnd);
  void DocResIni(const Tx& type, Var& res);
  bool DocCall(const Tx& member, Arr& args, Var& res, const Tx& call);
  friend class VbsFxp;
  // Writes one swallowed failure to the trace: the engine's error for the call; stm
  // is the statement or expression the call ran, when it ran one.
  void Trc(const Tx& call, const Tx* stm = nullptr);
  // A script error raised outside the control's calls, with its number and description.
  void TrcErr(const Tx& call, int32_t num, const Tx& des);
  // The same for a failure that is not the engine's, with its own description.
  void TrcMsg(const Tx& call, const Tx& why);

  // The engine, spoken to through these alone (VbsEng.cpp): each gives false on an
  // engine error, which the engine then holds for VbsErr.
  bool EngReset();
  bool EngTimeout(int32_t ms);
  bool EngSitehWnd(intptr_t h);
  bool EngAddObject(const Tx& name, const Var& ob, Tx& why);
  bool EngAddCode(const Tx& tx);
  bool EngExec(const Tx& tx);
  bool EngExecLst(const std::vector<Tx>& cmds);
  bool EngEval(const Tx& tx, Var& res);
  bool EngRun(const Tx& name, Arr& args, Var& res);
  bool EngProcs(std::vector<Tx>& names);
  bool EngProc(const Tx& name, int32_t& numArgs, bool& hasRet);
  bool EngCodeObject(Var& ob);
  bool EngCreate(const Tx& progId, Var& ob, Tx& why);
  void EngErr(int32_t& num, Tx& des, Tx& line, Tx& col, Tx& text);

  // One call into the engine, for its life (VbsEng.cpp): counted process-wide for
  // VbsExeAct, and failed with kVbsTerDes when the pump stopped it.
  struct ExeMar {
    VbsSup& h;
    explicit ExeMar(VbsSup& s);
    ~ExeMar();
  };
  static void ExeIni();
  static void ExeFim(vbs::ScriptControl* sc);
  static bool PmpExe();  // the pump as the engine calls it
  void PmpPrp();         // gives the engine the pump in force

  std::vector<int32_t> pgmLin_;  // option file line of each program line, from 1
  Tx trcName_ = u"VbsSup";
  Tx trcState_;
  std::shared_ptr<vbs::ScriptControl> sc_;
  Var doc_, own_, cbk_;
  Arr store_;              // arguments of the last call, from 1
  std::vector<Rob> tab_;   // object table; element 0 unused
  int32_t fix_ = 0;        // table length saved by RegObFixPrp
  int16_t runOk_ = 0;      // last run flag
  std::vector<Tx> added_;  // names given to the engine since its last reset
  Var fxpOb_;              // this host as the engine sees it
  VbsFxp* fxp_ = nullptr;  // held by fxpOb_
  // ExeCmdLst's list and its compiled code; dropped when the engine changes.
  std::vector<Tx> lstTx_;
  std::shared_ptr<vbs::Unit> lstCod_;
};

}  // namespace zw
