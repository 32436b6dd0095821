// ZunLab: the label of the wizard window (the laWiz array).
// It draws its caption itself, so that it wraps, aligns and measures as the
// platform's label did: the text always wraps at words inside the width; with
// AutoSize the label takes the size of its text - growing sideways, or, with
// WordWrap, keeping its width and growing downwards. BackStyle 0 paints no
// background, so whatever the window draws behind (its picture) shows through.
#pragma once
#include <QWidget>
#include "CtlQt.h"

namespace zw {

class ZunLab : public QWidget, public CtlQt {
 public:
  explicit ZunLab(QWidget* pai = nullptr);

  const QString& Caption() const { return cap_; }
  void Caption(const QString& c);
  int Alignment() const { return aln_; }  // 0 left, 1 right, 2 centre
  void Alignment(int a);
  bool AutoSize() const { return autoSize_; }
  void AutoSize(bool b);
  bool WordWrap() const { return wordWrap_; }
  void WordWrap(bool b);
  int BackStyle() const { return backStyle_; }  // 0 transparent, 1 opaque
  void BackStyle(int b);

 protected:
  bool PrpTipCon(TxV nome, Var& v) const override;
  bool PrpTipAtr(TxV nome, const Var& v) override;
  void FonAct() override { Ajusta(); }
  void CorAct() override { update(); }
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  void Ajusta();     // the AutoSize rule, after anything that changes the text's size
  int Flags() const;
  QString TxDesenho() const;  // the caption with its line ends as the painter wants them
  QString cap_;
  int aln_ = 0;
  bool autoSize_ = false, wordWrap_ = false;
  int backStyle_ = 1;
  bool ajustando_ = false;
};

}  // namespace zw
