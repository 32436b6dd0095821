// MsgDlg: the dialog service behind every box the system shows.
// The core never draws a box itself: it hands a style code, a title and a text
// (lines already broken with CR LF, tabs already in place) to the service in force.
// The Qt program installs a real message box; tests install one that records what
// would have been shown; without either, a text-mode service writes the box to
// stderr and answers with its default button, so an unattended run never blocks.
#pragma once
#include "Tx.h"

namespace zw {

// Style codes, summed as the Windows message box has them.
enum : int {
  kMsgOk = 0, kMsgOkCancel = 1, kMsgAbortRetryIgnore = 2, kMsgYesNoCancel = 3, kMsgYesNo = 4,
  kMsgRetryCancel = 5,
  kMsgCritical = 16, kMsgQuestion = 32, kMsgExclamation = 48, kMsgInformation = 64,
  kMsgDefault2 = 256, kMsgDefault3 = 512, kMsgDefault4 = 768,
};
// Answers, as the Windows message box reports them.
enum : int { kAnsOk = 1, kAnsCancel = 2, kAnsAbort = 3, kAnsRetry = 4, kAnsIgnore = 5, kAnsYes = 6, kAnsNo = 7 };

class MsgDlg {
 public:
  virtual ~MsgDlg() = default;
  // Shows a modal box and gives the answer code of the button chosen.
  virtual int Caixa(int estilo, const Tx& titulo, const Tx& texto) = 0;
  // Sounds the system beep.
  virtual void Bip() = 0;
  // Asks for a line of text; false when the user cancels.
  virtual bool Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) = 0;
};

// The service in force (never null). MsgDlgDef(nullptr) puts the text-mode one back.
MsgDlg& MsgDlgAct();
void MsgDlgDef(MsgDlg* d);

// The answer that a box of this style gives when its default button is taken.
int MsgRespOmissao(int estilo);
// The answer codes of the buttons of a box of this style, in order; gives how many.
int MsgBotoes(int estilo, int bot[3]);

// True while the box in hand answers its caller with a result word (1 OK or yes,
// 0 no, -1 cancel), as the type-text boxes of GlbMsg do, rather than with the
// answer code itself, as the script language's MsgBox does. A service that reports
// what was answered reads it.
bool MsgDlgPal();
void MsgDlgPalDef(bool pal);

}  // namespace zw
