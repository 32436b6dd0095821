// Atl: shortcuts (atalhos) written as freedesktop.org launchers.
// A Windows shortcut ".lnk" becomes a Desktop Entry file of Type=Application
// beside it, with ".desktop" in place of ".lnk"; an Internet shortcut ".url" one
// of Type=Link. The file is UTF-8, its name gives the entry's Name, and it is
// written through the safe writer (FicGra.h): new files made with O_EXCL and no
// link followed, a replaced file keeping its mode. Launchers are 0644, those on a
// desktop 0755, since desktops run only launchers marked executable.
#pragma once
#include <string>
#include <vector>
#include "Tx.h"

namespace zw {

struct Atl {
  Tx alvo;   // program, document or folder (Windows or Linux path); the URL of a link
  Tx args;   // a Windows command line of arguments, cut into words by PrcPal
  Tx dir;    // working folder
  Tx icone;  // "file[,index]", or an icon name of the theme
  Tx des;    // description, written as Comment
};

// The Linux path of the launcher for a shortcut's path: "a\b.lnk" gives
// "/.../a/b.desktop" (absolute, from the working folder), a name without ".lnk"
// or ".url" gets ".desktop" added.
std::string AtlFic(const Tx& lnk);
// The program or document a target names, as a launcher must have it: Windows
// paths made Linux ones and absolute, "x.exe" that does not exist taken as "x"
// when that one does; a bare name (no separator) that names nothing in the working
// folder stays, for the desktop to find in PATH.
Tx AtlAlvo(const Tx& alvo);
// One argument quoted by the Desktop Entry rules for Exec: quoted when it is
// empty or holds a reserved character, `"` `` ` `` `$` `\` escaped inside the
// quotes, and every % doubled so that no field code is read into it.
Tx AtlArgCit(const Tx& a);
// A text as a Desktop Entry value: \s for a leading blank, \n \t \r \\ escaped.
Tx AtlValCit(const Tx& v);
// The icon for IconLocation: an image file's absolute path (".ico", ".png",
// ".svg", ".xpm"), the index dropped; for a program or library, an image of the
// same name beside it, else none (""); a bare name stays as a theme icon name.
Tx AtlIco(const Tx& ico);
// The whole Desktop Entry text for a shortcut named nome: an application when
// url is false, a link to s.alvo when true.
std::string AtlTx(const Atl& s, const Tx& nome, bool url);
// Writes the launcher of the shortcut path lnk (see AtlFic), making its folder
// when it is missing. 0, or the file layer's error number; 5 when a program
// shortcut has no target.
int AtlGra(const Tx& lnk, const Atl& s, bool url);

}  // namespace zw
