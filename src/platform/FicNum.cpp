// Files open on file numbers: opening with a failure policy, reading lines,
// writing text, closing. A file opened for input is read whole and decoded at once
// (Windows-1252, or UTF-8 when it has the mark or valid multi-byte sequences), so
// lines come from memory and the encoding is known to whoever writes it back; the
// bytes of each line are kept as well, so that a line nobody changed can be
// written back exactly as it was. Only regular files up to kFicLerMax bytes are
// read. Output and append go through FicGra, so a write that fails leaves the file
// as it was.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <memory>
#include "Ata.h"
#include "DbgFx.h"
#include "FicGlb.h"
#include "FicGra.h"
#include "FicLer.h"
#include "MsgDlg.h"

namespace zw {

namespace {
struct Arq {
  char modo = 0;  // 0 free, 'I' input, 'O' output, 'A' append, 'B' binary
  int fd = -1;    // binary
  std::unique_ptr<FicGra> gra;  // output and append
  Tx nome;
  Tx dados;         // input: the decoded text
  size_t pos = 0;   // input: where the next line starts
  std::string byt;  // input: the bytes after the mark, and where the next line starts
  size_t bpos = 0;
  std::string linByt;  // input: the bytes of the line read last
  Cod cod = Cod::W1252;
  bool escrito = false;
  // binary, for the install record: the file's path, what it was, and whether
  // this open made it or wrote to it
  std::string alvo;
  AtaAnt ant;
  bool mudou = false;
};
Arq gArq[kFicNumMax + 1];

Arq* Num(int num) {
  if (num < 1 || num > kFicNumMax || !gArq[num].modo) return nullptr;
  return &gArq[num];
}

// Decimal text of a number with the blank that a positive number carries in front.
Tx TxStrNu(int n) { return n >= 0 ? u" " + TxAsc(std::to_string(n)) : TxAsc(std::to_string(n)); }

// The open itself: 0 or the error number. With ler false an input file is only
// opened and tested, not read.
int Abre(int num, const Tx& path, char m, bool ler = true) {
  if (num < 1 || num > kFicNumMax) return kErrNumFic;
  if (gArq[num].modo) return kErrFicAbe;
  int e = 0;
  std::string n = FicNat(path, &e);
  if (e) return e;
  if (n.empty()) return kErrNumFic;
  Arq a;
  a.modo = m;
  a.nome = path;
  if (m == 'I') {
    // The system's one rule for what it reads (FicLer.h): a regular file of at
    // most kFicLerMax bytes, opened without waiting for a pipe's writer.
    std::string b;
    if (int e = FicLerNat(n, b, kFicLerMax, ler)) return e;
    a.dados = TxDeBytes(b, &a.cod);
    a.byt = a.cod == Cod::Utf8Bom ? b.substr(3) : std::move(b);
  } else if (m == 'B') {
    // Links of the last part are followed only where the safe writer follows them,
    // and the file itself is opened, or made new, without following one.
    std::string alvo;
    if (int e = FicAlvo(n, alvo)) return e;
    int fd = -1;
    bool criado = false;
    for (int i = 0; fd < 0 && i < 2; i++) {
      fd = open(alvo.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
      if (fd < 0 && errno == ENOENT) criado = (fd = FicCriNov(alvo, O_RDWR | O_NONBLOCK)) >= 0;
      if (fd < 0 && errno != EEXIST && errno != ENOENT) break;
    }
    if (fd < 0) {
      if (errno == EISDIR) return kErrAces;
      return errno == ELOOP || errno == EEXIST ? kErrPerm : FicErrNat(errno, alvo);
    }
    struct stat st;
    int e = fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) ? kErrAces : 0;
    // Held as an output file is: another writer gets "Permission denied".
    if (!e && flock(fd, LOCK_EX | LOCK_NB) != 0) e = kErrPerm;
    if (e) {
      close(fd);
      return e;
    }
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    a.escrito = st.st_size > 0;
    a.fd = fd;
    if (AtaLig()) {
      a.alvo = alvo;
      a.ant.ha = a.ant.reg = !criado;
      a.ant.modo = st.st_mode, a.ant.uid = st.st_uid, a.ant.gid = st.st_gid;
      a.mudou = criado;
    }
  } else {
    // A file open for writing is held: another writer, in this process or another,
    // gets "Permission denied" until it is closed, as on the system the wizards
    // come from.
    a.gra = std::make_unique<FicGra>();
    if (int e = a.gra->Abre(n, m)) return e;
    if (m == 'A' && a.gra->TamIni() > 0) {  // append in the encoding the file already has
      a.escrito = true;
      std::string b(size_t(std::min<int64_t>(a.gra->TamIni(), 1 << 20)), '\0');
      ssize_t r = pread(a.gra->Fd(), b.data(), b.size(), 0);
      if (r > 0) {
        b.resize(size_t(r));
        Cod c = CodDetecta(b);
        a.cod = c == Cod::W1252 ? Cod::W1252 : Cod::Utf8;
      }
    }
  }
  gArq[num] = std::move(a);
  return 0;
}
char Modo(const Tx& modo) { return modo == u"O" ? 'O' : modo == u"A" ? 'A' : 'I'; }
}  // namespace

int FicNumLiv() {
  for (int i = 1; i <= kFicNumMax; i++)
    if (!gArq[i].modo) return i;
  return 0;
}

// On failure the number goes into err, and the policy that err held on entry
// decides: 2 and 3 show the box "Erro a abrir ficheiro", 1 and 3 close every file
// and every form and end the program. The spare text is part of the call every
// caller makes, and no open reads it.
void FicAbr(int num, const Tx& path, const Tx& modo, const Tx& reserva, const Tx& contexto, int& err) {
  (void)reserva;
  int pol = err;
  int e = Abre(num, path, Modo(modo));
  if (!e) return;
  err = e;
  if (pol == kFicPolCaixa || pol == kFicPolCaixaFim) {
    Tx tx = u"Erro :" + TxStrNu(e) + u"   " + ErrDsc(e) + u"\r\n" + u"Ficheiro :" + path + u"   (" + contexto + u")";
    MsgDlgAct().Caixa(kMsgCritical, u"Erro a abrir ficheiro", tx);
  }
  if (pol == kFicPolFim || pol == kFicPolCaixaFim) {
    FicFecTot();
    FrmFimTot(1);
  }
}

void FicAbrNum(int num, const Tx& path, const Tx& modo, int& res) {
  int e = Abre(num, path, Modo(modo));
  res = e ? -e : 1;
}

void FicAbrBin(int num, const Tx& path, int& res) {
  int e = Abre(num, path, 'B');
  res = e ? -e : 1;
}

// Opens the file for input on a free number and closes it again, without reading
// it, so a folder, a device or a pipe is not an existing file (75), as a file
// held by a writer is not (70).
void FicExi(const Tx& path, int& res) {
  int n = FicNumLiv();
  if (n == 0) {
    res = -kErrFicMui;
    return;
  }
  int e = Abre(n, path, 'I', false);
  if (e == 0) gArq[n] = Arq();
  res = e == 0 ? 1 : e == kErrFicNao ? 0 : -e;
}

int FicExi(const Tx& path) {
  int r = 0;
  FicExi(path, r);
  return r;
}

// A line ends at CR LF. A bare CR or a bare LF ends a line as well, so files
// written on Linux (LF) or on old Macintosh systems (CR) read line by line; a
// file's last line needs no end. Past the last line the error is 62.
void FicLinLer(int num, Tx& lin, int& err) {
  Arq* a = Num(num);
  if (!a || a->modo != 'I') {
    lin.clear();
    err = a ? kErrModo : kErrNumFic;
    return;
  }
  const Tx& d = a->dados;
  if (a->pos >= d.size()) {
    lin.clear();
    err = kErrFimFic;
    return;
  }
  size_t e = d.find_first_of(u"\r\n", a->pos);
  if (e == Tx::npos) {
    lin = d.substr(a->pos);
    a->pos = d.size();
  } else {
    lin = d.substr(a->pos, e - a->pos);
    a->pos = e + (d[e] == u'\r' && e + 1 < d.size() && d[e + 1] == u'\n' ? 2 : 1);
  }
  // CR and LF are the same single bytes in every encoding read, so the bytes part
  // into lines at the same places.
  const std::string& b = a->byt;
  size_t f = b.find_first_of("\r\n", a->bpos);
  if (f == std::string::npos) f = b.size();
  a->linByt = b.substr(a->bpos, f - a->bpos);
  a->bpos = f < b.size() ? f + (b[f] == '\r' && f + 1 < b.size() && b[f + 1] == '\n' ? 2 : 1) : f;
}

const std::string& FicLinByt(int num) {
  static const std::string nada;
  Arq* a = Num(num);
  return a && a->modo == 'I' ? a->linByt : nada;
}

bool FicEof(int num) {
  Arq* a = Num(num);
  return !a || a->modo != 'I' || a->pos >= a->dados.size();
}

// The mark of UTF-8 goes in front of the first bytes of a file that has none yet.
int FicBytGra(int num, std::string_view b) {
  Arq* a = Num(num);
  if (!a) return kErrNumFic;
  if (a->modo == 'I') return kErrModo;
  std::string m = a->cod == Cod::Utf8Bom && !a->escrito ? "\xEF\xBB\xBF" : "";
  a->escrito = true;
  std::string_view w = b;
  if (!m.empty()) w = (m += b);
  if (a->gra) return a->gra->Grava(w);
  if (!a->alvo.empty() && !a->mudou) {  // the record's copy, before the first change
    a->mudou = true;
    if (Ata* r = AtaAct()) a->ant.guardado = r->Guarda(a->fd, -1, a->alvo);
  }
  for (size_t k = 0; k < w.size();) {
    ssize_t r = write(a->fd, w.data() + k, w.size() - k);
    if (r < 0 && errno == EINTR) continue;
    if (r < 0) return errno == ENOSPC || errno == EDQUOT || errno == EFBIG ? kErrDisco : kErrIO;
    k += size_t(r);
  }
  return 0;
}

int FicTxGra(int num, const Tx& tx) {
  Cod c = FicCod(num);
  return FicBytGra(num, TxBytes(tx, c == Cod::Utf8Bom ? Cod::Utf8 : c));
}

int FicLinGra(int num, const Tx& lin) { return FicTxGra(num, lin + u"\r\n"); }

Cod FicCod(int num) {
  Arq* a = Num(num);
  return a ? a->cod : Cod::W1252;
}

void FicCodDef(int num, Cod c) {
  if (Arq* a = Num(num)) a->cod = c;
}

// An output file is put in place here; when that fails the old file stays and the
// error comes back.
int FicFec(int num) {
  Arq* a = Num(num);
  if (!a) return kErrNumFic;
  int r = 0;
  if (a->gra) r = a->gra->Fecha();
  if (a->mudou) AtaEscrito(a->ant, a->alvo, a->fd);
  if (a->fd >= 0 && close(a->fd) != 0) r = errno == ENOSPC ? kErrDisco : kErrIO;
  *a = Arq();
  return r;
}

void FicFecTot() {
  for (int i = 1; i <= kFicNumMax; i++)
    if (gArq[i].modo) FicFec(i);
}

Tx FicNom(int num) {
  Arq* a = Num(num);
  return a ? a->nome : Tx();
}

}  // namespace zw
