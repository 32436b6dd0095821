// The font table: Windows names to the metric-compatible fonts of the system.
#include "FonTab.h"
#include <QFile>
#include <QHash>
#include <QFontDatabase>

namespace zw {

namespace {

// Windows name, then the families to try in order; the first one installed wins.
struct FonPar {
  const char* win;
  const char* fam[3];
};

const FonPar kFonTab[] = {
    // Same metrics, letter for letter.
    {"Arial", {"Liberation Sans", "Arimo", "DejaVu Sans"}},
    {"Helvetica", {"Liberation Sans", "Nimbus Sans", "DejaVu Sans"}},
    {"Times New Roman", {"Liberation Serif", "Tinos", "DejaVu Serif"}},
    {"Times", {"Liberation Serif", "Nimbus Roman", "DejaVu Serif"}},
    {"Courier New", {"Liberation Mono", "Cousine", "DejaVu Sans Mono"}},
    {"Courier", {"Liberation Mono", "Nimbus Mono PS", "DejaVu Sans Mono"}},
    {"Calibri", {"Carlito", "Liberation Sans", "DejaVu Sans"}},
    {"Cambria", {"Caladea", "Liberation Serif", "DejaVu Serif"}},
    {"Tahoma", {"Tahoma", "DejaVu Sans Condensed", "Liberation Sans"}},
    {"Arial Narrow", {"Liberation Sans Narrow", "Nimbus Sans Narrow", "Liberation Sans"}},
    {"Symbol", {"Standard Symbols PS", "Symbol", "DejaVu Sans"}},
    {"Wingdings", {"Wingdings", "DejaVu Sans", nullptr}},
    // Nearest widths: the dialog fonts of old forms are Arial-wide at 8 points.
    {"MS Sans Serif", {"Liberation Sans", "DejaVu Sans", nullptr}},
    {"Microsoft Sans Serif", {"Liberation Sans", "DejaVu Sans", nullptr}},
    {"MS Shell Dlg", {"Liberation Sans", "DejaVu Sans", nullptr}},
    {"MS Shell Dlg 2", {"Tahoma", "DejaVu Sans Condensed", "Liberation Sans"}},
    {"Segoe UI", {"Liberation Sans", "DejaVu Sans", nullptr}},
    {"Verdana", {"DejaVu Sans", "Liberation Sans", nullptr}},
    {"Trebuchet MS", {"DejaVu Sans", "Liberation Sans", nullptr}},
    {"Comic Sans MS", {"DejaVu Sans", "Liberation Sans", nullptr}},
    {"Georgia", {"DejaVu Serif", "Liberation Serif", nullptr}},
    {"MS Serif", {"Liberation Serif", "DejaVu Serif", nullptr}},
    {"Lucida Console", {"DejaVu Sans Mono", "Liberation Mono", nullptr}},
    {"Consolas", {"DejaVu Sans Mono", "Liberation Mono", nullptr}},
    {"Book Antiqua", {"P052", "Liberation Serif", nullptr}},
    {"Palatino Linotype", {"P052", "Liberation Serif", nullptr}},
    {"Bookman Old Style", {"URW Bookman", "Liberation Serif", nullptr}},
    {"Century Gothic", {"URW Gothic", "Liberation Sans", nullptr}},
};

// Wine's fonts package brings Tahoma and Wingdings outside the font system's
// folders; they are added to the program's fonts once, when present. Its bold
// Tahoma draws thin and wide here, so bold Tahoma is made from the regular face.
void FonWineCarga() {
  static bool feito = false;
  if (feito) return;
  feito = true;
  for (const char* f : {"tahoma.ttf", "wingding.ttf"}) {
    QString cam = QStringLiteral("/usr/share/wine/fonts/") + QLatin1String(f);
    if (QFile::exists(cam)) QFontDatabase::addApplicationFont(cam);
  }
}

}  // namespace

// The family for a Windows name. Asking the font database goes to the system's font
// configuration each time, and a page of components asks for the same few names
// hundreds of times, so each answer is kept for the life of the program (the fonts
// installed do not change while it runs).
QString FonFam(const QString& nomeWin) {
  static QHash<QString, QString> feitas;
  QString n = nomeWin.trimmed();
  QString chave = n.toLower();
  auto it = feitas.constFind(chave);
  if (it != feitas.constEnd()) return it.value();
  FonWineCarga();
  QString r = n;
  for (const FonPar& p : kFonTab) {
    if (n.compare(QLatin1String(p.win), Qt::CaseInsensitive) != 0) continue;
    r = QLatin1String(p.fam[0]);
    for (const char* fam : p.fam)
      if (fam && QFontDatabase::hasFamily(QLatin1String(fam))) {
        r = QLatin1String(fam);
        break;
      }
    break;
  }
  feitas.insert(chave, r);
  return r;
}

}  // namespace zw
