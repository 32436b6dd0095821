// ADODB.Stream: every charset there and back through a file, the bytes each one
// writes, the save modes, the binary idioms that write UTF-8 without its mark, and
// ADO's error numbers; a full disk in the root box. Shortcuts and RegDelete
// through WScript.Shell.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "Caixa.h"
#include "LibTest.h"
#include "TstTmp.h"

using namespace libtest;
using vbs::Value;
using zw::tst::FicTmp;

namespace {

// Reads, calls or assigns a member; the error number lands in err (0 when none).
Value M(const Value& o, const char* nome, std::vector<Value> args = {}, int* err = nullptr,
        vbs::Inv k = vbs::Inv::Call) {
  Value r;
  if (err) *err = 0;
  try {
    o.o->Invoke(o.o->Id(zw::TxAsc(nome)), k, vbs::Args{args.data(), int(args.size())}, r);
  } catch (const vbs::Fault& f) {
    if (err) *err = f.num;
    else ADD_FAILURE() << nome << " raised " << f.num;
  }
  return r;
}
void Let(const Value& o, const char* nome, Value v, int* err = nullptr) { M(o, nome, {v}, err, vbs::Inv::Let); }
int Erro(const Value& o, const char* nome, std::vector<Value> args = {}) {
  int e;
  M(o, nome, std::move(args), &e);
  return e;
}

Value Stream(int tipo, const char16_t* cs = nullptr) {
  vbs::LibReg();
  Value s(vbs::NewObj(u"ADODB.Stream"));
  Let(s, "Type", I(tipo));
  if (cs) Let(s, "Charset", S(cs));
  M(s, "Open");
  return s;
}

std::string Le(const std::string& f) {
  std::ifstream in(f, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

Value P(const std::string& f) { return Value(zw::TxDeUtf8(f)); }

}  // namespace

// Each charset writes its own bytes (a mark for UTF-8 and Unicode only, lines
// ending as LineSeparator says) and reads back what it wrote, from a file.
TEST(Ado, EachCharsetThereAndBack) {
  struct Caso {
    const char16_t* cs;
    std::u16string tx;   // what goes in
    std::u16string sai;  // what reads back
    std::string bytes;   // the file
  } casos[] = {
      {u"utf-8", u"Olá €\U0001F600", u"Olá €\U0001F600", "\xEF\xBB\xBFOl\xC3\xA1 \xE2\x82\xAC\xF0\x9F\x98\x80\r\n"},
      {u"Unicode", u"Aç", u"Aç", std::string("\xFF\xFE" "A\0\xE7\0\r\0\n\0", 10)},
      {u"windows-1252", u"ação €Ω", u"ação €?", "a\xE7\xE3o \x80?\r\n"},
      {u"ISO-8859-1", u"ação €", u"ação ?", "a\xE7\xE3o ?\r\n"},
      {u"us-ascii", u"ação", u"a??o", "a??o\r\n"},
  };
  for (const Caso& c : casos) {
    SCOPED_TRACE(std::string(zw::TxUtf8(c.cs)));
    std::string f = FicTmp("cs.txt");
    Value s = Stream(2, c.cs);
    M(s, "WriteText", {Value(c.tx), I(1)});
    M(s, "SaveToFile", {P(f), I(2)});
    EXPECT_EQ(Le(f), c.bytes);
    EXPECT_EQ(Tx(M(s, "Size")), zw::TxAsc(std::to_string(c.bytes.size())));
    M(s, "Close");

    Value r = Stream(2, c.cs);
    M(r, "LoadFromFile", {P(f)});
    EXPECT_EQ(Tx(M(r, "ReadText", {I(-2)})), c.sai);  // the mark passed over, the separator taken
    EXPECT_TRUE(vbs::ToBool(M(r, "EOS")));
  }
}

TEST(Ado, ReadingLinesCharactersAndPositions) {
  Value s = Stream(2, u"utf-8");
  Let(s, "LineSeparator", I(10));
  M(s, "WriteText", {S(u"um"), I(1)});
  M(s, "WriteText", {S(u"ção"), I(1)});
  M(s, "WriteText", {S(u"fim")});
  EXPECT_EQ(Tx(M(s, "Position")), u"15");  // bytes, the mark's 3 among them
  Let(s, "Position", I(0));
  EXPECT_EQ(Tx(M(s, "ReadText", {I(-2)})), u"um");
  EXPECT_EQ(Tx(M(s, "ReadText", {I(2)})), u"çã");  // characters, not bytes
  EXPECT_EQ(Tx(M(s, "ReadText", {I(-1)})), u"o\nfim");
  EXPECT_EQ(Tx(M(s, "ReadText", {I(-1)})), u"");
  // writing goes over what stands at the position; SetEOS cuts the rest
  Let(s, "Position", I(3));
  M(s, "WriteText", {S(u"UM")});
  Let(s, "Position", I(0));
  EXPECT_EQ(Tx(M(s, "ReadText")), u"UM\nção\nfim");
  Let(s, "Position", I(5));
  M(s, "SetEOS");
  Let(s, "Position", I(0));
  EXPECT_EQ(Tx(M(s, "ReadText")), u"UM");
}

// UTF-8 without the mark, the two ways scripts write it: CopyTo from past the
// mark into a binary stream, or Read past the mark and Write back over the start.
TEST(Ado, Utf8WithoutTheMark) {
  std::string f1 = FicTmp("sem1.txt"), f2 = FicTmp("sem2.txt");
  Value s = Stream(2, u"utf-8");
  M(s, "WriteText", {S(u"chave=ação")});
  Let(s, "Position", I(3));
  Value b = Stream(1);
  M(s, "CopyTo", {b});
  M(b, "SaveToFile", {P(f1), I(2)});
  EXPECT_EQ(Le(f1), "chave=a\xC3\xA7\xC3\xA3o");

  Let(s, "Position", I(0));
  Let(s, "Type", I(1));
  Let(s, "Position", I(3));
  Value bytes = M(s, "Read");
  ASSERT_TRUE(bytes.IsArr());
  EXPECT_EQ(bytes.a->v.size(), 12u);
  EXPECT_EQ(bytes.a->v[0].t, vbs::vtByte);
  Let(s, "Position", I(0));
  M(s, "Write", {bytes});
  M(s, "SetEOS");
  M(s, "SaveToFile", {P(f2), I(2)});
  EXPECT_EQ(Le(f2), Le(f1));
  EXPECT_TRUE(M(s, "Read").IsNull());  // at the end
}

// Create-only refuses an existing file and leaves it; overwrite replaces it whole
// and keeps its mode; a file that cannot be made is 3004 and leaves nothing.
TEST(Ado, SaveModes) {
  std::string f = FicTmp("modo.txt");
  std::ofstream(f) << "antigo";
  ASSERT_EQ(chmod(f.c_str(), 0600), 0);
  Value s = Stream(2, u"utf-8");
  M(s, "WriteText", {S(u"novo")});
  EXPECT_EQ(Erro(s, "SaveToFile", {P(f)}), 3004);
  EXPECT_EQ(Erro(s, "SaveToFile", {P(f), I(1)}), 3004);
  EXPECT_EQ(Le(f), "antigo");
  M(s, "SaveToFile", {P(f), I(2)});
  EXPECT_EQ(Le(f), "\xEF\xBB\xBFnovo");
  struct stat st;
  ASSERT_EQ(stat(f.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  std::string n = FicTmp("novo.txt");
  M(s, "SaveToFile", {P(n)});
  EXPECT_EQ(Le(n), "\xEF\xBB\xBFnovo");
  EXPECT_EQ(Erro(s, "SaveToFile", {P(FicTmp("falta/x.txt")), I(2)}), 3004);
  EXPECT_EQ(Erro(s, "SaveToFile", {P(f), I(3)}), 3001);
  std::ofstream(FicTmp("l.txt")) << "x";
  ASSERT_EQ(symlink(f.c_str(), FicTmp("liga").c_str()), 0);
  EXPECT_EQ(Erro(s, "LoadFromFile", {P(FicTmp("nada.txt"))}), 3002);
  EXPECT_EQ(Erro(s, "LoadFromFile", {P(zw::tst::PastaTmp())}), 3002);  // a folder
}

TEST(Ado, ErrorsOfTheWrongStateOrArguments) {
  vbs::LibReg();
  Value s(vbs::NewObj(u"ADODB.Stream"));
  EXPECT_EQ(Tx(M(s, "Type")), u"2");
  EXPECT_EQ(Tx(M(s, "Charset")), u"unicode");
  EXPECT_EQ(Tx(M(s, "State")), u"0");
  EXPECT_EQ(Erro(s, "WriteText", {S(u"x")}), 3704);
  EXPECT_EQ(Erro(s, "Close"), 3704);
  int e;
  Let(s, "Charset", S(u"klingon"), &e);
  EXPECT_EQ(e, 3001);
  Let(s, "Type", I(3), &e);
  EXPECT_EQ(e, 3001);
  M(s, "Open");
  EXPECT_EQ(Erro(s, "Open"), 3705);
  EXPECT_EQ(Erro(s, "Read"), 3219);  // a text stream
  EXPECT_EQ(Erro(s, "Write", {S(u"x")}), 3219);
  M(s, "WriteText", {S(u"ab")});
  Let(s, "Type", I(1), &e);
  EXPECT_EQ(e, 3219);  // only at the start
  Let(s, "Charset", S(u"utf-8"), &e);
  EXPECT_EQ(e, 3219);
  Let(s, "Position", I(99), &e);
  EXPECT_EQ(e, 3001);
  Let(s, "Position", I(0));
  Let(s, "Type", I(1));
  EXPECT_EQ(Erro(s, "ReadText"), 3219);
  EXPECT_EQ(Erro(s, "Write", {S(u"x")}), 3001);  // bytes come as an array
  EXPECT_EQ(Erro(s, "CopyTo", {S(u"x")}), 3001);
  Value fechado(vbs::NewObj(u"ADODB.Stream"));
  EXPECT_EQ(Erro(s, "CopyTo", {fechado}), 3704);
  M(s, "Close");
  EXPECT_EQ(Erro(s, "Position"), 3704);
}

// A full disk: the save fails with 3004, the old file stays byte for byte, and
// nothing half-written is left beside it.
TEST(RaizAdo, AFullDiskLeavesTheOldFile) {
  ZW_NA_CAIXA();
  zw::tst::Tmpfs t(64 * 1024);
  if (t.pasta.empty()) GTEST_SKIP() << t.porque;
  std::string f = t.pasta + "/conf.txt";
  std::ofstream(f) << "antigo";
  Value s = Stream(2, u"utf-8");
  M(s, "WriteText", {Value(zw::Tx(200 * 1024, u'x'))});
  EXPECT_EQ(Erro(s, "SaveToFile", {P(f), I(2)}), 3004);
  EXPECT_EQ(Le(f), "antigo");
  EXPECT_EQ(Erro(s, "SaveToFile", {P(t.pasta + "/novo.txt")}), 3004);
  std::string l = FicTmp("ls.txt");
  (void)!std::system(("ls -A '" + t.pasta + "' > '" + l + "'").c_str());
  EXPECT_EQ(Le(l), "conf.txt\n");
}

// WScript.Shell's side: CreateShortcut's properties and Save, RegDelete of a
// value and of a key, with the errors scripts test for.
TEST(Ado, ShellShortcutsAndRegDelete) {
  vbs::LibReg();
  std::string d = zw::tst::PastaTmp();
  setenv("ZUNWIZ_REGISTRY", d.c_str(), 1);
  Value sh(vbs::NewObj(u"WScript.Shell"));
  Value l = M(sh, "CreateShortcut", {P(d + "/Zun.lnk")});
  EXPECT_EQ(Tx(M(l, "IconLocation")), u",0");
  EXPECT_EQ(Tx(M(l, "WindowStyle")), u"1");
  EXPECT_EQ(Tx(M(l, "FullName")), zw::TxDeUtf8(d + "/Zun.desktop"));
  int e = 0;
  M(l, "Save", {}, &e);
  EXPECT_EQ(e, 5);  // no target
  Let(l, "TargetPath", S(u"/bin/true"));
  Let(l, "Arguments", S(u"\"a b\" c"));  // a Windows command line: two words
  Let(l, "Hotkey", S(u"Ctrl+Alt+Z"));
  Let(l, "WindowStyle", I(3));
  EXPECT_EQ(Tx(M(l, "WindowStyle")), u"3");
  M(l, "Save");
  EXPECT_NE(Le(d + "/Zun.desktop").find("\nExec=/bin/true \"a b\" c\n"), std::string::npos);
  Value u = M(sh, "CreateShortcut", {P(d + "/Zun.url")});
  EXPECT_EQ(u.o->Id(u"Arguments"), -1);  // an Internet shortcut has only its URL
  Let(u, "TargetPath", S(u"https://example.org/"));
  M(u, "Save");
  EXPECT_NE(Le(d + "/Zun.desktop").find("Type=Link"), std::string::npos);

  M(sh, "RegWrite", {S(u"HKCU\\Software\\Zun\\Tema"), S(u"escuro")});
  M(sh, "RegWrite", {S(u"HKCU\\Software\\Zun\\Sub\\X"), S(u"1")});
  EXPECT_EQ(Tx(M(sh, "RegRead", {S(u"HKCU\\Software\\Zun\\Tema")})), u"escuro");
  M(sh, "RegDelete", {S(u"HKCU\\Software\\Zun\\Tema")});
  EXPECT_EQ(Erro(sh, "RegRead", {S(u"HKCU\\Software\\Zun\\Tema")}), int(0x80070002));
  EXPECT_EQ(Erro(sh, "RegDelete", {S(u"HKCU\\Software\\Zun\\Tema")}), int(0x80070002));
  M(sh, "RegDelete", {S(u"HKCU\\Software\\Zun\\")});
  EXPECT_EQ(Erro(sh, "RegRead", {S(u"HKCU\\Software\\Zun\\Sub\\X")}), int(0x80070002));
  unsetenv("ZUNWIZ_REGISTRY");
}
