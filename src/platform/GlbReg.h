// GlbReg: the registry, the system's folders and its drives.
// The registry is a stand-in made of registry-export files ("REGEDIT4" or
// "Windows Registry Editor Version 5.00", UTF-16LE with its mark or 8-bit): all
// "*.reg" files of /etc/zunwiz/registry, read in name order, a later file winning,
// and written to /etc/zunwiz/registry/zunwiz.reg. RegFicDef puts one file of the
// caller's in their place, for reading and writing alike. Only text values read;
// other values (dword:, hex:...) are kept but read as empty.
#pragma once
#include <cstdint>
#include "Tx.h"

namespace zw {

// Root keys, in the platform's numbering.
constexpr int32_t kHkcr = int32_t(0x80000000u), kHkcu = int32_t(0x80000001u), kHklm = int32_t(0x80000002u),
                  kHku = int32_t(0x80000003u), kHkcc = int32_t(0x80000005u);

// A text value, trimmed, with the closing character of code 0 that the registry
// counts in its length still at its end (callers remove it). Empty when the key or
// the value is missing, when the value is not text, or when it is longer than 255.
Tx RegVarLer(int32_t raiz, const Tx& path, const Tx& nome);
// Stores a text value, creating the key; true when it was written to the file.
bool RegVarGra(int32_t raiz, const Tx& path, const Tx& nome, const Tx& tx);
// Reads and writes this file alone instead of the system folder; "" goes back.
void RegFicDef(const Tx& fic);
const char* RegDirSis();  // "/etc/zunwiz/registry"

// The platform's folders, mapped to Linux: the Windows folder is /etc, the system
// folder /usr/local/lib, the temporary folder $TMPDIR or /tmp.
Tx WinDirCon();
Tx SysDirCon();
void SysWinDirCon(Tx& win, Tx& sis);
Tx TmpDirCon();

// Drive letters of a kind joined with ","; kinds as the drive type letters below,
// "HD" fixed or remote, anything else every drive. The drives are the letters that
// have a folder (C is "/"); a folder under /net is remote, under /media or
// /run/media removable, any other fixed.
void DrvLis(Tx& lis, const Tx& tipo);
int DrvTipCod(char16_t letra);  // 1 removable, 2 fixed, 3 remote, 0 no such drive
void DrvTipCon(int cod, Tx& letra, Tx& nome);

}  // namespace zw
