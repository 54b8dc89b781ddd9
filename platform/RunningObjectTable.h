#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/Object.h"

namespace kelmora {

// The process's table of running objects by class name. A host registers an
// object it made; the library attaches to it by name and never creates one:
// attaching to a name nobody registered fails with 429. The table holds
// strong references until the object is revoked.
class RunningObjectTable {
 public:
  static void Register(const std::string& className, std::shared_ptr<Object> object);
  static void Revoke(const std::string& className);
  static std::shared_ptr<Object> GetObject(const std::string& className);

 private:
  static std::mutex& mutex();
  static std::map<std::string, std::shared_ptr<Object>>& table();
};

}  // namespace kelmora
