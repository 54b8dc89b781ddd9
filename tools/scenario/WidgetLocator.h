#pragma once

#include <memory>
#include <string>

namespace kelmora {
class FrameContainer;
class UserControl;
class Widget;
}  // namespace kelmora

namespace kelmora::tools {

// Finds a widget of a frame from how a scenario names it:
//   "TextBox(8)"            a control array member, by name and Index
//   "AdvancedFieldsFrame"   a single widget by name
//   "PeriodicalOnline"      the widget whose tag carries that field key
//   "frame"                 the frame's own surface
// in the frame shown, or in another type's frame with a prefix:
// "Esource:TextBox(2)". A widget that is not there is bad input.
class WidgetLocator {
 public:
  static std::shared_ptr<Widget> find(const FrameContainer& container, const std::string& ref);
  // The frame of a type, or of the type shown for -1; nothing before it
  // exists.
  static std::shared_ptr<UserControl> frame(const FrameContainer& container, int16_t whichType);
};

}  // namespace kelmora::tools
