#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// The object a host registers in the running-object table under
// "TessalyDot.BridgeToVB". The library reads its ErrorParams once per thread
// and then talks only to that.
class BridgeToVB : public Object {
 public:
  static constexpr const char* kClassName = "TessalyDot.BridgeToVB";

  std::string TypeName() const override { return "BridgeToVB"; }
  virtual std::shared_ptr<Object> ErrorParams();
};

}  // namespace kelmora
