#include <gtest/gtest.h>

#include <QImage>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "tools/ScratchDir.h"

namespace kelmora::tools::testing {
namespace {

// Runs the program itself: the window needs the process's one Qt
// application. The exit status, with standard error in `err`.
int kelmora(const std::string& arguments, const ScratchDir& scratch, std::string& err,
            const std::string& environment = "") {
  const auto errFile = scratch.path() / "err.txt";
  const std::string command = environment + " '" + KELMORA_PROGRAM + "' " + arguments + " > '" +
                              (scratch.path() / "out.txt").string() + "' 2> '" + errFile.string() +
                              "'";
  const int status = std::system(command.c_str());
  std::ifstream in(errFile);
  std::stringstream text;
  text << in.rdbuf();
  err = text.str();
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(GuiTest, AScenarioPlayedIntoTheWindowEndsInAScreenshot) {
  ScratchDir scratch;
  const auto shot = scratch.path() / "demo.png";
  std::string err;
  EXPECT_EQ(kelmora("gui --scenario '" KELMORA_EXAMPLES_DIR "/demo-periodical.json' --pictures '" +
                        scratch.path().string() + "' --screenshot '" + shot.string() + "'",
                    scratch, err),
            0)
      << err;
  const QImage picture(QString::fromStdString(shot.string()));
  ASSERT_FALSE(picture.isNull()) << err;
  EXPECT_GT(picture.width(), 600);
  EXPECT_GT(picture.height(), 300);
}

TEST(GuiTest, AScreenshotThatCannotBeWrittenIsRefusedInOneLine) {
  ScratchDir scratch;
  const auto shot = scratch.path() / "file" / "shot.png";
  scratch.write("file", "");
  std::string err;
  EXPECT_EQ(kelmora("gui --screenshot '" + shot.string() + "'", scratch, err), 2) << err;
  EXPECT_EQ(err, "kelmora: cannot write '" + shot.string() + "'\n");
}

TEST(GuiTest, WithoutADisplayTheWindowSaysWhatItNeeds) {
  ScratchDir scratch;
  std::string err;
  EXPECT_EQ(kelmora("gui", scratch, err, "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM"),
            2);
  EXPECT_NE(err.find("gui needs a display"), std::string::npos) << err;
}

}  // namespace
}  // namespace kelmora::tools::testing
