// Builtins: the tables through which the function library, the vb constants and
// the CreateObject program identifiers reach the engine.
// Library files register into them from one function, LibReg, which the engine
// calls once before it compiles anything. Names are found case-blind; a script's
// own procedures and variables of the same name hide a built-in.
#pragma once
#include "Value.h"

namespace vbs {

// A built-in function: arguments (by reference where the caller passed a variable;
// a left-out argument, as in f(a, , c), is Missing: test with a.Has(k)), and the
// result slot, Empty on entry. Errors are raised with Raise().
using Fn = void (*)(Args a, Value& r);

struct FnDef {
  const char* name;
  int8_t min;  // fewest arguments
  int8_t max;  // most arguments (-1: any number)
  Fn fn;
  uint8_t use = 0;  // kFnSub or kFnConv where the place of a call matters
};
// A built-in with no value (Randomize): in an expression it is a type mismatch.
constexpr uint8_t kFnSub = 1;
// A conversion (CInt...): called as a statement it fails with 458.
constexpr uint8_t kFnConv = 2;

void DefFns(std::initializer_list<FnDef> fns);        // adds or replaces built-ins
void DefConst(const char* name, const Value& v);     // a named constant, such as vbCrLf
using Factory = Ref<Obj> (*)();
void DefProgId(const char* progId, Factory f);       // a program identifier for CreateObject

const FnDef* FindFn(TxV name);                       // null when there is none
const Value* FindConst(TxV name);
Ref<Obj> NewObj(TxV progId);  // CreateObject: raises 429 "ActiveX component can't create object"
bool HasProgId(TxV progId);    // whether CreateObject knows the identifier (nothing is made)

// Registers the whole function library; defined by the library's LibReg.cpp.
void LibReg();

// The built-ins the engine itself defines, because they reach into the running
// script: Eval, GetRef, CreateObject, ScriptEngine, ScriptEngineMajorVersion,
// ScriptEngineMinorVersion, ScriptEngineBuildVersion. MsgBox and InputBox use
// zw::MsgDlgAct() (src/foundation/MsgDlg.h), which the host sets.

// Charges the host's time-out for work a built-in did or is about to do (n
// characters or elements): a long one looks at the clock as a loop does, and the
// time-out may stop the script from here. Large work is charged in parts as it
// goes, so that one call cannot run far past the time-out.
void Work(size_t n);

// v(a...): an element of an array, or the default member of an object (k says
// whether it is read or called); v itself when there are no arguments.
void Index(Value& v, Args a, Inv k, Value& r);

// A procedure reference (what GetRef gives) or any object with a default
// method: calls it with the arguments.
void CallObj(Obj* o, Args a, Value& r);

}  // namespace vbs
