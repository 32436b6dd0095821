// Tests that need root and may change /, /etc or /tmp live in suites named Raiz*;
// CTest runs them only inside the throwaway copy of the machine that caixa.sh
// builds. ZW_NA_CAIXA() at the top of such a test skips it anywhere else, so a
// test program started by hand never touches the machine's own folders.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>

namespace zw::tst {
inline bool NaCaixa() {
  const char* c = std::getenv("ZW_CAIXA");
  return c && std::strcmp(c, "1") == 0 && geteuid() == 0;
}
}  // namespace zw::tst

#define ZW_NA_CAIXA() \
  if (!::zw::tst::NaCaixa()) GTEST_SKIP() << "runs only in the root box (ctest -R caixa_)"
