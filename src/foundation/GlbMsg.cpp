// Message boxes: the type-text language, the confirmation and error boxes, and the
// hand-over of messages to the log object when no box may be shown.
#include "GlbMsg.h"
#include "DbgFx.h"
#include "MsgDlg.h"
#include "TxtGlb.h"
#include "Var.h"

namespace zw {

namespace {
std::function<void(const Tx&, const Tx&)> gLog;
Tx gLogGrp;
int gSemDlg = 0;

bool Tem(const Tx& t, const char16_t* m) { return t.find(m) != Tx::npos; }

}  // namespace

// Marks are searched in the table's order, case-sensitive, wherever they stand; a
// later mark of a group wins over an earlier one, so "SNC" (tested after "SN")
// gives Yes/No/Cancel and "X" beats the other icons.
int MsgEstilo(const Tx& tipo, bool* bip) {
  if (bip) *bip = Tem(tipo, u"_B");
  int ico = kMsgInformation, bot = kMsgOk, def = 0;
  if (Tem(tipo, u"!")) ico = kMsgExclamation;
  if (Tem(tipo, u"?")) ico = kMsgQuestion;
  if (Tem(tipo, u"I")) ico = kMsgInformation;
  if (Tem(tipo, u"X")) ico = kMsgCritical;
  if (Tem(tipo, u"SN")) bot = kMsgYesNo;
  if (Tem(tipo, u"CNF")) bot = kMsgOk;
  if (Tem(tipo, u"SNC")) bot = kMsgYesNoCancel;
  if (Tem(tipo, u"SC")) bot = kMsgOkCancel;
  if (Tem(tipo, u"2")) def = kMsgDefault2;
  if (Tem(tipo, u"3")) def = kMsgDefault3;
  return ico + bot + def;
}

void MsgExe(const Tx& tipo, const Tx& tit, const Tx& msg, int& res) {
  Tx tx;
  MsgTxLin(msg, tx);
  MsgTxTab(tx);
  bool bip = false;
  int est = MsgEstilo(tipo, &bip);
  if (gSemDlg == 1) {
    res = 0;
    Tx item;
    OpcTxAct(item, u"TPM", Var(tipo));
    OpcTxAct(item, u"TIT", Var(tit));
    OpcTxAct(item, u"MSG", Var(msg));
    OpcTxAct(item, u"RES", Var(int16_t(res)));
    MsgLogReg(item);
    return;
  }
  if (bip) MsgDlgAct().Bip();
  const bool pal = MsgDlgPal();
  MsgDlgPalDef(true);
  int r = MsgDlgAct().Caixa(est, tit, tx);
  MsgDlgPalDef(pal);
  switch (r) {
    case kAnsOk: case kAnsYes: res = 1; break;
    case kAnsNo: res = 0; break;
    case kAnsCancel: res = -1; break;
    default: res = r;
  }
}

// "TIT" as the message shows the title argument as given, even "".
void MsgCnf(const Tx& tit, const Tx& msg, int& res) {
  Tx t = tit.empty() ? Tx(u"Executar") : tit;
  Tx m = msg == u"TIT" ? tit : msg;
  m += u"||Confirma ?";
  int r = 0;
  MsgExe(u"? SN 2 _B", t, m, r);
  res = r == 1 ? 1 : 0;
}

void MsgErr(const Tx& tit, const Tx& msg, int errNum) {
  Tx t = tit.empty() ? Tx(u"Mensagem de Erro") : tit;
  Tx m = msg;
  if (errNum != 0) {
    Tx etx, fonte;
    ErrDad(errNum, etx, fonte);
    m += u"||" + etx;
  }
  int r = 0;
  MsgExe(u"X _B", t, m, r);
}

void MsgTxLin(Tx& v) { TxSepTro(v, u"|", u"\r\n"); }
void MsgTxLin(const Tx& v, Tx& res) {
  res = v;
  MsgTxLin(res);
}
void MsgTxTab(Tx& v) { TxSepTro(v, u"\u00BB", u"\t"); }
void MsgTxTab(const Tx& v, Tx& res) {
  res = v;
  MsgTxTab(res);
}

// A register that cannot be written reports it with a box; with the no-dialog
// flag that box comes back here, so a message handed over while another one is
// being written is dropped instead of going round for ever.
void MsgLogReg(const Tx& item) {
  static bool dentro = false;
  if (!gLog || dentro) return;
  dentro = true;
  gLog(item, gLogGrp);
  dentro = false;
}

void MsgLogFxDef(std::function<void(const Tx& item, const Tx& grp)> f) { gLog = std::move(f); }
void MsgLogGrpDef(const Tx& grp) { gLogGrp = grp; }
void MsgSemDlgDef(int flag) { gSemDlg = flag; }
int MsgSemDlg() { return gSemDlg; }

}  // namespace zw
