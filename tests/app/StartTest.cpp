// The start-up: where the option file is looked for, what its folder gives, and
// the order of the attempt loop.
#include <gtest/gtest.h>
#include <unistd.h>
#include <deque>
#include <filesystem>
#include <fstream>
#include <tuple>
#include "FicGlb.h"
#include "MsgDlg.h"
#include "ZunWizGlb.h"
#include "ZunWizMain.h"

using namespace zw;
namespace fs = std::filesystem;

namespace {

// A dialog service that records each box and answers from a queue (the default
// button when the queue is empty).
struct MsgGrava : MsgDlg {
  std::vector<std::tuple<int, Tx, Tx>> caixas;
  std::deque<int> resp;
  int bips = 0;
  int Caixa(int e, const Tx& t, const Tx& x) override {
    caixas.emplace_back(e, t, x);
    if (resp.empty()) return MsgRespOmissao(e);
    int r = resp.front();
    resp.pop_front();
    return r;
  }
  void Bip() override { bips++; }
  bool Entrada(const Tx&, const Tx&, const Tx&, Tx&) override { return false; }
};

// Installs a recording service for the life of a test.
struct ComGrava {
  MsgGrava g;
  ComGrava() { MsgDlgDef(&g); }
  ~ComGrava() { MsgDlgDef(nullptr); }
};

// A fresh folder under a temporary folder of this process's own, so that runs
// side by side on one machine do not share it.
fs::path DirTmp(const char* nome) {
  static const struct Raiz {
    fs::path p = fs::temp_directory_path() / ("zw-app-test-" + std::to_string(getpid()));
    ~Raiz() { fs::remove_all(p); }
  } raiz;
  fs::path d = raiz.p / nome;
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
  DirExe = TxP(d);
  Tx fpa;
  int16_t exi = -9;

  LinCmd = u"";
  WizFpaCon(fpa, exi);
  EXPECT_EQ(fpa, TxP(d) + u"\\ZunWiz.par");
  EXPECT_EQ(exi, 1);

  LinCmd = u"TITWIZ=x  -fp " + TxP(d / "outro.par") + u" K=v";
  WizFpaCon(fpa, exi);
  EXPECT_EQ(fpa, TxP(d / "outro.par"));
  EXPECT_EQ(exi, 1);

  LinCmd = u"-FP " + TxP(d / "my file.par");
  WizFpaCon(fpa, exi);
  EXPECT_EQ(fpa, TxP(d / "my"));
  EXPECT_EQ(exi, 1);

  LinCmd = u"-FP rel/none.par";
  WizFpaCon(fpa, exi);
  EXPECT_EQ(fpa, u"rel/none.par");
  EXPECT_NE(exi, 1);

  LinCmd = u"K=v -FP";
  WizFpaCon(fpa, exi);
  EXPECT_EQ(fpa, TxP(d) + u"\\ZunWiz.par");
}

// A file on a mapped drive: the folder, letter and drive that scripts see.
TEST(WizFpaPrp, PathsOfAnOptionFileOnADrive) {
  fs::path d = DirTmp("drv");
  fs::create_directories(d / "a");
  Cria(d / "a" / "b.par");
  FicDrvMap(u'X', TxP(d));
  LinCmd = u"-FP X:\\a\\b.par";
  WizFpaPrp();
  EXPECT_EQ(WizFpa, u"X:\\a\\b.par");
  EXPECT_EQ(DirPgm, u"X:\\a");
  EXPECT_EQ(LtrCd, u"X");
  EXPECT_EQ(DrvCd, u"X:");
  FicDrvMap(u'X', u"");

  // A path as this system writes it: the folder ends at the last "/".
  LinCmd = u"-FP " + TxP(d) + u"/a/b.par";
  WizFpaPrp();
  EXPECT_EQ(DirPgm, TxP(d) + u"/a");
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
  c.g.resp = {kAnsYes, kAnsNo};
  Var slot;
  EXPECT_EQ(WizTntCic(slot, l.Fx()), -1);
  EXPECT_EQ(l.log, u"TITIT");
  // Two questions (second and third failures), each the installer question.
  ASSERT_EQ(c.g.caixas.size(), 2u);
  auto [estilo, tit, txt] = c.g.caixas[0];
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
  EXPECT_TRUE(c.g.caixas.empty());

  Laco n;
  n.falhas = 2;
  n.insSt = 0;
  c.g.resp = {kAnsYes};
  EXPECT_EQ(WizTntCic(slot, n.Fx()), 1);
  EXPECT_EQ(n.log, u"TITIT");
  EXPECT_EQ(c.g.caixas.size(), 1u);
}

// The installer beside the executable is found without its ".exe", and the
// start-up waits for its end; a missing installer gives status 0.
TEST(CmpInsExe, RunsTheInstallerBesideTheExecutableAndWaits) {
  fs::path d = DirTmp("ins");
  fs::remove(d / "feito");
  {
    std::ofstream f(d / "InsCmp");
    f << "#!/bin/sh\nsleep 0.3\ntouch \"$(dirname \"$0\")/feito\"\n";
  }
  fs::permissions(d / "InsCmp", fs::perms::owner_all);
  DirExe = TxP(d);
  int16_t st = -9;
  CmpInsExe(st);
  EXPECT_EQ(st, 1);
  EXPECT_TRUE(fs::exists(d / "feito"));

  DirExe = TxP(DirTmp("sem-ins"));
  CmpInsExe(st);
  EXPECT_EQ(st, 0);
}
