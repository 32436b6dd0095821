// RtfCp: the code pages a rich-text file may name for its bytes.
// Windows-1252 is the foundation's own; this adds the other single-byte pages of
// Windows (1250, 1251, 1253, 1254, 1257), the DOS pages 437 and 850 and the
// Macintosh page 10000, so that accents written by any of them read right.
// The double-byte pages of Japanese, Chinese and Korean (932, 936, 949, 950,
// 1361) and the single-byte pages of Thai, Hebrew, Arabic and Vietnamese (874,
// 1255, 1256, 1258) go through the C library's converter (iconv), which carries
// their tables; the foundation keeps no tables of its own for them.
#pragma once
#include <utility>
#include <vector>
#include "Tx.h"

namespace zw {

bool RtfCpTem(int cp);                       // whether the page is known
char16_t RtfCpChr(int cp, unsigned char b);  // a byte's character; unknown pages read as 1252
bool RtfCpCnvTem(int cp);                    // whether the page goes through the converter
bool RtfCpLid(int cp, unsigned char b);      // whether b opens a two-byte character of the page

// The converter of one reading: it opens each page once and closes them all at
// its end.
class RtfCpCnv {
 public:
  RtfCpCnv() = default;
  ~RtfCpCnv();
  RtfCpCnv(const RtfCpCnv&) = delete;
  RtfCpCnv& operator=(const RtfCpCnv&) = delete;
  // The character of one or two bytes of page cp; U+FFFD when they make none.
  Tx Cnv(int cp, const unsigned char* b, size_t n);

 private:
  std::vector<std::pair<int, void*>> cds_;
};

}  // namespace zw
