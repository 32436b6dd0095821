// LibMisc: the locale functions, RGB, the boxes, GetObject, LoadPicture and the vb
// constants.

#include "Engine.h"
#include "FicInf.h"
#include "Lib.h"
#include "MsgDlg.h"

namespace vbs {

namespace {

void FnGetLocale(Args, Value& r) { r = Value(int32_t(LocAct().id)); }

// SetLocale(id or name): gives the locale that was in force; 5 for an unknown one.
void FnSetLocale(Args a, Value& r) {
  int ant = LocAct().id;
  int id = 0;
  if (a.Has(0)) {
    const Value& v = a[0];
    if (v.IsStr()) {
      double d;
      if (v.s->len == 0) id = 0;
      else if (TxNum(v.Sv(), d)) id = int(d);
      else {
        const Locale* l = LocPorNome(v.Sv());
        if (!l) Raise(5);
        id = l->id;
      }
    } else {
      id = ToLng(v);
    }
  }
  if (!LocDef(id)) Raise(5);
  r = Value(int32_t(ant));
}

void FnRGB(Args a, Value& r) {
  int32_t c[3];
  for (int i = 0; i < 3; i++) {
    c[i] = ToLng(a[i]);
    if (c[i] < 0) Raise(5);
    if (c[i] > 255) c[i] = 255;
  }
  r = Value(int32_t(c[0] + c[1] * 256 + c[2] * 65536));
}

// The host's policy, when it has set one.
HostPolicy* Pol() {
  Engine* e = CurEngine();
  return e ? e->policy.get() : nullptr;
}

// MsgBox(prompt[, buttons[, title[, helpfile, context]]]) through the dialog
// service, or answered by the host's policy.
void FnMsgBox(Args a, Value& r) {
  Tx p = ToTx(a[0]);
  int32_t est = ArgLng(a, 1, 0);
  Tx t = a.Has(2) ? ToTx(a[2]) : Tx(u"VBScript");
  int32_t b = 0;
  if (HostPolicy* h = Pol(); h && h->MsgBox(p, t, est, b)) {
    r = Value(int16_t(b));
    return;
  }
  r = Value(int16_t(zw::MsgDlgAct().Caixa(est, t, p)));
}

// InputBox(prompt[, title[, default[, ...]]]): the text typed, Empty when
// cancelled; or the host's policy's answer.
void FnInputBox(Args a, Value& r) {
  Tx p = ToTx(a[0]);
  Tx t = a.Has(1) ? ToTx(a[1]) : Tx(u"VBScript");
  Tx d = a.Has(2) ? ToTx(a[2]) : Tx();
  if (HostPolicy* h = Pol(); h && h->InputBox(p, t, d, r)) return;
  Tx resp;
  if (zw::MsgDlgAct().Entrada(t, p, d, resp)) r = Value(TxV(resp));
  else r = Value();
}

// GetObject([path][, class]): the host's policy answers first; then with a class and
// no path it is CreateObject; documents and monikers have no server here.
void FnGetObject(Args a, Value& r) {
  Tx cam = a.Has(0) ? ToTx(a[0]) : Tx();
  if (HostPolicy* h = Pol())
    if (Ref<Obj> o = h->Object(a.Has(1) ? ToTx(a[1]) : Tx(), cam, true)) {
      r = Value(o);
      return;
    }
  if (a.Has(1) && cam.empty()) {
    r = Value(NewObj(ToTx(a[1])));
    return;
  }
  Raise(429);
}

// Pictures are window-system objects, which the engine does not have: a missing file
// is 53, any other is an invalid picture.
void FnLoadPicture(Args a, Value&) {
  std::string f = zw::TxUtf8(ToTx(a[0]));
  for (char& c : f)
    if (c == '\\') c = '/';
  if (zw::FicInfTip(f) == zw::kFicNada) Raise(53);
  Raise(481);
}

struct Kn {
  const char* n;
  int32_t v;
};

}  // namespace

void LibMiscReg() {
  DefFns({
      {"GetLocale", 0, 0, FnGetLocale}, {"SetLocale", 0, 1, FnSetLocale},
      {"RGB", 3, 3, FnRGB},             {"MsgBox", 1, 5, FnMsgBox},
      {"InputBox", 1, 7, FnInputBox},   {"GetObject", 0, 2, FnGetObject},
      {"LoadPicture", 1, 1, FnLoadPicture},
  });
  DefConst("vbCr", Value(u"\r"));
  DefConst("vbLf", Value(u"\n"));
  DefConst("vbCrLf", Value(u"\r\n"));
  DefConst("vbNewLine", Value(u"\r\n"));
  DefConst("vbTab", Value(u"\t"));
  DefConst("vbFormFeed", Value(u"\f"));
  DefConst("vbVerticalTab", Value(u"\v"));
  DefConst("vbNullChar", Value(TxV(u"\0", 1)));
  DefConst("vbNullString", Value(u""));
  // Colours and the flags past 16 bits are Long, and vbMsgBoxHelpButton too, as
  // Windows types it; the rest are Integer.
  static const Kn kLng[] = {
      {"vbObjectError", int32_t(0x80040000)}, {"vbMsgBoxHelpButton", 16384}, {"vbBlack", 0}, {"vbRed", 0xFF},
      {"vbGreen", 0xFF00}, {"vbYellow", 0xFFFF}, {"vbBlue", 0xFF0000},
      {"vbMagenta", 0xFF00FF}, {"vbCyan", 0xFFFF00}, {"vbWhite", 0xFFFFFF},
      {"vbMsgBoxSetForeground", 65536}, {"vbMsgBoxRight", 524288},
      {"vbMsgBoxRtlReading", 1048576},
  };
  for (const Kn& k : kLng) DefConst(k.n, Value(k.v));
  static const Kn kInt[] = {
      {"vbBinaryCompare", 0}, {"vbTextCompare", 1}, {"vbDatabaseCompare", 2},
      {"vbUseSystemDayOfWeek", 0}, {"vbSunday", 1}, {"vbMonday", 2}, {"vbTuesday", 3},
      {"vbWednesday", 4}, {"vbThursday", 5}, {"vbFriday", 6}, {"vbSaturday", 7},
      {"vbUseSystem", 0}, {"vbFirstJan1", 1}, {"vbFirstFourDays", 2}, {"vbFirstFullWeek", 3},
      {"vbGeneralDate", 0}, {"vbLongDate", 1}, {"vbShortDate", 2}, {"vbLongTime", 3},
      {"vbShortTime", 4}, {"vbTrue", -1}, {"vbFalse", 0}, {"vbUseDefault", -2},
      {"vbOKOnly", 0}, {"vbOKCancel", 1}, {"vbAbortRetryIgnore", 2}, {"vbYesNoCancel", 3},
      {"vbYesNo", 4}, {"vbRetryCancel", 5}, {"vbCritical", 16}, {"vbQuestion", 32},
      {"vbExclamation", 48}, {"vbInformation", 64}, {"vbDefaultButton1", 0},
      {"vbDefaultButton2", 256}, {"vbDefaultButton3", 512}, {"vbDefaultButton4", 768},
      {"vbApplicationModal", 0}, {"vbSystemModal", 4096},
      {"vbOK", 1}, {"vbCancel", 2}, {"vbAbort", 3}, {"vbRetry", 4}, {"vbIgnore", 5},
      {"vbYes", 6}, {"vbNo", 7}, {"vbEmpty", 0}, {"vbNull", 1}, {"vbInteger", 2},
      {"vbLong", 3}, {"vbSingle", 4}, {"vbDouble", 5}, {"vbCurrency", 6}, {"vbDate", 7},
      {"vbString", 8}, {"vbObject", 9}, {"vbError", 10}, {"vbBoolean", 11},
      {"vbVariant", 12}, {"vbDataObject", 13}, {"vbDecimal", 14}, {"vbByte", 17},
      {"vbArray", 8192},
  };
  for (const Kn& k : kInt) DefConst(k.n, Value(int16_t(k.v)));
}

}  // namespace vbs
