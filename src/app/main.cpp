// zunwiz: runs the wizard of an option file.
//   zunwiz [-FP optionfile] [KEY=value ...]
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
        "usage: zunwiz [-FP optionfile] [KEY=value ...]\n"
        "Runs the wizard of an option file; without -FP, ZunWiz.par beside the program.\n"
        "KEY=value words override the file's options.\n"
        "\n"
        "Exit status: 0 the wizard ended normally; 2 the option file is missing;\n"
        "4 the process ended at once; 5 the wizard could not be built; the script's\n"
        "verdict: 8 the install failed, 9 cancelled, 10 the licence refused.\n",
        stdout);
    return 0;
  }
  QApplication app(argc, argv);
  // The boxes' buttons in the user's language, from Qt's own translations.
  zw::MsgTraCar(QLocale());
  // The command line as one text, the words joined by blanks: the start-up
  // splits it again at blanks, and quotes have no meaning there.
  zw::Tx lin;
  for (int i = 1; i < argc; i++) {
    if (i > 1) lin += u' ';
    lin += zw::TxDeUtf8(argv[i]);
  }
  zw::ZunWizPrp(zw::TxQs(QCoreApplication::applicationDirPath()), lin);
  return zw::ZunWizSai(zw::ZunWizCic(), "zunwiz");
}
