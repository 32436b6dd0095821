// zunwiz: runs the wizard of an option file.
//   zunwiz [--record FILE [--keep-replaced DIR]] [-FP optionfile] [KEY=value ...]
#include <QApplication>
#include <QLocale>
#include <cstdio>
#include <cstring>
#include "MsgDlgQt.h"
#include "TxQt.h"
#include "ZunWizMain.h"

int main(int argc, char** argv) {
  // --help and --version as the only word; any other word is the wizard's own.
  if (argc == 2 && !std::strcmp(argv[1], "--version")) {
    std::printf("zunwiz %s\n", ZW_VERSAO);
    return 0;
  }
  if (argc == 2 && !std::strcmp(argv[1], "--help")) {
    std::fputs(
        "usage: zunwiz [--record FILE [--keep-replaced DIR]] [-FP optionfile] [KEY=value ...]\n"
        "Runs the wizard of an option file; without -FP, ZunWiz.par beside the program.\n"
        "KEY=value words override the file's options.\n"
        "\n"
        "  --record FILE        append to FILE, as JSON lines, each change the run makes\n"
        "                       to the machine, for zunwiz-undo(1) to take back\n"
        "  --keep-replaced DIR  with --record: a copy of each file replaced or deleted\n"
        "                       is kept in DIR first, so that undo can put it back\n"
        "\n"
        "Exit status: 0 the wizard ended normally; 1 the command line does not fit;\n"
        "2 the option file is missing; 4 the process ended at once; 5 the wizard could\n"
        "not be built; 7 the record could not be written; the script's verdict:\n"
        "8 the install failed, 9 cancelled, 10 the licence refused.\n",
        stdout);
    return 0;
  }
  // The record's options come first; the words after them are the wizard's.
  const char* ata = nullptr;
  const char* guarda = nullptr;
  int i = 1;
  for (; i + 1 < argc; i += 2) {
    if (!std::strcmp(argv[i], "--record")) ata = argv[i + 1];
    else if (!std::strcmp(argv[i], "--keep-replaced")) guarda = argv[i + 1];
    else break;
  }
  if ((i < argc && (!std::strcmp(argv[i], "--record") || !std::strcmp(argv[i], "--keep-replaced"))) ||
      (guarda && !ata)) {
    std::fputs("zunwiz: --record takes a file, and --keep-replaced a folder with --record\n", stderr);
    return 1;
  }
  QApplication app(argc, argv);
  // The boxes' buttons in the user's language, from Qt's own translations.
  zw::MsgTraCar(QLocale());
  zw::tZunWizPrc prc;
  zw::ZunWizPrp(prc, zw::TxQs(QCoreApplication::applicationDirPath()), zw::ZunWizLin(argc, argv, i));
  if (ata)
    if (int e = zw::ZunWizAtaIni(prc, ata, guarda, "zunwiz")) return e;
  const int st = zw::ZunWizCic(prc);
  return zw::ZunWizSai(st, "zunwiz", {}, prc.Err);
}
