#include "hosting/RuleExplainer.h"

#include <gtest/gtest.h>

#include "platform/Strings.h"
#include "proxy/FrameProxy.h"
#include "support/ContainerHost.h"
#include "support/SettingsBuilder.h"
#include "surface/TextBox.h"
#include "surface/Widget.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora::testing {
namespace {

constexpr int16_t kNonPeriodical = 0;
constexpr int16_t kPeriodical = 1;

// The formats a frame's rows depend on: each family with and without an
// access date format, always enabling it or not, and a website that implies
// a date or not.
std::vector<std::shared_ptr<FormatterSettings>> everyFormat() {
  std::vector<std::shared_ptr<FormatterSettings>> formats;
  for (int32_t family = 0; family <= 3; ++family)
    for (bool accessDate : {false, true})
      for (bool always : {false, true})
        for (bool implies : {false, true})
          formats.push_back(SettingsBuilder()
                                .Format(family)
                                .accessDateFormat(accessDate ? "d MMM yyyy" : "")
                                .alwaysEnableAccessDate(always)
                                .WebsiteImpliesDate(implies)
                                .outputTemplate(13, [](const std::string&) { return true; })
                                .build());
  return formats;
}

struct Seen {
  const WrittenRule* rule;
  int16_t trigger;
  bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& seen, std::ostream* out) {
  *out << (seen.rule ? "row \"" + seen.rule->enableKey + "\"" : std::string("no row")) << " run by "
       << seen.trigger;
}

Seen seen(const DepWidgetToggler& toggler, size_t index) {
  const RuleDecision* decision = toggler.explanations().decisionFor(static_cast<int16_t>(index));
  if (decision == nullptr || !decision->rule)
    return {nullptr, -1};
  return {decision->rule, decision->trigger};
}

// For every row of every format, option and show-all state of the two
// frames with rules: replaying the full pass trigger by trigger, each
// widget a row drives names that row once its trigger ran, and a later row
// that drives it again takes its place. A row that need not apply ("Only")
// names itself or leaves the widget as it was; a hidden trigger changes
// nothing.
TEST(RuleExplainerTest, EveryWidgetARowDrivesNamesTheRowThatLastActedOnIt) {
  size_t checked = 0;
  for (int16_t type : {kPeriodical, kNonPeriodical}) {
    const std::vector<int16_t> options =
        type == kPeriodical ? std::vector<int16_t>{0, 1, 2} : std::vector<int16_t>{0, 1};
    const auto formats = everyFormat();
    for (size_t f = 0; f < formats.size(); ++f) {
      const auto& format = formats[f];
      for (int16_t option : options) {
        ContainerHost host;
        host.container->SetVisibleFrame(type);
        host.container->ToggleFormatDependentWidgets(type, format);
        host.container->UpdateFrame(option, true);
        const auto proxy = host.container->existingProxy(type);
        const DepWidgetToggler& toggler = *proxy->dependentWidgetToggler();
        const auto& controls = proxy->controls();
        SCOPED_TRACE("type " + std::to_string(type) + ", format " + std::to_string(f) +
                     ", option " + std::to_string(option));
        for (int16_t trigger : toggler.triggers()) {
          std::vector<Seen> before;
          for (size_t i = 0; i < controls.size(); ++i) before.push_back(seen(toggler, i));
          const Widget& source = *controls[static_cast<size_t>(trigger)];
          const bool runs = source.Name() == "OptionButton" || source.Visible();
          const_cast<DepWidgetToggler&>(toggler).Execute(controls, trigger);
          const auto rules = toggler.writtenRules(trigger);
          const auto stored = Strings::Split(toggler.instructionsText(trigger), "_~_");
          ASSERT_EQ(rules.size(), stored.size());
          std::vector<bool> driven(controls.size(), false);
          for (size_t r = 0; r < rules.size(); ++r) {
            const auto fields = Strings::Split(stored[r], std::string(1, '\b'));
            const bool mayNotApply = fields[0].find("Only") != std::string::npos;
            for (const auto& item : Strings::Split(fields[1], ",")) {
              if (item.empty())
                continue;
              const auto index = static_cast<size_t>(std::stoi(item.substr(0, item.find('('))));
              driven[index] = true;
              const Seen now = seen(toggler, index);
              const Seen expected = !runs || (mayNotApply && now == before[index])
                                        ? before[index]
                                        : Seen{rules[r].get(), trigger};
              EXPECT_EQ(now, expected)
                  << "row " << rules[r]->enableKey << " for " << rules[r]->dependentWidgets;
              ++checked;
            }
          }
          for (size_t i = 0; i < controls.size(); ++i) {
            if (!driven[i]) {
              EXPECT_EQ(seen(toggler, i), before[i]) << "widget " << i << " moved by no row";
            }
          }
        }
      }
    }
  }
  EXPECT_GT(checked, 500u);
}

// What an author or a format's writer reads: the row in its own words, the
// trigger and the value it read; the frame's own code where no row acted,
// or where it moved a widget after its row.
TEST(RuleExplainerTest, TheReasonNamesTheRowTheTriggerAndTheValueRead) {
  ContainerHost host;
  host.container->SetVisibleFrame(kPeriodical);
  host.container->ToggleFormatDependentWidgets(
      kPeriodical, SettingsBuilder().Format(2).accessDateFormat("d MMM yyyy").build());
  host.container->UpdateFrame(0, true);
  const auto proxy = host.container->existingProxy(kPeriodical);
  const auto indexOf = [&](const std::string& name) {
    for (const auto& e : RuleExplainer::explain(*host.container, kPeriodical))
      if (e.name == name)
        return e.overallIndex;
    throw std::runtime_error("no widget " + name);
  };
  const auto find = [&](const std::string& name) {
    return RuleExplainer::explain(*proxy, indexOf(name));
  };
  WidgetExplanation access = find("TextBox(9)");
  EXPECT_EQ(access.source, WidgetExplanation::Source::Rule);
  EXPECT_EQ(access.enableKey, "PeriodicalOnline<>");
  EXPECT_EQ(access.command, "hide");
  EXPECT_EQ(access.formatFamily, 2);
  EXPECT_EQ(access.because,
            "the row \"PeriodicalOnline<>\" for \"PeriodicalAccessDateLabel,PeriodicalAccessDate\" "
            "of format family 2, run by a change of PeriodicalOnline, hides it: "
            "\"PeriodicalOnline<>\" does not hold: PeriodicalOnline is empty");

  // A DOI typed and the host's answer: the row shows the access date, and
  // says what it read.
  const int16_t online = indexOf("TextBox(8)");
  auto& box = dynamic_cast<TextBox&>(*proxy->controls()[static_cast<size_t>(online)]);
  box.Text("10.1000/182");
  proxy->dependentWidgetToggler()->Execute(proxy->controls(), online);
  access = find("TextBox(9)");
  EXPECT_EQ(access.command, "show");
  EXPECT_EQ(access.value, "10.1000/182");
  EXPECT_TRUE(access.shown);
  EXPECT_NE(access.because.find("\"PeriodicalOnline<>\" holds: PeriodicalOnline reads "
                                "\"10.1000/182\""),
            std::string::npos)
      << access.because;

  // Show all off hides the advanced fields: the row is no longer the whole
  // story.
  host.container->UpdateFrame(-1, false);
  access = find("TextBox(9)");
  EXPECT_FALSE(access.shown);
  EXPECT_NE(access.because.find("AdvancedFieldsFrame, which the frame's own code"),
            std::string::npos)
      << access.because;
  EXPECT_EQ(find("TextBox(0)").source, WidgetExplanation::Source::Frame);
  EXPECT_EQ(find("TextBox(0)").because, "no rule has acted on it: the form shows it");
}

}  // namespace
}  // namespace kelmora::testing
