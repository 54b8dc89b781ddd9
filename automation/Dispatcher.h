#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"
#include "platform/RuntimeError.h"
#include "platform/Variant.h"

namespace kelmora {

class VariantArray;

// Late binding into the library: a library object is reached by member
// name or dispatch id, with its arguments as Variants passed by reference.
// The member rows of the type library decide what a call may be: an
// unknown name or id fails with 438, a missing required argument with 449,
// an argument that does not convert to its declared type with 13, and an
// omitted optional argument takes its default. A failure of the member
// itself reaches the caller as it left the member.
//
// The public classes answer through their interface; widgets and widget
// collections through the toolkit's own members, which a host needs to
// find a field and to show a control.
class Dispatcher {
 public:
  using Arguments = std::vector<std::optional<Variant>>;
  using Member = TypeLibrary::Member;

  // The interfaces an object answers through, its own first; empty for an
  // object the library cannot dispatch into.
  static std::vector<const TypeLibrary::Interface*> interfacesOf(const Object& object);

  static int32_t idOfName(const Object& object, std::string_view name);
  // Arguments stand in call order; an absent entry or one past the end is
  // omitted. The caller sees what the member changed in them.
  static Variant invoke(const std::shared_ptr<Object>& object, int32_t dispid, int32_t kinds,
                        Arguments& arguments);
  static Variant invoke(const std::shared_ptr<Object>& object, std::string_view name, int32_t kinds,
                        Arguments& arguments);

  // Conversions of one prepared argument, for the dispatchers of the
  // classes. Each fails with 13 when the value is of another kind.
  static std::shared_ptr<Object> object(const Variant& value);
  template <typename T>
  static std::shared_ptr<T> objectAs(const Variant& value) {
    auto found = object(value);
    if (!found)
      return nullptr;
    auto typed = std::dynamic_pointer_cast<T>(found);
    if (!typed)
      throw RuntimeError(kTypeMismatch);
    return typed;
  }
  static std::shared_ptr<VariantArray> array(const Variant& value);

 private:
  static Variant prepared(const TypeLibrary::Argument& declared,
                          const std::optional<Variant>& given);
};

}  // namespace kelmora
