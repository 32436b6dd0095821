// The diagnostic trace of steps passed over: a click whose steps fail goes on as it
// always did, and with the trace on each failure leaves one line that names the
// step and its reason; with it off, nothing is written.
#include "Trc.h"
#include "WizFak.h"

namespace zw::tst {
namespace {

// "< Anterior" on B asks a function that answers no page number; entering B sets
// B's buttons (the test takes the caption away from "< Anterior") and changes a
// component that does not exist.
const char* kFal =
    "#DEF - D\n[DimX]=500\n[DimY]=380\n##\n"
    "#PON - P\n[AUT_TraPosSeg]=xMax-100, yMax-30\n##\n"
    "#VBS:ZTX - P\n"
    "Dim Rasto\n"
    "Function Txt(n)\n Rasto = Rasto & \"txt\" & n & \";\"\n Txt = \"abc\"\nEnd Function\n"
    "Sub EntB\n Rasto = Rasto & \"+B\" & Wiz.CmpVarAlt(\"Nada\", \"TXT\", \"x\") & \";\"\nEnd Sub\n"
    "##\n"
    "#PAG - A\n[IDE]=A\n##\n"
    "#TRA - t\n[IDE]=SEG\n[DES]=SEG!\n[TRATIP]=\n##\n"
    "#PAG - B\n[IDE]=B\n[FxPagEnt]=EntB\n##\n"
    "#TRA - t\n[IDE]=ANT\n[DES]=ANT!\n[TRATIP]=FX\n[TRAFX]=Txt\n##\n"
    "#PAG - C\n[IDE]=C\n##\n";

struct WizTrcTst : WizTst {
  void TearDown() override {
    TrcDef(false);
    WizTst::TearDown();
  }
  // Two clicks on a fresh wizard with the trace on or off: what the wizard did
  // (pages, script state, window log) and what went to stderr.
  Tx Corre(bool on, Tx& err) {
    sup = std::make_unique<SupWiz>();
    TrcDef(on);
    Ini(kFal);
    frm->B(u"cmAnt")->prps.erase(u"Caption");
    ::testing::internal::CaptureStderr();
    sup->TraSeg();
    sup->TraAnt();
    err = TxDeUtf8(::testing::internal::GetCapturedStderr());
    Tx r = Pags() + u"|" + Ev(u"Rasto") + u"|" + TxAsc(std::to_string(sup->PagAct())) + u"|";
    for (const Tx& l : frm->log) r += l + u";";
    return r;
  }
};

TEST_F(WizTrcTst, FailingStepsAreTracedWithTheirReasonAndChangeNothing) {
  Tx errOff, errOn;
  const Tx off = Corre(false, errOff);
  const Tx on = Corre(true, errOn);
  EXPECT_EQ(on, off);
  EXPECT_EQ(errOff, u"");
  // The click went on past each failure: B entered, then entered again after the
  // function's answer failed as a page number.
  EXPECT_TRUE(off.starts_with(u"1 A,2 B,2 B|+B0;txt2;+B0;|2|")) << TxUtf8(off);
  const Tx esperado[] = {
      u"SupWiz: CmpVarAlt \"Nada\" TXT: no such control\n",
      u"SupWiz: PagVer 2: control error 438\n",
      u"SupWiz: TraFx \"Txt\": Type mismatch\n",
  };
  size_t pos = 0;
  for (const Tx& l : esperado) {
    size_t p = errOn.find(l, pos);
    EXPECT_NE(p, Tx::npos) << TxUtf8(l) << " in order in:\n" << TxUtf8(errOn);
    if (p != Tx::npos) pos = p + l.size();
  }
}

}  // namespace
}  // namespace zw::tst
