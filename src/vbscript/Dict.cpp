// Dict: Scripting.Dictionary, a keyed table that keeps the order keys were added in.
// Keys may be texts (compared binary or case-blind, by CompareMode), numbers of any
// kind (1, 1.0 and "1" are two keys, the first two the same), objects (by identity),
// Empty or Null. Reading a missing key through Item adds it, holding Empty.
// Entries sit in a vector in their order; an open-addressing index of positions
// finds them by a hash of the key, comparing keys in place (no key is copied to
// look it up).
#include <cstring>

#include "Lib.h"

namespace vbs {

namespace {

class Dict : public Obj {
 public:
  Tx TypeName() override { return u"Dictionary"; }
  int Id(TxV n) override {
    int k = NameIx(n, {"Item", "Add", "Exists", "Key", "Keys", "Items", "Remove", "RemoveAll",
                       "Count", "CompareMode", "HashVal"});
    return k == 1 ? 0 : k;
  }

  void Invoke(int id, Inv k, Args a, Value& r) override {
    bool set = k == Inv::Let || k == Inv::Set;
    switch (id) {
      case 0:  // Item
        if (set) {
          if (a.size() != 2) Raise(450);
          if (k == Inv::Let && a[1].IsObj()) Poe(a[0], Prim(a[1]));
          else Poe(a[0], a[1]);
        } else {
          if (a.size() != 1) Raise(450);
          r = Le(a[0]);
        }
        return;
      case 4:  // Key: only assigned
        if (!set || a.size() != 2) Raise(set ? 450 : 438);
        Renomeia(a[0], a[1]);
        return;
      case 10:  // CompareMode
        if (set) {
          if (a.size() != 1) Raise(450);
          int32_t m = ToLng(a[0]);
          if (m < 0 || vivos_) Raise(5);
          texto_ = m >= 1;
          modo_ = m;
        } else {
          r = Value(int32_t(modo_));
        }
        return;
      default: break;
    }
    if (set) Raise(438);
    switch (id) {
      case 2:
        if (a.size() != 2) Raise(450);
        Adiciona(a[0], a[1]);
        break;
      case 3:
        if (a.size() != 1) Raise(450);
        r = Value(Acha(a[0], Hash(a[0])) >= 0);
        break;
      case 5: case 6:
        // d.Keys()(0) reaches here with the index.
        r = Lista(id == 5);
        ArgsAoValor(r, a);
        break;
      case 7: {
        if (a.size() != 1) Raise(450);
        uint32_t h = Hash(a[0]);
        int64_t s = Acha(a[0], h);
        if (s < 0) Raise(32811);
        int32_t i = tab_[size_t(s)].i;
        tab_[size_t(s)].i = kApagado;
        en_[size_t(i)] = En();
        vivos_--;
        Compacta();
        break;
      }
      case 8:
        en_.clear();
        tab_.clear();
        vivos_ = usados_ = 0;
        break;
      case 9:
        if (a.size()) Raise(450);
        r = Value(int32_t(vivos_));
        break;
      case 11:
        if (a.size() != 1) Raise(450);
        r = Value(int32_t(Hash(a[0]) % 1201));
        break;
      default: Raise(438);
    }
  }

  // For Each runs over the keys.
  bool Items(std::vector<Value>& out) override {
    out.clear();
    for (const En& e : en_)
      if (e.vivo) out.push_back(e.k);
    return true;
  }

 private:
  struct En {
    Value k, v;
    uint32_t h = 0;
    bool vivo = false;
  };
  struct Slot {
    uint32_t h;
    int32_t i;  // entry position, or kVazio / kApagado
  };
  static constexpr int32_t kVazio = -1, kApagado = -2;

  std::vector<En> en_;
  std::vector<Slot> tab_;  // size a power of two, at most half used
  size_t usados_ = 0;      // slots not empty: entries and removed marks
  size_t vivos_ = 0;
  bool texto_ = false;
  int32_t modo_ = 0;

  enum Tipo { tVazio, tNulo, tTexto, tObj, tNum };

  static Tipo TipoDe(const Value& k) {
    switch (k.t) {
      case vtEmpty: return tVazio;
      case vtNull: return tNulo;
      case vtString: return tTexto;
      case vtObject: return tObj;
      default:
        if (k.IsArr() || !k.IsNum()) Raise(13);
        return tNum;
    }
  }

  static double NumDe(const Value& k) {
    double d = ToDbl(k);
    return d == 0 ? 0 : d;  // -0 and 0 are one key
  }

  uint32_t Hash(const Value& k0) const {
    const Value& k = k0.Deref();
    uint64_t h = 1469598103934665603ull ^ uint64_t(TipoDe(k));
    auto mix = [&h](uint64_t x) { h = (h ^ x) * 1099511628211ull; };
    switch (TipoDe(k)) {
      case tTexto:
        for (char16_t c : k.Sv()) mix(texto_ ? ChMai(c) : c);
        break;
      case tObj: mix(reinterpret_cast<uintptr_t>(k.o)); break;
      case tNum: {
        double d = NumDe(k);
        uint64_t b;
        std::memcpy(&b, &d, 8);
        mix(b);
        break;
      }
      default: break;
    }
    return uint32_t(h ^ (h >> 32));
  }

  bool Igual(const Value& k0, const Value& e) const {
    const Value& k = k0.Deref();
    Tipo t = TipoDe(k);
    if (t != TipoDe(e)) return false;
    switch (t) {
      case tTexto: return texto_ ? TxCmpTx(k.Sv(), e.Sv()) == 0 : k.Sv() == e.Sv();
      case tObj: return k.o == e.o;
      case tNum: return NumDe(k) == NumDe(e);
      default: return true;
    }
  }

  // The slot that holds the key, or -1.
  int64_t Acha(const Value& k, uint32_t h) const {
    if (tab_.empty()) return -1;
    size_t m = tab_.size() - 1;
    for (size_t s = h & m;; s = (s + 1) & m) {
      const Slot& x = tab_[s];
      if (x.i == kVazio) return -1;
      if (x.i >= 0 && x.h == h && Igual(k, en_[size_t(x.i)].k)) return int64_t(s);
    }
  }

  // Puts entry i in the index (the key is known to be absent). Removed marks count
  // as used, so that a search always meets an empty slot.
  void Indexa(uint32_t h, int32_t i) {
    if ((usados_ + 1) * 2 > tab_.size()) Refaz((vivos_ + 1) * 4);
    size_t m = tab_.size() - 1;
    size_t s = h & m;
    while (tab_[s].i >= 0) s = (s + 1) & m;
    if (tab_[s].i == kVazio) usados_++;
    tab_[s] = {h, i};
  }

  // Rebuilds the index at a size of at least n slots (charged to the time-out
  // first, so that a stopped script leaves the index as it was).
  void Refaz(size_t n) {
    size_t cap = 16;
    while (cap < n) cap *= 2;
    Work(cap + en_.size());
    tab_.assign(cap, Slot{0, kVazio});
    usados_ = 0;
    for (size_t i = 0; i < en_.size(); i++) {
      if (!en_[i].vivo) continue;
      size_t s = en_[i].h & (cap - 1);
      while (tab_[s].i >= 0) s = (s + 1) & (cap - 1);
      tab_[s] = {en_[i].h, int32_t(i)};
      usados_++;
    }
  }

  void Novo(const Value& k, const Value& v, uint32_t h) {
    Indexa(h, int32_t(en_.size()));
    En e;
    e.k = k.Deref();
    e.v = v.Deref();
    e.h = h;
    e.vivo = true;
    en_.push_back(std::move(e));
    vivos_++;
  }

  void Adiciona(const Value& k, const Value& v) {
    uint32_t h = Hash(k);
    if (Acha(k, h) >= 0) Raise(457);
    Novo(k, v, h);
  }

  void Poe(const Value& k, const Value& v) {
    uint32_t h = Hash(k);
    int64_t s = Acha(k, h);
    if (s < 0) Novo(k, v, h);
    else en_[size_t(tab_[size_t(s)].i)].v = v.Deref();
  }

  Value Le(const Value& k) {
    uint32_t h = Hash(k);
    int64_t s = Acha(k, h);
    if (s >= 0) return en_[size_t(tab_[size_t(s)].i)].v;
    Novo(k, Value(), h);
    return Value();
  }

  void Renomeia(const Value& de, const Value& para) {
    int64_t s = Acha(de, Hash(de));
    if (s < 0) Raise(32811);
    uint32_t h2 = Hash(para);
    if (Acha(para, h2) >= 0) Raise(457);
    int32_t i = tab_[size_t(s)].i;
    tab_[size_t(s)].i = kApagado;
    en_[size_t(i)].k = para.Deref();
    en_[size_t(i)].h = h2;
    // A rebuilt index already holds the entry under its new key.
    if ((usados_ + 1) * 2 > tab_.size()) {
      Refaz((vivos_ + 1) * 4);
      return;
    }
    size_t m = tab_.size() - 1;
    size_t q = h2 & m;
    while (tab_[q].i >= 0) q = (q + 1) & m;
    if (tab_[q].i == kVazio) usados_++;
    tab_[q] = {h2, i};
  }

  Value Lista(bool chaves) const {
    Arr* l = Arr::New({int32_t(vivos_) - 1});
    size_t j = 0;
    for (const En& e : en_)
      if (e.vivo) l->v[j++] = chaves ? e.k : e.v;
    return Value(l);
  }

  // Drops removed entries once they are the greater part, and rebuilds the index.
  void Compacta() {
    if (en_.size() < 32 || vivos_ * 2 > en_.size()) return;
    std::vector<En> n;
    n.reserve(vivos_);
    for (En& e : en_)
      if (e.vivo) n.push_back(std::move(e));
    en_.swap(n);
    Refaz(en_.size() * 4);
  }
};

Ref<Obj> NovoDict() { return Ref<Obj>(new Dict); }

}  // namespace

void DictReg() { DefProgId("Scripting.Dictionary", NovoDict); }

}  // namespace vbs
