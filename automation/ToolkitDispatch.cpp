#include "automation/ToolkitDispatch.h"

#include <string_view>

#include "automation/Dispatcher.h"
#include "automation/VariantArray.h"
#include "platform/Dictionary.h"
#include "platform/RuntimeError.h"
#include "surface/ControlCollection.h"
#include "surface/ControlWrapper.h"
#include "surface/Widget.h"

namespace kelmora {

namespace {

using Type = TypeLibrary::Type;
using Default = TypeLibrary::Default;
using Member = TypeLibrary::Member;
constexpr auto kMethod = TypeLibrary::kMethod;
constexpr auto kGet = TypeLibrary::kPropertyGet;
constexpr auto kPut = TypeLibrary::kPropertyPut;

// clang-format off
const Member kWidgetMembers[] = {
    {0x0, "Text", kGet, {}, Type::String},
    {0x0, "Text", kPut, {{{"value", Type::String}}}, Type::None},
    {0x1, "Name", kGet, {}, Type::String},
    {0x2, "Index", kGet, {}, Type::Integer},
    {0x3, "Visible", kGet, {}, Type::Boolean},
    {0x3, "Visible", kPut, {{{"value", Type::Boolean}}}, Type::None},
    {0x4, "Enabled", kGet, {}, Type::Boolean},
    {0x4, "Enabled", kPut, {{{"value", Type::Boolean}}}, Type::None},
    {0x5, "Caption", kGet, {}, Type::String},
    {0x5, "Caption", kPut, {{{"value", Type::String}}}, Type::None},
    {0x6, "Tag", kGet, {}, Type::String},
    {0x7, "SetFocus", kMethod, {}, Type::None},
};
static_assert(std::size(kWidgetMembers) == 12);

const Member kCollectionMembers[] = {
    {0x0, "Item", kGet, {{{"index", Type::Variant}, {"Index", Type::Integer, Default::MinusOne}}}, Type::Object},
    {0x1, "Count", kGet, {}, Type::Long},
};
static_assert(std::size(kCollectionMembers) == 2);

const Member kWrapperMembers[] = {
    {0x0, "Object", kGet, {}, Type::Object},
};
static_assert(std::size(kWrapperMembers) == 1);

// What a host reads of a model's key map: the field of a key, whether a key
// is there, how many there are, and all of them in their order.
const Member kDictionaryMembers[] = {
    {0x0, "Item", kGet, {{{"key", Type::String}}}, Type::Variant},
    {0x1, "Count", kGet, {}, Type::Long},
    {0x2, "Exists", kMethod, {{{"key", Type::String}}}, Type::Boolean},
    {0x3, "Keys", kMethod, {}, Type::StringArray},
    {0x4, "Items", kMethod, {}, Type::Variant},
};
static_assert(std::size(kDictionaryMembers) == 5);
// clang-format on

const TypeLibrary::Interface kWidget{"Widget", {}, kWidgetMembers};
const TypeLibrary::Interface kCollection{"Controls", {}, kCollectionMembers};
const TypeLibrary::Interface kWrapper{"ControlWrapper", {}, kWrapperMembers};
const TypeLibrary::Interface kDictionary{"Dictionary", {}, kDictionaryMembers};

Variant widgetMember(Widget& widget, const Member& member, std::vector<Variant>& arguments) {
  const bool put = member.kind == kPut;
  switch (member.dispid) {
    case 0x0: {
      if (put) {
        widget.setDefaultText(arguments[0].toString());
        return {};
      }
      std::string text;
      widget.defaultText(text);
      return Variant(std::move(text));
    }
    case 0x1:
      return Variant(widget.Name());
    case 0x2:
      return Variant(widget.Index());
    case 0x3:
      if (put)
        widget.Visible(arguments[0].toBoolean());
      return put ? Variant() : Variant(widget.Visible());
    case 0x4:
      if (put)
        widget.Enabled(arguments[0].toBoolean());
      return put ? Variant() : Variant(widget.Enabled());
    case 0x5:
      if (put) {
        widget.caption(arguments[0].toString());
        return {};
      }
      return Variant(widget.caption());
    case 0x6:
      return Variant(widget.Tag());
    case 0x7:
      widget.SetFocus();
      return {};
    default:
      throw RuntimeError(kMemberNotSupported);
  }
}

Variant collectionMember(ControlCollection& controls, const Member& member,
                         std::vector<Variant>& arguments) {
  if (member.dispid == 0x1)
    return Variant(controls.Count());
  const Variant& which = arguments[0];
  if (which.kind() == Variant::Kind::String) {
    int16_t index = arguments[1].toInteger();
    const auto& found =
        index < 0 ? controls.Item(which.toString()) : controls.Item(which.toString(), index);
    return Variant(std::shared_ptr<Object>(found));
  }
  return Variant(std::shared_ptr<Object>(controls.Item(which.toLong())));
}

Variant dictionaryMember(Dictionary& map, const Member& member, std::vector<Variant>& arguments) {
  switch (member.dispid) {
    case 0x0: {
      // Reading a missing key does not add it, as a host reading the map
      // would not expect its read to change the model.
      const std::string key = arguments[0].toString();
      if (!map.Exists(key))
        throw RuntimeError(kInvalidProcedureCall);
      return map.Item(key);
    }
    case 0x1:
      return Variant(map.Count());
    case 0x2:
      return Variant(map.Exists(arguments[0].toString()));
    case 0x3: {
      std::vector<Variant> keys;
      for (auto& key : map.Keys()) keys.emplace_back(std::move(key));
      return Variant(std::shared_ptr<Object>(std::make_shared<VariantArray>(std::move(keys))));
    }
    case 0x4:
      return Variant(std::shared_ptr<Object>(std::make_shared<VariantArray>(map.Items())));
    default:
      throw RuntimeError(kMemberNotSupported);
  }
}

}  // namespace

const TypeLibrary::Interface& ToolkitDispatch::widgetInterface() {
  return kWidget;
}

const TypeLibrary::Interface& ToolkitDispatch::collectionInterface() {
  return kCollection;
}

const TypeLibrary::Interface& ToolkitDispatch::wrapperInterface() {
  return kWrapper;
}

const TypeLibrary::Interface& ToolkitDispatch::dictionaryInterface() {
  return kDictionary;
}

Variant ToolkitDispatch::invoke(Object& target, const TypeLibrary::Member& member,
                                std::vector<Variant>& arguments) {
  if (auto* widget = dynamic_cast<Widget*>(&target))
    return widgetMember(*widget, member, arguments);
  if (auto* controls = dynamic_cast<ControlCollection*>(&target))
    return collectionMember(*controls, member, arguments);
  if (auto* wrapper = dynamic_cast<ControlWrapper*>(&target))
    return Variant(wrapper->Object());
  if (auto* map = dynamic_cast<Dictionary*>(&target))
    return dictionaryMember(*map, member, arguments);
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
