// FsoObj: the File, Folder and Drive objects and the Files, Folders and Drives
// collections of the FileSystemObject.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "Ata.h"
#include "FicGlb.h"
#include "FicInf.h"
#include "Fso.h"
#include "GlbReg.h"
#include "SupFsys.h"

namespace vbs {

namespace fs = std::filesystem;

namespace {

std::string Nome(const std::string& p) {
  if (p == "/") return "";
  size_t k = p.find_last_of('/');
  return k == std::string::npos ? p : p.substr(k + 1);
}

std::string Pai(const std::string& p) {
  size_t k = p.find_last_of('/');
  if (k == std::string::npos || p == "/") return "";
  return k == 0 ? "/" : p.substr(0, k);
}

// Attributes as the FileSystemObject numbers them: 1 read-only, 2 hidden (a name
// starting with "."), 16 folder, 32 archive (every file), 1024 link.
int32_t Atributos(const std::string& p) {
  zw::FicInf f;
  if (!zw::FicInfLer(p, f)) return 0;
  int32_t a = f.tipo == zw::kFicDir ? 16 : 32;
  if (!(f.modo & 0200)) a |= 1;
  std::string n = Nome(p);
  if (!n.empty() && n[0] == '.') a |= 2;
  if (f.lig) a |= 1024;
  return a;
}

// Setting the attributes changes what Linux can hold of them, the read-only bit,
// by the platform's one rule for it (SupFsys.h).
void PoeAtributos(const std::string& p, int32_t a) {
  if (zw::FsysAtrPoeNat(p, a) != 0) FsoErr(errno, false);
}

double TamanhoDir(const std::string& p) {
  double t = 0;
  std::error_code ec;
  for (auto it = fs::recursive_directory_iterator(p, fs::directory_options::skip_permission_denied, ec);
       it != fs::recursive_directory_iterator(); it.increment(ec)) {
    if (ec) break;
    zw::FicInf f;
    if (zw::FicInfLer(it->path().string(), f) && f.tipo == zw::kFicReg) t += double(f.tam);
  }
  return t;
}

// The drive letter whose folder holds a path (the longest folder that is a prefix).
char16_t LetraDe(const std::string& p) {
  char16_t best = 0;
  size_t tam = 0;
  for (auto& [l, dir] : zw::FicDrvTab()) {
    std::string d = zw::TxUtf8(dir);
    while (d.size() > 1 && d.back() == '/') d.pop_back();
    bool pre = d == "/" || p == d || (p.size() > d.size() && p.compare(0, d.size(), d) == 0 && p[d.size()] == '/');
    if (pre && d.size() >= tam) {
      best = l;
      tam = d.size();
    }
  }
  return best;
}

// The file system's lists (Colecao, by name or position); Folders also has Add.
class FsoCol : public Colecao {
 public:
  // `erro` is what Item raises for a name that is not there.
  FsoCol(const char16_t* tipo, int erro, std::string dir = "") : Colecao(tipo, erro), dir_(std::move(dir)) {}

 protected:
  int IdMais(TxV n) override { return !dir_.empty() && NameIx(n, {"Add"}) == 1 ? 3 : -1; }
  void Mais(int id, Args a, Value& r) override {
    if (id != 3) Raise(438);
    if (a.size() != 1) Raise(450);
    std::string n = dir_;
    if (n != "/") n += '/';
    n += zw::TxUtf8(ToTx(a[0]));
    if (zw::FicInfTip(n) != zw::kFicNada) Raise(58);
    if (zw::AtaDirCri(n, 0777) != 0) FsoErr(errno, true);
    r = Value(FsoPasta(n));
  }

 private:
  std::string dir_;
};

Ref<FsoCol> Lista(const std::string& dir, bool pastas) {
  Ref<FsoCol> c(new FsoCol(pastas ? u"Folders" : u"Files", pastas ? 76 : 53, pastas ? dir : ""));
  std::error_code ec;
  std::vector<std::string> ns;
  for (auto& e : fs::directory_iterator(dir, ec)) {
    if ((zw::FicInfTip(e.path().string()) == zw::kFicDir) == pastas) ns.push_back(e.path().string());
  }
  std::sort(ns.begin(), ns.end());
  for (auto& n : ns) {
    c->nomes.push_back(FsoTx(Nome(n)));
    c->v.push_back(Value(pastas ? FsoPasta(n) : FsoFicheiro(n)));
  }
  return c;
}

// File and Folder share their properties; `pasta` tells which this is.
class Entrada : public Obj {
 public:
  Entrada(std::string p, bool pasta) : p_(std::move(p)), pasta_(pasta) {}
  Tx TypeName() override { return pasta_ ? u"Folder" : u"File"; }
  int Id(TxV n) override {
    int k = NameIx(n, {"Path", "Attributes", "DateCreated", "DateLastAccessed", "DateLastModified",
                       "Drive", "Name", "ParentFolder", "ShortName", "ShortPath", "Size", "Type",
                       "Copy", "Delete", "Move", "OpenAsTextStream", "Files", "SubFolders",
                       "IsRootFolder", "CreateTextFile"});
    if (!pasta_ && (k == 17 || k == 18 || k == 19 || k == 20)) return -1;
    if (pasta_ && k == 16) return -1;
    return k == 1 ? 0 : k;
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    bool set = k == Inv::Let || k == Inv::Set;
    if (set) {
      if (a.size() != 1) Raise(450);
      if (id == 2) PoeAtributos(p_, ToLng(a[0]));
      else if (id == 7) Renomeia(ToTx(a[0]));
      else Raise(438);
      return;
    }
    zw::FicInf st;
    auto Stat = [&]() {
      if (!zw::FicInfLer(p_, st)) FsoErr(st.err, pasta_);
    };
    switch (id) {
      case 0: case 10: r = Value(FsoTx(p_)); break;
      case 2: r = Value(Atributos(p_)); break;
      case 3: Stat(); r = Value::Date(FsoData(long(st.tCri))); break;
      case 4: Stat(); r = Value::Date(FsoData(long(st.tAce))); break;
      case 5: Stat(); r = Value::Date(FsoData(long(st.tMod))); break;
      case 6: {
        char16_t l = LetraDe(p_);
        if (!l) Raise(68);
        r = Value(FsoDrive(l));
        break;
      }
      case 7: case 9: r = Value(FsoTx(Nome(p_))); break;
      case 8: {
        std::string q = Pai(p_);
        if (q.empty()) r = Value::Nothing();
        else r = Value(FsoPasta(q));
        break;
      }
      case 11:
        Stat();
        if (pasta_) r = Value(TamanhoDir(p_));
        else if (st.tam <= INT32_MAX) r = Value(int32_t(st.tam));
        else r = Value(double(st.tam));
        break;
      case 12: {
        if (pasta_) {
          r = Value(u"File folder");
          break;
        }
        std::string n = Nome(p_);
        size_t k2 = n.rfind('.');
        r = Value(k2 == std::string::npos || k2 == 0 ? Tx(u"File") : TxMaiVb(FsoTx(n.substr(k2 + 1))) + u" File");
        break;
      }
      case 13: {  // Copy(destination[, overwrite])
        if (a.size() < 1 || a.size() > 2) Raise(450);
        Tx t;
        TxV d = ArgTx(a, 0, t);
        bool sobre = a.Has(1) ? ToBool(a[1]) : true;
        std::string n = FsoNat(d);
        if (!d.empty() && (d.back() == u'\\' || d.back() == u'/')) n += Nome(p_);
        if (pasta_) FsoCopiaDir(p_, n, sobre);
        else FsoCopiaFic(p_, n, sobre);
        break;
      }
      case 14: FsoApaga(p_, a.Has(0) && ToBool(a[0]), pasta_); break;
      case 15: {
        if (a.size() != 1) Raise(450);
        Tx t;
        TxV d = ArgTx(a, 0, t);
        std::string n = FsoNat(d);
        if (!d.empty() && (d.back() == u'\\' || d.back() == u'/')) n += Nome(p_);
        FsoMove(p_, n);
        p_ = FsoAbs(n);
        break;
      }
      case 16: {  // OpenAsTextStream([mode[, format]])
        int32_t modo = ArgLng(a, 0, 1);
        if (modo != 1 && modo != 2 && modo != 8) Raise(5);
        r = Value(FsoTexto(p_, modo, ArgLng(a, 1, 0) == -1, false));
        break;
      }
      case 17: r = Value(Lista(p_, false)); ArgsAoValor(r, a); break;
      case 18: r = Value(Lista(p_, true)); ArgsAoValor(r, a); break;
      case 19: r = Value(p_ == "/"); break;
      case 20: {  // CreateTextFile(name[, overwrite[, unicode]])
        if (a.size() < 1 || a.size() > 3) Raise(450);
        std::string n = p_ + (p_ == "/" ? "" : "/") + zw::TxUtf8(ToTx(a[0]));
        bool sobre = a.Has(1) ? ToBool(a[1]) : true;
        if (zw::FicInfTip(n) != zw::kFicNada && !sobre) Raise(58);
        r = Value(FsoTexto(n, 2, a.Has(2) && ToBool(a[2]), true));
        break;
      }
      default: Raise(438);
    }
  }

 private:
  std::string p_;
  bool pasta_;

  void Renomeia(const Tx& novo) {
    if (novo.find_first_of(u"/\\") != Tx::npos || novo.empty()) Raise(5);
    std::string n = Pai(p_);
    n = (n == "/" ? "/" : n + "/") + zw::TxUtf8(novo);
    FsoMove(p_, n);
    p_ = n;
  }
};

class Drive : public Obj {
 public:
  Drive(char16_t l, std::string raiz) : l_(l), raiz_(std::move(raiz)) {}
  Tx TypeName() override { return u"IDrive"; }
  int Id(TxV n) override {
    int k = NameIx(n, {"Path", "AvailableSpace", "DriveLetter", "DriveType", "FileSystem", "FreeSpace",
                       "IsReady", "RootFolder", "SerialNumber", "ShareName", "TotalSize", "VolumeName"});
    return k == 1 ? 0 : k;
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) {
      if (id == 12) return;  // a volume name cannot be set here; kept silent as on a share
      Raise(438);
    }
    (void)a;
    zw::VolInf v;
    bool ok = zw::VolInfLer(raiz_, v);
    switch (id) {
      case 0: r = Value(Tx(1, l_) + u":"); break;
      case 2: r = Value(v.disp); break;
      case 3: r = Value(Tx(1, l_)); break;
      case 4: r = Value(int32_t(zw::DrvTipCod(l_))); break;
      case 5: r = Value(TipoFs()); break;
      case 6: r = Value(v.livre); break;
      case 7: r = Value(ok); break;
      case 8: r = Value(FsoPasta(raiz_)); break;
      case 9: r = Value(int32_t(v.serie)); break;
      case 10: r = Value(TxV()); break;
      case 11: r = Value(v.total); break;
      case 12: r = Value(TxV()); break;
      default: Raise(438);
    }
  }

 private:
  char16_t l_;
  std::string raiz_;

  Tx TipoFs() {
    zw::VolInf v;
    if (!zw::VolInfLer(raiz_, v)) return Tx();
    switch (v.tipoFs) {
      case 0xEF53: return u"ext4";
      case 0x9123683E: return u"btrfs";
      case 0x58465342: return u"xfs";
      case 0x01021994: return u"tmpfs";
      case 0x794C7630: return u"overlay";
      case 0x4D44: return u"FAT";
      case 0x5346544E: return u"NTFS";
      case 0x6969: return u"NFS";
      case 0xFF534D42: case 0xFE534D42: return u"CIFS";
      default: return u"Unknown";
    }
  }
};

}  // namespace

Ref<Obj> FsoFicheiro(const std::string& nat) {
  int t = zw::FicInfTip(nat);
  if (t == zw::kFicNada || t == zw::kFicDir) Raise(53);
  return Ref<Obj>(new Entrada(FsoAbs(nat), false));
}

Ref<Obj> FsoPasta(const std::string& nat) {
  if (zw::FicInfTip(nat.empty() ? "." : nat) != zw::kFicDir) Raise(76);
  return Ref<Obj>(new Entrada(FsoAbs(nat), true));
}

Ref<Obj> FsoDrive(char16_t letra) {
  letra = ChMai(letra);
  for (auto& [l, dir] : zw::FicDrvTab())
    if (l == letra) return Ref<Obj>(new Drive(l, zw::TxUtf8(dir)));
  Raise(68);
}

Ref<Obj> FsoDrives() {
  Ref<FsoCol> c(new FsoCol(u"Drives", 68));
  for (auto& [l, dir] : zw::FicDrvTab()) {
    c->nomes.push_back(Tx(1, l));
    c->v.push_back(Value(Ref<Obj>(new Drive(l, zw::TxUtf8(dir)))));
  }
  return c;
}

}  // namespace vbs
