// GlbVar: value services above plain text. The keyed table behind every option
// memory, colours written as text, numbers formatted by a short format code,
// version numbers, sorting and the array helpers; and the two small interfaces by
// which the foundation reaches controls and objects without knowing their toolkit.
#pragma once
#include <memory>
#include <unordered_map>
#include <vector>
#include "TxtGlb.h"
#include "Var.h"

namespace zw {

// ---- Keyed table ------------------------------------------------------------------
//
// Its visible form is a string array: element 0 the index block, element 1 the entry
// count as text, element p + 1 the value at position p (1..32000). The index block
// holds one entry per key: the type character (1), the position in two characters
// (high and low byte as ANSI characters), character 0, the key, character 0. Keys are
// exact: callers put them in keyword form first. The first key stored keeps its
// position for good. Beside the array the table keeps a hash from key to position,
// kept in step by every function here, so a lookup does not walk the block.
constexpr int kIdxMax = 32000;

class IdxTab {
 public:
  const TxArr& Arr() const { return a_; }      // the visible form
  int Num() const { return int(h_.size()); }   // the entry count
  bool Ini() const { return !a_.empty(); }     // created through IdxIni
  const Tx& Val(int p) const { return a_[size_t(p) + 1]; }  // value at position 1..Num()

 private:
  friend void IdxIni(IdxTab&);
  friend void IdxRegExe(IdxTab&, TxV, TxV, int&);
  friend void IdxCon(const IdxTab&, TxV, Tx&, int&);
  TxArr a_;
  std::unordered_map<Tx, int> h_;
};

void IdxIni(IdxTab& t);
void IdxReg(IdxTab& t, TxV chv, TxV val, int& ok);       // ok 0 only when the table is full
void IdxRegExe(IdxTab& t, TxV chv, TxV val, int& pos);   // pos 0 when full (nothing changes)
void IdxCon(const IdxTab& t, TxV chv, Tx& val, int& pos);  // "" and 0 for an unknown key
void IdxChvLis(const IdxTab& t, TxArr& chv, int& n);      // keys 1..n in entry order
// The plain index-block functions, for blocks held outside a table.
void IdxChvPsq(TxV blk, TxV chv, int& tip, int& pos);
void IdxChvAdi(Tx& blk, TxV chv, int tip, int pos, int& ok);
bool IdxPosCod(int pos, Tx& cod);  // false for positions 0 and above 32000
int IdxPosDec(TxV cod);

// ---- Colours ----------------------------------------------------------------------
//
// A colour is red + 256 * green + 65536 * blue. Colour texts: "W" + number, "-" +
// number ("-" alone: no colour), "H" + hex digits, "r,g,b", 1..15 the 16-colour
// palette, any other number the colour itself.

void CorTxCnv(TxV tx, long& cor, Tx& tip);
void CorValCon(const Var& val, long& cor, int& ok);
Var CorVal(const Var& val);
void CorTxMem(long cor, Tx& tx);  // "RRR,GGG,BBB"
void CorRgbSep(long cor, int& r, int& g, int& b);
long CorQB(int n);                 // palette entry 0..15
void CorParSep(TxV tx, Tx& fun, Tx& frn);  // "back+fore"
// The named palette of the form support: "name" to a "back+fore" colour text. It does
// not exist until something adds to it; CorPalCon then answers false (no table) and
// leaves found at 0. With the table, found tells whether the name is in it.
void CorPalAdi(TxV nome, TxV cor);
void CorPalLpz();
bool CorPalCon(TxV nome, Tx& val, int& ach);

// A control as the foundation sees it: back and fore colour, and its values. Qt
// widgets implement it in the controls layer; the foundation only calls it.
enum class CtlProp { Omissao, Text, Caption, Value };
struct CtlCor {
  virtual ~CtlCor() = default;
  virtual bool PoeCorFun(long cor) = 0;  // BackColor; false when the control has none
  virtual bool PoeCorTx(long cor) = 0;   // ForeColor
  // Reads a property; false when the control has no such property.
  virtual bool Prop(CtlProp p, Var& v) const = 0;
};

void CtlCorFun(CtlCor& ctl, const Var& cor);
void CtlCorTx(CtlCor& ctl, const Var& cor);
// Both colours with a second one; without it, the palette name's "back+fore". Gives 0
// when the palette table does not exist (nothing is changed), 1 otherwise.
int CtlCorApl(CtlCor& ctl, const Var& cor, const Var& cor2 = Var::Falta());
void CtlValCon(const CtlCor& ctl, Var& val);

// ---- Numbers ----------------------------------------------------------------------

// Format code "i.d" to a mask: grouping on for i >= 0 (i counts the commas), width
// i + d (+1 for the point when d > 0).
void NuFmtDiv(TxV cod, int& i, int& d);
void NuFmtDec(TxV cod, int& i, int& d, bool& grp, int& larg);
Tx NuFmtMsc(TxV cod);  // "6.2" gives "##,##0.00", "-6.2" gives "#####0.00"
Tx NuFmtCri(TxV cod);
Tx NuTxFmt(TxV msc, const Var& val);  // formatted by a mask, right-aligned to its width
Tx NuTxExe(TxV fmt, const Var& val);  // a mask when its leading number is 0, else a code
// With a width: "T" trims the result, a number pads or cuts it as TxAln does.
Tx NuTx(TxV fmt, const Var& val, const Var& larg = Var::Falta());
void NuTxPad(const Var& val, long w, TxV fill, Tx& tx);

// Number separators: two-character texts (decimal, thousands) of the machine and of
// the fixed form. Unset (the default) number text is plain "." text and these
// functions give their text back unchanged.
void NuSepDef(TxV maq, TxV fix);
Tx NuSepTro(TxV tx, TxV de, TxV para);
Tx NuTxCan(TxV tx);  // machine form to plain "." form
Tx NuTxLoc(TxV tx);  // fixed form to machine form
double NuTxVal(TxV tx);

void NuIntDiv(long pos, long tam, long& blk, long& ini, long& fim, long& off);
void NuIntDiv1(long pos, long tam, long& blk, long& ini, long& fim, long& off);

// Versions "major.minor" and rules "+", "*.+", "+.0" with an optional ",i.d" width.
void NuVerInc(TxV regra, const Var& ver, Var& res);
void NuVerDiv(TxV ver, long& maj, long& min);
Tx NuVerFmt(long maj, long min, TxV fmt);
Tx NuVerJun(long maj, long min, TxV fmt);

// ---- Arrays and sorting -------------------------------------------------------------
//
// Value arrays are std::vector<Var> with lower bound 0.

double NuArrMax(const std::vector<Var>& a, int ini = 0);
double NuArrMin(const std::vector<Var>& a, int ini = 0);
void VarTro(Var& a, Var& b);
int VarCmp(const Var& a, const Var& b);  // by kind: numbers below texts; <0, 0, >0
int SortGap(int gap);
void SortTx(TxArr& a, int n);                                // elements 1..n, binary
void SortVar(TxV modo, std::vector<Var>& a, int n = -2);     // "CI": uppercased texts
void SortIdx(TxV modo, const std::vector<Var>& a, std::vector<int>& idx, int n = -2);
void ArrIdxIni(std::vector<int>& idx, int n);
// The count to sort: n >= 0 as it stands, -2 the upper bound, other negatives the
// number in element 0.
int ArrLimCon(const TxArr& a, int n);
int ArrLimVar(const std::vector<Var>& a, int n);
void ArrLim(const std::vector<Var>& a, int& lo, int& hi, int& ok);
int ArrAdi(std::vector<Var>& a, const Var& v);
void ArrCop(const std::vector<Var>& a, std::vector<Var>& b);
void ArrNorm(const std::vector<Var>& a, std::vector<Var>& b);
void ArrNorm(const Var& v, std::vector<Var>& b);  // a single value becomes a one-element array

// ---- Objects ----------------------------------------------------------------------

// Stores 1 in val and calls FxIni (FxFim) of the object by name with no arguments;
// a failure is ignored. ObFxFim then releases the object.
void ObFxIni(const std::shared_ptr<VarObj>& ob, Var& val);
void ObFxFim(std::shared_ptr<VarObj>& ob, Var& val);

}  // namespace zw
