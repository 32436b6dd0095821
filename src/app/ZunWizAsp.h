// ZunWizAsp: the wizard window. It holds the four navigation buttons and hands
// each click to the engine; the engine builds the pages' components on it. A new
// window is made for each attempt of the start-up, and shown modally by WizExe.
#pragma once
#include <QDialog>
#include <functional>
#include <map>
#include <memory>
#include <vector>
#include "WizFrm.h"

class QLabel;
class QPushButton;

namespace zw {

class CtlBtn;
class ZunWizAsp;

// What a run without a person hooks into the wizard window; all empty in the
// program. End must not return.
struct AspGan {
  std::function<void(ZunWizAsp&, int idx, const Tx& ide)> PagEnt;  // a page has been entered
  std::function<void(ZunWizAsp&)> Mostra;  // the modal window has come up
  std::function<void(ZunWizAsp&)> Unload;  // unloaded after running: "FxFim" has run
  std::function<void()> End;               // the process ends at once
};
AspGan& AspGanAct();

class ZunWizAsp : public QDialog, public WizFrm {
 public:
  ZunWizAsp();
  ~ZunWizAsp() override;
  void FormLoad();                 // raised
  void WizExe(SupWiz& eng) override;
  void WizZunOpcIni() {}
  void FrmPrep(const Tx& pal, int16_t& st);

  // The window as the engine sees it: the control arrays laWiz, ckWiz, rtfWiz and
  // ZunOpc, each with its design element 0, loaded from the factory of its kind.
  // Width and Height are the outer size, the frame included (docs/startup.md).
  void Caption(const Tx& tx) override;
  void Picture(const Tx& fic) override;
  void Icon(const Tx& fic) override;
  void Width(double twp) override;
  void Height(double twp) override;
  CtlObj* Btn(TxV nome) override;
  CtlObj* Ctl(CtlArr arr, int i) override;
  int UBound(CtlArr arr) const override;
  CtlObj* Load(CtlArr arr, int i) override;
  void Unload() override;
  [[noreturn]] void End() override;
  void PagEnt(int idx, const Tx& ide) override;

  // The widget of element i of an array (null when not loaded), and the loaded
  // indexes of an array in rising order, element 0 included.
  QWidget* CtlWid(CtlArr arr, int i) const;
  const std::map<int, QWidget*>& Arr(CtlArr arr) const { return mArr[int(arr)]; }
  static const char* ArrNome(CtlArr arr);  // "laWiz", "ckWiz", "rtfWiz", "ZunOpc"
  // The engine that runs the window, from WizExe until the unload; null outside.
  SupWiz* Sup() const { return mSup; }

  QPushButton* cmAnt = nullptr;
  QPushButton* cmSeg = nullptr;
  QPushButton* cmCnf = nullptr;
  QPushButton* cmCan = nullptr;
  int16_t Carga = 0;  // 1 while loading

 protected:
  void done(int r) override;  // every way of closing ends here: the unload
  void closeEvent(QCloseEvent* e) override;
  void changeEvent(QEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void showEvent(QShowEvent* e) override;
  bool nativeEvent(const QByteArray& tipo, void* msg, qintptr* res) override;

 private:
  void FormUnload();
  void DimAjt();  // the room inside: the outer size asked, less the frame
  void MolVer();  // DimAjt again if the frame has changed
  SupWiz* mSup = nullptr;
  bool mTra = false;  // a click's transition runs
  std::map<int, QWidget*> mArr[4];
  std::vector<std::unique_ptr<CtlBtn>> mBtn;  // the buttons as controls
  QLabel* mImg = nullptr;  // the window's picture, behind every control
  int mDimW = -1, mDimH = -1;  // the outer size asked, in pixels; -1 where none was
  QMargins mMol;               // the frame taken off it
};

}  // namespace zw
