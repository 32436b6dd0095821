// VbsSup: script variables by name, function arguments named with a prefix, and the
// calls passed on to the document and callback objects. A name ending in "$" is a
// text variable; the "$" is not part of the script's name.
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

void VbsSup::VarIdeAjt(const Tx& name, Tx& id, Tx& type) {
  if (!name.empty() && name.back() == u'$') {
    id = name.substr(0, name.size() - 1);
    type = u"A";
  } else {
    id = name;
    type = u"N";
  }
}

// Assigns a script variable. A text that starts with a double quote is taken as a
// literal that keeps its quotes; a numeric text for a variable without "$" becomes
// a number; anything else goes in as a quoted text. A refusal is ignored.
void VbsSup::VarReg(const Tx& name, const Var& val) {
  Tx id, type;
  VarIdeAjt(name, id, type);
  Tx t = TxVar(val);
  if (!t.empty() && t[0] == u'"') t = u"Chr(34)+" + t + u"+Chr(34)";
  else if (!EngNum(t) || type == u"A") t = TxAspPut(t);
  int16_t ok = 0;
  ExeCmd(id + u"=" + t, ok);
}

// Reads a script variable: a text for a "$" name, else a number. An unknown
// variable reads as empty, so "" or 0.
void VbsSup::VarCon(const Tx& name, Var& val) {
  Tx id, type;
  VarIdeAjt(name, id, type);
  Var t = Var(Tx());
  int16_t ok = 0;
  ExeCalc(id, t, ok);
  VarTipCnv(type, t, val);
}

void VbsSup::VarTipCnv(const Tx& type, const Var& val, Var& dst) {
  if (type == u"N") {
    Var n = Var(0.0);
    NuVar(val, n);
    dst = n;
  } else {
    dst = Var(TxVar(val));
  }
}

void VbsSup::FxArgReg(const Tx& fx, const Tx& arg, const Var& val) {
  VarReg(TxVar(TxVarMai(Var(fx + u"_" + arg))), val);
}

// Reads an argument named FX_ARG. Its text, when it ends in a double quote, is a
// literal and gives the value without quotes; otherwise it names another script
// variable, whose text is the value. out keeps its kind.
void VbsSup::FxArgCon(const Tx& fx, const Tx& arg, Var& val) {
  Tx name = TxVar(TxVarMai(Var(fx + u"_" + arg)));
  Tx id, type;
  int16_t ok = 0;
  VarIdeAjt(name, id, type);
  Var v = Var(Tx());
  ExeCalc(id, v, ok);
  Var w = Var(Tx());
  const Tx& s = v.Txt();
  if (!s.empty() && s.back() == u'"') {
    w = Var(TxAspRem(s));
  } else {
    VarIdeAjt(s, id, type);
    ExeCalc(id, w, ok);
  }
  VarAtr(w, val);
}

// Takes the next comma-separated token off tx, trimmed: type "N" when it reads as a
// number, else "A"; val gets the token, keeping its own kind.
void VbsSup::FxArgSep(Tx& tx, Var& val, Tx& type) {
  Tx tok;
  int f = 0;
  TxTokSeg(tx, u",", tok, f);
  tok = TxTrim(tok);
  type = EngNum(tok) ? u"N" : u"A";
  VarAtr(Var(tok), val);
}

void VbsSup::FxArgSepReg(const Tx& fx, Tx& tx, const Tx& arg, Var& val) {
  Tx type;
  FxArgSep(tx, val, type);
  FxArgReg(fx, arg, val);
}

// Passes the array to the callback object's "cbkVbsFx" and copies the elements
// back, so that the callee's changes return. Result empty when the call fails.
void VbsSup::FxPgm(Arr& args, Var& res) {
  res = Var();
  Arr loc = args;
  Var r;
  if (!ObArrCall(cbk_, u"cbkVbsFx", loc, r)) {
    TrcMsg(u"FxPgm", u"the callback object has no cbkVbsFx");
    return;
  }
  for (size_t i = 1; i < args.size() && i < loc.size(); i++) args[i] = loc[i];
  res = r;
}

// The same through "FxCbkExe", without a result.
void VbsSup::FxDiv(Arr& args) {
  Arr loc = args;
  Var r;
  if (!ObArrCall(cbk_, u"FxCbkExe", loc, r)) {
    TrcMsg(u"FxDiv", u"the callback object has no FxCbkExe");
    return;
  }
  for (size_t i = 1; i < args.size() && i < loc.size(); i++) args[i] = loc[i];
}

void VbsSup::FxDoc(const Arr& args) {
  Arr a{Var(args.empty() ? Tx() : TxVar(args[0]))};
  Var r;
  DocCall(u"LstFxCall", a, r, u"FxDoc");
}

// The start value of a document call's result: 0 for type "N", else "".
void VbsSup::DocResIni(const Tx& type, Var& res) {
  res = type == u"N" ? Var(int16_t(0)) : Var(Tx());
}

// Calls a member of the document object by name; false (and the trace) on failure.
bool VbsSup::DocCall(const Tx& member, Arr& args, Var& res, const Tx& call) {
  if (ObCall(doc_, member, args, res)) return true;
  TrcMsg(call, u"the document object can't answer " + member);
  return false;
}

void VbsSup::DocConEsp(const Tx& type, const Tx& name, Var& res) {
  DocResIni(type, res);
  Arr a{Var(name), res};
  Var r;
  if (DocCall(u"VarEspCon", a, r, u"DocConEsp")) res = a[1];
}

void VbsSup::DocConVar(const Tx& type, const Tx& name, Var& res) {
  DocResIni(type, res);
  Arr a{Var(name), res, Var(int16_t(1))};
  Var r;
  if (DocCall(u"DocExpCalc", a, r, u"DocConVar")) res = a[1];
}

void VbsSup::DocConOpc(const Tx& type, const Tx& name, Var& res) {
  DocResIni(type, res);
  Arr a{Var(name), res};
  Var r;
  if (DocCall(u"DocVarCon", a, r, u"DocConOpc")) res = a[1];
}

// Reads the document's "DocEsp" text and takes the [NAME=value] item out of it.
void VbsSup::DocConOpcEsp(const Tx& type, const Tx& name, Var& res) {
  DocResIni(type, res);
  Arr a{Var(u"DocEsp"), Var(Tx())};
  Var r;
  if (!DocCall(u"DocVarCon", a, r, u"DocConOpcEsp")) return;
  int f = 0;
  OpcTxCon(TxVar(a[1]), name, res, f);
}

void VbsSup::SqlCalc(const Tx& type, const Tx& name, Var& res) {
  DocResIni(type, res);
  Arr a{Var(name), res};
  Var r;
  if (DocCall(u"SqlCalc", a, r, u"SqlCalc")) res = a[1];
}

// Joins the texts of all elements with "," (texts without enclosing quotes) and
// hands the line to the document's "PrExeFx".
void VbsSup::PrWin(const Arr& args) {
  Tx t;
  for (auto& v : args) TxJunSep(t, u",", Var(v.EhTx() ? TxAspRem(v.Txt()) : TxVar(v)));
  Arr a{Var(t)};
  Var r;
  DocCall(u"PrExeFx", a, r, u"PrWin");
}

}  // namespace zw
