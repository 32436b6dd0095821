// The log class: header blocks, records in their registers, locks and clearing.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>
#include "FicGlb.h"
#include "GlbMsg.h"
#include "MsgDlg.h"
#include "MsgGrv.h"
#include "SupLogReg.h"
#include "TstTmp.h"

using namespace zw;

namespace {
class Log : public ::testing::Test {
 protected:
  void SetUp() override {
    char t[] = "/tmp/zwlogXXXXXX";
    dir_ = mkdtemp(t);
    log_.DirDef(TxAsc(dir_));
    log_.FxIni();
    log_.PrpApp(u"Teste 1.0");
  }
  void TearDown() override {
    log_.FxFim();
    FicFecTot();
    (void)!std::system(("rm -rf '" + dir_ + "'").c_str());
  }
  std::vector<std::string> Linhas(const char* f) {
    std::ifstream in(dir_ + "/" + f, std::ios::binary);
    std::vector<std::string> v;
    std::string l;
    while (std::getline(in, l)) {
      EXPECT_FALSE(l.empty() || l.back() != '\r') << "lines end in CR LF";
      if (!l.empty()) l.pop_back();
      v.push_back(l);
    }
    return v;
  }
  std::string dir_;
  tst::MsgGrv g_;
  SupLogReg log_;
};
}  // namespace

TEST_F(Log, HeaderBlocks) {
  Tx c = log_.PrpCab(u"*", u"", u"T");
  EXPECT_NE(c.find(u"Tipo       : INFO - T\r\n"), Tx::npos);
  EXPECT_NE(c.find(u"Programa   : Teste 1.0\r\n"), Tx::npos);
  c = log_.PrpCab(u"*", u"-", u"T");
  EXPECT_NE(c.find(u"Tipo       : T\r\n"), Tx::npos);
  c = log_.PrpCab(u"", u"ERRO", u"T");  // short header: no kind, no program
  EXPECT_EQ(c.find(u"Tipo"), Tx::npos);
  EXPECT_EQ(c.find(u"Programa"), Tx::npos);
  EXPECT_EQ(c.substr(0, 80), Tx(80, u'='));
  EXPECT_EQ(c.substr(82, 13), u"Data       : ");
}

TEST_F(Log, StartRecordAndFileNames) {
  EXPECT_EQ(log_.RegFic(u"ini"), TxAsc(dir_) + u"/LogIni.txt");
  EXPECT_EQ(log_.RegLck(u"INI"), TxAsc(dir_) + u"/LogIni.lck");
  EXPECT_EQ(log_.RegIniMsg(u"arranque|ok"), 1);
  EXPECT_EQ(log_.RegIniMsg(u"segundo"), 1);
  auto v = Linhas("LogIni.txt");
  ASSERT_EQ(v.size(), 14u);
  EXPECT_EQ(v[0], std::string(80, '='));
  EXPECT_EQ(v[1].substr(0, 13), "Data       : ");
  EXPECT_EQ(v[2], "Tipo       : INI - Registo de Inicializa\xc3\xa7\xc3\xa3o");
  EXPECT_EQ(v[3].substr(0, 13), "Utilizador : ");
  EXPECT_EQ(v[4], "Programa   : Teste 1.0");
  EXPECT_EQ(v[5], std::string(80, '='));
  EXPECT_EQ(v[6], "arranque|ok");
  EXPECT_EQ(v[13], "segundo");
  EXPECT_TRUE(g_.cx.empty());

  log_.PrpReg(u"X", u"Diario", u"L{DIA}_{NADA}.txt");
  Tx f = log_.RegFic(u"X");
  EXPECT_EQ(f.size(), dir_.size() + 1 + 16);  // "L" + dd_mm_yyyy + "_" + ".txt"
  EXPECT_EQ(f[dir_.size() + 4], u'_');
}

TEST_F(Log, ErrorRecordAndBoxes) {
  EXPECT_EQ(log_.ErrMsg(0, 53, u"", u"", u"abrir"), 0);
  EXPECT_EQ(log_.ErrMsg(1, 53, u"", u"Fonte", u"abrir", u"d1", u"mais|info"), 1);
  EXPECT_TRUE(g_.cx.empty());
  auto v = Linhas("LogErr.txt");
  ASSERT_EQ(v.size(), 12u);
  EXPECT_EQ(v[2], "Tipo       : ERRO - Registo de Erros");
  EXPECT_EQ(v[6], "Origem do erro : Fonte");
  EXPECT_EQ(v[7], "Opera\xc3\xa7\xc3\xa3o       : abrir");
  EXPECT_EQ(v[8], "Erro :  53 - File not found");
  EXPECT_EQ(v[9], "Diversos       : d1");
  EXPECT_EQ(v[10], "Informa\xc3\xa7\xc3\xa3o adicional");
  EXPECT_EQ(v[11], "mais|info");

  log_.ErrMsg(3, 7, u"Sem mem\u00f3ria", u"", u"x");
  ASSERT_EQ(g_.cx.size(), 1u);
  EXPECT_EQ(g_.Ult().tit, u"Mensagem de Erro");
  EXPECT_EQ(g_.cx[0].estilo, 16);
  EXPECT_EQ(g_.cx[0].tx, u"Erro :  7 - Sem mem\u00f3ria\r\n\r\nO erro foi registado no ficheiro : " +
                                 log_.RegFic(u"ERR"));
  g_.resp = kAnsNo;
  log_.ErrMsg(2, 5, u"", u"", u"x");
  ASSERT_EQ(g_.cx.size(), 2u);
  EXPECT_EQ(g_.cx[1].estilo, 16 + 4 + 256);
  EXPECT_NE(g_.cx[1].tx.find(u"\r\n\r\nTerminar o programa imediatamente ?"), Tx::npos);
}

TEST_F(Log, ErrorLevelTwoYesEnds) {
  g_.resp = kAnsYes;
  EXPECT_EXIT(log_.ErrMsg(2, 53, u"", u"", u"op"), ::testing::ExitedWithCode(1), "");
  auto v = Linhas("LogErr.txt");
  ASSERT_FALSE(v.empty());
  EXPECT_EQ(v.back(), "Programa TERMINADO - Erro :  53 - File not found");
}

TEST_F(Log, LockedRegisterFailsAfterTwentyTries) {
  int r = 0;
  FicCriVaz(log_.RegLck(u"ACE"), r);
  int n = FicNumLiv();
  FicAbrNum(n, log_.RegLck(u"ACE"), u"O", r);  // another writer holds the lock
  ASSERT_EQ(r, 1);
  EXPECT_EQ(log_.RegAceIni(u"entrada"), 0);
  ASSERT_EQ(g_.cx.size(), 1u);
  EXPECT_EQ(g_.cx[0].tx,
            u"N\u00e3o foi possivel registar informa\u00e7\u00e3o no ficheiro : " + log_.RegFic(u"ACE"));
  FicFec(n);
  EXPECT_EQ(log_.RegAceIni(u"entrada"), 1);
}

TEST_F(Log, ClearingAndGroupMessages) {
  MsgLogDef(&log_);
  MsgLogGrpDef(u"Instala\u00e7\u00e3o");
  MsgSemDlgDef(1);
  int r = 9;
  MsgExe(u"SN", u"T", u"m|n", r);
  MsgSemDlgDef(0);
  MsgLogDef(nullptr);
  EXPECT_EQ(r, 0);
  auto v = Linhas("LogMsg.txt");
  ASSERT_EQ(v.size(), 7u);
  EXPECT_EQ(v[2], "Tipo       : MSG - Instala\xc3\xa7\xc3\xa3o");
  EXPECT_EQ(v[6], "[TPM=SN][TIT=T][MSG=m|n][RES=0]");

  // A register that cannot be written, with no dialogs: the failure is dropped, not looped.
  log_.DirDef(u"/proc/zw-no-such");
  MsgLogDef(&log_);
  MsgSemDlgDef(1);
  MsgExe(u"", u"T", u"m", r);
  MsgSemDlgDef(0);
  MsgLogDef(nullptr);
  EXPECT_TRUE(g_.cx.empty());
  log_.DirDef(TxAsc(dir_));

  g_.resp = kAnsNo;
  EXPECT_EQ(log_.GrpLpz(1), 0);
  EXPECT_EQ(g_.Ult().tit, u"Limpar registo");
  EXPECT_EQ(g_.Ult().tx, u"Registo de Mensagens\r\n\r\nConfirma ?");
  EXPECT_EQ(FicExi(log_.RegFic(u"MSG")), 1);
  EXPECT_EQ(log_.GrpLpz(0), 1);
  EXPECT_EQ(FicExi(log_.RegFic(u"MSG")), 0);
  EXPECT_EQ(FicExi(log_.RegLck(u"MSG")), 0);
  EXPECT_EQ(log_.GrpLpz(0), 1);  // nothing left to delete is done as well
}

TEST_F(Log, AFailedRecordLeavesTheRegisterAsItWas) {
  ASSERT_EQ(log_.RegIniMsg(u"primeiro"), 1);
  std::ifstream in(dir_ + "/LogIni.txt", std::ios::binary);
  std::string antes((std::istreambuf_iterator<char>(in)), {});
  rlimit velho;
  getrlimit(RLIMIT_FSIZE, &velho);
  rlimit lim = velho;
  lim.rlim_cur = rlim_t(antes.size() + 100);
  setrlimit(RLIMIT_FSIZE, &lim);
  int r = log_.RegIniMsg(Tx(4000, u'x'));
  setrlimit(RLIMIT_FSIZE, &velho);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(g_.cx.size(), 1u);  // the box that says the record was not written
  std::ifstream de(dir_ + "/LogIni.txt", std::ios::binary);
  EXPECT_EQ(std::string((std::istreambuf_iterator<char>(de)), {}), antes);
}

// The same on a disk that fills up: the record that does not fit is cut back, the
// register keeps its earlier bytes, and no temporary file stays behind.
TEST_F(Log, ARecordOnAFullDiskLeavesTheRegisterAsItWas) {
  tst::Tmpfs cheio(16 << 10);
  if (cheio.pasta.empty()) GTEST_SKIP() << cheio.porque;
  log_.DirDef(TxDeUtf8(cheio.pasta));
  ASSERT_EQ(log_.RegIniMsg(u"primeiro"), 1);
  std::ifstream in(cheio.pasta + "/LogIni.txt", std::ios::binary);
  std::string antes((std::istreambuf_iterator<char>(in)), {});
  EXPECT_EQ(log_.RegIniMsg(Tx(40000, u'x')), 0);
  EXPECT_EQ(g_.cx.size(), 1u);
  std::ifstream de(cheio.pasta + "/LogIni.txt", std::ios::binary);
  EXPECT_EQ(std::string((std::istreambuf_iterator<char>(de)), {}), antes);
  // the register and its lock, which stays between records, and nothing else
  EXPECT_EQ(std::system(("test \"$(ls -A '" + cheio.pasta + "' | tr '\\n' ' ')\" = 'LogIni.lck LogIni.txt '").c_str()), 0);
}

// Registers, lock files and their folder are never writable by others whatever
// the umask, and a register that is a link someone else could have put there is
// not written through.
TEST_F(Log, RegistersAreNeverOpenToOthersNorWrittenThroughPlantedLinks) {
  log_.DirDef(TxAsc(dir_ + "/novo"));
  mode_t velha = umask(0);
  int ok = log_.RegIniMsg(u"x");
  umask(velha);
  EXPECT_EQ(ok, 1);
  struct stat st;
  for (const char* f : {"/novo", "/novo/LogIni.txt", "/novo/LogIni.lck"}) {
    ASSERT_EQ(stat((dir_ + f).c_str(), &st), 0) << f;
    EXPECT_EQ(st.st_mode & 0022, 0u) << f;
  }

  std::ofstream(dir_ + "/vitima", std::ios::binary) << "intacto";
  ASSERT_EQ(chmod((dir_ + "/novo").c_str(), 0777), 0);
  ASSERT_EQ(symlink((dir_ + "/vitima").c_str(), (dir_ + "/novo/LogErr.txt").c_str()), 0);
  EXPECT_EQ(log_.ErrMsg(1, 53, u"", u"", u"abrir"), 0);
  ASSERT_EQ(g_.cx.size(), 1u);  // the user is told the record was not made
  EXPECT_EQ(g_.Ult().tit, u"Mensagem de Erro");
  std::ifstream in(dir_ + "/vitima", std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "intacto");
}
