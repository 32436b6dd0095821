// zunwiz-run's trace lines and its end at once.
#include "RunTrc.h"
#include <cerrno>
#include <cstring>
#include "ZunWizMain.h"
#include "ZunWizRes.h"

namespace zw {

Tx RunAsp(TxV t) {
  Tx r = u"\"";
  for (size_t i = 0; i < t.size(); i++) {
    char16_t c = t[i];
    if (c == u'"') r += u"\"\"";
    else if (c == u'\r' && i + 1 < t.size() && t[i + 1] == u'\n') { r += u'|'; i++; }
    else if (c == u'\r' || c == u'\n') r += u'|';
    else if (c == u'\t') r += u'\u00BB';
    else r += c;
  }
  return r + u"\"";
}

void RunSai(int st, const std::string& porque) {
  std::fprintf(stderr, "zunwiz-run: %s\n", porque.c_str());
  ResFim();
  ZunWizFim(st);
}

void RunTrc::Lin(const Tx& lin) {
  if (!mFic) return;
  std::string s = TxUtf8(lin);
  s += '\n';
  if (std::fwrite(s.data(), 1, s.size(), mFic) != s.size() || std::fflush(mFic) != 0)
    RunSai(kSaiTrc, "cannot write the trace: " + std::string(std::strerror(errno)));
}

}  // namespace zw
