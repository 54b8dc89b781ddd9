#pragma once

#include <memory>
#include <utility>

namespace kelmora {

// Releases that must wait for the library to be off the stack. A host may
// end a control, or let go of everything, from inside any of its members
// that the library calls; the objects whose code is still running further
// up must outlive that code. While library code runs on this thread, what
// the ending lets go of is parked here, and the last library call to return
// lets go of it; with no library code running it goes at once.
class ReleasePool {
 public:
  // Marks library code as running on this thread for as long as it lives.
  class Busy {
   public:
    Busy() noexcept { ++tDepth; }
    ~Busy() {
      if (--tDepth == 0 && tPending)
        drain();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
  };

  static bool busy() { return tDepth > 0; }

  // Empties `object` and lets go of what it held, now or once the outermost
  // library call on this thread has returned.
  template <typename T>
  static void release(std::shared_ptr<T>& object) {
    if (!object)
      return;
    if (tDepth == 0) {
      object.reset();
      return;
    }
    park(std::shared_ptr<const void>(std::move(object)));
    object.reset();
  }

 private:
  static void park(std::shared_ptr<const void> object);
  static void drain();

  static inline constinit thread_local int tDepth = 0;
  static inline constinit thread_local bool tPending = false;
};

}  // namespace kelmora
