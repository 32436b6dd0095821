// The wizard window.
#include "ZunWizAsp.h"
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>
#include <xcb/xcb.h>
#include "SupWiz.h"
#include "CtlFab.h"
#include "FicLer.h"
#include "Twp.h"
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

// The X connection of the program, null on another platform.
xcb_connection_t* XCon() {
  auto* x = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x ? x->connection() : nullptr;
}

// The atom of the property in which an X window manager tells the frame it drew
// around a window: left, right, top, bottom, in pixels.
xcb_atom_t XMolAtom(xcb_connection_t* c) {
  static const xcb_atom_t a = [c] {
    const char nome[] = "_NET_FRAME_EXTENTS";
    xcb_intern_atom_reply_t* r = xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, sizeof nome - 1, nome), nullptr);
    xcb_atom_t v = r ? r->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(r);
    return v;
  }();
  return a;
}

// The frame the window system draws around a window. Under X it is the window
// manager's, read from the window's property as the manager sets it once the window
// is on the screen (Qt's own view of it may lag behind); none before that, nor
// under a manager that does not tell it. On another platform it is what Qt tells,
// and not known while Qt tells a side below 0 (false). Qt's offscreen platform has
// none: its two pixels all round are a stand-in that frames nothing.
bool Moldura(const QWidget* w, QMargins& m) {
  m = {};
  if (!w->isVisible() || QGuiApplication::platformName() == u"offscreen") return true;
  if (xcb_connection_t* c = XCon()) {
    const xcb_window_t jan = xcb_window_t(w->winId());
    xcb_get_property_reply_t* r =
        xcb_get_property_reply(c, xcb_get_property(c, 0, jan, XMolAtom(c), XCB_ATOM_CARDINAL, 0, 4), nullptr);
    if (r && r->format == 32 && xcb_get_property_value_length(r) == 16) {
      const uint32_t* v = static_cast<const uint32_t*>(xcb_get_property_value(r));
      m = {int(v[0]), int(v[2]), int(v[1]), int(v[3])};
    }
    std::free(r);
    return true;
  }
  const QRect f = w->frameGeometry(), g = w->geometry();
  m = {g.left() - f.left(), g.top() - f.top(), f.right() - g.right(), f.bottom() - g.bottom()};
  return m.left() >= 0 && m.top() >= 0 && m.right() >= 0 && m.bottom() >= 0;
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

void ZunWizAsp::Width(double twp) {
  mDimW = TwpPx(twp);
  DimAjt();
}

void ZunWizAsp::Height(double twp) {
  mDimH = TwpPx(twp, 'Y');
  DimAjt();
}

// A maximised, minimised or full-screen window is left as the window system has it.
void ZunWizAsp::DimAjt() {
  if (windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen)) return;
  QMargins m;
  if (Moldura(this, m)) mMol = m;
  const int w = mDimW < 0 ? width() : std::max(0, mDimW - mMol.left() - mMol.right());
  const int h = mDimH < 0 ? height() : std::max(0, mDimH - mMol.top() - mMol.bottom());
  resize(w, h);
}

// A window manager frames the window after it is shown: the room inside shrinks
// then, once, so the frame and all keep the size asked.
void ZunWizAsp::MolVer() {
  QMargins m;
  if ((mDimW >= 0 || mDimH >= 0) && Moldura(this, m) && m != mMol) DimAjt();
}

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
  MolVer();
  if (mSup && AspGanAct().Mostra) AspGanAct().Mostra(*this);
}

void ZunWizAsp::done(int r) {
  if (isVisible()) FormUnload();
  QDialog::done(r);
}

void ZunWizAsp::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() == QEvent::ActivationChange) MolVer();
  if (e->type() == QEvent::ActivationChange && isActiveWindow()) raise();
}

// An X window manager tells its frame in a property of the window: a change of it
// is looked at as it comes.
bool ZunWizAsp::nativeEvent(const QByteArray& tipo, void* msg, qintptr* res) {
  if (tipo == "xcb_generic_event_t") {
    const auto* e = static_cast<const xcb_generic_event_t*>(msg);
    xcb_connection_t* c = XCon();
    if ((e->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && c &&
        reinterpret_cast<const xcb_property_notify_event_t*>(e)->atom == XMolAtom(c))
      MolVer();
  }
  return QDialog::nativeEvent(tipo, msg, res);
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
