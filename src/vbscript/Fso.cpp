// Fso: the FileSystemObject itself: path functions, existence tests, copying,
// moving and deleting with wildcards, and the doors to files, folders and drives.
#include "Fso.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <random>

#include "Ata.h"
#include "FicGlb.h"
#include "FicInf.h"
#include "GlbReg.h"
#include "SupShf.h"

namespace vbs {

namespace fs = std::filesystem;

std::string FsoNat(TxV p) {
  int e = 0;
  std::string n = zw::FicNat(Tx(p), &e);
  if (e) Raise(68);
  return n;
}

Tx FsoTx(const std::string& p) { return zw::TxDeUtf8(p); }

void FsoErr(int e, bool pasta) {
  switch (e) {
    case ENOENT: Raise(pasta ? 76 : 53);
    case ENOTDIR: Raise(76);
    case EACCES: case EPERM: case EROFS: case EISDIR: case ENOTEMPTY: case EBUSY: Raise(70);
    case EEXIST: Raise(58);
    case ENOSPC: Raise(61);
    case EXDEV: Raise(74);
    case ENAMETOOLONG: Raise(52);
    default: Raise(75);
  }
}

bool FsoSoLeitura(const std::string& p) {
  zw::FicInf f;
  return zw::FicInfLer(p, f) && !(f.modo & 0200);
}

double FsoData(long seg) {
  time_t t = seg;
  struct tm tm;
  localtime_r(&t, &tm);
  double d;
  DtSerialAbs(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, d);
  return d + (tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec) / 86400.0;
}

std::string FsoAbs(const std::string& p) {
  fs::path a = p.empty() ? fs::current_path() : fs::path(p);
  if (a.is_relative()) {
    std::error_code ec;
    a = fs::current_path(ec) / a;
  }
  std::string s = a.lexically_normal().string();
  while (s.size() > 1 && s.back() == '/') s.pop_back();
  return s;
}

namespace {

bool EhSep(char16_t c) { return c == u'/' || c == u'\\'; }

// The drive part of a path: "C:" or "\\server\share", else empty.
size_t TamDrive(TxV p) {
  if (p.size() >= 2 && p[1] == u':' && ((p[0] | 32) >= u'a' && (p[0] | 32) <= u'z')) return 2;
  if (p.size() > 2 && EhSep(p[0]) && EhSep(p[1]) && !EhSep(p[2])) {
    size_t i = 2, partes = 0;
    while (i < p.size()) {
      if (EhSep(p[i]) && ++partes == 2) break;
      i++;
    }
    return i;
  }
  return 0;
}

// The last name of a path, trailing separators ignored, and where it starts.
TxV UltNome(TxV p, size_t& ini) {
  size_t d = TamDrive(p);
  size_t fim = p.size();
  while (fim > d && EhSep(p[fim - 1])) fim--;
  size_t i = fim;
  while (i > d && !EhSep(p[i - 1])) i--;
  ini = i;
  return p.substr(i, fim - i);
}

Tx Pai(TxV p) {
  size_t ini;
  UltNome(p, ini);
  size_t d = TamDrive(p);
  // Separators before the name go, except the one that stands for the root.
  size_t fim = ini;
  while (fim > d + 1 && EhSep(p[fim - 1])) fim--;
  return Tx(p.substr(0, fim));
}

bool TemCuringa(TxV n) { return n.find_first_of(u"*?") != TxV::npos; }

// Windows-style wildcard match of one name, case-blind: * any run, ? one character.
bool Casa(TxV pad, TxV nome) {
  size_t p = 0, n = 0, estrela = TxV::npos, volta = 0;
  while (n < nome.size()) {
    if (p < pad.size() && (pad[p] == u'?' || ChMai(pad[p]) == ChMai(nome[n]))) {
      p++;
      n++;
    } else if (p < pad.size() && pad[p] == u'*') {
      estrela = p++;
      volta = n;
    } else if (estrela != TxV::npos) {
      p = estrela + 1;
      n = ++volta;
    } else {
      return false;
    }
  }
  while (p < pad.size() && pad[p] == u'*') p++;
  return p == pad.size();
}

// The entries of a folder that match a wildcard name, files or folders.
std::vector<std::string> Expande(const std::string& dir, TxV pad, bool pastas) {
  std::vector<std::string> r;
  std::error_code ec;
  for (auto& e : fs::directory_iterator(dir.empty() ? "." : dir, ec)) {
    bool d = zw::FicInfTip(e.path().string()) == zw::kFicDir;
    if (d != pastas) continue;
    std::string nome = e.path().filename().string();
    if (Casa(pad, zw::TxDeUtf8(nome))) r.push_back(e.path().string());
  }
  return r;
}

bool EhDir(const std::string& p) {
  return zw::FicInfTip(p) == zw::kFicDir;
}

bool EhFic(const std::string& p) {
  int t = zw::FicInfTip(p);
  return t != zw::kFicNada && t != zw::kFicDir;
}

std::string Junta(const std::string& d, const std::string& n) {
  if (d.empty()) return n;
  return d.back() == '/' ? d + n : d + "/" + n;
}

std::string NomeNat(const std::string& p) {
  size_t k = p.find_last_of('/');
  return k == std::string::npos ? p : p.substr(k + 1);
}

std::string PaiNat(const std::string& p) {
  size_t k = p.find_last_of('/');
  if (k == std::string::npos) return "";
  return k == 0 ? "/" : p.substr(0, k);
}

}  // namespace

// The copy itself is the platform's data-safe one (FicCopNat): a new file under a
// hidden name beside the destination, renamed into place, so a failure leaves the
// old destination whole and a link at its name is replaced, never written
// through. The looks before it keep the order in which the errors come: the
// destination's own, then the source's, then a clash of the two.
void FsoCopiaFic(const std::string& de, const std::string& para, bool sobre) {
  zw::FicInf d, o;
  if (zw::FicInfLer(para, d)) {
    if (d.tipo == zw::kFicDir) Raise(70);
    if (!sobre) Raise(58);
    if (FsoSoLeitura(para)) Raise(70);
  }
  if (!EhDir(PaiNat(para).empty() ? "." : PaiNat(para))) Raise(76);
  if (d.tipo == zw::kFicNada && d.err != ENOENT && d.err != ENOTDIR) FsoErr(d.err, false);
  if (!zw::FicInfLer(de, o)) FsoErr(o.err, false);
  if (o.tipo != zw::kFicReg || d.tipo == zw::kFicOut) Raise(75);
  if (d.tipo == zw::kFicReg && d.dev == o.dev && d.ino == o.ino) Raise(58);
  if (zw::FicCopNat(de, para) != 0) FsoErr(errno, false);
}

void FsoCopiaDir(const std::string& de, const std::string& para, bool sobre) {
  if (!EhDir(de)) Raise(76);
  if (EhFic(para)) Raise(58);
  std::error_code ec;
  // A folder copied into itself would never end.
  std::string a = FsoAbs(de), b = FsoAbs(para);
  if (b == a || (b.size() > a.size() && b.compare(0, a.size(), a) == 0 && b[a.size()] == '/')) Raise(70);
  if (!EhDir(para) && zw::AtaDirCri(para, 0777) != 0) FsoErr(errno, true);
  for (auto& e : fs::directory_iterator(de, ec)) {
    std::string n = e.path().filename().string();
    if (zw::FicInfTip(e.path().string()) == zw::kFicDir) FsoCopiaDir(e.path().string(), Junta(para, n), sobre);
    else FsoCopiaFic(e.path().string(), Junta(para, n), sobre);
  }
  if (ec) FsoErr(ec.value(), true);
}

void FsoApaga(const std::string& p, bool forca, bool pasta) {
  if (!forca) {
    // Read-only entries stop a delete that is not forced.
    if (FsoSoLeitura(p)) Raise(70);
  }
  // The platform's delete: through folders held open, never through a link, a
  // folder of the system refused (70), each entry noted in the install record.
  if (zw::ArvEliNat(p, pasta) != 0 && errno != ENOENT) FsoErr(errno, pasta);
}

void FsoMove(const std::string& de, const std::string& para) {
  if (zw::FicInfHa(para)) Raise(58);
  if (zw::FicDirNeg(de, false)) Raise(70);  // a folder of the system stays where it is
  if (zw::AtaRen(de, para) == 0) return;
  int e = errno;
  if (e != EXDEV) FsoErr(e, EhDir(de));
  // Another file system: copy, then remove the source.
  if (EhDir(de)) FsoCopiaDir(de, para, false);
  else FsoCopiaFic(de, para, false);
  FsoApaga(de, true, EhDir(de));
}

namespace {

enum Op { kCopia, kMove, kApaga };

// CopyFile/CopyFolder/MoveFile/MoveFolder/DeleteFile/DeleteFolder: the last name of
// the source may hold wildcards; a destination ending in a separator, or any
// destination of a wildcard source, is an existing folder to put the entries in.
void Opera(Op op, bool pastas, TxV origem, TxV destino, bool sobre) {
  size_t ini;
  TxV nome = UltNome(origem, ini);
  std::vector<std::string> srcs;
  bool curinga = TemCuringa(nome);
  // Wildcards stand only in the last name; in a folder they name no folder.
  if (TemCuringa(origem.substr(0, ini))) Raise(76);
  if (curinga) {
    std::string dir = FsoNat(Pai(origem));
    if (!dir.empty() && !EhDir(dir)) Raise(76);
    // A wildcard delete acts on every entry at once: never in the root, a folder of
    // the system or a home folder, as the platform's wildcard deletes.
    if (op == kApaga && zw::FicDirNeg(dir.empty() ? "." : dir, true, Tx(nome))) Raise(70);
    srcs = Expande(dir, nome, pastas);
  } else {
    std::string n = FsoNat(origem);
    while (n.size() > 1 && n.back() == '/') n.pop_back();
    if (pastas ? EhDir(n) : EhFic(n)) srcs.push_back(n);
  }
  if (srcs.empty()) Raise(pastas ? 76 : 53);
  if (op == kApaga) {
    for (auto& s : srcs) FsoApaga(s, sobre, pastas);
    return;
  }
  bool emPasta = curinga || (!destino.empty() && EhSep(destino.back()));
  std::string dst = FsoNat(destino);
  if (emPasta) {
    if (!EhDir(dst.empty() ? "." : dst)) Raise(76);
  } else if (srcs.size() > 1) {
    Raise(76);
  }
  for (auto& s : srcs) {
    std::string alvo = emPasta ? Junta(dst, NomeNat(s)) : dst;
    if (op == kCopia) {
      if (pastas) FsoCopiaDir(s, alvo, sobre);
      else FsoCopiaFic(s, alvo, sobre);
    } else {
      FsoMove(s, alvo);
    }
  }
}

class FsoObj : public Obj {
 public:
  Tx TypeName() override { return u"FileSystemObject"; }
  int Id(TxV n) override {
    return NameIx(n, {"BuildPath", "GetAbsolutePathName", "GetBaseName", "GetExtensionName",
                      "GetFileName", "GetParentFolderName", "GetDriveName", "GetTempName",
                      "FileExists", "FolderExists", "DriveExists", "CreateFolder", "CopyFile",
                      "CopyFolder", "MoveFile", "MoveFolder", "DeleteFile", "DeleteFolder",
                      "GetFile", "GetFolder", "GetDrive", "Drives", "OpenTextFile",
                      "CreateTextFile", "GetSpecialFolder", "GetFileVersion", "GetStandardStream"});
  }

  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    static const int8_t minArgs[] = {0, 2, 1, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 2, 2, 2, 2, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 1};
    static const int8_t maxArgs[] = {0, 2, 1, 1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 3, 3, 2, 2, 2, 2, 1, 1, 1, 0, 4, 3, 1, 1, 2};
    if (id < 1 || id > 27) Raise(438);
    if (id == 22 && a.size()) {
      r = FsoDrives();
      ArgsAoValor(r, a);
      return;
    }
    if (a.size() < minArgs[id] || a.size() > maxArgs[id]) Raise(450);
    Tx t0, t1;
    TxV p = a.size() > 0 && id != 25 && id != 27 ? ArgTx(a, 0, t0) : TxV();
    switch (id) {
      case 1: {  // BuildPath
        TxV n = ArgTx(a, 1, t1);
        Tx o(p);
        if (!o.empty() && !EhSep(o.back()) && !(o.size() == 2 && o[1] == u':') && !n.empty() &&
            !EhSep(n[0]))
          o += (p.find(u'\\') != TxV::npos && p.find(u'/') == TxV::npos) ? u'\\' : u'/';
        else if (!o.empty() && EhSep(o.back()) && !n.empty() && EhSep(n[0]))
          n = n.substr(1);
        o += n;
        r = Value(TxV(o));
        break;
      }
      case 2: r = Value(FsoTx(FsoAbs(FsoNat(p)))); break;
      case 3: case 4: case 5: {
        size_t ini;
        TxV n = UltNome(p, ini);
        size_t ponto = n.rfind(u'.');
        if (id == 5) r = Value(n);
        else if (id == 3) r = Value(ponto == TxV::npos ? n : n.substr(0, ponto));
        else r = Value(ponto == TxV::npos ? TxV() : n.substr(ponto + 1));
        break;
      }
      case 6: {
        size_t ini;
        TxV n = UltNome(p, ini);
        r = Value(n.empty() ? Tx() : Pai(p));
        break;
      }
      case 7: r = Value(p.substr(0, TamDrive(p))); break;
      case 8: {
        static std::mt19937 g(std::random_device{}());
        char b[16];
        std::snprintf(b, sizeof b, "rad%05X.tmp", unsigned(g() & 0xFFFFF));
        r = Value(zw::TxAsc(b));
        break;
      }
      case 9: r = Value(EhFic(Nat0(p))); break;
      case 10: r = Value(EhDir(Nat0(p))); break;
      case 11: {
        Tx l(p);
        bool ok = !l.empty() && (l.size() == 1 || (l[1] == u':' && (l.size() == 2 || EhSep(l[2]))))
                      ? zw::DrvTipCod(l[0]) != 0
                      : false;
        r = Value(ok);
        break;
      }
      case 12: {
        std::string n = FsoNat(p);
        if (zw::FicInfTip(n) != zw::kFicNada) Raise(58);
        if (zw::AtaDirCri(n, 0777) != 0) FsoErr(errno, true);
        r = Value(FsoPasta(n));
        break;
      }
      case 13: case 14: Opera(kCopia, id == 14, p, ArgTx(a, 1, t1), a.Has(2) ? ToBool(a[2]) : true); break;
      case 15: case 16: Opera(kMove, id == 16, p, ArgTx(a, 1, t1), false); break;
      case 17: case 18: Opera(kApaga, id == 18, p, TxV(), a.Has(1) && ToBool(a[1])); break;
      case 19: r = Value(FsoFicheiro(FsoNat(p))); break;
      case 20: r = Value(FsoPasta(FsoNat(p))); break;
      case 21: {
        if (p.empty()) Raise(5);
        if (p.size() > 2 && !(p.size() == 3 && EhSep(p[2]))) Raise(5);
        r = Value(FsoDrive(p[0]));
        break;
      }
      case 22: r = FsoDrives(); break;
      case 23: {  // OpenTextFile(name[, mode[, create[, format]]])
        int32_t modo = ArgLng(a, 1, 1);
        if (modo != 1 && modo != 2 && modo != 8) Raise(5);
        bool criar = a.Has(2) && ToBool(a[2]);
        int32_t fmt = ArgLng(a, 3, 0);
        r = Value(FsoTexto(FsoNat(p), modo, fmt == -1, criar));
        break;
      }
      case 24: {  // CreateTextFile(name[, overwrite[, unicode]])
        bool sobre = a.Has(1) ? ToBool(a[1]) : true;
        bool uni = a.Has(2) && ToBool(a[2]);
        std::string n = FsoNat(p);
        if (int t = zw::FicInfTip(n); t != zw::kFicNada) {
          if (t == zw::kFicDir) Raise(70);
          if (!sobre) Raise(58);
        }
        r = Value(FsoTexto(n, 2, uni, true));
        break;
      }
      case 25: {  // GetSpecialFolder(0 Windows, 1 System, 2 Temporary)
        int32_t q = ToLng(a[0]);
        Tx d = q == 0 ? zw::WinDirCon() : q == 1 ? zw::SysDirCon() : q == 2 ? zw::TmpDirCon() : Tx();
        if (q < 0 || q > 2) Raise(5);
        std::string n = FsoNat(d);
        while (n.size() > 1 && n.back() == '/') n.pop_back();
        r = Value(FsoPasta(n));
        break;
      }
      case 26: {
        // Version resources belong to Windows programs; none here.
        std::string n = FsoNat(ArgTx(a, 0, t0));
        if (!EhFic(n)) Raise(53);
        r = Value(TxV());
        break;
      }
      case 27: {
        int32_t q = ToLng(a[0]);
        if (q < 0 || q > 2) Raise(5);
        r = Value(FsoTextoStd(q));
        break;
      }
    }
  }

 private:
  // A path for an existence test: a bad drive is simply not there.
  static std::string Nat0(TxV p) {
    int e = 0;
    std::string n = zw::FicNat(Tx(p), &e);
    return e ? std::string("\x01") : n;
  }
};

Ref<Obj> NovoFso() { return Ref<Obj>(new FsoObj); }

}  // namespace

void FsoReg() { DefProgId("Scripting.FileSystemObject", NovoFso); }

}  // namespace vbs
