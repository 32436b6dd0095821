// SupLogReg: log files and message registers, for the programs that use the
// foundation library; the wizard itself creates none and writes no log.
// A register is a text file (UTF-8, CR LF lines) with a lock file beside it (the
// same name with the extension "lck"); while a register is written, its lock file
// is held open for output, which keeps other programs out. Four registers are
// known from the start: starts "INI" (LogIni.txt), errors "ERR" (LogErr.txt),
// accesses "ACE" (LogAce.txt) and group messages "MSG" (LogMsg.txt). They live in
// the register folder: "/var/log/zunwiz" for root, "~/.local/state/zunwiz" for
// other users, "/tmp/zunwiz-<uid>" when neither can be written; DirDef sets another.
// Each record starts with a header block of "=" lines, date, kind, user and program.
#pragma once
#include <vector>
#include "Tx.h"

namespace zw {

class SupLogReg {
 public:
  SupLogReg();
  ~SupLogReg();
  const Tx cls = u"SupLogReg";
  const Tx dsc = u"Registo de LOG";
  Tx stamp;

  void FxIni();  // the standard registers, in the register folder
  void FxFim();  // closes whatever is open

  // --- fields ---
  void DirDef(const Tx& dir);  // register folder; the registers' files move with it
  const Tx& Dir() const { return dir_; }
  // Defines or redefines a register. The file name may hold "{DIA}" (date with "_"),
  // "{MAQ}" (machine) and "{UTZ}" (user); an unknown word in braces gives "".
  void PrpReg(const Tx& tipo, const Tx& tit, const Tx& fic);
  void PrpApp(const Tx& pgm);  // the program identity of full headers
  void PrpGrp(const Tx& grp);  // the group of group messages
  // The header block, lines ended by CR LF; modo "*" asks for the full header (with
  // the kind and program lines). Kind "" reads "INFO"; kind "-" is left out.
  Tx PrpCab(const Tx& modo, const Tx& tipo, const Tx& tit) const;
  Tx RegFic(const Tx& tipo) const;  // the file of a register ("" when unknown)
  Tx RegLck(const Tx& tipo) const;  // its lock file

  // --- records: 1 written, 0 not (the box "Mensagem de Erro" has told the user) ---
  int RegIniMsg(const Tx& tx);  // a start record with a full header
  int RegIniFim(const Tx& tx);  // the end of a run
  int RegAceIni(const Tx& tx);  // an access begins
  int RegAceFim(const Tx& tx);  // an access ends
  int MsgGrpReg(const Tx& pgm, const Tx& item, const Tx& grp);  // one message of a group
  // An error record. Level 0 does nothing; 1 writes it; 2 and above also show it,
  // and level 2 asks whether to end the program: with Yes the record gets
  // "Programa TERMINADO" and the process ends (exit status 1). The text, when not
  // "", stands for the error's own description. Result: 1 written, 0 not.
  int ErrMsg(int nivel, int num, const Tx& tx, const Tx& fonte, const Tx& oper, const Tx& diversos = Tx(),
             const Tx& inf = Tx());
  // The error text "Erro : n - text", and the source, from a number and a text.
  void ErrInfPrp(int num, const Tx& tx, Tx& res, Tx& fonte) const;
  void pMsgPgmFim(const Tx& tx);  // "Programa TERMINADO - text" into the error register

  // --- clearing and showing ---
  // Deletes a register's file and lock file, asking first with perguntar 1. 1 done,
  // 0 declined or not possible within 5 seconds.
  int RegLpz(const Tx& tipo, int perguntar);
  int RegIniLpz(int perguntar) { return RegLpz(u"INI", perguntar); }
  int GrpLpz(int perguntar) { return RegLpz(u"MSG", perguntar); }
  void LogVer(const Tx& tipo);  // opens the register in the text editor
  void GrpVer();

  // Writes lines as one record into a register, under its lock. 1 or 0.
  int RegGra(const Tx& tipo, const std::vector<Tx>& lin);

 private:
  void DirPad();  // the default folder, or none (semDir_)
  struct Reg {
    Tx tipo, tit, fic, lck;
    int num = 0, numLck = 0;
  };
  Reg* Acha(const Tx& tipo);
  const Reg* Acha(const Tx& tipo) const;
  int Abre(Reg& r);
  void Fecha(Reg& r);
  Tx Nome(const Tx& modelo) const;
  std::vector<Reg> regs_;
  std::vector<std::pair<Tx, Tx>> modelos_;  // kind and file name as given
  Tx dir_, pgm_, grp_;
  bool semDir_ = false;  // the default folder was wanted and none of the user's alone could be had
};

// The register folder this user gets without DirDef; empty when no folder of the
// user's alone can be had, and then the registers are not written.
Tx LogDirPad();
// Makes log the object to which message boxes hand their messages (MsgLogReg):
// its group register files them under the name of the program's file. nullptr
// takes the hook away.
void MsgLogDef(SupLogReg* log);

}  // namespace zw
