// VbsInt: what the host's files share among themselves and nobody else needs.
#pragma once
#include <vector>
#include "Tx.h"
#include "Value.h"
#include "Var.h"

namespace zw {

class VbsSup;
class VbsFxp;

// Makes the engine object through which scripts reach the host ("Fxp", "FxPre"),
// gives it as a Var and its address in fxp; FxpSolta cuts it off from the host
// when the host ends before the engine lets go of it.
Var FxpNovo(VbsSup& host, VbsFxp*& fxp);
void FxpSolta(VbsFxp* fxp);

// A one-dimensional script array as a list (element k is index k; a lower bound
// above 0 leaves the first elements empty) and back (indexes 0..size-1).
bool ArrDe(const vbs::Value& v, std::vector<Var>& out);
vbs::Value ArrVbs(const std::vector<Var>& in);

// True when a text reads as a number, by the script language's own test.
bool EngNum(const Tx& t);

// Calls a member of an object by name, with arguments by reference (their new
// values come back in args). False when the Var holds no object, the object has no
// such member, or the member fails.
bool ObCall(const Var& ob, const Tx& member, std::vector<Var>& args, Var& res);
// The same with the elements handed over as one array argument, read back after.
bool ObArrCall(const Var& ob, const Tx& member, std::vector<Var>& elems, Var& res);

}  // namespace zw
