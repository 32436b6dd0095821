// Colours: colour texts and values, the 16-colour palette, the named palette, and
// setting or reading a control's colours and value through the CtlCor interface.
#include <cmath>
#include <map>
#include <optional>
#include "GlbVar.h"

namespace zw {

long CorQB(int n) {
  static const long k[16] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080,
                             0x008080, 0xC0C0C0, 0x808080, 0xFF0000, 0x00FF00, 0xFFFF00,
                             0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  return n >= 0 && n <= 15 ? k[n] : 0;
}

// A number as a colour value; false when it cannot be one (not finite or too large).
static bool CorNum(double d, long& cor) {
  if (!std::isfinite(d) || d < -2147483648.0 || d > 4294967295.0) return false;
  d = std::nearbyint(d);
  cor = d > 2147483647.0 ? long(int32_t(uint32_t(d))) : long(d);
  return true;
}

// Parses a colour text by its first character and content; a text that cannot be
// read leaves the colour as it was.
void CorTxCnv(TxV tx, long& cor, Tx& tip) {
  char16_t c = tx.empty() ? 0 : ChrMai(tx[0]);
  long v;
  int ok;
  if (c == u'W' || c == u'-') {
    double d = NuVal(c == u'W' ? tx.substr(1) : tx, ok);
    if (!ok || !CorNum(d, v)) return;
    cor = v;
    tip.clear();
  } else if (c == u'H') {
    double d = NuVal(u"&" + Tx(tx), ok);
    if (!ok || !CorNum(d, v)) return;
    if (v < 0 && v >= -32768) v += 65536;
    cor = v;
    tip = u"H";
  } else if (tx.find(u',') != TxV::npos) {
    Tx t(tx);
    Var r{0.0}, g{0.0}, b{0.0};
    TxTokNu(t, u",", r);
    TxTokNu(t, u",", g);
    TxTokNu(t, u",", b);
    auto lim = [](double d) { return !std::isfinite(d) ? 0L : d < 0 ? 0L : d > 255 ? 255L : std::lround(d); };
    cor = lim(r.Num()) + 256 * lim(g.Num()) + 65536 * lim(b.Num());
    tip = u"RGB";
  } else {
    double d = NuVal(tx, ok);
    if (!ok || !CorNum(d, v)) return;
    if (v >= 1 && v <= 15) {
      cor = CorQB(int(v));
      tip = u"QB";
    } else {
      cor = v;
      tip = u"NC";
    }
  }
}

// Colour of a text (its colour text) or of a number (0..15 the palette, else itself).
void CorValCon(const Var& val, long& cor, int& ok) {
  ok = 0;
  if (val.EhTx()) {
    Tx tip;
    long c = cor;
    CorTxCnv(val.Txt(), c, tip);
    cor = c;
    ok = 1;
    return;
  }
  if (val.EhObj() || val.EhNulo()) return;
  long v;
  if (!CorNum(val.Num(), v)) return;
  cor = v >= 0 && v <= 15 ? CorQB(int(v)) : v;
  ok = 1;
}

Var CorVal(const Var& val) {
  long c = 0;
  int ok;
  CorValCon(val, c, ok);
  return Var(int32_t(c));
}

void CorRgbSep(long cor, int& r, int& g, int& b) {
  unsigned long u = (unsigned long)cor & 0xFFFFFF;
  r = int(u & 0xFF);
  g = int((u >> 8) & 0xFF);
  b = int((u >> 16) & 0xFF);
}

void CorTxMem(long cor, Tx& tx) {
  int r, g, b;
  CorRgbSep(cor, r, g, b);
  auto d3 = [](int n) { return TxDir(u"00" + TxAsc(std::to_string(n)), 3); };
  tx = d3(r) + u"," + d3(g) + u"," + d3(b);
}

void CorParSep(TxV tx, Tx& fun, Tx& frn) { TxDiv1(tx, u"+", fun, frn); }

// The named palette; absent until something adds to it.
static std::optional<std::map<Tx, Tx>>& CorPal() {
  static std::optional<std::map<Tx, Tx>> p;
  return p;
}

void CorPalAdi(TxV nome, TxV cor) {
  if (!CorPal()) CorPal().emplace();
  (*CorPal())[TxMaiTrm(nome)] = Tx(cor);
}

void CorPalLpz() { CorPal().reset(); }

bool CorPalCon(TxV nome, Tx& val, int& ach) {
  ach = 0;
  if (!CorPal()) return false;
  auto it = CorPal()->find(TxMaiTrm(nome));
  if (it != CorPal()->end()) {
    val = it->second;
    ach = 1;
  }
  return true;
}

// The colour a value asks for; false for the text "-" (leave the control alone)
// and for a value that is no colour.
static bool CtlCorVal(const Var& cor, long& c) {
  if (cor.EhTx()) {
    if (cor.Txt() == u"-") return false;
    Tx tip;
    c = 0;
    CorTxCnv(cor.Txt(), c, tip);
    return true;
  }
  if (cor.EhObj() || cor.EhNulo() || cor.EhFalta()) return false;
  return CorNum(cor.Num(), c);
}

void CtlCorFun(CtlCor& ctl, const Var& cor) {
  long c;
  if (CtlCorVal(cor, c)) ctl.PoeCorFun(c);
}

void CtlCorTx(CtlCor& ctl, const Var& cor) {
  long c;
  if (CtlCorVal(cor, c)) ctl.PoeCorTx(c);
}

int CtlCorApl(CtlCor& ctl, const Var& cor, const Var& cor2) {
  if (!cor2.EhFalta()) {
    CtlCorFun(ctl, cor);
    CtlCorTx(ctl, cor2);
    return 1;
  }
  Tx v;
  int ach;
  if (!CorPalCon(TxVar(cor), v, ach)) return 0;
  if (ach) {
    Tx f, t;
    CorParSep(v, f, t);
    CtlCorFun(ctl, Var(f));
    CtlCorTx(ctl, Var(t));
  } else {
    CtlCorFun(ctl, Var(Tx()));
  }
  return 1;
}

// Default value, Text, Caption, Value in turn: the last one the control has stands.
void CtlValCon(const CtlCor& ctl, Var& val) {
  for (CtlProp p : {CtlProp::Omissao, CtlProp::Text, CtlProp::Caption, CtlProp::Value}) {
    Var v;
    if (ctl.Prop(p, v)) val = v;
  }
}

}  // namespace zw
