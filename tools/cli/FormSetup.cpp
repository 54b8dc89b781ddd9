#include "cli/FormSetup.h"

#include <CLI/CLI.hpp>

#include <cctype>

#include "host/FieldValues.h"
#include "host/Kit.h"
#include "host/ToolCallback.h"
#include "host/ToolHost.h"
#include "hosting/FrameContainer.h"

namespace kelmora::tools {

int16_t FormSetup::referenceType(const std::string& text) {
  std::string lower;
  for (char c : text) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (lower == "nonperiodical" || lower == "0")
    return 0;
  if (lower == "periodical" || lower == "1")
    return 1;
  if (lower == "esource" || lower == "4")
    return 4;
  throw BadInput("unknown reference type '" + text +
                 "': use periodical (1), nonperiodical (0) or esource (4)");
}

int16_t FormSetup::whichType() const {
  return referenceType(type);
}

void FormSetup::addOptions(CLI::App& command) {
  command
      .add_option("--type", type,
                  "Reference type: periodical (1), nonperiodical (0) or esource (4)")
      ->required();
  command.add_option("--family", family, "Format family 0 to 3 shipped with kelmora");
  command.add_option("--settings", settings, "Format settings file (JSON)");
  command.add_option("--option", option,
                     "Type option to select (UpdateFrame Index); -1 keeps the one loaded");
  command.add_flag("--show-all", showAll, "Show all fields");
  command.add_option("--values", values, "Field values file: JSON object by field key");
}

void FormSetup::apply(ToolHost& host) const {
  const int16_t which = whichType();
  if (family.has_value() == !settings.empty())
    throw BadInput("give the format either as --family N or as --settings FILE");
  std::shared_ptr<FormatSettings> format =
      family ? FormatSettings::family(*family) : FormatSettings::load(settings);
  const Json fields =
      values.empty() ? Json::object() : JsonReader::read(values, "values file '" + values + "'");
  FrameContainer& container = host.container();
  container.SetVisibleFrame(which);
  container.ToggleFormatDependentWidgets(which, format);
  auto record = FieldValues::record(host.main(), which, fields, values);
  host.callback().loading(true);
  container.SynchronizeFieldsWithModel(which, record);
  host.callback().loading(false);
  container.UpdateFrame(option, showAll);
}

}  // namespace kelmora::tools
