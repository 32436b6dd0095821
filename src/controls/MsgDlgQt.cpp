// The Qt dialog service: QMessageBox for boxes, QInputDialog for questions.
#include "MsgDlgQt.h"
#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTranslator>
#include "TxQt.h"

namespace zw {

namespace {

// The buttons of each button set of the style code, in order, as answer codes.
const int kSets[6][3] = {
    {kAnsOk, 0, 0},         {kAnsOk, kAnsCancel, 0}, {kAnsAbort, kAnsRetry, kAnsIgnore},
    {kAnsYes, kAnsNo, kAnsCancel}, {kAnsYes, kAnsNo, 0},   {kAnsRetry, kAnsCancel, 0}};

// The Qt button of an answer code.
QMessageBox::StandardButton BtnQt(int ans) {
  switch (ans) {
    case kAnsOk: return QMessageBox::Ok;
    case kAnsCancel: return QMessageBox::Cancel;
    case kAnsAbort: return QMessageBox::Abort;
    case kAnsRetry: return QMessageBox::Retry;
    case kAnsIgnore: return QMessageBox::Ignore;
    case kAnsYes: return QMessageBox::Yes;
    case kAnsNo: return QMessageBox::No;
  }
  return QMessageBox::NoButton;
}

// The icon of the style code's icon bits; none for a code without one.
QMessageBox::Icon IcoQt(int estilo) {
  switch (estilo & 0x70) {
    case kMsgCritical: return QMessageBox::Critical;
    case kMsgQuestion: return QMessageBox::Question;
    case kMsgExclamation: return QMessageBox::Warning;
    case kMsgInformation: return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

// CR LF and lone CR become the one line break a Qt label knows.
QString TxtQt(const Tx& t) {
  QString s = QsTx(t);
  s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  s.replace(QChar(u'\r'), QChar(u'\n'));
  return s;
}

}  // namespace

QMessageBox* MsgCaixaCri(int estilo, const Tx& titulo, const Tx& texto) {
  int set = estilo & 7;
  if (set > 5) set = 0;
  auto* box = new QMessageBox(IcoQt(estilo), QsTx(titulo), TxtQt(texto));
  box->setTextFormat(Qt::PlainText);
  box->setWindowModality(Qt::ApplicationModal);
  int n = 0;
  QPushButton* btn[3] = {};
  for (; n < 3 && kSets[set][n]; n++) btn[n] = box->addButton(BtnQt(kSets[set][n]));
  // The default button: 256 the second, 512 the third; one past the set means the first.
  int def = (estilo >> 8) & 3;
  if (def >= n) def = 0;
  box->setDefaultButton(btn[def]);
  // Escape and the close box answer Cancel where the set has one, OK when OK is alone.
  for (int i = 0; i < n; i++)
    if (kSets[set][i] == kAnsCancel || (n == 1 && kSets[set][i] == kAnsOk)) box->setEscapeButton(btn[i]);
  return box;
}

int MsgCaixaResp(QMessageBox* box) {
  QAbstractButton* b = box->clickedButton();
  if (!b) return 0;
  switch (box->standardButton(b)) {
    case QMessageBox::Ok: return kAnsOk;
    case QMessageBox::Cancel: return kAnsCancel;
    case QMessageBox::Abort: return kAnsAbort;
    case QMessageBox::Retry: return kAnsRetry;
    case QMessageBox::Ignore: return kAnsIgnore;
    case QMessageBox::Yes: return kAnsYes;
    case QMessageBox::No: return kAnsNo;
    default: return 0;
  }
}

// Shows the box and waits; a box closed without any button (which the escape
// rules above make rare) counts as its default button.
int MsgDlgQt::Caixa(int estilo, const Tx& titulo, const Tx& texto) {
  QMessageBox* box = MsgCaixaCri(estilo, titulo, texto);
  box->exec();
  int r = MsgCaixaResp(box);
  delete box;
  return r ? r : MsgRespOmissao(estilo);
}

QTranslator* MsgTraCar(const QLocale& loc) {
  const QString dir = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  auto* tr = new QTranslator(QCoreApplication::instance());
  bool ok = tr->load(loc, QStringLiteral("qtbase"), QStringLiteral("_"), dir);
  if (!ok && loc.language() != QLocale::C && loc.language() != QLocale::English) {
    QString lng = loc.name().section(u'_', 0, 0);
    const QStringList fic =
        QDir(dir).entryList({QStringLiteral("qtbase_") + lng + QStringLiteral("_*.qm")}, QDir::Files, QDir::Name);
    for (const QString& f : fic)
      if ((ok = tr->load(f, dir))) break;
  }
  if (ok) ok = QCoreApplication::installTranslator(tr);
  if (ok) return tr;
  delete tr;
  return nullptr;
}

void MsgDlgQt::Bip() { QApplication::beep(); }

bool MsgDlgQt::Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) {
  bool ok = false;
  QString r = QInputDialog::getText(QApplication::activeWindow(), QsTx(titulo), QsTx(pergunta),
                                    QLineEdit::Normal, QsTx(omissao), &ok);
  if (ok) resposta = TxQs(r);
  return ok;
}

}  // namespace zw
