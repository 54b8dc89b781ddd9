#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "platform/Object.h"

namespace kelmora {

// The loosely typed value of the run time, reduced to the kinds the library
// moves: Empty, Boolean, Integer (16-bit), Long (32-bit), Single, String and
// Object. Conversions follow the run time's rules:
//   text:    Empty "", booleans "True"/"False", numbers their decimal text;
//   integer: Empty 0, numeric text its number (rounded half to even), other
//            text fails with 13, out of range with 6;
//   boolean: "True"/"False" in any case, numbers and numeric text (0 is
//            False), Empty False, other text fails with 13.
// An Object converts through its default member.
class Variant {
 public:
  enum class Kind { Empty, Boolean, Integer, Long, Single, String, Object };

  Variant() = default;
  Variant(bool value) : mValue(value) {}
  Variant(int16_t value) : mValue(value) {}
  Variant(int32_t value) : mValue(value) {}
  Variant(float value) : mValue(value) {}
  Variant(std::string value) : mValue(std::move(value)) {}
  Variant(const char* value) : mValue(std::string(value)) {}
  Variant(std::shared_ptr<Object> value) : mValue(std::move(value)) {}

  Kind kind() const { return static_cast<Kind>(mValue.index()); }
  bool isEmpty() const { return kind() == Kind::Empty; }
  bool isObject() const { return kind() == Kind::Object; }
  // An Object variant holding nothing.
  bool isNothing() const;

  std::string toString() const;
  int16_t toInteger() const;
  int32_t toLong() const;
  float toSingle() const;
  bool toBoolean() const;
  // The object held; fails with 13 for any other kind. Nothing is returned as
  // an empty pointer.
  const std::shared_ptr<Object>& toObject() const;

  // The run time's TypeName: "Empty", "Boolean", "Integer", ...
  std::string typeName() const;

  friend bool operator==(const Variant&, const Variant&) = default;

  // Reads a whole text, blanks around it allowed, as a number.
  static bool parseNumber(const std::string& text, double& number);
  // Reads a text as toBoolean does ("True", "False" in any case, or a
  // number); false when it is neither, where toBoolean fails with 13.
  static bool parseBoolean(const std::string& text, bool& value);

 private:
  double toNumber() const;

  std::variant<std::monostate, bool, int16_t, int32_t, float, std::string, std::shared_ptr<Object>>
      mValue;
};

}  // namespace kelmora
