#include "surface/HostControls.h"

#include "platform/RuntimeError.h"

namespace kelmora {

std::shared_ptr<ControlWrapper> HostControls::Add(const std::string&, const std::string&) {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
