#pragma once

#include <memory>

namespace kelmora {

class UserControl;
class Widget;

// The one widget of this thread that has the focus. A user control's
// ActiveControl follows from it: the widget of that control on the way from
// the focused widget up through its Parents.
//
// Moving the focus updates it first, so that handlers already see the new
// ActiveControl; then LostFocus is raised on the widget that had it, then
// EnterFocus on every user control the focus enters from outside, outermost
// first.
class Focus {
 public:
  static std::shared_ptr<Widget> current();
  // A hidden or disabled target fails with 5 and moves nothing.
  static void moveTo(Widget& target);
  // The focus leaves for something outside the library's forms.
  static void leave();
  // Drops the focus without events when the focused widget, or a user
  // control holding it, is taken off its form.
  static void forget(const Widget& removed);
  // Where Tab moves the focus on `root`: the widgets that can take it
  // (shown, enabled, not a label or frame) ordered by TabIndex within each
  // user control, a nested user control standing in its parent's order
  // for its own widgets. The one after the focused widget, or the first
  // when the focus is not on `root`; the order wraps round. Nothing when
  // no widget can take the focus.
  static std::shared_ptr<Widget> nextInTabOrder(const UserControl& root, bool backwards);
  // True when `widget` is `control` or stands on it, at any depth.
  static bool isWithin(const Widget& widget, const UserControl& control);

 private:
  static std::weak_ptr<Widget>& focused();
};

}  // namespace kelmora
