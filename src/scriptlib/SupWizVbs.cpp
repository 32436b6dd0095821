// SupWizVbs: the "Wiz" object, its table of operations and the crossing between
// the script engine's arguments and the library's. The operations themselves live
// in files of their own groups; the two that act on the wizard are here.
#include "SupWizVbs.h"
#include <exception>
#include "CtlObj.h"
#include "DbgFx.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw {

namespace {

struct Ent {
  const char16_t* nome;
  SupWizVbs::Op op;
};

#define ZW_WIZ_ENT(nome) {u## #nome, &SupWizVbs::nome},
const Ent kOps[] = {ZW_WIZ_OPS(ZW_WIZ_ENT)};
#undef ZW_WIZ_ENT

// The position of an operation in the table, or -1.
int OpIdx(TxV nome) {
  for (size_t i = 0; i < std::size(kOps); i++)
    if (TxIgual(nome, kOps[i].nome)) return int(i);
  return -1;
}

// Whether a script's argument still holds what it was given: same kind and value,
// objects and arrays by identity.
bool Igual(const Var& a, const Var& b) {
  if (a.Tipo() != b.Tipo()) return false;
  switch (a.Tipo()) {
    case Var::K::Vazio: case Var::K::Falta: case Var::K::Nulo: return true;
    case Var::K::Int: return a.Int() == b.Int();
    case Var::K::Lng: return a.Lng() == b.Lng();
    case Var::K::Dbl: return a.Dbl() == b.Dbl() || (a.Dbl() != a.Dbl() && b.Dbl() != b.Dbl());
    case Var::K::Bool: return a.Bool() == b.Bool();
    case Var::K::Tx: return a.Txt() == b.Txt();
    case Var::K::Obj: return a.Obj() == b.Obj();
  }
  return false;
}

}  // namespace

// The library as the script engine sees it: member ids are positions in the table,
// from 1. Arguments cross into Vars and back, and what an operation throws
// becomes a script error.
class SupWizVbsOb : public vbs::Obj {
 public:
  SupWizVbs* lib = nullptr;

  Tx TypeName() override { return u"SupWizVbs"; }

  int Id(TxV nome) override {
    int i = OpIdx(nome);
    return i < 0 ? -1 : i + 1;
  }

  void Invoke(int id, vbs::Inv k, vbs::Args a, vbs::Value& r) override {
    if (id < 1 || id > int(std::size(kOps)) || (k != vbs::Inv::Call && k != vbs::Inv::Get)) vbs::Raise(438);
    if (!lib) vbs::Raise(91, u"Wiz: the wizard's library has ended");
    SupWizVbs::Lis lst, orig;
    lst.reserve(size_t(a.n));
    for (int i = 0; i < a.n; i++) lst.push_back(VarDeVbs(a[i]));
    orig = lst;
    Var res;
    try {
      (lib->*kOps[id - 1].op)(lst, res);
    } catch (const vbs::Fault&) {
      throw;
    } catch (const CtlErr& e) {
      vbs::Raise(e.num);
    } catch (const std::bad_alloc&) {
      vbs::Raise(7);
    } catch (const std::exception& e) {
      vbs::Raise(5, TxDeUtf8(e.what()));
    }
    for (int i = 0; i < a.n && size_t(i) < lst.size(); i++)
      if (!Igual(lst[size_t(i)], orig[size_t(i)])) a[i] = VbsDeVar(lst[size_t(i)]);
    r = VbsDeVar(res);
  }
};

SupWizVbs::SupWizVbs(WizEng* eng) : mEng(eng) {
  DbgObjIni(mTrcNom, mTrcSit);
  Lis a;
  Var r;
  FxIni(a, r);
}

SupWizVbs::~SupWizVbs() {
  Lis a;
  Var r;
  FxFim(a, r);
  if (mObRaw) mObRaw->lib = nullptr;
  DbgObjFim(mTrcNom, mTrcSit);
}

const Var& SupWizVbs::Ob() {
  if (!mObRaw) {
    mObRaw = new SupWizVbsOb;
    mObRaw->lib = this;
    mOb = VbsObVar(mObRaw);
  }
  return mOb;
}

bool SupWizVbs::Exe(TxV nome, Lis& a, Var& res) {
  Op op = OpDe(nome);
  if (!op) return false;
  (this->*op)(a, res);
  return true;
}

SupWizVbs::Op SupWizVbs::OpDe(TxV nome) {
  int i = OpIdx(nome);
  return i < 0 ? nullptr : kOps[i].op;
}

std::vector<Tx> SupWizVbs::OpNomes() {
  std::vector<Tx> r;
  for (auto& e : kOps) r.emplace_back(e.nome);
  return r;
}

const Var& SupWizVbs::Arg(const Lis& a, size_t k) {
  static const Var falta = Var::Falta();
  return k < a.size() ? a[k] : falta;
}

void SupWizVbs::Poe(Lis& a, size_t k, const Var& v) {
  if (k < a.size()) a[k] = v;
}

// Start and end of the library: the class's hooks and nothing more.
void SupWizVbs::FxIni(Lis&, Var&) {
  DbgFxIni(mTrcNom, mTrcSit, u"#I");
  DbgFxIni(mTrcNom, mTrcSit, u"#F");
}

void SupWizVbs::FxFim(Lis&, Var&) {
  DbgFxFim(mTrcNom, mTrcSit, u"#I");
  DbgFxFim(mTrcNom, mTrcSit, u"#F");
}

// Wiz.CmpVarCon(name): the engine publishes the component's values; 1 or 0.
void SupWizVbs::CmpVarCon(Lis& a, Var& res) {
  res = Var(int16_t(0));
  if (mEng) mEng->CmpVarCon(Arg(a, 0), res);
}

// Wiz.CmpVarAlt(name, word, value): the engine's answer, 1 or 0.
void SupWizVbs::CmpVarAlt(Lis& a, Var& res) {
  res = Var(int16_t(0));
  if (mEng) mEng->CmpVarAlt(Arg(a, 0), Arg(a, 1), Arg(a, 2), res);
}

}  // namespace zw
