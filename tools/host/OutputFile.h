#pragma once

#include <filesystem>
#include <string_view>

namespace kelmora::tools {

// Writes a file the user named: a picture, a PNG, a screenshot. Whatever
// stands in the way (no such folder, a file where a folder should be, no
// permission, a full disk) is the user's to fix, so every command refuses
// it alike: a BadInput saying which file could not be written.
class OutputFile {
 public:
  static void write(const std::filesystem::path& path, std::string_view content);
};

}  // namespace kelmora::tools
