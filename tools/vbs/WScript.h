// WScript: the object a console script sees as "WScript".
#pragma once
#include <vector>
#include "Value.h"

namespace vbs {

// Thrown by WScript.Quit; carries the exit status.
struct QuitReq {
  int code;
};

// Makes the WScript object for a script file and its arguments.
Ref<Obj> NewWScript(const Tx& scriptPath, const std::vector<Tx>& args);

}  // namespace vbs
