// Reads one CSL-JSON document per input as a host would, every item into
// its record and back out to CSL-JSON. What must hold: no sanitizer report,
// nothing but BadInput (one line naming the item and the variable) escaping
// the importer, and every record that was read written back without fail.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "hostkit/BadInput.h"
#include "hostkit/Csl.h"
#include "hostkit/Host.h"
#include "hostkit/JsonReader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kelmora::host;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Json document;
  try {
    document = JsonReader::parse(text, "fuzz.json");
  } catch (const BadInput&) {
    return 0;
  }
  Host host;
  try {
    for (const Json& item : Csl::items(document, "fuzz.json")) {
      try {
        const Record record = Csl::read(host.main(), item);
        (void)Csl::write(record);
        (void)Csl::optionOf(record);
      } catch (const BadInput&) {
        // The refusal a user sees, for this item alone.
      }
    }
  } catch (const BadInput&) {
    // No CSL-JSON at all.
  }
  host.end();
  return 0;
}
