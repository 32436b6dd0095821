// SupWizVbs: the library object that the wizard's scripts know as "Wiz".
// The engine makes one, hands it itself as the WizEng that "CmpVarCon" and
// "CmpVarAlt" forward to, and registers Ob() with the script host under "Wiz".
//
// Every operation is a member of one shape:
//     void Nome(Lis& a, Var& res);
// a holds the arguments as the script gave them, by reference: an operation that
// writes an out argument writes a[k], and the script's variable gets the new value
// (only arguments whose value changed are written back, so an in argument keeps
// its kind in the script). An argument the script left out is absent (k past the
// end) or holds a missing value: read arguments with Arg(a, k). res is what the
// call gives back; left empty, the script gets Empty. A run-time error (vbs::Raise,
// or any exception) travels back to the script as a script error.
//
// Adding an operation:
//   1. one line WIZ_OP(Nome) in ZW_WIZ_OPS below, at its place in the table's order
//      (scripts find it case-blind by that name);
//   2. the member function void SupWizVbs::Nome(Lis& a, Var& res), in a file of its
//      own group of operations (SupWizVbsTx.cpp, SupWizVbsFic.cpp...).
// Nothing else: the declaration and the dispatch entry both come from the line.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>
#include "Var.h"
#include "WizEng.h"

namespace zw {

// The operations of "Wiz", in the order of the library's table. A line commented
// out is an operation that is not built yet.
#define ZW_WIZ_OPS(WIZ_OP)                                                            \
  WIZ_OP(FxIni)                                                                     \
  WIZ_OP(FxFim)                                                                     \
  WIZ_OP(OpcRegAltAttr)                                                             \
  WIZ_OP(DbgMsgSit)                                                                 \
  WIZ_OP(DbgMsgVer)                                                                 \
  WIZ_OP(TxCnv)                                                                     \
  WIZ_OP(TxNum)                                                                     \
  WIZ_OP(TxSep)                                                                     \
  WIZ_OP(TxOpc)                                                                     \
  WIZ_OP(TxOpcNum)                                                                  \
  WIZ_OP(NuCnv)                                                                     \
  WIZ_OP(NuTxSep)                                                                   \
  WIZ_OP(MsgVer)                                                                    \
  WIZ_OP(MsgTip)                                                                    \
  WIZ_OP(MsgSba)                                                                    \
  WIZ_OP(FxPgmExe)                                                                  \
  WIZ_OP(FxShell)                                                                   \
  WIZ_OP(FxDrvUsa)                                                                  \
  WIZ_OP(FxPgm)                                                                     \
  WIZ_OP(FxFicLoc)                                                                  \
  WIZ_OP(FxDirCop)                                                                  \
  WIZ_OP(FxFicCop)                                                                  \
  WIZ_OP(FxFicRen)                                                                  \
  WIZ_OP(FxFicEli)                                                                  \
  WIZ_OP(FxFicTip)                                                                  \
  WIZ_OP(FxCmpRegFic)                                                               \
  WIZ_OP(FxCmpRegDir)                                                               \
  WIZ_OP(FxRegGrpPrp)                                                               \
  WIZ_OP(FxRegVarCon)                                                               \
  WIZ_OP(CmpVarCon)                                                                 \
  WIZ_OP(CmpVarAlt)                                                                 \
  WIZ_OP(FxPrtPdfIns)                                                               \
  WIZ_OP(SopIdeCon)

class SupWizVbsOb;
class SupFsys;

class SupWizVbs {
 public:
  using Lis = std::vector<Var>;
  using Op = void (SupWizVbs::*)(Lis& a, Var& res);

  // eng is the engine that "CmpVarCon" and "CmpVarAlt" reach; null leaves them
  // answering 0.
  explicit SupWizVbs(WizEng* eng = nullptr);
  ~SupWizVbs();
  SupWizVbs(const SupWizVbs&) = delete;
  SupWizVbs& operator=(const SupWizVbs&) = delete;

  // The object the script engine sees, ready for VbsSup::RegObPrp; the same one at
  // every call. Once this library is gone, its members raise an error.
  const Var& Ob();

  // Runs the operation of that name (case-blind) as a script's call does; false
  // when there is none.
  bool Exe(TxV nome, Lis& a, Var& res);
  // The operation of that name, or null.
  static Op OpDe(TxV nome);
  // The names of all operations, in the table's order.
  static std::vector<Tx> OpNomes();

  // Argument k, or a missing value when the script gave fewer.
  static const Var& Arg(const Lis& a, size_t k);
  // Writes an out argument; nothing when the script gave fewer.
  static void Poe(Lis& a, size_t k, const Var& v);

#define ZW_WIZ_DECL(nome) void nome(Lis& a, Var& res);
  ZW_WIZ_OPS(ZW_WIZ_DECL)
#undef ZW_WIZ_DECL

  WizEng* Eng() const { return mEng; }

 private:
  Tx mTrcNom = u"TorAaVbs";
  Tx mTrcSit;
  WizEng* mEng = nullptr;
  int16_t mDbg = 0;              // debug mode (DbgMsgSit): 1 shows a box per file operation
  int16_t mAtrRst = 0;           // attribute reset (OpcRegAltAttr): 1 makes copies lose attributes
  std::shared_ptr<SupFsys> mFsys;  // the walk that resets attributes, made at its first use
  // The debug box of an operation and the place of its log (SupWizVbsTx.cpp).
  void DbgVer(const Tx& tx, const Var& res);
  static void FxLogReg(const Tx& tx, const Var& res);
  SupFsys& Fsys();
  Var mOb;                       // the script engine's object, made at the first Ob()
  SupWizVbsOb* mObRaw = nullptr; // the same, to cut it off at the end
};

}  // namespace zw
