#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// What a host form's controls.Add hands back: a wrapper around the control
// it made. Object gives the control inside.
class ControlWrapper : public ::kelmora::Object {
 public:
  std::string TypeName() const override { return "ControlWrapper"; }

  virtual std::shared_ptr<::kelmora::Object> Object();
};

}  // namespace kelmora
