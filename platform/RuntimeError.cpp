#include "platform/RuntimeError.h"

namespace kelmora {

RuntimeError::RuntimeError(int32_t number, std::string description, int32_t lastDllError)
    : std::runtime_error(description.empty() ? standardDescription(number) : description),
      mNumber(number),
      mDescription(description.empty() ? standardDescription(number) : std::move(description)),
      mLastDllError(lastDllError) {}

std::string RuntimeError::standardDescription(int32_t number) {
  switch (number) {
    case kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kSubscriptOutOfRange:
      return "Subscript out of range";
    case kTypeMismatch:
      return "Type mismatch";
    case kOutOfStackSpace:
      return "Out of stack space";
    case kObjectNotSet:
      return "Object variable or With block variable not set";
    case kInvalidPropertyValue:
      return "Invalid property value";
    case kInvalidPropertyArrayIndex:
      return "Invalid property array index";
    case kCannotCreateObject:
      return "ActiveX component can't create object";
    case kMemberNotSupported:
      return "Object doesn't support this property or method";
    case kArgumentNotOptional:
      return "Argument not optional";
    case kKeyAlreadyExists:
      return "This key is already associated with an element of this collection";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace kelmora
