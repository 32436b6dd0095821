// VbsEng: the one place where the host meets the engine. Values cross here between
// zw::Var and the engine's variant, and every call into the script control goes
// through the Eng* members, which answer false on an engine error (left in the
// control's Error for VbsErr) and never let an exception through.
#include "Builtins.h"
#include "DateTime.h"
#include "Engine.h"
#include "Locale.h"
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

namespace {

vbs::Obj* ObDe(const Var& v) {
  if (!v.EhObj()) return nullptr;
  auto* w = dynamic_cast<VbsVal*>(v.Obj().get());
  return w && w->v.IsObj() ? w->v.o : nullptr;
}

}  // namespace

// The elements 0..ub of a one-dimensional array value; false for anything else.
bool ArrDe(const vbs::Value& val, std::vector<Var>& out) {
  const vbs::Value& v = val.Deref();
  if (!v.IsArr() || !v.a || v.a->dims.size() != 1) return false;
  out.clear();
  int32_t lo = v.a->dims[0].lo, n = v.a->dims[0].n;
  // Element k of the host's list is index k of the script's array.
  size_t top = size_t(std::max(0, lo + n));
  out.resize(top);
  for (int32_t i = 0; i < n; i++)
    if (lo + i >= 0) out[size_t(lo + i)] = VarDeVbs(v.a->v[size_t(i)]);
  return true;
}

vbs::Value ArrVbs(const std::vector<Var>& in) {
  vbs::Arr* a = vbs::Arr::New({int32_t(in.size()) - 1});
  for (size_t i = 0; i < in.size(); i++) a->v[i] = VbsDeVar(in[i]);
  return vbs::Value(a);
}

namespace {

// Inside a catch: the reason of the failure being handled, an engine error by its
// number and description, any other as TrcPor gives it.
Tx EngPor() {
  try {
    throw;
  } catch (const vbs::Fault& f) {
    return u"erro " + TxAsc(std::to_string(f.num)) + u" " + f.desc;
  } catch (...) {
    return TrcPor();
  }
}

// Runs a member of an engine object, catching whatever it raises; what it raised
// goes to the trace.
bool Invoca(vbs::Obj* o, const Tx& member, std::vector<vbs::Value>& vals, vbs::Value& r) {
  if (!o) return false;
  vbs::Ref<vbs::Obj> keep(o);  // the callee may drop the caller's last reference to it
  try {
    int id = o->Id(member);
    if (id < 0) return false;
    // By reference: each argument points at its cell in vals, so the callee writes there.
    std::vector<vbs::Value> refs;
    for (auto& v : vals) refs.push_back(vbs::Value::RefTo(&v));
    o->Invoke(id, vbs::Inv::Call, vbs::Args{refs.data(), int(refs.size())}, r);
    return true;
  } catch (...) {
    TrcFal(u"VbsSup", u"Invoke \"" + member + u"\"", EngPor());
    return false;
  }
}

}  // namespace

Var VarDeVbs(const vbs::Value& val) {
  const vbs::Value& v = val.Deref();
  switch (v.Type()) {
    case vbs::vtEmpty: return Var();
    case vbs::vtNull: return Var::Nulo();
    case vbs::vtInteger: return Var(v.i);
    case vbs::vtLong: return Var(v.l);
    case vbs::vtSingle: return Var(double(v.f));
    case vbs::vtDouble: return Var(v.d);
    case vbs::vtCurrency: return Var(double(v.c) / 10000.0);
    case vbs::vtDate: return Var(vbs::DtTx(v.d));
    case vbs::vtString: return Var(v.Text());
    case vbs::vtBoolean: return Var(v.i != 0);
    case vbs::vtByte: return Var(int16_t(v.b));
    case vbs::vtError: return v.IsMissing() ? Var::Falta() : Var(v.l);
    default: return Var(std::shared_ptr<VarObj>(std::make_shared<VbsVal>(v)));
  }
}

vbs::Value VbsDeVar(const Var& v) {
  switch (v.Tipo()) {
    case Var::K::Vazio: return vbs::Value();
    case Var::K::Falta: return vbs::Value::Missing();
    case Var::K::Nulo: return vbs::Value::Null();
    case Var::K::Int: return vbs::Value(v.Int());
    case Var::K::Lng: return vbs::Value(v.Lng());
    case Var::K::Dbl: return vbs::Value(v.Dbl());
    case Var::K::Bool: return vbs::Value(v.Bool());
    case Var::K::Tx: return vbs::Value(v.Txt());
    case Var::K::Obj: {
      auto* w = dynamic_cast<VbsVal*>(v.Obj().get());
      return w ? w->v : vbs::Value::Nothing();
    }
  }
  return vbs::Value();
}

Var VbsObVar(vbs::Obj* o) { return Var(std::shared_ptr<VarObj>(std::make_shared<VbsVal>(vbs::Value(o)))); }

bool EngNum(const Tx& t) {
  double d = 0;
  return vbs::TxNum(t, d);
}

bool ObCall(const Var& ob, const Tx& member, std::vector<Var>& args, Var& res) {
  std::vector<vbs::Value> vals;
  for (auto& a : args) vals.push_back(VbsDeVar(a));
  vbs::Value r;
  if (!Invoca(ObDe(ob), member, vals, r)) return false;
  for (size_t i = 0; i < args.size(); i++) args[i] = VarDeVbs(vals[i]);
  res = VarDeVbs(r);
  return true;
}

bool ObArrCall(const Var& ob, const Tx& member, std::vector<Var>& elems, Var& res) {
  std::vector<vbs::Value> vals{ArrVbs(elems)};
  vbs::Value r;
  if (!Invoca(ObDe(ob), member, vals, r)) return false;
  std::vector<Var> back;
  if (ArrDe(vals[0], back)) elems = back;
  res = VarDeVbs(r);
  return true;
}

// ---- The script control ----------------------------------------------------------

VbsSup::ExeMar::ExeMar(VbsSup& s) : h(s) { ExeIni(); }
VbsSup::ExeMar::~ExeMar() { ExeFim(h.sc_.get()); }

// A reset also gives the engine the pump in force, which the engine keeps across
// later resets.
bool VbsSup::EngReset() {
  lstCod_.reset();
  if (!sc_) return false;
  sc_->Reset();
  added_.clear();
  PmpPrp();
  return true;
}

bool VbsSup::EngTimeout(int32_t ms) {
  if (!sc_) return false;
  sc_->Timeout(long(ms));
  return true;
}

bool VbsSup::EngSitehWnd(intptr_t h) {
  if (!sc_) return false;
  sc_->SitehWnd(long(h));
  return true;
}

bool VbsSup::EngAddObject(const Tx& name, const Var& ob, Tx& why) {
  if (!sc_) return false;
  vbs::Obj* o = ObDe(ob);
  if (!o) {
    why = u"not an object of the engine";
    return false;
  }
  // A name takes one object until the next reset, as the platform's control has it.
  for (auto& n : added_)
    if (vbs::EqNoCase(n, name)) {
      why = u"an object named \"" + name + u"\" was added already";
      return false;
    }
  if (!sc_->AddObject(name, vbs::Ref<vbs::Obj>(o))) return false;
  added_.push_back(name);
  return true;
}

// New code may change what a name is (a variable, a procedure): ExeCmdLst's
// compiled list is made again after it.
bool VbsSup::EngAddCode(const Tx& tx) {
  lstCod_.reset();
  ExeMar m(*this);
  return sc_ && sc_->AddCode(tx);
}

bool VbsSup::EngExec(const Tx& tx) {
  lstCod_.reset();
  ExeMar m(*this);
  return sc_ && sc_->ExecuteStatement(tx);
}

// The list as one text of global code, each statement on its own line behind "On
// Error Resume Next", so that a failure at run time passes on to the next one as
// separate statements would. A statement that does not compile on its own is left
// out, as the engine would refuse it alone. The code is kept while the list, the
// engine and its code stay the same; the engine's last error is left clear.
bool VbsSup::EngExecLst(const std::vector<Tx>& cmds) {
  if (!sc_) return false;
  ExeMar m(*this);
  vbs::Engine& e = sc_->engine();
  vbs::UseEngine use(&e);
  if (!lstCod_ || cmds != lstTx_) {
    lstCod_.reset();
    Tx tx;
    for (const Tx& c : cmds) {
      try {
        e.Compile(c, false, vbs::Scope{});
      } catch (const vbs::Fault& f) {
        TrcErr(u"ExeCmd \"" + c + u"\"", f.num, f.desc);
        continue;
      } catch (...) {
        TrcMsg(u"ExeCmdLst \"" + c + u"\"", u"does not compile; left out: " + TrcPor());
        continue;
      }
      tx += u"On Error Resume Next\n" + c + u"\n";
    }
    try {
      std::shared_ptr<vbs::Unit> u = e.Compile(tx, false, vbs::Scope{});
      e.Install(*u);
      lstCod_ = u;
      lstTx_ = cmds;
    } catch (...) {
      TrcMsg(u"ExeCmdLst", u"the list does not compile: " + EngPor());
      return false;
    }
  }
  bool ok = true, tmp = false;
  std::shared_ptr<vbs::Unit> u = lstCod_;  // kept alive if the code resets the engine
  try {
    e.StartClock();
    e.RunMain(*u->main);
    tmp = e.halted;
  } catch (const vbs::Abort&) {
    tmp = true;
  } catch (...) {
    TrcMsg(u"ExeCmdLst", EngPor());
    ok = false;
  }
  sc_->Error().Clear();
  e.err = vbs::ErrState();
  // The time limit stops the list whatever its handlers: that error stays, as the
  // control's own calls leave it.
  if (tmp) {
    vbs::ScriptError& er = sc_->Error();
    er.Number = kVbsErrTmp;
    er.Description = u"Script timeout: the script ran longer than the time allowed";
    er.Source = u"Microsoft VBScript runtime error";
    ok = false;
  }
  return ok;
}

bool VbsSup::EngEval(const Tx& tx, Var& res) {
  vbs::Value r;
  ExeMar m(*this);
  if (!sc_ || !sc_->Eval(tx, r)) return false;
  res = VarDeVbs(r);
  return true;
}

bool VbsSup::EngRun(const Tx& name, Arr& args, Var& res) {
  if (!sc_) return false;
  ExeMar m(*this);
  std::vector<vbs::Value> vals;
  for (auto& a : args) vals.push_back(VbsDeVar(a));
  std::vector<vbs::Value*> ptrs;
  for (auto& v : vals) ptrs.push_back(&v);
  vbs::Value r;
  if (!sc_->Run(name, std::span<vbs::Value* const>(ptrs.data(), ptrs.size()), r)) return false;
  for (size_t i = 0; i < args.size(); i++) args[i] = VarDeVbs(vals[i]);
  res = VarDeVbs(r);
  return true;
}

bool VbsSup::EngProcs(std::vector<Tx>& names) {
  names.clear();
  if (!sc_) return false;
  for (auto& p : sc_->Procedures()) names.push_back(p.Name);
  return true;
}

bool VbsSup::EngProc(const Tx& name, int32_t& numArgs, bool& hasRet) {
  const vbs::ProcInfo* p = sc_ ? sc_->Procedure(name) : nullptr;
  if (!p) return false;
  numArgs = p->NumArgs;
  hasRet = p->HasReturnValue;
  return true;
}

bool VbsSup::EngCodeObject(Var& ob) {
  if (!sc_) return false;
  vbs::Ref<vbs::Obj> o = sc_->CodeObject();
  ob = VbsObVar(o.get());
  return true;
}

// CreateObject by program identifier; why gets the engine's description on failure.
bool VbsSup::EngCreate(const Tx& progId, Var& ob, Tx& why) {
  try {
    vbs::Ref<vbs::Obj> o = vbs::NewObj(progId);
    if (!o) {
      why = u"no object";
      return false;
    }
    ob = VbsObVar(o.get());
    return true;
  } catch (const vbs::Fault& f) {
    why = TxAsc(std::to_string(f.num)) + u" " + f.desc;
  } catch (...) {
    why = u"the object can't be created: " + TrcPor();
  }
  return false;
}

void VbsSup::EngErr(int32_t& num, Tx& des, Tx& line, Tx& col, Tx& text) {
  if (!sc_) {
    num = 0;
    des.clear();
    line.clear();
    col.clear();
    text.clear();
    return;
  }
  const vbs::ScriptError& e = sc_->Error();
  num = e.Number;
  des = e.Description;
  line = TxAsc(std::to_string(e.Line));
  col = TxAsc(std::to_string(e.Column));
  text = e.Text;
}

}  // namespace zw
