// zunwiz-opc-modes: the option group in each colour mode of CorTip, which an
// option file cannot choose (the page's step always sets "N"). A window with a
// picture holds one row of groups per mode - "N", "C" (in a container of its
// own colour), "P", "IP" and "I" after "IP" - and one column per look: a frame
// with the title on the left, in the centre and on the right, a frame with no
// title, and no frame. The window's own back colour shows in the heading strips,
// so "P" can be checked against it, and the picture fills the rest.
//
//   zunwiz-opc-modes OUT.png [PICTURE]
//
// Writes a PNG of the window to OUT.png and exits; the platform is off screen
// unless QT_QPA_PLATFORM says otherwise.
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <cstdio>
#include "CtlFab.h"
#include "CtlQt.h"

#ifndef ZW_GALLERY_DIR
#define ZW_GALLERY_DIR "."
#endif

namespace {

using namespace zw;

constexpr int kCabX = 120;  // width of the row headings
constexpr int kCabY = 28;   // height of the column headings
constexpr int kLarg = 176, kAlt = 100, kEsp = 12;  // a group and the gap between groups

const QColor kJanela(255, 224, 192);  // the window's back colour
const QColor kCtn(200, 230, 255);     // the back colour of the container of row "C"

// The window: its back colour under the headings, the picture under the groups.
class Janela : public QWidget {
 public:
  explicit Janela(const QPixmap& img) : img_(img) {
    QPalette p = palette();
    p.setColor(QPalette::Window, kJanela);
    p.setColor(QPalette::WindowText, QColor(0, 0, 96));
    setPalette(p);
    setAutoFillBackground(true);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.drawPixmap(QRect(kCabX, kCabY, width() - kCabX, height() - kCabY), img_);
  }

 private:
  QPixmap img_;
};

// A heading in the window's back colour.
QLabel* Cab(QWidget* pai, const QString& tx, const QRect& r, Qt::Alignment ali) {
  auto* l = new QLabel(tx, pai);
  l->setFont(FonQt(QStringLiteral("MS Sans Serif"), 8.25, true, false));
  l->setAlignment(ali);
  l->setGeometry(r);
  l->setWordWrap(true);
  return l;
}

// A group with three options, the second selected, in the look of column col:
// 0 to 2 a framed title aligned left, centre, right; 3 a frame with no title;
// 4 no frame (the title, still set, takes no room).
ZunOpc* Grupo(QWidget* pai, const QRect& r, int col, const char16_t* modo, bool antesIP) {
  ZunOpc* g = OpcCri(pai);
  g->setGeometry(r);
  g->CapColor(0x800000);  // dark blue
  g->Caption(col == 3 ? Tx() : Tx(u"Título"));
  const char16_t* ali[] = {u"<", u"|", u">"};
  if (col < 3) g->TitAli(ali[col]);
  g->BorderVisible(col != 4);
  g->RegOpc(u"Primeira", u"1");
  g->RegOpc(u"Segunda", u"2");
  g->RegOpc(u"Terceira", u"3");
  g->RegAsp(150, 0, 0, 0);
  g->AjtPosY(30, 30, 1);
  g->opcUsa(2);
  if (antesIP) g->CorTip(u"IP");
  g->CorTip(modo);
  g->show();
  return g;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: zunwiz-opc-modes OUT.png [PICTURE]\n");
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QString fic = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QStringLiteral(ZW_GALLERY_DIR "/fundo.bmp");
  QPixmap img(fic);
  if (img.isNull()) {
    std::fprintf(stderr, "zunwiz-opc-modes: cannot read the picture %s\n", qPrintable(fic));
    return 1;
  }

  const int passoX = kLarg + kEsp, passoY = kAlt + kEsp;
  Janela jan(img);
  jan.resize(kCabX + 5 * passoX + kEsp, kCabY + 5 * passoY + kEsp);

  const QString colunas[] = {QStringLiteral("título \"<\""), QStringLiteral("título \"|\""),
                             QStringLiteral("título \">\""), QStringLiteral("moldura sem título"),
                             QStringLiteral("sem moldura")};
  for (int c = 0; c < 5; ++c)
    Cab(&jan, colunas[c], QRect(kCabX + kEsp + c * passoX, 0, kLarg, kCabY), Qt::AlignCenter);

  struct Linha {
    const char16_t* modo;
    const char* cab;
    bool antesIP;
  };
  const Linha linhas[] = {
      {u"N", "\"N\"\ncores próprias", false},
      {u"C", "\"C\"\ncores do contentor", false},
      {u"P", "\"P\"\ncores da janela", false},
      {u"IP", "\"IP\"\nimagem da janela", false},
      {u"I", "\"I\" após \"IP\"\nimagem outra vez", true},
  };
  for (int l = 0; l < 5; ++l) {
    int y = kCabY + kEsp + l * passoY;
    Cab(&jan, QString::fromUtf8(linhas[l].cab), QRect(6, y, kCabX - 12, kAlt), Qt::AlignLeft | Qt::AlignVCenter);
    // Row "C" sits in a container of its own colour, which is not the window.
    QWidget* pai = &jan;
    int x0 = kCabX + kEsp;
    if (linhas[l].modo == Tx(u"C")) {
      auto* ctn = new QWidget(&jan);
      QPalette p = ctn->palette();
      p.setColor(QPalette::Window, kCtn);
      ctn->setPalette(p);
      ctn->setAutoFillBackground(true);
      ctn->setGeometry(kCabX + kEsp / 2, y - kEsp / 2, 5 * passoX, passoY);
      pai = ctn;
      x0 = kEsp / 2;
      y = kEsp / 2;
    }
    for (int c = 0; c < 5; ++c)
      Grupo(pai, QRect(x0 + c * passoX, y, kLarg, kAlt), c, linhas[l].modo, linhas[l].antesIP);
  }

  jan.show();
  QApplication::processEvents();
  QString saida = QString::fromLocal8Bit(argv[1]);
  if (!jan.grab().save(saida, "PNG")) {
    std::fprintf(stderr, "zunwiz-opc-modes: cannot write %s\n", qPrintable(saida));
    return 1;
  }
  return 0;
}
