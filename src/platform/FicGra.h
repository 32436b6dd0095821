// FicGra: writing a file so that a failure loses nothing.
// A file replaced whole ('O') is written beside the original, in a hidden temporary
// file of the same folder, and renamed over it only when every write, the flush to
// the disk and the close have worked; the new file keeps the original's mode, owner
// and group (where the process may set them). A name that is a symbolic link is
// written through to its target, and a file with other hard links is rewritten in
// place, from memory, with the old bytes put back if that fails, so every name keeps
// seeing one file. A file appended to ('A') is cut back to its old length when a
// write fails. Either way a failure leaves the original byte for byte as it was and
// no temporary file behind, and the error is the file layer's number (61 for a full
// disk or a file-size limit). Only regular files are written: a folder, a device, a
// pipe or a socket is refused with 75.
//
// While it is open the original is held (an exclusive flock), so another writer,
// here or in another process, gets 70; a file that did not exist is created empty
// at the open for that reason, and removed again if the write fails.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zw {

class FicGra {
 public:
  FicGra() = default;
  FicGra(const FicGra&) = delete;
  FicGra& operator=(const FicGra&) = delete;
  ~FicGra();  // gives up what was not closed

  // Opens the Linux path nat to be replaced ('O') or appended to ('A'). 0 or the
  // error number.
  int Abre(const std::string& nat, char modo);
  // Writes bytes. 0, or the error number; after one failure every later write
  // gives the same number and writes nothing.
  int Grava(std::string_view b);
  // Puts the new content in place and lets the file go. 0, or the first error,
  // with the original as it was before the open.
  int Fecha();
  // Drops what was written; the original stays as it was.
  void Desiste();

  bool Aberto() const { return hold_ >= 0; }
  int64_t TamIni() const { return tam0_; }  // the length the file had at the open
  int Fd() const { return hold_; }           // the original, for reading its head

 private:
  int Acaba(bool desiste);
  void Limpa();
  char modo_ = 0;
  int hold_ = -1;         // the original, held with flock
  int tmp_ = -1;          // the temporary file of a replacement
  bool novo_ = false;     // the original was created by the open
  bool memoria_ = false;  // replaced in place from buf_
  int erro_ = 0;
  int64_t tam0_ = 0;
  std::string alvo_, tmpNom_, buf_;
};

}  // namespace zw
