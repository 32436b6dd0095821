// Whole runs of the program in a child process, with the real Qt boxes: a timer
// in the child looks at each box that comes up, reports it and presses its button.
#include <gtest/gtest.h>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include "MsgDlg.h"
#include "QtApp.h"
#include "TxQt.h"
#include "ZunWizMain.h"

using namespace zw;
namespace fs = std::filesystem;

namespace {

// Passes every box to the service in force and counts the beeps, so that the
// child can report them.
struct MsgEspia : MsgDlg {
  MsgDlg& real;
  int bips = 0;
  explicit MsgEspia(MsgDlg& r) : real(r) {}
  int Caixa(int e, const Tx& t, const Tx& x) override { return real.Caixa(e, t, x); }
  void Bip() override {
    bips++;
    real.Bip();
  }
  bool Entrada(const Tx& t, const Tx& p, const Tx& o, Tx& r) override { return real.Entrada(t, p, o, r); }
};

const char* IcoNome(QMessageBox::Icon i) {
  switch (i) {
    case QMessageBox::Critical: return "critical";
    case QMessageBox::Question: return "question";
    case QMessageBox::Warning: return "warning";
    case QMessageBox::Information: return "information";
    default: return "none";
  }
}

// The child: starts the program with the command line, answers each box with
// its default button after writing "BOX <title>|<icon>|<buttons>|<beeps>|<text>"
// to stderr (line breaks as "/"), and ends with the program's status as zunwiz's
// main gives it. A run that hangs ends with status 99.
[[noreturn]] void Corre(const Tx& dirExe, const Tx& lin) {
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  tst::QtApp();
  static MsgEspia* espia = nullptr;
  auto* t = new QTimer(qApp);
  QObject::connect(t, &QTimer::timeout, [] {
    auto* b = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!b || !b->isVisible()) return;
    QString bot;
    for (QAbstractButton* x : b->buttons()) bot += x->text().remove(u'&') + u' ';
    QString txt = b->text();
    txt.replace(u'\n', u'/');
    std::fprintf(stderr, "BOX %s|%s|%s|%d|%s\n", b->windowTitle().toUtf8().constData(), IcoNome(b->icon()),
                 bot.trimmed().toUtf8().constData(), espia ? espia->bips : -1, txt.toUtf8().constData());
    std::fflush(stderr);
    b->defaultButton()->click();
  });
  t->start(20);
  QTimer::singleShot(20000, [] { std::_Exit(99); });
  tZunWizPrc prc;
  ZunWizPrp(prc, dirExe, lin);
  espia = new MsgEspia(MsgDlgAct());
  MsgDlgDef(espia);
  const int st = ZunWizCic(prc);
  int r = ZunWizSai(st, "zunwiz", {}, prc.Err);
  std::fflush(nullptr);
  std::_Exit(r);
}

}  // namespace

// A missing option file: one critical box titled "Wizzard" with OK and a beep,
// naming the file below a blank line, and then the end of the process at once,
// with a status that is not 0 (a run that went on would end with 0).
TEST(ZunWizRun, MissingOptionFileShowsTheBoxAndEnds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(Corre(u"/nonexistent", u"-FP /no/such.par"), testing::ExitedWithCode(kSaiFpa),
              "^BOX Wizzard\\|critical\\|OK\\|1\\|Não foi encontrado o ficheiro de opções\\.//"
              "Ficheiro: /no/such\\.par\n$");
}

// An option file that exists but has no page: the run ends by itself, quietly,
// at once, as going past the last page does, with that status.
TEST(ZunWizRun, ExistingOptionFileEndsNormally) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  // The death test's child runs this body again: it takes the parent's folder
  // from the environment instead of making one of its own.
  fs::path d;
  if (const char* pai = std::getenv("ZW_TEST_RUN_OK")) {
    d = pai;
  } else {
    char modelo[] = "/tmp/zw-run-ok-XXXXXX";
    d = mkdtemp(modelo);
    setenv("ZW_TEST_RUN_OK", d.c_str(), 1);
  }
  fs::create_directories(d);
  std::ofstream(d / "ZunWiz.par") << "[DEF]\n";
  Tx dir = TxDeUtf8(d.string());
  EXPECT_EXIT(Corre(dir, u""), testing::ExitedWithCode(kSaiEnd), "^$");
  unsetenv("ZW_TEST_RUN_OK");
  fs::remove_all(d);
}

// A wizard that no attempt can build (a font size no control takes): the first
// failure runs the installer unasked, the second asks, the default answer is No,
// and the run ends with its own status rather than 0, naming the failure and the
// option file line of the component whose font it is.
TEST(ZunWizRun, AWizardNeverBuiltEndsWithItsOwnStatus) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  fs::path d;
  if (const char* pai = std::getenv("ZW_TEST_RUN_CRI")) {
    d = pai;
  } else {
    char modelo[] = "/tmp/zw-run-cri-XXXXXX";
    d = mkdtemp(modelo);
    setenv("ZW_TEST_RUN_CRI", d.c_str(), 1);
  }
  fs::create_directories(d);
  std::ofstream(d / "ZunWiz.par") << "'Nome : cria\n'Tipo : PAR\n'Data : 2026-11-25\n'Versao : 1.0\n'Descricao : x\n"
                                     "#PAG - Um\n[IDE]=UM\n##\n#CMP - L\n[Tip]=LAB\n[Fon]=Arial, 100000\n##\n";
  Tx dir = TxDeUtf8(d.string());
  EXPECT_EXIT(Corre(dir, u""), testing::ExitedWithCode(kSaiCri),
              "^BOX ZunWiz\\|question\\|[^|]*\\|[0-9]+\\|Ocorreu um erro a iniciar o programa//"
              "Provavelmente falta instalar componentes/Instalar \\?//Confirma \\?\n"
              "zunwiz: the wizard could not be built: Overflow \\(option file line 9\\)\n$");
  unsetenv("ZW_TEST_RUN_CRI");
  fs::remove_all(d);
}
