// bench_wizard: how long a big wizard takes to reach its first page, and how long a
// page change takes, seen from outside as an author's CI sees it.
//
//   bench_wizard ZUNWIZ_RUN [RUNS]
//   bench_wizard ZUNWIZ_RUN RUNS --pages 1000,5000,20000 [ZUNWIZ_CHECK]
//
// Writes a wizard of 100 pages, 500 components (labels, five a page, each placed
// by a zone), 300 variables, 40 points and 40 zones into a temporary folder, then
// runs zunwiz-run on it RUNS times (default 5) with answers that go forward 99
// times and back once. The trace is read from a pipe and each "page" line is
// stamped as it arrives: the first stamp, from the start of the process, is the
// time to the first page; the gaps between stamps are page changes. Prints the
// median time to the first page and the median of all page changes, and the CPU
// time of a whole run (start, 100 changes, end), which a busy machine disturbs less.
//
// With --pages it writes, for each count, a wizard of that many pages, each with a
// label and a "Seguinte >" that names the next page by its identifier, and times a
// whole run through every page (and zunwiz-check over the same file, when given):
// the medians of wall clock and CPU, and both per page, which stay level from one
// count to the next when the cost grows linearly with the pages.
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

// A wizard of n pages going forward by identifier, and answers that walk it.
void GeraPag(const fs::path& par, const fs::path& ans, int n) {
  std::ofstream f(par, std::ios::binary);
  auto l = [&](const std::string& s) { f << s << "\r\n"; };
  for (const char* h : {"'Nome : Paginas", "'Tipo : PAR", "'Data : 2026-11-25", "'Versao : 1.0", "'Descricao : bench"})
    l(h);
  for (const char* d : {"#DEF - D", "[TitWiz]=Paginas", "[DimX]=640", "[DimY]=480", "[MsgCan]=Sair ?", "##"}) l(d);
  for (const char* v : {"#VAR - V", "[V0]=1", "##", "#PON - P", "[AUT_TraPosSeg]=xMax-250, yMax-34",
                        "[AUT_TraPosCan]=xMax-90, yMax-34", "##"})
    l(v);
  for (const char* v : {"#VBS:ZTX - Programa", "Dim n", "Sub Ent", "  n = n + 1", "End Sub", "##"}) l(v);
  for (int p = 1; p <= n; p++) {
    std::string s = std::to_string(p);
    for (const std::string& t : {"#PAG - p" + s, "[IDE]=P" + s, std::string("[FxPagEnt]=Ent"), std::string("##")}) l(t);
    if (p < n)
      for (const std::string& t : {std::string("#TRA - s"), std::string("[IDE]=SEG"), std::string("[DES]=Seguinte >"),
                                   std::string("[TRATIP]=PAG"), "[TRAPAG]=P" + std::to_string(p + 1), std::string("##")})
        l(t);
    for (const std::string& t : {std::string("#CMP - c"), std::string("[Tip]=LAB"), "[Ide]=La" + s,
                                 std::string("[Pos]=10, 10"), std::string("[Dim]=300, 0"), "[Txt]=Pagina " + s,
                                 std::string("##")})
      l(t);
  }
  std::ofstream a(ans);
  for (int i = 1; i < n; i++) a << "SEG\n";
  a << "CLOSE\n";
}

double Mediana(std::vector<double> v) {
  if (v.empty()) return 0;
  std::sort(v.begin(), v.end());
  size_t n = v.size();
  return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

}  // namespace

// CPU time of the children collected so far, ms.
double CpuFilhos() {
  rusage u{};
  getrusage(RUSAGE_CHILDREN, &u);
  return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) * 1000 + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1000;
}

// Medians of wall and CPU of RUNS runs of a command, ms; false when one fails.
bool Mede(const std::string& cmd, int runs, double& wall, double& cpu) {
  std::vector<double> w, c;
  for (int r = 0; r < runs; r++) {
    double c0 = CpuFilhos();
    auto t0 = Clock::now();
    int st = std::system(cmd.c_str());
    w.push_back(std::chrono::duration<double, std::milli>(Clock::now() - t0).count());
    c.push_back(CpuFilhos() - c0);
    if (st != 0) {
      std::fprintf(stderr, "%s: status %d\n", cmd.c_str(), st);
      return false;
    }
  }
  wall = Mediana(w);
  cpu = Mediana(c);
  return true;
}

// The many-pages case: one line per count, for zunwiz-run and zunwiz-check.
int Paginas(const char* run, const char* chk, int runs, const std::string& lista) {
  char tpl[] = "/tmp/zw_wizbench_XXXXXX";
  if (!mkdtemp(tpl)) return 1;
  fs::path dir = tpl;
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::printf("pages  tool          wall ms   CPU ms   wall/page us  CPU/page us   (median of %d)\n", runs);
  for (size_t i = 0; i < lista.size();) {
    size_t j = lista.find(',', i);
    int n = std::atoi(lista.substr(i, j == std::string::npos ? std::string::npos : j - i).c_str());
    i = j == std::string::npos ? lista.size() : j + 1;
    if (n < 2) continue;
    fs::path par = dir / ("P" + std::to_string(n) + ".par"), ans = dir / ("P" + std::to_string(n) + ".ans");
    GeraPag(par, ans, n);
    double w = 0, c = 0;
    std::string cmd = "'" + std::string(run) + "' --answers '" + ans.string() + "' --trace /dev/null -FP '" +
                      par.string() + "' 2>/dev/null";
    if (!Mede(cmd, runs, w, c)) return 1;
    std::printf("%6d zunwiz-run   %9.0f %8.0f %13.1f %12.1f\n", n, w, c, w * 1000 / n, c * 1000 / n);
    if (chk) {
      cmd = "'" + std::string(chk) + "' '" + par.string() + "' >/dev/null 2>&1";
      if (!Mede(cmd, runs, w, c)) return 1;
      std::printf("%6d zunwiz-check %9.0f %8.0f %13.1f %12.1f\n", n, w, c, w * 1000 / n, c * 1000 / n);
    }
    std::fflush(stdout);
  }
  fs::remove_all(dir);
  return 0;
}

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: bench_wizard ZUNWIZ_RUN [RUNS] [--pages N,N... [ZUNWIZ_CHECK]]\n");
    return 2;
  }
  int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
  if (argc > 4 && std::string(argv[3]) == "--pages") return Paginas(argv[1], argc > 5 ? argv[5] : nullptr, runs, argv[4]);
  char tpl[] = "/tmp/zw_wizbench_XXXXXX";
  if (!mkdtemp(tpl)) return 1;
  fs::path dir = tpl, par = dir / "Bench.par", ans = dir / "Bench.ans";
  Gera(par, ans);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::string cmd = "'" + std::string(argv[1]) + "' --answers '" + ans.string() + "' --trace - -FP '" + par.string() +
                    "' 2>/dev/null";
  std::vector<double> pri, mud, cpu;
  auto cpuFilhos = CpuFilhos;
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
