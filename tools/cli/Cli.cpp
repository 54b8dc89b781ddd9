#include "cli/Cli.h"

#include <CLI/CLI.hpp>

#include <cctype>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/Demo.h"
#include "cli/Explain.h"
#include "cli/FormSetup.h"
#ifdef KELMORA_WITH_GUI
#include "gui/Gui.h"
#endif
#include "host/FieldValues.h"
#include "host/JsonLinesSink.h"
#include "host/Kit.h"
#include "host/OutputFile.h"
#include "host/ReadableSink.h"
#include "host/RecordingSink.h"
#include "host/ReferenceFile.h"
#include "host/ToolCallback.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"
#include "hostkit/Csl.h"
#include "platform/RuntimeError.h"
#include "render/PngConverter.h"
#include "render/SvgRenderer.h"
#include "scenario/Scenario.h"
#include "scenario/ScenarioPlayer.h"

namespace kelmora::tools {

namespace {

struct RenderOptions {
  FormSetup form;
  std::string output;
  std::string png;
  bool debug = false;
};

// An output named *.png is written as PNG, whatever the case of its ending.
bool namesPng(const std::filesystem::path& path) {
  std::string extension = path.extension().string();
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return extension == ".png";
}

int render(const RenderOptions& options, std::ostream& err) {
  RecordingSink sink;
  ToolHost host(sink, {});
  options.form.apply(host);
  FrameContainer& container = host.container();

  const std::string svg = SvgRenderer::render(
      container,
      {.outlineHidden = options.debug, .explain = SvgRenderer::explanationsOf(container)});
  const bool svgOutput = !namesPng(options.output);
  if (svgOutput)
    OutputFile::write(options.output, svg);
  std::vector<std::string> pngs;
  if (!svgOutput)
    pngs.push_back(options.output);
  if (!options.png.empty())
    pngs.push_back(options.png);
  int status = 0;
  if (!pngs.empty()) {
    const auto converter = PngConverter::find();
    if (!converter)
      throw BadInput("cannot write '" + pngs.front() + "': " + PngConverter::kMissingMessage +
                     (svgOutput ? "; the SVG was written" : ""));
    const PngConverter::Drawing drawing = PngConverter::draw(*converter, svg);
    if (drawing.problem.empty()) {
      for (const auto& png : pngs) OutputFile::write(png, drawing.png);
    } else {
      err << "kelmora: " << drawing.problem << '\n';
      status = 1;
    }
  }
  // The picture stands, but a drawing the library failed in is no success.
  for (const auto& event : sink.events()) {
    if (event.contains("failure")) {
      err << "kelmora: " << ReadableSink::describeFailure(event["failure"]) << '\n';
      status = 1;
    }
  }
  return status;
}

int play(const std::string& path, const std::string& pictures, const std::string& csl,
         const std::string& item, std::ostream& out) {
  const Scenario scenario = Scenario::load(path);
  JsonLinesSink sink(out);
  ToolHost host(sink,
                {.failureAnswer = scenario.failureAnswer, .answerChanges = scenario.answerChanges});
  if (!item.empty() && csl.empty())
    throw BadInput("--item names an item of a CSL-JSON file: give the file with --csl");
  if (!csl.empty()) {
    // The reference the scenario works on, loaded as a host loads one.
    Record reference = ReferenceFile::read(host.main(), csl, item);
    sink.emit({{"host", "SynchronizeFieldsWithModel"},
               {"args", {reference.whichType(), host::Csl::idOf(reference.extras())}}});
    host.host().show(reference.whichType());
    host.host().load(reference, host::Csl::optionOf(reference));
  }
  ScenarioPlayer player(host, sink, pictures);
  const int unmet = player.play(scenario);
  host.end();
  return unmet == 0 ? 0 : 1;
}

// CSL-JSON to reference files, or reference files to CSL-JSON.
int convert(const std::string& input, const std::string& item, const std::string& output,
            std::ostream& out) {
  const std::string what = "'" + input + "'";
  const Json document = JsonReader::read(input, what);
  RecordingSink sink;
  ToolHost host(sink, {});
  Json result;
  const bool references =
      ReferenceFile::isReference(document) ||
      (document.is_array() && !document.empty() && ReferenceFile::isReference(document.front()));
  if (references) {
    if (!item.empty())
      throw BadInput("--item chooses among CSL items; " + what + " holds reference files");
    result = Json::array();
    const Json list = document.is_array() ? document : Json::array({document});
    for (size_t i = 0; i < list.size(); ++i)
      result.push_back(host::Csl::write(ReferenceFile::fromJson(
          host.main(), list[i], what + ", reference " + std::to_string(i + 1))));
  } else if (!item.empty()) {
    result = ReferenceFile::toJson(ReferenceFile::fromCsl(host.main(), document, item, what));
  } else {
    result = Json::array();
    for (const Json& one : host::Csl::items(document, what))
      result.push_back(ReferenceFile::toJson(host::Csl::read(host.main(), one)));
  }
  host.end();
  const std::string text = result.dump(2) + "\n";
  if (output.empty())
    out << text;
  else
    OutputFile::write(output, text);
  return 0;
}

}  // namespace

int Cli::run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  CLI::App app{"kelmora: a host for the Kelmora reference form."};
  app.name("kelmora");
  app.require_subcommand(0, 1);

  std::string demoPictures = "kelmora-demo";
  auto* demo = app.add_subcommand("demo", "Play the built-in demo, printing each call readably");
  demo->add_option("--pictures", demoPictures, "Directory for the SVG pictures of each stage")
      ->capture_default_str();

  RenderOptions options;
  auto* renderCommand = app.add_subcommand("render", "Draw one frame as an SVG or PNG picture");
  options.form.addOptions(*renderCommand);
  renderCommand
      ->add_option("-o,--output", options.output,
                   "File to write: a PNG if its name ends in .png (needs rsvg-convert), else SVG")
      ->required();
  renderCommand->add_option("--png", options.png,
                            "Also write this PNG beside the SVG (needs rsvg-convert)");
  renderCommand->add_flag("--debug", options.debug, "Outline hidden widgets");

  FormSetup explainForm;
  bool explainJson = false;
  auto* explainCommand = app.add_subcommand(
      "explain",
      "Tell for each widget of a form why it is shown, hidden, disabled or captioned so");
  explainForm.addOptions(*explainCommand);
  explainCommand->add_flag("--json", explainJson, "One JSON object per widget, for programs");

  std::string fieldsType;
  std::optional<int32_t> fieldsFamily;
  bool fieldsMatrix = false;
  auto* fieldsCommand = app.add_subcommand(
      "fields", "List the fields of a reference type and whether a format shows them");
  fieldsCommand
      ->add_option("--type", fieldsType,
                   "Reference type: periodical (1), nonperiodical (0) or esource (4)")
      ->required();
  fieldsCommand->add_option("--family", fieldsFamily, "Format family 0 to 3 shipped with kelmora");
  fieldsCommand->add_flag("--matrix", fieldsMatrix,
                          "The table of fields by format families 0 to 3, in Markdown");

  std::string scenarioPath;
  std::string pictures = ".";
  auto* playCommand = app.add_subcommand("play", "Play a scenario, printing events as JSON lines");
  playCommand->add_option("scenario", scenarioPath, "Scenario file (JSON)")->required();
  playCommand->add_option("--pictures", pictures, "Directory the steps' \"svg\" paths are under")
      ->capture_default_str();
  std::string playCsl;
  std::string playItem;
  FormSetup::addCslOptions(*playCommand, playCsl, playItem);

  std::string convertInput;
  std::string convertOutput;
  std::string convertItem;
  auto* convertCommand = app.add_subcommand(
      "convert",
      "Turn CSL-JSON into reference files (type and values by field key) and back; the "
      "direction follows the input");
  convertCommand->add_option("input", convertInput, "CSL-JSON or reference file (JSON)")
      ->required();
  convertCommand->add_option("-o,--output", convertOutput,
                             "File to write; standard output without");
  convertCommand->add_option("--item", convertItem, "Only the CSL item with this id");

#ifdef KELMORA_WITH_GUI
  Gui::Options guiOptions;
  auto* guiCommand = app.add_subcommand("gui",
                                        "Show the form in a window with a host panel and "
                                        "a live log of the calls");
  guiCommand->add_option("--scenario", guiOptions.scenario, "Play this scenario into the window");
  guiCommand
      ->add_option("--pictures", guiOptions.pictures,
                   "Directory the scenario's \"svg\" paths are under")
      ->capture_default_str();
  guiCommand->add_option("--screenshot", guiOptions.screenshot,
                         "Save a PNG of the window and end (no display needed)");
  FormSetup::addCslOptions(*guiCommand, guiOptions.csl, guiOptions.item);
#else
  // The command is known either way, so that its absence is explained.
  auto* guiCommand = app.add_subcommand(
      "gui", "Show the form in a window (not in this build: Qt 6 Widgets was not found)");
  guiCommand->allow_extras();
#endif

  std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::CallForHelp& help) {
    return app.exit(help, out, err);
  } catch (const CLI::CallForAllHelp& help) {
    return app.exit(help, out, err);
  } catch (const CLI::ParseError& error) {
    err << "kelmora: " << error.what() << " (see kelmora --help)\n";
    return kBadInput;
  }

  try {
    if (renderCommand->parsed())
      return render(options, err);
    if (convertCommand->parsed())
      return convert(convertInput, convertItem, convertOutput, out);
    if (explainCommand->parsed())
      return Explain::widgets(explainForm, explainJson, out);
    if (fieldsCommand->parsed()) {
      if (fieldsMatrix && fieldsFamily)
        throw BadInput("--matrix shows every family: leave out --family");
      return fieldsMatrix
                 ? Explain::matrix(FormSetup::referenceType(fieldsType), out)
                 : Explain::fields(FormSetup::referenceType(fieldsType), fieldsFamily, out);
    }
    if (playCommand->parsed())
      return play(scenarioPath, pictures, playCsl, playItem, out);
#ifdef KELMORA_WITH_GUI
    if (guiCommand->parsed())
      return Gui::run(guiOptions, out, err);
#else
    if (guiCommand->parsed()) {
      err << "kelmora: this build has no window: Qt 6 Widgets was not found when it was built\n";
      return kBadInput;
    }
#endif
    if (demo->parsed())
      return Demo::run(demoPictures, out);
    // Nothing is done unasked: the demo writes its pictures where it runs.
    err << app.help();
    return kBadInput;
  } catch (const BadInput& error) {
    err << "kelmora: " << error.what() << '\n';
    return kBadInput;
  } catch (const RuntimeError& error) {
    err << "kelmora: the library failed with " << error.Number() << ": " << error.Description()
        << '\n';
    return 1;
  } catch (const std::filesystem::filesystem_error& error) {
    err << "kelmora: " << error.what() << '\n';
    return kBadInput;
  }
}

}  // namespace kelmora::tools
