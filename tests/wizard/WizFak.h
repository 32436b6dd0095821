// WizFak: a wizard window and controls that record what the engine does to them,
// a recording message box, and a fixture that builds a wizard from option lines
// in a folder of its own.
#pragma once
#include <gtest/gtest.h>
#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>
#include "MsgDlg.h"
#include "SupWiz.h"
#include "TxtGlb.h"
#include "VbsSup.h"

namespace zw::tst {

// The end of the process, thrown by the fake window instead of ending.
struct FimPrc {};

// A control of one kind: the properties it has (others raise 438) and the methods
// of an option group. Every change goes to the shared log as "name.Prop=value".
struct CtlFak : CtlObj {
  Tx nome;
  std::set<Tx> prps;
  std::map<Tx, Var> val;
  std::vector<Tx>* log = nullptr;
  std::vector<std::array<Tx, 2>> opc{{}};  // option group: element 0 hidden

  CtlFak(Tx n, std::vector<Tx>* l, const std::vector<const char16_t*>& proprias) : nome(std::move(n)), log(l) {
    for (auto p : {u"Left", u"Top", u"Width", u"Height", u"Visible", u"Enabled", u"FontName", u"FontSize",
                   u"FontBold", u"FontItalic", u"BackColor", u"ForeColor"})
      prps.insert(p);
    for (auto p : proprias) prps.insert(p);
    val[u"Visible"] = Var(true);
    val[u"Enabled"] = Var(true);
    val[u"FontName"] = Var(Tx(u"MS Sans Serif"));
    val[u"Value"] = Var(int16_t(0));
    val[u"opcUsa"] = Var(int16_t(0));
  }
  Var PrpCon(TxV n) const override {
    if (!prps.count(Tx(n))) throw CtlErr(438);
    auto it = val.find(Tx(n));
    return it == val.end() ? Var() : it->second;
  }
  void PrpAtr(TxV n, const Var& v) override {
    if (!prps.count(Tx(n))) throw CtlErr(438);
    if (n == u"FontSize" && NuDbl(v) <= 0) throw CtlErr(380);
    val[Tx(n)] = v;
    log->push_back(nome + u"." + Tx(n) + u"=" + TxVar(v));
  }
  Var Exe(TxV n, std::vector<Var>& a) override {
    Tx l = nome + u"." + Tx(n) + u"(";
    for (size_t i = 0; i < a.size(); i++) l += (i ? u"," : u"") + TxVar(a[i]);
    log->push_back(l + u")");
    if (n == u"RegOpc") opc.push_back({TxVar(a.at(0)), TxVar(a.at(1))});
    else if (n == u"ConOpc") {
      size_t i = size_t(NuDbl(a.at(0)));
      if (i >= opc.size()) throw CtlErr(9);
      a.at(1) = Var(opc[i][0]);
      a.at(2) = Var(opc[i][1]);
    } else if (n == u"LoadFile") {
      if (!std::filesystem::exists(TxUtf8(TxVar(a.at(0))))) throw CtlErr(75);
      val[u"Text"] = Var(Tx(u"<rtf>"));
    } else if (n != u"CorTip" && n != u"RegIni" && n != u"RegAsp" && n != u"AjtPosY") {
      throw CtlErr(438);
    }
    return Var();
  }
  bool Vis() const { return val.at(u"Visible").Bool(); }
  bool Ena() const { return val.at(u"Enabled").Bool(); }
  Tx Txt(const char16_t* p = u"Caption") const {
    auto it = val.find(p);
    return it == val.end() ? Tx() : TxVar(it->second);
  }
};

// The window: buttons, control arrays, and the log of what reached it.
struct FrmFak : WizFrm {
  std::vector<Tx> log;
  std::map<Tx, std::unique_ptr<CtlFak>> btn;
  std::map<int, std::map<int, std::unique_ptr<CtlFak>>> arr;
  SupWiz* eng = nullptr;
  bool unloaded = false;

  FrmFak() {
    for (auto b : {u"cmAnt", u"cmSeg", u"cmCnf", u"cmCan"}) btn[b] = std::make_unique<CtlFak>(b, &log, std::vector<const char16_t*>{u"Caption"});
  }
  void WizExe(SupWiz& e) override {
    eng = &e;
    e.VbsExe(u"FxIni");
  }
  void Caption(const Tx& t) override { log.push_back(u"Caption=" + t); }
  void Picture(const Tx& f) override {
    if (!std::filesystem::exists(TxUtf8(f))) throw CtlErr(53);
    log.push_back(u"Picture=" + f);
  }
  void Icon(const Tx& f) override { log.push_back(u"Icon=" + f); }
  void Width(double t) override { log.push_back(u"Width=" + TxVar(Var(t))); }
  void Height(double t) override { log.push_back(u"Height=" + TxVar(Var(t))); }
  CtlObj* Btn(TxV n) override {
    auto it = btn.find(Tx(n));
    return it == btn.end() ? nullptr : it->second.get();
  }
  CtlFak* B(const char16_t* n) { return btn.at(n).get(); }
  CtlObj* Ctl(CtlArr a, int i) override { return C(a, i); }
  CtlFak* C(CtlArr a, int i) {
    auto& m = arr[int(a)];
    auto it = m.find(i);
    return it == m.end() ? nullptr : it->second.get();
  }
  int UBound(CtlArr a) const override {
    auto it = arr.find(int(a));
    return it == arr.end() || it->second.empty() ? 0 : it->second.rbegin()->first;
  }
  CtlObj* Load(CtlArr a, int i) override {
    static const char16_t* const nomes[] = {u"laWiz", u"ckWiz", u"rtfWiz", u"ZunOpc"};
    auto& m = arr[int(a)];
    if (m.count(i)) throw CtlErr(360);
    std::vector<const char16_t*> p;
    switch (a) {
      case CtlArr::Lab: p = {u"Caption", u"Alignment", u"AutoSize", u"WordWrap", u"BackStyle"}; break;
      case CtlArr::Ckb: p = {u"Caption", u"Value", u"BackStyle"}; break;
      case CtlArr::Rtf: p = {u"Text", u"BackStyle"}; break;
      case CtlArr::Opc: p = {u"Caption", u"BorderVisible", u"opcUsa"}; break;
    }
    Tx n = Tx(nomes[int(a)]) + u"(" + TxAsc(std::to_string(i)) + u")";
    m[i] = std::make_unique<CtlFak>(n, &log, p);
    m[i]->val[u"Visible"] = Var(false);
    log.push_back(u"Load " + n);
    return m[i].get();
  }
  void Unload() override {
    if (unloaded) return;
    unloaded = true;
    log.push_back(u"Unload");
    if (eng) eng->VbsExe(u"FxFim");
  }
  [[noreturn]] void End() override {
    log.push_back(u"End");
    throw FimPrc{};
  }
  void PagEnt(int idx, const Tx& ide) override { log.push_back(u"page " + TxAsc(std::to_string(idx)) + u" " + ide); }
};

// Boxes: each one is logged as "box STYLE TITLE|TEXT" and answered with its default
// button.
struct DlgFak : MsgDlg {
  std::vector<Tx>* log = nullptr;
  int Caixa(int estilo, const Tx& tit, const Tx& tx) override {
    log->push_back(u"box " + TxAsc(std::to_string(estilo)) + u" " + tit + u"|" + tx);
    return MsgRespOmissao(estilo);
  }
  void Bip() override {}
  bool Entrada(const Tx&, const Tx&, const Tx& omi, Tx& r) override {
    r = omi;
    return true;
  }
};

// A wizard built from option lines: Ini() writes them after the five header lines
// into a folder of its own, registers a fresh window and reads the file.
struct WizTst : ::testing::Test {
  std::filesystem::path dir;
  std::shared_ptr<FrmFak> frm;
  std::unique_ptr<SupWiz> sup = std::make_unique<SupWiz>();
  DlgFak dlg;
  Tx fpa;

  void SetUp() override {
    char tpl[] = "/tmp/zw_wiz_XXXXXX";
    ASSERT_TRUE(mkdtemp(tpl));
    dir = tpl;
    MsgDlgDef(&dlg);
  }
  void TearDown() override {
    sup.reset();
    MsgDlgDef(nullptr);
    std::filesystem::remove_all(dir);
  }
  // Writes the option file (UTF-8, CR LF) and gives its path.
  Tx Par(const std::string& corpo, const char* nome = "ZunWiz.par") {
    std::string t = "'Nome : T\r\n'Tipo : PAR\r\n'Data :\r\n'Versao :\r\n'Descricao :\r\n";
    for (char c : corpo) {
      if (c == '\n') t += "\r\n";
      else t += c;
    }
    auto p = dir / nome;
    std::ofstream(p, std::ios::binary) << t;
    return TxDeUtf8(p.string());
  }
  // A new window for an attempt, with the dialog log joined to its log.
  void Frm() {
    frm = std::make_shared<FrmFak>();
    dlg.log = &frm->log;
    sup->RegFrm(Var(std::shared_ptr<VarObj>(frm)));
  }
  // One attempt over the option text: window, reading, "FxIni".
  void Ini(const std::string& corpo) {
    fpa = Par(corpo);
    sup->RegDir(tWizDir{fpa, Tx(), Tx(), TxDeUtf8(dir.string()), Tx()});
    Frm();
    sup->WizIni(fpa);
    sup->WizExe();
  }
  // The value of a script expression as text.
  Tx Ev(const Tx& e) {
    Var r;
    sup->Vbs()->ExeCalcRes(e, r);
    return TxVar(r);
  }
  // The log lines that begin with a prefix, in order.
  std::vector<Tx> Log(const Tx& pfx) const {
    std::vector<Tx> r;
    for (auto& l : frm->log)
      if (l.starts_with(pfx)) r.push_back(l);
    return r;
  }
  // The pages entered, as "1 INI,2 PAS", from the log.
  Tx Pags() const {
    Tx r;
    for (auto& l : frm->log)
      if (l.starts_with(u"page ")) r += (r.empty() ? u"" : u",") + l.substr(5);
    return r;
  }
  void Limpa() { frm->log.clear(); }
};

}  // namespace zw::tst
