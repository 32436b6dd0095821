// ApiDec: the version flags, names, codes and families of the running system.
#include "ApiDec.h"
#include "TxtGlb.h"

namespace zw {

namespace {
// The build number as the platform gives it to old callers: the low 16 bits, signed.
int16_t Build(const SysVer& r) { return int16_t(r.build & 0xFFFF); }

// The family of a code; the second form maps the NT versions by generation and
// compares the first row against "95", so that Windows 95 falls through to "?".
Tx Familia(const Tx& cod) {
  if (cod == u"W95" || cod == u"W98") return u"9X";
  if (cod == u"W2000" || cod == u"WXP" || cod == u"WNT" || cod == u"WVI" || cod == u"W7") return u"WNT";
  return u"?";
}
Tx Familia2(const Tx& cod) {
  if (cod == u"95" || cod == u"W98") return u"9X";
  if (cod == u"WNT") return u"WNT";
  if (cod == u"W2000" || cod == u"WXP") return u"W2K";
  if (cod == u"WVI" || cod == u"W7") return u"WVI";
  return u"?";
}
}  // namespace

void SopIde(const SysVer& r, Tx& nome, Tx& cod) {
  bool p1 = r.plat == 1, p2 = r.plat == 2;
  if (p1 && r.min < 10) nome = u"Windows 95", cod = u"W95";
  else if (p1) nome = u"Windows 98", cod = u"W98";
  else if (p2 && r.maj == 5 && r.min < 1) nome = u"Windows 2000", cod = u"W2000";
  else if (p2 && r.maj == 5) nome = u"Windows XP", cod = u"WXP";
  else if (p2 && r.maj == 6 && r.min < 1) nome = u"Windows Vista", cod = u"WVI";
  else if (p2 && r.maj == 6) nome = u"Windows 7", cod = u"W7";
  else nome = u"Windows NT", cod = u"WNT";
}

void SopVerTx(const SysVer& r, Tx& lng, Tx& crt) {
  Tx nome, cod;
  SopIde(r, nome, cod);
  lng = nome + u" v" + NuCStr(r.maj) + u"." + NuCStr(r.min) + u", Build " + NuCStr(Build(r));
  crt = NuCStr(r.plat) + u"." + NuCStr(r.maj) + u"." + NuCStr(r.min) + u"." + NuCStr(Build(r));
}

void SopVerCon(const SysVer& r, const Tx& pal, Var& val) {
  Tx p = TxMaiTrm(pal), nome, cod, lng, crt;
  SopIde(r, nome, cod);
  SopVerTx(r, lng, crt);
  if (p == u"P") val = Var(r.plat);
  else if (p == u"V+") val = Var(r.maj);
  else if (p == u"V-") val = Var(r.min);
  else if (p == u"VB") val = Var(Build(r));
  else if (p == u"VC") {
    Tx c = r.csd;
    size_t z = c.find(u'\0');
    if (z != Tx::npos) c.resize(z);
    val = Var(TxTrim(c));
  }
  else if (p == u"VER") val = Var(crt);
  else if (p == u"IDE") val = Var(nome);
  else if (p == u"COD") val = Var(cod);
  else if (p == u"FAM") val = Var(Familia(cod));
  else val = Var(lng);
}

void SopIdeTot(const SysVer& r, Tx& fam2, Tx& fam, Tx& cod) {
  Tx nome;
  SopIde(r, nome, cod);
  fam = Familia(cod);
  fam2 = Familia2(cod);
}

void SopIde(Tx& nome, Tx& cod) { SopIde(SysVerCon(), nome, cod); }
void SopVerCon(const Tx& pal, Var& val) { SopVerCon(SysVerCon(), pal, val); }
void SopVerTx(Tx& lng, Tx& crt) { SopVerTx(SysVerCon(), lng, crt); }
void SopIdeTot(Tx& fam2, Tx& fam, Tx& cod) { SopIdeTot(SysVerCon(), fam2, fam, cod); }

}  // namespace zw
