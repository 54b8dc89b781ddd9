#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/ControlWrapper.h"

namespace kelmora {

// The wrapper a host's controls.Add gives back, when it answers only by
// name: its Object is the control inside.
class ForeignControlWrapper : public ControlWrapper, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  std::shared_ptr<::kelmora::Object> Object() override;
};

}  // namespace kelmora
