#include "gui/Gui.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>

#include <cstdlib>
#include <ostream>

#include "gui/GuiWindow.h"
#include "gui/LogSink.h"
#include "host/ToolHost.h"
#include "scenario/Scenario.h"
#include "scenario/ScenarioPlayer.h"

namespace kelmora::tools {

namespace {

bool hasDisplay() {
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0')
      return true;
  }
  return false;
}

}  // namespace

int Gui::run(const Options& options, std::ostream& out, std::ostream& err) {
  // A picture needs no screen: Qt draws into memory on its offscreen
  // platform, unless the caller chose another.
  if (!options.screenshot.empty() && std::getenv("QT_QPA_PLATFORM") == nullptr)
    qputenv("QT_QPA_PLATFORM", "offscreen");
  if (!hasDisplay()) {
    err << "kelmora: gui needs a display: set DISPLAY, or QT_QPA_PLATFORM=offscreen, or give "
           "--screenshot\n";
    return 2;
  }
  const Scenario scenario =
      options.scenario.empty() ? Scenario{} : Scenario::load(options.scenario);
  int argc = 1;
  char name[] = "kelmora";
  char* argv[] = {name, nullptr};
  QApplication application(argc, argv);

  LogSink log;
  ToolHost host(log, {.failureAnswer = options.scenario.empty() ? 5 : scenario.failureAnswer,
                      .answerChanges = options.scenario.empty() || scenario.answerChanges});
  int unmet = 0;
  {
    GuiWindow window(host, log);
    if (options.scenario.empty())
      window.showChosenFrame();
    window.resize(1100, 640);
    window.show();
    if (!options.scenario.empty()) {
      ScenarioPlayer player(host, log, options.pictures);
      unmet = player.play(scenario);
    }
    QApplication::processEvents();
    if (options.screenshot.empty()) {
      application.exec();
    } else if (!window.grab().save(QString::fromStdString(options.screenshot), "PNG")) {
      err << "kelmora: cannot write '" << options.screenshot << "'\n";
      unmet = -1;
    } else {
      out << "kelmora: wrote " << options.screenshot << '\n';
    }
  }
  host.end();
  if (unmet < 0)
    return 1;
  return unmet == 0 ? 0 : 1;
}

}  // namespace kelmora::tools
