#include "automation/ForeignHostControls.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"

namespace kelmora {

std::shared_ptr<ControlWrapper> ForeignHostControls::Add(const std::string& identifier,
                                                         const std::string& name) {
  return HostObjects::wrapper(Dispatcher::object(method("Add", {identifier, name})));
}

}  // namespace kelmora
