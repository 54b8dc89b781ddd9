#include "surface/ControlWrapper.h"

#include "platform/RuntimeError.h"

namespace kelmora {

std::shared_ptr<::kelmora::Object> ControlWrapper::Object() {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
