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
    return mForeign->call(name, TypeLibrary::kMethod, arguments);
  }
  Variant method(const std::string& name, std::vector<Variant>&& arguments = {}) const {
    return mForeign->call(name, TypeLibrary::kMethod, arguments);
  }
  Variant get(const std::string& name, std::vector<Variant>&& arguments = {}) const {
    return mForeign->call(name, TypeLibrary::kPropertyGet, arguments);
  }

 private:
  std::shared_ptr<ForeignObject> mForeign;
};

}  // namespace kelmora
