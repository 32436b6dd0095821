// Fuzz target of the regular-expression matcher: the first byte holds the flags
// (ignore case, multiline), then the pattern up to a zero byte, then the subject.
// Every match of a global search is walked, as Execute and Replace walk them, on
// a small budget. A bad pattern is an accepted outcome; a crash, a sanitizer
// report or a hang is a fault.
#include <cstdint>
#include <cstddef>
#include <vector>
#include "RegExp.h"

using namespace vbs;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1 || size > 8192) return 0;
  uint8_t flags = data[0];
  Tx pat, subj;
  size_t i = 1;
  for (; i < size && data[i] != 0; ++i) pat += char16_t(data[i]);
  for (++i; i < size; ++i) subj += char16_t(data[i]);
  Rx rx;
  rx.Limite(2000000);
  if (rx.Compila(pat, flags & 1, flags & 2) != 0) return 0;
  std::vector<int> c;
  rx.Zera();
  size_t de = 0;
  while (de <= subj.size() && rx.Acha(subj, de, c)) {
    if (c.size() != size_t(2 * (rx.Grupos() + 1)) || c[0] < int(de) || c[1] < c[0] || c[1] > int(subj.size()))
      __builtin_trap();
    de = c[1] > c[0] ? size_t(c[1]) : size_t(c[1]) + 1;
  }
  return 0;
}
