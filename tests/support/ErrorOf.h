#pragma once

#include <cstdint>

#include "platform/RuntimeError.h"

namespace kelmora::testing {

// The run-time error number an action fails with, or 0 when it succeeds.
template <typename Action>
int32_t errorOf(Action&& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace kelmora::testing
