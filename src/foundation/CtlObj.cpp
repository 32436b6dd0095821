// The colour calls of the foundation on a control: BackColor and ForeColor
// set by name, and the default, text, caption and value properties read by name.
#include "CtlObj.h"

namespace zw {

bool CtlObj::PoeCorFun(long cor) {
  try {
    PrpAtr(u"BackColor", Var(int32_t(cor)));
    return true;
  } catch (const CtlErr&) {
    return false;
  }
}

bool CtlObj::PoeCorTx(long cor) {
  try {
    PrpAtr(u"ForeColor", Var(int32_t(cor)));
    return true;
  } catch (const CtlErr&) {
    return false;
  }
}

bool CtlObj::Prop(CtlProp p, Var& v) const {
  static const char16_t* const nomes[] = {u"Value", u"Text", u"Caption", u"Value"};
  try {
    v = PrpCon(nomes[int(p)]);
    return true;
  } catch (const CtlErr&) {
    return false;
  }
}

}  // namespace zw
