#pragma once

#include <string>
#include <vector>

#include "surface/DataObject.h"
#include "surface/UserControl.h"

namespace kelmora::testing {

// A user control that records its events in order, the way a frame would
// receive them: "Change TextBox(1)", "Click OptionButton(0)",
// "MouseMove surface", "EnterFocus Spy", "Terminate Spy". Other tests push
// their own markers into the same list to check ordering.
class SpyControl : public UserControl {
 public:
  std::vector<std::string>& events;
  std::shared_ptr<DataObject> replacementData;

  explicit SpyControl(std::vector<std::string>& log) : events(log) {}

  std::string ClassName() const override { return "Spy"; }

  std::string nameOf(Widget& widget) {
    if (&widget == this)
      return "surface";
    if (!widget.IsArrayMember())
      return widget.Name();
    return widget.Name() + "(" + std::to_string(widget.Index()) + ")";
  }

  void Change(Widget& source) override { events.push_back("Change " + nameOf(source)); }
  void Click(Widget& source) override { events.push_back("Click " + nameOf(source)); }
  void LostFocus(Widget& source) override {
    auto active = ActiveControl();
    events.push_back("LostFocus " + nameOf(source) + " active " +
                     (active ? nameOf(*active) : "Nothing"));
  }
  void MouseMove(Widget& source, const MouseArgs&) override {
    events.push_back("MouseMove " + nameOf(source));
  }
  void OLEDragDrop(Widget& source, std::shared_ptr<DataObject>& Data, const DropArgs&) override {
    events.push_back("OLEDragDrop " + nameOf(source));
    if (replacementData)
      Data = replacementData;
  }
  void UserControl_EnterFocus() override { events.push_back("EnterFocus " + Name()); }
  void UserControl_Terminate() override { events.push_back("Terminate " + Name()); }
};

}  // namespace kelmora::testing
