#pragma once

#include <memory>

#include "platform/RuntimeError.h"

namespace kelmora {

// Late-bound access to objects: a call on nothing fails with 91, and a call
// of a member the object does not have fails with 438.
class Late {
 public:
  template <typename T>
  static T& object(const std::shared_ptr<T>& reference) {
    if (!reference)
      throw RuntimeError(kObjectNotSet);
    return *reference;
  }

  template <typename T>
  static T& object(T* reference) {
    if (reference == nullptr)
      throw RuntimeError(kObjectNotSet);
    return *reference;
  }

  // The object seen through the interface that offers the member.
  template <typename Interface, typename T>
  static Interface& as(const std::shared_ptr<T>& reference) {
    return as<Interface>(reference.get());
  }

  template <typename Interface, typename T>
  static Interface& as(T* reference) {
    auto* offered = dynamic_cast<Interface*>(&object(reference));
    if (offered == nullptr)
      throw RuntimeError(kMemberNotSupported);
    return *offered;
  }
};

}  // namespace kelmora
