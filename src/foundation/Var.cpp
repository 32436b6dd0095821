#include "Var.h"

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

}  // namespace zw
