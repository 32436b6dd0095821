// Dict: Scripting.Dictionary, a keyed table that keeps the order keys were added in.
// Keys may be texts (compared binary or case-blind, by CompareMode), numbers of any
// kind (1, 1.0 and "1" are two keys, the first two the same), objects (by identity),
// Empty or Null. Reading a missing key through Item adds it, holding Empty.
#include <cstring>
#include <unordered_map>

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
          if (m < 0) Raise(5);
          if (vivos_) Raise(5);
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
        r = Value(idx_.count(Chave(a[0])) != 0);
        break;
      case 5: case 6: {
        if (a.size()) {
          // d.Keys()(0) reaches here with the index.
          Value l = Lista(id == 5);
          r = l;
          ArgsAoValor(r, a);
          return;
        }
        r = Lista(id == 5);
        break;
      }
      case 7: {
        if (a.size() != 1) Raise(450);
        auto it = idx_.find(Chave(a[0]));
        if (it == idx_.end()) Raise(32811);
        en_[it->second].vivo = false;
        en_[it->second].k = Value();
        en_[it->second].v = Value();
        idx_.erase(it);
        vivos_--;
        Compacta();
        break;
      }
      case 8:
        en_.clear();
        idx_.clear();
        vivos_ = 0;
        break;
      case 9:
        if (a.size()) Raise(450);
        r = Value(int32_t(vivos_));
        break;
      case 11: {
        // A number from the key, as the library's hash value.
        Tx c = Chave(a[0]);
        uint32_t h = 0;
        for (char16_t x : c) h = h * 31 + x;
        r = Value(int32_t(h % 1201));
        break;
      }
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
    bool vivo = true;
  };
  std::vector<En> en_;
  std::unordered_map<Tx, size_t> idx_;
  size_t vivos_ = 0;
  bool texto_ = false;
  int32_t modo_ = 0;

  // The look-up form of a key: a kind letter and the key's content.
  Tx Chave(const Value& k0) const {
    const Value& k = k0.Deref();
    Tx c;
    switch (k.t) {
      case vtEmpty: return u"E";
      case vtNull: return u"Z";
      case vtString:
        c.assign(1, u'S');
        if (texto_) c += TxMai(k.Sv());
        else c += k.Sv();
        return c;
      case vtObject: {
        c.assign(1, u'O');
        uintptr_t p = reinterpret_cast<uintptr_t>(k.o);
        char16_t b[4];
        std::memcpy(b, &p, sizeof p < 8 ? sizeof p : 8);
        c.append(b, 4);
        return c;
      }
      default: {
        if (k.IsArr()) Raise(13);
        double d = ToDbl(k);
        if (d == 0) d = 0;  // -0 and 0 are one key
        char16_t b[4];
        std::memcpy(b, &d, 8);
        c.assign(1, u'N');
        c.append(b, 4);
        return c;
      }
    }
  }

  static Value Guarda(const Value& v) { return v.Deref(); }

  void Adiciona(const Value& k, const Value& v) {
    Tx c = Chave(k);
    if (idx_.count(c)) Raise(457);
    idx_.emplace(std::move(c), en_.size());
    en_.push_back({Guarda(k), Guarda(v)});
    vivos_++;
  }

  void Poe(const Value& k, const Value& v) {
    auto it = idx_.find(Chave(k));
    if (it == idx_.end()) Adiciona(k, v);
    else en_[it->second].v = Guarda(v);
  }

  Value Le(const Value& k) {
    Tx c = Chave(k);
    auto it = idx_.find(c);
    if (it != idx_.end()) return en_[it->second].v;
    idx_.emplace(std::move(c), en_.size());
    en_.push_back({Guarda(k), Value()});
    vivos_++;
    return Value();
  }

  void Renomeia(const Value& de, const Value& para) {
    auto it = idx_.find(Chave(de));
    if (it == idx_.end()) Raise(32811);
    Tx c2 = Chave(para);
    if (idx_.count(c2)) Raise(457);
    size_t i = it->second;
    idx_.erase(it);
    idx_.emplace(std::move(c2), i);
    en_[i].k = Guarda(para);
  }

  Value Lista(bool chaves) const {
    Arr* l = Arr::New({int32_t(vivos_) - 1});
    size_t j = 0;
    for (const En& e : en_)
      if (e.vivo) l->v[j++] = chaves ? e.k : e.v;
    return Value(l);
  }

  // Drops removed entries once they are the greater part.
  void Compacta() {
    if (en_.size() < 32 || vivos_ * 2 > en_.size()) return;
    std::vector<En> n;
    n.reserve(vivos_);
    for (En& e : en_)
      if (e.vivo) n.push_back(std::move(e));
    en_.swap(n);
    idx_.clear();
    for (size_t i = 0; i < en_.size(); i++) idx_.emplace(Chave(en_[i].k), i);
  }
};

Ref<Obj> NovoDict() { return Ref<Obj>(new Dict); }

}  // namespace

void DictReg() { DefProgId("Scripting.Dictionary", NovoDict); }

}  // namespace vbs
