// ApiDec: which operating system the wizard runs on, in the words its scripts
// compare: a name ("Windows XP") and a code ("WXP"), the version's numbers and
// texts, and the families. Every query reads the platform's version record afresh
// (SysVer.h tells what Linux answers: the NT family with a version that no named
// Windows matches, so "Windows NT" and "WNT").
#pragma once
#include "SysVer.h"
#include "Tx.h"
#include "Var.h"

namespace zw {

// Name and code, by the first flag that stands: "Windows 95" "W95", "Windows 98"
// "W98", "Windows 2000" "W2000", "Windows XP" "WXP", "Windows Vista" "WVI",
// "Windows 7" "W7", else "Windows NT" "WNT".
void SopIde(Tx& nome, Tx& cod);
void SopIde(const SysVer& r, Tx& nome, Tx& cod);
// A value by a word: "P", "V+", "V-", "VB", "VC", "VER", "IDE", "COD", "FAM";
// any other word gives the long text.
void SopVerCon(const Tx& pal, Var& val);
void SopVerCon(const SysVer& r, const Tx& pal, Var& val);
// Long text: name, " v", major, ".", minor, ", Build ", build; short text: platform
// id, major, minor and build joined with ".".
void SopVerTx(Tx& lng, Tx& crt);
void SopVerTx(const SysVer& r, Tx& lng, Tx& crt);
// The second family form, the family and the code.
void SopIdeTot(Tx& fam2, Tx& fam, Tx& cod);
void SopIdeTot(const SysVer& r, Tx& fam2, Tx& fam, Tx& cod);

}  // namespace zw
