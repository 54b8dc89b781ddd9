#include "gui/LogFolder.h"

#include <algorithm>
#include <sstream>

#include "host/ReadableSink.h"

namespace kelmora::tools {

namespace {

constexpr int kHostRank = 5;
constexpr int kFocusMoveRank = 4;
constexpr int kChangeRank = 3;
constexpr int kFocusRank = 2;
constexpr int kMouseRank = 1;

// A line stays readable beside the form; the detail has it all.
constexpr size_t kLongestText = 200;
constexpr size_t kMostDetailLines = 40;

// The event as the demo prints it, on one line without its indent.
std::string readable(const Json& event) {
  std::ostringstream text;
  ReadableSink(text).emit(event);
  std::string line = text.str();
  while (!line.empty() && (line.back() == '\n' || line.back() == ' ')) line.pop_back();
  const size_t start = line.find_first_not_of(" \n");
  return start == std::string::npos ? std::string() : line.substr(start);
}

// Cut at a character, not inside one.
std::string shortened(std::string text) {
  if (text.size() <= kLongestText)
    return text;
  size_t end = kLongestText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end) + "…";
}

// The format's rules, as opposed to the frame and its contents.
bool isRuleCall(const std::string& name) {
  return name == "ToggleFormatDependentWidgets" || name == "ChangeFormatType" ||
         name == "initializeFormatDependentWidgetToggler" ||
         name == "ExecuteDependentWidgetToggler";
}

bool isWidgetArgument(const std::string& name) {
  return name == "theControl" || name == "theSecondControl" || name == "field";
}

}  // namespace

const char* LogFolder::caption(Category category) {
  switch (category) {
    case Category::Host:
      return "Host calls";
    case Category::Change:
      return "Changes";
    case Category::Focus:
      return "Focus";
    case Category::Mouse:
      return "Mouse";
    case Category::Rules:
      return "Rules";
    case Category::Failure:
      return "Failures";
  }
  return "";
}

LogFolder::Group* LogFolder::group(uint64_t id) {
  const auto found = mGroups.find(id);
  return found == mGroups.end() ? nullptr : &found->second;
}

void LogFolder::forget() {
  std::erase_if(mGroups,
                [this](const auto& entry) { return entry.first != mOpen && entry.first != mLast; });
}

std::string LogFolder::widgetText(const std::string& widget, Part& part) const {
  const Naming naming = name ? name(widget) : Naming{};
  if (naming.caption.empty())
    return widget;
  const std::string caption = "«" + naming.caption + "»";
  part.notes.push_back(caption + " is " + widget +
                       (naming.key.empty() ? "" : ", field key " + naming.key));
  return caption;
}

LogFolder::Part LogFolder::callback(const Json& event) {
  Part part;
  const std::string member = event["callback"].get<std::string>();
  const Json& args = event["args"];
  part.raw = readable(event);
  if (member == "widgetChangeHandler") {
    part.rank = kChangeRank;
    part.category = Category::Change;
    part.change = true;
    const Json control = args.value("theControl", Json());
    part.text = "<- widgetChangeHandler " +
                (control.is_string() ? widgetText(control.get<std::string>(), part)
                                     : ReadableSink::describe(control)) +
                " = " + ReadableSink::describe(args.value("value", Json()));
    return part;
  }
  if (member == "HandleMouseMove") {
    part.rank = kMouseRank;
    part.category = Category::Mouse;
  } else if (member == "ProcessTextField" || member == "HandleDateExit" ||
             member == "HideSubform") {
    part.rank = kFocusRank;
    part.category = Category::Focus;
  } else {
    part.rank = kChangeRank;
    part.category = Category::Change;
  }
  std::string list;
  if (args.is_object()) {
    for (const auto& [argument, value] : args.items()) {
      list += list.empty() ? "" : ", ";
      if (isWidgetArgument(argument) && value.is_string())
        list += widgetText(value.get<std::string>(), part);
      else
        list += argument + "=" + ReadableSink::describe(value);
    }
  }
  part.text = "<- " + member + "(" + list + ")";
  if (event.contains("returns"))
    part.text += " returns " + ReadableSink::describe(event["returns"]);
  return part;
}

void LogFolder::add(const Json& event) {
  if (event.contains("failure") || event.contains("failedCall") ||
      event.contains("retriesGivenUp") || event.contains("unmet") || event.contains("messageBox")) {
    fail(readable(event));
    return;
  }
  if (event.contains("callback")) {
    Part part = callback(event);
    // Each change is a line of its own, also where nothing told where the
    // person's keystrokes part, as when a scenario types a word; what a
    // call of the host changes goes with the call.
    const Group* current = group(mOpen);
    if (part.change && mHeld == 0 && current != nullptr && !current->parts.front().call &&
        std::any_of(current->parts.begin(), current->parts.end(),
                    [](const Part& p) { return p.change; }))
      open(std::move(part));
    else
      join(std::move(part));
    return;
  }
  Part part;
  part.raw = readable(event);
  part.text = part.raw;
  if (event.contains("host")) {
    const std::string call = event["host"].get<std::string>();
    // The host's answer to a change follows the change at once.
    const Group* current = group(mOpen);
    const bool answers = current != nullptr && call == "ExecuteDependentWidgetToggler" &&
                         current->parts.back().change;
    part.rank = kHostRank;
    part.category = isRuleCall(call) ? Category::Rules : Category::Host;
    if (answers) {
      part.rank = 0;
      part.answer = true;
      join(std::move(part));
    } else if (mHeld > 0 && mOpen != 0) {
      join(std::move(part));
    } else {
      part.call = true;
      open(std::move(part));
    }
    return;
  }
  if (event.contains("stage") || event.contains("user")) {
    // A scenario's own steps: each begins what follows it.
    part.rank = kHostRank;
    boundary();
    open(std::move(part));
    if (event.contains("stage"))
      boundary();
    return;
  }
  // What a call returned, and anything else, goes with what came before.
  join(std::move(part));
}

void LogFolder::focusMoved(const std::string& widget) {
  Part part;
  part.rank = kFocusMoveRank;
  part.category = Category::Focus;
  part.text = widget.empty() ? "Focus left the form" : "Focus to " + widgetText(widget, part);
  part.raw = widget.empty() ? part.text : "Focus to " + widget;
  join(std::move(part));
}

void LogFolder::failure(const std::string& text) {
  fail("!! " + text);
}

void LogFolder::fail(std::string text) {
  Group* last = group(mLast);
  if (last != nullptr && last->line.category == Category::Failure &&
      last->parts.front().text == text) {
    ++last->repeats;
    tell(*last);
    return;
  }
  Group failed;
  failed.line.id = mNextId++;
  failed.line.category = Category::Failure;
  failed.parts.push_back(
      {.rank = kHostRank, .category = Category::Failure, .text = text, .raw = text});
  mLast = failed.line.id;
  Group& stored = mGroups[mLast] = std::move(failed);
  forget();
  tell(stored);
}

void LogFolder::open(Part part) {
  // The same event again on its own, such as the mouse resting on one
  // field, counts up the line before it.
  Group* last = group(mLast);
  if (mHeld == 0 && last != nullptr && last->parts.size() == 1 &&
      last->line.category == part.category && last->parts.front().text == part.text) {
    ++last->repeats;
    mOpen = mLast;
    tell(*last);
    return;
  }
  Group fresh;
  fresh.line.id = mNextId++;
  fresh.parts.push_back(std::move(part));
  mOpen = mLast = fresh.line.id;
  Group& stored = mGroups[mOpen] = std::move(fresh);
  forget();
  tell(stored);
}

void LogFolder::join(Part part) {
  Group* current = group(mOpen);
  if (current == nullptr) {
    open(std::move(part));
    return;
  }
  current->parts.push_back(std::move(part));
  tell(*current);
}

void LogFolder::boundary() {
  if (mHeld == 0)
    mOpen = 0;
}

void LogFolder::hold() {
  ++mHeld;
}

void LogFolder::release() {
  if (mHeld > 0 && --mHeld == 0)
    mOpen = 0;
}

void LogFolder::tell(Group& group) {
  const Part* lead = &group.parts.front();
  for (const Part& part : group.parts) {
    if (part.rank > lead->rank)
      lead = &part;
  }
  std::string text = lead->text;
  size_t others = 0;
  for (const Part& part : group.parts) {
    if (part.answer && lead->change)
      text += "  " + part.text;
    else if (&part != lead)
      ++others;
  }
  if (others > 0)
    text += "  [+" + std::to_string(others) + " more]";
  if (group.repeats > 1)
    text += "  ×" + std::to_string(group.repeats);
  group.line.category = lead->category;
  group.line.text = shortened(std::move(text));

  std::string detail;
  std::vector<std::string> notes;
  size_t shown = 0;
  for (const Part& part : group.parts) {
    if (shown++ < kMostDetailLines)
      detail += (detail.empty() ? "" : "\n") + part.raw;
    for (const auto& note : part.notes) {
      if (std::find(notes.begin(), notes.end(), note) == notes.end())
        notes.push_back(note);
    }
  }
  if (shown > kMostDetailLines)
    detail += "\n… and " + std::to_string(shown - kMostDetailLines) + " more";
  notes.resize(std::min(notes.size(), kMostDetailLines));
  for (const auto& note : notes) detail += "\n" + note;
  group.line.detail = std::move(detail);
  if (onLine)
    onLine(group.line);
}

}  // namespace kelmora::tools
