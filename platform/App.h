#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// The component's application object. Its title is the one fixed
// application name under which the library reads its settings.
class App : public Object {
 public:
  static const std::shared_ptr<App>& instance();

  std::string TypeName() const override { return "App"; }
  const std::string& Title() const { return mTitle; }

 private:
  std::string mTitle = "Kelmora";
};

}  // namespace kelmora
