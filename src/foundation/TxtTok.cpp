// Separator tokens, split modes, bracket pairs and "[KEY=value]" items.
#include <algorithm>
#include "CtlObj.h"
#include "GlbVar.h"
#include "TxtGlb.h"

namespace zw {

namespace {
// Positions of the token and item functions are 16-bit signed numbers: a separator
// or an item found past 32767 is an overflow (6), which no caller here traps, so the
// texts these functions take apart are limited to that size.
int Pos16(int p) {
  if (p > 32767) throw CtlErr(6, "Overflow");
  return p;
}
}  // namespace

// Next token: the text before the first separator; the text keeps what follows the
// whole separator. Not found: the whole text is the token and the text becomes "".
// An empty separator is found at position 1, so the text is not consumed.
void TxTokSeg(Tx& tx, TxV sep, Tx& tok, int& ach) {
  int p = Pos16(TxPos(tx, sep));
  if (p) {
    Tx t = TxEsq(tx, p - 1);
    tx.erase(0, std::min(tx.size(), size_t(p - 1) + sep.size()));
    tok = std::move(t);
    ach = 1;
  } else {
    tok = std::move(tx);
    tx.clear();
    ach = 0;
  }
}

// As TxTokSeg without the flag; an empty separator is never found.
void TxTokMul(Tx& tx, TxV sep, Tx& tok) {
  if (sep.empty()) {
    tok = std::move(tx);
    tx.clear();
    return;
  }
  int f;
  TxTokSeg(tx, sep, tok, f);
}

// Next token, resuming one character after the separator's start whatever its length.
void TxTokSeg1(Tx& tx, TxV sep, Tx& tok) {
  Tx e, d;
  TxDiv1(tx, sep, e, d);
  tx = std::move(d);
  tok = std::move(e);
}

// TxTokSeg1, then the token's leading number, stored as a double.
void TxTokNu(Tx& tx, TxV sep, Var& dst) {
  Tx t;
  TxTokSeg1(tx, sep, t);
  dst.Poe(Var(NuVal(t)));
}

void TxDiv2(TxV tx, TxV sep, Tx& esq, Tx& dir, int& ach) {
  int p = Pos16(TxPos(tx, sep));
  Tx e, d;
  if (p) {
    e = TxEsq(tx, p - 1);
    d = TxMeio(tx, p + 1);
  } else {
    e = Tx(tx);
  }
  ach = p ? 1 : 0;
  esq = std::move(e);
  dir = std::move(d);
}

void TxDiv1(TxV tx, TxV sep, Tx& esq, Tx& dir) {
  int f;
  TxDiv2(tx, sep, esq, dir, f);
}

// The second result takes a copy of the text and the first is the token taken off it.
void TxDivOrg(TxV tx, TxV sep, Tx& pri, Tx& seg) {
  Tx s(tx), p;
  int f;
  TxTokSeg(s, sep, p, f);
  pri = std::move(p);
  seg = std::move(s);
}

// Split by a mode word "CODE[ OPTIONS]": the code says which part the text keeps and
// which side keeps the whole text when the separator is missing; "M" in the options
// uppercases both results and "T" trims both.
void TxDivTip(TxV modo, Tx& tx, TxV sep, Tx& seg) {
  Tx cod, opc;
  TxDiv1(modo, u" ", cod, opc);
  Tx l, r;
  int f;
  TxDiv2(tx, sep, l, r, f);
  Tx a, b;
  bool ps = cod == u"PS", pe = cod == u"PE", se = cod == u"SE" || cod == u"RS";
  if (f) {
    if (pe || se) { a = l; b = r; }
    else { a = r; b = l; }
  } else {
    if (ps || se) a = Tx(tx);
    else b = Tx(tx);
  }
  if (TxPos(opc, u"M")) { a = TxMai(a); b = TxMai(b); }
  if (TxPos(opc, u"T")) { a = TxTrim(a); b = TxTrim(b); }
  tx = std::move(a);
  seg = std::move(b);
}

// Keyword and value: the part before the separator in keyword form, the rest trimmed.
void TxTokMai(TxV tx, Tx& pri, Tx& seg, TxV sep) {
  Tx l, r;
  TxDiv1(tx, sep, l, r);
  pri = TxMaiTrm(l);
  seg = TxTrim(r);
}

void TxTokMai1(TxV tx, Tx& pri, TxV sep) {
  Tx s;
  TxTokMai(tx, pri, s, sep);
}

// All tokens of a text, as TxTokSeg would take them one after the other: a trailing
// separator makes no empty token. An empty separator gives the whole text as one
// token (taking tokens with it would never end).
void TxTokLis(TxV tx, TxV sep, TxArr& tok, int& n) {
  TxArr r(1);
  size_t i = 0;
  while (i < tx.size()) {
    size_t p = sep.empty() ? TxV::npos : tx.find(sep, i);
    if (p == TxV::npos) {
      r.emplace_back(tx.substr(i));
      break;
    }
    r.emplace_back(tx.substr(i, p - i));
    i = p + sep.size();
  }
  n = int(r.size()) - 1;
  tok = std::move(r);
}

void TxSepTro(Tx& tx, TxV sepAnt, TxV sepNov) {
  TxArr t;
  int n;
  TxTokLis(tx, sepAnt, t, n);
  Tx r;
  for (int i = 1; i <= n; i++) {
    if (i > 1) r += sepNov;
    r += t[i];
  }
  tx = std::move(r);
}

// Direction "R": the last position of the character; any other: the first.
void TxPosUlt(TxV dir, TxV tx, TxV chr, int& pos) {
  if (dir != u"R") {
    pos = TxPos(tx, chr);
    return;
  }
  pos = 0;
  if (chr.size() != 1) return;
  for (size_t i = tx.size(); i > 0; i--)
    if (tx[i - 1] == chr[0]) { pos = int(i); return; }
}

// First opener and the first closer at or after it, no nesting. Equal delimiters
// cannot make a pair (the closer would be the opener itself): nothing is found.
static void TxBrkExe(TxV tx, TxV op, TxV cl, Tx& ant, Tx& den, Tx& dep, int& len) {
  int p = op.empty() ? 0 : TxPos(tx, op);
  int q = p && !cl.empty() ? TxPos(tx, cl, p) : 0;
  Tx a, i, d;
  if (p && q > p) {
    a = TxEsq(tx, p - 1);
    i = TxMeio(tx, p + 1, q - p - 1);
    d = TxMeio(tx, q + 1);
    len = q - p + 1;
  } else {
    a = Tx(tx);
    len = 0;
  }
  ant = std::move(a);
  den = std::move(i);
  dep = std::move(d);
}

void TxBrkCon(TxV tx, Tx& ant, Tx& den, Tx& dep, int& len, TxV par) {
  TxBrkExe(tx, TxEsq(par, 1), TxDir(par, 1), ant, den, dep, len);
}

void TxBrkCon2(TxV tx, TxV par, Tx& ant, Tx& den, Tx& dep) {
  int len;
  TxBrkExe(tx, TxEsq(par, 1), TxMeio(par, 2, 1), ant, den, dep, len);
}

// Balanced pair from position ini: each step looks at one opener and one closer past
// the current point; an opener before the closer moves the point to that closer.
// ini becomes the first opener and fim its closer, both 0 when there is none.
void TxBrkPar(TxV tx, int& ini, int& fim, TxV par) {
  if (par.empty()) par = u"\"\"";
  Tx op = TxEsq(par, 1), cl = TxMeio(par, 2, 1);
  int o0 = TxPos(tx, op, ini < 1 ? 1 : ini);
  if (!o0) {
    ini = fim = 0;
    return;
  }
  int p = o0, c;
  for (;;) {
    int o = TxPos(tx, op, p + 1);
    c = TxPos(tx, cl, p + 1);
    if (o && o < c) { p = c; continue; }
    break;
  }
  if (!c) ini = fim = 0;
  else { ini = o0; fim = c; }
}

void OpcChvFmt(TxV chv, Tx& abre, int& len) {
  abre = u"[" + TxMai(chv) + u"=";
  len = int(abre.size());
}

// Finds the item of a key (opener searched case-sensitively) and its balanced closer.
void OpcTxDiv(TxV tx, TxV chv, Tx& ant, Tx& val, Tx& dep, int& ach) {
  Tx abre;
  int la, fim = 0;
  OpcChvFmt(chv, abre, la);
  int p = Pos16(TxPos(tx, abre)), ini = p;
  if (p) TxBrkPar(tx, ini, fim, u"[]");
  Pos16(fim);
  Tx a, v, d;
  if (p && ini && fim) {
    a = TxEsq(tx, p - 1);
    v = TxMeio(tx, p + la, fim - p - la);
    d = TxMeio(tx, fim + 1);
    ach = 1;
  } else {
    a = Tx(tx);
    ach = 0;
  }
  ant = std::move(a);
  val = std::move(v);
  dep = std::move(d);
}

// The item's value into the destination; an absent item leaves "" or 0 there.
void OpcTxCon(TxV tx, TxV chv, Var& dst, int& ach) {
  Tx a, v, d;
  OpcTxDiv(tx, chv, a, v, d, ach);
  VarAtr(Var(v), dst);
}

void OpcTxConOpc(TxV tx, TxV chv, Var& dst, int& ach) {
  Tx a, v, d;
  OpcTxDiv(tx, chv, a, v, d, ach);
  VarCnv(u"", Var(v), dst);
}

void OpcTxAdi(Tx& tx, TxV chv, TxV val) {
  Tx abre;
  int la;
  OpcChvFmt(chv, abre, la);
  Tx v(val);  // val may view tx itself
  tx += abre;
  tx += v;
  tx += u']';
}

// Removes the item when present and appends the new one, which so always moves to the end.
void OpcTxSub(Tx& tx, TxV chv, TxV val) {
  Tx a, v, d, nv(val);
  int f;
  OpcTxDiv(tx, chv, a, v, d, f);
  if (f) tx = a + d;
  OpcTxAdi(tx, chv, nv);
}

void OpcTxAct(Tx& tx, TxV chv, const Var& val) {
  Tx t;
  TxVarCnv(val, t);
  OpcTxSub(tx, chv, t);
}

// All items of a text made of items only: each must begin at the text's start.
void OpcTxLis(TxV tx, std::vector<std::array<Tx, 2>>& lis, int& n) {
  std::vector<std::array<Tx, 2>> r(1);
  Tx t(tx);
  while (!t.empty()) {
    int ini = 1, fim = 0;
    TxBrkPar(t, ini, fim, u"[]");
    Tx den;
    if (fim) {
      den = TxMeio(t, 2, fim - 2);
      t = TxMeio(t, fim + 1);
    } else {
      den = std::move(t);
      t.clear();
    }
    Tx chv;
    int f;
    TxTokSeg(den, u"=", chv, f);
    r.push_back({TxMaiTrm(chv), den});
  }
  n = int(r.size()) - 1;
  lis = std::move(r);
}

// Yes/no item. Mode "A" writes "S" or "N" from the value; any other mode reads the
// item into the value: "Sim"/"Não" cut to its first letter for a text, 1 or 0 otherwise.
void OpcTxUsa(TxV modo, TxV chv, Tx& tx, Var& val) {
  if (modo == u"A") {
    Var w{Tx()};
    TxSN(val, w);
    OpcTxAct(tx, chv, Var(TxEsq(w.Txt(), 1)));
    return;
  }
  Var r{Tx()};
  int f;
  OpcTxConOpc(tx, chv, r, f);
  TxSN(r, val);
  if (val.EhTx()) val = Var(TxEsq(val.Txt(), 1));
}

}  // namespace zw
