// SupFsys: attributes, the walk in both orders with its counters and actions, and
// the file search built on the walk.
#include "SupFsys.h"
#include <sys/stat.h>
#include <chrono>
#include "DbgFx.h"
#include "FicGlb.h"
#include "Trc.h"
#include "TxtGlb.h"

namespace zw {

int FsysAtrCon(const Tx& path) {
  int e = 0;
  std::string n = FicNat(path, &e);
  struct stat st;
  if (e || n.empty() || stat(n.c_str(), &st) != 0) return -1;
  int a = S_ISDIR(st.st_mode) ? 16 : 0;
  if (!(st.st_mode & S_IWUSR)) a |= 1;
  size_t i = path.find_last_of(u"\\/");
  Tx nom = i == Tx::npos ? path : path.substr(i + 1);
  if (!nom.empty() && nom[0] == u'.' && nom != u"." && nom != u"..") a |= 2;
  return a;
}

int FsysAtrPoe(const Tx& path, int atr) {
  int e = 0;
  std::string n = FicNat(path, &e);
  if (e) return e;
  return FsysAtrPoeNat(n, atr) == 0 ? 0 : FicErrNat(errno, n);
}

int FsysAtrPoeNat(const std::string& nat, int atr) {
  struct stat st;
  if (stat(nat.c_str(), &st) != 0) return -1;
  mode_t m = (atr & 1) ? (st.st_mode & ~mode_t(S_IWUSR)) : (st.st_mode | S_IWUSR);
  if ((m & 07777) == (st.st_mode & 07777)) return 0;
  return chmod(nat.c_str(), m & 07777);
}

// The record of one walk.
struct SupFsys::Pro {
  Tx cmd, acao, padrao;
  char16_t ordem = u'>';
  bool fic = false, dir = false, rec = false;
  int atr = 0;
  int32_t ficVis = 0, ficFei = 0, dirVis = 0, dirFei = 0, sel = 0;
};

SupFsys::SupFsys() { DbgObjIni(cls, stamp); }
SupFsys::~SupFsys() { DbgObjFim(cls, stamp); }

void SupFsys::FxIni() {
  DbgFxIni(cls, stamp);
  DbgFxFim(cls, stamp);
}

void SupFsys::FxFim() {
  DbgFxIni(cls, stamp);
  cbkOb_.reset();
  DbgFxFim(cls, stamp);
}

void SupFsys::RegCbk(const Tx& nome, const Var& ob) {
  cbkNome_ = nome;
  cbkProprio_ = false;
  cbkOb_ = ob.EhObj() ? ob.Obj() : nullptr;
}

void SupFsys::ProFsysAtrb(const Tx& dir, const Tx& atrs, const Tx& padrao) {
  proFsys(u"ATR " + atrs, u"DFR", dir, padrao);
}

void SupFsys::ProFsysCbk(const Tx& sel, const Tx& dir, const Tx& padrao) {
  proFsys(sel == u"*" ? u"CBK" : u"CBK:SEL", u"DFR", dir, padrao);
}

void SupFsys::proFsys(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao) {
  ProFsysRp(cmd, tipos, dir, padrao);
}
void SupFsys::ProFsysRp(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao) {
  Walk(cmd, tipos, dir, padrao, u'>');
}
void SupFsys::ProFsysRa(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao) {
  Walk(cmd, tipos, dir, padrao, u'<');
}

// Sets up the record from the command's words, walks, and keeps the counters.
void SupFsys::Walk(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao, char16_t ordem) {
  Pro p;
  p.ordem = ordem;
  p.padrao = padrao;
  Tx tx = cmd, w;
  TxDivTip(u"RE MT", tx, u" ", w);
  p.cmd = TxMai(w);
  p.acao = p.cmd;
  while (!tx.empty()) {
    TxDivTip(u"RE MT", tx, u" ", w);
    w = TxMai(w);
    if (w == u"+R") p.atr |= 1;
    else if (w == u"+H") p.atr |= 2;
    else if (w == u"+S") p.atr |= 4;
    else if (w == u"+A") p.atr |= 32;
    else if (w == u"REC<") p.ordem = u'<';
    else if (w == u"REC>") p.ordem = u'>';
  }
  Tx k = TxMai(tipos);
  p.fic = k.find(u'F') != Tx::npos;
  p.dir = k.find(u'D') != Tx::npos;
  p.rec = k.find(u'R') != Tx::npos;
  auto t0 = std::chrono::steady_clock::now();
  Anda(p, dir);
  seg_ = std::chrono::duration<float>(std::chrono::steady_clock::now() - t0).count();
  ficVis_ = p.ficVis, ficFei_ = p.ficFei, dirVis_ = p.dirVis, dirFei_ = p.dirFei, sel_ = p.sel;
}

// One folder: its files and its subfolders, in the record's order. A subfolder that
// is a symbolic link is acted on but not walked, so a link can't lead the walk round
// in a circle or out of the tree.
void SupFsys::Anda(Pro& p, const Tx& dir) {
  std::vector<Tx> noms;
  std::vector<int> atrs;
  int n = 0, err = 0;
  DirLisAtr(u"D", 2, dir, u"*", noms, &atrs, n, err);
  if (err) return;  // a folder that can't be read counts as empty
  if (p.ordem == u'>') Ficheiros(p, dir);
  for (int i = 1; i <= n; i++) {
    const Tx& nom = noms[size_t(i)];
    if (nom.empty() || nom[0] == u'.') continue;
    Tx path = FicJun(dir, nom);
    struct stat st;
    bool lnk = lstat(FicNat(path).c_str(), &st) == 0 && S_ISLNK(st.st_mode);
    if (p.ordem == u'<' && p.rec && !lnk) Anda(p, path);
    p.dirVis++;
    if (p.dir) Age(p, nom, path, true);
    if (p.ordem == u'>' && p.rec && !lnk) Anda(p, path);
  }
  if (p.ordem == u'<') Ficheiros(p, dir);
}

// The files of a folder that match the pattern.
void SupFsys::Ficheiros(Pro& p, const Tx& dir) {
  std::vector<Tx> noms;
  int n = 0, err = 0;
  DirLisAtr(u"F", 2, dir, p.padrao.empty() ? Tx(u"*.*") : p.padrao, noms, nullptr, n, err);
  for (int i = 1; i <= n; i++) {
    Tx nom = noms[size_t(i)];
    size_t z = nom.find(u'\0');
    if (z != Tx::npos) nom.resize(z);
    p.ficVis++;
    if (p.fic) Age(p, nom, FicJun(dir, nom), false);
  }
}

// Counts the entry as done and acts on it; a callback's failure is passed over.
void SupFsys::Age(Pro& p, const Tx& nome, const Tx& path, bool pasta) {
  Tx tipo = pasta ? u"D" : u"F";
  if (p.acao == u"ATR") {
    (pasta ? p.dirFei : p.ficFei)++;
    FsysAtrPoe(path, p.atr);
  } else if (p.acao == u"CBK") {
    (pasta ? p.dirFei : p.ficFei)++;
    if (cbkOb_) {
      std::vector<Var> a{Var(nome), Var(int32_t(p.ficFei + p.dirFei)), Var(tipo), Var(path)};
      Var r;
      try {
        cbkOb_->Chama(u"cbkFsysFicPro", a, r);
      } catch (...) {
        TrcFal(u"SupFsys", u"cbkFsysFicPro \"" + path + u"\"", TrcPor());
      }
    }
  } else if (p.acao == u"CBK:SEL" && !pasta) {
    p.ficFei++;
    p.sel++;
    if (cbkProprio_) {
      cbkFsysFicSel(nome, p.sel, tipo, path);
    } else if (cbkOb_) {
      std::vector<Var> a{Var(nome), Var(int32_t(p.sel)), Var(tipo), Var(path)};
      Var r;
      try {
        cbkOb_->Chama(u"cbkFsysFicSel", a, r);
      } catch (...) {
        TrcFal(u"SupFsys", u"cbkFsysFicSel \"" + path + u"\"", TrcPor());
      }
    }
  }
}

void SupFsys::PsqFic(const Tx& opc, const Tx& dir, const Tx& padrao, std::vector<Tx>& lis, int32_t& n) {
  Tx pad = padrao.empty() ? Tx(u"*.*") : padrao;
  Var v = Tx();
  int ach = 0;
  OpcTxCon(opc, u"MP", v, ach);
  Tx tipos = ach ? TxVar(v) : Tx(u"FR");
  Var m = Tx();
  OpcTxCon(opc, u"MAX", m, ach);
  psqMax_ = ach ? int32_t(NuLng(NuVal(TxVar(m)))) : 1000;
  psqLis_.assign(1, Tx());
  RegCbk(u"#PSQ.FIC", Var());
  cbkProprio_ = true;
  proFsys(u"CBK:SEL", tipos, dir, pad);
  RegCbk(u"", Var(Tx()));
  lis = psqLis_;
  n = int32_t(lis.size()) - 1;
}

void SupFsys::cbkFsysFicSel(const Tx& nome, int32_t num, const Tx& tipo, const Tx& path) {
  (void)nome, (void)tipo;
  if (cbkNome_ != u"#PSQ.FIC") return;
  if (psqMax_ != 0 && num > psqMax_) return;
  psqLis_.push_back(path);
}

}  // namespace zw
