// Printers over CUPS: queues, their file devices as ports, models as drivers, and
// the sequence that adds a printer that prints to a file.
#include <cups/cups.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <filesystem>
#include <string>
#include "Ata.h"
#include "FicGlb.h"
#include "FicGra.h"
#include "Prt.h"
#include "TxtGlb.h"

namespace zw {

namespace {

namespace fs = std::filesystem;

long gErr = 0;  // the status of the last scheduler request

// A call never asks anyone for a password: a user the scheduler does not let add
// printers simply fails.
const char* SemSenha(const char*, http_t*, const char*, const char*, void*) { return nullptr; }

void Prepara() {
  static bool feito = false;
  if (feito) return;
  feito = true;
  cupsSetPasswordCB2(SemSenha, nullptr);
}

// Sends a request to the scheduler and keeps its status; the answer, or null.
ipp_t* Pede(ipp_t* req, const char* rec = "/") {
  Prepara();
  ipp_t* r = cupsDoRequest(CUPS_HTTP_DEFAULT, req, rec);
  gErr = long(cupsLastError());
  if (r && ippGetStatusCode(r) > IPP_STATUS_OK_CONFLICTING) {
    ippDelete(r);
    return nullptr;
  }
  return r;
}

// Walks the groups of an answer: for each object group, the attributes it holds.
template <class F>
void Grupos(ipp_t* r, ipp_tag_t tag, F f) {
  ipp_attribute_t* a = ippFirstAttribute(r);
  while (a) {
    while (a && ippGetGroupTag(a) != tag) a = ippNextAttribute(r);
    if (!a) break;
    std::vector<ipp_attribute_t*> g;
    for (; a && ippGetGroupTag(a) == tag; a = ippNextAttribute(r))
      if (ippGetName(a)) g.push_back(a);
    f(g);
  }
}

Tx Val(const std::vector<ipp_attribute_t*>& g, const char* nome) {
  for (auto* a : g)
    if (std::string(ippGetName(a)) == nome) {
      const char* s = ippGetString(a, 0, nullptr);
      return s ? TxDeUtf8(s) : Tx();
    }
  return {};
}

// The port of a device: the path text of a file device's file, other devices as
// their URI.
Tx PorDeUri(const Tx& uri) {
  char esq[32], usr[256], host[256], rec[4096];
  int porta = 0;
  std::string u = TxUtf8(uri);
  if (httpSeparateURI(HTTP_URI_CODING_ALL, u.c_str(), esq, sizeof esq, usr, sizeof usr, host, sizeof host, &porta,
                      rec, sizeof rec) >= HTTP_URI_STATUS_OK &&
      std::string(esq) == "file")
    return FicDeNat(rec);
  return uri;
}

// A port name in the table's form: a path becomes its path text, so that "/tmp/a.pdf"
// and "C:\tmp\a.pdf" name one port; anything else is only trimmed.
Tx PorFrm(const Tx& nome) {
  Tx n = TxTrim(nome);
  if (n.find(u"://") == Tx::npos && n.find_first_of(u"/\\") != Tx::npos) {
    int e = 0;
    std::string nat = FicNat(n, &e);
    std::error_code ec;
    fs::path abs = fs::absolute(nat, ec);
    if (!e && !ec) return FicDeNat(abs.lexically_normal().string());
  }
  return n;
}

// The model of a driver name: an installed model's name, or the name of the model
// whose description it is; "" when the scheduler has none of either.
std::string Modelo(const Tx& drv) {
  Tx d = TxMai(TxTrim(drv));
  if (d.empty()) return {};
  ipp_t* req = ippNewRequest(IPP_OP_CUPS_GET_PPDS);
  static const char* const at[] = {"ppd-name", "ppd-make-and-model"};
  ippAddStrings(req, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", 2, nullptr, at);
  ipp_t* r = Pede(req);
  if (!r) return {};
  std::string achou;
  Grupos(r, IPP_TAG_PRINTER, [&](auto& g) {
    Tx nome = Val(g, "ppd-name");
    if (achou.empty() && (TxMai(nome) == d || TxMai(Val(g, "ppd-make-and-model")) == d)) achou = TxUtf8(nome);
  });
  ippDelete(r);
  if (achou.empty()) gErr = long(IPP_STATUS_ERROR_NOT_FOUND);
  return achou;
}

// 1 when column 1 of a row holds the name, compared case-blind after trimming; the
// search stops at the first match.
template <class Tab>
int Tem(const Tab& tab, const Tx& nome) {
  Tx k = TxMai(TxTrim(nome));
  for (size_t i = 1; i < tab.size(); ++i)
    if (TxMai(TxTrim(tab[i][1])) == k) return 1;
  return 0;
}

// 1 when a folder on a port's way may stand there: it belongs to root or to the
// running user, and only they may change it; a sticky folder counts on the way
// (others cannot move what it holds), not as the port's own folder.
bool PorDirCnf(const struct stat& d, bool ultimo) {
  if (!S_ISDIR(d.st_mode) || (d.st_uid != 0 && d.st_uid != geteuid())) return false;
  if (!(d.st_mode & (S_IWGRP | S_IWOTH))) return true;
  return !ultimo && (d.st_mode & S_ISVTX);
}

// Makes a port's file safe to hand to the scheduler, which writes into it with
// its own rights. The path is walked from "/" through folders held open
// (DirPaiAbr), so that none can be swapped while it is checked: every folder must
// pass PorDirCnf, a link on the way is followed only under FicLnkCnf's rule, and a
// missing folder is made (0755 less the umask) when criaDir is set. The file
// itself is no link: a missing one is made new (O_EXCL|O_NOFOLLOW, 0644 less the
// umask), an existing one must be a regular file of the running user's (root's,
// for root). 0, or 70 refused, 75 not a file, 76 a folder missing.
int PorPrp(const Tx& nome, bool criaDir) {
  int e = 0;
  std::string nat = FicNat(TxTrim(nome), &e);
  if (e) return e;
  if (nat.empty()) return kErrAces;
  std::error_code ec;
  fs::path abs = fs::absolute(nat, ec).lexically_normal();
  if (ec || !abs.has_filename()) return kErrAces;
  DirPaiOpc o;
  o.ver = PorDirCnf;
  o.criar = criaDir ? 0755 : 0;
  std::string c;
  int dir = DirPaiAbr(abs.string(), c, o);
  if (dir < 0) {
    if (errno == ENOENT || errno == ENOTDIR) return kErrDirNao;
    return errno == ELOOP || errno == EACCES ? kErrPerm : FicErrNat(errno, nat);
  }
  struct stat st;
  if (fstatat(dir, c.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) {
    if (errno != ENOENT) e = kErrAces;
    int fd = e ? -1 : openat(dir, c.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY, 0644);
    if (!e && fd < 0) e = errno == EEXIST ? kErrPerm : FicErrNat(errno, nat);
    if (fd >= 0) {
      AtaEscrito(AtaAnt(), abs.string(), fd);
      close(fd);
    }
  } else if (S_ISLNK(st.st_mode)) {
    e = kErrPerm;  // the port itself is never a link
  } else if (!S_ISREG(st.st_mode)) {
    e = kErrAces;
  } else if (st.st_uid != geteuid()) {
    e = kErrPerm;
  }
  close(dir);
  return e;
}

}  // namespace

void PrtSrvDef(const Tx& srv) { cupsSetServer(srv.empty() ? nullptr : TxUtf8(srv).c_str()); }

long PrtErrUlt() { return gErr; }

Tx PrtNomFila(const Tx& nome) {
  Tx n = TxTrim(nome);
  for (char16_t& c : n)
    if (c <= u' ' || c == 0x7F || c == u'/' || c == u'\\' || c == u'#' || c == u'\'' || c == u'"' || c == u',')
      c = u'_';
  return n;
}

void PrtLis(PrtTab& tab, int& n) {
  tab.assign(1, {});
  ipp_t* req = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
  static const char* const at[] = {"printer-name", "device-uri", "printer-make-and-model"};
  ippAddStrings(req, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", 3, nullptr, at);
  if (ipp_t* r = Pede(req)) {
    Grupos(r, IPP_TAG_PRINTER, [&](auto& g) {
      tab.push_back({Tx(), Val(g, "printer-name"), Val(g, "printer-make-and-model"), PorDeUri(Val(g, "device-uri"))});
    });
    ippDelete(r);
  }
  n = int(tab.size()) - 1;
}

void PrtPorLis(PrtPorTab& tab, int& n) {
  PrtTab prt;
  int np = 0;
  PrtLis(prt, np);
  tab.assign(1, {});
  for (int i = 1; i <= np; ++i) {
    const Tx& p = prt[size_t(i)][3];
    bool tem = p.empty();
    for (size_t j = 1; j < tab.size() && !tem; ++j) tem = tab[j][1] == p;
    if (!tem) tab.push_back({Tx(), p, u"Local Port", u"1", u"file"});
  }
  n = int(tab.size()) - 1;
}

void PrtPorExi(const Tx& nome, int& flag) {
  PrtPorTab tab;
  int n = 0;
  PrtPorLis(tab, n);
  flag = Tem(tab, PorFrm(nome));
}

void PrtPorAdi(const Tx& nome, int& ok) { ok = PorPrp(nome, false) == 0 ? 1 : 0; }

void PrtExi(const Tx& nome, int& flag) {
  PrtTab tab;
  int n = 0;
  PrtLis(tab, n);
  flag = Tem(tab, PrtNomFila(nome));
}

// With a record, a queue that was not there before is noted as added.
void PrtAdi(const Tx& nome, const Tx& drv, const Tx& por, long atr, int& ok) {
  (void)atr;  // a queue on a file is local and direct whatever the flags say
  ok = 0;
  int havia = 0;
  if (AtaLig()) PrtExi(nome, havia);
  std::string fila = TxUtf8(PrtNomFila(nome));
  int e = 0;
  std::string nat = FicNat(TxTrim(por), &e);
  if (fila.empty() || e || nat.empty()) return;
  std::string mod = Modelo(drv);
  if (mod.empty()) return;
  char uri[HTTP_MAX_URI], dev[HTTP_MAX_URI];
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0, "/printers/%s", fila.c_str());
  std::error_code ec;
  fs::path abs = fs::absolute(nat, ec);
  if (ec) return;
  httpAssembleURI(HTTP_URI_CODING_ALL, dev, sizeof dev, "file", nullptr, "", 0, abs.lexically_normal().c_str());
  ipp_t* req = ippNewRequest(IPP_OP_CUPS_ADD_MODIFY_PRINTER);
  ippAddString(req, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
  ippAddString(req, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
  ippAddString(req, IPP_TAG_OPERATION, IPP_TAG_NAME, "ppd-name", nullptr, mod.c_str());
  ippAddString(req, IPP_TAG_PRINTER, IPP_TAG_URI, "device-uri", nullptr, dev);
  ippAddString(req, IPP_TAG_PRINTER, IPP_TAG_TEXT, "printer-info", nullptr, TxUtf8(TxTrim(nome)).c_str());
  ippAddString(req, IPP_TAG_PRINTER, IPP_TAG_TEXT, "printer-location", nullptr, "");
  ippAddBoolean(req, IPP_TAG_PRINTER, "printer-is-accepting-jobs", 1);
  ippAddInteger(req, IPP_TAG_PRINTER, IPP_TAG_ENUM, "printer-state", IPP_PSTATE_IDLE);
  if (ipp_t* r = Pede(req, "/admin/")) {
    ok = 1;
    ippDelete(r);
    if (!havia) AtaPrt(TxDeUtf8(fila));
  }
}

void PrtEli(const Tx& nome, int& ok) {
  ok = 0;
  std::string fila = TxUtf8(PrtNomFila(nome));
  if (fila.empty()) return;
  char uri[HTTP_MAX_URI];
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0, "/printers/%s", fila.c_str());
  ipp_t* req = ippNewRequest(IPP_OP_CUPS_DELETE_PRINTER);
  ippAddString(req, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
  ippAddString(req, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
  if (ipp_t* r = Pede(req, "/admin/")) {
    ok = 1;
    ippDelete(r);
  }
}

Tx PrtErrTx(long num) {
  std::string s = ippErrorString(ipp_status_t(num));
  if (s.rfind("0x", 0) == 0) return u"Error (" + NuCStr(double(num)) + u") not defined.";
  return TxDeUtf8(s);
}

// Adds a printer that prints to a file. The port comes first: its folders are made
// when missing, and a port that may not be used (PorPrp) stops everything, with
// "PR_VT_KO" and the scheduler's status "forbidden", before anything is added. A
// port that is there is kept as it is.
Tx FxPrtPdfIns(const Tx& prt, const Tx& por, const Tx& drv) {
  if (PorPrp(por, true) != 0) {
    gErr = long(IPP_STATUS_ERROR_FORBIDDEN);
    return u"PR_VT_KO";
  }
  int r = 0, f = 0;
  PrtExi(prt, f);
  if (f) return u"PR_VT_EXI";
  PrtAdi(prt, drv, por, 66, r);
  return r == 1 ? u"OK" : u"PR_VT_KO";
}

}  // namespace zw
