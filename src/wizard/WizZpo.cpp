// SupWiz: variables, points and zones. A record keeps the text of its line; its
// values live only in the script engine, assigned again after every group of the
// file, so that a line may use any name assigned before it in the pass, and a name
// of a later group is right from the pass after that group.
#include <stdexcept>
#include "SupWiz.h"
#include "TdaOpc.h"
#include "TxtGlb.h"
#include "VbsSup.h"
#include "WizTab.h"
#include "WizGlb.h"

namespace zw {

// Appends the line i of the current group as a record of kind "V", "P" or "Z".
void SupWiz::ZpoOpcPrp(const Tx& tip, int16_t i) {
  Tx txp;
  int16_t exi = 0;
  mTda->MemConTxp(Var(i), txp, exi);
  Tx txi, var, vtx;
  int16_t ptx = 0;
  TdaOpc::ParPrep(txp, txi, var, vtx, ptx);
  mZpoW = tZpo{var, txi, TxMai(TxTrim(tip)), vtx, Tx()};
  int16_t idx = 0;
  ZpoAdd(idx);
}

// A length of the window in pixels: twips over the screen's twips per pixel. A text
// that is no number ("AUTO") cannot be divided and fails the reading.
static double ZpoPix(const Var& twp, double tpp) {
  if (twp.EhTx()) {
    double d = 0;
    if (!NuEhNum(twp.Txt(), &d)) throw std::runtime_error("Type mismatch: the window's size is not a number");
    return d / tpp;
  }
  return NuDbl(twp) / tpp;
}

// Assigns "xMax", "yMax" and every record, in file order, as expressions: a zone
// gives Ide_X1, Ide_Y1, Ide_X2, Ide_Y2, a point Ide_X, Ide_Y, a variable Ide itself.
// Each assignment is a statement of its own, refused alone; the statements of a
// pass are the same from one group to the next until a record is added, so the
// host runs them as one list that it compiles once.
void SupWiz::ZpoCalc() {
  // The window's size in pixels; a size that is no number fails at its key's line.
  const int32_t lin = mLin;
  mLin = mLinDimX;
  double x = ZpoPix(DimX, TwpPix('X'));
  mLin = mLinDimY;
  double y = ZpoPix(DimY, TwpPix('Y'));
  mLin = lin;
  std::vector<Tx>& cmd = mZpoCmd;
  if (cmd.size() < 2) cmd.resize(2);
  cmd[0] = u"xMax=" + TxVar(Var(x));
  cmd[1] = u"yMax=" + TxVar(Var(y));
  // A record's texts do not change once read and records are only appended, so the
  // statements of each record are made once, when it first takes part in a pass.
  auto atr = [&](const Tx& nome, const Tx& val) { cmd.push_back(nome + u"=" + val); };
  for (int i = mZpoCmdNum + 1; i <= mZpoNum; i++) {
    const tZpo& z = mZpo[size_t(i)];
    if (z.Tip == u"Z" || z.Tip == u"P") {
      Tx pec[4], rst = z.Val;
      int k4 = z.Tip == u"Z" ? 4 : 2;
      for (int k = 0; k < k4; k++) {
        int p = TxPos(rst, u",");
        if (p == 0) {
          pec[k] = rst;
          rst.clear();
        } else {
          pec[k] = TxEsq(rst, p - 1);
          rst = TxMeio(rst, p + 1);
        }
      }
      if (k4 == 4) {
        atr(z.Ide + u"_X1", pec[0]);
        atr(z.Ide + u"_Y1", pec[1]);
        atr(z.Ide + u"_X2", pec[2]);
        atr(z.Ide + u"_Y2", pec[3]);
      } else {
        atr(z.Ide + u"_X", pec[0]);
        atr(z.Ide + u"_Y", pec[1]);
      }
    } else {
      atr(z.Ide, z.Val);
    }
  }
  mZpoCmdNum = mZpoNum;
  int16_t ok = 0;
  VbsCri().ExeCmdLst(cmd, ok);
}

void SupWiz::ZpoAdd(int16_t& idx) { idx = WizTabAdi(mZpo, mZpoNum, mZpoW, mZpoIdx); }

// The first record of that identifier, case-blind; -1 when none.
void SupWiz::ZpoIdx(const Tx& ide, int16_t& idx) const {
  idx = WizTabPsq(mZpoIdx, ide);
  if (idx == 0) idx = -1;
}

}  // namespace zw
