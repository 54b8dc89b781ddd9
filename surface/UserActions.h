#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace kelmora {

class CheckBox;
class ComboBox;
class DataObject;
class OptionButton;
class TextBox;
class UserControl;
class Widget;

// What a user does to a form, for tests, the scenario player and a GUI
// backend. Each action takes the focus first, as a click or a keystroke
// would, so acting on a hidden or disabled widget fails with 5 and changes
// nothing.
class UserActions {
 public:
  // Types character by character, a character being one whole UTF-8
  // sequence: one Change per keystroke.
  static void typeInto(TextBox& box, std::string_view text);
  // Selects all and deletes: one Change, if there was text.
  static void clear(TextBox& box);
  // One edit in a real text field, a keystroke, a paste or a cut: the whole
  // new text in one write, so one Change when it differs.
  static void edit(TextBox& box, std::string_view text);
  // The same in the text part of a drop-down combo; a list-only combo
  // takes only the text of one of its entries (380 otherwise).
  static void edit(ComboBox& combo, std::string_view text);
  static void selectItem(ComboBox& combo, int16_t index);
  // Picks the entry with exactly this text; no such entry fails with 380.
  static void selectItem(ComboBox& combo, const std::string& text);
  static void click(OptionButton& option);
  // Toggles between checked and unchecked; the third state becomes
  // unchecked.
  static void click(CheckBox& box);
  static void focus(Widget& widget);
  // The focus goes to something outside the library's forms.
  static void focusAway();
  // Tab (or Shift+Tab with `backwards`) on a form: the focus moves to the
  // next widget of `root` in tab order that can take it, wrapping round.
  // Nothing moves when none can.
  static void pressTab(UserControl& root, bool backwards = false);
  // The pointer rests on the middle of a widget; whatever lies on top there
  // and is enabled receives the move. A user control receives it on its own
  // surface.
  static void moveMouseOver(Widget& widget);
  static void moveMouseAt(UserControl& control, float x, float y);
  // Drops data on a widget; the result is the data as the handlers left it.
  static std::shared_ptr<DataObject> drop(Widget& widget, std::shared_ptr<DataObject> Data);
};

}  // namespace kelmora
