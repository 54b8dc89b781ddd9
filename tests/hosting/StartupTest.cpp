#include "hosting/Startup.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "diagnostics/vbwProtector.h"
#include "platform/CommandLine.h"
#include "support/FreshThread.h"

namespace kelmora {
namespace {

TEST(StartupTest, ProcedureTracingIsAlwaysOnAndTheSwitchesAddParameters) {
  struct Row {
    const char* setting;  // nullptr: no settings file
    const char* commandLine;
    bool expectParameters;
  };
  const Row rows[] = {
      {nullptr, "", false},
      {"0", "/quiet", false},
      {"1", "", true},
      {"yes", "", false},
      {nullptr, "doc.txt /trace", true},
      {nullptr, "/tracer", true},  // a plain text search, as the run time does
      {nullptr, "/TRACE", false},  // binary comparison
  };
  const auto root =
      std::filesystem::temp_directory_path() / ("kelmora-startup-" + std::to_string(::getpid()));
  ::setenv("XDG_CONFIG_HOME", root.c_str(), 1);
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.setting ? row.setting : "(none)") + " | " + row.commandLine);
    std::filesystem::remove_all(root);
    if (row.setting != nullptr) {
      std::filesystem::create_directories(root / "Kelmora");
      std::ofstream(root / "Kelmora" / "settings.ini")
          << "[Init]\nvbwTrace=" << row.setting << "\n";
    }
    CommandLine::Override(row.commandLine);
    testing::onFreshThread([&] {
      Startup::ensureForThisThread();
      EXPECT_TRUE(vbwProtector::vbwTraceProc());
      EXPECT_EQ(vbwProtector::vbwTraceParameters(), row.expectParameters);
      // Once per thread: a later change of the switches is not seen.
      CommandLine::Override(row.expectParameters ? "" : "/trace");
      Startup::ensureForThisThread();
      EXPECT_EQ(vbwProtector::vbwTraceParameters(), row.expectParameters);
    });
  }
  CommandLine::Override(std::nullopt);
  std::filesystem::remove_all(root);
  ::unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace kelmora
