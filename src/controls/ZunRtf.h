// ZunRtf: the rich-text box of the wizard window (the rtfWiz array).
// Read-only, as the original window had it. LoadFile reads a rich-text file and
// shows it with its formatting; Text gives the plain text and, set, replaces the
// whole content with plain text in the control's font. BackStyle 0 leaves the
// back transparent, so the window's picture shows through; the shading of
// characters is then not painted either.
#pragma once
#include <QTextEdit>
#include "CtlQt.h"

namespace zw {

struct RtfDoc;

class ZunRtf : public QTextEdit, public CtlQt {
 public:
  explicit ZunRtf(QWidget* pai = nullptr);

  // The plain text: paragraphs joined by CR LF, a table row's cells by tabs.
  Tx Text() const;
  void Text(const Tx& tx);
  // Reads the file (both "\" and "/" separate folders). A file that is missing or
  // cannot be read raises error 75 or 53; one that is no rich text error 321, and
  // the content is left as it was. A UTF-16 file with its byte-order mark is read
  // too: as rich text when it is rich text, else shown as plain text.
  void LoadFile(const Tx& caminho);
  // Shows a document read elsewhere.
  void DocPoe(const RtfDoc& doc);
  int BackStyle() const { return backStyle_; }
  void BackStyle(int b);

 protected:
  bool PrpTipCon(TxV nome, Var& v) const override;
  bool PrpTipAtr(TxV nome, const Var& v) override;
  bool ExeTip(TxV nome, std::vector<Var>& args, Var& res) override;
  void FonAct() override;
  void CorAct() override;

 private:
  void FunAct();
  void Utf16Ler(const Tx& caminho, const std::string& b);
  int backStyle_ = 1;
  // The plain text of the document shown, as the reader gives it (a table's
  // cells joined by tabs); false once Text has replaced it.
  Tx txt_;
  bool txtDoc_ = false;
};

}  // namespace zw
