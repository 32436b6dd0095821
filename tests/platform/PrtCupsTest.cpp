// Printers against a private CUPS scheduler: its own configuration and folders in a
// temporary folder, its own port on the loopback, file devices allowed. Results are
// checked with CUPS' own lpstat against that scheduler, never the machine's.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>
#include "FicGlb.h"
#include "Prt.h"
#include "TstTmp.h"
#include "TxtGlb.h"

using namespace zw;
namespace fs = std::filesystem;

namespace {

const char* kModelo = "lsb/usr/cupsfilters/Generic-PDF_Printer-PDF.ppd";

int PortaLivre() {
  int s = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t n = sizeof a;
  int p = 0;
  if (bind(s, (sockaddr*)&a, sizeof a) == 0 && getsockname(s, (sockaddr*)&a, &n) == 0) p = ntohs(a.sin_port);
  close(s);
  return p;
}

bool Atende(int porta) {
  int s = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  a.sin_port = htons(uint16_t(porta));
  bool ok = connect(s, (sockaddr*)&a, sizeof a) == 0;
  close(s);
  return ok;
}

class PrtCupsTest : public ::testing::Test {
 protected:
  static inline fs::path dir_;
  static inline pid_t pid_ = 0;
  static inline int porta_ = 0;
  static inline std::string falha_;

  static void SetUpTestSuite() {
    if (access("/usr/sbin/cupsd", X_OK) != 0 || access("/usr/bin/lpstat", X_OK) != 0) {
      falha_ = "cupsd or lpstat is not installed (Debian packages cups, cups-client)";
      return;
    }
    char modelo[] = "/tmp/zw-cups-XXXXXX";
    if (!mkdtemp(modelo)) {
      falha_ = "no temporary folder";
      return;
    }
    dir_ = modelo;
    // The filters run as the scheduler's user, who must reach the folder and write
    // its temporary files.
    chmod(modelo, 0755);
    for (const char* d : {"spool", "cache", "state", "log", "ppd", "tmp", "saida"}) fs::create_directory(dir_ / d);
    chmod((dir_ / "tmp").c_str(), 01777);
    // The scheduler's programs without the driver lister that searches the network
    // for driverless printers, which would make every model query wait for it.
    fs::create_directories(dir_ / "bin/driver");
    for (const char* d : {"backend", "filter", "daemon", "cgi-bin", "notifier", "monitor"})
      fs::create_directory_symlink(fs::path("/usr/lib/cups") / d, dir_ / "bin" / d);
    // Its data without the driver sources, which it would compile at the first model
    // query; the tests use a PPD model.
    fs::create_directories(dir_ / "data/drv");
    for (auto& e : fs::directory_iterator("/usr/share/cups"))
      if (e.path().filename() != "drv") fs::create_symlink(e.path(), dir_ / "data" / e.path().filename());
    porta_ = PortaLivre();
    std::ofstream(dir_ / "cupsd.conf") << "Listen 127.0.0.1:" << porta_ << "\n"
                                       << "LogLevel warn\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
                                       << "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                       << "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n";
    std::ofstream(dir_ / "cups-files.conf")
        << "FileDevice Yes\nServerRoot " << dir_.string() << "\nRequestRoot " << (dir_ / "spool").string()
        << "\nCacheDir " << (dir_ / "cache").string() << "\nStateDir " << (dir_ / "state").string()
        << "\nTempDir " << (dir_ / "tmp").string() << "\nErrorLog " << (dir_ / "log/error_log").string()
        << "\nAccessLog " << (dir_ / "log/access_log").string() << "\nPageLog "
        << (dir_ / "log/page_log").string() << "\nServerBin " << (dir_ / "bin").string() << "\nDataDir " << (dir_ / "data").string() << "\n"
        << (geteuid() == 0 ? "User lp\nGroup lp\nSystemGroup root\n" : "");
    std::string conf = (dir_ / "cupsd.conf").string(), files = (dir_ / "cups-files.conf").string();
    pid_ = fork();
    if (pid_ == 0) {
      int nul = open("/dev/null", O_RDWR);
      dup2(nul, 0), dup2(nul, 1), dup2(nul, 2);
      execl("/usr/sbin/cupsd", "cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), (char*)nullptr);
      _exit(127);
    }
    auto fim = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!Atende(porta_)) {
      int st = 0;
      if (waitpid(pid_, &st, WNOHANG) == pid_ || std::chrono::steady_clock::now() > fim) {
        falha_ = "the private cupsd did not start (see " + (dir_ / "log/error_log").string() + ")";
        Para();
        return;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
  }

  static void Para() {
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
    }
    pid_ = 0;
  }

  static void TearDownTestSuite() {
    Para();
    if (falha_.empty() && !dir_.empty() && !getenv("ZW_KEEP")) fs::remove_all(dir_);
  }

  void SetUp() override {
    if (!falha_.empty()) GTEST_SKIP() << "printer tests skipped: " << falha_;
    PrtSrvDef(Srv());
  }
  void TearDown() override { PrtSrvDef(u""); }

  static Tx Srv() { return TxAsc("127.0.0.1:" + std::to_string(porta_)); }
  static Tx Fic(const std::string& rel) { return TxDeUtf8((dir_ / "saida" / rel).string()); }

  // What CUPS' own tool says of the private scheduler's queues and devices.
  static std::string Lpstat() {
    std::string cmd = "lpstat -h 127.0.0.1:" + std::to_string(porta_) + " -v -p 2>&1", out;
    FILE* f = popen(cmd.c_str(), "r");
    char b[512];
    while (f && fgets(b, sizeof b, f)) out += b;
    if (f) pclose(f);
    return out;
  }
};

TEST_F(PrtCupsTest, AddsAPrinterOnceAndKeepsItAsItIs) {
  Tx porta = Fic("pdf novo/a b.pdf"), outra = Fic("outra/b.pdf");
  EXPECT_EQ(FxPrtPdfIns(u"PDF Teste", porta, u"Generic PDF Printer"), u"OK");
  std::string v = Lpstat();
  EXPECT_NE(v.find("device for PDF_Teste: "), std::string::npos) << v;
  EXPECT_NE(v.find("pdf%20novo/a%20b.pdf"), std::string::npos) << v;
  EXPECT_NE(v.find("printer PDF_Teste is idle"), std::string::npos) << v;
  EXPECT_TRUE(fs::exists(dir_ / "saida/pdf novo/a b.pdf"));

  int f = 0;
  PrtPorExi(u"  " + TxMai(porta) + u" ", f);  // ports are compared case-blind after trimming
  EXPECT_EQ(f, 1);
  PrtExi(u" pdf teste ", f);
  EXPECT_EQ(f, 1);

  // The printer exists: a missing port is still added, and nothing else changes,
  // whatever the driver.
  EXPECT_EQ(FxPrtPdfIns(u"  pdf TESTE ", outra, u"no such driver"), u"PR_VT_EXI");
  EXPECT_TRUE(fs::exists(dir_ / "saida/outra/b.pdf"));
  EXPECT_EQ(Lpstat(), v);
  EXPECT_EQ(FxPrtPdfIns(u"PDF Teste", porta, TxAsc(kModelo)), u"PR_VT_EXI");
  EXPECT_EQ(Lpstat(), v);

  // A second printer on the same port by the model's name.
  EXPECT_EQ(FxPrtPdfIns(u"PDF2", porta, TxAsc(kModelo)), u"OK");
  PrtPorTab pt;
  PrtTab tab;
  int np = 0, n = 0;
  PrtPorLis(pt, np);
  PrtLis(tab, n);
  EXPECT_EQ(np, 1);  // one port, however many printers use it
  ASSERT_EQ(n, 2);
  EXPECT_EQ(tab[1][1], u"PDF2");
  EXPECT_EQ(tab[2][2], u"Generic PDF Printer");
  EXPECT_EQ(TxMai(tab[1][3]), TxMai(FicDeNat(TxUtf8(porta))));
}

TEST_F(PrtCupsTest, AnUnknownDriverFailsTheAddButTheNewPortStays) {
  Tx porta = Fic("sem/driver.pdf");
  EXPECT_EQ(FxPrtPdfIns(u"SemDriver", porta, u"Driver Que Nao Existe"), u"PR_VT_KO");
  EXPECT_TRUE(fs::exists(dir_ / "saida/sem/driver.pdf"));
  EXPECT_EQ(Lpstat().find("SemDriver"), std::string::npos);
  EXPECT_NE(PrtErrUlt(), 0);
  EXPECT_EQ(PrtErrTx(0), u"successful-ok");
  EXPECT_EQ(PrtErrTx(12345), u"Error (12345) not defined.");
}

TEST_F(PrtCupsTest, ATestPageLandsInThePortsFile) {
  Tx porta = Fic("pagina.pdf");
  ASSERT_EQ(FxPrtPdfIns(u"Pagina", porta, u"Generic PDF Printer"), u"OK");
  std::string pag = "/usr/share/cups/data/default-testpage.pdf";
  if (!fs::exists(pag)) GTEST_SKIP() << "no CUPS test page on this machine";
  std::string cmd = "lp -h 127.0.0.1:" + std::to_string(porta_) + " -d Pagina " + pag + " >/dev/null 2>&1";
  ASSERT_EQ(system(cmd.c_str()), 0);
  // The driver's output is a PDF document (behind a job header of its own).
  fs::path fic = dir_ / "saida/pagina.pdf";
  std::string txt;
  auto fim = std::chrono::steady_clock::now() + std::chrono::seconds(4);
  while (txt.find("%%EOF") == std::string::npos && std::chrono::steady_clock::now() < fim) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    std::ifstream in(fic, std::ios::binary);
    txt.assign(std::istreambuf_iterator<char>(in), {});
  }
  EXPECT_NE(txt.find("%PDF-"), std::string::npos);
  EXPECT_NE(txt.find("%%EOF"), std::string::npos);
}

TEST_F(PrtCupsTest, NoSchedulerMeansEmptyTablesAndAFailedAdd) {
  PrtSrvDef(TxDeUtf8((dir_ / "nenhum.sock").string()));
  PrtTab tab;
  int n = -1;
  PrtLis(tab, n);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(FxPrtPdfIns(u"Nada", Fic("nada.pdf"), TxAsc(kModelo)), u"PR_VT_KO");
}

// The port's file, with no scheduler needed: it is checked and made before any
// printer is asked for.
TEST(PrtPor, APortIsNoLinkAndLiesInFoldersOnlyItsUserMayChange) {
  std::string d = tst::PastaTmp();
  auto T = [&](const std::string& n) { return TxDeUtf8(d + "/" + n); };
  std::ofstream(d + "/vitima") << "intacto";
  ASSERT_EQ(symlink((d + "/vitima").c_str(), (d + "/l.pdf").c_str()), 0);
  ASSERT_EQ(symlink((d + "/nada").c_str(), (d + "/pendente.pdf").c_str()), 0);
  int ok = -1;
  PrtPorAdi(T("l.pdf"), ok);
  EXPECT_EQ(ok, 0);
  PrtPorAdi(T("pendente.pdf"), ok);
  EXPECT_EQ(ok, 0);
  EXPECT_FALSE(fs::exists(d + "/nada"));
  {
    std::ifstream in(d + "/vitima");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "intacto");
  }
  PrtPorAdi(T("vitima"), ok);  // a file of the user's that is there is kept
  EXPECT_EQ(ok, 1);

  fs::create_directory(d + "/aberta");
  chmod((d + "/aberta").c_str(), 0777);
  PrtPorAdi(T("aberta/a.pdf"), ok);
  EXPECT_EQ(ok, 0);
  EXPECT_FALSE(fs::exists(d + "/aberta/a.pdf"));

  // What a script sees: the add refused before the scheduler is asked.
  PrtSrvDef(TxDeUtf8(d + "/nenhum.sock"));
  EXPECT_EQ(FxPrtPdfIns(u"Nada", T("l.pdf"), u"Generic PDF Printer"), u"PR_VT_KO");
  EXPECT_EQ(PrtErrUlt(), long(0x0401));  // client-error-forbidden

  // Missing folders are made, never writable by others whatever the umask.
  mode_t velha = umask(0);
  PrtPorAdi(T("sem/p.pdf"), ok);
  EXPECT_EQ(ok, 0);  // adding a port makes no folder
  EXPECT_EQ(FxPrtPdfIns(u"Nada", T("sem/p.pdf"), u"x"), u"PR_VT_KO");  // no scheduler here
  umask(velha);
  PrtSrvDef(u"");
  struct stat st;
  ASSERT_EQ(stat((d + "/sem").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0755u);
  ASSERT_EQ(stat((d + "/sem/p.pdf").c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0644u);
}

}  // namespace
