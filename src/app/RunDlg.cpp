// zunwiz-run's answers to boxes and input boxes.
#include "RunDlg.h"
#include <QMessageBox>
#include <QPixmap>
#include "MsgDlgQt.h"
#include "RunFot.h"
#include "RunRsp.h"
#include "RunTrc.h"
#include "TxtGlb.h"

namespace zw {

namespace {
// The BOX words of a box's buttons, its default marked: "BOX 1 Yes (default),
// BOX 0 No".
std::string BoxPal(const int* bot, int n, int omi) {
  std::string r;
  for (int i = 0; i < n; i++) {
    const int c = bot[i];
    const int w = c == kAnsOk || c == kAnsYes ? 1 : c == kAnsNo ? 0 : c == kAnsCancel ? -1 : c;
    static const char* const nomes[] = {"", "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
    if (i) r += ", ";
    r += "BOX " + std::to_string(w) + " " + (c >= 1 && c <= 7 ? nomes[c] : "?");
    if (c == omi) r += " (default)";
  }
  return r;
}
}  // namespace

int RunDlg::Caixa(int estilo, const Tx& titulo, const Tx& texto) {
  int bot[3];
  const int n = MsgBotoes(estilo, bot);
  const bool pal = MsgDlgPal();
  int cod = MsgRespOmissao(estilo);
  if (n > 1) {
    const std::string pal = BoxPal(bot, n, cod);
    mPer.Prompt("box", RunAsp(titulo) + u" " + RunAsp(texto) + u" [" + TxDeUtf8(pal) + u"]");
    const RunRsp* r = mPer.Prox([&pal] {
      return "answers here: " + pal + "; any other answer takes the default and waits for later\n";
    });
    if (r && r->k == RunRsp::K::Box) {
      // The result word names a button: 1 OK or Yes, 0 No, -1 Cancel; any
      // other number is the answer code itself (Abort, Retry, Ignore).
      int quer = r->num == 1 ? -100 : r->num == 0 ? kAnsNo : r->num == -1 ? kAnsCancel : r->num;
      cod = 0;
      for (int i = 0; i < n; i++)
        if (bot[i] == quer || (quer == -100 && (bot[i] == kAnsOk || bot[i] == kAnsYes))) cod = bot[i];
      if (!cod) mPer.Desajuste(u"the box has no button for BOX " + TxDeUtf8(std::to_string(r->num)), r->lin);
      mPer.Toma();
    }
  }
  int res = cod;
  if (pal) res = cod == kAnsOk || cod == kAnsYes ? 1 : cod == kAnsNo ? 0 : cod == kAnsCancel ? -1 : cod;
  mTrc.Lin(u"box " + TxDeUtf8(std::to_string(estilo)) + u" " + RunAsp(titulo) + u" " + RunAsp(texto) + u" -> " +
           TxDeUtf8(std::to_string(res)));
  if (mFot.Liga()) {
    QMessageBox* b = MsgCaixaCri(estilo, titulo, texto);
    b->show();
    mFot.Gra(b->grab(), u"box");
    delete b;
  }
  return cod;
}

bool RunDlg::Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) {
  mPer.Prompt("input", RunAsp(titulo) + u" " + RunAsp(pergunta) + u" default " + RunAsp(omissao));
  const RunRsp* r = mPer.Prox([&omissao] {
    return "answers here: INPUT text (the rest of the line), INPUT alone to cancel; any other answer takes "
           "the default " + TxUtf8(RunAsp(omissao)) + " and waits for later\n";
  });
  bool ok = true;
  resposta = omissao;
  if (r && r->k == RunRsp::K::Input) {
    ok = !r->can;
    resposta = ok ? r->tx : Tx();
    mPer.Toma();
  }
  mTrc.Lin(u"input " + RunAsp(titulo) + u" " + RunAsp(pergunta) + u" -> " + RunAsp(ok ? resposta : Tx()));
  return ok;
}

}  // namespace zw
