#include "surface/TextBox.h"

namespace kelmora {

void TextBox::Text(std::string_view value) {
  if (assign(mText, value, WidgetProperty::Text))
    raiseChange();
}

}  // namespace kelmora
