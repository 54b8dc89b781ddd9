#pragma once

#include <atomic>
#include <cstdint>

#include "automation/ForeignObject.h"
#include "automation/kelmora.h"

namespace kelmora {

// An object of a host written against the C interface: each call goes to
// the host's invoke by member name, with C variants. What the host leaves
// in the arguments comes back to the caller; a failure it answers becomes
// the library's failure with the host's number and description.
class HostObject : public ForeignObject {
 public:
  HostObject(const kelmora_host_vtable* vtable, void* self);
  ~HostObject() override;
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  void* self() const { return mSelf; }

  Variant call(const std::string& name, int32_t kind, std::vector<Variant>& arguments) override;

  // How many host objects the library still holds, with or without a
  // handle: while the library holds one, a library object is alive.
  static int64_t alive() { return sLive.load(); }

 private:
  static std::atomic<int64_t> sLive;

  const kelmora_host_vtable* mVtable;
  void* mSelf;
};

}  // namespace kelmora
