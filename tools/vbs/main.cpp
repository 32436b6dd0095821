// vbs: a console script host. `vbs FILE [arguments]` runs the file with a
// WScript object; an error nothing handles is written to stderr as
// FILE(line, column) VBScript runtime error NNN: Description, with status 1.
#include <cstdio>
#include <cstring>
#include <sstream>
#include "FicLer.h"
#include "ScriptControl.h"
#include "WScript.h"

int main(int argc, char** argv) {
  // --help and --version as the first word; a script of either name is run as
  // "vbs ./--help".
  if (argc >= 2 && !std::strcmp(argv[1], "--version")) {
    std::printf("vbs %s\n", ZW_VERSAO);
    return 0;
  }
  if (argc >= 2 && !std::strcmp(argv[1], "--help")) {
    std::fputs(
        "usage: vbs FILE [arguments]\n"
        "Runs a VBScript file with a WScript object; the arguments are WScript.Arguments.\n"
        "An error nothing handles goes to standard error as\n"
        "FILE(line, column) VBScript runtime error NNN: Description.\n"
        "\n"
        "Exit status: 0, or what WScript.Quit gives; 1 an error nothing handled;\n"
        "2 no file, or a file that cannot be read.\n",
        stdout);
    return 0;
  }
  if (argc < 2) {
    std::fprintf(stderr, "usage: vbs FILE [arguments]\n");
    return 2;
  }
  // The script is read by the rule of every file the system reads: a folder, a
  // device or a pipe is refused at once, as is a file past the limit.
  std::string bytes;
  if (int e = zw::FicLerNat(argv[1], bytes)) {
    std::fprintf(stderr, "vbs: cannot read %s (%s)\n", argv[1], zw::FicLerPorque(e).c_str());
    return 2;
  }
  zw::Tx text = zw::TxDeBytes(bytes);
  std::vector<zw::Tx> args;
  for (int i = 2; i < argc; ++i) args.push_back(zw::TxDeUtf8(argv[i]));
  zw::Tx path = zw::TxDeUtf8(argv[1]);

  int status = 0;
  {
    vbs::ScriptControl sc;
    sc.AddObject(u"WScript", vbs::NewWScript(path, args));
    try {
      if (!sc.AddCode(text)) {
        const vbs::ScriptError& e = sc.Error();
        bool comp = e.Source == u"Microsoft VBScript compilation error";
        std::ostringstream msg;
        msg << argv[1] << "(" << e.Line << ", " << (e.Column + 1) << ") VBScript "
            << (comp ? "compilation" : "runtime") << " error " << e.Number << ": "
            << zw::TxUtf8(e.Description) << "\n";
        std::fflush(stdout);
        std::fputs(msg.str().c_str(), stderr);
        status = 1;
      }
    } catch (vbs::QuitReq& q) {
      status = q.code;
    }
  }
  std::fflush(stdout);
  return status;
}
