// LibCol: the read-only collections that the library's objects hand out.
#include "Lib.h"

namespace vbs {

int Colecao::Id(TxV n) {
  int k = NameIx(n, {"Item", "Count"});
  if (k == 1) return 0;
  if (k == 2) return 2;
  return IdMais(n);
}

void Colecao::Invoke(int id, Inv k, Args a, Value& r) {
  if (k == Inv::Let || k == Inv::Set) Raise(438);
  if (id == 2) {
    if (a.size()) Raise(450);
    r = Value(int32_t(v.size()));
    return;
  }
  if (id != 0) {
    Mais(id, a, r);
    return;
  }
  if (a.size() != 1) Raise(450);
  const Value& key = a[0];
  if (key.IsStr() && !nomes.empty()) {
    for (size_t i = 0; i < nomes.size(); i++)
      if (TxCmpTx(nomes[i], key.Sv()) == 0) {
        r = v[i];
        return;
      }
    Raise(erroNome_);
  }
  int32_t i = ToLng(key);
  if (i < 0 || size_t(i) >= v.size()) Raise(5);
  r = v[size_t(i)];
}

}  // namespace vbs
