#include "cli/Demo.h"

#include <iterator>
#include <ostream>

#include "host/DemoParts.h"
#include "host/FieldValues.h"
#include "host/ReadableSink.h"
#include "host/ToolHost.h"
#include "hosting/LibraryControls.h"
#include "platform/RuntimeError.h"
#include "scenario/Scenario.h"
#include "scenario/ScenarioPlayer.h"
#include "surface/ControlRegistry.h"

namespace kelmora::tools {

namespace {

// The reference types the demo shows, in turn, each by its own scenario
// under examples/. A part whose frame this build lacks is passed over.
struct DemoPart {
  const char* identifier;
  const char* file;
};
constexpr DemoPart kParts[] = {
    {ControlRegistry::kPeriodical, "demo-periodical.json"},
    {ControlRegistry::kNonPeriodical, "demo-nonperiodical.json"},
    {ControlRegistry::kEsource, "demo-esource.json"},
};

Scenario partScenario(const DemoPart& part, const std::filesystem::path& pictureDirectory) {
  const std::string_view* text = DemoParts::find(part.file);
  if (text == nullptr)
    throw RuntimeError(kCannotCreateObject, std::string("the demo has no part ") + part.file);
  return Scenario::fromText(*text, part.file, pictureDirectory);
}

}  // namespace

int Demo::run(const std::filesystem::path& pictureDirectory, std::ostream& out) {
  LibraryControls::Register();
  std::vector<Scenario> parts;
  for (const auto& part : kParts) {
    if (ControlRegistry::IsRegistered(part.identifier))
      parts.push_back(partScenario(part, pictureDirectory));
  }
  // Without a frame every step would only report failures.
  if (parts.empty())
    throw RuntimeError(kCannotCreateObject, "this build has no frame to show");
  out << "Kelmora demo host\n";
  for (const auto& part : parts) out << part.description << "\n";
  out << "Lines with -> are calls of the host on the library, <- calls of the library on the "
         "host.\n";

  ReadableSink sink(out);
  // One host plays all parts, as an author moves from one reference to the
  // next; the first part's answers to failures hold throughout.
  ToolHost host(sink, {.failureAnswer = parts.front().failureAnswer,
                       .answerChanges = parts.front().answerChanges});
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
  int unmet = 0;
  for (const auto& part : parts) unmet = player.play(part);
  host.end();
  out << '\n'
      << (unmet == 0 ? "The demo ran to its end; every expectation held.\n"
                     : "The demo ran to its end, but " + std::to_string(unmet) +
                           " expectation(s) did not hold.\n");
  return unmet == 0 ? 0 : 1;
}

}  // namespace kelmora::tools
