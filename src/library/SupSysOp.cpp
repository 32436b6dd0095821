// SupSysOp: the record read once, the family flags derived from it, the texts.
#include "SupSysOp.h"
#include "DbgFx.h"
#include "TxtGlb.h"

namespace zw {

SupSysOp::SupSysOp() {
  DbgObjIni(cls, stamp);
  FxIni();
}
SupSysOp::~SupSysOp() { DbgObjFim(cls, stamp); }

void SupSysOp::FxIni() {
  r_ = SysVerCon();
  size_t z = r_.csd.find(u'\0');
  if (z != Tx::npos) r_.csd.resize(z);
  nt_ = w2k_ = xp_ = w95_ = w98_ = me_ = 0;
  if (r_.plat == 1) {
    w95_ = -1;
    if (r_.min >= 10) w98_ = -1;
    if ((r_.build & 0xFFFF) >= 3000) me_ = -1;
  } else if (r_.plat == 2) {
    nt_ = -1;
    if (r_.maj >= 5) w2k_ = -1;
    if (w2k_ && r_.min >= 1) xp_ = -1;
  }
}

Tx SupSysOp::CSDVersion() const { return TxTrim(r_.csd); }

Tx SupSysOp::Platform() const {
  if (me_) return u"Windows Me";
  if (w98_) return u"Windows 98";
  if (w95_) return u"Windows 95";
  if (xp_) return u"Windows XP";
  if (w2k_) return u"Windows 2000";
  if (nt_) return u"Windows NT";
  return Tx();
}

void SupSysOp::SysOpVer(Tx& tx) const {
  tx = NuCStr(r_.maj) + u"." + NuCStr(r_.min) + u", Build " + NuCStr(BuildNumber());
}

Tx SupSysOp::Version() const {
  Tx v;
  SysOpVer(v);
  return Platform() + u" v" + v;
}

Tx SupSysOp::ProductTypeName() const {
  switch (r_.prodTipo) {
    case 0: return u"Unknown";
    case 1: return u"NT Workstation";
    case 2: return u"Domain Controller";
    case 3: return u"NT Server";
    default: return Tx();
  }
}

void SupSysOp::SysOpOpc(Tx& tx) const {
  tx = CSDVersion();
  if (HasAS()) tx += (tx.empty() ? Tx() : Tx(u", ")) + u"Advanced Server";
}

void SupSysOp::SysOpIdv(Tx& ver, Tx& opc) const {
  ver = Version();
  SysOpOpc(opc);
}

void SupSysOp::SysOpUsa(Tx& nome, Tx& ver, Tx& opc) const {
  SysOpIde(nome);
  SysOpVer(ver);
  SysOpOpc(opc);
}

}  // namespace zw
