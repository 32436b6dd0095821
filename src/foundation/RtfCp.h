// RtfCp: the code pages a rich-text file may name for its bytes.
// Windows-1252 is the foundation's own; this adds the other single-byte pages of
// Windows (1250, 1251, 1253, 1254, 1257), the DOS pages 437 and 850 and the
// Macintosh page 10000, so that accents written by any of them read right.
#pragma once
#include "Tx.h"

namespace zw {

bool RtfCpTem(int cp);                       // whether the page is known
char16_t RtfCpChr(int cp, unsigned char b);  // a byte's character; unknown pages read as 1252

}  // namespace zw
