// SupShfPrg: the progress service behind the file operations of SupShf.
// The platform never draws a progress window itself: a run hands its title and
// steps to the service in force. The Qt program installs a dialog with a Cancel
// button; the wizard runner installs one that writes progress lines to its trace;
// without either nothing is shown and nothing can be cancelled. A run in silent
// mode does not call the service at all.
#pragma once
#include <cstdint>
#include <functional>
#include "Tx.h"

namespace zw {

// The operations of a run, numbered as the shell's file operation numbers them.
enum : int { kShfMov = 1, kShfCop = 2, kShfEli = 3, kShfRen = 4 };

class ShfPrg {
 public:
  virtual ~ShfPrg() = default;
  // A run begins: the title (empty when the caller gave none), the operation, and
  // the number of entries and bytes it will go through (as far as known).
  virtual void Ini(const Tx& titulo, int op, int64_t itens, int64_t bytes) = 0;
  // An entry, or a further part of a large file: the source, the destination
  // ("" for a delete), and the entries and bytes done so far. False when the user
  // has cancelled; the run then stops and answers 0.
  virtual bool Passo(const Tx& orig, const Tx& dest, int64_t itens, int64_t bytes) = 0;
  // The run has ended, done or not.
  virtual void Fim(bool ok) = 0;
  // Something the run did not do, with the reason, told even when the run shows no
  // progress: an entry that a copy leaves out (palavra "SKP": a pipe, a socket, a
  // device) or a delete refused (palavra "NEG": the top of a drive, a folder of the
  // system, a home folder). A window may pass over it; the run's answer says it too.
  virtual void Nota(const Tx& palavra, const Tx& path, const Tx& porque) {
    (void)palavra, (void)path, (void)porque;
  }
};

// A service that writes lines instead of showing a window, for a run without a
// display (the wizard runner's trace): "SHF INI <op> <title>" at the start, one line
// per entry, "SHF COP <source> > <destination>" ("MOV", or "ELI <source>" for a
// delete), and "SHF FIM 1" or "SHF FIM 0" at the end; "SHF SKP <path> (<why>)" and
// "SHF NEG <path> (<why>)" for what a run did not do. It never cancels.
class ShfPrgLin : public ShfPrg {
 public:
  explicit ShfPrgLin(std::function<void(const Tx&)> linha) : linha_(std::move(linha)) {}
  void Ini(const Tx& titulo, int op, int64_t itens, int64_t bytes) override;
  bool Passo(const Tx& orig, const Tx& dest, int64_t itens, int64_t bytes) override;
  void Fim(bool ok) override;
  void Nota(const Tx& palavra, const Tx& path, const Tx& porque) override;

 private:
  std::function<void(const Tx&)> linha_;
  Tx op_;
  int64_t ult_ = -1;  // the entry of the last line: parts of a large file add none
};

// The service in force, or null when there is none. ShfPrgDef(nullptr) removes it.
ShfPrg* ShfPrgAct();
void ShfPrgDef(ShfPrg* p);

}  // namespace zw
