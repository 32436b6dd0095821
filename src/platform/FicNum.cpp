// Files open on file numbers: opening with a failure policy, reading lines,
// writing text, closing. A file opened for input is read whole and decoded at once
// (Windows-1252, or UTF-8 when it has the mark or valid multi-byte sequences), so
// lines come from memory and the encoding is known to whoever writes it back.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include "DbgFx.h"
#include "FicGlb.h"
#include "MsgDlg.h"

namespace zw {

namespace {
struct Arq {
  char modo = 0;  // 0 free, 'I' input, 'O' output, 'A' append, 'B' binary
  int fd = -1;
  Tx nome;
  Tx dados;        // input: the decoded text
  size_t pos = 0;  // input: where the next line starts
  Cod cod = Cod::W1252;
  bool escrito = false;
};
Arq gArq[kFicNumMax + 1];

Arq* Num(int num) {
  if (num < 1 || num > kFicNumMax || !gArq[num].modo) return nullptr;
  return &gArq[num];
}

// Decimal text of a number with the blank that a positive number carries in front.
Tx TxStrNu(int n) { return n >= 0 ? u" " + TxAsc(std::to_string(n)) : TxAsc(std::to_string(n)); }

int Grava(int fd, const std::string& b) {
  for (size_t w = 0; w < b.size();) {
    ssize_t k = write(fd, b.data() + w, b.size() - w);
    if (k < 0) {
      if (errno == EINTR) continue;
      return errno == ENOSPC || errno == EDQUOT ? kErrDisco : kErrIO;
    }
    w += size_t(k);
  }
  return 0;
}

// The open itself: 0 or the error number.
int Abre(int num, const Tx& path, char m) {
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
    int fd = open(n.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return FicErrNat(errno, n);
    struct stat st;
    if (fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
      close(fd);
      return kErrAces;
    }
    if (flock(fd, LOCK_SH | LOCK_NB) != 0) {  // a writer holds it
      close(fd);
      return kErrPerm;
    }
    std::string b;
    char buf[65536];
    for (;;) {
      ssize_t r = read(fd, buf, sizeof buf);
      if (r == 0) break;
      if (r < 0) {
        if (errno == EINTR) continue;
        close(fd);
        return kErrIO;
      }
      b.append(buf, size_t(r));
    }
    close(fd);
    a.dados = TxDeBytes(b, &a.cod);
  } else {
    if (m == 'O') {  // the outcome does not matter, but a file held by another writer stays
      int f0 = open(n.c_str(), O_WRONLY | O_CLOEXEC);
      if (f0 >= 0) {
        if (flock(f0, LOCK_EX | LOCK_NB) != 0) {
          close(f0);
          return kErrPerm;
        }
        unlink(n.c_str());
        close(f0);
      }
    }
    int fl = O_CLOEXEC | (m == 'B' ? O_RDWR | O_CREAT : O_WRONLY | O_CREAT | (m == 'A' ? O_APPEND : O_TRUNC));
    int fd = open(n.c_str(), fl, 0666);
    if (fd < 0) return errno == EISDIR ? kErrAces : FicErrNat(errno, n);
    // A file open for writing is held: another writer, in this process or another,
    // gets "Permission denied" until it is closed, as on the system the wizards
    // come from.
    if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
      close(fd);
      return kErrPerm;
    }
    struct stat st;
    if (fstat(fd, &st) == 0 && st.st_size > 0) {
      a.escrito = true;
      if (m == 'A') {  // append in the encoding the file already has
        std::string b(size_t(std::min<off_t>(st.st_size, 1 << 20)), '\0');
        ssize_t r = pread(fd, b.data(), b.size(), 0);
        if (r > 0) {
          b.resize(size_t(r));
          Cod c = CodDetecta(b);
          a.cod = c == Cod::W1252 ? Cod::W1252 : Cod::Utf8;
        }
      }
    }
    a.fd = fd;
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
// and every form and end the program.
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
    return;
  }
  lin = d.substr(a->pos, e - a->pos);
  a->pos = e + (d[e] == u'\r' && e + 1 < d.size() && d[e + 1] == u'\n' ? 2 : 1);
}

bool FicEof(int num) {
  Arq* a = Num(num);
  return !a || a->modo != 'I' || a->pos >= a->dados.size();
}

int FicTxGra(int num, const Tx& tx) {
  Arq* a = Num(num);
  if (!a) return kErrNumFic;
  if (a->modo == 'I') return kErrModo;
  std::string b = TxBytes(tx, a->cod);
  if (a->cod == Cod::Utf8Bom && a->escrito && b.size() >= 3) b.erase(0, 3);  // the mark only once
  a->escrito = true;
  return Grava(a->fd, b);
}

int FicLinGra(int num, const Tx& lin) { return FicTxGra(num, lin + u"\r\n"); }

Cod FicCod(int num) {
  Arq* a = Num(num);
  return a ? a->cod : Cod::W1252;
}

void FicCodDef(int num, Cod c) {
  if (Arq* a = Num(num)) a->cod = c;
}

int FicFec(int num) {
  Arq* a = Num(num);
  if (!a) return kErrNumFic;
  int r = 0;
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
