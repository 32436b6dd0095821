// WizGlb: the process-wide variables that the start-up fills and the engine reads.
// They live here, below the program, so that the engine and the script bridge
// see the same cells that the start-up set.
#pragma once
#include "Var.h"

namespace zw {

// Filled by the start-up.
extern Var RegRaiz;  // default root of registry reads: 0x80000002 (HKEY_LOCAL_MACHINE)
extern Tx WizFpa;    // full path of the option file
extern Tx LtrCd;     // drive letter, or share root, of the option file's folder
extern Tx DrvCd;     // LtrCd followed by ":", or the share root as it stands
extern Tx DirPgm;    // folder of the option file
extern Tx DirBas;    // base folder; nothing assigns it
extern Tx DirWiz;    // wizard folder read by the word "DIRWIZ"; nothing assigns it

// Filled by the reading of the option file.
extern Tx DbgModo, ImgFun, ImgIco, TitWiz, MsgCan;
extern Var DimX, DimY;  // twips as a number, or the text "AUTO"
extern Tx TraPosAnt, TraPosSeg, TraPosCnf, TraPosCan;

}  // namespace zw
