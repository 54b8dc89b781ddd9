#include "automation/ForeignFormatterSettings.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"

namespace kelmora {

std::shared_ptr<OutputTemplate> ForeignFormatterSettings::outputTemplates(int32_t index) {
  return HostObjects::outputTemplate(Dispatcher::object(get("outputTemplates", {index})));
}

}  // namespace kelmora
