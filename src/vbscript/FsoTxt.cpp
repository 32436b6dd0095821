// FsoTxt: the TextStream of the FileSystemObject.
// A stream for reading holds the whole text, decoded once: UTF-16LE for Unicode
// (its mark dropped), otherwise UTF-8 when the bytes are UTF-8 and Windows-1252 when
// not. A stream for writing or appending writes each call through: UTF-16LE with a
// mark at the start of a new file, or Windows-1252. Lines end in CR LF when written;
// on reading CR LF, LF and CR all end a line. Writing goes through the platform's
// safe writer: a file replaced whole appears only at the close, when every byte
// of it was written, and a failed write leaves the old file as it was.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>

#include "FicGra.h"
#include "FicInf.h"
#include "Fso.h"

namespace vbs {

namespace {

class Texto : public Obj {
 public:
  Texto(int modo, bool uni) : modo_(modo), uni_(uni) {}
  ~Texto() override { Fecha(); }

  // Opens the file; raises 53, 76, 70, 75 as the file layer does.
  void Abre(const std::string& nat, bool criar) {
    // A device, a pipe or a socket would never end or never answer: refused.
    if (zw::FicInfTip(nat) == zw::kFicOut) Raise(75);
    FILE* f = std::fopen(nat.c_str(), "rb");
    bool existe = f != nullptr;
    if (!existe && errno != ENOENT) FsoErr(errno, false);
    if (modo_ == 1) {
      if (!existe) {
        if (!criar) FsoErr(ENOENT, false);
        // Made new, never through a link planted in its place.
        int fd = zw::FicCriAta(nat, O_RDWR);
        if (fd < 0) FsoErr(errno == EEXIST ? EACCES : errno, false);
        f = fdopen(fd, "rb");
        if (!f) {
          int e = errno;
          close(fd);
          FsoErr(e, false);
        }
      }
      std::string b;
      char buf[65536];
      size_t n;
      while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) b.append(buf, n);
      std::fclose(f);
      Decodifica(b);
      return;
    }
    if (existe) std::fclose(f);
    else if (!criar) FsoErr(ENOENT, false);
    g_ = std::make_unique<zw::FicGra>();
    if (int e = g_->Abre(nat, modo_ == 8 ? 'A' : 'O')) {
      g_.reset();
      Raise(e);
    }
    if (uni_ && (modo_ == 2 || g_->TamIni() == 0)) Grava("\xFF\xFE");
  }

  void Padrao(int fd) {
    fd_ = fd;
    if (fd == 0) lido_ = false;
  }

  Tx TypeName() override { return u"TextStream"; }
  int Id(TxV n) override {
    return NameIx(n, {"AtEndOfLine", "AtEndOfStream", "Column", "Line", "Close", "Read", "ReadAll",
                      "ReadLine", "Skip", "SkipLine", "Write", "WriteBlankLines", "WriteLine"});
  }

  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    if (id == 5) {
      Fecha(true);
      return;
    }
    if (fechado_) Raise(52);
    switch (id) {
      case 1: Leitura(); r = Value(pos_ >= t_.size() || t_[pos_] == u'\r' || t_[pos_] == u'\n'); break;
      case 2: Leitura(); r = Value(pos_ >= t_.size()); break;
      case 3: r = Value(col_); break;
      case 4: r = Value(lin_); break;
      case 6: {
        Leitura();
        int32_t n = ToLng(a[0]);
        if (n < 0) Raise(5);
        if (pos_ >= t_.size() && n > 0) Raise(62);
        r = Value(Avanca(size_t(n)));
        break;
      }
      case 7:
        Leitura();
        if (pos_ >= t_.size()) Raise(62);
        r = Value(Avanca(t_.size() - pos_));
        break;
      case 8: case 10: {
        Leitura();
        if (pos_ >= t_.size()) Raise(62);
        size_t i = pos_;
        while (i < t_.size() && t_[i] != u'\n' && t_[i] != u'\r') i++;
        Tx l = Avanca(i - pos_);
        if (pos_ < t_.size() && t_[pos_] == u'\r') {
          Avanca(1);
          if (pos_ < t_.size() && t_[pos_] == u'\n') Avanca(1);
        } else if (pos_ < t_.size()) {
          Avanca(1);
        }
        if (id == 8) r = Value(TxV(l));
        break;
      }
      case 9: {
        Leitura();
        int32_t n = ToLng(a[0]);
        if (n < 0) Raise(5);
        Avanca(size_t(n));
        break;
      }
      case 11: Escreve(ToTx(a[0])); break;
      case 12: {
        int32_t n = ToLng(a[0]);
        if (n < 0) Raise(5);
        Tx s;
        for (int32_t i = 0; i < n; i++) s += u"\r\n";
        Escreve(s);
        break;
      }
      case 13: Escreve((a.Has(0) ? ToTx(a[0]) : Tx()) + u"\r\n"); break;
      default: Raise(438);
    }
  }

 private:
  int modo_;
  bool uni_;
  std::unique_ptr<zw::FicGra> g_;  // the file being written
  int fd_ = -1;
  bool lido_ = true;
  bool fechado_ = false;
  Tx t_;
  size_t pos_ = 0;
  int32_t lin_ = 1, col_ = 1;
  bool cr_ = false;  // the last character counted was a CR

  void Decodifica(const std::string& b) {
    if (uni_) {
      size_t i = (b.size() >= 2 && uint8_t(b[0]) == 0xFF && uint8_t(b[1]) == 0xFE) ? 2 : 0;
      t_.reserve(b.size() / 2);
      for (; i + 1 < b.size(); i += 2) t_ += char16_t(uint8_t(b[i]) | (uint8_t(b[i + 1]) << 8));
    } else {
      t_ = zw::TxDeBytes(b);
    }
  }

  void Leitura() {
    if (modo_ != 1) Raise(54);
    if (!lido_) {
      std::string b((std::istreambuf_iterator<char>(std::cin)), std::istreambuf_iterator<char>());
      Decodifica(b);
      lido_ = true;
    }
  }

  // Takes n characters (fewer at the end), counting lines and columns.
  Tx Avanca(size_t n) {
    if (n > t_.size() - pos_) n = t_.size() - pos_;
    Tx r = t_.substr(pos_, n);
    Conta(r);
    pos_ += n;
    return r;
  }

  // Lines end at CR LF, LF or a lone CR, as ReadLine reads them.
  void Conta(TxV s) {
    for (char16_t c : s) {
      if (c == u'\r' || (c == u'\n' && !cr_)) {
        lin_++;
        col_ = 1;
      } else if (c != u'\n') {
        col_++;
      }
      cr_ = c == u'\r';
    }
  }

  void Escreve(const Tx& s) {
    if (modo_ == 1) Raise(54);
    std::string b;
    if (uni_) {
      b.resize(s.size() * 2);
      for (size_t i = 0; i < s.size(); i++) {
        b[2 * i] = char(s[i] & 0xFF);
        b[2 * i + 1] = char(s[i] >> 8);
      }
    } else {
      b = fd_ > 0 ? zw::TxUtf8(s) : zw::Tx1252(s);
    }
    if (fd_ > 0) {
      std::fwrite(b.data(), 1, b.size(), fd_ == 1 ? stdout : stderr);
    } else {
      Grava(b);
    }
    Conta(s);
  }

  void Grava(std::string_view b) {
    if (int e = g_->Grava(b)) Raise(e);
  }

  // Puts what was written in place; Close reports a failure, the end of the
  // stream's life cannot and drops it (the old file stays either way).
  void Fecha(bool lanca = false) {
    int e = g_ ? g_->Fecha() : 0;
    g_.reset();
    fechado_ = true;
    if (e && lanca) Raise(e);
  }
};

}  // namespace

Ref<Obj> FsoTexto(const std::string& nat, int modo, bool unicode, bool criar) {
  Ref<Texto> t(new Texto(modo, unicode));
  t->Abre(nat, criar);
  return t;
}

Ref<Obj> FsoTextoStd(int fd) {
  Ref<Texto> t(new Texto(fd == 0 ? 1 : 2, false));
  t->Padrao(fd);
  return t;
}

}  // namespace vbs
