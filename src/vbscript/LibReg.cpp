// LibReg: registers the whole function library, its constants and its objects.
#include "Lib.h"

namespace vbs {

void LibReg() {
  static bool feito = false;
  if (feito) return;
  feito = true;
  LibConvReg();
  LibStrReg();
  LibMathReg();
  LibDateReg();
  LibFmtReg();
  LibArrReg();
  LibMiscReg();
  RegExpReg();
  DictReg();
  FsoReg();
  ShellReg();
  AdoReg();
}

}  // namespace vbs
