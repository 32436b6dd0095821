// Twp: twips and the screen's pixels, the one rule of the whole system.
// A twip is a 1440th of an inch, so a pixel is 1440 twips over the screen's dots per
// inch: 15 at 96, 12 at 120. Option files and scripts speak pixels; the engine keeps
// twips, the windows' design places are twips, and the controls take and give twips;
// all of them convert here. The dots per inch are the program's to set, once, from
// its screen before it makes a window; until then, and for a tool with no screen,
// they are 96 on both axes.
#pragma once

namespace zw {

constexpr double kTwpPol = 1440;  // twips an inch (polegada)

// Sets the screen's dots per inch on each axis; a value not above 0 stands for 96.
void TwpDpiDef(double dpiX, double dpiY);
// The twips of a pixel on the axis 'X' or 'Y' (any other letter is 'X').
double TwpPix(char eixo = 'X');
// Twips to whole pixels, rounded half away from zero, as the controls place them.
int TwpPx(double twp, char eixo = 'X');
// Pixels to twips, not rounded.
double PxTwp(double px, char eixo = 'X');

}  // namespace zw
