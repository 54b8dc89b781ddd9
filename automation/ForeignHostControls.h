#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/HostControls.h"

namespace kelmora {

// A host form's widget collection that answers only by name: Add makes a
// control by its registered identifier and gives back the wrapper.
class ForeignHostControls : public HostControls, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  std::shared_ptr<ControlWrapper> Add(const std::string& identifier,
                                      const std::string& name) override;
};

}  // namespace kelmora
