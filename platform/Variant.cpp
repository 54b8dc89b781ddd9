#include "platform/Variant.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "platform/RuntimeError.h"

namespace kelmora {

namespace {

bool equalsIgnoringCase(const std::string& text, const char* word) {
  size_t i = 0;
  for (; word[i] != '\0'; ++i) {
    if (i >= text.size())
      return false;
    char c = text[i];
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
    char w = word[i];
    if (w >= 'A' && w <= 'Z')
      w = static_cast<char>(w - 'A' + 'a');
    if (c != w)
      return false;
  }
  return i == text.size();
}

}  // namespace

bool Variant::parseNumber(const std::string& text, double& out) {
  const char* begin = text.c_str();
  while (*begin == ' ' || *begin == '\t') ++begin;
  if (*begin == '\0')
    return false;
  char* end = nullptr;
  errno = 0;
  out = std::strtod(begin, &end);
  if (end == begin || errno == ERANGE || !std::isfinite(out))
    return false;
  while (*end == ' ' || *end == '\t') ++end;
  return *end == '\0';
}

namespace {

// The run time rounds to the nearest even number on conversion to integers.
double roundHalfEven(double value) {
  return std::nearbyint(value);
}

template <typename Int>
Int narrow(double value) {
  double rounded = roundHalfEven(value);
  // Written so that a NaN, which fails every comparison, fails the range
  // test too, as an infinity does.
  if (!(rounded >= static_cast<double>(std::numeric_limits<Int>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Int>::max()))) {
    throw RuntimeError(kOverflow);
  }
  return static_cast<Int>(rounded);
}

}  // namespace

bool Variant::isNothing() const {
  const auto* object = std::get_if<std::shared_ptr<Object>>(&mValue);
  return object != nullptr && *object == nullptr;
}

double Variant::toNumber() const {
  switch (kind()) {
    case Kind::Empty:
      return 0;
    case Kind::Boolean:
      return std::get<bool>(mValue) ? -1 : 0;
    case Kind::Integer:
      return std::get<int16_t>(mValue);
    case Kind::Long:
      return std::get<int32_t>(mValue);
    case Kind::Single:
      return std::get<float>(mValue);
    case Kind::String: {
      double number = 0;
      if (!parseNumber(std::get<std::string>(mValue), number))
        throw RuntimeError(kTypeMismatch);
      return number;
    }
    case Kind::Object:
      break;
  }
  const auto& object = std::get<std::shared_ptr<Object>>(mValue);
  if (!object)
    throw RuntimeError(kObjectNotSet);
  return object->DefaultValue().toNumber();
}

std::string Variant::toString() const {
  switch (kind()) {
    case Kind::Empty:
      return {};
    case Kind::Boolean:
      return std::get<bool>(mValue) ? "True" : "False";
    case Kind::Integer:
      return std::to_string(std::get<int16_t>(mValue));
    case Kind::Long:
      return std::to_string(std::get<int32_t>(mValue));
    case Kind::Single: {
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "%.7g", static_cast<double>(std::get<float>(mValue)));
      return buffer;
    }
    case Kind::String:
      return std::get<std::string>(mValue);
    case Kind::Object:
      break;
  }
  const auto& object = std::get<std::shared_ptr<Object>>(mValue);
  if (!object)
    throw RuntimeError(kObjectNotSet);
  return object->DefaultValue().toString();
}

int16_t Variant::toInteger() const {
  if (kind() == Kind::Integer)
    return std::get<int16_t>(mValue);
  return narrow<int16_t>(toNumber());
}

int32_t Variant::toLong() const {
  if (kind() == Kind::Long)
    return std::get<int32_t>(mValue);
  return narrow<int32_t>(toNumber());
}

float Variant::toSingle() const {
  double number = toNumber();
  if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
    throw RuntimeError(kOverflow);
  }
  return static_cast<float>(number);
}

bool Variant::toBoolean() const {
  switch (kind()) {
    case Kind::Boolean:
      return std::get<bool>(mValue);
    case Kind::String: {
      bool value = false;
      if (!parseBoolean(std::get<std::string>(mValue), value))
        throw RuntimeError(kTypeMismatch);
      return value;
    }
    default:
      return toNumber() != 0;
  }
}

bool Variant::parseBoolean(const std::string& text, bool& value) {
  if (equalsIgnoringCase(text, "true")) {
    value = true;
    return true;
  }
  if (equalsIgnoringCase(text, "false")) {
    value = false;
    return true;
  }
  double number = 0;
  if (!parseNumber(text, number))
    return false;
  value = number != 0;
  return true;
}

const std::shared_ptr<Object>& Variant::toObject() const {
  const auto* object = std::get_if<std::shared_ptr<Object>>(&mValue);
  if (object == nullptr)
    throw RuntimeError(kTypeMismatch);
  return *object;
}

std::string Variant::typeName() const {
  switch (kind()) {
    case Kind::Empty:
      return "Empty";
    case Kind::Boolean:
      return "Boolean";
    case Kind::Integer:
      return "Integer";
    case Kind::Long:
      return "Long";
    case Kind::Single:
      return "Single";
    case Kind::String:
      return "String";
    case Kind::Object:
      break;
  }
  const auto& object = std::get<std::shared_ptr<Object>>(mValue);
  return object ? object->TypeName() : "Nothing";
}

}  // namespace kelmora
