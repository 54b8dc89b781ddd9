#include "surface/Focus.h"

#include <algorithm>
#include <vector>

#include "platform/RuntimeError.h"
#include "surface/UserControl.h"

namespace kelmora {

namespace {

// The user controls that hold `widget`, innermost first; a user control
// holds itself.
std::vector<UserControl*> holders(Widget* widget) {
  std::vector<UserControl*> chain;
  if (widget == nullptr)
    return chain;
  if (auto* control = dynamic_cast<UserControl*>(widget))
    chain.push_back(control);
  for (UserControl* parent = widget->Parent(); parent != nullptr; parent = parent->Parent()) {
    chain.push_back(parent);
  }
  return chain;
}

// Appends the widgets of `control` that Tab visits, in tab order. Equal
// TabIndex values keep the order of the form.
void appendTabOrder(const UserControl& control, std::vector<std::shared_ptr<Widget>>& order) {
  std::vector<std::shared_ptr<Widget>> own(control.Controls().begin(), control.Controls().end());
  std::stable_sort(own.begin(), own.end(),
                   [](const auto& a, const auto& b) { return a->TabIndex() < b->TabIndex(); });
  for (const auto& widget : own) {
    if (!widget->takesFocus() || !widget->isShowing() || !widget->isEnabledInTree())
      continue;
    if (auto* nested = dynamic_cast<const UserControl*>(widget.get())) {
      appendTabOrder(*nested, order);
      continue;
    }
    order.push_back(widget);
  }
}

}  // namespace

std::shared_ptr<Widget> Focus::nextInTabOrder(const UserControl& root, bool backwards) {
  std::vector<std::shared_ptr<Widget>> order;
  appendTabOrder(root, order);
  if (order.empty())
    return nullptr;
  if (backwards)
    std::reverse(order.begin(), order.end());
  const auto at = std::find(order.begin(), order.end(), current());
  if (at == order.end() || at + 1 == order.end())
    return order.front();
  return *(at + 1);
}

std::weak_ptr<Widget>& Focus::focused() {
  thread_local std::weak_ptr<Widget> widget;
  return widget;
}

std::shared_ptr<Widget> Focus::current() {
  return focused().lock();
}

bool Focus::isWithin(const Widget& widget, const UserControl& control) {
  for (const Widget* step = &widget; step != nullptr; step = step->Parent()) {
    if (step == &control)
      return true;
  }
  return false;
}

void Focus::moveTo(Widget& target) {
  auto next = target.weak_from_this().lock();
  if (!next || !target.isShowing() || !target.isEnabledInTree()) {
    throw RuntimeError(kInvalidProcedureCall);
  }
  auto previous = current();
  if (previous == next)
    return;
  const auto before = holders(previous.get());
  const auto after = holders(next.get());
  focused() = next;

  if (previous)
    previous->notify(WidgetProperty::Focus);
  next->notify(WidgetProperty::Focus);
  if (previous && dynamic_cast<UserControl*>(previous.get()) == nullptr) {
    previous->raiseLostFocus();
  }
  for (auto it = after.rbegin(); it != after.rend(); ++it) {
    if (std::find(before.begin(), before.end(), *it) != before.end())
      continue;
    auto keep = (*it)->weak_from_this().lock();
    (*it)->UserControl_EnterFocus();
  }
}

void Focus::leave() {
  auto previous = current();
  if (!previous)
    return;
  focused().reset();
  previous->notify(WidgetProperty::Focus);
  if (dynamic_cast<UserControl*>(previous.get()) == nullptr)
    previous->raiseLostFocus();
}

void Focus::forget(const Widget& removed) {
  auto previous = current();
  if (!previous)
    return;
  for (const Widget* step = previous.get(); step != nullptr; step = step->Container()) {
    if (step == &removed) {
      focused().reset();
      return;
    }
  }
}

}  // namespace kelmora
