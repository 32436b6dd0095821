// CtlFab: the factory of the wizard window's controls, one function per kind.
// Each control is made as a child of the window, hidden - as a loaded element of
// a control array starts - with the look of the array's design element: the
// form's font (MS Sans Serif, 8 points) and the platform's default colours.
// The window owns the widgets (Qt parentage); the wrapper of a button is owned by
// whoever asks for it.
#pragma once
#include <memory>
#include "CtlBtn.h"
#include "ZunCkb.h"
#include "ZunLab.h"
#include "ZunOpc.h"
#include "ZunRtf.h"

class QPushButton;
class QWidget;

namespace zw {

ZunLab* LabCri(QWidget* pai);   // laWiz: 1305 by 195 twips
ZunCkb* CkbCri(QWidget* pai);   // ckWiz: 1215 by 255 twips
ZunRtf* RtfCri(QWidget* pai);   // rtfWiz: 2415 by 1455 twips
ZunOpc* OpcCri(QWidget* pai);   // ZunOpc: 2415 by 1215 twips
std::unique_ptr<CtlBtn> BtnCri(QPushButton* b);

}  // namespace zw
