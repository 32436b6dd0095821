// Locale: the regional settings that the engine's conversions and formats follow.
// VBScript reads numbers, dates and currency through the settings of the locale in
// force (GetLocale/SetLocale). Here they live in a small fixed table (en-US and pt-PT,
// with a few neighbours) so that results never depend on the machine's configuration.
// The locale in force is per thread, as the script engine keeps it.
#pragma once
#include <cstdint>
#include "Tx.h"

namespace vbs {

using zw::Tx;
using zw::TxV;

// Order of day, month and year in short dates, and of reading ambiguous dates.
enum class DtOrd : uint8_t { MDY, DMY, YMD };

struct Locale {
  int id;                 // locale identifier (1033 en-US, 2070 pt-PT)
  const char16_t* nome;   // short name, lower case: u"en-us"
  char16_t dec;           // decimal separator
  char16_t grp;           // digit-group separator (groups of three)
  char16_t lista;         // list separator
  int digitos;            // decimals FormatNumber uses by default
  bool zeroEsq;           // FormatNumber writes "0.5" rather than ".5"
  int negNum;             // negative numbers: 0 "(1.1)", 1 "-1.1", 2 "- 1.1", 3 "1.1-", 4 "1.1 -"
  const char16_t* moeda;  // currency symbol
  int moedaDig;           // decimals of FormatCurrency by default
  int moedaPos;           // positive currency: 0 "$1.1", 1 "1.1$", 2 "$ 1.1", 3 "1.1 $"
  int moedaNeg;           // negative currency: the 16 patterns of Windows' LOCALE_INEGCURR
  DtOrd ord;              // order of short dates
  char16_t dtSep;         // date separator
  char16_t hrSep;         // time separator
  const char16_t* dtCurta;  // short date picture, "M/d/yyyy"
  const char16_t* dtLonga;  // long date picture, "dddd, MMMM d, yyyy"
  const char16_t* hrLonga;  // time picture, "h:mm:ss tt"
  const char16_t* hrCurta;  // short time picture, always 24 hours: "HH:mm"
  const char16_t* am;       // "AM"
  const char16_t* pm;       // "PM"
  const char16_t* mes[12];     // month names, January first
  const char16_t* mesAbr[12];  // abbreviated month names
  const char16_t* dia[7];      // day names, Sunday first
  const char16_t* diaAbr[7];   // abbreviated day names
  int priDia;             // first day of the week, 1 = Sunday .. 7 = Saturday
};

// The locale in force on this thread (never null); en-US until SetLocale changes it.
const Locale& LocAct();
// The locale of an identifier or of a name such as "pt-pt" (case-blind); null when unknown.
const Locale* LocPorId(int id);
const Locale* LocPorNome(TxV nome);
// Puts a locale in force; false (nothing changes) when the identifier is unknown.
// 0 means the system default (LocSistema).
bool LocDef(int id);
// The locale the environment asks for (LC_ALL, LC_NUMERIC, LANG: "pt_PT..." is 2070),
// en-US when it names none of the table's.
int LocSistema();
// en-US, which date literals and some conversions use whatever the locale in force.
const Locale& LocEua();

// ---- Numbers as text ----

// The text CStr gives a Double: up to 15 significant digits, the locale's decimal
// separator, exponent form ("1E+15", "1E-05") outside the range where VBScript writes
// plain digits. `sig` is 7 for a Single.
Tx NumTx(double d, int sig = 15, const Locale& loc = LocAct());
// The text CStr gives a Currency held as an integer of ten-thousandths.
Tx CurTx(int64_t c, const Locale& loc = LocAct());
// Reads a number as CDbl and the arithmetic on texts do: blanks around, sign, digits with
// the locale's group separators, decimal separator, exponent, "&H"/"&O" forms, a currency
// symbol and parentheses for negatives. False when the text is not a number.
bool TxNum(TxV t, double& d, const Locale& loc = LocAct());

// Letter case as the script language has it: the foundation's tables (ChrMai,
// TxMai in zw), with µ and ſ also mapped; "Vb" marks the language's forms.
char16_t ChMai(char16_t c);
char16_t ChMin(char16_t c);
Tx TxMaiVb(TxV t);
Tx TxMinVb(TxV t);
// Case-blind comparison as vbTextCompare does it: <0, 0, >0.
int TxCmpTx(TxV a, TxV b);

}  // namespace vbs
