// What a user does, through the C interface. These stand apart from the
// entry points so that they link with the static library too.

#include <string>

#include "automation/CGuard.h"
#include "automation/HostObjects.h"
#include "automation/kelmora.h"
#include "platform/RuntimeError.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/DataObject.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"

using kelmora::RuntimeError;
using kelmora::UserActions;
using kelmora::cabi::guarded;
using kelmora::cabi::objectOf;
using kelmora::cabi::typed;

namespace {

void needText(const char* text) {
  if (text == nullptr)
    throw RuntimeError(kelmora::kInvalidProcedureCall);
}

}  // namespace

extern "C" {

int32_t kelmora_user_focus(kelmora_object* widget, kelmora_error* error) {
  return guarded(error, [&] { UserActions::focus(*typed<kelmora::Widget>(widget)); });
}

int32_t kelmora_user_type(kelmora_object* widget, const char* text, kelmora_error* error) {
  return guarded(error, [&] {
    needText(text);
    UserActions::typeInto(*typed<kelmora::TextBox>(widget), text);
  });
}

int32_t kelmora_user_focus_away(kelmora_error* error) {
  return guarded(error, [&] { UserActions::focusAway(); });
}

int32_t kelmora_user_clear(kelmora_object* text_box, kelmora_error* error) {
  return guarded(error, [&] { UserActions::clear(*typed<kelmora::TextBox>(text_box)); });
}

int32_t kelmora_user_select_index(kelmora_object* combo_box, int16_t index, kelmora_error* error) {
  return guarded(error,
                 [&] { UserActions::selectItem(*typed<kelmora::ComboBox>(combo_box), index); });
}

int32_t kelmora_user_select_text(kelmora_object* combo_box, const char* text,
                                 kelmora_error* error) {
  return guarded(error, [&] {
    needText(text);
    UserActions::selectItem(*typed<kelmora::ComboBox>(combo_box), std::string(text));
  });
}

int32_t kelmora_user_click(kelmora_object* widget, kelmora_error* error) {
  return guarded(error, [&] {
    auto& target = objectOf(widget);
    if (auto* option = dynamic_cast<kelmora::OptionButton*>(&target))
      UserActions::click(*option);
    else if (auto* box = dynamic_cast<kelmora::CheckBox*>(&target))
      UserActions::click(*box);
    else
      throw RuntimeError(kelmora::kTypeMismatch);
  });
}

int32_t kelmora_user_check(kelmora_object* check_box, int16_t value, kelmora_error* error) {
  return guarded(error, [&] {
    auto box = typed<kelmora::CheckBox>(check_box);
    if (value != kelmora::CheckBox::kUnchecked && value != kelmora::CheckBox::kChecked)
      throw RuntimeError(kelmora::kInvalidPropertyValue);
    // A click takes the third state to unchecked, so two clicks at most.
    for (int clicks = 0; clicks < 2 && box->Value() != value; ++clicks) UserActions::click(*box);
  });
}

int32_t kelmora_user_mouse_move(kelmora_object* widget, kelmora_error* error) {
  return guarded(error, [&] { UserActions::moveMouseOver(*typed<kelmora::Widget>(widget)); });
}

int32_t kelmora_user_drop(kelmora_object* widget, kelmora_object* data, kelmora_object** left,
                          kelmora_error* error) {
  if (left != nullptr)
    *left = nullptr;
  return guarded(error, [&] {
    auto target = typed<kelmora::Widget>(widget);
    objectOf(data);
    auto given = kelmora::HostObjects::data(data->object);
    auto after = UserActions::drop(*target, std::move(given));
    if (left != nullptr && after)
      *left = kelmora_object::make(kelmora::HostObjects::unwrapped(after));
  });
}

}  // extern "C"
