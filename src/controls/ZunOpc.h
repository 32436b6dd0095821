// ZunOpc: the option-group control. A frame with a title holding a group of
// mutually exclusive options, filled at run time and laid out by measuring its
// text. Element 0 of the options stands for no selection and stays hidden; the
// options are 1 to OpcNum. It can take the colours of its parent or container,
// or show the window's picture behind it so that it looks transparent, and it
// tells its owner of a selection with the signal OpcSel. Geometry is in twips.
//
// All operations pass errors over, as the original did: a step that fails
// leaves the rest as it was.
#pragma once
#include <QFont>
#include <QWidget>
#include <vector>
#include "CtlQt.h"

class QButtonGroup;
class QRadioButton;

namespace zw {

class ZunOpc : public QWidget, public CtlQt {
  Q_OBJECT
 public:
  explicit ZunOpc(QWidget* pai = nullptr);
  ~ZunOpc() override;

  // ---- Properties
  const Tx& Caption() const { return cap_; }
  void Caption(const Tx& c);
  // The options' font (the text measurer's) and the title's font.
  QFont Font() const { return fonOpc_; }
  void Font(const QFont& f);
  QFont CapFont() const { return fonCap_; }
  void CapFont(const QFont& f);
  void BackColor(long cor);
  void ForeColor(long cor);
  long CapColor() const { return capCor_; }
  void CapColor(long cor);
  bool BorderVisible() const { return bordaFlag_ != 0; }
  void BorderVisible(bool b);
  // The title's alignment: "<" left, ">" right, "|" centre. Set by the first
  // character: "<" or "7", ">" or "9", "|" or "8"; any other leaves it.
  Tx TitAli() const;
  void TitAli(TxV pal);
  // The selected option (0 when none); set selects an option, out of range nothing.
  int opcUsa() const;
  void opcUsa(int i);

  // ---- Operations
  void CorTip(TxV pal);  // "C" container's colours, "P" parent's, "IP" parent's picture, "I" it again, else "N"
  void RegIni();         // removes all options
  void RegOpc(const Tx& tx, const Tx& adi);  // adds an option; no selection afterwards
  void ConOpc(int i, Tx& tx, Tx& adi) const;  // caption and additional text; left alone if none
  void RegOpcPos(int i, double x, double y);
  // Places all options from (x, y) in steps; a step given as a text is the sample
  // text's size plus the number in it, so "+30" is one line and 30 twips.
  void RegAsp(double x, double y, const Var& passoX, const Var& passoY);
  // Shares the height under the title among the options, centred with 1.
  void AjtPosY(double margTop, double margBot, int centro);
  int OpcNum() const { return int(opc_.size()) - 1; }

  // ---- For the window and tests
  QRadioButton* Opc(int i) const;  // element i, null when it is not there
  const Tx& Tag(int i) const;
  const Tx& ModoCor() const { return modo_; }
  // Size of a text in the options' font (title false) or the title's (true), in
  // twips; an empty text is measured as "AÃÇ", the tallest letters of the language.
  void TxDim(bool titulo, const Tx& tx, double& larg, double& alt) const;

 signals:
  // The user (or opcUsa) selected option i. Never raised while options are being
  // created or cleared.
  void OpcSel(int i);

 protected:
  bool PrpTipCon(TxV nome, Var& v) const override;
  bool PrpTipAtr(TxV nome, const Var& v) override;
  bool ExeTip(TxV nome, std::vector<Var>& args, Var& res) override;
  bool TemIta() const override { return false; }
  void CorAct() override;
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  void RegDim();
  void OpcSelDsp(int i);
  void OpcPosAct(int i, double x, double y);
  void OpcLarAjt(int i);
  void OpcCorAct(int i);
  void OpcRefr();
  void TitDim(double& alt, double& util) const;
  bool TitTem() const;
  QRadioButton* OpcCri(int i);

  std::vector<QRadioButton*> opc_;  // element 0 is the hidden one
  std::vector<Tx> tag_;
  QButtonGroup* grp_ = nullptr;
  Tx cap_;
  QFont fonOpc_, fonCap_;
  long capCor_ = 0;
  long frFun_ = 0x8000000F, frTx_ = 0;  // the frame's colours
  long dimFun_ = 0x8000000F, dimTx_ = 0;  // the measurer's colours, given to options
  int bordaFlag_ = 1;
  int ali_ = 0;  // title: 0 left, 1 right, 2 centre
  int atualiza_ = 0;  // 1 while options are created or cleared
  Tx modo_ = u"N";
  bool img_ = false;     // the parent's picture shows behind
  bool imgCop_ = false;  // "IP" has taken the parent's picture once
  // Stored only, as the original kept them.
  bool fontBold_ = false;
  Tx fontName_;
  int fontSize_ = 0;
};

}  // namespace zw
