// Chk: the checks of zunwiz-check. A wizard file is read as the engine reads it: the
// option reader walks its groups in file order, each "VBS" group's program is
// compiled in the script host the engine uses, and after every group the variables,
// points and zones are assigned again in that host. What the wizard would do wrong
// or silently differently comes out as findings with the file's line.
#pragma once
#include <cstdint>
#include <vector>
#include "Tx.h"

namespace zw::chk {

struct Achado {
  int32_t lin = 0;   // line of the option file (0: the file as a whole)
  bool erro = true;  // error, or warning
  Tx msg;
};

// Checks the wizard file fic with the command-line words pal ("KEY=value"...), as
// the wizard would get them. Findings come sorted by line, in the order found.
std::vector<Achado> ChkFic(const Tx& fic, const std::vector<Tx>& pal);

}  // namespace zw::chk
