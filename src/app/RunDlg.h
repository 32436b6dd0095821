// RunDlg: zunwiz-run's dialog service: boxes and input boxes answered from the
// answers instead of a person, each written to the trace with its answer.
#pragma once
#include <string>
#include "MsgDlg.h"

namespace zw {

class RunFot;
class RunPer;
class RunTrc;

class RunDlg final : public MsgDlg {
 public:
  RunDlg(RunPer& per, RunTrc& trc, RunFot& fot) : mPer(per), mTrc(trc), mFot(fot) {}
  // A box with one button takes it; one with more takes the BOX answer in wait,
  // or its default when the answer in wait is another (which waits for later).
  int Caixa(int estilo, const Tx& titulo, const Tx& texto) override;
  // Nobody hears it.
  void Bip() override {}
  // The INPUT answer in wait, or the default when the answer in wait is another.
  bool Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) override;

 private:
  RunPer& mPer;
  RunTrc& mTrc;
  RunFot& mFot;
};

}  // namespace zw
