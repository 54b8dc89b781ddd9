#include "automation/ForeignControlWrapper.h"

#include "automation/Dispatcher.h"

namespace kelmora {

std::shared_ptr<::kelmora::Object> ForeignControlWrapper::Object() {
  return Dispatcher::object(get("Object"));
}

}  // namespace kelmora
