// zunwiz-run: runs a wizard with answers instead of a person and writes a trace.
//   zunwiz-run [--answers FILE] [--trace FILE|-] [--shots DIR] [--timeout SECONDS]
//              [--record FILE [--keep-replaced DIR]] [--platform NAME] WORDS...
// WORDS are zunwiz's own command line ("-FP file", "KEY=value"...). The start-up,
// engine and windows are zunwiz's, on Qt's offscreen platform unless --platform
// names another (xcb: on the X display of DISPLAY). The exit statuses
// are the program's own (ZunWizMain.h); 1 is a command line that does not fit.
#include <QApplication>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sstream>
#include <unistd.h>
#include "FicLer.h"
#include "TxQt.h"
#include "ZunWizMain.h"
#include "ZunWizRun.h"

namespace {
const char kUso[] =
    "usage: zunwiz-run [--answers FILE] [--trace FILE|-] [--shots DIR] [--timeout SECONDS]\n"
    "                  [--record FILE [--keep-replaced DIR]] [--platform NAME] WORDS...\n";

[[noreturn]] void Uso(const char* porque) {
  std::fprintf(stderr, "zunwiz-run: %s\n%s", porque, kUso);
  std::exit(1);
}

// What --help prints: the options, the answer words and the exit statuses.
void Ajuda() {
  std::fputs(kUso, stdout);
  std::fputs(
      "Runs the wizard of an option file with answers in place of a person and writes\n"
      "a trace of what it showed and asked. WORDS are zunwiz's own: -FP file, KEY=value.\n"
      "\n"
      "  --answers FILE     the answers; without it, standard input (at a terminal,\n"
      "                     help or ? lists the answers that fit)\n"
      "  --trace FILE|-     where the trace goes; - (the default) is standard output\n"
      "  --shots DIR        a PNG of the window at each page and of each box\n"
      "  --timeout SECONDS  the longest one script call may take; 0 for no limit.\n"
      "                     Default: no limit with answers typed at a terminal, 600 else\n"
      "  --record FILE      append to FILE, as JSON lines, each change the run makes to\n"
      "                     the machine, for zunwiz-undo(1) to take back\n"
      "  --keep-replaced DIR  with --record: a copy of each file replaced or deleted\n"
      "                     is kept in DIR first, so that undo can put it back\n"
      "  --platform NAME    Qt's platform for the windows: offscreen (the default), or\n"
      "                     xcb to run them on the X display that DISPLAY names\n"
      "  --help, --version\n"
      "\n"
      "Answers: ANT, SEG, CNF, CAN, CLOSE, BOX R, INPUT text, CHECK NAME 0|1, OPTION NAME N.\n"
      "\n"
      "Exit status: 0 the wizard ended normally; 1 the command line does not fit;\n"
      "2 the option file is missing; 3 the answers do not fit; 4 the process ended at\n"
      "once; 5 the wizard could not be built; 6 a script call went past the time\n"
      "limit; 7 the trace, the shots or the record could not be written; the\n"
      "script's verdict: 8 the install failed, 9 cancelled, 10 the licence refused.\n",
      stdout);
}

// A number of seconds, whole and not negative, within a day's worth of times.
bool Segundos(const char* s, long& seg) {
  char* fim = nullptr;
  errno = 0;
  long v = std::strtol(s, &fim, 10);
  if (!*s || *fim || errno || v < 0 || v > 2000000) return false;
  seg = v;
  return true;
}
}  // namespace

int main(int argc, char** argv) {
  const char* rsp = nullptr;
  const char* trc = "-";
  const char* fotos = "";
  const char* tmp = nullptr;
  const char* ata = nullptr;
  const char* guarda = nullptr;
  const char* plat = "offscreen";
  int i = 1;
  for (; i < argc; i++) {
    auto val = [&](const char*& alvo) {
      if (++i >= argc) Uso("an option wants a value");
      alvo = argv[i];
    };
    if (!std::strcmp(argv[i], "--answers")) val(rsp);
    else if (!std::strcmp(argv[i], "--trace")) val(trc);
    else if (!std::strcmp(argv[i], "--shots")) val(fotos);
    else if (!std::strcmp(argv[i], "--timeout")) val(tmp);
    else if (!std::strcmp(argv[i], "--record")) val(ata);
    else if (!std::strcmp(argv[i], "--keep-replaced")) val(guarda);
    else if (!std::strcmp(argv[i], "--platform")) val(plat);
    else if (!std::strcmp(argv[i], "--help")) { Ajuda(); return 0; }
    else if (!std::strcmp(argv[i], "--version")) { std::printf("zunwiz-run %s\n", ZW_VERSAO); return 0; }
    else if (!std::strcmp(argv[i], "--")) { i++; break; }
    else break;
  }
  std::istringstream fic;
  zw::RunOpc opc;
  if (rsp) {
    // Read whole by the rule of every file the system reads: a pipe, a device or a
    // file past the limit is refused at once rather than read for ever.
    std::string b;
    int e = zw::FicLerNat(rsp, b);
    if (e == zw::kErrAces && zw::FicNulo(rsp)) e = 0;  // no answers
    if (e)
      Uso(("cannot read the answers file " + std::string(rsp) + " (" + zw::FicLerPorque(e) + ")").c_str());
    fic.str(std::move(b));
    opc.rsp = &fic;
  } else {
    opc.rsp = &std::cin;
    opc.rspTerm = isatty(0);
  }
  if (guarda && !ata) Uso("--keep-replaced goes with --record");
  long seg = opc.rspTerm ? 0 : 600;
  if (tmp && !Segundos(tmp, seg)) Uso("--timeout takes a whole number of seconds");
  opc.tmp = seg > 0 ? seg * 1000 : -1;
  opc.trc = std::strcmp(trc, "-") ? std::fopen(trc, "w") : stdout;
  if (!opc.trc) {
    std::fprintf(stderr, "zunwiz-run: cannot write the trace file %s: %s\n", trc, std::strerror(errno));
    return zw::kSaiTrc;
  }
  opc.fotos = zw::TxDeUtf8(fotos);

  // Standard error is for the run's own messages: Qt's notes about the platform are
  // dropped, its errors kept.
  qInstallMessageHandler([](QtMsgType t, const QMessageLogContext&, const QString& m) {
    if (t == QtCriticalMsg || t == QtFatalMsg) std::fprintf(stderr, "%s\n", m.toLocal8Bit().constData());
  });
  qputenv("QT_QPA_PLATFORM", plat);
  int qargc = 1;
  QApplication app(qargc, argv);
  zw::tZunWizPrc prc;
  zw::ZunWizPrp(prc, zw::TxQs(QCoreApplication::applicationDirPath()), zw::ZunWizLin(argc, argv, i));
  if (ata)
    if (int e = zw::ZunWizAtaIni(prc, ata, guarda, "zunwiz-run")) return e;
  zw::ZunWizRunIni(opc);
  const int cic = zw::ZunWizCic(prc);
  int st = zw::ZunWizRunFim(cic, prc.Err);
  std::fflush(nullptr);
  return st;
}
