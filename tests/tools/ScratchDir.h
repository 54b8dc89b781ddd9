#pragma once

#include <filesystem>
#include <string>

namespace kelmora::tools::testing {

// A directory of its own for one test, removed with everything in it when
// the test ends.
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::filesystem::path& path() const { return mPath; }
  // Writes a file below the directory and returns its path.
  std::string write(const std::string& name, const std::string& content) const;

 private:
  std::filesystem::path mPath;
};

}  // namespace kelmora::tools::testing
