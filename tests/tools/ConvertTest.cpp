#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "host/Kit.h"
#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;
using testing::ScratchDir;

constexpr const char* kCorpus = KELMORA_CSL_CORPUS;

// CSL-JSON to reference files and back gives the items as they were.
TEST(ConvertTest, CslToReferenceFilesAndBackGivesTheSameItems) {
  ScratchDir dir;
  const std::string references = (dir.path() / "references.json").string();
  const KelmoraRun there = KelmoraRun::of({"convert", kCorpus, "-o", references});
  ASSERT_EQ(there.status, 0) << there.err;
  const KelmoraRun back = KelmoraRun::of({"convert", references});
  ASSERT_EQ(back.status, 0) << back.err;
  std::ifstream in(kCorpus);
  const auto original = nlohmann::json::parse(in);
  EXPECT_EQ(nlohmann::json::parse(back.out), original);

  const KelmoraRun one = KelmoraRun::of({"convert", kCorpus, "--item", "chap-2"});
  ASSERT_EQ(one.status, 0) << one.err;
  const Json chapter = Json::parse(one.out);
  EXPECT_EQ(chapter["whichType"], 0);
  EXPECT_EQ(chapter["values"]["Subwork"], "Chapter 2: reed beds and their birds");
  EXPECT_EQ(chapter["values"]["Title"], "Wetlands of the world");
}

// A real reference drawn straight from CSL-JSON, its form and kind its own.
TEST(ConvertTest, RenderTakesACslItemAndSaysWhenItMustChoose) {
  ScratchDir dir;
  const std::string svg = (dir.path() / "news.svg").string();
  const KelmoraRun drawn =
      KelmoraRun::of({"render", "--csl", kCorpus, "--item", "art-n-3", "--family", "2", "-o", svg});
  ASSERT_EQ(drawn.status, 0) << drawn.err;
  std::ifstream in(svg);
  const std::string picture((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_NE(picture.find("data-key=\"PeriodicalPageRange\""), std::string::npos);
  EXPECT_NE(picture.find("<tspan x=\""), std::string::npos);

  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"render", "--csl", kCorpus, "--family", "2", "-o", svg},
        {"render", "--csl", kCorpus, "--item", "nothing", "--family", "2", "-o", svg},
        {"render", "--csl", kCorpus, "--item", "art-n-3", "--type", "esource", "--family", "2",
         "-o", svg},
        {"render", "--item", "art-n-3", "--type", "periodical", "--family", "2", "-o", svg},
        {"convert", "/nonexistent.json"}}) {
    const KelmoraRun refused = KelmoraRun::of(arguments);
    EXPECT_EQ(refused.status, 2) << arguments[2];
    EXPECT_EQ(refused.errLines().size(), 1u) << refused.err;
  }
}

}  // namespace
}  // namespace kelmora::tools
