#pragma once

#include "automation/ForeignAdapter.h"
#include "diagnostics/BridgeToVB.h"

namespace kelmora {

// A host's tracing bridge that answers only by name. Its ErrorParams comes
// back as a tracing service, wrapped in turn where it answers only by name.
class ForeignBridge : public BridgeToVB, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  std::shared_ptr<Object> ErrorParams() override;
};

}  // namespace kelmora
