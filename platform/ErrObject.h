#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

class RuntimeError;

// The run time's error object of the current thread: the failure being
// handled, as the failure path reads and reports it.
class ErrObject : public Object {
 public:
  static const std::shared_ptr<ErrObject>& current();

  std::string TypeName() const override { return "ErrObject"; }

  void Raise(const RuntimeError& error);
  void Clear();

  int32_t Number() const { return mNumber; }
  const std::string& Description() const { return mDescription; }
  int32_t LastDllError() const { return mLastDllError; }

 private:
  int32_t mNumber = 0;
  std::string mDescription;
  int32_t mLastDllError = 0;
};

}  // namespace kelmora
