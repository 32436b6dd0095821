// The rich-text box: a read-only QTextEdit showing a document of the RTF reader.
#include "ZunRtf.h"
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>
#include <cmath>
#include <QTextCursor>
#include <QTextDocument>
#include <fstream>
#include <sstream>
#include "FicLer.h"
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
  op.setTabStopDistance(kFonDpi / 2);  // a default tab every half inch
  document()->setDefaultTextOption(op);
  FonPoe(fonNom_, fonTam_, fonNeg_, fonIta_);
  corFun_ = 0x80000005;  // window background
  corTx_ = 0x80000008;   // window text
  CorAct();
}

// Paragraphs joined by CR LF, as the platform's box gives its text.
Tx ZunRtf::Text() const {
  if (txtDoc_) return txt_;
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
  txtDoc_ = false;
}

void ZunRtf::LoadFile(const Tx& caminho) {
  // Read by the rule of every file the system reads, up to the rich-text limit; a
  // refusal is told with its reason.
  std::string b;
  if (int e = FicLer(caminho, b, kRtfLerMax)) {
    if (e == kErrFicNao || e == kErrDirNao) throw CtlErr(53, "file not found");
    LimTrc(u"refused rich text " + caminho + u" (" + TxDeUtf8(FicLerPorque(e, kRtfLerMax)) + u")");
    throw CtlErr(75, "path/file access error");
  }
  if (b.size() >= 2 && ((b[0] == '\xFF' && b[1] == '\xFE') || (b[0] == '\xFE' && b[1] == '\xFF'))) {
    Utf16Ler(caminho, b);
    return;
  }
  RtfDoc doc;
  if (!RtfLer(b, doc)) throw CtlErr(321, "invalid file format");
  DocPoe(doc);
}

// A file saved as UTF-16 with its byte-order mark (Notepad's "Unicode"): rich text
// written so is read with each character past ASCII given as "\uN", anything else
// is shown as plain text; the trace says which, since the rich-edit control of
// Windows would have shown such a file as it is.
void ZunRtf::Utf16Ler(const Tx& caminho, const std::string& b) {
  bool be = b[0] == '\xFE';
  Tx t;
  for (size_t i = 2; i + 1 < b.size(); i += 2) {
    unsigned char x = static_cast<unsigned char>(b[i]), y = static_cast<unsigned char>(b[i + 1]);
    t.push_back(char16_t(be ? (x << 8 | y) : (y << 8 | x)));
  }
  if (t.rfind(u"{\\rtf", 0) == 0) {
    std::string r;
    for (char16_t c : t)
      if (c < 0x80) r.push_back(char(c));
      else r += "{\\uc1\\u" + std::to_string(int(int16_t(c))) + "?}";
    RtfDoc doc;
    if (RtfLer(r, doc)) {
      LimTrc(u"rich text " + caminho + u" read as UTF-16");
      DocPoe(doc);
      return;
    }
  }
  LimTrc(u"rich text " + caminho + u" is UTF-16 text, shown as plain text");
  Text(t);
}

namespace {

// The property of a character format that keeps the run's own shading, painted
// only while the box is opaque.
constexpr int kPrpFun = QTextFormat::UserProperty + 1;

// A length of the document in pixels of its type (kFonDpi), not the screen's.
double Px(int twp) { return twp * kFonDpi / kTwpPol; }

// The Qt character format of a run; the font goes by the font table, sizes in
// whole pixels as the control's own font.
QTextCharFormat CarFmt(const RtfCar& c, const Tx& fonPad, const QFont& fonCtl, bool opaco) {
  QTextCharFormat f;
  QString nome = QsTx(c.fon.empty() ? fonPad : c.fon);
  QFont q = nome.isEmpty() ? fonCtl : FonQt(nome, c.tam, c.neg, c.ita);
  if (nome.isEmpty()) {
    q.setPixelSize(std::max(1, int(std::lround(c.tam * kFonDpi / 72.0))));
    q.setBold(c.neg);
    q.setItalic(c.ita);
  }
  f.setFont(q, QTextCharFormat::FontPropertiesAll);
  f.setFontUnderline(c.sub);
  f.setFontStrikeOut(c.tac);
  if (c.pos > 0) f.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  if (c.pos < 0) f.setVerticalAlignment(QTextCharFormat::AlignSubScript);
  if (c.cor >= 0) f.setForeground(CorQt(c.cor));
  if (c.fun >= 0) {
    f.setProperty(kPrpFun, QVariant::fromValue(qlonglong(c.fun)));
    if (opaco) f.setBackground(CorQt(c.fun));
  }
  return f;
}

// The Qt block format of a paragraph. Space before a paragraph is the one after
// the paragraph above and its own before added together (antes, in twips), all
// of it put above the paragraph so that Qt has nothing to merge. Line spacing:
// a multiple of the single line (\slmult1), at least or exactly a height. Tab
// stops are measured from the page's left margin; Qt measures them from where
// the first line starts, so they are moved by the left and first-line indents.
QTextBlockFormat ParFmt(const RtfPar& p, int antes, int depois) {
  QTextBlockFormat b;
  b.setAlignment(p.aln == 1 ? Qt::AlignRight : p.aln == 2 ? Qt::AlignHCenter
                 : p.aln == 3 ? Qt::AlignJustify : Qt::AlignLeft);
  b.setLeftMargin(Px(p.esq));
  b.setRightMargin(Px(p.dir));
  b.setTextIndent(Px(p.pri));
  b.setTopMargin(Px(antes));
  b.setBottomMargin(Px(depois));
  if (p.lin != 0 && p.linMul && p.lin > 0) b.setLineHeight(p.lin * 100.0 / 240.0, QTextBlockFormat::ProportionalHeight);
  else if (p.lin < 0) b.setLineHeight(Px(-p.lin), QTextBlockFormat::FixedHeight);
  else if (p.lin > 0) b.setLineHeight(Px(p.lin), QTextBlockFormat::MinimumHeight);
  QList<QTextOption::Tab> tabs;
  int ini = p.esq + p.pri;
  bool pendura = p.pri < 0;  // a hanging first line tabs to the left indent first
  for (const RtfTab& t : p.tabs) {
    if (pendura && t.pos >= p.esq) {
      if (t.pos > p.esq) tabs.append(QTextOption::Tab(Px(p.esq - ini), QTextOption::LeftTab));
      pendura = false;
    }
    if (t.pos <= ini) continue;
    QTextOption::TabType tip = t.tip == 1 ? QTextOption::RightTab : t.tip == 2 ? QTextOption::CenterTab
                               : t.tip == 3 ? QTextOption::DelimiterTab : QTextOption::LeftTab;
    tabs.append(QTextOption::Tab(Px(t.pos - ini), tip, tip == QTextOption::DelimiterTab ? QChar(u'.') : QChar()));
  }
  if (pendura) tabs.append(QTextOption::Tab(Px(p.esq - ini), QTextOption::LeftTab));
  if (!tabs.isEmpty()) b.setTabPositions(tabs);
  return b;
}

// The space between paragraph a and the next, b: a's after and b's before, each
// left out where its paragraph asks for none next to one of its own style.
int EspEntre(const RtfPar* a, const RtfPar& b) {
  bool mesmo = a && a->est == b.est;
  int r = b.ctx && mesmo ? 0 : b.antes;
  if (a && !(a->ctx && mesmo)) r += a->depois;
  return r;
}

// The Qt border of one side of a cell.
void BorPoe(QTextTableCellFormat& f, int lado, const RtfBor& b) {
  double w = b.lar > 0 ? std::max(1.0, std::round(Px(b.lar))) : 0;
  QBrush cor(b.lar > 0 ? CorQt(b.cor >= 0 ? b.cor : 0) : QColor(Qt::transparent));
  auto est = b.lar > 0 ? QTextFrameFormat::BorderStyle_Solid : QTextFrameFormat::BorderStyle_None;
  switch (lado) {
    case 0: f.setLeftBorder(w); f.setLeftBorderBrush(cor); f.setLeftBorderStyle(est); break;
    case 1: f.setTopBorder(w); f.setTopBorderBrush(cor); f.setTopBorderStyle(est); break;
    case 2: f.setRightBorder(w); f.setRightBorderBrush(cor); f.setRightBorderStyle(est); break;
    default: f.setBottomBorder(w); f.setBottomBorderBrush(cor); f.setBottomBorderStyle(est); break;
  }
}

// What a character is to the room Word leaves between scripts: East Asian
// (ideographs, kana, Hangul), a Latin letter, a digit, or none of these.
enum class Esc { Nada, Asia, Lat, Num };

Esc EscDe(char16_t c) {
  if ((c >= 0x3040 && c <= 0x30FF) || (c >= 0x3400 && c <= 0x4DBF) || (c >= 0x4E00 && c <= 0x9FFF) ||
      (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xAC00 && c <= 0xD7AF) || (c >= 0xFF66 && c <= 0xFF9F))
    return Esc::Asia;
  if (c >= u'0' && c <= u'9') return Esc::Num;
  if ((c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= 0xC0 && c <= 0x24F && c != 0xD7 && c != 0xF7))
    return Esc::Lat;
  return Esc::Nada;
}

// The characters of a paragraph after which Word and LibreOffice leave room:
// where East Asian text meets a Latin letter (\aspalpha) or a digit (\aspnum),
// either way round. Empty when the paragraph asks for none.
std::vector<bool> Folgas(const RtfPar& p) {
  std::vector<bool> r;
  if (!p.espLat && !p.espNum) return r;
  Tx t;
  for (const RtfRun& run : p.runs) t += run.tx;
  r.assign(t.size(), false);
  for (size_t i = 0; i + 1 < t.size(); ++i) {
    Esc a = EscDe(t[i]), b = EscDe(t[i + 1]);
    if (a != Esc::Asia && b != Esc::Asia) continue;
    Esc o = a == Esc::Asia ? b : a;
    r[i] = (o == Esc::Lat && p.espLat) || (o == Esc::Num && p.espNum);
  }
  return r;
}

}  // namespace

// Paragraphs go in one after the other; the rows of a table that follow each
// other make one Qt table, whose columns are cut at every cell edge of its rows so
// that rows of different cells keep their own widths (a cell spans the columns
// between its edges). The block after a table, which Qt always keeps, takes the
// next paragraph.
void ZunRtf::DocPoe(const RtfDoc& doc) {
  QTextDocument* d = document();
  d->clear();
  QTextCursor cur(d);
  bool livre = true;  // the block at the cursor is empty and takes the next paragraph
  bool opaco = backStyle_ != 0;
  const RtfPar* ant = nullptr;
  auto parPoe = [&](const RtfPar& p, QTextCursor& c, bool novo, int antes, int depois) {
    QTextCharFormat marca = CarFmt(p.car, doc.fonPad, font(), opaco);
    if (novo) c.insertBlock(ParFmt(p, antes, depois), marca);
    else {
      c.setBlockFormat(ParFmt(p, antes, depois));
      c.setBlockCharFormat(marca);
    }
    // The room between scripts: a quarter of the font's size after the character,
    // given as letter spacing to that character alone.
    std::vector<bool> folga = Folgas(p);
    size_t o = 0;
    for (const RtfRun& r : p.runs) {
      QString s = QsTx(r.tx);
      s.replace(QChar(u'\n'), QChar::LineSeparator);
      QTextCharFormat f = CarFmt(r.car, doc.fonPad, font(), opaco);
      if (folga.empty()) {
        c.insertText(s, f);
        continue;
      }
      QTextCharFormat fl = f;
      fl.setFontLetterSpacingType(QFont::AbsoluteSpacing);
      QFont q = f.font();
      fl.setFontLetterSpacing((q.pixelSize() > 0 ? q.pixelSize() : q.pointSizeF() * 96.0 / 72.0) / 4.0);
      for (qsizetype i = 0; i < s.size();) {
        bool com = folga[o + size_t(i)];
        qsizetype j = i + 1;
        while (j < s.size() && folga[o + size_t(j)] == com) ++j;
        c.insertText(s.mid(i, j - i), com ? fl : f);
        i = j;
      }
      o += size_t(s.size());
    }
  };
  size_t n = doc.pars.size();
  for (size_t i = 0; i < n;) {
    const RtfPar& p = doc.pars[i];
    if (p.tbl < 0 || size_t(p.tbl) >= doc.tbls.size()) {
      parPoe(p, cur, !livre, EspEntre(ant, p), i + 1 == n ? p.depois : 0);
      livre = false;
      ant = &p;
      ++i;
      continue;
    }
    // The rows that follow each other from here, and the edges of their cells.
    size_t fim = i;
    int l0 = p.tbl, l1 = p.tbl;
    while (fim < n && doc.pars[fim].tbl >= 0 && doc.pars[fim].tbl >= l1 && doc.pars[fim].tbl - l1 <= 1 &&
           size_t(doc.pars[fim].tbl) < doc.tbls.size()) {
      l1 = doc.pars[fim].tbl;
      ++fim;
    }
    std::vector<int> bordas;
    for (int l = l0; l <= l1; ++l) {
      int x = doc.tbls[size_t(l)].esq;
      bordas.push_back(x);
      for (const RtfTblCel& c : doc.tbls[size_t(l)].cels) bordas.push_back(x = std::max(x + 1, c.dirX));
    }
    std::sort(bordas.begin(), bordas.end());
    bordas.erase(std::unique(bordas.begin(), bordas.end()), bordas.end());
    int cols = std::max(1, int(bordas.size()) - 1);
    auto col = [&](int x) { return int(std::lower_bound(bordas.begin(), bordas.end(), x) - bordas.begin()); };
    QTextTableFormat tf;
    tf.setBorder(0);
    tf.setBorderCollapse(true);
    tf.setCellSpacing(0);
    tf.setCellPadding(0);
    tf.setMargin(0);
    tf.setTopMargin(Px(EspEntre(ant, p)));
    tf.setLeftMargin(std::max(0.0, Px(doc.tbls[size_t(l0)].esq)));
    tf.setAlignment(Qt::AlignLeft);
    QList<QTextLength> larg;
    for (int k = 0; k < cols; ++k)
      larg.append(QTextLength(QTextLength::FixedLength, bordas.size() > 1 ? Px(bordas[size_t(k) + 1] - bordas[size_t(k)]) : 0));
    if (bordas.size() > 1) tf.setColumnWidthConstraints(larg);
    QTextBlock vazio = livre ? cur.block() : QTextBlock();
    QTextTable* t = cur.insertTable(l1 - l0 + 1, cols, tf);
    if (vazio.isValid()) {  // Qt keeps the empty block before the table: it takes no room
      QTextCursor v(vazio);
      QTextBlockFormat bf;
      bf.setLineHeight(0, QTextBlockFormat::FixedHeight);
      v.setBlockFormat(bf);
      QTextCharFormat cf;
      QFont f = font();
      f.setPixelSize(1);
      cf.setFont(f);
      v.setBlockCharFormat(cf);
    }
    // Cells: where each lies in the grid, then their text, then the spans, shading,
    // borders and padding (a cell's format lives on its first block's mark, which
    // the text's format would replace).
    std::vector<int> ini(size_t(l1 - l0 + 1) * 256, -1);  // first grid column of each cell
    std::vector<int> vao(ini.size(), 1);                  // the columns it spans
    for (int l = l0; l <= l1; ++l) {
      const RtfTblLin& ln = doc.tbls[size_t(l)];
      int x = ln.esq;
      for (size_t k = 0; k < ln.cels.size() && k < 256; ++k) {
        int a = col(x), b = col(std::max(x + 1, ln.cels[k].dirX));
        x = std::max(x + 1, ln.cels[k].dirX);
        if (a >= cols) break;
        ini[size_t(l - l0) * 256 + k] = a;
        vao[size_t(l - l0) * 256 + k] = std::min(b, cols) - a;
      }
    }
    // The paragraphs of each cell, the first in the block Qt made for the cell.
    int celAnt = -1, linAnt = -1;
    const RtfPar* antCel = nullptr;
    for (size_t k = i; k < fim; ++k) {
      const RtfPar& q = doc.pars[k];
      size_t ci = size_t(q.tbl - l0) * 256 + size_t(std::min(q.cel, 255));
      int a = q.cel < 256 ? ini[ci] : -1;
      if (a < 0) a = cols - 1;  // text past the row's last cell goes to its last cell
      if (q.tbl != linAnt || a != celAnt) {
        QTextCursor cc = t->cellAt(q.tbl - l0, a).lastCursorPosition();
        bool vazia = cc.block().text().isEmpty() && cc.block() == t->cellAt(q.tbl - l0, a).firstCursorPosition().block();
        parPoe(q, cc, !vazia, 0, 0);
        cur = cc;
        antCel = &q;
      } else {
        parPoe(q, cur, true, EspEntre(antCel, q), 0);
        antCel = &q;
      }
      linAnt = q.tbl;
      celAnt = a;
    }
    for (int l = l0; l <= l1; ++l) {
      const RtfTblLin& ln = doc.tbls[size_t(l)];
      for (size_t k = 0; k < ln.cels.size() && k < 256; ++k) {
        int a = ini[size_t(l - l0) * 256 + k];
        if (a < 0) break;
        const RtfTblCel& c = ln.cels[k];
        if (vao[size_t(l - l0) * 256 + k] > 1) t->mergeCells(l - l0, a, 1, vao[size_t(l - l0) * 256 + k]);
        QTextTableCell tc = t->cellAt(l - l0, a);
        QTextTableCellFormat cf = tc.format().toTableCellFormat();
        if (c.fun >= 0) cf.setBackground(CorQt(c.fun));
        cf.setLeftPadding(Px(ln.pad[0]));
        cf.setTopPadding(Px(ln.pad[1]));
        cf.setRightPadding(Px(ln.pad[2]));
        cf.setBottomPadding(Px(ln.pad[3]));
        for (int s = 0; s < 4; ++s) BorPoe(cf, s, c.bor[s]);
        tc.setFormat(cf);
      }
    }
    cur = t->lastCursorPosition();
    cur.movePosition(QTextCursor::NextBlock);
    livre = true;
    ant = &doc.pars[fim - 1];
    i = fim;
  }
  moveCursor(QTextCursor::Start);
  txt_ = RtfTx(doc);
  txtDoc_ = true;
  if (doc.lim)
    qWarning("rich text: more than %d fonts, %d formats or %d colours; the rest drawn in the plain format",
             kRtfFonMax, kRtfCarMax, kRtfCorMax);
}

// The shading of runs is painted only while the box is opaque: over a box that
// shows the window through it, a white shading would paint white patches, which
// the platform's box never did.
void ZunRtf::FunAct() {
  bool opaco = backStyle_ != 0;
  QTextCursor c(document());
  for (QTextBlock b = document()->begin(); b.isValid(); b = b.next())
    for (auto it = b.begin(); !it.atEnd(); ++it) {
      QTextFragment fr = it.fragment();
      QTextCharFormat f = fr.charFormat();
      if (!f.hasProperty(kPrpFun)) continue;
      if (opaco) f.setBackground(CorQt(long(f.property(kPrpFun).toLongLong())));
      else f.clearBackground();
      c.setPosition(fr.position());
      c.setPosition(fr.position() + fr.length(), QTextCursor::KeepAnchor);
      c.setCharFormat(f);
    }
}

void ZunRtf::BackStyle(int b) {
  if (b < 0 || b > 1) throw CtlErr(380, "invalid property value");
  backStyle_ = b;
  CorAct();
  FunAct();
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

bool ZunRtf::PrpTipCon(TxV nome, Var& v) const {
  if (PrpIgual(nome, u"Text")) v = Var(Text());
  else if (PrpIgual(nome, u"BackStyle")) v = Var(int16_t(backStyle_));
  else return false;
  return true;
}

bool ZunRtf::PrpTipAtr(TxV nome, const Var& v) {
  if (PrpIgual(nome, u"Text")) Text(TxVar(v));
  else if (PrpIgual(nome, u"BackStyle")) BackStyle(int(PrpNum(v)));
  else return false;
  return true;
}

bool ZunRtf::ExeTip(TxV nome, std::vector<Var>& args, Var& res) {
  (void)res;
  if (!PrpIgual(nome, u"LoadFile")) return false;
  if (args.empty()) throw CtlErr(450, "wrong number of arguments");
  LoadFile(TxVar(args[0]));
  return true;
}

}  // namespace zw
