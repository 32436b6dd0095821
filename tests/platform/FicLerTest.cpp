// Reading whole files by the one rule: what is read, what is refused and how fast,
// the limits, the null device, the reasons in words, and the sink of the notes.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <fstream>
#include <functional>
#include "FicLer.h"
#include "TstTmp.h"

using namespace zw;
using zw::tst::FicTmp;

namespace {

// Runs f in a child process that the alarm ends after 5 s, and gives what f gave,
// or -1 when it did not end in time: a read that waits for ever fails the test
// instead of holding it.
int Pronto(const std::function<int()>& f) {
  pid_t p = fork();
  if (p == 0) {
    alarm(5);
    _exit(f() & 0x7F);
  }
  int st = 0;
  waitpid(p, &st, 0);
  return WIFEXITED(st) ? WEXITSTATUS(st) : -1;
}

void Escreve(const std::string& f, const std::string& b) { std::ofstream(f, std::ios::binary) << b; }

TEST(FicLer, ReadsARegularFileWholeAndThroughALinkAndAPathText) {
  std::string f = FicTmp("a.txt"), b;
  Escreve(f, std::string("um\0dois", 7));
  EXPECT_EQ(FicLerNat(f, b), 0);
  EXPECT_EQ(b, std::string("um\0dois", 7));
  ASSERT_EQ(symlink(f.c_str(), FicTmp("ln").c_str()), 0);
  EXPECT_EQ(FicLerNat(FicTmp("ln"), b), 0);
  EXPECT_EQ(b.size(), 7u);
  // A path text: "\" separates, and "C:" is the root.
  std::string t = "C:" + f;
  for (char& c : t)
    if (c == '/') c = '\\';
  EXPECT_EQ(FicLer(TxDeUtf8(t), b), 0);
  EXPECT_EQ(b.size(), 7u);
  // Opened and tested only.
  EXPECT_EQ(FicLerNat(f, b, kFicLerMax, false), 0);
  EXPECT_TRUE(b.empty());
}

TEST(FicLer, RefusesWhatIsNoRegularFileAtOnceWithoutReading) {
  std::string fifo = FicTmp("fifo"), dir = FicTmp("pasta"), sock = FicTmp("sock");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  ASSERT_EQ(mkdir(dir.c_str(), 0700), 0);
  int s = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un a{};
  a.sun_family = AF_UNIX;
  std::snprintf(a.sun_path, sizeof a.sun_path, "%s", sock.c_str());
  ASSERT_EQ(bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a), 0);
  for (const std::string& p : {fifo, dir, sock, std::string("/dev/zero"), std::string("/dev/null")}) {
    EXPECT_EQ(Pronto([&] {
                std::string b;
                return FicLerNat(p, b);
              }),
              kErrAces)
        << p;
  }
  close(s);
  // A pipe with a writer that never stops is refused the same way.
  EXPECT_EQ(Pronto([&] {
              if (fork() == 0) {
                alarm(5);
                int fd = open(fifo.c_str(), O_WRONLY);
                for (char z[4096] = {};;) (void)!write(fd, z, sizeof z);
              }
              std::string b;
              return FicLerNat(fifo, b);
            }),
            kErrAces);
  // The file layer's input files and FicExi go by the same rule.
  EXPECT_EQ(Pronto([&] { return -FicExi(TxDeUtf8(fifo)); }), kErrAces);
}

TEST(FicLer, MissingFilesAndTheLimit) {
  std::string b = "x";
  EXPECT_EQ(FicLerNat(FicTmp("nao"), b), kErrFicNao);
  EXPECT_TRUE(b.empty());
  EXPECT_EQ(FicLerNat(FicTmp("nao/nada"), b), kErrDirNao);
  std::string f = FicTmp("cem");
  Escreve(f, std::string(100, 'x'));
  EXPECT_EQ(FicLerNat(f, b, 100), 0);
  EXPECT_EQ(b.size(), 100u);
  EXPECT_EQ(FicLerNat(f, b, 99), kErrIO);
  EXPECT_TRUE(b.empty());
  // A file of the system that tells no size is read up to the limit and no further.
  EXPECT_EQ(FicLerNat("/proc/self/status", b), 0);
  EXPECT_NE(b.find("Pid:"), std::string::npos);
  EXPECT_EQ(FicLerNat("/proc/self/status", b, 10), kErrIO);
}

TEST(FicLer, TheNullDeviceAndTheReasons) {
  EXPECT_TRUE(FicNulo("/dev/null"));
  EXPECT_FALSE(FicNulo("/dev/zero"));
  std::string f = FicTmp("r");
  Escreve(f, "");
  EXPECT_FALSE(FicNulo(f));
  EXPECT_FALSE(FicNulo(FicTmp("nao")));
  EXPECT_EQ(FicLerPorque(kErrAces), "not a regular file");
  EXPECT_EQ(FicLerPorque(kErrFicNao), "file not found");
  EXPECT_EQ(FicLerPorque(kErrIO, kRtfLerMax), "larger than 4 MiB, or an input/output error");
  EXPECT_EQ(FicLerPorque(kErrIO, 1000), "larger than 1000 bytes, or an input/output error");
}

TEST(FicLer, NotesGoToTheSinkOrToStandardError) {
  std::vector<Tx> notas;
  LimTrcDef([&](const Tx& n) { notas.push_back(n); });
  LimTrc(u"refused picture x (not a regular file)");
  LimTrcDef(nullptr);
  ASSERT_EQ(notas.size(), 1u);
  EXPECT_EQ(notas[0], u"refused picture x (not a regular file)");
  testing::internal::CaptureStderr();
  LimTrc(u"cut text");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "zunwiz: cut text\n");
}

}  // namespace
