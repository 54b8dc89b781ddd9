#include "hosting/RuleExplainer.h"

#include "hosting/FrameContainer.h"
#include "proxy/FrameProxy.h"
#include "surface/FieldLabels.h"
#include "surface/Widget.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {

namespace {

std::string nameOf(const Widget& widget) {
  return widget.IsArrayMember() ? widget.Name() + "(" + std::to_string(widget.Index()) + ")"
                                : widget.Name();
}

std::string keyOf(const Widget& widget) {
  const std::string& tag = widget.Tag();
  return tag.substr(0, tag.find(','));
}

// The key a condition reads, and its residue: "Online<>" gives "Online".
std::string conditionKey(const std::string& condition) {
  const auto equals = condition.find('=');
  const auto differs = condition.find("<>");
  return condition.substr(0, equals != std::string::npos ? equals : differs);
}

std::string quoted(const std::string& text) {
  return "\"" + text + "\"";
}

std::string verbOf(const WidgetExplanation& e) {
  if (e.command == "recaption") {
    if (e.conditionHeld && e.captionWhenEnabled == "KEEP_EXISTING")
      return "gives it back the caption it had before";
    return "gives it the caption " +
           quoted(e.conditionHeld ? e.captionWhenEnabled : e.captionWhenDisabled);
  }
  if (e.command == "show")
    return "shows and enables it";
  if (e.command == "disable")
    return "disables it";
  return "hides it";
}

// Why the row decided as it did, in words.
std::string reasonOf(const WidgetExplanation& e, bool carried, bool allHeld) {
  if (e.condition.ends_with("=__ALWAYS_ENABLE__"))
    return "the format always uses it";
  if (e.condition.ends_with("=__ALWAYS_DISABLE__"))
    return "the format never uses it";
  if (carried)
    return "none of its alternatives held, and an earlier row of the same trigger had enabled "
           "them";
  if (e.condition.empty())
    return allHeld ? "all its conditions held" : "none of its alternatives held";
  std::string read = e.value.empty() ? conditionKey(e.condition) + " is empty"
                                     : conditionKey(e.condition) + " reads " + quoted(e.value);
  // The platform's search finds an empty text in any text, and a value
  // inside a longer one: say so where that decided.
  const auto comparator = e.condition.find_first_of("=<");
  const auto residueAt = comparator == std::string::npos
                             ? std::string::npos
                             : e.condition.find_first_not_of("=<>", comparator);
  const std::string residue =
      residueAt == std::string::npos ? std::string() : e.condition.substr(residueAt);
  if (e.value.empty() && !residue.empty())
    read += " (an empty value counts as found in any text)";
  else if (!e.value.empty() && residue != e.value && residue.find(e.value) != std::string::npos)
    read += " (part of " + quoted(residue) + ")";
  return quoted(e.condition) + (e.conditionHeld ? " holds: " : " does not hold: ") + read;
}

void explainRule(WidgetExplanation& e, const RuleDecision& decision,
                 const DepWidgetToggler& toggler, const FrameProxy& proxy, const Widget& widget) {
  const WrittenRule& rule = *decision.rule;
  e.enableKey = rule.enableKey;
  e.dependentWidgets = rule.dependentWidgets;
  e.toggleByHiding = rule.toggleByHiding;
  e.formatFamily = toggler.explanations().formatOf(rule.registration);
  e.earlierFormat = rule.registration != toggler.explanations().registration();
  const auto& controls = proxy.controls();
  if (decision.trigger >= 0 && static_cast<size_t>(decision.trigger) < controls.size() &&
      controls[static_cast<size_t>(decision.trigger)]) {
    const Widget& trigger = *controls[static_cast<size_t>(decision.trigger)];
    e.trigger = keyOf(trigger).empty() ? nameOf(trigger) : keyOf(trigger);
  }
  if (decision.condition >= 0 && static_cast<size_t>(decision.condition) < rule.conditions.size())
    e.condition = rule.conditions[static_cast<size_t>(decision.condition)];
  e.value = decision.value;
  e.conditionHeld = decision.command == DepWidgetToggler::kEnable;
  const std::string item =
      decision.item >= 0 && static_cast<size_t>(decision.item) < rule.items.size()
          ? rule.items[static_cast<size_t>(decision.item)]
          : std::string();
  const auto open = item.find('(');
  if (open != std::string::npos) {
    e.command = "recaption";
    const std::string texts = item.substr(open + 1, item.size() - open - 2);
    const auto bar = texts.find('|');
    e.captionWhenEnabled = texts.substr(0, bar);
    e.captionWhenDisabled = bar == std::string::npos ? "" : texts.substr(bar + 1);
  } else {
    e.command = decision.command == DepWidgetToggler::kEnable    ? "show"
                : decision.command == DepWidgetToggler::kDisable ? "disable"
                                                                 : "hide";
  }
  e.applied = decision.applied;
  // The rule's own state against the widget's now: show-all, an option or
  // the layout may have moved it on since. Captions stay as the rule left
  // them unless something else recaptions them.
  const bool sameState =
      e.command == "recaption" || !decision.applied ||
      (decision.visibleAfter == widget.Visible() && decision.enabledAfter == widget.Enabled());
  e.source = sameState ? WidgetExplanation::Source::Rule : WidgetExplanation::Source::RuleThenFrame;

  std::string row = "the row " + quoted(rule.enableKey) + " for " + quoted(rule.dependentWidgets);
  if (e.formatFamily >= 0)
    row += std::string(e.earlierFormat ? " of the earlier format family " : " of format family ") +
           std::to_string(e.formatFamily);
  if (!e.trigger.empty())
    row += ", run by a change of " + e.trigger;
  const bool allHeld = e.conditionHeld;
  e.because = row + ", " + verbOf(e) + ": " + reasonOf(e, decision.carried, allHeld);
  if (!decision.applied)
    e.because += "; the command failed on its way";
  if (e.source == WidgetExplanation::Source::RuleThenFrame)
    e.because += "; since then the frame's own code (show all, the option, the layout) has " +
                 std::string(widget.Visible() ? "shown" : "hidden") + " it";
}

// The nearest frame around a widget that is hidden, which hides the widget
// whatever its own state; nothing when none is.
const Widget* hiddenContainer(const Widget& widget) {
  for (const Widget* around = widget.Container(); around != nullptr && around != widget.Parent();
       around = around->Container()) {
    if (!around->Visible())
      return around;
  }
  return nullptr;
}

}  // namespace

WidgetExplanation RuleExplainer::explain(const FrameProxy& proxy, int16_t overallIndex) {
  WidgetExplanation e;
  e.overallIndex = overallIndex;
  const auto& controls = proxy.controls();
  if (overallIndex < 0 || static_cast<size_t>(overallIndex) >= controls.size() ||
      !controls[static_cast<size_t>(overallIndex)])
    return e;
  const Widget& widget = *controls[static_cast<size_t>(overallIndex)];
  e.name = nameOf(widget);
  e.className = widget.ClassName();
  e.key = keyOf(widget);
  e.caption = FieldLabels::captionOf(widget);
  e.shown = widget.isShowing();
  e.enabled = widget.isEnabledInTree();
  const auto& toggler = proxy.dependentWidgetToggler();
  const RuleDecision* decision =
      toggler ? toggler->explanations().decisionFor(overallIndex) : nullptr;
  const Widget* hider = hiddenContainer(widget);
  const std::string hidden =
      hider == nullptr ? std::string()
                       : "it stands in " + nameOf(*hider) +
                             ", which the frame's own code (show all, the option, the layout) "
                             "hides";
  if (decision != nullptr && decision->rule != nullptr) {
    explainRule(e, *decision, *toggler, proxy, widget);
    if (hider != nullptr && widget.Visible())
      e.because += "; but " + hidden;
    else if (e.command == "recaption" && !widget.Visible())
      e.because += "; the frame's own code (show all, the option, the layout) hides it";
    return e;
  }
  e.source = WidgetExplanation::Source::Frame;
  e.because = "no rule has acted on it: ";
  if (!widget.Visible())
    e.because += "the form or the frame's own code (show all, the option, the layout) hides it";
  else if (hider != nullptr)
    e.because += hidden;
  else
    e.because += "the form shows it";
  if (!widget.Enabled())
    e.because += ", and keeps it disabled";
  return e;
}

std::vector<WidgetExplanation> RuleExplainer::explain(const FrameContainer& container,
                                                      int16_t whichType) {
  std::vector<WidgetExplanation> explanations;
  const auto proxy = container.existingProxy(whichType < 0 ? container.currentFrame() : whichType);
  if (!proxy)
    return explanations;
  for (size_t i = 0; i < proxy->controls().size(); ++i) {
    // The registry leaves places free where a frame has no widget.
    if (proxy->controls()[i])
      explanations.push_back(explain(*proxy, static_cast<int16_t>(i)));
  }
  return explanations;
}

}  // namespace kelmora
