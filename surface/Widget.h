#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Object.h"
#include "surface/PropertyObserver.h"
#include "surface/SystemColors.h"
#include "surface/WidgetEvents.h"

namespace kelmora {

class UserControl;

// A widget's rectangle on its user control's surface, in pixels.
struct SurfaceRect {
  float left = 0.0f;
  float top = 0.0f;
  float width = 0.0f;
  float height = 0.0f;

  bool contains(float x, float y) const {
    return x >= left && y >= top && x < left + width && y < top + height;
  }
};

// Base of every widget of the toolkit. A widget belongs to one user control
// (its Parent) and stands in one container: the user control's surface,
// which counts pixels, or a Frame, whose inside counts twips. Left, Top,
// Width and Height are in the container's units. Widgets of one name form a
// control array and are told apart by Index.
//
// Parent and Container are non-owning: the user control owns its widgets
// through its collection, and clears these back references when a widget is
// removed or the user control goes away.
class Widget : public Object, public std::enable_shared_from_this<Widget> {
 public:
  static constexpr int16_t kNoIndex = -1;

  Widget() = default;
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;
  ~Widget() override = default;

  // Exactly "TextBox", "ComboBox", "OptionButton", "CheckBox", "Label",
  // "Frame", or the class of a user control.
  virtual std::string ClassName() const = 0;
  std::string TypeName() const override { return ClassName(); }

  // The default property as text, written into `out` so that a caller that
  // keeps its buffer allocates nothing.
  virtual void defaultText(std::string& out) const;
  // Writes the default property, as a call by name does: Text, or a
  // label's Caption. A class without a text default fails with 438.
  virtual void setDefaultText(std::string_view value);
  // `caption` by name, for callers that hold any widget: the classes with a
  // Caption answer, the others fail with 438.
  virtual const std::string& caption() const;
  virtual void caption(std::string_view value);

  const std::string& Name() const { return mName; }
  bool IsArrayMember() const { return mIndex != kNoIndex; }
  // A single widget has no Index: reading it fails with 438.
  int16_t Index() const;

  float Left() const { return mLeft; }
  void Left(float value);
  float Top() const { return mTop; }
  void Top(float value);
  // Negative sizes fail with 380.
  float Width() const { return mWidth; }
  void Width(float value);
  float Height() const { return mHeight; }
  void Height(float value);

  // The widget's own flag, whatever its containers show.
  bool Visible() const { return mVisible; }
  void Visible(bool value);
  bool Enabled() const { return mEnabled; }
  void Enabled(bool value);

  const std::string& Tag() const { return mTag; }
  void Tag(std::string_view value);
  const std::string& ToolTipText() const { return mToolTipText; }
  void ToolTipText(std::string_view value);
  Color ForeColor() const { return mForeColor; }
  void ForeColor(Color value);
  Color BackColor() const { return mBackColor; }
  void BackColor(Color value);
  int16_t TabIndex() const { return mTabIndex; }
  void TabIndex(int16_t value);

  // The user control the widget belongs to; nothing when it belongs to none
  // (a user control on a host form, or a widget removed).
  UserControl* Parent() const { return mParent; }
  // The Frame the widget stands in, or its user control for the surface.
  Widget* Container() const { return mContainer; }

  // Moves the focus here. Fails with 438 on widgets that never take the
  // focus (Label, Frame) and with 5 on a hidden or disabled one.
  virtual void SetFocus();

  // Shown on screen: the widget's own flag and those of every container and
  // user control above it.
  bool isShowing() const;
  // Usable: enabled, and every container above it enabled.
  bool isEnabledInTree() const;
  // True inside a Frame, where coordinates count twips.
  bool countsTwips() const;
  // The rectangle on the Parent's surface, in pixels.
  SurfaceRect surfaceRect() const;

  void addObserver(PropertyObserver* observer);
  void removeObserver(PropertyObserver* observer);

  // Raises MouseMove on this widget, unless it is hidden or disabled.
  void raiseMouseMove(const MouseArgs& args = {});
  // Raises OLEDragDrop on this widget, unless it is hidden or disabled.
  void raiseDrop(std::shared_ptr<DataObject>& Data, const DropArgs& args = {});

  virtual bool takesFocus() const { return false; }
  // Labels have no window of their own and lie beneath windowed widgets.
  virtual bool isWindowless() const { return false; }

 protected:
  void notify(WidgetProperty property);
  // Stores a value; true (and observers told) when it really changed.
  template <typename T>
  bool assign(T& field, T value, WidgetProperty property) {
    if (field == value)
      return false;
    field = std::move(value);
    notify(property);
    return true;
  }
  // Texts are copied into the buffer the widget already has, so that a
  // widget that is typed into or recaptioned again and again allocates
  // nothing once its text has grown to size.
  bool assign(std::string& field, std::string_view value, WidgetProperty property) {
    if (field == value)
      return false;
    field.assign(value.data(), value.size());
    notify(property);
    return true;
  }

  // The handler of this widget's events: its Parent. A user control
  // answers its own surface events itself.
  virtual UserControl* surfaceEventTarget() { return mParent; }
  void raiseChange();
  void raiseClick();
  void raiseLostFocus();

 private:
  friend class ControlCollection;
  friend class Focus;
  friend class UserControl;

  template <typename Call>
  void raiseTo(UserControl* target, Call&& call);

  std::string mName;
  int16_t mIndex = kNoIndex;
  UserControl* mParent = nullptr;
  Widget* mContainer = nullptr;
  float mLeft = 0.0f;
  float mTop = 0.0f;
  float mWidth = 0.0f;
  float mHeight = 0.0f;
  bool mVisible = true;
  bool mEnabled = true;
  std::string mTag;
  std::string mToolTipText;
  Color mForeColor = kColorWindowText;
  Color mBackColor = kColorWindowBackground;
  int16_t mTabIndex = 0;
  std::vector<PropertyObserver*> mObservers;
};

}  // namespace kelmora
