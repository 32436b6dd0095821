// Reading a wizard: groups in file order with a calculation after each, the "DEF"
// keys and their normalisations, zones and points as script assignments, and what
// makes an attempt fail as a whole.
#include "WizFak.h"

namespace zw::tst {
namespace {

const char* kDef =
    "#DEF - D\n"
    "[TitWiz]=Instalação\n"
    "[DimX]=500\n"
    "[DimY]=380\n"
    "##\n";

TEST_F(WizTst, LaterGroupsPutEarlierLinesRightOnTheNextPass) {
  Ini(std::string(kDef) +
      "#ZON - Z\n"
      "[ZA]=Margem(), 10, xMax-Margem(), yMax\n"
      "[ZB]=1, 2\n"
      "##\n"
      "#PON - P\n"
      "[PA]=PB_X+1, Dobro(PB_Y)\n"
      "[PB]=ZA_X1*2, 7\n"
      "##\n"
      "#VAR - V\n"
      "[N]=1, 2\n"
      "[M]=PA_X\n"
      "##\n"
      "#VBS:ZTX - Programa\n"
      "Function Margem()\n"
      "  Margem = 16\n"
      "End Function\n"
      "Function Dobro(n)\n"
      "  Dobro = n * 2\n"
      "End Function\n"
      "##\n"
      "#PAG - Um\n"
      "[IDE]=UM\n"
      "##\n");
  // Functions of the later "VBS" group reach the zones from the pass after it.
  EXPECT_EQ(Ev(u"ZA_X1 & \",\" & ZA_Y1 & \",\" & ZA_X2 & \",\" & ZA_Y2"), u"16,10,484,380");
  // A point that uses a later point of its own group is right a pass later.
  EXPECT_EQ(Ev(u"PA_X & \",\" & PA_Y & \",\" & M"), u"33,14,33");
  // Missing pieces and a comma in a variable make statements the engine refuses.
  EXPECT_EQ(Ev(u"IsEmpty(ZB_X2) & IsEmpty(ZB_Y2) & IsEmpty(N) & ZB_Y1"), u"TrueTrueTrue2");
  EXPECT_EQ(Ev(u"xMax & \"x\" & yMax"), u"500x380");
  EXPECT_EQ(sup->ZpoNum(), 6);
  EXPECT_EQ(sup->Zpo(1).Ide, u"ZA");
  EXPECT_EQ(sup->Zpo(1).Tip, u"Z");
  EXPECT_EQ(sup->Zpo(1).Tx5, u"");
}

TEST_F(WizTst, DefKeysAndTheWindow) {
  std::ofstream(dir / "fundo.bmp") << "x";
  Ini("#DEF - D\n"
      "Titulo [TitWiz]=Instalação\n"
      "[ImgFun]=[DIRPGM]/fundo.bmp\n"
      "[ImgIco]=[Nada]/wiz.ico\n"
      "[DimX]=500\n"
      "[DimY]=380\n"
      "[TamFix]=x\n"
      "[ZonX]=AUTO\n"
      "[BotSy]=AUTO\n"
      "[BasPy]=3\n"
      "[BotFon]=Arial\n"
      "[TraPosAnt]=1, 2\n"
      "[MsgCan]=Sair ?\n"
      "##\n"
      "#XPTO - Desconhecido\n"
      "[A]=1\n"
      "##\n"
      "#PAG - Um\n"
      "[IDE]=UM\n"
      "##\n");
  const tWizDef& d = sup->Def();
  EXPECT_EQ(d.TitWiz, u"Instalação");
  EXPECT_EQ(d.ImgFun, TxDeUtf8(dir.string()) + u"/fundo.bmp");
  EXPECT_EQ(d.ImgIco, u"/wiz.ico");  // an unknown bracket word is nothing, the rest stays
  EXPECT_EQ(d.MsgCan, u"Sair ?");
  EXPECT_EQ(NuDbl(d.DimX), 7500);
  EXPECT_EQ(NuDbl(d.DimY), 5700);
  auto l = frm->log;
  std::vector<Tx> w(l.begin(), l.begin() + 5);
  EXPECT_EQ(w, (std::vector<Tx>{u"Caption=Instalação", u"Picture=" + d.ImgFun, u"Icon=/wiz.ico", u"Width=7500",
                                u"Height=5700"}));
  EXPECT_EQ(Pags(), u"1 UM");
}

TEST_F(WizTst, ScriptSeesTheProcessFoldersAfterItsGroup) {
  Ini(std::string(kDef) +
      "#VBS:TX - P\n"
      "Dim x\n"
      "##\n"
      "#PAG - Um\n"
      "[IDE]=UM\n"
      "##\n");
  EXPECT_EQ(Ev(u"WizFpa"), fpa);
  EXPECT_EQ(Ev(u"DirPgm"), TxDeUtf8(dir.string()));
  EXPECT_EQ(Ev(u"TypeName(DirBas)"), u"String");
}

TEST_F(WizTst, AutoSizeOfTheWindowFailsTheAttempt) {
  fpa = Par("#DEF - D\n[DimX]=AUTO\n##\n#PAG - Um\n##\n");
  Frm();
  EXPECT_THROW(sup->WizIni(fpa), std::exception);
}

TEST_F(WizTst, NoPageEndsTheProcessBeforeTheWindowShows) {
  fpa = Par(std::string(kDef));
  Frm();
  EXPECT_THROW(sup->WizIni(fpa), FimPrc);
  EXPECT_TRUE(Log(u"page").empty());
}

TEST_F(WizTst, ComponentTextTakesAnOptionOnlyWhenItStandsFirst) {
  Ini(std::string(kDef) +
      "#PAG - Um\n[IDE]=UM\n##\n"
      "#CMP - a\n[Tip]=LAB\n[Ide]=a\n[Txt]=[TitWiz]\n##\n"
      "#CMP - b\n[Tip]=LAB\n[Ide]=b\n[Txt]=[TitWiz] perdido\n##\n"
      "#CMP - c\n[Tip]=LAB\n[Ide]=c\n[Txt]=Ver [TitWiz]\n##\n"
      "#CMP - d\n[Tip]=LAB\n[Ide]=d\n[Txt]=[Nada] fica\n##\n");
  EXPECT_EQ(sup->Cmp(1).Txt, u"Instalação");
  EXPECT_EQ(sup->Cmp(2).Txt, u"Instalação");  // the text right of the pair is lost
  EXPECT_EQ(sup->Cmp(3).Txt, u"Ver [TitWiz]");
  EXPECT_EQ(sup->Cmp(4).Txt, u"[Nada] fica");
}

TEST_F(WizTst, ASecondAttemptAppendsToTheTables) {
  std::string f = std::string(kDef) +
                  "#ZON - Z\n[ZA]=1, 2, 3, 4\n##\n"
                  "#PAG - Um\n[IDE]=UM\n##\n"
                  "#CMP - a\n[Tip]=LAB\n[Ide]=LaA\n##\n"
                  "#PAG - Dois\n[IDE]=DOIS\n##\n";
  Ini(f);
  EXPECT_EQ(sup->PagNum(), 2);
  Ini(f);
  EXPECT_EQ(sup->ZpoNum(), 2);
  EXPECT_EQ(sup->PagNum(), 4);
  EXPECT_EQ(sup->CmpNum(), 2);
  EXPECT_EQ(sup->Pag(3).CmpIni, 2);
  EXPECT_EQ(sup->Pag(3).CmpFim, 2);
  // Page 1 is the first attempt's; its component lives on the new window too.
  EXPECT_EQ(Pags(), u"1 UM");
  ASSERT_NE(frm->C(CtlArr::Lab, 1), nullptr);
  EXPECT_TRUE(frm->C(CtlArr::Lab, 1)->Vis());
  EXPECT_FALSE(frm->C(CtlArr::Lab, 2)->Vis());
}

}  // namespace
}  // namespace zw::tst
