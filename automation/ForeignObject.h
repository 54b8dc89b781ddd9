#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// An object of a host that answers only by member name: a call names the
// member, its invoke kind and its arguments, passed by reference. A member
// the object lacks fails with 438; any other failure carries the host's
// own number and description.
class ForeignObject : public Object {
 public:
  std::string TypeName() const override { return "Object"; }

  virtual Variant call(const std::string& name, int32_t kind, std::vector<Variant>& arguments) = 0;
};

}  // namespace kelmora
