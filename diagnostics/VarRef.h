#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// Report values: how a parameter, local or field of a given C++ type shows
// up in the tracing service's reports.
inline Variant reportValue(const Variant& value) {
  return value;
}
inline Variant reportValue(bool value) {
  return Variant(value);
}
inline Variant reportValue(int16_t value) {
  return Variant(value);
}
inline Variant reportValue(int32_t value) {
  return Variant(value);
}
inline Variant reportValue(float value) {
  return Variant(value);
}
inline Variant reportValue(const std::string& value) {
  return Variant(value);
}
inline Variant reportValue(const char* value) {
  return Variant(value);
}
inline Variant reportValue(std::string_view value) {
  return Variant(std::string(value));
}

template <typename T>
requires std::is_base_of_v<Object, T> Variant reportValue(const std::shared_ptr<T>& object) {
  return Variant(std::static_pointer_cast<Object>(object));
}

template <typename T>
requires std::is_base_of_v<Object, T> Variant reportValue(const std::weak_ptr<T>& object) {
  return reportValue(object.lock());
}

template <typename T>
requires std::is_base_of_v<Object, T> Variant reportValue(const T* object) {
  return object ? Variant(object->TypeName()) : Variant(std::shared_ptr<Object>());
}

// Arrays are reported as one text, element by element, the way a dump shows
// an array's contents.
template <typename Range>
Variant reportRange(const Range& range) {
  std::string text = "(";
  bool first = true;
  for (const auto& element : range) {
    if (!first)
      text += ", ";
    first = false;
    Variant value = reportValue(element);
    text += value.isObject() ? value.typeName() : value.toString();
  }
  return Variant(text + ")");
}

template <typename T>
Variant reportValue(const std::vector<T>& values) {
  return reportRange(values);
}

template <typename T, size_t N>
Variant reportValue(const std::array<T, N>& values) {
  return reportRange(values);
}

// A named reference to a variable whose current value a report reads: a
// pointer and a plain converter, so that registering allocates nothing.
struct VarRef {
  // No default member values: a guard's table of variables stays
  // uninitialised beyond the entries it registers.
  const char* name;
  const void* address;
  Variant (*read)(const void*);

  Variant value() const { return read(address); }
};

template <typename T>
Variant readAs(const void* address) {
  return reportValue(*static_cast<const T*>(address));
}

// Registers a parameter, local or field by name and reference.
template <typename T>
VarRef arg(const char* name, const T& variable) {
  return VarRef{name, &variable, &readAs<T>};
}

}  // namespace kelmora
