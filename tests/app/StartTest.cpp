// The start-up: where the option file is looked for, what its folder gives, and
// the order of the attempt loop.
#include <gtest/gtest.h>
#include <filesystem>
#include <fstream>
#include "FicGlb.h"
#include "MsgDlg.h"
#include "MsgGrv.h"
#include "QtApp.h"
#include "TstTmp.h"
#include "VbsSup.h"
#include "ZunWizGlb.h"
#include "ZunWizMain.h"

using namespace zw;
namespace fs = std::filesystem;

namespace {

// Installs a recording service for the life of a test, answering with the
// default button when its queue is empty.
struct ComGrava {
  tst::MsgGrv g;
  ComGrava() { g.resp = -1; }
};

// A fresh folder of this test.
fs::path DirTmp(const char* nome) {
  fs::path d = fs::path(tst::PastaTmp()) / nome;
  fs::create_directories(d);
  return d;
}

void Cria(const fs::path& p) { std::ofstream(p) << "[DEF]\n"; }

Tx TxP(const fs::path& p) { return TxDeUtf8(p.string()); }

}  // namespace

TEST(WizLtrCon, DriveLetterOrShareRoot) {
  Tx ltr, drv;
  WizLtrCon(u"x:\\a", ltr, drv);
  EXPECT_EQ(ltr, u"x");
  EXPECT_EQ(drv, u"x:");
  WizLtrCon(u"\\\\server\\share\\dir", ltr, drv);
  EXPECT_EQ(ltr, u"\\\\server\\share");
  EXPECT_EQ(drv, u"\\\\server\\share");
}

// "-FP" in any case names the file, cut at the first blank and taken as it
// stands; without it (or with nothing after it) the file beside the executable.
TEST(WizFpaCon, SwitchOrDefaultBesideTheExecutable) {
  fs::path d = DirTmp("fpa");
  Cria(d / "ZunWiz.par");
  Cria(d / "my");
  Cria(d / "outro.par");
  FicSepDef(u"");
  tZunWizPrc prc;
  prc.DirExe = TxP(d);
  Tx fpa;
  int16_t exi = -9;

  prc.Dir.LinCmd = u"";
  WizFpaCon(prc, fpa, exi);
  EXPECT_EQ(fpa, TxP(d) + u"\\ZunWiz.par");
  EXPECT_EQ(exi, 1);

  prc.Dir.LinCmd = u"TITWIZ=x  -fp " + TxP(d / "outro.par") + u" K=v";
  WizFpaCon(prc, fpa, exi);
  EXPECT_EQ(fpa, TxP(d / "outro.par"));
  EXPECT_EQ(exi, 1);

  prc.Dir.LinCmd = u"-FP " + TxP(d / "my file.par");
  WizFpaCon(prc, fpa, exi);
  EXPECT_EQ(fpa, TxP(d / "my"));
  EXPECT_EQ(exi, 1);

  prc.Dir.LinCmd = u"-FP rel/none.par";
  WizFpaCon(prc, fpa, exi);
  EXPECT_EQ(fpa, u"rel/none.par");
  EXPECT_NE(exi, 1);

  prc.Dir.LinCmd = u"K=v -FP";
  WizFpaCon(prc, fpa, exi);
  EXPECT_EQ(fpa, TxP(d) + u"\\ZunWiz.par");
}

// A file on a mapped drive: the folder, letter and drive that scripts see.
TEST(WizFpaPrp, PathsOfAnOptionFileOnADrive) {
  fs::path d = DirTmp("drv");
  fs::create_directories(d / "a");
  Cria(d / "a" / "b.par");
  FicDrvMap(u'X', TxP(d));
  tZunWizPrc prc;
  prc.Dir.LinCmd = u"-FP X:\\a\\b.par";
  WizFpaPrp(prc);
  EXPECT_EQ(prc.Dir.Fpa, u"X:\\a\\b.par");
  EXPECT_EQ(prc.Dir.DirPgm, u"X:\\a");
  EXPECT_EQ(prc.Dir.LtrCd, u"X");
  EXPECT_EQ(prc.Dir.DrvCd, u"X:");
  FicDrvMap(u'X', u"");

  // A path as this system writes it: the folder ends at the last "/".
  prc.Dir.LinCmd = u"-FP " + TxP(d) + u"/a/b.par";
  WizFpaPrp(prc);
  EXPECT_EQ(prc.Dir.DirPgm, TxP(d) + u"/a");
}

// The attempt loop with a fake attempt that fails a given number of times.
struct Laco {
  Tx log;
  int falhas = 0;
  int16_t insSt = 1;
  WizTntFx Fx() {
    WizTntFx fx;
    fx.Tnt = [this](Var& slot, int16_t& st) {
      log += u"T";
      slot = Var(Tx(u"janela"));
      st = falhas-- > 0 ? 0 : 1;
    };
    fx.InsExe = [this](int16_t& st) {
      log += u"I";
      st = insSt;
    };
    return fx;
  }
};

TEST(WizTntCic, FirstFailureInstallsSilentlyLaterOnesAsk) {
  ComGrava c;
  Laco l;
  l.falhas = 3;
  c.g.resps = {kAnsYes, kAnsNo};
  Var slot;
  EXPECT_EQ(WizTntCic(slot, l.Fx()), -1);
  EXPECT_EQ(l.log, u"TITIT");
  // Two questions (second and third failures), each the installer question.
  ASSERT_EQ(c.g.cx.size(), 2u);
  auto [estilo, tit, txt] = c.g.cx[0];
  EXPECT_EQ(estilo, kMsgQuestion + kMsgYesNo + kMsgDefault2);
  EXPECT_EQ(tit, u"ZunWiz");
  EXPECT_EQ(txt,
            u"Ocorreu um erro a iniciar o programa\r\n\r\nProvavelmente falta instalar componentes\r\n"
            u"Instalar ?\r\n\r\nConfirma ?");
  EXPECT_EQ(c.g.bips, 2);
  EXPECT_TRUE(slot.EhTx());
}

// A success ends the loop at once; an installer that failed or is missing counts
// like one that ran.
TEST(WizTntCic, SuccessEndsTheLoop) {
  ComGrava c;
  Laco l;
  Var slot;
  EXPECT_EQ(WizTntCic(slot, l.Fx()), 1);
  EXPECT_EQ(l.log, u"T");

  Laco m;
  m.falhas = 1;
  m.insSt = 0;
  EXPECT_EQ(WizTntCic(slot, m.Fx()), 1);
  EXPECT_EQ(m.log, u"TIT");
  EXPECT_TRUE(c.g.cx.empty());

  Laco n;
  n.falhas = 2;
  n.insSt = 0;
  c.g.resps = {kAnsYes};
  EXPECT_EQ(WizTntCic(slot, n.Fx()), 1);
  EXPECT_EQ(n.log, u"TITIT");
  EXPECT_EQ(c.g.cx.size(), 1u);
}

// The installer beside the executable is found without its ".exe", and the
// start-up waits for its end; a missing installer gives status 0.
TEST(CmpInsExe, RunsTheInstallerBesideTheExecutableAndWaits) {
  tZunWizPrc prc;
  fs::path d = DirTmp("ins");
  fs::remove(d / "feito");
  {
    std::ofstream f(d / "InsCmp");
    f << "#!/bin/sh\nsleep 0.3\ntouch \"$(dirname \"$0\")/feito\"\n";
  }
  fs::permissions(d / "InsCmp", fs::perms::owner_all);
  prc.DirExe = TxP(d);
  int16_t st = -9;
  CmpInsExe(prc, st);
  EXPECT_EQ(st, 1);
  EXPECT_TRUE(fs::exists(d / "feito"));

  prc.DirExe = TxP(DirTmp("sem-ins"));
  CmpInsExe(prc, st);
  EXPECT_EQ(st, 0);
}

// Every failed attempt's reason goes to the diagnostic trace, numbered, and the
// last one is kept for the run's end; with the trace off nothing is written.
TEST(WizExeTnt, EachFailureToTheTraceTheLastKept) {
  tst::QtApp();
  fs::path d = DirTmp("tnt");
  // A check box a million million pixels wide: its group (line 8) fails every build.
  std::ofstream(d / "w.par") << "#DEF - D\n[DimX]=300\n[DimY]=200\n##\n#PAG - U\n[IDE]=UM\n##\n"
                                "#CMP - C\n[Tip]=CKB\n[Ide]=ck\n[Pos]=10, 10\n[Dim]=1e12, 20\n##\n";
  tZunWizPrc prc;
  prc.Dir.Fpa = TxP(d / "w.par");
  prc.Dir.DirPgm = TxP(d);
  Var slot;
  int16_t st = -9;
  TrcDef(true);
  testing::internal::CaptureStderr();
  WizExeTnt(prc, slot, st);
  WizExeTnt(prc, slot, st);
  const std::string err = testing::internal::GetCapturedStderr();
  TrcDef(false);
  EXPECT_EQ(st, 0);
  EXPECT_FALSE(WizFrmDe(slot));
  const std::string why = ": Overflow (option file line 8)\n";
  EXPECT_NE(err.find("ZunWiz: attempt 1" + why), std::string::npos) << err;
  EXPECT_NE(err.find("ZunWiz: attempt 2" + why), std::string::npos) << err;
  EXPECT_EQ(prc.Err.des, u"Overflow");
  EXPECT_EQ(prc.Err.lin, 8);

  testing::internal::CaptureStderr();
  WizExeTnt(prc, slot, st);
  EXPECT_EQ(testing::internal::GetCapturedStderr().find("ZunWiz: attempt"), std::string::npos);
  EXPECT_EQ(prc.TntNum, 3);
  prc.Sup.reset();
}
