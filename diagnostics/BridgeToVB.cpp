#include "diagnostics/BridgeToVB.h"

#include "platform/RuntimeError.h"

namespace kelmora {

std::shared_ptr<Object> BridgeToVB::ErrorParams() {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
