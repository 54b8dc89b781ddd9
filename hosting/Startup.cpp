#include "hosting/Startup.h"

#include "diagnostics/vbwProtector.h"
#include "platform/App.h"
#include "platform/CommandLine.h"
#include "platform/SettingsStore.h"

namespace kelmora {

void Startup::Main() {
  const std::string setting =
      SettingsStore::GetSetting(App::instance()->Title(), "Init", "vbwTrace", "");
  const bool onCommandLine = CommandLine::Command().find("/trace") != std::string::npos;
  vbwProtector::vbwTraceProc() = setting == "1" || onCommandLine;
  vbwProtector::vbwTraceParameters() = vbwProtector::vbwTraceProc();
  vbwProtector::vbwTraceLines() = vbwProtector::vbwTraceProc();
  // Entry and exit are reported in every running library; the switches only
  // decide whether parameter values are reported too.
  vbwProtector::vbwTraceProc() = true;
}

void Startup::ensureForThisThread() {
  thread_local bool done = false;
  if (done)
    return;
  done = true;
  Main();
}

}  // namespace kelmora
