#include "hostkit/FormatSettings.h"

#include <gtest/gtest.h>

#include <regex>

#include "platform/RuntimeError.h"
#include "support/ErrorOf.h"

namespace kelmora::host {
namespace {

using kelmora::testing::errorOf;

TEST(FormatSettingsTest, TheFourFamiliesShipAsNumberedFilesAndAreCompiledIn) {
  std::vector<std::string> names;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(KELMORA_EXAMPLES_DIR) / "formats"))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"family-0.json", "family-1.json", "family-2.json",
                                             "family-3.json"}));
  for (int32_t family = 0; family <= 3; ++family) {
    const auto path = std::filesystem::path(KELMORA_EXAMPLES_DIR) / "formats" /
                      ("family-" + std::to_string(family) + ".json");
    auto fromFile = FormatSettings::load(path);
    auto compiledIn = FormatSettings::family(family);
    EXPECT_EQ(fromFile->Format(), family);
    EXPECT_EQ(fromFile->members(), compiledIn->members()) << "family " << family;
  }
}

TEST(FormatSettingsTest, TheAccessDateDiffersAcrossTheFamilies) {
  // The families between them cover every access date branch of a format.
  EXPECT_FALSE(FormatSettings::family(0)->accessDateFormat().empty());
  EXPECT_TRUE(FormatSettings::family(1)->accessDateFormat().empty());
  EXPECT_FALSE(FormatSettings::family(2)->alwaysEnableAccessDate());
  EXPECT_TRUE(FormatSettings::family(3)->alwaysEnableAccessDate());
}

TEST(FormatSettingsTest, MissingMembersFailAsOnAHostWithoutThem) {
  FormatSettings settings(
      Json{{"Format", 2}, {"outputTemplates", {{"13", {{"urlPrefixes", {"doi:"}}}}}}}, "inline");
  EXPECT_EQ(settings.Format(), 2);
  EXPECT_EQ(errorOf([&] { settings.accessDateFormat(); }), kMemberNotSupported);
  std::string doi = "doi:10.1/x";
  std::string plain = "10.1/x";
  EXPECT_TRUE(settings.outputTemplates(13)->isURL(doi));
  EXPECT_FALSE(settings.outputTemplates(13)->isURL(plain));
  EXPECT_EQ(errorOf([&] { settings.outputTemplates(0); }), kSubscriptOutOfRange);
}

}  // namespace
}  // namespace kelmora::host
