// MsgDlgQt: the dialog service of the Qt program.
// Every box of the core arrives here as a style code, a title and a text; this
// service turns them into a modal QMessageBox with the icon, the buttons and the
// default button that the code selects, and answers with the code of the button
// chosen. Installed by the zunwiz program at start with zw::MsgDlgDef.
#pragma once
#include "MsgDlg.h"

class QLocale;
class QMessageBox;
class QTranslator;

namespace zw {

class MsgDlgQt : public MsgDlg {
 public:
  int Caixa(int estilo, const Tx& titulo, const Tx& texto) override;
  void Bip() override;
  bool Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) override;
};

// Builds, without showing it, the box that Caixa shows: parent-less, modal,
// plain text. Kept apart so that its shape can be checked without a user.
QMessageBox* MsgCaixaCri(int estilo, const Tx& titulo, const Tx& texto);

// The answer code of a button of a box made by MsgCaixaCri (0 when unknown).
int MsgCaixaResp(QMessageBox* box);

// Loads Qt's own translations for the locale into the application, so that the
// standard buttons and the input box read in the user's language as in other Qt
// programs: "qtbase_" with the locale's name from Qt's translations folder, or,
// where Qt has no file for that country, another of the same language
// ("qtbase_pt_BR" for pt_PT). The translator installed, owned by the
// application; null when there is none, and English stays. The system's own
// texts are not touched.
QTranslator* MsgTraCar(const QLocale& loc);

}  // namespace zw
