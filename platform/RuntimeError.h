#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/ErrorNumber.h"

namespace kelmora {

// The one failure type of the library: the run time's error number, its
// description and the last system error. Nothing else is thrown across the
// library, so every guard catches exactly this.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int32_t number, std::string description = {}, int32_t lastDllError = 0);

  int32_t Number() const { return mNumber; }
  const std::string& Description() const { return mDescription; }
  int32_t LastDllError() const { return mLastDllError; }

  // The run time's own text for the numbers the library raises.
  static std::string standardDescription(int32_t number);

 private:
  int32_t mNumber;
  std::string mDescription;
  int32_t mLastDllError;
};

}  // namespace kelmora
