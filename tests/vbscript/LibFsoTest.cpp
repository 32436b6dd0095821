// FileSystemObject and WScript.Shell reached from C++: path functions, reading line
// ends of every kind, encodings on disk, and environment expansion.
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "GlbReg.h"
#include "LibTest.h"
#include "TstTmp.h"

using namespace libtest;
using vbs::Value;

namespace {

// Calls a member of an object by name with the given arguments.
Value M(const Value& o, const char* nome, std::vector<Value> args = {}, int* err = nullptr) {
  Value r;
  if (err) *err = 0;
  try {
    int id = o.o->Id(zw::TxAsc(nome));
    o.o->Invoke(id, vbs::Inv::Call, vbs::Args{args.data(), int(args.size())}, r);
  } catch (const vbs::Fault& f) {
    if (err) *err = f.num;
    else ADD_FAILURE() << nome << " raised " << f.num;
  }
  return r;
}

Value Cria(const char16_t* id) {
  vbs::LibReg();
  return Value(vbs::NewObj(id));
}

struct Pasta {
  std::string p;
  Pasta() {
    char t[] = "/tmp/zwlibXXXXXX";
    p = mkdtemp(t);
  }
  ~Pasta() { std::system(("rm -rf " + p).c_str()); }
  void Escreve(const char* nome, const std::string& bytes) const {
    std::ofstream(p + "/" + nome, std::ios::binary) << bytes;
  }
  std::string Le(const char* nome) const {
    std::ifstream f(p + "/" + nome, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(f), {});
  }
  Value Caminho(const char* nome) const { return Value(zw::TxAsc(p + "\\" + nome)); }
};

}  // namespace

TEST(LibFso, PathFunctionsTakeBothSeparators) {
  Value f = Cria(u"Scripting.FileSystemObject");
  EXPECT_EQ(Tx(M(f, "GetFileName", {S(u"C:\\a/b\\c.txt")})), u"c.txt");
  EXPECT_EQ(Tx(M(f, "GetFileName", {S(u"C:\\")})), u"");
  EXPECT_EQ(Tx(M(f, "GetParentFolderName", {S(u"C:\\a")})), u"C:\\");
  EXPECT_EQ(Tx(M(f, "GetParentFolderName", {S(u"\\\\srv\\share\\x")})), u"\\\\srv\\share\\");
  EXPECT_EQ(Tx(M(f, "GetBaseName", {S(u".profile")})), u"");
  EXPECT_EQ(Tx(M(f, "GetExtensionName", {S(u"a.b/c")})), u"");
  EXPECT_EQ(Tx(M(f, "BuildPath", {S(u"C:"), S(u"x")})), u"C:x");
  EXPECT_EQ(Tx(M(f, "BuildPath", {S(u"/a/"), S(u"/b")})), u"/a/b");
  EXPECT_EQ(Tx(M(f, "GetAbsolutePathName", {S(u"C:\\x\\..\\y")})), u"/y");
}

TEST(LibFso, ReadingLineEndsAndEncodings) {
  Pasta d;
  d.Escreve("mix.txt", "a\r\nb\nc\rd\n\n");
  d.Escreve("utf8.txt", "a\xc3\xa7\xc3\xa3o");
  d.Escreve("w1252.txt", "a\xe7\xe3o\x80");
  Value f = Cria(u"Scripting.FileSystemObject");
  Value t = M(f, "OpenTextFile", {d.Caminho("mix.txt")});
  std::u16string linhas;
  while (!M(t, "AtEndOfStream").i) linhas += Tx(M(t, "ReadLine")) + u"|";
  EXPECT_EQ(linhas, u"a|b|c|d||");
  EXPECT_EQ(M(t, "Line").l, 6);
  EXPECT_EQ(Tx(M(M(f, "OpenTextFile", {d.Caminho("utf8.txt")}), "ReadAll")), u"ação");
  EXPECT_EQ(Tx(M(M(f, "OpenTextFile", {d.Caminho("w1252.txt")}), "ReadAll")), u"ação€");
  Value w = M(f, "CreateTextFile", {d.Caminho("out.txt")});
  M(w, "WriteLine", {S(u"ação€ł")});
  M(w, "Close");
  EXPECT_EQ(d.Le("out.txt"), "a\xe7\xe3o\x80?\r\n");
  w = M(f, "CreateTextFile", {d.Caminho("u.txt"), Value(true), Value(true)});
  M(w, "Write", {S(u"\u20ac")});
  M(w, "Close");
  EXPECT_EQ(d.Le("u.txt"), std::string("\xff\xfe\xac\x20", 4));
  int e;
  M(f, "OpenTextFile", {d.Caminho("nope/x.txt"), I(2), Value(true)}, &e);
  EXPECT_EQ(e, 76);
}

TEST(LibFso, WildcardsAreCaseBlindAndStayInTheLastName) {
  Pasta d;
  d.Escreve("A1.TXT", "1");
  d.Escreve("a2.txt", "2");
  d.Escreve("b.txt", "3");
  Value f = Cria(u"Scripting.FileSystemObject");
  M(f, "CreateFolder", {d.Caminho("dst")});
  M(f, "CopyFile", {d.Caminho("a?.txt"), d.Caminho("dst")});
  EXPECT_EQ(M(M(M(f, "GetFolder", {d.Caminho("dst")}), "Files"), "Count").l, 2);
  int e;
  M(f, "CopyFile", {d.Caminho("*/x.txt"), d.Caminho("dst\\")}, &e);
  EXPECT_EQ(e, 76);
  M(f, "DeleteFile", {d.Caminho("*.TXT")});
  EXPECT_EQ(M(M(M(f, "GetFolder", {Value(zw::TxAsc(d.p))}), "Files"), "Count").l, 0);
}

TEST(LibShell, ExpandEnvironmentStrings) {
  setenv("ZW_LIB_A", "x", 1);
  Value s = Cria(u"WScript.Shell");
  EXPECT_EQ(Tx(M(s, "ExpandEnvironmentStrings", {S(u"%ZW_LIB_A%%zw_lib_a%")})), u"xx");
  EXPECT_EQ(Tx(M(s, "ExpandEnvironmentStrings", {S(u"%%ZW_LIB_A%")})), u"%x");
  EXPECT_EQ(Tx(M(s, "ExpandEnvironmentStrings", {S(u"50% of %ZW_LIB_NONE%")})), u"50% of %ZW_LIB_NONE%");
  EXPECT_EQ(Tx(M(s, "ExpandEnvironmentStrings", {S(u"%ZW_LIB_A")})), u"%ZW_LIB_A");
  unsetenv("ZW_LIB_A");
}

TEST(LibShell, RegReadAndRegWriteOverTheStandIn) {
  Pasta d;
  d.Escreve("r.reg",
            "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\ZunWiz]\r\n\"Dir\"=\"C:\\\\Prog\"\r\n"
            "@=\"omissao\"\r\n\"Num\"=dword:00000001\r\n");
  zw::RegFicDef(zw::TxAsc(d.p + "/r.reg"));
  Value s = Cria(u"WScript.Shell");
  EXPECT_EQ(Tx(M(s, "RegRead", {S(u"HKLM\\Software\\ZunWiz\\Dir")})), u"C:\\Prog");
  EXPECT_EQ(Tx(M(s, "RegRead", {S(u"HKEY_LOCAL_MACHINE\\Software\\ZunWiz\\")})), u"omissao");
  int e;
  M(s, "RegRead", {S(u"HKLM\\Software\\ZunWiz\\Num")}, &e);
  EXPECT_EQ(e, int32_t(0x80070002));
  M(s, "RegWrite", {S(u"HKLM\\Software\\ZunWiz\\Novo"), S(u"valor")});
  EXPECT_EQ(Tx(M(s, "RegRead", {S(u"HKLM\\Software\\ZunWiz\\Novo")})), u"valor");
  M(s, "RegWrite", {S(u"HKLM\\Software\\ZunWiz\\N"), I(1), S(u"REG_DWORD")}, &e);
  EXPECT_EQ(e, 5);
  zw::RegFicDef(u"");
}

TEST(LibFso, AFailedTextWriteLeavesTheFileAsItWas) {
  Pasta d;
  std::string velho(3000, 'v');
  d.Escreve("a.txt", velho);
  Value f = Cria(u"Scripting.FileSystemObject");
  rlimit antes;
  getrlimit(RLIMIT_FSIZE, &antes);
  rlimit lim = antes;
  lim.rlim_cur = 4096;
  setrlimit(RLIMIT_FSIZE, &lim);
  int e1 = 0, e2 = 0, e3 = 0, e4 = 0;
  for (int modo : {2, 8}) {  // replacing and appending
    Value t = M(f, "OpenTextFile", {d.Caminho("a.txt"), Value(int32_t(modo))});
    M(t, "Write", {Value(zw::Tx(8000, u'n'))}, &e1);
    M(t, "Close", {}, &e2);
  }
  Value t = M(f, "CreateTextFile", {d.Caminho("novo.txt")});
  M(t, "Write", {Value(zw::Tx(8000, u'n'))}, &e3);
  M(t, "Close", {}, &e4);
  setrlimit(RLIMIT_FSIZE, &antes);
  EXPECT_EQ(e1 + e3, 61 + 61);
  EXPECT_EQ(e2 + e4, 61 + 61);
  EXPECT_EQ(d.Le("a.txt"), velho);
  EXPECT_EQ(std::system(("test \"$(ls -A " + d.p + ")\" = a.txt").c_str()), 0);  // nothing else left
}

// The same on a disk that fills up: error 61 "Disk full", the earlier file whole,
// and no new or temporary file left on the disk.
TEST(LibFso, ATextWriteOnAFullDiskLeavesTheFileAsItWas) {
  zw::tst::Tmpfs cheio(16 << 10);
  if (cheio.pasta.empty()) GTEST_SKIP() << cheio.porque;
  std::string velho(3000, 'v'), a = cheio.pasta + "/a.txt";
  std::ofstream(a, std::ios::binary) << velho;
  Value f = Cria(u"Scripting.FileSystemObject");
  int e1 = 0, e2 = 0, e3 = 0, e4 = 0;
  for (int modo : {2, 8}) {  // replacing and appending
    Value t = M(f, "OpenTextFile", {Value(zw::TxDeUtf8(a)), Value(int32_t(modo))});
    M(t, "Write", {Value(zw::Tx(40000, u'n'))}, &e1);
    M(t, "Close", {}, &e2);
    // the write or the close that follows it says so, and nothing else is raised
    EXPECT_TRUE((e1 == 61 || e2 == 61) && e1 % 61 == 0 && e2 % 61 == 0) << e1 << " " << e2;
  }
  Value t = M(f, "CreateTextFile", {Value(zw::TxDeUtf8(cheio.pasta + "/novo.txt"))});
  M(t, "Write", {Value(zw::Tx(40000, u'n'))}, &e3);
  M(t, "Close", {}, &e4);
  EXPECT_TRUE((e3 == 61 || e4 == 61) && e3 % 61 == 0 && e4 % 61 == 0) << e3 << " " << e4;
  std::ifstream in(a, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), velho);
  EXPECT_EQ(std::system(("test \"$(ls -A '" + cheio.pasta + "')\" = a.txt").c_str()), 0);
}
