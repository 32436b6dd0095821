// Sha: the SHA-256 digest (FIPS 180-4), for the content hashes of the install
// record. Fed in parts of any size; the digest is read once, as 64 hex digits.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zw {

class Sha256 {
 public:
  Sha256();
  void Adi(std::string_view b);  // adds bytes to the message
  std::string Hex();             // ends the message: its digest, lower-case hex
 private:
  void Bloco(const unsigned char* p);
  uint32_t h_[8];
  unsigned char buf_[64];
  size_t n_ = 0;       // bytes waiting in buf_
  uint64_t tam_ = 0;   // bytes of the message so far
};

// The digest of a whole message, as 64 hex digits.
std::string ShaHex(std::string_view b);

}  // namespace zw
