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
// that served the last file, the process's creation mask (-1 when unknown), whether
// the process may give files away, and the owner of the files it makes.
struct CopCtx {
  CopCtx();
  int modo = 0;  // 0 copy_file_range, 1 sendfile, 2 read and write
  int masc = -1;
  bool raiz = false;
  uid_t uid = 0;
};

// A destination folder held open while entries are copied into it, with the group
// and the kind of mode that a new file gets there. fd is -1 when the folder could
// not be opened (err then says why).
struct PstDes {
  int fd = -1, err = 0;
  gid_t gid = 0;       // the group of a new entry
  bool sgid = false;   // new entries take the folder's group
  bool acl = false;    // a default access list, or unknown: the mode is always set
  PstDes() = default;
  PstDes(const PstDes&) = delete;
  PstDes& operator=(const PstDes&) = delete;
  ~PstDes();
  // Opens the folder path (or takes fd, already open) and learns the rest.
  void Abre(const std::string& path);
  void Toma(int fd);
  // A folder just made inside this one: it inherits group and access list.
  void Herda(const PstDes& pai, int fd);
};

// Copies a regular file's bytes, mode and times from fi (already open, st its
// status) to the name nom in the folder p, through a temporary name in that folder;
// d is the destination's path, for error numbers. 0, -1 when av stopped it, or the
// file layer's error number; on failure nothing is left under the temporary name and
// the destination is as it was.
int CopFic(int fi, const struct stat& st, const PstDes& p, const std::string& nom, const std::string& d,
           const Avanco& av, CopCtx& c);
// The same for a symbolic link (name nomO in the folder fdo, path o): a new link
// with the same target.
int CopLnk(int fdo, const std::string& nomO, const std::string& o, const struct stat& st, const PstDes& p,
           const std::string& nom, const std::string& d, const CopCtx& c);
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
