// ChkEfe: the checker's script engine keeps the program from reaching the machine
// or the person while the file is read, and records what a run would have done.
//
// Severity follows one rule: an error when a run would change the machine (start
// a program, write, copy, rename or delete files, register components, add a
// printer, write the registry), since that happens every time the wizard is
// opened, before its window shows, and again at every calculation; a warning when
// a run would only show something, read something, or be handed an object whose
// answers checking cannot know, since the results then differ from a run's.
#include "ChkEfe.h"
#include <algorithm>
#include <cmath>
#include "Builtins.h"
#include "GlbVar.h"
#include "MsgDlg.h"
#include "SupWizVbs.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw::chk {

namespace {

Tx Aspa(TxV t) { return u"\"" + Tx(t) + u"\""; }

// "the program <faz> while the file is read (<onde>): <fim>"; without onde, no brackets.
Tx Msg(const Tx& faz, const Tx& onde, const Tx& fim) {
  return u"the program " + faz + u" while the file is read" + (onde.empty() ? Tx() : u" (" + onde + u")") + u": " + fim;
}

// Members of outside objects that change the machine, with what they do. Any other
// member only answers: the warning on the object's creation covers it.
struct Mem {
  const char16_t* nom;
  const char16_t* faz;
};
const Mem kMem[] = {
    {u"Run", u"starts a program"},          {u"Exec", u"starts a program"},
    {u"ShellExecute", u"starts a program"}, {u"Create", u"starts a program"},
    {u"Terminate", u"ends a program"},      {u"SendKeys", u"sends keys to a window"},
    {u"RegWrite", u"writes the registry"},  {u"RegDelete", u"deletes from the registry"},
    {u"CreateTextFile", u"creates a file"}, {u"CreateFolder", u"creates a folder"},
    {u"CopyFile", u"copies a file"},        {u"CopyFolder", u"copies a folder"},
    {u"MoveFile", u"moves a file"},         {u"MoveFolder", u"moves a folder"},
    {u"DeleteFile", u"deletes a file"},     {u"DeleteFolder", u"deletes a folder"},
    {u"Copy", u"copies a file"},            {u"Move", u"moves a file"},
    {u"Delete", u"deletes a file"},         {u"Save", u"writes a file"},
    {u"Write", u"writes a file"},           {u"WriteLine", u"writes a file"},
    {u"WriteBlankLines", u"writes a file"},
};

// An outside object as checking hands it to scripts: every member is there, does
// nothing and answers another such object, named after the member, whose own
// value is Empty. So chains (fso.GetFile(p).Size), Set, For Each (no items) and
// plain values all go on without an error, as they would with the real object.
// The members that change the machine are recorded; OpenTextFile counts as one
// when it opens to write or create.
class ObjMudo : public vbs::Obj {
 public:
  ObjMudo(std::shared_ptr<EfeReg> reg, Tx nom) : reg_(std::move(reg)), nom_(std::move(nom)) {}
  int Id(TxV n) override {
    for (size_t i = 0; i < mem_.size(); i++)
      if (vbs::EqNoCase(n, mem_[i])) return int(i) + 1;
    mem_.emplace_back(n);
    return int(mem_.size());
  }
  void Invoke(int id, vbs::Inv k, vbs::Args a, vbs::Value& r) override {
    bool da = k == vbs::Inv::Get || k == vbs::Inv::Call;
    if (id <= 0 || size_t(id) > mem_.size()) {
      if (a.n > 0 && da) r = vbs::Value(static_cast<vbs::Obj*>(this));
      return;  // the object's own value: Empty
    }
    const Tx& m = mem_[size_t(id - 1)];
    const char16_t* faz = nullptr;
    for (const Mem& x : kMem)
      if (vbs::EqNoCase(m, x.nom)) faz = x.faz;
    if (!faz && vbs::EqNoCase(m, u"OpenTextFile") && Escreve(a)) faz = u"opens a file to write";
    if (faz)
      reg_->Adi(true, Msg(faz, Aspa(m) + u" of " + Aspa(nom_),
                          Tx(faz) == u"starts a program" ? u"checking does not run it" : u"checking does not do it"));
    if (da) r = vbs::Value(static_cast<vbs::Obj*>(new ObjMudo(reg_, nom_ + u"." + m)));
  }
  bool Items(std::vector<vbs::Value>& out) override {
    out.clear();
    return true;
  }

 private:
  // OpenTextFile(path, mode, create): mode 2 (write) or 8 (append), or create True.
  static bool Escreve(vbs::Args a) {
    try {
      if (a.Has(1) && (vbs::ToLng(a[1]) == 2 || vbs::ToLng(a[1]) == 8)) return true;
      return a.Has(2) && vbs::ToBool(a[2]);
    } catch (...) {
      return false;  // an argument a run would refuse: the call fails there too
    }
  }
  std::shared_ptr<EfeReg> reg_;
  Tx nom_;
  std::vector<Tx> mem_;
};

// The policy: the engine's own objects that only compute (regular expressions,
// dictionaries) are made as in a run, and so is a failure to make an object a run
// would fail to make too; anything else is an inert object. Boxes show nothing and
// answer as their default button or default text would.
class PolMudo : public vbs::HostPolicy {
 public:
  explicit PolMudo(std::shared_ptr<EfeReg> reg) : reg_(std::move(reg)) {}
  vbs::Ref<vbs::Obj> Object(TxV id, TxV path, bool get) override {
    if (!path.empty() || !vbs::HasProgId(id)) return {};  // a run fails here (429): so does checking
    if (vbs::EqNoCase(id, u"VBScript.RegExp") || vbs::EqNoCase(id, u"Scripting.Dictionary")) return {};
    reg_->Adi(false, Msg((get ? u"gets " : u"creates ") + Aspa(id), get ? u"GetObject" : Tx(),
                         u"checking hands it an object that does nothing"));
    return vbs::Ref<vbs::Obj>(new ObjMudo(reg_, Tx(id)));
  }
  bool MsgBox(TxV, TxV, int32_t style, int32_t& r) override {
    reg_->Adi(false, Msg(u"shows a message box", u"MsgBox", u"checking shows none and takes its default button"));
    r = MsgRespOmissao(style);
    return true;
  }
  bool InputBox(TxV, TxV, TxV dflt, vbs::Value& r) override {
    reg_->Adi(false, Msg(u"asks for a text", u"InputBox", u"checking shows nothing and takes the default text"));
    r = vbs::Value(dflt);
    return true;
  }

 private:
  std::shared_ptr<EfeReg> reg_;
};

// What each operation of "Wiz" is while the file is read:
//   kPur computes from its arguments alone (texts, numbers, a path joined from
//        pieces): the library itself runs it, so calculations give what a run gives;
//   kEst keeps a setting of the library, acts on the wizard's own controls, or
//        does nothing in a run either (MsgSba): nothing to record, it answers Empty;
//   kLer reads the machine (files, drives, registry, the system): Empty, a warning;
//   kCai shows a box: Empty, a warning;
//   kMud changes the machine: Empty, an error.
// An operation this table does not know yet is taken as a change whose kind is
// unknown, a warning.
enum Tip { kPur, kEst, kLer, kCai, kMud };
struct OpTip {
  const char16_t* nom;
  Tip tip;
  const char16_t* faz;
};
const OpTip kOpTip[] = {
    {u"FxIni", kEst, nullptr},
    {u"FxFim", kEst, nullptr},
    {u"OpcRegAltAttr", kEst, nullptr},
    {u"DbgMsgSit", kEst, nullptr},
    {u"DbgMsgVer", kCai, u"shows a debug message"},
    {u"TxCnv", kPur, nullptr},
    {u"TxNum", kPur, nullptr},
    {u"TxSep", kPur, nullptr},
    {u"TxOpc", kPur, nullptr},
    {u"TxOpcNum", kPur, nullptr},
    {u"NuCnv", kPur, nullptr},
    {u"NuTxSep", kPur, nullptr},
    {u"MsgVer", kCai, u"shows a message"},
    {u"MsgTip", kCai, u"asks a question"},
    {u"MsgSba", kEst, nullptr},
    {u"FxPgmExe", kMud, u"starts a program"},
    {u"FxShell", kMud, u"starts a program"},
    {u"FxDrvUsa", kLer, u"looks for a drive"},
    {u"FxPgm", kLer, u"asks for the program's folder"},
    {u"FxFicLoc", kPur, nullptr},
    {u"FxDirCop", kMud, u"copies a folder"},
    {u"FxFicCop", kMud, u"copies a file"},
    {u"FxFicRen", kMud, u"renames a file"},
    {u"FxFicEli", kMud, u"deletes files"},
    {u"FxFicTip", kLer, u"asks what a path is"},
    {u"FxCmpRegFic", kMud, u"registers or unregisters a component"},
    {u"FxCmpRegDir", kMud, u"registers or unregisters components"},
    {u"FxRegGrpPrp", kEst, nullptr},
    {u"FxRegVarCon", kLer, u"reads the registry"},
    {u"CmpVarCon", kEst, nullptr},
    {u"CmpVarAlt", kEst, nullptr},
    {u"FxPrtPdfIns", kMud, u"adds a printer"},
    {u"SopIdeCon", kLer, u"asks for the system's name"},
};

// "Wiz" for the checker: the operations that compute run in a library of its own
// (made without a wizard, so it reaches no control), the rest answer Empty and are
// recorded as the table says. The debug box shows only once the debug mode is on,
// so DbgMsgVer counts only then.
class WizMudo : public vbs::Obj {
 public:
  explicit WizMudo(std::shared_ptr<EfeReg> reg) : reg_(std::move(reg)), ob_(VbsDeVar(lib_.Ob()).o) {}
  Tx TypeName() override { return u"SupWizVbs"; }
  int Id(TxV n) override { return ob_->Id(n); }
  void Invoke(int id, vbs::Inv k, vbs::Args a, vbs::Value& r) override {
    static const std::vector<Tx> nomes = SupWizVbs::OpNomes();
    r = vbs::Value();
    if (id < 1 || size_t(id) > nomes.size()) return;
    const Tx& n = nomes[size_t(id - 1)];
    auto it = std::find_if(std::begin(kOpTip), std::end(kOpTip), [&](const OpTip& o) { return n == o.nom; });
    if (it == std::end(kOpTip)) {
      reg_->Adi(false, Msg(u"calls an operation of \"Wiz\"", u"Wiz." + n, u"checking does not run it"));
      return;
    }
    switch (it->tip) {
      case kPur:
        // a padded number wider than any text a wizard shows is not built
        if (n == u"TxNum" && a.Has(1) && std::abs(NuDbl(VarDeVbs(a[1]))) > 65536) return;
        ob_->Invoke(id, k, a, r);
        return;
      case kEst:
        if (n == u"DbgMsgSit" && a.Has(0)) dbg_ = NuDbl(VarDeVbs(a[0])) == 1;
        return;
      case kLer:
        reg_->Adi(false, Msg(it->faz, u"Wiz." + n,
                             u"checking answers Empty, so what is worked out from it may differ from a run"));
        return;
      case kCai:
        if (n != u"DbgMsgVer" || dbg_)
          reg_->Adi(false, Msg(it->faz, u"Wiz." + n, u"checking shows none and answers Empty"));
        return;
      case kMud:
        reg_->Adi(true, Msg(it->faz, u"Wiz." + n,
                            Tx(it->faz) == u"starts a program" ? u"checking does not run it" : u"checking does not do it"));
        return;
    }
  }

 private:
  std::shared_ptr<EfeReg> reg_;
  SupWizVbs lib_;
  vbs::Ref<vbs::Obj> ob_;
  bool dbg_ = false;
};

}  // namespace

void EfeReg::Pgm(const Tx& tx, const std::vector<int32_t>& map) {
  pgm_ = tx;
  map_ = map;
  ult_.reset();
}

// The file line is that of the program line when the statement in hand is the
// program's, else that of the row or expression being worked out.
void EfeReg::Adi(bool erro, const Tx& msg) {
  vbs::Site s = vbs::Where();
  int32_t lin = lin_;
  if (s.Text && s.Line >= 1) {
    if (s.Text != ult_) {
      ult_ = s.Text;
      ultPgm_ = *s.Text == pgm_;
    }
    if (ultPgm_ && size_t(s.Line) <= map_.size()) lin = map_[size_t(s.Line - 1)];
  }
  for (const Efe& e : efe_)
    if (e.lin == lin && e.msg == msg) return;
  efe_.push_back({lin, erro, msg});
}

std::shared_ptr<vbs::HostPolicy> EfePol(std::shared_ptr<EfeReg> reg) {
  return std::make_shared<PolMudo>(std::move(reg));
}

vbs::Obj* EfeWiz(std::shared_ptr<EfeReg> reg) { return new WizMudo(std::move(reg)); }

}  // namespace zw::chk
