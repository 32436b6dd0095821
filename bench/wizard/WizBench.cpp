// bench_wizard: how long a big wizard takes to reach its first page, and how long a
// page change takes, seen from outside as an author's CI sees it.
//
//   bench_wizard ZUNWIZ_RUN [RUNS]
//
// Writes a wizard of 100 pages, 500 components (labels, five a page, each placed
// by a zone), 300 variables, 40 points and 40 zones into a temporary folder, then
// runs zunwiz-run on it RUNS times (default 5) with answers that go forward 99
// times and back once. The trace is read from a pipe and each "page" line is
// stamped as it arrives: the first stamp, from the start of the process, is the
// time to the first page; the gaps between stamps are page changes. Prints the
// median time to the first page and the median of all page changes, and the CPU
// time of a whole run (start, 100 changes, end), which a busy machine disturbs less.
#include <sys/resource.h>
#include <unistd.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

constexpr int kPag = 100, kCmp = 500, kVar = 300, kPon = 40;

// The option file, CR LF, with the header of five lines.
void Gera(const fs::path& par, const fs::path& ans) {
  std::ofstream f(par, std::ios::binary);
  auto l = [&](const std::string& s) { f << s << "\r\n"; };
  for (const char* h : {"'Nome : Bench", "'Tipo : PAR", "'Data : 2026-11-23", "'Versao : 1.0", "'Descricao : bench"})
    l(h);
  for (const char* d : {"#DEF - D", "[TitWiz]=Bench", "[DimX]=640", "[DimY]=480", "[MsgCan]=Sair ?", "##"}) l(d);
  l("#VAR - Variaveis");
  l("[V0]=1");
  for (int i = 1; i < kVar; i++) l("[V" + std::to_string(i) + "]=" + std::to_string(i) + " + V" + std::to_string(i - 1));
  l("##");
  l("#PON - Pontos");
  l("[AUT_TraPosAnt]=xMax-330, yMax-34");
  l("[AUT_TraPosSeg]=xMax-250, yMax-34");
  l("[AUT_TraPosCan]=xMax-90, yMax-34");
  for (int i = 0; i < kPon; i++)
    l("[P" + std::to_string(i) + "]=" + std::to_string(i) + ", V" + std::to_string(i) + " mod 300");
  l("##");
  l("#ZON - Zonas");
  for (int i = 0; i < kPon; i++) {
    std::string p = "P" + std::to_string(i);
    l("[Z" + std::to_string(i) + "]=" + p + "_X, " + p + "_Y, xMax-" + p + "_X, yMax-10");
  }
  l("##");
  for (const char* v : {"#VBS:ZTX - Programa", "Dim n", "Sub Ent", "  n = n + 1", "End Sub", "##"}) l(v);
  int k = 0;
  for (int p = 0; p < kPag; p++) {
    l("#PAG - p" + std::to_string(p));
    l("[IDE]=P" + std::to_string(p));
    l("[FxPagEnt]=Ent");
    l("##");
    if (p > 0) {
      for (const char* t : {"#TRA - a", "[IDE]=ANT", "[DES]=< Anterior", "##"}) l(t);
    }
    if (p < kPag - 1) {
      for (const char* t : {"#TRA - s", "[IDE]=SEG", "[DES]=Seguinte >", "##"}) l(t);
    }
    for (const char* t : {"#TRA - c", "[IDE]=CAN", "[DES]=Cancelar", "##"}) l(t);
    for (int c = 0; c < kCmp / kPag; c++, k++) {
      std::string z = "Z" + std::to_string(k % kPon);
      l("#CMP - c" + std::to_string(k));
      l("[Tip]=LAB");
      l("[Ide]=La" + std::to_string(k));
      l("[Pos]=" + z + "_X1, " + z + "_Y1 + " + std::to_string(c * 20));
      l("[Dim]=" + z + "_X2-" + z + "_X1, 0");
      l("[Fon]=Arial, 10");
      l("[Txt]=Texto " + std::to_string(k));
      l("##");
    }
  }
  std::ofstream a(ans);
  for (int i = 0; i < kPag - 1; i++) a << "SEG\n";
  a << "ANT\nCAN\nBOX 1\n";
}

double Mediana(std::vector<double> v) {
  if (v.empty()) return 0;
  std::sort(v.begin(), v.end());
  size_t n = v.size();
  return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: bench_wizard ZUNWIZ_RUN [RUNS]\n");
    return 2;
  }
  int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
  char tpl[] = "/tmp/zw_wizbench_XXXXXX";
  if (!mkdtemp(tpl)) return 1;
  fs::path dir = tpl, par = dir / "Bench.par", ans = dir / "Bench.ans";
  Gera(par, ans);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::string cmd = "'" + std::string(argv[1]) + "' --answers '" + ans.string() + "' --trace - -FP '" + par.string() +
                    "' 2>/dev/null";
  std::vector<double> pri, mud, cpu;
  auto cpuFilhos = [] {
    rusage u{};
    getrusage(RUSAGE_CHILDREN, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) * 1000 + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1000;
  };
  for (int r = 0; r < runs; r++) {
    double c0 = cpuFilhos();
    auto t0 = Clock::now();
    FILE* p = popen(cmd.c_str(), "r");
    if (!p) return 1;
    std::vector<Clock::time_point> ts;
    char lin[4096];
    while (std::fgets(lin, sizeof lin, p))
      if (std::string(lin).rfind("page ", 0) == 0) ts.push_back(Clock::now());
    int st = pclose(p);
    cpu.push_back(cpuFilhos() - c0);
    if (ts.size() != size_t(kPag) + 1 || st != 0) {
      std::fprintf(stderr, "run %d: %zu pages, status %d\n", r, ts.size(), st);
      return 1;
    }
    pri.push_back(std::chrono::duration<double, std::milli>(ts[0] - t0).count());
    for (size_t i = 1; i < ts.size(); i++)
      mud.push_back(std::chrono::duration<double, std::milli>(ts[i] - ts[i - 1]).count());
  }
  fs::remove_all(dir);
  std::printf("wizard of %d pages, %d components, %d variables, %d points, %d zones; %d runs\n", kPag, kCmp, kVar,
              kPon, kPon, runs);
  std::printf("first page   median %.1f ms (best %.1f)\n", Mediana(pri), *std::min_element(pri.begin(), pri.end()));
  std::printf("page change  median %.2f ms over %zu changes\n", Mediana(mud), mud.size());
  std::printf("whole run    median %.1f ms CPU\n", Mediana(cpu));
  return 0;
}
