// zunwiz-opc: a command-line tool for option-file authors. It shows what the
// wizard's reader sees in a file (dump), answers an option query as the wizard
// would after reading the whole file (get), and changes or adds one variable in
// place, leaving the rest of the file as it was (set).
//
// Exit status: 0 done; 1 an option file the reader fails on; 2 the file cannot be
// read (missing, not a regular file, unreadable, too large); 3 it cannot be
// written (permission, disk full, file-size limit), and then it is as it was;
// 64 wrong arguments. Every failure says why on the standard error.
#include <cmath>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>
#include "FicGlb.h"
#include "TdaOpc.h"
#include "TxtGlb.h"

using namespace zw;

namespace {

int Uso() {
  std::fputs(
      "usage: zunwiz-opc dump FILE [KEY=value ...]\n"
      "       zunwiz-opc get FILE KEY [--subst] [KEY=value ...]\n"
      "       zunwiz-opc set FILE KEY VALUE\n",
      stderr);
  return 64;
}

// What --help prints: the three commands and the exit statuses.
int Ajuda() {
  std::fputs(
      "usage: zunwiz-opc dump FILE [KEY=value ...]\n"
      "       zunwiz-opc get FILE KEY [--subst] [KEY=value ...]\n"
      "       zunwiz-opc set FILE KEY VALUE\n"
      "dump shows what the wizard's reader sees in FILE, as JSON; get answers an option\n"
      "as the wizard would after reading the whole file (--subst replaces its bracket\n"
      "words); set changes or adds one variable in place. KEY=value words override\n"
      "the file's options.\n"
      "\n"
      "Exit status: 0 done; 1 the reader fails on the file; 2 the file cannot be read;\n"
      "3 it cannot be written (it is then as it was); 64 wrong arguments.\n",
      stdout);
  return 0;
}


// A JSON number; what JSON cannot hold (infinity, NaN) becomes null.
std::string Jn(double d) {
  if (!std::isfinite(d)) return "null";
  char b[40];
  if (d == std::floor(d) && std::fabs(d) < 1e15)
    std::snprintf(b, sizeof b, "%.0f", d);
  else
    std::snprintf(b, sizeof b, "%.17g", d);
  return b;
}

// The words after the fixed arguments form the command line the reader sees.
Tx Linha(const std::vector<Tx>& pal) {
  Tx l;
  for (const Tx& p : pal) l += (l.empty() ? Tx() : Tx(u" ")) + p;
  return l;
}

// What a file-layer error number means to the user of the tool.
const char* Porque(int e) {
  switch (e) {
    case 0: case kErrFicNao: case kErrDirNao: return "file not found";
    case kErrPerm: return "permission denied";
    case kErrAces: return "not a regular file";
    case kErrIO: return "larger than 64 MiB, or an input/output error";
    case kErrDisco: return "disk full or file-size limit reached";
    default: return "file error";
  }
}

// A file the reader cannot open ends the tool with a one-line message.
bool Legivel(const Tx& fic) {
  int r = FicExi(fic);
  if (r == 1) return true;
  std::fprintf(stderr, "zunwiz-opc: cannot read %s (%s)\n", TxUtf8(fic).c_str(), Porque(-r));
  return false;
}

int Dump(TdaOpc& o, const Tx& fic) {
  std::string j = "{\"header\": [";
  o.ZonIni(fic, u"");
  for (int i = 1; i <= 5; i++) j += (i > 1 ? ", " : "") + TxJson(o.cabLin[i]);
  j += "],\n \"type\": " + TxJson(o.ficTip) + ",\n \"zones\": [";
  bool pri = true;
  for (;;) {
    Tx ide, tip, des;
    int16_t n = 0;
    o.ZonSeg(ide, tip, n, des);
    if (ide.empty()) break;
    j += pri ? "\n  " : ",\n  ";
    pri = false;
    j += "{\"id\": " + TxJson(ide) + ", \"kind\": " + TxJson(tip) + ", \"description\": " + TxJson(des) +
         ", \"special\": " + TxJson(o.opcEsp) + ", \"count\": " + std::to_string(n);
    if (tip == u"IDE") {
      j += ", \"rows\": [";
      for (int i = 1; i <= n; i++) {
        const ParReg& r = o.memTab[i];
        j += std::string(i > 1 ? ",\n" : "\n") + "    {\"label\": " + TxJson(r.txi) + ", \"name\": " + TxJson(r.var) +
             ", \"value\": " + TxJson(r.vtx) + ", \"number\": " + Jn(r.vnu) + ", \"type\": " + TxJson(r.tpp) + "}";
      }
      j += n ? "\n  ]}" : "]}";
    } else {
      j += ", \"lines\": [";
      for (int i = 1; i <= n; i++) j += std::string(i > 1 ? ",\n" : "\n") + "    " + TxJson(o.regLin[i]);
      j += n ? "\n  ]}" : "]}";
    }
  }
  o.ZonFim();
  j += pri ? "]}\n" : "\n ]}\n";
  std::fputs(j.c_str(), stdout);
  return 0;
}

int Get(TdaOpc& o, const Tx& fic, const Tx& chv, bool sbr) {
  o.ZonIni(fic, u"");
  for (;;) {
    Tx ide, tip, des;
    int16_t n = 0;
    o.ZonSeg(ide, tip, n, des);
    if (ide.empty()) break;
  }
  o.ZonFim();
  Var v{Tx()};
  o.OpcCon(chv, v);
  Tx t = v.Txt();
  if (sbr) o.OpcSbr(t);
  std::fputs((TxUtf8(t) + "\n").c_str(), stdout);
  return 0;
}

int Set(TdaOpc& o, const Tx& fic, const Tx& chv, const Tx& val) {
  int32_t n = 0;
  o.RegPrp(fic, n);
  o.RegVarAlt(chv, Var(val), 2);
  if (int e = o.RegExe(fic, 1)) {
    std::fprintf(stderr, "zunwiz-opc: cannot write %s (%s); it is unchanged\n", TxUtf8(fic).c_str(), Porque(e));
    return 3;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Tx> a;
  for (int i = 1; i < argc; i++) a.push_back(TxDeUtf8(argv[i]));
  if (a.size() == 1 && a[0] == u"--version") {
    std::printf("zunwiz-opc %s\n", ZW_VERSAO);
    return 0;
  }
  if (a.size() == 1 && a[0] == u"--help") return Ajuda();
  if (a.size() < 2) return Uso();
  const Tx& cmd = a[0];
  const Tx& fic = a[1];
  FicSepDef(u"/");  // file names on the command line are Linux paths: "ParDir"/"ParFic" split at "/"
  try {
    if (cmd == u"dump") {
      if (!Legivel(fic)) return 2;
      TdaOpc::LcLin = Linha({a.begin() + 2, a.end()});
      TdaOpc o;
      return Dump(o, fic);
    }
    if (cmd == u"get") {
      if (a.size() < 3) return Uso();
      if (!Legivel(fic)) return 2;
      bool sbr = false;
      std::vector<Tx> pal;
      for (size_t i = 3; i < a.size(); i++) {
        if (a[i] == u"--subst")
          sbr = true;
        else
          pal.push_back(a[i]);
      }
      TdaOpc::LcLin = Linha(pal);
      TdaOpc o;
      return Get(o, fic, a[2], sbr);
    }
    if (cmd == u"set") {
      if (a.size() != 4) return Uso();
      if (!Legivel(fic)) return 2;
      TdaOpc o;
      return Set(o, fic, a[2], a[3]);
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "zunwiz-opc: %s: %s\n", TxUtf8(fic).c_str(), e.what());
    return 1;
  }
  return Uso();
}
