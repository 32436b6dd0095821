// Error texts, the close-everything hook and the instance stamps.
#include <gtest/gtest.h>
#include <vector>
#include "DbgFx.h"

using namespace zw;

TEST(DbgFx, ErrDadTextAndSign) {
  Tx t = u"old", f;
  ErrDad(53, t, f);
  EXPECT_EQ(t, u"Erro :  53 - File not found");
  EXPECT_EQ(f, u"ZunWiz");
  Tx t2;
  ErrDad(-53, t2, f);
  EXPECT_EQ(t2, t);
  Tx t0 = u"kept";
  ErrDad(0, t0, f);
  EXPECT_EQ(t0, u"kept");
  EXPECT_EQ(ErrDsc(31999), u"Unknown runtime error");
}

TEST(DbgFx, FrmFimTotRunsTwoPassesAndLivesOnWithFlagZero) {
  std::vector<int> passos;
  FrmFimDef([&](int p) { passos.push_back(p); });
  FrmFimTot(0);
  FrmFimDef(nullptr);
  EXPECT_EQ(passos, (std::vector<int>{1, 2}));
  FrmFimTot(0);  // without a hook there is nothing to close
}

TEST(DbgFx, FrmFimTotWithFlagOneEnds) {
  EXPECT_EXIT({ FrmFimTot(1); std::_Exit(3); }, ::testing::ExitedWithCode(0), "");
}

TEST(DbgFx, StampsNeverRepeat) {
  EXPECT_EQ(DbgHorUniDe(u"10:00:00.01"), u"10:00:00.01");
  EXPECT_EQ(DbgHorUniDe(u"10:00:00.01"), u"10:00:00.01 1");
  EXPECT_EQ(DbgHorUniDe(u"10:00:00.01"), u"10:00:00.01 2");
  EXPECT_EQ(DbgHorUniDe(u"10:00:00.02"), u"10:00:00.02");
  EXPECT_EQ(DbgHorUniDe(u"10:00:00.02"), u"10:00:00.02 1");
  Tx h;
  DbgHor(h);
  ASSERT_EQ(h.size(), 11u);
  EXPECT_EQ(h[2], u':');
  EXPECT_EQ(h[8], u'.');
  Tx a, b;
  DbgObjIni(u"SupWiz", a);
  DbgObjIni(u"SupWiz", b);
  EXPECT_NE(a, b);
}
