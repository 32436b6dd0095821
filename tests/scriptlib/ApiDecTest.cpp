// The identity that scripts read: names, codes, words and families by version.
#include <gtest/gtest.h>
#include "ApiDec.h"

using namespace zw;

namespace {

SysVer Ver(int plat, int maj, int min, int build = 0, Tx csd = Tx()) {
  SysVer v;
  v.plat = plat, v.maj = maj, v.min = min, v.build = build, v.csd = std::move(csd);
  return v;
}

TEST(ApiDec, NamesCodesAndFamiliesByVersion) {
  struct Caso {
    SysVer v;
    Tx nome, cod, fam, fam2;
  } casos[] = {
      {Ver(1, 4, 0), u"Windows 95", u"W95", u"9X", u"?"},  // the second form misses 95
      {Ver(1, 4, 10), u"Windows 98", u"W98", u"9X", u"9X"},
      {Ver(2, 4, 0), u"Windows NT", u"WNT", u"WNT", u"WNT"},
      {Ver(2, 5, 0), u"Windows 2000", u"W2000", u"WNT", u"W2K"},
      {Ver(2, 5, 1), u"Windows XP", u"WXP", u"WNT", u"W2K"},
      {Ver(2, 6, 0), u"Windows Vista", u"WVI", u"WNT", u"WVI"},
      {Ver(2, 6, 1), u"Windows 7", u"W7", u"WNT", u"WVI"},
      {Ver(2, 6, 3), u"Windows 7", u"W7", u"WNT", u"WVI"},  // 8.1 too
      {Ver(2, 10, 0), u"Windows NT", u"WNT", u"WNT", u"WNT"},
      {Ver(3, 5, 1), u"Windows NT", u"WNT", u"WNT", u"WNT"},  // no flag for another platform
  };
  for (auto& c : casos) {
    SCOPED_TRACE(std::to_string(c.v.plat) + "." + std::to_string(c.v.maj) + "." + std::to_string(c.v.min));
    Tx nome, cod, fam, fam2, cod2;
    SopIde(c.v, nome, cod);
    EXPECT_EQ(nome, c.nome);
    EXPECT_EQ(cod, c.cod);
    SopIdeTot(c.v, fam2, fam, cod2);
    EXPECT_EQ(cod2, c.cod);
    EXPECT_EQ(fam, c.fam);
    EXPECT_EQ(fam2, c.fam2);
  }
}

TEST(ApiDec, WordsAndTexts) {
  SysVer v = Ver(2, 5, 1, 0x20000 + 2600, Tx(u" Service Pack 2 \0x", 18));
  auto W = [&](const Tx& p) {
    Var r;
    SopVerCon(v, p, r);
    return r;
  };
  EXPECT_EQ(W(u"P").Num(), 2);
  EXPECT_EQ(W(u"v+").Num(), 5);  // words are read in capitals
  EXPECT_EQ(W(u"V-").Num(), 1);
  EXPECT_EQ(W(u"VB").Num(), 2600);
  EXPECT_EQ(W(u"VC").Txt(), u"Service Pack 2");
  EXPECT_EQ(W(u"VER").Txt(), u"2.5.1.2600");
  EXPECT_EQ(W(u"IDE").Txt(), u"Windows XP");
  EXPECT_EQ(W(u"COD").Txt(), u"WXP");
  EXPECT_EQ(W(u"FAM").Txt(), u"WNT");
  EXPECT_EQ(W(u"").Txt(), u"Windows XP v5.1, Build 2600");
  v.build = 0xFFFF;
  EXPECT_EQ(W(u"VB").Num(), -1);
  Tx lng, crt;
  SopVerTx(v, lng, crt);
  EXPECT_EQ(crt, u"2.5.1.-1");
  // The running system: the NT family with a version no named Windows matches.
  Tx nome, cod;
  SopIde(nome, cod);
  EXPECT_EQ(cod, u"WNT");
  Var c;
  SopVerCon(u"VC", c);
  EXPECT_NE(c.Txt().find(u"Linux"), Tx::npos);
}

}  // namespace
