// The 32,000-row zone: a file whose one zone holds 32,000 variable lines is opened,
// the zone is read into memory, and every key is queried once with MemCon. Prints
// the best and the median time of several runs, in milliseconds, wall clock and
// the process's CPU time (the machine may be shared).
#include <sys/resource.h>
#include <algorithm>
#include <cstdlib>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>
#include "TdaOpc.h"

using namespace zw;

int main(int argc, char** argv) {
  const int rows = 32000, runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 11;
  auto path = std::filesystem::temp_directory_path() / "zw_bench_options.par";
  {
    std::ofstream f(path, std::ios::binary);
    f << "'Nome       : BENCH.PAR\r\n'Tipo       : PAR\r\n'Data       :\r\n'Versao     : 1.0\r\n"
         "'Descricao  : 32000 linhas\r\n\r\n#BIG - Zona grande\r\n";
    for (int i = 1; i <= rows; i++)
      f << "Rotulo da linha " << i << " [Chave_" << i << "]=Valor numero " << i << "\r\n";
    f << "##\r\n";
  }
  Tx fic = TxDeUtf8(path.string());
  std::vector<Tx> keys;
  for (int i = 1; i <= rows; i++) keys.push_back(u"chave_" + TxAsc(std::to_string(i)));

  auto cpu = [] {
    rusage u;
    getrusage(RUSAGE_SELF, &u);
    return (u.ru_utime.tv_sec + u.ru_stime.tv_sec) * 1e3 + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e3;
  };
  std::vector<double> ms, cp;
  long found = 0;
  for (int r = 0; r < runs; r++) {
    double c0 = cpu();
    auto t0 = std::chrono::steady_clock::now();
    TdaOpc o;
    o.ZonIni(fic, u"");
    Tx ide, tip, des;
    int16_t n = 0;
    o.ZonSeg(ide, tip, n, des);
    Var v{Tx()};
    int16_t e = 0;
    Tx tpp;
    for (const Tx& k : keys) {
      o.MemCon(k, v, e, tpp);
      found += e;
    }
    o.ZonFim();
    auto t1 = std::chrono::steady_clock::now();
    ms.push_back(std::chrono::duration<double, std::milli>(t1 - t0).count());
    cp.push_back(cpu() - c0);
    if (n != rows) {
      std::fprintf(stderr, "zone read %d rows, expected %d\n", n, rows);
      return 1;
    }
  }
  std::sort(ms.begin(), ms.end());
  std::sort(cp.begin(), cp.end());
  std::printf("32000-row zone, load + query every key: wall best %.1f ms, median %.1f ms; CPU best %.1f ms, median %.1f ms"
              " (%d runs, %ld keys found)\n",
              ms.front(), ms[ms.size() / 2], cp.front(), cp[cp.size() / 2], runs, found);
  if (!std::getenv("ZW_BENCH_KEEP")) std::filesystem::remove(path);
  return 0;
}
