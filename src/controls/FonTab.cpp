// The font table: Windows names to the metric-compatible fonts of the system.
#include "FonTab.h"
#include <cstring>
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
    // East Asian faces, under their English and their own names: the free face of
    // the same script and style (Mincho, Song and Batang serif; Gothic, Hei and
    // Gulim sans).
    {"MS Mincho", {"Noto Serif CJK JP", "IPAMincho", "Noto Sans CJK JP"}},
    {"ＭＳ 明朝", {"Noto Serif CJK JP", "IPAMincho", "Noto Sans CJK JP"}},
    {"MS PMincho", {"Noto Serif CJK JP", "IPAPMincho", "Noto Sans CJK JP"}},
    {"ＭＳ Ｐ明朝", {"Noto Serif CJK JP", "IPAPMincho", "Noto Sans CJK JP"}},
    {"Yu Mincho", {"Noto Serif CJK JP", "IPAMincho", "Noto Sans CJK JP"}},
    {"游明朝", {"Noto Serif CJK JP", "IPAMincho", "Noto Sans CJK JP"}},
    {"MS Gothic", {"Noto Sans CJK JP", "IPAGothic", "Noto Sans Mono CJK JP"}},
    {"ＭＳ ゴシック", {"Noto Sans CJK JP", "IPAGothic", "Noto Sans Mono CJK JP"}},
    {"MS PGothic", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"ＭＳ Ｐゴシック", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"MS UI Gothic", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"Meiryo", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"メイリオ", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"Yu Gothic", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"游ゴシック", {"Noto Sans CJK JP", "IPAPGothic", "IPAGothic"}},
    {"SimSun", {"Noto Serif CJK SC", "AR PL UMing CN", "Noto Sans CJK SC"}},
    {"宋体", {"Noto Serif CJK SC", "AR PL UMing CN", "Noto Sans CJK SC"}},
    {"NSimSun", {"Noto Serif CJK SC", "AR PL UMing CN", "Noto Sans CJK SC"}},
    {"新宋体", {"Noto Serif CJK SC", "AR PL UMing CN", "Noto Sans CJK SC"}},
    {"SimHei", {"Noto Sans CJK SC", "WenQuanYi Zen Hei", "Noto Serif CJK SC"}},
    {"黑体", {"Noto Sans CJK SC", "WenQuanYi Zen Hei", "Noto Serif CJK SC"}},
    {"Microsoft YaHei", {"Noto Sans CJK SC", "WenQuanYi Zen Hei", "Noto Serif CJK SC"}},
    {"微软雅黑", {"Noto Sans CJK SC", "WenQuanYi Zen Hei", "Noto Serif CJK SC"}},
    {"MingLiU", {"Noto Serif CJK TC", "AR PL UMing TW", "Noto Sans CJK TC"}},
    {"細明體", {"Noto Serif CJK TC", "AR PL UMing TW", "Noto Sans CJK TC"}},
    {"PMingLiU", {"Noto Serif CJK TC", "AR PL UMing TW", "Noto Sans CJK TC"}},
    {"新細明體", {"Noto Serif CJK TC", "AR PL UMing TW", "Noto Sans CJK TC"}},
    {"Microsoft JhengHei", {"Noto Sans CJK TC", "WenQuanYi Zen Hei", "Noto Serif CJK TC"}},
    {"微軟正黑體", {"Noto Sans CJK TC", "WenQuanYi Zen Hei", "Noto Serif CJK TC"}},
    {"Batang", {"Noto Serif CJK KR", "UnBatang", "Noto Sans CJK KR"}},
    {"바탕", {"Noto Serif CJK KR", "UnBatang", "Noto Sans CJK KR"}},
    {"Gulim", {"Noto Sans CJK KR", "UnDotum", "Noto Serif CJK KR"}},
    {"굴림", {"Noto Sans CJK KR", "UnDotum", "Noto Serif CJK KR"}},
    {"Dotum", {"Noto Sans CJK KR", "UnDotum", "Noto Serif CJK KR"}},
    {"돋움", {"Noto Sans CJK KR", "UnDotum", "Noto Serif CJK KR"}},
    {"Malgun Gothic", {"Noto Sans CJK KR", "UnDotum", "Noto Serif CJK KR"}},
    {"맑은 고딕", {"Noto Sans CJK KR", "UnDotum", "Noto Serif CJK KR"}},
};

// The tags Word and WordPad add to a font's name for each character set it is
// written in ("Courier New Cyr"); Windows draws such a name with the font itself.
const char* const kTagCs[] = {" CE", " Cyr", " Greek", " Tur", " Baltic", " (Hebrew)", " (Arabic)", " (Vietnamese)", " Western"};

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

// The style words PostScript names end in after their "-" ("Helvetica-Bold",
// "Times-Roman", "Courier-BoldOblique"); TextEdit writes its font table with them.
const char* const kPsEst[] = {"Roman", "Regular", "Book", "Medium", "Light", "Bold", "Italic", "Oblique",
                              "BoldItalic", "BoldOblique", "Semibold", "SemiboldItalic", "Black",
                              "BoldMT", "ItalicMT", "BoldItalicMT"};

// The family part of a PostScript name, or an empty text when the name is not one:
// the style after "-" goes ("Helvetica-Bold" is Helvetica), and so do the "MT" and
// "PSMT" marks of Monotype's names ("ArialMT", "TimesNewRomanPSMT"); the rest is
// compared to the table with its blanks left out ("TimesNewRoman").
QString PsFam(const QString& n) {
  QString b = n;
  int k = b.lastIndexOf(u'-');
  if (k > 0) {
    QString est = b.mid(k + 1);
    bool ok = false;
    for (const char* e : kPsEst) ok = ok || est.compare(QLatin1String(e), Qt::CaseInsensitive) == 0;
    if (!ok) return {};
    b.truncate(k);
  }
  for (const char* m : {"PSMT", "MT", "PS"})
    if (b.size() > 4 && b.endsWith(QLatin1String(m))) {
      b.chop(int(strlen(m)));
      break;
    }
  if (b == n) return {};
  for (const FonPar& p : kFonTab) {
    QString w = QString::fromUtf8(p.win);
    if (w.remove(u' ').compare(b, Qt::CaseInsensitive) == 0) return QString::fromUtf8(p.win);
  }
  return b;
}

}  // namespace

// Whether a PostScript name's style is bold or italic ("Helvetica-BoldOblique").
void FonPsEst(const QString& nome, bool& neg, bool& ita) {
  if (PsFam(nome.trimmed()).isEmpty()) return;
  QString est = nome.mid(nome.lastIndexOf(u'-') + 1);
  if (est.contains(QLatin1String("Bold"), Qt::CaseInsensitive) || est.contains(QLatin1String("Black"), Qt::CaseInsensitive)) neg = true;
  if (est.contains(QLatin1String("Italic"), Qt::CaseInsensitive) || est.contains(QLatin1String("Oblique"), Qt::CaseInsensitive)) ita = true;
}

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
  if (n.startsWith(u'@')) n.remove(0, 1);  // the vertical-writing face of the font
  QString r;
  for (const FonPar& p : kFonTab) {
    if (n.compare(QString::fromUtf8(p.win), Qt::CaseInsensitive) != 0) continue;
    r = QString::fromUtf8(p.fam[0]);
    for (const char* fam : p.fam)
      if (fam && QFontDatabase::hasFamily(QString::fromUtf8(fam))) {
        r = QString::fromUtf8(fam);
        break;
      }
    break;
  }
  if (r.isEmpty() && !QFontDatabase::hasFamily(n))
    for (const char* t : kTagCs) {
      QString tag = QLatin1String(t);
      if (n.size() > tag.size() && n.endsWith(tag, Qt::CaseInsensitive)) {
        r = FonFam(n.left(n.size() - tag.size()));
        break;
      }
    }
  if (r.isEmpty() && !QFontDatabase::hasFamily(n)) {
    QString ps = PsFam(n);
    if (!ps.isEmpty()) r = FonFam(ps);
  }
  if (r.isEmpty()) r = n;
  feitas.insert(chave, r);
  return r;
}

}  // namespace zw
