// The log class: registers with lock files, header blocks, start, access, group
// and error records, and clearing a register.
#include "SupLogReg.h"
#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <thread>
#include "DbgFx.h"
#include "FicGlb.h"
#include "Ata.h"
#include "FicGra.h"
#include "GlbMsg.h"
#include "PrcExe.h"
#include "TxtGlb.h"

namespace zw {

namespace {
const Tx kIgual(80, u'=');

// A register's file: with "/" in a Linux folder, with the separator otherwise.
Tx Jun(const Tx& dir, const Tx& nom) {
  if (dir.find(u'/') != Tx::npos) return dir.back() == u'/' ? dir + nom : dir + u"/" + nom;
  return FicJun(dir, nom);
}

Tx Utz() {
  if (passwd* p = getpwuid(geteuid())) return TxDeUtf8(p->pw_name);
  return u"?";
}
Tx Maq() {
  char b[256] = {};
  if (gethostname(b, sizeof b - 1) != 0) return u"?";
  return TxDeUtf8(b);
}
// "dd/mm/yyyy" and "hh:mm:ss" of the local time.
void DataHora(Tx& d, Tx& h) {
  std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  char b[32];
  std::snprintf(b, sizeof b, "%02d/%02d/%04d", tm.tm_mday, tm.tm_mon + 1, tm.tm_year + 1900);
  d = TxAsc(b);
  std::snprintf(b, sizeof b, "%02d:%02d:%02d", tm.tm_hour, tm.tm_min, tm.tm_sec);
  h = TxAsc(b);
}
void Espera() {
  EvtPmp();
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EvtPmp();
}
// A register folder of this user's is usable when a test file can be made and
// deleted in it, as on Windows; the test file has a name no one can foresee.
bool Usavel(const std::string& dir) {
  if (DirPrv(dir) != 0) return false;
  std::string t;
  int fd = FicTmpCri(dir + "/Tmp.xxx", t);
  if (fd < 0) return false;
  close(fd);
  return unlink(t.c_str()) == 0;
}
Tx Str(int n) { return n >= 0 ? u" " + TxAsc(std::to_string(n)) : TxAsc(std::to_string(n)); }
}  // namespace

// Root's folder, then the user's state folder; each is taken only when it is a
// folder of the user's alone (made 0700 when missing). The last resort in /tmp has
// a name others can foresee, so one that is there and not the user's alone is
// passed over for a new folder of unforeseeable name; when even that cannot be
// made, there is no register folder (empty), never the foreseeable one.
Tx LogDirPad() {
  if (geteuid() == 0 && Usavel("/var/log/zunwiz")) return u"/var/log/zunwiz";
  if (passwd* p = getpwuid(geteuid())) {
    std::string d = std::string(p->pw_dir ? p->pw_dir : "") + "/.local/state/zunwiz";
    if (p->pw_dir && *p->pw_dir && Usavel(d)) return TxDeUtf8(d);
  }
  std::string t = "/tmp/zunwiz-" + std::to_string(geteuid());
  if (DirPrv(t) == 0) return TxDeUtf8(t);
  std::string m = t + "-XXXXXX";
  if (mkdtemp(m.data())) return TxDeUtf8(m);
  return Tx();
}

SupLogReg::SupLogReg() { DbgObjIni(cls, stamp); }

SupLogReg::~SupLogReg() {
  for (Reg& r : regs_) Fecha(r);
  DbgObjFim(cls, stamp);
}

void SupLogReg::FxIni() {
  DbgFxIni(cls, stamp, u"#I");
  if (dir_.empty()) DirPad();
  PrpReg(u"INI", u"Registo de Inicializa\u00e7\u00e3o", u"LogIni.txt");
  PrpReg(u"ERR", u"Registo de Erros", u"LogErr.txt");
  PrpReg(u"ACE", u"Registo de Acessos", u"LogAce.txt");
  PrpReg(u"MSG", u"Registo de Mensagens", u"LogMsg.txt");
  DbgFxIni(cls, stamp, u"#F");
}

void SupLogReg::FxFim() {
  DbgFxFim(cls, stamp, u"#I");
  for (Reg& r : regs_) Fecha(r);
  DbgFxFim(cls, stamp, u"#F");
}

// The default folder (LogDirPad); when there is none, the registers stay closed.
void SupLogReg::DirPad() {
  dir_ = LogDirPad();
  semDir_ = dir_.empty();
}

void SupLogReg::DirDef(const Tx& dir) {
  dir_ = dir;
  semDir_ = false;
  for (auto& [tipo, fic] : modelos_)
    if (Reg* r = Acha(tipo)) {
      Fecha(*r);
      r->fic = Jun(dir_, Nome(fic));
      FicExtTro(r->fic, u"lck", r->lck, 0);
    }
}

// Replaces the words in braces of a file name.
Tx SupLogReg::Nome(const Tx& modelo) const {
  Tx r, resto = modelo;
  for (;;) {
    size_t a = resto.find(u'{');
    size_t b = a == Tx::npos ? Tx::npos : resto.find(u'}', a);
    if (b == Tx::npos) break;
    r += resto.substr(0, a);
    Tx w = TxMai(resto.substr(a + 1, b - a - 1));
    if (w == u"DIA") {
      Tx d, h;
      DataHora(d, h);
      for (auto& c : d)
        if (c == u'/') c = u'_';
      r += d;
    } else if (w == u"MAQ") {
      r += Maq();
    } else if (w == u"UTZ") {
      r += Utz();
    }
    resto.erase(0, b + 1);
  }
  return r + resto;
}

void SupLogReg::PrpReg(const Tx& tipo, const Tx& tit, const Tx& fic) {
  Tx t = TxMaiTrm(tipo);
  if (dir_.empty()) DirPad();
  Reg* r = Acha(t);
  if (!r) {
    regs_.push_back(Reg());
    r = &regs_.back();
    modelos_.push_back({t, fic});
  } else {
    Fecha(*r);
    for (auto& m : modelos_)
      if (m.first == t) m.second = fic;
  }
  r->tipo = t;
  r->tit = tit;
  r->fic = Jun(dir_, Nome(fic));
  FicExtTro(r->fic, u"lck", r->lck, 0);
}

void SupLogReg::PrpApp(const Tx& pgm) { pgm_ = pgm; }
void SupLogReg::PrpGrp(const Tx& grp) { grp_ = grp; }

Tx SupLogReg::PrpCab(const Tx& modo, const Tx& tipo, const Tx& tit) const {
  bool tot = modo == u"*";
  Tx d, h;
  DataHora(d, h);
  Tx c = kIgual + u"\r\n";
  c += u"Data       : " + d + u" " + h + u"\r\n";
  if (tot) {
    Tx k = tipo.empty() ? Tx(u"INFO") : tipo == u"-" ? Tx() : tipo;
    Tx l = k;
    if (!tit.empty()) l += (l.empty() ? u"" : u" - ") + tit;
    c += u"Tipo       : " + l + u"\r\n";
  }
  c += u"Utilizador : " + Utz() + u" (" + Maq() + u")\r\n";
  if (tot) c += u"Programa   : " + pgm_ + u"\r\n";
  c += kIgual + u"\r\n";
  return c;
}

SupLogReg::Reg* SupLogReg::Acha(const Tx& tipo) {
  for (Reg& r : regs_)
    if (r.tipo == tipo) return &r;
  return nullptr;
}
const SupLogReg::Reg* SupLogReg::Acha(const Tx& tipo) const {
  for (const Reg& r : regs_)
    if (r.tipo == tipo) return &r;
  return nullptr;
}

Tx SupLogReg::RegFic(const Tx& tipo) const {
  const Reg* r = Acha(TxMaiTrm(tipo));
  return r ? r->fic : Tx();
}
Tx SupLogReg::RegLck(const Tx& tipo) const {
  const Reg* r = Acha(TxMaiTrm(tipo));
  return r ? r->lck : Tx();
}

// The lock first, in up to 20 attempts 100 ms apart, then the register for append.
int SupLogReg::Abre(Reg& r) {
  if (r.num) return 1;
  if (semDir_) return 0;
  // The folder, the register and its lock file are made never writable by others
  // whatever the umask, and a planted link in their place is refused.
  std::string fic = FicNat(r.fic), lck = FicNat(r.lck);
  size_t k = fic.rfind('/');
  if (k != std::string::npos && k > 0 && DirCriMod(fic.substr(0, k), 0755) != 0) return 0;
  for (const std::string* f : {&lck, &fic}) {
    int fd = FicCriNov(*f, O_WRONLY, 0644);
    if (fd >= 0) AtaEscrito(AtaAnt(), *f), close(fd);
  }
  int n = 0;
  for (int i = 0; i < 20; i++) {
    n = FicNumLiv();
    int ok = 0;
    if (n) FicAbrNum(n, r.lck, u"O", ok);
    if (ok == 1) break;
    n = 0;
    Espera();
  }
  if (!n) return 0;
  r.numLck = n;
  int m = FicNumLiv(), ok = 0;
  if (m) FicAbrNum(m, r.fic, u"A", ok);
  if (ok != 1) {
    FicFec(r.numLck);
    r.numLck = 0;
    return 0;
  }
  FicCodDef(m, Cod::Utf8);
  r.num = m;
  return 1;
}

void SupLogReg::Fecha(Reg& r) {
  if (r.num) FicFec(r.num);
  if (r.numLck) FicFec(r.numLck);
  r.num = r.numLck = 0;
}

int SupLogReg::RegGra(const Tx& tipo, const std::vector<Tx>& lin) {
  Reg* r = Acha(TxMaiTrm(tipo));
  if (!r) return 0;
  int ok = Abre(*r);
  for (size_t i = 0; ok && i < lin.size(); i++)
    if (FicLinGra(r->num, lin[i]) != 0) ok = 0;
  Fecha(*r);
  if (!ok) {
    int x = 0;
    MsgExe(u"X _B", u"Mensagem de Erro",
           u"N\u00e3o foi possivel registar informa\u00e7\u00e3o no ficheiro : " + r->fic, x);
  }
  return ok;
}

// A text's lines (CR LF, or LF alone), without a final empty line.
static void Linhas(const Tx& tx, std::vector<Tx>& v) {
  size_t i = 0;
  while (i < tx.size()) {
    size_t e = tx.find(u'\n', i);
    if (e == Tx::npos) e = tx.size();
    size_t f = e > i && tx[e - 1] == u'\r' ? e - 1 : e;
    v.push_back(tx.substr(i, f - i));
    i = e + 1;
  }
}

int SupLogReg::RegIniMsg(const Tx& tx) {
  const Reg* r = Acha(u"INI");
  std::vector<Tx> v;
  Linhas(PrpCab(u"*", u"INI", r ? r->tit : Tx()), v);
  Linhas(tx, v);
  return RegGra(u"INI", v);
}

int SupLogReg::RegIniFim(const Tx& tx) {
  std::vector<Tx> v;
  Linhas(PrpCab(u"", u"", u""), v);
  v.push_back(u"Fim        : " + tx);
  return RegGra(u"INI", v);
}

int SupLogReg::RegAceIni(const Tx& tx) {
  std::vector<Tx> v;
  Linhas(PrpCab(u"*", u"ACE", u"Entrada"), v);
  Linhas(tx, v);
  return RegGra(u"ACE", v);
}

int SupLogReg::RegAceFim(const Tx& tx) {
  std::vector<Tx> v;
  Linhas(PrpCab(u"*", u"ACE", u"Sa\u00edda"), v);
  Linhas(tx, v);
  return RegGra(u"ACE", v);
}

// The program given, or the identity set with PrpApp, heads the message.
int SupLogReg::MsgGrpReg(const Tx& pgm, const Tx& item, const Tx& grp) {
  Tx g = grp.empty() ? grp_ : grp;
  Tx salvo = pgm_;
  if (!pgm.empty()) pgm_ = pgm;
  std::vector<Tx> v;
  Linhas(PrpCab(u"*", u"MSG", g), v);
  pgm_ = salvo;
  Linhas(item, v);
  return RegGra(u"MSG", v);
}

void SupLogReg::ErrInfPrp(int num, const Tx& tx, Tx& res, Tx& fonte) const {
  fonte = pgm_;
  if (!tx.empty()) {
    res = u"Erro : " + Str(num) + u" - " + tx;  // as ErrDad writes it
  } else {
    res.clear();
    ErrDad(num, res, fonte);
  }
}

int SupLogReg::ErrMsg(int nivel, int num, const Tx& tx, const Tx& fonte, const Tx& oper, const Tx& diversos,
                      const Tx& inf) {
  if (nivel <= 0) return 0;
  Tx texto, fnt;
  ErrInfPrp(num, tx, texto, fnt);
  if (!fonte.empty()) fnt = fonte;
  std::vector<Tx> v;
  Linhas(PrpCab(u"*", u"ERRO", Acha(u"ERR") ? Acha(u"ERR")->tit : Tx()), v);
  v.push_back(u"Origem do erro : " + fnt);
  v.push_back(u"Opera\u00e7\u00e3o       : " + oper);
  Linhas(texto, v);
  if (!diversos.empty()) v.push_back(u"Diversos       : " + diversos);
  if (!inf.empty()) {
    v.push_back(u"Informa\u00e7\u00e3o adicional");
    Linhas(inf, v);
  }
  int ok = RegGra(u"ERR", v);
  if (nivel >= 2) {
    Tx m = texto + u"||O erro foi registado no ficheiro : " + RegFic(u"ERR");
    int r = 0;
    if (nivel == 2) {
      MsgExe(u"X _B SN 2", u"Mensagem de Erro", m + u"||Terminar o programa imediatamente ?", r);
      if (r == 1) {
        pMsgPgmFim(texto);
        FicFecTot();
        FrmFimTot(0);
        std::exit(1);
      }
    } else {
      MsgExe(u"X _B", u"Mensagem de Erro", m, r);
    }
  }
  return ok;
}

void SupLogReg::pMsgPgmFim(const Tx& tx) { RegGra(u"ERR", {u"Programa TERMINADO - " + tx}); }

// Both files go, in a loop 100 ms apart; a file already missing counts as gone.
int SupLogReg::RegLpz(const Tx& tipo, int perguntar) {
  Reg* r = Acha(TxMaiTrm(tipo));
  if (!r) return 0;
  if (perguntar == 1) {
    int res = 0;
    MsgCnf(u"Limpar registo", r->tit, res);
    if (res != 1) return 0;
  }
  Fecha(*r);
  bool fic = false, lck = false;
  for (int i = 0; i < 50; i++) {
    int e = 0;
    if (!fic) FicEli(r->fic, e), fic = e == 0 || e == kErrFicNao;
    if (!lck) FicEli(r->lck, e), lck = e == 0 || e == kErrFicNao;
    if (fic && lck) return 1;
    Espera();
  }
  return 0;
}

void SupLogReg::LogVer(const Tx& tipo) {
  Tx f = RegFic(tipo);
  if (!f.empty()) FicVerNot(f, 1);
}

void SupLogReg::GrpVer() {
  Tx f = RegFic(u"MSG");
  if (!f.empty()) FicVerShl(f, 1);
}

// The program's file name comes from its executable; "ZunWiz" when the system does
// not say.
void MsgLogDef(SupLogReg* log) {
  if (!log) return MsgLogFxDef(nullptr);
  Tx pgm = PrcExeCam();
  pgm = pgm.substr(pgm.rfind(u'/') + 1);
  if (pgm.empty()) pgm = u"ZunWiz";
  MsgLogFxDef([log, pgm](const Tx& item, const Tx& grp) { log->MsgGrpReg(pgm, item, grp); });
}

}  // namespace zw
