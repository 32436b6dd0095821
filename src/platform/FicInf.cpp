// File and volume information over stat, lstat, statvfs and statfs.
#include "FicInf.h"
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/vfs.h>
#include <cerrno>

namespace zw {

bool FicInfLer(const std::string& nat, FicInf& inf) {
  inf = FicInf();
  struct stat l;
  if (lstat(nat.c_str(), &l) != 0) {
    inf.err = errno;
    return false;
  }
  inf.lig = S_ISLNK(l.st_mode);
  struct stat st = l;
  if (inf.lig && stat(nat.c_str(), &st) != 0) {
    inf.err = errno;
    return false;
  }
  inf.tipo = S_ISREG(st.st_mode) ? kFicReg : S_ISDIR(st.st_mode) ? kFicDir : kFicOut;
  inf.modo = uint32_t(st.st_mode & 07777);
  inf.dono = uint32_t(st.st_uid);
  inf.grupo = uint32_t(st.st_gid);
  inf.ligs = uint64_t(st.st_nlink);
  inf.dev = uint64_t(st.st_dev);
  inf.ino = uint64_t(st.st_ino);
  inf.tam = int64_t(st.st_size);
  inf.tCri = int64_t(st.st_ctime);
  inf.tAce = int64_t(st.st_atime);
  inf.tMod = int64_t(st.st_mtime);
  return true;
}

int FicInfTip(const std::string& nat) {
  FicInf f;
  FicInfLer(nat, f);
  return f.tipo;
}

bool FicInfHa(const std::string& nat) {
  struct stat l;
  return lstat(nat.c_str(), &l) == 0;
}

bool VolInfLer(const std::string& nat, VolInf& v) {
  v = VolInf();
  struct statvfs sv;
  if (statvfs(nat.c_str(), &sv) != 0) return false;
  v.total = double(sv.f_blocks) * double(sv.f_frsize);
  v.livre = double(sv.f_bfree) * double(sv.f_frsize);
  v.disp = double(sv.f_bavail) * double(sv.f_frsize);
  v.serie = uint32_t(sv.f_fsid);
  struct statfs s;
  if (statfs(nat.c_str(), &s) == 0) v.tipoFs = uint32_t(s.f_type);
  return true;
}

}  // namespace zw
