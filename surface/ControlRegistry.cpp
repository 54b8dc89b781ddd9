#include "surface/ControlRegistry.h"

#include "platform/RuntimeError.h"
#include "surface/UserControl.h"

namespace kelmora {

std::mutex& ControlRegistry::mutex() {
  static std::mutex lock;
  return lock;
}

std::map<std::string, ControlRegistry::Factory>& ControlRegistry::table() {
  static std::map<std::string, Factory> factories;
  return factories;
}

void ControlRegistry::Register(const std::string& identifier, Factory factory) {
  std::lock_guard lock(mutex());
  table()[identifier] = factory;
}

void ControlRegistry::Unregister(const std::string& identifier) {
  std::lock_guard lock(mutex());
  table().erase(identifier);
}

bool ControlRegistry::IsRegistered(const std::string& identifier) {
  std::lock_guard lock(mutex());
  return table().contains(identifier);
}

std::shared_ptr<UserControl> ControlRegistry::Create(const std::string& identifier) {
  Factory factory = nullptr;
  {
    std::lock_guard lock(mutex());
    auto found = table().find(identifier);
    if (found != table().end())
      factory = found->second;
  }
  // The factory runs outside the lock: a control may build controls of its
  // own as it is made.
  std::shared_ptr<UserControl> control = factory != nullptr ? factory() : nullptr;
  if (!control) {
    throw RuntimeError(kCannotCreateObject, "Cannot create control '" + identifier + "'");
  }
  return control;
}

}  // namespace kelmora
