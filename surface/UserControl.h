#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>

#include "platform/Late.h"
#include "platform/RuntimeError.h"
#include "surface/ControlCollection.h"
#include "surface/FormRow.h"
#include "surface/Widget.h"
#include "surface/WidgetEvents.h"

namespace kelmora {

// The surface of a frame or of the frame container: a form of widgets that
// counts pixels, itself a widget on whatever holds it. A frame derives from
// it, builds its form from a table, and overrides the WidgetEvents members
// it handles plus the two events of its own, EnterFocus and Terminate.
//
// Terminate cannot be raised by the destructor (the derived frame is gone
// by then), so it runs when the control is taken off its form (Remove on
// the collection that holds it, or the host form unloading it) or when
// terminate() is called. It runs once.
class UserControl : public Widget, public WidgetEvents {
 public:
  UserControl();
  ~UserControl() override;

  // Makes a user control standing on no form, and lists it among the open
  // forms under `name`.
  template <typename T = UserControl, typename... Args>
  static std::shared_ptr<T> create(const std::string& name, Args&&... args) {
    auto control = std::make_shared<T>(std::forward<Args>(args)...);
    control->standAlone(name);
    return control;
  }
  // Names a control that stands on a host's form rather than on a user
  // control, and lists it among the open forms.
  void standAlone(const std::string& name);

  std::string ClassName() const override { return "UserControl"; }
  bool takesFocus() const override { return true; }

  ControlCollection& Controls() const { return *mControls; }
  // The collection as an object, for callers that hold it by reference.
  const std::shared_ptr<ControlCollection>& ControlsObject() const { return mControls; }

  // The widget of this control that holds the focus, or the nested user
  // control that does; nothing while the focus is elsewhere.
  std::shared_ptr<Widget> ActiveControl() const;
  // Gives the focus to the active widget, else the first one in tab order
  // that can take it, else the control's own surface.
  void SetFocus() override;

  // Builds the widgets of a form table in order, converting twips to the
  // units of each row's container. A container that no earlier row made
  // fails with 5.
  void buildForm(std::span<const FormRow> rows);
  // Places a new widget of class T; `container` is a Frame of this control,
  // or nothing for the surface. Coordinates are then set in its units.
  template <typename T>
  std::shared_ptr<T> add(const std::string& name, int16_t index = kNoIndex,
                         Widget* container = nullptr) {
    auto widget = std::make_shared<T>();
    mControls->adopt(widget, name, index, container != nullptr ? container : this);
    return widget;
  }
  // A widget of class T by name and Index. Missing fails with 5, another
  // class with 13.
  template <typename T>
  std::shared_ptr<T> widget(std::string_view name, int16_t index = kNoIndex) const {
    const auto& found = index == kNoIndex ? mControls->Item(name) : mControls->Item(name, index);
    // Frames look their widgets up on every keystroke; the exact class is
    // the usual case and needs no search of the class tree.
    const Widget& foundWidget = Late::object(found);
    if (typeid(foundWidget) == typeid(T))
      return std::static_pointer_cast<T>(found);
    auto typed = std::dynamic_pointer_cast<T>(found);
    if (!typed)
      throw RuntimeError(kTypeMismatch);
    return typed;
  }

  // The topmost shown and enabled widget at a point of the surface, in
  // pixels, looking into Frames and nested user controls; nothing for the
  // bare surface. Windowed widgets lie above labels, later ones above
  // earlier ones; a disabled widget lets the pointer through to what lies
  // beneath it.
  std::shared_ptr<Widget> widgetAt(float x, float y) const;
  // Raises MouseMove on what lies at the point, or on the surface itself.
  void mouseMoveAt(float x, float y, const MouseArgs& args = {});

  // Lists the control among the open forms that the failure path dumps.
  void registerOpenForm();
  // Raises UserControl_Terminate once, then ends the user controls that
  // still stand on this one.
  void terminate();
  bool isTerminated() const { return mTerminated; }

  // Focus entered this control from outside it.
  virtual void UserControl_EnterFocus() {}
  // The control's end of life.
  virtual void UserControl_Terminate() {}

 protected:
  UserControl* surfaceEventTarget() override { return this; }

 private:
  std::shared_ptr<Widget> hitIn(const Widget* container, float x, float y) const;

  std::shared_ptr<ControlCollection> mControls;
  bool mRegistered = false;
  bool mTerminated = false;
};

}  // namespace kelmora
