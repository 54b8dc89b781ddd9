#include "host/RecordingSink.h"

namespace kelmora::tools {

int RecordingSink::count(const std::string& kind) const {
  int found = 0;
  for (const auto& event : mEvents)
    if (event.contains(kind))
      ++found;
  return found;
}

}  // namespace kelmora::tools
