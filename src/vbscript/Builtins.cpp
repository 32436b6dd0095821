// Builtins: the tables of built-in functions, constants and program identifiers.
#include "Builtins.h"
#include <map>
#include "Engine.h"
#include "Locale.h"

namespace vbs {

namespace {
// Keys are upper-cased names, so look-ups are case-blind.
struct Tables {
  std::map<Tx, FnDef> fns;
  std::map<Tx, Value> consts;
  std::map<Tx, Factory> progs;
};
Tables& Tab() {
  static Tables t;
  return t;
}
Tx Key(const char* n) { return TxMaiVb(zw::TxAsc(n)); }
}  // namespace

void DefFns(std::initializer_list<FnDef> fns) {
  for (const FnDef& f : fns) Tab().fns[Key(f.name)] = f;
}

void DefConst(const char* name, const Value& v) { Tab().consts[Key(name)] = v; }

void DefProgId(const char* id, Factory f) { Tab().progs[Key(id)] = f; }

const FnDef* FindFn(TxV name) {
  auto it = Tab().fns.find(TxMaiVb(name));
  return it == Tab().fns.end() ? nullptr : &it->second;
}

const Value* FindConst(TxV name) {
  auto it = Tab().consts.find(TxMaiVb(name));
  return it == Tab().consts.end() ? nullptr : &it->second;
}

bool HasProgId(TxV id) { return Tab().progs.count(TxMaiVb(id)) != 0; }

Ref<Obj> NewObj(TxV id) {
  // the host's policy answers first: a host may hand out an object in its place
  if (Engine* e = CurEngine(); e && e->policy)
    if (Ref<Obj> o = e->policy->Object(id, TxV(), false)) return o;
  auto it = Tab().progs.find(TxMaiVb(id));
  if (it == Tab().progs.end()) Raise(429);
  Ref<Obj> o = it->second();
  if (!o) Raise(429);
  return o;
}

}  // namespace vbs
