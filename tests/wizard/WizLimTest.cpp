// Limits of a wizard's work: texts of controls cut, a calculation whose text grows
// at every pass stopped, and look-ups by identifier that find the first of a name.
#include "FicLer.h"
#include "WizFak.h"

namespace zw::tst {
namespace {

const char* kDef =
    "#DEF - D\n"
    "[DimX]=500\n"
    "[DimY]=380\n"
    "##\n";

// The notes of cut texts and the script errors the host passes over, while it lives.
struct WizLerLim : WizTst {
  std::vector<Tx> notas;
  std::vector<VbsTrcReg> erros;
  void SetUp() override {
    WizTst::SetUp();
    LimTrcDef([this](const Tx& n) { notas.push_back(n); });
    VbsTrcSaiDef([this](const VbsTrcReg& r) { erros.push_back(r); });
  }
  void TearDown() override {
    LimTrcDef(nullptr);
    VbsTrcSaiDef(nullptr);
    WizTst::TearDown();
  }
};

TEST_F(WizLerLim, ControlTextsAreCutAtTheLimitAndTheCutIsTold) {
  std::string longo(kCmpTxMax + 10, 'a');
  Ini(std::string(kDef) + "#PAG - Um\n[IDE]=UM\n##\n" +
      "#CMP - a\n[Tip]=LAB\n[Ide]=La\n[Txt]=" + longo + "\n##\n" +
      "#CMP - b\n[Tip]=CKB\n[Ide]=Ck\n[Txt]=curto\n##\n" +
      "#CMP - c\n[Tip]=RTF\n[Ide]=Rt\n[Txt]=" + longo + "\n##\n" +
      "#VBS:ZTX - P\nSub Muda()\n  Wiz.CmpVarAlt \"Ck\", \"TXT\", String(100000, \"b\")\nEnd Sub\n##\n");
  EXPECT_EQ(frm->C(CtlArr::Lab, 1)->Txt().size(), kCmpTxMax);
  EXPECT_EQ(frm->C(CtlArr::Ckb, 2)->Txt(), u"curto");
  EXPECT_EQ(frm->C(CtlArr::Rtf, 3)->Txt(u"Text").size(), kCmpTxMax);
  ASSERT_EQ(notas.size(), 2u);
  EXPECT_EQ(notas[0], u"cut text of component \"La\" (line 13) at 65536 characters");
  // A script's text for a control is cut the same way.
  std::vector<Var> l{Var(Tx(u"Muda"))};
  Var r;
  sup->VbsExe(l, r);
  EXPECT_EQ(frm->C(CtlArr::Ckb, 2)->Txt().size(), kCmpTxMax);
  EXPECT_EQ(notas.size(), 3u);
}

TEST_F(WizLerLim, AVariableThatDoublesAtEveryPassIsEmptiedAtTheLimit) {
  // 40 groups: unchecked, the text would reach 2^40 characters.
  std::string f = std::string(kDef) + "#VAR - V\n[S]=S & S & \"ab\"\n##\n";
  for (int i = 0; i < 40; i++) f += "#PAG - P\n[IDE]=P" + std::to_string(i) + "\n##\n";
  Ini(f);
  EXPECT_LE(Ev(u"Len(S)").size(), 7u);  // at most a million characters or so
  bool achou = false;
  for (const VbsTrcReg& e : erros)
    if (e.num == 14 && e.des == u"Out of string space" && e.call == u"ExeCmd \"S=S & S & \"ab\"\"") achou = true;
  EXPECT_TRUE(achou);
  // A statement the host runs alone is refused the same way, with the flag 0.
  int16_t ok = 1;
  sup->Vbs()->ExeCmd(u"T=String(1048577, \"x\")", ok);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(Ev(u"IsEmpty(T)"), u"True");
  sup->Vbs()->ExeCmd(u"T=String(1048576, \"x\")", ok);
  EXPECT_EQ(ok, 1);
  EXPECT_EQ(Ev(u"Len(T)"), u"1048576");
}

TEST_F(WizLerLim, LookUpsByIdentifierFindTheFirstOfANameTrimmedAndCaseBlind) {
  std::string f = std::string(kDef);
  for (int i = 1; i <= 3000; i++) f += "#PAG - P\n[IDE]=P" + std::to_string(i) + "\n##\n";
  f += "#PAG - d\n[IDE]= p7 \n##\n"
       "#TRA - s\n[IDE]=SEG\n[TRATIP]=PAG\n[TRAPAG]=P7\n##\n"
       "#CMP - a\n[Tip]=LAB\n[Ide]=Nome\n##\n"
       "#CMP - b\n[Tip]=LAB\n[Ide]= NOME \n##\n";
  Ini(f);
  EXPECT_EQ(sup->PagNum(), 3001);
  int16_t i = 0;
  sup->CmpIdx(u"nome", i);
  EXPECT_EQ(i, 1);
  sup->CmpIdx(u"outro", i);
  EXPECT_EQ(i, 0);
  Var r;
  sup->CmpVarAlt(Var(Tx(u"nome")), Var(Tx(u"TXT")), Var(Tx(u"x")), r);
  EXPECT_EQ(frm->C(CtlArr::Lab, 1)->Txt(), u"x");
  EXPECT_EQ(frm->C(CtlArr::Lab, 2)->Txt(), u"");
}

}  // namespace
}  // namespace zw::tst
