// Path texts: the separator setting, cutting a path into folder, name, drive and
// extension, and joining pieces. Pure text work: nothing here touches the disk.
#include "FicGlb.h"
#include "TxtGlb.h"

namespace zw {

static Tx gSep = u"\\";

void FicSepDef(const Tx& sep) { gSep = sep.empty() ? Tx(u"\\") : sep; }
const Tx& FicSep() { return gSep; }

// Cuts at the last separator or "]": a separator is left out of the folder, a "]"
// stays in it, since "[X]name" is a bracketed root that belongs to the folder.
void FicDirNom(const Tx& path, Tx& dir, Tx& nom) {
  Tx p = TxTrim(path);
  size_t s = p.rfind(gSep);
  size_t b = p.rfind(u']');
  if (s == Tx::npos && b == Tx::npos) {
    dir.clear();
    nom = p;
  } else if (b != Tx::npos && (s == Tx::npos || b > s)) {
    dir = p.substr(0, b + 1);
    nom = p.substr(b + 1);
  } else {
    dir = p.substr(0, s);
    nom = p.substr(s + gSep.size());
  }
}

// "C:\x" gives "C" and "\x"; "\\srv\sh\x" gives "\\srv" and "sh\x".
void FicDrvDir(const Tx& path, Tx& drv, Tx& rest) {
  if (path.size() >= 2 && path[1] == u':') {
    drv = path.substr(0, 1);
    rest = path.substr(2);
  } else if (path.rfind(u"\\\\", 0) == 0) {
    Tx a = path.substr(2), b;
    TxDivTip(u"PE", a, u"\\", b);
    drv = u"\\\\" + a;
    rest = b;
  } else {
    drv.clear();
    rest = path;
  }
}

// As FicDrvDir, but a share's root is "\\server\share". The second search starts
// after the first "\" found from position 3; when there is none it starts at the
// beginning and finds the leading "\", so "\\srv" gives "" and "\srv".
int FicDrvUnc(const Tx& path, Tx& raiz, Tx& rest) {
  if (path.rfind(u"\\\\", 0) != 0) {
    FicDrvDir(path, raiz, rest);
    return 0;
  }
  size_t p1 = path.find(u'\\', 2);              // 0-based; npos = not found
  size_t from = p1 == Tx::npos ? 0 : p1 + 1;
  size_t p2 = path.find(u'\\', from);
  if (p2 == Tx::npos) {  // the root would have a negative length
    raiz.clear();
    rest = path;
    return 5;
  }
  raiz = path.substr(0, p2);
  rest = path.substr(p2 + 1);
  return 0;
}

// Position (1-based) of the last ".", with positions below 2 counting as none, so a
// name that starts with its only dot (".cfg") has no extension.
void FicExtPos(const Tx& nom, int& pos) {
  int p = 0;
  TxPosUlt(u"R", nom, u".", p);
  pos = p < 2 ? 0 : p;
}

// Name and extension; with the blank flag 1 a name without a dot is cut at its first
// blank instead ("prog arg" gives "prog" and "arg").
void FicNomExtSep(const Tx& tx, Tx& nom, Tx& ext, int branco) {
  int p = 0;
  FicExtPos(tx, p);
  if (p == 0 && branco == 1) {
    size_t b = tx.find(u' ');
    p = b == Tx::npos ? 0 : int(b) + 1;
  }
  if (p == 0) {
    nom = TxTrim(tx);
    ext.clear();
  } else {
    nom = TxTrim(tx.substr(0, p - 1));
    ext = TxTrim(tx.substr(p));
  }
}

void FicNomExt(const Tx& tx, Tx& nom, Tx& ext) { FicNomExtSep(tx, nom, ext, 1); }

void FicNomExtJun(const Tx& nom, const Tx& ext, Tx& res) {
  res = ext.empty() ? nom : nom + u"." + ext;
}

void FicExtTro(const Tx& tx, const Tx& extNova, Tx& res, int branco) {
  Tx nom, ext;
  FicNomExtSep(tx, nom, ext, branco);
  FicNomExtJun(nom, extNova, res);
}

// Joins folder and name with exactly one separator between them, drops a trailing
// separator, and keeps a drive alone a root ("C:" gives "C:\").
void FicJun(const Tx& dir, const Tx& nom, Tx& res) {
  const Tx& s = gSep;
  Tx d = dir, n = nom;
  auto acaba = [&](const Tx& t) { return t.size() >= s.size() && t.compare(t.size() - s.size(), s.size(), s) == 0; };
  if (!d.empty() && !acaba(d)) d += s;
  if (!d.empty() && !n.empty() && n[0] == s[0]) n.erase(0, 1);
  Tx r = d + n;
  if (r.size() > 1 && acaba(r)) r.erase(r.size() - 1);
  if (r.size() == 2 && r[1] == u':') r += s;
  res = std::move(r);
}

Tx FicJun(const Tx& dir, const Tx& nom) {
  Tx r;
  FicJun(dir, nom, r);
  return r;
}

Tx FicJunLst(std::initializer_list<Tx> pecas) {
  Tx r;
  for (const Tx& p : pecas) r = FicJun(r, p);
  return r;
}

// The six parts. The drive comes from FicDrvDir, folder and name from FicDirNom of
// the rest, name and extension from FicNomExtSep without the blank rule, since a
// file name may hold blanks.
void FicPar(const Tx& path, std::vector<Tx>& par) {
  par.assign(6, Tx());
  par[0] = path;
  Tx rest;
  FicDrvDir(path, par[1], rest);
  FicDirNom(rest, par[2], par[3]);
  FicNomExtSep(par[3], par[4], par[5], 0);
}

// Pieces at "\": a leading "\\" is masked as "||" while cutting so that the share's
// server stays in one piece, and is put back in piece 1.
void FicDirLis(const Tx& path, std::vector<Tx>& pecas, int& n) {
  Tx w = path;
  bool unc = w.rfind(u"\\\\", 0) == 0;
  if (unc) w.replace(0, 2, u"||");
  TxTokLis(w, u"\\", pecas, n);
  if (unc && n >= 1 && pecas.size() > 1 && pecas[1].rfind(u"||", 0) == 0) pecas[1].replace(0, 2, u"\\\\");
}

}  // namespace zw
