#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"
#include "surface/HostControls.h"

namespace kelmora {

// The host's form on which the frame container is planted. The library only
// reads its controls, once, and does not keep the form.
class HostForm : public Object {
 public:
  std::string TypeName() const override { return "HostForm"; }

  virtual std::shared_ptr<HostControls> controls();
};

}  // namespace kelmora
