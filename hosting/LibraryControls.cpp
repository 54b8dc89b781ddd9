#include "hosting/LibraryControls.h"

#include <mutex>

#include "frames/esource/Esource.h"
#include "frames/nonperiodical/NonPeriodical.h"
#include "frames/periodical/Periodical.h"
#include "hosting/FrameContainer.h"
#include "hosting/Startup.h"
#include "surface/ControlRegistry.h"

namespace kelmora {

void LibraryControls::Register() {
  static std::once_flag once;
  std::call_once(once, [] {
    // The start-up routine runs before the first library object of a
    // thread, whichever object that is.
    ControlRegistry::Register(ControlRegistry::kFrameContainer,
                              []() -> std::shared_ptr<UserControl> {
                                Startup::ensureForThisThread();
                                return std::make_shared<FrameContainer>();
                              });
    ControlRegistry::Register(ControlRegistry::kPeriodical, []() -> std::shared_ptr<UserControl> {
      Startup::ensureForThisThread();
      return std::make_shared<Periodical>();
    });
    ControlRegistry::Register(ControlRegistry::kNonPeriodical,
                              []() -> std::shared_ptr<UserControl> {
                                Startup::ensureForThisThread();
                                return std::make_shared<NonPeriodical>();
                              });
    ControlRegistry::Register(ControlRegistry::kEsource, []() -> std::shared_ptr<UserControl> {
      Startup::ensureForThisThread();
      return std::make_shared<Esource>();
    });
  });
}

}  // namespace kelmora
