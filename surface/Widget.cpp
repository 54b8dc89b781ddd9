#include "surface/Widget.h"

#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/Screen.h"
#include "platform/Variant.h"
#include "surface/Focus.h"
#include "surface/UserControl.h"

namespace kelmora {

void Widget::defaultText(std::string& out) const {
  out = DefaultValue().toString();
}

void Widget::setDefaultText(std::string_view) {
  throw RuntimeError(kMemberNotSupported);
}

const std::string& Widget::caption() const {
  throw RuntimeError(kMemberNotSupported);
}

void Widget::caption(std::string_view) {
  throw RuntimeError(kMemberNotSupported);
}

int16_t Widget::Index() const {
  if (!IsArrayMember())
    throw RuntimeError(kMemberNotSupported);
  return mIndex;
}

void Widget::Left(float value) {
  assign(mLeft, value, WidgetProperty::Left);
}
void Widget::Top(float value) {
  assign(mTop, value, WidgetProperty::Top);
}

void Widget::Width(float value) {
  if (value < 0.0f)
    throw RuntimeError(kInvalidPropertyValue);
  assign(mWidth, value, WidgetProperty::Width);
}

void Widget::Height(float value) {
  if (value < 0.0f)
    throw RuntimeError(kInvalidPropertyValue);
  assign(mHeight, value, WidgetProperty::Height);
}

void Widget::Visible(bool value) {
  assign(mVisible, value, WidgetProperty::Visible);
}
void Widget::Enabled(bool value) {
  assign(mEnabled, value, WidgetProperty::Enabled);
}
void Widget::Tag(std::string_view value) {
  assign(mTag, value, WidgetProperty::Tag);
}

void Widget::ToolTipText(std::string_view value) {
  assign(mToolTipText, value, WidgetProperty::ToolTipText);
}

void Widget::ForeColor(Color value) {
  assign(mForeColor, value, WidgetProperty::ForeColor);
}
void Widget::BackColor(Color value) {
  assign(mBackColor, value, WidgetProperty::BackColor);
}
void Widget::TabIndex(int16_t value) {
  assign(mTabIndex, value, WidgetProperty::TabIndex);
}

void Widget::SetFocus() {
  if (!takesFocus())
    throw RuntimeError(kMemberNotSupported);
  Focus::moveTo(*this);
}

bool Widget::isShowing() const {
  return mVisible && (mContainer == nullptr || mContainer->isShowing());
}

bool Widget::isEnabledInTree() const {
  return mEnabled && (mContainer == nullptr || mContainer->isEnabledInTree());
}

bool Widget::countsTwips() const {
  return mContainer != nullptr && mContainer != mParent;
}

SurfaceRect Widget::surfaceRect() const {
  if (!countsTwips())
    return {mLeft, mTop, mWidth, mHeight};
  const SurfaceRect inside = mContainer->surfaceRect();
  const float scale = Screen::kTwipsPerPixel;
  return {inside.left + mLeft / scale, inside.top + mTop / scale, mWidth / scale, mHeight / scale};
}

void Widget::addObserver(PropertyObserver* observer) {
  if (std::find(mObservers.begin(), mObservers.end(), observer) == mObservers.end()) {
    mObservers.push_back(observer);
  }
}

void Widget::removeObserver(PropertyObserver* observer) {
  std::erase(mObservers, observer);
}

void Widget::notify(WidgetProperty property) {
  // By index: an observer may remove itself while it is told.
  for (size_t i = 0; i < mObservers.size(); ++i) mObservers[i]->propertyChanged(*this, property);
}

template <typename Call>
void Widget::raiseTo(UserControl* target, Call&& call) {
  if (target == nullptr)
    return;
  // A handler may remove this widget or even its user control; both stay
  // alive until the handler returns.
  auto keepSelf = weak_from_this().lock();
  auto keepTarget = target->weak_from_this().lock();
  call(static_cast<WidgetEvents&>(*target));
}

void Widget::raiseChange() {
  raiseTo(mParent, [this](WidgetEvents& events) { events.Change(*this); });
}

void Widget::raiseClick() {
  raiseTo(mParent, [this](WidgetEvents& events) { events.Click(*this); });
}

void Widget::raiseLostFocus() {
  raiseTo(mParent, [this](WidgetEvents& events) { events.LostFocus(*this); });
}

void Widget::raiseMouseMove(const MouseArgs& args) {
  if (!isShowing() || !isEnabledInTree())
    return;
  raiseTo(surfaceEventTarget(), [&](WidgetEvents& events) { events.MouseMove(*this, args); });
}

void Widget::raiseDrop(std::shared_ptr<DataObject>& Data, const DropArgs& args) {
  if (!isShowing() || !isEnabledInTree())
    return;
  raiseTo(surfaceEventTarget(),
          [&](WidgetEvents& events) { events.OLEDragDrop(*this, Data, args); });
}

}  // namespace kelmora
