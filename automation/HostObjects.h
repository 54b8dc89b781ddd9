#pragma once

#include <memory>

#include "platform/Object.h"

namespace kelmora {

class BridgeToVB;
class DataObject;
class FormatterSettings;
class HostCallback;
class HostControls;
class HostForm;
class OutputTemplate;
class TracingService;
class ControlWrapper;

// Takes an object a host hands the library as the host interface the
// library calls: an object that implements the interface is taken as it
// is, one that answers only by name is wrapped in its adapter, and nothing
// stays nothing. Any other object fails with 13.
class HostObjects {
 public:
  static std::shared_ptr<HostCallback> callback(const std::shared_ptr<Object>& object);
  static std::shared_ptr<HostForm> form(const std::shared_ptr<Object>& object);
  static std::shared_ptr<HostControls> controls(const std::shared_ptr<Object>& object);
  static std::shared_ptr<ControlWrapper> wrapper(const std::shared_ptr<Object>& object);
  static std::shared_ptr<FormatterSettings> settings(const std::shared_ptr<Object>& object);
  static std::shared_ptr<OutputTemplate> outputTemplate(const std::shared_ptr<Object>& object);
  static std::shared_ptr<DataObject> data(const std::shared_ptr<Object>& object);
  static std::shared_ptr<TracingService> tracing(const std::shared_ptr<Object>& object);
  static std::shared_ptr<BridgeToVB> bridge(const std::shared_ptr<Object>& object);

  // The other way: the host's own object behind an adapter, so that a host
  // gets back what it gave; any other object as it is.
  static std::shared_ptr<Object> unwrapped(const std::shared_ptr<Object>& object);
};

}  // namespace kelmora
