#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// The toolkit's printer object. The library never prints; the object exists
// because the global dump reports it.
class Printer : public Object {
 public:
  static const std::shared_ptr<Printer>& instance();

  std::string TypeName() const override { return "Printer"; }
};

}  // namespace kelmora
