// Fso: what the parts of Scripting.FileSystemObject share: paths on the disk, errors,
// and the constructors of its objects (File, Folder, Drive, TextStream, collections).
// Paths take "\" and "/" alike and a drive "C:" as the platform maps it; what the
// objects give back are Linux paths.
#pragma once
#include <string>

#include "Lib.h"

namespace vbs {

// The Linux form of a script's path; 68 for a drive letter with no folder.
std::string FsoNat(TxV p);
// The text of a Linux path.
Tx FsoTx(const std::string& p);
// The error number of an errno, for a file (53) or a folder (76) not found.
[[noreturn]] void FsoErr(int e, bool pasta);
// True when the entry's owner may not write it: the read-only attribute. The mode
// bits decide, not access(), so that the attribute reads the same for every user.
bool FsoSoLeitura(const std::string& p);
// A file's time as a date.
double FsoData(long seg);
// The absolute, tidied form of a Linux path ("." and ".." resolved, no trailing "/").
std::string FsoAbs(const std::string& p);

Ref<Obj> FsoFicheiro(const std::string& nat);  // File; 53 when it is not a file
Ref<Obj> FsoPasta(const std::string& nat);     // Folder; 76 when it is not a folder
Ref<Obj> FsoDrive(char16_t letra);             // Drive; 68 when the letter has no folder
Ref<Obj> FsoDrives();                          // the Drives collection
// A TextStream on a file: modo 1 read, 2 write, 8 append; unicode for UTF-16.
// criar makes a missing file; trunca empties it (CreateTextFile).
Ref<Obj> FsoTexto(const std::string& nat, int modo, bool unicode, bool criar);
// A TextStream writing to a standard stream (1 output, 2 error) or reading input (0).
Ref<Obj> FsoTextoStd(int fd);

// Copies a file or a folder tree; moves; deletes. Each raises the script's error.
void FsoCopiaFic(const std::string& de, const std::string& para, bool sobre);
void FsoCopiaDir(const std::string& de, const std::string& para, bool sobre);
void FsoApaga(const std::string& p, bool forca, bool pasta);
void FsoMove(const std::string& de, const std::string& para);

}  // namespace vbs
