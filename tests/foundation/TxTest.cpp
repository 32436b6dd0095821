// Text at the edges: Windows-1252 and UTF-8 decoding, detection and round trips;
// literals in dynamic values.
#include <gtest/gtest.h>
#include <type_traits>
#include "Tx.h"
#include "Var.h"

using namespace zw;

TEST(Tx, Windows1252MapsTheHighBlock) {
  EXPECT_EQ(TxDe1252("\x80\x93\xE3"), Tx(u"\u20AC\u201C\u00E3"));
  EXPECT_EQ(Tx1252(u"N\u00E3o \u20AC"), std::string("N\xE3o \x80"));
  EXPECT_EQ(Tx1252(u"\u4E2D"), "?");                       // no byte for it
  EXPECT_EQ(TxDe1252("\x81\x8D"), Tx(u"\u0081\u008D"));     // holes keep their code
  EXPECT_EQ(Tx1252(TxDe1252("\x81\x8D\x8F\x90\x9D")), "\x81\x8D\x8F\x90\x9D");
}

TEST(Tx, Utf8BothWaysWithSurrogates) {
  std::string s = "a\xC3\xA3\xE2\x82\xAC\xF0\x9F\x98\x80";
  Tx t = TxDeUtf8(s);
  EXPECT_EQ(t, Tx(u"a\u00E3\u20AC\U0001F600"));
  EXPECT_EQ(TxUtf8(t), s);
  EXPECT_EQ(TxDeUtf8("\xC3"), Tx(u"\uFFFD"));                // cut sequence
  EXPECT_EQ(TxDeUtf8("\xC0\x80"), Tx(u"\uFFFD\uFFFD"));      // overlong form
  EXPECT_EQ(TxUtf8(Tx(1, char16_t(0xD800))), "\xEF\xBF\xBD");  // lone surrogate
}

TEST(Tx, DetectionFollowsTheBytes) {
  EXPECT_EQ(CodDetecta("plain ascii"), Cod::W1252);
  EXPECT_EQ(CodDetecta("op\xC3\xA7\xC3\xB5" "es"), Cod::Utf8);
  EXPECT_EQ(CodDetecta("op\xE7\xF5" "es"), Cod::W1252);       // Latin-1 bytes are not UTF-8
  EXPECT_EQ(CodDetecta("\xEF\xBB\xBFx"), Cod::Utf8Bom);
  EXPECT_EQ(CodDetecta("\xC3\xA3 then \xE3"), Cod::W1252);    // one bad byte makes it 1252
}

TEST(Tx, BytesRoundTripInTheirOwnEncoding) {
  for (std::string b : {std::string("Ficheiro: op\xE7\xF5" "es\r\n"),
                        std::string("op\xC3\xA7\xC3\xB5" "es\r\n"),
                        std::string("\xEF\xBB\xBF[ZON]\r\n")}) {
    Cod c;
    Tx t = TxDeBytes(b, &c);
    EXPECT_EQ(TxBytes(t, c), b);
  }
  Cod c;
  EXPECT_EQ(TxDeBytes("\xEF\xBB\xBFok", &c), Tx(u"ok"));
}

// A text literal is a text, and a narrow one (or any other pointer) does not compile
// instead of becoming a Boolean.
TEST(Var, LiteralsAreTextsNeverBooleans) {
  static_assert(!std::is_constructible_v<Var, const char*>);
  static_assert(!std::is_constructible_v<Var, const int*>);
  EXPECT_TRUE(Var(u"abc").EhTx());
  EXPECT_EQ(Var(u"").Txt(), u"");
}
