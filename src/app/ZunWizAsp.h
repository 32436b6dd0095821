// ZunWizAsp: the wizard window. It holds the four navigation buttons and hands
// each click to the engine; the engine builds the pages' components on it. A new
// window is made for each attempt of the start-up, and shown modally by WizExe.
#pragma once
#include <QDialog>
#include "WizFrm.h"

class QPushButton;

namespace zw {

class ZunWizAsp : public QDialog, public WizFrm {
 public:
  ZunWizAsp();
  ~ZunWizAsp() override;
  void FormLoad();                 // raised
  void WizExe(SupWiz& eng) override;
  void WizZunOpcIni() {}
  void FrmPrep(const Tx& pal, int16_t& st);

  // The window as the engine sees it. The control arrays are not built yet: no
  // control is loaded and none can be.
  void Caption(const Tx& tx) override;
  void Picture(const Tx&) override {}
  void Icon(const Tx&) override {}
  void Width(double twp) override;
  void Height(double twp) override;
  double TwpPix(char) const override { return 15; }
  CtlObj* Btn(TxV) override { return nullptr; }
  CtlObj* Ctl(CtlArr, int) override { return nullptr; }
  int UBound(CtlArr) const override { return 0; }
  CtlObj* Load(CtlArr, int) override { throw CtlErr(360); }
  void Unload() override { close(); }
  [[noreturn]] void End() override;

  QPushButton* cmAnt = nullptr;
  QPushButton* cmSeg = nullptr;
  QPushButton* cmCnf = nullptr;
  QPushButton* cmCan = nullptr;
  int16_t Carga = 0;  // 1 while loading

 protected:
  void done(int r) override;  // every way of closing ends here: the unload
  void changeEvent(QEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;

 private:
  void FormUnload();
  SupWiz* mSup = nullptr;
};

}  // namespace zw
