// SupSysOp over described systems: the cumulative family flags, the texts, the
// suite bits; and what the running Linux system answers.
#include <gtest/gtest.h>
#include "SupSysOp.h"

using namespace zw;

namespace {

// Describes a system for the objects made while it lives; the running system is in
// force again afterwards.
struct Sistema {
  explicit Sistema(SysVer v) {
    SysVerDef([v] { return v; });
  }
  ~Sistema() { SysVerDef(nullptr); }
};

SysVer Ver(int plat, int maj, int min, int build, Tx csd = Tx(), int16_t suite = 0, uint8_t prod = 1) {
  SysVer v;
  v.plat = plat, v.maj = maj, v.min = min, v.build = build, v.csd = std::move(csd), v.suite = suite;
  v.prodTipo = prod;
  return v;
}

TEST(SupSysOp, FamilyFlagsAreCumulativeAndPlatformTestsTheNewestFirst) {
  struct Caso {
    SysVer v;
    Tx plat;
    int nt, w2k, xp, w95, w98, me;
  } casos[] = {
      {Ver(2, 5, 2, 3790), u"Windows XP", -1, -1, -1, 0, 0, 0},
      {Ver(2, 6, 0, 6002), u"Windows 2000", -1, -1, 0, 0, 0, 0},  // minor 0: not XP
      {Ver(2, 4, 0, 1381), u"Windows NT", -1, 0, 0, 0, 0, 0},
      {Ver(2, 4, 1, 1381), u"Windows NT", -1, 0, 0, 0, 0, 0},  // XP needs 2000 first
      {Ver(1, 4, 0, 950), u"Windows 95", 0, 0, 0, -1, 0, 0},
      {Ver(1, 4, 10, 2222), u"Windows 98", 0, 0, 0, -1, -1, 0},
      {Ver(1, 4, 90, 3000), u"Windows Me", 0, 0, 0, -1, -1, -1},
      {Ver(1, 4, 90, 0x10000 + 5), u"Windows 98", 0, 0, 0, -1, -1, 0},  // low 16 bits only
      {Ver(3, 1, 0, 0), u"", 0, 0, 0, 0, 0, 0},
  };
  for (auto& c : casos) {
    Sistema s(c.v);
    SupSysOp o;
    SCOPED_TRACE(std::to_string(c.v.plat) + "." + std::to_string(c.v.maj) + "." + std::to_string(c.v.min));
    EXPECT_EQ(o.Platform(), c.plat);
    EXPECT_EQ(o.IsWinNT(), c.nt);
    EXPECT_EQ(o.IsWin2K(), c.w2k);
    EXPECT_EQ(o.IsWinXP(), c.xp);
    EXPECT_EQ(o.IsWin95(), c.w95);
    EXPECT_EQ(o.IsWin98(), c.w98);
    EXPECT_EQ(o.IsWinME(), c.me);
    EXPECT_EQ(o.IsWin9x(), c.w95 ? -1 : 0);
  }
}

TEST(SupSysOp, TextsSuiteBitsAndProductType) {
  {
    Sistema s(Ver(2, 5, 1, 0x10000 + 0xFFFF, Tx(u"  Service Pack 3\0lixo", 21), 2 | 16, 3));
    SupSysOp o;
    EXPECT_EQ(o.BuildNumber(), -1);  // the low 16 bits, signed
    EXPECT_EQ(o.CSDVersion(), u"Service Pack 3");
    EXPECT_EQ(o.Version(), u"Windows XP v5.1, Build -1");
    Tx ver, opc, nome;
    o.SysOpUsa(nome, ver, opc);
    EXPECT_EQ(nome, u"Windows XP");
    EXPECT_EQ(ver, u"5.1, Build -1");
    EXPECT_EQ(opc, u"Service Pack 3, Advanced Server");
    EXPECT_TRUE(o.HasAS() && o.HasTS());
    EXPECT_FALSE(o.HasSBS() || o.HasBO() || o.HasSBSr() || o.HasDC());
    EXPECT_EQ(o.ProductTypeName(), u"NT Server");
  }
  {
    Sistema s(Ver(2, 5, 0, 2195, Tx(u"\0Service Pack 4", 15), 128, 7));
    SupSysOp o;
    EXPECT_EQ(o.CSDVersion(), u"");  // cut at its first NUL
    EXPECT_TRUE(o.HasDC());
    EXPECT_EQ(o.ProductTypeName(), u"");
    Tx v, opc;
    o.SysOpIdv(v, opc);
    EXPECT_EQ(v, u"Windows 2000 v5.0, Build 2195");
    EXPECT_EQ(opc, u"");
  }
}

TEST(SupSysOp, TheRunningLinuxSystem) {
  SupSysOp o;
  EXPECT_EQ(o.PlatformID(), 2);
  EXPECT_EQ(o.MajorVersion(), 10);
  EXPECT_EQ(o.Platform(), u"Windows 2000");  // major 10, minor 0: 2000's flag alone stands
  EXPECT_GT(o.BuildNumber(), 200);           // the kernel: 2.6 and later
  EXPECT_NE(o.CSDVersion().find(u", Linux "), Tx::npos);
  EXPECT_EQ(o.ProductTypeName(), u"NT Workstation");
}

}  // namespace
