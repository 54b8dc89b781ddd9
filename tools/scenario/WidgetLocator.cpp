#include "scenario/WidgetLocator.h"

#include <charconv>

#include "host/Kit.h"
#include "host/FieldValues.h"
#include "hosting/FrameContainer.h"
#include "proxy/FrameProxy.h"

namespace kelmora::tools {

namespace {

struct TypeName {
  const char* name;
  int16_t whichType;
};
constexpr TypeName kTypes[] = {{"NonPeriodical", 0}, {"Periodical", 1}, {"Esource", 4}};

}  // namespace

std::shared_ptr<UserControl> WidgetLocator::frame(const FrameContainer& container,
                                                  int16_t whichType) {
  auto proxy = container.existingProxy(whichType < 0 ? container.currentFrame() : whichType);
  return proxy ? std::dynamic_pointer_cast<UserControl>(proxy->frame()) : nullptr;
}

std::shared_ptr<Widget> WidgetLocator::find(const FrameContainer& container,
                                            const std::string& ref) {
  std::string name = ref;
  int16_t whichType = -1;
  if (auto colon = ref.find(':'); colon != std::string::npos) {
    const std::string prefix = ref.substr(0, colon);
    for (const auto& type : kTypes)
      if (prefix == type.name)
        whichType = type.whichType;
    if (whichType < 0)
      throw BadInput("unknown frame '" + prefix +
                     "' in widget name (NonPeriodical, Periodical or Esource)");
    name = ref.substr(colon + 1);
  }
  auto owner = frame(container, whichType);
  if (!owner)
    throw BadInput("unknown widget '" + ref + "': that frame does not exist yet");
  if (name == "frame")
    return owner;

  const auto open = name.find('(');
  if (open != std::string::npos && name.back() == ')') {
    int index = 0;
    const char* first = name.data() + open + 1;
    const char* last = name.data() + name.size() - 1;
    auto [end, error] = std::from_chars(first, last, index);
    if (error == std::errc() && end == last && index >= 0 && index <= INT16_MAX) {
      if (auto found = owner->Controls().find(name.substr(0, open), static_cast<int16_t>(index)))
        return found;
    }
    throw BadInput("unknown widget '" + ref + "'");
  }
  if (auto found = owner->Controls().find(name); found && !found->IsArrayMember())
    return found;
  for (const auto& widget : owner->Controls()) {
    if (Record::fieldKey(*widget) == name)
      return widget;
  }
  throw BadInput("unknown widget '" + ref + "'");
}

}  // namespace kelmora::tools
