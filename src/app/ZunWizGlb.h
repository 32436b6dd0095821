// ZunWizGlb: the procedures that both windows share. What the start-up finds and
// makes is no global: it is the start-up's value (tZunWizPrc, ZunWizMain.h).
#pragma once

class QWidget;

namespace zw {

// Reads the primary screen's dots per inch into the rule of twips and pixels
// (Twp.h), once, before the first window: every twip of the run is converted at them.
void EcrDpiLer();

// Brings a window to the top of the ordinary windows. A window not yet shown is
// marked topmost, where the window system lets a program do so, and FrmElevaFim
// takes the mark away once it is on screen: it ends on top without staying there.
void FrmEleva(QWidget* w);
void FrmElevaFim(QWidget* w);

}  // namespace zw
