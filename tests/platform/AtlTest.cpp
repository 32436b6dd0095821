// Shortcuts written as launchers and the special folders they go to: what the
// Exec line does with blanks, % and shell characters, paths made absolute,
// missing targets, icons, modes, and every file checked by desktop-file-validate.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cstdlib>
#include <fstream>
#include <string>
#include "Atl.h"
#include "GlbReg.h"
#include "TstTmp.h"

using namespace zw;
using zw::tst::FicTmp;
using zw::tst::PastaTmp;

namespace {

std::string Le(const std::string& f) {
  std::ifstream in(f, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// The value of a key in a launcher ("" when missing).
std::string Chave(const std::string& txt, const std::string& k) {
  size_t p = txt.find("\n" + k + "=");
  if (p == std::string::npos) return "";
  p += k.size() + 2;
  return txt.substr(p, txt.find('\n', p) - p);
}

// desktop-file-validate's verdict: "" when the file passes, else its output.
std::string Valida(const std::string& f) {
  std::string saida = FicTmp("valida.out");
  int st = std::system(("desktop-file-validate '" + f + "' > '" + saida + "' 2>&1").c_str());
  return st == 0 ? "" : Le(saida) + "(status " + std::to_string(st) + ")";
}

bool HaValidador() { return std::system("command -v desktop-file-validate > /dev/null 2>&1") == 0; }

void Programa(const std::string& f) {
  std::ofstream(f) << "#!/bin/sh\n";
  ASSERT_EQ(chmod(f.c_str(), 0755), 0);
}

// Sets environment variables for one test and puts them back.
struct Amb {
  std::vector<std::pair<std::string, std::string>> velhas;
  std::vector<std::string> nenhuma;
  void Def(const char* k, const std::string& v) {
    const char* o = std::getenv(k);
    if (o) velhas.emplace_back(k, o);
    else nenhuma.push_back(k);
    setenv(k, v.c_str(), 1);
  }
  ~Amb() {
    for (auto& [k, v] : velhas) setenv(k.c_str(), v.c_str(), 1);
    for (auto& k : nenhuma) unsetenv(k.c_str());
  }
};

}  // namespace

// An argument is quoted when it must be, its quotes, backquotes, dollars and
// backslashes escaped inside, and % doubled in and out of quotes; the line is then
// escaped once more as a value, so a backslash is four in the file.
TEST(Atl, ExecQuotesByTheEntryRules) {
  EXPECT_EQ(AtlArgCit(u"plain"), u"plain");
  EXPECT_EQ(AtlArgCit(u""), u"\"\"");
  EXPECT_EQ(AtlArgCit(u"a b"), u"\"a b\"");
  EXPECT_EQ(AtlArgCit(u"100%"), u"100%%");
  EXPECT_EQ(AtlArgCit(u"%f"), u"%%f");  // never a field code
  EXPECT_EQ(AtlArgCit(u"50% off"), u"\"50%% off\"");
  EXPECT_EQ(AtlArgCit(u"$HOME"), u"\"\\$HOME\"");
  EXPECT_EQ(AtlArgCit(u"say \"hi\""), u"\"say \\\"hi\\\"\"");
  EXPECT_EQ(AtlArgCit(u"a`b"), u"\"a\\`b\"");
  EXPECT_EQ(AtlArgCit(u"C:\\x"), u"\"C:\\\\x\"");
  for (const char16_t* c : {u"a;b", u"a|b", u"a&b", u"a>b", u"a<b", u"~", u"a*", u"a?", u"#a", u"(a)", u"it's"})
    EXPECT_EQ(AtlArgCit(c)[0], u'"') << std::string(TxUtf8(c));
  EXPECT_EQ(AtlValCit(u"\"C:\\\\x\"\n\t"), u"\"C:\\\\\\\\x\"\\n\\t");
  EXPECT_EQ(AtlValCit(u" lead"), u"\\slead");
}

TEST(Atl, ApplicationLauncherPassesTheValidator) {
  if (!HaValidador()) GTEST_SKIP() << "desktop-file-validate is not installed (scripts/deps.sh)";
  std::string d = PastaTmp();
  ASSERT_EQ(mkdir((d + "/my progs").c_str(), 0755), 0);
  Programa(d + "/my progs/app 1");
  std::ofstream(d + "/my progs/app 1.png") << "png";
  Atl s{TxDeUtf8(d + "/my progs/app 1.exe"), u"--file \"C:\\Dados\\a b.txt\" 100% $HOME 'q' --x=`id`",
        TxDeUtf8(d + "/my progs"), TxDeUtf8(d + "/my progs/app 1.exe,0"), u"Notas, contas e ção"};
  ASSERT_EQ(AtlGra(TxDeUtf8(d + "/menu/Bloco de Notas.lnk"), s, false), 0);
  std::string f = d + "/menu/Bloco de Notas.desktop";
  std::string t = Le(f);
  EXPECT_EQ(Valida(f), "") << t;
  EXPECT_EQ(t.rfind("[Desktop Entry]\n", 0), 0u);
  EXPECT_EQ(Chave(t, "Type"), "Application");
  EXPECT_EQ(Chave(t, "Name"), "Bloco de Notas");
  EXPECT_EQ(Chave(t, "Comment"), "Notas, contas e ção");  // UTF-8
  // the .exe that is not there is the program beside it without the extension
  EXPECT_EQ(Chave(t, "Exec"), "\"" + d + "/my progs/app 1\" --file \"C:\\\\\\\\Dados\\\\\\\\a b.txt\" 100%% \"\\\\$HOME\" "
                              "\"'q'\" \"--x=\\\\`id\\\\`\"");
  EXPECT_EQ(Chave(t, "TryExec"), d + "/my progs/app 1");
  EXPECT_EQ(Chave(t, "Path"), d + "/my progs");
  EXPECT_EQ(Chave(t, "Icon"), d + "/my progs/app 1.png");  // the image beside the program
  struct stat st;
  ASSERT_EQ(stat(f.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0644u);
  EXPECT_EQ(access((d + "/menu/Bloco de Notas.lnk").c_str(), F_OK), -1);
}

// Relative paths are taken from the working folder, a missing program is still
// written (the menu hides it through TryExec until it exists), a document or a
// folder opens through xdg-open, and a program shortcut without a target fails.
TEST(Atl, RelativeMissingAndDocumentTargets) {
  if (!HaValidador()) GTEST_SKIP() << "desktop-file-validate is not installed (scripts/deps.sh)";
  std::string d = PastaTmp();
  char velha[4096];
  ASSERT_NE(getcwd(velha, sizeof velha), nullptr);
  ASSERT_EQ(chdir(d.c_str()), 0);
  mkdir("bin", 0755);
  std::ofstream("leia-me.txt") << "x";
  Atl s{u"bin\\falta", u"", u"bin", u"icons\\zun.ico,2", u""};
  int e1 = AtlGra(u"a\\Falta.lnk", s, false);
  Atl doc{u"leia-me.txt", u"--ignored", u"", u"accessories-text-editor", u""};
  int e2 = AtlGra(u"a/Leia.lnk", doc, false);
  Atl nada{u"", u"", u"", u"", u""};
  int e3 = AtlGra(u"a/Nada.lnk", nada, false);
  ASSERT_EQ(chdir(velha), 0);
  ASSERT_EQ(e1, 0);
  ASSERT_EQ(e2, 0);
  EXPECT_EQ(e3, 5);
  EXPECT_EQ(access((d + "/a/Nada.desktop").c_str(), F_OK), -1);

  std::string t = Le(d + "/a/Falta.desktop");
  EXPECT_EQ(Valida(d + "/a/Falta.desktop"), "") << t;
  EXPECT_EQ(Chave(t, "Exec"), d + "/bin/falta");
  EXPECT_EQ(Chave(t, "TryExec"), d + "/bin/falta");
  EXPECT_EQ(Chave(t, "Path"), d + "/bin");
  EXPECT_EQ(Chave(t, "Icon"), d + "/icons/zun.ico");  // an icon file named by its path, the index dropped

  t = Le(d + "/a/Leia.desktop");
  EXPECT_EQ(Valida(d + "/a/Leia.desktop"), "") << t;
  EXPECT_EQ(Chave(t, "Exec"), "xdg-open " + d + "/leia-me.txt");
  EXPECT_EQ(Chave(t, "TryExec"), "");
  EXPECT_EQ(Chave(t, "Icon"), "accessories-text-editor");  // a theme's name stays
}

TEST(Atl, IconsAndLinks) {
  std::string d = PastaTmp();
  Programa(d + "/zun");
  EXPECT_EQ(AtlIco(TxDeUtf8(d + "/zun.exe,0")), u"");  // no image to take: the desktop's own
  std::ofstream(d + "/zun.svg") << "<svg/>";
  EXPECT_EQ(AtlIco(TxDeUtf8(d + "/zun.exe,0")), TxDeUtf8(d + "/zun.svg"));
  EXPECT_EQ(AtlIco(TxDeUtf8("\"" + d + "/a b.ico\",-3")), TxDeUtf8(d + "/a b.ico"));
  EXPECT_EQ(AtlIco(u",0"), u"");

  Atl u{u"https://example.org/notas?a=1&b=50%", u"", u"", u"", u""};
  ASSERT_EQ(AtlGra(TxDeUtf8(d + "/Sítio.URL"), u, true), 0);
  std::string t = Le(d + "/Sítio.desktop");
  EXPECT_EQ(Chave(t, "Type"), "Link");
  EXPECT_EQ(Chave(t, "URL"), "https://example.org/notas?a=1&b=50%");
  EXPECT_EQ(Chave(t, "Name"), "Sítio");
  if (HaValidador()) {
    EXPECT_EQ(Valida(d + "/Sítio.desktop"), "") << t;
  }
}

// The user's folders follow XDG_* and user-dirs.dirs; a launcher on the desktop
// is made executable, as desktops require before they run it, and a replaced one
// keeps the mode it had.
TEST(Atl, SpecialFoldersAndTheDesktopsMode) {
  std::string d = PastaTmp();
  Amb a;
  a.Def("HOME", d + "/home");
  a.Def("XDG_CONFIG_HOME", d + "/cfg");
  a.Def("XDG_DATA_HOME", d + "/data");
  a.Def("XDG_DATA_DIRS", "relativa:" + d + "/sys/share/:/usr/share");
  a.Def("XDG_CONFIG_DIRS", d + "/sys/xdg");
  unsetenv("XDG_DESKTOP_DIR");
  mkdir((d + "/cfg").c_str(), 0755);
  std::ofstream(d + "/cfg/user-dirs.dirs") << "# xdg-user-dirs\nXDG_DESKTOP_DIR=\"$HOME/Área de trabalho\"\n"
                                              "XDG_DOCUMENTS_DIR=\"" + d + "/docs\"\n";
  EXPECT_EQ(DirEspCon(u"desktop"), TxDeUtf8(d + "/home/Área de trabalho"));
  EXPECT_EQ(DirEspCon(u"MyDocuments"), TxDeUtf8(d + "/docs"));
  EXPECT_EQ(DirEspCon(u"Templates"), TxDeUtf8(d + "/home/Templates"));
  EXPECT_EQ(DirEspCon(u"Programs"), TxDeUtf8(d + "/data/applications"));
  EXPECT_EQ(DirEspCon(u"StartMenu"), TxDeUtf8(d + "/data/applications"));
  EXPECT_EQ(DirEspCon(u"Startup"), TxDeUtf8(d + "/cfg/autostart"));
  EXPECT_EQ(DirEspCon(u"AppData"), TxDeUtf8(d + "/cfg"));
  EXPECT_EQ(DirEspCon(u"Favorites"), u"");
  EXPECT_EQ(DirEspCon(u"AllUsersFonts"), u"");
  bool raiz = geteuid() == 0;
  EXPECT_EQ(DirEspCon(u"AllUsersPrograms"), TxDeUtf8(raiz ? d + "/sys/share/applications" : d + "/data/applications"));
  EXPECT_EQ(DirEspCon(u"AllUsersStartup"), TxDeUtf8(raiz ? d + "/sys/xdg/autostart" : d + "/cfg/autostart"));
  EXPECT_EQ(DirEspCon(u"Fonts"), TxDeUtf8(raiz ? d + "/sys/share/fonts" : d + "/data/fonts"));
  EXPECT_EQ(DirEspCon(u"AllUsersDesktop"), raiz ? Tx(u"/etc/skel/Desktop") : TxDeUtf8(d + "/home/Área de trabalho"));

  mode_t velha = umask(022);
  std::string mesa = d + "/home/Área de trabalho";
  Atl s{u"/bin/true", u"", u"", u"", u""};
  EXPECT_EQ(AtlGra(TxDeUtf8(mesa + "/Zun.lnk"), s, false), 0);
  EXPECT_EQ(AtlGra(DirEspCon(u"Programs") + u"/Zun.lnk", s, false), 0);
  umask(velha);
  struct stat st;
  ASSERT_EQ(stat((mesa + "/Zun.desktop").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0755u);
  ASSERT_EQ(stat((d + "/data/applications/Zun.desktop").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0644u);
  ASSERT_EQ(chmod((mesa + "/Zun.desktop").c_str(), 0700), 0);
  EXPECT_EQ(AtlGra(TxDeUtf8(mesa + "/Zun.lnk"), s, false), 0);
  ASSERT_EQ(stat((mesa + "/Zun.desktop").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0700u);
}
