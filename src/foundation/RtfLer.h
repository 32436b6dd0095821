// RtfLer: the reader of rich-text files, as word processors write licence and
// read-me texts. It turns the bytes of a file into a document model - paragraphs
// of runs, each run a text with its character formatting, and the rows of tables
// - that a window layer draws. Groups, control words and symbols, the font and
// colour tables, code pages (\ansicpg, \fcharset, \'hh, double-byte pages, \uN
// with \ucN), paragraphs with their spacing, line spacing and tab stops, line
// breaks, hidden text, tables with their cells' shading, borders and padding, bold,
// italic, underline, strike, font, size, colour, alignment and indents are read;
// destinations it does not know (\*\..., pictures, field instructions, headers)
// are skipped without losing the text around them. A malformed or truncated file
// gives what could be read; the reader never loops back, so it always ends, in
// time linear in the file's size.
#pragma once
#include <string_view>
#include <vector>
#include "Tx.h"

namespace zw {

// Character formatting of a run.
struct RtfCar {
  bool neg = false;      // bold
  bool ita = false;      // italic
  bool sub = false;      // underlined
  bool tac = false;      // struck through
  int pos = 0;           // 1 superscript, -1 subscript
  double tam = 12;       // size in points
  long cor = -1;         // text colour 0x00BBGGRR; -1 the automatic colour
  long fun = -1;         // highlight colour; -1 none
  Tx fon;                // font name ("" the reader's default)
  bool operator==(const RtfCar&) const = default;
};

// Limits of one file: fonts and character formats past these are drawn in the
// plain format of the document (the layer above pays for every distinct font and
// format it meets, and a hostile file may declare tens of thousands).
constexpr int kRtfFonMax = 64;    // distinct fonts in the text
constexpr int kRtfCarMax = 1024;  // distinct character formats in the text
constexpr int kRtfCorMax = 4096;  // entries of the colour table
enum RtfLim { kRtfLimFon = 1, kRtfLimCar = 2, kRtfLimCor = 4 };

// One run: text with one formatting. '\t' is a tab, '\n' a line break inside the
// paragraph.
struct RtfRun {
  Tx tx;
  RtfCar car;
};

// A tab stop: its place from the left margin in twips and its kind.
struct RtfTab {
  int pos = 0;
  int tip = 0;  // 0 left, 1 right, 2 centre, 3 decimal
  bool operator==(const RtfTab&) const = default;
};

// A paragraph: its runs and its layout; measures in twips.
struct RtfPar {
  std::vector<RtfRun> runs;
  int aln = 0;                  // 0 left, 1 right, 2 centre, 3 justified
  int esq = 0, dir = 0, pri = 0;  // left and right indents, first-line indent
  int antes = 0, depois = 0;    // space before and after (the two add up)
  int lin = 0;                  // line spacing \sl: 0 single, > 0 at least, < 0 exactly
  bool linMul = false;          // \slmult1: lin is in 240ths of a single line
  bool ctx = false;             // \contextualspace: no space next to a paragraph of its style
  bool espLat = false;          // \aspalpha: room between East Asian text and Latin letters
  bool espNum = false;          // \aspnum: the same next to digits
  int est = 0;                  // its style number (\s)
  std::vector<RtfTab> tabs;     // tab stops, in order
  RtfCar car;                   // the paragraph mark's formatting: an empty paragraph's height
  int tbl = -1;                 // the table row it lies in (RtfDoc::tbls), -1 none
  int cel = 0;                  // its cell in that row
};

// A cell border: width in twips (0 none) and colour (-1 automatic).
struct RtfBor {
  int lar = 0;
  long cor = -1;
};

// A cell of a table row: its right edge from the left margin, shading and
// borders (left, top, right, bottom), all in twips.
struct RtfTblCel {
  int dirX = 0;
  long fun = -1;
  RtfBor bor[4];
};

// A table row: its left edge, the padding of its cells (left, top, right,
// bottom) and its cells.
struct RtfTblLin {
  int esq = 0;
  int pad[4] = {0, 0, 0, 0};
  std::vector<RtfTblCel> cels;
};

struct RtfDoc {
  std::vector<RtfPar> pars;
  std::vector<RtfTblLin> tbls;
  Tx fonPad;    // the default font (\deff)
  int lim = 0;  // the limits the file reached (RtfLim bits)
};

// Reads a rich-text file's bytes. False, with an empty document, when the bytes do
// not begin with "{\rtf" (after blanks); true otherwise, with what could be read.
bool RtfLer(std::string_view bytes, RtfDoc& doc);

// The document's plain text: paragraphs joined by CR LF, line breaks as CR LF,
// the cells of a table row joined by tabs.
Tx RtfTx(const RtfDoc& doc);

}  // namespace zw
