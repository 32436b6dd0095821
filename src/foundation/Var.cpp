#include "Var.h"
#include <cmath>
#include "TxtGlb.h"

namespace zw {

double Var::Num() const {
  switch (Tipo()) {
    case K::Int: return Int();
    case K::Lng: return Lng();
    case K::Dbl: return Dbl();
    case K::Bool: return Bool() ? -1 : 0;
    default: return 0;
  }
}

// The number a cell gives when it is stored into a number cell.
static double VarNum(const Var& v) {
  return v.EhTx() ? NuVal(v.Txt()) : v.Num();
}

// Rounds half to even, as the script language's integer conversions do, and holds
// the result at [lo, hi] so that an impossible store never brings the program down.
static double VarArred(double d, double lo, double hi) {
  if (std::isnan(d)) return 0;
  d = std::nearbyint(d);
  return d < lo ? lo : d > hi ? hi : d;
}

void Var::Poe(const Var& v) {
  switch (Tipo()) {
    case K::Int: v_ = int16_t(VarArred(VarNum(v), -32768, 32767)); break;
    case K::Lng: v_ = int32_t(VarArred(VarNum(v), -2147483648.0, 2147483647.0)); break;
    case K::Dbl: v_ = VarNum(v); break;
    case K::Bool:
      if (v.EhTx() && TxIgual(v.Txt(), u"True")) v_ = true;
      else if (v.EhTx() && TxIgual(v.Txt(), u"False")) v_ = false;
      else v_ = VarNum(v) != 0;
      break;
    case K::Tx:
      if (v.EhTx()) v_ = v.Txt();
      else if (v.Tipo() == K::Bool) v_ = Tx(v.Bool() ? u"True" : u"False");
      else if (v.EhNum()) v_ = NuCStr(v.Num());
      else v_ = Tx();
      break;
    default: *this = v; break;
  }
}

}  // namespace zw
