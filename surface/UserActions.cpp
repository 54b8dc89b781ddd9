#include "surface/UserActions.h"

#include "platform/RuntimeError.h"

#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Focus.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

namespace kelmora {

namespace {

// The bytes of the character that starts `text`: a whole UTF-8 sequence,
// or one byte where the text is no valid UTF-8 there.
size_t characterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const size_t length = lead < 0x80           ? 1
                        : (lead >> 5) == 0x6  ? 2
                        : (lead >> 4) == 0xE  ? 3
                        : (lead >> 3) == 0x1E ? 4
                                              : 1;
  if (length > text.size())
    return 1;
  for (size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80)
      return 1;
  }
  return length;
}

}  // namespace

void UserActions::typeInto(TextBox& box, std::string_view text) {
  // A handler may take the box off its form between two keys.
  const auto keep = box.weak_from_this().lock();
  box.SetFocus();
  while (!text.empty()) {
    const size_t length = characterLength(text);
    box.Text(box.Text() + std::string(text.substr(0, length)));
    text.remove_prefix(length);
  }
}

void UserActions::clear(TextBox& box) {
  box.SetFocus();
  box.Text("");
}

void UserActions::edit(TextBox& box, std::string_view text) {
  box.SetFocus();
  box.Text(text);
}

void UserActions::edit(ComboBox& combo, std::string_view text) {
  combo.SetFocus();
  combo.Text(text);
}

void UserActions::selectItem(ComboBox& combo, int16_t index) {
  combo.SetFocus();
  combo.ListIndex(index);
}

void UserActions::selectItem(ComboBox& combo, const std::string& text) {
  for (int16_t i = 0; i < combo.ListCount(); ++i) {
    if (combo.List(i) == text) {
      selectItem(combo, i);
      return;
    }
  }
  throw RuntimeError(kInvalidPropertyValue);
}

void UserActions::click(OptionButton& option) {
  option.SetFocus();
  option.Value(true);
}

void UserActions::click(CheckBox& box) {
  box.SetFocus();
  box.Value(box.Value() == CheckBox::kUnchecked ? CheckBox::kChecked : CheckBox::kUnchecked);
}

void UserActions::focus(Widget& widget) {
  widget.SetFocus();
}

void UserActions::focusAway() {
  Focus::leave();
}

void UserActions::pressTab(UserControl& root, bool backwards) {
  if (auto next = Focus::nextInTabOrder(root, backwards))
    next->SetFocus();
}

void UserActions::moveMouseOver(Widget& widget) {
  UserControl* parent = widget.Parent();
  if (parent == nullptr || dynamic_cast<UserControl*>(&widget) != nullptr) {
    widget.raiseMouseMove();
    return;
  }
  const SurfaceRect box = widget.surfaceRect();
  parent->mouseMoveAt(box.left + box.width / 2, box.top + box.height / 2);
}

void UserActions::moveMouseAt(UserControl& control, float x, float y) {
  control.mouseMoveAt(x, y);
}

std::shared_ptr<DataObject> UserActions::drop(Widget& widget, std::shared_ptr<DataObject> Data) {
  widget.raiseDrop(Data);
  return Data;
}

}  // namespace kelmora
