#include <gtest/gtest.h>

#include <filesystem>

#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;
using testing::ScratchDir;

const std::filesystem::path kExamples = KELMORA_EXAMPLES_DIR;

TEST(ExamplesTest, EveryExampleScenarioMeetsItsExpectations) {
  int played = 0;
  for (const auto& entry : std::filesystem::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".json")
      continue;
    ScratchDir pictures;
    const KelmoraRun run =
        KelmoraRun::of({"play", entry.path().string(), "--pictures", pictures.path().string()});
    EXPECT_EQ(run.status, 0) << entry.path() << "\n" << run.out << run.err;
    EXPECT_TRUE(run.events("unmet").empty()) << entry.path();
    ++played;
  }
  EXPECT_GE(played, 4) << "the demo and at least three further scenarios";
}

TEST(ExamplesTest, DemoRunsToItsEndWithAPicturePerStage) {
  ScratchDir dir;
  const KelmoraRun run = KelmoraRun::of({"demo", "--pictures", dir.path().string()});
  EXPECT_EQ(run.status, 0) << run.out << run.err;
  EXPECT_NE(run.out.find("every expectation held"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("-> SetVisibleFrame(1)"), std::string::npos);
  EXPECT_NE(run.out.find("<- HandleDateExit(field=\"TextBox(3)\""), std::string::npos);
  EXPECT_NE(run.out.find("TextBox(8)           PeriodicalOnline"), std::string::npos)
      << "the fields on screen with their values";
  EXPECT_NE(run.out.find("-> SetVisibleFrame(4)"), std::string::npos) << "the e-source part";
  EXPECT_NE(run.out.find("TextBox(4)           EsourceURL"), std::string::npos);
  for (int stage = 1; stage <= 12; ++stage)
    EXPECT_TRUE(std::filesystem::exists(dir.path() / ("stage-" + std::to_string(stage) + ".svg")))
        << stage;
}

}  // namespace
}  // namespace kelmora::tools
