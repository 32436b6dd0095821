// zunwiz-check: `zunwiz-check [--json] FILE [KEY=value ...]` reads a wizard file as
// the engine does and reports, compiler style, what would go wrong or silently
// differ from what the author meant: "FILE:LINE: error|warning: message". Exit
// status 0 when no error was found, 1 otherwise, 2 when the file can't be read,
// 64 for a usage error.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>
#include "Chk.h"
#include "FicGlb.h"
#include "TxtGlb.h"

using namespace zw;

namespace {
// What --help prints: the command line, what is checked and the exit statuses.
int Ajuda() {
  std::fputs(
      "usage: zunwiz-check [--json] FILE [KEY=value ...]\n"
      "Reads the wizard of an option file as the engine does and reports, one line each,\n"
      "what a run would do wrong or differently from what its author meant:\n"
      "FILE:LINE: error|warning: message (--json: the same as a JSON list).\n"
      "Checking runs nothing: the program's objects, boxes and \"Wiz\" operations that\n"
      "would change the machine are inert and reported, and every script call stops\n"
      "after 2 s. KEY=value words override the file's options, as for zunwiz.\n"
      "\n"
      "Exit status: 0 no error found (warnings alone); 1 errors found; 2 the file\n"
      "cannot be read; 64 wrong arguments.\n",
      stdout);
  return 0;
}
}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("zunwiz-check %s\n", ZW_VERSAO);
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--help") == 0) return Ajuda();
  bool json = false;
  std::vector<Tx> pal;
  Tx fic;
  for (int i = 1; i < argc; i++) {
    if (std::strcmp(argv[i], "--json") == 0 && fic.empty())
      json = true;
    else if (fic.empty())
      fic = TxDeUtf8(argv[i]);
    else
      pal.push_back(TxDeUtf8(argv[i]));
  }
  if (fic.empty()) {
    std::fputs("usage: zunwiz-check [--json] FILE [KEY=value ...]\n", stderr);
    return 64;
  }
  if (FicExi(fic) != 1) {
    std::fprintf(stderr, "zunwiz-check: cannot read %s\n", TxUtf8(fic).c_str());
    return 2;
  }
  std::vector<chk::Achado> ach = chk::ChkFic(fic, pal);
  bool erro = false;
  std::string nome = TxUtf8(fic);
  if (json) std::fputs("[", stdout);
  for (size_t i = 0; i < ach.size(); i++) {
    const chk::Achado& a = ach[i];
    erro = erro || a.erro;
    if (json) {
      std::printf("%s\n  {\"file\": %s, \"line\": %d, \"severity\": \"%s\", \"message\": %s}", i ? "," : "",
                  TxJson(fic).c_str(), int(a.lin), a.erro ? "error" : "warning", TxJson(a.msg).c_str());
    } else {
      std::printf("%s:%d: %s: %s\n", nome.c_str(), int(a.lin), a.erro ? "error" : "warning", TxUtf8(a.msg).c_str());
    }
  }
  if (json) std::fputs(ach.empty() ? "]\n" : "\n]\n", stdout);
  return erro ? 1 : 0;
}
