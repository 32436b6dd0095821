// Folder copies of the script library (SupShf, the routine behind Wiz.FxDirCop)
// beside "cp -a" on the same machine and the same folders, in one run: a tree of
// many small files in nested folders, and one large file. Each case runs the two
// copies in turn several times and keeps the best time of each; the file system is
// synced (untimed) before every copy, so neither pays for the other's writeback.
// Wall clock and CPU time (user + system) are both given: on a shared machine the
// CPU time says more about the work each does.
//
//   bench_files [folder] [files] [MiB] [runs]
//   defaults:   /var/tmp  20000   1024  3
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>
#include "SupShf.h"

extern char** environ;

namespace {

double Agora() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// CPU seconds (user + system) of this process, or of its ended children.
double Cpu(int quem) {
  struct rusage u;
  getrusage(quem, &u);
  return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

int Corre(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  pid_t pid;
  if (posix_spawnp(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) return -1;
  int st = 0;
  waitpid(pid, &st, 0);
  return WIFEXITED(st) ? WEXITSTATUS(st) : -1;
}

// The tree: folders of 10 subfolders, 100 files each, 1 to 4 KiB of varied bytes.
void Arvore(const std::string& raiz, int ficheiros) {
  Corre({"mkdir", "-p", raiz});
  std::string buf(4096, 'x');
  for (int i = 0; i < ficheiros; i++) {
    std::string dir = raiz + "/d" + std::to_string(i / 1000) + "/s" + std::to_string(i / 100 % 10);
    if (i % 100 == 0) Corre({"mkdir", "-p", dir});
    for (size_t k = 0; k < 64; k++) buf[(i * 131 + k * 61) % buf.size()] = char('a' + (i + k) % 26);
    std::ofstream(dir + "/f" + std::to_string(i) + ".dat", std::ios::binary).write(buf.data(), 1024 + (i * 37) % 3072);
  }
}

void Grande(const std::string& raiz, long mib) {
  Corre({"mkdir", "-p", raiz});
  std::ofstream f(raiz + "/grande.bin", std::ios::binary);
  std::string bloco(1 << 20, '\0');
  for (long m = 0; m < mib; m++) {
    for (size_t k = 0; k < bloco.size(); k += 4096) bloco[k] = char(m + k / 4096);
    f.write(bloco.data(), std::streamsize(bloco.size()));
  }
}

// Best time of cp -a and of SupShf over the same source. The two take turns at
// going first, so that neither always meets the disk just after the other's sync.
void Caso(const char* nome, const std::string& org, const std::string& base, int runs) {
  double cp = 1e9, zw = 1e9, cpuCp = 1e9, cpuZw = 1e9;
  std::string d1 = base + "/cp", d2 = base + "/zw";
  auto CopCp = [&] {
    sync();
    double t0 = Agora(), c0 = Cpu(RUSAGE_CHILDREN);
    if (Corre({"cp", "-a", org, d1}) != 0) std::fprintf(stderr, "cp -a failed\n");
    cp = std::min(cp, Agora() - t0);
    cpuCp = std::min(cpuCp, Cpu(RUSAGE_CHILDREN) - c0);
  };
  auto CopZw = [&] {
    sync();
    double t0 = Agora(), c0 = Cpu(RUSAGE_SELF);
    zw::SupShf s;
    s.AspExe(1, 0);
    int res = 0;
    s.FxCopDfi(zw::TxDeUtf8(org), zw::TxDeUtf8(d2), res);
    zw = std::min(zw, Agora() - t0);
    cpuZw = std::min(cpuZw, Cpu(RUSAGE_SELF) - c0);
    if (res != 1) std::fprintf(stderr, "SupShf copy failed (%d)\n", s.ErrNum());
  };
  for (int r = 0; r < runs; r++) {
    Corre({"rm", "-rf", d1, d2});
    if (r % 2) {
      CopZw();
      CopCp();
    } else {
      CopCp();
      CopZw();
    }
  }
  Corre({"rm", "-rf", d1, d2});
  std::printf("%-24s wall: cp -a %7.3f s  SupShf %7.3f s  ratio %.2f   CPU: cp -a %7.3f s  SupShf %7.3f s  ratio %.2f\n",
              nome, cp, zw, zw / cp, cpuCp, cpuZw, cpuZw / cpuCp);
}

}  // namespace

int main(int argc, char** argv) {
  setvbuf(stdout, nullptr, _IOLBF, 0);
  std::string pasta = argc > 1 ? argv[1] : "/var/tmp";
  int ficheiros = argc > 2 ? std::atoi(argv[2]) : 20000;
  long mib = argc > 3 ? std::atol(argv[3]) : 1024;
  int runs = argc > 4 ? std::atoi(argv[4]) : 3;
  std::string base = pasta + "/zwbench-files-" + std::to_string(getpid());
  std::printf("folder %s, %d small files, %ld MiB file, best of %d\n", base.c_str(), ficheiros, mib, runs);
  Arvore(base + "/arvore", ficheiros);
  Grande(base + "/grande", mib);
  sync();
  char rot[64];
  std::snprintf(rot, sizeof rot, "tree of %d files", ficheiros);
  Caso(rot, base + "/arvore", base, runs);
  std::snprintf(rot, sizeof rot, "one file of %ld MiB", mib);
  Caso(rot, base + "/grande", base, runs);
  Corre({"rm", "-rf", base});
  return 0;
}
