// Components: how each kind's control is made from its record, situations at page
// entry, and the scripts' CmpVarAlt and CmpVarCon with each word.
#include "WizFak.h"

namespace zw::tst {
namespace {

const char* kBase =
    "#DEF - D\n[DimX]=500\n[DimY]=380\n##\n"
    "#ZON - Z\n[ZT]=10, 20, xMax-10, 60\n##\n"
    "#VBS:ZTX - P\n"
    "Sub Esconde\n  Wiz.CmpVarAlt \"LaT\", \"SIT\", \"INV\"\n  Wiz.CmpVarAlt \"LaT\", \"TXT\", \"Novo\"\nEnd Sub\n"
    "##\n"
    "#PAG - Um\n[IDE]=UM\n[FxPagEnt]=Esconde\n##\n"
    "#TRA - s\n[IDE]=SEG\n[DES]=Seguinte >\n##\n"
    "#CMP - t\n[Tip]=LAB\n[Ide]=LaT\n[Pos]=ZT_X1, ZT_Y1\n[Dim]=ZT_X2-ZT_X1, 0\n[Fon]=Arial, 12, bolditalic\n"
    "[Txt]=Título\n[Cor]=H0000FF\n[Aln]=centro\n##\n"
    "#CMP - c\n[Tip]=CKB\n[Ide]=ckA\n[Pos]=10, 80\n[Fon]=, 10, BOLD\n[Txt]=Aceito\n[Sit]=VER,DES\n##\n"
    "#CMP - r\n[Tip]=RTF\n[Ide]=rtA\n[Pos]=10, 100\n[Dim]=200, 50\n[Txt]=[[DIRPGM]/leiame.rtf]\n[Fun]=W255\n##\n"
    "#CMP - r2\n[Tip]=RTF\n[Ide]=rtB\n[Txt]=[[DIRPGM]/nada.rtf]\n##\n"
    "#PAG - Dois\n[IDE]=DOIS\n##\n"
    "#CMP - o\n[Tip]=OPC\n[Ide]=opA\n[Pos]=10, 20\n[Dim]=200, 100\n##\n"
    "#CMP - o1\n[Tip]=OPCTXT\n[Ide]=o1\n[Txt]=Típica\n[Adi]=T\n[Pos]=99, 99\n##\n"
    "#CMP - o2\n[Tip]=OPCTXT\n[Ide]=o2\n[Txt]=Completa\n[Adi]=C\n##\n"
    "#CMP - l2\n[Tip]=LAB\n[Ide]=LaD\n[Fon]=Courier\n##\n";

struct WizCmpTst : WizTst {
  void SetUp() override {
    WizTst::SetUp();
    std::ofstream(dir / "leiame.rtf") << "{\\rtf1 x}";
    Ini(kBase);
  }
  // What the log says of one control, in order, without its name.
  std::vector<Tx> De(const Tx& nome) {
    std::vector<Tx> r;
    for (auto& l : Log(nome + u".")) r.push_back(l.substr(nome.size() + 1));
    return r;
  }
  Tx Alt(const char16_t* args) { return Ev(Tx(u"Wiz.CmpVarAlt(") + args + u")"); }
};

TEST_F(WizCmpTst, LabelTakesItsPropertiesInTheOrderThatSizesIt) {
  auto l = De(u"laWiz(1)");
  std::vector<Tx> want{u"AutoSize=False", u"Width=7200", u"WordWrap=True", u"AutoSize=True", u"FontName=Arial",
                       u"FontSize=12", u"FontBold=True", u"FontItalic=True", u"Alignment=2", u"Caption=Título",
                       u"Left=150", u"Top=300", u"BackStyle=0", u"ForeColor=255", u"Visible=False"};
  ASSERT_GE(l.size(), want.size());
  EXPECT_EQ(std::vector<Tx>(l.begin(), l.begin() + long(want.size())), want);
  // A name alone sets the name only; no colour is -1, passed on as it is.
  auto d = De(u"laWiz(8)");
  EXPECT_EQ(std::vector<Tx>(d.begin(), d.begin() + 3),
            (std::vector<Tx>{u"AutoSize=True", u"FontName=Courier", u"Alignment=0"}));
  EXPECT_NE(std::find(d.begin(), d.end(), u"ForeColor=-1"), d.end());
}

TEST_F(WizCmpTst, CheckBoxRichTextAndOptionGroup) {
  // A style without a font name is not applied; a check box is transparent with 1.
  EXPECT_EQ(De(u"ckWiz(2)"), (std::vector<Tx>{u"Caption=Aceito", u"Left=150", u"Top=1200", u"BackStyle=1",
                                               u"ForeColor=-1", u"Visible=False", u"Visible=True", u"Enabled=False"}));
  auto r = De(u"rtfWiz(3)");
  std::vector<Tx> want{u"Width=3000", u"Text=", u"LoadFile(" + sup->Def().Dir.DirPgm + u"/leiame.rtf)", u"Left=150", u"Top=1500",
                       u"Height=750", u"BackColor=255", u"Visible=False"};
  EXPECT_EQ(std::vector<Tx>(r.begin(), r.begin() + long(want.size())), want);
  EXPECT_EQ(frm->C(CtlArr::Rtf, 4)->Txt(u"Text"), u"");  // a file that can't load: an empty box
  EXPECT_EQ(De(u"ZunOpc(5)"),
            (std::vector<Tx>{u"Left=150", u"Top=300", u"Width=3000", u"Height=1500", u"BackColor=-1",
                             u"ForeColor=-1", u"BorderVisible=False",
                             u"CorTip(N)", u"RegIni()", u"Visible=False", u"RegOpc(Típica,T)", u"RegAsp(300,0,0,+30)",
                             u"AjtPosY(0,0,1)", u"RegOpc(Completa,C)", u"RegAsp(300,0,0,+30)", u"AjtPosY(0,0,1)"}));
  // Indexes run over all pages: the label of page 2 is the eighth component.
  EXPECT_NE(frm->C(CtlArr::Lab, 8), nullptr);
  EXPECT_EQ(frm->C(CtlArr::Lab, 2), nullptr);
}

TEST_F(WizCmpTst, TheRecordsSituationOverridesTheEntryScript) {
  auto* t = frm->C(CtlArr::Lab, 1);
  EXPECT_TRUE(t->Vis());  // "Esconde" hid it, the record's empty Sit ("VER") shows it
  EXPECT_EQ(t->Txt(), u"Novo");  // the text the script set stays
  auto* c = frm->C(CtlArr::Ckb, 2);
  EXPECT_TRUE(c->Vis());
  EXPECT_FALSE(c->Ena());
  sup->TraSeg();
  EXPECT_FALSE(t->Vis() || c->Vis());
  EXPECT_TRUE(frm->C(CtlArr::Opc, 5)->Vis());
  EXPECT_TRUE(frm->C(CtlArr::Lab, 8)->Vis());
}

TEST_F(WizCmpTst, CmpVarAltByEachWord) {
  auto* t = frm->C(CtlArr::Lab, 1);
  EXPECT_EQ(Alt(u"\"lat\", \"POS\", \"20, 30\""), u"1");  // names are case-blind
  EXPECT_EQ(TxVar(t->val[u"Left"]) + u"," + TxVar(t->val[u"Top"]), u"300,450");
  EXPECT_EQ(Alt(u"\"LaT\", \"DIM\", \"0, 40\""), u"1");
  EXPECT_EQ(TxVar(t->val[u"Height"]), u"600");
  EXPECT_EQ(Alt(u"\"LaT\", \"FON\", \"Verdana, 9, ITALIC\""), u"1");
  EXPECT_EQ(TxVar(t->val[u"FontName"]) + TxVar(t->val[u"FontSize"]), u"Verdana9");
  EXPECT_EQ(Alt(u"\"LaT\", \"FON\", \"Verdana\""), u"0");  // size -1 is refused
  EXPECT_EQ(Alt(u"\"LaT\", \"TXT\", \"Outro\""), u"1");
  EXPECT_EQ(t->Txt(), u"Outro");
  EXPECT_EQ(Alt(u"\"LaT\", \"txt\", \"x\""), u"1");  // words are exact: nothing happens
  EXPECT_EQ(t->Txt(), u"Outro");
  EXPECT_EQ(Alt(u"\"LaT\", \"SIT\", \"INV,DES\""), u"1");
  EXPECT_FALSE(t->Vis() || t->Ena());
  // "COR" and "ALN" never reach a label.
  EXPECT_EQ(Alt(u"\"LaT\", \"COR\", \"W255\""), u"0");
  EXPECT_EQ(Alt(u"\"LaT\", \"ALN\", \"DIREITA\""), u"0");
  EXPECT_EQ(TxVar(t->val[u"Alignment"]), u"2");
  EXPECT_EQ(Alt(u"\"ckA\", \"CHK\", 1"), u"1");
  EXPECT_EQ(TxVar(frm->C(CtlArr::Ckb, 2)->val[u"Value"]), u"1");
  EXPECT_EQ(Alt(u"\"rtA\", \"TXT\", \"x\""), u"0");  // a rich-text box has no caption
  EXPECT_EQ(Alt(u"\"Nada\", \"TXT\", \"x\""), u"0");
  EXPECT_EQ(Alt(u"\"o1\", \"TXT\", \"x\""), u"0");  // an option has no control
  // The buttons by their exact names only.
  EXPECT_EQ(Alt(u"\"cmSeg\", \"TXT\", \"Vamos\""), u"1");
  EXPECT_EQ(frm->B(u"cmSeg")->Txt(), u"Vamos");
  EXPECT_EQ(Alt(u"\"CMSEG\", \"TXT\", \"x\""), u"0");
}

TEST_F(WizTst, AnOptionBeforeAnyGroupFailsTheAttempt) {
  fpa = Par("#DEF - D\n[DimX]=500\n[DimY]=380\n##\n#PAG - Um\n##\n#CMP - o\n[Tip]=OPCTXT\n[Txt]=x\n##\n");
  Frm();
  EXPECT_THROW(sup->WizIni(fpa), std::exception);
}

}  // namespace
}  // namespace zw::tst
