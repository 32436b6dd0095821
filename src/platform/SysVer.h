// SysVer: the operating system's version record, as the platform's version call
// fills it, read afresh at each call. On Linux the record answers:
// - platform id 2, the NT family (a system with files, processes and users of its own);
// - major version 10 and minor 0, a version of that family which none of the named
//   Windows versions matches, so that identity checks answer "Windows NT";
// - build number: the kernel's major * 100 + minor (6.1 gives 601);
// - service text: the distribution's name (PRETTY_NAME of /etc/os-release) and the
//   kernel release, as "Debian GNU/Linux 12 (bookworm), Linux 6.1.0-18-amd64", cut at
//   127 characters;
// - service pack 0.0, suite mask 0, product type 1 (a workstation).
#pragma once
#include <cstdint>
#include <functional>
#include "Tx.h"

namespace zw {

struct SysVer {
  int32_t maj = 0, min = 0, build = 0, plat = 0;
  Tx csd;  // service text, no character of code 0
  int16_t spMaj = 0, spMin = 0, suite = 0;
  uint8_t prodTipo = 0;
};

// The running system's record.
SysVer SysVerCon();
// Puts another source of the record in force (tests describe other systems with
// it); an empty function goes back to the running system.
void SysVerDef(std::function<SysVer()> f);

}  // namespace zw
