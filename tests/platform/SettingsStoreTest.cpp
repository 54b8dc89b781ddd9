#include "platform/SettingsStore.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace kelmora {
namespace {

// Points the user's configuration directory at a fresh temporary folder.
class SettingsStoreTest : public ::testing::Test {
 protected:
  void SetUp() override {
    mRoot = std::filesystem::temp_directory_path() /
            ("kelmora-settings-" + std::to_string(::getpid()) + "-" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(mRoot);
    std::filesystem::create_directories(mRoot);
    const char* old = std::getenv("XDG_CONFIG_HOME");
    if (old != nullptr)
      mOld = old;
    ::setenv("XDG_CONFIG_HOME", mRoot.c_str(), 1);
  }
  void TearDown() override {
    if (mOld) {
      ::setenv("XDG_CONFIG_HOME", mOld->c_str(), 1);
    } else {
      ::unsetenv("XDG_CONFIG_HOME");
    }
    std::filesystem::remove_all(mRoot);
  }
  void write(const std::string& app, const std::string& text) {
    std::filesystem::create_directories(mRoot / app);
    std::ofstream(mRoot / app / "settings.ini") << text;
  }

  std::filesystem::path mRoot;
  std::optional<std::string> mOld;
};

TEST_F(SettingsStoreTest, MissingFileSectionOrKeyGivesTheDefault) {
  EXPECT_EQ(SettingsStore::GetSetting("Kelmora", "Init", "vbwTrace", "dflt"), "dflt");
  write("Kelmora", "[Other]\nvbwTrace=1\n[Init]\nsomething=2\n");
  EXPECT_EQ(SettingsStore::GetSetting("Kelmora", "Init", "vbwTrace", "dflt"), "dflt");
  EXPECT_EQ(SettingsStore::GetSetting("Kelmora", "Init", "vbwTrace"), "");
}

TEST_F(SettingsStoreTest, ReadsTheValueOfItsOwnApplicationOnly) {
  write("Kelmora", "[Init]\nvbwTrace = 1\n");
  write("SomeoneElse", "[Init]\nvbwTrace=0\n");
  EXPECT_EQ(SettingsStore::GetSetting("Kelmora", "Init", "vbwTrace"), "1");
  EXPECT_EQ(SettingsStore::GetSetting("Kelmora", "init", "VBWTRACE"), "1");
  EXPECT_EQ(SettingsStore::GetSetting("SomeoneElse", "Init", "vbwTrace"), "0");
  EXPECT_EQ(SettingsStore::settingsFile("Kelmora"), mRoot / "Kelmora" / "settings.ini");
}

TEST_F(SettingsStoreTest, AnUnreadableFileGivesTheDefault) {
  write("Kelmora", "[Init\nvbwTrace=1\n");
  EXPECT_EQ(SettingsStore::GetSetting("Kelmora", "Init", "vbwTrace", "d"), "d");
}

}  // namespace
}  // namespace kelmora
