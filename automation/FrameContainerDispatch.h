#pragma once

#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Calls into a frame container by member row. Host objects given as
// arguments (the callback, the format settings, drag data) are taken as
// they come or wrapped when they answer only by name.
class FrameContainerDispatch {
 public:
  static Variant invoke(Object& target, const TypeLibrary::Member& member,
                        std::vector<Variant>& arguments);
};

}  // namespace kelmora
