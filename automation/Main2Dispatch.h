#pragma once

#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Calls into Main2 by member row: the ChangeFormatType and BuildFrameContainer
// methods, and Model as a property read that takes whichType.
class Main2Dispatch {
 public:
  static Variant invoke(Object& target, const TypeLibrary::Member& member,
                        std::vector<Variant>& arguments);
};

}  // namespace kelmora
