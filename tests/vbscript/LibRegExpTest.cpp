// The regular-expression matcher: syntax, semantics and long inputs (beyond the
// cases lib/regexp.vbs runs through the RegExp object).
#include <gtest/gtest.h>

#include "RegExp.h"

using vbs::Rx;

namespace {

// The first match of a pattern as "text" or "-" for none; groups after '|'.
std::u16string M(const char16_t* pat, const char16_t* s, bool ic = false, bool ml = false) {
  Rx r;
  int e = r.Compila(pat, ic, ml);
  if (e) return u"E" + zw::TxAsc(std::to_string(e));
  std::vector<int> c;
  std::u16string t(s);
  if (!r.Acha(t, 0, c)) return u"-";
  std::u16string o = t.substr(c[0], c[1] - c[0]);
  for (size_t g = 2; g < c.size(); g += 2)
    o += u"|" + (c[g] < 0 ? std::u16string(u"~") : t.substr(c[g], c[g + 1] - c[g]));
  return o;
}

}  // namespace

TEST(LibRegExp, ClassesEscapesAndAnchors) {
  EXPECT_EQ(M(u"\\d+", u"ab123c"), u"123");
  EXPECT_EQ(M(u"[^a-c]+", u"abcdefa"), u"def");
  EXPECT_EQ(M(u"[\\w.-]+@", u"x: a.b-c@d"), u"a.b-c@");
  EXPECT_EQ(M(u"[a\\-z]+", u"b-az"), u"-az");
  EXPECT_EQ(M(u"\\s\\S", u"ab c"), u" c");
  EXPECT_EQ(M(u"\\bfoo\\b", u"afoo foo"), u"foo");
  EXPECT_EQ(M(u"\\Boo", u"oo foo"), u"oo");
  EXPECT_EQ(M(u"a.c", u"a\nc abc"), u"abc");
  EXPECT_EQ(M(u"\\x41\\u00e9\\t", u"A\u00e9\t"), u"A\u00e9\t");
  EXPECT_EQ(M(u"\\101", u"A"), u"A");
  EXPECT_EQ(M(u"a$", u"a\nb"), u"-");
  EXPECT_EQ(M(u"[\\b]", u"x\by"), u"\b");
  EXPECT_EQ(M(u"a{,2}", u"a{,2}"), u"a{,2}");
}

TEST(LibRegExp, QuantifiersGreedyLazyAndCounted) {
  EXPECT_EQ(M(u"<.+>", u"<a><b>"), u"<a><b>");
  EXPECT_EQ(M(u"a{2,3}", u"aaaa"), u"aaa");
  EXPECT_EQ(M(u"a{2,}?", u"aaaa"), u"aa");
  EXPECT_EQ(M(u"(ab){2}", u"abababx"), u"abab|ab");
  EXPECT_EQ(M(u"(ab){1,2}?c", u"ababc"), u"ababc|ab");
  EXPECT_EQ(M(u"(a|b)*c", u"abbac"), u"abbac|a");
  EXPECT_EQ(M(u"(a*)*b", u"aab"), u"aab|aa");
  EXPECT_EQ(M(u"(a*?)+?b", u"b"), u"b|");
  EXPECT_EQ(M(u"\\d*?5", u"12345"), u"12345");
}

TEST(LibRegExp, GroupsLookaheadAndBackreferences) {
  EXPECT_EQ(M(u"(?:a|b)+(c)?", u"abx"), u"ab|~");
  EXPECT_EQ(M(u"(a)|\\1b", u"b"), u"b|~");  // an unset group matches empty
  EXPECT_EQ(M(u"\\d+(?!px)\\b", u"10px 20em 30"), u"30");
  EXPECT_EQ(M(u"(?=(\\w+))\\w", u"abc"), u"a|abc");
  EXPECT_EQ(M(u"a|ab|abc", u"abc"), u"a");
}

TEST(LibRegExp, IgnoreCase) {
  EXPECT_EQ(M(u"ção", u"AÇÃO", true), u"ÇÃO");
  EXPECT_EQ(M(u"(a)\\1", u"aA", true), u"aA|a");
  EXPECT_EQ(M(u"[^a]", u"Ab", true), u"b");
}

TEST(LibRegExp, SyntaxErrors) {
  EXPECT_EQ(M(u"a)b", u""), u"E5017");
  EXPECT_EQ(M(u"a**", u""), u"E5018");
  EXPECT_EQ(M(u"a{3,1}", u""), u"E5017");
  EXPECT_EQ(M(u"a\\", u""), u"E5017");
  EXPECT_EQ(M(u"(?<x>a)", u""), u"E5017");
}

TEST(LibRegExp, LongInputsDoNotExhaustTheStack) {
  std::u16string big(400000, u'a');
  Rx r;
  ASSERT_EQ(r.Compila(u"^(a|b)*c", false, false), 0);
  std::vector<int> c;
  EXPECT_FALSE(r.Acha(big, 0, c));
  ASSERT_EQ(r.Compila(u"(?:a)+$", false, false), 0);
  EXPECT_TRUE(r.Acha(big, 0, c));
  EXPECT_EQ(c[1], 400000);
  ASSERT_EQ(r.Compila(u"a*b", false, false), 0);
  EXPECT_FALSE(r.Acha(big.substr(0, 5000), 0, c));
}

TEST(LibRegExp, RunawayBacktrackingGivesUp) {
  Rx r;
  r.Limite(100000);
  ASSERT_EQ(r.Compila(u"(a*)*(b|a*)*c", false, false), 0);
  std::vector<int> c;
  EXPECT_FALSE(r.Acha(std::u16string(40, u'a'), 0, c));
  EXPECT_TRUE(r.Esgotou());
  r.Zera();
  EXPECT_TRUE(r.Acha(u"aac", 0, c));
  EXPECT_FALSE(r.Esgotou());
  // a long fixed count tried at every start counts its scanning too
  ASSERT_EQ(r.Compila(u"a{5000}c", false, false), 0);
  r.Zera();
  EXPECT_FALSE(r.Acha(std::u16string(20000, u'a'), 0, c));
  EXPECT_TRUE(r.Esgotou());
  // and the budget is one for all the searches until Zera, as a global Execute makes
  ASSERT_EQ(r.Compila(u"a{50}", false, false), 0);
  r.Zera();
  std::u16string t(300000, u'a');
  size_t found = 0;
  for (size_t de = 0; r.Acha(t, de, c); de = size_t(c[1])) ++found;
  EXPECT_TRUE(r.Esgotou());
  EXPECT_LT(found, 6000u);
}
