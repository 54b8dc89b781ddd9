#pragma once

#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Calls into one of the three frames by member row: the ten operations of
// the frame contract, found by name, since each frame numbers them
// differently.
class FrameDispatch {
 public:
  static Variant invoke(Object& target, const TypeLibrary::Member& member,
                        std::vector<Variant>& arguments);
};

}  // namespace kelmora
