#include "render/PngConverter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>

#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;
using testing::ScratchDir;

const std::string kPngMagic = "\x89PNG";

// The first four bytes of a file, or less.
std::string firstBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string bytes(4, '\0');
  in.read(bytes.data(), 4);
  bytes.resize(static_cast<size_t>(in.gcount()));
  return bytes;
}

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

TEST(PngConverterTest, RenderWritesARealPngWhereTheConverterIsInstalled) {
  if (!PngConverter::find())
    GTEST_SKIP() << PngConverter::kProgram << " is not installed";
  ScratchDir dir;
  const std::string png = (dir.path() / "form.png").string();
  const KelmoraRun run = KelmoraRun::of({"render", "--type", "periodical", "--family", "2", "-o",
                                         (dir.path() / "form.svg").string(), "--png", png});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(firstBytes(png), kPngMagic);
}

// For the length of a test, $PATH holds either a stand-in converter that
// writes a PNG signature, or no converter at all.
class ConverterOnPath {
 public:
  ConverterOnPath(const ScratchDir& dir, bool present) : mSaved(std::getenv("PATH")) {
    const auto bin = dir.path() / "bin";
    std::filesystem::create_directories(bin);
    if (present) {
      const auto program = bin / PngConverter::kProgram;
      // Called as: --format png --output PNG SVG
      std::ofstream(program) << "#!/bin/sh\n[ -s \"$5\" ] || exit 1\n"
                             << "printf '\\211PNG\\r\\n' > \"$4\"\n";
      std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }
    ::setenv("PATH", bin.c_str(), 1);
  }
  ~ConverterOnPath() {
    if (mSaved)
      ::setenv("PATH", mSaved->c_str(), 1);
    else
      ::unsetenv("PATH");
  }

 private:
  std::optional<std::string> mSaved;
};

// Each row: a render asking for PNG, whether the converter is there, the
// status, the files it must leave (PNG or SVG by name) and must not, and a
// word of the one line on standard error when it fails.
struct PngRow {
  std::string what;
  bool converter;
  std::vector<std::string> outputs;
  int status;
  std::vector<std::string> written;
  std::vector<std::string> absent;
  std::string mentions;
};

TEST(PngConverterTest, RenderWritesEveryPngAskedForOrRefusesInOneLine) {
  const std::vector<PngRow> rows = {
      {"-o naming a PNG", true, {"-o", "@/form.png"}, 0, {"form.png"}, {}, ""},
      {"-o naming a PNG in capitals", true, {"-o", "@/FORM.PNG"}, 0, {"FORM.PNG"}, {}, ""},
      {"--png beside the SVG",
       true,
       {"-o", "@/form.svg", "--png", "@/form.png"},
       0,
       {"form.svg", "form.png"},
       {},
       ""},
      {"-o naming a PNG without the converter",
       false,
       {"-o", "@/form.png"},
       2,
       {},
       {"form.png"},
       "librsvg2-bin"},
      {"--png without the converter",
       false,
       {"-o", "@/form.svg", "--png", "@/form.png"},
       2,
       {"form.svg"},
       {"form.png"},
       "the SVG was written"},
      {"-o naming a PNG in a folder that is a file",
       true,
       {"-o", "@/file/form.png"},
       2,
       {},
       {},
       "kelmora: cannot write '"},
      {"--png in a folder that is a file",
       true,
       {"-o", "@/form.svg", "--png", "@/file/form.png"},
       2,
       {"form.svg"},
       {},
       "kelmora: cannot write '"},
  };
  for (const auto& row : rows) {
    ScratchDir dir;
    dir.write("file", "");
    std::vector<std::string> arguments = {"render", "--type", "periodical", "--family", "2"};
    for (const auto& argument : row.outputs)
      arguments.push_back(argument.starts_with("@") ? dir.path().string() + argument.substr(1)
                                                    : argument);
    KelmoraRun run;
    {
      ConverterOnPath path(dir, row.converter);
      run = KelmoraRun::of(arguments);
    }
    EXPECT_EQ(run.status, row.status) << row.what << ": " << run.err;
    for (const auto& name : row.written)
      EXPECT_EQ(firstBytes((dir.path() / name).string()),
                name.ends_with(".svg") ? "<?xm" : kPngMagic)
          << row.what << ": " << name;
    for (const auto& name : row.absent)
      EXPECT_FALSE(std::filesystem::exists(dir.path() / name)) << row.what << ": " << name;
    if (row.status == 0) {
      EXPECT_EQ(run.err, "") << row.what;
    } else {
      EXPECT_EQ(run.errLines().size(), 1u) << row.what << ": " << run.err;
      EXPECT_NE(run.err.find(row.mentions), std::string::npos) << row.what << ": " << run.err;
    }
  }
}

}  // namespace
}  // namespace kelmora::tools
