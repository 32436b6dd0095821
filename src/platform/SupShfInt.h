// Routines shared by the files of SupShf; not part of its public header.
#pragma once
#include <sys/stat.h>
#include <functional>
#include <string>
#include "Tx.h"

namespace zw::shf {

// Told of every further part of a file copied: bytes done in this file. False
// stops the copy (a cancel).
using Avanco = std::function<bool(int64_t)>;

// Copies a regular file's bytes, mode and times from o (already open, st its
// status) to the final name d through a temporary name in d's folder. 0, -1 when
// av stopped it, or the file layer's error number; on failure nothing is left under
// the temporary name and d is as it was.
int CopFicFd(int fi, const struct stat& st, const std::string& d, const Avanco& av);
// The same for a symbolic link: a new link with the same target.
int CopLnk(const std::string& o, const struct stat& st, const std::string& d);
// Moves an entry to the desktop's trash (freedesktop.org trash): 0 or an error number.
int Lixo(const std::string& path);
// The folder and the name of a Linux path ("." for a bare name).
std::string Pasta(const std::string& p);
std::string Nome(const std::string& p);
// Folder and name part of a path text, at its last "\" or "/".
void Divide(const Tx& p, Tx& dir, Tx& nom);
// True when a name holds "*" or "?".
bool Curinga(const Tx& nom);
// The absolute path with every link and "." or ".." resolved, also for a path of
// which only a first part exists.
std::string Canon(const std::string& p);

}  // namespace zw::shf
