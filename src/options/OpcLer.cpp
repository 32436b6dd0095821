// Reading an option file: physical and logical lines, line types, the split of a
// variable line, zone heads, the header, and the stack of open files.
#include "FicGlb.h"
#include "OpcAux.h"
#include "TdaOpc.h"
#include "TxtGlb.h"

namespace zw {
using namespace opc;

// The type code of a line, from its first characters only (the line is not
// trimmed), and for a variable line its name: the first bracket pair of the whole
// line, value included. "A=1" stays plain text: its "=" stands before position 4.
void TdaOpc::ParTpp(const Tx& lin, Tx& tpp, Tx& var) {
  tpp = u"?";
  if (lin.empty()) tpp = u"";
  if (Ini(lin, u"'")) tpp = u"'";
  if (Ini(lin, u"#")) tpp = u"#";
  if (Ini(lin, u"##")) tpp = u"##";
  if (Ini(lin, u"$")) tpp = u"$";
  if (Ini(lin, u"$$")) tpp = u"$$";
  if (tpp == u"?" && TxPos(lin, u"=") > 3) tpp = u"=";
  var.clear();
  if (tpp == u"=") {
    Tx a, d, b;
    int n = 0;
    TxBrkCon(lin, a, d, b, n, u"[]");
    var = TxMaiTrm(d);
  }
}

// Splits a variable line into label, name as written, value and the value's
// position. The separator is the first "=" unless a "]=" stands after it, so an
// "=" inside the label or the brackets does not split. Accepts "AB=1" although
// ParTpp does not call it a variable line.
void TdaOpc::ParPrep(const Tx& lin, Tx& txi, Tx& var, Tx& vtx, int16_t& ptx) {
  int p = TxPos(lin, u"="), q = TxPos(lin, u"]=");
  if (q > p) p = q + 1;
  Tx rot;
  if (!Ini(lin, u"'") && p >= 3) {
    ptx = P16(p + 1);
    rot = TxEsq(lin, p - 1);
    vtx = TxMeio(lin, p + 1);
  } else {
    ptx = 0;
    vtx.clear();
  }
  Tx a, d, b;
  int n = 0;
  TxBrkCon(rot, a, d, b, n, u"[]");
  var = d;
  txi = TxTrim(a);
}

// Cuts a name at its first ":" into type mark and bare name.
void TdaOpc::ParTipVar(const Tx& nom, Tx& tip, Tx& var) {
  int p = TxPos(nom, u":");
  if (p == 0) {
    tip.clear();
    var = nom;
  } else {
    tip = TxEsq(nom, p - 1);
    var = TxMeio(nom, p + 1);
  }
}

// One physical line from the file at the top of the stack; false at the end or
// on a read error (the line is then empty).
bool TdaOpc::LinLer(Tx& lin) {
  int16_t num = -1;
  FicPilAct(num);
  lin.clear();
  if (num < 1) return false;
  int err = 0;
  FicLinLer(num, lin, err);
  if (err == 0) ficLin.back()++;
  return err == 0;
}

// One logical line into parAct: a trailing "+" joins the next physical line, a
// leading "+" (after blanks) protects what follows it, "<-" cuts the line built so
// far; a continuation cut off by the end of the file gives no line at all. Then
// "chr$(" and "bin$(" become characters unless the zone turned that off.
void TdaOpc::ParLer(int16_t& exi) {
  exi = 1;
  Tx acc, l;
  bool ok = LinLer(l);
  if (!ok) exi = 0;
  int32_t lin0 = ficLin.back();
  bool fim = false;
  while (ok && !fim) {
    // A line whose first non-blank is "+" continues without that "+", trimmed.
    size_t a = l.find_first_not_of(u' ');
    Tx w;
    if (a != Tx::npos && l[a] == u'+') {
      size_t b = l.find_last_not_of(u' ');
      w = l.substr(a + 1, b - a);
    } else {
      w = std::move(l);
    }
    if (Fim(w, u"<-")) acc = TxEsq(acc, long(w.size()) - 2);
    if (Fim(w, u"+")) {
      w.pop_back();
      fim = false;
    } else {
      fim = true;
    }
    acc += w;
    if (!fim) {
      ok = LinLer(l);
      if (!ok) exi = 0;
    }
  }
  if (exi != 1) acc.clear();
  if (opcCnvChr == 1) TxBinChr(acc);
  ParReg& r = parAct;
  Tx nom;
  ParTpp(acc, r.tpp, r.var);
  ParPrep(acc, r.txi, nom, r.vtx, r.ptx);
  r.txp = std::move(acc);
  int nok = 0;
  NuTxNum(r.vtx, r.vnu, nok);
  r.exi = exi;
  r.lin = lin0;
}

// Logical lines until one has a type (empty lines are passed over) or the file ends.
void TdaOpc::ParLerTip(Tx& tpp, int16_t& exi) {
  do {
    ParLer(exi);
    tpp = parAct.tpp;
  } while (exi == 1 && tpp.empty());
}

// Lines until a variable line or the end of the file.
void TdaOpc::ParLerVar(int16_t& exi) {
  Tx tpp;
  do {
    ParLerTip(tpp, exi);
  } while (exi == 1 && tpp != u"=");
}

// The next variable line: its name, and its value as the holder's kind asks.
void TdaOpc::LerPar(Var& val, Tx& nom) {
  int16_t exi = 0;
  ParLerVar(exi);
  nom = parAct.var;
  VarVal(parAct, val);
}

// One physical line of a ZTX body, untouched; a line that trims to "##" ends it.
void TdaOpc::ParLerLit(Tx& lin, int16_t& exi) {
  bool ok = LinLer(lin);
  exi = (ok && TxTrim(lin) != u"##") ? 1 : 0;
  if (exi == 0) lin.clear();
  ParReg& r = parAct;
  r.txp = r.txi = r.vtx = lin;
  r.tpp.clear();
  r.var.clear();
  r.ptx = 1;
  int nok = 0;
  NuTxNum(lin, r.vnu, nok);
  r.exi = exi;
  r.lin = ficLin.back();
}

// Finds the next zone head and parses "#IDENT:KIND anything - description [opts]".
// The head is read with conversion on; its special options rule the body.
void TdaOpc::ZonCabLer(Tx& ide, Tx& tip, Tx& des) {
  OpcEspIni();
  int16_t exi = 0;
  do {
    ParLer(exi);
  } while (exi == 1 && parAct.tpp != u"#");
  zonLin = exi == 1 ? parAct.lin : 0;
  Tx kw;
  ZonCabDiv(exi == 1 ? parAct.txp : Tx(), ide, kw, des);
  tip = kw == u"TX" || kw == u"ZTX" ? kw : Tx(u"IDE");
  int16_t f = 0;
  OpcEspUsa(des, f);
}

// Opens a file for reading on top of the stack and reads its five header lines.
// A file that cannot be opened shows the open-failure box and ends the program.
void TdaOpc::CabLer(const Tx& fic, const Tx& lbl) {
  int16_t num = 0;
  FicPilAdi(num);
  int err = kFicPolCaixaFim;
  FicAbr(num, fic, u"I", u"", lbl, err);
  cabLin.assign(6, Tx());
  Tx l;
  for (int i = 1; i <= 5; i++) {
    int e = 0;
    Tx x;
    FicLinLer(num, x, e);
    if (e == 0) {
      l = TxTrim(x);
      ficLin.back()++;
    }
    cabLin[i] = l;
  }
  Tx a = cabLin[2], b;
  TxDivTip(u"PE T", a, u":", b);
  ficTip = TxMaiTrm(b);
}

// Opens the file and reads its header; its folder and name become the fixed
// options "ParDir" and "ParFic", which stay after it is closed.
void TdaOpc::tboPrp(const Tx& fic, const Tx& lbl) {
  ficTbo = fic;
  CabLer(fic, lbl);
  Tx dir, nom;
  FicDirNom(fic, dir, nom);
  OpcFixAct(u"ParDir", Var(dir));
  OpcFixAct(u"ParFic", Var(nom));
}

void TdaOpc::tboFim() {
  int16_t top = 0;
  FicPilFim(top);
}

// A free file number, pushed on the stack: reading goes to it from now on.
void TdaOpc::FicPilAdi(int16_t& num) {
  num = int16_t(FicNumLiv());
  ficPil.push_back(num);
  ficLin.push_back(0);
}

// Closes the top file and gives the number that is on top now (0 when the stack
// has become empty, -1 when it was empty already).
void TdaOpc::FicPilFim(int16_t& top) {
  top = -1;
  if (ficPil.size() < 2) return;
  FicFec(ficPil.back());
  ficPil.pop_back();
  ficLin.pop_back();
  top = ficPil.back();
}

void TdaOpc::FicPilAct(int16_t& num) const { num = ficPil.size() < 2 ? -1 : ficPil.back(); }

}  // namespace zw
