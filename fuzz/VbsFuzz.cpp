// Fuzz target of the VBScript engine: the input is a script, compiled and run
// through the script-control interface with a time-out, then a few of its names
// are read back as a host would. Files, processes and documents are out of
// reach: their objects and functions are replaced by ones that refuse, and the
// boxes answer at once. Any script error is an accepted outcome; a crash, a
// sanitizer report, a C++ exception out of the control or a hang is a fault.
#include <cstdint>
#include <cstddef>
#include "Builtins.h"
#include "MsgDlg.h"
#include "ScriptControl.h"

using namespace vbs;

namespace {

// Boxes answer with their default button, input boxes are cancelled.
class Mudo : public zw::MsgDlg {
 public:
  int Caixa(int estilo, const Tx&, const Tx&) override { return zw::MsgRespOmissao(estilo); }
  void Bip() override {}
  bool Entrada(const Tx&, const Tx&, const Tx&, Tx&) override { return false; }
};

void Recusa(Args, Value&) { Raise(429); }

void Fecha() {
  static Mudo mudo;
  zw::MsgDlgDef(&mudo);
  ScriptControl warm;  // fills the built-in tables before they are changed
  for (const char* id : {"Scripting.FileSystemObject", "WScript.Shell"})
    DefProgId(id, [] { return Ref<Obj>(); });
  DefFns({{"GetObject", 0, 2, Recusa}, {"LoadPicture", 0, 1, Recusa}});
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Fecha();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 16384) return 0;
  Tx text;
  text.reserve(size);
  for (size_t i = 0; i < size; ++i) text += char16_t(data[i]);
  ScriptControl sc;
  sc.Timeout(300);
  sc.AddCode(text);
  Value r;
  sc.Eval(u"x", r);
  for (const ProcInfo& p : sc.Procedures()) {
    if (p.NumArgs != 0) continue;
    Value res;
    sc.Run(p.Name, {}, res);
    break;
  }
  return 0;
}
