#include "surface/Frame.h"

#include "platform/RuntimeError.h"

namespace kelmora {

void Frame::Caption(std::string_view value) {
  assign(mCaption, value, WidgetProperty::Caption);
}

void Frame::BorderStyle(int16_t value) {
  if (value != kNoBorder && value != kFixedSingle)
    throw RuntimeError(kInvalidPropertyValue);
  assign(mBorderStyle, value, WidgetProperty::Style);
}

}  // namespace kelmora
