// GlbMsg: message boxes and confirmations.
// A caller never names box styles: it passes a type text whose marks select icon,
// buttons, default button and beep ("? SN 2 _B"), a title, and a message in which
// "|" breaks a line and "»" is a tab. Every box goes through the dialog service of
// MsgDlg.h. Result words: 1 OK or Yes, 0 No, -1 Cancel.
#pragma once
#include <functional>
#include "Tx.h"

namespace zw {

// The style code of a type text (icon + buttons + default) and whether it beeps.
int MsgEstilo(const Tx& tipo, bool* bip = nullptr);
void MsgExe(const Tx& tipo, const Tx& tit, const Tx& msg, int& res);
void MsgCnf(const Tx& tit, const Tx& msg, int& res);  // "? SN 2 _B", 1 Yes, 0 No
void MsgErr(const Tx& tit, const Tx& msg, int errNum);
// "|" to CR LF and "»" to tab; with a result argument the value stays as it is.
void MsgTxLin(Tx& v);
void MsgTxLin(const Tx& v, Tx& res);
void MsgTxTab(Tx& v);
void MsgTxTab(const Tx& v, Tx& res);
// Hands an item text to the log object's group register; nothing without one.
void MsgLogReg(const Tx& item);

// The log object, as a hook that files an item under a group, and the group (no
// hook and "" unless a program fills them). The log registers live above this
// layer; SupLogReg.h installs one of them here with MsgLogDef.
void MsgLogFxDef(std::function<void(const Tx& item, const Tx& grp)> f);
void MsgLogGrpDef(const Tx& grp);
// The no-dialog flag: with 1, MsgExe shows nothing, answers 0 and logs the message.
void MsgSemDlgDef(int flag);
int MsgSemDlg();

}  // namespace zw
