#include "host/ToolCallback.h"

#include "host/EventSink.h"
#include "host/TextDataObject.h"
#include "surface/TypeName.h"
#include "surface/Widget.h"

namespace kelmora::tools {

Json ToolCallback::describe(const std::shared_ptr<Object>& object) {
  if (!object)
    return nullptr;
  if (auto* widget = dynamic_cast<const Widget*>(object.get())) {
    if (!widget->IsArrayMember())
      return widget->Name();
    return widget->Name() + "(" + std::to_string(widget->Index()) + ")";
  }
  if (auto* data = dynamic_cast<const TextDataObject*>(object.get()))
    return "DataObject(" + Json(data->text()).dump() + ")";
  return kelmora::TypeName(object);
}

Json ToolCallback::describe(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Empty:
      return nullptr;
    case Variant::Kind::Boolean:
      return value.toBoolean();
    case Variant::Kind::Integer:
    case Variant::Kind::Long:
      return value.toLong();
    case Variant::Kind::Single:
      return value.toSingle();
    case Variant::Kind::String:
      return value.toString();
    case Variant::Kind::Object:
      return describe(value.toObject());
  }
  return nullptr;
}

void ToolCallback::heard(std::string_view member, std::span<const Argument> arguments,
                         const std::string* answer) {
  Json args = Json::object();
  for (const auto& argument : arguments) args[argument.name] = describe(argument.value);
  Json event = {{"callback", member}, {"args", std::move(args)}};
  if (answer != nullptr)
    event["returns"] = *answer;
  mSink.emit(event);
}

void ToolCallback::answering(int16_t whichType, int16_t Index) {
  mSink.emit({{"host", "ExecuteDependentWidgetToggler"}, {"args", {whichType, Index}}});
}

}  // namespace kelmora::tools
