// WizTab: the engine's tables grow one record at a time: element 0 is unused, the
// count is 16-bit, and the record under construction is copied in at the end.
// Beside each table an index takes a record's identifier, trimmed and in capitals,
// to the first record of that name, so that finding a page, a component or a point
// costs the same whatever the size of the wizard.
#pragma once
#include <cstdint>
#include <stdexcept>
#include <unordered_map>
#include <vector>
#include "TxtGlb.h"

namespace zw {

using WizIdx = std::unordered_map<Tx, int16_t>;

// Appends reg and enters its identifier in the index, unless an earlier record
// holds that name already: the first of a name is the one found.
template <class R>
int16_t WizTabAdi(std::vector<R>& tab, int16_t& num, const R& reg, WizIdx& idx) {
  if (num == INT16_MAX) throw std::overflow_error("Overflow");
  num++;
  tab.resize(size_t(num) + 1);
  tab[size_t(num)] = reg;
  idx.try_emplace(TxMaiTrm(reg.Ide), num);
  return num;
}

// The first record whose Ide equals ide, both trimmed and in capitals; 0 when none.
inline int16_t WizTabPsq(const WizIdx& idx, const Tx& ide) {
  auto it = idx.find(TxMaiTrm(ide));
  return it == idx.end() ? 0 : it->second;
}

}  // namespace zw
