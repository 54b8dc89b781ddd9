#include "surface/TextBox.h"

namespace kelmora {

void TextBox::Text(std::string value) {
  if (assign(mText, std::move(value), WidgetProperty::Text))
    raiseChange();
}

}  // namespace kelmora
