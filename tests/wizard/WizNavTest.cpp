// Navigation: the asymmetry of going back and forward, the history, the order of
// script calls at a change, the buttons each page sets, and failures passed over.
// The ends of a wizard and the other kinds of each button run end to end in
// tests/wizard/cases.
#include "WizFak.h"

namespace zw::tst {
namespace {

// Four pages A..D. Every script call appends to the script variable "Rasto".
const char* kPags =
    "#DEF - D\n[DimX]=500\n[DimY]=380\n[MsgCan]=Sair ?\n##\n"
    "#PON - P\n[AUT_TraPosSeg]=xMax-100, yMax-30\n##\n"
    "#VBS:ZTX - P\n"
    "Dim Rasto\n"
    "Sub R(t)\n  Rasto = Rasto & t & \";\"\nEnd Sub\n"
    "Sub EntA\n R \"+A\"\nEnd Sub\n"
    "Sub SaiA\n R \"-A\"\nEnd Sub\n"
    "Sub EntB\n R \"+B\"\nEnd Sub\n"
    "Sub SaiB\n R \"-B\"\nEnd Sub\n"
    "Sub EntC\n R \"+C\"\nEnd Sub\n"
    "Sub SaiC\n R \"-C\"\nEnd Sub\n"
    "Function ParaC(n)\n R \"fx\" & n\n ParaC = \"c\"\nEnd Function\n"
    "Function Volta(n)\n R \"volta\" & n\n Volta = n - 1\nEnd Function\n"
    "Function Um(n)\n R \"um\"\n Um = \"1\"\nEnd Function\n"
    "Sub Faz\n R \"faz\"\nEnd Sub\n"
    "Sub FxFim\n R \"fim\"\nEnd Sub\n"
    "##\n"
    "#PAG - A\n[IDE]=A\n[FxPagEnt]=EntA\n[FxPagSai]=SaiA\n##\n"
    "#PAG - B\n[IDE]=B\n[FxPagEnt]=EntB\n[FxPagSai]=SaiB\n##\n"
    "#PAG - C\n[IDE]=C\n[FxPagEnt]=EntC\n[FxPagSai]=SaiC\n##\n"
    "#PAG - D\n[IDE]=D\n##\n";

// Transitions of page A (appended after kPags' page D they would land on D, so the
// tests put their own groups in the right place with this helper).
std::string ComTra(const std::string& traA, const std::string& traC = "") {
  std::string s = kPags;
  size_t b = s.find("#PAG - B");
  s.insert(b, traA);
  size_t d = s.find("#PAG - D");
  s.insert(d, traC);
  return s;
}

std::string Tra(const char* ide, const char* tip = "", const char* pag = "", const char* fx = "",
                const char* extra = "") {
  return std::string("#TRA - t\n[IDE]=") + ide + "\n[DES]=" + ide + "!\n[TRATIP]=" + tip + "\n[TRAPAG]=" + pag +
         "\n[TRAFX]=" + fx + "\n" + extra + "##\n";
}

TEST_F(WizTst, SegGoesByIdentifierFromItsFunctionAndRunsCallsInOrder) {
  Ini(ComTra(Tra("SEG", "Fx", "", "ParaC")));  // the kind in small letters works
  EXPECT_EQ(Ev(u"Rasto"), u"+A;");
  sup->TraSeg();
  EXPECT_EQ(Pags(), u"1 A,3 C");
  EXPECT_EQ(Ev(u"Rasto"), u"+A;fx1;-A;+C;");
  EXPECT_EQ(sup->PagLst(), (std::vector<int16_t>{0, 1, 3}));
}

TEST_F(WizTst, AntGoesByNumberFromItsFunction) {
  Ini(ComTra(Tra("SEG", "PAG", "c"), Tra("ANT", "FX", "", "Volta")));
  sup->TraSeg();
  sup->TraAnt();  // Volta(3) answers 2: a number, page B
  EXPECT_EQ(Pags(), u"1 A,3 C,2 B");
  EXPECT_EQ(Ev(u"Rasto"), u"+A;-A;+C;volta3;-C;+B;");
}

TEST_F(WizTst, AFunctionGivesANumberToSegOrAnIdentifierToAntAndTheProcessEnds) {
  // "Um" answers "1": as an identifier it names no page.
  Ini(ComTra(Tra("SEG", "FX", "", "Um")));
  EXPECT_THROW(sup->TraSeg(), FimPrc);
  EXPECT_EQ(Ev(u"Rasto"), u"+A;um;-A;");  // the old page was left, nothing entered
}

TEST_F(WizTst, HistoryGoesBackOverJumpsAndDoesNotRepeatAPage) {
  Ini(ComTra(Tra("SEG", "PAG", "C"), Tra("CNF", "PAG", "c")));
  sup->TraSeg();
  EXPECT_EQ(sup->PagLst(), (std::vector<int16_t>{0, 1, 3}));
  sup->TraCnf();  // C to C: entered twice, pushed once
  EXPECT_EQ(sup->PagLst(), (std::vector<int16_t>{0, 1, 3}));
  sup->TraAnt();  // default: back in history, to A
  EXPECT_EQ(sup->PagLst(), (std::vector<int16_t>{0, 1}));
  EXPECT_EQ(Pags(), u"1 A,3 C,3 C,1 A");
  EXPECT_EQ(Ev(u"Rasto"), u"+A;-A;+C;-C;+C;-C;+A;");
  // Back from the first visit: no page, the process ends after leaving A.
  EXPECT_THROW(sup->TraAnt(), FimPrc);
  EXPECT_EQ(Ev(u"Right(Rasto, 3)"), u"-A;");
}

TEST_F(WizTst, ButtonsTakeCaptionPlaceAndSituationFromEachPage) {
  Ini(ComTra(Tra("SEG") + Tra("ant", "", "", "", "[SIT]=DES\n") + Tra("CNF", "", "", "", "[POS]=10, 20\n"),
             Tra("SEG", "", "", "", "[SIT]=VER,ACT\n")));
  auto* ant = frm->B(u"cmAnt");
  auto* seg = frm->B(u"cmSeg");
  auto* cnf = frm->B(u"cmCnf");
  auto* can = frm->B(u"cmCan");
  // "ant" in small letters fills slot 1 but finds no point: it stands at 0, 0.
  EXPECT_TRUE(ant->Vis());
  EXPECT_FALSE(ant->Ena());
  EXPECT_EQ(ant->Txt(), u"ant!");
  EXPECT_EQ(TxVar(ant->val[u"Left"]), u"0");
  // "SEG" without "POS" stands at its point, calculated in twips.
  EXPECT_EQ(TxVar(seg->val[u"Left"]), u"6000");
  EXPECT_EQ(TxVar(seg->val[u"Top"]), u"5250");
  EXPECT_EQ(TxVar(cnf->val[u"Left"]), u"150");
  EXPECT_EQ(TxVar(cnf->val[u"Top"]), u"300");
  EXPECT_FALSE(can->Vis());  // no transition: hidden
  sup->TraSeg();
  // B defines no button: all hidden; the disabled state of cmAnt stays.
  EXPECT_FALSE(ant->Vis() || seg->Vis() || cnf->Vis() || can->Vis());
  EXPECT_FALSE(ant->Ena());
  sup->TraSeg();
  EXPECT_TRUE(seg->Vis());
  EXPECT_EQ(seg->Txt(), u"SEG!");
}

TEST_F(WizTst, ALaterTransitionOfTheSameButtonReplacesTheEarlier) {
  Ini(ComTra(Tra("SEG", "PAG", "D") + Tra("SEG", "PAG", "C") + Tra("XYZ", "PAG", "B")));
  sup->TraSeg();
  EXPECT_EQ(Pags(), u"1 A,3 C");
}

TEST_F(WizTst, AFailureInsideAPageEntryLeavesThePageAsFarAsItGot) {
  std::string f = kPags;
  f.insert(f.find("#PAG - C"), Tra("SEG") + "#CMP - x\n[Tip]=LAB\n[Ide]=LaX\n##\n");
  Ini(f);
  frm->B(u"cmSeg")->prps.erase(u"Caption");  // setting B's button fails
  EXPECT_NO_THROW(sup->TraSeg());
  EXPECT_EQ(Pags(), u"1 A,2 B");
  EXPECT_EQ(Ev(u"Rasto"), u"+A;-A;+B;");
  EXPECT_FALSE(frm->C(CtlArr::Lab, 1)->Vis());  // its components were never shown
  sup->TraSeg();  // the default of B still works
  EXPECT_EQ(Pags(), u"1 A,2 B,3 C");
}

// After a jump to no page the current page is outside the table: "< Anterior" and
// "Seguinte >", which change page whatever their kind, still try to leave and
// enter; "Confirmar" and "Cancelar" find no transition and do nothing.
TEST_F(WizTst, OutsideTheTableOnlyTheButtonsThatAlwaysChangePageAct) {
  Ini(ComTra(Tra("SEG", "PAG", "nada") + Tra("CNF", "PAG", "B") + Tra("CAN")));
  EXPECT_THROW(sup->TraSeg(), FimPrc);
  EXPECT_EQ(sup->PagAct(), -1);
  size_t n = frm->log.size();
  sup->TraCnf();
  sup->TraCan();
  EXPECT_EQ(frm->log.size(), n);  // no box, no unload, no page
  EXPECT_THROW(sup->TraAnt(), FimPrc);
  EXPECT_EQ(frm->log.back(), u"End");
  EXPECT_EQ(Ev(u"Rasto"), u"+A;-A;");
}

}  // namespace
}  // namespace zw::tst
