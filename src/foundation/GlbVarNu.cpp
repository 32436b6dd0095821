// Numbers: format codes and masks, the mask formatter, padded numbers, number
// separators, position blocks and version numbers.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include "GlbVar.h"

namespace zw {

// Splits a format code "i.d" and reads both parts as numbers.
void NuFmtDiv(TxV cod, int& i, int& d) {
  Tx a, b;
  TxDiv1(cod, u".", a, b);
  i = int(NuVal(a));
  d = int(NuVal(b));
}

void NuFmtDec(TxV cod, int& i, int& d, bool& grp, int& larg) {
  NuFmtDiv(cod, i, d);
  grp = i >= 0;
  if (i < 0) i = -i;
  if (d < 0) d = 0;
  larg = i + d + (d > 0 ? 1 : 0);
}

// The mask of a format code: i - 1 "#" and a "0", with commas written over it from
// the right every four places when grouping is on and i >= 4; then "." and d "0".
Tx NuFmtMsc(TxV cod) {
  int i, d, larg;
  bool grp;
  NuFmtDec(cod, i, d, grp, larg);
  Tx m = i > 0 ? TxRep(i - 1, u'#') + u"0" : Tx();
  if (grp && i >= 4) {
    for (int p = i - 3; p >= 1; p -= 4) m[size_t(p - 1)] = u',';
    if (m[0] == u',') m[0] = u'#';
  }
  if (d > 0) m += u"." + TxRep(d, u'0');
  return m;
}

Tx NuFmtCri(TxV cod) { return NuFmtMsc(cod); }

// Fixed-point text of a non-negative number with nd decimals, rounded half away
// from zero on its fifteen significant decimal digits (so 2.345 gives "2.35").
static std::string NuFixo(double av, int nd) {
  std::string zero = nd > 0 ? "0." + std::string(size_t(nd), '0') : "0";
  if (!(av > 0)) return zero;
  char b[64];
  std::snprintf(b, sizeof b, "%.14e", av);
  std::string d = std::string(1, b[0]) + std::string(b + 2, 14);
  int ni = std::atoi(std::strchr(b, 'e') + 1) + 1;  // av = 0.d * 10^ni
  int keep = ni + nd;
  if (keep < 0) return zero;
  if (keep < int(d.size())) {
    bool up = d[size_t(keep)] >= '5';
    d.resize(size_t(keep));
    if (up) {
      int i = keep - 1;
      while (i >= 0 && d[size_t(i)] == '9') d[size_t(i--)] = '0';
      if (i >= 0) d[size_t(i)]++;
      else { d.insert(0, "1"); ni++; }
    }
  } else {
    d.append(size_t(keep) - d.size(), '0');
  }
  if (d.empty()) return zero;
  std::string ip = "0", dp;
  if (ni > 0) { ip = d.substr(0, size_t(ni)); dp = d.substr(size_t(ni)); }
  else dp = std::string(size_t(-ni), '0') + d;
  return nd > 0 ? ip + "." + dp : ip;
}

// Formats a number by a mask of "#" (digit if significant), "0" (digit always),
// "," (thousands grouping) and "." (decimal point); other characters before the
// first and after the last placeholder stand as they are. The result is
// right-aligned to the mask's width, so digits beyond it are cut on the left.
Tx NuTxFmt(TxV msc, const Var& val) {
  double v = NuDbl(val);
  size_t a = msc.find_first_of(u"#0.,"), z = msc.find_last_of(u"#0.,");
  Tx pre, suf, corpo;
  if (a == TxV::npos) {
    pre = Tx(msc);
  } else {
    pre = Tx(msc.substr(0, a));
    corpo = Tx(msc.substr(a, z - a + 1));
    suf = Tx(msc.substr(z + 1));
  }
  size_t pt = corpo.find(u'.');
  Tx mi = corpo.substr(0, pt), md = pt == Tx::npos ? Tx() : corpo.substr(pt + 1);
  bool grp = mi.find(u',') != Tx::npos;
  int zi = 0, nd = 0, zd = 0;  // forced integer digits, decimals, forced decimals
  for (char16_t c : mi)
    if (c == u'0') zi++;
  for (char16_t c : md)
    if (c == u'0' || c == u'#') nd++;
  for (size_t k = 0; k < md.size() && (md[k] == u'0' || md[k] == u','); k++)
    if (md[k] == u'0') zd++;
  if (!std::isfinite(v)) v = 0;
  bool neg = v < 0;
  std::string s = NuFixo(std::fabs(v), nd);
  size_t q = s.find('.');
  std::string ip = s.substr(0, q), dp = q == std::string::npos ? "" : s.substr(q + 1);
  while (int(dp.size()) > zd && dp.back() == '0') dp.pop_back();
  ip.erase(0, ip.find_first_not_of('0'));
  while (int(ip.size()) < zi) ip.insert(ip.begin(), '0');
  if (grp)
    for (int k = int(ip.size()) - 3; k > 0; k -= 3) ip.insert(size_t(k), 1, ',');
  bool zero = ip.find_first_not_of("0,") == std::string::npos &&
              dp.find_first_not_of('0') == std::string::npos;
  Tx r = pre + ((neg && !zero) ? u"-" : u"") + TxAsc(ip);
  if (pt != Tx::npos) r += u"." + TxAsc(dp);
  r += suf;
  r = TxAlnExe(-long(msc.size()), r);
  return NuTxLoc(r);
}

Tx NuTxExe(TxV fmt, const Var& val) {
  return NuTxFmt(NuVal(fmt) == 0 ? Tx(fmt) : NuFmtCri(fmt), val);
}

Tx NuTx(TxV fmt, const Var& val, const Var& larg) {
  Tx r = NuTxExe(fmt, val);
  if (larg.EhFalta() || larg.EhVazio()) return r;
  if (larg.EhTx() && TxMaiTrm(larg.Txt()) == u"T") return TxTrim(r);
  TxAln(NuLng(NuDbl(larg)), r);
  return r;
}

// The number's text without a leading blank, filled on the left to the width and cut
// from the left; a negative number is filled with blanks whatever the fill.
void NuTxPad(const Var& val, long w, TxV fill, Tx& tx) {
  double v = NuDbl(val);
  Tx s = TxTrim(TxVar(Var(v)));
  if (val.EhNum() || val.Tipo() == Var::K::Bool) s = TxTrim(TxVar(val));
  char16_t f = (v < 0 || fill.empty()) ? u' ' : fill[0];
  tx = TxDir(TxRep(w, f) + s, w);
}

static Tx& NuSepMaq() {
  static Tx s;
  return s;
}
static Tx& NuSepFix() {
  static Tx s;
  return s;
}

void NuSepDef(TxV maq, TxV fix) {
  NuSepMaq() = Tx(maq);
  NuSepFix() = Tx(fix);
}

// Exchanges the decimal and thousands characters of one pair for those of another,
// through a spare character 1; a blank decimal character keeps the text's width.
Tx NuSepTro(TxV tx, TxV de, TxV para) {
  if (de.size() != 2 || para.size() != 2) return Tx(tx);
  Tx r(tx);
  for (auto& c : r)
    if (c == de[0]) c = 1;
  for (auto& c : r)
    if (c == de[1]) c = para[1];
  for (auto& c : r)
    if (c == 1) c = para[0];
  if (de[0] == u' ' || para[0] == u' ') r = TxAlnExe(-long(tx.size()), TxTrim(r));
  return r;
}

// Machine number text to plain text: the thousands character dropped, the decimal
// character turned into ".".
Tx NuTxCan(TxV tx) {
  const Tx& m = NuSepMaq();
  if (m.size() != 2) return Tx(tx);
  Tx r;
  for (char16_t c : tx) {
    if (c == m[1]) continue;
    r.push_back(c == m[0] ? u'.' : c);
  }
  return r;
}

Tx NuTxLoc(TxV tx) {
  if (NuSepMaq().size() != 2 || NuSepFix().size() != 2) return Tx(tx);
  return NuSepTro(tx, NuSepFix(), NuSepMaq());
}

double NuTxVal(TxV tx) { return NuVal(NuTxCan(tx)); }

// Block of a position counted from 0: number, first and last position, offset.
void NuIntDiv(long pos, long tam, long& blk, long& ini, long& fim, long& off) {
  if (tam <= 0) {
    blk = ini = fim = off = 0;
    return;
  }
  blk = pos / tam;
  ini = blk * tam;
  fim = ini + tam - 1;
  off = pos - ini;
}

void NuIntDiv1(long pos, long tam, long& blk, long& ini, long& fim, long& off) {
  NuIntDiv(pos - 1, tam, blk, ini, fim, off);
  blk++;
  ini++;
  fim++;
  off++;
}

void NuVerDiv(TxV ver, long& maj, long& min) {
  Tx a, b;
  TxDiv1(ver, u".", a, b);
  maj = NuLng(NuVal(a));
  min = NuLng(NuVal(b));
}

// Each number padded with "0" to its width from the format "i.d" (plain when 0).
Tx NuVerFmt(long maj, long min, TxV fmt) {
  int wi, wd;
  NuFmtDiv(fmt, wi, wd);
  auto um = [](long n, int w) {
    Tx s = TxAsc(std::to_string(n));
    if (w > 0 && long(s.size()) < w) s = TxRep(w - long(s.size()), u'0') + s;
    return s;
  };
  return um(maj, wi) + u"." + um(min, wd);
}

Tx NuVerJun(long maj, long min, TxV fmt) { return NuVerFmt(maj, min, fmt); }

// Next version by a rule: "+" and "*.+" add 1 to the minor number, "+.0" adds 1 to
// the major and sets the minor to 0; any other rule gives the version back trimmed.
void NuVerInc(TxV regra, const Var& ver, Var& res) {
  Tx r, fmt;
  TxDiv1(regra, u",", r, fmt);
  r = TxTrim(r);
  fmt = TxTrim(fmt);
  if (fmt.empty()) fmt = u"0.0";
  long maj, min;
  NuVerDiv(TxVar(ver), maj, min);
  Tx t;
  if (r == u"+" || r == u"*.+") t = NuVerJun(maj, min + 1, fmt);
  else if (r == u"+.0") t = NuVerJun(maj + 1, 0, fmt);
  else t = TxTrim(TxVar(ver));
  res.Poe(Var(t));
}

}  // namespace zw
