// WizTab: the engine's tables grow one record at a time: element 0 is unused, the
// count is 16-bit, and the record under construction is copied in at the end.
#pragma once
#include <cstdint>
#include <stdexcept>
#include <vector>
#include "TxtGlb.h"

namespace zw {

template <class R>
int16_t WizTabAdi(std::vector<R>& tab, int16_t& num, const R& reg) {
  if (num == INT16_MAX) throw std::overflow_error("Overflow");
  num++;
  tab.resize(size_t(num) + 1);
  tab[size_t(num)] = reg;
  return num;
}

// The first record whose Ide equals ide, both trimmed and in capitals; 0 when none.
// Scripts look components up by name at every call, so a record's Ide is compared
// in place, without making its trimmed capitals.
template <class R>
int16_t WizTabPsq(const std::vector<R>& tab, int16_t num, const Tx& ide) {
  Tx k = TxMai(TxTrim(ide));
  for (int i = 1; i <= num; i++) {
    TxV r = tab[size_t(i)].Ide;
    size_t a = r.find_first_not_of(u' ');
    if (a == TxV::npos) a = r.size();
    size_t b = r.find_last_not_of(u' ');
    r = r.substr(a, b == TxV::npos ? 0 : b + 1 - a);
    if (r.size() != k.size()) continue;
    size_t j = 0;
    while (j < r.size() && ChrMai(r[j]) == k[j]) j++;
    if (j == r.size()) return int16_t(i);
  }
  return 0;
}

}  // namespace zw
