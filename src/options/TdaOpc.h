// TdaOpc: the option file, read and written.
// One object per use. It holds the rows of the zone read last, the option tables
// that outlive a zone, the command-line words and a stack of open files; what a
// caller asks by key is answered from the zone in hand. Positions and counts are
// 16-bit, as the format has them; a run-time fault that the format leaves to the
// caller (a row count past 32767, an array bound) comes out as a C++ exception.
#pragma once
#include <array>
#include <cstdint>
#include <vector>
#include "GlbVar.h"
#include "Tx.h"
#include "Var.h"

namespace zw {

// The record of one parsed line.
struct ParReg {
  Tx txp;           // the whole logical line
  Tx txi;           // the label
  Tx tpp;           // the line's type code: "?", "", "'", "#", "##", "$", "$$", "="
  Tx var;           // the name, trimmed, in capitals
  Tx vtx;           // the value
  int16_t ptx = 0;  // position of the value's first character; 0 without a value
  double vnu = 0;   // leading-number reading of vtx
  int16_t exi = 0;  // 1 when the line was read, 0 at end of file
  int32_t lin = 0;  // line of the file where the logical line begins (1 the first)
};

// The key index of a zone: case-blind keys (brought to capitals and trimmed by the
// caller), the first position of a key wins, positions 1 to 32000 only. The keys
// stand one after another in one text, as an index text has them, and an
// open-addressing hash over them finds a key without walking the others.
class OpcIdx {
 public:
  void Lpz();
  bool Vazio() const { return ent_.empty(); }
  void Adi(TxV chv, int32_t p);  // no entry for p outside 1..32000 or a key already there
  int32_t Psq(TxV chv) const;    // the position, or 0
  size_t Num() const { return ent_.size(); }

 private:
  struct Ent {
    size_t h;
    uint32_t ini, len;
    int32_t pos;
  };
  Tx blk_;                   // the keys, one after another
  std::vector<Ent> ent_;     // entries in the order they came
  std::vector<uint32_t> tab_;  // slots: entry number + 1, 0 when free; size a power of 2
  // The slot of a key: its entry's slot when present, else the free slot to use.
  size_t Slot(TxV chv, size_t h) const;
};

// A directory group: three columns (name, value, label), each a column of rows from 0.
using GrpDir = std::array<std::vector<Tx>, 3>;
// One entry of tbOpcLst: label, state, code, value.
using TbOpcEnt = std::array<Tx, 4>;

class TdaOpc {
 public:
  TdaOpc();   // FxIni
  ~TdaOpc();  // FxFim
  TdaOpc(const TdaOpc&) = delete;
  TdaOpc& operator=(const TdaOpc&) = delete;

  // The executable's folder: what "[APP:PATH]" gives and where LcPrpFpa looks for
  // the default file; the folder of the running executable unless set. (The
  // option file's folder is the wizard's DirPgm, another thing.)
  static Tx DirApp;
  // The command line (whole text) whose "KEY=value" words a reader lays over the
  // "DEF" options: each reader's own (LcLinDef), LcLin until it is given one.
  static Tx LcLin;
  void LcLinDef(const Tx& lin) { lcLin_ = lin; }

  Tx ficTbo, ficTip, LcFpa;
  int16_t LcArgC = 0;
  Tx vzoPsqVdi, vzoPsqIde, vzoPsqTip, vzoPsqDes;
  int16_t vobUsa = 0;
  Tx vobGer, vobReg;
  ParReg parAct;
  std::vector<ParReg> memTab;    // rows of the current zone; row 0 is never filled
  std::vector<ParReg> opcTabReg; // rows of the OPC zone; vnu is a selection mark
  std::vector<TbOpcEnt> tbOpcLst;
  int16_t tbOpcVer = 0;
  std::vector<Tx> cabLin;        // header lines 1 to 5
  std::vector<Tx> regLin;        // last TX/ZTX body, or a file held for editing
  std::vector<int32_t> regLinNum; // file line where each line of a TX/ZTX body begins
  int32_t zonLin = 0;            // file line of the last zone head read
  Tx opcEsp;
  int16_t opcCnvChr = 1;

  // ---- reading (OpcLer.cpp)
  static void ParTpp(const Tx& lin, Tx& tpp, Tx& var);
  static void ParPrep(const Tx& lin, Tx& txi, Tx& var, Tx& vtx, int16_t& ptx);
  static void ParTipVar(const Tx& nom, Tx& tip, Tx& var);
  void LerPar(Var& val, Tx& nom);
  void ParLerTip(Tx& tpp, int16_t& exi);
  void ParLerVar(int16_t& exi);
  void ParLer(int16_t& exi);
  void ParLerLit(Tx& lin, int16_t& exi);
  void ZonCabLer(Tx& ide, Tx& tip, Tx& des);

  // ---- file in use and file stack (OpcLer.cpp)
  void tboFic(const Tx& fic) { ficTbo = fic; }
  void tboPrp(const Tx& fic, const Tx& lbl);
  void tboFim();
  void CabLer(const Tx& fic, const Tx& lbl);
  int16_t FicPilNum() const { return int16_t(ficPil.size() - 1); }
  void FicPilAdi(int16_t& num);
  void FicPilFim(int16_t& top);
  void FicPilAct(int16_t& num) const;

  // ---- memory (OpcMem.cpp)
  void MemLpz();
  void MemFim() { MemLpz(); }
  void MemReg(int16_t& cnt, int16_t flg);
  void MemIdxUsa(const Var& chv, int32_t& row) const;
  void MemCon(const Tx& chv, Var& val, int16_t& exi, Tx& tpp);
  void MemConIdx(int32_t row, Tx& var, Var& val, Tx& tpp, int16_t& exi);
  void MemConTxp(const Var& chv, Tx& txp, int16_t& exi);
  void MemConVop(const Var& chv, Var& val, Tx& nom);
  void MemCmp(const Var& chv, Tx& txi, Tx& nom, Var& val, int16_t& exi);
  void MemSN(const Tx& chv, Var& sn);
  void MemPath(const Tx& chv, Tx& txt, int16_t& exi, Tx& tpp);
  void MemOpcPrp(const Tx& lin, int16_t exi);
  void MemOpcReg(const Tx& chv, const Var& val);
  bool MemIdxVazio() const { return memIdx.Vazio(); }
  static void GrpDirIni(GrpDir& g);
  static void GrpDirLib(GrpDir& g);
  static void GrpDirNum(const GrpDir& g, int16_t& n);
  void GrpDirCon(GrpDir& g, int16_t n);
  void GrpDirReg(const GrpDir& g, int16_t n);

  // ---- zones (OpcZon.cpp)
  void ZonIni(const Tx& fic, const Tx& lbl);
  Tx ZonIniExi(const Tx& fic, const Tx& lbl);
  void ZonIniLer(const Tx& fic, const Tx& lbl);
  void ZonSeg(Tx& ide, Tx& tip, int16_t& cnt, Tx& des);
  void ZonFim();
  void ZonArr(const Tx& mod, int16_t cnt, IdxTab& tab);                         // "IDE", "IDEx"
  void ZonArr(const Tx& mod, int16_t cnt, std::vector<std::array<Tx, 3>>& mul);  // "MUL"
  void ZonArr(const Tx& mod, int16_t cnt, std::vector<Tx>& arr);                 // "FIC", others
  static void ZonIde(const Tx& lin, Tx& ide, Tx& tip, Tx& des);
  static void ZonCabDiv(const Tx& lin, Tx& ide, Tx& kw, Tx& des);  // the parts of a head
  void ZonSegIde(int16_t& cnt);
  void ZonSegTx(int16_t& cnt);
  void ZonSegZtx(int16_t& cnt);
  void ZonDefPrp(int16_t cnt);
  void ZonOpcPrp(int16_t cnt);

  // ---- option values (OpcVal.cpp)
  void OpcIni(const Tx& mod);
  void OpcPrp(int16_t cnt);
  void OpcAct(const Tx& chv, const Var& val);
  void OpcFixAct(const Tx& chv, const Var& val);
  void OpcCon(const Tx& chv, Var& val);
  void OpcVop(const Tx& chv, Var& val, int16_t& exi);
  void OpcFixCon(const Tx& chv, Var& val, int16_t& exi);
  void opcUsa(const Tx& chv, Var& val, int16_t& exi);
  void OpcSN(const Tx& chv, Var& sn);
  void OpcPath(const Tx& chv, Tx& txt);
  void OpcSbr(Tx& txt);
  void OpcSbr(const Tx& txt, Tx& res);
  void OpcArr(int16_t cnt, std::vector<Tx>& arr);
  void OpcDbg(const Tx& chv, Var& val, int16_t mod);
  void LcIni(const Tx& fic);
  void LcPrpArg(const Tx& lin);
  void LcCon(const Var& chv, Var& val, int16_t& exi);
  void LcExi(const Tx& sw, int16_t& pos);
  void LcPrpFpa(const Tx& fic);
  void LcRegVar();
  int16_t OpcTabPrp(const Tx& lis);
  void OpcTabCon(Tx& txi, Tx& vtx, Tx& nom);
  void tbOpcVob(int16_t sw) { tbOpcVer = sw; }
  void tbOpcPrp(const Tx& fic, const Tx& flt, const Tx& lbl, int16_t& cnt);
  void tbOpcPro(std::vector<std::array<Tx, 10>>& tab, int16_t& cnt, int16_t max);
  void FpaPsq(const Tx& dir, const Tx& msc, std::vector<std::array<Tx, 3>>& tab, int16_t& cnt);
  void OpcEspIni();
  void OpcEspUsa(Tx& des, int16_t& exi);
  void OpcEspCon(const Tx& chv, Var& val);

  // ---- writing (OpcGra.cpp)
  void CabPrp(const Tx& tip, const Var& dt, const Tx& ver, const Tx& des);
  void CabCri(int16_t fec);
  void CabCon(const Tx& mod, int16_t n, Tx& txt) const;
  static void CabOpcNfi(const Tx& fic, Tx& nom);
  static void CabOpcTip(const Tx& tip, Tx& txt);
  static void CabOpcDt(const Var& dt, Tx& txt);
  void RegFicPrp(const Tx& fic);
  void RegFim();
  void RegTx(const Tx& lin);
  void RegNls(int16_t n);
  void RegSep(const Tx& chr);
  void RegGrpCabVer();
  void RegGrpVer(const Tx& ver, const Tx& dt, const Tx& txt, int16_t nls);
  void RegGrpCabDef();
  void RegGrpCab(const Tx& ide, const Tx& tip, const Tx& des);
  void RegGrpFim();
  void RegGrpOpc(const Tx& nom, const Tx& txi, const Var& val, int16_t lar);
  void RegGrpOpa(const Tx& nom, const Tx& txi, const Var& val, int16_t lar);
  static Tx RegOpcPrp(const Tx& nom, const Tx& txi, const Var& val, int16_t lar);
  void RegZonIdt(const Tx& ide, const Tx& tip, const std::vector<Tx>& lin, const Tx& des);
  void RegZon(const Tx& cab, const std::vector<Tx>& lin, const Tx& des);
  void RegPrp(const Tx& fic, int32_t& nli);
  void RegCon(const Tx& chv, Var& val, int16_t& exi);
  void RegConIdx(int32_t n, Tx& txt) const;
  void RegVarAlt(const Tx& chv, const Var& val, int16_t cri);
  void RegVarEli(const Tx& chv);
  void RegCabAct(const Tx& cpo, const Var& val);
  void RegCabAlt(int32_t n, const Tx& txt);
  // Writes the held file back; 0, or the file layer's error number (the file is
  // then as it was).
  int RegExe(const Tx& fic, int16_t lpz);
  void RegZonCon(Tx& ide, std::vector<Tx>& lin, int32_t& cnt);
  void RegZonIdz(std::vector<Tx>& ides, int16_t& cnt);
  static void RegZonRed(std::vector<Tx>& lin, int32_t& ult);
  void RegZonPsq(const Tx& ide, int32_t& pri, int32_t& cnt);
  void RegZonCtx(const Tx& ide, std::vector<Tx>& lin, int32_t& cnt);
  void RegZonCop(const Tx& ide);
  void RegZonCab(const Tx& mod);
  void RegZonMatPrp(const Tx& ide);
  void RegZonMatAct(const Tx& chv, const Var& val, int16_t cri);
  void RegZonMatReg(const Tx& nom);

  // The date that CabOpcDt gives by default (the shared date variable): a zero
  // date unless a caller assigns one, as year, month, day.
  static std::array<int, 3> DatOmi;

 private:
  Tx stamp_;  // instance stamp of the debug trace
  IdxTab opcGer, opcFix;
  OpcIdx memIdx, matIdx;
  std::vector<int16_t> ficPil{0};  // file numbers; element 0 unused
  std::vector<int32_t> ficLin{0};  // lines read so far from each file of the stack
  std::vector<Tx> lcArg;           // 0 the whole line, 1..LcArgC the words
  std::vector<Tx> matLin;
  bool lcPrp_ = false;             // the word list exists (LcPrpArg ran)
  Tx lcLin_ = LcLin;               // the command line LcIni takes
  bool opcGerOk_ = false;          // opcGer is whole (OpcIni "A" or OpcPrp), not reduced
  Cod regCod_ = Cod::W1252;        // encoding of the file held for editing
  std::vector<std::string> regByt_;  // the bytes each line of it had when read
  // RegZonCon's place between calls.
  int16_t rzcIni_ = 0;
  int32_t rzcPos_ = 0;

  bool LinLer(Tx& lin);                        // one physical line from the top file
  static void VarVal(const ParReg& r, Var& val);  // vtx for a text holder, else vnu
  void VarAltLin(std::vector<Tx>& lin, OpcIdx& idx, const Tx& chv, const Var& val, int16_t cri);
  static void IdxLinAdi(OpcIdx& idx, const Tx& lin, int32_t n);
};

}  // namespace zw
