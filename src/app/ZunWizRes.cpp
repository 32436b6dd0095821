// The script's verdict: the file named in ZUNWIZ_RESULTADO.
#include "ZunWizRes.h"
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <unistd.h>
#include "TxtGlb.h"
#include "ZunWizMain.h"

namespace zw {

namespace {
std::string gFic;  // the verdict file, "" when there is none
}

bool ResIni() {
  ResFim();
  const char* tmp = std::getenv("TMPDIR");
  std::string f = std::string(tmp && *tmp ? tmp : "/tmp") + "/zunwiz-resultado-XXXXXX";
  int fd = mkstemp(f.data());
  if (fd < 0) return false;
  close(fd);
  gFic = f;
  setenv(kResVar, f.c_str(), 1);
  return true;
}

bool ResTxLer(const std::string& b, ResVer& r) {
  Tx t;
  if (b.size() >= 2 && (unsigned char)b[0] == 0xFF && (unsigned char)b[1] == 0xFE) {
    for (size_t i = 2; i + 1 < b.size(); i += 2)
      t += char16_t((unsigned char)b[i] | ((unsigned char)b[i + 1] << 8));
  } else {
    t = TxDeBytes(b);
  }
  for (char16_t& c : t)
    if (c == u'\t' || c == u'\r' || c == u'\n') c = c == u'\t' ? u' ' : u'\n';
  size_t i = t.find_first_not_of(u" \n");
  if (i == Tx::npos) return false;
  size_t j = t.find_first_of(u" \n", i);
  r.pal = TxMai(t.substr(i, j == Tx::npos ? Tx::npos : j - i));
  Tx msg = j == Tx::npos ? Tx() : t.substr(j);
  // The message's lines joined by blanks: it is one line of the trace and of stderr.
  for (char16_t& c : msg)
    if (c == u'\n') c = u' ';
  Tx m;
  for (char16_t c : TxTrim(msg))
    if (!(c == u' ' && !m.empty() && m.back() == u' ')) m += c;
  r.msg = m;
  r.st = ResSt(r.pal);
  return true;
}

bool ResLer(ResVer& r) {
  if (gFic.empty()) return false;
  std::ifstream in(gFic, std::ios::binary);
  std::string b((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  in.close();
  std::remove(gFic.c_str());
  gFic.clear();
  return ResTxLer(b, r);
}

void ResFim() {
  if (gFic.empty()) return;
  std::remove(gFic.c_str());
  gFic.clear();
}

int ResSt(const Tx& pal) {
  if (pal == u"CONCLUIDO" || pal == u"CONCLUÍDO") return 0;
  if (pal == u"CANCELADO") return kSaiCan;
  if (pal == u"RECUSADO") return kSaiRec;
  return kSaiFal;
}

}  // namespace zw
