// RtfLer: the reader of rich-text files, as word processors write licence and
// read-me texts. It turns the bytes of a file into a document model - paragraphs
// of runs, each run a text with its character formatting - that a window layer
// draws. Groups, control words and symbols, the font and colour tables, code
// pages (\ansicpg, \'hh, \uN with \ucN), paragraphs, line breaks, tabs, bold,
// italic, underline, strike, font, size, colour, alignment and indents are read;
// destinations it does not know (\*\..., pictures, field instructions, headers)
// are skipped without losing the text around them. A malformed or truncated file
// gives what could be read; the reader never loops back, so it always ends.
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

// One run: text with one formatting. '\t' is a tab, '\n' a line break inside the
// paragraph.
struct RtfRun {
  Tx tx;
  RtfCar car;
};

// A paragraph: its runs and its layout; measures in twips.
struct RtfPar {
  std::vector<RtfRun> runs;
  int aln = 0;                  // 0 left, 1 right, 2 centre, 3 justified
  int esq = 0, dir = 0, pri = 0;  // left and right indents, first-line indent
  int antes = 0, depois = 0;    // space before and after
};

struct RtfDoc {
  std::vector<RtfPar> pars;
  Tx fonPad;  // the default font (\deff)
};

// Reads a rich-text file's bytes. False, with an empty document, when the bytes do
// not begin with "{\rtf" (after blanks); true otherwise, with what could be read.
bool RtfLer(std::string_view bytes, RtfDoc& doc);

// The document's plain text: paragraphs joined by CR LF, line breaks as CR LF.
Tx RtfTx(const RtfDoc& doc);

}  // namespace zw
