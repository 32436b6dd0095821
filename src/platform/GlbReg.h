// GlbReg: the registry, the system's folders and its drives.
// The registry is a stand-in made of registry-export files ("REGEDIT4" or
// "Windows Registry Editor Version 5.00", UTF-16LE with its mark or 8-bit), in two
// places. The machine-wide roots (HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT,
// HKEY_USERS, HKEY_CURRENT_CONFIG) are all "*.reg" files of /etc/zunwiz/registry,
// read in name order, a later file winning, and written to its zunwiz.reg.
// HKEY_CURRENT_USER is the running user's own file,
// $XDG_CONFIG_HOME/zunwiz/registry.reg (~/.config when the variable is not set),
// read over what the machine-wide files say of that root. ZUNWIZ_REGISTRY=DIR
// moves both: DIR/machine for the machine-wide files, DIR/user.reg for the user's.
// RegFicDef puts one file of the caller's in place of all of them, for reading and
// writing alike. Only text values read; other values (dword:, hex:...) are kept
// but read as empty.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
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
// When it was not, porque (if given) says which file and why ("permission denied"...).
bool RegVarGra(int32_t raiz, const Tx& path, const Tx& nome, const Tx& tx, Tx* porque = nullptr);
// Removes a value (nome) or, with chave, the key path with its subkeys. 1 done,
// 0 there was no such value or key, -1 the file could not be written (porque says
// why, as for RegVarGra).
int RegVarEli(int32_t raiz, const Tx& path, const Tx& nome, Tx* porque = nullptr);
int RegChvEli(int32_t raiz, const Tx& path, Tx* porque = nullptr);
// Reads and writes this file alone instead of the system folder; "" goes back.
void RegFicDef(const Tx& fic);
const char* RegDirSis();  // "/etc/zunwiz/registry"
// The file a write to the root goes to (Linux path): the user's for
// HKEY_CURRENT_USER, the machine-wide zunwiz.reg for the others.
std::string RegFicGra(int32_t raiz);

// One registry file as a whole, as zunwiz-undo changes it: keys named in full
// ("HKEY_CURRENT_USER\Software\X", short root names taken too) and compared
// case-blind, values as text or, raw, as the text after "=" of a value of another
// kind ("dword:00000001"). Changes stay in memory until Gra.
class RegFic {
 public:
  RegFic();
  ~RegFic();
  RegFic(RegFic&&) noexcept;
  // Reads the file; a missing or unreadable one reads as empty.
  void Ler(const std::string& nat);
  // Writes it back through the safe writer (a file that is there keeps its mode
  // and owner). 0 or the file layer's error number.
  int Gra() const;
  // The value nome of the key: false when there is none.
  bool Val(const Tx& chave, const Tx& nome, Tx& v, bool& bruto) const;
  void ValPoe(const Tx& chave, const Tx& nome, const Tx& v, bool bruto);  // the key made too
  bool ValTira(const Tx& chave, const Tx& nome);
  bool Chv(const Tx& chave) const;
  void ChvPoe(const Tx& chave);
  // True when the key holds no value and no key lies below it.
  bool ChvVazia(const Tx& chave) const;
  bool ChvTira(const Tx& chave);  // the key alone, with its values
  bool Vazio() const;             // no key at all

 private:
  struct Imp;
  std::unique_ptr<Imp> imp_;
};

// A special folder by the name WScript.Shell's SpecialFolders takes ("Desktop",
// "Programs", "AllUsersStartup"...), case-blind, as a Linux path: the freedesktop
// folders of the running user (XDG_* variables and user-dirs.dirs), and for the
// "AllUsers" names the system's (XDG_DATA_DIRS, XDG_CONFIG_DIRS) when running as
// root. "" for a name with no Linux folder. DirEspNom lists the names known.
Tx DirEspCon(const Tx& nome);
const char* const* DirEspNom();  // ends with a null
// True when the folder is a desktop folder (the user's, or the one new accounts get).
bool DirEspMes(const std::string& nat);

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
