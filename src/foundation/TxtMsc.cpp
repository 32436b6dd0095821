// Replacement, stripping, padding, quotes, character codes, joining, list tests,
// program-line tokens and the command-line word list.
#include <cmath>
#include "TxtGlb.h"

namespace zw {

static const char16_t kCrLf[] = u"\r\n";

// Replaces the first occurrence, or with mode "R" every one until none is left.
// Nothing happens when the new text holds the old one, so the loop always ends.
void TxSubst(TxV modo, Tx& tx, TxV de, TxV para) {
  Tx d(de), p(para);
  if (TxPos(p, d) || (p.empty() && d.empty())) return;
  bool rep = modo == u"R";
  int ini = 1;
  for (;;) {
    int q = TxPos(tx, d, ini);
    if (!q) return;
    tx.replace(size_t(q - 1), d.size(), p);
    if (!rep) return;
    // A new occurrence can only begin where the old one could still overlap the
    // replaced part: there was none before it.
    ini = q - int(d.size()) + 1;
    if (ini < 1) ini = 1;
  }
}

// Overwrites each occurrence of "de" with the first character of "para"; same length.
void TxChrTro(TxV tx, TxV de, TxV para, Tx& res) {
  Tx r(tx);
  if (!de.empty()) {
    int p = TxPos(r, de);
    while (p) {
      if (!para.empty()) r[size_t(p - 1)] = para[0];
      p = TxPos(r, de, p + 1);
    }
  }
  res = std::move(r);
}

// Strips characters of a set: 0 all, 1 leading, 2 trailing, 3 both ends.
void TxChrLimpa(int modo, TxV tx, TxV cjt, Tx& res) {
  auto em = [&](char16_t c) { return cjt.find(c) != TxV::npos; };
  Tx r;
  if (modo == 0) {
    for (char16_t c : tx)
      if (!em(c)) r.push_back(c);
  } else if (modo >= 1 && modo <= 3) {
    size_t i = 0, n = tx.size();
    if (modo != 2)
      while (i < n && em(tx[i])) i++;
    if (modo != 1)
      while (n > i && em(tx[n - 1])) n--;
    r = Tx(tx.substr(i, n - i));
  } else {
    r = Tx(tx);
  }
  res = std::move(r);
}

// The first character of the list, in list order, that occurs in the text.
void TxChrLisPos(TxV chrs, TxV tx, int& idx, Tx& chr) {
  for (size_t i = 0; i < chrs.size(); i++)
    if (tx.find(chrs[i]) != TxV::npos) {
      idx = int(i + 1);
      chr = Tx(1, chrs[i]);
      return;
    }
  idx = 0;
  chr.clear();
}

// Width w >= 0: padded with blanks and cut to w, keeping the left; w < 0: the
// rightmost |w| characters, padded with blanks on the left.
Tx TxAlnExe(long w, TxV tx) {
  if (w >= 0) return TxEsq(Tx(tx) + TxRep(w, u' '), w);
  return TxDir(TxRep(-w, u' ') + Tx(tx), -w);
}

void TxAln(long w, Tx& tx) { tx = TxAlnExe(w, tx); }

// Right-trims first; a width below the trimmed length is raised up to it.
void TxAlnRtrim(long w, Tx& tx) {
  Tx t = TxTrimD(tx);
  long n = long(t.size());
  if (w >= 0 && w < n) w = n;
  if (w < 0 && -w < n) w = -n;
  tx = TxAlnExe(w, t);
}

// Digits of a number (its text without the sign position) filled to |w|: on the
// right keeping the left for w < 1, on the left keeping the right otherwise.
void TxAlnPad(const Var& val, long w, TxV fill, Tx& res) {
  Tx s = TxMeio(NuStr(NuDbl(val)), 2);
  char16_t f = fill.empty() ? u' ' : fill[0];
  if (w < 1) res = TxEsq(s + TxRep(-w, f), -w);
  else res = TxDir(TxRep(w, f) + s, w);
}

Tx TxRepPre(TxV tx, long w, TxV fill) {
  if (w < 0) return Tx();
  Tx r(tx);
  if (!fill.empty()) r += TxRep(w, fill[0]);
  return TxEsq(r, w);
}

// Removes a leading double quote and, independently, a trailing one.
Tx TxAspRem(TxV tx) {
  if (!tx.empty() && tx.front() == u'"') tx.remove_prefix(1);
  if (!tx.empty() && tx.back() == u'"') tx.remove_suffix(1);
  return Tx(tx);
}

// One quoted literal for the script language: inner double quotes become apostrophes.
Tx TxAspPut(TxV tx) {
  Tx t;
  TxChrTro(TxAspRem(tx), u"\"", u"'", t);
  return u"\"" + t + u"\"";
}

// Expands "chr$(codes)" and "bin$(codes)" into the characters of the codes.
void TxBinChr(Tx& tx, Tx& res) {
  Tx t(tx), r, esq, arg;
  TxSubst(u"R", t, u"chr$(", u"bin$(");
  while (!t.empty()) {
    TxTokMul(t, u"bin$(", esq);
    r += esq;
    if (!t.empty()) {
      int f;
      TxTokSeg(t, u")", arg, f);
      r += TxChrBin({Var(arg)});
    }
  }
  res = std::move(r);
}

void TxBinChr(Tx& tx) { TxBinChr(tx, tx); }

// Characters of codes in the ANSI code page: a text is a comma list of codes, a
// number one code; codes outside 0..255 add nothing.
Tx TxChrBin(const std::vector<Var>& vals) {
  Tx r;
  auto poe = [&r](double d) {
    if (std::isnan(d)) return;
    d = std::nearbyint(d);
    if (d >= 0 && d <= 255) r.push_back(ChrDe1252((unsigned char)d));
  };
  for (const Var& v : vals) {
    if (v.EhTx()) {
      Tx t = v.Txt();
      while (!t.empty()) {
        Var c{0.0};
        TxTokNu(t, u",", c);
        poe(c.Num());
      }
    } else {
      poe(v.Num());
    }
  }
  return r;
}

void TxJunSep(Tx& tx, TxV sep, const Var& pec) {
  Tx p = TxVar(pec);
  if (p.empty()) return;
  if (!tx.empty()) tx += sep;
  tx += p;
}

void TxLinJun(Tx& tx, TxV lin) {
  Tx l(lin);
  if (!tx.empty()) tx += kCrLf;
  tx += l;
}

// As TxJunSep, the separator followed by a line end (CR LF when none is given),
// so each piece after the first starts a line.
void TxLinAdi(Tx& tx, TxV sep, const Var& pec, TxV fim) {
  Tx s(sep);
  s += fim.empty() ? TxV(kCrLf) : fim;
  TxJunSep(tx, s, pec);
}

void TxArrAdi(TxArr& arr, TxV tx) {
  if (arr.empty()) arr.emplace_back();
  arr.emplace_back(tx);
}

namespace {
// 1 when one of the comma tokens of a list passes the test; "*" takes all.
template <class F>
int LisAlgum(TxV lis, F teste) {
  if (lis == u"*") return 1;
  Tx l(lis), t;
  int f;
  while (!l.empty()) {
    TxTokSeg(l, u",", t, f);
    if (teste(t)) return 1;
  }
  return 0;
}
}  // namespace

// 1 when the text begins with one of the comma tokens of the list.
void TxLisPfx(TxV lis, TxV tx, int& res) {
  res = LisAlgum(lis, [&](const Tx& t) { return tx.substr(0, t.size()) == t; });
}

// 1 when the value equals one of the comma tokens of the list.
void TxLisCnd(TxV lis, const Var& val, int& res) {
  res = LisAlgum(lis, [&](const Tx& t) {
    int r = 0;
    TxCndOp(val, u"=", Var(t), r);
    return r == 1;
  });
}

// One comparison of two texts: = > < >= <= <>, LIKE, ":" (inside "low:high"), INSTR.
void TxCndOp(const Var& val, TxV op, const Var& opd, int& res) {
  Tx v = TxVar(val), o = TxVar(opd), k = TxMaiTrm(op);
  bool r = false;
  if (k == u"=") r = v == o;
  else if (k == u">") r = v > o;
  else if (k == u"<") r = v < o;
  else if (k == u">=") r = v >= o;
  else if (k == u"<=") r = v <= o;
  else if (k == u"<>") r = v != o;
  else if (k == u"LIKE") r = TxLike(v, o);
  else if (k == u":") {
    Tx lo, hi;
    TxDivOrg(o, u":", lo, hi);
    r = lo <= v && v <= hi;
  } else if (k == u"INSTR") r = TxPos(o, v) > 0;
  res = r ? 1 : 0;
}

// One position of a wildcard pattern.
struct LikeTok {
  enum { Est, Qq, Dig, Lit, Cjt } k = Lit;
  char16_t c = 0;
  bool neg = false;
  Tx lis;  // pairs lo,hi of the ranges of a [list]
};

static bool LikeUm(const LikeTok& t, char16_t c) {
  switch (t.k) {
    case LikeTok::Qq: return true;
    case LikeTok::Dig: return c >= u'0' && c <= u'9';
    case LikeTok::Lit: return c == t.c;
    case LikeTok::Cjt: {
      bool em = false;
      for (size_t i = 0; i + 1 < t.lis.size(); i += 2)
        if (c >= t.lis[i] && c <= t.lis[i + 1]) em = true;
      return em != t.neg;
    }
    default: return false;
  }
}

bool TxLike(TxV tx, TxV pat) {
  std::vector<LikeTok> p;
  for (size_t i = 0; i < pat.size(); i++) {
    char16_t c = pat[i];
    LikeTok t;
    t.k = LikeTok::Lit;
    if (c == u'*') t.k = LikeTok::Est;
    else if (c == u'?') t.k = LikeTok::Qq;
    else if (c == u'#') t.k = LikeTok::Dig;
    else if (c == u'[' && pat.find(u']', i + 1) != TxV::npos) {
      size_t f = pat.find(u']', i + 1), j = i + 1;
      t.k = LikeTok::Cjt;
      if (j < f && pat[j] == u'!') { t.neg = true; j++; }
      for (; j < f; j++) {
        char16_t lo = pat[j], hi = lo;
        if (j + 2 < f && pat[j + 1] == u'-') { hi = pat[j + 2]; j += 2; }
        t.lis += lo;
        t.lis += hi;
      }
      i = f;
    } else {
      t.c = c;
    }
    p.push_back(std::move(t));
  }
  // Two pointers with a return point at the last star.
  size_t i = 0, j = 0, est = SIZE_MAX, ret = 0;
  while (i < tx.size()) {
    if (j < p.size() && p[j].k == LikeTok::Est) { est = j++; ret = i; }
    else if (j < p.size() && LikeUm(p[j], tx[i])) { i++; j++; }
    else if (est != SIZE_MAX) { j = est + 1; i = ++ret; }
    else return false;
  }
  while (j < p.size() && p[j].k == LikeTok::Est) j++;
  return j == p.size();
}

// Mode 0 cuts the text before the first character of the set (the whole text when
// there is none); mode 1 cuts the run of set characters at its start. Inside a run
// between two quote characters the set is not looked for.
void BasLinExe(int modo, Tx& tx, TxV cjt, Tx& res, TxV aspa) {
  size_t n = 0;
  if (modo == 0) {
    bool dentro = false;
    n = tx.size();
    for (size_t i = 0; i < tx.size(); i++) {
      if (!aspa.empty() && tx[i] == aspa[0]) dentro = !dentro;
      else if (!dentro && cjt.find(tx[i]) != TxV::npos) { n = i; break; }
    }
  } else {
    while (n < tx.size() && cjt.find(tx[n]) != TxV::npos) n++;
  }
  if (n == 0) {
    res.clear();
    return;
  }
  res = tx.substr(0, n);
  tx.erase(0, n);
}

void BasLinDiv(Tx& tx, TxV cjt, Tx& tok, Tx& del, TxV aspa) {
  BasLinExe(0, tx, cjt, tok, aspa);
  BasLinExe(1, tx, cjt, del, aspa);
}

// Next token and its one delimiter; the rest of a delimiter run goes back to the text.
void BasLinTok(Tx& tx, TxV cjt, Tx& tok, Tx& del, TxV aspa) {
  BasLinDiv(tx, cjt, tok, del, aspa);
  if (del.size() > 1) {
    tx.insert(0, del, 1, Tx::npos);
    del.resize(1);
  }
}

// The command line: element 0 the whole line, 1..n its words.
static TxArr& LcLis() {
  static TxArr l(1);
  return l;
}

// Splits at single blanks; runs of blanks make no empty word; quotes and tabs are text.
void LcArgPrp(TxV lin) {
  TxArr& l = LcLis();
  l.assign(1, Tx(lin));
  size_t i = 0;
  while (i < lin.size()) {
    size_t j = lin.find(u' ', i);
    if (j == TxV::npos) j = lin.size();
    if (j > i) l.emplace_back(lin.substr(i, j - i));
    i = j + 1;
  }
}

int LcArgNum() { return int(LcLis().size()) - 1; }

const TxArr& LcArgLis() { return LcLis(); }

// Index of the first word equal to pal (mode "M": uppercased both), or 0.
int LcArgPsq(TxV modo, TxV pal) {
  const TxArr& l = LcLis();
  bool mai = modo == u"M";
  Tx p = mai ? TxMai(pal) : Tx(pal);
  for (size_t i = 1; i < l.size(); i++)
    if ((mai ? TxMai(l[i]) : l[i]) == p) return int(i);
  return 0;
}

void LcArgCon(int idx, Var& dst, const Var& def) {
  const TxArr& l = LcLis();
  if (idx < 1 || idx >= int(l.size())) VarCnv(u"", def, dst);
  else VarCnv(u"", Var(l[size_t(idx)]), dst);
}

// The word after a switch; the default when the switch is absent or ends the line.
void LcArgVal(TxV modo, TxV sw, Var& dst, const Var& def) {
  int i = LcArgPsq(modo, sw);
  if (i) LcArgCon(i + 1, dst, def);
  else VarCnv(u"", def, dst);
}

}  // namespace zw
