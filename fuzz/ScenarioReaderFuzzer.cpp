// Reads one scenario per input as `kelmora play` would. What must hold: no
// sanitizer report, no stack exhaustion, and nothing but BadInput (the
// program's one refusal, printed as one line with exit status 2) escaping
// the reader.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "host/Kit.h"
#include "scenario/Scenario.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    (void)kelmora::tools::Scenario::fromText(text, "fuzz.json", ".");
  } catch (const kelmora::tools::BadInput&) {
    // The refusal a user sees.
  }
  return 0;
}
