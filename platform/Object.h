#pragma once

#include <string>

namespace kelmora {

class Variant;

// Base of every object that can travel in a Variant: widgets, host objects,
// library classes. Late-bound reads of the default member go through
// DefaultValue; an object without one fails with 438 as a late-bound call
// would.
class Object {
 public:
  virtual ~Object() = default;

  // The run time's TypeName of the object, used in dumps.
  virtual std::string TypeName() const { return "Object"; }
  virtual Variant DefaultValue() const;
};

}  // namespace kelmora
