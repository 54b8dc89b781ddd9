#pragma once

#include <cstdint>
#include <string>

namespace kelmora {

// Why one widget of a frame stands as it does: shown or hidden, enabled or
// disabled, with the caption it has. Plain data, for hosts and tools.
struct WidgetExplanation {
  enum class Source {
    // No rule has acted on the widget: the form and the frame's own code
    // (show all, the option chosen, the layout) decide its state.
    Frame,
    // The last rule that acted on it decided its state.
    Rule,
    // A rule acted on it, and the frame's own code changed its state since.
    RuleThenFrame,
  };

  // "frame", "rule" or "rule, then frame": the source as hosts read it.
  static constexpr const char* sourceName(Source source) {
    return source == Source::Rule            ? "rule"
           : source == Source::RuleThenFrame ? "rule, then frame"
                                             : "frame";
  }

  std::string name;       // "TextBox(9)", "AccessDateLabel"
  std::string className;  // "TextBox"
  std::string key;        // the field key of its tag; empty for none
  int16_t overallIndex = -1;
  std::string caption;  // what an author calls it
  bool shown = false;
  bool enabled = false;
  Source source = Source::Frame;

  // What the rule did, when one acted.
  std::string enableKey;         // the row's conditions as written
  std::string dependentWidgets;  // the row's widgets as written
  bool toggleByHiding = false;
  int32_t formatFamily = -1;   // the family the row was registered for
  bool earlierFormat = false;  // registered for a format since replaced
  std::string trigger;         // the widget whose change ran it, by key
  std::string condition;       // the deciding condition as written
  std::string value;           // what the deciding condition read
  bool conditionHeld = false;
  std::string command;  // "show", "disable", "hide" or "recaption"
  std::string captionWhenEnabled;
  std::string captionWhenDisabled;
  bool applied = false;  // false when the command failed on its way

  // The whole in plain words: "hidden because ...".
  std::string because;
};

}  // namespace kelmora
