// The progress service in force, and the one that writes lines.
#include "SupShfPrg.h"

namespace zw {

namespace {
ShfPrg* gPrg = nullptr;
}

ShfPrg* ShfPrgAct() { return gPrg; }
void ShfPrgDef(ShfPrg* p) { gPrg = p; }

void ShfPrgLin::Ini(const Tx& titulo, int op, int64_t, int64_t) {
  op_ = op == kShfEli ? u"ELI" : op == kShfMov ? u"MOV" : u"COP";
  ult_ = -1;
  linha_(u"SHF INI " + op_ + (titulo.empty() ? Tx() : u" " + titulo));
}

bool ShfPrgLin::Passo(const Tx& orig, const Tx& dest, int64_t itens, int64_t) {
  if (itens == ult_) return true;
  ult_ = itens;
  linha_(u"SHF " + op_ + u" " + orig + (dest.empty() ? Tx() : u" > " + dest));
  return true;
}

void ShfPrgLin::Fim(bool ok) { linha_(ok ? u"SHF FIM 1" : u"SHF FIM 0"); }

void ShfPrgLin::Nota(const Tx& palavra, const Tx& path, const Tx& porque) {
  linha_(u"SHF " + palavra + u" " + path + u" (" + porque + u")");
}

}  // namespace zw
