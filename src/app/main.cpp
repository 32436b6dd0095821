// zunwiz: runs the wizard of an option file.
//   zunwiz [-FP optionfile] [KEY=value ...]
#include <QApplication>
#include "TxQt.h"
#include "ZunWizMain.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  // The command line as one text, the words joined by blanks: the start-up
  // splits it again at blanks, and quotes have no meaning there.
  zw::Tx lin;
  for (int i = 1; i < argc; i++) {
    if (i > 1) lin += u' ';
    lin += zw::TxDeUtf8(argv[i]);
  }
  zw::ZunWizPrp(zw::TxQs(QCoreApplication::applicationDirPath()), lin);
  return zw::ZunWizCic();
}
