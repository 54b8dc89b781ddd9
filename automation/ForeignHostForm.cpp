#include "automation/ForeignHostForm.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"

namespace kelmora {

std::shared_ptr<HostControls> ForeignHostForm::controls() {
  return HostObjects::controls(Dispatcher::object(get("controls")));
}

}  // namespace kelmora
