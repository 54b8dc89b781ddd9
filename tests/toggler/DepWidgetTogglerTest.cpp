#include "toggler/DepWidgetToggler.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/FreshThread.h"
#include "support/RecordingTracingService.h"
#include "surface/CheckBox.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/SystemColors.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

namespace kelmora {
namespace {

using testing::onFreshThread;
using testing::ScopedBridge;

constexpr Color kCustomBack = 0x00123456;

// A form whose widgets are registered under keys, as a frame's proxy does:
// the overall index of a key is the widget's place in `controls`.
struct Form {
  std::shared_ptr<UserControl> surface = UserControl::create("Form");
  DepWidgetToggler::Controls controls;
  Dictionary keys;
  DepWidgetToggler toggler;

  Form() { toggler.Reset(); }
  ~Form() { surface->terminate(); }

  template <typename T>
  std::shared_ptr<T> add(const std::string& key, const std::string& name = "") {
    auto widget = surface->add<T>(name.empty() ? key : name, static_cast<int16_t>(controls.size()));
    widget->Tag(key);
    keys.Add(key, Variant(static_cast<int16_t>(controls.size())));
    controls.push_back(widget);
    return widget;
  }
};

// The condition widget of a row, in one of four kinds, and the values it
// can show: M lies inside the residue "R", O does not, E is empty, S is the
// text "True", T reads as true.
struct ConditionKind {
  const char* name;
  const char* residue;
  const char* M;
  const char* O;
  bool canBeEmpty;
  bool canShowTrueText;
};

const ConditionKind kKinds[] = {
    {"TextBox", "Medium", "Med", "Paper", true, true},
    {"Label", "Medium", "Med", "Paper", true, true},
    {"OptionButton", "xTruex", "True", "False", false, true},
    {"CheckBox", "x1x", "1", "0", false, false},
};

void show(const ConditionKind& kind, Widget& widget, char state) {
  std::string text;
  switch (state) {
    case 'M':
      text = kind.M;
      break;
    case 'O':
      text = kind.O;
      break;
    case 'E':
      text = "";
      break;
    case 'S':
      text = "True";
      break;
    case 'T':
      text = std::string(kind.name) == "CheckBox"
                 ? "1"
                 : (std::string(kind.name) == "Label" ? "1" : "True");
      break;
  }
  if (auto* box = dynamic_cast<TextBox*>(&widget))
    box->Text(text);
  if (auto* label = dynamic_cast<Label*>(&widget))
    label->Caption(text);
  if (auto* option = dynamic_cast<OptionButton*>(&widget))
    option->Value(text == "True");
  if (auto* check = dynamic_cast<CheckBox*>(&widget))
    check->Value(static_cast<int16_t>(text == "1"));
}

TEST(DepWidgetTogglerTest, ResultsOfOneCondition) {
  // `C` is the command that follows from toggleByHiding; -1 means the
  // instruction does not apply and the widgets keep their state.
  constexpr int C = 100;
  struct Row {
    const char* condition;  // "R" stands for the kind's residue
    char state;
    int command;
  };
  const Row rows[] = {
      {"K=__ALWAYS_ENABLE__", 'O', 1},
      {"K=__ALWAYS_DISABLE__", 'M', C},
      {"K=True", 'T', 1},
      {"K=True", 'O', C},
      {"K=R", 'M', 1},
      {"K=R", 'E', 1},
      {"K=R", 'O', C},
      {"K=ROnly", 'M', 1},
      {"K=ROnly", 'E', 1},
      {"K=ROnly", 'O', -1},
      {"K<>", 'M', 1},
      {"K<>", 'E', C},
      {"K<>R", 'O', 1},
      {"K<>R", 'M', C},
      {"K<>R", 'E', C},
      {"K<>TrueOnly", 'S', C},
      {"K<>TrueOnly", 'O', -1},
  };
  onFreshThread([&] {
    ScopedBridge bridge;
    for (const auto& kind : kKinds) {
      for (const auto& row : rows) {
        if (row.state == 'E' && !kind.canBeEmpty)
          continue;
        if (row.state == 'S' && !kind.canShowTrueText)
          continue;
        for (bool hiding : {false, true}) {
          std::string condition = row.condition;
          if (auto r = condition.find('R');
              r != std::string::npos && condition.find("TrueOnly") == std::string::npos) {
            condition.replace(r, 1, kind.residue);
          }
          SCOPED_TRACE(std::string(kind.name) + " " + condition + " state " + row.state +
                       (hiding ? " hiding" : ""));
          Form form;
          std::shared_ptr<Widget> trigger;
          if (std::string(kind.name) == "TextBox")
            trigger = form.add<TextBox>("K");
          if (std::string(kind.name) == "Label")
            trigger = form.add<Label>("K");
          if (std::string(kind.name) == "OptionButton")
            trigger = form.add<OptionButton>("K");
          if (std::string(kind.name) == "CheckBox")
            trigger = form.add<CheckBox>("K");
          auto field = form.add<TextBox>("Field");
          auto label = form.add<Label>("FieldLabel");
          field->BackColor(kCustomBack);
          label->Visible(false);
          show(kind, *trigger, row.state);
          form.toggler.Add(form.keys, condition, "FieldLabel,Field", {.toggleByHiding = hiding});
          form.toggler.Execute(form.controls, 0);

          const int command = row.command == C ? (hiding ? 2 : 0) : row.command;
          switch (command) {
            case -1:
              EXPECT_TRUE(field->Visible());
              EXPECT_TRUE(field->Enabled());
              EXPECT_EQ(field->BackColor(), kCustomBack);
              EXPECT_FALSE(label->Visible());
              break;
            case 0:
              EXPECT_TRUE(field->Visible());
              EXPECT_FALSE(field->Enabled());
              EXPECT_EQ(field->BackColor(), kColorInactiveBorder);
              EXPECT_TRUE(label->Visible());
              EXPECT_FALSE(label->Enabled());
              break;
            case 1:
              EXPECT_TRUE(field->Visible());
              EXPECT_TRUE(field->Enabled());
              EXPECT_EQ(field->BackColor(), kColorWindowBackground);
              EXPECT_TRUE(label->Visible());
              EXPECT_TRUE(label->Enabled());
              break;
            case 2:
              EXPECT_FALSE(field->Visible());
              EXPECT_TRUE(field->Enabled());
              EXPECT_EQ(field->BackColor(), kCustomBack);
              EXPECT_FALSE(label->Visible());
              break;
          }
        }
      }
    }
    EXPECT_EQ(bridge.service().countOf("before"), 0);
  });
}

TEST(DepWidgetTogglerTest, CommandsOnTextBoxesAndOtherWidgets) {
  onFreshThread([] {
    ScopedBridge bridge;
    Form form;
    auto trigger = form.add<TextBox>("K");
    auto hiddenBox = form.add<TextBox>("Box");
    auto hiddenLabel = form.add<Label>("Caption");
    hiddenBox->Visible(false);
    hiddenLabel->Visible(false);
    form.toggler.Add(form.keys, "K<>", "Caption,Box");
    form.toggler.Execute(form.controls, 0);  // empty: disable
    // A disabled text box keeps its visibility; a label is shown greyed.
    EXPECT_FALSE(hiddenBox->Visible());
    EXPECT_FALSE(hiddenBox->Enabled());
    EXPECT_EQ(hiddenBox->BackColor(), kColorInactiveBorder);
    EXPECT_TRUE(hiddenLabel->Visible());
    EXPECT_FALSE(hiddenLabel->Enabled());
    trigger->Text("x");
    form.toggler.Execute(form.controls, 0);
    EXPECT_TRUE(hiddenBox->Visible());
    EXPECT_TRUE(hiddenBox->Enabled());
    EXPECT_EQ(hiddenBox->BackColor(), kColorWindowBackground);
    EXPECT_EQ(hiddenBox->Text(), "");  // no command touches a value
  });
}

TEST(DepWidgetTogglerTest, KeepExistingRemembersTheCaptionInTheTag) {
  onFreshThread([] {
    ScopedBridge bridge;
    Form form;
    auto journal = form.add<OptionButton>("Journal", "OptionButton");
    auto issueLabel = form.add<Label>("IssueLabel");
    auto plainLabel = form.add<Label>("PlainLabel");
    issueLabel->Caption("Issue");
    plainLabel->Caption("Pages");
    form.toggler.Add(form.keys, "Journal=True",
                     "IssueLabel(KEEP_EXISTING|Edition),PlainLabel(KEEP_EXISTING|Leaves)");
    journal->Value(false);
    form.toggler.Execute(form.controls, 0);
    EXPECT_EQ(issueLabel->Caption(), "Edition");
    EXPECT_EQ(issueLabel->Tag(), "IssueLabel,Issue");
    form.toggler.Execute(form.controls, 0);  // the rule's own text is never remembered
    EXPECT_EQ(issueLabel->Tag(), "IssueLabel,Issue");
    journal->Value(true);
    form.toggler.Execute(form.controls, 0);
    EXPECT_EQ(issueLabel->Caption(), "Issue");
    EXPECT_EQ(plainLabel->Caption(), "Pages");

    // Never remembered and no comma in the tag: enabling keeps the caption.
    Form fresh;
    auto option = fresh.add<OptionButton>("On", "OptionButton");
    auto label = fresh.add<Label>("L");
    label->Caption("Volume");
    label->Tag("L");
    fresh.toggler.Add(fresh.keys, "On=True", "L(KEEP_EXISTING|Tome)");
    option->Value(true);
    fresh.toggler.Execute(fresh.controls, 0);
    EXPECT_EQ(label->Caption(), "Volume");
  });
}

TEST(DepWidgetTogglerTest, EnableCarriesOverBetweenInstructionsOfOneTrigger) {
  struct Row {
    const char* second;
    bool expectEnabled;
  };
  const Row rows[] = {
      {"A=zz||B=zz", true},  // no condition true, but the first instruction enabled
      {"A=zz&&B=zz", false},
      {"A=zz", false},
  };
  onFreshThread([&] {
    ScopedBridge bridge;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.second);
      Form form;
      auto a = form.add<TextBox>("A");
      form.add<TextBox>("B");
      auto field = form.add<TextBox>("Field");
      a->Text("set");
      form.toggler.Add(form.keys, "A<>", "");
      form.toggler.Add(form.keys, row.second, "Field", {.toggleByHiding = true});
      form.toggler.Execute(form.controls, 0);
      EXPECT_EQ(field->Visible(), row.expectEnabled);
    }
  });
}

TEST(DepWidgetTogglerTest, HiddenTriggersDoNothingButOptionButtons) {
  onFreshThread([] {
    ScopedBridge bridge;
    Form form;
    auto box = form.add<TextBox>("Box");
    auto option = form.add<OptionButton>("Option", "OptionButton");
    auto fromBox = form.add<Label>("FromBox");
    auto fromOption = form.add<Label>("FromOption");
    box->Visible(false);
    option->Visible(false);
    form.toggler.Add(form.keys, "Box=__ALWAYS_DISABLE__", "FromBox", {.toggleByHiding = true});
    form.toggler.Add(form.keys, "Option=__ALWAYS_DISABLE__", "FromOption",
                     {.toggleByHiding = true});
    form.toggler.ToggleFormatDependentWidgets(form.controls);
    EXPECT_TRUE(fromBox->Visible());
    EXPECT_FALSE(fromOption->Visible());
  });
}

TEST(DepWidgetTogglerTest, AFullPassRunsTriggersInOrderOfFirstRegistration) {
  onFreshThread([] {
    ScopedBridge bridge;
    Form form;
    auto b = form.add<TextBox>("B");
    auto a = form.add<TextBox>("A");
    auto label = form.add<Label>("L");
    label->Caption("start");
    a->Text("a");
    b->Text("b");
    // Both triggers drive one label; the last one evaluated wins.
    form.toggler.Add(form.keys, "A<>", "L(fromA|notA)");
    form.toggler.Add(form.keys, "B<>", "L(fromB|notB)");
    form.toggler.Add(form.keys, "A=__ALWAYS_ENABLE__", "");
    EXPECT_EQ(form.toggler.triggers(), (std::vector<int16_t>{1, 0}));
    form.toggler.ToggleFormatDependentWidgets(form.controls);
    EXPECT_EQ(label->Caption(), "fromB");
  });
}

TEST(DepWidgetTogglerTest, RegistrationStoresRulesUnderEachConditionWidget) {
  onFreshThread([] {
    ScopedBridge bridge;
    Form form;
    form.add<TextBox>("A");
    form.add<TextBox>("B");
    form.add<Label>("L");
    form.toggler.Add(form.keys, "A<>", "L,B");
    form.toggler.Add(form.keys, "A=1&&A=2", "");
    form.toggler.Add(form.keys, "B=x||A<>", "L(KEEP_EXISTING|Serialized),,B",
                     {.toggleByHiding = true});
    const std::string F(1, '\b');
    EXPECT_EQ(form.toggler.instructionsText(0),
              "0<>" + F + "2,1" + F + "False" + "_~_" +   //
                  "0=1&&0=2" + F + F + "False" + "_~_" +  //
                  "0=1&&0=2" + F + F + "False" + "_~_" +  //
                  "1=x||0<>" + F + "2(KEEP_EXISTING|Serialized),,1" + F + "True");
    EXPECT_EQ(form.toggler.instructionsText(1),
              "1=x||0<>" + F + "2(KEEP_EXISTING|Serialized),,1" + F + "True");
    std::string empty;
    form.toggler.addBooleanToggler(form.keys, false, "L", empty);
    EXPECT_EQ(empty, "L");
    EXPECT_EQ(form.toggler.instructionsText(2), "2=__ALWAYS_DISABLE__" + F + "2" + F + "False");
  });
}

TEST(DepWidgetTogglerTest, FailuresReachTheFailurePathWithTheirNumbers) {
  struct Row {
    const char* what;
    std::function<void(Form&)> act;
    std::vector<std::string> expected;
  };
  const std::vector<Row> rows = {
      {"unknown condition key, after an earlier trigger was stored",
       [](Form& f) {
         f.toggler.Add(f.keys, "A<>&&Nope<>", "L");
         EXPECT_EQ(f.toggler.triggers(), (std::vector<int16_t>{0}));
         EXPECT_TRUE(f.keys.Exists("Nope"));
       },
       {"DepWidgetToggler.Add 13"}},
      {"unknown plain widget: skipped, the others work",
       [](Form& f) {
         f.toggler.Add(f.keys, "A=__ALWAYS_DISABLE__", "Nope,L", {.toggleByHiding = true});
         f.toggler.Execute(f.controls, 0);
         EXPECT_FALSE(f.controls[2]->Visible());
       },
       {}},
      {"caption command for an unknown widget",
       [](Form& f) {
         f.toggler.Add(f.keys, "A=__ALWAYS_ENABLE__", "Nope(x|y)");
         f.toggler.Execute(f.controls, 0);
       },
       // Going on past the failure leaves the widget unset for the write.
       {"DepWidgetToggler.toggleEnable 13", "DepWidgetToggler.toggleEnable 91"}},
      {"condition without a comparator",
       [](Form& f) { f.toggler.Add(f.keys, "A", "L"); },
       {"DepWidgetToggler.convertToLookupKey 9"}},
      {"two empty items in one trigger",
       [](Form& f) {
         f.toggler.Add(f.keys, "A=__ALWAYS_ENABLE__", "Nope,Nada");
         f.toggler.Execute(f.controls, 0);
       },
       {"DepWidgetToggler.EnableCommands 457"}},
      {"one widget driven twice by one trigger",
       [](Form& f) {
         f.toggler.Add(f.keys, "A=__ALWAYS_ENABLE__", "L");
         f.toggler.Add(f.keys, "A<>", "L");
         f.toggler.Execute(f.controls, 0);
       },
       {"DepWidgetToggler.EnableCommands 457"}},
      {"trigger outside the table",
       [](Form& f) { f.toggler.Execute(f.controls, 7); },
       {"DepWidgetToggler.Execute 9"}},
      {"Add before Reset",
       [](Form& f) {
         DepWidgetToggler fresh;
         fresh.Add(f.keys, "A<>", "L");
       },
       {"DepWidgetToggler.Add 91"}},
      {"Execute before Reset",
       [](Form& f) {
         DepWidgetToggler fresh;
         fresh.ToggleFormatDependentWidgets(f.controls);  // quietly nothing
         fresh.Execute(f.controls, 0);
       },
       {"DepWidgetToggler.EnableCommands 91"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    onFreshThread([&] {
      ScopedBridge bridge;
      Form form;
      form.add<TextBox>("A");
      form.add<TextBox>("B");
      form.add<Label>("L");
      row.act(form);
      EXPECT_EQ(bridge.service().failures(), row.expected);
    });
  }
}

}  // namespace
}  // namespace kelmora
