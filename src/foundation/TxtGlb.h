// TxtGlb: the text and token functions every part of the system speaks through.
// Separator tokens, split modes, bracketed items "[KEY=value]", yes/no words,
// typed yes/no results, value conversions, the command-line word list and the
// small text helpers (case, trim, search) that the rest of the core shares.
//
// Positions are 1-based and 0 means not found. Searches and comparisons are
// binary unless a function says it uppercases. Flags are 1 for yes, 0 for no.
// A "token array" is a std::vector<Tx> with element 0 empty and tokens at 1..n.
// Out arguments may be the same object as an in argument: every function builds
// its results before it stores them.
#pragma once
#include <array>
#include <vector>
#include "Tx.h"
#include "Var.h"

namespace zw {

using TxArr = std::vector<Tx>;

// ---- Basic text helpers -------------------------------------------------------

// uppercase of a character (Latin-1, Latin Extended-A, Greek, Cyrillic); `todas`
// also maps "µ" and "ſ", as the script language does
char16_t ChrMai(char16_t c, bool todas = false);
char16_t ChrMin(char16_t c);  // lowercase of a character
Tx TxMai(TxV t, bool todas = false);  // uppercase text, so "ã" becomes "Ã"
Tx TxMin(TxV t);              // lowercase text
Tx TxTrim(TxV t);             // blanks (U+0020) off both ends; tabs stay
Tx TxTrimE(TxV t);            // blanks off the left end
Tx TxTrimD(TxV t);            // blanks off the right end
int TxPos(TxV t, TxV s, int ini = 1);  // 1-based position of s in t from ini; "" is found at ini
Tx TxEsq(TxV t, long n);               // the leftmost n characters
Tx TxDir(TxV t, long n);               // the rightmost n characters
Tx TxMeio(TxV t, long ini, long n = -1);  // n characters from position ini (all with n < 0)
Tx TxRep(long n, char16_t c);          // c repeated n times
bool TxIgual(TxV a, TxV b);            // equal after uppercasing both

// ---- Numbers as text ------------------------------------------------------------

// Leading-number conversion: reads a number from the left, skipping blanks, tabs and
// line feeds; "." is the decimal point; "&H" and "&O" prefixes read hex and octal
// (4 or fewer hex digits give a 16-bit value, as the script language has it).
// Gives 0 when there is no number. ok is 0 only when the number overflows.
double NuVal(TxV t);
double NuVal(TxV t, int& ok);
// True when the whole text (blanks around allowed) is one number; d gets its value.
bool NuEhNum(TxV t, double* d = nullptr);
// A double cut to a whole number and held inside the 32-bit range (NaN gives 0),
// for counts, widths and versions that come from texts an author wrote.
long NuLng(double d);
Tx NuCStr(double d);  // the script language's text of a number: "0.5", "1E+15"
Tx NuStr(double d);   // the same with a leading blank for non-negatives and no "0" before ".": " .5"

// ---- Tokens -------------------------------------------------------------------

void TxTokSeg(Tx& tx, TxV sep, Tx& tok, int& ach);
void TxTokMul(Tx& tx, TxV sep, Tx& tok);
void TxTokSeg1(Tx& tx, TxV sep, Tx& tok);
void TxTokNu(Tx& tx, TxV sep, Var& dst);
void TxDiv1(TxV tx, TxV sep, Tx& esq, Tx& dir);
void TxDiv2(TxV tx, TxV sep, Tx& esq, Tx& dir, int& ach);
void TxDivOrg(TxV tx, TxV sep, Tx& pri, Tx& seg);
void TxDivTip(TxV modo, Tx& tx, TxV sep, Tx& seg);
void TxTokMai(TxV tx, Tx& pri, Tx& seg, TxV sep);
void TxTokMai1(TxV tx, Tx& pri, TxV sep);
void TxTokLis(TxV tx, TxV sep, TxArr& tok, int& n);
void TxSepTro(Tx& tx, TxV sepAnt, TxV sepNov);
void TxPosUlt(TxV dir, TxV tx, TxV chr, int& pos);

// ---- Brackets and items -------------------------------------------------------

void TxBrkCon(TxV tx, Tx& ant, Tx& den, Tx& dep, int& len, TxV par);
void TxBrkCon2(TxV tx, TxV par, Tx& ant, Tx& den, Tx& dep);
void TxBrkPar(TxV tx, int& ini, int& fim, TxV par);
void OpcChvFmt(TxV chv, Tx& abre, int& len);
void OpcTxDiv(TxV tx, TxV chv, Tx& ant, Tx& val, Tx& dep, int& ach);
void OpcTxCon(TxV tx, TxV chv, Var& dst, int& ach);
void OpcTxConOpc(TxV tx, TxV chv, Var& dst, int& ach);
void OpcTxAdi(Tx& tx, TxV chv, TxV val);
void OpcTxSub(Tx& tx, TxV chv, TxV val);
void OpcTxAct(Tx& tx, TxV chv, const Var& val);
// Rows 1..n hold {key, value}; row 0 is left empty.
void OpcTxLis(TxV tx, std::vector<std::array<Tx, 2>>& lis, int& n);
void OpcTxUsa(TxV modo, TxV chv, Tx& tx, Var& val);

// ---- Yes/no and typed results ---------------------------------------------------

void TxSN(const Var& val, Var& dst, int neg = 0);
Var TxSNTip(const Var& val, TxV tip);
// Display form by a type word: "DT" the date serial as "dd/mm/yyyy", "DTH" with
// "hh:nn:ss", "DTHM" with "hh:nn", "DT:" + a pattern of DtFmt's words; "N..." NuTx
// with the format code; "SN" "Sim" or "Não"; any other word leaves the value.
void TxFmtTip(TxV tip, TxV fmt, Var& val);
// Date text of a date serial (days since 30 December 1899) by a pattern of the words
// d dd ddd dddd m mm mmm mmmm yy yyyy h hh n nn s ss; other characters stand as they are.
Tx DtFmt(double serial, TxV fmt);

// ---- Value conversions ----------------------------------------------------------

void TxVarCnv(const Var& v, Tx& t);
Tx TxVar(const Var& v);
Tx TxMaiTrm(TxV t);
Var TxVarMai(const Var& v);
void NuVar(const Var& v, Var& dst);
double NuDbl(const Var& v);
void VarAtr(const Var& src, Var& dst);
void VarAtr(const Var& src, Var& dst, TxV tip);
void VarCnv(TxV opc, const Var& src, Var& dst);
void VarVaz(Var& dst);
void VarVaz(Var& dst, TxV tip);
Tx VarTipCon(const Var& v, TxV tip);
void NuTxNum(TxV t, double& d, int& ok);
void NuTxVar(TxV t, Var& dst, int& ok);

// ---- Other text functions -------------------------------------------------------

void TxSubst(TxV modo, Tx& tx, TxV de, TxV para);
void TxChrTro(TxV tx, TxV de, TxV para, Tx& res);
void TxChrLimpa(int modo, TxV tx, TxV cjt, Tx& res);
void TxChrLisPos(TxV chrs, TxV tx, int& idx, Tx& chr);
Tx TxAlnExe(long w, TxV tx);
void TxAln(long w, Tx& tx);
void TxAlnRtrim(long w, Tx& tx);
void TxAlnPad(const Var& val, long w, TxV fill, Tx& res);
Tx TxRepPre(TxV tx, long w, TxV fill);
Tx TxAspRem(TxV tx);
Tx TxAspPut(TxV tx);
void TxBinChr(Tx& tx);
void TxBinChr(Tx& tx, Tx& res);
Tx TxChrBin(const std::vector<Var>& vals);
void TxJunSep(Tx& tx, TxV sep, const Var& pec);
void TxLinJun(Tx& tx, TxV lin);
// As TxJunSep with the separator followed by the line end (CR LF when fim is "").
void TxLinAdi(Tx& tx, TxV sep, const Var& pec, TxV fim = {});
void TxArrAdi(TxArr& arr, TxV tx);
void TxLisPfx(TxV lis, TxV tx, int& res);
void TxLisCnd(TxV lis, const Var& val, int& res);
void TxCndOp(const Var& val, TxV op, const Var& opd, int& res);
bool TxLike(TxV tx, TxV pat);  // wildcard match: ? * # [list] [!list] [a-z]

// Program-line tokens. The quote character suspends the delimiter search inside a
// quoted run; it is empty unless a caller passes one, and then no quoting takes place.
void BasLinExe(int modo, Tx& tx, TxV cjt, Tx& res, TxV aspa = {});
void BasLinDiv(Tx& tx, TxV cjt, Tx& tok, Tx& del, TxV aspa = {});
void BasLinTok(Tx& tx, TxV cjt, Tx& tok, Tx& del, TxV aspa = {});

// ---- Command-line words ----------------------------------------------------------

void LcArgPrp(TxV lin);
int LcArgNum();
const TxArr& LcArgLis();  // element 0 the whole line, 1..n the words
int LcArgPsq(TxV modo, TxV pal);
void LcArgCon(int idx, Var& dst, const Var& def = Var());
void LcArgVal(TxV modo, TxV sw, Var& dst, const Var& def = Var());

}  // namespace zw
