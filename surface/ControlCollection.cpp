#include "surface/ControlCollection.h"

#include "platform/ReleasePool.h"

#include <algorithm>

#include "platform/OpenForms.h"
#include "platform/RuntimeError.h"
#include "surface/ControlRegistry.h"
#include "surface/Focus.h"
#include "surface/UserControl.h"

namespace kelmora {

const std::shared_ptr<Widget>& ControlCollection::Item(int32_t index) const {
  if (index < 0 || index >= Count())
    throw RuntimeError(kSubscriptOutOfRange);
  return mWidgets[static_cast<size_t>(index)];
}

const ControlCollection::Members* ControlCollection::membersOf(std::string_view name) const {
  for (const auto& [recent, members] : mRecent) {
    if (members != nullptr && recent == name)
      return members;
  }
  auto found = mByName.find(name);
  if (found == mByName.end())
    return nullptr;
  mRecent[mNextRecent] = {found->first, &found->second};
  mNextRecent = (mNextRecent + 1) % mRecent.size();
  return &found->second;
}

const std::vector<std::shared_ptr<Widget>>* ControlCollection::named(std::string_view name) const {
  const auto* members = membersOf(name);
  return members == nullptr ? nullptr : &members->all;
}

void ControlCollection::reindex(Members& members) {
  members.byIndex.clear();
  for (const auto& widget : members.all) {
    if (widget->mIndex < 0)
      continue;
    const auto slot = static_cast<size_t>(widget->mIndex);
    if (members.byIndex.size() <= slot)
      members.byIndex.resize(slot + 1, nullptr);
    members.byIndex[slot] = &widget;
  }
}

const std::vector<std::shared_ptr<Widget>>& ControlCollection::members(
    std::string_view name) const {
  static const std::vector<std::shared_ptr<Widget>> none;
  const auto* found = named(name);
  return found != nullptr ? *found : none;
}

const std::shared_ptr<Widget>& ControlCollection::Item(std::string_view name) const {
  if (const auto* members = named(name))
    return members->front();
  throw RuntimeError(kInvalidProcedureCall);
}

const std::shared_ptr<Widget>& ControlCollection::Item(std::string_view name, int16_t index) const {
  if (const auto* members = membersOf(name)) {
    if (index >= 0 && static_cast<size_t>(index) < members->byIndex.size()) {
      if (const auto* widget = members->byIndex[static_cast<size_t>(index)])
        return *widget;
    }
  }
  throw RuntimeError(kInvalidProcedureCall);
}

std::shared_ptr<Widget> ControlCollection::find(std::string_view name, int16_t index) const {
  if (const auto* members = named(name)) {
    for (const auto& widget : *members) {
      if (index == Widget::kNoIndex || widget->mIndex == index)
        return widget;
    }
  }
  return nullptr;
}

void ControlCollection::adopt(const std::shared_ptr<Widget>& widget, const std::string& name,
                              int16_t index, Widget* container) {
  // A name is either one widget or one control array, never both.
  if (const auto* members = named(name)) {
    for (const auto& other : *members) {
      if (index == Widget::kNoIndex || other->mIndex == Widget::kNoIndex ||
          other->mIndex == index) {
        throw RuntimeError(kKeyAlreadyExists);
      }
    }
  }
  widget->mName = name;
  widget->mIndex = index;
  widget->mParent = mOwner;
  widget->mContainer = container;
  mWidgets.push_back(widget);
  auto& members = mByName[name];
  members.all.push_back(widget);
  reindex(members);
  mRecent = {};
  mOwner->notify(WidgetProperty::Controls);
}

std::shared_ptr<Widget> ControlCollection::Add(const std::string& identifier,
                                               const std::string& name) {
  if (find(name))
    throw RuntimeError(kKeyAlreadyExists);
  auto control = ControlRegistry::Create(identifier);
  control->Visible(false);
  adopt(control, name, Widget::kNoIndex, mOwner);
  control->registerOpenForm();
  return control;
}

void ControlCollection::Remove(const std::string& name) {
  // The named widgets and, container by container, everything inside them.
  std::vector<std::shared_ptr<Widget>> leaving;
  for (const auto& widget : mWidgets) {
    if (widget->Name() == name)
      leaving.push_back(widget);
  }
  if (leaving.empty())
    throw RuntimeError(kInvalidProcedureCall);
  for (size_t i = 0; i < leaving.size(); ++i) {
    for (const auto& widget : mWidgets) {
      if (widget->Container() == leaving[i].get() &&
          std::find(leaving.begin(), leaving.end(), widget) == leaving.end()) {
        leaving.push_back(widget);
      }
    }
  }
  for (const auto& widget : leaving) Focus::forget(*widget);
  // Terminate runs while the control still stands on the form.
  for (const auto& widget : leaving) {
    if (auto control = std::dynamic_pointer_cast<UserControl>(widget))
      control->terminate();
  }
  mRecent = {};
  const auto isLeaving = [&](const std::shared_ptr<Widget>& widget) {
    return std::find(leaving.begin(), leaving.end(), widget) != leaving.end();
  };
  std::erase_if(mWidgets, isLeaving);
  for (const auto& widget : leaving) {
    auto members = mByName.find(widget->Name());
    if (members == mByName.end())
      continue;
    std::erase_if(members->second.all, isLeaving);
    if (members->second.all.empty()) {
      mByName.erase(members);
    } else {
      reindex(members->second);
    }
  }
  for (const auto& widget : leaving) {
    widget->mParent = nullptr;
    widget->mContainer = nullptr;
    OpenForms::Remove(widget.get());
  }
  mOwner->notify(WidgetProperty::Controls);
  // A removed control's code may still be running further up the stack.
  for (auto& widget : leaving) ReleasePool::release(widget);
}

void ControlCollection::detachAll() {
  auto widgets = std::move(mWidgets);
  mWidgets.clear();
  mByName.clear();
  mRecent = {};
  for (const auto& widget : widgets) {
    widget->mParent = nullptr;
    widget->mContainer = nullptr;
  }
}

}  // namespace kelmora
