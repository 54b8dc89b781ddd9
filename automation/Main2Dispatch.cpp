#include "automation/Main2Dispatch.h"

#include "automation/Dispatcher.h"
#include "automation/HostObjects.h"
#include "hosting/Main2.h"
#include "surface/ControlWrapper.h"
#include "surface/HostForm.h"

namespace kelmora {

Variant Main2Dispatch::invoke(Object& target, const TypeLibrary::Member& member,
                              std::vector<Variant>& arguments) {
  auto& main = dynamic_cast<Main2&>(target);
  switch (member.dispid) {
    case 0x60030001:
      main.ChangeFormatType(arguments[0].toInteger());
      return {};
    case 0x60030002:
      // The host gets back the wrapper its own form made.
      return Variant(HostObjects::unwrapped(main.BuildFrameContainer(
          HostObjects::form(Dispatcher::object(arguments[0])), arguments[1].toString())));
    case 0x68030000:
      return Variant(std::shared_ptr<Object>(main.Model(arguments[0].toInteger())));
    default:
      throw RuntimeError(kMemberNotSupported);
  }
}

}  // namespace kelmora
