#include "platform/App.h"

namespace kelmora {

const std::shared_ptr<App>& App::instance() {
  static const std::shared_ptr<App> app = std::make_shared<App>();
  return app;
}

}  // namespace kelmora
