#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"
#include "surface/ControlWrapper.h"

namespace kelmora {

// The widget collection of the host's form, as far as the library uses it:
// Add creates a control by registered identifier under an instance name.
class HostControls : public Object {
 public:
  std::string TypeName() const override { return "Controls"; }

  virtual std::shared_ptr<ControlWrapper> Add(const std::string& identifier,
                                              const std::string& name);
};

}  // namespace kelmora
