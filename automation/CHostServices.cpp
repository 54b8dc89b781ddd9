// The host's services through the C interface: the type library as data,
// and the thread's message boxes. They link with the static library too.

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "automation/CGuard.h"
#include "automation/CVariants.h"
#include "automation/Dispatcher.h"
#include "automation/ToolkitDispatch.h"
#include "automation/TypeLibrary.h"
#include "automation/VariantArray.h"
#include "automation/kelmora.h"
#include "surface/MessageBox.h"

using kelmora::ToolkitDispatch;
using kelmora::TypeLibrary;
using kelmora::Variant;
using kelmora::VariantArray;

namespace {

Variant array(std::vector<Variant> items) {
  return Variant(
      std::shared_ptr<kelmora::Object>(std::make_shared<VariantArray>(std::move(items))));
}

std::string text(const kelmora::Guid& guid) {
  char out[39];
  std::snprintf(out, sizeof out, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(guid.Data1), static_cast<unsigned>(guid.Data2),
                static_cast<unsigned>(guid.Data3), guid.Data4[0], guid.Data4[1], guid.Data4[2],
                guid.Data4[3], guid.Data4[4], guid.Data4[5], guid.Data4[6], guid.Data4[7]);
  return out;
}

std::string typeName(TypeLibrary::Type type) {
  using Type = TypeLibrary::Type;
  switch (type) {
    case Type::None:
      return "";
    case Type::Integer:
      return "Integer";
    case Type::Long:
      return "Long";
    case Type::Boolean:
      return "Boolean";
    case Type::String:
      return "String";
    case Type::Variant:
      return "Variant";
    case Type::Object:
      return "Object";
    case Type::StringArray:
      return "String()";
    case Type::IntegerArray:
      return "Integer()";
    case Type::Dictionary:
      return "Dictionary";
    case Type::DataObject:
      return "DataObject";
    case Type::Model:
      return "Model";
  }
  return "";
}

Variant defaultOf(TypeLibrary::Default fallback) {
  using Default = TypeLibrary::Default;
  switch (fallback) {
    case Default::Required:
      return Variant();
    case Default::Nothing:
      return Variant(std::shared_ptr<kelmora::Object>());
    case Default::False:
      return Variant(false);
    case Default::MinusOne:
      return Variant(int16_t{-1});
    case Default::EmptyText:
      return Variant(std::string());
  }
  return Variant();
}

int32_t classKind(TypeLibrary::ClassKind kind) {
  switch (kind) {
    case TypeLibrary::ClassKind::Creatable:
      return KELMORA_CLASS_CREATABLE;
    case TypeLibrary::ClassKind::Control:
      return KELMORA_CLASS_CONTROL;
    case TypeLibrary::ClassKind::NotCreatable:
      return KELMORA_CLASS_NOT_CREATABLE;
  }
  return KELMORA_CLASS_NOT_CREATABLE;
}

Variant member(const TypeLibrary::Member& row) {
  std::vector<Variant> arguments;
  for (const auto& argument : row.arguments) {
    if (argument.name == nullptr)
      continue;
    const bool optional = argument.fallback != TypeLibrary::Default::Required;
    arguments.push_back(array({std::string(argument.name), typeName(argument.type), optional,
                               defaultOf(argument.fallback)}));
  }
  return array({std::string(row.name), row.dispid, static_cast<int32_t>(row.kind),
                array(std::move(arguments)), typeName(row.result)});
}

Variant interface(const TypeLibrary::Interface& row, std::string identifier) {
  std::vector<Variant> members;
  for (const auto& m : row.members) members.push_back(member(m));
  return array({std::string(row.name), std::move(identifier), array(std::move(members))});
}

Variant typeInfo() {
  std::vector<Variant> classes;
  for (const auto& c : TypeLibrary::classes())
    classes.push_back(array(
        {std::string(c.name), text(c.clsid), classKind(c.kind), std::string(c.defaultInterface)}));
  std::vector<Variant> interfaces;
  for (const auto& i : TypeLibrary::interfaces()) interfaces.push_back(interface(i, text(i.iid)));
  // Only the type library's own interfaces have identifiers.
  std::vector<Variant> toolkit;
  for (const auto* i :
       {&ToolkitDispatch::widgetInterface(), &ToolkitDispatch::collectionInterface(),
        &ToolkitDispatch::wrapperInterface(), &ToolkitDispatch::dictionaryInterface()})
    toolkit.push_back(interface(*i, ""));
  return array({std::string(TypeLibrary::kName), text(TypeLibrary::kIdentifier),
                static_cast<int32_t>(TypeLibrary::kMajorVersion),
                static_cast<int32_t>(TypeLibrary::kMinorVersion), array(std::move(classes)),
                array(std::move(interfaces)), array(std::move(toolkit))});
}

// A message box service that hands every text to the host's function.
class HostMessageBox : public kelmora::MessageBox {
 public:
  HostMessageBox(kelmora_message_box show, void* context) : mShow(show), mContext(context) {}
  void show(const std::string& prompt) override { mShow(mContext, prompt.c_str()); }

 private:
  kelmora_message_box mShow;
  void* mContext;
};

}  // namespace

extern "C" {

int32_t kelmora_type_info(kelmora_variant* out, kelmora_error* error) {
  return kelmora::cabi::guarded(error, [&] {
    if (out == nullptr)
      throw kelmora::RuntimeError(kelmora::kInvalidProcedureCall);
    kelmora::CVariants::fromVariant(typeInfo(), *out);
  });
}

int32_t kelmora_interfaces_of(kelmora_object* object, kelmora_variant* out, kelmora_error* error) {
  return kelmora::cabi::guarded(error, [&] {
    if (out == nullptr)
      throw kelmora::RuntimeError(kelmora::kInvalidProcedureCall);
    std::vector<Variant> names;
    for (const auto* i : kelmora::Dispatcher::interfacesOf(kelmora::cabi::objectOf(object)))
      names.push_back(std::string(i->name));
    kelmora::CVariants::fromVariant(array(std::move(names)), *out);
  });
}

int32_t kelmora_set_message_box(kelmora_message_box show, void* context, kelmora_error* error) {
  return kelmora::cabi::guarded(error, [&] {
    std::shared_ptr<kelmora::MessageBox> service;
    if (show != nullptr)
      service = std::make_shared<HostMessageBox>(show, context);
    // No service puts the default back.
    kelmora::MessageBox::install(std::move(service));
  });
}

}  // extern "C"
