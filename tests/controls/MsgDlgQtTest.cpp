// The Qt message box: the shape a style code gives, and the answer of a real box.
#include <gtest/gtest.h>
#include <QApplication>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTranslator>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include "CtlTst.h"
#include "MsgDlgQt.h"

using namespace zw;
using zw::tst::QtApp;

namespace {

// The answer code of one of the box's buttons.
int Resp(QMessageBox* b, QAbstractButton* x) {
  const std::pair<QMessageBox::StandardButton, int> m[] = {
      {QMessageBox::Ok, kAnsOk},       {QMessageBox::Cancel, kAnsCancel}, {QMessageBox::Abort, kAnsAbort},
      {QMessageBox::Retry, kAnsRetry}, {QMessageBox::Ignore, kAnsIgnore}, {QMessageBox::Yes, kAnsYes},
      {QMessageBox::No, kAnsNo}};
  for (auto [q, c] : m)
    if (b->standardButton(x) == q) return c;
  return 0;
}

// The answer codes of all the box's buttons, sorted.
std::vector<int> Botoes(QMessageBox* b) {
  std::vector<int> r;
  for (QAbstractButton* x : b->buttons()) r.push_back(Resp(b, x));
  std::sort(r.begin(), r.end());
  return r;
}

}  // namespace

// Icon bits, button set and default button each select their part of the box.
TEST(MsgDlgQt, StyleCodeSelectsIconButtonsAndDefault) {
  QtApp();
  struct Caso { int estilo; QMessageBox::Icon ico; std::vector<int> bot; int def; };
  const Caso casos[] = {
      {kMsgCritical, QMessageBox::Critical, {kAnsOk}, kAnsOk},
      {kMsgQuestion + kMsgYesNo + kMsgDefault2, QMessageBox::Question, {kAnsYes, kAnsNo}, kAnsNo},
      {kMsgExclamation + kMsgOk, QMessageBox::Warning, {kAnsOk}, kAnsOk},
      {kMsgInformation + kMsgYesNoCancel + kMsgDefault3, QMessageBox::Information,
       {kAnsCancel, kAnsYes, kAnsNo}, kAnsCancel},
      {kMsgInformation + kMsgOkCancel + kMsgDefault2, QMessageBox::Information, {kAnsOk, kAnsCancel}, kAnsCancel},
      {kMsgAbortRetryIgnore + kMsgDefault3, QMessageBox::NoIcon, {kAnsAbort, kAnsRetry, kAnsIgnore}, kAnsIgnore},
      {kMsgRetryCancel, QMessageBox::NoIcon, {kAnsCancel, kAnsRetry}, kAnsRetry},
      // A default past the set's last button falls back to the first.
      {kMsgInformation + kMsgOk + kMsgDefault3, QMessageBox::Information, {kAnsOk}, kAnsOk},
      {kMsgYesNo + kMsgDefault4, QMessageBox::NoIcon, {kAnsYes, kAnsNo}, kAnsYes},
  };
  for (const Caso& c : casos) {
    std::unique_ptr<QMessageBox> b(MsgCaixaCri(c.estilo, u"T", u"x"));
    std::vector<int> bot = c.bot;
    std::sort(bot.begin(), bot.end());
    EXPECT_EQ(b->icon(), c.ico) << c.estilo;
    EXPECT_EQ(Botoes(b.get()), bot) << c.estilo;
    EXPECT_EQ(Resp(b.get(), b->defaultButton()), c.def) << c.estilo;
  }
}

// The title and text go over as given, CR LF as one line break, and in plain text
// so that "<" reaches the user as typed.
TEST(MsgDlgQt, TitleAndTextArePlain) {
  QtApp();
  std::unique_ptr<QMessageBox> b(MsgCaixaCri(kMsgCritical, u"Opções", u"a <b>\r\n\r\nc\td"));
  EXPECT_EQ(b->windowTitle(), QStringLiteral("Opções"));
  EXPECT_EQ(b->text(), QStringLiteral("a <b>\n\nc\td"));
  EXPECT_EQ(b->textFormat(), Qt::PlainText);
}

// A real box, answered by a click on one of its buttons or by Escape.
TEST(MsgDlgQt, AnswerIsTheCodeOfTheButtonPressed) {
  QtApp();
  MsgDlgQt dlg;
  auto responde = [&](int estilo, QMessageBox::StandardButton qual, bool escape = false) {
    QTimer::singleShot(0, [qual, escape] {
      auto* b = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!b) return;
      if (escape) {
        QKeyEvent k(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(b, &k);
      } else {
        b->button(qual)->click();
      }
    });
    return dlg.Caixa(estilo, u"T", u"x");
  };
  EXPECT_EQ(responde(kMsgYesNo + kMsgDefault2, QMessageBox::Yes), kAnsYes);
  EXPECT_EQ(responde(kMsgYesNo, QMessageBox::No), kAnsNo);
  EXPECT_EQ(responde(kMsgYesNoCancel, QMessageBox::Cancel), kAnsCancel);
  EXPECT_EQ(responde(kMsgAbortRetryIgnore, QMessageBox::Ignore), kAnsIgnore);
  // Escape answers Cancel where the set has one, and OK on a box with OK alone.
  EXPECT_EQ(responde(kMsgYesNoCancel, QMessageBox::NoButton, true), kAnsCancel);
  EXPECT_EQ(responde(kMsgOk, QMessageBox::NoButton, true), kAnsOk);
}

// The question box offers the default text; OK gives what the field holds, Cancel
// gives false and leaves the answer alone.
TEST(MsgDlgQt, EntradaGivesTheTextOrCancel) {
  QtApp();
  MsgDlgQt dlg;
  auto responde = [&](const QString& escrito, bool ok, Tx& resp) {
    QTimer::singleShot(0, [escrito, ok] {
      auto* d = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      if (!d) return;
      EXPECT_EQ(d->textValue(), QStringLiteral("C:\\Prog"));
      EXPECT_EQ(d->labelText(), QStringLiteral("Pasta ?"));
      d->setTextValue(escrito);
      ok ? d->accept() : d->reject();
    });
    return dlg.Entrada(u"Instalar", u"Pasta ?", u"C:\\Prog", resp);
  };
  Tx r = u"antes";
  EXPECT_TRUE(responde(QStringLiteral("D:\\Outra"), true, r));
  EXPECT_EQ(r, u"D:\\Outra");
  r = u"antes";
  EXPECT_FALSE(responde(QStringLiteral("x"), false, r));
  EXPECT_EQ(r, u"antes");
}

// Under a Portuguese locale the standard buttons take Qt's own translations, as in
// other Qt programs; pt_PT, for which Qt has no file of its own, gets Brazil's.
// Removing the translator gives English back, so the texts are Qt's and not ours.
TEST(MsgDlgQt, ButtonsReadInTheUserLanguage) {
  QtApp();
  for (const char* nome : {"pt_BR", "pt_PT"}) {
    SCOPED_TRACE(nome);
    QTranslator* tr = MsgTraCar(QLocale(QString::fromLatin1(nome)));
    if (!tr) GTEST_SKIP() << "Qt's Portuguese translations (qtbase_pt*.qm) are not installed";
    std::unique_ptr<QMessageBox> b(MsgCaixaCri(kMsgYesNoCancel, u"T", u"x"));
    QStringList t;
    for (QAbstractButton* x : b->buttons()) t << x->text().remove(u'&');
    t.sort();
    EXPECT_EQ(t, (QStringList{QStringLiteral("Cancelar"), QStringLiteral("Não"), QStringLiteral("Sim")}));
    QCoreApplication::removeTranslator(tr);
    delete tr;
    std::unique_ptr<QMessageBox> e(MsgCaixaCri(kMsgYesNoCancel, u"T", u"x"));
    EXPECT_EQ(e->button(QMessageBox::Yes)->text().remove(u'&'), QStringLiteral("Yes"));
  }
  EXPECT_EQ(MsgTraCar(QLocale(QLocale::C)), nullptr);
}
