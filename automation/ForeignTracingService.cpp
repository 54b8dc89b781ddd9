#include "automation/ForeignTracingService.h"

#include "automation/HostObjects.h"

namespace kelmora {

namespace {

// The host's own objects come back to it as they were handed in, not as
// the library's adapters around them, which the host could not call.
Variant unwrapped(const Variant& value) {
  return value.isObject() ? Variant(HostObjects::unwrapped(value.toObject())) : value;
}

}  // namespace

std::string ForeignTracingService::vbwReportParameter(const std::string& name,
                                                      const Variant& value) {
  return method("vbwReportParameter", {name, unwrapped(value)}).toString();
}

void ForeignTracingService::vbwReportVariable(const std::string& name, const Variant& value,
                                              int32_t flag) {
  method("vbwReportVariable", {name, unwrapped(value), flag});
}

void ForeignTracingService::vbwReportObject(const std::string& name,
                                            const std::shared_ptr<Object>& object, int32_t flag) {
  method("vbwReportObject", {name, HostObjects::unwrapped(object), flag});
}

}  // namespace kelmora
