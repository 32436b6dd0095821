// RunRsp: zunwiz-run's answers, the lines that take the place of clicks and of the
// answers to boxes: how a line is read, the answers read as they are needed, and
// the asking for them as a run does it, with the prompts and help of a terminal and
// the end of the run when they do not fit.
#pragma once
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include "Tx.h"

namespace zw {

class RunPag;
class RunTrc;

// One answer line.
struct RunRsp {
  enum class K { Btn, Close, Box, Input, Check, Option, Ajuda };  // Ajuda: "help" or "?" at a terminal
  K k = K::Btn;
  int lin = 0;     // its line number in the answers
  Tx nome;         // the button ("cmAnt"...) or the component named
  int num = 0;     // BOX result word, CHECK value, OPTION number
  Tx tx;           // INPUT: the text
  bool can = false;  // INPUT alone: Cancel
};

// Reads one line of answers. Gives false for a blank line or a "#" comment; a line
// that is no answer fills erro and gives true.
bool RunRspLer(const Tx& linha, RunRsp& r, Tx& erro);

// The answers, read as they are needed; one answer can be looked at before it is
// taken, as a box with several buttons does.
class RunFon {
 public:
  explicit RunFon(std::istream& in) : mIn(in) {}
  const RunRsp* Prox();  // the next answer, null at the end
  void Toma() { mProx.reset(); }
  int Lin() const { return mLin; }  // number of the last line read
  const Tx& Erro() const { return mErro; }  // why the answer in view is not one

 private:
  std::istream& mIn;
  std::optional<RunRsp> mProx;
  Tx mErro;
  int mLin = 0;
  bool mFim = false;
};

// The answers as the run asks for them: a line that is no answer, or an answer
// that does not fit the wizard, ends the run ("end answers", status 3), unless
// they are typed at a terminal, where the person is prompted, told and asked again.
class RunPer {
 public:
  RunPer(RunTrc& trc, const RunPag& pag) : mTrc(trc), mPag(pag) {}
  // The answers to read from; term: typed at a terminal.
  void Def(std::istream& in, bool term) {
    mFon.emplace(in);
    mTerm = term;
  }
  // The next answer, null at the end; at a terminal "help" or "?" lists the answers
  // that fit what is in view (ajuda; the page by default) and asks again.
  const RunRsp* Prox(const std::function<std::string()>& ajuda = {});
  void Toma() { mFon->Toma(); }
  int Lin() const { return mFon->Lin(); }
  // At a terminal, says what answer is awaited: a click, or the box shown.
  void Prompt(const char* o_que, const Tx& caixa = Tx()) const;
  // The answers do not fit the wizard: said on stderr with the answer's line and
  // the page, and the process ends at once, the window left as it is.
  [[noreturn]] void Desajuste(const Tx& porque, int lin) const;
  // The wizard or the run has ended (quando): answers still waiting do not fit.
  // At a terminal nothing is read, since nothing more is awaited.
  void Sobra(const Tx& quando);

 private:
  std::string PagAjuda() const;

  RunTrc& mTrc;
  const RunPag& mPag;
  std::optional<RunFon> mFon;
  bool mTerm = false;
};

}  // namespace zw
