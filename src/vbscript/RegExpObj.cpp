// RegExpObj: the RegExp object of scripts and its Match, Matches and SubMatches.
// The pattern compiles when it is first used after a change of Pattern, IgnoreCase or
// Multiline; a bad pattern raises its error (5017...) from Test, Execute or Replace.
#include "Engine.h"
#include "Lib.h"
#include "RegExp.h"

namespace vbs {

namespace {

// One match: Value (the default), FirstIndex (0-based), Length, SubMatches.
class Casamento : public Obj {
 public:
  Tx valor;
  int32_t ini = 0;
  Ref<Colecao> subs;
  Tx TypeName() override { return u"IMatch2"; }
  int Id(TxV n) override {
    int k = NameIx(n, {"Value", "FirstIndex", "Length", "SubMatches"});
    return k == 1 ? 0 : k;
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    if (a.size() && id != 4) Raise(450);
    switch (id) {
      case 0: r = Value(TxV(valor)); break;
      case 2: r = Value(ini); break;
      case 3: r = Value(int32_t(valor.size())); break;
      case 4: r = Value(subs); ArgsAoValor(r, a); break;
      default: Raise(438);
    }
  }
};

class RegExpObj : public Obj {
 public:
  Tx TypeName() override { return u"IRegExp2"; }
  int Id(TxV n) override {
    return NameIx(n, {"Pattern", "Global", "IgnoreCase", "Multiline", "Test", "Execute", "Replace"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    bool set = k == Inv::Let || k == Inv::Set;
    if (id >= 1 && id <= 4) {
      if (set) {
        if (a.size() != 1) Raise(450);
        if (id == 1) pat_ = ToTx(a[0]);
        else (id == 2 ? glob_ : id == 3 ? ic_ : ml_) = ToBool(a[0]);
        if (id != 2) sujo_ = true;
      } else {
        if (a.size()) Raise(450);
        if (id == 1) r = Value(TxV(pat_));
        else r = Value(id == 2 ? glob_ : id == 3 ? ic_ : ml_);
      }
      return;
    }
    if (set) Raise(438);
    switch (id) {
      case 5: {
        if (a.size() != 1) Raise(450);
        Tx t = ToTx(a[0]);
        std::vector<int> c;
        const Rx& rx = Prepara();
        rx.Zera();
        r = Value(rx.Acha(t, 0, c));
        if (rx.Esgotou()) Raise(28);
        break;
      }
      case 6: {
        if (a.size() != 1) Raise(450);
        r = Value(Executa(ToTx(a[0])));
        break;
      }
      case 7: {
        if (a.size() != 2) Raise(450);
        r = Value(Substitui(ToTx(a[0]), a[1]));
        break;
      }
      default: Raise(438);
    }
  }

 private:
  Tx pat_;
  bool glob_ = false, ic_ = false, ml_ = false, sujo_ = true;
  Rx rx_;

  const Rx& Prepara() {
    if (sujo_) {
      // a long search looks at the host's time-out as loops do
      rx_.Vigia([] {
        Engine* e = CurEngine();
        if (e && e->timed) e->TickSlow();
      });
      int e = rx_.Compila(pat_, ic_, ml_);
      if (e) Raise(e);
      sujo_ = false;
    }
    return rx_;
  }

  // Calls f for each match in turn (only the first unless Global); an empty match
  // moves the search one character on.
  template <class F>
  void Percorre(TxV t, F f) {
    const Rx& rx = Prepara();
    rx.Zera();  // one budget for the whole call
    std::vector<int> c;
    size_t de = 0;
    while (de <= t.size() && rx.Acha(t, de, c)) {
      f(c);
      if (!glob_) break;
      de = c[1] > c[0] ? size_t(c[1]) : size_t(c[1]) + 1;
    }
    // A search that gave up is "Out of stack space", as a runaway pattern is there.
    if (rx.Esgotou()) Raise(28);
  }

  Ref<Colecao> Executa(const Tx& t) {
    Ref<Colecao> ms(new Colecao(u"IMatchCollection2"));
    Percorre(t, [&](const std::vector<int>& c) {
      Ref<Casamento> m(new Casamento);
      m->valor = t.substr(c[0], c[1] - c[0]);
      m->ini = c[0];
      m->subs = Ref<Colecao>(new Colecao(u"ISubMatches"));
      for (size_t g = 2; g < c.size(); g += 2)
        m->subs->v.push_back(c[g] < 0 ? Value() : Value(TxV(t).substr(c[g], c[g + 1] - c[g])));
      ms->v.push_back(Value(m));
    });
    return ms;
  }

  // The replacement text of one match: $1..$99, $&, $`, $', $$.
  static void Expande(Tx& o, TxV mod, TxV t, const std::vector<int>& c, int grupos) {
    for (size_t i = 0; i < mod.size(); i++) {
      char16_t x = mod[i];
      if (x != u'$' || i + 1 >= mod.size()) {
        o += x;
        continue;
      }
      char16_t y = mod[i + 1];
      if (y == u'$') {
        o += u'$';
        i++;
      } else if (y == u'&') {
        o.append(t.substr(c[0], c[1] - c[0]));
        i++;
      } else if (y == u'`') {
        o.append(t.substr(0, c[0]));
        i++;
      } else if (y == u'\'') {
        o.append(t.substr(c[1]));
        i++;
      } else if (y >= u'0' && y <= u'9') {
        int g = y - u'0';
        size_t usa = 1;
        if (i + 2 < mod.size() && mod[i + 2] >= u'0' && mod[i + 2] <= u'9') {
          int g2 = g * 10 + (mod[i + 2] - u'0');
          if (g2 >= 1 && g2 <= grupos) {
            g = g2;
            usa = 2;
          }
        }
        if (g < 1 || g > grupos) {
          o += x;
          continue;
        }
        if (c[2 * g] >= 0) o.append(t.substr(c[2 * g], c[2 * g + 1] - c[2 * g]));
        i += usa;
      } else {
        o += x;
      }
    }
  }

  Tx Substitui(const Tx& t, const Value& rep) {
    Tx o;
    size_t ult = 0;
    bool fn = rep.IsObj();
    // the replacement is converted as a host converts a variant to text, so a
    // Boolean is its number there: -1 or 0
    const Value& rv = rep.Deref();
    Tx mod = fn ? Tx() : rv.t == vtBoolean ? Tx(rv.i ? u"-1" : u"0") : ToTx(rv);
    int grupos = Prepara().Grupos();
    Percorre(t, [&](const std::vector<int>& c) {
      o.append(t, ult, c[0] - ult);
      if (fn) {
        // A function receives the match, each group, the position and the whole text.
        std::vector<Value> args;
        args.push_back(Value(TxV(t).substr(c[0], c[1] - c[0])));
        for (size_t g = 2; g < c.size(); g += 2)
          args.push_back(c[g] < 0 ? Value() : Value(TxV(t).substr(c[g], c[g + 1] - c[g])));
        args.push_back(Value(int32_t(c[0])));
        args.push_back(Value(TxV(t)));
        Value res;
        CallObj(rep.o, Args{args.data(), int(args.size())}, res);
        o += ToTx(res);
      } else {
        Expande(o, mod, t, c, grupos);
      }
      ult = size_t(c[1]);
    });
    o.append(t, ult);
    return o;
  }
};

Ref<Obj> NovoRegExp() { return Ref<Obj>(new RegExpObj); }

}  // namespace

void RegExpReg() {
  DefProgId("VBScript.RegExp", NovoRegExp);
}

}  // namespace vbs
