// Text conversions at the edges of the core.
#include "Tx.h"

namespace zw {

// Windows-1252 bytes 0x80..0x9F; 0 marks the five bytes that have no character.
static const char16_t k1252[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char16_t ChrDe1252(unsigned char b) {
  if (b >= 0x80 && b <= 0x9F && k1252[b - 0x80]) return k1252[b - 0x80];
  return b;  // the five holes keep their code, as the platform's conversion does
}

int Chr1252(char16_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
  for (int i = 0; i < 32; i++)
    if (k1252[i] == c) return 0x80 + i;
  if (c >= 0x80 && c <= 0x9F && !k1252[c - 0x80]) return c;
  return -1;
}

Tx TxDe1252(std::string_view s) {
  Tx t;
  t.reserve(s.size());
  for (unsigned char b : s) t.push_back(ChrDe1252(b));
  return t;
}

std::string Tx1252(TxV t) {
  std::string s;
  s.reserve(t.size());
  for (char16_t c : t) {
    int b = Chr1252(c);
    s.push_back(b < 0 ? '?' : char(b));
  }
  return s;
}

// Decodes one UTF-8 sequence at s[i]; gives the code point and advances i,
// or gives -1 (and advances one byte) when the bytes are not valid UTF-8.
static long Utf8Seg(std::string_view s, size_t& i) {
  unsigned char b = s[i];
  if (b < 0x80) { i++; return b; }
  int n;
  long cp, min;
  if ((b & 0xE0) == 0xC0) { n = 1; cp = b & 0x1F; min = 0x80; }
  else if ((b & 0xF0) == 0xE0) { n = 2; cp = b & 0x0F; min = 0x800; }
  else if ((b & 0xF8) == 0xF0) { n = 3; cp = b & 0x07; min = 0x10000; }
  else { i++; return -1; }
  if (i + n >= s.size()) { i++; return -1; }
  for (int k = 1; k <= n; k++) {
    unsigned char c = s[i + k];
    if ((c & 0xC0) != 0x80) { i++; return -1; }
    cp = (cp << 6) | (c & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) { i++; return -1; }
  i += n + 1;
  return cp;
}

Tx TxDeUtf8(std::string_view s) {
  Tx t;
  t.reserve(s.size());
  for (size_t i = 0; i < s.size();) {
    long cp = Utf8Seg(s, i);
    if (cp < 0) cp = 0xFFFD;
    if (cp >= 0x10000) {
      cp -= 0x10000;
      t.push_back(char16_t(0xD800 + (cp >> 10)));
      t.push_back(char16_t(0xDC00 + (cp & 0x3FF)));
    } else {
      t.push_back(char16_t(cp));
    }
  }
  return t;
}

std::string TxUtf8(TxV t) {
  std::string s;
  s.reserve(t.size());
  for (size_t i = 0; i < t.size(); i++) {
    unsigned long cp = t[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < t.size() && t[i + 1] >= 0xDC00 && t[i + 1] <= 0xDFFF) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (t[i + 1] - 0xDC00);
      i++;
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      cp = 0xFFFD;
    }
    if (cp < 0x80) {
      s.push_back(char(cp));
    } else if (cp < 0x800) {
      s.push_back(char(0xC0 | (cp >> 6)));
      s.push_back(char(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
      s.push_back(char(0xE0 | (cp >> 12)));
      s.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
      s.push_back(char(0x80 | (cp & 0x3F)));
    } else {
      s.push_back(char(0xF0 | (cp >> 18)));
      s.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
      s.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
      s.push_back(char(0x80 | (cp & 0x3F)));
    }
  }
  return s;
}

// A JSON string literal of a text, for the tools' machine-readable output: the
// usual short escapes, \u00XX for the other control characters, UTF-8 otherwise.
std::string TxJson(TxV t) {
  std::string r = "\"";
  for (unsigned char c : TxUtf8(t)) {
    switch (c) {
      case '"': r += "\\\""; break;
      case '\\': r += "\\\\"; break;
      case '\n': r += "\\n"; break;
      case '\r': r += "\\r"; break;
      case '\t': r += "\\t"; break;
      default:
        if (c < 0x20) {
          static const char kHex[] = "0123456789abcdef";
          r += "\\u00";
          r += kHex[c >> 4];
          r += kHex[c & 15];
        } else {
          r += char(c);
        }
    }
  }
  return r + "\"";
}

Cod CodDetecta(std::string_view b) {
  if (b.size() >= 3 && b.substr(0, 3) == "\xEF\xBB\xBF") return Cod::Utf8Bom;
  bool multi = false;
  for (size_t i = 0; i < b.size();) {
    size_t j = i;
    if (Utf8Seg(b, i) < 0) return Cod::W1252;
    if (i - j > 1) multi = true;
  }
  return multi ? Cod::Utf8 : Cod::W1252;
}

Tx TxDeBytes(std::string_view bytes, Cod* cod) {
  Cod c = CodDetecta(bytes);
  if (cod) *cod = c;
  if (c == Cod::Utf8Bom) return TxDeUtf8(bytes.substr(3));
  if (c == Cod::Utf8) return TxDeUtf8(bytes);
  return TxDe1252(bytes);
}

Tx TxDeCod(std::string_view bytes, Cod cod) { return cod == Cod::W1252 ? TxDe1252(bytes) : TxDeUtf8(bytes); }

std::string TxBytes(TxV t, Cod cod) {
  if (cod == Cod::Utf8Bom) return "\xEF\xBB\xBF" + TxUtf8(t);
  if (cod == Cod::Utf8) return TxUtf8(t);
  return Tx1252(t);
}

}  // namespace zw
