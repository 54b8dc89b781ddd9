#include "cli/Demo.h"

#include <ostream>

#include "host/EmbeddedFiles.h"
#include "host/FieldValues.h"
#include "host/ReadableSink.h"
#include "host/ToolHost.h"
#include "platform/RuntimeError.h"
#include "scenario/Scenario.h"
#include "scenario/ScenarioPlayer.h"
#include "surface/ControlRegistry.h"

namespace kelmora::tools {

int Demo::run(const std::filesystem::path& pictureDirectory, std::ostream& out) {
  const Scenario scenario =
      Scenario::fromText(*EmbeddedFiles::find("demo.json"), "demo.json", pictureDirectory);
  out << "Kelmora demo host\n" << scenario.description << "\n";
  out << "Lines with -> are calls of the host on the library, <- calls of the library on the "
         "host.\n";

  ReadableSink sink(out);
  ToolHost host(sink,
                {.failureAnswer = scenario.failureAnswer, .answerChanges = scenario.answerChanges});
  // Without the frame every step would only report failures.
  if (!ControlRegistry::IsRegistered(ControlRegistry::kPeriodical))
    throw RuntimeError(kCannotCreateObject, "this build has no Periodical frame to show");
  ScenarioPlayer player(host, sink, pictureDirectory);
  player.onStageEnd = [&](int stage, const std::string&) {
    const Json fields = FieldValues::visibleFields(host.main(), host.container());
    out << "  Fields on screen:\n";
    if (fields.empty())
      out << "    (none)\n";
    for (const auto& field : fields) {
      std::string name = field["widget"].get<std::string>();
      name.resize(std::max<size_t>(name.size(), 20), ' ');
      std::string key = field["key"].get<std::string>();
      key.resize(std::max<size_t>(key.size(), 36), ' ');
      out << "    " << name << ' ' << key << ' ' << Json(field["value"]).dump() << '\n';
    }
    const auto picture = pictureDirectory / ("stage-" + std::to_string(stage) + ".svg");
    player.writePicture(picture);
    out << "  Picture: " << picture.string() << '\n';
  };
  const int unmet = player.play(scenario);
  host.end();
  out << '\n'
      << (unmet == 0 ? "The demo ran to its end; every expectation held.\n"
                     : "The demo ran to its end, but " + std::to_string(unmet) +
                           " expectation(s) did not hold.\n");
  return unmet == 0 ? 0 : 1;
}

}  // namespace kelmora::tools
