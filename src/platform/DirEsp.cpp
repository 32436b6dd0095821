// The special folders of Windows scripts mapped to the freedesktop.org folders:
// the user's from the XDG_* variables and xdg-user-dirs' user-dirs.dirs, the
// system's (for the "AllUsers" names, when running as root) from XDG_DATA_DIRS
// and XDG_CONFIG_DIRS.
#include <pwd.h>
#include <unistd.h>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include "GlbReg.h"
#include "TxtGlb.h"

namespace zw {

namespace {

std::string Home() {
  const char* h = std::getenv("HOME");
  if (h && *h) return h;
  if (passwd* pw = getpwuid(getuid())) return pw->pw_dir;
  return "/";
}

// An XDG base folder: the variable when it holds an absolute path, else the
// default under the home folder.
std::string Base(const char* var, const char* omissao) {
  const char* v = std::getenv(var);
  if (v && *v == '/') return v;
  return Home() + omissao;
}

// The first absolute folder of a list variable (XDG_DATA_DIRS...), else the default.
std::string Primeira(const char* var, const char* omissao) {
  const char* v = std::getenv(var);
  std::string s = v ? v : "";
  size_t i = 0;
  while (i < s.size()) {
    size_t e = s.find(':', i);
    if (e == std::string::npos) e = s.size();
    std::string d = s.substr(i, e - i);
    while (d.size() > 1 && d.back() == '/') d.pop_back();
    if (!d.empty() && d[0] == '/') return d;
    i = e + 1;
  }
  return omissao;
}

// A user folder as xdg-user-dirs keeps it: the line XDG_NAME_DIR="..." of
// user-dirs.dirs ("$HOME/..." or an absolute path), else the variable of that
// name, else the home folder's subfolder that xdg-user-dirs makes by default.
std::string DirUsu(const char* nome, const char* omissao) {
  std::string var = std::string("XDG_") + nome + "_DIR";
  std::ifstream in(Base("XDG_CONFIG_HOME", "/.config") + "/user-dirs.dirs");
  std::string l, achado;
  while (std::getline(in, l)) {
    if (l.rfind(var + "=\"", 0) != 0) continue;
    size_t a = var.size() + 2, b = l.rfind('"');
    if (b == std::string::npos || b < a) continue;
    std::string v = l.substr(a, b - a);
    if (v.rfind("$HOME", 0) == 0) v = Home() + v.substr(5);
    if (!v.empty() && v[0] == '/') achado = v;  // the last line of a name wins, as in the shell
  }
  if (!achado.empty()) return achado;
  if (const char* e = std::getenv(var.c_str()); e && *e == '/') return e;
  return Home() + "/" + omissao;
}

const char* const kNomes[] = {"AllUsersDesktop", "AllUsersStartMenu", "AllUsersPrograms", "AllUsersStartup",
                              "Desktop", "Favorites", "Fonts", "MyDocuments", "NetHood", "PrintHood",
                              "Programs", "Recent", "SendTo", "StartMenu", "Startup", "Templates",
                              "AppData", nullptr};

// The folder new accounts' desktops are copied from: the nearest thing to a
// desktop of all users that freedesktop.org desktops have.
constexpr const char* kSkelDesk = "/etc/skel/Desktop";

}  // namespace

const char* const* DirEspNom() { return kNomes; }

Tx DirEspCon(const Tx& nome) {
  Tx n = TxMai(nome);
  bool todos = n.rfind(u"ALLUSERS", 0) == 0;
  if (todos) n = n.substr(8);
  // The "AllUsers" names are the system's folders only for root; any other user
  // installs for itself, so one script serves both.
  bool sis = todos && geteuid() == 0;
  std::string d;
  if (n == u"DESKTOP") {
    d = sis ? kSkelDesk : DirUsu("DESKTOP", "Desktop");
  } else if (n == u"PROGRAMS" || n == u"STARTMENU") {
    d = sis ? Primeira("XDG_DATA_DIRS", "/usr/local/share") + "/applications"
            : Base("XDG_DATA_HOME", "/.local/share") + "/applications";
  } else if (n == u"STARTUP") {
    d = sis ? Primeira("XDG_CONFIG_DIRS", "/etc/xdg") + "/autostart" : Base("XDG_CONFIG_HOME", "/.config") + "/autostart";
  } else if (todos) {
    return Tx();  // no other "AllUsers" name
  } else if (n == u"FONTS") {
    d = geteuid() == 0 ? Primeira("XDG_DATA_DIRS", "/usr/local/share") + "/fonts"
                       : Base("XDG_DATA_HOME", "/.local/share") + "/fonts";
  } else if (n == u"MYDOCUMENTS") {
    d = DirUsu("DOCUMENTS", "Documents");
  } else if (n == u"TEMPLATES") {
    d = DirUsu("TEMPLATES", "Templates");
  } else if (n == u"APPDATA") {
    d = Base("XDG_CONFIG_HOME", "/.config");
  } else {
    return Tx();  // Favorites, NetHood, PrintHood, Recent, SendTo: nothing like them
  }
  return TxDeUtf8(d);
}

bool DirEspMes(const std::string& nat) {
  std::string d = nat;
  while (d.size() > 1 && d.back() == '/') d.pop_back();
  return d == TxUtf8(DirEspCon(u"Desktop")) || d == kSkelDesk;
}

}  // namespace zw
