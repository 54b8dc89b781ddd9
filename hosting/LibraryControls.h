#pragma once

namespace kelmora {

// Registers the library's controls under their identifiers, so that a
// widget collection's Add can make them: "Kelmora.FrameContainer" and the
// frames. Runs once per process; Main2 calls it before anything is built.
class LibraryControls {
 public:
  static void Register();
};

}  // namespace kelmora
