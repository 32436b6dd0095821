// Network names over Linux: the shares the automounter shows under /net and the
// CIFS and NFS shares of the mount table stand for the platform's share mapping.
#include <dirent.h>
#include <sys/stat.h>
#include <algorithm>
#include <fstream>
#include <sstream>
#include "FicGlb.h"
#include "SupFsys.h"
#include "TxtGlb.h"

namespace zw {

namespace {
struct Partilha {
  std::string srv, nome, ponto;  // server, share, where it is mounted
};

// "\040" and the like of the mount table back to bytes.
std::string Desesc(const std::string& s) {
  std::string r;
  for (size_t i = 0; i < s.size(); i++) {
    if (s[i] == '\\' && i + 3 < s.size() && std::isdigit((unsigned char)s[i + 1])) {
      r += char((s[i + 1] - '0') * 64 + (s[i + 2] - '0') * 8 + (s[i + 3] - '0'));
      i += 3;
    } else {
      r += s[i];
    }
  }
  return r;
}

// The network shares of the mount table: "//srv/share" (CIFS) and "srv:/path" (NFS).
std::vector<Partilha> Montadas() {
  std::vector<Partilha> r;
  std::ifstream f("/proc/self/mounts");
  std::string lin;
  while (std::getline(f, lin)) {
    std::istringstream is(lin);
    std::string org, ponto, tipo;
    is >> org >> ponto >> tipo;
    org = Desesc(org), ponto = Desesc(ponto);
    Partilha p;
    p.ponto = ponto;
    if ((tipo == "cifs" || tipo == "smb3" || tipo == "smbfs") && org.rfind("//", 0) == 0) {
      size_t b = org.find('/', 2);
      if (b == std::string::npos) continue;
      p.srv = org.substr(2, b - 2);
      p.nome = org.substr(b + 1);
    } else if (tipo.rfind("nfs", 0) == 0 && org.find(":/") != std::string::npos) {
      size_t c = org.find(":/");
      p.srv = org.substr(0, c);
      p.nome = org.substr(c + 2);
    } else {
      continue;
    }
    std::replace(p.nome.begin(), p.nome.end(), '/', '\\');
    r.push_back(p);
  }
  return r;
}

bool Barras(const Tx& p) {
  return p.size() >= 2 && (p[0] == u'\\' || p[0] == u'/') && (p[1] == u'\\' || p[1] == u'/');
}
}  // namespace

void SupFsys::UncOk(const Tx& path, int& flag) { flag = Barras(path) ? 1 : 0; }

void SupFsys::UncCnv(const Tx& path, Tx& cnv, int& flag) {
  cnv = path;
  flag = 0;
  if (!Barras(path)) {
    char16_t l = path.empty() ? 0 : ChrMai(path[0]);
    if (l < u'A' || l > u'Z' || path.size() < 2 || path[1] != u':') return;
    int e = 0;
    std::string n = FicNat(path, &e);
    if (e) return;
    Tx r = FicDeNat(n);  // a folder under /net comes back as "\\server\share\..."
    if (!Barras(r)) {
      for (auto& p : Montadas()) {
        const std::string& m = p.ponto;
        if (n == m || (n.rfind(m + "/", 0) == 0)) {
          std::string resto = n.substr(m.size());
          std::replace(resto.begin(), resto.end(), '/', '\\');
          r = TxDeUtf8("\\\\" + p.srv + "\\" + p.nome + resto);
          break;
        }
      }
    }
    if (!Barras(r)) return;
    cnv = r;
  }
  flag = 1;
  cnv = FicJun(cnv, u"");
}

void SupFsys::UncExi(const Tx& path, int& existe, int& flag) {
  Tx c;
  UncCnv(path, c, flag);
  existe = 0;
  if (!flag) {
    existe = DirExi(path) || FicExi(path) == 1 ? 1 : 0;
    return;
  }
  // "\\server\share": the first two pieces after the slashes.
  size_t a = c.find_first_of(u"\\/", 2);
  size_t b = a == Tx::npos ? Tx::npos : c.find_first_of(u"\\/", a + 1);
  existe = DirExi(b == Tx::npos ? c : c.substr(0, b));
}

void SupFsys::UncShares(const Tx& srv, std::vector<std::array<Tx, 3>>& tab, int32_t& n) {
  tab.assign(1, {});
  Tx s = srv;
  while (!s.empty() && (s[0] == u'\\' || s[0] == u'/')) s.erase(0, 1);
  std::string ns = TxUtf8(s);
  std::vector<std::string> noms;
  if (DIR* h = opendir(("/net/" + ns).c_str())) {
    while (dirent* de = readdir(h)) {
      std::string x = de->d_name;
      if (x != "." && x != "..") noms.push_back(x);
    }
    closedir(h);
  }
  for (auto& p : Montadas())
    if (TxMai(TxDeUtf8(p.srv)) == TxMai(s)) noms.push_back(p.nome);
  std::sort(noms.begin(), noms.end());
  noms.erase(std::unique(noms.begin(), noms.end()), noms.end());
  for (auto& x : noms) tab.push_back({u"HD", TxDeUtf8(x), Tx()});
  n = int32_t(tab.size()) - 1;
}

void SupFsys::pSepNull(const Tx& tx, Tx& res) {
  size_t z = tx.find(u'\0');
  res = z == Tx::npos ? tx : tx.substr(0, z);
}

}  // namespace zw
