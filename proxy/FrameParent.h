#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace kelmora {

class DataObject;
class Object;
class Widget;

// The optional arguments of a field change, named as a frame passes them:
//   parent.widgetChangeHandler(field, {.toggleSecondIndex = 3, .value = caption});
//
// Every member has a default initializer, so that a call may name any
// subset of them without tripping -Wmissing-field-initializers.
struct WidgetChange {
  std::shared_ptr<Object> theSecondControl{};
  bool suppressShowSubform = false;
  int16_t toggleSecondIndex = -1;
  std::string value{};
  std::string secondaryText{};
};

// The optional arguments of a mouse move: none at all for the form's own
// surface, a Frame widget or an option button.
struct MouseMoveOver {
  std::shared_ptr<Widget> field{};
  bool isNewspaperSection = false;
};

// What a frame calls on its Parent, the frame container: the eight
// operations through which everything a frame sees reaches the host.
class FrameParent {
 public:
  // The Parent of a frame, seen as its container. A frame standing on
  // nothing fails with 91, on a control that is no container with 438.
  static FrameParent& of(const Widget& frame);

  // The optional arguments go by reference: after the call `change` holds
  // what the host left in them, such as another second control.
  virtual void widgetChangeHandler(std::shared_ptr<Widget> theControl, WidgetChange& change) = 0;
  // For a change whose arguments the frame does not read back.
  void widgetChangeHandler(std::shared_ptr<Widget> theControl, WidgetChange&& change = {}) {
    widgetChangeHandler(std::move(theControl), change);
  }
  virtual std::string CaptionToTitleType(int16_t whichType, std::string text) = 0;
  virtual std::string TitleTypeToCaption(int16_t whichType, std::string text) = 0;
  virtual void OptionButtonChanged(int16_t Index) = 0;
  virtual void HandleMouseMove(MouseMoveOver over = {}) = 0;
  // The host may replace Data; the frame sees the replacement.
  virtual void HandleDragDrop(std::shared_ptr<DataObject>& Data) = 0;
  virtual void UserFormEnterFocus(std::shared_ptr<Widget> anyField) = 0;
  virtual void ProcessTextField(std::shared_ptr<Widget> field, std::string secondaryText = "") = 0;

 protected:
  ~FrameParent() = default;
};

}  // namespace kelmora
