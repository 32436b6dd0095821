// The keyed table: the visible array with its index block, and beside it a hash
// from key to position so that lookups do not walk the block.
#include "GlbVar.h"

namespace zw {

static const char16_t kZero = 0;

// Position in two characters, high byte then low byte, each the ANSI character of
// its code; positions 0 and above 32000 have no code.
bool IdxPosCod(int pos, Tx& cod) {
  if (pos < 1 || pos > kIdxMax) return false;
  cod.clear();
  cod.push_back(ChrDe1252((unsigned char)(pos / 256)));
  cod.push_back(ChrDe1252((unsigned char)(pos % 256)));
  return true;
}

int IdxPosDec(TxV cod) {
  if (cod.size() < 2) return 0;
  int h = Chr1252(cod[0]), l = Chr1252(cod[1]);
  if (h < 0 || l < 0) return 0;
  return h * 256 + l;
}

// Finds a key in an index block by its zero-delimited form; the type and position
// are the three characters before it.
void IdxChvPsq(TxV blk, TxV chv, int& tip, int& pos) {
  tip = pos = 0;
  Tx k;
  k.reserve(chv.size() + 2);
  k.push_back(kZero);
  k += chv;
  k.push_back(kZero);
  size_t q = blk.find(k);
  if (q == TxV::npos || q < 3) return;
  tip = Chr1252(blk[q - 3]);
  if (tip < 0) tip = 0;
  pos = IdxPosDec(blk.substr(q - 2, 2));
}

void IdxChvAdi(Tx& blk, TxV chv, int tip, int pos, int& ok) {
  Tx cod;
  ok = 0;
  if (tip < 1 || tip > 255 || !IdxPosCod(pos, cod) || chv.find(kZero) != TxV::npos) return;
  blk.push_back(ChrDe1252((unsigned char)tip));
  blk += cod;
  blk.push_back(kZero);
  blk += chv;
  blk.push_back(kZero);
  ok = 1;
}

void IdxIni(IdxTab& t) {
  t.a_.assign(2, Tx());
  t.h_.clear();
}

// Stores a value under a key: a known key keeps its position and count; a new one
// takes the next position, unless the table is full (then position 0, no change).
void IdxRegExe(IdxTab& t, TxV chv, TxV val, int& pos) {
  if (!t.Ini()) IdxIni(t);
  Tx k(chv);
  auto it = t.h_.find(k);
  if (it != t.h_.end()) {
    pos = it->second;
  } else {
    int ok;
    pos = int(NuVal(t.a_[1])) + 1;
    IdxChvAdi(t.a_[0], k, 1, pos, ok);
    if (!ok) {
      pos = 0;
      return;
    }
    t.a_.resize(size_t(pos) + 2);
    t.a_[1] = NuStr(pos);
    t.h_.emplace(std::move(k), pos);
  }
  t.a_[size_t(pos) + 1] = Tx(val);
}

void IdxReg(IdxTab& t, TxV chv, TxV val, int& ok) {
  int pos;
  IdxRegExe(t, chv, val, pos);
  ok = pos ? 1 : 0;
}

void IdxCon(const IdxTab& t, TxV chv, Tx& val, int& pos) {
  auto it = t.h_.find(Tx(chv));
  if (it == t.h_.end()) {
    val.clear();
    pos = 0;
    return;
  }
  pos = it->second;
  val = t.a_[size_t(pos) + 1];
}

// Keys 1..n in the order of their entries in the index block.
void IdxChvLis(const IdxTab& t, TxArr& chv, int& n) {
  TxArr r(1);
  if (t.Ini()) {
    const Tx& b = t.Arr()[0];
    size_t i = 0;
    while (i + 4 <= b.size()) {
      size_t f = b.find(kZero, i + 4);
      if (f == Tx::npos) break;
      r.push_back(b.substr(i + 4, f - i - 4));
      i = f + 1;
    }
  }
  n = int(r.size()) - 1;
  chv = std::move(r);
}

}  // namespace zw
