#include "hosting/LibraryControls.h"

#include <mutex>

#include "frames/periodical/Periodical.h"
#include "hosting/FrameContainer.h"
#include "surface/ControlRegistry.h"

namespace kelmora {

void LibraryControls::Register() {
  static std::once_flag once;
  std::call_once(once, [] {
    ControlRegistry::Register(
        ControlRegistry::kFrameContainer,
        []() -> std::shared_ptr<UserControl> { return std::make_shared<FrameContainer>(); });
    ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
      return std::make_shared<Periodical>();
    });
  });
}

}  // namespace kelmora
