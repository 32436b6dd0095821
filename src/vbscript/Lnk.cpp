// Lnk: the shortcuts WScript.Shell's CreateShortcut gives. A WshShortcut (".lnk")
// and a WshURLShortcut (".url") keep their properties and, at Save, write a
// freedesktop.org launcher beside the path (src/platform/Atl.h).
#include "Atl.h"
#include "FicGlb.h"
#include "Lib.h"
#include "TxtGlb.h"

namespace vbs {

namespace {

// The Windows error of a failed save, from the file layer's number.
int32_t ErroGra(int e) {
  switch (e) {
    case 70: return int32_t(0x80070005);  // access denied
    case 76: return int32_t(0x80070003);  // path not found
    case 61: return int32_t(0x80070070);  // disk full
    default: return int32_t(0x80004005);  // unspecified failure
  }
}

class Atalho : public Obj {
 public:
  Atalho(Tx caminho, bool url) : caminho_(std::move(caminho)), url_(url) {}
  Tx TypeName() override { return url_ ? u"IWshURLShortcut" : u"IWshShortcut"; }
  int Id(TxV n) override {
    if (url_) {
      int k = NameIx(n, {"FullName", "TargetPath", "Save"});
      return k == 1 ? 0 : k == 2 ? 2 : k == 3 ? 10 : -1;
    }
    int k = NameIx(n, {"FullName", "TargetPath", "Arguments", "WorkingDirectory", "IconLocation", "Description",
                       "WindowStyle", "Hotkey", "RelativePath", "Save"});
    return k == 1 ? 0 : k;
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    bool set = k == Inv::Let || k == Inv::Set;
    // FullName is the default member, read-only: the launcher's own path.
    if (id == 0 || id == 1) {
      if (set) Raise(438);
      r = Value(zw::TxDeUtf8(zw::AtlFic(caminho_)));
      return;
    }
    if (id == 10) {
      if (set) Raise(438);
      Grava();
      return;
    }
    if (id == 9) {  // RelativePath: kept by Windows to find a moved target; nothing here
      if (!set) Raise(438);
      return;
    }
    if (id < 2 || id > 8) Raise(438);
    if (set) {
      if (a.size() < 1) Raise(450);
      const Value& v = a[a.size() - 1];
      if (id == 7) janela_ = ToLng(v);
      else Campo(id) = ToTx(v);
      return;
    }
    if (id == 7) r = Value(janela_);
    else if (id == 2) r = Value(zw::AtlAlvo(s_.alvo));
    else r = Value(Campo(id));
  }

 private:
  Tx& Campo(int id) {
    switch (id) {
      case 2: return s_.alvo;
      case 3: return s_.args;
      case 4: return s_.dir;
      case 5: return s_.icone;
      case 6: return s_.des;
      default: return tecla_;
    }
  }
  void Grava() {
    int e = zw::AtlGra(caminho_, s_, url_);
    if (e == 5) Raise(5, u"The shortcut \"" + caminho_ + u"\" has no target.");
    if (e) Raise(ErroGra(e), u"Unable to save shortcut \"" + zw::TxDeUtf8(zw::AtlFic(caminho_)) + u"\".");
  }

  Tx caminho_;
  bool url_;
  zw::Atl s_{Tx(), Tx(), Tx(), Tx(u",0"), Tx()};
  int32_t janela_ = 1;  // normal window; desktops choose the size themselves
  Tx tecla_;            // kept, not bound: desktops set their keys elsewhere
};

}  // namespace

// CreateShortcut: a ".url" name makes an Internet shortcut, any other a program's.
Ref<Obj> AtlObj(const Tx& caminho) {
  Tx e = caminho.size() >= 4 ? zw::TxMai(TxV(caminho).substr(caminho.size() - 4)) : Tx();
  if (caminho.empty()) Raise(5);
  return Ref<Obj>(new Atalho(caminho, e == u".URL"));
}

}  // namespace vbs
