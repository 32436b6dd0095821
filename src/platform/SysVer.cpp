// The version record of the running Linux system.
#include "SysVer.h"
#include <sys/utsname.h>
#include <cstdlib>
#include <fstream>

namespace zw {

namespace {
std::function<SysVer()>& Fonte() {
  static std::function<SysVer()> f;
  return f;
}

// PRETTY_NAME of os-release, without its quotes; "Linux" when there is none.
std::string Distribuicao() {
  for (const char* p : {"/etc/os-release", "/usr/lib/os-release"}) {
    std::ifstream f(p);
    std::string l;
    while (std::getline(f, l)) {
      if (l.rfind("PRETTY_NAME=", 0) != 0) continue;
      std::string v = l.substr(12);
      if (v.size() >= 2 && (v[0] == '"' || v[0] == '\'') && v.back() == v[0]) v = v.substr(1, v.size() - 2);
      if (!v.empty()) return v;
    }
  }
  return "Linux";
}
}  // namespace

void SysVerDef(std::function<SysVer()> f) { Fonte() = std::move(f); }

SysVer SysVerCon() {
  if (Fonte()) return Fonte()();
  SysVer v;
  v.plat = 2;
  v.maj = 10;
  v.min = 0;
  v.prodTipo = 1;
  struct utsname u;
  std::string rel;
  if (uname(&u) == 0) {
    rel = u.release;
    char* fim = nullptr;
    long kmaj = std::strtol(u.release, &fim, 10), kmin = 0;
    if (fim && *fim == '.') kmin = std::strtol(fim + 1, nullptr, 10);
    v.build = int32_t(kmaj * 100 + kmin);
  }
  v.csd = TxDeUtf8(Distribuicao() + (rel.empty() ? "" : ", Linux " + rel));
  if (v.csd.size() > 127) v.csd.resize(127);
  return v;
}

}  // namespace zw
