#pragma once

namespace kelmora {

// The library's start-up routine. The component run time calls it once per
// thread before the first library object of that thread exists; here the
// object factories call ensureForThisThread, which runs it on first use.
// Its only work is the trace flags: procedure entry and exit are always
// traced, and the setting "vbwTrace" in section "Init" or "/trace" on the
// command line add the parameter text.
class Startup {
 public:
  static void Main();
  static void ensureForThisThread();
};

}  // namespace kelmora
