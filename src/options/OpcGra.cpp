// Writing option files: the header, stream writing of a new file from the top,
// and line editing of a whole file held in regLin, zones of a held file and
// model zones. Every line is written with CR LF.
#include "FicGlb.h"
#include "GlbVar.h"
#include "OpcAux.h"
#include "TdaOpc.h"
#include "TxtGlb.h"

namespace zw {
using namespace opc;

std::array<int, 3> TdaOpc::DatOmi{1899, 12, 30};

static const char16_t* const kCab[6] = {u"",           u"'Nome       : ", u"'Tipo       : ",
                                        u"'Data       : ", u"'Versao     : ", u"'Descricao  : "};
static const Tx kElim = u"\u00AB\u00BB";  // the mark of a deleted line, "«»"

// ---- header

void TdaOpc::CabPrp(const Tx& tip, const Var& dt, const Tx& ver, const Tx& des) {
  cabLin.assign(6, Tx());
  Tx t;
  CabOpcNfi(ficTbo, t);
  cabLin[1] = kCab[1] + t;
  CabOpcTip(tip, t);
  cabLin[2] = kCab[2] + t;
  t.clear();
  CabOpcDt(dt, t);
  cabLin[3] = kCab[3] + t;
  Tx v = TxTrim(ver);
  cabLin[4] = kCab[4] + (v.empty() ? Tx(u"1.0") : v);
  cabLin[5] = kCab[5] + TxTrim(des);
}

// Opens ficTbo for writing and writes the header and one empty line; the file
// stays open for the stream operations unless fec is 1.
void TdaOpc::CabCri(int16_t fec) {
  RegFicPrp(ficTbo);
  for (int i = 1; i <= 5; i++) RegTx(i < int(cabLin.size()) ? cabLin[i] : Tx());
  RegNls(1);
  if (fec == 1) RegFim();
}

// A header line; mode "V" gives only what stands after its first ":".
void TdaOpc::CabCon(const Tx& mod, int16_t n, Tx& txt) const {
  Tx l = n >= 0 && size_t(n) < cabLin.size() ? cabLin[n] : Tx();
  if (mod == u"V") {
    int p = TxPos(l, u":");
    l = p ? TxMeio(l, p + 1) : Tx();
  }
  txt = TxTrim(l);
}

void TdaOpc::CabOpcNfi(const Tx& fic, Tx& nom) {
  nom.clear();
  if (fic.empty()) return;
  Tx dir;
  FicDirNom(fic, dir, nom);
}

void TdaOpc::CabOpcTip(const Tx& tip, Tx& txt) {
  txt = TxTrim(tip);
  if (txt.empty()) txt = u"PAR";
}

// A text date is trimmed; an empty one, or the number 0, becomes the default date
// as year/month/day. Any other number leaves the text alone.
void TdaOpc::CabOpcDt(const Var& dt, Tx& txt) {
  bool omi = false;
  if (dt.EhTx()) {
    txt = TxTrim(dt.Txt());
    omi = txt.empty();
  } else {
    omi = NuDbl(dt) == 0;
  }
  if (!omi) return;
  char b[32];
  snprintf(b, sizeof b, "%04d/%02d/%02d", DatOmi[0], DatOmi[1], DatOmi[2]);
  txt = TxAsc(b);
}

// ---- stream writing, to the file at the top of the stack

void TdaOpc::RegFicPrp(const Tx& fic) {
  int16_t num = 0;
  FicPilAdi(num);
  int err = kFicPolNada;
  FicAbr(num, fic.empty() && !regLin.empty() ? regLin[0] : fic, u"O", u"", u"GRV", err);
}

void TdaOpc::RegFim() {
  int16_t top = 0;
  FicPilFim(top);
}

void TdaOpc::RegTx(const Tx& lin) {
  int16_t num = -1;
  FicPilAct(num);
  if (num > 0) FicLinGra(num, lin);
}

void TdaOpc::RegNls(int16_t n) {
  for (int16_t i = 0; i < n; i++) RegTx(Tx());
}

// "'" and 79 times "-", "=" or "#"; any other character gives an empty line.
void TdaOpc::RegSep(const Tx& chr) {
  if (chr == u"-" || chr == u"=" || chr == u"#")
    RegTx(u"'" + TxRep(79, chr[0]));
  else
    RegTx(Tx());
}

void TdaOpc::RegGrpCabVer() {
  RegSep(u"=");
  RegTx(u"'#VER - Historia de modificacoes");
  RegSep(u"=");
}

// A version entry: empty lines, a "-" separator carrying version and date, the text.
void TdaOpc::RegGrpVer(const Tx& ver, const Tx& dt, const Tx& txt, int16_t nls) {
  Tx v = ver, d = dt, t = txt;
  if (v.empty()) CabCon(u"V", 4, v);
  if (d.empty()) CabCon(u"V", 3, d);
  if (t.empty()) t = u"Versao base";
  RegNls(nls);
  Tx s = u"'" + TxRep(79, u'-');
  s.replace(2, 10, u" Versao : ");
  s.replace(12, 6, TxAlnExe(6, v));
  s.replace(18, 11, TxAlnExe(11, d));
  RegTx(s);
  RegTx(t);
  RegNls(2);
}

void TdaOpc::RegGrpCabDef() { RegGrpCab(u"DEF", u"IDE", u"Definicoes base"); }

void TdaOpc::RegGrpCab(const Tx& ide, const Tx& tip, const Tx& des) {
  RegSep(u"=");
  RegTx(u"#" + ide + u":" + tip + u" - " + des);
  RegSep(u"=");
}

void TdaOpc::RegGrpFim() {
  RegTx(u"##");
  RegNls(2);
}

void TdaOpc::RegGrpOpc(const Tx& nom, const Tx& txi, const Var& val, int16_t lar) {
  RegTx(RegOpcPrp(nom, txi, val, lar));
}

void TdaOpc::RegGrpOpa(const Tx& nom, const Tx& txi, const Var& val, int16_t lar) {
  RegTx(u"'" + RegOpcPrp(nom, txi, val, lar));
}

// "label [name]=value"; with a width, the label is padded or cut so that "="
// stands in the same column, unless label and name are wider than that.
Tx TdaOpc::RegOpcPrp(const Tx& nom, const Tx& txi, const Var& val, int16_t lar) {
  Tx b = u"[" + nom + u"]", v;
  TxVarCnv(val, v);
  Tx l;
  if (long(txi.size() + b.size()) > lar)
    l = txi + u" " + b;
  else
    l = TxAlnExe(lar - long(b.size()), txi) + b;
  return l + u"=" + v;
}

void TdaOpc::RegZonIdt(const Tx& ide, const Tx& tip, const std::vector<Tx>& lin, const Tx& des) {
  RegZon(ide + u":" + tip, lin, des);
}

void TdaOpc::RegZon(const Tx& cab, const std::vector<Tx>& lin, const Tx& des) {
  RegSep(u"=");
  RegTx(u"#" + cab + u" - " + des);
  RegSep(u"=");
  for (size_t i = 1; i < lin.size(); i++) RegTx(lin[i]);
  RegGrpFim();
}

// ---- line editing

// Adds a physical line's bare name (without its "F:" type mark, keeping any "."
// qualifier) to an edit index.
void TdaOpc::IdxLinAdi(OpcIdx& idx, const Tx& lin, int32_t n) {
  Tx tpp, var, tip, nom;
  ParTpp(lin, tpp, var);
  if (var.empty()) return;
  ParTipVar(var, tip, nom);
  idx.Adi(nom, n);
}

// Loads the whole file as physical lines, untouched (no continuation, no
// conversion), so that writing it back changes only what was edited.
void TdaOpc::RegPrp(const Tx& fic, int32_t& nli) {
  regLin.assign(1, fic);
  regByt_.assign(1, std::string());
  memIdx.Lpz();
  int16_t num = 0;
  FicPilAdi(num);
  int err = kFicPolCaixaFim;
  FicAbr(num, fic, u"I", u"", u"LER", err);
  regCod_ = FicCod(num);
  Tx l;
  while (LinLer(l)) {
    regLin.push_back(l);
    regByt_.push_back(FicLinByt(num));
    IdxLinAdi(memIdx, l, int32_t(regLin.size() - 1));
  }
  RegFim();
  nli = int32_t(regLin.size() - 1);
}

// The text after the first "=" of the key's line; empty for an unknown key.
void TdaOpc::RegCon(const Tx& chv, Var& val, int16_t& exi) {
  int32_t i = memIdx.Psq(TxMaiTrm(chv));
  Tx t;
  if (i > 0 && size_t(i) < regLin.size()) {
    int p = TxPos(regLin[i], u"=");
    t = p ? TxMeio(regLin[i], p + 1) : Tx();
  }
  int ok = 1;
  NuTxVar(t, val, ok);
  exi = ok == 0 ? 0 : 1;
}

void TdaOpc::RegConIdx(int32_t n, Tx& txt) const { txt = n >= 0 && size_t(n) < regLin.size() ? regLin[n] : Tx(); }

// Changes the value of a key's line, emptying the "+" lines that continued it; an
// unknown key is added as "??? [key]=value": at the end (cri 1), or before every
// "##" line (cri 2), the line after each "##" giving way to the moved "##".
void TdaOpc::VarAltLin(std::vector<Tx>& lin, OpcIdx& idx, const Tx& chv, const Var& val, int16_t cri) {
  Tx v;
  TxVarCnv(val, v);
  int32_t i = idx.Psq(TxMaiTrm(chv));
  if (i > 0) {
    Tx& l = lin.at(i);
    int p = TxPos(l, u"=");
    if (p < 1) throw std::invalid_argument("invalid procedure call: line without \"=\"");
    l = TxEsq(l, p - 1) + u"=" + v;
    for (size_t j = size_t(i) + 1;; j++) {
      Tx& s = lin.at(j);  // past the last line this is the caller's error
      if (!Ini(TxTrim(s), u"+")) break;
      s.clear();
    }
    return;
  }
  size_t n = lin.size() - 1;
  lin.emplace_back();
  Tx nova = u"??? [" + chv + u"]=" + v;
  if (cri == 1) {
    lin[n + 1] = nova;
  } else if (cri == 2) {
    for (size_t j = n; j >= 1; j--) {
      if (TxTrim(lin[j]) == u"##") {
        lin[j] = nova;
        lin[j + 1] = u"##";
      }
    }
  }
}

void TdaOpc::RegVarAlt(const Tx& chv, const Var& val, int16_t cri) { VarAltLin(regLin, memIdx, chv, val, cri); }

void TdaOpc::RegVarEli(const Tx& chv) {
  int32_t i = memIdx.Psq(TxMaiTrm(chv));
  if (i > 0 && size_t(i) < regLin.size()) regLin[i] = kElim;
}

// A header field of the held file: "NOM", "TIP", "DAT", "VER" or "INF".
void TdaOpc::RegCabAct(const Tx& cpo, const Var& val) {
  Tx c = TxMaiTrm(cpo), t;
  int32_t n = 0;
  if (c == u"NOM") {
    n = 1;
    CabOpcNfi(TxVar(val), t);
  } else if (c == u"TIP") {
    n = 2;
    CabOpcTip(TxVar(val), t);
  } else if (c == u"DAT") {
    n = 3;
    CabOpcDt(val, t);
  } else if (c == u"VER") {
    n = 4;
    Tx cur = regLin.size() > 4 ? regLin[4] : Tx(), r = TxVar(val);
    int p = TxPos(cur, u":");
    cur = p ? TxTrim(TxMeio(cur, p + 1)) : Tx();
    if (TxPos(r, u"+")) {
      Var res;
      NuVerInc(r, Var(cur), res);
      t = TxVar(res);
    } else {
      t = cur;
    }
  } else if (c == u"INF") {
    n = 5;
    t = TxVar(val);
  }
  if (n == 0 || t.empty()) return;
  RegCabAlt(n, t);
}

void TdaOpc::RegCabAlt(int32_t n, const Tx& txt) {
  if (n < 0 || size_t(n) >= regLin.size()) return;
  Tx& l = regLin[n];
  int p = TxPos(l, u":");
  if (p) l = TxEsq(l, p - 1) + u": " + txt;
}

// Writes the held file back in the encoding it was read in, every line with CR
// LF; lpz 1 drops the lines marked deleted, lpz 0 keeps them, any other value
// writes no line. A line whose text is still what its bytes said is written with
// those bytes, so that what nobody changed (bytes that were not valid in the
// file's encoding among them) comes back as it was. The old file is replaced
// only when everything was written; regLin is freed.
int TdaOpc::RegExe(const Tx& fic, int16_t lpz) {
  Tx f = fic.empty() && !regLin.empty() ? regLin[0] : fic;
  int r = 0;
  FicCriVaz(f, r);
  int num = FicNumLiv();
  FicAbrNum(num, f, u"O", r);
  int e = r == 1 ? 0 : r < 0 ? -r : kErrNumFic;
  if (!e) {
    FicCodDef(num, regCod_);
    for (size_t i = 1; !e && i < regLin.size(); i++) {
      if (!(lpz == 0 || (lpz == 1 && regLin[i] != kElim))) continue;
      if (i < regByt_.size() && TxDeCod(regByt_[i], regCod_) == regLin[i])
        e = FicBytGra(num, regByt_[i] + "\r\n");
      else
        e = FicLinGra(num, regLin[i]);
    }
    int c = FicFec(num);
    if (!e) e = c;
  }
  regLin.clear();
  regByt_.clear();
  return e;
}

// ---- zones of a held file

// Steps through the zones of regLin. The first call (count -1 resets) gives the
// text before the first zone with an empty identifier; then one zone per call,
// from its separator to its "##", the empty lines after it skipped.
void TdaOpc::RegZonCon(Tx& ide, std::vector<Tx>& lin, int32_t& cnt) {
  if (cnt == -1) {
    rzcIni_ = 0;
    rzcPos_ = 0;
  }
  lin.assign(1, Tx());
  ide.clear();
  int32_t n = 0, ult = int32_t(regLin.size()) - 1;
  for (int32_t j = rzcPos_ + 1; j <= ult; j++) {
    const Tx& l = regLin[j];
    n++;
    lin.push_back(l);
    Tx tpp, var;
    ParTpp(l, tpp, var);
    if (tpp == u"#") {
      if (rzcIni_ == 0) {
        rzcIni_ = 1;
        rzcPos_ = std::max(j - 2, 0);
        n = std::max(n - 2, 0);
        lin.resize(size_t(n) + 1);
        ide.clear();
        cnt = n;
        return;
      }
      Tx tip, des;
      ZonIde(l, ide, tip, des);
    }
    if (tpp == u"##") {
      int32_t k = j + 1;
      while (k <= ult && regLin[k].empty()) k++;
      rzcPos_ = k - 1;
      cnt = n;
      return;
    }
  }
  rzcPos_ = std::max(ult, 0);
  if (n == 0) ide.clear();
  cnt = n;
}

void TdaOpc::RegZonIdz(std::vector<Tx>& ides, int16_t& cnt) {
  ides.assign(1, Tx());
  for (size_t i = 1; i < regLin.size(); i++) {
    if (!Ini(regLin[i], u"#") || Ini(regLin[i], u"##")) continue;
    Tx ide, tip, des;
    ZonIde(regLin[i], ide, tip, des);
    ides.push_back(ide);
  }
  cnt = P16(long(ides.size()) - 1);
}

// Cuts the trailing blank lines of an array; ult is its last element after that.
void TdaOpc::RegZonRed(std::vector<Tx>& lin, int32_t& ult) {
  while (lin.size() > 1 && TxTrim(lin.back()).empty()) lin.pop_back();
  ult = int32_t(lin.size()) - 1;
}

// Finds a zone of the held file: its first line is the separator above the head,
// and it runs to its "##" line or the end. An empty identifier asks for the text
// before the first zone.
void TdaOpc::RegZonPsq(const Tx& ide, int32_t& pri, int32_t& cnt) {
  vzoPsqIde.clear();
  vzoPsqTip.clear();
  vzoPsqDes.clear();
  pri = 0;
  cnt = 0;
  int32_t ult = int32_t(regLin.size()) - 1;
  auto tpp = [&](int32_t i) {
    Tx t, v;
    ParTpp(regLin[i], t, v);
    return t;
  };
  if (ide.empty()) {
    int32_t i = 1;
    while (i <= ult && tpp(i) != u"#") i++;
    pri = 1;
    for (int32_t j = std::min(i - 2, ult); j >= 1; j--)
      if (!regLin[j].empty()) {
        cnt = j;
        break;
      }
    return;
  }
  Tx k = TxMaiTrm(ide);
  for (int32_t i = 1; i <= ult; i++) {
    if (tpp(i) != u"#") continue;
    Tx id, tp, ds;
    ZonIde(regLin[i], id, tp, ds);
    if (id != k) continue;
    vzoPsqVdi = regLin[i];
    vzoPsqIde = id;
    vzoPsqTip = tp;
    vzoPsqDes = ds;
    pri = std::max(i - 1, 1);
    int32_t j = i + 1;
    while (j <= ult && tpp(j) != u"##") j++;
    cnt = std::min(j, ult) - pri + 1;
    return;
  }
}

// The body of a zone written in the usual form: separator, head, separator,
// body, "##".
void TdaOpc::RegZonCtx(const Tx& ide, std::vector<Tx>& lin, int32_t& cnt) {
  int32_t pri = 0, n = 0;
  RegZonPsq(ide, pri, n);
  lin.assign(1, Tx());
  cnt = 0;
  if (pri < 1 || n < 1) return;
  int32_t fim = pri + n - 1;
  Tx t, v;
  ParTpp(regLin[fim], t, v);
  if (t == u"##") fim--;
  for (int32_t i = pri + 3; i <= fim; i++) lin.push_back(regLin[i]);
  cnt = int32_t(lin.size()) - 1;
}

void TdaOpc::RegZonCop(const Tx& ide) {
  int32_t pri = 0, n = 0;
  RegZonPsq(ide, pri, n);
  for (int32_t i = pri; i < pri + n; i++) RegTx(regLin[i]);
  RegNls(2);
}

// The part of the held file before its first zone, to the top file: as it stands
// (mode "COP"), or the header and a new version block.
void TdaOpc::RegZonCab(const Tx& mod) {
  cabLin.assign(6, Tx());
  for (int i = 1; i <= 5 && size_t(i) < regLin.size(); i++) cabLin[i] = regLin[i];
  Tx ide;
  std::vector<Tx> lin;
  int32_t cnt = -1, ult = 0;
  RegZonCon(ide, lin, cnt);
  RegZonRed(lin, ult);
  if (TxMaiTrm(mod) == u"COP") {
    for (int32_t i = 1; i <= ult; i++) RegTx(lin[i]);
    RegNls(2);
    return;
  }
  for (int i = 1; i <= 6; i++) RegTx(size_t(i) < regLin.size() ? regLin[i] : Tx());
  Tx ver, dt;
  CabCon(u"V", 4, ver);
  CabCon(u"V", 3, dt);
  RegGrpCabVer();
  RegGrpVer(ver, dt, u"Versao ...", 1);
}

// The model zone "IDE_MAT" into matLin, its named lines indexed by bare name.
void TdaOpc::RegZonMatPrp(const Tx& ide) {
  int32_t pri = 0, n = 0;
  RegZonPsq(ide + u"_MAT", pri, n);
  matLin.assign(1, Tx());
  matIdx.Lpz();
  for (int32_t i = pri; i < pri + n; i++) {
    matLin.push_back(regLin[i]);
    IdxLinAdi(matIdx, regLin[i], int32_t(matLin.size() - 1));
  }
}

void TdaOpc::RegZonMatAct(const Tx& chv, const Var& val, int16_t cri) { VarAltLin(matLin, matIdx, chv, val, cri); }

// Writes the model zone as a real zone: "#FOO_MAT:TX - Texto" becomes the zone
// "FOO"; a "[...]" in the head's rest gives way to the name ("[?]" for none).
void TdaOpc::RegZonMatReg(const Tx& nom) {
  Tx cab = matLin.size() > 2 ? matLin[2] : Tx();
  int u = TxPos(cab, u"_");
  Tx ide = u ? TxMeio(cab, 2, u - 2) : TxMeio(cab, 2), rst = u ? TxMeio(cab, u + 1) : Tx();
  Tx a, d, b, des;
  TxBrkCon2(rst, u"[]", a, d, b);
  if (TxPos(rst, u"[") && TxPos(rst, u"]") > TxPos(rst, u"[")) {
    des = a + (nom.empty() ? Tx(u"[?]") : nom) + b;
  } else {
    int h = TxPos(rst, u"-");
    des = h ? TxTrim(TxMeio(rst, h + 1)) : Tx();
  }
  RegGrpCab(ide, u"IDE", des);
  for (size_t i = 4; i < matLin.size(); i++) RegTx(matLin[i]);
  RegNls(2);
}

}  // namespace zw
