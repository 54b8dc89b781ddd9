#include "platform/Object.h"

#include "platform/RuntimeError.h"
#include "platform/Variant.h"

namespace kelmora {

Variant Object::DefaultValue() const {
  throw RuntimeError(kMemberNotSupported);
}

}  // namespace kelmora
