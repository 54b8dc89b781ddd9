#pragma once

#include <cstdint>

namespace kelmora {

enum class WidgetClass { TextBox, ComboBox, OptionButton, CheckBox, Label, Frame };

// One row of a form table, as the form was drawn: positions and sizes in
// twips within the row's container, which is named by an earlier row, or
// empty for the user control's surface. A user control converts the numbers
// to the container's units as it builds the widget.
//
// `style` is the Label's alignment, the ComboBox's style or the Frame's
// border style; `value` is an OptionButton's selection (non-zero selects it)
// or a CheckBox's value. Both are 0 where they mean nothing. Text boxes have
// no start text, so their caption is left empty.
struct FormRow {
  const char* name;
  int16_t index;
  const char* container;
  WidgetClass widgetClass;
  float left;
  float top;
  float width;
  float height;
  int16_t tabIndex;
  bool visible;
  bool enabled;
  const char* caption;
  const char* tag;
  int16_t style;
  int16_t value;
};

}  // namespace kelmora
