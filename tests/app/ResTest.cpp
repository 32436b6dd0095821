// The script's verdict on the run: how the verdict file's text is read, the status
// each word gives, and which ends of the run it stands for.
#include <gtest/gtest.h>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>
#include "ZunWizMain.h"
#include "ZunWizRes.h"

using namespace zw;
namespace fs = std::filesystem;

TEST(ResTxLer, FirstWordIsTheVerdictAndTheRestItsMessage) {
  ResVer r;
  ASSERT_TRUE(ResTxLer("FALHOU A c\xC3\xB3pia falhou\r\n", r));
  EXPECT_EQ(r.pal, u"FALHOU");
  EXPECT_EQ(r.msg, u"A cópia falhou");
  EXPECT_EQ(r.st, kSaiFal);
  // Case-blind word, no message; the lines of a message become one.
  ASSERT_TRUE(ResTxLer("\n  cancelado\n", r));
  EXPECT_EQ(r.pal, u"CANCELADO");
  EXPECT_EQ(r.msg, u"");
  EXPECT_EQ(r.st, kSaiCan);
  ASSERT_TRUE(ResTxLer("RECUSADO linha um\r\n\tlinha  dois\n\n", r));
  EXPECT_EQ(r.msg, u"linha um linha dois");
  EXPECT_EQ(r.st, kSaiRec);
  // As FileSystemObject writes it: Windows-1252, or UTF-16 with its mark.
  ASSERT_TRUE(ResTxLer("FALHOU c\xF3pia", r));
  EXPECT_EQ(r.msg, u"cópia");
  const std::string u16("\xFF\xFE" "R\0E\0C\0U\0S\0A\0D\0O\0 \0N\0\xE3\0o\0\r\0\n\0", 26);
  ASSERT_TRUE(ResTxLer(u16, r));
  EXPECT_EQ(r.pal, u"RECUSADO");
  EXPECT_EQ(r.msg, u"Não");
  // Nothing written is no verdict.
  EXPECT_FALSE(ResTxLer("", r));
  EXPECT_FALSE(ResTxLer(" \r\n\t\n", r));
}

TEST(ResSt, EachWordItsStatusAndAnUnknownWordFails) {
  EXPECT_EQ(ResSt(u"CONCLUIDO"), 0);
  EXPECT_EQ(ResSt(u"CONCLUÍDO"), 0);
  EXPECT_EQ(ResSt(u"FALHOU"), kSaiFal);
  EXPECT_EQ(ResSt(u"CANCELADO"), kSaiCan);
  EXPECT_EQ(ResSt(u"RECUSADO"), kSaiRec);
  EXPECT_EQ(ResSt(u"ERRO"), kSaiFal);
  // Every status means one thing.
  std::vector<int> st{0, 1, kSaiFpa, 3, kSaiEnd, kSaiCri, kSaiTmp, kSaiTrc, kSaiFal, kSaiCan, kSaiRec};
  std::sort(st.begin(), st.end());
  EXPECT_EQ(std::adjacent_find(st.begin(), st.end()), st.end());
}

namespace {
// Makes a verdict file as the program does and writes the text a script would.
fs::path Veredicto(const std::string& tx) {
  EXPECT_TRUE(ResIni());
  const char* f = std::getenv(kResVar);
  EXPECT_NE(f, nullptr);
  if (!f) return {};
  std::ofstream(f, std::ios::binary) << tx;
  return f;
}
}  // namespace

// The verdict stands for the ends the wizard chose (unloaded, or ended at once),
// is read once and its file removed; a wizard never built keeps its own status.
TEST(ZunWizSai, AVerdictStandsForANormalEndOrAnEndAtOnce) {
  std::vector<Tx> trc;
  auto lin = [&trc](const Tx& l) { trc.push_back(l); };

  fs::path f = Veredicto("CANCELADO Saiu \"j\xC3\xA1\"\n");
  EXPECT_EQ(ZunWizSai(0, "teste", lin), kSaiCan);
  ASSERT_EQ(trc.size(), 1u);
  EXPECT_EQ(trc[0], u"result CANCELADO \"Saiu \"\"já\"\"\"");
  EXPECT_FALSE(fs::exists(f));

  trc.clear();
  f = Veredicto("FALHOU\n");
  EXPECT_EQ(ZunWizSai(kSaiEnd, "teste", lin), kSaiFal);
  EXPECT_EQ(ZunWizSai(0, "teste", lin), 0) << "a verdict is read once";

  trc.clear();
  f = Veredicto("CONCLUIDO Instalado\n");
  EXPECT_EQ(ZunWizSai(0, "teste", lin), 0);
  ASSERT_EQ(trc.size(), 1u);
  EXPECT_EQ(trc[0], u"result CONCLUIDO \"Instalado\"");

  // Files written for the original system never name a verdict: their ends keep
  // their statuses, with no trace line.
  trc.clear();
  f = Veredicto("");
  EXPECT_EQ(ZunWizSai(0, "teste", lin), 0);
  f = Veredicto("");
  EXPECT_EQ(ZunWizSai(kSaiEnd, "teste", lin), kSaiEnd);
  EXPECT_TRUE(trc.empty());
  EXPECT_FALSE(fs::exists(f));

  f = Veredicto("CONCLUIDO\n");
  EXPECT_EQ(ZunWizSai(kSaiCri, "teste", lin), kSaiCri);
  ASSERT_EQ(trc.size(), 1u);
  EXPECT_EQ(trc[0].rfind(u"end build \"", 0), 0u);
  EXPECT_FALSE(fs::exists(f));
}
