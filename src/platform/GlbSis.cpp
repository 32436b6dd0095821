// The platform's folders and drives, mapped to Linux.
#include <cstdlib>
#include "FicGlb.h"
#include "GlbReg.h"

namespace zw {

// Configuration that the system keeps, as the Windows folder held it.
Tx WinDirCon() { return u"/etc"; }

// Where shared components go, as the system folder held them.
Tx SysDirCon() { return u"/usr/local/lib"; }

void SysWinDirCon(Tx& win, Tx& sis) {
  win = WinDirCon();
  sis = SysDirCon();
}

// $TMPDIR as the system gives it (the way the temporary path honours TMP), else
// /tmp; without a trailing separator.
Tx TmpDirCon() {
  const char* t = std::getenv("TMPDIR");
  Tx d = t && *t ? TxDeUtf8(t) : Tx(u"/tmp");
  while (d.size() > 1 && d.back() == u'/') d.pop_back();
  return FicJun(d, u"");
}

int DrvTipCod(char16_t letra) {
  if (letra >= u'a' && letra <= u'z') letra = char16_t(letra - 32);
  for (auto& [l, dir] : FicDrvTab()) {
    if (l != letra) continue;
    Tx d = dir + u"/";
    if (d.rfind(u"/net/", 0) == 0) return 3;
    if (d.rfind(u"/media/", 0) == 0 || d.rfind(u"/run/media/", 0) == 0) return 1;
    return 2;
  }
  return 0;
}

void DrvTipCon(int cod, Tx& letra, Tx& nome) {
  switch (cod) {
    case 1: letra = u"A", nome = u"Amovivel"; break;
    case 2: letra = u"F", nome = u"Fixed"; break;
    case 3: letra = u"R", nome = u"Remoto"; break;
    case 4: letra = u"CD", nome = u"CD-Rom"; break;
    case 5: letra = u"RAM", nome = u"RAM Disk"; break;
    default: letra = u"?", nome = u"Desconhecido";
  }
}

void DrvLis(Tx& lis, const Tx& tipo) {
  lis.clear();
  for (auto& [l, dir] : FicDrvTab()) {
    int c = DrvTipCod(l);
    Tx let, nom;
    DrvTipCon(c, let, nom);
    bool ok = tipo == u"HD" ? (c == 2 || c == 3)
              : (tipo == u"A" || tipo == u"F" || tipo == u"R" || tipo == u"CD" || tipo == u"RAM") ? let == tipo
                                                                                                 : true;
    if (!ok) continue;
    if (!lis.empty()) lis += u",";
    lis += l;
  }
}

}  // namespace zw
