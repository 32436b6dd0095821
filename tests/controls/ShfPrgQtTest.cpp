// The progress window of file operations: its title, and a Cancel that stops a run.
#include <gtest/gtest.h>
#include <QProgressDialog>
#include "CtlTst.h"
#include "ShfPrgQt.h"
#include "SupShf.h"
#include "TstTmp.h"
#include "TxQt.h"

using namespace zw;

TEST(ShfPrgQt, TitleStepsAndCancel) {
  tst::QtApp();
  ShfPrgQt p;
  p.Ini(u"Instalação", kShfCop, 3, int64_t(5) << 32);  // more bytes than an int holds
  ASSERT_NE(p.Dlg(), nullptr);
  EXPECT_EQ(TxQs(p.Dlg()->windowTitle()), u"Instalação");
  EXPECT_TRUE(p.Passo(u"a", u"b", 1, int64_t(4) << 32));
  EXPECT_GT(p.Dlg()->value(), p.Dlg()->maximum() / 2);
  p.Dlg()->cancel();
  EXPECT_FALSE(p.Passo(u"a", u"b", 2, int64_t(5) << 32));
  p.Fim(false);
  EXPECT_EQ(p.Dlg(), nullptr);
}

// A run whose window is cancelled answers 0 and leaves the earlier file whole.
TEST(ShfPrgQt, CancelledCopyAnswersZero) {
  tst::QtApp();
  std::string d = tst::PastaTmp();
  tst::Escreve(d + "/o.txt", "novo");
  tst::Escreve(d + "/d.txt", "velho");
  struct Cancela : ShfPrgQt {
    bool Passo(const Tx& o, const Tx& d, int64_t i, int64_t b) override {
      Dlg()->cancel();
      return ShfPrgQt::Passo(o, d, i, b);
    }
  } p;
  ShfPrgDef(&p);
  SupShf s;
  s.AspExe(1, 0);
  int r = 1;
  s.FxCop(TxDeUtf8(d + "/o.txt"), TxDeUtf8(d + "/d.txt"), r);
  ShfPrgDef(nullptr);
  EXPECT_EQ(r, 0);
  EXPECT_TRUE(s.Abortado());
  EXPECT_EQ(tst::Le(d + "/d.txt"), "velho");
}
