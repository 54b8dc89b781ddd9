#pragma once

#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Calls into a TranslatorWrapper: its one member, value.
class TranslatorWrapperDispatch {
 public:
  static Variant invoke(Object& target, const TypeLibrary::Member& member,
                        std::vector<Variant>& arguments);
};

}  // namespace kelmora
