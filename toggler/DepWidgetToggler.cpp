#include "toggler/DepWidgetToggler.h"

#include <array>
#include <source_location>

#include "diagnostics/Procedure.h"
#include "platform/Late.h"
#include "platform/RuntimeError.h"
#include "platform/Strings.h"
#include "surface/Label.h"

namespace kelmora {

namespace {

constexpr char kFieldSeparator = '\b';
constexpr const char* kInstructionSeparator = "_~_";
constexpr const char* kKeepExisting = "KEEP_EXISTING";

// The run time's search: an empty value is found in any non-empty text, and
// nothing is found in an empty text.
bool foundIn(const std::string& residue, const std::string& value) {
  return !residue.empty() && residue.find(value) != std::string::npos;
}

// Converts an index text the way the run time does when it indexes the
// widget table with it; 0 when it converts.
int32_t indexErrorOf(const std::string& text, int16_t& index) {
  try {
    index = Variant(text).toInteger();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

Label& asLabel(Widget* widget) {
  auto* label = dynamic_cast<Label*>(&Late::object(widget));
  if (label == nullptr)
    throw RuntimeError(kTypeMismatch);
  return *label;
}

}  // namespace

// The command map of one trigger: widget items in order of insertion, each
// at most once. Kept on the stack, since rules drive a handful of widgets
// and this runs on every keystroke.
class DepWidgetToggler::CommandList {
 public:
  void Add(const Item* item, int32_t enableCommand) {
    for (size_t i = 0; i < size(); ++i) {
      if (at(i).item->text == item->text)
        throw RuntimeError(kKeyAlreadyExists);
    }
    if (mCount < mInline.size()) {
      mInline[mCount++] = Command{item, enableCommand};
    } else {
      mOverflow.push_back(Command{item, enableCommand});
    }
  }
  size_t size() const { return mCount + mOverflow.size(); }
  std::shared_ptr<const InstructionList> keepAlive;
  const Command& at(size_t i) const { return i < mCount ? mInline[i] : mOverflow[i - mCount]; }

 private:
  std::array<Command, 24> mInline{};
  size_t mCount = 0;
  std::vector<Command> mOverflow;
};

DepWidgetToggler::~DepWidgetToggler() {
  if (mToggleData)
    mToggleData->clear();
  mToggleData.reset();
}

// ---------------------------------------------------------------------------
// Registration

void DepWidgetToggler::Reset() {
  Procedure proc{this, procedureName<"DepWidgetToggler.Reset">()};
  proc.run([&] {
    proc.step([&] {
      mToggleData = std::make_unique<ToggleData>();
      mExplanations.startRegistration();
    });
  });
}

void DepWidgetToggler::Add(Dictionary& keyToOverallIndex, const std::string& enableKey,
                           const std::string& dependentWidgets, AddOptions options) {
  Procedure proc{this,
                 procedureName<"DepWidgetToggler.Add">(),
                 {arg("enableKey", enableKey), arg("dependentWidgets", dependentWidgets),
                  arg("toggleByHiding", options.toggleByHiding)}};
  proc.run([&] {
    std::string op;
    std::vector<std::string> words;
    std::vector<std::string> phrases;
    std::string widgets;
    std::shared_ptr<const Instruction> instructions;
    int16_t key = 0;
    proc.local("operator", op);
    proc.local("words", words);
    proc.local("phrases", phrases);
    proc.local("key", key);

    proc.step([&] {
      op = "&&";
      words = Strings::Split(enableKey, op);
      if (words.size() == 1) {
        op = "||";
        words = Strings::Split(enableKey, op);
      }
    });
    proc.step([&] { phrases.assign(words.size(), std::string()); });
    for (size_t i = 0; i < words.size(); ++i) {
      // Also turns words(i) into the widget's overall index.
      proc.step([&] { phrases[i] = convertToLookupKey(words[i], keyToOverallIndex); });
    }
    proc.step([&] { widgets = convertDependentWidgets(dependentWidgets, keyToOverallIndex); });
    proc.step([&] {
      auto parsed = std::const_pointer_cast<Instruction>(
          parseInstruction(Strings::Join(phrases, op), widgets, options.toggleByHiding));
      parsed->written = writtenRule(enableKey, dependentWidgets, options.toggleByHiding);
      mExplanations.keep(parsed->written);
      for (const auto& item : parsed->items) {
        if (!item.text.empty() && item.indexError == 0 && item.index >= 0)
          mExplanations.reserve(static_cast<size_t>(item.index) + 1);
      }
      instructions = std::move(parsed);
    });
    for (size_t i = 0; i < words.size(); ++i) {
      proc.step([&] {
        key = Variant(words[i]).toInteger();
        if (!mToggleData)
          throw RuntimeError(kObjectNotSet);
        auto& list = (*mToggleData)[key];
        auto grown =
            list ? std::make_shared<InstructionList>(*list) : std::make_shared<InstructionList>();
        grown->push_back(instructions);
        list = std::move(grown);
      });
    }
  });
}

void DepWidgetToggler::addBooleanToggler(Dictionary& keyToOverallIndex, bool enable,
                                         const std::string& key, std::string& dependentWidgets) {
  Procedure proc{
      this,
      procedureName<"DepWidgetToggler.addBooleanToggler">(),
      {arg("enable", enable), arg("key", key), arg("dependentWidgets", dependentWidgets)}};
  proc.run([&] {
    proc.step([&] {
      if (dependentWidgets.empty())
        dependentWidgets = key;
    });
    proc.step([&] {
      Add(keyToOverallIndex, key + (enable ? "=__ALWAYS_ENABLE__" : "=__ALWAYS_DISABLE__"),
          dependentWidgets, {.toggleByHiding = false});
    });
  });
}

std::string DepWidgetToggler::convertDependentWidgets(const std::string& dependentWidgets,
                                                      Dictionary& keyToOverallIndex) {
  Procedure proc{this,
                 procedureName<"DepWidgetToggler.convertDependentWidgets">(),
                 {arg("dependentWidgets", dependentWidgets)}};
  return proc.run<std::string>([&](std::string& result) {
    std::vector<std::string> words;
    proc.local("words", words);
    proc.step([&] { words = Strings::Split(dependentWidgets, ","); });
    for (auto& word : words) {
      if (word.empty())
        continue;
      proc.step([&] {
        auto words2 = Strings::Split(word, "(");
        // An unknown key reads as empty, and the map keeps it from now on.
        word = keyToOverallIndex.Item(words2[0]).toString();
        if (words2.size() > 1)
          word += "(" + words2[1];
      });
    }
    proc.step([&] { result = Strings::Join(words, ","); });
  });
}

std::string DepWidgetToggler::convertToLookupKey(std::string& str, Dictionary& keyToOverallIndex) {
  Procedure proc{this, procedureName<"DepWidgetToggler.convertToLookupKey">(), {arg("str", str)}};
  return proc.run<std::string>([&](std::string& result) {
    std::string comparator;
    std::vector<std::string> words;
    std::string residue;
    proc.local("comparator", comparator);
    proc.local("words", words);
    proc.local("residue", residue);
    proc.step([&] {
      comparator = "=";
      words = Strings::Split(str, comparator);
      if (words.size() == 1) {
        comparator = "<>";
        words = Strings::Split(str, comparator);
      }
    });
    proc.step([&] {
      if (words.size() < 2)
        throw RuntimeError(kSubscriptOutOfRange);
      residue = words[1];
    });
    proc.step([&] { str = keyToOverallIndex.Item(words.empty() ? "" : words[0]).toString(); });
    proc.step([&] { result = str + comparator + residue; });
  });
}

DepWidgetToggler::Condition DepWidgetToggler::parseCondition(const std::string& text) {
  Condition condition;
  condition.text = text;
  auto words = Strings::Split(text, "=", 2);
  if (words.size() < 2) {
    condition.equals = false;
    words = Strings::Split(text, "<>", 2);
  }
  if (words.size() < 2) {
    condition.shapeError = kSubscriptOutOfRange;
    return condition;
  }
  condition.indexError = indexErrorOf(words[0], condition.index);
  condition.residue = words[1];
  return condition;
}

DepWidgetToggler::Item DepWidgetToggler::parseItem(const std::string& text) {
  Item item;
  item.text = text;
  if (text.empty())
    return item;
  if (Strings::IsNumeric(text)) {
    item.indexError = indexErrorOf(text, item.index);
    return item;
  }
  item.isCaption = true;
  auto words = Strings::Split(text, "(");
  item.indexError = indexErrorOf(words.empty() ? std::string() : words[0], item.index);
  if (words.size() < 2) {
    item.captionError = kSubscriptOutOfRange;
    return item;
  }
  auto texts = Strings::Split(words[1], "|");
  if (texts.size() < 2) {
    item.captionError = kSubscriptOutOfRange;
    return item;
  }
  if (texts[1].empty()) {
    // Taking the closing bracket off nothing is an invalid call.
    item.captionError = kInvalidProcedureCall;
    return item;
  }
  item.whenEnabled = texts[0];
  item.whenDisabled = texts[1].substr(0, texts[1].size() - 1);
  return item;
}

std::shared_ptr<const DepWidgetToggler::Instruction> DepWidgetToggler::parseInstruction(
    std::string conditionsText, std::string widgetsText, bool toggleByHiding) {
  auto instruction = std::make_shared<Instruction>();
  // Evaluation reads the joined conditions with "||" first, whatever
  // operator joined them; parse them the same way.
  auto conditions = Strings::Split(conditionsText, "||");
  instruction->alternatives = conditions.size() > 1;
  if (!instruction->alternatives)
    conditions = Strings::Split(conditionsText, "&&");
  for (const auto& condition : conditions)
    instruction->conditions.push_back(parseCondition(condition));
  for (const auto& item : Strings::Split(widgetsText, ","))
    instruction->items.push_back(parseItem(item));
  instruction->conditionsText = std::move(conditionsText);
  instruction->widgetsText = std::move(widgetsText);
  instruction->toggleByHiding = toggleByHiding;
  return instruction;
}

std::shared_ptr<const WrittenRule> DepWidgetToggler::writtenRule(
    const std::string& enableKey, const std::string& dependentWidgets, bool toggleByHiding) const {
  auto written = std::make_shared<WrittenRule>();
  written->enableKey = enableKey;
  written->dependentWidgets = dependentWidgets;
  written->toggleByHiding = toggleByHiding;
  // Split as evaluation splits the stored conditions, so that the places
  // agree.
  written->conditions = Strings::Split(enableKey, "||");
  if (written->conditions.size() == 1)
    written->conditions = Strings::Split(enableKey, "&&");
  written->items = Strings::Split(dependentWidgets, ",");
  written->registration = mExplanations.registration();
  return written;
}

std::vector<int16_t> DepWidgetToggler::triggers() const {
  std::vector<int16_t> keys;
  if (mToggleData) {
    for (const auto& [key, instructions] : *mToggleData) keys.push_back(key);
  }
  return keys;
}

std::string DepWidgetToggler::instructionsText(int16_t trigger) const {
  std::string text;
  if (!mToggleData)
    return text;
  auto found = mToggleData->find(trigger);
  if (found == mToggleData->end())
    return text;
  for (const auto& instruction : *found->second) {
    if (!text.empty())
      text += kInstructionSeparator;
    text += instruction->conditionsText + kFieldSeparator + instruction->widgetsText +
            kFieldSeparator + (instruction->toggleByHiding ? "True" : "False");
  }
  return text;
}

std::vector<std::shared_ptr<const WrittenRule>> DepWidgetToggler::writtenRules(
    int16_t trigger) const {
  std::vector<std::shared_ptr<const WrittenRule>> rules;
  if (!mToggleData)
    return rules;
  auto found = mToggleData->find(trigger);
  if (found == mToggleData->end())
    return rules;
  for (const auto& instruction : *found->second) rules.push_back(instruction->written);
  return rules;
}

// ---------------------------------------------------------------------------
// Evaluation

void DepWidgetToggler::ToggleFormatDependentWidgets(const Controls& controls) {
  Procedure proc{this, procedureName<"DepWidgetToggler.ToggleFormatDependentWidgets">()};
  proc.run([&] {
    if (!mToggleData)
      return;
    // A trigger's own rules may not register new ones, but copy the keys
    // so that the pass never walks a table that changes under it.
    std::vector<int16_t> keys;
    proc.step([&] { keys = triggers(); });
    for (int16_t key : keys) proc.step([&] { Execute(controls, key); });
  });
}

Widget& DepWidgetToggler::widgetAt(const Controls& controls, int16_t index, int32_t indexError) {
  if (indexError != 0)
    throw RuntimeError(indexError);
  if (index < 0 || static_cast<size_t>(index) >= controls.size()) {
    throw RuntimeError(kSubscriptOutOfRange);
  }
  const auto& widget = controls[static_cast<size_t>(index)];
  if (!widget)
    throw RuntimeError(kObjectNotSet);
  return *widget;
}

void DepWidgetToggler::Execute(const Controls& controls, int16_t Index) {
  Procedure proc{this, procedureName<"DepWidgetToggler.Execute">(), {arg("Index", Index)}};
  proc.run([&] {
    CommandList setA;
    proc.step([&] {
      // A hidden widget triggers nothing; option buttons always do.
      Widget& trigger = widgetAt(controls, Index, 0);
      if (trigger.Name() != "OptionButton" && !trigger.Visible())
        proc.exitAfterStatement();
    });
    proc.step([&] { EnableCommands(Index, controls, setA); });
    for (size_t i = 0; i < setA.size(); ++i) {
      proc.step([&] {
        const Command& command = setA.at(i);
        if (!command.item->text.empty()) {
          toggleEnable(controls, *command.item, command.enableCommand);
          recordApplied(controls, *command.item, command.enableCommand);
        }
      });
    }
  });
}

void DepWidgetToggler::EnableCommands(int16_t key, const Controls& controls, CommandList& result) {
  Procedure proc{this, procedureName<"DepWidgetToggler.EnableCommands">(), {arg("key", key)}};
  proc.run([&] {
    const InstructionList* instructions = nullptr;
    bool enable = false;
    proc.local("enable", enable);
    proc.step([&] {
      if (!mToggleData)
        throw RuntimeError(kObjectNotSet);
      auto found = mToggleData->find(key);
      if (found == mToggleData->end())
        proc.exitProcedure();
      result.keepAlive = found->second;
      instructions = found->second.get();
    });
    if (instructions == nullptr)
      return;
    // `enable` carries over from one instruction to the next within this
    // trigger: an "||" rule with no true condition keeps an earlier enable.
    for (const auto& instruction : *instructions) {
      bool apply = false;
      const bool enabledBefore = enable;
      Verdict verdict;
      proc.step([&] { apply = shouldEnableWidgets(*instruction, controls, enable, verdict); });
      if (!apply || instruction->widgetsText.empty())
        continue;
      const int32_t enableCommand =
          enable ? kEnable : (instruction->toggleByHiding ? kHide : kDisable);
      // Enabled by an earlier row alone: no condition of this one held.
      const bool carried =
          enable && enabledBefore && instruction->alternatives && verdict.condition < 0;
      for (const auto& item : instruction->items) {
        proc.step([&] {
          result.Add(&item, enableCommand);
          recordDecision(key, *instruction, item, enableCommand, carried, verdict);
        });
      }
    }
  });
}

bool DepWidgetToggler::shouldEnableWidgets(const Instruction& instruction, const Controls& controls,
                                           bool& enable, Verdict& verdict) {
  Procedure proc{this,
                 procedureName<"DepWidgetToggler.shouldEnableWidgets">(),
                 {arg("command", instruction.conditionsText), arg("enable", enable)}};
  // The deciding condition, for the record: the first alternative that
  // enables, or the first condition of "&&" that does not; the value it
  // read goes into a buffer of the table's own.
  verdict = {};
  const auto decidedBy = [&](size_t i) {
    verdict.condition = static_cast<int16_t>(i);
    if (instruction.conditions.size() == 1) {
      verdict.value = &mValue;
    } else {
      mDecidingValue.assign(mValue);
      verdict.value = &mDecidingValue;
    }
  };
  return proc.run<bool>([&](bool& result) {
    if (instruction.conditionsText.empty())
      return;
    if (instruction.alternatives) {
      result = false;
      for (size_t i = 0; i < instruction.conditions.size(); ++i) {
        proc.step([&] {
          bool tempEnable = false;
          const bool applies =
              shouldEnableWidgetsImpl(instruction.conditions[i], controls, tempEnable);
          result = result || applies;
          enable = enable || tempEnable;
          if (tempEnable && verdict.condition < 0)
            decidedBy(i);
        });
      }
      return;
    }
    enable = true;
    result = true;
    for (size_t i = 0; i < instruction.conditions.size(); ++i) {
      proc.step([&] {
        bool tempEnable = false;
        const bool applies =
            shouldEnableWidgetsImpl(instruction.conditions[i], controls, tempEnable);
        result = result && applies;
        enable = enable && tempEnable;
        // One condition decides alone; of several, the first that fails.
        if (verdict.condition < 0 && (!tempEnable || instruction.conditions.size() == 1))
          decidedBy(i);
      });
    }
  });
}

bool DepWidgetToggler::shouldEnableWidgetsImpl(const Condition& condition, const Controls& controls,
                                               bool& enable) {
  Procedure proc{this,
                 procedureName<"DepWidgetToggler.shouldEnableWidgetsImpl">(),
                 {arg("command", condition.text), arg("enable", enable)}};
  return proc.run<bool>([&](bool& result) {
    std::string residue;
    // The widget's value goes into the table's own buffer: this runs on
    // every keystroke, and reading a value raises no event that could come
    // back here.
    std::string& value = mValue;
    value.clear();
    proc.local("residue", residue);
    proc.local("value", value);
    proc.step([&] {
      result = true;
      enable = false;
      if (condition.shapeError != 0)
        throw RuntimeError(condition.shapeError);
      residue = condition.residue;
    });
    const auto valueOfWidget = [&] {
      widgetAt(controls, condition.index, condition.indexError).defaultText(value);
    };
    if (condition.equals) {
      proc.step([&] {
        if (residue == "__ALWAYS_ENABLE__") {
          enable = true;
          proc.exitAfterStatement();
        } else if (residue == "__ALWAYS_DISABLE__") {
          proc.exitAfterStatement();
        }
      });
      bool trueOnly = false;
      proc.step([&] {
        trueOnly = residue.ends_with("Only");
        if (trueOnly)
          residue.resize(residue.size() - 4);
      });
      proc.step(valueOfWidget);
      proc.step([&] {
        if ((residue == "True" && (value == "1" || value == "True")) || foundIn(residue, value)) {
          enable = true;
          result = true;
        } else {
          result = !trueOnly;
        }
      });
      return;
    }
    proc.step([&] {
      if (residue == "TrueOnly") {
        residue = "True";
        valueOfWidget();
        result = value == "True";
        proc.exitAfterStatement();
      }
    });
    proc.step(valueOfWidget);
    proc.step([&] {
      if (residue.empty() && value.empty())
        proc.exitAfterStatement();
      else if (!foundIn(residue, value))
        enable = true;
    });
  });
}

void DepWidgetToggler::recordDecision(int16_t trigger, const Instruction& instruction,
                                      const Item& item, int32_t enableCommand, bool carried,
                                      const Verdict& verdict) noexcept {
  if (item.text.empty() || item.indexError != 0)
    return;
  RuleDecision* slot = mExplanations.slot(item.index);
  if (slot == nullptr)
    return;
  slot->rule = instruction.written.get();
  slot->trigger = trigger;
  slot->condition = verdict.condition;
  slot->item = static_cast<int16_t>(&item - instruction.items.data());
  slot->command = enableCommand;
  slot->carried = carried;
  slot->applied = false;
  try {
    // Reuses the slot's buffer: no allocation once a value of this length
    // has been seen.
    if (verdict.value != nullptr)
      slot->value.assign(*verdict.value);
    else
      slot->value.clear();
  } catch (const std::bad_alloc&) {
    slot->value.clear();
  }
}

void DepWidgetToggler::recordApplied(const Controls& controls, const Item& item,
                                     int32_t enableCommand) noexcept {
  RuleDecision* slot = item.indexError == 0 ? mExplanations.slot(item.index) : nullptr;
  if (slot == nullptr || static_cast<size_t>(item.index) >= controls.size() ||
      !controls[static_cast<size_t>(item.index)])
    return;
  const Widget& widget = *controls[static_cast<size_t>(item.index)];
  slot->visibleAfter = widget.Visible();
  slot->enabledAfter = widget.Enabled();
  // Whether the command took: the failure path may have gone on past a
  // statement of it that failed.
  if (!item.isCaption) {
    slot->applied = enableCommand == kEnable    ? slot->visibleAfter && slot->enabledAfter
                    : enableCommand == kDisable ? !slot->enabledAfter
                                                : !slot->visibleAfter;
    return;
  }
  if (enableCommand == kEnable && item.whenEnabled == kKeepExisting) {
    // The caption given back is the one the label had; no text to hold it to.
    slot->applied = item.captionError == 0;
    return;
  }
  try {
    slot->applied =
        item.captionError == 0 &&
        widget.caption() == (enableCommand == kEnable ? item.whenEnabled : item.whenDisabled);
  } catch (const RuntimeError&) {
    // A widget without a caption took none.
    slot->applied = false;
  }
}

// ---------------------------------------------------------------------------
// Application

void DepWidgetToggler::toggleEnable(const Controls& controls, const Item& setIter,
                                    int32_t enableCommand) {
  Procedure proc{this,
                 procedureName<"DepWidgetToggler.toggleEnable">(),
                 {arg("setIter", setIter.text), arg("enableCommand", enableCommand)}};
  proc.run([&] {
    if (!setIter.isCaption) {
      Widget* widget = nullptr;
      bool isTextBox = false;
      proc.step([&] {
        widget = &widgetAt(controls, setIter.index, setIter.indexError);
        isTextBox = widget->ClassName() == "TextBox";
      });
      // One statement per property, so that going on past a failure skips
      // only that property.
      const auto set = [&](auto&& write,
                           std::source_location where = std::source_location::current()) {
        proc.step([&] { write(Late::object(widget)); }, where);
      };
      switch (enableCommand) {
        case kDisable:
          // A disabled text box keeps its visibility; anything else is
          // shown greyed.
          set([](Widget& w) { w.Enabled(false); });
          if (isTextBox) {
            set([](Widget& w) { w.BackColor(kColorInactiveBorder); });
          } else {
            set([](Widget& w) { w.Visible(true); });
          }
          break;
        case kEnable:
          if (isTextBox)
            set([](Widget& w) { w.BackColor(kColorWindowBackground); });
          set([](Widget& w) { w.Visible(true); });
          set([](Widget& w) { w.Enabled(true); });
          break;
        case kHide:
          set([](Widget& w) { w.Visible(false); });
          break;
        default:
          break;
      }
      return;
    }
    Widget* ctrl = nullptr;
    std::string caption;
    proc.local("caption", caption);
    proc.step([&] { ctrl = &widgetAt(controls, setIter.index, setIter.indexError); });
    proc.step([&] {
      if (setIter.captionError != 0)
        throw RuntimeError(setIter.captionError);
    });
    if (setIter.whenEnabled != kKeepExisting) {
      proc.step(
          [&] { caption = enableCommand == kEnable ? setIter.whenEnabled : setIter.whenDisabled; });
    } else {
      proc.step([&] {
        // Remembering works on labels only.
        Label& label = asLabel(ctrl);
        // The text the rule shows is never itself remembered, so the
        // command can run any number of times.
        if (label.Caption() != setIter.whenDisabled)
          setTag(label, label.Caption());
      });
      proc.step(
          [&] { caption = enableCommand != kEnable ? setIter.whenDisabled : tag(asLabel(ctrl)); });
    }
    proc.step([&] { Late::object(ctrl).caption(caption); });
  });
}

std::string DepWidgetToggler::tag(const Label& ctrl) {
  Procedure proc{this, procedureName<"DepWidgetToggler.tag[Get]">()};
  return proc.run<std::string>([&](std::string& result) {
    proc.step([&] {
      const std::string current = ctrl.Tag();
      const auto comma = current.find(',');
      result = comma == std::string::npos ? ctrl.Caption() : current.substr(comma + 1);
    });
  });
}

void DepWidgetToggler::setTag(Label& ctrl, const std::string& caption) {
  Procedure proc{this, procedureName<"DepWidgetToggler.tag[Let]">(), {arg("caption", caption)}};
  proc.run([&] {
    proc.step([&] {
      const std::string current = ctrl.Tag();
      ctrl.Tag(current.substr(0, current.find(',')) + "," + caption);
    });
  });
}

void DepWidgetToggler::vbwDump() const {
  const Variant toggleData =
      mToggleData ? Variant("Dictionary(" + std::to_string(mToggleData->size()) + ")")
                  : Variant(std::shared_ptr<Object>());
  vbwProtector::dumpModule({arg("mToggleData", toggleData)});
}

}  // namespace kelmora
