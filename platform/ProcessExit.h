#pragma once

#include <memory>

namespace kelmora {

// What the library still holds of a host when the process ends. By then a
// host's run time may have shut down (an interpreter, say), so that calling
// any of its objects, even to release one, would crash the process.
class ProcessExit {
 public:
  // True on the process's main thread, whose per-thread objects are
  // destroyed only when the process ends: a per-thread holder asks it in its
  // destructor to tell the end of the process from the end of a thread.
  static bool threadEndsWithProcess();

  // Keeps `object` for good, never calling it again: the process is ending
  // and takes its memory back without anyone's help.
  static void keep(std::shared_ptr<const void> object);
};

}  // namespace kelmora
