// CtlObj: a control of a window as the core sees it.
// The core has no window toolkit: the engine, the colour functions and the script
// library reach a control by the names of its properties and methods, as late-bound
// calls reached the platform's controls ("Left", "Caption", "Value", "Visible",
// "LoadFile", "RegOpc"...). The widgets of the Qt layer implement it. A name the
// control does not have raises error 438, so that "Align" set on a label fails as it
// always did. Geometry is in twips; colours are colour numbers (0x00BBGGRR).
#pragma once
#include <stdexcept>
#include <string>
#include <vector>
#include "GlbVar.h"
#include "Var.h"

namespace zw {

// An error raised by number inside a control or a window (438: no such property or
// method; 380: invalid property value; 360: element already loaded). Callers that
// pass errors over catch it; its text, the reason they trace, says the number when
// the thrower gives no other.
struct CtlErr : std::runtime_error {
  int num;
  explicit CtlErr(int n, const char* what = nullptr)
      : std::runtime_error(what ? std::string(what) : "control error " + std::to_string(n)), num(n) {}
};

// Properties every control has: "Left", "Top", "Width", "Height" (twips), "Visible",
// "Enabled", "FontName", "FontSize", "FontBold", "FontItalic", "BackColor",
// "ForeColor"; methods "Refresh" and "ZOrder"(0 front, 1 back). Then, by kind:
//   button          "Caption"
//   label           "Caption", "Alignment" (0 left, 1 right, 2 centre), "AutoSize",
//                   "WordWrap", "BackStyle" (0 transparent, 1 opaque)
//   check box       "Caption", "Value" (0/1, 2 greyed), "BackStyle" (1 transparent)
//   rich-text box   "Text", "BackStyle"; method "LoadFile"(path)
//   option group    "Caption", "BorderVisible", "opcUsa", "TitAli", "CapColor";
//                   methods "CorTip"(word), "RegIni", "RegOpc"(text, add),
//                   "ConOpc"(i, text out, add out), "RegOpcPos"(i, x, y),
//                   "RegAsp"(x, y, sx, sy), "AjtPosY"(top, bottom, centred),
//                   "OpcNum"(count out); its "FontName", "FontSize" and "FontBold"
//                   are only stored, and it has no "FontItalic"
struct CtlObj : CtlCor {
  // Reads a property; throws CtlErr(438) when the control has none of that name.
  virtual Var PrpCon(TxV nome) const = 0;
  // Sets a property; throws CtlErr(438) for an unknown name, CtlErr(380) for a value
  // the property cannot take.
  virtual void PrpAtr(TxV nome, const Var& val) = 0;
  // Calls a method; arguments are in and out (ConOpc fills its last two). Throws
  // CtlErr(438) for an unknown method.
  virtual Var Exe(TxV nome, std::vector<Var>& args) = 0;

  // The foundation's colour calls go through the properties.
  bool PoeCorFun(long cor) override;
  bool PoeCorTx(long cor) override;
  bool Prop(CtlProp p, Var& v) const override;
};

}  // namespace zw
