#pragma once

#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Calls into a Model by member row: what a host reads of a field catalogue,
// and initializedToFormat both ways.
class ModelDispatch {
 public:
  static Variant invoke(Object& target, const TypeLibrary::Member& member,
                        std::vector<Variant>& arguments);
};

}  // namespace kelmora
