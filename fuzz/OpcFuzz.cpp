// Fuzz target of the option-file reader: the input is a whole option file. It is
// walked zone by zone as the wizard walks it, every row is queried by key and by
// number, options are substituted, and the file is loaded for editing, changed and
// written back. Run-time faults that the format hands to its caller (a position or
// row count past 32767, a change of the file's last line) come out as exceptions
// and are accepted; anything else (a crash, a sanitizer report, a hang) is a fault.
#include <unistd.h>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string>
#include "TdaOpc.h"
#include "TxtGlb.h"

using namespace zw;

namespace {

std::string Tmp(const char* s) {
  const char* d = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
  return std::string(d) + "/zw_fuzz_opc_" + std::to_string(getpid()) + s;
}

void Walk(const Tx& fic) {
  TdaOpc o;
  o.ZonIni(fic, u"");
  for (int z = 0; z < 10000; z++) {
    Tx ide, tip, des;
    int16_t n = 0;
    o.ZonSeg(ide, tip, n, des);
    if (ide.empty()) break;
    for (int16_t i = 1; i <= n && size_t(i) < o.memTab.size(); i++) {
      Var t{Tx()}, d{0.0};
      int16_t e = 0;
      Tx tpp, nom, lab, txt;
      o.MemCon(o.memTab[i].var, t, e, tpp);
      o.MemConIdx(i, nom, d, tpp, e);
      o.MemCmp(Var(i), lab, nom, t, e);
      o.MemPath(o.memTab[i].var, txt, e, tpp);
      Var s{Tx()};
      o.OpcCon(o.memTab[i].var, s);
      o.OpcSN(o.memTab[i].var, s);
    }
    std::vector<Tx> arr;
    std::vector<std::array<Tx, 3>> mul;
    o.ZonArr(u"MUL", tip == u"IDE" ? n : 0, mul);
    o.ZonArr(tip == u"IDE" ? u"FIC" : u"TX", n, arr);
    if (ide == u"OPC") {
      o.OpcTabPrp(u"*");
      Tx a, b, c;
      o.OpcTabCon(a, b, c);
    }
  }
  o.ZonFim();
}

void Edit(const Tx& fic, const Tx& out) {
  TdaOpc o;
  int32_t n = 0;
  o.RegPrp(fic, n);
  std::vector<Tx> ides;
  int16_t c = 0;
  o.RegZonIdz(ides, c);
  int32_t pri = 0, cnt = 0;
  std::vector<Tx> lin;
  Tx ide;
  int32_t k = -1;
  for (int i = 0; i < 50; i++) {
    o.RegZonCon(ide, lin, k);
    if (k == 0) break;
  }
  if (c > 0) {
    o.RegZonPsq(ides[1], pri, cnt);
    o.RegZonCtx(ides[1], lin, cnt);
  }
  o.RegCabAct(u"VER", Var(Tx(u"+")));
  o.RegCabAct(u"INF", Var(Tx(u"x")));
  o.RegVarEli(u"B");
  o.RegVarAlt(u"A", Var(Tx(u"novo")), 2);
  o.RegExe(out, 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string in = Tmp(".par"), out = Tmp(".out");
  if (FILE* f = std::fopen(in.c_str(), "wb")) {
    std::fwrite(data, 1, size, f);
    std::fclose(f);
  } else {
    return 0;
  }
  Tx fic = TxDeUtf8(in);
  try {
    Walk(fic);
  } catch (const std::exception&) {
  }
  try {
    Edit(fic, TxDeUtf8(out));
  } catch (const std::exception&) {
  }
  return 0;
}
