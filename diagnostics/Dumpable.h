#pragma once

#include <memory>

namespace kelmora {

// A class of the library that can report its own fields when one of its
// procedures fails. The implementation is the class's dump procedure: the
// module header, then each field in the class's declared order
// (vbwProtector::dumpModule).
//
// Every such object counts as alive on its thread: when the thread's last
// one goes, the library lets go of the host's tracing service, so that a
// host that has released everything can unload the library.
class Dumpable {
 public:
  virtual void vbwDump() const = 0;

  // A strong reference to the object, where it is shared, for the outermost
  // call of the library on a thread: a host may let go of its last
  // reference from inside a member the call reaches.
  virtual std::shared_ptr<const void> lifeline() const { return nullptr; }

 protected:
  Dumpable();
  Dumpable(const Dumpable&);
  Dumpable& operator=(const Dumpable&) = default;
  ~Dumpable();
};

}  // namespace kelmora
