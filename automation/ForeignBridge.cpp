#include "automation/ForeignBridge.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"
#include "diagnostics/TracingService.h"

namespace kelmora {

std::shared_ptr<Object> ForeignBridge::ErrorParams() {
  return HostObjects::tracing(Dispatcher::object(get("ErrorParams")));
}

}  // namespace kelmora
