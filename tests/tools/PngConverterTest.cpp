#include "render/PngConverter.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;
using testing::ScratchDir;

TEST(PngConverterTest, FindsAnExecutableConverterOnTheSearchPath) {
  ScratchDir dir;
  std::filesystem::create_directories(dir.path() / "bin");
  const auto program = dir.path() / "bin" / PngConverter::kProgram;
  std::ofstream(program) << "#!/bin/sh\n";
  EXPECT_EQ(PngConverter::find((dir.path() / "empty").string() + ":"), std::nullopt);
  EXPECT_EQ(PngConverter::find((dir.path() / "bin").string()), std::nullopt) << "not executable";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  EXPECT_EQ(PngConverter::find("/nowhere:" + (dir.path() / "bin").string()), program);
}

TEST(PngConverterTest, AFailingConverterIsReportedInOneLineOfOurOwn) {
  ScratchDir dir;
  const auto program = dir.path() / PngConverter::kProgram;
  std::ofstream(program) << "#!/bin/sh\necho 'converter noise' >&2\necho 'more noise'\nexit 3\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  ::testing::internal::CaptureStderr();
  ::testing::internal::CaptureStdout();
  const std::string problem =
      PngConverter::convert(program, dir.path() / "form.svg", dir.path() / "form.png");
  const std::string printed =
      ::testing::internal::GetCapturedStderr() + ::testing::internal::GetCapturedStdout();
  EXPECT_NE(problem.find("could not convert"), std::string::npos) << problem;
  EXPECT_EQ(printed, "");
}

TEST(PngConverterTest, RenderWritesPngWhenItCanAndSaysWhyWhenItCannot) {
  ScratchDir dir;
  const std::string svg = (dir.path() / "form.svg").string();
  const std::string png = (dir.path() / "form.png").string();
  const KelmoraRun run =
      KelmoraRun::of({"render", "--type", "periodical", "--family", "2", "-o", svg, "--png", png});
  ASSERT_TRUE(std::filesystem::exists(svg)) << run.err;
  if (PngConverter::find()) {
    EXPECT_EQ(run.status, 0) << run.err;
    std::ifstream in(png, std::ios::binary);
    char magic[4] = {};
    in.read(magic, 4);
    EXPECT_EQ(std::string(magic + 1, 3), "PNG");
  } else {
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("librsvg2-bin"), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(png));
  }
}

}  // namespace
}  // namespace kelmora::tools
