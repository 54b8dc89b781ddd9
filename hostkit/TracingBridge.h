#pragma once

#include <memory>

#include "diagnostics/BridgeToVB.h"

namespace kelmora::host {

// The bridge a host registers under "TessalyDot.BridgeToVB" before the
// first library object exists; the library asks it once per thread for the
// tracing service it hands out.
class TracingBridge : public BridgeToVB {
 public:
  explicit TracingBridge(std::shared_ptr<Object> errorParams)
      : mErrorParams(std::move(errorParams)) {}
  std::shared_ptr<Object> ErrorParams() override;

 private:
  std::shared_ptr<Object> mErrorParams;
};

}  // namespace kelmora::host
