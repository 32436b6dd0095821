// SupWiz: the wizard engine.
// The start-up creates one engine and, for each attempt, hands it the wizard
// window (RegFrm), builds the wizard from the option file (WizIni) and runs it
// (WizExe). A failure in reading or building throws; the start-up's attempt
// catches it and tries again. The tables are not emptied between attempts: a
// second attempt appends its records behind those of the first.
//
// The option file decides the order of everything: its groups are read in file
// order, and after each group every variable, point and zone is assigned again in
// the script engine, which is the wizard's only calculator. Pages, transitions and
// components are kept as the file's texts; the window holds the controls, and a
// component's index is the index of its control in the window's arrays.
//
// Navigation (the four buttons and what they run) passes over a failing step and
// goes on with the next, so that a click never brings the window down.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>
#include "Var.h"
#include "WizDef.h"
#include "WizEng.h"
#include "WizFrm.h"

namespace vbs {
class ScriptControl;
}

namespace zw {

class VbsSup;
class SupWizVbs;

// What a button does for one kind of its transition (the table in WizTra.cpp).
enum class TraAco : uint8_t {
  Pag,    // to the page TraPag names
  FxIde,  // TraFx(page) answers the next page's identifier
  FxNum,  // TraFx(page) answers the next page's number
  Fx,     // runs TraFx(); the page stays
  Prx,    // the next page in the file
  His,    // back in the history
  Nad,    // nothing
  Fec,    // closes the window
  Prg,    // the cancel question, closing on yes; on the last page closes at once
};

// A kind of component and how it makes its control (the table in WizCmp.cpp).
// Labels, check boxes and rich-text boxes take one course of properties and
// differ in the flags; an option group and its options each have their own.
struct tCmpTip {
  enum class F : uint8_t { Ctl, Grp, Opc };  // a plain control, an option group, an option of one
  TxV Tip;         // "Tip" in capitals
  F Frm;
  CtlArr Arr;      // the window's array of its controls; an option has none of its own
  bool Aut;        // sizes itself: a width wraps its words, a height fixes it
  bool Aln;        // takes the alignment
  TxV PrpTx;       // the property its text goes to
  bool Fic;        // a text "[file]" loads that file
  int32_t SemFun;  // its BackStyle when it has no background colour (transparent)
  bool Fg;         // takes the text colour
};
// The kind of a "Tip" as it stands; null for a word that makes no control.
const tCmpTip* CmpTipDe(TxV tip);

class SupWiz : public WizEng, private WizLerFx {
 public:
  using Lis = std::vector<Var>;

  SupWiz();
  ~SupWiz() override;
  SupWiz(const SupWiz&) = delete;
  SupWiz& operator=(const SupWiz&) = delete;

  void FxIni();
  void FxFim();
  void RegFrm(const Var& frm);  // the wizard window of this attempt; starts the script host
  void RegSup(const Tx& nome, const Var& ob);  // one more object for scripts
  void RegDir(const tWizDir& dir) { mDef.Dir = dir; }  // where the option file is, as the start-up found it
  void WizIni(const Tx& fpa);   // reads the option file and builds the wizard
  void WizExe();                // runs the wizard on the window; returns when it has closed

  // Zones and points.
  void ZpoCalc();

  // Pages.
  void PagPrp(int16_t& pag);
  void PagVer(int16_t& pag);
  void PagEsc(int16_t& pag);

  // Transitions: the four buttons of the window, by slot.
  void TraAnt() { TraExe(1); }
  void TraSeg() { TraExe(2); }
  void TraCnf() { TraExe(3); }
  void TraCan() { TraExe(4); }

  // Script calls: a list of the function's name and its arguments (by reference).
  void VbsExe(Lis& lst, Var& res);
  void VbsFx(Lis& lst, Var& res);
  void VbsVar(const Tx& expr, Var& res);
  // Runs a function by name without arguments, its result dropped ("FxIni", "FxFim").
  void VbsExe(const Tx& nome);

  void PagCmpPrp();
  void CmpVer(int16_t i);
  void MnuIco(const Tx& fic);
  void ImgFun(const Tx& fic);
  void PagLstSeg(int16_t pag);
  void PagLstAnt(int16_t& pag);

  // The script bridge ("Wiz.CmpVarCon", "Wiz.CmpVarAlt").
  void CmpVarCon(const Var& nome, Var& res) override;
  void CmpVarAlt(const Var& nome, const Var& prp, const Var& val, Var& res) override;

  WizFrm* Frm() const { return WizFrmDe(mFrm); }
  // The option file line of what the build is working on: the head of the group
  // being read, the group of the component being made, or the key of the window's
  // size. When a build fails, it says where; 0 when no line is known.
  int32_t LinAct() const { return mLin; }

  // Read-only views for the program's tools and tests.
  const tWizDef& Def() const { return mDef; }
  int16_t ZpoNum() const { return mDef.ZpoNum; }
  int16_t PagNum() const { return mDef.PagNum; }
  int16_t CmpNum() const { return mDef.CmpNum; }
  int16_t PagAct() const { return mPagAct; }
  const tZpo& Zpo(int i) const { return mDef.Zpo[size_t(i)]; }
  const tPag& Pag(int i) const { return mDef.Pag[size_t(i)]; }
  const tCmp& Cmp(int i) const { return mDef.Cmp[size_t(i)]; }
  const std::vector<int16_t>& PagLst() const { return mPagLst; }
  // The first component of that name, trimmed and case-blind; 0 when none.
  void CmpIdx(const Tx& ide, int16_t& idx) const;
  VbsSup* Vbs() const { return mVbs.get(); }
  SupWizVbs* WizVbs() const { return mWizVbs.get(); }

 private:
  // What the reading asks of the engine (WizDef.h): a button's place, the
  // program, the calculation after every group.
  void Lin(int32_t lin) override { mLin = lin; }
  void TraPos(tTra& t) override;
  void Pgm(const tWizPgm& p) override;
  void Calc() override { ZpoCalc(); }

  // Script host (WizVbs.cpp).
  VbsSup& VbsCri();  // the host, made on first use
  void VbsPrp();
  void VbsFim();
  void VbsObReg(const Tx& nome, const Var& ob);
  void VbsPgmReg(const std::vector<Tx>& lin, const std::vector<int32_t>* num = nullptr);
  void VbsVarAtr(const Tx& nome, const Var& val, int flag);
  void VbsVarTx(const Tx& nome, const Var& val);

  // Tables.
  void ZpoIdx(const Tx& ide, int16_t& idx) const;
  void PagIdx(const Tx& ide, int16_t& idx) const;
  void CmpObIdx(const Tx& nome, CtlObj*& ctl, bool& ach);
  void CmpObCon(const Var& nome, CtlObj*& ctl);
  CtlObj* CmpOb(int16_t i);
  void RtfFicLer(CtlObj& ctl, const Tx& fic);

  // Conversions of the file's texts.
  void WizPosCnv(const Tx& tx, int32_t& x, int32_t& y) const;
  void WizDimCnv(const Tx& tx, int32_t& w, int32_t& h) const;
  static void WizCorCnv(const Tx& tx, int32_t& cor);
  static void WizFonCnv(const Tx& tx, Tx& nom, int16_t& tam, Tx& est);
  static void WizAlnCnv(const Tx& tx, int16_t& val);

  // Acting on controls.
  static void CmpPos(CtlObj& ctl, int32_t x, int32_t y);
  static void CmpDim(CtlObj& ctl, int32_t w, int32_t h);
  static void CmpFon(CtlObj& ctl, const Tx& nom, int16_t tam, const Tx& est);
  static void CmpCor(CtlObj& ctl, const Var& cor, const Var& cor2 = Var::Falta());
  void CmpSit(const Var& ctlNome, const Tx& lst);
  void CmpSit(CtlObj* ctl, const Tx& lst);
  CtlObj* Btn(int slot);
  void TraExe(int slot);
  void TraPas(TraAco a, const tTra& t);
  CtlObj* CmpVarOb(const Var& nome, int16_t& idx);

  Tx mTrcNom = u"SupWiz";
  Tx mTrcSit;
  std::shared_ptr<vbs::ScriptControl> mSc;  // the host's script control, one per attempt
  std::unique_ptr<VbsSup> mVbs;
  std::unique_ptr<SupWizVbs> mWizVbs;
  Var mFrm;
  tWizDef mDef;             // what the option file defines; attempts append to it
  std::vector<Tx> mZpoCmd;  // the statements of the last calculation pass
  int16_t mZpoCmdNum = 0;   // records whose statements mZpoCmd holds already
  CtlObj* mOpcAct = nullptr;
  std::vector<int16_t> mPagLst;
  int16_t mPagAct = 0;
  int32_t mLin = 0;  // LinAct
};

}  // namespace zw
