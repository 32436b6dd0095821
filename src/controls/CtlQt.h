// CtlQt: what the Qt controls of the wizard window share.
// Every control is a QWidget that the core reaches by property names (CtlObj).
// This base keeps the properties all kinds have - geometry in twips, Visible,
// Enabled, the font by name, size, bold and italic, the back and fore colour
// numbers, and for a window of its own (a form) "WindowState" - and hands the rest
// to the kind. Twips become whole pixels at the screen's twips a pixel (Twp.h), so a
// value read back is the pixel it landed on.
// A wrapper that outlives its widget answers every name with error 438, as a
// control that has gone.
#pragma once
#include <QColor>
#include <QFont>
#include <QPointer>
#include <QWidget>
#include "CtlObj.h"
#include "Twp.h"

namespace zw {

// Fonts, and the rich text inside a box, are drawn at 96 dots an inch whatever the
// screen: the option files' pages, laid out in pixels, were measured with them so.
constexpr double kFonDpi = 96;

// The colour of a colour number: 0x00BBGGRR, or a system colour 0x800000nn
// (button face, window text...) in the colours of the classic Windows desktop.
// Other numbers (-1 and the like) draw as black.
QColor CorQt(long cor);

// The Qt font of a Windows font: family from the font table, size in points
// turned into whole pixels at kFonDpi, as the original drew it.
QFont FonQt(const QString& nome, double pt, bool bold, bool italic);

// The property names are compared case-blind, as late binding did.
bool PrpIgual(TxV a, TxV b);
// A property value as a number; a text that holds no number is error 13.
double PrpNum(const Var& v);
// A property value as a boolean (any non-zero number is true).
bool PrpBool(const Var& v);
// A property value as a colour number (32 bits; system colours are negative).
long PrpCor(const Var& v);

class CtlQt : public CtlObj {
 public:
  explicit CtlQt(QWidget* w) : w_(w), viv_(w) {}

  Var PrpCon(TxV nome) const override;
  void PrpAtr(TxV nome, const Var& val) override;
  Var Exe(TxV nome, std::vector<Var>& args) override;

  QWidget* Wid() const { return viv_.data(); }  // null once the widget is destroyed
  // The font as set by name (FontName gives the Windows name back).
  const QString& FonNom() const { return fonNom_; }
  double FonTam() const { return fonTam_; }
  bool FonNeg() const { return fonNeg_; }
  bool FonIta() const { return fonIta_; }
  void FonPoe(const QString& nome, double pt, bool bold, bool italic);
  long CorFun() const { return corFun_; }
  long CorTx() const { return corTx_; }

 protected:
  // The kind's own properties and methods: true when it knows the name. The
  // common ones are asked after the kind's, so a kind can take one over.
  virtual bool PrpTipCon(TxV nome, Var& v) const { (void)nome; (void)v; return false; }
  virtual bool PrpTipAtr(TxV nome, const Var& v) { (void)nome; (void)v; return false; }
  virtual bool ExeTip(TxV nome, std::vector<Var>& args, Var& res) {
    (void)nome; (void)args; (void)res;
    return false;
  }
  // Told after the font or a colour changed, to repaint and size anew.
  virtual void FonAct() {}
  virtual void CorAct() {}
  // Whether the kind has the property FontItalic (the option group has not).
  virtual bool TemIta() const { return true; }

  QWidget* w_;
  QPointer<QWidget> viv_;  // w_ while it lives
  QString fonNom_ = QStringLiteral("MS Sans Serif");
  double fonTam_ = 8.25;
  bool fonNeg_ = false, fonIta_ = false;
  long corFun_ = 0x8000000F;  // button face
  long corTx_ = 0x80000012;   // button text
};

}  // namespace zw
