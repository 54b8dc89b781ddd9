#include "automation/FrameContainerDispatch.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"
#include "automation/VariantArray.h"
#include "hosting/FrameContainer.h"
#include "surface/ControlCollection.h"
#include "surface/DataObject.h"
#include "surface/FormatterSettings.h"
#include "surface/HostCallback.h"
#include "surface/Widget.h"

namespace kelmora {

namespace {

// Writes a changed array back where the caller gave it.
template <typename Call>
void withStrings(Variant& argument, Call&& call) {
  auto array = Dispatcher::array(argument);
  auto strings = array->strings();
  call(strings);
  array->assign(strings);
}

}  // namespace

Variant FrameContainerDispatch::invoke(Object& target, const TypeLibrary::Member& member,
                                       std::vector<Variant>& a) {
  auto& container = dynamic_cast<FrameContainer&>(target);
  auto widget = [](const Variant& value) { return Dispatcher::objectAs<Widget>(value); };
  switch (member.dispid) {
    case 0x60030004:
      container.initialize(HostObjects::callback(Dispatcher::object(a[0])));
      return {};
    case 0x60030005:
      withStrings(a[1], [&](auto& names) {
        container.setReferenceListColumnNames(a[0].toInteger(), names);
      });
      return {};
    case 0x60030006:
      container.SetVisibleFrame(a[0].toInteger());
      return {};
    case 0x60030007:
      container.UpdateFrame(a[0].toInteger(), a[1].toBoolean());
      return {};
    case 0x60030008:
      container.initializeFormatDependentWidgetToggler(
          a[0].toInteger(), HostObjects::settings(Dispatcher::object(a[1])));
      return {};
    case 0x60030009:
      container.ToggleFormatDependentWidgets(a[0].toInteger(),
                                             HostObjects::settings(Dispatcher::object(a[1])));
      return {};
    case 0x6003000a:
      withStrings(a[1], [&](auto& values) {
        container.SynchronizeFieldsWithModel(a[0].toInteger(), values);
      });
      return {};
    case 0x6003000b:
      container.HandleUnsupportedReferenceType(a[0].toInteger(), a[1].toBoolean());
      return {};
    case 0x6003000c:
      container.ExecuteDependentWidgetToggler(a[0].toInteger(), a[1].toInteger());
      return {};
    case 0x6003000d:
      container.Reset(a[0].toInteger(), a[1].toBoolean());
      return {};
    case 0x6003000e:
      container.SetFocus();
      return {};
    case 0x6003000f:
      return Variant(std::shared_ptr<Object>(container.getControls()));
    case 0x60030010: {
      WidgetChange change{.theSecondControl = Dispatcher::object(a[1]),
                          .suppressShowSubform = a[2].toBoolean(),
                          .toggleSecondIndex = a[3].toInteger(),
                          .value = a[4].toString(),
                          .secondaryText = a[5].toString()};
      container.widgetChangeHandler(widget(a[0]), change);
      // By reference: the caller sees what the host left in them.
      a[1] = Variant(change.theSecondControl);
      a[2] = Variant(change.suppressShowSubform);
      a[3] = Variant(change.toggleSecondIndex);
      a[4] = Variant(change.value);
      a[5] = Variant(change.secondaryText);
      return {};
    }
    case 0x60030011:
      return Variant(container.CaptionToTitleType(a[0].toInteger(), a[1].toString()));
    case 0x60030012:
      return Variant(container.TitleTypeToCaption(a[0].toInteger(), a[1].toString()));
    case 0x60030013:
      container.OptionButtonChanged(a[0].toInteger());
      return {};
    case 0x60030014:
      container.HandleMouseMove({.field = widget(a[0]), .isNewspaperSection = a[1].toBoolean()});
      return {};
    case 0x60030015: {
      auto Data = HostObjects::data(Dispatcher::object(a[0]));
      container.HandleDragDrop(Data);
      a[0] = HostObjects::unwrapped(Data);
      return {};
    }
    case 0x60030016:
      container.UserFormEnterFocus(widget(a[0]));
      return {};
    case 0x60030017:
      container.ProcessTextField(widget(a[0]), a[1].toString());
      return {};
    default:
      throw RuntimeError(kMemberNotSupported);
  }
}

}  // namespace kelmora
