// The C entry points of the shared library. Each one runs its body under
// `guarded`, which turns any failure into the C error result: no C++
// exception ever crosses into the host.

#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <vector>

#include "automation/CGuard.h"
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
#include "surface/UserControl.h"

using kelmora::RuntimeError;
using kelmora::cabi::guarded;
using kelmora::cabi::objectOf;
using kelmora::cabi::typed;

namespace {

constexpr kelmora::Guid kClassFactoryInterface =
    kelmora::Guid::parse("{00000001-0000-0000-C000-000000000046}");
constexpr kelmora::Guid kBaseInterface =
    kelmora::Guid::parse("{00000000-0000-0000-C000-000000000046}");

kelmora::Guid guidOf(const kelmora_guid& c) {
  kelmora::Guid guid;
  guid.Data1 = c.data1;
  guid.Data2 = c.data2;
  guid.Data3 = c.data3;
  std::memcpy(guid.Data4.data(), c.data4, 8);
  return guid;
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
    auto made = typed<kelmora::ClassFactory>(factory)->CreateInstance();
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
    // Held for the call: the host may release its handle from inside it.
    const auto target = object->object;
    auto answer = kelmora::Dispatcher::invoke(target, dispid, kind, given);
    for (int32_t i = 0; i < count; ++i)
      kelmora::CVariants::writeBack(before[static_cast<size_t>(i)], given[static_cast<size_t>(i)],
                                    arguments[i]);
    if (result != nullptr)
      kelmora::CVariants::fromVariant(answer, *result);
  });
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
    auto placed = typed<kelmora::UserControl>(control);
    placed->standAlone(name);
    placed->Visible(true);
  });
}

int32_t kelmora_control_close(kelmora_object* control, kelmora_error* error) {
  return guarded(error, [&] { typed<kelmora::UserControl>(control)->terminate(); });
}

}  // extern "C"
