// Per-test temporary folders, made with mkdtemp and removed at the program's end.
#include "TstTmp.h"
#include <gtest/gtest.h>
#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <map>
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

}  // namespace zw::tst
