#include "tools/ScratchDir.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

namespace kelmora::tools::testing {

ScratchDir::ScratchDir() {
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string("kelmora-") + (info != nullptr ? info->name() : "test") + "-" +
                     std::to_string(::getpid());
  for (char& c : name)
    if (c == '/')
      c = '_';
  mPath = std::filesystem::temp_directory_path() / name;
  std::filesystem::remove_all(mPath);
  std::filesystem::create_directories(mPath);
}

ScratchDir::~ScratchDir() {
  std::error_code ignored;
  std::filesystem::remove_all(mPath, ignored);
}

std::string ScratchDir::write(const std::string& name, const std::string& content) const {
  const auto file = mPath / name;
  std::ofstream(file) << content;
  return file.string();
}

}  // namespace kelmora::tools::testing
