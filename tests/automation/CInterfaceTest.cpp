#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../surface/SpyControl.h"
#include "../surface/TestForm.h"
#include "automation/ObjectHandle.h"
#include "automation/TypeLibrary.h"
#include "automation/kelmora.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/MessageBox.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

// The host's view of the type library, read back out of the variants.
class TypeInfoTest : public ::testing::Test {
 protected:
  void SetUp() override {
    kelmora_variant_init(&info);
    ASSERT_EQ(kelmora_type_info(&info, nullptr), 0);
  }
  void TearDown() override { kelmora_variant_clear(&info); }

  static const kelmora_variant& at(const kelmora_variant& array, int32_t index) {
    EXPECT_EQ(array.type, KELMORA_VT_ARRAY);
    EXPECT_LT(index, array.value.array.count);
    return array.value.array.items[index];
  }
  static std::string text(const kelmora_variant& value) {
    EXPECT_EQ(value.type, KELMORA_VT_STRING);
    return value.type == KELMORA_VT_STRING ? value.value.string : "";
  }
  // The row of a named entry in one of the lists.
  static const kelmora_variant* named(const kelmora_variant& list, const std::string& name) {
    for (int32_t i = 0; i < list.value.array.count; ++i)
      if (text(at(list.value.array.items[i], 0)) == name)
        return &list.value.array.items[i];
    return nullptr;
  }
  const kelmora_variant* member(const std::string& interface, const std::string& name,
                                int32_t kind) {
    const kelmora_variant* row = named(at(info, 5), interface);
    if (row == nullptr)
      return nullptr;
    const kelmora_variant& members = at(*row, 2);
    for (int32_t i = 0; i < members.value.array.count; ++i) {
      const kelmora_variant& m = members.value.array.items[i];
      if (text(at(m, 0)) == name && at(m, 2).value.long_value == kind)
        return &m;
    }
    return nullptr;
  }

  kelmora_variant info;
};

TEST_F(TypeInfoTest, TheLibraryAndItsClassesAreNamedWithTheirIdentifiers) {
  EXPECT_EQ(text(at(info, 0)), "Kelmora");
  EXPECT_EQ(text(at(info, 1)), "{9870D87C-ADEB-431D-AD2B-74946F0C55CF}");
  EXPECT_EQ(at(info, 2).value.long_value, 1);
  struct Row {
    const char* name;
    const char* clsid;
    int32_t kind;
    const char* defaultInterface;
  };
  const Row rows[] = {
      {"Main2", "{A9128F7F-8856-44FF-B123-747A84F4E685}", KELMORA_CLASS_CREATABLE, "_Main2"},
      {"Esource", "{823618C1-BF34-48C9-A345-091F9521C21F}", KELMORA_CLASS_CONTROL, "_Esource"},
      {"Model", "{30274DA4-86E5-46CC-8F89-E2BFA2D273C2}", KELMORA_CLASS_NOT_CREATABLE, "_Model"},
  };
  const kelmora_variant& classes = at(info, 4);
  EXPECT_EQ(classes.value.array.count, static_cast<int32_t>(TypeLibrary::classes().size()));
  for (const auto& row : rows) {
    const kelmora_variant* found = named(classes, row.name);
    ASSERT_NE(found, nullptr) << row.name;
    EXPECT_EQ(text(at(*found, 1)), row.clsid) << row.name;
    EXPECT_EQ(at(*found, 2).value.long_value, row.kind) << row.name;
    EXPECT_EQ(text(at(*found, 3)), row.defaultInterface) << row.name;
  }
}

// What a host needs to call a member the right way: a property read with
// an argument (Main2.Model), one without, a write, a method with optional
// arguments.
TEST_F(TypeInfoTest, MembersCarryTheirKindArgumentsAndResult) {
  struct Row {
    const char* interface;
    const char* name;
    int32_t kind;
    int32_t dispid;
    std::vector<std::string> arguments;
    const char* result;
  };
  const Row rows[] = {
      {"_Main2", "Model", KELMORA_PROPERTY_GET, 0x68030000, {"whichType:Integer"}, "Model"},
      {"_Model", "KeyIndex", KELMORA_PROPERTY_GET, 0x68030004, {}, "Integer"},
      {"_Model", "initializedToFormat", KELMORA_PROPERTY_PUT, 0x40030000, {"value:Boolean"}, ""},
      {"_FrameContainer",
       "SynchronizeFieldsWithModel",
       KELMORA_METHOD,
       0x6003000a,
       {"whichType:Integer", "values:String()"},
       ""},
      {"_Periodical",
       "ComboLabelCaption",
       KELMORA_METHOD,
       0x6003002f,
       {"Index:Integer", "value:String"},
       "String"},
  };
  for (const auto& row : rows) {
    const kelmora_variant* found = member(row.interface, row.name, row.kind);
    ASSERT_NE(found, nullptr) << row.name;
    EXPECT_EQ(at(*found, 1).value.long_value, row.dispid) << row.name;
    std::vector<std::string> arguments;
    const kelmora_variant& given = at(*found, 3);
    for (int32_t i = 0; i < given.value.array.count; ++i)
      arguments.push_back(text(at(given.value.array.items[i], 0)) + ":" +
                          text(at(given.value.array.items[i], 1)));
    EXPECT_EQ(arguments, row.arguments) << row.name;
    EXPECT_EQ(text(at(*found, 4)), row.result) << row.name;
  }
}

TEST_F(TypeInfoTest, OptionalArgumentsCarryTheValueTheyTakeWhenOmitted) {
  const kelmora_variant* handler = member("_FrameContainer", "widgetChangeHandler", KELMORA_METHOD);
  ASSERT_NE(handler, nullptr);
  const kelmora_variant& arguments = at(*handler, 3);
  ASSERT_EQ(arguments.value.array.count, 6);
  const kelmora_variant& required = arguments.value.array.items[0];
  EXPECT_EQ(at(required, 2).value.boolean, 0);
  EXPECT_EQ(at(required, 3).type, KELMORA_VT_EMPTY);
  struct Row {
    int32_t type;
    int16_t number;
  };
  const Row defaults[] = {{KELMORA_VT_OBJECT, 0},
                          {KELMORA_VT_BOOLEAN, 0},
                          {KELMORA_VT_INTEGER, -1},
                          {KELMORA_VT_STRING, 0},
                          {KELMORA_VT_STRING, 0}};
  for (int32_t i = 1; i < 6; ++i) {
    const kelmora_variant& argument = arguments.value.array.items[i];
    const kelmora_variant& fallback = at(argument, 3);
    EXPECT_NE(at(argument, 2).value.boolean, 0) << i;
    EXPECT_EQ(fallback.type, defaults[i - 1].type) << i;
    if (fallback.type == KELMORA_VT_OBJECT) {
      EXPECT_EQ(fallback.value.object, nullptr);
    }
    if (fallback.type == KELMORA_VT_INTEGER) {
      EXPECT_EQ(fallback.value.integer, defaults[i - 1].number);
    }
    if (fallback.type == KELMORA_VT_STRING) {
      EXPECT_STREQ(fallback.value.string, "");
    }
  }
}

TEST(CMessageBoxTest, BoxesGoToTheHostsFunctionUntilItPutsBackTheDefault) {
  std::vector<std::string> heard;
  auto show = [](void* context, const char* text) {
    static_cast<std::vector<std::string>*>(context)->push_back(text);
  };
  ASSERT_EQ(kelmora_set_message_box(show, &heard, nullptr), 0);
  MessageBox::MsgBox("The date is not valid");
  ASSERT_EQ(kelmora_set_message_box(nullptr, nullptr, nullptr), 0);
  MessageBox::MsgBox("After");
  EXPECT_EQ(heard, std::vector<std::string>{"The date is not valid"});
  EXPECT_EQ(MessageBox::current().shown(), std::vector<std::string>{"After"});
}

class CUserActionsTest : public ::testing::Test {
 public:
  void SetUp() override {
    form = UserControl::create<testing::SpyControl>("Spy", events);
    form->buildForm(testing::kTestForm);
  }
  void TearDown() override {
    for (auto* handle : handles) kelmora_release(handle);
    kelmora_error_clear(&error);
    UserActions::focusAway();
  }
  kelmora_object* handle(const std::string& name, int16_t index) {
    handles.push_back(kelmora_object::make(form->widget<Widget>(name, index)));
    return handles.back();
  }

  std::vector<std::string> events;
  std::shared_ptr<testing::SpyControl> form;
  std::vector<kelmora_object*> handles;
  kelmora_error error{0, nullptr};
};

TEST_F(CUserActionsTest, SelectingClickingAndCheckingActAsAUserWould) {
  auto combo = form->widget<ComboBox>("ComboBox", 0);
  for (const char* item : {"Regular", "Abstract", "Review"}) combo->AddItem(item);
  auto* list = handle("ComboBox", 0);
  EXPECT_EQ(kelmora_user_select_index(list, 2, &error), 0);
  EXPECT_EQ(combo->Text(), "Review");
  EXPECT_EQ(kelmora_user_select_text(list, "Abstract", &error), 0);
  EXPECT_EQ(combo->ListIndex(), 1);

  EXPECT_EQ(kelmora_user_click(handle("OptionButton", 0), &error), 0);
  EXPECT_TRUE(form->widget<OptionButton>("OptionButton", 0)->Value());

  auto box = form->widget<CheckBox>("DeprecatedCheckBox", 1);
  box->Visible(true);
  box->Value(CheckBox::kGrayed);
  auto* check = handle("DeprecatedCheckBox", 1);
  EXPECT_EQ(kelmora_user_check(check, CheckBox::kChecked, &error), 0);
  EXPECT_EQ(box->Value(), CheckBox::kChecked);
  EXPECT_EQ(kelmora_user_check(check, CheckBox::kChecked, &error), 0);
  EXPECT_EQ(box->Value(), CheckBox::kChecked) << "already checked: no click";
  EXPECT_EQ(kelmora_user_click(check, &error), 0);
  EXPECT_EQ(box->Value(), CheckBox::kUnchecked);
}

TEST_F(CUserActionsTest, WhatAUserCannotDoFailsAndChangesNothing) {
  auto combo = form->widget<ComboBox>("ComboBox", 0);
  combo->AddItem("Regular");
  struct Row {
    const char* what;
    int32_t (*act)(CUserActionsTest&);
    int32_t number;
  };
  const Row rows[] = {
      {"an entry the list lacks",
       [](CUserActionsTest& t) {
         return kelmora_user_select_text(t.handle("ComboBox", 0), "Review", &t.error);
       },
       380},
      {"clicking a text box",
       [](CUserActionsTest& t) { return kelmora_user_click(t.handle("TextBox", 0), &t.error); },
       13},
      {"the third state of a check box",
       [](CUserActionsTest& t) {
         return kelmora_user_check(t.handle("DeprecatedCheckBox", 1), 2, &t.error);
       },
       380},
      {"clearing a disabled text box",
       [](CUserActionsTest& t) { return kelmora_user_clear(t.handle("TextBox", 9), &t.error); }, 5},
      {"no widget at all",
       [](CUserActionsTest& t) { return kelmora_user_mouse_move(nullptr, &t.error); }, 91},
  };
  form->widget<TextBox>("TextBox", 9)->Text("kept");
  for (const auto& row : rows) {
    EXPECT_EQ(row.act(*this), row.number) << row.what;
    EXPECT_EQ(error.number, row.number) << row.what;
    kelmora_error_clear(&error);
  }
  EXPECT_EQ(combo->ListIndex(), -1);
  EXPECT_EQ(form->widget<TextBox>("TextBox", 9)->Text(), "kept");
}

}  // namespace
}  // namespace kelmora
