#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/Kit.h"

namespace kelmora::tools {

// Folds the events between host and library into the lines an author reads
// in the window's log: one line for each thing the person or the panel did,
// with what the library and the host said about it folded in.
//
//   <- widgetChangeHandler «Title» = "Tid"  -> ExecuteDependentWidgetToggler(1, 8)
//   Focus to «Date»  [+1 more]
//   -> UpdateFrame(2, True)  [+4 more]
//
// A keystroke is one line: the library's change and the host's answer to it.
// A call of the panel is one line with everything the library called back
// while it ran. Failures always stand on lines of their own. Widgets are
// named by the caption an author knows them by; the line's detail keeps
// every event in full, with each widget's internal name and field key.
//
// The events do not say where one action of the person ends and the next
// begins; the window does, with boundary() before each key or mouse press.
// Between hold() and release() every event folds into the call that came
// first.
class LogFolder {
 public:
  enum class Category { Host, Change, Focus, Mouse, Rules, Failure };
  static constexpr int kCategories = 6;
  static const char* caption(Category category);

  struct Line {
    // A line told again, because more folded into it, keeps its id.
    uint64_t id = 0;
    Category category = Category::Host;
    std::string text;
    std::string detail;
  };

  // What an author calls a widget the events name as "TextBox(8)": its
  // caption, empty when it has none, and its field key, empty for a widget
  // that holds no field.
  struct Naming {
    std::string caption;
    std::string key;
  };

  // How widgets are named; without it they keep their internal names.
  std::function<Naming(const std::string& widget)> name;
  // Told of every new line and of every line that changed.
  std::function<void(const Line&)> onLine;

  void add(const Json& event);
  // The person moved the focus to a widget of the form (as the events name
  // it), or away from the form with an empty name.
  void focusMoved(const std::string& widget);
  // A failure of the window's own, such as a file it could not read.
  void failure(const std::string& text);

  void boundary();
  void hold();
  void release();

 private:
  // One event of a line. The rank decides which event leads the line: a
  // call of the host, then a focus move of the person, a change, what the
  // library says of focus, of the mouse, the rest.
  struct Part {
    int rank = 0;
    Category category = Category::Host;
    std::string text;
    std::string raw;
    // Each widget named in the text: which one it is, for the detail.
    std::vector<std::string> notes;
    bool change = false;
    bool answer = false;
    // A call of the host that begins a line.
    bool call = false;
  };
  struct Group {
    Line line;
    std::vector<Part> parts;
    int repeats = 1;
  };

  void open(Part part);
  void join(Part part);
  void fail(std::string text);
  Group* group(uint64_t id);
  void forget();
  void tell(Group& group);
  Part callback(const Json& event);
  std::string widgetText(const std::string& widget, Part& part) const;

  uint64_t mNextId = 1;
  int mHeld = 0;
  // The line events fold into (0 for none) and the line told last, which a
  // line just like it repeats. No other line changes any more.
  uint64_t mOpen = 0;
  uint64_t mLast = 0;
  std::map<uint64_t, Group> mGroups;
};

}  // namespace kelmora::tools
