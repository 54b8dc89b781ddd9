#pragma once

#include <string>

#include "platform/Object.h"

namespace kelmora {

// One output template of the host's citation format. The library asks it
// only whether a text is a URL; without the member the call fails with 438.
class OutputTemplate : public Object {
 public:
  std::string TypeName() const override { return "OutputTemplate"; }

  virtual bool isURL(std::string& text);
};

}  // namespace kelmora
