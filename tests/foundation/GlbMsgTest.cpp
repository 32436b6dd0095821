// Message boxes: the style a type text gives, the texts and titles shown, and the
// result words, checked against a dialog service that records every box.
#include <gtest/gtest.h>
#include <vector>
#include "GlbMsg.h"
#include "MsgDlg.h"
#include "MsgGrv.h"

using namespace zw;

namespace {
struct Usa {
  tst::MsgGrv g;
};
}  // namespace

TEST(GlbMsg, TypeTextMarks) {
  bool bip = true;
  EXPECT_EQ(MsgEstilo(u"", &bip), 64);
  EXPECT_FALSE(bip);
  EXPECT_EQ(MsgEstilo(u"? SN 2 _B", &bip), 32 + 4 + 256);
  EXPECT_TRUE(bip);
  EXPECT_EQ(MsgEstilo(u"X ? !"), 16);        // "X" is tested last among icons
  EXPECT_EQ(MsgEstilo(u"I CNF 3"), 64 + 512);  // default 3 with one button still counts
  EXPECT_EQ(MsgEstilo(u"SNC 3"), 64 + 3 + 512);
  EXPECT_EQ(MsgEstilo(u"sn x"), 64);         // lower case is no mark
  EXPECT_EQ(MsgEstilo(u"!CNF"), 48);
  EXPECT_EQ(MsgEstilo(u"X _B SN 2"), 16 + 4 + 256);
  EXPECT_EQ(MsgEstilo(u"SC"), 64 + 1);
  EXPECT_EQ(MsgEstilo(u"SN SC"), 64 + 1);  // the later button mark wins
  EXPECT_EQ(MsgEstilo(u"32"), 64 + 512);   // digits count wherever they stand
}

TEST(GlbMsg, ExeShowsConvertedTextAndMapsAnswers) {
  Usa u;
  int r = 9;
  Tx msg = u"a|b||c\u00BBd|";
  MsgExe(u"", u"T", msg, r);
  EXPECT_EQ(r, 1);
  ASSERT_EQ(u.g.cx.size(), 1u);
  EXPECT_EQ(u.g.cx[0].estilo, 64);
  EXPECT_EQ(u.g.cx[0].tit, u"T");
  EXPECT_EQ(u.g.cx[0].tx, u"a\r\nb\r\n\r\nc\td");  // the trailing "|" vanishes
  EXPECT_EQ(msg, u"a|b||c\u00BBd|");                // the caller's text stays
  EXPECT_EQ(u.g.bips, 0);
  u.g.resp = kAnsYes;
  MsgExe(u"SN _B", u"", u"", r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(u.g.bips, 1);
  u.g.resp = kAnsNo;
  MsgExe(u"SN", u"", u"", r);
  EXPECT_EQ(r, 0);
  u.g.resp = kAnsCancel;
  MsgExe(u"SNC 3", u"", u"", r);
  EXPECT_EQ(r, -1);
  u.g.resp = kAnsRetry;  // no type text asks for it, but it passes through
  MsgExe(u"", u"", u"", r);
  EXPECT_EQ(r, kAnsRetry);
}

TEST(GlbMsg, CnfTitlesAndQuestion) {
  Usa u;
  int r = 9;
  u.g.resp = kAnsNo;
  MsgCnf(u"", u"TIT", r);
  EXPECT_EQ(r, 0);
  ASSERT_EQ(u.g.cx.size(), 1u);
  EXPECT_EQ(u.g.cx[0].tit, u"Executar");
  EXPECT_EQ(u.g.cx[0].tx, u"\r\n\r\nConfirma ?");
  EXPECT_EQ(u.g.cx[0].estilo, 32 + 4 + 256);
  EXPECT_EQ(u.g.bips, 1);
  u.g.resp = kAnsYes;
  MsgCnf(u"ZunWiz", u"Ocorreu um erro a iniciar o programa||Provavelmente falta instalar componentes|Instalar ?", r);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(u.g.cx[1].tit, u"ZunWiz");
  EXPECT_EQ(u.g.cx[1].tx,
            u"Ocorreu um erro a iniciar o programa\r\n\r\nProvavelmente falta instalar componentes\r\n"
            u"Instalar ?\r\n\r\nConfirma ?");
  MsgCnf(u"Limpar registo", u"TIT", r);
  EXPECT_EQ(u.g.cx[2].tx, u"Limpar registo\r\n\r\nConfirma ?");
}

TEST(GlbMsg, ErrAddsTheErrorLine) {
  Usa u;
  MsgErr(u"", u"Falhou", 0);
  ASSERT_EQ(u.g.cx.size(), 1u);
  EXPECT_EQ(u.g.cx[0].tit, u"Mensagem de Erro");
  EXPECT_EQ(u.g.cx[0].tx, u"Falhou");
  EXPECT_EQ(u.g.cx[0].estilo, 16);
  EXPECT_EQ(u.g.bips, 1);
  MsgErr(u"Wizzard", u"N\u00e3o foi encontrado o ficheiro de op\u00e7\u00f5es.||Ficheiro: x.par", -53);
  EXPECT_EQ(u.g.cx[1].tit, u"Wizzard");
  EXPECT_EQ(u.g.cx[1].tx,
            u"N\u00e3o foi encontrado o ficheiro de op\u00e7\u00f5es.\r\n\r\nFicheiro: x.par\r\n\r\n"
            u"Erro :  53 - File not found");
}

TEST(GlbMsg, NoDialogFlagAnswersZeroAndShowsNothing) {
  Usa u;
  MsgSemDlgDef(1);
  int r = 9;
  MsgExe(u"SN _B", u"T", u"m", r);
  MsgSemDlgDef(0);
  EXPECT_EQ(r, 0);
  EXPECT_TRUE(u.g.cx.empty());
  EXPECT_EQ(u.g.bips, 0);
  MsgLogReg(u"[X=1]");  // no log object: nothing happens
}
