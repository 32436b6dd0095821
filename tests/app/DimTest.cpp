// The wizard window's size: DimX and DimY of the option file are its outer size, the
// frame that the window system draws included. Offscreen there is no frame; on an X
// server with a window manager (the suites Xvfb*, run by tests/support/xvfb.sh --wm
// at 120 dots an inch) the frame comes off the room inside.
#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QPushButton>
#include "QtApp.h"
#include "Twp.h"
#include "ZunWizAsp.h"
#include "ZunWizGlb.h"

using namespace zw;

// Qt's offscreen platform reports two pixels of frame all round once a window is
// shown; they frame nothing, and the room inside stays the whole size asked.
TEST(ZunWizAsp, OffscreenTheOuterSizeIsTheRoomInside) {
  tst::QtApp();
  ZunWizAsp a;
  a.Width(7500);
  a.Height(5700);
  EXPECT_EQ(a.size(), QSize(500, 380));
  a.show();
  QApplication::processEvents();
  EXPECT_EQ(a.size(), QSize(500, 380));
  a.hide();
}

// The frame is known only once the window manager has framed the shown window; the
// room inside then shrinks by it, so that the frame and all are the 500 by 380
// pixels asked. The design places are twips at the screen's 12 a pixel.
TEST(XvfbAsp, TheWindowManagersFrameIsPartOfTheOuterSize) {
  tst::QtApp();
  EcrDpiLer();
  ASSERT_EQ(TwpPix('X'), 12) << "runs at 120 dots an inch, with QT_FONT_DPI=120";
  {
    ZunWizAsp a;
    EXPECT_EQ(a.cmAnt->geometry(), QRect(216, 458, 106, 30));
    EXPECT_EQ(a.size(), QSize(693, 498));  // the design's room inside, 8310 by 5970 twips
    a.Width(6000);
    a.Height(4560);
    a.show();
    QElapsedTimer t;
    t.start();
    while ((a.frameGeometry().size() != QSize(500, 380) || a.frameGeometry() == a.geometry()) && t.elapsed() < 5000)
      QApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_EQ(a.frameGeometry().size(), QSize(500, 380));
    EXPECT_LT(a.height(), 380) << "no title bar: is a window manager running?";
    a.hide();
  }
  TwpDpiDef(0, 0);
}
