#include "diagnostics/CommonFormProcessingFunctions.h"

#include <gtest/gtest.h>

#include "diagnostics/TextHelper.h"
#include "diagnostics/TranslatorWrapper.h"
#include "diagnostics/vbwProtector.h"
#include "support/FreshThread.h"
#include "support/RecordingTracingService.h"
#include "surface/Label.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

namespace kelmora {
namespace {

using testing::onFreshThread;
using testing::ScopedBridge;

TEST(CommonFormProcessingFunctionsTest, GetTagSplitsKeyAndRoleAtTheFirstComma) {
  struct Row {
    const char* tag;
    const char* key;
    const char* role;
  };
  const Row rows[] = {
      {"PeriodicalAuthor,author", "PeriodicalAuthor", "author"},
      {"PeriodicalVolume", "PeriodicalVolume", "PeriodicalVolume"},
      {"", "", ""},
      {"v579_PeriodicalIssue,issue", "v579_PeriodicalIssue", "issue"},
      {"MultiPartComboLabel,multi-vol", "MultiPartComboLabel", "multi-vol"},
      {"vIgnore_JournalCombo", "vIgnore_JournalCombo", "vIgnore_JournalCombo"},
      {"SubworkComboLabel,Part, chapter", "SubworkComboLabel", "Part, chapter"},
  };
  onFreshThread([&] {
    ScopedBridge bridge;
    auto form = UserControl::create("Form");
    auto box = form->add<TextBox>("TextBox", 0);
    for (const auto& row : rows) {
      SCOPED_TRACE(row.tag);
      box->Tag(row.tag);
      EXPECT_EQ(CommonFormProcessingFunctions::GetTag(box, false), row.key);
      EXPECT_EQ(CommonFormProcessingFunctions::GetTag(box, true), row.role);
    }
    EXPECT_EQ(CommonFormProcessingFunctions::GetTag(std::shared_ptr<Object>(), false), "");
    EXPECT_EQ(CommonFormProcessingFunctions::GetTag(std::shared_ptr<Object>(), true), "");
    EXPECT_EQ(bridge.service().countOf("before"), 0);
  });
}

TEST(CommonFormProcessingFunctionsTest, AnObjectWithoutATagTakesTheFailurePath) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    auto wrapper = std::make_shared<TranslatorWrapper>();
    EXPECT_EQ(CommonFormProcessingFunctions::GetTag(wrapper, true), "");
    const auto before = bridge.service().callsStartingWith("before");
    ASSERT_EQ(before.size(), 1u);
    EXPECT_TRUE(before[0].starts_with("before Kelmora CommonFormProcessingFunctions GetTag "))
        << before[0];
    EXPECT_NE(before[0].find(" 438 "), std::string::npos);
  });
}

TEST(CommonFormProcessingFunctionsTest, GetWidgetWithTagReturnsTheWidgetWhateverItsKey) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    auto form = UserControl::create("Form");
    auto label = form->add<Label>("YearLabel");
    label->Tag("NonPeriodicalYear");
    EXPECT_EQ(CommonFormProcessingFunctions::getWidgetWithTag(label, "SomethingElse"), label);
    EXPECT_EQ(
        bridge.service().callsStartingWith("in "),
        (std::vector<std::string>{"in Kelmora.CommonFormProcessingFunctions.getWidgetWithTag ",
                                  "in Kelmora.CommonFormProcessingFunctions.GetTag "}));
  });
}

TEST(CommonFormProcessingFunctionsTest, TranslatorWrapperValueIsTranslator) {
  onFreshThread([] {
    ScopedBridge bridge;
    vbwProtector::vbwTraceProc() = true;
    TranslatorWrapper wrapper;
    EXPECT_EQ(wrapper.value(), Variant("Translator"));
    EXPECT_EQ(wrapper.DefaultValue().toString(), "Translator");
    EXPECT_EQ(bridge.service().countOf("in Kelmora.TranslatorWrapper.value[Get]"), 2);
  });
}

TEST(CommonFormProcessingFunctionsTest, TextHelperOperationsCompareExactText) {
  const TextHelper& helper = *TextHelper::instance();
  EXPECT_TRUE(helper.TextStartsWith("vIgnore_JournalCombo", "vIgnore_").toBoolean());
  EXPECT_FALSE(helper.TextStartsWith("vignore_JournalCombo", "vIgnore_").toBoolean());
  EXPECT_TRUE(helper.TextEndsWith("SubworkComboLabel", "ComboLabel").toBoolean());
  EXPECT_FALSE(helper.TextEndsWith("Label", "ComboLabel").toBoolean());

  struct Row {
    const char* text;
    const char* before;
    const char* beforeStrict;
    const char* after;
  };
  const Row rows[] = {
      {"key,role", "key", "key", "role"},
      {"key", "key", "", "key"},
      {",role", "", "", "role"},
      {"key,", "key", "key", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    std::string_view before = row.text, strict = row.text, after = row.text;
    helper.KeepBeforeSeparator(before, ",", true);
    helper.KeepBeforeSeparator(strict, ",", false);
    helper.KeepAfterSeparator(after, ",");
    EXPECT_EQ(before, row.before);
    EXPECT_EQ(strict, row.beforeStrict);
    EXPECT_EQ(after, row.after);
  }

  std::string condition = "MediumOnly";
  helper.RemoveEnding(condition, "Only");
  EXPECT_EQ(condition, "Medium");
  helper.RemoveEnding(condition, "Only");
  EXPECT_EQ(condition, "Medium");
}

}  // namespace
}  // namespace kelmora
