// Folder copies of the script library, Wiz.FxDirCop called by a script as a wizard
// calls it (a silent run: no progress service), beside "cp -a" on the same machine
// and the same folders, in one run: a tree of many small files in nested folders,
// and one large file, in each folder given (a disk folder and a memory one by
// default). Each case runs the two copies in rounds, who goes first alternating
// from round to round, and gives the median of the rounds; the file system is
// synced (untimed) before every copy, so neither pays for the other's writeback.
// Every round of the tree copies into new folders, and the copies go only at the end
// of the case (those of the large file, few inodes but much room, go at once): ext4 passes over inodes freed in the last minutes when it makes new ones,
// so a delete between rounds would slow the next round's copies (both alike) by far
// more than the copies themselves cost. Wall clock and CPU time (user + system) are
// both given: on a shared machine the CPU time says more about the work each does.
// The load average is printed at the start and at the end, to judge how quiet the
// machine was.
//
//   bench_files [folder,folder...] [files] [MiB] [rounds]
//   defaults:   /var/tmp,/dev/shm   20000   1024  7
#include <spawn.h>
#include <sys/resource.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>
#include "ScriptControl.h"
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"

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

std::string Carga() {
  std::ifstream f("/proc/loadavg");
  std::string a, b, c;
  f >> a >> b >> c;
  return a + " " + b + " " + c;
}

std::string TipoFs(const std::string& p) {
  struct statfs s;
  if (statfs(p.c_str(), &s) != 0) return "?";
  switch (unsigned(s.f_type)) {
    case 0xEF53: return "ext4";
    case 0x01021994: return "tmpfs";
    case 0x58465342: return "xfs";
    case 0x9123683E: return "btrfs";
    default: {
      char b[16];
      std::snprintf(b, sizeof b, "0x%x", unsigned(s.f_type));
      return b;
    }
  }
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

// The script side: "Wiz" registered with a script host, as a wizard has it.
struct Script {
  std::shared_ptr<vbs::ScriptControl> sc = std::make_shared<vbs::ScriptControl>();
  zw::VbsSup h;
  zw::SupWizVbs lib;
  Script() {
    h.VbsSupPrp(zw::Var(), sc);
    int16_t ok = 0;
    h.RegObPrp(u"N", u"Wiz", lib.Ob(), ok);
    if (ok != 1) std::fprintf(stderr, "Wiz not registered\n");
  }
  void Cmd(const zw::Tx& c) {
    int16_t ok = 0;
    h.ExeCmd(c, ok);
    if (ok != 1) std::fprintf(stderr, "script command failed\n");
  }
  zw::Tx Ev(const zw::Tx& e) {
    zw::Var r;
    h.ExeCalcRes(e, r);
    return zw::TxVar(r);
  }
};

double Mediana(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  size_t n = v.size();
  return n == 0 ? 0 : n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

// cp -a and Wiz.FxDirCop over the same source, rounds times.
void Caso(Script& s, const char* nome, const std::string& org, const std::string& base, int rondas, bool jaApaga) {
  std::vector<double> cp, zw, cpuCp, cpuZw;
  std::string d1, d2;
  auto CopCp = [&] {
    sync();
    double t0 = Agora(), c0 = Cpu(RUSAGE_CHILDREN);
    if (Corre({"cp", "-a", org, d1}) != 0) std::fprintf(stderr, "cp -a failed\n");
    cp.push_back(Agora() - t0);
    cpuCp.push_back(Cpu(RUSAGE_CHILDREN) - c0);
  };
  auto CopZw = [&] {
    sync();
    double t0 = Agora(), c0 = Cpu(RUSAGE_SELF);
    s.Cmd(u"R = Wiz.FxDirCop(O, D)");
    zw.push_back(Agora() - t0);
    cpuZw.push_back(Cpu(RUSAGE_SELF) - c0);
    if (s.Ev(u"R") != u"1") std::fprintf(stderr, "Wiz.FxDirCop failed\n");
  };
  for (int r = 0; r < rondas; r++) {
    if (jaApaga && r > 0) Corre({"rm", "-rf", d1, d2});
    d1 = base + "/cp" + std::to_string(r);
    d2 = base + "/zw" + std::to_string(r);
    s.Cmd(u"O = \"" + zw::TxDeUtf8(org) + u"\" : D = \"" + zw::TxDeUtf8(d2) + u"\"");
    if (r % 2) {
      CopZw();
      CopCp();
    } else {
      CopCp();
      CopZw();
    }
  }
  for (int r = 0; r < rondas; r++)
    Corre({"rm", "-rf", base + "/cp" + std::to_string(r), base + "/zw" + std::to_string(r)});
  double w1 = Mediana(cp), w2 = Mediana(zw), c1 = Mediana(cpuCp), c2 = Mediana(cpuZw);
  std::printf("  %-20s wall: cp -a %7.3f s  Wiz.FxDirCop %7.3f s  ratio %.2f   "
              "CPU: cp -a %7.3f s  Wiz.FxDirCop %7.3f s  ratio %.2f\n",
              nome, w1, w2, w2 / w1, c1, c2, c2 / c1);
}

}  // namespace

int main(int argc, char** argv) {
  setvbuf(stdout, nullptr, _IOLBF, 0);
  std::string pastas = argc > 1 ? argv[1] : "/var/tmp,/dev/shm";
  int ficheiros = argc > 2 ? std::atoi(argv[2]) : 20000;
  long mib = argc > 3 ? std::atol(argv[3]) : 1024;
  int rondas = argc > 4 ? std::atoi(argv[4]) : 7;
  std::printf("%d small files, one file of %ld MiB, median of %d rounds; load average %s\n", ficheiros, mib,
              rondas, Carga().c_str());
  Script s;
  std::stringstream lista(pastas);
  std::string pasta;
  while (std::getline(lista, pasta, ',')) {
    std::string base = pasta + "/zwbench-files-" + std::to_string(getpid());
    std::printf("%s (%s)\n", pasta.c_str(), TipoFs(pasta).c_str());
    Arvore(base + "/arvore", ficheiros);
    Grande(base + "/grande", mib);
    sync();
    char rot[64];
    std::snprintf(rot, sizeof rot, "tree of %d files", ficheiros);
    Caso(s, rot, base + "/arvore", base, rondas, false);
    std::snprintf(rot, sizeof rot, "one file of %ld MiB", mib);
    Caso(s, rot, base + "/grande", base, rondas, true);
    Corre({"rm", "-rf", base});
  }
  std::printf("load average at the end %s\n", Carga().c_str());
  return 0;
}
