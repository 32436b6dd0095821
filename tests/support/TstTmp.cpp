// Per-test temporary folders, made with mkdtemp and removed at the program's end.
#include "TstTmp.h"
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include "Tx.h"

namespace zw::tst {

namespace {
struct Pastas {
  std::map<std::string, std::string> porTeste;
  ~Pastas() {
    std::error_code ec;
    for (auto& [t, p] : porTeste) std::filesystem::remove_all(p, ec);
  }
};
Pastas& Todas() {
  static Pastas p;
  return p;
}
}  // namespace

std::string PastaTmp() {
  const auto* i = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string chave = i ? std::string(i->test_suite_name()) + "." + i->name() : "";
  auto& m = Todas().porTeste;
  if (auto it = m.find(chave); it != m.end()) return it->second;
  std::string modelo = (std::filesystem::temp_directory_path() / "zwtstXXXXXX").string();
  if (!mkdtemp(modelo.data())) ADD_FAILURE() << "no temporary folder";
  return m[chave] = modelo;
}

std::string FicTmp(const std::string& nome) { return PastaTmp() + "/" + nome; }

std::u16string FicTmpTx(const std::string& nome) { return TxDeUtf8(FicTmp(nome)); }

std::string Le(const std::string& path) {
  std::ifstream f(path, std::ios::binary);
  std::stringstream s;
  s << f.rdbuf();
  return s.str();
}

void Escreve(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

Tmpfs::Tmpfs(unsigned long bytes) {
  static int n = 0;
  std::string p = FicTmp("tmpfs" + std::to_string(++n));
  std::filesystem::create_directory(p);
  std::string opc = "size=" + std::to_string(bytes);
  if (mount("tmpfs", p.c_str(), "tmpfs", 0, opc.c_str()) == 0) pasta = p;
  else porque = std::string("cannot mount a small tmpfs here (needs root with CAP_SYS_ADMIN): ") + strerror(errno);
}

Tmpfs::~Tmpfs() {
  if (!pasta.empty()) umount(pasta.c_str());
}

}  // namespace zw::tst
