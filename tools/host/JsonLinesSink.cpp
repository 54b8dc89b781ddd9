#include "host/JsonLinesSink.h"

#include <ostream>

namespace kelmora::tools {

void JsonLinesSink::emit(const Json& event) {
  if (event.contains("host") || event.contains("stage") || event.contains("user"))
    return;
  mOut << event.dump() << '\n';
  mOut.flush();
}

}  // namespace kelmora::tools
