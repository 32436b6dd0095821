// FonTab: the fonts that stand in for the Windows fonts option files name.
// Pages are laid out in pixels measured with Windows fonts; each common Windows
// name maps to a free font of the same metrics (or the nearest one), so a text
// takes about the same width here as it did there.
#pragma once
#include <QString>

namespace zw {

// The family to draw a Windows font name with. Names are compared case-blind; a
// name the table lacks is given to the font system as it stands.
QString FonFam(const QString& nomeWin);

// Sets bold and italic when a PostScript name says so in its style part
// ("Helvetica-Bold", "Times-Italic"), since its runs may not repeat it; leaves
// them as they are for any other name.
void FonPsEst(const QString& nome, bool& neg, bool& ita);

}  // namespace zw
