// Twips and pixels at the screen's dots per inch.
#include "Twp.h"
#include <cmath>

namespace zw {

namespace {
double gTwpX = kTwpPol / 96, gTwpY = kTwpPol / 96;  // twips a pixel on each axis
}  // namespace

void TwpDpiDef(double dpiX, double dpiY) {
  gTwpX = kTwpPol / (dpiX > 0 ? dpiX : 96);
  gTwpY = kTwpPol / (dpiY > 0 ? dpiY : 96);
}

double TwpPix(char eixo) { return eixo == 'Y' ? gTwpY : gTwpX; }
int TwpPx(double twp, char eixo) { return int(std::lround(twp / TwpPix(eixo))); }
double PxTwp(double px, char eixo) { return px * TwpPix(eixo); }

}  // namespace zw
