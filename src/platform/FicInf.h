// FicInf: what the file system says of a file, a folder or a volume.
// The one place of the system that asks Linux about an entry (stat, lstat) or a
// volume (statvfs, statfs); the file layer and the script engine's FileSystemObject
// read these records instead. Paths are Linux paths (see FicNat).
#pragma once
#include <cstdint>
#include <string>

namespace zw {

// Kinds of entry.
enum : int { kFicNada = 0, kFicReg = 1, kFicDir = 2, kFicOut = 3 };

// One entry. A symbolic link is described by its target, and lig says that the name
// itself is a link; a link whose target is missing is kFicNada with lig set.
struct FicInf {
  int tipo = kFicNada;   // kFicNada (missing or unreachable), kFicReg, kFicDir, or
                         // kFicOut (a device, a pipe, a socket)
  int err = 0;           // errno of the failed look when tipo is kFicNada
  bool lig = false;      // the name is a symbolic link
  uint32_t modo = 0;     // permission bits (07777)
  uint32_t dono = 0, grupo = 0;
  uint64_t ligs = 0;     // hard links to the entry
  uint64_t dev = 0, ino = 0;  // identity: equal pairs are one entry
  int64_t tam = 0;       // size in bytes
  int64_t tCri = 0, tAce = 0, tMod = 0;  // status change, access and change times (seconds)
};

// Looks at nat, following a symbolic link; false when nothing is there.
bool FicInfLer(const std::string& nat, FicInf& inf);
// The kind of what nat names (kFicNada when nothing).
int FicInfTip(const std::string& nat);
// True when something, even a dangling link, has the name nat.
bool FicInfHa(const std::string& nat);

// One volume: the one that holds a path.
struct VolInf {
  double total = 0, livre = 0, disp = 0;  // bytes: size, free, free to this user
  uint32_t serie = 0;                     // the file-system id, as a serial number
  uint32_t tipoFs = 0;                    // the file-system magic number (statfs)
};
// Looks at the volume of nat; false when it can't be reached.
bool VolInfLer(const std::string& nat, VolInf& v);

}  // namespace zw
