// SHA-256 against the FIPS 180-4 examples and the lengths where the padding takes
// one block or two, whole and fed in uneven parts.
#include <gtest/gtest.h>
#include <string>
#include "Sha.h"

using namespace zw;

TEST(Sha, StandardVectors) {
  EXPECT_EQ(ShaHex(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(ShaHex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(ShaHex(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

// 55 bytes leave room for the length in the last block, 56 do not; 63, 64 and 65
// end just before, at and after a block's end. Each fed whole and in parts of 1,
// 7 and 64 bytes must give the same digest.
TEST(Sha, PaddingEdgesInAnyParts) {
  const std::pair<size_t, const char*> casos[] = {
      {55, "d5e285683cd4efc02d021a5c62014694958901005d6f71e89e0989fac77e4072"},
      {56, "04c26261370ee7541549d16dee320c723e3fd14671e66a099afe0a377c16888e"},
      {63, "75220b47218278e656f2013bb8f0c455a25eaf01e86c64924e9d48d89776d6f2"},
      {64, "7ce100971f64e7001e8fe5a51973ecdfe1ced42befe7ee8d5fd6219506b5393c"},
      {65, "9537c5fdf120482f7d58d25e9ed583f52c02b4e304ea814db1633ad565aed7e9"}};
  for (auto [n, h] : casos) {
    std::string m(n, 'x');
    EXPECT_EQ(ShaHex(m), h) << n;
    for (size_t parte : {1, 7, 64}) {
      Sha256 s;
      for (size_t i = 0; i < n; i += parte) s.Adi(std::string_view(m).substr(i, parte));
      EXPECT_EQ(s.Hex(), h) << n << " in parts of " << parte;
    }
  }
}
