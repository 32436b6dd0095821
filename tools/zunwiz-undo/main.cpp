// zunwiz-undo: takes back the changes of an install record, the last first.
//   zunwiz-undo [--dry-run] RECORD
// Each step is one line on standard output; the exit status says whether all of
// it was undone (AtaDfz.h).
#include <cstdio>
#include <cstring>
#include <string>
#include "AtaDfz.h"

namespace {
const char kUso[] = "usage: zunwiz-undo [--dry-run] RECORD\n";

void Ajuda() {
  std::fputs(kUso, stdout);
  std::fputs(
      "Takes back what a run of zunwiz or zunwiz-run recorded with --record, the last\n"
      "change first: removes the files it made while their content is as the record\n"
      "says (a file changed since is kept and listed), the folders it made once they\n"
      "are empty, puts back files replaced or deleted from the copies kept with\n"
      "--keep-replaced, moves moved files back, sets registry values back and removes\n"
      "the keys it made when empty, and removes the printers it added. Programs that\n"
      "the run started cannot be undone: they are listed. A record of a run that was\n"
      "killed is undone as far as it goes.\n"
      "\n"
      "  --dry-run   list what would be done, and change nothing\n"
      "  --help, --version\n"
      "\n"
      "Exit status: 0 everything was undone (or would be, with --dry-run); 1 something\n"
      "was kept or cannot be undone, as listed; 2 the command line does not fit or the\n"
      "record cannot be read.\n",
      stdout);
}
}  // namespace

int main(int argc, char** argv) {
  bool seco = false;
  const char* rec = nullptr;
  for (int i = 1; i < argc; i++) {
    if (!std::strcmp(argv[i], "--help")) {
      Ajuda();
      return 0;
    }
    if (!std::strcmp(argv[i], "--version")) {
      std::printf("zunwiz-undo %s\n", ZW_VERSAO);
      return 0;
    }
    if (!std::strcmp(argv[i], "--dry-run")) seco = true;
    else if (!std::strcmp(argv[i], "--") && i + 2 == argc) rec = argv[++i];
    else if (argv[i][0] == '-' || rec) rec = nullptr, i = argc;
    else rec = argv[i];
  }
  if (!rec) {
    std::fprintf(stderr, "zunwiz-undo: one record, with --dry-run or not\n%s", kUso);
    return 2;
  }
  std::string porque;
  int st = zw::AtaDfz(rec, seco, [](const std::string& l) { std::printf("%s\n", l.c_str()); }, porque);
  std::fflush(stdout);
  if (st == 2) std::fprintf(stderr, "zunwiz-undo: %s\n", porque.c_str());
  else if (st == 1) std::fprintf(stderr, "zunwiz-undo: not everything %s undone; see the lines above\n", seco ? "would be" : "was");
  return st;
}
