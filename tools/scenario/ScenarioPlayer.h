#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "host/Kit.h"
#include "scenario/Scenario.h"

namespace kelmora {
class FormatterSettings;
class Widget;
}  // namespace kelmora

namespace kelmora::tools {

class EventSink;
class ToolHost;

// Plays a scenario on a host: host calls go to Main2 or the frame
// container, user actions to the toolkit's simulated user, expectations
// are checked against the widgets. A call or action that fails back to the
// host is told as a failed call; unless the step expected that failure it
// counts as unmet, as does an expectation that does not hold. Bad input
// found while playing (a widget that is not there, a settings file that
// cannot be read) stops the play with BadInput.
class ScenarioPlayer {
 public:
  ScenarioPlayer(ToolHost& host, EventSink& sink, std::filesystem::path pictureDirectory);

  // Runs at the end of each stage, with its number (from 1) and title.
  std::function<void(int, const std::string&)> onStageEnd;

  // The number of unmet expectations and unexpected failures so far. A
  // player may play several scenarios in turn on one host: stages go on
  // counting, and each ends once.
  int play(const Scenario& scenario);

  // Writes the SVG picture of the host's container.
  void writePicture(const std::filesystem::path& path) const;

 private:
  void playStep(const Scenario& scenario, const Scenario::Step& step);
  void call(const Scenario& scenario, const Scenario::Step& step);
  void act(const Scenario::Step& step);
  void expect(const Scenario::Step& step);
  void endStage();

  std::shared_ptr<Widget> widget(const Scenario::Step& step, const std::string& ref) const;
  std::shared_ptr<FormatterSettings> settings(const Scenario& scenario, const Json& value,
                                              const std::string& where) const;
  void unmet(const Scenario::Step& step, Json details);

  ToolHost& mHost;
  EventSink& mSink;
  std::filesystem::path mPictureDirectory;
  int mUnmet = 0;
  int mStage = 0;
  bool mStageEnded = false;
  std::string mStageTitle;
};

}  // namespace kelmora::tools
