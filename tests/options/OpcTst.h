// Helpers of the option-file tests: temporary files and a zone walk.
#pragma once
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include "TdaOpc.h"
#include "TstTmp.h"

namespace zw::tst {

inline std::string Dat(const char* nom) { return std::string(ZW_TEST_DATA) + "/" + nom; }

// Writes bytes to a file in the test's own temporary folder; its path as a text.
inline Tx TmpBytes(const char* nom, const std::string& b) {
  Escreve(FicTmp(nom), b);
  return FicTmpTx(nom);
}

// Writes a header of five comment lines and the lines, each ended by CR LF, in
// the given encoding.
inline Tx TmpPar(const char* nom, std::initializer_list<const char16_t*> lin, Cod cod = Cod::W1252) {
  Tx t = u"'Nome : T\r\n'Tipo : par\r\n'Data :\r\n'Versao :\r\n'Descricao :\r\n";
  for (auto l : lin) t += Tx(l) + u"\r\n";
  return TmpBytes(nom, TxBytes(t, cod));
}

// One zone step, its results in a struct.
struct Zon {
  Tx ide, tip, des;
  int16_t n = 0;
};
inline Zon Seg(TdaOpc& o) {
  Zon z;
  o.ZonSeg(z.ide, z.tip, z.n, z.des);
  return z;
}

// The text an option query gives.
inline Tx Con(TdaOpc& o, const Tx& chv) {
  Var v{Tx()};
  o.OpcCon(chv, v);
  return v.Txt();
}
inline Tx Mem(TdaOpc& o, const Tx& chv, int16_t* exi = nullptr) {
  Var v{Tx()};
  int16_t e = 0;
  Tx tpp;
  o.MemCon(chv, v, e, tpp);
  if (exi) *exi = e;
  return v.Txt();
}

}  // namespace zw::tst
