// The C entry points of the shared library. Each one runs its body under
// `guarded`, which turns any failure into the C error result: no C++
// exception ever crosses into the host.

#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <vector>

#include "automation/CVariants.h"
#include "automation/ClassFactory.h"
#include "automation/Dispatcher.h"
#include "automation/HostObject.h"
#include "automation/HostObjects.h"
#include "automation/ObjectHandle.h"
#include "automation/kelmora.h"
#include "diagnostics/BridgeToVB.h"
#include "platform/RunningObjectTable.h"
#include "platform/RuntimeError.h"
#include "surface/Focus.h"
#include "surface/TextBox.h"
#include "surface/UserActions.h"
#include "surface/UserControl.h"

using kelmora::RuntimeError;

namespace {

constexpr kelmora::Guid kClassFactoryInterface =
    kelmora::Guid::parse("{00000001-0000-0000-C000-000000000046}");
constexpr kelmora::Guid kBaseInterface =
    kelmora::Guid::parse("{00000000-0000-0000-C000-000000000046}");

int32_t fail(kelmora_error* error, int32_t number, const std::string& description) {
  kelmora_error_set(error, number, description.c_str());
  return number;
}

template <typename Body>
int32_t guarded(kelmora_error* error, Body&& body) {
  try {
    body();
    return 0;
  } catch (const RuntimeError& failure) {
    return fail(error, failure.Number(), failure.Description());
  } catch (const std::bad_alloc&) {
    return fail(error, 7, "Out of memory");
  } catch (const std::exception& failure) {
    // Nothing but RuntimeError is meant to leave the library; should
    // anything else, the host still hears of it.
    return fail(error, kelmora::kInvalidProcedureCall, failure.what());
  } catch (...) {
    // No C++ exception may cross into a C host, whatever threw it.
    return fail(error, kelmora::kInvalidProcedureCall, "A failure of no known kind");
  }
}

kelmora::Object& objectOf(kelmora_object* handle) {
  if (handle == nullptr || !handle->object)
    throw RuntimeError(kelmora::kObjectNotSet);
  return *handle->object;
}

kelmora::Guid guidOf(const kelmora_guid& c) {
  kelmora::Guid guid;
  guid.Data1 = c.data1;
  guid.Data2 = c.data2;
  guid.Data3 = c.data3;
  std::memcpy(guid.Data4.data(), c.data4, 8);
  return guid;
}

template <typename T>
T& typed(kelmora_object* handle) {
  auto* found = dynamic_cast<T*>(&objectOf(handle));
  if (found == nullptr)
    throw RuntimeError(kelmora::kTypeMismatch);
  return *found;
}

}  // namespace

extern "C" {

int32_t DllCanUnloadNow(void) {
  // A handle is what a host holds; a host object is what the library holds
  // of the host, which only a live library object does.
  const bool unused = kelmora_object::alive() == 0 && kelmora::HostObject::alive() == 0;
  return unused ? KELMORA_S_OK : KELMORA_S_FALSE;
}

int32_t DllGetClassObject(const kelmora_guid* clsid, const kelmora_guid* iid,
                          kelmora_object** factory) {
  if (factory == nullptr || clsid == nullptr || iid == nullptr)
    return KELMORA_E_POINTER;
  *factory = nullptr;
  try {
    auto wanted = guidOf(*iid);
    if (!(wanted == kClassFactoryInterface) && !(wanted == kBaseInterface))
      return KELMORA_E_NOINTERFACE;
    auto made = kelmora::ClassFactory::of(guidOf(*clsid));
    if (!made)
      return KELMORA_CLASS_E_CLASSNOTAVAILABLE;
    *factory = kelmora_object::make(std::move(made));
    return KELMORA_S_OK;
  } catch (const std::bad_alloc&) {
    return static_cast<int32_t>(0x8007000E);  // out of memory
  } catch (...) {
    return static_cast<int32_t>(0x8000FFFF);  // unexpected failure
  }
}

int32_t DllRegisterServer(void) {
  return KELMORA_S_OK;
}

int32_t DllUnregisterServer(void) {
  return KELMORA_S_OK;
}

int32_t kelmora_create_instance(kelmora_object* factory, kelmora_object** object,
                                kelmora_error* error) {
  return guarded(error, [&] {
    if (object == nullptr)
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    *object = nullptr;
    auto made = typed<kelmora::ClassFactory>(factory).CreateInstance();
    *object = kelmora_object::make(std::move(made));
  });
}

int32_t kelmora_ids_of_names(kelmora_object* object, const char* name, int32_t* dispid,
                             kelmora_error* error) {
  return guarded(error, [&] {
    if (name == nullptr || dispid == nullptr)
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    *dispid = kelmora::Dispatcher::idOfName(objectOf(object), name);
  });
}

int32_t kelmora_invoke(kelmora_object* object, int32_t dispid, int32_t kind,
                       kelmora_variant* arguments, int32_t count, kelmora_variant* result,
                       kelmora_error* error) {
  return guarded(error, [&] {
    if (count < 0 || (count > 0 && arguments == nullptr))
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    objectOf(object);
    kelmora::Dispatcher::Arguments given;
    for (int32_t i = 0; i < count; ++i)
      given.push_back(kelmora::CVariants::toVariant(arguments[i]));
    const auto before = given;
    auto answer = kelmora::Dispatcher::invoke(object->object, dispid, kind, given);
    for (int32_t i = 0; i < count; ++i)
      kelmora::CVariants::writeBack(before[static_cast<size_t>(i)], given[static_cast<size_t>(i)],
                                    arguments[i]);
    if (result != nullptr)
      kelmora::CVariants::fromVariant(answer, *result);
  });
}

uint32_t kelmora_add_ref(kelmora_object* object) {
  return object != nullptr ? object->addRef() : 0;
}

uint32_t kelmora_release(kelmora_object* object) {
  return object != nullptr ? object->release() : 0;
}

kelmora_object* kelmora_host_object(const kelmora_host_vtable* vtable, void* self) {
  if (vtable == nullptr)
    return nullptr;
  try {
    return kelmora_object::make(std::make_shared<kelmora::HostObject>(vtable, self));
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* kelmora_host_self(kelmora_object* object) {
  if (object == nullptr)
    return nullptr;
  auto* host = dynamic_cast<kelmora::HostObject*>(object->object.get());
  return host != nullptr ? host->self() : nullptr;
}

int32_t kelmora_register_running_object(const char* class_name, kelmora_object* object,
                                        kelmora_error* error) {
  return guarded(error, [&] {
    if (class_name == nullptr)
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    objectOf(object);
    // The bridge is the one running object the library attaches to; it
    // is kept in the form the library calls.
    std::shared_ptr<kelmora::Object> entry = object->object;
    if (std::strcmp(class_name, kelmora::BridgeToVB::kClassName) == 0)
      entry = kelmora::HostObjects::bridge(entry);
    kelmora::RunningObjectTable::Register(class_name, std::move(entry));
  });
}

int32_t kelmora_revoke_running_object(const char* class_name, kelmora_error* error) {
  return guarded(error, [&] {
    if (class_name == nullptr)
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    kelmora::RunningObjectTable::Revoke(class_name);
  });
}

int32_t kelmora_control_site(kelmora_object* control, const char* name, kelmora_error* error) {
  return guarded(error, [&] {
    if (name == nullptr)
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    auto& placed = typed<kelmora::UserControl>(control);
    placed.standAlone(name);
    placed.Visible(true);
  });
}

int32_t kelmora_control_close(kelmora_object* control, kelmora_error* error) {
  return guarded(error, [&] { typed<kelmora::UserControl>(control).terminate(); });
}

int32_t kelmora_user_focus(kelmora_object* widget, kelmora_error* error) {
  return guarded(error, [&] { kelmora::UserActions::focus(typed<kelmora::Widget>(widget)); });
}

int32_t kelmora_user_type(kelmora_object* widget, const char* text, kelmora_error* error) {
  return guarded(error, [&] {
    if (text == nullptr)
      throw RuntimeError(kelmora::kInvalidProcedureCall);
    kelmora::UserActions::typeInto(typed<kelmora::TextBox>(widget), text);
  });
}

int32_t kelmora_user_focus_away(kelmora_error* error) {
  return guarded(error, [&] { kelmora::UserActions::focusAway(); });
}

void kelmora_variant_init(kelmora_variant* variant) {
  if (variant == nullptr)
    return;
  std::memset(variant, 0, sizeof *variant);
  variant->type = KELMORA_VT_EMPTY;
}

void kelmora_variant_clear(kelmora_variant* variant) {
  if (variant == nullptr)
    return;
  switch (variant->type) {
    case KELMORA_VT_STRING:
      std::free(variant->value.string);
      break;
    case KELMORA_VT_OBJECT:
      kelmora_release(variant->value.object);
      break;
    case KELMORA_VT_ARRAY:
      for (int32_t i = 0; i < variant->value.array.count; ++i)
        kelmora_variant_clear(&variant->value.array.items[i]);
      std::free(variant->value.array.items);
      break;
    default:
      break;
  }
  kelmora_variant_init(variant);
}

void kelmora_variant_set_string(kelmora_variant* variant, const char* text) {
  if (variant == nullptr)
    return;
  kelmora_variant_clear(variant);
  const char* from = text != nullptr ? text : "";
  size_t size = std::strlen(from) + 1;
  auto* copy = static_cast<char*>(std::malloc(size));
  if (copy == nullptr)
    return;
  std::memcpy(copy, from, size);
  variant->type = KELMORA_VT_STRING;
  variant->value.string = copy;
}

void kelmora_variant_set_array(kelmora_variant* variant, int32_t count) {
  if (variant == nullptr)
    return;
  kelmora_variant_clear(variant);
  if (count < 0)
    return;
  auto* items = static_cast<kelmora_variant*>(
      std::calloc(static_cast<size_t>(count > 0 ? count : 1), sizeof(kelmora_variant)));
  if (items == nullptr)
    return;
  for (int32_t i = 0; i < count; ++i) kelmora_variant_init(&items[i]);
  variant->type = KELMORA_VT_ARRAY;
  variant->value.array.count = count;
  variant->value.array.items = items;
}

void kelmora_variant_set_object(kelmora_variant* variant, kelmora_object* object) {
  if (variant == nullptr)
    return;
  kelmora_add_ref(object);
  kelmora_variant_clear(variant);
  variant->type = KELMORA_VT_OBJECT;
  variant->value.object = object;
}

void kelmora_error_set(kelmora_error* error, int32_t number, const char* description) {
  if (error == nullptr)
    return;
  kelmora_error_clear(error);
  error->number = number;
  const char* from = description != nullptr ? description : "";
  size_t size = std::strlen(from) + 1;
  error->description = static_cast<char*>(std::malloc(size));
  if (error->description != nullptr)
    std::memcpy(error->description, from, size);
}

void kelmora_error_clear(kelmora_error* error) {
  if (error == nullptr)
    return;
  std::free(error->description);
  error->description = nullptr;
  error->number = 0;
}

}  // extern "C"
