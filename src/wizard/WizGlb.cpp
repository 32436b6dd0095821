// The cells of the process-wide variables.
#include "WizGlb.h"

namespace zw {

Var RegRaiz;
Tx WizFpa, LtrCd, DrvCd, DirPgm, DirBas, DirWiz;
Tx DbgModo, ImgFun, ImgIco, TitWiz, MsgCan;
Var DimX, DimY;
Tx TraPosAnt, TraPosSeg, TraPosCnf, TraPosCan;

}  // namespace zw
