// Arrays and sorting: largest and smallest, comb sorts of texts, values and
// indices, bounds and copies; and starting and ending objects by name.
#include <algorithm>
#include "GlbVar.h"

namespace zw {

double NuArrMax(const std::vector<Var>& a, int ini) {
  double m = 0;
  bool um = false;
  for (size_t i = size_t(std::max(ini, 0)); i < a.size(); i++) {
    double d = NuDbl(a[i]);
    if (!um || d > m) m = d;
    um = true;
  }
  return m;
}

double NuArrMin(const std::vector<Var>& a, int ini) {
  double m = 0;
  bool um = false;
  for (size_t i = size_t(std::max(ini, 0)); i < a.size(); i++) {
    double d = NuDbl(a[i]);
    if (!um || d < m) m = d;
    um = true;
  }
  return m;
}

void VarTro(Var& a, Var& b) { std::swap(a, b); }

// Compares two values by their own kind: numbers (booleans and empty count as
// numbers) by value, texts binary, and any number below any text.
int VarCmp(const Var& a, const Var& b) {
  bool ta = a.EhTx(), tb = b.EhTx();
  if (ta || tb) {
    if ((ta || a.EhVazio()) && (tb || b.EhVazio())) {
      int c = (ta ? a.Txt() : Tx()).compare(tb ? b.Txt() : Tx());
      return c < 0 ? -1 : c > 0 ? 1 : 0;
    }
    return ta ? 1 : -1;
  }
  double x = a.Num(), y = b.Num();
  return x < y ? -1 : x > y ? 1 : 0;
}

// Next gap of the comb sort: divided by 1.3 without the fraction, at least 1, and
// 9 or 10 become 11.
int SortGap(int gap) {
  int g = int(gap / 1.3);
  if (g < 1) g = 1;
  if (g == 9 || g == 10) g = 11;
  return g;
}

// Comb sort of positions 1..n; gt compares two positions, tro swaps them.
template <class Gt, class Tro>
static void SortComb(int n, Gt gt, Tro tro) {
  int gap = n;
  bool troca = true;
  while (gap > 1 || troca) {
    gap = SortGap(gap);
    troca = false;
    for (int i = 1; i + gap <= n; i++)
      if (gt(i, i + gap)) {
        tro(i, i + gap);
        troca = true;
      }
  }
}

int ArrLimCon(const TxArr& a, int n) {
  if (n >= 0) return n;
  if (n == -2) return int(a.size()) - 1;
  return a.empty() ? 0 : int(NuVal(a[0]));
}

int ArrLimVar(const std::vector<Var>& a, int n) {
  if (n >= 0) return n;
  if (n == -2) return int(a.size()) - 1;
  return a.empty() ? 0 : int(NuDbl(a[0]));
}

void SortTx(TxArr& a, int n) {
  n = std::min(ArrLimCon(a, n), int(a.size()) - 1);
  SortComb(n, [&](int i, int j) { return a[size_t(i)] > a[size_t(j)]; },
           [&](int i, int j) { std::swap(a[size_t(i)], a[size_t(j)]); });
}

static int SortCmp(bool ci, const Var& a, const Var& b) {
  if (!ci) return VarCmp(a, b);
  return TxMai(TxVar(a)).compare(TxMai(TxVar(b)));
}

void SortVar(TxV modo, std::vector<Var>& a, int n) {
  bool ci = modo == u"CI";
  n = std::min(ArrLimVar(a, n), int(a.size()) - 1);
  SortComb(n, [&](int i, int j) { return SortCmp(ci, a[size_t(i)], a[size_t(j)]) > 0; },
           [&](int i, int j) { std::swap(a[size_t(i)], a[size_t(j)]); });
}

void ArrIdxIni(std::vector<int>& idx, int n) {
  idx.assign(size_t(std::max(n, 0)) + 1, 0);
  for (int i = 1; i <= n; i++) idx[size_t(i)] = i;
}

// Sorted order of positions 1..n in idx; the values themselves stay where they are.
void SortIdx(TxV modo, const std::vector<Var>& a, std::vector<int>& idx, int n) {
  bool ci = modo == u"CI";
  n = std::min(ArrLimVar(a, n), int(a.size()) - 1);
  ArrIdxIni(idx, n);
  SortComb(n,
           [&](int i, int j) {
             return SortCmp(ci, a[size_t(idx[size_t(i)])], a[size_t(idx[size_t(j)])]) > 0;
           },
           [&](int i, int j) { std::swap(idx[size_t(i)], idx[size_t(j)]); });
}

void ArrLim(const std::vector<Var>& a, int& lo, int& hi, int& ok) {
  lo = 0;
  hi = int(a.size()) - 1;
  ok = 1;
}

int ArrAdi(std::vector<Var>& a, const Var& v) {
  a.push_back(v);
  return int(a.size()) - 1;
}

void ArrCop(const std::vector<Var>& a, std::vector<Var>& b) {
  if (&a != &b) b = a;
}

void ArrNorm(const std::vector<Var>& a, std::vector<Var>& b) { ArrCop(a, b); }

void ArrNorm(const Var& v, std::vector<Var>& b) { b.assign(1, v); }

void ObFxIni(const std::shared_ptr<VarObj>& ob, Var& val) {
  val = Var(int16_t(1));
  if (!ob) return;
  std::vector<Var> args;
  Var res;
  ob->Chama(u"FxIni", args, res);
}

void ObFxFim(std::shared_ptr<VarObj>& ob, Var& val) {
  val = Var(int16_t(1));
  if (ob) {
    std::vector<Var> args;
    Var res;
    ob->Chama(u"FxFim", args, res);
  }
  ob.reset();
}

}  // namespace zw
