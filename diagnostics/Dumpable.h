#pragma once

namespace kelmora {

// A class that can report its own fields when one of its procedures fails.
// The implementation is the class's dump procedure: the module header, then
// each field in the class's declared order (vbwProtector::dumpModule).
class Dumpable {
 public:
  virtual void vbwDump() const = 0;

 protected:
  ~Dumpable() = default;
};

}  // namespace kelmora
