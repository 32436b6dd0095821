// vbs_bench: times the Bench procedure of each script given, in process.
// Each script is added once (its own top-level code runs as a warm-up), then
// Bench runs five times; the best processor time and wall time are printed.
#include <time.h>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include "ScriptControl.h"

namespace {

// Stands in for WScript: Echo does nothing.
class Quiet : public vbs::Obj {
 public:
  int Id(vbs::TxV n) override { return vbs::NameIx(n, {"Echo"}); }
  void Invoke(int, vbs::Inv, vbs::Args, vbs::Value&) override {}
};

double Now(clockid_t c) {
  timespec ts;
  clock_gettime(c, &ts);
  return double(ts.tv_sec) + double(ts.tv_nsec) / 1e9;
}

}  // namespace

int main(int argc, char** argv) {
  for (int k = 1; k < argc; ++k) {
    std::ifstream in(argv[k], std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    vbs::ScriptControl sc;
    sc.AddObject(u"WScript", vbs::Ref<vbs::Obj>(new Quiet));
    if (!sc.AddCode(zw::TxDeBytes(bytes))) {
      std::fprintf(stderr, "%s: %s\n", argv[k], zw::TxUtf8(sc.Error().Description).c_str());
      return 1;
    }
    double cpu = 1e9, wall = 1e9;
    for (int r = 0; r < 5; ++r) {
      double c0 = Now(CLOCK_PROCESS_CPUTIME_ID), w0 = Now(CLOCK_MONOTONIC);
      vbs::Value res;
      sc.Run(u"Bench", {}, res);
      cpu = std::min(cpu, Now(CLOCK_PROCESS_CPUTIME_ID) - c0);
      wall = std::min(wall, Now(CLOCK_MONOTONIC) - w0);
    }
    std::string name = argv[k];
    name = name.substr(name.find_last_of('/') + 1);
    std::printf("%-12s cpu %.4f s   wall %.4f s\n", name.c_str(), cpu, wall);
  }
  return 0;
}
