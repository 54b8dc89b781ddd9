#include "surface/Label.h"

#include "platform/RuntimeError.h"

namespace kelmora {

void Label::Caption(std::string_view value) {
  if (assign(mCaption, value, WidgetProperty::Caption))
    raiseChange();
}

void Label::Alignment(int16_t value) {
  if (value < kLeftJustify || value > kCenter)
    throw RuntimeError(kInvalidPropertyValue);
  assign(mAlignment, value, WidgetProperty::Style);
}

}  // namespace kelmora
