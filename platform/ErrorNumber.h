#pragma once

#include <cstdint>

namespace kelmora {

// Error numbers of the run time that the library raises itself. Host objects
// may raise any other 32-bit number through RuntimeError as well.
enum ErrorNumber : int32_t {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kOutOfStackSpace = 28,
  kObjectNotSet = 91,
  kInvalidPropertyValue = 380,
  kInvalidPropertyArrayIndex = 381,
  kCannotCreateObject = 429,
  kMemberNotSupported = 438,
  kArgumentNotOptional = 449,
  kKeyAlreadyExists = 457,
};

}  // namespace kelmora
