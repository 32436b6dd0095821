// Ata: the install record. While a run is recorded (zunwiz --record FILE), each
// change that the script library and the scripting objects make on the machine is
// appended to the record as one JSON line as soon as it is made: folders and files
// created, files replaced, deleted or moved, launchers written, registry values and
// keys set or removed, printers added, programs run. Each line goes out in one
// write() on a file opened O_APPEND, so a run killed at any point leaves whole
// lines. zunwiz-undo (AtaDfz.h) takes a record back; docs/record.md gives the
// format.
//
// The changes are noted where the platform makes them (the safe writer, the tree
// operations, the file layer, the registry, printers, programs), so every caller
// above is covered by one hook each. The record in force is one pointer of the
// platform's (AtaDef) for that reason: the calls that change the machine come from
// every layer, most of them with no object that could carry it down. Without a
// record every note below is one test of that pointer.
//
// With a folder for kept copies (--keep-replaced), the content of a file is copied
// there before it is replaced or deleted, and the line names the copy.
#pragma once
#include <sys/types.h>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include "Tx.h"

namespace zw {

// One line of the record under construction: {"op":OP, then the members added.
class AtaLin {
 public:
  explicit AtaLin(const char* op);
  AtaLin& Txt(const char* k, std::string_view bytes);  // a path or other bytes
  AtaLin& Txt(const char* k, const Tx& t);
  AtaLin& Nu(const char* k, int64_t n);
  AtaLin& Nulo(const char* k);
  AtaLin& Sim(const char* k, bool b);
  AtaLin& Modo(mode_t m);  // "mode":"0644"
  std::string Fim() const { return s_ + "}\n"; }

 private:
  std::string s_;
};

// A JSON string of bytes, quotes included. Valid UTF-8 stands as it is; a byte
// that is not part of one is written \udcXX (XX the byte), as Python's
// "surrogateescape" reads it back, so that any Linux name survives the record.
std::string AtaJson(std::string_view b);

// One value of a record's line: a text (bytes, with "\udcXX" turned back into the
// byte XX), a whole number, true or false, or null.
struct AtaVal {
  enum Tip { Nulo, Txt, Nu, Sim } tip = Nulo;
  std::string s;
  long long n = 0;
  bool b = false;
};
using AtaObj = std::map<std::string, AtaVal>;

// Reads one line of JSON: an object whose members are texts, whole numbers,
// true, false or null. False for anything else (the line is no record line).
bool AtaObjLer(const std::string& lin, AtaObj& o);

// The path a line names: absolute, with the folder as the kernel resolves it and
// the last name as it stands (a link is named, not where it leads).
std::string AtaAbs(const std::string& nat);

class Ata {
 public:
  Ata() = default;
  Ata(const Ata&) = delete;
  Ata& operator=(const Ata&) = delete;
  ~Ata();

  // Opens the record nat and writes its begin line. A missing file is made new
  // (O_EXCL, no link followed, 0600); one that is there is appended to only when it
  // is a regular file of the running user's, so that a record may hold several runs,
  // each from its begin line. guarda, when not empty, is the folder for kept copies,
  // made 0700 when missing and accepted only as the user's own (DirPrv). 0, or the
  // file layer's error number with porque saying which file and why.
  int Abre(const std::string& nat, const std::string& guarda, const std::string& wizard, const char* tool,
           std::string& porque);
  // Appends one line. The first failure is kept (Erro), told to falha, and later
  // lines are dropped.
  void Gra(const AtaLin& l);
  // Told once, with the reason, when a line cannot be written: the program ends
  // the run there, since what it changes from then on could not be undone.
  std::function<void(const std::string&)> falha;
  // The end line with the run's exit status, once; the file is closed after it.
  void Fim(int st);
  int Erro() const { return err_; }
  bool Aberta() const { return fd_ >= 0; }
  // Copies the first tam bytes of the open file fd (tam < 0: all of it) into the
  // folder of kept copies, as "N-NAME" after the name of nat. Its path, or "" when
  // there is no such folder or the copy failed (fd not readable, disk full).
  std::string Guarda(int fd, int64_t tam, const std::string& nat);
  bool Guarda() const { return !guarda_.empty(); }
  // A file of the program's own, such as the verdict file its scripts write: what
  // happens to it is no change of the machine, and is not noted.
  void ProprioAdi(const std::string& nat) { proprios_.insert(AtaAbs(nat)); }
  bool Proprio(const std::string& abs) const { return proprios_.count(abs) > 0; }

 private:
  std::mutex mx_;
  int fd_ = -1;
  int err_ = 0;
  unsigned seq_ = 0;
  std::string guarda_;
  std::set<std::string> proprios_;
};

// The record in force, null when the run is not recorded.
void AtaDef(Ata* a);
Ata* AtaAct();
inline bool AtaLig() { return AtaAct() != nullptr; }


// --- what a file was before a change ---
struct AtaAnt {
  bool ha = false;       // the name was taken
  mode_t modo = 0;       // and its mode, owner and group
  uid_t uid = 0;
  gid_t gid = 0;
  bool reg = false;      // a regular file
  std::string lnk;       // a symbolic link's target
  std::string guardado;  // the kept copy of a regular file's content, "" none
};
// Looks at the name nome of the folder dirfd (AT_FDCWD for a path) before it is
// replaced or removed, and keeps a copy of a regular file's content when the
// record keeps copies. Nothing is done without a record.
AtaAnt AtaAntes(int dirfd, const std::string& nome);
// After a write put a file at nat: "file-created" when the name was free before,
// else "file-replaced" with the kept copy; tipo 'L' writes "launcher-written", 'R'
// marks a registry file ("registry":true), whose values have lines of their own. The
// size and hash are read from fd when it is open for reading, else from the file.
void AtaEscrito(const AtaAnt& a, const std::string& nat, int fd = -1, char tipo = 'F');
// The notes of one change each.
void AtaPstCri(const std::string& nat);                       // folder-created
void AtaEliNota(const AtaAnt& a, const std::string& nat);     // file-deleted / folder-deleted
void AtaMovNota(const std::string& de, const std::string& para);  // moved
void AtaPrt(const Tx& nome);                                  // printer-added
// A program started (its command line and process id); its status comes with
// AtaPgmFim when it is collected. Programs that run inside the process (a
// component's registration) are noted whole by AtaPgmFim with pid 0.
void AtaPgm(const Tx& cmd, int pid);
void AtaPgmFim(int pid, int st, const Tx& cmd = Tx());

// --- system calls that note what they did; answers and errno as the calls' ---
int AtaDirCri(const std::string& nat, mode_t modo);    // mkdir
int AtaFicEli(const std::string& nat);                 // unlink, with a kept copy first
int AtaDirEli(const std::string& nat);                 // rmdir
int AtaRen(const std::string& de, const std::string& para);  // rename
// unlinkat of the name nome of the folder dirfd (AT_REMOVEDIR with pasta), noted
// under the path nat. The tree delete (ArvEliNat, SupShf.h) removes through it.
int AtaEliEm(int dirfd, const std::string& nome, const std::string& nat, bool pasta);

}  // namespace zw
