#include "surface/OptionButton.h"

#include "surface/UserControl.h"

namespace kelmora {

void OptionButton::Caption(std::string_view value) {
  assign(mCaption, value, WidgetProperty::Caption);
}

void OptionButton::Value(bool value) {
  if (!assign(mValue, value, WidgetProperty::Value) || !value)
    return;
  if (Parent() != nullptr) {
    for (const auto& widget : Parent()->Controls()) {
      auto* sibling = dynamic_cast<OptionButton*>(widget.get());
      if (sibling == nullptr || sibling == this || sibling->Container() != Container())
        continue;
      sibling->assign(sibling->mValue, false, WidgetProperty::Value);
    }
  }
  raiseClick();
}

}  // namespace kelmora
