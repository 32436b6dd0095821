// zunwiz-run: runs a wizard with answers instead of a person and writes a trace.
//   zunwiz-run [--answers FILE] [--trace FILE|-] [--shots DIR] WORDS...
// WORDS are zunwiz's own command line ("-FP file", "KEY=value"...). The start-up,
// engine and windows are zunwiz's, on Qt's offscreen platform. Exit status: 0 the
// run ended, 2 the option file is missing, 3 the answers do not fit the wizard,
// 4 the process ended at once.
#include <QApplication>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <unistd.h>
#include "TxQt.h"
#include "ZunWizMain.h"
#include "ZunWizRun.h"

namespace {
[[noreturn]] void Uso(const char* porque) {
  std::fprintf(stderr, "zunwiz-run: %s\nusage: zunwiz-run [--answers FILE] [--trace FILE|-] [--shots DIR] WORDS...\n",
               porque);
  std::exit(1);
}
}  // namespace

int main(int argc, char** argv) {
  const char* rsp = nullptr;
  const char* trc = "-";
  const char* fotos = "";
  int i = 1;
  for (; i < argc; i++) {
    auto val = [&](const char*& alvo) {
      if (++i >= argc) Uso("an option wants a value");
      alvo = argv[i];
    };
    if (!std::strcmp(argv[i], "--answers")) val(rsp);
    else if (!std::strcmp(argv[i], "--trace")) val(trc);
    else if (!std::strcmp(argv[i], "--shots")) val(fotos);
    else if (!std::strcmp(argv[i], "--")) { i++; break; }
    else break;
  }
  std::ifstream fic;
  zw::RunOpc opc;
  if (rsp) {
    fic.open(rsp);
    if (!fic) Uso("cannot read the answers file");
    opc.rsp = &fic;
  } else {
    opc.rsp = &std::cin;
    opc.rspTerm = isatty(0);
  }
  opc.trc = std::strcmp(trc, "-") ? std::fopen(trc, "w") : stdout;
  if (!opc.trc) Uso("cannot write the trace file");
  opc.fotos = zw::TxDeUtf8(fotos);

  // Standard error is for the run's own messages: Qt's notes about the offscreen
  // platform are dropped, its errors kept.
  qInstallMessageHandler([](QtMsgType t, const QMessageLogContext&, const QString& m) {
    if (t == QtCriticalMsg || t == QtFatalMsg) std::fprintf(stderr, "%s\n", m.toLocal8Bit().constData());
  });
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int qargc = 1;
  QApplication app(qargc, argv);
  zw::Tx lin;
  for (int k = i; k < argc; k++) {
    if (k > i) lin += u' ';
    lin += zw::TxDeUtf8(argv[k]);
  }
  zw::ZunWizPrp(zw::TxQs(QCoreApplication::applicationDirPath()), lin);
  zw::ZunWizRunIni(opc);
  int st = zw::ZunWizRunFim(zw::ZunWizCic());
  std::fflush(nullptr);
  return st;
}
