// VbsSup: statements, expressions and calls. Arguments reach a procedure twice: as
// the global script variables Arg1..ArgN (assigned by statements) and as its own
// parameters (passed to Run); a function's value comes back through "FxRes".
// Failures never leave: the caller sees a flag of 0, an old "FxRes" or "".
#include "Engine.h"
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

namespace {

// The literal a value becomes in a statement: its text, in quotes when it is a text.
Tx TxLit(const Var& v) {
  Tx t = TxVar(v);
  return v.EhTx() ? TxAspPut(t) : t;
}

Tx TxNum(int64_t n) { return TxAsc(std::to_string(n)); }

// The longest text, in characters, that a statement the host runs may leave in its
// variable. The calculation runs every variable line again after each group of the
// option file, so a line such as "[S]=S & S" doubles its text at every pass, up to
// gigabytes; past this length the variable is emptied and the statement fails with
// 14 "Out of string space", traced as any script error the host passes over.
constexpr uint32_t kCalcTxMax = 1u << 20;

// The variable a statement "name=value" assigns: the plain name before the "=",
// trimmed; "" when there is none.
TxV CmdAlvo(TxV c) {
  size_t i = c.find(u'=');
  if (i == TxV::npos) return {};
  TxV n = c.substr(0, i);
  while (!n.empty() && (n.front() == u' ' || n.front() == u'\t')) n.remove_prefix(1);
  while (!n.empty() && (n.back() == u' ' || n.back() == u'\t')) n.remove_suffix(1);
  auto letra = [](char16_t x) { return (x >= u'A' && x <= u'Z') || (x >= u'a' && x <= u'z'); };
  if (n.empty() || !letra(n[0])) return {};
  for (char16_t x : n)
    if (!letra(x) && !(x >= u'0' && x <= u'9') && x != u'_') return {};
  return n;
}

// Empties a global variable whose text is past the limit; true when it did.
bool CelLim(vbs::Cell& c) {
  if ((c.kind != vbs::Cell::Var && c.kind != vbs::Cell::Undecl) || !c.v.IsStr() || c.v.s->len <= kCalcTxMax)
    return false;
  c.v = vbs::Value();
  return true;
}

}  // namespace

void VbsSup::ExeCmd(const Tx& cmd, int16_t& ok) {
  ok = 1;
  if (!EngExec(cmd)) {
    ok = 0;
    Trc(u"ExeCmd \"" + cmd + u"\"", &cmd);
    return;
  }
  TxV alvo = CmdAlvo(cmd);
  if (alvo.empty() || !sc_) return;
  vbs::Engine& e = sc_->engine();
  int cel = e.FindCell(alvo);
  if (cel < 0 || !CelLim(*e.cp[size_t(cel)])) return;
  ok = 0;
  vbs::ScriptError& err = sc_->Error();
  err.Clear();
  err.Number = 14;
  err.Description = vbs::ErrDesc(14);
  err.Source = u"Microsoft VBScript runtime error";
  TrcErr(u"ExeCmd \"" + cmd + u"\"", 14, err.Description);
}

// After the pass, a variable of the list past the limit is emptied (the pass ran
// as one piece of code, so the look is at its end). Only the few long texts are
// matched against the statements.
void VbsSup::ExeCmdLst(const std::vector<Tx>& cmds, int16_t& ok) {
  ok = EngExecLst(cmds) ? 1 : 0;
  if (!ok) Trc(u"ExeCmdLst");
  if (!sc_) return;
  for (vbs::Cell* c : sc_->engine().cp) {
    if (!c->v.IsStr() || c->v.s->len <= kCalcTxMax) continue;
    for (const Tx& cmd : cmds) {
      if (!vbs::EqNoCase(CmdAlvo(cmd), c->name) || !CelLim(*c)) continue;
      TrcErr(u"ExeCmd \"" + cmd + u"\"", 14, vbs::ErrDesc(14));
      break;
    }
  }
}

// Evaluates into res, which keeps its kind: a text stays text, anything else
// becomes a floating-point number. On failure res is left as it was.
void VbsSup::ExeCalc(const Tx& expr, Var& res, int16_t& ok) {
  ok = 1;
  Var v;
  if (!EngEval(expr, v)) {
    ok = 0;
    Trc(u"ExeCalc \"" + expr + u"\"", &expr);
    return;
  }
  res = res.EhTx() ? Var(TxVar(v)) : Var(NuDbl(v));
}

// Evaluates into res, typed by the value: text for a text, else a number.
void VbsSup::ExeCalcRa(const Tx& expr, Var& res, int16_t& ok) {
  ok = 1;
  Var v;
  if (!EngEval(expr, v)) {
    ok = 0;
    Trc(u"ExeCalcRa \"" + expr + u"\"", &expr);
    return;
  }
  res = v.EhTx() ? v : Var(NuDbl(v));
}

// Evaluates and gives the value as it is; "" on any failure.
void VbsSup::ExeCalcRes(const Tx& expr, Var& res) {
  Var v;
  if (!EngEval(expr, v)) {
    Trc(u"ExeCalcRes \"" + expr + u"\"", &expr);
    res = Var(Tx());
    return;
  }
  res = v;
}

void VbsSup::PgmCmd(const Tx& name, int16_t& ok) { PgmFxRun(name, 0, ok); }

// Stores the arguments, assigns Arg1..ArgN, runs the procedure, keeps its flag and
// reads "FxRes" back (also after a procedure, which leaves the former "FxRes").
void VbsSup::PgmFxExe(const Tx& name, const Arr& args, Var& res) {
  int32_t n = int32_t(args.size());
  store_.assign(size_t(n) + 1, Var());
  int16_t ok = 0;
  for (int32_t i = 1; i <= n; i++) {
    store_[i] = args[i - 1];
    ExeCmd(u"Arg" + TxNum(i) + u"=" + TxLit(store_[i]), ok);
  }
  PgmFxRun(name, n, ok);
  runOk_ = ok;
  ExeCalcRes(u"FxRes", res);
}

// The run step: the procedure gets as many of the stored arguments as it declares
// (missing ones empty), each by reference to a local copy that is thrown away, so a
// procedure's changes to its parameters reach nobody. A procedure that declares
// more than nine parameters isn't run. A function's value goes to "FxRes".
void VbsSup::PgmFxRun(const Tx& name, int32_t n, int16_t& ok) {
  Tx kind;
  PgmFxTip(name, kind);
  ok = 1;
  int32_t a = 0;
  bool ret = false;
  if (!EngProc(name, a, ret)) {
    ok = 0;
    TrcMsg(u"Run \"" + name + u"\"", sc_ ? u"no procedure of that name" : u"no script control");
    return;
  }
  Arr loc(size_t(n) + 1);
  for (int32_t i = 1; i <= n && i < int32_t(store_.size()); i++) loc[i] = store_[i];
  Var rv;
  if (a >= 0 && a <= 9) {
    loc.resize(size_t(a) + 1);
    Arr par(loc.begin() + 1, loc.end());
    if (!EngRun(name, par, rv)) {
      ok = 0;
      Trc(u"Run \"" + name + u"\" with " + TxNum(a) + u" argument(s)");
      return;
    }
  } else {
    TrcMsg(u"Run \"" + name + u"\"", u"declares " + TxNum(a) + u" parameters; more than 9 are never run");
  }
  loc.clear();
  if (kind == u"F") {
    int16_t k = 0;
    ExeCmd(u"FxRes=" + TxLit(rv), k);
  }
  ok = 1;
}

// Runs a procedure from a list: element 0 its name, 1..n its arguments. From 1 to
// 9 arguments pass on; none, or 10 and more, call it without any. A function
// answers its value; a procedure (or an unknown name) its run flag, 1 or 0.
void VbsSup::SupVbsFx(const Arr& list, Tx& kind, Var& res) {
  Tx name = list.empty() ? Tx() : TxVar(list[0]);
  int32_t n = list.empty() ? 0 : int32_t(list.size()) - 1;
  PgmFxTip(name, kind);
  res = Var(Tx());
  runOk_ = 0;
  Arr args;
  if (n >= 1 && n <= 9) args.assign(list.begin() + 1, list.end());
  else if (n > 9) TrcMsg(u"SupVbsFx \"" + name + u"\"", TxNum(n) + u" arguments: all dropped, called without any");
  Var v;
  PgmFxExe(name, args, v);
  res = v;
  if (kind != u"F") res = Var(runOk_);
}

// The engine's last error: number, description ("Sem erro" for none) and where it
// stands, as "LIN:12  COL:4  COD:x = y +"; a piece without text is left out.
void VbsSup::VbsErr(int32_t& num, Tx& des, Tx& loc) {
  Tx lin, col, cod;
  EngErr(num, des, lin, col, cod);
  if (num == 0) {
    des = u"Sem erro";
    loc.clear();
    return;
  }
  loc = u"LIN";
  TxJunSep(loc, u":", Var(lin));
  TxJunSep(loc, u"  COL:", Var(col));
  TxJunSep(loc, u"  COD:", Var(cod));
}

// Kind of an expression: "A" (text) when the character before its first "(" is
// "$", or, without a "(", when it starts with a double quote or ends with "$";
// "N" otherwise. The "$" test counts positions of the trimmed text in the text as
// given, so leading blanks shift it.
void VbsSup::TipVL(const Tx& tx, Tx& kind, Tx& res) {
  Tx t = TxTrim(tx);
  kind = u"N";
  size_t p = t.find(u'(');
  if (p != Tx::npos) {
    // 1-based position p+1; the character at position p of the untrimmed text.
    if (p >= 1 && p - 1 < tx.size() && tx[p - 1] == u'$') kind = u"A";
  } else if (!t.empty() && (t.front() == u'"' || t.back() == u'$')) {
    kind = u"A";
  }
  res = kind;
}

}  // namespace zw
