#include "platform/Screen.h"

namespace kelmora {

const std::shared_ptr<Screen>& Screen::instance() {
  static const std::shared_ptr<Screen> screen = std::make_shared<Screen>();
  return screen;
}

}  // namespace kelmora
