// CmpReg: registering and unregistering self-registering components.
// On Linux a component is a shared library that exports the entry points
// "DllRegisterServer" and "DllUnregisterServer" (extern "C", no arguments, a long
// result that nobody reads). The entry point runs on a thread of its own, the one
// second thread of the program, and the caller waits for it at most 10000 ms. A
// component that hangs past that ends the program at once, with exit status
// kCmpRegSai: the caller's thread, the only one of the wizard, is given up with the
// still-active code 259, which a parent sees as 259 & 255.
#pragma once
#include "Tx.h"

namespace zw {

constexpr int kCmpRegEsp = 10000;      // the longest wait for an entry point, in ms
constexpr int kCmpRegSai = 259 & 255;  // the exit status after a time-out: 3

// The wait for an entry point in ms; 0 or less puts kCmpRegEsp back. Tests shorten it.
void CmpRegEspDef(int ms);
// Runs the entry point of a library: action 1 registers, 2 unregisters. Answers 0
// nothing done, 1 the library did not load, 2 the entry point is missing, 3 timed
// out (not reached: the program has ended), 4 registered, 5 unregistered. The
// entry point's own result is not read.
int CmpRegLib(const Tx& fic, int acao);
// One file: mode "R" unregisters (ok 1 on answer 5), "I" registers (ok 1 on answer
// 4) a file that exists and otherwise shows the box "Instalar Componente"; any other
// mode does nothing, ok 0.
void CmpRegExe(const Tx& modo, const Tx& fic, int& ok);
// The components of a folder: extension "DLL" or "OCX" does that kind, anything else
// "DLL" and then "OCX". Kind "DLL" counts the files named "*.dll" and "*.so", kind
// "OCX" those named "*.ocx" (in any capitals), each kind in name order. Mode "I"
// registers each, "R" unregisters each, any other unregisters and registers again.
void CmpRegDirExe(const Tx& modo, const Tx& ext, const Tx& dir);

}  // namespace zw
