// Twips and pixels: one rule at the screen's dots per inch, set once by the program.
#include <gtest/gtest.h>
#include <cmath>
#include "Twp.h"

using namespace zw;

namespace {
// Puts the dots per inch back to the default of a program that set none.
struct DpiVolta {
  ~DpiVolta() { TwpDpiDef(0, 0); }
};
}  // namespace

// Until a screen is told, a pixel is 15 twips; at 120 dots an inch 12, each axis its
// own. A pixel placed in twips comes back as the same pixel at either, and a design
// place in twips lands where the window's 1275 by 360 buttons show it.
TEST(Twp, PixelsFollowTheScreensDotsPerInch) {
  DpiVolta v;
  EXPECT_EQ(TwpPix('X'), 15);
  EXPECT_EQ(TwpPx(2595), 173);
  EXPECT_EQ(TwpPx(1275), 85);
  EXPECT_EQ(TwpPx(360, 'Y'), 24);
  TwpDpiDef(120, 144);
  EXPECT_EQ(TwpPix('X'), 12);
  EXPECT_EQ(TwpPix('Y'), 10);
  EXPECT_EQ(TwpPx(1275), 106);
  EXPECT_EQ(TwpPx(360, 'Y'), 36);
  EXPECT_EQ(PxTwp(200), 2400);
  EXPECT_EQ(PxTwp(250, 'Y'), 2500);
  // An odd screen: pixels survive the way through twips and back.
  TwpDpiDef(110, 110);
  for (int px : {-7, 0, 1, 199, 200, 250, 1279})
    EXPECT_EQ(TwpPx(std::nearbyint(PxTwp(px))), px) << px;
}

// A screen that tells nothing (0, a negative number) counts as 96; half a pixel
// rounds away from zero, as the controls round.
TEST(Twp, NoMeasureIsNinetySixAndHalvesRoundAway) {
  DpiVolta v;
  TwpDpiDef(0, -5);
  EXPECT_EQ(TwpPix('X'), 15);
  EXPECT_EQ(TwpPix('Y'), 15);
  EXPECT_EQ(TwpPx(7.5), 1);
  EXPECT_EQ(TwpPx(-7.5), -1);
  EXPECT_EQ(TwpPx(7.4), 0);
}
