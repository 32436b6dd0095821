// The registry stand-in: registry-export files read into keys and values, text
// values looked up, and text values written back to the writable file.
#include "GlbReg.h"
#include <dirent.h>
#include <pwd.h>
#include <unistd.h>
#include <sys/stat.h>
#include <algorithm>
#include <cstdlib>
#include <map>
#include <vector>
#include "Ata.h"
#include "FicGlb.h"
#include "FicGra.h"
#include "FicLer.h"
#include "TxtGlb.h"

namespace zw {

namespace {

const char* kDir = "/etc/zunwiz/registry";
Tx gFic;  // the caller's file, when set

struct Val {
  Tx nome;   // "" is the default value "@"
  bool txt;  // a text value; otherwise raw keeps what stood after "="
  Tx v;
};
struct Chave {
  Tx nome;  // as first written
  std::vector<Val> vals;
};
// Keys by their full name in capitals, in the order they were first met.
struct Reg {
  std::vector<Tx> ordem;
  std::map<Tx, Chave> ch;
};

struct Raiz {
  int32_t cod;
  const char16_t *nome, *curto;
};
const Raiz kRaiz[] = {{kHkcr, u"HKEY_CLASSES_ROOT", u"HKCR"},   {kHkcu, u"HKEY_CURRENT_USER", u"HKCU"},
                      {kHklm, u"HKEY_LOCAL_MACHINE", u"HKLM"},  {kHku, u"HKEY_USERS", u"HKU"},
                      {kHkcc, u"HKEY_CURRENT_CONFIG", u"HKCC"}};

const char16_t* RaizNome(int32_t cod) {
  for (const Raiz& r : kRaiz)
    if (r.cod == cod) return r.nome;
  return nullptr;
}

// A key name with its root spelt out in full and no stray separators.
Tx ChvNorm(const Tx& k) {
  Tx t = k;
  while (!t.empty() && t.back() == u'\\') t.pop_back();
  size_t i = t.find(u'\\');
  Tx r = TxMai(t.substr(0, i));
  for (const Raiz& x : kRaiz)
    if (r == x.curto) return x.nome + (i == Tx::npos ? Tx() : t.substr(i));
  return t;
}

// A registry file by the rule of every file read (FicLer.h); one that cannot be
// read is read as empty, as a missing one is.
std::string LeBytes(const std::string& f) {
  std::string b;
  FicLerNat(f, b);
  return b;
}

// UTF-16 with its mark (as version 5 files are written), else 8-bit text.
Tx Decode(const std::string& b) {
  if (b.size() >= 2 && (uint8_t(b[0]) == 0xFF && uint8_t(b[1]) == 0xFE)) {
    Tx t;
    for (size_t i = 2; i + 1 < b.size(); i += 2) t += char16_t(uint8_t(b[i]) | uint8_t(b[i + 1]) << 8);
    return t;
  }
  if (b.size() >= 2 && (uint8_t(b[0]) == 0xFE && uint8_t(b[1]) == 0xFF)) {
    Tx t;
    for (size_t i = 2; i + 1 < b.size(); i += 2) t += char16_t(uint8_t(b[i]) << 8 | uint8_t(b[i + 1]));
    return t;
  }
  return TxDeBytes(b);
}

// A quoted text from position i (at the opening quote), with \\ and \" undone; i
// ends after the closing quote. False when it does not close.
bool Aspas(const Tx& l, size_t& i, Tx& out) {
  out.clear();
  for (i++; i < l.size(); i++) {
    if (l[i] == u'\\' && i + 1 < l.size()) {
      out += l[++i];
    } else if (l[i] == u'"') {
      i++;
      return true;
    } else {
      out += l[i];
    }
  }
  return false;
}

void Poe(Reg& r, const Tx& chave, const Val& v) {
  Tx k = TxMai(chave);
  auto it = r.ch.find(k);
  if (it == r.ch.end()) {
    r.ordem.push_back(k);
    it = r.ch.emplace(k, Chave{chave, {}}).first;
  }
  for (Val& x : it->second.vals)
    if (TxIgual(x.nome, v.nome)) {
      x = v;
      return;
    }
  it->second.vals.push_back(v);
}

void Tira(Reg& r, const Tx& chave) {
  Tx k = TxMai(chave);
  for (auto it = r.ch.begin(); it != r.ch.end();) {
    if (it->first == k || it->first.rfind(k + u"\\", 0) == 0) {
      r.ordem.erase(std::find(r.ordem.begin(), r.ordem.end(), it->first));
      it = r.ch.erase(it);
    } else {
      ++it;
    }
  }
}

// One file into the model. A file without one of the two header lines is not a
// registry file and adds nothing.
void Carrega(const std::string& f, Reg& r) {
  Tx t = Decode(LeBytes(f));
  std::vector<Tx> lin;
  size_t i = 0;
  while (i < t.size()) {
    size_t e = t.find_first_of(u"\r\n", i);
    if (e == Tx::npos) e = t.size();
    lin.push_back(t.substr(i, e - i));
    i = e + (e + 1 < t.size() && t[e] == u'\r' && t[e + 1] == u'\n' ? 2 : 1);
  }
  size_t n = 0;
  while (n < lin.size() && TxTrim(lin[n]).empty()) n++;
  if (n == lin.size()) return;
  Tx cab = TxTrim(lin[n]);
  if (cab != u"REGEDIT4" && cab != u"Windows Registry Editor Version 5.00") return;
  Tx chave;
  bool apagada = false;
  for (n++; n < lin.size(); n++) {
    Tx l = TxTrim(lin[n]);
    while (!l.empty() && l.back() == u'\\' && n + 1 < lin.size() && l.find(u'"') == Tx::npos) {
      l.pop_back();  // a long binary value goes on on the next line
      l += TxTrim(lin[++n]);
    }
    if (l.empty() || l[0] == u';') continue;
    if (l[0] == u'[') {
      size_t f2 = l.rfind(u']');
      Tx k = l.substr(1, f2 == Tx::npos ? Tx::npos : f2 - 1);
      apagada = !k.empty() && k[0] == u'-';
      if (apagada) {
        Tira(r, ChvNorm(k.substr(1)));
        chave.clear();
      } else {
        chave = ChvNorm(k);
        Tx kk = TxMai(chave);
        if (!r.ch.count(kk)) {
          r.ordem.push_back(kk);
          r.ch.emplace(kk, Chave{chave, {}});
        }
      }
      continue;
    }
    if (chave.empty() || apagada) continue;
    Val v;
    size_t p = 0;
    if (l[0] == u'@') {
      p = 1;
    } else if (l[0] == u'"') {
      if (!Aspas(l, p, v.nome)) continue;
    } else {
      continue;
    }
    while (p < l.size() && l[p] == u' ') p++;
    if (p >= l.size() || l[p] != u'=') continue;
    p++;
    while (p < l.size() && l[p] == u' ') p++;
    Tx resto = l.substr(p);
    if (resto == u"-") {  // the value is removed
      auto it = r.ch.find(TxMai(chave));
      auto& vs = it->second.vals;
      vs.erase(std::remove_if(vs.begin(), vs.end(), [&](const Val& x) { return TxIgual(x.nome, v.nome); }),
               vs.end());
      continue;
    }
    if (!resto.empty() && resto[0] == u'"') {
      size_t q = 0;
      v.txt = Aspas(resto, q, v.v);
      if (!v.txt) v.v = resto;
    } else {
      v.txt = false;
      v.v = resto;
    }
    Poe(r, chave, v);
  }
}

// The folder named by ZUNWIZ_REGISTRY, or "" when it is not set.
std::string DirAmb() {
  const char* e = std::getenv("ZUNWIZ_REGISTRY");
  return e && *e ? std::string(e) : std::string();
}

// The folder of the machine-wide files.
std::string DirMaq() {
  std::string a = DirAmb();
  return a.empty() ? std::string(kDir) : a + "/machine";
}

// The running user's file: ZUNWIZ_REGISTRY/user.reg, else under the user's
// configuration folder (XDG_CONFIG_HOME, or .config in the home folder of the
// environment or, without one, of the password database).
std::string FicUsu() {
  std::string a = DirAmb();
  if (!a.empty()) return a + "/user.reg";
  const char* x = std::getenv("XDG_CONFIG_HOME");
  if (x && *x == '/') return std::string(x) + "/zunwiz/registry.reg";
  const char* h = std::getenv("HOME");
  std::string home = h && *h ? h : "";
  if (home.empty())
    if (passwd* pw = getpwuid(getuid())) home = pw->pw_dir;
  return home + "/.config/zunwiz/registry.reg";
}

// The files a root is read from, in order, a later one winning: the machine-wide
// files, and for HKEY_CURRENT_USER the user's over them.
std::vector<std::string> Ficheiros(int32_t raiz) {
  if (!gFic.empty()) return {FicNat(gFic)};
  std::vector<std::string> v;
  std::string dir = DirMaq();
  if (DIR* d = opendir(dir.c_str())) {
    while (dirent* e = readdir(d)) {
      std::string n = e->d_name;
      if (n.size() > 4 && TxMai(TxDeUtf8(n.substr(n.size() - 4))) == u".REG") v.push_back(dir + "/" + n);
    }
    closedir(d);
  }
  std::sort(v.begin(), v.end());
  if (raiz == kHkcu) v.push_back(FicUsu());
  return v;
}

// Why a file could not be written, naming it: "FILE: permission denied".
Tx Porque(const std::string& f, int err, int32_t raiz) {
  Tx p = TxDeUtf8(f) + u": ";
  switch (err) {
    case 70: p += u"permission denied"; break;
    case 61: p += u"disk full"; break;
    case 76: p += u"path not found"; break;
    case 75: p += u"not a regular file"; break;
    default: p += u"error " + TxAsc(std::to_string(err));
  }
  if (err == 70 && raiz != kHkcu && geteuid() != 0 && gFic.empty())
    p += u" (machine-wide keys are written by root)";
  return p;
}

Tx Escapa(const Tx& t) {
  Tx r;
  for (char16_t c : t) {
    if (c == u'\\' || c == u'"') r += u'\\';
    r += c;
  }
  return r;
}

// The model as a version 5 file, UTF-16LE with its mark, as the registry editor
// writes it, through the safe writer: the old file stays whole until the new one
// is complete, and no fixed temporary name or planted link is written through.
int Grava(const std::string& f, const Reg& r, mode_t modo, mode_t modoDir) {
  Tx t = u"Windows Registry Editor Version 5.00\r\n";
  for (const Tx& k : r.ordem) {
    const Chave& c = r.ch.at(k);
    t += u"\r\n[" + c.nome + u"]\r\n";
    for (const Val& v : c.vals) {
      t += v.nome.empty() ? Tx(u"@") : u"\"" + Escapa(v.nome) + u"\"";
      t += u"=" + (v.txt ? u"\"" + Escapa(v.v) + u"\"" : v.v) + u"\r\n";
    }
  }
  std::string b = "\xFF\xFE";
  for (char16_t c : t) {
    b += char(c & 0xFF);
    b += char(c >> 8);
  }
  // The folder and a new file are never writable by others, whatever the umask;
  // a file that is there keeps its mode and owner.
  size_t k = f.rfind('/');
  if (k != std::string::npos && k > 0)
    if (int e = DirCriMod(f.substr(0, k), modoDir)) return e;
  FicGra g;
  g.ata = 0;  // the record notes values and keys, not the file's bytes
  if (int e = g.Abre(f, 'O', modo)) return e;
  if (int e = g.Grava(b)) {
    g.Desiste();
    return e;
  }
  return g.Fecha();
}

// Reads the file a root is written to, changes it, and writes it back; the
// user's file is kept private (0600 in a 0700 folder), the machine-wide one
// readable by all (0644 in 0755). 0, or the file layer's error with porque set.
// muda also gets the install record's lines of its change, which go out once the
// file is written, each naming the file; a file that the write made is noted
// before them.
template <class F>
int Altera(int32_t raiz, F muda, Tx* porque) {
  std::string f = RegFicGra(raiz);
  Reg r;
  Carrega(f, r);
  std::vector<AtaLin> notas;
  if (!muda(r, notas)) return -1;
  bool usu = raiz == kHkcu && gFic.empty();
  struct stat st;
  bool novo = AtaLig() && lstat(f.c_str(), &st) != 0;
  int e = Grava(f, r, usu ? 0600 : 0644, usu ? 0700 : 0755);
  if (e && porque) *porque = Porque(f, e, raiz);
  if (!e && AtaLig()) {
    if (novo) AtaEscrito(AtaAnt(), f, -1, 'R');
    std::string abs = AtaAbs(f);
    for (AtaLin& l : notas) AtaAct()->Gra(l.Txt("file", abs));
  }
  return e;
}

// The record's line of a value that a change takes away: its text, or the raw
// text after "=" of a value that is not text.
void NotaAnt(AtaLin& l, const Val* v) {
  if (!v) {
    l.Nulo("previous");
    return;
  }
  l.Txt("previous", v->v);
  if (!v->txt) l.Sim("raw", true);
}

const Val* ValAcha(const Reg& r, const Tx& chave, const Tx& nome) {
  auto it = r.ch.find(TxMai(chave));
  if (it == r.ch.end()) return nullptr;
  for (const Val& v : it->second.vals)
    if (TxIgual(v.nome, nome)) return &v;
  return nullptr;
}

Tx ChvDe(int32_t raiz, const Tx& path) {
  const char16_t* rn = RaizNome(raiz);
  if (!rn) return Tx();
  Tx p = path;
  while (!p.empty() && p[0] == u'\\') p.erase(0, 1);
  return ChvNorm(p.empty() ? Tx(rn) : Tx(rn) + u"\\" + p);
}

}  // namespace

struct RegFic::Imp {
  std::string nat;
  Reg r;
};
RegFic::RegFic() : imp_(std::make_unique<Imp>()) {}
RegFic::~RegFic() = default;
RegFic::RegFic(RegFic&&) noexcept = default;

void RegFic::Ler(const std::string& nat) {
  imp_->nat = nat;
  imp_->r = Reg();
  Carrega(nat, imp_->r);
}

int RegFic::Gra() const { return Grava(imp_->nat, imp_->r, 0644, 0755); }

bool RegFic::Val(const Tx& chave, const Tx& nome, Tx& v, bool& bruto) const {
  const zw::Val* x = ValAcha(imp_->r, ChvNorm(chave), nome);
  if (!x) return false;
  v = x->v;
  bruto = !x->txt;
  return true;
}

void RegFic::ValPoe(const Tx& chave, const Tx& nome, const Tx& v, bool bruto) {
  Poe(imp_->r, ChvNorm(chave), zw::Val{nome, !bruto, v});
}

bool RegFic::ValTira(const Tx& chave, const Tx& nome) {
  auto it = imp_->r.ch.find(TxMai(ChvNorm(chave)));
  if (it == imp_->r.ch.end()) return false;
  auto& vs = it->second.vals;
  size_t n = vs.size();
  vs.erase(std::remove_if(vs.begin(), vs.end(), [&](const zw::Val& x) { return TxIgual(x.nome, nome); }), vs.end());
  return vs.size() != n;
}

bool RegFic::Chv(const Tx& chave) const { return imp_->r.ch.count(TxMai(ChvNorm(chave))) > 0; }

void RegFic::ChvPoe(const Tx& chave) {
  Tx k = ChvNorm(chave), km = TxMai(k);
  if (imp_->r.ch.count(km)) return;
  imp_->r.ordem.push_back(km);
  imp_->r.ch.emplace(km, Chave{k, {}});
}

bool RegFic::ChvVazia(const Tx& chave) const {
  Tx km = TxMai(ChvNorm(chave));
  auto it = imp_->r.ch.find(km);
  if (it != imp_->r.ch.end() && !it->second.vals.empty()) return false;
  for (const auto& [k, c] : imp_->r.ch)
    if (k.rfind(km + u"\\", 0) == 0) return false;
  return true;
}

bool RegFic::ChvTira(const Tx& chave) {
  Tx km = TxMai(ChvNorm(chave));
  auto it = imp_->r.ch.find(km);
  if (it == imp_->r.ch.end()) return false;
  imp_->r.ch.erase(it);
  imp_->r.ordem.erase(std::find(imp_->r.ordem.begin(), imp_->r.ordem.end(), km));
  return true;
}

bool RegFic::Vazio() const { return imp_->r.ch.empty(); }

void RegFicDef(const Tx& fic) { gFic = fic; }
std::string RegFicGra(int32_t raiz) {
  if (!gFic.empty()) return FicNat(gFic);
  return raiz == kHkcu ? FicUsu() : DirMaq() + "/zunwiz.reg";
}
const char* RegDirSis() { return kDir; }

// The files are read at every call, so that what another program or an earlier
// write left there is seen at once.
Tx RegVarLer(int32_t raiz, const Tx& path, const Tx& nome) {
  Tx k = ChvDe(raiz, path);
  if (k.empty()) return Tx();
  Reg r;
  for (const std::string& f : Ficheiros(raiz)) Carrega(f, r);
  auto it = r.ch.find(TxMai(k));
  if (it == r.ch.end()) return Tx();
  for (const Val& v : it->second.vals) {
    if (!TxIgual(v.nome, nome)) continue;
    if (!v.txt || v.v.size() + 1 > 256) return Tx();  // not text, or too long for the buffer
    return TxTrim(v.v + u'\0');
  }
  return Tx();
}

// The key is created below the root with "\" + path, as the stored program asks;
// the leading "\" is dropped, since a key name never starts with one.
bool RegVarGra(int32_t raiz, const Tx& path, const Tx& nome, const Tx& tx, Tx* porque) {
  Tx k = ChvDe(raiz, u"\\" + path);
  if (k.empty()) return false;
  return Altera(raiz, [&](Reg& r, std::vector<AtaLin>& n) {
    if (AtaLig()) {
      if (!r.ch.count(TxMai(k))) n.push_back(AtaLin("key-created").Txt("key", k));
      AtaLin l("reg-set");
      l.Txt("key", k).Txt("name", nome).Txt("value", tx);
      NotaAnt(l, ValAcha(r, k, nome));
      n.push_back(l);
    }
    Poe(r, k, Val{nome, true, tx});
    return true;
  }, porque) == 0;
}

// Only the file writes go to is changed: a value or key that another machine-wide
// file gives stays (it is not there to remove) and answers 0.
int RegVarEli(int32_t raiz, const Tx& path, const Tx& nome, Tx* porque) {
  Tx k = ChvDe(raiz, path);
  if (k.empty()) return 0;
  int e = Altera(raiz, [&](Reg& r, std::vector<AtaLin>& notas) {
    auto it = r.ch.find(TxMai(k));
    if (it == r.ch.end()) return false;
    if (const Val* v = ValAcha(r, k, nome); v && AtaLig()) {
      notas.push_back(AtaLin("reg-deleted").Txt("key", it->second.nome).Txt("name", v->nome));
      NotaAnt(notas.back(), v);
    }
    auto& vs = it->second.vals;
    size_t n = vs.size();
    vs.erase(std::remove_if(vs.begin(), vs.end(), [&](const Val& x) { return TxIgual(x.nome, nome); }), vs.end());
    return vs.size() != n;
  }, porque);
  return e == 0 ? 1 : e < 0 ? 0 : -1;
}

int RegChvEli(int32_t raiz, const Tx& path, Tx* porque) {
  Tx k = ChvDe(raiz, path);
  if (k.empty() || k == RaizNome(raiz)) return 0;  // a root is never removed
  int e = Altera(raiz, [&](Reg& r, std::vector<AtaLin>& n) {
    Tx km = TxMai(k);
    for (const Tx& o : r.ordem) {  // each key that goes, and its values
      if (!AtaLig() || (o != km && o.rfind(km + u"\\", 0) != 0)) continue;
      const Chave& c = r.ch.at(o);
      n.push_back(AtaLin("key-deleted").Txt("key", c.nome));
      for (const Val& v : c.vals) {
        n.push_back(AtaLin("reg-deleted").Txt("key", c.nome).Txt("name", v.nome));
        NotaAnt(n.back(), &v);
      }
    }
    size_t antes = r.ch.size();
    Tira(r, k);
    return r.ch.size() != antes;
  }, porque);
  return e == 0 ? 1 : e < 0 ? 0 : -1;
}

}  // namespace zw
