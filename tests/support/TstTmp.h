// The temporary folder of the running test: made on first use in each test, its
// own (no two tests, in this program or another running beside it, share one),
// and removed with its contents when the test program ends.
#pragma once
#include <string>

namespace zw::tst {

std::string PastaTmp();                         // the folder, without a final "/"
std::string FicTmp(const std::string& nome);    // a path in it
std::u16string FicTmpTx(const std::string& nome);  // the same as a text

}  // namespace zw::tst
