#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// The class-name operation: the class of any object, "Nothing" for none.
// For a widget it is exactly its ClassName().
inline std::string TypeName(const Object* object) {
  return object != nullptr ? object->TypeName() : "Nothing";
}

inline std::string TypeName(const std::shared_ptr<Object>& object) {
  return TypeName(object.get());
}

}  // namespace kelmora
