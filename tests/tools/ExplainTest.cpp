#include "cli/Explain.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tools/KelmoraRun.h"

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
