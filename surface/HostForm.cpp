#include "surface/HostForm.h"

#include "platform/RuntimeError.h"

namespace kelmora {

std::shared_ptr<HostControls> HostForm::controls() {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
