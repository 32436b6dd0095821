// The factory of the window's controls.
#include "CtlFab.h"
#include <QPushButton>

namespace zw {

namespace {

// Hidden, at the design element's size (twips), as a freshly loaded element.
template <class T>
T* Cria(QWidget* pai, int w, int h) {
  auto* c = new T(pai);
  c->setVisible(false);
  c->resize(TwpPx(w), TwpPx(h, 'Y'));
  return c;
}

}  // namespace

ZunLab* LabCri(QWidget* pai) {
  ZunLab* c = Cria<ZunLab>(pai, 1305, 195);
  c->move(TwpPx(150), TwpPx(90, 'Y'));
  return c;
}

ZunCkb* CkbCri(QWidget* pai) { return Cria<ZunCkb>(pai, 1215, 255); }
ZunRtf* RtfCri(QWidget* pai) { return Cria<ZunRtf>(pai, 2415, 1455); }
ZunOpc* OpcCri(QWidget* pai) { return Cria<ZunOpc>(pai, 2415, 1215); }
std::unique_ptr<CtlBtn> BtnCri(QPushButton* b) { return std::make_unique<CtlBtn>(b); }

}  // namespace zw
