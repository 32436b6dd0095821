// WizDef: a wizard's definition, and the one reader that builds it from an option
// file. The reader walks the groups in file order and keeps what each gives (the
// window's keys, variables, points and zones, pages with their transitions,
// components, the program), each with the file line it came from. It needs no
// window and no script engine: what the reading asks of the script engine (a
// program to load, a button's place from its point, the calculation after every
// group) it hands to its caller through WizLerFx, at the moment a run needs it.
// The engine and zunwiz-check both read this way, so they read the same wizard.
#pragma once
#include <cstdint>
#include <vector>
#include "Var.h"
#include "WizTab.h"

namespace zw {

class TdaOpc;

// The longest text a label, a check box or a rich-text box is given, in characters:
// laying text out takes about a second a megabyte, so a longer one is cut when read.
constexpr size_t kCmpTxMax = 65536;

// One line of a "VAR", "PON" or "ZON" group.
struct tZpo {
  Tx Ide;   // the word in brackets, as typed
  Tx Des;   // the label in front of the brackets
  Tx Tip;   // "V", "P" or "Z"
  Tx Val;   // the value behind "=": one or more expressions separated by ","
  Tx Tx5;   // always ""
  int32_t Lin = 0;  // the option file line
};

// One "TRA" group: what one of the four buttons does on a page.
struct tTra {
  Tx Ide;     // "ANT", "SEG", "CNF" or "CAN"
  Tx Des;     // caption of the button
  Tx Pos;     // "x, y" in pixels
  Tx Sit;     // situation list
  Tx TraTip;  // "PAG", "FX", "FIM" or anything else
  Tx TraPag;  // identifier of the target page
  Tx TraFx;   // script function
  int32_t PosX = 0, PosY = 0;  // twips
  int32_t Lin = 0;             // the line of the group's head
  int32_t LinIde = 0, LinSit = 0, LinTip = 0, LinPag = 0, LinFx = 0;  // each key's line; 0 when absent
};

// The slot of a button's word as it stands ("ANT" 1, "SEG" 2, "CNF" 3, "CAN" 4);
// 0 for any other word.
int TraSlot(TxV pal);
// The word of a slot 1 to 4 ("ANT"...), and the exact name of its button on the
// window ("cmAnt"...); empty outside 1 to 4.
TxV TraPal(int slot);
TxV TraBtnNom(int slot);
// The slot of a button by its exact name, 0 for any other name.
int TraBtnSlot(TxV nome);
// The column of a transition's kind, trimmed and in capitals: "PAG" 0, "FX" 1,
// "FIM" 2, any other word or none 3 (the button does what it does by default).
int TraCol(TxV tip);

// One "PAG" group.
struct tPag {
  Tx Ide, Des, Img;
  tTra Tra[5];  // 1 "ANT", 2 "SEG", 3 "CNF", 4 "CAN"; 0 unused
  Tx FxPagEnt, FxPagSai;
  int16_t CmpIni = 0, CmpFim = 0, CmpNum = 0;
  int32_t Lin = 0;  // the option file line of the group's head
  int32_t LinIde = 0, LinImg = 0, LinEnt = 0, LinSai = 0;  // each key's line; 0 when absent
};

// One "CMP" group, with the fields derived from its texts when the controls are made.
struct tCmp {
  Tx Ide, Tx2, Tip, Pos, Dim, Fun, Cor, Fon, Aln, Txt, Adi, Sit;
  int32_t PosX = 0, PosY = 0;
  int32_t DimX = -1, DimY = -1;
  int32_t CorFg = -1, CorBg = -1;
  Tx FonNom;
  int16_t FonTam = -1;
  Tx FonEst;
  int16_t AlnVal = 0;
  Tx TxtAct;
  int32_t Lin = 0;  // the option file line of the group's head
  int32_t LinTip = 0, LinPos = 0, LinDim = 0, LinTxt = 0, LinSit = 0;  // each key's line; 0 when absent
};

// Where the option file is, as the start-up found it: what the folder words
// "[DIRPGM]", "[LTRCD]" and "[DRVCD]" give, and the command line whose "KEY=value"
// words override the file's options.
struct tWizDir {
  Tx Fpa;     // full path of the option file
  Tx LtrCd;   // drive letter, or share root, of its folder
  Tx DrvCd;   // LtrCd followed by ":", or the share root as it stands
  Tx DirPgm;  // its folder
  Tx LinCmd;  // the command line, words joined by blanks
};

// Where a path puts the option file: its folder ends at the last "\" or "/", so
// that "[DIRPGM]\leiame.rtf" finds the file beside the options.
tWizDir WizDirDe(const Tx& fpa, const Tx& linCmd);
// The drive letter of a folder ("x") and its drive ("x:"); for a folder on a
// share, both are the share's root ("\\server\share").
void WizLtrCon(const Tx& dir, Tx& ltr, Tx& drv);

// One group as the reader met it.
struct tWizGrp {
  Tx Ide, Tip, Des;  // name in capitals, kind, label
  int16_t Num = 0;   // its lines
  int32_t Lin = 0;   // the line of its head
};

// The program of a "VBS" group: its lines and the file line of each (from 1).
struct tWizPgm {
  std::vector<Tx> Lin;
  std::vector<int32_t> Num;
};

// What the option file defines. The tables count from 1 (element 0 is unused, and
// takes the "TRA" and "CMP" groups that come before any "PAG"), and each keeps a
// hash of its identifiers (WizTab.h).
struct tWizDef {
  tWizDir Dir;  // the folder words in force: the start-up's, or the debug ones of "DEF"
  Tx DbgModo, TitWiz, ImgFun, ImgIco, MsgCan;
  Var DimX, DimY;  // twips as a number, or the text "AUTO"
  int32_t LinImgFun = 0, LinImgIco = 0;  // the keys' lines; 0 when absent
  int32_t LinDimX = 0, LinDimY = 0;      // the keys' lines; the "DEF" head's when absent
  int16_t ZpoNum = 0, PagNum = 0, CmpNum = 0;
  std::vector<tZpo> Zpo{1};
  std::vector<tPag> Pag{1};
  std::vector<tCmp> Cmp{1};
  WizIdx ZpoIdx, PagIdx, CmpIdx;
  std::vector<Tx> Cab;        // the file's five header lines, 1 to 5, trimmed, as the reader took them
  tWizPgm Pgm;                // the program of the last "VBS" group
  std::vector<tWizGrp> Grp;   // every group, in file order

  // The value of a bracket word of a path; an unknown word is nothing.
  Tx DirCon(const Tx& pal) const;
  // A text whose first "[word]" is replaced by the folder or value it names.
  Tx DirExp(const Tx& tx) const;
};

// What the reading asks of the script engine, called while the reader is on the
// group concerned, in the order a run needs it.
class WizLerFx {
 public:
  virtual ~WizLerFx() = default;
  // The reading is now on the group whose head is on line lin.
  virtual void Lin(int32_t) {}
  // A "TRA" group, before it takes its slot: its place in twips (from the point
  // of its button when "POS" is empty).
  virtual void TraPos(tTra&) {}
  // A "VBS" group: its program is now the wizard's.
  virtual void Pgm(const tWizPgm& p) = 0;
  // A group was read into the definition (the reader is still on it).
  virtual void Grp(const tWizGrp&) {}
  // After every group, once the next group's head is read: the calculation.
  virtual void Calc() = 0;
};

// Reads the option file fpa into def, appending to what it holds already; fx's
// calls may look at the option reader through Tda() while they run.
class WizLer {
 public:
  WizLer(tWizDef& def, WizLerFx& fx) : def_(def), fx_(fx) {}
  void Ler(const Tx& fpa);
  // The option reader in use, or null outside Ler: the group in hand's rows.
  TdaOpc* Tda() const { return tda_; }

 private:
  void Def();
  void Zpo(const Tx& tip, int16_t n);
  void Pag();
  void Tra();
  void Cmp();
  Tx Chv(const Tx& chv, int32_t* lin = nullptr) const;  // a key of the group in hand, "" when absent
  Tx Twp(char eixo, const Tx& chv, Var& val) const;     // a length in pixels as twips; "AUTO" stays

  tWizDef& def_;
  WizLerFx& fx_;
  TdaOpc* tda_ = nullptr;
};

// A text for a control, cut at kCmpTxMax characters (never between the two halves
// of a surrogate pair); a cut is told with the component's name and line.
Var CmpTxLim(const Var& v, const tCmp& c);

// The statements that the calculation makes of a record: a zone gives Ide_X1,
// Ide_Y1, Ide_X2, Ide_Y2, a point Ide_X, Ide_Y, a variable Ide itself; nom gets the
// names, stm "name=expression".
void ZpoCmd(const tZpo& z, std::vector<Tx>& nom, std::vector<Tx>& stm);

}  // namespace zw
