#pragma once

#include <filesystem>
#include <string>

namespace kelmora {

// The per-user application settings store: one INI file per application,
// <config>/<appName>/settings.ini, where <config> is $XDG_CONFIG_HOME or
// else ~/.config. Sections and keys are matched without regard to case, as
// the run time's store does. A missing file, section or key gives the
// default; the library only ever reads.
class SettingsStore {
 public:
  static std::string GetSetting(const std::string& appName, const std::string& section,
                                const std::string& key, const std::string& defaultValue = {});
  static std::filesystem::path settingsFile(const std::string& appName);
};

}  // namespace kelmora
