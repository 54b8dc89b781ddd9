#pragma once

namespace kelmora {

class Widget;

// What changed on a widget. Controls and Focus are reported by a user
// control when its collection changes or when the focus enters or leaves one
// of its widgets.
enum class WidgetProperty {
  Left,
  Top,
  Width,
  Height,
  Visible,
  Enabled,
  Tag,
  ToolTipText,
  ForeColor,
  BackColor,
  TabIndex,
  Caption,
  Text,
  Value,
  List,
  ListIndex,
  Style,
  Focus,
  Controls,
};

// Mirrors a widget for a renderer or a real GUI. Observers are told after
// the new value is stored and before the widget's event runs, only when the
// value really changed. The widget does not own its observers; an observer
// removes itself before it goes away.
class PropertyObserver {
 public:
  virtual void propertyChanged(Widget& widget, WidgetProperty property) = 0;

 protected:
  ~PropertyObserver() = default;
};

}  // namespace kelmora
