// The temporary folder of the running test: made on first use in each test, its
// own (no two tests, in this program or another running beside it, share one),
// and removed with its contents when the test program ends.
#pragma once
#include <string>

namespace zw::tst {

std::string PastaTmp();                         // the folder, without a final "/"
std::string FicTmp(const std::string& nome);    // a path in it
std::u16string FicTmpTx(const std::string& nome);  // the same as a text
std::string Le(const std::string& path);                        // a file's bytes, "" when unreadable
void Escreve(const std::string& path, const std::string& bytes);  // makes or replaces a file

// A small tmpfs mounted on a new folder in the test's own, so that writes meet a
// full disk; unmounted when it goes. Where mounting is not allowed (not root, no
// CAP_SYS_ADMIN) `pasta` is empty and `porque` says why, for GTEST_SKIP.
struct Tmpfs {
  explicit Tmpfs(unsigned long bytes);
  ~Tmpfs();
  Tmpfs(const Tmpfs&) = delete;
  Tmpfs& operator=(const Tmpfs&) = delete;
  std::string pasta, porque;
};

}  // namespace zw::tst
