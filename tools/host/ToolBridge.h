#pragma once

#include <memory>

#include "diagnostics/BridgeToVB.h"

namespace kelmora::tools {

// The bridge the host registers under "TessalyDot.BridgeToVB" before the
// first library object exists; the library asks it once per thread for the
// tracing service.
class ToolBridge : public BridgeToVB {
 public:
  explicit ToolBridge(std::shared_ptr<Object> errorParams) : mErrorParams(std::move(errorParams)) {}
  std::shared_ptr<Object> ErrorParams() override;

 private:
  std::shared_ptr<Object> mErrorParams;
};

}  // namespace kelmora::tools
