#pragma once

#include <cstdint>
#include <memory>

namespace kelmora {

class DataObject;
class Widget;

// Arguments the toolkit passes with a mouse event. The library reads none of
// them; they are kept so that a renderer or a GUI backend can pass them on.
struct MouseArgs {
  int16_t Button = 0;
  int16_t Shift = 0;
  float x = 0.0f;
  float Y = 0.0f;
};

struct DropArgs {
  int32_t Effect = 0;
  int16_t Button = 0;
  int16_t Shift = 0;
  float x = 0.0f;
  float Y = 0.0f;
};

// The events a widget raises, delivered to the user control that owns it.
// A frame overrides the members it handles and tells the widgets apart by
// Name() and Index(), the way a control array's event procedure receives
// the Index. A virtual call on a handler the widget already knows (its
// Parent) costs nothing per event: no registration, no std::function, no
// allocation. Events of the user control's own surface (MouseMove and
// OLEDragDrop on the form itself) arrive with the user control as source.
class WidgetEvents {
 public:
  // Text of a TextBox or Caption of a Label changed, by a user or a program.
  virtual void Change(Widget& /*source*/) {}
  // An OptionButton became selected, a ComboBox's ListIndex or a CheckBox's
  // Value changed.
  virtual void Click(Widget& /*source*/) {}
  virtual void LostFocus(Widget& /*source*/) {}
  virtual void MouseMove(Widget& /*source*/, const MouseArgs& /*args*/) {}
  // Data goes by reference: a handler may replace it and the dropper sees
  // the replacement.
  virtual void OLEDragDrop(Widget& /*source*/, std::shared_ptr<DataObject>& /*Data*/,
                           const DropArgs& /*args*/) {}

 protected:
  ~WidgetEvents() = default;
};

}  // namespace kelmora
