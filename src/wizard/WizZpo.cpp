// SupWiz: variables, points and zones. A record keeps the text of its line; its
// values live only in the script engine, assigned again after every group of the
// file, so that a line may use any name assigned before it in the pass, and a name
// of a later group is right from the pass after that group.
#include <stdexcept>
#include "SupWiz.h"
#include "TxtGlb.h"
#include "Twp.h"
#include "VbsSup.h"
#include "WizTab.h"

namespace zw {

// A length of the window in pixels of the axis, not rounded. A text that is no number
// ("AUTO") cannot be divided and fails the reading.
static double ZpoPix(const Var& twp, char eixo) {
  if (twp.EhTx()) {
    double d = 0;
    if (!NuEhNum(twp.Txt(), &d)) throw std::runtime_error("Type mismatch: the window's size is not a number");
    return d / TwpPix(eixo);
  }
  return NuDbl(twp) / TwpPix(eixo);
}

// Assigns "xMax", "yMax" and every record, in file order, as expressions: a zone
// gives Ide_X1, Ide_Y1, Ide_X2, Ide_Y2, a point Ide_X, Ide_Y, a variable Ide itself.
// Each assignment is a statement of its own, refused alone; the statements of a
// pass are the same from one group to the next until a record is added, so the
// host runs them as one list that it compiles once.
void SupWiz::ZpoCalc() {
  // The window's size in pixels; a size that is no number fails at its key's line.
  const int32_t lin = mLin;
  mLin = mDef.LinDimX;
  double x = ZpoPix(mDef.DimX, 'X');
  mLin = mDef.LinDimY;
  double y = ZpoPix(mDef.DimY, 'Y');
  mLin = lin;
  std::vector<Tx>& cmd = mZpoCmd;
  if (cmd.size() < 2) cmd.resize(2);
  cmd[0] = u"xMax=" + TxVar(Var(x));
  cmd[1] = u"yMax=" + TxVar(Var(y));
  // A record's texts do not change once read and records are only appended, so the
  // statements of each record are made once, when it first takes part in a pass.
  std::vector<Tx> nom;
  for (int i = mZpoCmdNum + 1; i <= mDef.ZpoNum; i++) ZpoCmd(mDef.Zpo[size_t(i)], nom, cmd);
  mZpoCmdNum = mDef.ZpoNum;
  int16_t ok = 0;
  VbsCri().ExeCmdLst(cmd, ok);
}

// The first record of that identifier, case-blind; 0 (the unused element) when
// none, as every table's look-up answers.
void SupWiz::ZpoIdx(const Tx& ide, int16_t& idx) const {
  idx = WizTabPsq(mDef.ZpoIdx, ide);
}

}  // namespace zw
