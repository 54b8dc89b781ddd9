#include "automation/ForeignTracingService.h"

#include "automation/HostObjects.h"

namespace kelmora {

void ForeignTracingService::vbwReportObject(const std::string& name,
                                            const std::shared_ptr<Object>& object, int32_t flag) {
  method("vbwReportObject", {name, HostObjects::unwrapped(object), flag});
}

}  // namespace kelmora
