// Option memory: the object's life, the rows of the zone in hand and their key
// index, the queries by key or row number, and directory groups.
#include <algorithm>
#include <functional>
#include "DbgFx.h"
#include "FicGlb.h"
#include "OpcAux.h"
#include "TdaOpc.h"
#include "TxtGlb.h"

namespace zw {
using namespace opc;

void OpcIdx::Lpz() {
  blk_.clear();
  ent_.clear();
  std::fill(tab_.begin(), tab_.end(), 0u);
}

size_t OpcIdx::Slot(TxV chv, size_t h) const {
  size_t m = tab_.size() - 1;
  for (size_t i = h & m;; i = (i + 1) & m) {
    uint32_t e = tab_[i];
    if (e == 0) return i;
    const Ent& x = ent_[e - 1];
    if (x.h == h && TxV(blk_).substr(x.ini, x.len) == chv) return i;
  }
}

void OpcIdx::Adi(TxV chv, int32_t p) {
  if (p < 1 || p > 32000) return;
  if ((ent_.size() + 1) * 2 > tab_.size()) {  // keep the table at most half full
    tab_.assign(std::max<size_t>(64, tab_.size() * 2), 0u);
    for (size_t k = 0; k < ent_.size(); k++) tab_[Slot(TxV(blk_).substr(ent_[k].ini, ent_[k].len), ent_[k].h)] = uint32_t(k + 1);
  }
  size_t h = std::hash<TxV>{}(chv), i = Slot(chv, h);
  if (tab_[i] != 0) return;  // an existing key keeps its first position
  ent_.push_back({h, uint32_t(blk_.size()), uint32_t(chv.size()), p});
  blk_.append(chv);
  tab_[i] = uint32_t(ent_.size());
}

int32_t OpcIdx::Psq(TxV chv) const {
  if (tab_.empty()) return 0;
  uint32_t e = tab_[Slot(chv, std::hash<TxV>{}(chv))];
  return e ? ent_[e - 1].pos : 0;
}

TdaOpc::TdaOpc() {
  DbgObjIni(u"TdaOpc", stamp_);
  OpcIni(u"");
  MemLpz();
  IdxIni(opcFix);
  ficPil.assign(1, 0);
  ficLin.assign(1, 0);
  OpcEspIni();
}

// Closes every file on the stack, top first.
TdaOpc::~TdaOpc() {
  int16_t top = 0;
  while (ficPil.size() > 1) FicPilFim(top);
  DbgObjFim(u"TdaOpc", stamp_);
}

void TdaOpc::MemLpz() {
  memTab.assign(1, ParReg());
  memIdx.Lpz();
}

// The value of a row for a holder: the text for a text holder, else the number,
// stored in the holder's own kind.
void TdaOpc::VarVal(const ParReg& r, Var& val) {
  if (val.EhTx())
    val = Var(r.vtx);
  else
    VarAtr(Var(r.vnu), val);
}

// Adds parAct as the next row. The key is the name past its first "." (a
// qualifier), in capitals; a nameless line drops out unless the flag says keep it.
// The table is cut to the new count first, so a zone's first row discards the
// rows of the previous zone.
void TdaOpc::MemReg(int16_t& cnt, int16_t flg) {
  Tx a = parAct.var, chv;
  TxDivTip(u"PE MT", a, u".", chv);
  if (flg == 0 && chv.empty()) return;
  int16_t n = P16(long(cnt) + 1);
  cnt = n;
  if (memTab.size() == size_t(n)) {
    memTab.push_back(parAct);
  } else {
    memTab.resize(size_t(n) + 1);  // a longer table loses its tail
    memTab[n] = parAct;
  }
  memIdx.Adi(chv, n);
}

// A text is a key (row -1 when absent); a number is a row as it stands.
void TdaOpc::MemIdxUsa(const Var& chv, int32_t& row) const {
  if (chv.EhTx()) {
    int32_t p = memIdx.Psq(TxMaiTrm(chv.Txt()));
    row = p ? p : -1;
  } else {
    row = int32_t(NuDbl(chv));
  }
}

void TdaOpc::MemCon(const Tx& chv, Var& val, int16_t& exi, Tx& tpp) {
  int32_t p = memIdx.Psq(TxMaiTrm(chv)), row = p ? p : -1;
  Tx var;
  MemConIdx(row, var, val, tpp, exi);
}

// A row outside the table is not an error: found 0, holder cleared by its kind.
void TdaOpc::MemConIdx(int32_t row, Tx& var, Var& val, Tx& tpp, int16_t& exi) {
  exi = 1;
  if (row < 0 || size_t(row) >= memTab.size()) {
    exi = 0;
    tpp.clear();
    var.clear();
    VarVaz(val);
    return;
  }
  const ParReg& r = memTab[row];
  tpp = r.tpp;
  var = r.var;
  VarVal(r, val);
}

void TdaOpc::MemConTxp(const Var& chv, Tx& txp, int16_t& exi) {
  int32_t row = -1;
  MemIdxUsa(chv, row);
  if (row < 0 || size_t(row) >= memTab.size()) {
    exi = 0;
    txp.clear();
    return;
  }
  exi = 1;
  txp = memTab[row].txp;
}

// Reparses the row's line: the value, and the name as it was written.
void TdaOpc::MemConVop(const Var& chv, Var& val, Tx& nom) {
  Tx txi;
  int16_t exi = 0;
  MemCmp(chv, txi, nom, val, exi);
}

void TdaOpc::MemCmp(const Var& chv, Tx& txi, Tx& nom, Var& val, int16_t& exi) {
  Tx txp, vtx;
  MemConTxp(chv, txp, exi);
  int16_t ptx = 0;
  ParPrep(txp, txi, nom, vtx, ptx);
  VarAtr(Var(vtx), val);
}

void TdaOpc::MemSN(const Tx& chv, Var& sn) {
  Var v{Tx()};
  int16_t exi = 0;
  Tx tpp;
  MemCon(chv, v, exi, tpp);
  TxSN(v, sn, 0);
}

void TdaOpc::MemPath(const Tx& chv, Tx& txt, int16_t& exi, Tx& tpp) {
  Var v{Tx()};
  MemCon(chv, v, exi, tpp);
  txt = v.Txt();
  OpcSbr(txt);
}

// Fills parAct from a text as if it had been read; conversion always applies.
void TdaOpc::MemOpcPrp(const Tx& lin, int16_t exi) {
  Tx l = lin, nom;
  TxBinChr(l);
  ParReg& r = parAct;
  ParTpp(l, r.tpp, r.var);
  ParPrep(l, r.txi, nom, r.vtx, r.ptx);
  r.txp = l;
  int ok = 0;
  NuTxNum(r.vtx, r.vnu, ok);
  r.exi = exi;
}

// Adds a row made of a key and a value after the last row.
void TdaOpc::MemOpcReg(const Tx& chv, const Var& val) {
  ParReg& r = parAct;
  r.txp.clear();
  r.txi.clear();
  r.tpp.clear();
  r.var = chv;
  TxVarCnv(val, r.vtx);
  r.ptx = 0;
  int ok = 0;
  NuTxNum(r.vtx, r.vnu, ok);
  r.exi = 0;
  int16_t cnt = P16(memTab.size() - 1);
  MemReg(cnt, 0);
}

void TdaOpc::GrpDirIni(GrpDir& g) {
  for (auto& c : g) c.assign(1, Tx());
}

void TdaOpc::GrpDirLib(GrpDir& g) {
  for (auto& c : g) c.clear();
}

void TdaOpc::GrpDirNum(const GrpDir& g, int16_t& n) { n = g[0].empty() ? 0 : P16(g[0].size() - 1); }

// Rows 1..n of the zone in hand become the group: name as written, value with its
// variables substituted, label; each pair also becomes a general option.
void TdaOpc::GrpDirCon(GrpDir& g, int16_t n) {
  for (auto& c : g) c.assign(size_t(std::max<int16_t>(n, 0)) + 1, Tx());
  for (int16_t i = 1; i <= n; i++) {
    Tx txp, txi, nom, vtx;
    int16_t exi = 0, ptx = 0;
    MemConTxp(Var(i), txp, exi);
    ParPrep(txp, txi, nom, vtx, ptx);
    OpcSbr(vtx);
    g[0][i] = nom;
    g[1][i] = vtx;
    g[2][i] = txi;
    OpcAct(nom, Var(vtx));
  }
}

void TdaOpc::GrpDirReg(const GrpDir& g, int16_t) {
  int16_t n = 0;
  GrpDirNum(g, n);
  for (int16_t i = 1; i <= n; i++) OpcAct(g[0][i], Var(g[1][i]));
}

}  // namespace zw
