#include "platform/SettingsStore.h"

#include <INIReader.h>

#include <cstdlib>

namespace kelmora {

std::filesystem::path SettingsStore::settingsFile(const std::string& appName) {
  std::filesystem::path config;
  if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg != nullptr && *xdg != '\0') {
    config = xdg;
  } else if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
    config = std::filesystem::path(home) / ".config";
  } else {
    config = ".";
  }
  return config / appName / "settings.ini";
}

std::string SettingsStore::GetSetting(const std::string& appName, const std::string& section,
                                      const std::string& key, const std::string& defaultValue) {
  const auto file = settingsFile(appName);
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error))
    return defaultValue;
  INIReader reader(file.string());
  if (reader.ParseError() < 0)
    return defaultValue;
  if (!reader.HasValue(section, key))
    return defaultValue;
  return reader.Get(section, key, defaultValue);
}

}  // namespace kelmora
