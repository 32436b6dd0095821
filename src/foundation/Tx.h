// Tx: the one text type of the core.
// Texts are 16-bit code units, as VBScript keeps its strings; bytes become text
// only at the edges (files, command line, terminal), through the functions here.
#pragma once
#include <string>
#include <string_view>

namespace zw {

using Tx = std::u16string;
using TxV = std::u16string_view;

// How a file's bytes were written, so that a writer can give them back alike.
enum class Cod { W1252, Utf8, Utf8Bom };

Tx TxDeUtf8(std::string_view s);      // UTF-8 bytes to text; bad bytes become U+FFFD
std::string TxUtf8(TxV t);            // text to UTF-8 (lone surrogates become U+FFFD)
std::string TxJson(TxV t);            // a JSON string of a text, UTF-8, quotes included
Tx TxDe1252(std::string_view s);      // Windows-1252 bytes to text
std::string Tx1252(TxV t);            // text to Windows-1252; what has no byte becomes '?'
int Chr1252(char16_t c);              // the Windows-1252 byte of a character, or -1
char16_t ChrDe1252(unsigned char b);  // the character of a Windows-1252 byte

// The encoding of a file's bytes: UTF-8 with a byte-order mark, UTF-8 when the
// bytes are valid UTF-8 and hold at least one multi-byte sequence, else Windows-1252.
Cod CodDetecta(std::string_view bytes);
Tx TxDeBytes(std::string_view bytes, Cod* cod = nullptr);  // detects, drops the mark
std::string TxBytes(TxV t, Cod cod);                        // writes the mark back for Utf8Bom
Tx TxDeCod(std::string_view bytes, Cod cod);                // bytes of a known encoding, no mark

// Short spellings for ASCII literals at the edges: Tx(u"...") is the usual form.
inline Tx TxAsc(std::string_view a) { return Tx(a.begin(), a.end()); }

}  // namespace zw
