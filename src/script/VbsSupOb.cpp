// VbsSup: start and end of the host, and the table of objects that scripts see.
// The table outlives every reset of the engine: VbsIni adds its records again, in
// table order, so a reset keeps the objects and loses code and script variables.
#include "VbsSup.h"
#include "DbgFx.h"
#include "TxtGlb.h"
#include "VbsInt.h"

namespace zw {

VbsSup::VbsSup() : tab_(1) {
  DbgObjIni(trcName_, trcState_);
  fxpOb_ = FxpNovo(*this, fxp_);
  TrcLc();  // the word list is ready before the wizard makes its host
}

VbsSup::~VbsSup() {
  FxpSolta(fxp_);
  FxFim();
  DbgObjFim(trcName_, trcState_);
}

// Start hooks of the class; the host has nothing else to prepare.
void VbsSup::FxIni() {
  DbgFxIni(trcName_, trcState_, u"#I");
  DbgFxIni(trcName_, trcState_, u"#F");
}

// Lets go of the engine and of every object the host holds; the table becomes empty.
void VbsSup::FxFim() {
  DbgFxFim(trcName_, trcState_, u"#I");
  lstCod_.reset();
  sc_.reset();
  added_.clear();
  doc_ = Var();
  own_ = Var();
  cbk_ = Var();
  RegObFim();
  DbgFxFim(trcName_, trcState_, u"#F");
}

// Takes the script control from the window's "scVbs" and binds the host to it.
void VbsSup::VbsRegFS(const Var& frm) {
  auto* f = frm.EhObj() ? dynamic_cast<VbsFrm*>(frm.Obj().get()) : nullptr;
  if (!f) {
    TrcMsg(u"VbsRegFS", u"the window has no script control \"scVbs\"");
    return;
  }
  VbsRegSup(frm, f->scVbs());
}

void VbsSup::VbsRegSup(const Var& frm, std::shared_ptr<vbs::ScriptControl> sc, const Var& cbk) {
  RegSup(frm, std::move(sc), cbk, true);
}

// As VbsRegSup, for a caller without a window: the engine's parent window is left alone.
void VbsSup::VbsSupPrp(const Var& frm, std::shared_ptr<vbs::ScriptControl> sc, const Var& cbk) {
  RegSup(frm, std::move(sc), cbk, false);
}

// Binds the engine, keeps owner and callback, registers the host as "FxPre" and
// "Fxp" and starts the engine. The two registration flags are not looked at.
void VbsSup::RegSup(const Var& frm, std::shared_ptr<vbs::ScriptControl> sc, const Var& cbk, bool hwnd) {
  if (sc != sc_) {
    added_.clear();
    lstCod_.reset();
  }
  sc_ = std::move(sc);
  own_ = frm;
  cbk_ = cbk.EhFalta() ? frm : cbk;
  if (hwnd) {
    // A window that is no VbsFrm has no handle to give: the engine's parent is none (0).
    auto* f = frm.EhObj() ? dynamic_cast<VbsFrm*>(frm.Obj().get()) : nullptr;
    if (!EngSitehWnd(f ? f->hwnd() : 0)) TrcMsg(u"SitehWnd", u"the window gives no handle");
  }
  int16_t ok = 0;
  RegObPrp(u"N", u"FxPre", fxpOb_, ok);
  RegObPrp(u"N", u"Fxp", fxpOb_, ok);
  VbsIni();
}

// Resets the engine: no code, no script variables, the process's time limit; the engine is
// started with a first expression, then every object of the table is added again.
void VbsSup::VbsIni() {
  if (!sc_) return;  // nothing to reset yet; every step would fail alike
  if (!EngReset()) Trc(u"VbsIni: Reset");
  if (!EngTimeout(int32_t(VbsTmpAct()))) Trc(u"VbsIni: Timeout");
  Var r;
  int16_t ok = 0;
  ExeCalc(u"1+1", r, ok);
  RegObExeTot();
}

void VbsSup::RegObNum(int32_t& n) { n = int32_t(tab_.size()) - 1; }

// Releases records first..last, makes first - 1 the last record (growing the table
// with empty records when first lies past the end) and resets the engine.
void VbsSup::RegObLib(int32_t first) {
  if (first < 1) first = 1;
  for (size_t i = first; i < tab_.size(); i++) tab_[i].ob = Var();
  tab_.resize(size_t(first));
  VbsIni();
}

// Remembers the table's length, so that RegObFixRep can go back to it.
void VbsSup::RegObFixPrp(int32_t& n) {
  RegObNum(n);
  fix_ = n;
}

void VbsSup::RegObFixRep(int32_t& n) {
  n = fix_;
  RegObLib(fix_ + 1);
}

void VbsSup::RobCo(Var& v) {
  if (!EngCodeObject(v)) Trc(u"RobCo");
}

// A text names an object to create; anything else is the object itself.
void VbsSup::RegOb(const Tx& name, const Var& ob, int16_t& ok) {
  RegObPrp(ob.EhTx() ? u"DLL" : u"ROB", name, ob, ok);
}

void VbsSup::RegObDoc(const Var& ob) { doc_ = ob; }

// Appends a record and adds it to the engine. Kind "DLL" (in any case, with blanks
// around) creates the object from the program identifier in ob; the record keeps
// the kind as given. A record once appended stays, even when the engine refuses it.
void VbsSup::RegObPrp(const Tx& kind, const Tx& name, const Var& ob, int16_t& ok) {
  ok = 1;
  Var o = ob;
  if (TxVar(TxVarMai(Var(kind))) == u"DLL") {
    Tx why;
    if (!EngCreate(TxVar(ob), o, why)) {
      ok = 0;
      TrcMsg(u"RegObPrp \"" + name + u"\" CreateObject(\"" + TxVar(ob) + u"\")", why);
      return;
    }
  }
  tab_.push_back(Rob{kind, name, o});
  RegObExe(int32_t(tab_.size()) - 1, ok);
}

// Releases every object and leaves only the unused element 0.
void VbsSup::RegObFim() {
  tab_.clear();
  tab_.resize(1);
}

void VbsSup::RegObExeTot() {
  int16_t ok = 0;
  for (size_t i = 1; i < tab_.size(); i++) RegObExe(int32_t(i), ok);
}

// Gives record i to the engine under its name.
void VbsSup::RegObExe(int32_t i, int16_t& ok) {
  ok = 1;
  Tx name = tab_[i].name;
  Var ob = tab_[i].ob;
  Tx why;
  if (!EngAddObject(name, ob, why)) {
    ok = 0;
    if (why.empty()) Trc(u"AddObject \"" + name + u"\"");
    else TrcMsg(u"AddObject \"" + name + u"\"", why);
  }
}

}  // namespace zw
