// ScriptControl: the engine as a host drives it, under the names the platform's
// script control gives them. Nothing raises past this interface: an error of the
// script (compile or run time) lands in Error() and the call answers false.
#pragma once
#include <functional>
#include <memory>
#include <span>
#include <vector>
#include "Value.h"

namespace vbs {

class Engine;

// The last error of the control.
struct ScriptError {
  int32_t Number = 0;
  Tx Description;
  Tx Source;      // "Microsoft VBScript runtime error", "Microsoft VBScript compilation error", or the raiser's
  int32_t Line = 0;    // 1-based line in the text that was given, 0 when unknown
  int32_t Column = 0;  // 0-based column, as the platform's control gives it
  Tx Text;        // the source line of a compile error
  void Clear() { *this = ScriptError(); }
};

// The number of the error a call stopped by the time-out ends with; its Line is
// the line the script stood at when it was stopped.
constexpr int32_t kErrTimeout = -2147467260;

// Where the script running on this thread stands: the line (1-based) of the
// statement that last called a built-in or an object's member, and the text that
// statement came from (what AddCode, ExecuteStatement, Eval or Execute was given).
// Line 0 and no text when no script runs.
struct Site {
  int32_t Line = 0;
  std::shared_ptr<const Tx> Text;
};
Site Where();

// A host's say over the built-ins that reach outside the engine: CreateObject,
// GetObject (and a host's own creation by program identifier), MsgBox and
// InputBox. Without one they do what they always do. A host that must not let a
// script touch the machine or the user, such as a checker, answers in their place.
class HostPolicy {
 public:
  virtual ~HostPolicy() = default;
  // CreateObject(id) (get false), or GetObject(path, id) (get true; path empty when
  // not given): the object the script gets, or null to make or refuse it as usual.
  virtual Ref<Obj> Object(TxV id, TxV path, bool get) = 0;
  // MsgBox: true when the host answers for the box, with the button's code in r.
  virtual bool MsgBox(TxV prompt, TxV title, int32_t style, int32_t& r) = 0;
  // InputBox: true when the host answers, with the text (or Empty for cancel) in r.
  virtual bool InputBox(TxV prompt, TxV title, TxV dflt, Value& r) = 0;
};

// One procedure of the code added so far.
struct ProcInfo {
  Tx Name;
  int32_t NumArgs = 0;
  bool HasReturnValue = false;  // true for a Function
};

class ScriptControl {
 public:
  ScriptControl();
  ~ScriptControl();
  ScriptControl(const ScriptControl&) = delete;
  ScriptControl& operator=(const ScriptControl&) = delete;

  // Drops all code, all script variables and all added objects.
  void Reset();
  // Milliseconds a call may run before it is stopped with an error; -1 means no limit.
  long Timeout() const;
  void Timeout(long ms);
  // The host's policy over what reaches outside the engine; null for none. It is
  // kept across Reset, as the time-out is.
  std::shared_ptr<HostPolicy> Policy() const;
  void Policy(std::shared_ptr<HostPolicy> p);
  // A host's pulse while a call runs: f is called about every `ms` milliseconds
  // of the call (a window paints and takes its close box there). When it answers
  // false the call stops as a time-out does. It is kept across Reset; an empty f
  // removes it. f must not call back into this control.
  void Pulse(std::function<bool()> f, long ms);
  // The window that owns what the engine shows; kept, not used.
  void SitehWnd(long hwnd) { hwnd_ = hwnd; }
  long SitehWnd() const { return hwnd_; }

  // Makes an object visible to scripts under a name. With addMembers its members
  // are also reachable without the name.
  bool AddObject(TxV name, Ref<Obj> object, bool addMembers = false);
  // Compiles the whole text and runs its global statements; on a compile error
  // nothing of it is added.
  bool AddCode(TxV text);
  // Runs one or more statements as global code.
  bool ExecuteStatement(TxV text);
  // Evaluates an expression.
  bool Eval(TxV text, Value& result);
  // Calls a procedure by name; each argument is by reference, so a ByRef
  // parameter writes back into the caller's Value.
  bool Run(TxV name, std::span<Value* const> args, Value& result);
  bool Run(TxV name, std::initializer_list<Value*> args, Value& result) {
    return Run(name, std::span<Value* const>(args.begin(), args.size()), result);
  }

  // The procedures of the code added so far, in declaration order.
  const std::vector<ProcInfo>& Procedures() const;
  // One procedure by name, case-blind; null when there is none.
  const ProcInfo* Procedure(TxV name) const;
  // An object whose members are the script's global variables and procedures.
  Ref<Obj> CodeObject();
  // The last error; Number is 0 when the last call succeeded.
  ScriptError& Error() { return err_; }

  Engine& engine() { return *e_; }

 private:
  std::unique_ptr<Engine> e_;
  mutable std::vector<ProcInfo> procs_;
  ScriptError err_;
  long hwnd_ = 0;
};

}  // namespace vbs
