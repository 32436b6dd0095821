// SupShf: copy, move and delete of files and folder trees with a progress window,
// in the manner of the shell's file operation. A caller fills the source and
// destination lists (or calls FxCop, FxMov, FxEli... which fill them), sets the
// properties, and the run does the work: results are 1 done, 0 not done.
//
// What a run does, on Linux:
// - A source whose name holds "*" or "?" stands for every entry of its folder that
//   matches (folders too unless IncludeDirectories is off), names taken as the
//   kernel's bytes, valid UTF-8 or not. Several sources, or a
//   wildcard, make the destination a folder, created when missing; one plain source
//   goes into the destination when that is a folder, and becomes it otherwise.
// - Copies are data-safe: each file is written under a temporary name in its
//   destination folder and renamed into place, so a failed or cancelled copy leaves
//   an earlier destination file whole and no half-written file behind; the
//   temporary names are random, so nobody can plant them. A source is only read.
//   Symbolic links are copied as links, whatever they lead to; times are kept. A
//   copy belongs to the user who runs the program (root's when it runs as root),
//   never to the source's owner, and its mode is the source's less the group and
//   world bits of the creation mask, without set-user and set-group bits (the
//   owner's bits, and with them the read-only attribute, are the source's). A
//   folder that is there already is merged into and keeps its owner and mode.
//   Pipes, sockets and devices are not copied: each is told to the progress
//   service ("SHF SKP"), the copy goes on, and the run answers 0 with 75. A folder
//   is never copied into itself or into one of its own subfolders: such a run
//   answers 0 and writes nothing.
// - A delete or move never takes away, and a wildcard delete never acts in, the top
//   of a drive, a folder of the system or a home folder (FicDirSis): 70, told to the
//   progress service ("SHF NEG"), before anything is done.
// - A clash with an existing file replaces it without asking when ConfirmOperation
//   is off (a read-only file too), asks otherwise (Sim, Não, Cancelar), or gives the copy a new name
//   ("Cópia de x", "Cópia (2) de x") with RenameOnCollision.
// - A delete with AllowUndo moves the entries to the desktop's trash (the
//   freedesktop.org trash) instead of removing them.
// A run stops at its first failure (entries left out are no failure: the run goes
// on and answers 0 at its end). The file layer's error number of that failure is
// kept (ErrNum) for callers that report one.
#pragma once
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>
#include "Tx.h"

namespace zw {

// The error that a run with an empty source list raises.
struct ShfErr : std::runtime_error {
  int32_t num;
  Tx des;
  ShfErr(int32_t n, const Tx& d) : std::runtime_error("SupShf"), num(n), des(d) {}
};
constexpr int32_t kShfErrSemOrg = int32_t(0x800403E8u);

class SupShf {
 public:
  SupShf();
  ~SupShf();
  const Tx cls = u"SupShf";
  Tx stamp;

  // --- properties ---
  bool AllowUndo = false;          // deletes go to the trash
  bool ConfirmMakeDir = true;      // ask before making a folder
  bool ConfirmOperation = true;    // ask before replacing
  Tx CustomText;                   // title of the progress window
  bool IncludeDirectories = true;  // wildcards also take folders
  int32_t ParentWnd = 0;           // owner window
  bool RenameOnCollision = false;  // give a new name on a clash
  bool SilentMode = false;         // no progress window

  void RegHwnd(int32_t hwnd) { ParentWnd = hwnd; }
  void AspIde(const Tx& tx) { CustomText = tx; }
  // show 1 shows progress; ask 1 asks before replacing and before making folders.
  void AspExe(int show, int ask);
  void UsaRcBin(int flag) { AllowUndo = flag == 1; }

  // --- lists ---
  void OrgIni() { org_.clear(); }
  void DesIni() { des_.clear(); }
  void OrgJun(const Tx& path) { org_.push_back(path); }
  void DesJun(const Tx& path) { des_.push_back(path); }

  // --- operations; res 1 done, 0 not done ---
  void FxCop(const Tx& orig, const Tx& dest, int& res);
  // Copies what it is given: a file (or a wildcard of files) to a file or folder,
  // making the destination's folders first; a folder's contents into the
  // destination, made with all its levels.
  void FxCopDfi(const Tx& orig, const Tx& dest, int& res);
  // A folder's contents (or a wildcard's matches) into the destination; flag 1
  // shows progress and asks nothing.
  void FxCopArv(const Tx& orig, const Tx& dest, int flag, int& res);
  void FxLpzDir(const Tx& dir, int& res);  // deletes all in the folder, not the folder
  void FxEli(const Tx& path, int& res);
  void FxMov(const Tx& orig, const Tx& dest, int& res);
  void FxRen(int& res) { res = 0; }  // renaming is not offered: always 0

  // The run with the lists as they stand: 1 or 0. Throws ShfErr for an empty source
  // list.
  int Exe(int op);
  // The file layer's error number of the last run's failure, 0 when none; -1 when
  // the user cancelled.
  int ErrNum() const { return err_; }
  // True when the last run was cancelled in the progress window.
  bool Abortado() const { return abortado_; }

 private:
  std::vector<Tx> org_, des_;
  int err_ = 0;
  bool abortado_ = false;
};

// Copies one file to another name with the data-safe copy of the run (owner and
// mode as a run's copies have them): 0, or the file layer's error number (-1 when
// both names are the same file, 75 for a source that is not a regular file). It
// leaves a destination that is read-only (75), that the running user may not
// write (70), or that another open file holds for writing (70) as it is. A
// symbolic link given as the source is followed; one at the destination is
// replaced, never written through; the destination's folder must exist.
int ShfFicCop(const Tx& orig, const Tx& dest);
// The same copy between Linux paths: 0, or -1 with errno (EEXIST when both names
// are the same file, ENOTSUP for a source that is not a regular file, EISDIR for a
// folder at the destination, EACCES for a destination that is read-only, not the
// user's to write or held, else the errno of the call that failed). The
// FileSystemObject's copies go through it.
int FicCopNat(const std::string& orig, const std::string& dest);

// Removes the entry nat (a Linux path) for good, and with arvore everything below
// a folder (without it a folder is EISDIR), never through a link: the folder that
// holds it is reached by DirPaiAbr's walk from the root (a link on the way that the
// safe writer's rule refuses is EACCES), and every entry below from its own folder
// held open, so a folder swapped for a link while the tree goes is removed as the
// link, never walked into. The top of a drive, a folder of the system or a home
// folder (FicDirSis of the entry itself) is refused with EACCES before anything is
// done, told to the progress service as "SHF NEG". passo, when given, is told each
// entry below the top before it goes; false stops the delete (ECANCELED). 0, or -1
// with errno at the first entry that cannot go, what went before it gone; each
// removal is noted in the install record. The run's deletes and the
// FileSystemObject's go through it.
int ArvEliNat(const std::string& nat, bool arvore = true,
              const std::function<bool(const std::string&)>& passo = {});

}  // namespace zw
