// Error texts, the end-everything hook, the event hook, the class life hooks and
// the time stamps that name class instances.
#include "DbgFx.h"
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace zw {

namespace {
struct ErrTx {
  int num;
  const char* tx;
};
// The run-time errors of the script language and of the file layer.
const ErrTx kErr[] = {
    {3, "Return without GoSub"},
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {14, "Out of string space"},
    {17, "Can't perform requested operation"},
    {28, "Out of stack space"},
    {35, "Sub or Function not defined"},
    {48, "Error in loading DLL"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {54, "Bad file mode"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {74, "Can't rename with different drive"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable not set"},
    {92, "For loop not initialized"},
    {94, "Invalid use of Null"},
    {322, "Can't create necessary temporary file"},
    {424, "Object required"},
    {429, "ActiveX component can't create object"},
    {430, "Class doesn't support Automation"},
    {432, "File name or class name not found during Automation operation"},
    {438, "Object doesn't support this property or method"},
    {440, "Automation error"},
    {445, "Object doesn't support this action"},
    {446, "Object doesn't support named arguments"},
    {447, "Object doesn't support current locale setting"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {451, "Object not a collection"},
    {453, "Specified DLL function not found"},
    {455, "Code resource lock error"},
    {457, "This key is already associated with an element of this collection"},
    {458, "Variable uses an Automation type not supported in VBScript"},
    {462, "The remote server machine does not exist or is unavailable"},
    {481, "Invalid picture"},
    {500, "Variable is undefined"},
    {501, "Illegal assignment"},
    {502, "Object not safe for scripting"},
    {503, "Object not safe for initializing"},
    {504, "Object not safe for creating"},
    {505, "Invalid or unqualified reference"},
    {506, "Class not defined"},
    {507, "An exception occurred"},
};

std::function<void(int)> gFrmFim;
std::function<void()> gEvt;
Tx gHorUlt;
int gHorCnt = 0;
}  // namespace

Tx ErrDsc(int num) {
  if (num < 0) num = -num;
  for (const ErrTx& e : kErr)
    if (e.num == num) return TxAsc(e.tx);
  return u"Unknown runtime error";
}

// The source is the program itself: these numbers are raised by its own layer.
void ErrDad(int num, Tx& tx, Tx& fonte) {
  if (num < 0) num = -num;
  fonte = u"ZunWiz";
  if (num == 0) return;
  tx = Tx(u"Erro :  ") + TxAsc(std::to_string(num)) + u" - " + ErrDsc(num);
}

void FrmFimTot(int fim) {
  if (gFrmFim) {
    gFrmFim(1);
    gFrmFim(2);
  }
  if (fim == 1) {
    std::fflush(nullptr);
    std::exit(0);
  }
}

void FrmFimDef(std::function<void(int)> f) { gFrmFim = std::move(f); }

void EvtPmp() {
  if (gEvt) gEvt();
}

void EvtPmpDef(std::function<void()> f) { gEvt = std::move(f); }

// Every class calls these at its start and end; recording the objects they
// announce belongs to a debug build, which the system does not have, so only the
// instance stamp is made.
void DbgObjIni(const Tx&, Tx& stamp, const Tx&) { DbgHorUni(stamp); }
void DbgObjFim(const Tx&, const Tx&, const Tx&) {}
void DbgFxIni(const Tx&, const Tx&, const Tx&) {}
void DbgFxFim(const Tx&, const Tx&, const Tx&) {}

void DbgHor(Tx& tx) {
  using namespace std::chrono;
  auto agora = system_clock::now();
  std::time_t t = system_clock::to_time_t(agora);
  std::tm tm{};
  localtime_r(&t, &tm);
  long cs = long(duration_cast<milliseconds>(agora.time_since_epoch()).count() % 1000) / 10;
  char b[32];
  std::snprintf(b, sizeof b, "%02d:%02d:%02d.%02ld", tm.tm_hour, tm.tm_min, tm.tm_sec, cs);
  tx = TxAsc(b);
}

Tx DbgHorUniDe(const Tx& hor) {
  if (hor == gHorUlt) return hor + u" " + TxAsc(std::to_string(++gHorCnt));
  gHorUlt = hor;
  gHorCnt = 0;
  return hor;
}

void DbgHorUni(Tx& tx) {
  Tx h;
  DbgHor(h);
  tx = DbgHorUniDe(h);
}

}  // namespace zw
