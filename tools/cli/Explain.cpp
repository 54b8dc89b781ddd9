#include "cli/Explain.h"

#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <sstream>
#include <vector>

#include "cli/FormSetup.h"
#include "host/Kit.h"
#include "host/RecordingSink.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "hosting/RuleExplainer.h"
#include "platform/Strings.h"
#include "proxy/FrameProxy.h"
#include "surface/ComboBox.h"
#include "surface/FieldLabels.h"
#include "surface/UserActions.h"
#include "surface/UserControl.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora::tools {

namespace {

Json toJson(const WidgetExplanation& e) {
  Json row = {{"widget", e.name},     {"class", e.className},
              {"key", e.key},         {"index", e.overallIndex},
              {"caption", e.caption}, {"shown", e.shown},
              {"enabled", e.enabled}, {"source", WidgetExplanation::sourceName(e.source)}};
  if (e.source != WidgetExplanation::Source::Frame) {
    row["rule"] = {{"enableKey", e.enableKey},
                   {"dependentWidgets", e.dependentWidgets},
                   {"toggleByHiding", e.toggleByHiding},
                   {"formatFamily", e.formatFamily},
                   {"earlierFormat", e.earlierFormat}};
    row["trigger"] = e.trigger;
    row["condition"] = e.condition;
    row["value"] = e.value;
    row["conditionHeld"] = e.conditionHeld;
    row["command"] = e.command;
    if (e.command == "recaption")
      row["captions"] = {e.captionWhenEnabled, e.captionWhenDisabled};
    row["applied"] = e.applied;
  }
  row["because"] = e.because;
  return row;
}

// Pads text to a column's width, counting characters, not bytes.
std::string padded(const std::string& text, size_t width) {
  size_t characters = 0;
  for (char c : text) characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
  return text + std::string(width > characters ? width - characters : 0, ' ');
}

enum class Availability { Shows, MayShow, Never };

struct FieldRow {
  std::string key;
  int16_t internalIndex = -1;
  std::string caption;
  std::string role;
  bool hasWidget = false;
  std::array<Availability, 4> byFamily{};
};

std::vector<int16_t> optionsOf(int16_t whichType) {
  if (whichType == 1)
    return {0, 1, 2};  // journal, magazine, newspaper
  if (whichType == 0)
    return {0, 1};  // book, website
  return {-1};
}

// The widgets a rule row of the table drives from a value the author
// types: rows whose conditions only say "always" drive nothing that way.
std::vector<int16_t> valueDriven(const DepWidgetToggler& toggler) {
  std::vector<int16_t> driven;
  for (int16_t trigger : toggler.triggers()) {
    for (const auto& instruction : Strings::Split(toggler.instructionsText(trigger), "_~_")) {
      const auto fields = Strings::Split(instruction, std::string(1, '\b'));
      if (fields.size() < 2)
        continue;
      bool readsValue = false;
      for (const auto& word : Strings::Split(fields[0], "&&"))
        for (const auto& condition : Strings::Split(word, "||"))
          readsValue = readsValue || (!condition.ends_with("=__ALWAYS_ENABLE__") &&
                                      !condition.ends_with("=__ALWAYS_DISABLE__"));
      if (!readsValue)
        continue;
      for (const auto& item : Strings::Split(fields[1], ",")) {
        // Caption commands rename; they show nothing.
        if (!item.empty() && Strings::IsNumeric(item))
          driven.push_back(static_cast<int16_t>(std::stoi(item)));
      }
    }
  }
  return driven;
}

// The fields shown in the form's present state, by key.
void noteShown(const DepWidgetToggler::Controls& controls, std::map<std::string, int>& shown) {
  for (const auto& widget : controls) {
    if (widget && !Record::fieldKey(*widget).empty())
      shown[Record::fieldKey(*widget)] += widget->isShowing() ? 1 : 0;
  }
}

// What a format family does with each field, from the states an author can
// bring an empty form into: each option with all fields shown, and each
// entry of each pick list. A field shown in all of them shows; in none,
// and driven by no row that reads a value, never; otherwise it may show.
std::map<std::string, Availability> availability(int16_t whichType, int32_t family) {
  std::map<std::string, int> shown;
  std::map<std::string, bool> driven;
  int states = 0;
  for (int16_t option : optionsOf(whichType)) {
    RecordingSink sink;
    ToolHost host(sink, {});
    FrameContainer& container = host.container();
    container.SetVisibleFrame(whichType);
    container.ToggleFormatDependentWidgets(whichType, FormatSettings::family(family));
    container.UpdateFrame(option, true);
    const auto proxy = container.existingProxy(whichType);
    const auto& controls = proxy->controls();
    noteShown(controls, shown);
    ++states;
    for (const auto& widget : controls) {
      auto list = std::dynamic_pointer_cast<ComboBox>(widget);
      if (!list || list->Style() != ComboBox::kDropdownList || Record::fieldKey(*list).empty() ||
          !list->isShowing())
        continue;
      for (int16_t entry = 0; entry < list->ListCount(); ++entry) {
        UserActions::selectItem(*list, entry);
        noteShown(controls, shown);
        ++states;
      }
    }
    if (proxy->dependentWidgetToggler()) {
      for (int16_t index : valueDriven(*proxy->dependentWidgetToggler())) {
        if (index >= 0 && static_cast<size_t>(index) < controls.size() &&
            controls[static_cast<size_t>(index)])
          driven[Record::fieldKey(*controls[static_cast<size_t>(index)])] = true;
      }
    }
    host.end();
  }
  std::map<std::string, Availability> result;
  for (const auto& [key, count] : shown)
    result[key] = driven[key] || (count > 0 && count < states) ? Availability::MayShow
                  : count == states                            ? Availability::Shows
                                                               : Availability::Never;
  return result;
}

std::vector<FieldRow> fieldRows(int16_t whichType, const std::vector<int32_t>& families) {
  RecordingSink sink;
  ToolHost host(sink, {});
  // Captions as an author sees them first: the first family and option,
  // all fields shown.
  host.container().SetVisibleFrame(whichType);
  host.container().ToggleFormatDependentWidgets(whichType, FormatSettings::family(0));
  host.container().UpdateFrame(optionsOf(whichType).front(), true);
  const auto keyToIndex = host.main().Model(whichType)->keyToInternalIndex();
  std::vector<FieldRow> rows;
  const Record fresh = Record::newReference(host.main(), whichType);
  for (const auto& key : fresh.keys()) {
    FieldRow row;
    row.key = key;
    row.internalIndex = static_cast<int16_t>(keyToIndex->Item(key).toInteger());
    if (auto widget = Record::widgetOf(host.container(), whichType, key)) {
      row.hasWidget = true;
      row.caption = FieldLabels::captionOf(*widget);
      const std::string& tag = widget->Tag();
      const auto comma = tag.find(',');
      row.role = comma == std::string::npos ? "" : tag.substr(comma + 1);
    }
    row.byFamily.fill(Availability::Never);
    rows.push_back(row);
  }
  host.end();
  for (int32_t family : families) {
    const auto known = availability(whichType, family);
    for (auto& row : rows) {
      const auto found = known.find(row.key);
      row.byFamily[static_cast<size_t>(family)] =
          found == known.end() ? Availability::Never : found->second;
    }
  }
  std::sort(rows.begin(), rows.end(),
            [](const FieldRow& a, const FieldRow& b) { return a.internalIndex < b.internalIndex; });
  return rows;
}

const char* word(Availability availability) {
  switch (availability) {
    case Availability::Shows:
      return "shows";
    case Availability::MayShow:
      return "may show";
    case Availability::Never:
      break;
  }
  return "never";
}

const char* typeName(int16_t whichType) {
  return whichType == 1 ? "Periodical" : whichType == 0 ? "NonPeriodical" : "Esource";
}

}  // namespace

int Explain::widgets(const FormSetup& form, bool json, std::ostream& out) {
  RecordingSink sink;
  ToolHost host(sink, {});
  const int16_t whichType = form.apply(host);
  const auto explanations = RuleExplainer::explain(host.container(), whichType);
  host.end();
  if (json) {
    for (const auto& e : explanations) out << toJson(e).dump() << '\n';
    return 0;
  }
  size_t nameWidth = 6;
  size_t captionWidth = 7;
  for (const auto& e : explanations) {
    nameWidth = std::max(nameWidth, e.name.size());
    captionWidth = std::max(captionWidth, std::min<size_t>(e.caption.size(), 24));
  }
  out << padded("Widget", nameWidth) << "  " << padded("Caption", captionWidth)
      << "  Shown  Enabled  Because\n";
  for (const auto& e : explanations) {
    std::string caption = e.caption.size() > 24 ? e.caption.substr(0, 23) + "…" : e.caption;
    out << padded(e.name, nameWidth) << "  " << padded(caption, captionWidth) << "  "
        << padded(e.shown ? "yes" : "no", 5) << "  " << padded(e.enabled ? "yes" : "no", 7) << "  "
        << e.because << '\n';
  }
  return 0;
}

int Explain::fields(int16_t whichType, std::optional<int32_t> family, std::ostream& out) {
  if (family && (*family < 0 || *family > 3))
    throw BadInput("format family " + std::to_string(*family) + " is not shipped: use 0 to 3");
  const auto rows =
      fieldRows(whichType, family ? std::vector<int32_t>{*family} : std::vector<int32_t>{});
  size_t keyWidth = 3;
  size_t captionWidth = 7;
  for (const auto& row : rows) {
    keyWidth = std::max(keyWidth, row.key.size());
    captionWidth = std::max(captionWidth, row.caption.size());
  }
  out << padded("Key", keyWidth) << "  Index  " << padded("Caption", captionWidth) << "  "
      << padded("Role", 16) << (family ? "  Family " + std::to_string(*family) : "") << '\n';
  for (const auto& row : rows) {
    out << padded(row.key, keyWidth) << "  " << padded(std::to_string(row.internalIndex), 5) << "  "
        << padded(row.hasWidget ? row.caption : "(no widget)", captionWidth) << "  "
        << padded(row.role, 16);
    if (family)
      out << "  " << word(row.byFamily[static_cast<size_t>(*family)]);
    out << '\n';
  }
  return 0;
}

std::string Explain::matrixText(int16_t whichType) {
  const auto rows = fieldRows(whichType, {0, 1, 2, 3});
  std::ostringstream out;
  out << "| " << typeName(whichType) << " field | Index | Caption | 0 | 1 | 2 | 3 |\n"
      << "|---|---:|---|---|---|---|---|\n";
  for (const auto& row : rows) {
    if (!row.hasWidget)
      continue;
    out << "| `" << row.key << "` | " << row.internalIndex << " | " << row.caption;
    for (Availability availability : row.byFamily) out << " | " << word(availability);
    out << " |\n";
  }
  return out.str();
}

int Explain::matrix(int16_t whichType, std::ostream& out) {
  out << matrixText(whichType);
  return 0;
}

}  // namespace kelmora::tools
