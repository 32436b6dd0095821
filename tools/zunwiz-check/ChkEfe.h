// ChkEfe: what a wizard's program does outside itself while the checker reads the
// file. The engine runs the program's global statements and the calculation of
// every "VAR", "PON" and "ZON" row as it reads; the checker runs them too, but
// with a script engine that touches neither the machine nor the person: objects
// from outside and the message boxes are answered by the checker, and "Wiz" does
// only what merely computes. Every effect a run would have is recorded with the
// option file's line of the statement that had it, for the findings.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>
#include "ScriptControl.h"
#include "Tx.h"

namespace zw::chk {

// Where the effects go, and how the statement in hand becomes a file line.
class EfeReg {
 public:
  struct Efe {
    int32_t lin = 0;
    bool erro = false;
    Tx msg;
  };
  // The program in force: its text as the engine got it, and the file line of each
  // of its lines (from the first).
  void Pgm(const Tx& tx, const std::vector<int32_t>& map);
  // The file line of what runs now when it is not the program's code: a row's
  // statement, a component's expression, the program group's head.
  void Lin(int32_t lin) { lin_ = lin; }
  // Records an effect of the statement in hand, once per line and message.
  void Adi(bool erro, const Tx& msg);
  const std::vector<Efe>& Lis() const { return efe_; }

 private:
  Tx pgm_;
  std::vector<int32_t> map_;
  int32_t lin_ = 0;
  std::shared_ptr<const Tx> ult_;  // the last text asked about, and whether it was the program
  bool ultPgm_ = false;
  std::vector<Efe> efe_;
};

// The engine's policy for the checker: outside objects are made inert, boxes
// answer their default, all recorded.
std::shared_ptr<vbs::HostPolicy> EfePol(std::shared_ptr<EfeReg> reg);
// "Wiz" as the checker hands it to scripts.
vbs::Obj* EfeWiz(std::shared_ptr<EfeReg> reg);

}  // namespace zw::chk
