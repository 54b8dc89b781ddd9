#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace kelmora {

class UserControl;

// The controls a widget collection can create, by registered identifier.
// The library's own controls register under the four identifiers below as
// their subsystems are linked in; a host or a test may register more.
//
// Like the system's class registration it is one table per process, while
// every control it makes lives on the thread that asked. Identifiers
// compare exactly. Creating from an identifier nobody registered fails with
// 429, as creating an object of an unregistered class does.
class ControlRegistry {
 public:
  using Factory = std::shared_ptr<UserControl> (*)();

  static constexpr const char* kFrameContainer = "Kelmora.FrameContainer";
  static constexpr const char* kPeriodical = "Kelmora.Periodical";
  static constexpr const char* kNonPeriodical = "Kelmora.NonPeriodical";
  static constexpr const char* kEsource = "Kelmora.Esource";

  // Registers or replaces the factory of an identifier.
  static void Register(const std::string& identifier, Factory factory);
  static void Unregister(const std::string& identifier);
  static bool IsRegistered(const std::string& identifier);
  static std::shared_ptr<UserControl> Create(const std::string& identifier);

 private:
  static std::mutex& mutex();
  static std::map<std::string, Factory>& table();
};

}  // namespace kelmora
