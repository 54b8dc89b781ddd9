#include "cli/Cli.h"

#include <gtest/gtest.h>

#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;
using testing::ScratchDir;

TEST(CliTest, EveryCommandHasHelp) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                    {"demo", "--help"},
                                                    {"render", "--help"},
                                                    {"explain", "--help"},
                                                    {"fields", "--help"},
                                                    {"play", "--help"}}) {
    const KelmoraRun run = KelmoraRun::of(arguments);
    EXPECT_EQ(run.status, 0) << arguments[0];
    EXPECT_NE(run.out.find("Usage"), std::string::npos) << arguments[0];
  }
}

TEST(CliTest, WithoutACommandItShowsTheUsageAndRunsNothing) {
  const KelmoraRun run = KelmoraRun::of({});
  EXPECT_EQ(run.status, Cli::kBadInput);
  EXPECT_TRUE(run.out.empty()) << run.out.substr(0, 200);
  EXPECT_NE(run.err.find("Usage"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("demo"), std::string::npos) << run.err;
}

TEST(CliTest, RenderNamesEachFailureOfTheLibraryAndFails) {
  ScratchDir dir;
  const auto svg = dir.path() / "x.svg";
  // A NonPeriodical has no option 5: the library reports the call's failure.
  const KelmoraRun run = KelmoraRun::of(
      {"render", "--type", "nonperiodical", "--family", "2", "--option", "5", "-o", svg.string()});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(std::filesystem::exists(svg));
  ASSERT_FALSE(run.errLines().empty());
  for (const auto& line : run.errLines()) {
    EXPECT_TRUE(line.starts_with("kelmora: failure ")) << line;
    EXPECT_NE(line.find(", statement "), std::string::npos) << line;
  }
}

// Each row: what a user gets wrong, the files it needs, the command, and a
// word the one line on standard error must contain.
struct BadInputRow {
  std::string what;
  std::string fileName;
  std::string fileContent;
  std::vector<std::string> arguments;
  const char* mentions;
};

const char* const kPeriodicalShown = R"({"call": "SetVisibleFrame", "args": {"theModelType": 1}})";

std::string steps(const std::string& list) {
  return std::string(R"({"steps": [)") + kPeriodicalShown + (list.empty() ? "" : ", ") + list +
         "]}";
}

TEST(CliTest, BadInputGivesOneLineAndStatusTwo) {
  const std::vector<BadInputRow> rows = {
      {"unknown command", "", "", {"bogus"}, "bogus"},
      {"unknown option",
       "",
       "",
       {"render", "--type", "1", "-o", "@/x.svg", "--colour"},
       "--colour"},
      {"unknown type",
       "",
       "",
       {"render", "--type", "book", "--family", "0", "-o", "@/x.svg"},
       "book"},
      {"no format", "", "", {"render", "--type", "periodical", "-o", "@/x.svg"}, "--family"},
      {"no such family", "", "", {"render", "--type", "1", "--family", "7", "-o", "@/x.svg"}, "7"},
      {"unreadable settings",
       "",
       "",
       {"render", "--type", "1", "--settings", "@/missing.json", "-o", "@/x.svg"},
       "missing.json"},
      {"malformed settings",
       "s.json",
       "{\"Format\": ",
       {"render", "--type", "1", "--settings", "@/s.json", "-o", "@/x.svg"},
       "not valid JSON"},
      {"unknown setting",
       "s.json",
       R"({"Fromat": 1})",
       {"render", "--type", "1", "--settings", "@/s.json", "-o", "@/x.svg"},
       "Fromat"},
      {"setting of the wrong kind",
       "s.json",
       R"({"Format": "two"})",
       {"render", "--type", "1", "--settings", "@/s.json", "-o", "@/x.svg"},
       "whole number"},
      {"unknown field key",
       "v.json",
       R"({"PeriodicalColour": "red"})",
       {"render", "--type", "1", "--family", "1", "--values", "@/v.json", "-o", "@/x.svg"},
       "PeriodicalColour"},
      {"picture into a folder that is a file",
       "file",
       "",
       {"render", "--type", "1", "--family", "1", "-o", "@/file/x.svg"},
       "cannot write"},
      {"unreadable scenario", "", "", {"play", "@/none.json"}, "none.json"},
      {"scenario is a directory", "", "", {"play", "@"}, "cannot read"},
      {"malformed scenario", "p.json", "{\"steps\": [", {"play", "@/p.json"}, "not valid JSON"},
      {"no steps", "p.json", "{}", {"play", "@/p.json"}, "steps"},
      {"step of no kind", "p.json", R"({"steps": [{"jump": 3}]})", {"play", "@/p.json"}, "step 1"},
      {"step of two kinds",
       "p.json",
       R"({"steps": [{"type": "A", "clear": "A", "text": ""}]})",
       {"play", "@/p.json"},
       "both"},
      {"stray key",
       "p.json",
       R"({"steps": [{"clear": "A", "text": "x"}]})",
       {"play", "@/p.json"},
       "\"text\""},
      {"unknown operation",
       "p.json",
       R"({"steps": [{"call": "Explode"}]})",
       {"play", "@/p.json"},
       "Explode"},
      {"missing argument",
       "p.json",
       R"({"steps": [{"call": "SetVisibleFrame"}]})",
       {"play", "@/p.json"},
       "theModelType"},
      {"argument of the wrong kind",
       "p.json",
       R"({"steps": [{"call": "SetVisibleFrame", "args": {"theModelType": 70000}}]})",
       {"play", "@/p.json"},
       "16-bit"},
      {"expectation without a property",
       "p.json",
       R"j({"steps": [{"expect": "TextBox(0)"}]})j",
       {"play", "@/p.json"},
       "at least one"},
      {"unknown widget",
       "p.json",
       steps(R"({"type": "NoSuchField", "text": "x"})"),
       {"play", "@/p.json"},
       "NoSuchField"},
      {"widget of the wrong class",
       "p.json",
       steps(R"({"type": "PeriodicalJournalOption", "text": "x"})"),
       {"play", "@/p.json"},
       "not a text box"},
      {"settings file of a step missing",
       "p.json",
       steps(
           R"({"call": "ToggleFormatDependentWidgets", "args": {"whichType": 1, "formatterSettings": "nowhere.json"}})"),
       {"play", "@/p.json"},
       "nowhere.json"},
      {"scenario nested beyond reason",
       "p.json",
       std::string(100000, '[') + std::string(100000, ']'),
       {"play", "@/p.json"},
       "nested"},
      {"settings nested beyond reason",
       "s.json",
       std::string(100000, '[') + std::string(100000, ']'),
       {"render", "--type", "1", "--settings", "@/s.json", "-o", "@/x.svg"},
       "nested"},
      {"NUL after the scenario",
       "p.json",
       std::string(R"({"steps": []})") + '\0' + "rest",
       {"play", "@/p.json"},
       "NUL"},
      {"NUL after the values",
       "v.json",
       std::string("{}") + '\0' + "{",
       {"render", "--type", "1", "--family", "1", "--values", "@/v.json", "-o", "@/x.svg"},
       "NUL"},
      {"picture outside the pictures folder by absolute path",
       "p.json",
       R"({"steps": [{"stage": "x", "svg": "/tmp/kelmora-overwritten.svg"}]})",
       {"play", "@/p.json"},
       "inside the pictures folder"},
      {"picture outside the pictures folder by climbing",
       "p.json",
       R"({"steps": [{"stage": "x", "svg": "pics/../../x.svg"}]})",
       {"play", "@/p.json"},
       "inside the pictures folder"},
      {"failure answer beyond 32 bits",
       "p.json",
       R"({"host": {"failureAnswer": 4294967301}, "steps": []})",
       {"play", "@/p.json"},
       "32-bit"},
      {"expected failure number beyond 32 bits",
       "p.json",
       R"({"steps": [{"call": "SetFocus", "fails": 4294967387}]})",
       {"play", "@/p.json"},
       "fails"},
      {"number as a field value in a scenario",
       "p.json",
       R"({"steps": [{"call": "SynchronizeFieldsWithModel", "args": {"whichType": 1, "values": {"PeriodicalVolume": 12}}}]})",
       {"play", "@/p.json"},
       "texts"},
      {"number as a field value in a values file",
       "v.json",
       R"({"PeriodicalVolume": 12})",
       {"render", "--type", "1", "--family", "1", "--values", "@/v.json", "-o", "@/x.svg"},
       "must be a text"},
  };
  for (const auto& row : rows) {
    ScratchDir dir;
    if (!row.fileName.empty())
      dir.write(row.fileName, row.fileContent);
    std::vector<std::string> arguments;
    for (std::string argument : row.arguments) {
      if (argument.starts_with("@"))
        argument = dir.path().string() + argument.substr(1);
      arguments.push_back(argument);
    }
    const KelmoraRun run = KelmoraRun::of(arguments);
    EXPECT_EQ(run.status, Cli::kBadInput) << row.what;
    ASSERT_EQ(run.errLines().size(), 1u) << row.what << ": " << run.err;
    EXPECT_TRUE(run.err.starts_with("kelmora: ")) << row.what << ": " << run.err;
    EXPECT_NE(run.err.find(row.mentions), std::string::npos) << row.what << ": " << run.err;
  }
}

}  // namespace
}  // namespace kelmora::tools
