// RegExp: pattern parser, compiler to a backtracking program, and the machine.
#include "RegExp.h"

#include <algorithm>
#include <memory>

#include "Locale.h"

namespace vbs {

namespace {

// ---- Character sets ----

struct Cls {
  std::vector<std::pair<char16_t, char16_t>> r;  // ranges, both ends included
  bool neg = false;
  bool d = false, D = false, w = false, W = false, s = false, S = false;
  uint64_t asc[2] = {0, 0};  // ASCII membership, precomputed (case folded when asked)
};

bool EhDig(char16_t c) { return c >= u'0' && c <= u'9'; }
bool EhPal(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || EhDig(c) || c == u'_';
}
bool EhEsp(char16_t c) {
  return c == u' ' || (c >= 9 && c <= 13) || c == 0xA0 || c == 0x2028 || c == 0x2029 ||
         c == 0xFEFF || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F ||
         c == 0x205F || c == 0x3000;
}
bool EhFimLinha(char16_t c) { return c == u'\n' || c == u'\r' || c == 0x2028 || c == 0x2029; }

bool ClsBruto(const Cls& k, char16_t c) {
  for (auto& p : k.r)
    if (c >= p.first && c <= p.second) return true;
  return (k.d && EhDig(c)) || (k.D && !EhDig(c)) || (k.w && EhPal(c)) || (k.W && !EhPal(c)) ||
         (k.s && EhEsp(c)) || (k.S && !EhEsp(c));
}

bool ClsTem(const Cls& k, char16_t c, bool ic) {
  if (c < 128) return (k.asc[c >> 6] >> (c & 63)) & 1;
  bool t = ClsBruto(k, c) || (ic && (ClsBruto(k, ChMai(c)) || ClsBruto(k, ChMin(c))));
  return t != k.neg;
}

void ClsPrepara(Cls& k, bool ic) {
  for (char16_t c = 0; c < 128; c++) {
    bool t = ClsBruto(k, c) || (ic && (ClsBruto(k, ChMai(c)) || ClsBruto(k, ChMin(c))));
    // A non-ASCII range member may fold onto an ASCII letter (U+212A Kelvin is 'k').
    if (t != k.neg) k.asc[c >> 6] |= uint64_t(1) << (c & 63);
  }
}

// ---- Syntax tree ----

struct No {
  enum K { Vazio, Ch, Qq, Cl, Seq, Alt, Grp, Rep, Bol, Eol, WB, NWB, Ref, Look } k;
  char16_t c = 0;
  int n = 0;              // class index, group number, or backreference
  int mn = 0, mx = 0;     // repeat bounds, mx -1 for no limit
  bool g = true;          // greedy; for Look, true when negative
  std::vector<No*> f;
};

struct Erro {
  int num;
};

// ---- Program ----

enum Op : uint8_t { iCh, iQq, iCl, iSplit, iJmp, iSave, iBol, iEol, iWB, iNWB, iRef, iLook, iRep,
                    iLoopIn, iLoopChk, iMatch };

struct Ins {
  Op op;
  bool g = false;
  int x = 0, y = 0;
};

}  // namespace

struct Rx::Prog {
  std::vector<Ins> code;
  std::vector<Cls> cls;
  int grupos = 0;
  int regs = 0;
  bool ic = false, ml = false;
  int primCh = -1;  // a character every match starts with, when there is one
};

namespace {

class Parser {
 public:
  Parser(TxV p, Rx::Prog& pr) : p_(p), pr_(pr) { total_ = ContaGrupos(); }

  No* Tudo() {
    No* n = Disj(0);
    if (i_ < p_.size()) throw Erro{5017};  // a ')' with no '('
    return n;
  }

 private:
  TxV p_;
  size_t i_ = 0;
  Rx::Prog& pr_;
  int total_ = 0;
  std::vector<std::unique_ptr<No>> nos_;

 public:
  No* Novo(No::K k) {
    nos_.push_back(std::make_unique<No>());
    nos_.back()->k = k;
    return nos_.back().get();
  }

 private:
  // Capturing groups in the whole pattern, so that \12 can tell a reference from octal.
  int ContaGrupos() {
    int n = 0;
    bool cl = false;
    for (size_t i = 0; i < p_.size(); i++) {
      if (p_[i] == u'\\') i++;
      else if (cl) cl = p_[i] != u']';
      else if (p_[i] == u'[') cl = true;
      else if (p_[i] == u'(' && !(i + 1 < p_.size() && p_[i + 1] == u'?')) n++;
    }
    return n;
  }

  bool Fim() const { return i_ >= p_.size(); }
  char16_t Ve() const { return p_[i_]; }

  No* Disj(int prof) {
    if (prof > 500) throw Erro{5017};
    No* a = Seq(prof);
    if (Fim() || Ve() != u'|') return a;
    No* alt = Novo(No::Alt);
    alt->f.push_back(a);
    while (!Fim() && Ve() == u'|') {
      i_++;
      alt->f.push_back(Seq(prof));
    }
    return alt;
  }

  No* Seq(int prof) {
    No* s = Novo(No::Seq);
    while (!Fim() && Ve() != u'|' && Ve() != u')') s->f.push_back(Termo(prof));
    return s;
  }

  // Reads {n}, {n,}, {n,m} at i_; false (i_ unchanged) when it is not one.
  bool Chaves(int& mn, int& mx) {
    size_t j = i_ + 1;
    auto num = [&](int& v) {
      size_t k = j;
      long x = 0;
      while (j < p_.size() && EhDig(p_[j])) {
        x = x * 10 + (p_[j] - u'0');
        if (x > 100000) x = 100000;
        j++;
      }
      v = int(x);
      return j > k;
    };
    if (!num(mn)) return false;
    mx = mn;
    if (j < p_.size() && p_[j] == u',') {
      j++;
      if (!num(mx)) mx = -1;
    }
    if (j >= p_.size() || p_[j] != u'}') return false;
    i_ = j + 1;
    return true;
  }

  bool Quant(int& mn, int& mx) {
    if (Fim()) return false;
    switch (Ve()) {
      case u'*': mn = 0; mx = -1; i_++; return true;
      case u'+': mn = 1; mx = -1; i_++; return true;
      case u'?': mn = 0; mx = 1; i_++; return true;
      case u'{': return Chaves(mn, mx);
      default: return false;
    }
  }

  No* Termo(int prof) {
    No* a = Atomo(prof);
    int mn, mx;
    if (!Quant(mn, mx)) return a;
    if (a->k == No::Bol || a->k == No::Eol || a->k == No::WB || a->k == No::NWB) throw Erro{5018};
    if (mx != -1 && mx < mn) throw Erro{5017};
    No* r = Novo(No::Rep);
    r->mn = mn;
    r->mx = mx;
    if (!Fim() && Ve() == u'?') {
      r->g = false;
      i_++;
    }
    r->f.push_back(a);
    int a2, b2;
    size_t guarda = i_;
    if (Quant(a2, b2)) throw Erro{5018};
    i_ = guarda;
    return r;
  }

  No* Lit(char16_t c) {
    No* n = Novo(No::Ch);
    n->c = c;
    return n;
  }

  No* Atomo(int prof) {
    char16_t c = Ve();
    switch (c) {
      case u'^': i_++; return Novo(No::Bol);
      case u'$': i_++; return Novo(No::Eol);
      case u'.': i_++; return Novo(No::Qq);
      case u'*': case u'+': case u'?': throw Erro{5018};
      case u'{': {
        int a, b;
        size_t g = i_;
        if (Chaves(a, b)) throw Erro{5018};
        i_ = g + 1;
        return Lit(c);
      }
      case u'[': return Classe();
      case u'\\': return Escape();
      case u'(': {
        i_++;
        No* n;
        if (i_ + 1 < p_.size() && Ve() == u'?') {
          char16_t t = p_[i_ + 1];
          i_ += 2;
          if (t == u':') {
            n = Disj(prof + 1);
          } else if (t == u'=' || t == u'!') {
            n = Novo(No::Look);
            n->g = t == u'!';
            n->f.push_back(Disj(prof + 1));
          } else {
            throw Erro{5017};
          }
        } else {
          n = Novo(No::Grp);
          n->n = ++pr_.grupos;
          n->f.push_back(Disj(prof + 1));
        }
        if (Fim() || Ve() != u')') throw Erro{5020};
        i_++;
        return n;
      }
      default: i_++; return Lit(c);
    }
  }

  int Hex(size_t j, int n) {
    int v = 0;
    for (int k = 0; k < n; k++) {
      if (j + k >= p_.size()) return -1;
      char16_t c = p_[j + k];
      int d = EhDig(c) ? c - u'0' : (c >= u'a' && c <= u'f') ? c - u'a' + 10
              : (c >= u'A' && c <= u'F') ? c - u'A' + 10 : -1;
      if (d < 0) return -1;
      v = v * 16 + d;
    }
    return v;
  }

  // The character of an escape that stands for one character (i_ after the backslash);
  // -1 when the escape is a class (\d...) or an assertion.
  int EscCh(bool emClasse) {
    char16_t c = Ve();
    i_++;
    switch (c) {
      case u'n': return u'\n';
      case u'r': return u'\r';
      case u't': return u'\t';
      case u'f': return u'\f';
      case u'v': return u'\v';
      case u'b': return emClasse ? 8 : -1;
      case u'c':
        if (!Fim() && ((Ve() >= u'a' && Ve() <= u'z') || (Ve() >= u'A' && Ve() <= u'Z')))
          return p_[i_++] % 32;
        i_--;
        return u'\\';
      case u'x': {
        int v = Hex(i_, 2);
        if (v < 0) return u'x';
        i_ += 2;
        return v;
      }
      case u'u': {
        int v = Hex(i_, 4);
        if (v < 0) return u'u';
        i_ += 4;
        return v;
      }
      default:
        if (c >= u'0' && c <= u'7') {
          // Octal: up to three digits while the value stays below 256.
          int v = c - u'0';
          for (int k = 0; k < 2 && !Fim() && Ve() >= u'0' && Ve() <= u'7' && v * 8 + (Ve() - u'0') < 256; k++)
            v = v * 8 + (p_[i_++] - u'0');
          return v;
        }
        return c;
    }
  }

  No* Escape() {
    i_++;
    if (Fim()) throw Erro{5017};
    char16_t c = Ve();
    if (c >= u'1' && c <= u'9') {
      size_t j = i_;
      int v = 0;
      while (j < p_.size() && EhDig(p_[j]) && v * 10 + (p_[j] - u'0') <= total_) v = v * 10 + (p_[j++] - u'0');
      if (v >= 1) {
        i_ = j;
        No* n = Novo(No::Ref);
        n->n = v;
        return n;
      }
    }
    switch (c) {
      case u'b': i_++; return Novo(No::WB);
      case u'B': i_++; return Novo(No::NWB);
      case u'd': case u'D': case u'w': case u'W': case u's': case u'S': {
        i_++;
        Cls k;
        MarcaCls(k, c);
        return NovaCls(std::move(k));
      }
      default: return Lit(char16_t(EscCh(false)));
    }
  }

  static void MarcaCls(Cls& k, char16_t c) {
    switch (c) {
      case u'd': k.d = true; break;
      case u'D': k.D = true; break;
      case u'w': k.w = true; break;
      case u'W': k.W = true; break;
      case u's': k.s = true; break;
      default: k.S = true; break;
    }
  }

  No* NovaCls(Cls&& k) {
    pr_.cls.push_back(std::move(k));
    No* n = Novo(No::Cl);
    n->n = int(pr_.cls.size()) - 1;
    return n;
  }

  // One member of a class: a character (>= 0) or a class escape (-1, already marked).
  int Membro(Cls& k) {
    char16_t c = Ve();
    if (c != u'\\') {
      i_++;
      return c;
    }
    i_++;
    if (Fim()) throw Erro{5019};
    char16_t e = Ve();
    if (e == u'd' || e == u'D' || e == u'w' || e == u'W' || e == u's' || e == u'S') {
      i_++;
      MarcaCls(k, e);
      return -1;
    }
    return EscCh(true);
  }

  No* Classe() {
    i_++;
    Cls k;
    if (!Fim() && Ve() == u'^') {
      k.neg = true;
      i_++;
    }
    while (true) {
      if (Fim()) throw Erro{5019};
      if (Ve() == u']') break;
      int a = Membro(k);
      if (!Fim() && Ve() == u'-' && i_ + 1 < p_.size() && p_[i_ + 1] != u']') {
        i_++;
        int b = Membro(k);
        if (a < 0 || b < 0) {
          // A class escape at either end makes the '-' an ordinary member.
          if (a >= 0) k.r.push_back({char16_t(a), char16_t(a)});
          if (b >= 0) k.r.push_back({char16_t(b), char16_t(b)});
          k.r.push_back({u'-', u'-'});
          continue;
        }
        if (b < a) throw Erro{5021};
        k.r.push_back({char16_t(a), char16_t(b)});
      } else if (a >= 0) {
        k.r.push_back({char16_t(a), char16_t(a)});
      }
    }
    i_++;
    return NovaCls(std::move(k));
  }
};

// ---- Compiler ----

class Compilador {
 public:
  explicit Compilador(Rx::Prog& p) : p_(p) {}

  void Gera(No* n) {
    if (p_.code.size() > 2000000) throw Erro{5017};
    switch (n->k) {
      case No::Vazio: break;
      case No::Ch: Emite({iCh, false, p_.ic ? ChMai(n->c) : n->c}); break;
      case No::Qq: Emite({iQq}); break;
      case No::Cl: Emite({iCl, false, n->n}); break;
      case No::Seq:
        for (No* f : n->f) Gera(f);
        break;
      case No::Alt: {
        std::vector<size_t> saltos;
        for (size_t k = 0; k < n->f.size(); k++) {
          if (k + 1 < n->f.size()) {
            size_t s = Emite({iSplit, false, 0, 0});
            p_.code[s].x = int(s + 1);
            Gera(n->f[k]);
            saltos.push_back(Emite({iJmp}));
            p_.code[s].y = int(p_.code.size());
          } else {
            Gera(n->f[k]);
          }
        }
        for (size_t s : saltos) p_.code[s].x = int(p_.code.size());
        break;
      }
      case No::Grp:
        Emite({iSave, false, 2 * n->n});
        Gera(n->f[0]);
        Emite({iSave, false, 2 * n->n + 1});
        break;
      case No::Bol: Emite({iBol}); break;
      case No::Eol: Emite({iEol}); break;
      case No::WB: Emite({iWB}); break;
      case No::NWB: Emite({iNWB}); break;
      case No::Ref: Emite({iRef, false, n->n}); break;
      case No::Look: {
        size_t l = Emite({iLook, n->g});
        Gera(n->f[0]);
        Emite({iMatch});
        p_.code[l].x = int(l + 1);
        p_.code[l].y = int(p_.code.size());
        break;
      }
      case No::Rep: Repete(n); break;
    }
  }

  size_t Emite(Ins i) {
    p_.code.push_back(i);
    return p_.code.size() - 1;
  }

  // Whether Gera emits no code for a node, found from its shape: generating it to
  // see would double the work at each level of nested repeats.
  static bool Nada(const No* n) {
    switch (n->k) {
      case No::Vazio: return true;
      case No::Seq:
        for (const No* f : n->f)
          if (!Nada(f)) return false;
        return true;
      case No::Alt: return n->f.empty() || (n->f.size() == 1 && Nada(n->f[0]));
      case No::Rep: {
        const No* a = n->f[0];
        if (a->k == No::Ch || a->k == No::Qq || a->k == No::Cl) return false;
        if (a->k != No::Grp && Nada(a)) return true;
        return n->mn == 0 && n->mx == 0;
      }
      default: return false;
    }
  }

 private:
  Rx::Prog& p_;

  void Repete(No* n) {
    No* a = n->f[0];
    if (a->k == No::Ch || a->k == No::Qq || a->k == No::Cl) {
      Emite({iRep, n->g, n->mn, n->mx});
      Gera(a);
      return;
    }
    // a repeat of something that emits no code (an empty group's inside) is nothing
    if (a->k != No::Grp && Nada(a)) return;
    for (int k = 0; k < n->mn; k++) Gera(a);
    if (n->mx == -1) {
      // L: split body/end; body: note the position; a; if it moved, back to L.
      int reg = p_.regs++;
      size_t l = Emite({iSplit});
      Emite({iLoopIn, false, reg});
      Gera(a);
      Emite({iLoopChk, false, reg, int(l)});
      int fim = int(p_.code.size());
      p_.code[l].x = n->g ? int(l + 1) : fim;
      p_.code[l].y = n->g ? fim : int(l + 1);
      return;
    }
    std::vector<size_t> splits;
    for (int k = n->mn; k < n->mx; k++) {
      splits.push_back(Emite({iSplit}));
      Gera(a);
    }
    int fim = int(p_.code.size());
    for (size_t s : splits) {
      p_.code[s].x = n->g ? int(s + 1) : fim;
      p_.code[s].y = n->g ? fim : int(s + 1);
    }
  }
};

// ---- Machine ----

struct Bt {
  enum : uint8_t { Fio, Cap, Reg, RepG, RepL } t;
  int pc, pos, a, b;
};

class Maquina {
 public:
  Maquina(const Rx::Prog& p, TxV s, Rx::Orcamento& o) : p_(p), s_(s), o_(o) {}

  ~Maquina() { o_.gasto += lote_ - resta_; }

  // Counts work done (instructions run, characters scanned, choices taken back)
  // against the search's budget; false once it is spent. The steps are counted
  // down in an allowance of up to kLote taken from the budget, so that the
  // common step costs one decrement; each time 2^16 steps have been taken the
  // host's watcher runs, which may stop the script by throwing.
  bool Gasta(long long n) {
    if ((resta_ -= n) > 0) return true;
    return Renova();
  }

  // Adds the spent allowance to the budget and takes a new one.
  bool Renova() {
    o_.gasto += lote_ - resta_;
    lote_ = resta_ = 0;
    if ((o_.gasto >> 16) != o_.visto) {
      o_.visto = o_.gasto >> 16;
      if (o_.vigia) o_.vigia();
    }
    if (o_.gasto > o_.limite) {
      esgotou = o_.esgotou = true;
      return false;
    }
    lote_ = resta_ = std::min(kLote, o_.limite - o_.gasto + 1);
    return true;
  }

  bool Igual(char16_t a, char16_t b) const {
    return a == b || (p_.ic && (ChMai(a) == ChMai(b) || ChMin(a) == ChMin(b)));
  }

  bool Atomo(const Ins& i, int pos) const {
    if (pos >= int(s_.size())) return false;
    char16_t c = s_[pos];
    switch (i.op) {
      case iCh: return c == i.x || (p_.ic && ChMai(c) == i.x);
      case iQq: return c != u'\n';
      default: return ClsTem(p_.cls[i.x], c, p_.ic);
    }
  }

  bool Palavra(int pos) const { return pos >= 0 && pos < int(s_.size()) && EhPal(s_[pos]); }

  // Runs the program from pc at pos; on success `fim` is where the match ended and
  // caps/regs hold what it set.
  bool Corre(int pc, int pos, std::vector<int>& caps, std::vector<int>& regs, int& fim) {
    // One stack serves the whole search; a lookahead works above its caller's entries.
    std::vector<Bt>& st = st_;
    const size_t base = st.size();
    const int n = int(s_.size());
    for (;;) {
      const Ins& i = p_.code[pc];
      bool ok = true;
      if (!Gasta(1)) {
        st.resize(base);
        return false;
      }
      switch (i.op) {
        case iCh: case iQq: case iCl:
          if (Atomo(i, pos)) {
            pos++;
            pc++;
          } else {
            ok = false;
          }
          break;
        case iSplit:
          st.push_back({Bt::Fio, i.y, pos, 0, 0});
          pc = i.x;
          break;
        case iJmp: pc = i.x; break;
        case iSave:
          st.push_back({Bt::Cap, 0, 0, i.x, caps[i.x]});
          caps[i.x] = pos;
          pc++;
          break;
        case iBol:
          ok = pos == 0 || (p_.ml && EhFimLinha(s_[pos - 1]));
          pc++;
          break;
        case iEol:
          ok = pos == n || (p_.ml && EhFimLinha(s_[pos]));
          pc++;
          break;
        case iWB: case iNWB:
          ok = (Palavra(pos - 1) != Palavra(pos)) == (i.op == iWB);
          pc++;
          break;
        case iRef: {
          int a = caps[2 * i.x], b = caps[2 * i.x + 1];
          if (a >= 0 && b >= a) {
            int len = b - a;
            if (pos + len > n) {
              ok = false;
              break;
            }
            for (int k = 0; k < len && ok; k++) ok = Igual(s_[a + k], s_[pos + k]);
            if (ok) pos += len;
          }
          pc++;
          break;
        }
        case iLook: {
          std::vector<int> c2 = caps, r2 = regs;
          int f2;
          bool m = Corre(i.x, pos, c2, r2, f2);
          if (m == i.g) {
            ok = false;
            break;
          }
          if (m) {
            // What a positive lookahead captured stays, undone on backtracking.
            for (size_t k = 0; k < caps.size(); k++)
              if (caps[k] != c2[k]) {
                st.push_back({Bt::Cap, 0, 0, int(k), caps[k]});
                caps[k] = c2[k];
              }
          }
          pc = i.y;
          break;
        }
        case iRep: {
          const Ins& at = p_.code[pc + 1];
          int mx = i.y < 0 ? n - pos : std::min(i.y, n - pos);
          if (i.g) {
            int k = 0;
            while (k < mx && Atomo(at, pos + k)) k++;
            if (!Gasta(k)) {
              st.resize(base);
              return false;
            }
            if (k < i.x) {
              ok = false;
              break;
            }
            if (k > i.x) st.push_back({Bt::RepG, pc + 2, pos, k, i.x});
            pos += k;
          } else {
            int k = 0;
            while (k < i.x && Atomo(at, pos + k)) k++;
            if (!Gasta(k)) {
              st.resize(base);
              return false;
            }
            if (k < i.x) {
              ok = false;
              break;
            }
            st.push_back({Bt::RepL, pc, pos, k, 0});
            pos += k;
          }
          pc += 2;
          break;
        }
        case iLoopIn:
          st.push_back({Bt::Reg, 0, 0, i.x, regs[i.x]});
          regs[i.x] = pos;
          pc++;
          break;
        case iLoopChk:
          // An iteration that matched nothing is refused, so the loop ends with the
          // captures of the last iteration that moved.
          if (regs[i.x] == pos) ok = false;
          else pc = i.y;
          break;
        case iMatch:
          fim = pos;
          st.resize(base);
          return true;
      }
      if (ok) continue;
      // Backtrack to the latest choice, undoing captures on the way.
      for (;;) {
        if (st.size() == base) return false;
        if (!Gasta(1)) {
          st.resize(base);
          return false;
        }
        Bt& b = st.back();
        if (b.t == Bt::Cap) {
          caps[b.a] = b.b;
          st.pop_back();
        } else if (b.t == Bt::Reg) {
          regs[b.a] = b.b;
          st.pop_back();
        } else if (b.t == Bt::Fio) {
          pc = b.pc;
          pos = b.pos;
          st.pop_back();
          break;
        } else if (b.t == Bt::RepG) {
          b.a--;
          pc = b.pc;
          pos = b.pos + b.a;
          if (b.a <= b.b) st.pop_back();
          break;
        } else {
          // A lazy repeat takes one more character, if it can.
          const Ins& r = p_.code[b.pc];
          int lim = r.y < 0 ? n - b.pos : std::min(r.y, n - b.pos);
          if (b.a < lim && Atomo(p_.code[b.pc + 1], b.pos + b.a)) {
            b.a++;
            pc = b.pc + 2;
            pos = b.pos + b.a;
            break;
          }
          st.pop_back();
        }
      }
    }
  }

 private:
  const Rx::Prog& p_;
  TxV s_;
  Rx::Orcamento& o_;
  std::vector<Bt> st_;
  static constexpr long long kLote = 4096;
  long long lote_ = 0, resta_ = 0;  // the allowance taken, and what is left of it

 public:
  bool esgotou = false;
};

}  // namespace

Rx::Rx() : p_(nullptr) {}
Rx::~Rx() { delete p_; }

int Rx::Compila(TxV pat, bool icase, bool multi) {
  auto* p = new Prog;
  p->ic = icase;
  p->ml = multi;
  try {
    Parser ps(pat, *p);
    No* raiz = ps.Tudo();
    for (Cls& k : p->cls) ClsPrepara(k, icase);
    Compilador c(*p);
    c.Gera(raiz);
    c.Emite({iMatch});
    // A pattern that starts with a plain character lets the search skip ahead.
    No* n = raiz;
    while (n->k == No::Seq && !n->f.empty()) n = n->f[0];
    while (n->k == No::Grp) {
      n = n->f[0];
      while (n->k == No::Seq && !n->f.empty()) n = n->f[0];
    }
    if (n->k == No::Ch && !icase) p->primCh = n->c;
  } catch (const Erro& e) {
    delete p;
    return e.num;
  }
  delete p_;
  p_ = p;
  return 0;
}

int Rx::Grupos() const { return p_ ? p_->grupos : 0; }

bool Rx::Acha(TxV s, size_t de, std::vector<int>& caps) const {
  if (!p_) return false;
  Maquina m(*p_, s, orc_);
  std::vector<int> regs(p_->regs, -1);
  for (size_t ini = de; ini <= s.size(); ini++) {
    if (p_->primCh >= 0) {
      size_t k = s.find(char16_t(p_->primCh), ini);
      if (k == TxV::npos) return false;
      ini = k;
    }
    caps.assign(2 * (p_->grupos + 1), -1);
    int fim;
    if (m.Corre(0, int(ini), caps, regs, fim)) {
      caps[0] = int(ini);
      caps[1] = fim;
      return true;
    }
    if (m.esgotou || !m.Gasta(1)) return false;
  }
  return false;
}

}  // namespace vbs
