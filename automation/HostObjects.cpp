#include "automation/HostObjects.h"

#include "automation/ForeignBridge.h"
#include "automation/ForeignCallback.h"
#include "automation/ForeignControlWrapper.h"
#include "automation/ForeignDataObject.h"
#include "automation/ForeignFormatterSettings.h"
#include "automation/ForeignHostControls.h"
#include "automation/ForeignHostForm.h"
#include "automation/ForeignOutputTemplate.h"
#include "automation/ForeignTracingService.h"
#include "platform/RuntimeError.h"

namespace kelmora {

namespace {

template <typename Interface, typename Adapter>
std::shared_ptr<Interface> adapted(const std::shared_ptr<Object>& object) {
  if (!object)
    return nullptr;
  if (auto offered = std::dynamic_pointer_cast<Interface>(object))
    return offered;
  if (auto foreign = std::dynamic_pointer_cast<ForeignObject>(object))
    return std::make_shared<Adapter>(std::move(foreign));
  throw RuntimeError(kTypeMismatch);
}

}  // namespace

std::shared_ptr<HostCallback> HostObjects::callback(const std::shared_ptr<Object>& object) {
  return adapted<HostCallback, ForeignCallback>(object);
}

std::shared_ptr<HostForm> HostObjects::form(const std::shared_ptr<Object>& object) {
  return adapted<HostForm, ForeignHostForm>(object);
}

std::shared_ptr<HostControls> HostObjects::controls(const std::shared_ptr<Object>& object) {
  return adapted<HostControls, ForeignHostControls>(object);
}

std::shared_ptr<ControlWrapper> HostObjects::wrapper(const std::shared_ptr<Object>& object) {
  return adapted<ControlWrapper, ForeignControlWrapper>(object);
}

std::shared_ptr<FormatterSettings> HostObjects::settings(const std::shared_ptr<Object>& object) {
  return adapted<FormatterSettings, ForeignFormatterSettings>(object);
}

std::shared_ptr<OutputTemplate> HostObjects::outputTemplate(const std::shared_ptr<Object>& object) {
  return adapted<OutputTemplate, ForeignOutputTemplate>(object);
}

std::shared_ptr<DataObject> HostObjects::data(const std::shared_ptr<Object>& object) {
  return adapted<DataObject, ForeignDataObject>(object);
}

std::shared_ptr<TracingService> HostObjects::tracing(const std::shared_ptr<Object>& object) {
  return adapted<TracingService, ForeignTracingService>(object);
}

std::shared_ptr<BridgeToVB> HostObjects::bridge(const std::shared_ptr<Object>& object) {
  return adapted<BridgeToVB, ForeignBridge>(object);
}

std::shared_ptr<Object> HostObjects::unwrapped(const std::shared_ptr<Object>& object) {
  if (auto* adapter = dynamic_cast<const ForeignAdapter*>(object.get()))
    return adapter->foreign();
  return object;
}

}  // namespace kelmora
