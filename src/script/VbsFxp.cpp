// VbsFxp: the host as scripts see it, under the names "Fxp" and "FxPre". Every
// public operation of VbsSup is a member of the same name (case-blind); out
// arguments write back into the script's variables, and an out argument that
// decides by its kind (ExeCalc's result) is read first. Lists are script arrays.
// Operations that reset the engine can't run from inside a script, which is still
// running on that engine: they raise error 5 with a description that says so.
#include <span>
#include "TxtGlb.h"
#include "VbsInt.h"
#include "VbsSup.h"

namespace zw {

namespace {

using vbs::Args;
using vbs::Value;
using Arr = std::vector<Var>;

Var V(Args a, int k) { return k < a.n ? VarDeVbs(a[k]) : Var::Falta(); }
Tx T(Args a, int k) { return k < a.n ? TxVar(VarDeVbs(a[k])) : Tx(); }
int32_t N(Args a, int k) { return k < a.n ? int32_t(NuDbl(VarDeVbs(a[k]))) : 0; }
void O(Args a, int k, const Var& v) {
  if (k < a.n) a[k] = VbsDeVar(v);
}
void O16(Args a, int k, int16_t n) { O(a, k, Var(n)); }
void O32(Args a, int k, int32_t n) { O(a, k, Var(n)); }
// A list argument: a script array, or any other value as a list of one.
Arr L(Args a, int k) {
  Arr l;
  if (k >= a.n) return l;
  if (!ArrDe(a[k], l)) l.assign(1, VarDeVbs(a[k]));
  return l;
}
void OL(Args a, int k, const Arr& l) {
  if (k < a.n) a[k] = ArrVbs(l);
}
[[noreturn]] void Recusa(const char* op) {
  vbs::Raise(5, u"Fxp." + TxAsc(op) + u" resets the engine and can't run from a script");
}

using Fn = void (*)(VbsSup& h, Args a);
struct Mb {
  const char* name;
  Fn fn;
};

// clang-format off
const Mb kMb[] = {
  {"FxIni", [](VbsSup& h, Args) { h.FxIni(); }},
  {"FxFim", [](VbsSup&, Args) { Recusa("FxFim"); }},
  {"VbsRegFS", [](VbsSup&, Args) { Recusa("VbsRegFS"); }},
  {"VbsRegSup", [](VbsSup&, Args) { Recusa("VbsRegSup"); }},
  {"VbsSupPrp", [](VbsSup&, Args) { Recusa("VbsSupPrp"); }},
  {"VbsIni", [](VbsSup&, Args) { Recusa("VbsIni"); }},
  {"RegObNum", [](VbsSup& h, Args a) { int32_t n = 0; h.RegObNum(n); O32(a, 0, n); }},
  {"RegObLib", [](VbsSup&, Args) { Recusa("RegObLib"); }},
  {"RegObFixPrp", [](VbsSup& h, Args a) { int32_t n = 0; h.RegObFixPrp(n); O32(a, 0, n); }},
  {"RegObFixRep", [](VbsSup&, Args) { Recusa("RegObFixRep"); }},
  {"RobCo", [](VbsSup& h, Args a) { Var v; h.RobCo(v); O(a, 0, v); }},
  {"RegOb", [](VbsSup& h, Args a) { int16_t ok = 0; h.RegOb(T(a, 0), V(a, 1), ok); O16(a, 2, ok); }},
  {"RegObDoc", [](VbsSup& h, Args a) { h.RegObDoc(V(a, 0)); }},
  {"RegObPrp", [](VbsSup& h, Args a) {
    int16_t ok = 0; h.RegObPrp(T(a, 0), T(a, 1), V(a, 2), ok); O16(a, 3, ok); }},
  {"PgmLer", [](VbsSup& h, Args a) {
    Tx t; int16_t ok = 0; h.PgmLer(T(a, 0), int16_t(N(a, 1)), t, ok); O(a, 2, Var(t)); O16(a, 3, ok); }},
  {"PgmRegArr", [](VbsSup& h, Args a) {
    std::vector<Tx> l; for (auto& v : L(a, 1)) l.push_back(TxVar(v));
    int16_t ok = 0; h.PgmRegArr(int16_t(N(a, 0)), l, ok); O16(a, 2, ok); }},
  {"PgmRegExe", [](VbsSup& h, Args a) { int16_t ok = 0; h.PgmRegExe(T(a, 0), ok); O16(a, 1, ok); }},
  {"PgmTxJun", [](VbsSup& h, Args a) {
    Tx t = T(a, 1); h.PgmTxJun(int16_t(N(a, 0)), t, T(a, 2)); O(a, 1, Var(t)); }},
  {"ConFxReg", [](VbsSup& h, Args a) {
    std::vector<Tx> l; int32_t n = 0; h.ConFxReg(l, n);
    Arr r; for (auto& s : l) r.push_back(Var(s)); OL(a, 0, r); O32(a, 1, n); }},
  {"ConFxRegTx", [](VbsSup& h, Args a) { Tx t; int32_t n = 0; h.ConFxRegTx(t, n); O(a, 0, Var(t)); O32(a, 1, n); }},
  {"PgmFxTip", [](VbsSup& h, Args a) { Tx k; h.PgmFxTip(T(a, 0), k); O(a, 1, Var(k)); }},
  {"ExeCmd", [](VbsSup& h, Args a) { int16_t ok = 0; h.ExeCmd(T(a, 0), ok); O16(a, 1, ok); }},
  {"ExeCalc", [](VbsSup& h, Args a) {
    Var r = V(a, 1); int16_t ok = 0; h.ExeCalc(T(a, 0), r, ok); O(a, 1, r); O16(a, 2, ok); }},
  {"ExeCalcRa", [](VbsSup& h, Args a) {
    Var r = V(a, 1); int16_t ok = 0; h.ExeCalcRa(T(a, 0), r, ok); O(a, 1, r); O16(a, 2, ok); }},
  {"ExeCalcRes", [](VbsSup& h, Args a) { Var r; h.ExeCalcRes(T(a, 0), r); O(a, 1, r); }},
  {"PgmCmd", [](VbsSup& h, Args a) { int16_t ok = 0; h.PgmCmd(T(a, 0), ok); O16(a, 1, ok); }},
  {"PgmFxExe", [](VbsSup& h, Args a) { Var r; h.PgmFxExe(T(a, 0), L(a, 1), r); O(a, 2, r); }},
  {"SupVbsFx", [](VbsSup& h, Args a) { Tx k; Var r; h.SupVbsFx(L(a, 0), k, r); O(a, 1, Var(k)); O(a, 2, r); }},
  {"VbsErr", [](VbsSup& h, Args a) {
    int32_t n = 0; Tx d, l; h.VbsErr(n, d, l); O32(a, 0, n); O(a, 1, Var(d)); O(a, 2, Var(l)); }},
  {"TipVL", [](VbsSup& h, Args a) { Tx k, r; h.TipVL(T(a, 0), k, r); O(a, 1, Var(k)); O(a, 2, Var(r)); }},
  {"VarIdeAjt", [](VbsSup& h, Args a) { Tx i, t; h.VarIdeAjt(T(a, 0), i, t); O(a, 1, Var(i)); O(a, 2, Var(t)); }},
  {"VarReg", [](VbsSup& h, Args a) { h.VarReg(T(a, 0), V(a, 1)); }},
  {"VarCon", [](VbsSup& h, Args a) { Var v = V(a, 1); h.VarCon(T(a, 0), v); O(a, 1, v); }},
  {"VarTipCnv", [](VbsSup& h, Args a) { Var d = V(a, 2); h.VarTipCnv(T(a, 0), V(a, 1), d); O(a, 2, d); }},
  {"FxArgReg", [](VbsSup& h, Args a) { h.FxArgReg(T(a, 0), T(a, 1), V(a, 2)); }},
  {"FxArgCon", [](VbsSup& h, Args a) { Var v = V(a, 2); h.FxArgCon(T(a, 0), T(a, 1), v); O(a, 2, v); }},
  {"FxArgSep", [](VbsSup& h, Args a) {
    Tx t = T(a, 0), k; Var v = V(a, 1); h.FxArgSep(t, v, k); O(a, 0, Var(t)); O(a, 1, v); O(a, 2, Var(k)); }},
  {"FxArgSepReg", [](VbsSup& h, Args a) {
    Tx t = T(a, 1); Var v = V(a, 3); h.FxArgSepReg(T(a, 0), t, T(a, 2), v); O(a, 1, Var(t)); O(a, 3, v); }},
  {"FxPgm", [](VbsSup& h, Args a) { Arr l = L(a, 0); Var r; h.FxPgm(l, r); OL(a, 0, l); O(a, 1, r); }},
  {"FxDiv", [](VbsSup& h, Args a) { Arr l = L(a, 0); h.FxDiv(l); OL(a, 0, l); }},
  {"FxDoc", [](VbsSup& h, Args a) { h.FxDoc(L(a, 0)); }},
  {"DocConEsp", [](VbsSup& h, Args a) { Var r; h.DocConEsp(T(a, 0), T(a, 1), r); O(a, 2, r); }},
  {"DocConVar", [](VbsSup& h, Args a) { Var r; h.DocConVar(T(a, 0), T(a, 1), r); O(a, 2, r); }},
  {"DocConOpc", [](VbsSup& h, Args a) { Var r; h.DocConOpc(T(a, 0), T(a, 1), r); O(a, 2, r); }},
  {"DocConOpcEsp", [](VbsSup& h, Args a) { Var r; h.DocConOpcEsp(T(a, 0), T(a, 1), r); O(a, 2, r); }},
  {"SqlCalc", [](VbsSup& h, Args a) { Var r; h.SqlCalc(T(a, 0), T(a, 1), r); O(a, 2, r); }},
  {"PrWin", [](VbsSup& h, Args a) { h.PrWin(L(a, 0)); }},
};
// clang-format on

}  // namespace

class VbsFxp : public vbs::Obj {
 public:
  VbsSup* host = nullptr;

  Tx TypeName() override { return u"VbsSup"; }

  // Member ids are positions in the table, from 1; 0 (the default member) is none.
  int Id(TxV name) override {
    for (size_t i = 0; i < std::size(kMb); i++)
      if (vbs::EqNoCase(name, TxAsc(kMb[i].name))) return int(i) + 1;
    return -1;
  }

  void Invoke(int id, vbs::Inv k, Args a, Value& r) override {
    if (id < 1 || id > int(std::size(kMb)) || (k != vbs::Inv::Call && k != vbs::Inv::Get)) vbs::Raise(438);
    if (!host) vbs::Raise(5, u"Fxp: the script host has ended");
    r = Value();
    kMb[id - 1].fn(*host, a);
  }
};

Var FxpNovo(VbsSup& host, VbsFxp*& fxp) {
  fxp = new VbsFxp;
  fxp->host = &host;
  return VbsObVar(fxp);
}

void FxpSolta(VbsFxp* fxp) {
  if (fxp) fxp->host = nullptr;
}

}  // namespace zw
