// SupFsys: walks a folder tree and acts on what it finds (sets attributes, calls
// back, selects files), searches files, and turns paths into network names.
//
// Attributes on Linux, kept in this one place (FsysAtrCon, FsysAtrPoe):
// - read-only (1) is the owner's write permission: set, the owner's write bit is
//   taken away; cleared, it is given back. It guards the file as the attribute
//   does, for root too: the file layer's copy onto it and its delete (FicCop,
//   FicEli, and so Wiz.FxFicCop and Wiz.FxFicEli) leave it as it is and answer 75.
//   The shell's file operation (SupShf, Wiz.FxDirCop) replaces or deletes it like
//   any other file when it asks nothing (ConfirmOperation off), and asks the
//   question of any clash when it asks;
// - hidden (2) is a name that starts with "." (not "." or ".."): it is read from the
//   name and never set, since setting it would rename the entry;
// - system (4) and archive (32) are not kept: setting them does nothing and they
//   never read as set;
// - folder (16) is the entry's kind.
// Network names: a path whose Linux form lies under /net/<server>/<share> (where
// the automounter puts other machines' shares) or under a mounted CIFS or NFS
// share becomes "\\server\share\...".
#pragma once
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>
#include "Tx.h"
#include "Var.h"

namespace zw {

// The attribute word of a path (-1 when it does not exist) and its setting; 0, or
// the file layer's error number.
int FsysAtrCon(const Tx& path);
int FsysAtrPoe(const Tx& path, int atr);
// The setting on a Linux path, for the FileSystemObject: 0, or -1 with errno.
int FsysAtrPoeNat(const std::string& nat, int atr);

class SupFsys {
 public:
  SupFsys();
  ~SupFsys();
  const Tx cls = u"SupFsys";
  Tx stamp;

  void FxIni();
  void FxFim();  // drops the callback object

  // The callback: an object whose methods cbkFsysFicPro and cbkFsysFicSel are called
  // with (name, count, kind, path). A text in place of the object clears it.
  void RegCbk(const Tx& nome, const Var& ob);

  // Sets the attribute words ("+N" normal, "+R", "+H", "+S", "+A") on every file
  // and folder below folder whose file name matches the pattern (folders always).
  void ProFsysAtrb(const Tx& dir, const Tx& atrs, const Tx& padrao);
  // Calls back for every entry below folder ("*" as the selection), or for the
  // matching files only (any other selection).
  void ProFsysCbk(const Tx& sel, const Tx& dir, const Tx& padrao);
  // A walk: command "ATR ...", "CBK" or "CBK:SEL"; kinds of letters "D" folders,
  // "F" files, "R" into subfolders. ProFsysRp walks parents first, ProFsysRa
  // children first; proFsys is ProFsysRp.
  void proFsys(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao);
  void ProFsysRp(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao);
  void ProFsysRa(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao);

  // Files below folder that match the pattern: options "[MP=kinds]" (default "FR")
  // and "[MAX=n]" (default 1000, 0 without limit). The list runs from 1.
  void PsqFic(const Tx& opc, const Tx& dir, const Tx& padrao, std::vector<Tx>& lis, int32_t& n);
  void cbkFsysFicSel(const Tx& nome, int32_t num, const Tx& tipo, const Tx& path);

  // Network names.
  void UncOk(const Tx& path, int& flag);                  // 1 for "\\..."
  void UncCnv(const Tx& path, Tx& cnv, int& flag);        // flag 1 when cnv is a network name
  void UncExi(const Tx& path, int& existe, int& flag);    // the share part exists as a folder
  // The shares of a server, rows 1..n of kind, name and remark.
  void UncShares(const Tx& srv, std::vector<std::array<Tx, 3>>& tab, int32_t& n);
  void pSepNull(const Tx& tx, Tx& res);

  // What the last walk found.
  float Seg() const { return seg_; }
  int32_t TotVis() const { return ficVis_ + dirVis_; }
  int32_t FicVis() const { return ficVis_; }
  int32_t FicFei() const { return ficFei_; }
  int32_t DirVis() const { return dirVis_; }
  int32_t DirFei() const { return dirFei_; }
  int32_t Sel() const { return sel_; }

 private:
  struct Pro;
  void Anda(Pro& p, const Tx& dir);
  void Ficheiros(Pro& p, const Tx& dir);
  void Age(Pro& p, const Tx& nome, const Tx& path, bool pasta);
  void Walk(const Tx& cmd, const Tx& tipos, const Tx& dir, const Tx& padrao, char16_t ordem);

  Tx cbkNome_;
  std::shared_ptr<VarObj> cbkOb_;
  bool cbkProprio_ = false;  // the search's own selection (PsqFic)
  float seg_ = 0;
  int32_t ficVis_ = 0, ficFei_ = 0, dirVis_ = 0, dirFei_ = 0, sel_ = 0;
  std::vector<Tx> psqLis_;
  int32_t psqMax_ = 0;
};

}  // namespace zw
