// The rich-text box: a read-only QTextEdit showing a document of the RTF reader.
#include "ZunRtf.h"
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <fstream>
#include <sstream>
#include "FonTab.h"
#include "RtfLer.h"
#include "TxQt.h"
#include "TxtGlb.h"

namespace zw {

ZunRtf::ZunRtf(QWidget* pai) : QTextEdit(pai), CtlQt(this) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setAcceptRichText(false);
  document()->setDocumentMargin(1);
  QTextOption op = document()->defaultTextOption();
  op.setTabStopDistance(720.0 / kCtlTwpPx);  // a default tab every half inch
  document()->setDefaultTextOption(op);
  FonPoe(fonNom_, fonTam_, fonNeg_, fonIta_);
  corFun_ = 0x80000005;  // window background
  corTx_ = 0x80000008;   // window text
  CorAct();
}

// Paragraphs joined by CR LF, as the platform's box gives its text.
Tx ZunRtf::Text() const {
  QString s = document()->toPlainText();
  s.replace(QChar::LineSeparator, QChar(u'\n'));
  s.replace(QChar(u'\n'), QStringLiteral("\r\n"));
  return TxQs(s);
}

void ZunRtf::Text(const Tx& tx) {
  QString s = QsTx(tx);
  s.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  s.replace(QChar(u'\r'), QChar(u'\n'));
  setCurrentCharFormat(QTextCharFormat());
  setPlainText(s);
}

void ZunRtf::LoadFile(const Tx& caminho) {
  std::string cam = TxUtf8(caminho);
  for (char& c : cam)
    if (c == '\\') c = '/';
  std::ifstream f(cam, std::ios::binary);
  if (!f) throw CtlErr(53, "file not found");
  std::ostringstream os;
  os << f.rdbuf();
  if (f.bad()) throw CtlErr(75, "path/file access error");
  RtfDoc doc;
  if (!RtfLer(os.str(), doc)) throw CtlErr(321, "invalid file format");
  DocPoe(doc);
}

namespace {

// The Qt character format of a run; the font goes by the font table, sizes in
// whole pixels as the control's own font.
QTextCharFormat CarFmt(const RtfCar& c, const Tx& fonPad, const QFont& fonCtl) {
  QTextCharFormat f;
  QString nome = QsTx(c.fon.empty() ? fonPad : c.fon);
  QFont q = nome.isEmpty() ? fonCtl : FonQt(nome, c.tam, c.neg, c.ita);
  if (nome.isEmpty()) {
    q.setPixelSize(std::max(1, int(std::lround(c.tam * 96.0 / 72.0))));
    q.setBold(c.neg);
    q.setItalic(c.ita);
  }
  f.setFont(q, QTextCharFormat::FontPropertiesAll);
  f.setFontUnderline(c.sub);
  f.setFontStrikeOut(c.tac);
  if (c.pos > 0) f.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  if (c.pos < 0) f.setVerticalAlignment(QTextCharFormat::AlignSubScript);
  if (c.cor >= 0) f.setForeground(CorQt(c.cor));
  if (c.fun >= 0) f.setBackground(CorQt(c.fun));
  return f;
}

}  // namespace

void ZunRtf::DocPoe(const RtfDoc& doc) {
  QTextDocument* d = document();
  d->clear();
  QTextCursor cur(d);
  bool pri = true;
  for (const RtfPar& p : doc.pars) {
    QTextBlockFormat b;
    b.setAlignment(p.aln == 1 ? Qt::AlignRight : p.aln == 2 ? Qt::AlignHCenter
                   : p.aln == 3 ? Qt::AlignJustify : Qt::AlignLeft);
    b.setLeftMargin(p.esq / double(kCtlTwpPx));
    b.setRightMargin(p.dir / double(kCtlTwpPx));
    b.setTextIndent(p.pri / double(kCtlTwpPx));
    b.setTopMargin(p.antes / double(kCtlTwpPx));
    b.setBottomMargin(p.depois / double(kCtlTwpPx));
    // A hanging first line tabs to the left indent, as word processors lay out bullets
    // (Qt counts tab stops from where the first line starts).
    if (p.pri < 0) b.setTabPositions({QTextOption::Tab(-p.pri / double(kCtlTwpPx), QTextOption::LeftTab)});
    if (pri) cur.setBlockFormat(b);
    else cur.insertBlock(b);
    pri = false;
    for (const RtfRun& r : p.runs) {
      QString s = QsTx(r.tx);
      s.replace(QChar(u'\n'), QChar::LineSeparator);
      cur.insertText(s, CarFmt(r.car, doc.fonPad, font()));
    }
  }
  moveCursor(QTextCursor::Start);
}

void ZunRtf::BackStyle(int b) {
  if (b < 0 || b > 1) throw CtlErr(380, "invalid property value");
  backStyle_ = b;
  CorAct();
}

// The control's font is the font of plain text set through Text.
void ZunRtf::FonAct() { document()->setDefaultFont(font()); }

void ZunRtf::CorAct() {
  QPalette p = palette();
  p.setColor(QPalette::Base, backStyle_ == 0 ? QColor(Qt::transparent) : CorQt(corFun_));
  p.setColor(QPalette::Text, CorQt(corTx_));
  setPalette(p);
  viewport()->setAutoFillBackground(backStyle_ != 0);
  setAutoFillBackground(false);
}

bool ZunRtf::PrpKndCon(TxV nome, Var& v) const {
  if (PrpIgual(nome, u"Text")) v = Var(Text());
  else if (PrpIgual(nome, u"BackStyle")) v = Var(int16_t(backStyle_));
  else return false;
  return true;
}

bool ZunRtf::PrpKndAtr(TxV nome, const Var& v) {
  if (PrpIgual(nome, u"Text")) Text(TxVar(v));
  else if (PrpIgual(nome, u"BackStyle")) BackStyle(int(PrpNum(v)));
  else return false;
  return true;
}

bool ZunRtf::ExeKnd(TxV nome, std::vector<Var>& args, Var& res) {
  (void)res;
  if (!PrpIgual(nome, u"LoadFile")) return false;
  if (args.empty()) throw CtlErr(450, "wrong number of arguments");
  LoadFile(TxVar(args[0]));
  return true;
}

}  // namespace zw
