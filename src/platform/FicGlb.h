// FicGlb: file names and paths.
// Takes paths apart, puts them together, and tests, creates, copies, renames and
// removes what they name. The text functions work on the text as given, with the
// path separator setting ("\" by default); the functions that touch the disk accept
// "\" and "/" alike as separators and map a drive letter to a Linux folder (see
// FicNat). Results are the file layer's error numbers: 52 bad file name or number,
// 53 file not found, 55 file already open, 57 device I/O error, 58 file already
// exists, 61 disk full, 62 input past end of file, 67 too many files, 68 device
// unavailable, 70 permission denied, 74 rename across drives, 75 path/file access
// error, 76 path not found. None of these functions throws.
#pragma once
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include "Tx.h"

namespace zw {

// Error numbers of the file layer.
enum : int {
  kErrNumFic = 52, kErrFicNao = 53, kErrModo = 54, kErrFicAbe = 55, kErrIO = 57, kErrFicExi = 58,
  kErrDisco = 61, kErrFimFic = 62, kErrFicMui = 67, kErrDrv = 68, kErrPerm = 70, kErrDrvRen = 74,
  kErrAces = 75, kErrDirNao = 76,
};
// Failure policies of FicAbr, placed in its error argument before the call.
enum : int { kFicPolNada = 0, kFicPolFim = 1, kFicPolCaixa = 2, kFicPolCaixaFim = 3 };
// Highest file number.
constexpr int kFicNumMax = 511;
// The largest file read for input: no option file comes near it, and a larger one
// is not read into memory but refused with 57.
constexpr long long kFicLerMax = 64LL << 20;

// --- path texts ---
void FicSepDef(const Tx& sep);  // sets the separator; "" sets "\"
const Tx& FicSep();             // the separator in force
void FicDirNom(const Tx& path, Tx& dir, Tx& nom);
void FicDrvDir(const Tx& path, Tx& drv, Tx& rest);
// Drive letter, or "\\server\share", and the rest. A "\\server\share" with nothing
// after the share has no end for its root: the result is 5 (invalid argument), the
// root "" and the rest the path; otherwise 0.
int FicDrvUnc(const Tx& path, Tx& raiz, Tx& rest);
void FicExtPos(const Tx& nom, int& pos);
void FicNomExtSep(const Tx& tx, Tx& nom, Tx& ext, int branco);
void FicNomExt(const Tx& tx, Tx& nom, Tx& ext);
void FicNomExtJun(const Tx& nom, const Tx& ext, Tx& res);
void FicExtTro(const Tx& tx, const Tx& extNova, Tx& res, int branco);
void FicJun(const Tx& dir, const Tx& nom, Tx& res);
Tx FicJun(const Tx& dir, const Tx& nom);
Tx FicJunLst(std::initializer_list<Tx> pecas);
// Parts 0..5: whole path, drive, folder without drive, file name, name without
// extension, extension. The array is resized to 6.
void FicPar(const Tx& path, std::vector<Tx>& par);
// Folder pieces at "\" into a token array (element 0 empty), "\\server" kept whole.
void FicDirLis(const Tx& path, std::vector<Tx>& pecas, int& n);

// --- the disk ---
// The Linux path of a path text: "\" becomes "/", and a leading drive "X:" is
// replaced by the folder that letter maps to ("C" maps to "/"). A letter without a
// mapping gives "" and error 68.
std::string FicNat(const Tx& path, int* err = nullptr);
// The path text of a Linux path, the other way round: an absolute path under the
// folder of a drive letter (the longest that fits; "C" is "/") becomes "X:\...",
// one under /net/server/share becomes "\\server\share\...", and a relative path
// only gets "\" for "/". So a wizard found on Linux has a drive, as on Windows.
Tx FicDeNat(const std::string& nat);
// Maps a drive letter to a Linux folder; an empty folder removes the mapping.
void FicDrvMap(char16_t letra, const Tx& dir);
// The drive letters that have a folder, in letter order, with their folders.
std::vector<std::pair<char16_t, Tx>> FicDrvTab();

void FicTipCon(const Tx& path, int& atr, Tx& tip);  // "F", "D" or "?" (attributes -1)
void FicTip(const Tx& path, Tx& tip, int& atr);
void FicExi(const Tx& path, int& res);  // 1, 0 when not found, or -error
int FicExi(const Tx& path);
// Deletes a file; "*" and "?" in the name delete every file that matches, but never
// in a folder that FicDirSis names: that is 70, told to the progress service as
// "SHF NEG". A read-only file is 75, a held one 70, no match 53.
void FicEli(const Tx& path, int& res);
// Copies a file as ShfFicCop does (a new file of this process's user, under a
// temporary name renamed into place; read-only 75, held 70); -1 when both names
// are the same in capitals or name one file.
void FicCop(const Tx& orig, const Tx& dest, int& res);
// Renames; never over an existing name (58). A folder that FicDirSis names is not
// renamed: 70, told as "SHF NEG".
void FicRen(const Tx& velho, const Tx& novo, int& res);
void DirCri(const Tx& path, int& res);
void DirCriTot(const Tx& path, int& res);
void DirCriFic(const Tx& path, int& res);
void DirExi(const Tx& path, int& flag);
int DirExi(const Tx& path);
void DirLisAtr(const Tx& tipos, int atr, const Tx& dir, const Tx& padrao, std::vector<Tx>& noms,
               std::vector<int>* atrs, int& n, int& err);
void DirLis(const Tx& tipos, const Tx& dir, const Tx& padrao, std::vector<Tx>& noms, int& n, int& err);
// True when a name matches a pattern by the file layer's rules: "*" any run, "?"
// one character, capitals and small letters alike, "*.*" also without a dot.
bool FicPadCasa(const Tx& padrao, const Tx& nom);
// Why a delete of many entries at once (a wildcard, a folder tree) must leave the
// folder nat (a Linux path, taken as the kernel resolves it) alone: "root" for the
// top of the tree or of a drive letter's folder, "system folder" for a folder of
// the operating system, "home folder" for a user's home; "" for any other folder.
// With segue false the last name of nat is taken as it is (a link named /lib counts,
// a link elsewhere that leads to /usr does not): the test for an entry to remove.
Tx FicDirSis(const std::string& nat, bool segue = true);
// FicDirSis's refusal told: true when a delete, move or rename may not act on nat,
// with an "SHF NEG" line to the progress service naming it (nat resolved as the
// kernel does when segue, pad joined to it when given: a wildcard's name).
bool FicDirNeg(const std::string& nat, bool segue, const Tx& pad = Tx());
void FicCriVaz(const Tx& path, int& res);
void FicVerShl(const Tx& path, int estilo);
void FicVerNot(const Tx& path, int estilo);

// --- open files on file numbers ---
int FicNumLiv();  // the lowest free file number, 0 when all are taken
// Opens: mode "O" output (the file is replaced whole at the close), "A" append,
// anything else input. Only regular files open (anything else is 75), and input
// reads at most kFicLerMax bytes. Output and append are safe (see FicGra.h): when
// a write or the close fails, the file is as it was before the open. On error the
// error number goes to err, and the policy err held on entry is applied.
void FicAbr(int num, const Tx& path, const Tx& modo, const Tx& reserva, const Tx& contexto, int& err);
void FicAbrNum(int num, const Tx& path, const Tx& modo, int& res);  // 1 or -error
// Opens in binary mode: read and write, created when missing, never truncated.
void FicAbrBin(int num, const Tx& path, int& res);  // 1 or -error
void FicLinLer(int num, Tx& lin, int& err);  // next line; err untouched on success
// The bytes of the line FicLinLer gave last, as they stand in the file (without
// its end and the byte-order mark); "" for a number not open for input.
const std::string& FicLinByt(int num);
bool FicEof(int num);                        // true at the end, or when not open for input
// Writes text, or a line ended by CR LF, in the file's encoding. 0 or error number.
int FicTxGra(int num, const Tx& tx);
int FicLinGra(int num, const Tx& lin);
// Writes bytes as they are (after the byte-order mark, when the file gets one).
int FicBytGra(int num, std::string_view b);
Cod FicCod(int num);             // encoding found at open (input) or in force (output)
void FicCodDef(int num, Cod c);  // encoding of what is written (Windows-1252 by default)
int FicFec(int num);  // closes and puts output in place; 0, the write's error, or 52 when not open
void FicFecTot();                // closes every open file
Tx FicNom(int num);              // the path a number was opened with, "" when free

// The error number of a failed system call on a Linux path (53 or 76 for a missing
// entry, by whether its folder exists).
int FicErrNat(int errnum, const std::string& nat);

}  // namespace zw
