// The reader alone, as zunwiz-check uses it: no window and no script engine. What
// it asks of its caller and when, the lines it keeps, the folder words of paths, the
// command line laid over the options, and two definitions read in one process.
#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>
#include "TstTmp.h"
#include "TxtGlb.h"
#include "WizDef.h"

namespace zw::tst {
namespace {

// Records the reader's calls in their order.
struct Fx : WizLerFx {
  std::vector<Tx> log;
  void Lin(int32_t l) override { log.push_back(u"lin " + TxAsc(std::to_string(l))); }
  void TraPos(tTra& t) override {
    log.push_back(u"tra " + t.Ide);
    t.Pos = u"1, 2";
    t.PosX = 15, t.PosY = 30;
  }
  void Pgm(const tWizPgm& p) override { log.push_back(u"pgm " + TxAsc(std::to_string(p.Lin.size() - 1))); }
  void Grp(const tWizGrp& g) override { log.push_back(u"grp " + g.Ide); }
  void Calc() override { log.push_back(u"calc"); }
};

Tx Par(const char* nome, const std::string& corpo) {
  std::filesystem::path p = std::filesystem::path(PastaTmp()) / nome;
  std::ofstream(p, std::ios::binary) << "'Nome : T\n'Tipo : PAR\n'Data :\n'Versao :\n'Descricao :\n" << corpo;
  return TxDeUtf8(p.string());
}

const char* kWiz =
    "#DEF - D\n"            // 6
    "[DbgModo]=S\n"
    "[DbgLtrCd]=Q\n"
    "[DbgDirPgm]=Q:\\w\n"
    "[ImgFun]=[DRVCD]\\f.bmp\n"  // 10
    "[ImgIco]=[LTRCD]/[DIRPGM]\n"
    "[DimX]=20\n"
    "##\n"
    "#PON - P\n"
    "[AUT_TraPosSeg]=xMax-1, 2\n"  // 15
    "##\n"
    "#PAG - Um\n"
    "[IDE]=UM\n"
    "[FxPagEnt]=Ent\n"
    "##\n"  // 20
    "#TRA - s\n"
    "[IDE]=SEG\n"
    "[TRATIP]=[Tip]\n"
    "##\n"
    "#TRA - x\n"  // 25
    "[IDE]=XPTO\n"
    "##\n"
    "#CMP - c\n"
    "[Tip]=LAB\n"
    "[Txt]=[Tip] fica\n"  // 30
    "##\n"
    "#VBS:TX - P\n"
    "Sub Ent\n"
    "End Sub\n"
    "##\n";  // 35

TEST(WizLer, CallsTheCallerInARunsOrderAndKeepsEachKeysLine) {
  tWizDef d;
  d.Dir = WizDirDe(u"/opt/w/ZunWiz.par", u"Tip=FX");
  Fx fx;
  WizLer(d, fx).Ler(Par("def.par", kWiz));
  // The calculation after every group, once the next head is read; a program and a
  // button's place while their group is in hand, the dropped button too.
  EXPECT_EQ(fx.log, (std::vector<Tx>{u"lin 6", u"grp DEF", u"calc", u"lin 14", u"grp PON", u"calc", u"lin 17",
                                     u"grp PAG", u"calc", u"lin 21", u"tra SEG", u"grp TRA", u"calc", u"lin 25",
                                     u"tra XPTO", u"grp TRA", u"calc", u"lin 28", u"grp CMP", u"calc", u"lin 32",
                                     u"pgm 2", u"grp VBS", u"calc"}));
  // The debug folders of "DEF" are the folder words from then on.
  EXPECT_EQ(d.Dir.LtrCd, u"Q");
  EXPECT_EQ(d.ImgFun, u"Q:\\f.bmp");
  EXPECT_EQ(d.ImgIco, u"Q/[DIRPGM]");  // only the first word of a path is replaced
  EXPECT_EQ(d.LinImgFun, 10);
  EXPECT_EQ(d.LinDimX, 12);
  EXPECT_EQ(d.LinDimY, 6);  // absent: the group's head
  EXPECT_EQ(NuDbl(d.DimX), 300);
  ASSERT_EQ(d.ZpoNum, 1);
  EXPECT_EQ(d.Zpo[1].Lin, 15);
  ASSERT_EQ(d.PagNum, 1);
  const tPag& p = d.Pag[1];
  EXPECT_EQ(p.Lin, 17);
  EXPECT_EQ(p.LinEnt, 19);
  EXPECT_EQ(p.LinSai, 0);
  // The caller's place stands; the command line's "Tip=FX" is an option, not a row's value.
  EXPECT_EQ(p.Tra[2].PosX, 15);
  EXPECT_EQ(p.Tra[2].TraTip, u"[Tip]");
  EXPECT_EQ(p.Tra[2].LinTip, 23);
  ASSERT_EQ(d.CmpNum, 1);
  EXPECT_EQ(d.Cmp[1].Txt, u"FX");  // a leading "[word]" is the option, the rest is lost
  EXPECT_EQ(d.Cmp[1].LinTxt, 30);
  EXPECT_EQ(p.CmpIni, 1);
  EXPECT_EQ(p.CmpFim, 1);
  EXPECT_EQ(d.Pgm.Num[1], 33);
  ASSERT_EQ(d.Grp.size(), 7u);
  EXPECT_EQ(d.Grp[3].Lin, 21);
}

// Nothing of a definition is the process's: two wizards read one after the other
// keep their own pages, and a command line given to one is not the other's.
TEST(WizLer, TwoWizardsInOneProcess) {
  tWizDef a, b;
  a.Dir.LinCmd = u"Tip=FX";
  Fx fa, fb;
  WizLer(a, fa).Ler(Par("a.par", kWiz));
  WizLer(b, fb).Ler(Par("b.par", "#DEF - D\n[DimX]=10\n##\n#PAG - p\n[IDE]=B\n##\n#CMP - c\n[Txt]=[Tip]\n##\n"));
  EXPECT_EQ(a.Pag[1].Ide, u"UM");
  EXPECT_EQ(b.Pag[1].Ide, u"B");
  EXPECT_EQ(a.Cmp[1].Txt, u"FX");
  EXPECT_EQ(b.Cmp[1].Txt, u"[Tip]");
  EXPECT_EQ(NuDbl(b.DimX), 150);
  EXPECT_EQ(a.Dir.DrvCd, u"Q:");
  EXPECT_EQ(b.Dir.DrvCd, u"");
}

TEST(WizDirDe, FolderAndDriveOfTheOptionFile) {
  tWizDir d = WizDirDe(u"X:\\a\\b.par", u"");
  EXPECT_EQ(d.DirPgm, u"X:\\a");
  EXPECT_EQ(d.LtrCd, u"X");
  EXPECT_EQ(d.DrvCd, u"X:");
  EXPECT_EQ(WizDirDe(u"/opt/w/b.par", u"").DirPgm, u"/opt/w");
}

}  // namespace
}  // namespace zw::tst
