#include "automation/HostObject.h"

#include "automation/CVariants.h"
#include "platform/RuntimeError.h"

namespace kelmora {

namespace {

// The C variants of one call, cleared however the call ends.
struct CArguments {
  std::vector<kelmora_variant> items;
  kelmora_variant result;
  kelmora_error error{0, nullptr};

  explicit CArguments(size_t count) : items(count) {
    for (auto& item : items) kelmora_variant_init(&item);
    kelmora_variant_init(&result);
  }
  ~CArguments() {
    for (auto& item : items) kelmora_variant_clear(&item);
    kelmora_variant_clear(&result);
    kelmora_error_clear(&error);
  }
  CArguments(const CArguments&) = delete;
  CArguments& operator=(const CArguments&) = delete;
};

}  // namespace

std::atomic<int64_t> HostObject::sLive{0};

HostObject::HostObject(const kelmora_host_vtable* vtable, void* self)
    : mVtable(vtable), mSelf(self) {
  ++sLive;
}

HostObject::~HostObject() {
  --sLive;
  if (mVtable->release != nullptr)
    mVtable->release(mSelf);
}

Variant HostObject::call(const std::string& name, int32_t kind, std::vector<Variant>& arguments) {
  if (mVtable->invoke == nullptr)
    throw RuntimeError(kMemberNotSupported);
  CArguments c(arguments.size());
  for (size_t i = 0; i < arguments.size(); ++i) CVariants::fromVariant(arguments[i], c.items[i]);
  int32_t failed = mVtable->invoke(mSelf, name.c_str(), kind, c.items.data(),
                                   static_cast<int32_t>(c.items.size()), &c.result, &c.error);
  if (failed != 0) {
    throw RuntimeError(failed,
                       c.error.description != nullptr ? std::string(c.error.description) : "");
  }
  for (size_t i = 0; i < arguments.size(); ++i) {
    auto after = CVariants::toVariant(c.items[i]);
    if (after.has_value())
      arguments[i] = std::move(*after);
  }
  return CVariants::toVariant(c.result).value_or(Variant());
}

}  // namespace kelmora
