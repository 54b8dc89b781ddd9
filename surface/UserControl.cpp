#include "surface/UserControl.h"

#include <vector>

#include "platform/FirstFailure.h"
#include "platform/OpenForms.h"
#include "platform/Screen.h"
#include "surface/CheckBox.h"
#include "surface/ComboBox.h"
#include "surface/Focus.h"
#include "surface/Frame.h"
#include "surface/Label.h"
#include "surface/OptionButton.h"
#include "surface/TextBox.h"

namespace kelmora {

namespace {

std::shared_ptr<Widget> makeWidget(const FormRow& row) {
  const std::string caption = row.caption != nullptr ? row.caption : "";
  switch (row.widgetClass) {
    case WidgetClass::TextBox:
      return std::make_shared<TextBox>();
    case WidgetClass::ComboBox: {
      auto combo = std::make_shared<ComboBox>();
      combo->Style(row.style);
      return combo;
    }
    case WidgetClass::OptionButton: {
      auto option = std::make_shared<OptionButton>();
      option->Caption(caption);
      option->Value(row.value != 0);
      return option;
    }
    case WidgetClass::CheckBox: {
      auto check = std::make_shared<CheckBox>();
      check->Caption(caption);
      check->Value(row.value);
      return check;
    }
    case WidgetClass::Label: {
      auto label = std::make_shared<Label>();
      label->Caption(caption);
      label->Alignment(row.style);
      return label;
    }
    case WidgetClass::Frame: {
      auto frame = std::make_shared<Frame>();
      frame->Caption(caption);
      frame->BorderStyle(row.style);
      return frame;
    }
  }
  throw RuntimeError(kInvalidProcedureCall);
}

}  // namespace

UserControl::UserControl() : mControls(std::make_shared<ControlCollection>(*this)) {}

UserControl::~UserControl() {
  mControls->detachAll();
  OpenForms::Remove(this);
}

std::shared_ptr<Widget> UserControl::ActiveControl() const {
  auto focused = Focus::current();
  for (Widget* step = focused.get(); step != nullptr; step = step->Parent()) {
    if (step->Parent() == this)
      return step->weak_from_this().lock();
  }
  return nullptr;
}

void UserControl::SetFocus() {
  if (!isShowing() || !isEnabledInTree())
    throw RuntimeError(kInvalidProcedureCall);
  auto canFocus = [](const Widget& widget) {
    return widget.takesFocus() && widget.isShowing() && widget.isEnabledInTree();
  };
  auto target = ActiveControl();
  if (!target || !canFocus(*target)) {
    target = nullptr;
    for (const auto& widget : *mControls) {
      if (canFocus(*widget) && (!target || widget->TabIndex() < target->TabIndex())) {
        target = widget;
      }
    }
  }
  if (!target) {
    Focus::moveTo(*this);
    return;
  }
  target->SetFocus();
}

void UserControl::buildForm(std::span<const FormRow> rows) {
  for (const auto& row : rows) {
    Widget* container = this;
    if (row.container != nullptr && *row.container != '\0') {
      auto frame = mControls->find(row.container);
      if (!frame || dynamic_cast<Frame*>(frame.get()) == nullptr) {
        throw RuntimeError(kInvalidProcedureCall,
                           std::string("No container '") + row.container + "' for " + row.name);
      }
      container = frame.get();
    }
    // Inside a Frame the table's twips stand; on the surface they become
    // pixels.
    const float scale = container == this ? Screen::kTwipsPerPixel : 1.0f;
    auto widget = makeWidget(row);
    widget->Left(row.left / scale);
    widget->Top(row.top / scale);
    widget->Width(row.width / scale);
    widget->Height(row.height / scale);
    widget->TabIndex(row.tabIndex);
    widget->Visible(row.visible);
    widget->Enabled(row.enabled);
    widget->Tag(row.tag != nullptr ? row.tag : "");
    mControls->adopt(widget, row.name, row.index, container);
  }
}

std::shared_ptr<Widget> UserControl::hitIn(const Widget* container, float x, float y) const {
  const bool outerCountsPixels = container == this;
  const float scale = Screen::kTwipsPerPixel;
  for (bool windowless : {false, true}) {
    for (auto it = mControls->end(); it != mControls->begin();) {
      const auto& widget = *--it;
      if (widget->Container() != container || widget->isWindowless() != windowless)
        continue;
      if (!widget->Visible() || !widget->Enabled())
        continue;
      const SurfaceRect box{widget->Left(), widget->Top(), widget->Width(), widget->Height()};
      if (!box.contains(x, y))
        continue;
      const float dx = x - widget->Left();
      const float dy = y - widget->Top();
      if (dynamic_cast<const Frame*>(widget.get()) != nullptr) {
        const float toTwips = outerCountsPixels ? scale : 1.0f;
        auto inner = hitIn(widget.get(), dx * toTwips, dy * toTwips);
        return inner ? inner : widget;
      }
      if (auto* nested = dynamic_cast<const UserControl*>(widget.get())) {
        const float toPixels = outerCountsPixels ? 1.0f : 1.0f / scale;
        auto inner = nested->widgetAt(dx * toPixels, dy * toPixels);
        return inner ? inner : widget;
      }
      return widget;
    }
  }
  return nullptr;
}

std::shared_ptr<Widget> UserControl::widgetAt(float x, float y) const {
  return hitIn(this, x, y);
}

void UserControl::mouseMoveAt(float x, float y, const MouseArgs& args) {
  MouseArgs at = args;
  at.x = x;
  at.Y = y;
  if (auto target = widgetAt(x, y)) {
    target->raiseMouseMove(at);
  } else {
    raiseMouseMove(at);
  }
}

void UserControl::standAlone(const std::string& name) {
  mName = name;
  registerOpenForm();
}

void UserControl::registerOpenForm() {
  if (mRegistered)
    return;
  mRegistered = true;
  OpenForms::Add(Name().empty() ? ClassName() : Name(), shared_from_this());
}

void UserControl::terminate() {
  if (mTerminated)
    return;
  mTerminated = true;
  auto keep = weak_from_this().lock();
  // Nested controls end even when this one's own end fails.
  FirstFailure failure;
  failure.attempt([&] { UserControl_Terminate(); });
  std::vector<std::shared_ptr<UserControl>> nested;
  for (const auto& widget : *mControls) {
    if (auto control = std::dynamic_pointer_cast<UserControl>(widget))
      nested.push_back(control);
  }
  for (auto it = nested.rbegin(); it != nested.rend(); ++it)
    failure.attempt([&] { (*it)->terminate(); });
  failure.raise();
}

}  // namespace kelmora
