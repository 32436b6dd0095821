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

// What the copies of one run learn once and use for every file: the kernel call
// that served the last file and the process's creation mask (-1 when unknown).
struct CopCtx {
  CopCtx();
  int modo = 0;  // 0 copy_file_range, 1 sendfile, 2 read and write
  int masc = -1;
  // The mode of a copy of an entry of status st: the source's permission bits
  // less the group and world bits that the creation mask takes (022 when it is
  // unknown). The owner's bits are the source's, so the read-only attribute and a
  // program's run bit stay as they were; set-user and set-group bits are never
  // copied, the sticky bit of a folder is.
  mode_t Modo(const struct stat& st) const;
};

// A destination folder held open while entries are copied into it, with the kind
// of mode that a new file gets there. fd is -1 when the folder could not be opened
// (err then says why).
struct PstDes {
  int fd = -1, err = 0;
  bool acl = false;    // a default access list, or unknown: the mode is always set
  PstDes() = default;
  PstDes(const PstDes&) = delete;
  PstDes& operator=(const PstDes&) = delete;
  ~PstDes();
  // Opens the folder path (or takes fd, already open) and learns the rest.
  void Abre(const std::string& path);
  void Toma(int fd);
  // A folder just made inside this one: it inherits the access list.
  void Herda(const PstDes& pai, int fd);
};

// Copies a regular file's bytes and times from fi (already open, st its status) to
// the name nom in the folder p, through a temporary name in that folder, with the
// mode that c.Modo gives; the copy belongs to this process's user, never to the
// source's. d is the destination's path, for error numbers. 0, -1 when av stopped
// it, or the file layer's error number; on failure nothing is left under the
// temporary name and the destination is as it was.
int CopFic(int fi, const struct stat& st, const PstDes& p, const std::string& nom, const std::string& d,
           const Avanco& av, CopCtx& c);
// The same for a symbolic link (name nomO in the folder fdo, path o): a new link
// with the same target, owned by this process's user.
int CopLnk(int fdo, const std::string& nomO, const std::string& o, const struct stat& st, const PstDes& p,
           const std::string& nom, const std::string& d);
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
