// ZunWizFun: the background window. Maximised, white, with the maker's artwork
// in a frame; it is the program's start window, shown behind the wizard for the
// whole start-up sequence (ZunWizCic), which loads, shows and closes it.
#pragma once
#include <QWidget>
#include <array>
#include "Var.h"

class QLabel;

namespace zw {

class ZunWizFun : public QWidget {
 public:
  // One image control: its picture size in pixels and its place in twips.
  struct Img {
    const char* nome;
    int picW, picH;
    int left, top, width, height;
    QLabel* lb = nullptr;
  };

  ZunWizFun();
  void FormLoad();    // maximised and raised
  void FormResize();  // keeps the lower right artwork at the window's corner
  void FormUnload() {}
  void FrmPrep(const Tx& pal, int16_t& st);  // compares the word with "INI" and "FIM"; does nothing

  const Img& ImgCon(const char* nome) const;  // an image control by name (the first one when unknown)
  int16_t Carga = 0;  // 1 while loading

 protected:
  void resizeEvent(QResizeEvent* e) override;
  void closeEvent(QCloseEvent* e) override;

 private:
  Img& ImgRef(const char* nome);
  void ImgPos(Img& i, int left, int top);  // moves an image, in twips
  std::array<Img, 9> mImg;
};

}  // namespace zw
