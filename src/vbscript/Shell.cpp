// Shell: WScript.Shell: Run, Exec, the environment, the current folder, RegRead,
// RegWrite and RegDelete over the system's registry stand-in, Popup through the
// dialog service, the special folders as freedesktop.org folders, and shortcuts
// written as launchers (Lnk.cpp).
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "FicGlb.h"
#include "GlbReg.h"
#include "Lib.h"
#include "MsgDlg.h"
#include "PrcExe.h"

extern char** environ;

namespace vbs {

Ref<Obj> AtlObj(const Tx& caminho);  // Lnk.cpp

namespace {

constexpr int32_t kErrNaoAchou = int32_t(0x80070002);  // the system cannot find the file

Tx Env(TxV nome) {
  const char* v = std::getenv(zw::TxUtf8(nome).c_str());
  if (v) return zw::TxDeUtf8(v);
  // Windows names are case-blind; look for another spelling.
  for (char** e = environ; *e; e++) {
    const char* eq = std::strchr(*e, '=');
    if (eq && TxCmpTx(zw::TxDeUtf8(std::string(*e, size_t(eq - *e))), nome) == 0) return zw::TxDeUtf8(eq + 1);
  }
  return Tx(1, u'\x01');  // marks "not set"
}

// %NAME% becomes the variable's value; names that are not set stay as written.
Tx Expande(TxV s) {
  Tx o;
  size_t i = 0;
  while (i < s.size()) {
    size_t a = s.find(u'%', i);
    if (a == TxV::npos) break;
    size_t b = s.find(u'%', a + 1);
    if (b == TxV::npos) break;
    Tx v = b > a + 1 ? Env(s.substr(a + 1, b - a - 1)) : Tx(1, u'\x01');
    o.append(s.substr(i, a - i));
    if (v == Tx(1, u'\x01')) {
      o.append(s.substr(a, b - a));
      i = b;  // the closing % may open the next name
    } else {
      o += v;
      i = b + 1;
    }
  }
  o.append(s.substr(i));
  return o;
}

// ---- Environment ----

class Ambiente : public Obj {
 public:
  Tx TypeName() override { return u"IWshEnvironment"; }
  int Id(TxV n) override {
    int k = NameIx(n, {"Item", "Count", "length", "Remove"});
    return k == 1 ? 0 : k;
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (id == 0) {
      if (k == Inv::Let) {
        if (a.size() != 2) Raise(450);
        setenv(zw::TxUtf8(ToTx(a[0])).c_str(), zw::TxUtf8(ToTx(a[1])).c_str(), 1);
      } else {
        if (a.size() != 1) Raise(450);
        Tx v = Env(ToTx(a[0]));
        r = Value(v == Tx(1, u'\x01') ? Tx() : v);
      }
      return;
    }
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    if (id == 2 || id == 3) {
      int32_t n = 0;
      for (char** e = environ; *e; e++) n++;
      r = Value(n);
    } else if (id == 4) {
      if (a.size() != 1) Raise(450);
      unsetenv(zw::TxUtf8(ToTx(a[0])).c_str());
    } else {
      Raise(438);
    }
  }
  bool Items(std::vector<Value>& out) override {
    out.clear();
    for (char** e = environ; *e; e++) out.push_back(Value(zw::TxDeUtf8(*e)));
    return true;
  }
};

// ---- Exec ----

// The three pipes of a program started by Exec; output and error are drained
// together so that a program that fills one while the script reads the other never
// blocks.
struct Tubos {
  int in = -1, out = -1, err = -1;
  std::string bo, be;  // bytes read and not yet taken
  bool fimO = false, fimE = false;

  ~Tubos() {
    for (int f : {in, out, err})
      if (f >= 0) close(f);
  }

  // Reads what is there; with `bloqueia` waits until something comes or both end.
  void Bombeia(bool bloqueia) {
    while (true) {
      pollfd p[2];
      int n = 0;
      if (!fimO) p[n++] = {out, POLLIN, 0};
      if (!fimE) p[n++] = {err, POLLIN, 0};
      if (n == 0) return;
      int r = poll(p, n, bloqueia ? -1 : 0);
      if (r < 0 && errno == EINTR) continue;
      if (r <= 0) return;
      for (int i = 0; i < n; i++) {
        if (!(p[i].revents & (POLLIN | POLLHUP | POLLERR))) continue;
        char buf[4096];
        ssize_t k = read(p[i].fd, buf, sizeof buf);
        bool eo = p[i].fd == out;
        if (k <= 0) (eo ? fimO : fimE) = true;
        else (eo ? bo : be).append(buf, size_t(k));
      }
      return;
    }
  }
};

class Fluxo;

class Execucao : public Obj {
 public:
  int pid = 0;
  int estado = 0, codigo = 0;
  std::shared_ptr<Tubos> t = std::make_shared<Tubos>();
  Ref<Obj> sIn, sOut, sErr;

  Tx TypeName() override { return u"IWshExec"; }
  int Id(TxV n) override {
    return NameIx(n, {"Status", "ExitCode", "ProcessID", "StdIn", "StdOut", "StdErr", "Terminate"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    (void)a;
    switch (id) {
      case 1: Verifica(); r = Value(int32_t(estado)); break;
      case 2: Verifica(); r = Value(int32_t(codigo)); break;
      case 3: r = Value(int32_t(pid)); break;
      case 4: r = Value(sIn); break;
      case 5: r = Value(sOut); break;
      case 6: r = Value(sErr); break;
      case 7:
        if (!estado) zw::PrcTer(pid);
        break;
      default: Raise(438);
    }
  }
  ~Execucao() override {
    // Collects the child if it has ended; one still running is collected by a
    // later start, so it does not linger either.
    Verifica();
  }
  void Verifica() {
    if (estado || pid <= 0) return;
    int cod = 0;
    Tx st = zw::PrcEsp(pid, 0, cod);
    if (st == u"TO") return;
    estado = 1;
    codigo = st == u"NOR" ? cod : 0;
  }
};

// A stream over one pipe: output and error read, input written.
class Fluxo : public Obj {
 public:
  Fluxo(std::shared_ptr<Tubos> t, int qual) : t_(std::move(t)), q_(qual) {}
  Tx TypeName() override { return u"TextStream"; }
  int Id(TxV n) override {
    return NameIx(n, {"AtEndOfStream", "ReadAll", "ReadLine", "Read", "Write", "WriteLine", "Close",
                      "AtEndOfLine", "SkipLine"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    if ((q_ == 0) != (id == 5 || id == 6 || id == 7)) Raise(54);
    switch (id) {
      case 1: Espera(1); r = Value(Buf().empty() && Fim()); break;
      case 2: {
        while (!Fim()) t_->Bombeia(true);
        r = Value(Toma(Buf().size()));
        break;
      }
      case 3: case 9: {
        size_t p;
        while ((p = Buf().find('\n')) == std::string::npos && !Fim()) t_->Bombeia(true);
        if (Buf().empty() && Fim()) Raise(62);
        Tx l = Toma(p == std::string::npos ? Buf().size() : p + 1);
        while (!l.empty() && (l.back() == u'\n' || l.back() == u'\r')) l.pop_back();
        if (id == 3) r = Value(TxV(l));
        break;
      }
      case 4: {
        size_t n = size_t(ToLng(a[0]));
        Espera(n);
        r = Value(Toma(std::min(n, Buf().size())));
        break;
      }
      case 8: Espera(1); r = Value(Buf().empty() || Buf()[0] == '\n' || Buf()[0] == '\r'); break;
      case 5: case 6: {
        std::string s = zw::TxUtf8(a.size() ? ToTx(a[0]) : Tx());
        if (id == 6) s += "\n";
        if (t_->in >= 0 && write(t_->in, s.data(), s.size()) < 0) Raise(57);
        break;
      }
      case 7:
        if (t_->in >= 0) close(t_->in);
        t_->in = -1;
        break;
      default: Raise(438);
    }
  }

 private:
  std::shared_ptr<Tubos> t_;
  int q_;  // 0 input, 1 output, 2 error

  std::string& Buf() { return q_ == 1 ? t_->bo : t_->be; }
  bool Fim() { return q_ == 1 ? t_->fimO : t_->fimE; }
  void Espera(size_t n) {
    while (Buf().size() < n && !Fim()) t_->Bombeia(true);
  }
  Tx Toma(size_t n) {
    Tx r = zw::TxDeUtf8(Buf().substr(0, n));
    Buf().erase(0, n);
    return r;
  }
};

// Exec: %NAME% expanded, the line cut into the program and its arguments by the
// Windows rules that every command line of the system follows (PrcPal), and the
// program started with its standard streams on pipes.
Ref<Obj> Executa(const Tx& linha) {
  std::vector<Tx> w = zw::PrcPal(Expande(linha));
  if (w.empty()) Raise(kErrNaoAchou, u"The system cannot find the file specified.");
  Tx prog = w[0];
  w.erase(w.begin());
  int pid = 0;
  zw::PrcTub tub;
  if (zw::PrcLan(prog, w, pid, tub)) Raise(kErrNaoAchou, u"The system cannot find the file specified.");
  Ref<Execucao> x(new Execucao);
  x->t->in = tub.in;
  x->t->out = tub.out;
  x->t->err = tub.err;
  x->pid = pid;
  x->sIn = Ref<Obj>(new Fluxo(x->t, 0));
  x->sOut = Ref<Obj>(new Fluxo(x->t, 1));
  x->sErr = Ref<Obj>(new Fluxo(x->t, 2));
  return x;
}

// ---- Registry ----

// Splits "HKLM\Software\X\Name" into root, key path and value name; a name ending
// in "\" reads the key's default value.
void ChaveReg(TxV s, int32_t& raiz, Tx& path, Tx& nome) {
  size_t b = s.find(u'\\');
  Tx r = TxMaiVb(b == TxV::npos ? s : s.substr(0, b));
  if (r == u"HKLM" || r == u"HKEY_LOCAL_MACHINE") raiz = zw::kHklm;
  else if (r == u"HKCU" || r == u"HKEY_CURRENT_USER") raiz = zw::kHkcu;
  else if (r == u"HKCR" || r == u"HKEY_CLASSES_ROOT") raiz = zw::kHkcr;
  else if (r == u"HKU" || r == u"HKEY_USERS") raiz = zw::kHku;
  else if (r == u"HKCC" || r == u"HKEY_CURRENT_CONFIG") raiz = zw::kHkcc;
  else Raise(int32_t(0x80070002), u"Invalid root in registry key \"" + Tx(s) + u"\".");
  TxV resto = b == TxV::npos ? TxV() : s.substr(b + 1);
  size_t u = resto.rfind(u'\\');
  if (u == TxV::npos) {
    path.clear();
    nome = Tx(resto);
  } else {
    path = Tx(resto.substr(0, u));
    nome = Tx(resto.substr(u + 1));
  }
}

class Shell : public Obj {
 public:
  Tx TypeName() override { return u"IWshShell3"; }
  int Id(TxV n) override {
    return NameIx(n, {"Run", "Exec", "Environment", "ExpandEnvironmentStrings", "CurrentDirectory",
                      "RegRead", "RegWrite", "RegDelete", "Popup", "SpecialFolders", "CreateShortcut"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    bool set = k == Inv::Let || k == Inv::Set;
    if (id == 5) {
      if (set) {
        std::string d = zw::FicNat(ToTx(a[0]));
        if (chdir(d.c_str()) != 0) Raise(76);
      } else {
        char buf[4096];
        r = Value(getcwd(buf, sizeof buf) ? zw::TxDeUtf8(buf) : Tx());
      }
      return;
    }
    if (set) Raise(438);
    Tx t0;
    switch (id) {
      case 1: {  // Run(command[, window style[, wait]]): words as Exec cuts them
        if (a.size() < 1 || a.size() > 3) Raise(450);
        bool espera = a.Has(2) && ToBool(a[2]);
        int pid = 0;
        int e = zw::PrcLan(Expande(ToTx(a[0])), pid);
        if (e) Raise(kErrNaoAchou, u"The system cannot find the file specified.");
        int cod = 0;
        if (espera) zw::PrcEsp(pid, -1, cod);
        r = Value(int32_t(espera ? cod : 0));
        break;
      }
      case 2:
        if (a.size() != 1) Raise(450);
        r = Value(Executa(ToTx(a[0])));
        break;
      case 3:
        // System, User, Process and Volatile are all the process's environment here.
        r = Value(Ref<Obj>(new Ambiente));
        if (a.size() > 1) Raise(450);
        break;
      case 4:
        if (a.size() != 1) Raise(450);
        r = Value(Expande(ToTx(a[0])));
        break;
      case 6: {
        if (a.size() != 1) Raise(450);
        Tx s = ToTx(a[0]), path, nome;
        int32_t raiz;
        ChaveReg(s, raiz, path, nome);
        Tx v = zw::RegVarLer(raiz, path, nome);
        if (v.empty())
          Raise(int32_t(0x80070002), u"Unable to open registry key \"" + s + u"\" for reading.");
        if (!v.empty() && v.back() == u'\0') v.pop_back();
        r = Value(TxV(v));
        break;
      }
      case 7: {  // RegWrite(name, value[, type]): text values
        if (a.size() < 2 || a.size() > 3) Raise(450);
        Tx tipo = a.Has(2) ? TxMaiVb(ToTx(a[2])) : Tx(u"REG_SZ");
        if (tipo != u"REG_SZ" && tipo != u"REG_EXPAND_SZ") Raise(5);
        Tx s = ToTx(a[0]), path, nome;
        int32_t raiz;
        ChaveReg(s, raiz, path, nome);
        Tx porque;
        if (!zw::RegVarGra(raiz, path, nome, ToTx(a[1]), &porque))
          Raise(int32_t(0x80070005), u"Unable to save registry key \"" + s + u"\": " + porque + u".");
        break;
      }
      case 8: {  // RegDelete(name): a value, or with a final "\" the key and its subkeys
        if (a.size() != 1) Raise(450);
        Tx s = ToTx(a[0]), path, nome, porque;
        int32_t raiz;
        ChaveReg(s, raiz, path, nome);
        int res = nome.empty() && !s.empty() && s.back() == u'\\'
                      ? zw::RegChvEli(raiz, path.empty() ? nome : path, &porque)
                      : zw::RegVarEli(raiz, path, nome, &porque);
        if (res < 0) Raise(int32_t(0x80070005), u"Unable to remove registry key \"" + s + u"\": " + porque + u".");
        if (res == 0) Raise(kErrNaoAchou, u"Unable to remove registry key \"" + s + u"\".");
        break;
      }
      case 9: {  // Popup(text[, seconds[, title[, type]]])
        if (a.size() < 1 || a.size() > 4) Raise(450);
        Tx titulo = a.Has(2) ? ToTx(a[2]) : Tx(u"Windows Script Host");
        r = Value(int32_t(zw::MsgDlgAct().Caixa(ArgLng(a, 3, 0), titulo, ToTx(a[0]))));
        break;
      }
      case 10: {
        // The freedesktop.org folders by their Windows names (GlbReg.h); without a
        // name, the list of them all, each by its name.
        if (a.size() > 1) Raise(450);
        if (a.size() == 1 && !a[0].IsNum()) {
          r = Value(zw::DirEspCon(ToTx(a[0])));
          break;
        }
        Ref<Colecao> c(new Colecao(u"IWshCollection"));
        for (const char* const* n = zw::DirEspNom(); *n; n++) {
          Tx d = zw::DirEspCon(zw::TxAsc(*n));
          if (d.empty()) continue;
          c->v.push_back(Value(d));
          c->nomes.push_back(zw::TxAsc(*n));
        }
        r = Value(c);
        if (a.size() == 1) ArgsAoValor(r, a);
        break;
      }
      case 11:  // CreateShortcut(path): nothing is written before Save
        if (a.size() != 1) Raise(450);
        r = Value(AtlObj(ToTx(a[0])));
        break;
      default: Raise(438);
    }
  }
};

Ref<Obj> NovoShell() { return Ref<Obj>(new Shell); }

}  // namespace

void ShellReg() { DefProgId("WScript.Shell", NovoShell); }

}  // namespace vbs
