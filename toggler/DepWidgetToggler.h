#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <tsl/ordered_map.h>

#include "diagnostics/Dumpable.h"
#include "platform/Dictionary.h"
#include "platform/Object.h"
#include "surface/Widget.h"
#include "toggler/RuleExplanations.h"

namespace kelmora {

// The rule table of one frame: which widgets are enabled, disabled, hidden
// or recaptioned from the values of other widgets and from the format.
//
// A rule is text: conditions such as "PeriodicalOnline<>" joined by "&&" or
// "||", a list of dependent widgets ("Label,Field", or a caption command
// "Label(WhenEnabled|WhenDisabled)"), and whether disabling hides. Add
// resolves every key to an overall index once, and stores each rule under
// each of its condition widgets, in order of first registration, already
// parsed the way evaluation reads the stored text. Evaluation then works on
// indices and short strings only.
//
// Sections: registration (Add, addBooleanToggler, Reset and the two
// converters); evaluation (ToggleFormatDependentWidgets, Execute,
// EnableCommands, shouldEnableWidgets, shouldEnableWidgetsImpl); application
// (toggleEnable and the label's remembered caption in its tag).
class Label;

// The named argument of DepWidgetToggler::Add: whether a rule that does not
// enable hides its widgets rather than disabling them.
struct ToggleRuleOptions {
  bool toggleByHiding = false;
};

class DepWidgetToggler : public Object, public Dumpable {
 public:
  using Controls = std::vector<std::shared_ptr<Widget>>;

  enum EnableCommand : int32_t { kDisable = 0, kEnable = 1, kHide = 2 };

  using AddOptions = ToggleRuleOptions;

  DepWidgetToggler() = default;
  ~DepWidgetToggler() override;
  DepWidgetToggler(const DepWidgetToggler&) = delete;
  DepWidgetToggler& operator=(const DepWidgetToggler&) = delete;

  std::string TypeName() const override { return "DepWidgetToggler"; }

  // Registration.
  void Add(Dictionary& keyToOverallIndex, const std::string& enableKey,
           const std::string& dependentWidgets, AddOptions options = {});
  void addBooleanToggler(Dictionary& keyToOverallIndex, bool enable, const std::string& key,
                         std::string& dependentWidgets);
  void Reset();

  // Evaluation.
  void ToggleFormatDependentWidgets(const Controls& controls);
  void Execute(const Controls& controls, int16_t Index);

  // The registered triggers in order of first registration, and the stored
  // instructions of one trigger in the joined text form: conditions,
  // character 8, widgets, character 8, "True" or "False"; instructions
  // joined by "_~_". For hosts and tests that inspect the table.
  bool hasToggleData() const { return mToggleData != nullptr; }
  std::vector<int16_t> triggers() const;
  std::string instructionsText(int16_t trigger) const;
  // The same instructions as their frame wrote them.
  std::vector<std::shared_ptr<const WrittenRule>> writtenRules(int16_t trigger) const;

  // What the rules last did to each widget, recorded as they run, for
  // explaining a widget's state; and the frame's word on which format the
  // current rules were registered for.
  const RuleExplanations& explanations() const { return mExplanations; }
  RuleExplanations& explanations() { return mExplanations; }

  void vbwDump() const override;

 private:
  // One condition as evaluation reads it: a widget's overall index, "=" or
  // "<>", and a residue.
  struct Condition {
    std::string text;
    bool equals = true;
    int16_t index = 0;
    int32_t indexError = 0;  // reading the widget fails with this number
    int32_t shapeError = 0;  // the condition has no comparator
    std::string residue;
  };

  // One entry of the widget list: empty, a widget's overall index, or a
  // caption command.
  struct Item {
    std::string text;
    bool isCaption = false;
    int16_t index = 0;
    int32_t indexError = 0;
    int32_t captionError = 0;
    std::string whenEnabled;
    std::string whenDisabled;
  };

  struct Instruction {
    // The row as its frame wrote it.
    std::shared_ptr<const WrittenRule> written;
    std::string conditionsText;
    bool alternatives = false;  // "||" rather than "&&"
    std::vector<Condition> conditions;
    std::string widgetsText;
    std::vector<Item> items;
    bool toggleByHiding = false;
  };

  struct Command {
    const Item* item;
    int32_t enableCommand;
  };
  // Which condition of an instruction decided, for the record: see
  // RuleDecision::condition.
  struct Verdict {
    int16_t condition = -1;
    // The value that condition read: the table's buffer of the last value
    // read for a rule of one condition, a copy for a rule of several.
    const std::string* value = nullptr;
  };
  class CommandList;

  // A trigger's instructions are replaced, never changed in place, so that
  // an evaluation keeps the list it started with alive even if a widget
  // event re-enters and registers rules anew.
  using InstructionList = std::vector<std::shared_ptr<const Instruction>>;
  using ToggleData = tsl::ordered_map<int16_t, std::shared_ptr<const InstructionList>>;

  std::string convertDependentWidgets(const std::string& dependentWidgets,
                                      Dictionary& keyToOverallIndex);
  std::string convertToLookupKey(std::string& str, Dictionary& keyToOverallIndex);

  void EnableCommands(int16_t key, const Controls& controls, CommandList& result);
  bool shouldEnableWidgets(const Instruction& instruction, const Controls& controls, bool& enable,
                           Verdict& verdict);
  bool shouldEnableWidgetsImpl(const Condition& condition, const Controls& controls, bool& enable);
  void toggleEnable(const Controls& controls, const Item& setIter, int32_t enableCommand);
  // A label's remembered caption, kept behind the key in its tag.
  std::string tag(const Label& ctrl);
  void setTag(Label& ctrl, const std::string& caption);

  static std::shared_ptr<const Instruction> parseInstruction(std::string conditionsText,
                                                             std::string widgetsText,
                                                             bool toggleByHiding);
  std::shared_ptr<const WrittenRule> writtenRule(const std::string& enableKey,
                                                 const std::string& dependentWidgets,
                                                 bool toggleByHiding) const;
  // Notes what a command of `instruction` decided for `item`, and what the
  // widget looks like once it ran. Never fails.
  void recordDecision(int16_t trigger, const Instruction& instruction, const Item& item,
                      int32_t enableCommand, bool carried, const Verdict& verdict) noexcept;
  void recordApplied(const Controls& controls, const Item& item, int32_t enableCommand) noexcept;
  static Condition parseCondition(const std::string& text);
  static Item parseItem(const std::string& text);
  static Widget& widgetAt(const Controls& controls, int16_t index, int32_t indexError);

  std::unique_ptr<ToggleData> mToggleData;
  std::string mValue;
  // The value the deciding condition of the instruction last evaluated read.
  std::string mDecidingValue;
  RuleExplanations mExplanations;
};

}  // namespace kelmora
