#include "cli/Explain.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tools/KelmoraRun.h"
#include "tools/ScratchDir.h"

namespace kelmora::tools {
namespace {

using testing::KelmoraRun;

// A format's writer asks why the access date of a website is hidden in
// family 1: the row that says the format never uses it.
TEST(ExplainTest, TheHiddenAccessDateOfAWebsiteInFamilyOneIsExplainedByItsRow) {
  const KelmoraRun run =
      KelmoraRun::of({"explain", "--type", "nonperiodical", "--family", "1", "--option", "1"});
  ASSERT_EQ(run.status, 0) << run.err;
  const size_t at = run.out.find("\nTextBox(11) ");
  ASSERT_NE(at, std::string::npos) << run.out;
  const std::string row = run.out.substr(at + 1, run.out.find('\n', at + 1) - at - 1);
  EXPECT_NE(row.find("Access date"), std::string::npos) << row;
  EXPECT_NE(row.find(" no "), std::string::npos) << row;
  EXPECT_NE(row.find("the row \"AccessDate=__ALWAYS_DISABLE__\""), std::string::npos) << row;

  const KelmoraRun json = KelmoraRun::of(
      {"explain", "--type", "nonperiodical", "--family", "1", "--option", "1", "--json"});
  ASSERT_EQ(json.status, 0) << json.err;
  bool found = false;
  for (const Json& widget : json.events()) {
    if (widget["widget"] != "TextBox(11)")
      continue;
    found = true;
    EXPECT_EQ(widget["shown"], false);
    EXPECT_EQ(widget["rule"]["enableKey"], "AccessDate=__ALWAYS_DISABLE__");
    EXPECT_EQ(widget["rule"]["formatFamily"], 1);
    EXPECT_EQ(widget["command"], "hide");
    EXPECT_EQ(widget["key"], "AccessDate");
  }
  EXPECT_TRUE(found);
}

// The reason in words, for each kind of condition the frames write: always
// and never, one that holds or not with the value it read, the first
// failing condition of "&&", the alternative of "||" that held, a caption
// given or given back, and the platform's search finding an empty value in
// any text.
TEST(ExplainTest, EachKindOfConditionIsToldInWords) {
  struct Row {
    std::vector<std::string> form;
    const char* values;  // field values to load, or nothing
    const char* widget;
    const char* because;  // how the reason ends
  };
  const Row rows[] = {
      {{"nonperiodical", "1", "1"},
       nullptr,
       "TextBox(10)",
       "shows and enables it: the format always uses it"},
      {{"nonperiodical", "1", "1"}, nullptr, "TextBox(11)", "hides it: the format never uses it"},
      {{"nonperiodical", "1", "1"},
       nullptr,
       "TextBox(12)",
       "hides it: \"Online<>\" does not hold: Online is empty"},
      {{"nonperiodical", "1", "1"},
       R"({"Online": "https://tides.example.org"})",
       "TextBox(12)",
       "shows and enables it: all its conditions held"},
      {{"nonperiodical", "3", "0"},
       nullptr,
       "TextBox(5)",
       "shows and enables it: \"SubworkComboLabel<>Entry\" holds: SubworkComboLabel reads "
       "\"Chapter title\""},
      {{"nonperiodical", "3", "0"},
       R"({"SubworkComboLabel": "Entry"})",
       "TextBox(5)",
       "disables it: none of its alternatives held"},
      {{"nonperiodical", "3", "0"},
       R"({"SubworkComboLabel": ""})",
       "TextBox(5)",
       "disables it: none of its alternatives held"},
      {{"periodical", "1", "1"},
       nullptr,
       "ComboLabel(2)",
       "gives it the caption \"Serialized\": \"PeriodicalJournalOption=True\" does not hold: "
       "PeriodicalJournalOption reads \"False\"; the frame's own code (show all, the option, "
       "the layout) hides it"},
      {{"periodical", "2", "0"},
       nullptr,
       "TextBox(9)",
       "hides it: \"PeriodicalOnline<>\" does not hold: PeriodicalOnline is empty"},
  };
  for (const Row& row : rows) {
    testing::ScratchDir dir;
    std::vector<std::string> arguments = {"explain",   "--type",   row.form[0], "--family",
                                          row.form[1], "--option", row.form[2], "--json"};
    if (row.values != nullptr) {
      arguments.push_back("--values");
      arguments.push_back(dir.write("values.json", row.values));
    }
    const KelmoraRun run = KelmoraRun::of(arguments);
    ASSERT_EQ(run.status, 0) << run.err;
    std::string because;
    for (const Json& widget : run.events())
      if (widget["widget"] == row.widget)
        because = widget["because"].get<std::string>();
    EXPECT_TRUE(because.ends_with(row.because))
        << row.widget << " in " << row.form[0] << " " << row.form[1] << ": " << because;
  }
}

TEST(ExplainTest, BadFormsAreRefusedInOneLine) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"explain", "--type", "thesis", "--family", "1"},
        {"explain", "--type", "periodical"},
        {"fields", "--type", "periodical", "--family", "7"},
        {"fields", "--type", "periodical", "--family", "1", "--matrix"}}) {
    const KelmoraRun run = KelmoraRun::of(arguments);
    EXPECT_EQ(run.status, 2) << arguments[1];
    EXPECT_EQ(run.errLines().size(), 1u) << run.err;
  }
}

// README shows the fields of each type by family as the program prints
// them; a change of the rules or the catalogues must reach it.
TEST(ExplainTest, TheReadmesFieldTablesAreThoseTheProgramPrints) {
  std::ifstream in(KELMORA_README);
  const std::string readme((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ASSERT_FALSE(readme.empty());
  for (int16_t type : {1, 0, 4}) {
    const std::string table = Explain::matrixText(type);
    EXPECT_NE(readme.find(table), std::string::npos)
        << "README's table of type " << type << " is not current; it reads now:\n"
        << table;
  }
}

}  // namespace
}  // namespace kelmora::tools
