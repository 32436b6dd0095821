// "Wiz" operations that reach beyond the files: start programs and wait for them,
// the wizard's own folder, register components, add a printer that prints to a file.
// Programs and components show their call and outcome to a debugging author, as the
// file operations do.
#include "CmpReg.h"
#include "DbgFx.h"
#include "FicGlb.h"
#include "Pgm.h"
#include "PrcExe.h"
#include "Prt.h"
#include "SupWizVbs.h"
#include "TxtGlb.h"

namespace zw {

// Wiz.FxPgmExe(command): a command with arguments (anything behind its first blank)
// is started as a program; a lone name is opened as the shell opens a document.
// 1 started, 0 not, -1 an empty command. Nothing waits.
void SupWizVbs::FxPgmExe(Lis& a, Var& res) {
  Tx cmd = TxVar(Arg(a, 0));
  if (cmd.empty()) {
    res = Var(int16_t(-1));
    return;
  }
  Tx pgm, arg;
  TxDiv1(cmd, u" ", pgm, arg);
  int ok = 0;
  if (!TxTrim(arg).empty()) PgmLan(cmd, ok);
  else PgmAbr(cmd, ok);
  res = Var(int16_t(ok));
  DbgVer(u"FxPgmExe " + cmd, res);
  FxLogReg(u"EXE PGM: " + cmd, res);
}

// Wiz.FxShell(command, mode): -1 waits for the end (a stop of the script call, or its
// time limit, ends the wait and the program: PrcEsp's hook), -2 polls once (about 100 ms), N > 0
// waits up to N seconds (the program goes on after that), 0 and below -2 open the
// command as a document and go on. Window events run before and after. 1 when the
// program ended normally, or the opener took the document; 0 otherwise.
void SupWizVbs::FxShell(Lis& a, Var& res) {
  Tx cmd = TxVar(Arg(a, 0)), st;
  double modo = NuDbl(Arg(a, 1));
  EvtPmp();
  if (modo == -1) {
    st = PgmLanEsp(u"B", cmd, 1);
  } else if (modo == -2) {
    st = PgmLanEsp(u"N", cmd, 1);
  } else if (modo > 0) {
    st = PgmLanEsp(u"B", cmd, 1, Var(modo));
  } else {
    int ok = 0;
    PgmAbr(cmd, ok);
    st = ok ? u"NOR" : u"KO";
  }
  EvtPmp();
  res = Var(int16_t(st == u"NOR" ? 1 : 0));
  DbgVer(u"FxShell " + cmd, res);
}

// Wiz.FxPgm(kind): the wizard program's folder, or a part of it: "DRV" its drive or
// share root, "DIR" the folder above it, "NOM" its own name.
void SupWizVbs::FxPgm(Lis& a, Var& res) {
  Tx tip = TxVar(TxVarMai(Arg(a, 0)));
  Tx p = PrcExeCam(), dir, nom;
  FicDirNom(FicDeNat(TxUtf8(p)), p, nom);  // p: the executable's folder
  if (tip == u"DRV") {
    Tx resto;
    FicDrvUnc(p, dir, resto);
    res = Var(dir);
  } else if (tip == u"DIR" || tip == u"NOM") {
    FicDirNom(p, dir, nom);
    res = Var(tip == u"DIR" ? dir : nom);
  } else {
    res = Var(p);
  }
}

// Wiz.FxCmpRegFic(mode, file): "E" unregisters the file (1 done, 0 not). "R" asks
// the worker for a mode it does not know, so it does nothing and answers 0: one file
// cannot be registered through this operation. Any other mode: -1.
void SupWizVbs::FxCmpRegFic(Lis& a, Var& res) {
  Tx modo = TxMaiTrm(TxVar(Arg(a, 0))), fic = TxVar(Arg(a, 1));
  int ok = 0;
  if (modo == u"R") CmpRegExe(u"A", fic, ok);
  else if (modo == u"E") CmpRegExe(u"R", fic, ok);
  else ok = -1;
  res = Var(int16_t(ok));
  DbgVer(u"FxCmpRegFic " + modo + u" " + fic, res);
  FxLogReg(u"CmpRegFic: " + modo + u" " + fic, res);
}

// Wiz.FxCmpRegDir(mode, folder, extension): "R" registers every component of the
// folder again (each unregistered, then registered), "E" unregisters them; 1 whatever
// happened to each file, -1 for another mode.
void SupWizVbs::FxCmpRegDir(Lis& a, Var& res) {
  Tx modo = TxMaiTrm(TxVar(Arg(a, 0))), dir = TxVar(Arg(a, 1)), ext = TxMaiTrm(TxVar(Arg(a, 2)));
  res = Var(int16_t(1));
  if (modo == u"R") CmpRegDirExe(u"A", ext, dir);
  else if (modo == u"E") CmpRegDirExe(u"R", ext, dir);
  else res = Var(int16_t(-1));
  DbgVer(u"FxCmpRegDir " + modo + u" [" + ext + u"] " + dir, res);
  FxLogReg(u"CmpRegDir: " + modo + u" [" + ext + u"] " + dir, res);
}

// Wiz.FxPrtPdfIns(printer, port, driver): "OK", "PR_VT_EXI" or "PR_VT_KO".
void SupWizVbs::FxPrtPdfIns(Lis& a, Var& res) {
  Tx prt = TxVar(Arg(a, 0)), por = TxVar(Arg(a, 1)), drv = TxVar(Arg(a, 2));
  res = Var(zw::FxPrtPdfIns(prt, por, drv));
}

}  // namespace zw
