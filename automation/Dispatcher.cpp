#include "automation/Dispatcher.h"

#include "automation/FrameContainerDispatch.h"
#include "automation/FrameDispatch.h"
#include "automation/Main2Dispatch.h"
#include "automation/ModelDispatch.h"
#include "automation/ToolkitDispatch.h"
#include "automation/TranslatorWrapperDispatch.h"
#include "automation/VariantArray.h"
#include "diagnostics/TranslatorWrapper.h"
#include "frames/esource/Esource.h"
#include "frames/nonperiodical/NonPeriodical.h"
#include "frames/periodical/Periodical.h"
#include "hosting/FrameContainer.h"
#include "hosting/Main2.h"
#include "model/Model.h"
#include "platform/Dictionary.h"
#include "surface/ControlCollection.h"
#include "surface/ControlWrapper.h"

namespace kelmora {

namespace {

using Invoker = Variant (*)(Object&, const TypeLibrary::Member&, std::vector<Variant>&);

struct Binding {
  const TypeLibrary::Interface* interface;
  Invoker invoke;
};

const TypeLibrary::Interface& library(const char* name) {
  return *TypeLibrary::interfaceNamed(name);
}

// The interfaces of an object with the dispatcher of each, its own first
// and then the toolkit's members of a control.
std::vector<Binding> bindingsOf(const Object& object) {
  const auto& widget = ToolkitDispatch::widgetInterface();
  if (dynamic_cast<const Main2*>(&object))
    return {{&library("_Main2"), Main2Dispatch::invoke}};
  if (dynamic_cast<const FrameContainer*>(&object))
    return {{&library("_FrameContainer"), FrameContainerDispatch::invoke},
            {&widget, ToolkitDispatch::invoke}};
  if (dynamic_cast<const Periodical*>(&object))
    return {{&library("_Periodical"), FrameDispatch::invoke}, {&widget, ToolkitDispatch::invoke}};
  if (dynamic_cast<const NonPeriodical*>(&object))
    return {{&library("_NonPeriodical"), FrameDispatch::invoke},
            {&widget, ToolkitDispatch::invoke}};
  if (dynamic_cast<const Esource*>(&object))
    return {{&library("_Esource"), FrameDispatch::invoke}, {&widget, ToolkitDispatch::invoke}};
  if (dynamic_cast<const Model*>(&object))
    return {{&library("_Model"), ModelDispatch::invoke}};
  if (dynamic_cast<const TranslatorWrapper*>(&object))
    return {{&library("_TranslatorWrapper"), TranslatorWrapperDispatch::invoke}};
  if (dynamic_cast<const Widget*>(&object))
    return {{&widget, ToolkitDispatch::invoke}};
  if (dynamic_cast<const ControlCollection*>(&object))
    return {{&ToolkitDispatch::collectionInterface(), ToolkitDispatch::invoke}};
  if (dynamic_cast<const ControlWrapper*>(&object))
    return {{&ToolkitDispatch::wrapperInterface(), ToolkitDispatch::invoke}};
  if (dynamic_cast<const Dictionary*>(&object))
    return {{&ToolkitDispatch::dictionaryInterface(), ToolkitDispatch::invoke}};
  return {};
}

Variant defaultOf(TypeLibrary::Default fallback) {
  switch (fallback) {
    case TypeLibrary::Default::Nothing:
      return Variant(std::shared_ptr<Object>{});
    case TypeLibrary::Default::False:
      return Variant(false);
    case TypeLibrary::Default::MinusOne:
      return Variant(int16_t{-1});
    case TypeLibrary::Default::EmptyText:
      return Variant("");
    case TypeLibrary::Default::Required:
      break;
  }
  throw RuntimeError(kArgumentNotOptional);
}

}  // namespace

std::vector<const TypeLibrary::Interface*> Dispatcher::interfacesOf(const Object& object) {
  std::vector<const TypeLibrary::Interface*> out;
  for (const auto& binding : bindingsOf(object)) out.push_back(binding.interface);
  return out;
}

int32_t Dispatcher::idOfName(const Object& object, std::string_view name) {
  for (const auto& binding : bindingsOf(object)) {
    if (const auto* member = TypeLibrary::memberNamed(*binding.interface, name))
      return member->dispid;
  }
  throw RuntimeError(kMemberNotSupported);
}

Variant Dispatcher::invoke(const std::shared_ptr<Object>& object, std::string_view name,
                           int32_t kinds, Arguments& arguments) {
  if (!object)
    throw RuntimeError(kObjectNotSet);
  return invoke(object, idOfName(*object, name), kinds, arguments);
}

Variant Dispatcher::invoke(const std::shared_ptr<Object>& object, int32_t dispid, int32_t kinds,
                           Arguments& arguments) {
  if (!object)
    throw RuntimeError(kObjectNotSet);
  for (const auto& binding : bindingsOf(*object)) {
    const auto* member = TypeLibrary::memberWithId(*binding.interface, dispid, kinds);
    if (member == nullptr)
      continue;
    const size_t count = member->argumentCount();
    // More arguments than the member takes is a call the member cannot
    // answer; dropping them would lose what the host meant.
    if (arguments.size() > count)
      throw RuntimeError(kInvalidProcedureCall);
    std::vector<Variant> prepared;
    prepared.reserve(count);
    for (size_t i = 0; i < count; ++i) {
      const std::optional<Variant> none;
      prepared.push_back(
          Dispatcher::prepared(member->arguments[i], i < arguments.size() ? arguments[i] : none));
    }
    // The object stays alive for the call, whatever the member releases.
    auto keep = object;
    Variant result = binding.invoke(*keep, *member, prepared);
    for (size_t i = 0; i < arguments.size(); ++i) {
      if (arguments[i].has_value())
        arguments[i] = std::move(prepared[i]);
    }
    return result;
  }
  throw RuntimeError(kMemberNotSupported);
}

Variant Dispatcher::prepared(const TypeLibrary::Argument& declared,
                             const std::optional<Variant>& given) {
  using Type = TypeLibrary::Type;
  if (!given.has_value())
    return defaultOf(declared.fallback);
  const Variant& value = *given;
  // An object, or nothing, where a number, a truth value or a text is
  // declared does not fit, whatever its default member would give.
  const bool scalar = declared.type == Type::Integer || declared.type == Type::Long ||
                      declared.type == Type::Boolean || declared.type == Type::String;
  if (scalar && value.isObject())
    throw RuntimeError(kTypeMismatch);
  switch (declared.type) {
    case Type::Integer:
      return Variant(value.toInteger());
    case Type::Long:
      return Variant(value.toLong());
    case Type::Boolean:
      return Variant(value.toBoolean());
    case Type::String:
      return Variant(value.toString());
    case Type::Object:
    case Type::DataObject:
    case Type::Dictionary:
    case Type::Model:
      object(value);
      return value;
    case Type::StringArray:
    case Type::IntegerArray:
      array(value);
      return value;
    case Type::Variant:
    case Type::None:
      break;
  }
  return value;
}

std::shared_ptr<Object> Dispatcher::object(const Variant& value) {
  if (!value.isObject())
    throw RuntimeError(kTypeMismatch);
  return value.toObject();
}

std::shared_ptr<VariantArray> Dispatcher::array(const Variant& value) {
  auto found = std::dynamic_pointer_cast<VariantArray>(object(value));
  if (!found)
    throw RuntimeError(kTypeMismatch);
  return found;
}

}  // namespace kelmora
