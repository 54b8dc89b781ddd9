#include "platform/RunningObjectTable.h"

#include "platform/RuntimeError.h"

namespace kelmora {

std::mutex& RunningObjectTable::mutex() {
  static std::mutex instance;
  return instance;
}

std::map<std::string, std::shared_ptr<Object>>& RunningObjectTable::table() {
  // Never destroyed: an entry a host did not revoke is a host object, and
  // releasing it while the process ends could call into a host whose run
  // time has already shut down.
  static auto* instance = new std::map<std::string, std::shared_ptr<Object>>;
  return *instance;
}

void RunningObjectTable::Register(const std::string& className, std::shared_ptr<Object> object) {
  if (!object)
    throw RuntimeError(kObjectNotSet);
  std::lock_guard lock(mutex());
  table()[className] = std::move(object);
}

void RunningObjectTable::Revoke(const std::string& className) {
  std::shared_ptr<Object> released;
  {
    std::lock_guard lock(mutex());
    auto found = table().find(className);
    if (found == table().end())
      return;
    released = std::move(found->second);
    table().erase(found);
  }
}

std::shared_ptr<Object> RunningObjectTable::GetObject(const std::string& className) {
  std::lock_guard lock(mutex());
  auto found = table().find(className);
  if (found == table().end()) {
    throw RuntimeError(kCannotCreateObject, "ActiveX component can't create object: " + className);
  }
  return found->second;
}

}  // namespace kelmora
