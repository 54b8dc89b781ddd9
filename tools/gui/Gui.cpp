#include "gui/Gui.h"

#include <QApplication>
#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QPixmap>

#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <string_view>

#include "gui/GuiWindow.h"
#include "gui/LogSink.h"
#include "host/OutputFile.h"
#include "host/ReferenceFile.h"
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

QtMessageHandler gQtHandler = nullptr;

// Qt's warnings are about its own setting up (a runtime folder, what the
// offscreen platform cannot do), nothing the user asked for, and they would
// stand beside the program's one line; only Qt's errors are passed on.
void qtErrorsOnly(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type != QtCriticalMsg && type != QtFatalMsg)
    return;
  if (gQtHandler != nullptr)
    gQtHandler(type, context, message);
  else
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

struct QtErrorsOnly {
  QtErrorsOnly() { gQtHandler = qInstallMessageHandler(qtErrorsOnly); }
  ~QtErrorsOnly() { qInstallMessageHandler(gQtHandler); }
  QtErrorsOnly(const QtErrorsOnly&) = delete;
  QtErrorsOnly& operator=(const QtErrorsOnly&) = delete;
};

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
  const QtErrorsOnly quiet;
  int argc = 1;
  char name[] = "kelmora";
  char* argv[] = {name, nullptr};
  QApplication application(argc, argv);

  if (options.csl.empty() && !options.item.empty())
    throw BadInput("--item names an item of a CSL-JSON file: give the file with --csl");
  LogSink log;
  ToolHost host(log, {.failureAnswer = options.scenario.empty() ? 5 : scenario.failureAnswer,
                      .answerChanges = options.scenario.empty() || scenario.answerChanges});
  // A reference that cannot be read is refused in one line, before any
  // window opens.
  if (!options.csl.empty())
    ReferenceFile::read(host.main(), options.csl, options.item);
  int unmet = 0;
  QByteArray screenshot;
  {
    GuiWindow window(host, log);
    if (options.scenario.empty())
      window.showChosenFrame();
    if (!options.csl.empty() && !window.openFile(options.csl, options.item)) {
      err << "kelmora: cannot open the reference: see the window's log\n";
      return 2;
    }
    window.show();
    if (!options.scenario.empty()) {
      ScenarioPlayer player(host, log, options.pictures);
      unmet = player.play(scenario);
    }
    QApplication::processEvents();
    if (options.screenshot.empty()) {
      application.exec();
    } else {
      // Drawn into memory, so that the file is written as every other
      // output of the program is.
      QBuffer buffer(&screenshot);
      buffer.open(QIODevice::WriteOnly);
      if (!window.grab().save(&buffer, "PNG")) {
        err << "kelmora: cannot draw the window as PNG\n";
        return 1;
      }
    }
  }
  host.end();
  if (!options.screenshot.empty()) {
    OutputFile::write(options.screenshot, std::string_view(screenshot.constData(),
                                                           static_cast<size_t>(screenshot.size())));
    out << "kelmora: wrote " << options.screenshot << '\n';
  }
  return unmet == 0 ? 0 : 1;
}

}  // namespace kelmora::tools
