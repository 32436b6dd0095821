// SupWiz: component values for the scripts - CmpVarCon and CmpVarAlt.
#include "SupWiz.h"

namespace zw {

void SupWiz::CmpVarCon(const Var&, Var& res) { res = Var(int16_t(0)); }
void SupWiz::CmpVarAlt(const Var&, const Var&, const Var&, Var& res) { res = Var(int16_t(0)); }

}  // namespace zw
