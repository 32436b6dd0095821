// OpcAux: small helpers shared by the option-file sources.
#pragma once
#include <stdexcept>
#include "TxtGlb.h"

namespace zw::opc {

inline bool Ini(TxV t, TxV s) { return t.substr(0, s.size()) == s; }
inline bool Fim(TxV t, TxV s) { return t.size() >= s.size() && t.substr(t.size() - s.size()) == s; }
// A 16-bit position or count; past 32767 it is an overflow, as the format's positions are.
inline int16_t P16(long n) {
  if (n > 32767) throw std::overflow_error("overflow: position or count past 32767");
  return int16_t(n);
}

}  // namespace zw::opc
