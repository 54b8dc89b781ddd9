#include "surface/UserActions.h"

#include "platform/RuntimeError.h"

#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Focus.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserControl.h"

namespace kelmora {

void UserActions::typeInto(TextBox& box, std::string_view text) {
  box.SetFocus();
  for (char key : text) box.Text(box.Text() + key);
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
