// The wizard window's own plain controls: Qt widgets that answer to the property
// and method names of the engine, geometry in twips, colours as colour numbers.
#include "ZunWizCtl.h"
#include <QButtonGroup>
#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <cmath>
#include "TxQt.h"
#include "TxtGlb.h"
#include "ZunWizGlb.h"

namespace zw {

double CtlNum(const Var& v) { return v.EhTx() ? NuTxVal(v.Txt()) : v.Num(); }

namespace {

bool Nome(TxV a, const char16_t* b) { return a == TxV(b); }
bool Verd(const Var& v) { return CtlNum(v) != 0; }
QString QsVar(const Var& v) { return QsTx(TxVar(v)); }

// A colour number (0x00BBGGRR) to a Qt colour. The system colours (high bit set)
// take the palette's role of the same meaning; those not known the button face.
QColor CorQt(const QWidget& w, long cor) {
  if (cor & 0x80000000L) {
    switch (cor & 0xFF) {
      case 5: return w.palette().color(QPalette::Base);
      case 8: return w.palette().color(QPalette::Text);
      case 18: return w.palette().color(QPalette::ButtonText);
      default: return w.palette().color(QPalette::Button);
    }
  }
  return QColor(int(cor & 0xFF), int((cor >> 8) & 0xFF), int((cor >> 16) & 0xFF));
}
int32_t CorNu(const QColor& c) { return int32_t(c.red() | (c.green() << 8) | (c.blue() << 16)); }

// The properties every control has. Geometry goes through the widget's place in
// its parent; "Visible" is the control's own flag, whether or not the window is shown.
bool BasCon(const QWidget& w, TxV n, Var& v) {
  if (Nome(n, u"Left")) v = Var(int32_t(PxTwp(w.x())));
  else if (Nome(n, u"Top")) v = Var(int32_t(PxTwp(w.y(), 'Y')));
  else if (Nome(n, u"Width")) v = Var(int32_t(PxTwp(w.width())));
  else if (Nome(n, u"Height")) v = Var(int32_t(PxTwp(w.height(), 'Y')));
  else if (Nome(n, u"Visible")) v = Var(!w.isHidden());
  else if (Nome(n, u"Enabled")) v = Var(!w.testAttribute(Qt::WA_ForceDisabled));
  else if (Nome(n, u"FontName")) v = Var(TxQs(w.font().family()));
  else if (Nome(n, u"FontSize")) v = Var(w.font().pointSizeF());
  else if (Nome(n, u"FontBold")) v = Var(w.font().bold());
  else if (Nome(n, u"FontItalic")) v = Var(w.font().italic());
  else if (Nome(n, u"BackColor")) v = Var(CorNu(w.palette().color(w.backgroundRole())));
  else if (Nome(n, u"ForeColor")) v = Var(CorNu(w.palette().color(w.foregroundRole())));
  else return false;
  return true;
}

bool BasAtr(QWidget& w, TxV n, const Var& v) {
  auto px = [&](char eixo) { return TwpPx(CtlNum(v), eixo); };
  if (Nome(n, u"Left")) w.move(px('X'), w.y());
  else if (Nome(n, u"Top")) w.move(w.x(), px('Y'));
  else if (Nome(n, u"Width")) w.resize(std::max(0, px('X')), w.height());
  else if (Nome(n, u"Height")) w.resize(w.width(), std::max(0, px('Y')));
  else if (Nome(n, u"Visible")) w.setVisible(Verd(v));
  else if (Nome(n, u"Enabled")) w.setEnabled(Verd(v));
  else if (Nome(n, u"FontName") || Nome(n, u"FontSize") || Nome(n, u"FontBold") || Nome(n, u"FontItalic")) {
    QFont f = w.font();
    if (Nome(n, u"FontName")) f.setFamily(QsVar(v));
    else if (Nome(n, u"FontSize")) {
      if (CtlNum(v) <= 0) throw CtlErr(380);
      f.setPointSizeF(CtlNum(v));
    } else if (Nome(n, u"FontBold")) f.setBold(Verd(v));
    else f.setItalic(Verd(v));
    w.setFont(f);
  } else if (Nome(n, u"BackColor") || Nome(n, u"ForeColor")) {
    QPalette p = w.palette();
    QColor c = CorQt(w, long(CtlNum(v)));
    if (Nome(n, u"BackColor")) {
      p.setColor(w.backgroundRole(), c);
      p.setColor(QPalette::Base, c);
    } else {
      p.setColor(w.foregroundRole(), c);
      p.setColor(QPalette::Text, c);
    }
    w.setPalette(p);
  } else {
    return false;
  }
  return true;
}

// A widget of class W as a control: the common properties, then those of its kind.
template <class W>
class CtlQt : public W, public CtlObj {
 public:
  explicit CtlQt(QWidget* pai) : W(pai) { W::hide(); }
  Var PrpCon(TxV nome) const override {
    Var v;
    if (Con(nome, v) || BasCon(*this, nome, v)) return v;
    throw CtlErr(438);
  }
  void PrpAtr(TxV nome, const Var& val) override {
    if (!Atr(nome, val) && !BasAtr(*this, nome, val)) throw CtlErr(438);
    Ajusta();
  }
  Var Exe(TxV nome, std::vector<Var>& args) override {
    Var r;
    if (!Metodo(nome, args, r)) throw CtlErr(438);
    return r;
  }

 protected:
  virtual bool Con(TxV, Var&) const { return false; }
  virtual bool Atr(TxV, const Var&) { return false; }
  virtual bool Metodo(TxV, std::vector<Var>&, Var&) { return false; }
  virtual void Ajusta() {}  // follows a change of text, font or size
};

class BtnQt : public CtlQt<QPushButton> {
 public:
  using CtlQt::CtlQt;

 protected:
  bool Con(TxV n, Var& v) const override {
    if (!Nome(n, u"Caption")) return false;
    v = Var(TxQs(text()));
    return true;
  }
  bool Atr(TxV n, const Var& v) override {
    if (!Nome(n, u"Caption")) return false;
    setText(QsVar(v));
    return true;
  }
};

// A label: with AutoSize it fits its text, and with WordWrap as well it keeps its
// width and grows in height. BackStyle 0 lets the window show through.
class LabQt : public CtlQt<QLabel> {
 public:
  explicit LabQt(QWidget* pai) : CtlQt(pai) {
    setGeometry(TwpPx(150), TwpPx(90, 'Y'), TwpPx(1305), TwpPx(195, 'Y'));
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setAutoFillBackground(true);
  }

 protected:
  bool Con(TxV n, Var& v) const override {
    if (Nome(n, u"Caption")) v = Var(TxQs(text()));
    else if (Nome(n, u"Alignment")) v = Var(int16_t(mAln));
    else if (Nome(n, u"AutoSize")) v = Var(mAuto);
    else if (Nome(n, u"WordWrap")) v = Var(wordWrap());
    else if (Nome(n, u"BackStyle")) v = Var(int16_t(autoFillBackground() ? 1 : 0));
    else return false;
    return true;
  }
  bool Atr(TxV n, const Var& v) override {
    if (Nome(n, u"Caption")) setText(QsVar(v));
    else if (Nome(n, u"Alignment")) {
      int a = int(CtlNum(v));
      if (a < 0 || a > 2) throw CtlErr(380);
      mAln = a;
      static const Qt::Alignment h[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
      setAlignment(h[a] | Qt::AlignTop);
    } else if (Nome(n, u"AutoSize")) mAuto = Verd(v);
    else if (Nome(n, u"WordWrap")) setWordWrap(Verd(v));
    else if (Nome(n, u"BackStyle")) setAutoFillBackground(CtlNum(v) != 0);
    else return false;
    return true;
  }
  void Ajusta() override {
    if (!mAuto) return;
    if (wordWrap()) resize(width(), heightForWidth(width()));
    else resize(sizeHint());
  }

 private:
  bool mAuto = false;
  int mAln = 0;
};

// A check box: Value 0 or 1; BackStyle 1 is transparent in this control.
class CkbQt : public CtlQt<QCheckBox> {
 public:
  explicit CkbQt(QWidget* pai) : CtlQt(pai) { resize(sizeHint()); }

 protected:
  bool Con(TxV n, Var& v) const override {
    if (Nome(n, u"Caption")) v = Var(TxQs(text()));
    else if (Nome(n, u"Value")) v = Var(int16_t(isChecked() ? 1 : 0));
    else if (Nome(n, u"BackStyle")) v = Var(int16_t(autoFillBackground() ? 0 : 1));
    else return false;
    return true;
  }
  bool Atr(TxV n, const Var& v) override {
    if (Nome(n, u"Caption")) setText(QsVar(v));
    else if (Nome(n, u"Value")) setChecked(CtlNum(v) != 0);
    else if (Nome(n, u"BackStyle")) setAutoFillBackground(CtlNum(v) == 0);
    else return false;
    return true;
  }
};

// The plain text of a rich-text file: control words and groups that hold no
// text are dropped, "\par" breaks a line, "\'hh" is a character of the file's
// code page (taken as Latin-1).
QString RtfTexto(const QByteArray& b) {
  QString r;
  std::vector<bool> salta{false};
  for (qsizetype i = 0; i < b.size(); i++) {
    char c = b[i];
    if (c == '{') {
      salta.push_back(salta.back() || (i + 2 < b.size() && b[i + 1] == '\\' && b[i + 2] == '*'));
    } else if (c == '}') {
      if (salta.size() > 1) salta.pop_back();
    } else if (c == '\\') {
      qsizetype j = i + 1;
      if (j < b.size() && b[j] == '\'' && j + 2 < b.size()) {
        if (!salta.back()) r += QChar(QByteArray(b.constData() + j + 1, 2).toInt(nullptr, 16));
        i = j + 2;
        continue;
      }
      if (j < b.size() && !std::isalpha(uchar(b[j]))) {
        if (!salta.back() && (b[j] == '\\' || b[j] == '{' || b[j] == '}')) r += QChar(b[j]);
        i = j;
        continue;
      }
      while (j < b.size() && std::isalpha(uchar(b[j]))) j++;
      QByteArray pal = b.mid(i + 1, j - i - 1);
      while (j < b.size() && (std::isdigit(uchar(b[j])) || b[j] == '-')) j++;
      if (j < b.size() && b[j] == ' ') j++;
      i = j - 1;
      if (pal == "fonttbl" || pal == "colortbl" || pal == "stylesheet" || pal == "info" || pal == "pict")
        salta.back() = true;
      else if (!salta.back() && (pal == "par" || pal == "line")) r += u'\n';
      else if (!salta.back() && pal == "tab") r += u'\t';
    } else if (c != '\r' && c != '\n' && !salta.back()) {
      r += QChar(uchar(c));
    }
  }
  return r;
}

// A read-only rich-text box: "Text" is its plain text; LoadFile reads a file.
class RtfQt : public CtlQt<QTextEdit> {
 public:
  explicit RtfQt(QWidget* pai) : CtlQt(pai) { setReadOnly(true); }

 protected:
  bool Con(TxV n, Var& v) const override {
    if (Nome(n, u"Text")) v = Var(TxQs(toPlainText()));
    else if (Nome(n, u"BackStyle")) v = Var(int16_t(1));
    else return false;
    return true;
  }
  bool Atr(TxV n, const Var& v) override {
    if (Nome(n, u"Text")) setPlainText(QsVar(v));
    else if (!Nome(n, u"BackStyle")) return false;
    return true;
  }
  bool Metodo(TxV n, std::vector<Var>& a, Var&) override {
    if (!Nome(n, u"LoadFile")) return false;
    if (a.empty()) throw CtlErr(450);
    Tx cam = TxVar(a[0]);
    for (char16_t& c : cam)
      if (c == u'\\') c = u'/';
    QFile f(QsTx(cam));
    if (!f.open(QIODevice::ReadOnly)) throw CtlErr(75);
    QByteArray b = f.readAll();
    setPlainText(b.startsWith("{\\rtf") ? RtfTexto(b) : QString::fromLocal8Bit(b));
    return true;
  }
};

// An option group: a frame with a title around mutually exclusive options.
// Option 0 is hidden and stands for no selection; options 1 to n are added by
// RegOpc, each with an additional text, and laid out by RegAsp and AjtPosY.
class OpcQt : public CtlQt<QGroupBox> {
 public:
  explicit OpcQt(QWidget* pai) : CtlQt(pai), mGrp(new QButtonGroup(this)) {
    resize(TwpPx(2000), TwpPx(1000, 'Y'));
    OpcAdi(Tx(), Tx());
    mOpc[0]->hide();
    mOpc[0]->setChecked(true);
  }

 protected:
  bool Con(TxV n, Var& v) const override {
    if (Nome(n, u"Caption")) v = Var(mCap);
    else if (Nome(n, u"BorderVisible")) v = Var(mBorda);
    else if (Nome(n, u"opcUsa")) v = Var(int16_t(std::max(0, mGrp->checkedId())));
    else if (Nome(n, u"TitAli")) v = Var(Tx(1, u"<>|"[mTitAli]));
    else if (Nome(n, u"CapColor")) v = Var(mCapCor);
    else return false;
    return true;
  }
  bool Atr(TxV n, const Var& v) override {
    if (Nome(n, u"Caption")) mCap = TxVar(v);
    else if (Nome(n, u"BorderVisible")) mBorda = Verd(v);
    else if (Nome(n, u"opcUsa")) {
      int i = int(CtlNum(v));
      if (i < 0 || i >= int(mOpc.size())) throw CtlErr(380);
      mOpc[size_t(i)]->setChecked(true);
    } else if (Nome(n, u"TitAli")) {
      Tx t = TxMaiTrm(TxVar(v));
      const char16_t c = t.empty() ? u' ' : t[0];
      if (c == u'<' || c == u'7') mTitAli = 0;
      else if (c == u'>' || c == u'9') mTitAli = 1;
      else if (c == u'|' || c == u'8') mTitAli = 2;
    } else if (Nome(n, u"CapColor")) mCapCor = int32_t(CtlNum(v));
    else return false;
    setTitle(mBorda ? QsTx(mCap) : QString());
    setFlat(!mBorda);
    static const Qt::Alignment al[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    setAlignment(al[mTitAli]);
    return true;
  }
  bool Metodo(TxV n, std::vector<Var>& a, Var&) override {
    auto arg = [&](size_t i) { return i < a.size() ? CtlNum(a[i]) : 0.0; };
    const int num = int(mOpc.size()) - 1;
    if (Nome(n, u"CorTip")) {
    } else if (Nome(n, u"RegIni")) {
      while (mOpc.size() > 1) {
        delete mOpc.back();
        mOpc.pop_back();
        mAdi.pop_back();
      }
      mOpc[0]->setChecked(true);
    } else if (Nome(n, u"RegOpc")) {
      OpcAdi(a.size() > 0 ? TxVar(a[0]) : Tx(), a.size() > 1 ? TxVar(a[1]) : Tx());
      mOpc[0]->setChecked(true);
    } else if (Nome(n, u"ConOpc")) {
      int i = int(arg(0));
      if (a.size() < 3 || i < 0 || i > num) throw CtlErr(380);
      a[1] = Var(TxQs(mOpc[size_t(i)]->text()));
      a[2] = Var(mAdi[size_t(i)]);
    } else if (Nome(n, u"RegOpcPos")) {
      int i = int(arg(0));
      if (i < 0 || i > num) throw CtlErr(380);
      mOpc[size_t(i)]->move(TwpPx(arg(1)), TwpPx(arg(2), 'Y'));
    } else if (Nome(n, u"RegAsp")) {
      // A text step is the sample line's size plus the number it holds.
      const QSize am = mOpc[0]->sizeHint();
      auto passo = [&](size_t i, int px, char eixo) {
        if (i < a.size() && a[i].EhTx()) return double(PxTwp(px, eixo)) + NuTxVal(a[i].Txt());
        return arg(i);
      };
      const double sx = passo(2, am.width(), 'X'), sy = passo(3, am.height(), 'Y');
      for (int i = 1; i <= num; i++)
        mOpc[size_t(i)]->move(TwpPx(arg(0) + (i - 1) * sx), TwpPx(arg(1) + (i - 1) * sy, 'Y'));
    } else if (Nome(n, u"AjtPosY")) {
      // The height between the margins is shared in equal slots, one per option.
      if (num == 0) return true;
      const int ini = TwpPx(arg(0), 'Y'), fim = height() - TwpPx(arg(1), 'Y');
      const double fatia = double(fim - ini) / num;
      for (int i = 1; i <= num; i++) {
        QRadioButton* o = mOpc[size_t(i)];
        double y = ini + (i - 1) * fatia + (arg(2) != 0 ? (fatia - o->height()) / 2 : 0);
        o->move(o->x(), int(std::lround(y)));
      }
    } else if (Nome(n, u"OpcNum")) {
      if (a.empty()) a.resize(1);
      a[0] = Var(int16_t(num));
    } else {
      return false;
    }
    return true;
  }

 private:
  void OpcAdi(const Tx& tx, const Tx& adi) {
    auto* o = new QRadioButton(QsTx(tx), this);
    mGrp->addButton(o, int(mOpc.size()));
    o->resize(o->sizeHint());
    o->show();
    mOpc.push_back(o);
    mAdi.push_back(adi);
  }
  QButtonGroup* mGrp;
  std::vector<QRadioButton*> mOpc;
  std::vector<Tx> mAdi;
  Tx mCap;
  bool mBorda = true;
  int mTitAli = 0;
  int32_t mCapCor = 0;
};

CtlFab gFab[4] = {CtlLabCri, CtlCkbCri, CtlRtfCri, CtlOpcCri};

}  // namespace

QWidget* CtlLabCri(QWidget* pai) { return new LabQt(pai); }
QWidget* CtlCkbCri(QWidget* pai) { return new CkbQt(pai); }
QWidget* CtlRtfCri(QWidget* pai) { return new RtfQt(pai); }
QWidget* CtlOpcCri(QWidget* pai) { return new OpcQt(pai); }

QPushButton* CtlBtnCri(QWidget* pai, const QString& cap) {
  auto* b = new BtnQt(pai);
  b->setText(cap);
  b->show();
  return b;
}

CtlFab CtlFabCon(CtlArr arr) { return gFab[int(arr)]; }

void CtlFabDef(CtlArr arr, CtlFab fab) {
  static const CtlFab proprio[4] = {CtlLabCri, CtlCkbCri, CtlRtfCri, CtlOpcCri};
  gFab[int(arr)] = fab ? fab : proprio[int(arr)];
}

}  // namespace zw
