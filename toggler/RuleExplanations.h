#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kelmora {

// A rule row as its frame wrote it, kept so that what the rule did can be
// told in the frame's own words.
struct WrittenRule {
  // "PeriodicalOnline<>", and "PeriodicalAccessDateLabel,PeriodicalAccessDate".
  std::string enableKey;
  std::string dependentWidgets;
  bool toggleByHiding = false;
  // The conditions and the widget items as written, in the order in which
  // evaluation reads them.
  std::vector<std::string> conditions;
  std::vector<std::string> items;
  // Which registration of the table's rules the row belongs to: each new
  // format registers its rows anew.
  uint32_t registration = 0;
};

// What the last rule that acted on one widget did, recorded as the rules
// ran.
struct RuleDecision {
  // Nothing while no rule has acted on the widget. The table keeps the
  // row alive for as long as a slot names it.
  const WrittenRule* rule = nullptr;
  // The overall index of the widget whose change ran the rule.
  int16_t trigger = -1;
  // The condition that decided: the alternative that held, or the first
  // condition that failed; -1 when all held alike, or none did.
  int16_t condition = -1;
  // The widget's place in the rule's list of items.
  int16_t item = -1;
  // 0 disable, 1 enable, 2 hide; for a caption command, 1 took the first
  // caption and anything else the second.
  int32_t command = 0;
  // Enabled only because an earlier row of the same trigger enabled: an
  // "||" row keeps what the row before it decided.
  bool carried = false;
  // The command ran to its end; false when it failed on the way.
  bool applied = false;
  // The widget as the command left it.
  bool visibleAfter = false;
  bool enabledAfter = false;
  // The value the deciding condition read from its widget.
  std::string value;
};

// The rule table's record of its decisions, one slot per widget by overall
// index. Slots are made when rules are registered and reused as rules run,
// so that recording on a keystroke allocates nothing once the values read
// have been seen at their length. Recording never fails.
class RuleExplanations {
 public:
  // A new registration begins: rules registered from now on belong to it.
  // What earlier rules decided stays until a new rule acts.
  void startRegistration() noexcept;
  // Keeps a registered row for the slots that will name it.
  void keep(std::shared_ptr<const WrittenRule> rule);
  uint32_t registration() const noexcept { return mRegistration; }
  // The format family the current registration's rules were written for,
  // as the frame read it; -1 when the frame does not tell.
  void registeredFor(int32_t formatFamily) noexcept;
  int32_t formatOf(uint32_t registration) const noexcept;

  // Makes room for the widgets a registered rule acts on. Registration
  // allocates anyway; evaluation then finds its slots.
  void reserve(size_t widgets);
  // The slot of a widget, or nullptr outside the rules' widgets.
  RuleDecision* slot(int16_t index) noexcept;
  const RuleDecision* decisionFor(int16_t index) const noexcept;

 private:
  std::vector<RuleDecision> mSlots;
  // The rows of the current registration and those of earlier ones that a
  // slot still names.
  std::vector<std::shared_ptr<const WrittenRule>> mKept;
  std::vector<int32_t> mFormats;
  uint32_t mRegistration = 0;
};

}  // namespace kelmora
