// Zones: opening a file for a walk, stepping from zone to zone, reading each
// body by its kind into memory, and copying the zone in hand into arrays.
#include "FicGlb.h"
#include "OpcAux.h"
#include "TdaOpc.h"
#include "TxtGlb.h"

namespace zw {
using namespace opc;

void TdaOpc::ZonIni(const Tx& fic, const Tx& lbl) {
  memIdx.Lpz();
  tboPrp(fic, lbl);
}

// Like ZonIniLer, but a file that cannot be opened gives "" without a message.
Tx TdaOpc::ZonIniExi(const Tx& fic, const Tx& lbl) {
  int r = 0;
  FicExi(fic, r);
  if (r != 1) {
    memIdx.Lpz();
    return Tx();
  }
  ZonIni(fic, lbl);
  Tx ide, tip, des;
  int16_t cnt = 0;
  ZonSeg(ide, tip, cnt, des);
  return ide;
}

void TdaOpc::ZonIniLer(const Tx& fic, const Tx& lbl) {
  ZonIni(fic, lbl);
  Tx ide, tip, des;
  int16_t cnt = 0;
  ZonSeg(ide, tip, cnt, des);
}

// The next zone, its body read by kind; "DEF" and "OPC" zones are also prepared.
// At the end of the file the identifier is empty.
void TdaOpc::ZonSeg(Tx& ide, Tx& tip, int16_t& cnt, Tx& des) {
  memIdx.Lpz();
  ZonCabLer(ide, tip, des);
  if (tip == u"TX") {
    ZonSegTx(cnt);
  } else if (tip == u"ZTX") {
    ZonSegZtx(cnt);
  } else {
    ZonSegIde(cnt);
    if (ide == u"DEF") ZonDefPrp(cnt);
    if (ide == u"OPC") ZonOpcPrp(cnt);
  }
}

void TdaOpc::ZonFim() {
  int16_t top = 0;
  FicPilFim(top);
}

// Variable lines become rows; everything else up to "##" is passed over.
void TdaOpc::ZonSegIde(int16_t& cnt) {
  cnt = 0;
  Tx tpp;
  int16_t exi = 0;
  ParLerTip(tpp, exi);
  while (tpp != u"##" && exi == 1) {
    if (tpp == u"=") MemReg(cnt, 0);
    ParLerTip(tpp, exi);
  }
}

// Logical lines kept as text, in regLin and as the txp of keyless rows.
void TdaOpc::ZonSegTx(int16_t& cnt) {
  cnt = 0;
  regLin.assign(1, Tx());
  regLinNum.assign(1, 0);
  memTab.assign(1, ParReg());
  Tx tpp;
  int16_t exi = 0;
  ParLerTip(tpp, exi);
  while (tpp != u"##" && exi == 1) {
    cnt = P16(long(cnt) + 1);
    regLin.push_back(parAct.txp);
    regLinNum.push_back(parAct.lin);
    ParReg r;
    r.txp = parAct.txp;
    r.lin = parAct.lin;
    memTab.push_back(std::move(r));
    ParLerTip(tpp, exi);
  }
}

// Physical lines kept to the letter, empty ones included; memTab is not touched.
void TdaOpc::ZonSegZtx(int16_t& cnt) {
  cnt = 0;
  regLin.assign(1, Tx());
  regLinNum.assign(1, 0);
  Tx lin;
  int16_t exi = 0;
  ParLerLit(lin, exi);
  while (exi == 1) {
    cnt = P16(long(cnt) + 1);
    regLin.push_back(lin);
    regLinNum.push_back(parAct.lin);
    ParLerLit(lin, exi);
  }
}

// The "DEF" zone becomes the general options, then the command line's
// "KEY=value" words are laid over them.
void TdaOpc::ZonDefPrp(int16_t cnt) {
  OpcPrp(cnt);
  LcIni(u"");
}

// The "OPC" zone's rows are copied for the tabular options; path values ("F:"
// names) have their variables substituted once, here.
void TdaOpc::ZonOpcPrp(int16_t cnt) {
  if (cnt < 0) cnt = 0;
  opcTabReg.assign(size_t(cnt) + 1, ParReg());
  for (int16_t i = 1; i <= cnt; i++) {
    ParReg r = memTab.at(i);
    r.vnu = 0;
    Tx tip, nom;
    ParTipVar(r.var, tip, nom);
    if (tip == u"F") OpcSbr(r.vtx);
    opcTabReg[i] = std::move(r);
  }
}

// Keyed-table modes: "IDE" resets the table first; "IDEx", and any mode that
// sorts after "IDE" and not after "IDEx", merge into it. A later row with the same
// name replaces the value of an earlier one here.
void TdaOpc::ZonArr(const Tx& mod, int16_t cnt, IdxTab& tab) {
  if (mod == u"IDE") IdxIni(tab);
  if (!(mod == u"IDE" || (mod > Tx(u"IDE") && mod <= Tx(u"IDEx")))) return;
  for (int16_t i = 1; i <= cnt; i++) {
    const ParReg& r = memTab.at(i);
    int ok = 0;
    IdxReg(tab, r.var, r.vtx, ok);
  }
}

void TdaOpc::ZonArr(const Tx&, int16_t cnt, std::vector<std::array<Tx, 3>>& mul) {
  mul.assign(size_t(std::max<int16_t>(cnt, 0)) + 1, {});
  for (int16_t i = 1; i <= cnt; i++) {
    const ParReg& r = memTab.at(i);
    mul[i] = {r.txi, r.var, r.vtx};
  }
}

// "FIC": the rows' values with their variables substituted; any other mode: the
// lines of the last TX or ZTX body.
void TdaOpc::ZonArr(const Tx& mod, int16_t cnt, std::vector<Tx>& arr) {
  arr.assign(size_t(std::max<int16_t>(cnt, 0)) + 1, Tx());
  for (int16_t i = 1; i <= cnt; i++) {
    if (mod == u"FIC") {
      OpcSbr(memTab.at(i).vtx, arr[i]);
    } else {
      arr[i] = regLin.at(i);
    }
  }
}

// The parts of a zone head "#IDENT:KIND anything - description": the identifier and
// the kind word in capitals, and the description after the first "-" of the rest.
// Both readers of heads come here and differ only in the kinds they keep.
void TdaOpc::ZonCabDiv(const Tx& lin, Tx& ide, Tx& kw, Tx& des) {
  Tx a = TxMeio(lin, 2), b;
  TxDivTip(u"SE T", a, u" ", b);
  a = TxMaiTrm(a);
  int p = TxPos(a, u":");
  kw.clear();
  if (p) {
    ide = TxEsq(a, p - 1);
    kw = TxMaiTrm(TxMeio(a, p + 1));
  } else {
    ide = a;
  }
  int h = TxPos(b, u"-");
  des = h ? TxTrim(TxMeio(b, h + 1)) : Tx();
}

// A zone head given as text, for the walks of lines in memory: kind "TX" or else
// "IDE", so a "ZTX" head reads as "IDE" here (the file reader keeps "ZTX"), and
// the special options stay in the description.
void TdaOpc::ZonIde(const Tx& lin, Tx& ide, Tx& tip, Tx& des) {
  Tx kw;
  ZonCabDiv(lin, ide, kw, des);
  tip = kw == u"TX" ? u"TX" : u"IDE";
}

}  // namespace zw
