#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "automation/ForeignObject.h"
#include "automation/TypeLibrary.h"
#include "platform/Variant.h"

namespace kelmora {

// What every adapter over a host's by-name object shares: the object, and
// one way to call a member of it. The host interfaces of the library
// derive from Object as well, so the adapter is a mixin that holds the
// object rather than being one.
class ForeignAdapter {
 public:
  explicit ForeignAdapter(std::shared_ptr<ForeignObject> foreign) : mForeign(std::move(foreign)) {}

  const std::shared_ptr<ForeignObject>& foreign() const { return mForeign; }

 protected:
  ~ForeignAdapter() = default;

  Variant method(const std::string& name, std::vector<Variant>& arguments) const {
    return call(name, TypeLibrary::kMethod, arguments);
  }
  Variant method(const std::string& name, std::vector<Variant>&& arguments = {}) const {
    return call(name, TypeLibrary::kMethod, arguments);
  }
  Variant get(const std::string& name, std::vector<Variant>&& arguments = {}) const {
    return call(name, TypeLibrary::kPropertyGet, arguments);
  }

 private:
  Variant call(const std::string& name, int32_t kind, std::vector<Variant>& arguments) const {
    // The host may let go of this adapter from inside its own member (a
    // callback that closes the form); its object lives until it returns.
    const std::shared_ptr<ForeignObject> keep = mForeign;
    return keep->call(name, kind, arguments);
  }

  std::shared_ptr<ForeignObject> mForeign;
};

}  // namespace kelmora
