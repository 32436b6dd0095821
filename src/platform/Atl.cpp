// Shortcuts as Desktop Entry files: the Exec line quoted by the entry's rules, the
// paths of a Windows script made Linux ones, and the file written safely.
#include "Atl.h"
#include <unistd.h>
#include "FicGlb.h"
#include "FicGra.h"
#include "FicInf.h"
#include "GlbReg.h"
#include "PrcExe.h"
#include "TxtGlb.h"

namespace zw {

namespace {

// A Linux path made absolute against the working folder.
std::string Absoluto(const Tx& p) {
  std::string n = FicNat(p);
  if (n.empty() || n[0] == '/') return n;
  char buf[4096];
  std::string cwd = getcwd(buf, sizeof buf) ? buf : "/";
  while (n.rfind("./", 0) == 0) n.erase(0, 2);
  return cwd + (cwd.back() == '/' ? "" : "/") + n;
}

bool TemSep(const Tx& p) { return p.find_first_of(u"/\\") != Tx::npos || (p.size() >= 2 && p[1] == u':'); }

// The extension in capitals, with its dot ("" when none).
Tx Ext(const Tx& p) {
  size_t b = p.find_last_of(u"/\\"), d = p.rfind(u'.');
  if (d == Tx::npos || (b != Tx::npos && d < b)) return Tx();
  return TxMai(p.substr(d));
}

bool Imagem(const Tx& ext) { return ext == u".ICO" || ext == u".PNG" || ext == u".SVG" || ext == u".XPM"; }

}  // namespace

std::string AtlFic(const Tx& lnk) {
  Tx p = lnk;
  Tx e = Ext(p);
  if (e == u".LNK" || e == u".URL") p.resize(p.size() - 4);
  return Absoluto(p + u".desktop");
}

Tx AtlAlvo(const Tx& alvo) {
  if (alvo.empty()) return alvo;
  // A bare name is a file of the working folder when there is one, as Windows
  // takes it; otherwise a program for the desktop to find in PATH.
  if (!TemSep(alvo) && !FicInfHa(Absoluto(alvo))) return alvo;
  std::string n = Absoluto(alvo);
  if (Ext(alvo) == u".EXE" && !FicInfHa(n) && FicInfHa(n.substr(0, n.size() - 4))) n.resize(n.size() - 4);
  return TxDeUtf8(n);
}

Tx AtlArgCit(const Tx& a) {
  static const TxV kRes = u" \t\n\"'\\><~|&;$*?#()`";
  bool cita = a.empty() || a.find_first_of(kRes) != Tx::npos;
  Tx r;
  if (cita) r += u'"';
  for (char16_t c : a) {
    if (cita && (c == u'"' || c == u'`' || c == u'$' || c == u'\\')) r += u'\\';
    if (c == u'%') r += u'%';
    r += c;
  }
  if (cita) r += u'"';
  return r;
}

Tx AtlValCit(const Tx& v) {
  Tx r;
  for (size_t i = 0; i < v.size(); i++) {
    char16_t c = v[i];
    if (c == u'\\') r += u"\\\\";
    else if (c == u'\n') r += u"\\n";
    else if (c == u'\t') r += u"\\t";
    else if (c == u'\r') r += u"\\r";
    else if (c == u' ' && i == 0) r += u"\\s";
    else r += c;
  }
  return r;
}

Tx AtlIco(const Tx& ico) {
  Tx p = ico;
  // "file,index": the index picks an icon inside a Windows program; an image
  // file has one, and a launcher names the file alone.
  size_t v = p.rfind(u',');
  if (v != Tx::npos && p.find_first_not_of(u"-0123456789 ", v + 1) == Tx::npos) p.resize(v);
  p = TxTrim(p);
  if (p.size() >= 2 && p.front() == u'"' && p.back() == u'"') p = p.substr(1, p.size() - 2);
  if (p.empty()) return Tx();
  if (!TemSep(p) && Ext(p).empty()) return p;  // a name of the icon theme
  std::string n = Absoluto(p);
  Tx e = Ext(p);
  if (Imagem(e)) return TxDeUtf8(n);
  // A program or library holds its icons inside; take an image beside it.
  std::string base = e.empty() ? n : n.substr(0, n.size() - e.size());
  for (const char* x : {".png", ".svg", ".xpm", ".ico"})
    if (FicInfTip(base + x) == kFicReg) return TxDeUtf8(base + x);
  return Tx();
}

std::string AtlTx(const Atl& s, const Tx& nome, bool url) {
  Tx t = u"[Desktop Entry]\nVersion=1.0\n";
  if (url) {
    t += u"Type=Link\nName=" + AtlValCit(nome) + u"\nURL=" + AtlValCit(s.alvo) + u"\n";
    return TxUtf8(t);
  }
  t += u"Type=Application\nName=" + AtlValCit(nome) + u"\n";
  if (!s.des.empty()) t += u"Comment=" + AtlValCit(s.des) + u"\n";
  Tx alvo = AtlAlvo(s.alvo);
  std::string na = TxUtf8(alvo);
  FicInf inf;
  bool ha = TemSep(alvo) && FicInfLer(na, inf);
  Tx exe;
  if (ha && (inf.tipo == kFicDir || (inf.tipo == kFicReg && !(inf.modo & 0111)))) {
    // A folder or a document opens with the program the desktop chooses for it.
    exe = u"xdg-open " + AtlArgCit(alvo);
  } else {
    exe = AtlArgCit(alvo);
    for (const Tx& w : PrcPal(s.args)) exe += u" " + AtlArgCit(w);
    // The menu hides the launcher while its program is missing.
    if (TemSep(alvo)) t += u"TryExec=" + AtlValCit(alvo) + u"\n";
  }
  t += u"Exec=" + AtlValCit(exe) + u"\n";
  if (!s.dir.empty()) t += u"Path=" + AtlValCit(TxDeUtf8(Absoluto(s.dir))) + u"\n";
  Tx ico = AtlIco(s.icone);
  if (!ico.empty()) t += u"Icon=" + AtlValCit(ico) + u"\n";
  t += u"Terminal=false\n";
  return TxUtf8(t);
}

int AtlGra(const Tx& lnk, const Atl& s, bool url) {
  if (s.alvo.empty()) return 5;
  std::string f = AtlFic(lnk);
  size_t b = f.rfind('/');
  std::string dir = f.substr(0, b ? b : 1);
  Tx nome = TxDeUtf8(f.substr(b + 1, f.size() - b - 1 - 8));
  std::string txt = AtlTx(s, nome, url);
  if (int e = DirCriMod(dir, 0755)) return e;
  FicGra g;
  g.ata = 'L';
  if (int e = g.Abre(f, 'O', DirEspMes(dir) ? 0755 : 0644)) return e;
  if (int e = g.Grava(txt)) {
    g.Desiste();
    return e;
  }
  return g.Fecha();
}

}  // namespace zw
