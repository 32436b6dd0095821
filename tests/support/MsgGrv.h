// MsgGrv: the dialog service of the tests. It records every box, beep and input
// box instead of showing them, and answers from a queue of answers, then with a
// fixed one. Made, it is the service in force; destroyed, it puts back the one
// that was in force before.
#pragma once
#include <deque>
#include <vector>
#include "MsgDlg.h"

namespace zw::tst {

struct MsgGrv : MsgDlg {
  struct Cx {
    int estilo;
    Tx tit, tx;
  };
  std::vector<Cx> cx;       // the boxes, in the order shown
  std::deque<int> resps;    // the next answers, first first
  int resp = kAnsOk;        // the answer when the queue is empty; -1 takes the default button
  int bips = 0;
  std::vector<Cx> perguntas;  // input boxes: title and question (estilo 0)
  Tx omissao;                 // the default the last input box offered
  bool aceita = false;        // input boxes: answered with `entrada`, or cancelled
  Tx entrada;

  MsgGrv();
  ~MsgGrv() override;
  MsgGrv(const MsgGrv&) = delete;
  MsgGrv& operator=(const MsgGrv&) = delete;

  int Caixa(int estilo, const Tx& titulo, const Tx& texto) override;
  void Bip() override { bips++; }
  bool Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) override;

  const Cx& Ult() const { return cx.back(); }  // the last box; there must be one

 private:
  MsgDlg* antes_;
};

}  // namespace zw::tst
