// Ado: ADODB.Stream, the byte buffer through which VBScript authors write and read
// UTF-8 and other encodings. The stream is bytes with a position; in text mode
// (Type 2) texts are encoded and decoded through Charset, in binary mode (Type 1)
// bytes go in and out as arrays of Byte. Files are read by the rule of every file
// read (FicLer.h) and written through the safe writer (FicGra.h), so a save that
// fails leaves no half-written file and the old one as it was.
#include "FicGlb.h"
#include "FicGra.h"
#include "FicInf.h"
#include "FicLer.h"
#include "Lib.h"
#include "TxtGlb.h"

namespace vbs {

namespace {

// ADO's error numbers and texts.
constexpr int32_t kArgs = 3001, kAbrFic = 3002, kGraFic = 3004, kContexto = 3219, kFechado = 3704,
                  kAberto = 3705;

[[noreturn]] void Erro(int32_t n) {
  const char16_t* d = u"";
  switch (n) {
    case kArgs:
      d = u"Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another.";
      break;
    case kAbrFic: d = u"File could not be opened."; break;
    case kGraFic: d = u"Write to file failed."; break;
    case kContexto: d = u"Operation is not allowed in this context."; break;
    case kFechado: d = u"Operation is not allowed when the object is closed."; break;
    case kAberto: d = u"Operation is not allowed when the object is open."; break;
  }
  Raise(n, d, u"ADODB.Stream");
}

// The encodings a text stream knows.
enum class Cs { Utf16, Utf8, W1252, Latin1, Ascii };

bool CsDe(TxV nome, Cs& c, Tx& canon) {
  Tx n = TxMaiVb(nome);
  if (n == u"UNICODE" || n == u"UTF-16" || n == u"UTF-16LE") c = Cs::Utf16, canon = u"unicode";
  else if (n == u"UTF-8" || n == u"UTF8") c = Cs::Utf8, canon = u"utf-8";
  else if (n == u"WINDOWS-1252" || n == u"X-ANSI" || n == u"CP1252") c = Cs::W1252, canon = u"windows-1252";
  else if (n == u"ISO-8859-1" || n == u"LATIN1") c = Cs::Latin1, canon = u"iso-8859-1";
  else if (n == u"US-ASCII" || n == u"ASCII") c = Cs::Ascii, canon = u"us-ascii";
  else return false;
  return true;
}

// The byte-order mark a text of the encoding starts with, when it has one.
std::string_view Marca(Cs c) {
  if (c == Cs::Utf16) return "\xFF\xFE";
  if (c == Cs::Utf8) return "\xEF\xBB\xBF";
  return {};
}

std::string Codifica(TxV t, Cs c) {
  switch (c) {
    case Cs::Utf16: {
      std::string b;
      b.reserve(t.size() * 2);
      for (char16_t u : t) b += char(u & 0xFF), b += char(u >> 8);
      return b;
    }
    case Cs::Utf8: return zw::TxUtf8(t);
    case Cs::W1252: return zw::Tx1252(t);
    case Cs::Latin1:
    case Cs::Ascii: {
      std::string b;
      char16_t lim = c == Cs::Ascii ? 0x80 : 0x100;
      for (char16_t u : t) b += u < lim ? char(u) : '?';
      return b;
    }
  }
  return {};
}

// One character from b at p (p moves past it), appended to o: a UTF-8 sequence
// that is cut or wrong gives U+FFFD for its first byte.
void Decod1(const std::string& b, size_t& p, Cs c, Tx& o) {
  uint8_t x = uint8_t(b[p]);
  switch (c) {
    case Cs::Utf16:
      if (p + 1 >= b.size()) {  // a lone last byte is no character
        p = b.size();
        return;
      }
      o += char16_t(x | uint8_t(b[p + 1]) << 8);
      p += 2;
      return;
    case Cs::W1252: o += zw::ChrDe1252(x); p++; return;
    case Cs::Latin1: o += char16_t(x); p++; return;
    case Cs::Ascii: o += x < 0x80 ? char16_t(x) : u'?'; p++; return;
    case Cs::Utf8: {
      size_t n = x < 0x80 ? 1 : (x >> 5) == 6 ? 2 : (x >> 4) == 14 ? 3 : (x >> 3) == 30 ? 4 : 0;
      if (n == 0 || p + n > b.size()) {
        o += u'\uFFFD';
        p++;
        return;
      }
      Tx t = zw::TxDeUtf8(std::string_view(b).substr(p, n));
      o += t;
      p += t == u"\uFFFD" ? 1 : n;
      return;
    }
  }
}

class Stream : public Obj {
 public:
  Tx TypeName() override { return u"Stream"; }
  int Id(TxV n) override {
    return NameIx(n, {"Type", "Charset", "Open", "Close", "WriteText", "ReadText", "LoadFromFile", "SaveToFile",
                      "LineSeparator", "Position", "Size", "EOS", "SetEOS", "CopyTo", "Read", "Write", "Flush",
                      "SkipLine", "State", "Mode"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    bool set = k == Inv::Let || k == Inv::Set;
    const Value* v = set && a.size() ? &a[a.size() - 1] : nullptr;
    switch (id) {
      case 1:  // Type: 1 binary, 2 text; changed only at the start
        if (!set) return void(r = Value(int32_t(tipo_)));
        if (ToLng(*v) != 1 && ToLng(*v) != 2) Erro(kArgs);
        if (aberto_ && pos_ != 0) Erro(kContexto);
        tipo_ = ToLng(*v);
        return;
      case 2: {  // Charset, changed only at the start
        if (!set) return void(r = Value(csNome_));
        Cs c;
        Tx nome;
        if (!CsDe(ToTx(*v), c, nome)) Erro(kArgs);
        if (aberto_ && pos_ != 0) Erro(kContexto);
        cs_ = c;
        csNome_ = nome;
        return;
      }
      case 9:  // LineSeparator: -1 CR LF, 13 CR, 10 LF
        if (!set) return void(r = Value(int32_t(sep_)));
        if (ToLng(*v) != -1 && ToLng(*v) != 13 && ToLng(*v) != 10) Erro(kArgs);
        sep_ = ToLng(*v);
        return;
      case 19: if (set) Raise(438); r = Value(int32_t(aberto_ ? 1 : 0)); return;
      case 20:  // Mode: kept, since every stream here can read and write
        if (set) modo_ = ToLng(*v);
        else r = Value(modo_);
        return;
      case 3:
        if (set) Raise(438);
        if (aberto_) Erro(kAberto);
        // Open with a source (a URL or a record) reads nothing here.
        if (a.Has(0) && !(a[0].IsStr() && a[0].Sv().empty())) Erro(kArgs);
        aberto_ = true;
        b_.clear();
        pos_ = 0;
        return;
      case 10:
        if (!aberto_) Erro(kFechado);
        if (!set) return void(r = Value(double(pos_)));
        {
          double p = ToDbl(*v);
          if (p < 0 || p > double(b_.size())) Erro(kArgs);
          pos_ = size_t(p);
        }
        return;
    }
    if (set) Raise(438);
    if (!aberto_) Erro(kFechado);
    switch (id) {
      case 4: aberto_ = false; b_.clear(); b_.shrink_to_fit(); pos_ = 0; break;
      case 5: {  // WriteText(text[, 1: add a line separator])
        if (a.size() < 1 || a.size() > 2) Raise(450);
        if (tipo_ != 2) Erro(kContexto);
        int op = ArgLng(a, 1, 0);
        if (op != 0 && op != 1) Erro(kArgs);
        Tx t = ToTx(a[0]);
        if (op == 1) t += Sep();
        // A text written first into an empty stream carries its encoding's mark.
        std::string e = b_.empty() ? std::string(Marca(cs_)) : std::string();
        e += Codifica(t, cs_);
        Poe(e);
        break;
      }
      case 6: {  // ReadText(-1 all, -2 a line, n characters)
        if (a.size() > 1) Raise(450);
        if (tipo_ != 2) Erro(kContexto);
        int32_t n = ArgLng(a, 0, -1);
        if (n < -2) Erro(kArgs);
        r = Value(LeTx(n));
        break;
      }
      case 18:
        if (a.size() > 1) Raise(450);
        if (tipo_ != 2) Erro(kContexto);
        LeTx(-2);
        break;
      case 7: {  // LoadFromFile(path): the whole file, the position at its start
        if (a.size() != 1) Raise(450);
        std::string b;
        if (zw::FicLer(ToTx(a[0]), b) != 0) Erro(kAbrFic);
        b_ = std::move(b);
        pos_ = 0;
        break;
      }
      case 8: {  // SaveToFile(path[, 1 create only, 2 overwrite])
        if (a.size() < 1 || a.size() > 2) Raise(450);
        int op = ArgLng(a, 1, 1);
        if (op != 1 && op != 2) Erro(kArgs);
        int err = 0;
        std::string nat = zw::FicNat(ToTx(a[0]), &err);
        if (err || nat.empty()) Erro(kGraFic);
        if (op == 1 && zw::FicInfHa(nat)) Erro(kGraFic);
        zw::FicGra g;
        if (g.Abre(nat, 'O') != 0) Erro(kGraFic);
        if (g.Grava(b_) != 0) {
          g.Desiste();
          Erro(kGraFic);
        }
        if (g.Fecha() != 0) Erro(kGraFic);
        break;
      }
      case 11: r = Value(double(b_.size())); break;
      case 12: r = Value(pos_ >= b_.size()); break;
      case 13: b_.resize(pos_); break;
      case 14: {  // CopyTo(stream[, count]): bytes, or characters of a text stream
        if (a.size() < 1 || a.size() > 2) Raise(450);
        Stream* d = a[0].IsObj() ? dynamic_cast<Stream*>(a[0].o) : nullptr;
        if (!d) Erro(kArgs);
        if (!d->aberto_) Erro(kFechado);
        int32_t n = ArgLng(a, 1, -1);
        if (n < -1) Erro(kArgs);
        size_t fim = b_.size();
        if (n >= 0) {
          if (tipo_ == 2) {
            Tx lixo;
            fim = pos_;
            for (int32_t i = 0; i < n && fim < b_.size(); i++) Decod1(b_, fim, cs_, lixo);
          } else {
            fim = std::min(b_.size(), pos_ + size_t(n));
          }
        }
        std::string parte = b_.substr(pos_, fim - pos_);
        pos_ = fim;
        d->Poe(parte);
        break;
      }
      case 15: {  // Read([count]): Byte array, Null at the end
        if (a.size() > 1) Raise(450);
        if (tipo_ != 1) Erro(kContexto);
        int32_t n = ArgLng(a, 0, -1);
        if (n < -1) Erro(kArgs);
        size_t fim = n < 0 ? b_.size() : std::min(b_.size(), pos_ + size_t(n));
        if (fim <= pos_) {
          r = Value::Null();
          break;
        }
        Work(fim - pos_);
        int32_t ub = int32_t(fim - pos_ - 1);
        Arr* x = Arr::Make(&ub, 1);
        for (size_t i = pos_; i < fim; i++) x->v[i - pos_] = Value::Byte(uint8_t(b_[i]));
        pos_ = fim;
        r = Value(x);
        break;
      }
      case 16: {  // Write(bytes): an array of numbers 0-255, as Read gives
        if (a.size() != 1) Raise(450);
        if (tipo_ != 1) Erro(kContexto);
        const Value& x = a[0];
        if (!x.IsArr() || x.a->dims.size() != 1) Erro(kArgs);
        std::string b;
        b.reserve(x.a->v.size());
        for (const Value& e : x.a->v) {
          if (!e.IsNum()) Erro(kArgs);
          int32_t c = ToLng(e);
          if (c < 0 || c > 255) Erro(kArgs);
          b += char(c);
        }
        Poe(b);
        break;
      }
      case 17: break;  // Flush: nothing is held back
      default: Raise(438);
    }
  }

 private:
  Tx Sep() const { return sep_ == 13 ? Tx(u"\r") : sep_ == 10 ? Tx(u"\n") : Tx(u"\r\n"); }

  // Writes bytes at the position, over what stands there, and moves past them.
  void Poe(const std::string& e) {
    Work(e.size());
    if (pos_ + e.size() > b_.size()) b_.resize(pos_ + e.size());
    b_.replace(pos_, e.size(), e);
    pos_ += e.size();
  }

  // Reads text from the position: all of it (-1), a line without its separator
  // (-2, the separator passed over), or n characters. A mark at the start of the
  // stream is passed over.
  Tx LeTx(int32_t n) {
    std::string_view m = Marca(cs_);
    if (pos_ == 0 && !m.empty() && std::string_view(b_).substr(0, m.size()) == m) pos_ = m.size();
    Tx o, sep = Sep();
    Work(n > 0 ? size_t(n) : b_.size() - pos_);
    while (pos_ < b_.size() && (n < 0 || o.size() < size_t(n))) {
      Decod1(b_, pos_, cs_, o);
      if (n == -2 && o.size() >= sep.size() && o.compare(o.size() - sep.size(), sep.size(), sep) == 0) {
        o.resize(o.size() - sep.size());
        break;
      }
    }
    return o;
  }

  bool aberto_ = false;
  int32_t tipo_ = 2;
  Cs cs_ = Cs::Utf16;
  Tx csNome_ = u"unicode";
  int32_t sep_ = -1;
  int32_t modo_ = 0;
  std::string b_;
  size_t pos_ = 0;
};

Ref<Obj> NovoStream() { return Ref<Obj>(new Stream); }

}  // namespace

void AdoReg() { DefProgId("ADODB.Stream", NovoStream); }

}  // namespace vbs
