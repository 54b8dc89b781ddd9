#include <gtest/gtest.h>

#include "SpyControl.h"
#include "TestForm.h"
#include "platform/RuntimeError.h"
#include "support/ErrorOf.h"
#include "surface/CheckBox.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

using testing::kTestForm;
using testing::SpyControl;

class WidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    form = UserControl::create<SpyControl>("Spy", events);
    form->buildForm(kTestForm);
  }
  void TearDown() override { UserActions::focusAway(); }

  std::shared_ptr<TextBox> text(int16_t index) { return form->widget<TextBox>("TextBox", index); }
  std::shared_ptr<OptionButton> option(int16_t index) {
    return form->widget<OptionButton>("OptionButton", index);
  }
  std::shared_ptr<ComboBox> combo() { return form->widget<ComboBox>("ComboBox", 0); }

  std::vector<std::string> events;
  std::shared_ptr<SpyControl> form;
};

using testing::errorOf;

TEST_F(WidgetTest, ChangeRunsDuringTheWriteAndOnlyOnARealChange) {
  auto box = text(0);
  box->Text("Smith");
  events.push_back("written");
  box->Text("Smith");
  form->widget<Label>("ComboLabel", 0)->Caption("Article title");
  form->widget<Label>("ComboLabel", 0)->Caption("Review");
  EXPECT_EQ(events,
            (std::vector<std::string>{"Change TextBox(0)", "written", "Change ComboLabel(0)"}));
}

TEST_F(WidgetTest, TypingRaisesChangeLikeAProgramsWrite) {
  UserActions::typeInto(*text(0), "ab");
  UserActions::clear(*text(0));
  UserActions::clear(*text(0));
  EXPECT_EQ(events, (std::vector<std::string>{"EnterFocus Spy", "Change TextBox(0)",
                                              "Change TextBox(0)", "Change TextBox(0)"}));
  EXPECT_EQ(text(0)->Text(), "");
}

TEST_F(WidgetTest, SelectingAnOptionClearsItsSiblingsInTheSameContainerOnly) {
  UserActions::click(*option(1));
  EXPECT_FALSE(option(0)->Value());
  EXPECT_TRUE(option(1)->Value());
  EXPECT_TRUE(option(2)->Value()) << "another container is another group";
  option(1)->Value(true);
  option(1)->Value(false);
  EXPECT_EQ(events, (std::vector<std::string>{"EnterFocus Spy", "Click OptionButton(1)"}));
}

TEST_F(WidgetTest, AListOnlyComboSelectsByTextAndClicksOnlyWhenListIndexChanges) {
  auto list = combo();
  for (const char* item : {"Regular", "Abstract", "Review"}) list->AddItem(item);
  list->Text("Abstract");
  list->Text("Abstract");
  list->ListIndex(1);
  EXPECT_EQ(list->ListIndex(), 1);
  EXPECT_EQ(errorOf([&] { list->Text("abstract"); }), kInvalidPropertyValue);
  EXPECT_EQ(errorOf([&] { list->ListIndex(3); }), kInvalidPropertyValue);
  EXPECT_EQ(errorOf([&] { list->List(3); }), kInvalidPropertyArrayIndex);
  list->RemoveItem(0);
  EXPECT_EQ(list->ListIndex(), 0) << "the selection follows its entry";
  EXPECT_EQ(list->Text(), "Abstract");
  list->Clear();
  EXPECT_EQ(list->ListIndex(), -1);
  EXPECT_EQ(errorOf([&] { list->ListIndex(0); }), kInvalidPropertyValue) << "empty list";
  list->AddItem("Regular");
  list->ListIndex(0);
  EXPECT_EQ(events, (std::vector<std::string>{"Click ComboBox(0)", "Click ComboBox(0)"}));
}

TEST_F(WidgetTest, ADropDownComboTakesFreeTextWithoutClick) {
  auto free = form->add<ComboBox>("Free");
  free->AddItem("Published");
  free->Text("Published");
  EXPECT_EQ(free->ListIndex(), 0);
  free->Text("Printed");
  EXPECT_EQ(free->ListIndex(), -1);
  EXPECT_EQ(events, (std::vector<std::string>{"Change Free", "Change Free"}));
}

TEST_F(WidgetTest, CheckBoxValueIsANumberAndRejectsOthers) {
  auto box = form->widget<CheckBox>("DeprecatedCheckBox", 1);
  box->Value(CheckBox::kGrayed);
  EXPECT_EQ(box->DefaultValue().toString(), "2");
  EXPECT_EQ(errorOf([&] { box->Value(3); }), kInvalidPropertyValue);
  EXPECT_EQ(box->Value(), CheckBox::kGrayed);
}

TEST_F(WidgetTest, ClassNamesDefaultValuesAndIndexes) {
  struct Row {
    const char* name;
    int16_t index;
    const char* className;
    const char* defaultText;
  };
  const Row rows[] = {
      {"TextBox", 0, "TextBox", ""},
      {"ComboBox", 0, "ComboBox", ""},
      {"OptionButton", 0, "OptionButton", "True"},
      {"DeprecatedCheckBox", 1, "CheckBox", "0"},
      {"ComboLabel", 0, "Label", "Article title"},
      {"AdvancedFieldsFrame", Widget::kNoIndex, "Frame", "AdvancedFieldsFrame"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    auto widget = form->Controls().find(row.name, row.index);
    ASSERT_TRUE(widget);
    EXPECT_EQ(widget->ClassName(), row.className);
    EXPECT_EQ(widget->TypeName(), row.className);
    EXPECT_EQ(widget->DefaultValue().toString(), row.defaultText);
    if (row.index == Widget::kNoIndex) {
      EXPECT_EQ(errorOf([&] { widget->Index(); }), kMemberNotSupported);
    } else {
      EXPECT_EQ(widget->Index(), row.index);
    }
  }
  EXPECT_EQ(errorOf([&] { form->DefaultValue(); }), kMemberNotSupported);
}

}  // namespace
}  // namespace kelmora
