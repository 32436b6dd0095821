// The wizard window.
#include "ZunWizAsp.h"
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>
#include "SupWiz.h"
#include "CtlFab.h"
#include "FicLer.h"
#include "TxQt.h"
#include "ZunWizArt.h"
#include "ZunWizCtl.h"
#include "ZunWizGlb.h"
#include "ZunWizMain.h"
#include "ZunWizPmp.h"

namespace zw {

// Design client size, in twips.
constexpr int kDesW = 8310, kDesH = 5970;

AspGan& AspGanAct() {
  static AspGan g;
  return g;
}

namespace {
// A picture or icon file, read by the rule of every file the system reads
// (FicLer.h) and handed to Qt as bytes, so that Qt never opens the path itself: a
// pipe or a device does not hold the window. A refused file is told through
// LimTrc and left out as a missing one is.
QPixmap ImgLer(const Tx& fic, const char16_t* oque) {
  std::string b;
  QPixmap px;
  int e = FicLer(fic, b);
  if (e == 0) {
    // The name's extension is the format's first guess, as when Qt opens a path.
    size_t p = fic.find_last_of(u".\\/");
    QByteArray ext = p != Tx::npos && fic[p] == u'.' ? QsTx(fic.substr(p + 1)).toLower().toLatin1() : QByteArray();
    px.loadFromData(reinterpret_cast<const uchar*>(b.data()), uint(b.size()), ext.isEmpty() ? nullptr : ext.constData());
  } else if (e != kErrFicNao && e != kErrDirNao) {
    LimTrc(u"refused " + Tx(oque) + u" " + fic + u" (" + TxDeUtf8(FicLerPorque(e)) + u")");
  }
  return px;
}
}  // namespace

ZunWizAsp::ZunWizAsp() {
  PmpIni();
  PmpFecTom();  // a close kept for an earlier attempt's window is not this one's
  setObjectName(QStringLiteral("ZunWizAsp"));
  setWindowTitle(QStringLiteral("Wizzard"));
  setWindowIcon(ArtIco());
  resize(TwpPx(kDesW), TwpPx(kDesH, 'Y'));
  mImg = new QLabel(this);
  mImg->setObjectName(QStringLiteral("Picture"));
  mImg->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  mImg->hide();
  // The design element 0 of each array: loaded, invisible, never used.
  for (CtlArr a : {CtlArr::Lab, CtlArr::Ckb, CtlArr::Rtf, CtlArr::Opc}) {
    QWidget* w = CtlFabCon(a)(this);
    w->setObjectName(QString::fromLatin1(ArrNome(a)) + QStringLiteral("(0)"));
    mArr[int(a)][0] = w;
  }
  // A button at its design place (twips) that hands its click to the engine. No
  // click runs a transition while another one or a script call runs; "Cancelar"
  // then offers to stop the script. A close kept meanwhile is carried out once the
  // transition has ended.
  auto botao = [this](const char* nome, const char* cap, int left, void (SupWiz::*tra)()) {
    auto* b = new QPushButton(QString::fromUtf8(cap), this);
    b->setObjectName(QString::fromLatin1(nome));
    b->setAutoDefault(false);
    b->setGeometry(TwpPx(left), TwpPx(5490, 'Y'), TwpPx(1275), TwpPx(360, 'Y'));
    connect(b, &QPushButton::clicked, this, [this, tra] {
      if (mTra || PmpExeAct()) {
        if (tra == &SupWiz::TraCan) PmpCan();
        return;
      }
      SupWiz* sup = mSup;
      if (!sup) return;
      mTra = true;
      (sup->*tra)();
      mTra = false;
      if (PmpFecTom() && isVisible()) close();
    });
    return b;
  };
  cmAnt = botao("cmAnt", "< Anterior", 2595, &SupWiz::TraAnt);
  cmSeg = botao("cmSeg", "Seguinte >", 4050, &SupWiz::TraSeg);
  cmCnf = botao("cmCnf", "Confirmar", 5490, &SupWiz::TraCnf);
  cmCan = botao("cmCan", "Cancelar", 6930, &SupWiz::TraCan);
  for (QPushButton* b : {cmAnt, cmSeg, cmCnf, cmCan}) mBtn.push_back(BtnCri(b));
}

ZunWizAsp::~ZunWizAsp() = default;

void ZunWizAsp::FormLoad() {
  Carga = 1;
  FrmEleva(this);
  Carga = 0;
}

// Runs the script's "FxIni" and shows the window modally; returns once it is unloaded.
// A close kept while the start's scripts ran (the background window's close box)
// unloads the window without showing it.
void ZunWizAsp::WizExe(SupWiz& eng) {
  mSup = &eng;
  mSup->VbsExe(u"FxIni");
  if (PmpFecTom()) FormUnload();
  else exec();
  mSup = nullptr;
}

void ZunWizAsp::Caption(const Tx& tx) { setWindowTitle(QsTx(tx)); }

// The picture is drawn from the window's upper left corner at its own size,
// behind every control; a file that cannot be loaded leaves the window as it was.
void ZunWizAsp::Picture(const Tx& fic) {
  QPixmap px = ImgLer(fic, u"picture");
  if (px.isNull()) return;
  mImg->setPixmap(px);
  mImg->setGeometry(0, 0, px.width(), px.height());
  mImg->lower();
  mImg->show();
}

void ZunWizAsp::Icon(const Tx& fic) {
  QPixmap px = ImgLer(fic, u"icon");
  if (!px.isNull()) setWindowIcon(QIcon(px));
}

void ZunWizAsp::Width(double twp) { resize(TwpPx(twp), height()); }
void ZunWizAsp::Height(double twp) { resize(width(), TwpPx(twp, 'Y')); }

CtlObj* ZunWizAsp::Btn(TxV nome) {
  for (auto& b : mBtn)
    if (TxQs(b->Btn()->objectName()) == nome) return b.get();
  return nullptr;
}

QWidget* ZunWizAsp::CtlWid(CtlArr arr, int i) const {
  auto it = mArr[int(arr)].find(i);
  return it == mArr[int(arr)].end() ? nullptr : it->second;
}

CtlObj* ZunWizAsp::Ctl(CtlArr arr, int i) { return CtlDe(CtlWid(arr, i)); }

int ZunWizAsp::UBound(CtlArr arr) const { return mArr[int(arr)].rbegin()->first; }

// A new element takes the factory's control, hidden; an index in use is error 360.
CtlObj* ZunWizAsp::Load(CtlArr arr, int i) {
  if (i < 0 || i > 32767) throw CtlErr(340, "control array element does not exist");
  if (CtlWid(arr, i)) throw CtlErr(360, "object already loaded");
  QWidget* w = CtlFabCon(arr)(this);
  w->setObjectName(QStringLiteral("%1(%2)").arg(QString::fromLatin1(ArrNome(arr))).arg(i));
  w->hide();
  mArr[int(arr)][i] = w;
  return CtlDe(w);
}

const char* ZunWizAsp::ArrNome(CtlArr arr) {
  static const char* const nomes[] = {"laWiz", "ckWiz", "rtfWiz", "ZunOpc"};
  return nomes[int(arr)];
}

void ZunWizAsp::PagEnt(int idx, const Tx& ide) {
  if (AspGanAct().PagEnt) AspGanAct().PagEnt(*this, idx, ide);
}

// The process ends here and now: no unload, no "FxFim". Its status is that of an
// end at once, or the script's verdict.
void ZunWizAsp::End() {
  if (AspGanAct().End) AspGanAct().End();
  ZunWizFim(ZunWizSai(kSaiEnd, "zunwiz"));
}

void ZunWizAsp::FrmPrep(const Tx& pal, int16_t& st) {
  (void)st;
  if (pal == u"INI") {
  } else if (pal == u"FIM") {
  }
}

// The unload runs the script's "FxFim". It never refuses, so the close box ends
// the wizard without a question; a close asked while "FxFim" ran is this one.
void ZunWizAsp::FormUnload() {
  SupWiz* sup = mSup;
  if (sup) sup->VbsExe(u"FxFim");
  mSup = nullptr;
  PmpFecTom();
  if (sup && AspGanAct().Unload) AspGanAct().Unload(*this);
}

// The engine's unload is the program's own close: it never waits for a script.
void ZunWizAsp::Unload() {
  PmpFecPrg prg;
  close();
}

// A person's close while a script call runs waits (ZunWizPmp.h); any other goes on.
void ZunWizAsp::closeEvent(QCloseEvent* e) {
  if (!PmpFec()) {
    e->ignore();
    return;
  }
  QDialog::closeEvent(e);
}

void ZunWizAsp::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  if (mSup && AspGanAct().Mostra) AspGanAct().Mostra(*this);
}

void ZunWizAsp::done(int r) {
  if (isVisible()) FormUnload();
  QDialog::done(r);
}

void ZunWizAsp::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() == QEvent::ActivationChange && isActiveWindow()) raise();
}

// Escape is a key like any other here: only the buttons and the close box end the wizard.
void ZunWizAsp::keyPressEvent(QKeyEvent* e) {
  if (e->key() == Qt::Key_Escape) {
    e->ignore();
    return;
  }
  QDialog::keyPressEvent(e);
}

}  // namespace zw
