#include "automation/FrameDispatch.h"

#include <string_view>

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"
#include "automation/VariantArray.h"
#include "platform/Dictionary.h"
#include "proxy/ReferenceFrame.h"
#include "surface/ControlCollection.h"
#include "surface/FormatterSettings.h"
#include "surface/Widget.h"
#include "toggler/DepWidgetToggler.h"

namespace kelmora {

Variant FrameDispatch::invoke(Object& target, const TypeLibrary::Member& member,
                              std::vector<Variant>& arguments) {
  auto& frame = dynamic_cast<ReferenceFrame&>(target);
  const std::string_view name = member.name;
  if (name == "getControls")
    return Variant(std::shared_ptr<Object>(frame.getControls()));
  if (name == "GetActiveControl")
    return Variant(std::shared_ptr<Object>(frame.GetActiveControl()));
  if (name == "initialize") {
    frame.initialize();
    return {};
  }
  if (name == "UpdateFrame") {
    int16_t Index = arguments[0].toInteger();
    bool showAllFields = arguments[1].toBoolean();
    frame.UpdateFrame(Index, showAllFields);
    arguments[0] = Index;
    arguments[1] = showAllFields;
    return {};
  }
  if (name == "setReferenceListColumnNames") {
    auto array = Dispatcher::array(arguments[0]);
    auto columnNames = array->strings();
    frame.setReferenceListColumnNames(columnNames);
    array->assign(columnNames);
    return {};
  }
  if (name == "initializeFormatDependentWidgetToggler") {
    auto settings = HostObjects::settings(Dispatcher::object(arguments[0]));
    auto toggler = Dispatcher::objectAs<DepWidgetToggler>(arguments[1]);
    auto keyToOverallIndex = Dispatcher::objectAs<Dictionary>(arguments[2]);
    frame.initializeFormatDependentWidgetToggler(settings, toggler, keyToOverallIndex);
    arguments[1] = std::shared_ptr<Object>(toggler);
    arguments[2] = std::shared_ptr<Object>(keyToOverallIndex);
    return {};
  }
  if (name == "ArrangeAllFields") {
    frame.ArrangeAllFields();
    return {};
  }
  if (name == "ComboLabelCaption" || name == "SelectItem") {
    const bool caption = name == "ComboLabelCaption";
    int16_t Index = arguments[caption ? 0 : 1].toInteger();
    std::string text = arguments[caption ? 1 : 0].toString();
    std::string result;
    if (caption)
      result = frame.ComboLabelCaption(Index, text);
    else
      frame.SelectItem(text, Index);
    arguments[caption ? 0 : 1] = Index;
    arguments[caption ? 1 : 0] = text;
    return caption ? Variant(result) : Variant();
  }
  if (name == "Terminate") {
    frame.Terminate();
    return {};
  }
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
