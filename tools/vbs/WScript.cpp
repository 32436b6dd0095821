// WScript: Echo, Quit, Arguments, StdIn, StdOut, StdErr, ScriptName,
// ScriptFullName, Sleep and the host's name and version. Output is UTF-8.
#include "WScript.h"
#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>
#include "Builtins.h"
#include "FicGlb.h"

namespace vbs {

namespace {

// The most StdIn gives in one read, in bytes: a line or a whole input longer than
// this (standard input from /dev/zero) raises 14 rather than filling memory.
constexpr size_t kStdInMax = size_t(zw::kFicLerMax);

// Standard input up to the end of a line (linha) or of the input, at most kStdInMax
// bytes; false when the input had ended before anything was read.
bool StdInLer(std::string& s, bool linha) {
  s.clear();
  std::streambuf* sb = std::cin.rdbuf();
  int c = sb->sgetc();
  if (c == std::char_traits<char>::eof()) {
    std::cin.setstate(std::ios::eofbit);
    return false;
  }
  for (;;) {
    c = sb->sbumpc();
    if (c == std::char_traits<char>::eof()) {
      std::cin.setstate(std::ios::eofbit);
      return true;
    }
    if (linha && c == '\n') return true;
    if (s.size() >= kStdInMax) Raise(14);
    s += char(c);
  }
}

void Out(FILE* f, TxV t) {
  std::string s = zw::TxUtf8(t);
  std::fwrite(s.data(), 1, s.size(), f);
}

// StdOut, StdErr and StdIn.
class Stream : public Obj {
 public:
  explicit Stream(FILE* f) : f_(f) {}
  Tx TypeName() override { return u"TextStream"; }
  int Id(TxV n) override {
    return NameIx(n, {"Write", "WriteLine", "WriteBlankLines", "Close", "ReadLine", "ReadAll",
                      "AtEndOfStream", "Read", "SkipLine"});
  }
  void Invoke(int id, Inv, Args a, Value& r) override {
    switch (id) {
      case 1: Need(a, 1, 1); Out(f_, ToTx(a[0])); return;
      case 2: Need(a, 0, 1); if (a.n) Out(f_, ToTx(a[0])); Out(f_, u"\n"); return;
      case 3: { Need(a, 1, 1); int n = ToLng(a[0]); for (int i = 0; i < n; ++i) Out(f_, u"\n"); return; }
      case 4: std::fflush(f_); return;
      case 5: case 9: {
        std::string line;
        if (!StdInLer(line, true)) Raise(62);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (id == 5) r = Value(zw::TxDeUtf8(line));
        return;
      }
      case 6: {
        std::string all;
        StdInLer(all, false);
        r = Value(zw::TxDeUtf8(all));
        return;
      }
      case 7: r = Value(std::cin.peek() == EOF); return;
      case 8: {
        Need(a, 1, 1);
        int n = ToLng(a[0]);
        std::string s;
        for (int i = 0; i < n; ++i) {
          int c = std::cin.get();
          if (c == EOF) break;
          s += char(c);
        }
        r = Value(zw::TxDeUtf8(s));
        return;
      }
    }
    Raise(438);
  }
  static void Need(Args a, int lo, int hi) { if (a.n < lo || a.n > hi) Raise(450); }

 private:
  FILE* f_;
};

// WScript.Arguments.
class ArgList : public Obj {
 public:
  explicit ArgList(std::vector<Tx> a) : a_(std::move(a)) {}
  Tx TypeName() override { return u"Object"; }
  int Id(TxV n) override { return NameIx(n, {"Item", "Count", "Length"}); }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (k == Inv::Let || k == Inv::Set) Raise(438);
    if (id == 0) id = 1;
    switch (id) {
      case 1: {
        if (a.n != 1) Raise(450);
        int32_t i = ToLng(a[0]);
        if (i < 0 || size_t(i) >= a_.size()) Raise(9);
        r = Value(a_[size_t(i)]);
        return;
      }
      case 2: case 3: r = Value(int32_t(a_.size())); return;
    }
    Raise(438);
  }
  bool Items(std::vector<Value>& out) override {
    for (auto& s : a_) out.push_back(Value(s));
    return true;
  }

 private:
  std::vector<Tx> a_;
};

class WScriptObj : public Obj {
 public:
  WScriptObj(Tx path, std::vector<Tx> args) : path_(std::move(path)) {
    args_ = Ref<Obj>(new ArgList(std::move(args)));
    out_ = Ref<Obj>(new Stream(stdout));
    err_ = Ref<Obj>(new Stream(stderr));
    in_ = Ref<Obj>(new Stream(stdin));
  }
  Tx TypeName() override { return u"Object"; }
  int Id(TxV n) override {
    return NameIx(n, {"Echo", "Quit", "Arguments", "StdOut", "StdErr", "StdIn", "ScriptName",
                      "ScriptFullName", "Sleep", "Name", "Version", "FullName", "Path",
                      "Interactive", "CreateObject", "Timeout"});
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if ((k == Inv::Let || k == Inv::Set) && id != 14 && id != 16) Raise(438);
    switch (id) {
      case 0: r = Value(u"Windows Script Host"); return;
      case 1: {
        Tx line;
        for (int i = 0; i < a.n; ++i) {
          if (i) line += u' ';
          const Value& v = a[i];
          // Echo writes a Boolean as its number, -1 or 0, as the console host does
          if (v.t == vtBoolean) line += v.i ? u"-1" : u"0";
          else if (!v.IsNull() && !v.IsMissing()) line += ToTx(v);
        }
        line += u'\n';
        Out(stdout, line);
        return;
      }
      case 2: {
        int code = a.Has(0) ? ToLng(a[0]) : 0;
        std::fflush(stdout);
        throw QuitReq{code};
      }
      case 3:
        if (a.n) { Value v(args_); Index(v, a, Inv::Get, r); return; }
        r = Value(args_);
        return;
      case 4: r = Value(out_); return;
      case 5: r = Value(err_); return;
      case 6: r = Value(in_); return;
      case 7: {
        size_t s = path_.find_last_of(u"/\\");
        r = Value(s == Tx::npos ? path_ : path_.substr(s + 1));
        return;
      }
      case 8: r = Value(path_); return;
      case 9: {
        if (a.n != 1) Raise(450);
        int32_t ms = ToLng(a[0]);
        std::fflush(stdout);
        if (ms > 0) std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        return;
      }
      case 10: r = Value(u"Windows Script Host"); return;
      case 11: r = Value(u"5.8"); return;
      case 12: r = Value(u"/usr/bin/vbs"); return;
      case 13: r = Value(u"/usr/bin"); return;
      case 14: if (k == Inv::Get) r = Value(false); return;
      case 15: if (a.n < 1) Raise(450); r = Value(NewObj(ToTx(a[0]))); return;
      case 16: if (k == Inv::Get) r = Value(int32_t(0)); return;
    }
    Raise(438);
  }

 private:
  Tx path_;
  Ref<Obj> args_, out_, err_, in_;
};

// Index() lives with the engine; declared here to avoid the engine's internal header.
}  // namespace

Ref<Obj> NewWScript(const Tx& path, const std::vector<Tx>& args) {
  return Ref<Obj>(new WScriptObj(path, args));
}

}  // namespace vbs
