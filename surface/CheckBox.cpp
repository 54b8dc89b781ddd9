#include "surface/CheckBox.h"

#include "platform/RuntimeError.h"

namespace kelmora {

void CheckBox::Caption(std::string_view value) {
  assign(mCaption, value, WidgetProperty::Caption);
}

void CheckBox::Value(int16_t value) {
  if (value < kUnchecked || value > kGrayed)
    throw RuntimeError(kInvalidPropertyValue);
  if (assign(mValue, value, WidgetProperty::Value))
    raiseClick();
}

}  // namespace kelmora
