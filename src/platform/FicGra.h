// FicGra: writing a file so that a failure loses nothing.
// A file replaced whole ('O') is written beside the original, in a hidden temporary
// file of the same folder, and renamed over it only when every write, the flush to
// the disk and the close have worked; the new file keeps the original's mode, owner
// and group (where the process may set them). A name that is a symbolic link is
// written through to its target where the link may be trusted (below), and a file
// with other hard links is rewritten in place, from memory, with the old bytes put
// back if that fails, so every name keeps seeing one file. A file appended to ('A') is cut back to its old length when a
// write fails. Either way a failure leaves the original byte for byte as it was and
// no temporary file behind, and the error is the file layer's number (61 for a full
// disk or a file-size limit). Only regular files are written: a folder, a device, a
// pipe or a socket is refused with 75.
//
// While it is open the original is held (an exclusive flock), so another writer,
// here or in another process, gets 70; a file that did not exist is created empty
// at the open for that reason, and removed again if the write fails.
//
// Links another user could have planted are never written through. A symbolic
// link as the last part of a path is followed only when it belongs to the running
// user or to root and sits in a folder that only they can change (owned by the
// running user or root, and not writable by group or others unless sticky); any
// other link makes the open fail with 70. A file with other hard links is
// rewritten in place only from a folder that no one else may write (sticky or
// not): elsewhere a replacement takes the one name alone and an append is
// refused (70). Every file this module creates is
// new (O_EXCL, no link followed); temporary files get unpredictable names.
#pragma once
#include <sys/stat.h>
#include <sys/types.h>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include "Ata.h"

namespace zw {

// --- creating files and folders without following planted links ---

// Creates the new file nat (O_CREAT|O_EXCL|O_NOFOLLOW|O_CLOEXEC, plus flags such
// as O_RDWR) with modo less the process's umask. The descriptor, or -1 with errno
// (EEXIST when the name is taken, by a symbolic link too).
int FicCriNov(const std::string& nat, int flags, mode_t modo = 0666);
// FicCriNov for a file that stays where it is made (not a temporary file): the
// install record notes it as created.
int FicCriAta(const std::string& nat, int flags, mode_t modo = 0666);
// Creates a temporary file in the folder of nat, ".NAME.zw-" and 12 random letters
// and digits from the system's random source, mode 0600, trying new names while a
// name is taken. The descriptor (read and write), or -1 with errno; nome gets its path.
int FicTmpCri(const std::string& nat, std::string& nome);
// True when a folder can be changed only by the running user and root: owned by
// one of them, and not writable by group or others unless it is sticky.
bool DirCnf(const struct stat& d);
// True when the symbolic link nat (lstat l) may be followed: it belongs to the
// running user or root and its folder passes DirCnf.
bool FicLnkCnf(const std::string& nat, const struct stat& l);
// The file a path stands for: links of the last part followed while FicLnkCnf
// allows, a relative target taken from the link's folder. 0, 70 for a link that
// may not be followed, 75 for a loop of more than 40 links.
int FicAlvo(const std::string& nat, std::string& alvo);
// What a walk from the root (DirPaiAbr) asks of the folders it goes through.
struct DirPaiOpc {
  // Shown each folder held before a name is taken from it (ultimo: the folder of
  // the last name); false stops the walk with EACCES.
  std::function<bool(const struct stat& d, bool ultimo)> ver;
  // Not 0: a missing folder on the way is made with this mode less the umask, and
  // the install record notes it.
  mode_t criar = 0;
};
// The folder of the absolute path p, held open (O_PATH) by a walk from "/" one
// name at a time, so that no folder on the way can be swapped while it is walked:
// a symbolic link on the way is followed only under FicLnkCnf's rule (its owner
// the running user or root, its folder passing DirCnf), at most 40 of them, and
// ".." goes back to the folder held before. nome gets the last name, which is not
// looked at. The descriptor, or -1 with errno: ELOOP for a link refused, EACCES
// for a folder that ver refused, ENOTDIR, ENOENT, EINVAL for a path that is not
// absolute or ends in "..".
int DirPaiAbr(const std::string& p, std::string& nome, const DirPaiOpc& o = {});
// Makes every missing folder of nat with modo less the umask. 0 when nat is a
// folder afterwards, else the file layer's error number.
int DirCriMod(const std::string& nat, mode_t modo);
// A folder of the running user's alone: made with modo (0700) when missing, then
// accepted only when it is a folder itself (no link), owned by the running user
// and not writable by group or others. 0, 70 when refused, or the error number.
int DirPrv(const std::string& nat, mode_t modo = 0700);

class FicGra {
 public:
  FicGra() = default;
  FicGra(const FicGra&) = delete;
  FicGra& operator=(const FicGra&) = delete;
  ~FicGra();  // gives up what was not closed

  // Opens the Linux path nat to be replaced ('O') or appended to ('A'). A file
  // that is missing is made with novo less the umask. 0 or the error number.
  int Abre(const std::string& nat, char modo, mode_t novo = 0666);
  // Writes bytes. 0, or the error number; after one failure every later write
  // gives the same number and writes nothing.
  int Grava(std::string_view b);
  // Puts the new content in place and lets the file go. 0, or the first error,
  // with the original as it was before the open.
  int Fecha();
  // Drops what was written; the original stays as it was.
  void Desiste();

  bool Aberto() const { return hold_ >= 0; }
  // What the install record notes of a write that succeeds: 'F' a file created or
  // replaced, 'L' a launcher, 0 nothing (the registry notes its values instead).
  char ata = 'F';
  int64_t TamIni() const { return tam0_; }  // the length the file had at the open
  int Fd() const { return hold_; }           // the original, for reading its head

 private:
  int AbreInt(const std::string& nat, char modo, mode_t novo);
  int Acaba(bool desiste);
  void Guarda();
  void Limpa();
  char modo_ = 0;
  int hold_ = -1;         // the original, held with flock
  int tmp_ = -1;          // the temporary file of a replacement
  bool novo_ = false;     // the original was created by the open
  bool memoria_ = false;  // replaced in place from buf_
  int erro_ = 0;
  int64_t tam0_ = 0;
  std::string alvo_, tmpNom_, buf_;
  AtaAnt ant_;  // the original, for the install record
};

}  // namespace zw
