#include "surface/OutputTemplate.h"

#include "platform/RuntimeError.h"

namespace kelmora {

bool OutputTemplate::isURL(std::string&) {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
