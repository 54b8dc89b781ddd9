#pragma once

#include "automation/ForeignAdapter.h"
#include "surface/HostForm.h"

namespace kelmora {

// A host's form that answers only by name: its controls collection.
class ForeignHostForm : public HostForm, public ForeignAdapter {
 public:
  using ForeignAdapter::ForeignAdapter;

  std::shared_ptr<HostControls> controls() override;
};

}  // namespace kelmora
