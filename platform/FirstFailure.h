#pragma once

#include <optional>
#include <utility>

#include "platform/RuntimeError.h"

namespace kelmora {

// For the few procedures that must run to their end whatever fails on the
// way, such as taking a control off its form: a failure there must neither
// leave the remaining releases undone nor be lost. Each step is attempted;
// the first failure is kept and raised once every step has run.
class FirstFailure {
 public:
  template <typename Step>
  void attempt(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (const RuntimeError& error) {
      if (!mFirst)
        mFirst = error;
    }
  }

  // Raises the first failure, if a step failed.
  void raise() const {
    if (mFirst)
      throw *mFirst;
  }

 private:
  std::optional<RuntimeError> mFirst;
};

}  // namespace kelmora
