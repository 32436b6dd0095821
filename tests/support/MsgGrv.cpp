// The recording dialog service of the tests.
#include "MsgGrv.h"

namespace zw::tst {

MsgGrv::MsgGrv() : antes_(&MsgDlgAct()) { MsgDlgDef(this); }

// The text-mode service is what MsgDlgDef(nullptr) gives back; any other one that
// was in force before goes back in force itself.
MsgGrv::~MsgGrv() {
  MsgDlgDef(nullptr);
  if (antes_ != &MsgDlgAct()) MsgDlgDef(antes_);
}

int MsgGrv::Caixa(int estilo, const Tx& titulo, const Tx& texto) {
  cx.push_back({estilo, titulo, texto});
  int r = resp;
  if (!resps.empty()) {
    r = resps.front();
    resps.pop_front();
  }
  return r < 0 ? MsgRespOmissao(estilo) : r;
}

bool MsgGrv::Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omi, Tx& resposta) {
  perguntas.push_back({0, titulo, pergunta});
  omissao = omi;
  if (aceita) resposta = entrada;
  return aceita;
}

}  // namespace zw::tst
