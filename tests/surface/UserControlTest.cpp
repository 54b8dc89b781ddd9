#include <gtest/gtest.h>

#include "SpyControl.h"
#include "TestForm.h"
#include "platform/OpenForms.h"
#include "platform/RuntimeError.h"
#include "support/ErrorOf.h"
#include "surface/ControlRegistry.h"
#include "surface/Focus.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

namespace kelmora {
namespace {

using testing::kTestForm;
using testing::SpyControl;

constexpr const char* kSpyIdentifier = "KelmoraTest.Spy";

// Controls made through the registry log here; each test starts it empty.
std::vector<std::string>& registryLog() {
  static std::vector<std::string> log;
  return log;
}

std::shared_ptr<UserControl> makeSpy() {
  auto spy = std::make_shared<SpyControl>(registryLog());
  spy->buildForm(kTestForm);
  return spy;
}

using testing::errorOf;

class UserControlTest : public ::testing::Test {
 protected:
  void SetUp() override {
    registryLog().clear();
    ControlRegistry::Register(kSpyIdentifier, &makeSpy);
    form = UserControl::create<SpyControl>("Spy", events);
    form->buildForm(kTestForm);
  }
  void TearDown() override {
    UserActions::focusAway();
    ControlRegistry::Unregister(kSpyIdentifier);
  }

  std::shared_ptr<TextBox> text(int16_t index) { return form->widget<TextBox>("TextBox", index); }

  std::vector<std::string> events;
  std::shared_ptr<SpyControl> form;
};

TEST_F(UserControlTest, FormTablesBecomePixelsOnTheSurfaceAndStayTwipsInAFrame) {
  EXPECT_EQ(text(4)->Width(), 73.0f);
  EXPECT_EQ(text(4)->Left(), 80.0f);
  EXPECT_EQ(text(8)->Width(), 3340.0f);
  EXPECT_EQ(text(8)->Left(), 1193.0f);
  EXPECT_TRUE(text(8)->countsTwips());
  EXPECT_FALSE(text(4)->countsTwips());
  const SurfaceRect onSurface = text(8)->surfaceRect();
  EXPECT_FLOAT_EQ(onSurface.left, 313.0f + 1193.0f / 15.0f);
  EXPECT_FLOAT_EQ(onSurface.width, 3340.0f / 15.0f);
}

TEST_F(UserControlTest, TheCollectionKeepsTableOrderAndFailsLikeTheRunTime) {
  auto& controls = form->Controls();
  ASSERT_EQ(controls.Count(), static_cast<int32_t>(kTestForm.size()));
  for (int32_t i = 0; i < controls.Count(); ++i) {
    EXPECT_EQ(controls.Item(i)->Tag(), kTestForm[static_cast<size_t>(i)].tag);
  }
  EXPECT_EQ(errorOf([&] { controls.Item(controls.Count()); }), kSubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { controls.Item("Nope"); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([&] { form->add<TextBox>("TextBox", 0); }), kKeyAlreadyExists);
  EXPECT_EQ(errorOf([&] { form->add<TextBox>("TextBox"); }), kKeyAlreadyExists);
  EXPECT_EQ(errorOf([&] { form->widget<TextBox>("ComboLabel", 0); }), kTypeMismatch);
  EXPECT_EQ(text(0)->Parent(), form.get());
  EXPECT_EQ(text(8)->Parent(), form.get()) << "Parent is the user control, not the Frame";
}

TEST_F(UserControlTest, VisibleReadsTheOwnFlagInsideAHiddenFrame) {
  form->widget<Frame>("AdvancedFieldsFrame")->Visible(false);
  EXPECT_TRUE(text(8)->Visible());
  EXPECT_FALSE(text(8)->isShowing());
  EXPECT_EQ(errorOf([&] { text(8)->SetFocus(); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([&] { text(9)->SetFocus(); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([&] { form->widget<Label>("ComboLabel", 0)->SetFocus(); }),
            kMemberNotSupported);
  EXPECT_FALSE(Focus::current());
}

TEST_F(UserControlTest, MouseMovesPassThroughDisabledWidgetsToWhatLiesBeneath) {
  UserActions::moveMouseOver(*text(9));  // disabled, over the catcher label
  text(9)->Enabled(true);
  UserActions::moveMouseOver(*text(9));
  text(9)->Enabled(false);
  form->widget<Label>("AccessDateHack")->Enabled(false);
  UserActions::moveMouseOver(*text(9));
  UserActions::moveMouseAt(*form, 2.0f, 150.0f);  // bare surface
  form->widget<Frame>("AdvancedFieldsFrame")->Enabled(false);
  UserActions::moveMouseOver(*text(8));
  text(9)->raiseMouseMove();  // disabled: nothing, even when asked directly
  EXPECT_EQ(events, (std::vector<std::string>{"MouseMove AccessDateHack", "MouseMove TextBox(9)",
                                              "MouseMove AdvancedFieldsFrame", "MouseMove surface",
                                              "MouseMove surface"}));
}

TEST_F(UserControlTest, FocusMovesRaiseLostFocusThenEnterFocusInOrder) {
  auto outer = UserControl::create<SpyControl>("Outer", events);
  auto inner = std::static_pointer_cast<SpyControl>(
      std::dynamic_pointer_cast<UserControl>(outer->Controls().Add(kSpyIdentifier, "Inner")));
  inner->Visible(true);
  text(0)->SetFocus();
  events.clear();
  auto innerBox = inner->widget<TextBox>("TextBox", 4);
  innerBox->SetFocus();
  inner->widget<TextBox>("TextBox", 0)->SetFocus();
  EXPECT_EQ(outer->ActiveControl(), inner);
  EXPECT_EQ(inner->ActiveControl()->Tag(), "PeriodicalAuthor,author");
  EXPECT_FALSE(form->ActiveControl());
  UserActions::focusAway();
  EXPECT_FALSE(inner->ActiveControl());
  EXPECT_EQ(events,
            (std::vector<std::string>{"LostFocus TextBox(0) active Nothing", "EnterFocus Outer"}));
  EXPECT_EQ(registryLog(),
            (std::vector<std::string>{"EnterFocus Inner", "LostFocus TextBox(4) active TextBox(0)",
                                      "LostFocus TextBox(0) active Nothing"}));
}

TEST_F(UserControlTest, SetFocusOnAUserControlPicksTheFirstWidgetInTabOrder) {
  form->SetFocus();
  EXPECT_EQ(Focus::current(), form->widget<OptionButton>("OptionButton", 0));
  text(4)->SetFocus();
  form->SetFocus();  // the active widget keeps it
  EXPECT_EQ(Focus::current(), text(4));
}

TEST_F(UserControlTest, AddCreatesByIdentifierHiddenAndListedAmongOpenForms) {
  EXPECT_EQ(errorOf([&] { form->Controls().Add("Kelmora.Nothing", "X"); }), kCannotCreateObject);
  auto added = form->Controls().Add(kSpyIdentifier, "Probe");
  EXPECT_EQ(added->ClassName(), "Spy");
  EXPECT_FALSE(added->Visible());
  EXPECT_EQ(added->Parent(), form.get());
  EXPECT_EQ(errorOf([&] { form->Controls().Add(kSpyIdentifier, "Probe"); }), kKeyAlreadyExists);
  auto listed = [](const std::string& name) {
    for (const auto& [formName, object] : OpenForms::List()) {
      if (formName == name)
        return true;
    }
    return false;
  };
  EXPECT_TRUE(listed("Spy"));
  EXPECT_TRUE(listed("Probe"));
  form->Controls().Remove("Probe");
  EXPECT_FALSE(listed("Probe"));
  EXPECT_EQ(added->Parent(), nullptr);
  std::static_pointer_cast<UserControl>(added)->terminate();
  EXPECT_EQ(registryLog(), (std::vector<std::string>{"Terminate Probe"}));
}

TEST_F(UserControlTest, RemovingAFrameTakesItsContentsAlong) {
  auto inside = text(8);
  auto outside = text(0);
  inside->SetFocus();
  events.clear();
  form->Controls().Remove("AdvancedFieldsFrame");
  EXPECT_EQ(form->Controls().Count(), static_cast<int32_t>(kTestForm.size()) - 6);
  EXPECT_EQ(inside->Parent(), nullptr);
  EXPECT_EQ(inside->Container(), nullptr);
  EXPECT_FALSE(Focus::current()) << "the focus goes with the removed widget, silently";
  EXPECT_TRUE(events.empty());
}

TEST_F(UserControlTest, WidgetsOutliveTheirFormInAnyOrder) {
  auto outer = UserControl::create<SpyControl>("Outer", events);
  auto inner = outer->Controls().Add(kSpyIdentifier, "Inner");
  auto deep = std::static_pointer_cast<UserControl>(inner)->widget<TextBox>("TextBox", 8);
  inner->Visible(true);
  deep->SetFocus();
  outer->terminate();
  EXPECT_EQ(events.back(), "Terminate Outer");
  EXPECT_EQ(registryLog(), (std::vector<std::string>{"EnterFocus Inner", "Terminate Inner"}));
  outer.reset();  // the nested control survives through `inner`
  EXPECT_EQ(inner->Parent(), nullptr);
  inner.reset();  // and the widget through `deep`
  EXPECT_EQ(deep->Parent(), nullptr);
  deep->Text("still usable");
  UserActions::focusAway();
}

TEST_F(UserControlTest, DropsReachTheHandlerWhichMayReplaceTheData) {
  auto given = std::make_shared<DataObject>();
  auto replacement = std::make_shared<DataObject>();
  form->replacementData = replacement;
  EXPECT_EQ(UserActions::drop(*form->widget<Frame>("AdvancedFieldsFrame"), given), replacement);
  EXPECT_EQ(UserActions::drop(*form, given), replacement);
  EXPECT_EQ(events,
            (std::vector<std::string>{"OLEDragDrop AdvancedFieldsFrame", "OLEDragDrop surface"}));
}

class PropertyLog : public PropertyObserver {
 public:
  explicit PropertyLog(std::vector<std::string>& log) : mLog(log) {}
  void propertyChanged(Widget& widget, WidgetProperty property) override {
    mLog.push_back(widget.Name() + " property " + std::to_string(static_cast<int>(property)));
  }

 private:
  std::vector<std::string>& mLog;
};

TEST_F(UserControlTest, ObserversSeeEachRealChangeBeforeTheEvent) {
  PropertyLog observer(events);
  auto box = text(0);
  box->addObserver(&observer);
  box->Text("x");
  box->Text("x");
  box->Visible(true);
  box->Left(3.0f);
  box->removeObserver(&observer);
  box->Left(4.0f);
  const auto text = std::to_string(static_cast<int>(WidgetProperty::Text));
  const auto left = std::to_string(static_cast<int>(WidgetProperty::Left));
  EXPECT_EQ(events, (std::vector<std::string>{"TextBox property " + text, "Change TextBox(0)",
                                              "TextBox property " + left}));
}

// Typing is by character: a key adds one whole UTF-8 sequence, never a
// lone byte of one; bytes that are no UTF-8 go one at a time.
TEST_F(UserControlTest, TypingAddsOneWholeCharacterPerKey) {
  struct TextSeen : PropertyObserver {
    std::vector<std::string> texts;
    void propertyChanged(Widget& widget, WidgetProperty property) override {
      if (property == WidgetProperty::Text)
        texts.push_back(dynamic_cast<TextBox&>(widget).Text());
    }
  } seen;
  struct Row {
    std::string typed;
    std::vector<std::string> texts;
  };
  const Row rows[] = {
      {"\xC3\xA9t\xC3\xA9", {"\xC3\xA9", "\xC3\xA9t", "\xC3\xA9t\xC3\xA9"}},
      {"\xE2\x82\xAC\xF0\x9F\x93\x9A", {"\xE2\x82\xAC", "\xE2\x82\xAC\xF0\x9F\x93\x9A"}},
      {"\xC3(", {"\xC3", "\xC3("}},
      {"a\xE2\x82", {"a", "a\xE2", "a\xE2\x82"}},
  };
  for (const auto& row : rows) {
    auto box = text(4);
    box->Text("");
    box->addObserver(&seen);
    seen.texts.clear();
    UserActions::typeInto(*box, row.typed);
    box->removeObserver(&seen);
    EXPECT_EQ(seen.texts, row.texts) << ::testing::PrintToString(row.typed);
  }
}

}  // namespace
}  // namespace kelmora
