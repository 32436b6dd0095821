// The run without a person: how answer lines are read, how boxes and input boxes
// are answered and traced, how an entered page is traced with its controls, and
// how answers that do not fit end the process.
#include <gtest/gtest.h>
#include <QDir>
#include <QImage>
#include <QPushButton>
#include <cstdio>
#include <sstream>
#include "GlbMsg.h"
#include "MsgDlg.h"
#include "QtApp.h"
#include "TxQt.h"
#include "VbsSup.h"
#include "ZunWizAsp.h"
#include "ZunWizRun.h"

using namespace zw;

namespace {

// A run in force over the given answers, its trace kept in memory; the dialog
// service and the window hooks are put back at the end.
struct RunTeste {
  std::istringstream rsp;
  std::FILE* trc = std::tmpfile();
  explicit RunTeste(const std::string& ans, const Tx& fotos = Tx()) : rsp(ans) {
    RunOpc o;
    o.rsp = &rsp;
    o.trc = trc;
    o.fotos = fotos;
    ZunWizRunIni(o);
  }
  ~RunTeste() {
    MsgDlgDef(nullptr);
    AspGanAct() = AspGan();
    VbsTmpSaiDef(nullptr);
    VbsTmpDef(-1);
    std::fclose(trc);
  }
  std::string Trace() {
    std::fflush(trc);
    std::rewind(trc);
    std::string s;
    char b[512];
    size_t n;
    while ((n = std::fread(b, 1, sizeof b, trc)) > 0) s.append(b, n);
    return s;
  }
};

}  // namespace

TEST(RunRsp, ReadsEachKindOfAnswerAndRefusesTheRest) {
  RunRsp r;
  Tx erro;
  EXPECT_FALSE(RunRspLer(u"", r, erro));
  EXPECT_FALSE(RunRspLer(u"   \t", r, erro));
  EXPECT_FALSE(RunRspLer(u"# SEG", r, erro));
  EXPECT_FALSE(RunRspLer(u"  #comment", r, erro));

  ASSERT_TRUE(RunRspLer(u"seg\r", r, erro));
  EXPECT_TRUE(erro.empty());
  EXPECT_EQ(r.k, RunRsp::K::Btn);
  EXPECT_EQ(r.nome, u"cmSeg");
  ASSERT_TRUE(RunRspLer(u"  Can", r, erro));
  EXPECT_EQ(r.nome, u"cmCan");
  ASSERT_TRUE(RunRspLer(u"close", r, erro));
  EXPECT_EQ(r.k, RunRsp::K::Close);
  ASSERT_TRUE(RunRspLer(u"Box -1", r, erro));
  EXPECT_EQ(r.k, RunRsp::K::Box);
  EXPECT_EQ(r.num, -1);
  // The input text is the rest of the line, blanks inside and at the end kept.
  ASSERT_TRUE(RunRspLer(u"INPUT  C:\\Programas  x ", r, erro));
  EXPECT_EQ(r.k, RunRsp::K::Input);
  EXPECT_FALSE(r.can);
  EXPECT_EQ(r.tx, u" C:\\Programas  x ");
  ASSERT_TRUE(RunRspLer(u"input", r, erro));
  EXPECT_TRUE(r.can);
  ASSERT_TRUE(RunRspLer(u"CHECK ckLicenca 1", r, erro));
  EXPECT_EQ(r.k, RunRsp::K::Check);
  EXPECT_EQ(r.nome, u"ckLicenca");
  EXPECT_EQ(r.num, 1);
  ASSERT_TRUE(RunRspLer(u"option OpTipo 3", r, erro));
  EXPECT_EQ(r.k, RunRsp::K::Option);
  EXPECT_EQ(r.num, 3);

  // "help" and "?" ask for the answers that fit; a terminal takes them.
  for (const char16_t* aj : {u"help", u"?", u" HELP "}) {
    ASSERT_TRUE(RunRspLer(aj, r, erro)) << TxUtf8(aj);
    EXPECT_EQ(r.k, RunRsp::K::Ajuda) << TxUtf8(aj);
    EXPECT_TRUE(erro.empty()) << TxUtf8(aj);
  }
  ASSERT_TRUE(RunRspLer(u"BOX 2147483647", r, erro));
  EXPECT_TRUE(erro.empty());
  EXPECT_EQ(r.num, 2147483647);

  // Numbers past an int are no answers: 4294967297 is not BOX 1 cut short.
  for (const char16_t* mau : {u"NEXT", u"SEG 2", u"BOX", u"BOX yes", u"CHECK ck 2", u"CHECK ck", u"OPTION op x",
                              u"BOX 4294967297", u"BOX -4294967295", u"BOX 2147483648", u"BOX 99999999999999999999",
                              u"OPTION op 4294967298", u"CHECK ck 4294967297"}) {
    ASSERT_TRUE(RunRspLer(mau, r, erro)) << TxUtf8(mau);
    EXPECT_FALSE(erro.empty()) << TxUtf8(mau);
  }
}

// Skipped lines still count, so a message names the line of the file.
TEST(RunRsp, LooksAheadWithoutTakingAndCountsEveryLine) {
  std::istringstream in("# start\n\nSEG\n  \nBOX 1\n");
  RunFon f(in);
  ASSERT_NE(f.Prox(), nullptr);
  EXPECT_EQ(f.Prox()->lin, 3);
  EXPECT_EQ(f.Prox()->k, RunRsp::K::Btn);
  f.Toma();
  ASSERT_NE(f.Prox(), nullptr);
  EXPECT_EQ(f.Prox()->lin, 5);
  f.Toma();
  EXPECT_EQ(f.Prox(), nullptr);
  EXPECT_EQ(f.Prox(), nullptr);
}

// A byte-order mark that an editor put at the file's start is no part of the first
// line, a comment here; anywhere else it is a character of the line.
TEST(RunRsp, SkipsAByteOrderMarkAtTheStart) {
  std::istringstream in("\xEF\xBB\xBF# answers\nSEG\n\xEF\xBB\xBF" "CAN\n");
  RunFon f(in);
  ASSERT_NE(f.Prox(), nullptr);
  EXPECT_TRUE(f.Erro().empty());
  EXPECT_EQ(f.Prox()->lin, 2);
  EXPECT_EQ(f.Prox()->nome, u"cmSeg");
  f.Toma();
  ASSERT_NE(f.Prox(), nullptr);
  EXPECT_FALSE(f.Erro().empty());
}

TEST(RunTrace, QuotesDoubleInnerQuotesAndWriteBreaksAndTabs) {
  EXPECT_EQ(RunAsp(u"a \"b\"\r\nc\nd\re\tf"), u"\"a \"\"b\"\"|c|d|e\u00BBf\"");
  EXPECT_EQ(RunAsp(u""), u"\"\"");
}

// A type-text box answers with a result word and is traced with it; the
// language's MsgBox is traced with its answer code. A box with several buttons
// takes its default when the next answer is not BOX, and a box with OK alone
// takes no answer at all.
TEST(RunBox, AnswersFromTheAnswersAndTracesEachBox) {
  tst::QtApp();
  RunTeste t("BOX 0\nBOX -1\nBOX 1\nINPUT Pasta \"nova\"\nINPUT\nSEG\n");
  int r = 9;
  MsgExe(u"? SN", u"Título", u"Continuar?|Sim»ou não", r);
  EXPECT_EQ(r, 0);
  MsgExe(u"? SNC", u"T", u"x", r);
  EXPECT_EQ(r, -1);
  EXPECT_EQ(MsgDlgAct().Caixa(kMsgYesNo + kMsgQuestion, u"VBScript", u"y"), kAnsYes);
  MsgExe(u"X", u"Erro", u"só OK", r);
  EXPECT_EQ(r, 1);
  Tx resp;
  EXPECT_TRUE(MsgDlgAct().Entrada(u"Pasta", u"Onde?", u"/opt", resp));
  EXPECT_EQ(resp, u"Pasta \"nova\"");
  EXPECT_FALSE(MsgDlgAct().Entrada(u"Pasta", u"Onde?", u"/opt", resp));
  // The next answer is a click: both boxes take their defaults and leave it.
  EXPECT_TRUE(MsgDlgAct().Entrada(u"Pasta", u"Onde?", u"/opt", resp));
  EXPECT_EQ(resp, u"/opt");
  MsgCnf(u"ZunWiz", u"Instalar ?", r);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(t.Trace(),
            "box 36 \"Título\" \"Continuar?|Sim»ou não\" -> 0\n"
            "box 35 \"T\" \"x\" -> -1\n"
            "box 36 \"VBScript\" \"y\" -> 6\n"
            "box 16 \"Erro\" \"só OK\" -> 1\n"
            "input \"Pasta\" \"Onde?\" -> \"Pasta \"\"nova\"\"\"\n"
            "input \"Pasta\" \"Onde?\" -> \"\"\n"
            "input \"Pasta\" \"Onde?\" -> \"/opt\"\n"
            "box 292 \"ZunWiz\" \"Instalar ?||Confirma ?\" -> 0\n");
}

// The page line, then the visible controls read back from the window: buttons in
// their order, then components by index over all arrays, with check and option
// values; hidden ones are left out.
TEST(RunTrace, APageIsTracedWithItsVisibleControls) {
  tst::QtApp();
  RunTeste t("");
  ZunWizAsp a;
  a.cmAnt->hide();
  a.cmCnf->setEnabled(false);
  CtlObj* la = a.Load(CtlArr::Lab, 3);
  la->PrpAtr(u"Caption", Var(Tx(u"Olá \"mundo\"")));
  la->PrpAtr(u"Left", Var(int32_t(300)));
  la->PrpAtr(u"Top", Var(int32_t(450)));
  la->PrpAtr(u"Visible", Var(true));
  CtlObj* ck = a.Load(CtlArr::Ckb, 2);
  ck->PrpAtr(u"Caption", Var(Tx(u"Aceito")));
  ck->PrpAtr(u"Value", Var(int16_t(1)));
  ck->PrpAtr(u"Visible", Var(true));
  CtlObj* op = a.Load(CtlArr::Opc, 5);
  std::vector<Var> o1{Var(Tx(u"Típica")), Var(Tx(u"T"))}, o2{Var(Tx(u"Mínima")), Var(Tx(u"M"))};
  op->Exe(u"RegOpc", o1);
  op->Exe(u"RegOpc", o2);
  op->PrpAtr(u"opcUsa", Var(int16_t(2)));
  op->PrpAtr(u"Visible", Var(true));
  a.Load(CtlArr::Lab, 4);  // stays hidden
  a.PagEnt(2, u"LIC");
  a.PagEnt(3, Tx());
  const std::string tr = t.Trace();
  const QRect l = a.CtlWid(CtlArr::Lab, 3)->geometry();
  const QRect c = a.CtlWid(CtlArr::Ckb, 2)->geometry();
  const QRect o = a.CtlWid(CtlArr::Opc, 5)->geometry();
  char esperado[1024];
  std::snprintf(esperado, sizeof esperado,
                "page 2 LIC\n"
                "ctl cmSeg 270,366 85x24 on \"Seguinte >\"\n"
                "ctl cmCnf 366,366 85x24 off \"Confirmar\"\n"
                "ctl cmCan 462,366 85x24 on \"Cancelar\"\n"
                "ctl ckWiz(2) %d,%d %dx%d on \"Aceito\" value=1\n"
                "ctl laWiz(3) 20,30 %dx%d on \"Olá \"\"mundo\"\"\"\n"
                "ctl ZunOpc(5) %d,%d %dx%d on \"Típica|Mínima\" value=2\n"
                "page 3\n",
                c.x(), c.y(), c.width(), c.height(), l.width(), l.height(), o.x(), o.y(), o.width(), o.height());
  EXPECT_EQ(tr.substr(0, tr.find("page 3\n") + 7), esperado);
}

// Answers that do not fit end the process with status 3 and "end answers", the
// message naming the answer's line and the page.
TEST(RunDeath, AnswersThatDoNotFitEndTheRun) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  tst::QtApp();
  auto caixa = [](const char* ans) {
    RunTeste t(ans);
    ZunWizAsp a;
    a.PagEnt(4, u"FIM");
    MsgDlgAct().Caixa(kMsgYesNo, u"t", u"x");
  };
  EXPECT_EXIT(caixa("\n# a box with Yes and No\nBOX -1\n"), testing::ExitedWithCode(kSaiRsp),
              "answers line 3, page 4 FIM: the box has no button for BOX -1");
  EXPECT_EXIT(caixa("FOO\n"), testing::ExitedWithCode(kSaiRsp), "answers line 1, page 4 FIM: no such answer: FOO");
  EXPECT_EXIT(
      {
        RunTeste t("SEG\n");
        ZunWizRunFim(0);
      },
      testing::ExitedWithCode(kSaiRsp), "answers line 1, before the first page: answers are left over");
}

// Shots are numbered in the order taken: a page by its identifier (its index
// when it has none, a separator made harmless), a box as "box".
TEST(RunShots, EachPageAndBoxGivesANumberedPicture) {
  tst::QtApp();
  const QString dir = QDir::temp().filePath(QStringLiteral("zw-shots-%1").arg(QCoreApplication::applicationPid()));
  {
    RunTeste t("", TxQs(dir));
    ZunWizAsp a;
    a.PagEnt(1, u"INI");
    MsgDlgAct().Caixa(kMsgOk, u"t", u"x");
    a.PagEnt(2, Tx());
    a.PagEnt(3, u"a/b");
  }
  QStringList fic = QDir(dir).entryList(QDir::Files, QDir::Name);
  EXPECT_EQ(fic, QStringList({"01-INI.png", "02-box.png", "03-2.png", "04-a_b.png"}));
  EXPECT_EQ(QImage(dir + QStringLiteral("/01-INI.png")).size(), QSize(554, 398));
  QDir(dir).removeRecursively();
}
