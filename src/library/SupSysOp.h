// SupSysOp: the operating system's identification, read once at construction from
// the platform's version record (SysVer.h tells what Linux answers in each field)
// and answered from then on: version numbers, family flags, suite bits, texts.
// Family flags are cumulative within a family (a later system keeps the earlier
// flags), which is why Platform tests the newest first. True is -1.
// It is a class of the library for programs built beside the wizard; the wizard's
// own scripts ask ApiDec, which reads the record afresh at every question.
#pragma once
#include <cstdint>
#include "SysVer.h"
#include "Tx.h"

namespace zw {

class SupSysOp {
 public:
  SupSysOp();
  ~SupSysOp();
  const Tx cls = u"SupSysOp";
  Tx stamp;

  void FxIni();  // reads the record and derives the flags
  void FxFim() {}

  int32_t MajorVersion() const { return r_.maj; }
  int32_t MinorVersion() const { return r_.min; }
  int32_t PlatformID() const { return r_.plat; }
  int32_t ProductType() const { return r_.prodTipo; }
  int32_t ServicePackMajor() const { return r_.spMaj; }
  int32_t ServicePackMinor() const { return r_.spMin; }
  int32_t SuiteMask() const { return r_.suite; }
  int32_t BuildNumber() const { return int16_t(r_.build & 0xFFFF); }
  Tx CSDVersion() const;
  bool HasSBS() const { return r_.suite & 1; }
  bool HasAS() const { return r_.suite & 2; }
  bool HasBO() const { return r_.suite & 4; }
  bool HasTS() const { return r_.suite & 16; }
  bool HasSBSr() const { return r_.suite & 32; }
  bool HasDC() const { return r_.suite > 127; }
  int16_t IsWinNT() const { return nt_; }
  int16_t IsWin2K() const { return w2k_; }
  int16_t IsWinXP() const { return xp_; }
  int16_t IsWin95() const { return w95_; }
  int16_t IsWin98() const { return w98_; }
  int16_t IsWinME() const { return me_; }
  int16_t IsWin9x() const { return (w95_ || w98_ || me_) ? -1 : 0; }
  Tx Platform() const;
  Tx Version() const;  // Platform + " v" + major + "." + minor + ", Build " + build
  Tx ProductTypeName() const;

  void SysOpIde(Tx& tx) const { tx = Platform(); }
  void SysOpVer(Tx& tx) const;
  void SysOpOpc(Tx& tx) const;  // the service text, then "Advanced Server", joined with ", "
  void SysOpIdv(Tx& ver, Tx& opc) const;
  void SysOpUsa(Tx& nome, Tx& ver, Tx& opc) const;

 private:
  SysVer r_;
  int16_t nt_ = 0, w2k_ = 0, xp_ = 0, w95_ = 0, w98_ = 0, me_ = 0;
};

}  // namespace zw
