// The dialog service in force, and the text-mode service used when no window
// system has installed its own.
#include "MsgDlg.h"
#include <cstdio>

namespace zw {

// The buttons of each button set, in order, as answer codes.
static const int kBotoes[6][3] = {
    {kAnsOk, 0, 0},       {kAnsOk, kAnsCancel, 0},         {kAnsAbort, kAnsRetry, kAnsIgnore},
    {kAnsYes, kAnsNo, kAnsCancel}, {kAnsYes, kAnsNo, 0}, {kAnsRetry, kAnsCancel, 0}};

int MsgBotoes(int estilo, int bot[3]) {
  int set = estilo & 7;
  if (set > 5) set = 0;
  int n = 0;
  for (; n < 3 && kBotoes[set][n]; n++) bot[n] = kBotoes[set][n];
  return n;
}

int MsgRespOmissao(int estilo) {
  int bot[3];
  int n = MsgBotoes(estilo, bot);
  int def = (estilo >> 8) & 3;
  if (def >= n) def = 0;
  return bot[def];
}

namespace {
// Writes the box to stderr and takes the default button: a run without a
// display or a terminal user still gets an answer and goes on.
class MsgDlgTexto : public MsgDlg {
 public:
  int Caixa(int estilo, const Tx& titulo, const Tx& texto) override {
    std::fprintf(stderr, "[%s]\n%s\n", TxUtf8(titulo).c_str(), TxUtf8(texto).c_str());
    return MsgRespOmissao(estilo);
  }
  void Bip() override { std::fputc('\a', stderr); }
  bool Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) override {
    std::fprintf(stderr, "[%s]\n%s\n", TxUtf8(titulo).c_str(), TxUtf8(pergunta).c_str());
    resposta = omissao;
    return true;
  }
};
MsgDlgTexto gTexto;
MsgDlg* gAct = &gTexto;
}  // namespace

namespace {
bool gPal = false;
}
bool MsgDlgPal() { return gPal; }
void MsgDlgPalDef(bool pal) { gPal = pal; }

MsgDlg& MsgDlgAct() { return *gAct; }
void MsgDlgDef(MsgDlg* d) { gAct = d ? d : &gTexto; }

}  // namespace zw
